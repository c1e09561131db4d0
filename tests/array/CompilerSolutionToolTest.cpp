#include <gtest/gtest.h>

#include "TestSupport.h"
#include "ToolRun.h"

namespace {

using tarvo_test::readFile;
using tarvo_test::TempDir;

std::string const kExamples = std::string(TARVO_SOURCE_DIR) + "/examples/";
std::string const kSolution = kExamples + "compiler_solution.json";
std::string const kDesign =
    " --arch '" + kExamples + "logical_arch.json' --traffic '" + kExamples + "kpe_array_traffic.json'";

tarvo_test::ToolRun docs(std::string const& arguments) {
  return tarvo_test::runTarvoDocs(TARVO_DOCS_EXE, arguments);
}

TEST(CompilerSolutionTool, ConvertOfTheExampleIsByteIdentical) {
  TempDir dir;
  ASSERT_EQ(0, docs("convert '" + kSolution + "'" + kDesign + " -o '" + dir.file("out.json") + "'").exitCode);
  EXPECT_EQ(readFile(kSolution), readFile(dir.file("out.json")));
  tarvo_test::ToolRun const withoutDesign = docs("convert '" + kSolution + "' -o '" + dir.file("none.json") + "'");
  EXPECT_EQ(1, withoutDesign.exitCode);
  EXPECT_EQ(0u, withoutDesign.err.find("ERROR: a compiler solution is written from the design it places; give --arch "
                                       "FILE and --traffic FILE.\n"));
}

TEST(CompilerSolutionTool, CheckAndSummaryPlaceThePortsOfTheDesign) {
  TempDir dir;
  std::string const invalid = dir.file("invalid.json");
  tarvo_test::writeFile(invalid, R"({"Placement": [{"LogicalInstance": {"InstanceName": "k", "PortName": 4}}]})");
  tarvo_test::ToolRun const check = docs("check '" + kSolution + "' --kind compiler-solution '" + invalid + "'");
  EXPECT_EQ(1, check.exitCode);
  EXPECT_EQ(kSolution + ": OK (compiler-solution, valid; give --arch and --traffic to place its ports)\n" + invalid +
                ": FAILED (compiler-solution, 1 error)\n",
            check.out);
  EXPECT_EQ(invalid + ":1:70: error: 'PortName': expected string, found integer 4 (schema rule 'type') [tarvo 8-101]\n",
            check.err);

  tarvo_test::ToolRun const summary = docs("summary '" + kSolution + "'" + kDesign);
  EXPECT_EQ(0, summary.exitCode);
  EXPECT_EQ(
      "KPE compiler solution: 6 placed channels on 4 ports\n"
      "  Device: zorvex-demo\n"
      "  design/kpe_array/in_samples:\n"
      "    design/kpe_array/in_samples<0>_INST on KPE_SHIM_X0Y0_PL_S0 (column 0, channel 0)\n"
      "    design/kpe_array/in_samples<1>_INST on KPE_SHIM_X0Y0_PL_S1 (column 0, channel 1)\n"
      "  design/kpe_array/out_beams:\n"
      "    design/kpe_array/out_beams<0>_INST on KPE_SHIM_X1Y0_PL_M0 (column 1, channel 2)\n"
      "    design/kpe_array/out_beams<1>_INST on KPE_SHIM_X1Y0_PL_M1 (column 1, channel 3)\n"
      "  design/kpe_array/coeffs:\n"
      "    design/kpe_array/coeffs on KPE_SHIM_X2Y0_NOC_S0 (column 2, channel 4)\n"
      "  design/kpe_array/results:\n"
      "    design/kpe_array/results on KPE_SHIM_X3Y0_NOC_M0 (column 3, channel 5)\n"
      "  Ports with no placed channel: design/kpe_array/trigger\n",
      summary.out);
}

TEST(CompilerSolutionTool, ShimConstraintsPublishChannelZeroUnderTheAnnotations) {
  TempDir dir;
  tarvo_test::ToolRun const run = docs("shim-constraints '" + kSolution + "'" + kDesign +
                                       " --instance design/kpe_array -o '" + dir.file("shim.json") + "'");
  EXPECT_EQ(0, run.exitCode);
  EXPECT_EQ(readFile(tarvo_test::dataPath("array/example_shim_constraints.json")), readFile(dir.file("shim.json")));
  tarvo_test::ToolRun const other = docs("shim-constraints '" + kSolution + "'" + kDesign + " --instance kpe_array");
  EXPECT_EQ(0, other.exitCode);
  EXPECT_EQ("", other.out);
  EXPECT_EQ(
      "tarvo-docs: no port of the KPE instance 'kpe_array' has a placed channel 0; the shim constraints are "
      "empty.\n",
      other.err);
}

TEST(CompilerSolutionTool, InterfaceIdentifiersOfTheWholeDesignOrOfSomeColumns) {
  std::string const command = "interface-id '" + kSolution + "'" + kDesign + " --instance design/kpe_array";
  tarvo_test::ToolRun const whole = docs(command);
  EXPECT_EQ(0, whole.exitCode);
  std::string const coeffs = "graph.coeffsKPE_SHIM_X2Y0_NOC_S0reg0";
  std::string const samples = "graph.in_samplesKPE_SHIM_X0Y0_PL_S0KPE_SHIM_X0Y0_PL_S1cf500.000dw00reg0";
  std::string const beams = "graph.out_beamsKPE_SHIM_X1Y0_PL_M0KPE_SHIM_X1Y0_PL_M1cf500.000dw00reg1";
  std::string const results = "graph.resultsKPE_SHIM_X3Y0_NOC_M0reg0";
  EXPECT_EQ("Port identifiers of design/kpe_array:\n  " + coeffs + "\n  " + samples + "\n  " + beams + "\n  " +
                results + "\nInterface identifier: " + coeffs + samples + beams + results +
                "\nInterface number: 0x000045c6\n",
            whole.out);
  tarvo_test::ToolRun const columns = docs(command + " --columns 1:2");
  EXPECT_EQ("Port identifiers of design/kpe_array in device columns 1 to 2:\n  " + coeffs + "\n  " + beams + "\n",
            columns.out);
  tarvo_test::ToolRun const bad = docs(command + " --columns 1-2");
  EXPECT_EQ(2, bad.exitCode);
  EXPECT_EQ("tarvo-docs: --columns needs START:COUNT, a first device column and a number of columns, not '1-2'\n",
            bad.err);
}

}  // namespace
