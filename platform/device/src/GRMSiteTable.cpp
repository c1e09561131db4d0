#include "GRMSiteTable.h"

#include <functional>
#include <mutex>

#include "HEXAlgException.h"

namespace {

// Slots of the live site tables. A GRMBel names its table by slot; a freed slot is reused
// by a later table.
class SiteRegistry {
 public:
  static SiteRegistry& instance() {
    static SiteRegistry registry;
    return registry;
  }

  std::uint32_t add(GRMSiteTable const* table) {
    std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_free.empty()) {
      std::uint32_t const slot = m_free.back();
      m_free.pop_back();
      m_tables[slot] = table;
      return slot;
    }
    // The all-ones slot is the second word of a bad site.
    if (m_tables.size() >= GRMBel::kMaxSlot)
      throw HEXAlgException("GRMSiteTable::GRMSiteTable() - too many device parts alive at once");
    m_tables.push_back(table);
    return static_cast<std::uint32_t>(m_tables.size() - 1);
  }

  void remove(std::uint32_t slot) {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_tables[slot] = nullptr;
    m_free.push_back(slot);
  }

  std::string nameOf(std::uint32_t slot, GRMBel const& bel) const {
    std::lock_guard<std::mutex> lock(m_mutex);
    if (slot >= m_tables.size() || m_tables[slot] == nullptr) return std::string();
    GRMSiteTable::Site const* site = m_tables[slot]->site(bel);
    return site != nullptr ? site->hierarchicalName : std::string();
  }

 private:
  mutable std::mutex m_mutex;
  std::vector<GRMSiteTable const*> m_tables;
  std::vector<std::uint32_t> m_free;
};

}  // namespace

GRMSiteTable::GRMSiteTable(std::vector<HDARShimTile> const& shimRow) {
  for (HDARShimTile const& tile : shimRow) {
    if (tile.column < 0 || static_cast<std::uint32_t>(tile.column) > GRMBel::kMaxColumn)
      throw HEXAlgException("GRMSiteTable::GRMSiteTable() - column of tile '" + tile.name + "' out of range");
    for (HDARShimSite const& site : tile.sites) {
      m_sites.push_back(Site{tile.name + "/" + site.name, site.column >= 0 ? site.column : tile.column, site.channel});
      m_columns.push_back(static_cast<std::uint32_t>(tile.column));
    }
  }
  std::size_t size = 16;
  while (size < 2 * m_sites.size())
    size *= 2;
  m_table.assign(size, kNone);
  m_hashes.assign(size, 0);
  m_mask = size - 1;
  for (std::uint32_t site = 0; site < m_sites.size(); ++site) {
    if (lookUp(m_sites[site].hierarchicalName) != kNone)
      throw HEXAlgException("GRMSiteTable::GRMSiteTable() - site '" + m_sites[site].hierarchicalName +
                            "' appears twice");
    index(site);
  }
  m_slot = SiteRegistry::instance().add(this);
}

GRMSiteTable::~GRMSiteTable() {
  SiteRegistry::instance().remove(m_slot);
}

void GRMSiteTable::index(std::uint32_t site) {
  std::size_t const hash = std::hash<std::string>()(m_sites[site].hierarchicalName);
  std::size_t at = hash & m_mask;
  while (m_table[at] != kNone)
    at = (at + 1) & m_mask;
  m_table[at] = site;
  m_hashes[at] = static_cast<std::uint32_t>(hash);
}

std::uint32_t GRMSiteTable::lookUp(std::string const& name) const {
  std::size_t const hash = std::hash<std::string>()(name);
  for (std::size_t at = hash & m_mask; m_table[at] != kNone; at = (at + 1) & m_mask)
    if (m_hashes[at] == static_cast<std::uint32_t>(hash) && m_sites[m_table[at]].hierarchicalName == name)
      return m_table[at];
  return kNone;
}

GRMBel GRMSiteTable::find(std::string const& hierarchicalName) const {
  std::uint32_t const site = lookUp(hierarchicalName);
  return site != kNone ? GRMBel(site, m_columns[site], m_slot) : GRMBel();
}

GRMSiteTable::Site const* GRMSiteTable::site(GRMBel const& bel) const {
  if (bel.isBad() || bel.slot() != m_slot || bel.getWord0() >= m_sites.size()) return nullptr;
  return &m_sites[bel.getWord0()];
}

std::string GRMSiteTable::hierarchicalName(GRMBel const& bel) {
  if (bel.isBad()) return std::string();
  return SiteRegistry::instance().nameOf(bel.slot(), bel);
}
