#include "TrafficNameIndex.h"

#include <functional>

namespace HrdIPToolCntr {

namespace {

std::uint32_t hashOf(std::string_view name) {
  return static_cast<std::uint32_t>(std::hash<std::string_view>()(name));
}

}  // namespace

void TrafficNameIndex::set(std::string const& name, Role role, TrafficLInst* instance, bool replace) {
  if ((m_entries.size() + 1) * 2 > m_slots.size()) grow();
  std::uint32_t const hash = hashOf(name);
  Slot& slot = m_slots[slotOf(name, hash)];
  if (slot.entryPlusOne == 0) {
    m_entries.push_back(Entry{name, {}});
    slot = Slot{hash, static_cast<std::uint32_t>(m_entries.size())};
  }
  TrafficLInst*& held = m_entries[slot.entryPlusOne - 1].instances[role];
  if (replace || held == nullptr) held = instance;
}

TrafficLInst* TrafficNameIndex::find(std::string_view name, Role role) const {
  if (m_slots.empty()) return nullptr;
  Slot const& slot = m_slots[slotOf(name, hashOf(name))];
  return slot.entryPlusOne == 0 ? nullptr : m_entries[slot.entryPlusOne - 1].instances[role];
}

std::size_t TrafficNameIndex::slotOf(std::string_view name, std::uint32_t hash) const {
  std::size_t const mask = m_slots.size() - 1;
  for (std::size_t at = hash & mask;; at = (at + 1) & mask) {
    Slot const& slot = m_slots[at];
    if (slot.entryPlusOne == 0 || (slot.hash == hash && m_entries[slot.entryPlusOne - 1].name == name)) return at;
  }
}

void TrafficNameIndex::grow() {
  std::vector<Slot> old(m_slots.empty() ? 16 : m_slots.size() * 2);
  old.swap(m_slots);
  std::size_t const mask = m_slots.size() - 1;
  for (Slot const& slot : old) {
    if (slot.entryPlusOne == 0) continue;
    std::size_t at = slot.hash & mask;
    while (m_slots[at].entryPlusOne != 0)
      at = (at + 1) & mask;
    m_slots[at] = slot;
  }
}

}  // namespace HrdIPToolCntr
