#ifndef TARVO_TRAFFICINSTANCELOOKUP_H
#define TARVO_TRAFFICINSTANCELOOKUP_H

#include <string>

namespace HrdIPToolCntr {
class TrafficLInst;
class TrafficSpec;
}  // namespace HrdIPToolCntr

// How a name of a logical channel or instance finds its logical instance in a traffic
// specification; the NoC placement constraints and the array compiler exchange share it.
class TrafficInstanceLookup {
 public:
  // The first of the traffic specification's master, slave and array look-ups that knows `name`, or
  // null.
  static HrdIPToolCntr::TrafficLInst const* find(HrdIPToolCntr::TrafficSpec const& traffic, std::string const& name);
};

#endif
