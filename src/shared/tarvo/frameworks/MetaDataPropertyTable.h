#ifndef TARVO_METADATAPROPERTYTABLE_H
#define TARVO_METADATAPROPERTYTABLE_H

#include <boost/any.hpp>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "LargePageMemory.h"

namespace Tarvo {
namespace Frameworks {

// The properties that a read gives, in name order, held in a few large blocks: a store of
// many properties as tree nodes and separate strings costs several allocations per property,
// and the first touch of the memory they take costs more than the parse of the text.
class MetaDataPropertyTable {
 public:
  // A text copied into the blocks, after its length.
  struct Text {
    char const* at = nullptr;
    std::string_view view() const {
      if (at == nullptr) return std::string_view();
      std::uint32_t size;
      std::memcpy(&size, at, sizeof size);
      return std::string_view(at + sizeof size, size);
    }
  };
  // A string array copied into the blocks: its length, then its items.
  struct List {
    std::size_t const* at = nullptr;
    std::size_t size() const { return *at; }
    Text const* items() const { return reinterpret_cast<Text const*>(at + 1); }
  };
  typedef std::variant<bool, int, unsigned long long, double, Text, List> Value;
  struct Property {
    Text name;
    Value value;
  };

  MetaDataPropertyTable() = default;
  MetaDataPropertyTable(MetaDataPropertyTable const&) = delete;
  MetaDataPropertyTable& operator=(MetaDataPropertyTable const&) = delete;

  // `size` is a JSON string's length, which fits 32 bits.
  Text store(char const* text, std::size_t size);
  List store(std::vector<Text> const& items);
  // Appends in the order of the document; `finish` then orders the properties by name.
  void add(Text name, Value const& value) {
    if (m_properties.size() == m_properties.capacity()) grow();
    m_properties.push_back(Property{name, value});
  }
  // Orders by name; of properties of the same name, the last added stays.
  void finish();

  typedef std::vector<Property, LargePageAllocator<Property>> Properties;

  // After `finish` only.
  Property const* find(std::string_view name) const;
  Properties const& properties() const { return m_properties; }
  static std::vector<std::string> strings(List list);
  static boost::any toAny(Value const& value);

 private:
  void* allocate(std::size_t size, std::size_t alignment);
  void grow();

  Properties m_properties;
  // The first block and long texts from the heap, the rest in large pages: all go by free().
  std::vector<LargePageMemory::Block> m_blocks;
  char* m_free = nullptr;
  std::size_t m_freeSize = 0;
};

}  // namespace Frameworks
}  // namespace Tarvo

#endif
