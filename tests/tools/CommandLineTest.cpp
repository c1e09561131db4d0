#include <gtest/gtest.h>

#include <boost/iostreams/copy.hpp>
#include <boost/iostreams/filter/gzip.hpp>
#include <boost/iostreams/filtering_stream.hpp>

#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "InProcess.h"
#include "TestSupport.h"

namespace {

using tarvo_test::readFile;
using tarvo_test::runInProcess;
using tarvo_test::TempDir;
using tarvo_test::ToolRun;
using tarvo_test::writeFile;

using tarvo_test::kExamples;
using tarvo_test::kMeta;

std::string gzip(std::string const& text) {
  std::ostringstream packed;
  boost::iostreams::filtering_ostream out;
  out.push(boost::iostreams::gzip_compressor());
  out.push(packed);
  out << text;
  out.reset();
  return packed.str();
}

std::string gunzip(std::string const& packed) {
  std::istringstream in(packed);
  boost::iostreams::filtering_istream unpack;
  unpack.push(boost::iostreams::gzip_decompressor());
  unpack.push(in);
  std::ostringstream text;
  boost::iostreams::copy(unpack, text);
  return text.str();
}

TEST(CommandLine, EachCommandTakesOnlyItsOwnOptionsAndDescribesThem) {
  ToolRun const foreign = runInProcess({"check", "--hw", "--columns", "1:2", kMeta});
  EXPECT_EQ(foreign.exitCode, 2);
  EXPECT_EQ(foreign.out, "");
  EXPECT_EQ(foreign.err,
            "tarvo-docs: check: the following arguments were not expected: --columns --hw (see tarvo-docs check "
            "--help)\n");
  EXPECT_EQ(runInProcess({"summary", "--only", "x", kMeta}).exitCode, 2);
  EXPECT_EQ(runInProcess({"convert", kMeta, "-o"}).exitCode, 2);

  ToolRun const help = runInProcess({"convert", "--help"});
  EXPECT_EQ(help.exitCode, 0);
  EXPECT_EQ(help.out.compare(0, 48, "Usage: tarvo-docs convert [options] FILE -o OUT\n"), 0) << help.out;
  for (char const* option : {"--only REGEX", "--param NAME=VALUE", "--hierarchy PREFIX", "-o OUT", "--kind KIND"})
    EXPECT_NE(help.out.find(std::string("\n  ") + option + " "), std::string::npos) << option;
  EXPECT_EQ(runInProcess({"check", "--help"}).out.find("--only"), std::string::npos);
  EXPECT_NE(help.out.find("  2  usage"), std::string::npos);

  ToolRun const missing = runInProcess({"shim-constraints", kMeta, "--arch", "a.json"});
  EXPECT_EQ(missing.exitCode, 2);
  EXPECT_EQ(missing.err,
            "tarvo-docs: shim-constraints needs one compiler solution FILE, --arch, --traffic and --instance (see "
            "tarvo-docs shim-constraints --help)\n");
  EXPECT_EQ(runInProcess({"--kind", "metadata", "check", kMeta}).err,
            "tarvo-docs: unknown option --kind; options follow their command (see tarvo-docs --help)\n");
  ToolRun const none = runInProcess({});
  EXPECT_EQ(none.exitCode, 2);
  EXPECT_EQ(none.err.compare(0, 36, "Usage: tarvo-docs COMMAND [options] "), 0);
}

TEST(CommandLine, DoubleDashEndsTheOptions) {
  TempDir dir;
  writeFile(dir.file("--quiet"), readFile(kMeta));
  ToolRun const named = runInProcess({"check", "--", dir.file("--quiet")});
  EXPECT_EQ(named.exitCode, 0);
  EXPECT_EQ(named.out, dir.file("--quiet") + ": OK (metadata, 6 properties)\n");
}

TEST(CommandLine, DashIsStandardInputAndStandardOutput) {
  TempDir dir;
  for (char const* name : {"noc_traffic.json", "logical_arch.json", "constraints.json", "project_meta.json"}) {
    std::string const file = kExamples + name;
    ASSERT_EQ(runInProcess({"convert", file, "-o", dir.file("out.json")}).exitCode, 0) << name;
    ToolRun const piped = runInProcess({"convert", "-", "-o", "-"}, readFile(file));
    EXPECT_EQ(piped.exitCode, 0) << piped.err;
    EXPECT_EQ(piped.out, readFile(dir.file("out.json"))) << name;
  }
  // Compressed input is inflated as a gzip-aware file is.
  ToolRun const packed = runInProcess({"check", "-"}, gzip(readFile(kMeta)));
  EXPECT_EQ(packed.out, "(standard input): OK (metadata, 6 properties)\n");
  ToolRun const broken = runInProcess({"check", "-"}, "{\"MetaData\": [\n}");
  EXPECT_EQ(broken.exitCode, 1);
  EXPECT_EQ(broken.err, "(standard input):2:1: error: Invalid value. [tarvo 8-101]\n");
  EXPECT_FALSE(std::filesystem::exists("-"));
}

TEST(CommandLine, OutputEndingInGzIsCompressedAndReadsBack) {
  TempDir dir;
  std::string const traffic = kExamples + "noc_traffic.json";
  ASSERT_EQ(runInProcess({"convert", traffic, "-o", dir.file("out.json.gz")}).exitCode, 0);
  std::string const packed = readFile(dir.file("out.json.gz"));
  ASSERT_GE(packed.size(), 2u);
  EXPECT_EQ(packed.substr(0, 2), "\x1f\x8b");
  EXPECT_EQ(gunzip(packed), readFile(traffic));
  EXPECT_EQ(runInProcess({"check", dir.file("out.json.gz")}).out,
            dir.file("out.json.gz") + ": OK (traffic, 3 masters, 2 slaves, 3 paths)\n");
}

TEST(CommandLine, CheckRefusesTextThatIsNotJson) {
  TempDir dir;
  writeFile(dir.file("nul.json"), std::string("{\"MetaData\": []}\0{\"anything\"", 29));
  writeFile(dir.file("empty.json"), "");
  ToolRun const nul = runInProcess({"check", dir.file("nul.json")});
  EXPECT_EQ(nul.exitCode, 1);
  EXPECT_EQ(nul.out, dir.file("nul.json") + ": FAILED (metadata, 1 error)\n");
  EXPECT_EQ(nul.err, dir.file("nul.json") + ": error: '" + dir.file("nul.json") +
                         "' is not JSON: a NUL byte at offset 16 follows the document.\n");
  ToolRun const piped = runInProcess({"check", "-"}, std::string("{\"isToolGenerated\": true}\n\0", 27));
  EXPECT_EQ(piped.err,
            "(standard input): error: '(standard input)' is not JSON: a NUL byte at offset 26 follows the document.\n");

  // The NUL byte is found while the document is read, beyond the first block of the file and
  // in inflated text, or by a read of its own for the readers that open their files themselves.
  std::string properties = "{\"MetaData\": [";
  for (int i = 0; i < 2000; ++i)
    properties += std::string(i ? ",\n" : "") + "{\"name\": \"p" + std::to_string(i) +
                "\", \"value\": " + std::to_string(i) + "}";
  properties += "]}\n";
  ASSERT_GT(properties.size(), 1u << 16);
  writeFile(dir.file("long.json"), properties + std::string("  \0\0{", 5));
  writeFile(dir.file("traffic.json.gz"), gzip(readFile(kExamples + "noc_traffic.json") + std::string("\0", 1)));
  writeFile(dir.file("constraints.json"), readFile(kExamples + "constraints.json") + std::string("\0", 1));
  auto nulError = [&](std::string const& name, std::size_t offset) {
    return dir.file(name) + ": error: '" + dir.file(name) + "' is not JSON: a NUL byte at offset " +
           std::to_string(offset) + " follows the document.\n";
  };
  EXPECT_EQ(runInProcess({"check", dir.file("long.json")}).err, nulError("long.json", properties.size() + 2));
  EXPECT_EQ(runInProcess({"check", dir.file("traffic.json.gz")}).err,
            nulError("traffic.json.gz", readFile(kExamples + "noc_traffic.json").size()));
  EXPECT_EQ(runInProcess({"check", dir.file("constraints.json")}).err,
            nulError("constraints.json", readFile(kExamples + "constraints.json").size()));

  ToolRun const empty = runInProcess({"check", "--kind", "compiler-solution", dir.file("empty.json")});
  EXPECT_EQ(empty.exitCode, 1);
  EXPECT_EQ(empty.out, dir.file("empty.json") + ": FAILED (compiler-solution, 1 error)\n");
  EXPECT_EQ(empty.err, dir.file("empty.json") + ": error: '" + dir.file("empty.json") +
                           "' is empty; there is no compiler solution in it.\n");
  ToolRun const metadata = runInProcess({"check", "--kind", "metadata", dir.file("empty.json")});
  EXPECT_EQ(metadata.err, dir.file("empty.json") + ":1:1: error: The document is empty. [tarvo 8-101]\n");
  // A failed document is not converted: no output appears.
  EXPECT_EQ(runInProcess({"convert", dir.file("nul.json"), "-o", dir.file("out.json")}).exitCode, 1);
  EXPECT_FALSE(std::ifstream(dir.file("out.json")).good());
}

TEST(CommandLine, CheckOfADirectoryReadsItsDocumentsInOrder) {
  TempDir dir;
  writeFile(dir.file("b.json"), readFile(kMeta));
  writeFile(dir.file("notes.txt"), "not a document");
  ASSERT_EQ(mkdir(dir.file("a").c_str(), 0755), 0);
  writeFile(dir.file("a/z.json.gz"), gzip(readFile(kExamples + "noc_traffic.json")));
  writeFile(dir.file("a/bad.json"), "{");
  ToolRun const run = runInProcess({"check", "--quiet", dir.path()});
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.out, dir.file("a/bad.json") + ": FAILED (unknown kind, 1 error)\n");
  ToolRun const all = runInProcess({"check", dir.path()});
  EXPECT_EQ(all.out, dir.file("a/bad.json") + ": FAILED (unknown kind, 1 error)\n" + dir.file("a/z.json.gz") +
                         ": OK (traffic, 3 masters, 2 slaves, 3 paths)\n" + dir.file("b.json") +
                         ": OK (metadata, 6 properties)\n");
}

TEST(CommandLine, QuietLeavesOnlyErrors) {
  std::string const warned = tarvo_test::dataPath("traffic/reader_forms.json");
  ToolRun const loud = runInProcess({"check", warned});
  EXPECT_EQ(loud.out, warned + ": OK (traffic, 2 masters, 3 slaves, 3 paths, 2 warnings)\n");
  EXPECT_EQ(loud.err, warned +
                          ":21:40: warning: Port 'BOGUS' is not a valid port of the logical slave 'ddr'; the port is "
                          "ignored. Use PORT0 to PORT3 (or PC0_PORT0 to PC1_PORT1). [tarvo 73-30]\n" +
                          warned +
                          ":46:54: warning: Invalid port type 'PORT9' on a path; the port is ignored. Use PORT0 to "
                          "PORT3 (or PC0_PORT0 to PC1_PORT1). [tarvo 73-448]\n");
  ToolRun const quiet = runInProcess({"check", "--quiet", warned, "/no/such.json"});
  EXPECT_EQ(quiet.exitCode, 1);
  EXPECT_EQ(quiet.out, "/no/such.json: FAILED (unknown kind, 1 error)\n");
  EXPECT_EQ(quiet.err.compare(0, 43, "/no/such.json: error: Cannot read JSON file"), 0) << quiet.err;
  EXPECT_EQ(quiet.err.find("warning"), std::string::npos);
}

TEST(CommandLine, ANocSolutionKeepsItsSolutionTypeWhereverTheKeyStands) {
  TempDir dir;
  std::string const solution = kExamples + "noc_solution.json";
  std::string text = readFile(solution);
  std::string const key = "  \"SolutionType\": \"OPTIMAL\",\n";
  ASSERT_EQ(text.compare(2, key.size(), key), 0);
  text.erase(2, key.size());
  text.insert(text.rfind('}'), ", \"SolutionType\": \"OPTIMAL\"\n");
  writeFile(dir.file("last.json"), text);
  std::string const traffic = kExamples + "noc_traffic.json";
  ToolRun const run = runInProcess({"convert", dir.file("last.json"), "--traffic", traffic, "-o", "-"});
  EXPECT_EQ(run.exitCode, 0) << run.err;
  EXPECT_EQ(run.out, readFile(solution));
}

TEST(CommandLine, TheProgressBarIsDrawnOnlyWhenAskedForOrOnATerminal) {
  std::string const traffic = kExamples + "noc_traffic.json";
  ToolRun const plain = runInProcess({"check", traffic});
  EXPECT_EQ(plain.err, "");
  ToolRun const drawn = runInProcess({"check", "--progress", traffic});
  std::string const last = "\r[" + std::string(30, '#') + "] 100% Reading Traffic File " + traffic + "\n";
  ASSERT_GE(drawn.err.size(), last.size());
  EXPECT_EQ(drawn.err.substr(drawn.err.size() - last.size()), last);
  EXPECT_EQ(runInProcess({"check", "--progress", "--quiet", traffic}).err, "");
}

}  // namespace
