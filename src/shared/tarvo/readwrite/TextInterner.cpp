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
    if (slot.idPlusOne == 0) {
      std::uint32_t const id = static_cast<std::uint32_t>(size());
      slot = Slot{hash, id + 1};
      m_chars.append(text);
      m_starts.push_back(m_chars.size());
      if (2 * size() > m_slots.size()) grow();
      return id;
    }
    if (slot.hash == hash && this->text(slot.idPlusOne - 1) == text) return slot.idPlusOne - 1;
  }
}

void TextInterner::grow() {
  std::vector<Slot> slots(2 * m_slots.size(), Slot{0, 0});
  std::size_t const mask = slots.size() - 1;
  for (Slot const& slot : m_slots) {
    if (slot.idPlusOne == 0) continue;
    std::size_t at = slot.hash & mask;
    while (slots[at].idPlusOne != 0)
      at = (at + 1) & mask;
    slots[at] = slot;
  }
  m_slots.swap(slots);
}
