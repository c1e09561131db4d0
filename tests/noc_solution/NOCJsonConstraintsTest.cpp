#include <gtest/gtest.h>

#include <sstream>

#include "Constraints.h"
#include "HDGUIStatus.h"
#include "HEXAll.h"
#include "HIPLogicalObjectNameResolverInterface.h"
#include "NOCJsonConstraintsReader.h"
#include "NOCJsonConstraintsWriter.h"
#include "NocTestModel.h"
#include "TestSupport.h"

using namespace DevHrdIP::Definitions;
using namespace HrdIPToolCntr;
using DevHrdIP::Component;
using NOC::NOCJsonConstraintsReader;
using NOC::NOCJsonConstraintsWriter;
using noc_test::TrafficOnDefaultDevice;

namespace {

std::string written(Constraints const& constraints) {
  HDGUIStatus status;
  std::ostringstream out;
  EXPECT_TRUE(NOCJsonConstraintsWriter::writeToJsonFile(out, constraints, status));
  return out.str();
}

void read(std::string const& text, TrafficOnDefaultDevice const& traffic, Constraints& constraints,
          HDGUIStatus& status) {
  HIPLogicalObjectNameResolverInterfaceIdentity identity;
  std::istringstream in(text);
  EXPECT_TRUE(NOCJsonConstraintsReader::readFromJsonFile(in, "c.json", *traffic.device, traffic.spec, constraints,
                                                         identity, status));
}

// The failure of reading `text` into `constraints` ("no failure" when it reads).
std::string failureOf(std::string const& text, TrafficOnDefaultDevice const& traffic, Constraints& constraints) {
  HIPLogicalObjectNameResolverInterfaceIdentity identity;
  HDGUIStatus status;
  std::istringstream in(text);
  try {
    NOCJsonConstraintsReader::readFromJsonFile(in, "c.json", *traffic.device, traffic.spec, constraints, identity,
                                               status);
  } catch (HEXAll const& error) {
    return noc_test::messageOf(error);
  }
  return "no failure";
}

std::vector<std::string> placements(Constraints const& constraints) {
  std::vector<TrafficLInst const*> instances;
  constraints.getAllConstrainedInstances(instances);
  std::vector<std::string> texts;
  for (TrafficLInst const* instance : instances) {
    std::vector<Component const*> components;
    bool soft = false;
    constraints.getPlacementConst(instance, components, soft);
    std::string text = instance->getName() + (soft ? " soft:" : " hard:");
    for (Component const* component : components)
      text += " " + component->getName();
    texts.push_back(text);
  }
  return texts;
}

TEST(NOCJsonConstraintsTest, WritesPlacementsInInstanceOrderAndReadsThemBack) {
  TrafficOnDefaultDevice traffic;
  Constraints constraints;
  constraints.addPlacementConst(traffic.plSlave, {traffic.component("NOC_OUT_PL_0"), traffic.component("NOC_OUT_PL_1")},
                                true);
  constraints.addPlacementConst(traffic.psMaster, {traffic.component("NOC_IN_PS_0")}, false);
  constraints.addPlacementConst(traffic.ddr, {}, false);
  constraints.addDestIdConst(traffic.plMaster, DestIdRepr(3));
  tarvo_test::MessageCapture messages;
  std::string const text = written(constraints);
  EXPECT_EQ(text,
            "{\n  \"Placement\": [\n    {\n      \"LogicalInstance\": \"ps_master\",\n      \"PhysicalInstance\": [\n"
            "        \"NOC_IN_PS_0\"\n      ],\n      \"IsSoft\": false\n    },\n    {\n"
            "      \"LogicalInstance\": \"pl_slave\",\n      \"PhysicalInstance\": [\n        \"NOC_OUT_PL_0\",\n"
            "        \"NOC_OUT_PL_1\"\n      ],\n      \"IsSoft\": true\n    }\n  ]\n}");
  EXPECT_EQ(messages.summary(), std::vector<std::string>({"75-704()"}));

  Constraints back;
  HDGUIStatus status;
  read(text, traffic, back, status);
  EXPECT_EQ(placements(back),
            std::vector<std::string>({"ps_master hard: NOC_IN_PS_0", "pl_slave soft: NOC_OUT_PL_0 NOC_OUT_PL_1"}));
  EXPECT_EQ(status.getPercent(), 100.0);
}

TEST(NOCJsonConstraintsTest, WithoutPlacementsWritesNothingAtAll) {
  Constraints constraints;
  TrafficOnDefaultDevice traffic;
  constraints.addDestIdConst(traffic.ddr, DestIdRepr(1));
  tarvo_test::MessageCapture messages;
  EXPECT_EQ(written(constraints), "");
  EXPECT_EQ(messages.summary(), std::vector<std::string>({"75-704()"}));

  tarvo_test::TempDir dir;
  HDGUIStatus status;
  EXPECT_TRUE(NOCJsonConstraintsWriter::writeToJsonFile(dir.file("c.json"), Constraints(), status));
  EXPECT_EQ(tarvo_test::readFile(dir.file("c.json")), "");
  EXPECT_FALSE(NOCJsonConstraintsWriter::writeToJsonFile(dir.file("no/c.json"), constraints, status));
}

TEST(NOCJsonConstraintsTest, ReaderPassesOverUnknownNamesAndFindsArrayInstances) {
  TrafficOnDefaultDevice traffic;
  traffic.spec.addLogicalInstance("array_channel", AXI_STRM, KPE_PL_STRM_IN, {});
  Constraints constraints;
  HDGUIStatus status;
  tarvo_test::MessageCapture messages;
  read(R"({"Placement": [
    {"LogicalInstance": "ghost", "PhysicalInstance": ["NOC_IN_PS_0"], "IsSoft": false},
    {"LogicalInstance": "ddr", "PhysicalInstance": ["NOC_GONE", "NOC_MC_0"], "IsSoft": false},
    {"LogicalInstance": "pl_master", "PhysicalInstance": ["NOC_GONE"], "IsSoft": true},
    {"LogicalInstance": "array_channel", "PhysicalInstance": ["NOC_IN_KPE_1"], "IsSoft": true},
    {"LogicalInstance": "ddr", "PhysicalInstance": ["NOC_MC_0_PORT1"], "IsSoft": true}]})",
       traffic, constraints, status);
  EXPECT_TRUE(messages.summary().empty());
  EXPECT_EQ(placements(constraints),
            std::vector<std::string>({"ddr soft: NOC_MC_0_PORT1", "array_channel soft: NOC_IN_KPE_1"}));
}

TEST(NOCJsonConstraintsTest, ReaderTakesAFailedStreamAsAnEmptyDocument) {
  TrafficOnDefaultDevice traffic;
  Constraints constraints;
  HIPLogicalObjectNameResolverInterfaceIdentity identity;
  HDGUIStatus status;
  std::istringstream failed("{}");
  failed.setstate(std::ios_base::failbit);
  try {
    NOCJsonConstraintsReader::readFromJsonFile(failed, "c.json", *traffic.device, traffic.spec, constraints, identity,
                                               status);
    ADD_FAILURE() << "no exception";
  } catch (HEXAll const& error) {
    EXPECT_EQ(noc_test::messageOf(error), "8-101(c.json|line 1, column 1: The document is empty.)");
  }
}

TEST(NOCJsonConstraintsTest, ReaderTakesTheFirstOfEqualKeysAndALateFailureTouchesNothing) {
  TrafficOnDefaultDevice traffic;
  Constraints constraints;
  EXPECT_EQ(failureOf(R"({"Placement": [
    {"LogicalInstance": "ddr", "LogicalInstance": "pl_master", "PhysicalInstance": ["NOC_MC_0", "NOC_GONE"],
     "PhysicalInstance": ["NOC_MC_0_PORT1"], "IsSoft": true, "IsSoft": false},
    {"LogicalInstance": "ps_master", "IsSoft": false, "PhysicalInstance": ["NOC_IN_PS_0"]}],
    "Placement": [{"LogicalInstance": "pl_slave", "PhysicalInstance": ["NOC_OUT_PL_0"], "IsSoft": true}]})",
                      traffic, constraints),
            "no failure");
  EXPECT_EQ(placements(constraints), std::vector<std::string>({"ps_master hard: NOC_IN_PS_0", "ddr soft: NOC_MC_0"}));

  Constraints untouched;
  EXPECT_EQ(failureOf(R"({"Placement": [
    {"LogicalInstance": "ddr", "PhysicalInstance": ["NOC_MC_0"], "IsSoft": true}, {"LogicalInstance": 3}]})",
                      traffic, untouched),
            "8-101(c.json|#/Placement/1/LogicalInstance)");
  EXPECT_EQ(failureOf(R"({"Placement": [
    {"LogicalInstance": "ddr", "PhysicalInstance": ["NOC_MC_0"], "IsSoft": true}, ]})",
                      traffic, untouched),
            "8-101(c.json|line 2, column 83: Invalid value.)");
  EXPECT_TRUE(placements(untouched).empty());
}

}  // namespace
