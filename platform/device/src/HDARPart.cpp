#include "HDARPart.h"

#include <unordered_set>

#include "GRMKpeOracle.h"
#include "GRMOracle.h"
#include "GRMSiteTable.h"

HDARPart::HDARPart(std::string const& name, std::vector<HDARShimTile> const& shimRow)
    : m_name(name),
      m_shimRow(shimRow),
      m_sites(std::make_unique<GRMSiteTable>(shimRow)),
      m_kpeOracle(new GRMKpeOracle(*m_sites)),
      m_oracle(new GRMOracle(*m_sites, *m_kpeOracle)) {}

HDARPart::~HDARPart() = default;

std::string HDARPart::findDuplicateSite(std::vector<HDARShimTile> const& shimRow) {
  std::unordered_set<std::string> seen;
  for (HDARShimTile const& tile : shimRow)
    for (HDARShimSite const& site : tile.sites) {
      std::string name = tile.name + "/" + site.name;
      if (!seen.insert(name).second) return name;
    }
  return std::string();
}
