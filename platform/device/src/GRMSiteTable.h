#ifndef TARVO_GRMSITETABLE_H
#define TARVO_GRMSITETABLE_H

#include <cstdint>
#include <string>
#include <vector>

#include "GRMBel.h"
#include "HDARShimRow.h"

// The sites of one part, by index and by hierarchical name. Each table holds a slot of the
// process-wide registry while it lives, so that a GRMBel, which carries only its slot and
// index, can find its name again.
class GRMSiteTable {
 public:
  struct Site {
    std::string hierarchicalName;
    int shimColumn;
    int channel;
  };

  explicit GRMSiteTable(std::vector<HDARShimTile> const& shimRow);
  ~GRMSiteTable();
  GRMSiteTable(GRMSiteTable const&) = delete;
  GRMSiteTable& operator=(GRMSiteTable const&) = delete;

  // Bad when there is no site of that name.
  GRMBel find(std::string const& hierarchicalName) const;
  // Null for a bad site or a site of another table.
  Site const* site(GRMBel const& bel) const;

  // The name of a site of any live table; empty when its table is gone.
  static std::string hierarchicalName(GRMBel const& bel);

 private:
  // Open addressing over the site indices: a device has tens of thousands of sites and
  // every site of a document is looked up by name, so the index is kept flat.
  void index(std::uint32_t site);
  // The site of that name, or kNone.
  std::uint32_t lookUp(std::string const& name) const;

  static constexpr std::uint32_t kNone = 0xFFFFFFFFu;

  std::uint32_t m_slot;
  std::vector<Site> m_sites;
  std::vector<std::uint32_t> m_columns;
  std::vector<std::uint32_t> m_table;   // site index or kNone
  std::vector<std::uint32_t> m_hashes;  // the low bits of each entry's hash, to skip most compares
  std::size_t m_mask = 0;
};

#endif
