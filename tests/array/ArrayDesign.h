#ifndef TARVO_TESTS_ARRAYDESIGN_H
#define TARVO_TESTS_ARRAYDESIGN_H

#include <cstdlib>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "GRMOracle.h"
#include "HDARPart.h"
#include "KPEShimInterfaceSolution.h"
#include "TQLogicalArchModel.h"
#include "TestSupport.h"
#include "TrafficSpec.h"

namespace array_test {

using namespace Tarvo::Frameworks;
using HrdIPToolCntr::TrafficLInst;
using HrdIPToolCntr::TrafficSpec;

// A solution that tests may fill directly.
class TestSolution : public KPEShimInterfaceSolution {
 public:
  using KPEShimInterfaceSolution::addPlacement;
  using KPEShimInterfaceSolution::KPEShimInterfaceSolution;
};

inline HDARShimTile tile(std::string const& name, int deviceColumn, int shimColumn,
                         std::initializer_list<std::pair<char const*, int>> sites) {
  HDARShimTile result{name, deviceColumn, {}};
  for (auto const& site : sites)
    result.sites.push_back(HDARShimSite{site.first, site.second >= 0 ? shimColumn : -1, site.second});
  return result;
}

// Three shim tiles whose device columns (4, 5, 6) differ from their shim columns (0, 1, 2);
// the last tile is of the "KPE_ML" naming family. CTRL is a site but no shim channel.
inline std::unique_ptr<HDARPart> makeTestPart() {
  return std::make_unique<HDARPart>(
      "testpart",
      std::vector<HDARShimTile>{tile("KPE_SHIM_X0Y0", 4, 0, {{"S0", 0}, {"S1", 1}, {"M0", 4}, {"M1", 5}, {"CTRL", -1}}),
                                tile("KPE_SHIM_X1Y0", 5, 1, {{"S0", 0}, {"S1", 1}, {"M0", 4}, {"M1", 5}}),
                                tile("KPE_ML_SHIM_X2Y0", 6, 2, {{"PL_M0", 2}, {"PL_M1", 3}})});
}

// A KPE design whose port channels are array-side logical instances of the traffic
// specification, on the test part.
struct ArrayDesign {
  ArrayDesign() : part(makeTestPart()) {}
  explicit ArrayDesign(std::unique_ptr<HDARPart> devicePart) : part(std::move(devicePart)) {}

  TQLogicalTQIPInstance* addInstance(std::string const& name) { return model.addTQIPInstance(name); }

  // A port with the given channel names, each also made an array-side logical instance of
  // the traffic specification unless it is one already or `addToTraffic` is false.
  TQLogicalPort* addPort(TQLogicalTQIPInstance* instance, std::string const& name,
                         std::vector<std::string> const& channels, bool addToTraffic = true) {
    TQLogicalPort* port = model.addShimPort(name, *instance);
    for (std::string const& channel : channels) {
      port->addTqChannelFullHierName(channel);
      if (addToTraffic && this->channel(channel) == nullptr) addChannel(channel);
    }
    return port;
  }

  TrafficLInst const* addChannel(std::string const& name,
                                 DevHrdIP::Definitions::COMP_TYPE type = DevHrdIP::Definitions::KPE_PL_STRM_IN) {
    return traffic.addLogicalInstance(name, DevHrdIP::Definitions::AXI_STRM, type, {});
  }

  TrafficLInst const* channel(std::string const& name) const {
    if (TrafficLInst const* master = traffic.hasLogicalMaster(name)) return master;
    if (TrafficLInst const* slave = traffic.hasLogicalSlave(name)) return slave;
    return traffic.getTQLogicalInst(name);
  }
  GRMBel site(std::string const& hierarchicalName) const { return part->getOracle().getBelByName(hierarchicalName); }

  // Places a channel on a site given by its hierarchical name.
  void place(std::string const& channelName, std::string const& siteName) {
    solution.addPlacement(channel(channelName), site(siteName));
  }

  std::unique_ptr<HDARPart> part;
  TrafficSpec traffic;
  TQLogicalArchModel model;
  TestSolution solution{*part};
};

// While it lives, schemas are taken from tests/data/array/<dir> first: "strict" holds
// stricter forms of the exchange schemas, which let a test reach a writer's schema failure,
// "broken" holds schemas that are no JSON.
struct SchemaDir {
  explicit SchemaDir(std::string const& dir) {
    setenv("QDS_DATA_DIR", tarvo_test::dataPath("array/" + dir).c_str(), 1);
  }
  ~SchemaDir() { unsetenv("QDS_DATA_DIR"); }
};

}  // namespace array_test

#endif
