#include "KPEShimPortSites.h"

#include "HSTStrUtils.h"
#include "KPEShimInterfaceSolution.h"
#include "TQLogicalPort.h"
#include "TrafficInstanceLookup.h"
#include "TrafficSpec.h"

using HrdIPToolCntr::TrafficLInst;

GRMBel KPEShimPortSites::siteOf(HrdIPToolCntr::TrafficSpec const& traffic, KPEShimInterfaceSolution const& solution,
                                std::string const& channelName) {
  TrafficLInst const* instance = TrafficInstanceLookup::find(traffic, channelName);
  return instance != nullptr ? solution.getPhysicalForLogical(instance) : GRMBel();
}

std::vector<GRMBel> KPEShimPortSites::placedSites(Tarvo::Frameworks::TQLogicalPort const& port,
                                                  HrdIPToolCntr::TrafficSpec const& traffic,
                                                  KPEShimInterfaceSolution const& solution) {
  std::vector<GRMBel> sites;
  for (std::string const& channel : port.getTqChannelFullHierNames()) {
    GRMBel const site = siteOf(traffic, solution, channel);
    if (!site.isBad()) sites.push_back(site);
  }
  return sites;
}

std::string const& KPEShimPortSites::channelForParity(std::vector<std::string> const& channelNames, bool odd) {
  static std::string const none;
  if (channelNames.size() == 1) return channelNames.front();
  char const* const mark = odd ? "<1>_INST" : "<0>_INST";
  for (std::string const& name : channelNames)
    if (HSTStrUtils::contains(name.c_str(), mark) != nullptr) return name;
  return none;
}
