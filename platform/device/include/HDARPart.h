#ifndef TARVO_HDARPART_H
#define TARVO_HDARPART_H

#include <memory>
#include <string>
#include <vector>

#include "HDARShimRow.h"

class GRMOracle;
class GRMKpeOracle;
class GRMSiteTable;

// A device part: its name and its sites, which it leads to through its oracle. The sites
// that it hands out as GRMBel values name their part only while it lives.
class HDARPart {
 public:
  // Throws HEXAlgException when two sites share a hierarchical name or a tile's column does
  // not fit the 15 bits of a site's column field.
  HDARPart(std::string const& name, std::vector<HDARShimTile> const& shimRow);
  ~HDARPart();
  HDARPart(HDARPart const&) = delete;
  HDARPart& operator=(HDARPart const&) = delete;

  std::string const& getName() const { return m_name; }
  std::vector<HDARShimTile> const& getShimRow() const { return m_shimRow; }
  GRMOracle const& getOracle() const { return *m_oracle; }

  // The first hierarchical name that two sites of `shimRow` share, or empty.
  static std::string findDuplicateSite(std::vector<HDARShimTile> const& shimRow);

 private:
  std::string m_name;
  std::vector<HDARShimTile> m_shimRow;
  std::unique_ptr<GRMSiteTable> m_sites;
  std::unique_ptr<GRMKpeOracle> m_kpeOracle;
  std::unique_ptr<GRMOracle> m_oracle;
};

#endif
