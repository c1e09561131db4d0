#ifndef TARVO_GRMKPEORACLE_H
#define TARVO_GRMKPEORACLE_H

#include "GRMBel.h"

class GRMSiteTable;

// What the KPE array knows of a device's sites: where a shim channel lies in the shim row.
class GRMKpeOracle {
 public:
  enum TQRegion { TQ_REGION_NONE = 0, TQ_REGION_SHIM = 1 };
  enum TQShimBelType { TQ_SHIM_BEL_NONE = 0, TQ_SHIM_BEL_CHANNEL = 1 };

  GRMKpeOracle(GRMKpeOracle const&) = delete;
  GRMKpeOracle& operator=(GRMKpeOracle const&) = delete;

  // For a shim channel of this device: fills the region, the shim column, the channel index
  // along its tile and the bel type, and returns true. For any other site returns false and
  // leaves all four as they were.
  bool getTQShimArrayCoords(GRMBel const& bel, TQRegion& region, int& column, int& channel,
                            TQShimBelType& belType) const;

 private:
  friend class HDARPart;
  explicit GRMKpeOracle(GRMSiteTable const& sites) : m_sites(sites) {}

  GRMSiteTable const& m_sites;
};

#endif
