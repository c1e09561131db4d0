#include <gtest/gtest.h>

#include "TestSupport.h"
#include "ToolRun.h"

namespace {

using tarvo_test::dataPath;
using tarvo_test::readFile;
using tarvo_test::TempDir;
using tarvo_test::writeFile;

std::string const kExample = std::string(TARVO_SOURCE_DIR) + "/examples/logical_arch.json";

tarvo_test::ToolRun docs(std::string const& arguments) {
  return tarvo_test::runTarvoDocs(TARVO_DOCS_EXE, arguments);
}

std::string quoted(std::string const& path) {
  return "'" + path + "'";
}

}  // namespace

TEST(LogicalArchTool, CheckNamesTheFileAndThePlaceOfABrokenDocument) {
  TempDir dir;
  std::string const invalid = dir.file("invalid.json");
  writeFile(invalid, R"({"KPE": {"k": {"kpeshimPorts": {"p": {"busWidth": "wide"}}}}})");
  std::string const broken = dir.file("broken.json");
  writeFile(broken, "{\"PL\": {\n  \"p\": {\"plPorts\": {}},\n}}");
  tarvo_test::ToolRun const run =
      docs("check " + quoted(kExample) + " " + quoted(invalid) + " --kind logical-arch " + quoted(broken));
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.out, kExample + ": OK (logical-arch, 4 instances, 18 ports, 9 connections)\n" + invalid +
                         ": FAILED (logical-arch, 1 error)\n" + broken + ": FAILED (logical-arch, 1 error)\n");
  EXPECT_EQ(run.err, invalid +
                         ":1:51: error: 'busWidth': expected integer, found string \"wide\" (schema rule 'type') "
                         "[tarvo 8-101]\n" +
                         broken + ":3:1: error: Missing a name for object member. [tarvo 8-101]\n");
}

TEST(LogicalArchTool, SummaryCountsInstancesByKindAndConnectionsByDirection) {
  tarvo_test::ToolRun const run = docs("summary " + quoted(kExample));
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.out,
            "Logical architecture: 4 instances, 18 ports, 9 connections\n"
            "Application: beamformer_v2\n"
            "Schema: 1.2\n"
            "Device: zv1902\n"
            "Platform: zv1902_base\n"
            "Instances by kind:\n"
            "  kpeip: 1 instance, 5 ports\n"
            "  nocip: 1 instance, 6 ports\n"
            "  plip: 2 instances, 7 ports\n"
            "Connections by direction:\n"
            "  kpe_to_noc: 1\n"
            "  kpe_to_pl: 1\n"
            "  noc_to_kpe: 1\n"
            "  noc_to_noc: 1\n"
            "  noc_to_pl: 1\n"
            "  pl_to_kpe: 2\n"
            "  pl_to_noc: 1\n"
            "  pl_to_pl: 1\n");
}

TEST(LogicalArchTool, ConvertIsByteIdenticalOrWritesOneSubHierarchy) {
  TempDir dir;
  std::string const out = dir.file("out.json");
  ASSERT_EQ(docs("convert " + quoted(kExample) + " -o " + quoted(out)).exitCode, 0);
  EXPECT_EQ(readFile(out), readFile(kExample));
  ASSERT_EQ(docs("convert --hierarchy top " + quoted(dataPath("logarch/full.json")) + " -o " + quoted(out)).exitCode,
            0);
  EXPECT_EQ(readFile(out), readFile(dataPath("logarch/full.top.json")));
}

TEST(LogicalArchTool, RenamePortsWritesStandardNamesAndLeavesOutputAloneOnFailure) {
  TempDir dir;
  std::string const out = dir.file("out.json");
  std::string const full = quoted(dataPath("logarch/full.json"));
  ASSERT_EQ(docs("rename-ports " + full + " -o " + quoted(out)).exitCode, 0);
  EXPECT_EQ(readFile(out), readFile(dataPath("logarch/full.renamed.json")));
  ASSERT_EQ(docs("rename-ports --hw " + full + " -o " + quoted(out)).exitCode, 0);
  EXPECT_EQ(readFile(out), readFile(dataPath("logarch/full.renamed-hw.json")));

  writeFile(out, "previous");
  writeFile(dir.file("bad.json"), "{\"KPE\": 1}");
  tarvo_test::ToolRun const failed = docs("rename-ports " + quoted(dir.file("bad.json")) + " -o " + quoted(out));
  EXPECT_EQ(failed.exitCode, 1);
  EXPECT_EQ(failed.err, "ERROR: [tarvo 8-101] Failed to parse JSON file '" + dir.file("bad.json") + "': #/KPE\n");
  EXPECT_EQ(readFile(out), "previous");
  tarvo_test::ToolRun const usage = docs("rename-ports " + full);
  EXPECT_EQ(usage.exitCode, 2);
  EXPECT_EQ(usage.err, "tarvo-docs: rename-ports needs one FILE and -o OUT (see tarvo-docs rename-ports --help)\n");
}
