#include "KPEGRMDeviceUtils.h"

#include <algorithm>

#include "GRMKpeOracle.h"
#include "GRMOracle.h"
#include "HDARPart.h"

namespace {

// The device families' naming rules: tile names behind "KPE_ML" hold three underscores,
// all others two.
std::size_t separatorOrdinal(std::string const& name) {
  return name.compare(0, 6, "KPE_ML") == 0 ? 4 : 3;
}

void replaceNthUnderscore(std::string& name, std::size_t ordinal) {
  std::string::size_type at = std::string::npos;
  for (std::size_t seen = 0; seen < ordinal; ++seen) {
    at = name.find('_', at == std::string::npos ? 0 : at + 1);
    if (at == std::string::npos) return;
  }
  name[at] = '/';
}

// Column and channel of a site; both stay -1 where the oracle doesn't answer.
void shimCoords(HDARPart const& part, GRMBel const& bel, int& column, int& channel) {
  column = -1;
  channel = -1;
  if (bel.isBad()) return;
  GRMKpeOracle::TQRegion region = GRMKpeOracle::TQ_REGION_NONE;
  GRMKpeOracle::TQShimBelType belType = GRMKpeOracle::TQ_SHIM_BEL_NONE;
  part.getOracle().getKpeOraclePtr()->getTQShimArrayCoords(bel, region, column, channel, belType);
}

}  // namespace

GRMBel KPEGRMDeviceUtils::getGRMBel(HDARPart const& part, std::string const& name) {
  if (name.empty()) return GRMBel();
  std::string hierarchicalName = name;
  replaceNthUnderscore(hierarchicalName, separatorOrdinal(name));
  return part.getOracle().getBelByName(hierarchicalName);
}

std::string KPEGRMDeviceUtils::getHierName(HDARPart const&, GRMBel const& bel) {
  if (bel.isBad()) return std::string();
  std::string name = bel.getHierarchicalName1();
  std::replace(name.begin(), name.end(), '/', '_');
  return name;
}

int KPEGRMDeviceUtils::getShimColumn(HDARPart const& part, GRMBel const& bel) {
  int column, channel;
  shimCoords(part, bel, column, channel);
  return column;
}

int KPEGRMDeviceUtils::getIndexOfChanInShim(HDARPart const& part, GRMBel const& bel) {
  int column, channel;
  shimCoords(part, bel, column, channel);
  return channel;
}
