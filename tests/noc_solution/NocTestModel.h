#ifndef TARVO_TESTS_NOCTESTMODEL_H
#define TARVO_TESTS_NOCTESTMODEL_H

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "CompRes.h"
#include "HEXAll.h"
#include "HIPDevice.h"
#include "HIPDeviceLoader.h"
#include "TestSupport.h"
#include "TrafficSpec.h"

namespace noc_test {

// The links through the named components, one per consecutive pair (the first link between
// them in the device); fails the test when two neighbours are not linked.
std::vector<DevHrdIP::Link const*> routeThrough(DevHrdIP::HIPDevice const& device,
                                                std::vector<std::string> const& components);

// A traffic specification on the default device: a PS master and a PL master that share the
// memory controller on two ports, a PL slave, and an array master that streams into the PL.
struct TrafficOnDefaultDevice {
  TrafficOnDefaultDevice();

  std::unique_ptr<DevHrdIP::HIPDevice> device = DevHrdIP::HIPDeviceLoader::makeDefaultDevice();
  HrdIPToolCntr::TrafficSpec spec;
  HrdIPToolCntr::TrafficLInst* psMaster;
  HrdIPToolCntr::TrafficLInst* plMaster;
  HrdIPToolCntr::TrafficLInst* arrayMaster;
  HrdIPToolCntr::TrafficLInst* ddr;
  HrdIPToolCntr::TrafficLInst* plSlave;
  HrdIPToolCntr::TrafficPath* psToDdr;
  HrdIPToolCntr::TrafficPath* plToDdr;
  HrdIPToolCntr::TrafficPath* plToSlave;
  HrdIPToolCntr::TrafficPath* arrayToSlave;

  DevHrdIP::Component const* component(std::string const& name) const;
  // Routes every net of `path` through the components, reversed for the nets that answer
  // (read data and write responses).
  void routePath(HrdIPToolCntr::CompRes& result, HrdIPToolCntr::TrafficPath const* path,
                 std::vector<std::string> const& components, unsigned achievedBW, bool locked) const;
};

using tarvo_test::messageOf;

}  // namespace noc_test

#endif
