#include <gtest/gtest.h>

#include <sstream>

#include "CompRes.h"
#include "Constraints.h"
#include "HEXAll.h"
#include "HIPDeviceLoader.h"
#include "NOCMeshGenerator.h"
#include "NocTestModel.h"
#include "Route.h"

using namespace DevHrdIP;
using namespace DevHrdIP::Definitions;
using namespace HrdIPToolCntr;

namespace {

std::string loadError(std::string const& text) {
  std::istringstream in(text);
  try {
    HIPDeviceLoader::readFromStream(in, "d.json");
  } catch (HEXAll const& error) {
    return noc_test::messageOf(error);
  }
  return "loaded";
}

TEST(NocDeviceTest, DefaultDeviceMatchesItsDescriptionAndTheSchema) {
  std::unique_ptr<HIPDevice> const device = HIPDeviceLoader::makeDefaultDevice();
  std::istringstream text(HIPDeviceLoader::getDefaultDeviceText());
  std::unique_ptr<HIPDevice> const checked = HIPDeviceLoader::readFromStream(text, "default.json");
  for (HIPDevice const* d : {device.get(), checked.get()}) {
    NOCModel const& noc = *d->getNOCModel();
    EXPECT_EQ(d->getName(), "zorvex-demo");
    EXPECT_EQ(noc.getNumComponents(), 25u);
    EXPECT_EQ(noc.getNumLinks(), 52u);
    EXPECT_EQ(noc.getAllTopLevelComponents().size(), 21u);
  }
  NOCModel const& noc = *device->getNOCModel();
  Component const* mc = noc.getComponent("NOC_MC_0");
  ASSERT_EQ(mc->getPorts().size(), 4u);
  EXPECT_EQ(mc->getPorts()[2], noc.getComponent("NOC_MC_0_PORT2"));
  EXPECT_EQ(mc->getPorts()[2]->getParent(), mc);
  EXPECT_EQ(mc->getRole(), ROLE_SLAVE);
  EXPECT_EQ(noc.getComponent("NOC_IN_KPE_0")->getRole(), ROLE_MASTER);
  EXPECT_EQ(noc.getComponent("NOC_SW_X0Y0")->getRole(), ROLE_NONE);
  Link const* link = noc.getLinkBetween("NOC_SW_X0Y0", "E", "NOC_SW_X1Y0", "W");
  ASSERT_NE(link, nullptr);
  EXPECT_EQ(link->getLatency(), 2u);
  EXPECT_EQ(noc.getLinkBetween("NOC_SW_X0Y0", "E", "NOC_SW_X1Y0", "E"), nullptr);
  EXPECT_EQ(noc.getLinkBetween("NOC_SW_X1Y0", "E", "NOC_SW_X0Y0", "W"), nullptr);
}

TEST(NocDeviceTest, LoaderReportsWhatTheSchemaCannotCheck) {
  std::string const head = R"({"name": "d", "KpeShimRow": {"tiles": []}, "noc": {"components": [)"
                           R"({"name": "A", "type": "NSW"}, {"name": "B", "type": "DDRC", "role": "none", )"
                           R"("ports": [{"name": "B0", "type": "DDRC_P0"}]})";
  std::string const link = R"({"from": "A", "fromPort": "o", "to": "B0", "toPort": "i"})";
  EXPECT_EQ(loadError(head + "], \"links\": [" + link + "]}}"), "loaded");
  EXPECT_EQ(loadError(head + R"(, {"name": "C", "type": "COMPERR"}], "links": []}})"),
            "8-101(d.json|component 'C' has the unknown type 'COMPERR')");
  EXPECT_EQ(loadError(head + R"(, {"name": "B0", "type": "NSW"}], "links": []}})"),
            "8-101(d.json|the component name 'B0' is given twice)");
  EXPECT_EQ(loadError(head + R"(], "links": [{"from": "A", "fromPort": "o", "to": "Z", "toPort": "i"}]}})"),
            "8-101(d.json|a link names the component 'Z', which the device does not have)");
  EXPECT_EQ(loadError(head + "], \"links\": [" + link + ", " + link + "]}}"),
            "8-101(d.json|the link from A o to B0 i is given twice)");
  EXPECT_EQ(
      loadError(head + R"(], "links": [{"from": "A", "fromPort": "o", "to": "B", "toPort": "i", "latency": -1}]}})"),
      "8-101(d.json|#/noc/links/0/latency)");

  std::istringstream roles(head + "], \"links\": []}}");
  std::unique_ptr<HIPDevice> const device = HIPDeviceLoader::readFromStream(roles, "d.json");
  EXPECT_EQ(device->getNOCModel()->getComponent("B")->getRole(), ROLE_NONE);
  EXPECT_EQ(device->getNOCModel()->getComponent("B0")->getRole(), ROLE_SLAVE);
}

TEST(NocDeviceTest, MeshRoutesGoAlongTheRowThenTheColumn) {
  std::unique_ptr<HIPDevice> const mesh = NOCMeshGenerator::makeMesh({3, 2, 2, 1}, "mesh");
  NOCModel const& noc = *mesh->getNOCModel();
  EXPECT_EQ(noc.getNumComponents(), 24u);
  EXPECT_EQ(noc.getNumLinks(), 50u);
  std::vector<Link const*> const route = NOCMeshGenerator::routeXY(noc, {0, 0, true, 1}, {2, 1, false, 0});
  std::vector<std::string> steps;
  for (Link const* link : route)
    steps.push_back(link->getSrcComponent()->getName() + "." + link->getSrcPortName());
  EXPECT_EQ(steps, std::vector<std::string>(
                       {"NOC_IN_X0Y0_1.P", "NOC_SW_X0Y0.E", "NOC_SW_X1Y0.E", "NOC_SW_X2Y0.N", "NOC_SW_X2Y1.S0"}));
  EXPECT_EQ(route.back()->getDstComponent()->getName(), "NOC_OUT_X2Y1_0");
  EXPECT_EQ(Route(route, 0, 0, false).getStructLatency(), 8u);
  EXPECT_TRUE(NOCMeshGenerator::routeXY(noc, {0, 0, true, 2}, {1, 1, false, 0}).empty());
}

TEST(NocDeviceTest, LockedPathsAndReplacedPlacements) {
  noc_test::TrafficOnDefaultDevice traffic;
  CompRes result(*traffic.device);
  EXPECT_FALSE(result.isLocked(traffic.psToDdr));
  traffic.routePath(result, traffic.psToDdr, {"NOC_IN_PS_0", "NOC_SW_X0Y1"}, 1, true);
  EXPECT_TRUE(result.isLocked(traffic.psToDdr));
  // A second route replaces the first; one unlocked net unlocks the path.
  result.addRoute(traffic.psToDdr->getNet(1), {}, 0, 0, false);
  EXPECT_FALSE(result.isLocked(traffic.psToDdr));
  EXPECT_TRUE(result.getRouteForNet(traffic.psToDdr->getNet(1))->getLinks().empty());

  Constraints constraints;
  EXPECT_TRUE(constraints.addPlacementConst(traffic.ddr, {traffic.component("NOC_MC_0")}, false));
  EXPECT_FALSE(constraints.addPlacementConst(traffic.ddr, {traffic.component("NOC_MC_0_PORT0")}, true));
  std::vector<Component const*> components;
  bool soft = false;
  EXPECT_TRUE(constraints.getPlacementConst(traffic.ddr, components, soft));
  EXPECT_EQ(components, std::vector<Component const*>({traffic.component("NOC_MC_0_PORT0")}));
  EXPECT_TRUE(soft);
  soft = false;
  EXPECT_FALSE(constraints.getPlacementConst(traffic.psMaster, components, soft));
  EXPECT_TRUE(components.empty());
  EXPECT_FALSE(soft);
}

}  // namespace
