#ifndef TARVO_GRMBEL_H
#define TARVO_GRMBEL_H

#include <cstdint>
#include <string>

class GRMSiteTable;

// One site of a device: two 32-bit words. The first is the site's index in its device, the
// second holds the device column in its top 15 bits and the device's registry slot in the
// rest. A default-constructed site is bad. The value stays meaningful only while the part
// that made it lives.
class GRMBel {
 public:
  static constexpr unsigned kColumnShift = 17;
  static constexpr std::uint32_t kMaxColumn = (1u << (32 - kColumnShift)) - 1;
  static constexpr std::uint32_t kMaxSlot = (1u << kColumnShift) - 1;

  GRMBel() = default;

  bool isBad() const { return m_index == kBadWord; }
  // "tile/site"; empty for a bad site or one whose part is gone.
  std::string getHierarchicalName1() const;
  // The device column, the top 15 bits of the second word.
  int getDeviceColumn() const { return static_cast<int>(m_word1 >> kColumnShift); }
  std::uint32_t getWord0() const { return m_index; }
  std::uint32_t getWord1() const { return m_word1; }

  bool operator==(GRMBel const& other) const { return m_index == other.m_index && m_word1 == other.m_word1; }
  bool operator!=(GRMBel const& other) const { return !(*this == other); }
  bool operator<(GRMBel const& other) const {
    return m_word1 != other.m_word1 ? m_word1 < other.m_word1 : m_index < other.m_index;
  }

 private:
  friend class GRMSiteTable;
  static constexpr std::uint32_t kBadWord = 0xFFFFFFFFu;

  GRMBel(std::uint32_t index, std::uint32_t column, std::uint32_t slot)
      : m_index(index), m_word1((column << kColumnShift) | slot) {}
  std::uint32_t slot() const { return m_word1 & kMaxSlot; }

  std::uint32_t m_index = kBadWord;
  std::uint32_t m_word1 = kBadWord;
};

#endif
