#ifndef TARVO_GRMORACLE_H
#define TARVO_GRMORACLE_H

#include <string>

#include "GRMBel.h"

class GRMKpeOracle;
class GRMSiteTable;

// Device-wide look-ups of sites.
class GRMOracle {
 public:
  GRMOracle(GRMOracle const&) = delete;
  GRMOracle& operator=(GRMOracle const&) = delete;

  // The site of hierarchical name "tile/site"; bad when the device has none of that name.
  GRMBel getBelByName(std::string const& name) const;
  GRMKpeOracle const* getKpeOraclePtr() const { return &m_kpeOracle; }

 private:
  friend class HDARPart;
  GRMOracle(GRMSiteTable const& sites, GRMKpeOracle const& kpeOracle) : m_sites(sites), m_kpeOracle(kpeOracle) {}

  GRMSiteTable const& m_sites;
  GRMKpeOracle const& m_kpeOracle;
};

#endif
