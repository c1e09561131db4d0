#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

#include "HDGUIStatus.h"
#include "HEXAll.h"
#include "HIPLogicalObjectNameResolverInterface.h"
#include "NOCJsonSolutionReader.h"
#include "NOCJsonSolutionWriter.h"
#include "NOCMeshGenerator.h"
#include "NocTestModel.h"
#include "TestSupport.h"

using namespace DevHrdIP::Definitions;
using namespace HrdIPToolCntr;
using DevHrdIP::Link;
using NOC::NOCJsonSolutionReader;
using NOC::NOCJsonSolutionWriter;
using noc_test::TrafficOnDefaultDevice;

namespace {

std::string written(TrafficSpec const& spec, CompRes const& result) {
  HDGUIStatus status;
  std::ostringstream out;
  EXPECT_TRUE(NOCJsonSolutionWriter::writeToJsonFile(out, spec, result, status));
  return out.str();
}

void read(std::string const& text, TrafficSpec const& spec, CompRes& result,
          HIPLogicalObjectNameResolverInterface* resolver = nullptr) {
  HIPLogicalObjectNameResolverInterfaceIdentity identity;
  HDGUIStatus status;
  std::istringstream in(text);
  EXPECT_TRUE(
      NOCJsonSolutionReader::readFromJsonFile(in, "s.json", resolver ? *resolver : identity, spec, result, status));
}

// A path with every key that the schema requires, all zero or false, and the given nets.
std::string pathText(std::string const& from, std::string const& to, std::string const& nets = "[]") {
  return R"({"Phase": 0, "From": ")" + from + R"(", "FromLocked": false, "To": ")" + to +
         R"(", "ToLocked": false, "Port": "PORT0", "ReadTC": "BE", "WriteTC": "BE", "ReadBW": 0, "WriteBW": 0,
         "ReadAchievedBW": 0, "WriteAchievedBW": 0, "ReadLatency": 0, "WriteLatency": 0,
         "ReadBestPossibleLatency": 0, "WriteBestPossibleLatency": 0, "PathLocked": false, "Nets": )" +
         nets + "}";
}

std::string solutionText(std::string const& paths, std::string const& components = "[]") {
  return R"({"SolutionType": "OPTIMAL", "Paths": [)" + paths + R"(], "Components": )" + components + "}";
}

struct Written : TrafficOnDefaultDevice {
  Written() : original(*device) {
    routePath(original, psToDdr, {"NOC_IN_PS_0", "NOC_SW_X0Y1", "NOC_SW_X1Y1", "NOC_MC_0_PORT0"}, 700, false);
    routePath(original, plToSlave, {"NOC_IN_PL_0", "NOC_SW_X0Y0", "NOC_OUT_PL_0"}, 90, true);
    original.setSolutionState(CompRes::OPTIMAL);
    original.setHasLockedDestIdsForAllComps(true);
    original.setPathReadAchieved(psToDdr, 20, 700);
    original.setPathWriteAchieved(plToSlave, 30, 140);
    original.lockLogicalInst(psMaster);
    original.lockLogicalInst(plSlave);
    original.bindLogicalToPhysical(ddr, component("NOC_MC_0"));
    original.bindLogicalToPhysical(plMaster, component("NOC_IN_PL_0"));
    original.setComponentDestId(component("NOC_MC_0_PORT1"), DestIdRepr(11));
    text = written(spec, original);
  }
  CompRes original;
  std::string text;
};

TEST(NOCJsonSolutionReaderTest, ReadsBackWhatWasWrittenApartFromTheDifferencesOnPurpose) {
  Written const w;
  CompRes back(*w.device);
  read(w.text, w.spec, back);

  ASSERT_EQ(back.getRoutes().size(), w.original.getRoutes().size());
  for (auto const& routed : w.original.getRoutes()) {
    Route const* route = back.getRouteForNet(routed.first);
    ASSERT_NE(route, nullptr);
    EXPECT_EQ(route->getLinks(), routed.second.getLinks());
    EXPECT_EQ(route->getVC(), routed.second.getVC());
    EXPECT_EQ(route->getAchievedBW(), routed.second.getAchievedBW());
    EXPECT_EQ(route->isLocked(), routed.second.isLocked());
  }
  EXPECT_TRUE(back.hasLockedDestIdsForAllComps());
  EXPECT_EQ(back.getDestIdForComponent(w.component("NOC_MC_0_PORT1")).getValue(), 11);
  EXPECT_EQ(back.getLogicalForPhysical(w.component("NOC_MC_0")), w.ddr);
  EXPECT_TRUE(back.isLogicalInstLocked(w.psMaster));

  // The state is not read; a locked path does not lock its ends again; a component without a
  // destination id loses its instance.
  EXPECT_EQ(back.getSolutionState(), CompRes::NO_SOLUTION);
  EXPECT_FALSE(back.isLogicalInstLocked(w.plSlave));
  EXPECT_EQ(back.getPhysicalForLogical(w.plMaster), nullptr);
  // Achieved latencies become the sums of the nets' structural latencies, and a write
  // bandwidth written as -1 comes back as a record of 0.
  ASSERT_NE(back.getPathReadAchieved(w.psToDdr), nullptr);
  EXPECT_EQ(back.getPathReadAchieved(w.psToDdr)->latency, 8u);
  EXPECT_EQ(back.getPathReadAchieved(w.psToDdr)->bandwidth, 700u);
  ASSERT_NE(back.getPathWriteAchieved(w.psToDdr), nullptr);
  EXPECT_EQ(back.getPathWriteAchieved(w.psToDdr)->bandwidth, 0u);
  EXPECT_EQ(back.getPathWriteAchieved(w.plToSlave)->latency, 4u);

  // From the second writing on, the text is a fixed point.
  std::string const again = written(w.spec, back);
  CompRes third(*w.device);
  read(again, w.spec, third);
  EXPECT_EQ(written(w.spec, third), again);
}

TEST(NOCJsonSolutionReaderTest, MatchesNetsByTypeAndPortAndTakesTheLastOfTwins) {
  TrafficOnDefaultDevice traffic;
  TrafficPath* twin = traffic.spec.addPath(traffic.psMaster, traffic.ddr);
  twin->setSlavePort(PORT0);
  CompRes result(*traffic.device);
  result.setHasLockedDestIdsForAllComps(true);
  tarvo_test::MessageCapture messages;
  read(tarvo_test::readFile(tarvo_test::dataPath("noc_solution/reader_matching.json")), traffic.spec, result);

  EXPECT_EQ(messages.summary(), std::vector<std::string>({"75-698(s.json|Master|ghost)", "75-184(NOC_GONE)"}));
  EXPECT_FALSE(result.hasLockedDestIdsForAllComps());
  for (int n = 0; n < traffic.psToDdr->getNumNets(); ++n)
    EXPECT_EQ(result.getRouteForNet(traffic.psToDdr->getNet(n)), nullptr);
  Route const* read = result.getRouteForNet(twin->getNet(TrafficNet::READ));
  ASSERT_NE(read, nullptr);
  EXPECT_EQ(read->getVC(), 255);
  EXPECT_EQ(read->getAchievedBW(), 640u);
  EXPECT_EQ(read->getLinks().front()->getSrcComponent()->getName(), "NOC_MC_0_PORT0");
  EXPECT_NE(result.getRouteForNet(twin->getNet(TrafficNet::WRITE)), nullptr);
  EXPECT_EQ(result.getRouteForNet(twin->getNet(TrafficNet::WRITE_RESP)), nullptr);
  // Reads sum READ and READ_REQ, writes the rest.
  EXPECT_EQ(result.getPathReadAchieved(twin)->latency, 12u);
  EXPECT_EQ(result.getPathWriteAchieved(twin)->latency, 6u);
  EXPECT_EQ(result.getPathReadAchieved(nullptr)->bandwidth, 33u);
  EXPECT_TRUE(result.isLogicalInstLocked(traffic.psMaster));
  EXPECT_TRUE(result.isLogicalInstLocked(traffic.ddr));

  // Ends found through external connections; a locked path locks neither end.
  Route const* plWrite = result.getRouteForNet(traffic.plToDdr->getNet(TrafficNet::WRITE));
  ASSERT_NE(plWrite, nullptr);
  EXPECT_TRUE(plWrite->isLocked());
  EXPECT_FALSE(result.isLogicalInstLocked(traffic.plMaster));
  EXPECT_EQ(result.getPathWriteAchieved(traffic.plToDdr)->bandwidth, 3000000000u);
  EXPECT_EQ(result.getPathReadAchieved(traffic.plToDdr), nullptr);

  // Masters and slaves bind, switches do not; a memory controller's id goes to the port.
  EXPECT_EQ(result.getPhysicalForLogical(traffic.psMaster), traffic.component("NOC_IN_PS_0"));
  EXPECT_EQ(result.getLogicalForPhysical(traffic.component("NOC_SW_X0Y0")), nullptr);
  EXPECT_EQ(result.getDestIdForComponent(traffic.component("NOC_SW_X0Y0")).getValue(), 1);
  EXPECT_EQ(result.getLogicalForPhysical(traffic.component("NOC_MC_0")), traffic.ddr);
  EXPECT_FALSE(result.hasDestIdForComponent(traffic.component("NOC_MC_0")));
  EXPECT_EQ(result.getDestIdForComponent(traffic.component("NOC_MC_0_PORT3")).getValue(), 9);
}

// Translations that show in the message about an unknown end.
class PrefixResolver : public HIPLogicalObjectNameResolverInterfaceIdentity {
 public:
  std::string toNetlistInstance(std::string const& name) override {
    return name.compare(0, 6, "known/") == 0 ? "inst:" + name : std::string();
  }
  std::string fromNetlistInstance(std::string const& name) override {
    return name == "design/blk" ? "top/blk" : std::string();
  }
  std::string toNetlistName(std::string const& name) override { return "name:" + name; }
};

TEST(NOCJsonSolutionReaderTest, TranslatesNamesByInstancePrefixAndReconfigurablePartition) {
  TrafficSpec spec;
  spec.addRcfPath("name:rp/");
  auto device = DevHrdIP::HIPDeviceLoader::makeDefaultDevice();
  CompRes result(*device);
  PrefixResolver resolver;
  tarvo_test::MessageCapture messages;
  read(solutionText(pathText("known/a", "rp/x/noc_error_slave") + "," +
                    pathText("design/blk/leaf", "noc_error_slave_hp") + "," + pathText("other/leaf", "b")),
       spec, result, &resolver);
  EXPECT_EQ(
      messages.summary(),
      std::vector<std::string>({"75-698(s.json|Master|inst:known/a)", "75-698(s.json|Slave|name:rp/x/noc_error_slave)",
                                "75-698(s.json|Master|top/blk/leaf)", "75-698(s.json|Slave|noc_error_slave_hp)",
                                "75-698(s.json|Master|name:other/leaf)", "75-698(s.json|Slave|name:b)"}));
}

TEST(NOCJsonSolutionReaderTest, ReportsDocumentsThatDoNotFitTheDevice) {
  TrafficOnDefaultDevice traffic;
  CompRes result(*traffic.device);
  try {
    read(tarvo_test::readFile(tarvo_test::dataPath("noc_solution/reader_unknown_link.json")), traffic.spec, result);
    ADD_FAILURE() << "no exception";
  } catch (std::runtime_error const& error) {
    EXPECT_STREQ(error.what(),
                 "No Connection between NOC_SW_X0Y1 E to NOC_SW_X2Y1 W\nDevice Model version mismatch!\n"
                 "Please make sure checkpoint and Brelum versions match!");
  }
  // The net before the failing one stays.
  EXPECT_EQ(result.getRoutes().size(), 1u);

  auto const mesh = DevHrdIP::NOCMeshGenerator::makeMesh({2, 2, 1, 1}, "mesh");
  CompRes onMesh(*mesh);
  EXPECT_THROW(read(tarvo_test::readFile(tarvo_test::dataPath("noc_solution/written_full.json")), traffic.spec, onMesh),
               std::runtime_error);

  CompRes ports(*traffic.device);
  EXPECT_THROW(read(solutionText("", R"([{"Name": "NOC_MC_0", "DestId": 1, "PortIndex": 4}])"), traffic.spec, ports),
               std::out_of_range);

  std::string const sevenNames = R"([{"PhyInstanceStart": "", "PhyInstanceEnd": "", "VC": 0, "CommType": "WRITE",
      "Connections": ["NOC_IN_PS_0", "P", "NOC_SW_X0Y1", "L0", "NOC_SW_X0Y1", "E", "NOC_SW_X1Y1"],
      "RequiredBW": 0, "AchievedBW": 0, "RequiredLatency": 0, "AchievedLatency": 0}])";
  try {
    read(solutionText(pathText("ps_master", "ddr", sevenNames)), traffic.spec, ports);
    ADD_FAILURE() << "no exception";
  } catch (HEXAll const& error) {
    EXPECT_EQ(noc_test::messageOf(error),
              "8-101(s.json|\"Connections\" holds 7 names, which is no whole number of links of four names each)");
  }
}

TEST(NOCJsonSolutionReaderTest, ReadsAnEmptySolutionAndRefusesAFailedStream) {
  TrafficOnDefaultDevice traffic;
  CompRes result(*traffic.device);
  result.setHasLockedDestIdsForAllComps(true);
  read(R"({"SolutionType": "DEADLOCKS"})", traffic.spec, result);
  EXPECT_FALSE(result.hasLockedDestIdsForAllComps());
  EXPECT_TRUE(result.getRoutes().empty());

  std::istringstream failed("{}");
  failed.setstate(std::ios_base::failbit);
  HDGUIStatus status;
  try {
    NOCJsonSolutionReader::readFromJsonFile(failed, "s.json", traffic.spec, result, status);
    ADD_FAILURE() << "no exception";
  } catch (HEXAll const& error) {
    EXPECT_EQ(noc_test::messageOf(error), "8-100(s.json)");
  }
}

}  // namespace
