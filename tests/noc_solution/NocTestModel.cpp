#include "NocTestModel.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace DevHrdIP::Definitions;
using namespace HrdIPToolCntr;
using DevHrdIP::Component;
using DevHrdIP::HIPDevice;
using DevHrdIP::Link;

namespace noc_test {

std::vector<Link const*> routeThrough(HIPDevice const& device, std::vector<std::string> const& names) {
  std::vector<Link const*> route;
  for (std::size_t i = 0; i + 1 < names.size(); ++i) {
    Component const* from = device.getNOCModel()->getComponent(names[i]);
    EXPECT_NE(from, nullptr) << names[i];
    if (from == nullptr) return route;
    auto const& out = from->getOutgoingLinks();
    auto const link = std::find_if(out.begin(), out.end(), [&](Link const* candidate) {
      return candidate->getDstComponent()->getName() == names[i + 1];
    });
    EXPECT_NE(link, out.end()) << names[i] << " -> " << names[i + 1];
    if (link == out.end()) return route;
    route.push_back(*link);
  }
  return route;
}

TrafficOnDefaultDevice::TrafficOnDefaultDevice() {
  psMaster = spec.addLogicalInstance("ps_master", AXI_MM, PS_IGU_0, {});
  plMaster = spec.addLogicalInstance("pl_master", AXI_MM, PL_IGU, {{"top/pl_axi"}});
  arrayMaster = spec.addLogicalInstance("array_master", AXI_STRM, KPE_NOC_IGU, {});
  ddr = spec.addLogicalInstance("ddr", AXI_MM, DDRC, {{"top/ddr_p0"}, {"top/ddr_p2"}});
  plSlave = spec.addLogicalInstance("pl_slave", AXI_MM, PL_EGU, {});
  psToDdr = spec.addPath(psMaster, ddr);
  psToDdr->setSlavePort(PORT0);
  psToDdr->setReadPerfSpec(PerfSpec(TC_LL, 800, 300));
  psToDdr->setWritePerfSpec(PerfSpec(5, 400, 350));
  plToDdr = spec.addPath(plMaster, ddr);
  plToDdr->setSlavePort(PORT2);
  plToDdr->phase = 1;
  plToDdr->setReadPerfSpec(PerfSpec(0, 1200, 250));
  plToDdr->setWritePerfSpec(PerfSpec(0, 0, 0));
  plToSlave = spec.addPath(plMaster, plSlave);
  plToSlave->setSlavePort(PORT0);
  plToSlave->setReadPerfSpec(PerfSpec(0, 100, 500));
  plToSlave->setWritePerfSpec(PerfSpec(0, 150, 500));
  arrayToSlave = spec.addPath(arrayMaster, plSlave);
  arrayToSlave->setSlavePort(PORT0);
  arrayToSlave->setWritePerfSpec(PerfSpec(0, 2000, 100));
}

Component const* TrafficOnDefaultDevice::component(std::string const& name) const {
  return device->getNOCModel()->getComponent(name);
}

void TrafficOnDefaultDevice::routePath(CompRes& result, TrafficPath const* path,
                                       std::vector<std::string> const& components, unsigned achievedBW,
                                       bool locked) const {
  std::vector<std::string> const reversed(components.rbegin(), components.rend());
  for (int n = 0; n < path->getNumNets(); ++n) {
    TrafficNet const* net = path->getNet(n);
    bool const answers = net->getType() == TrafficNet::READ || net->getType() == TrafficNet::WRITE_RESP;
    std::vector<Link const*> const links = routeThrough(*device, answers ? reversed : components);
    result.addRoute(net, links, static_cast<unsigned char>(n), achievedBW + static_cast<unsigned>(n), locked);
  }
}


}  // namespace noc_test
