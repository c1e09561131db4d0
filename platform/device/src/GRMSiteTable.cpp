#include "GRMSiteTable.h"

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
      std::uint32_t const index = static_cast<std::uint32_t>(m_sites.size());
      std::string name = tile.name + "/" + site.name;
      if (!m_byName.emplace(name, index).second)
        throw HEXAlgException("GRMSiteTable::GRMSiteTable() - site '" + name + "' appears twice");
      m_sites.push_back(Site{std::move(name), site.column >= 0 ? site.column : tile.column, site.channel});
      m_columns.push_back(static_cast<std::uint32_t>(tile.column));
    }
  }
  m_slot = SiteRegistry::instance().add(this);
}

GRMSiteTable::~GRMSiteTable() {
  SiteRegistry::instance().remove(m_slot);
}

GRMBel GRMSiteTable::find(std::string const& hierarchicalName) const {
  auto const found = m_byName.find(hierarchicalName);
  if (found == m_byName.end()) return GRMBel();
  return GRMBel(found->second, m_columns[found->second], m_slot);
}

GRMSiteTable::Site const* GRMSiteTable::site(GRMBel const& bel) const {
  if (bel.isBad() || bel.slot() != m_slot || bel.getWord0() >= m_sites.size()) return nullptr;
  return &m_sites[bel.getWord0()];
}

std::string GRMSiteTable::hierarchicalName(GRMBel const& bel) {
  if (bel.isBad()) return std::string();
  return SiteRegistry::instance().nameOf(bel.slot(), bel);
}
