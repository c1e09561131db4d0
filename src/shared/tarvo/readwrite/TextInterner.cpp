#include "TextInterner.h"

#include <functional>

namespace {

std::uint32_t hashOf(std::string_view text) {
  return static_cast<std::uint32_t>(std::hash<std::string_view>()(text));
}

}  // namespace

TextInterner::TextInterner() : m_starts{0}, m_slots(64, Slot{0, 0}) {}

std::uint32_t TextInterner::intern(std::string_view text) {
  std::uint32_t const hash = hashOf(text);
  std::size_t const mask = m_slots.size() - 1;
  for (std::size_t at = hash & mask;; at = (at + 1) & mask) {
    Slot& slot = m_slots[at];
    if (slot.numberPlusOne == 0) {
      std::uint32_t const id = static_cast<std::uint32_t>(size());
      slot = Slot{hash, id + 1};
      m_chars.append(text);
      m_starts.push_back(m_chars.size());
      if (2 * size() > m_slots.size()) doubleHashSlots(m_slots);
      return id;
    }
    if (slot.hash == hash && this->text(slot.numberPlusOne - 1) == text) return slot.numberPlusOne - 1;
  }
}
