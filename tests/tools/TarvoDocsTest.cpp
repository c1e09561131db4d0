#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "TestSupport.h"
#include "ToolRun.h"

namespace {

using tarvo_test::readFile;
using tarvo_test::runTarvoDocs;
using tarvo_test::TempDir;
using tarvo_test::writeFile;

std::string const kMeta = std::string(TARVO_SOURCE_DIR) + "/examples/project_meta.json";

tarvo_test::ToolRun docs(std::string const& arguments) {
  return runTarvoDocs(TARVO_DOCS_EXE, arguments);
}

TEST(TarvoDocs, CheckGivesOneClearLineForEachBadFileAndExitsOne) {
  TempDir dir;
  writeFile(dir.file("empty.json"), "");
  writeFile(dir.file("syntax.json"), "{\"MetaData\": [\n  {\"name\": \"a\" \"value\": 1}\n]}");
  writeFile(dir.file("deep.json"), std::string(1000000, '['));
  std::string const missing = dir.file("missing.json");
  tarvo_test::ToolRun const run = docs("check '" + dir.file("empty.json") + "' '" + dir.file("syntax.json") + "' '" +
                                       dir.file("deep.json") + "' '" + missing + "' '" + kMeta + "'");
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.err,
            dir.file("empty.json") + ":1:1: error: The document is empty. [tarvo 8-101]\n" + dir.file("syntax.json") +
                ":2:16: error: Missing a comma or '}' after an object member. [tarvo 8-101]\n" + dir.file("deep.json") +
                ":1:513: error: The text nests arrays and objects deeper than 512 levels. [tarvo 8-101]\n" + missing +
                ": error: Cannot read JSON file '" + missing +
                "': it does not exist, is not a regular file, or cannot be opened. Check the path and its "
                "permissions. [tarvo 8-100]\n");
  EXPECT_EQ(run.out, dir.file("empty.json") + ": FAILED (unknown kind, 1 error)\n" + dir.file("syntax.json") +
                         ": FAILED (metadata, 1 error)\n" + dir.file("deep.json") +
                         ": FAILED (unknown kind, 1 error)\n" + missing + ": FAILED (unknown kind, 1 error)\n" + kMeta +
                         ": OK (metadata, 6 properties)\n");
}

TEST(TarvoDocs, ConvertOfAWrittenDocumentIsByteIdenticalAndAFailureLeavesOutputAlone) {
  TempDir dir;
  std::string const out = dir.file("out.json");
  ASSERT_EQ(docs("convert '" + kMeta + "' -o '" + out + "'").exitCode, 0);
  EXPECT_EQ(readFile(out), readFile(kMeta));

  writeFile(out, "previous contents");
  writeFile(dir.file("bad.json"), "{\"MetaData\": [}");
  tarvo_test::ToolRun const failed = docs("convert '" + dir.file("bad.json") + "' -o '" + out + "'");
  EXPECT_EQ(failed.exitCode, 1);
  EXPECT_EQ(readFile(out), "previous contents");
  std::set<std::string> names;
  for (auto const& entry : std::filesystem::directory_iterator(dir.path()))
    names.insert(entry.path().filename());
  EXPECT_EQ(names, std::set<std::string>({"bad.json", "out.json"}));
  EXPECT_EQ(docs("convert '" + kMeta + "' -o '" + dir.file("no/dir/out.json") + "'").exitCode, 1);
}

TEST(TarvoDocs, SummaryAndKindSelection) {
  tarvo_test::ToolRun const summary = docs("summary --kind metadata '" + kMeta + "'");
  EXPECT_EQ(summary.exitCode, 0);
  EXPECT_EQ(summary.out,
            "Project metadata: 6 properties\n"
            "  KPE_PL_INTF_ID (integer) = 305419896\n"
            "  KPE_PL_INTF_ID_STR (string) = \"kpe0_pl_intf\"\n"
            "  project.clock.mhz (double) = 1250.000000\n"
            "  project.kernels (string array) = [\"fir_stage\", \"fft_1k\", \"beamformer\"]\n"
            "  project.noc.enabled (boolean) = true\n"
            "  project.trace.bytes (unsigned long) = 8589934592\n");
  tarvo_test::ToolRun const unknownKind = docs("check --kind nonsense '" + kMeta + "'");
  EXPECT_EQ(unknownKind.exitCode, 2);
  EXPECT_EQ(unknownKind.err, "tarvo-docs: unknown document kind 'nonsense' (see tarvo-docs check --help)\n");
  EXPECT_EQ(docs("frobnicate x").exitCode, 2);
  EXPECT_EQ(docs("check").exitCode, 2);
  tarvo_test::ToolRun const help = docs("--help");
  EXPECT_EQ(help.exitCode, 0);
  EXPECT_NE(help.out.find("convert [options] FILE -o OUT"), std::string::npos);
  EXPECT_EQ(docs("--version").out.compare(0, 11, "tarvo-docs "), 0);
}

TEST(TarvoDocs, UnrecognisedContentAsksForAKind) {
  TempDir dir;
  writeFile(dir.file("other.json"), "{\"Something\": 1}");
  tarvo_test::ToolRun const run = docs("check '" + dir.file("other.json") + "'");
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.err, dir.file("other.json") + ": error: cannot tell which kind of document '" + dir.file("other.json") +
                         "' is; name it with --kind\n");
}

}  // namespace
