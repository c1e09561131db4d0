#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <sstream>

#include "ComMsgMgrInstance.h"
#include "HDGUIStatus.h"
#include "HIPLogicalObjectNameResolverInterface.h"
#include "NOCJsonSolutionWriter.h"
#include "NocTestModel.h"
#include "TestSupport.h"

using namespace HrdIPToolCntr;
using NOC::NOCJsonSolutionWriter;
using noc_test::TrafficOnDefaultDevice;

namespace {

std::string written(TrafficSpec const& spec, CompRes const& result) {
  HDGUIStatus status;
  std::ostringstream out;
  EXPECT_TRUE(NOCJsonSolutionWriter::writeToJsonFile(out, spec, result, status));
  return out.str();
}

// Routes, achieved values, locks and destination ids of every kind that the document shows.
struct FullSolution : TrafficOnDefaultDevice {
  FullSolution() : result(*device) {
    result.setSolutionState(CompRes::SUBOPTIMAL);
    result.setHasLockedDestIdsForAllComps(true);
    routePath(result, psToDdr, {"NOC_IN_PS_0", "NOC_SW_X0Y1", "NOC_SW_X1Y1", "NOC_MC_0_PORT0"}, 700, false);
    routePath(result, plToDdr,
              {"NOC_IN_PL_0", "NOC_SW_X0Y0", "NOC_SW_X1Y0", "NOC_SW_X2Y0", "NOC_SW_X2Y1", "NOC_MC_0_PORT2"}, 1100,
              true);
    routePath(result, plToSlave, {"NOC_IN_PL_0", "NOC_SW_X0Y0", "NOC_OUT_PL_0"}, 90, false);
    // A read request that only reaches the first switch is not written; its path still is.
    result.addRoute(plToSlave->getNet(TrafficNet::READ_REQ),
                    noc_test::routeThrough(*device, {"NOC_IN_PL_0", "NOC_SW_X0Y0"}), 3, 50, false);
    result.setPathReadAchieved(psToDdr, 20, 700);
    result.setPathWriteAchieved(plToDdr, 30, 0);
    result.lockLogicalInst(psMaster);
    result.setLogicalInstLocked(plSlave, false);
    result.bindLogicalToPhysical(ddr, component("NOC_MC_0"));
    result.bindLogicalToPhysical(plSlave, component("NOC_OUT_PL_0"));
    result.bindLogicalToPhysical(plMaster, component("NOC_IN_PL_0"));
    result.setComponentDestId(component("NOC_MC_0_PORT0"), DestIdRepr(10));
    result.setComponentDestId(component("NOC_MC_0_PORT2"), DestIdRepr(12));
    result.setComponentDestId(component("NOC_OUT_PL_0"), DestIdRepr(5));
    result.setComponentDestId(component("NOC_OUT_PS_0"), DestIdRepr(4095));
  }

  CompRes result;
};

TEST(NOCJsonSolutionWriterTest, WritesRoutedPathsAndDestinationIdsInDocumentOrder) {
  FullSolution const solution;
  EXPECT_EQ(written(solution.spec, solution.result),
            tarvo_test::readFile(tarvo_test::dataPath("noc_solution/written_full.json")));
}

TEST(NOCJsonSolutionWriterTest, WithoutRoutesWritesStateAndDestinationIdsOnly) {
  TrafficOnDefaultDevice traffic;
  CompRes result(*traffic.device);
  result.setSolutionState(7);
  result.setComponentDestId(traffic.component("NOC_MC_0_PORT3"), DestIdRepr(3));
  result.setComponentDestId(traffic.component("NOC_SW_X0Y0"), DestIdRepr(1));
  EXPECT_EQ(written(traffic.spec, result),
            "{\n  \"SolutionType\": \"NO_SOLUTION\",\n  \"LockAllDestIds\": false,\n  \"Paths\": [],\n"
            "  \"Components\": [\n    {\n      \"Name\": \"NOC_SW_X0Y0\",\n      \"DestId\": 1\n    },\n"
            "    {\n      \"Name\": \"NOC_MC_0\",\n      \"DestId\": 3,\n      \"PortIndex\": 3\n    }\n  ]\n}");
}

// Netlist names with a mark of the way they were translated; "ddr" is not in the design and
// goes by its external connections.
class MarkingResolver : public HIPLogicalObjectNameResolverInterfaceIdentity {
 public:
  std::string fromNetlistInstance(std::string const& name) override { return "inst:" + name; }
  std::string fromNetlistName(std::string const& name) override { return "net:" + name; }
  bool isNameInDesign(std::string const& name) override { return name != "ddr"; }
};

TEST(NOCJsonSolutionWriterTest, FilterDropsPathsAndResolverNamesTheEnds) {
  FullSolution const solution;
  MarkingResolver resolver;
  HDGUIStatus status;
  std::ostringstream out;
  auto const withoutPlSlave = [&](TrafficLInst const* const& instance) { return instance != solution.plSlave; };
  ASSERT_TRUE(
      NOCJsonSolutionWriter::writeToJsonFile(out, solution.spec, solution.result, withoutPlSlave, resolver, status));
  rapidjson::Document doc;
  doc.Parse(out.str().c_str());
  std::vector<std::string> ends;
  for (auto const& path : doc["Paths"].GetArray())
    ends.push_back(std::string(path["From"].GetString()) + " -> " + path["To"].GetString());
  EXPECT_EQ(ends, std::vector<std::string>({"inst:ps_master -> net:top/ddr_p0", "inst:pl_master -> net:top/ddr_p0"}));
  std::vector<std::string> instances;
  for (auto const& component : doc["Components"].GetArray())
    instances.push_back(component.HasMember("TrafficLInst") ? component["TrafficLInst"].GetString() : "-");
  EXPECT_EQ(instances, std::vector<std::string>({"inst:pl_slave", "-", "net:top/ddr_p0", "net:top/ddr_p0"}));
}

TEST(NOCJsonSolutionWriterTest, FileFormWritesTheStreamFormText) {
  FullSolution const solution;
  tarvo_test::TempDir dir;
  HDGUIStatus status;
  ASSERT_TRUE(NOCJsonSolutionWriter::writeToJsonFile(dir.file("s.json"), solution.spec, solution.result, status));
  EXPECT_EQ(tarvo_test::readFile(dir.file("s.json")), written(solution.spec, solution.result));
  EXPECT_FALSE(
      NOCJsonSolutionWriter::writeToJsonFile(dir.file("missing/s.json"), solution.spec, solution.result, status));
}

}  // namespace
