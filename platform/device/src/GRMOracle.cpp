#include "GRMOracle.h"

#include "GRMSiteTable.h"

GRMBel GRMOracle::getBelByName(std::string const& name) const {
  return m_sites.find(name);
}
