#ifndef TARVO_NOCMESHGENERATOR_H
#define TARVO_NOCMESHGENERATOR_H

#include <memory>
#include <string>
#include <vector>

#include "HIPDevice.h"

namespace DevHrdIP {

// The size of a synthetic NoC: a grid of switches, each with its own master and slave units.
struct NOCMeshShape {
  int columns = 1;
  int rows = 1;
  int mastersPerSwitch = 1;
  int slavesPerSwitch = 1;
};

// A master or slave unit of a synthetic mesh by its switch and its index there.
struct NOCMeshUnit {
  int x = 0;
  int y = 0;
  bool master = true;
  int index = 0;

  // "NOC_IN_X<x>Y<y>_<index>" for a master, "NOC_OUT_..." for a slave.
  std::string name() const;
  // The switch port it hangs on: "M<index>" or "S<index>".
  std::string switchPort() const;
};

// Makes large NoC devices of a regular shape, for measuring readers and writers on realistic
// sizes, and routes between their units. Switches are "NOC_SW_X<x>Y<y>" with ports N, E, S
// and W towards their neighbours; every unit has one port "P". Each direction of a wire is a
// link of its own; links between switches take 2 cycles, links to units 1.
class NOCMeshGenerator {
 public:
  static std::unique_ptr<HIPDevice> makeMesh(NOCMeshShape const& shape, std::string const& deviceName);
  static std::string switchName(int x, int y);
  // The links from one unit to another: into the mesh, along the row, along the column, and
  // out to the unit. Empty when a unit or link is not in `model`.
  static std::vector<Link const*> routeXY(NOCModel const& model, NOCMeshUnit const& from, NOCMeshUnit const& to);
};

}  // namespace DevHrdIP

#endif
