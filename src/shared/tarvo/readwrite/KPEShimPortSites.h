#ifndef TARVO_KPESHIMPORTSITES_H
#define TARVO_KPESHIMPORTSITES_H

#include <string>
#include <vector>

#include "GRMBel.h"

class KPEShimInterfaceSolution;
namespace HrdIPToolCntr {
class TrafficLInst;
class TrafficSpec;
}  // namespace HrdIPToolCntr
namespace Tarvo {
namespace Frameworks {
class TQLogicalPort;
}
}  // namespace Tarvo

// The way from a logical port of the KPE boundary to its sites, shared by the exchange
// documents: a port's channel names are names of logical instances of the traffic
// specification, and the solution places those instances on sites.
class KPEShimPortSites {
 public:
  // The site of a channel; bad when the channel is unknown or not placed.
  static GRMBel siteOf(HrdIPToolCntr::TrafficSpec const& traffic, KPEShimInterfaceSolution const& solution,
                       std::string const& channelName);
  // The sites of all placed channels of `port`, in the order of its channel names.
  static std::vector<GRMBel> placedSites(Tarvo::Frameworks::TQLogicalPort const& port,
                                         HrdIPToolCntr::TrafficSpec const& traffic,
                                         KPEShimInterfaceSolution const& solution);
  // The channel of a port for an even or odd channel index: the only name if there is one,
  // otherwise the first that holds "<0>_INST" (even) or "<1>_INST" (odd); empty if none.
  static std::string const& channelForParity(std::vector<std::string> const& channelNames, bool odd);
};

#endif
