#include "GRMKpeOracle.h"

#include "GRMSiteTable.h"

bool GRMKpeOracle::getTQShimArrayCoords(GRMBel const& bel, TQRegion& region, int& column, int& channel,
                                        TQShimBelType& belType) const {
  GRMSiteTable::Site const* site = m_sites.site(bel);
  if (site == nullptr || site->channel < 0) return false;
  region = TQ_REGION_SHIM;
  column = site->shimColumn;
  channel = site->channel;
  belType = TQ_SHIM_BEL_CHANNEL;
  return true;
}
