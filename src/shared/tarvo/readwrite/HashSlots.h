#ifndef TARVO_HASHSLOTS_H
#define TARVO_HASHSLOTS_H

#include <cstdint>
#include <vector>

// The slots of a hash table of numbered texts with linear probing, a power of two of them: each
// holds the hash of a text and its number plus one, 0 in a free slot. The owner keeps the texts
// and compares them; the slots only place the numbers.
struct HashSlot {
  std::uint32_t hash;
  std::uint32_t numberPlusOne;
};

// Doubles `slots` and places every used slot again.
inline void doubleHashSlots(std::vector<HashSlot>& slots) {
  std::vector<HashSlot> doubled(2 * slots.size(), HashSlot{0, 0});
  std::size_t const mask = doubled.size() - 1;
  for (HashSlot const& slot : slots) {
    if (slot.numberPlusOne == 0) continue;
    std::size_t at = slot.hash & mask;
    while (doubled[at].numberPlusOne != 0)
      at = (at + 1) & mask;
    doubled[at] = slot;
  }
  slots.swap(doubled);
}

#endif
