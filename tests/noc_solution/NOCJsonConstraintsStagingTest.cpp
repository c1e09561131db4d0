#include <gtest/gtest.h>

#include <sstream>

#include "Constraints.h"
#include "HDGUIStatus.h"
#include "HEXAll.h"
#include "HIPLogicalObjectNameResolverInterface.h"
#include "NOCJsonConstraintsReader.h"
#include "NocTestModel.h"
#include "TestSupport.h"

using namespace HrdIPToolCntr;
using DevHrdIP::Component;
using NOC::NOCJsonConstraintsReader;
using noc_test::TrafficOnDefaultDevice;

namespace {

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

TEST(NOCJsonConstraintsStagingTest, OfEqualKeysTheFirstCountsAndALateFailureTouchesNothing) {
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
