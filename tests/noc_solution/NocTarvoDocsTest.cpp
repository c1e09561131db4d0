#include <gtest/gtest.h>

#include "HIPDeviceLoader.h"
#include "TestSupport.h"
#include "ToolRun.h"

namespace {

using tarvo_test::readFile;
using tarvo_test::TempDir;
using tarvo_test::writeFile;

std::string const kExamples = std::string(TARVO_SOURCE_DIR) + "/examples/";
std::string const kTraffic = " --traffic '" + kExamples + "noc_traffic.json'";

tarvo_test::ToolRun docs(std::string const& arguments) {
  return tarvo_test::runTarvoDocs(TARVO_DOCS_EXE, arguments);
}

TEST(NocTarvoDocs, ExamplesFitTheirTrafficAndConvertByteForByte) {
  TempDir dir;
  for (char const* name : {"noc_solution.json", "noc_constraints.json"}) {
    tarvo_test::ToolRun const run =
        docs("convert '" + kExamples + name + "'" + kTraffic + " -o '" + dir.file(name) + "'");
    EXPECT_EQ(run.exitCode, 0) << run.err;
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(readFile(dir.file(name)), readFile(kExamples + name)) << name;
  }
  tarvo_test::ToolRun const check =
      docs("check '" + kExamples + "noc_solution.json' '" + kExamples + "noc_constraints.json'" + kTraffic);
  EXPECT_EQ(check.out, kExamples + "noc_solution.json: OK (noc-solution, 3 paths, 9 routed nets, 6 destination ids)\n" +
                           kExamples + "noc_constraints.json: OK (noc-constraints, 4 placements)\n");
  // Without the traffic, a document is only checked against its schema and cannot be converted.
  EXPECT_EQ(docs("check '" + kExamples + "noc_solution.json'").out,
            kExamples +
                "noc_solution.json: OK (noc-solution, 3 paths, 6 components; schema only, read against a "
                "traffic specification with --traffic FILE)\n");
  EXPECT_EQ(docs("convert '" + kExamples + "noc_constraints.json' -o '" + dir.file("c.json") + "'").exitCode, 1);
}

TEST(NocTarvoDocs, ReportsSolutionsThatDoNotFitAndExitsOne) {
  TempDir dir;
  std::string const solution = readFile(kExamples + "noc_solution.json");
  std::string const portIndex = "\"PortIndex\": 1";
  writeFile(dir.file("port.json"),
            std::string(solution).replace(solution.find(portIndex), portIndex.size(), "\"PortIndex\": 7"));
  std::string device = DevHrdIP::HIPDeviceLoader::getDefaultDeviceText();
  std::string const link =
      R"({"from": "NOC_SW_X0Y1", "fromPort": "E", "to": "NOC_SW_X1Y1", "toPort": "W", "latency": 2},)";
  device.erase(device.find(link), link.size());
  writeFile(dir.file("device.json"), device);

  tarvo_test::ToolRun const port = docs("check '" + dir.file("port.json") + "'" + kTraffic);
  EXPECT_EQ(port.exitCode, 1);
  EXPECT_EQ(port.out, dir.file("port.json") + ": FAILED (noc-solution, 1 error)\n");
  EXPECT_EQ(port.err,
            dir.file("port.json") + ": error: vector::_M_range_check: __n (which is 7) >= this->size() (which is 4)\n");

  tarvo_test::ToolRun const other =
      docs("summary '" + kExamples + "noc_solution.json'" + kTraffic + " --device '" + dir.file("device.json") + "'");
  EXPECT_EQ(other.exitCode, 1);
  EXPECT_EQ(other.out, "");
  EXPECT_EQ(other.err,
            "ERROR: No Connection between NOC_SW_X0Y1 E to NOC_SW_X1Y1 W\nDevice Model version mismatch!\n"
            "Please make sure checkpoint and Brelum versions match!\n");
}

}  // namespace
