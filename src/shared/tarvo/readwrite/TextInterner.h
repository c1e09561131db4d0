#ifndef TARVO_TEXTINTERNER_H
#define TARVO_TEXTINTERNER_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "HashSlots.h"

// Gives each distinct text a small number and keeps it once, for readers that meet the same
// names many times in a large document (a traffic specification's paths name their instances
// hundreds of thousands of times). Open addressing over one flat table: a look-up costs one
// hash of the text and, mostly, one comparison; no node is allocated per text.
class TextInterner {
 public:
  TextInterner();

  // The number of `text`, given to it now if it had none; numbers count up from 0.
  std::uint32_t intern(std::string_view text);
  std::string_view text(std::uint32_t id) const {
    return std::string_view(m_chars.data() + m_starts[id], m_starts[id + 1] - m_starts[id]);
  }
  std::size_t size() const { return m_starts.size() - 1; }

 private:
  typedef HashSlot Slot;

  std::string m_chars;                // every text, one after the other
  std::vector<std::size_t> m_starts;  // text i is m_chars[m_starts[i], m_starts[i + 1])
  std::vector<Slot> m_slots;          // a power of two, at most half full
};

#endif
