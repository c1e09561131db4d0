#include "TrafficInstanceLookup.h"

#include "TrafficSpec.h"

using HrdIPToolCntr::TrafficLInst;

TrafficLInst const* TrafficInstanceLookup::find(HrdIPToolCntr::TrafficSpec const& traffic, std::string const& name) {
  if (TrafficLInst const* master = traffic.hasLogicalMaster(name)) return master;
  if (TrafficLInst const* slave = traffic.hasLogicalSlave(name)) return slave;
  return traffic.getTQLogicalInst(name);
}
