#include "MetaDataPropertyTable.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace Tarvo {
namespace Frameworks {

namespace {

constexpr std::size_t kBlockSize = std::size_t(1) << 16;

void* heapBlock(std::size_t size) {
  void* const block = std::malloc(size);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

bool byName(MetaDataPropertyTable::Property const& a, MetaDataPropertyTable::Property const& b) {
  return a.name.view() < b.name.view();
}

}  // namespace

void* MetaDataPropertyTable::allocate(std::size_t size, std::size_t alignment) {
  std::size_t const skip = (alignment - reinterpret_cast<std::uintptr_t>(m_free) % alignment) % alignment;
  if (m_free == nullptr || skip + size > m_freeSize) {
    // Left uninitialised: every byte handed out is written first. What is longer than a
    // quarter block gets a block of its own, and the free rest stays in use.
    if (size > kBlockSize / 4) {
      m_blocks.emplace_back(static_cast<char*>(heapBlock(size)));
      return m_blocks.back().get();
    }
    // A small document stays in one small block; a large one goes on in large pages.
    bool const first = m_blocks.empty();
    m_freeSize = first ? kBlockSize : LargePageMemory::kPage;
    m_blocks.emplace_back(static_cast<char*>(first ? heapBlock(m_freeSize) : LargePageMemory::allocate(m_freeSize)));
    m_free = m_blocks.back().get();
    return allocate(size, alignment);
  }
  void* const start = m_free + skip;
  m_free += skip + size;
  m_freeSize -= skip + size;
  return start;
}

// Past a small block's worth, the list takes a whole large page at once instead of the
// sizes between, which would be mapped in small pages; beyond it, it doubles in large pages.
void MetaDataPropertyTable::grow() {
  std::size_t const perPage = LargePageMemory::kPage / sizeof(Property);
  std::size_t const size = m_properties.size();
  if (size * sizeof(Property) >= kBlockSize && size < perPage) m_properties.reserve(perPage);
}

MetaDataPropertyTable::Text MetaDataPropertyTable::store(char const* text, std::size_t size) {
  std::uint32_t const length = static_cast<std::uint32_t>(size);
  char* const at = static_cast<char*>(allocate(sizeof length + size, 1));
  std::memcpy(at, &length, sizeof length);
  std::memcpy(at + sizeof length, text, size);
  return Text{at};
}

MetaDataPropertyTable::List MetaDataPropertyTable::store(std::vector<Text> const& items) {
  void* const at = allocate(sizeof(std::size_t) + items.size() * sizeof(Text), alignof(std::size_t));
  std::size_t* const size = new (at) std::size_t(items.size());
  Text* item = reinterpret_cast<Text*>(size + 1);
  for (Text const& text : items)
    new (item++) Text(text);
  return List{size};
}

void MetaDataPropertyTable::finish() {
  // A document written from a store is in name order already, with no name twice.
  auto const out = std::adjacent_find(m_properties.begin(), m_properties.end(),
                                      [](Property const& a, Property const& b) { return !byName(a, b); });
  if (out == m_properties.end()) return;
  std::stable_sort(m_properties.begin(), m_properties.end(), byName);
  // Keeps the last of each run of equal names.
  auto kept = m_properties.begin();
  for (auto next = m_properties.begin(); next != m_properties.end(); ++next) {
    if (next + 1 != m_properties.end() && !byName(*next, *(next + 1))) continue;
    *kept++ = *next;
  }
  m_properties.erase(kept, m_properties.end());
}

MetaDataPropertyTable::Property const* MetaDataPropertyTable::find(std::string_view name) const {
  auto found = std::lower_bound(m_properties.begin(), m_properties.end(), name,
                                [](Property const& p, std::string_view n) { return p.name.view() < n; });
  return found != m_properties.end() && found->name.view() == name ? &*found : nullptr;
}

std::vector<std::string> MetaDataPropertyTable::strings(List list) {
  std::vector<std::string> strings;
  strings.reserve(list.size());
  for (std::size_t i = 0; i < list.size(); ++i)
    strings.emplace_back(list.items()[i].view());
  return strings;
}

boost::any MetaDataPropertyTable::toAny(Value const& value) {
  if (Text const* text = std::get_if<Text>(&value)) return std::string(text->view());
  if (List const* list = std::get_if<List>(&value)) return strings(*list);
  return std::visit([](auto scalar) { return boost::any(scalar); }, value);
}

}  // namespace Frameworks
}  // namespace Tarvo
