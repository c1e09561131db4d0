#include "NOCMeshGenerator.h"

namespace DevHrdIP {

using namespace Definitions;

namespace {

unsigned const kSwitchLinkLatency = 2;
unsigned const kUnitLinkLatency = 1;
char const* const kUnitPort = "P";

std::string placeText(int x, int y) {
  return "X" + std::to_string(x) + "Y" + std::to_string(y);
}

void connectBothWays(NOCModel& model, Component* a, std::string const& aPort, Component* b, std::string const& bPort,
                     unsigned latency) {
  model.addLink(a, aPort, b, bPort, latency);
  model.addLink(b, bPort, a, aPort, latency);
}

void addUnits(NOCModel& model, Component* sw, int x, int y, bool master, int count) {
  for (int index = 0; index < count; ++index) {
    NOCMeshUnit const unit{x, y, master, index};
    Component* component = model.addComponent(unit.name(), master ? PL_IGU : PL_EGU, master ? ROLE_MASTER : ROLE_SLAVE);
    connectBothWays(model, component, kUnitPort, sw, unit.switchPort(), kUnitLinkLatency);
  }
}

// Appends the link from (x, y) to its neighbour at (nextX, nextY); false when there is none.
bool step(NOCModel const& model, int x, int y, int nextX, int nextY, std::vector<Link const*>& route) {
  char const* outPort = nextX > x ? "E" : nextX < x ? "W" : nextY > y ? "N" : "S";
  char const* inPort = nextX > x ? "W" : nextX < x ? "E" : nextY > y ? "S" : "N";
  Link const* link = model.getLinkBetween(NOCMeshGenerator::switchName(x, y), outPort,
                                          NOCMeshGenerator::switchName(nextX, nextY), inPort);
  if (link != nullptr) route.push_back(link);
  return link != nullptr;
}

}  // namespace

std::string NOCMeshUnit::name() const {
  return (master ? "NOC_IN_" : "NOC_OUT_") + placeText(x, y) + "_" + std::to_string(index);
}

std::string NOCMeshUnit::switchPort() const {
  return (master ? "M" : "S") + std::to_string(index);
}

std::string NOCMeshGenerator::switchName(int x, int y) {
  return "NOC_SW_" + placeText(x, y);
}

std::unique_ptr<HIPDevice> NOCMeshGenerator::makeMesh(NOCMeshShape const& shape, std::string const& deviceName) {
  std::unique_ptr<HIPDevice> device(new HIPDevice(deviceName));
  NOCModel& model = device->createNOCModel();
  for (int y = 0; y < shape.rows; ++y) {
    for (int x = 0; x < shape.columns; ++x) {
      Component* sw = model.addComponent(switchName(x, y), NSW, ROLE_NONE);
      if (x > 0) connectBothWays(model, model.getComponent(switchName(x - 1, y)), "E", sw, "W", kSwitchLinkLatency);
      if (y > 0) connectBothWays(model, model.getComponent(switchName(x, y - 1)), "N", sw, "S", kSwitchLinkLatency);
      addUnits(model, sw, x, y, true, shape.mastersPerSwitch);
      addUnits(model, sw, x, y, false, shape.slavesPerSwitch);
    }
  }
  return device;
}

std::vector<Link const*> NOCMeshGenerator::routeXY(NOCModel const& model, NOCMeshUnit const& from,
                                                   NOCMeshUnit const& to) {
  std::vector<Link const*> route;
  Link const* in = model.getLinkBetween(from.name(), kUnitPort, switchName(from.x, from.y), from.switchPort());
  if (in == nullptr) return {};
  route.push_back(in);
  int x = from.x;
  int y = from.y;
  while (x != to.x || y != to.y) {
    int const nextX = x != to.x ? x + (to.x > x ? 1 : -1) : x;
    int const nextY = x != to.x ? y : y + (to.y > y ? 1 : -1);
    if (!step(model, x, y, nextX, nextY, route)) return {};
    x = nextX;
    y = nextY;
  }
  Link const* out = model.getLinkBetween(switchName(x, y), to.switchPort(), to.name(), kUnitPort);
  if (out == nullptr) return {};
  route.push_back(out);
  return route;
}

}  // namespace DevHrdIP
