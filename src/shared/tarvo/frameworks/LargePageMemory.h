#ifndef TARVO_LARGEPAGEMEMORY_H
#define TARVO_LARGEPAGEMEMORY_H

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>

namespace Tarvo {
namespace Frameworks {

// Blocks whose size and start are multiples of 2 MB, so that a process whose memory the
// system backs with transparent huge pages gets each block as whole large pages. A store that
// a read fills touches all its memory once; on machines where a fault of a 4 KB page is dear,
// those faults cost more than the parse of the text.
class LargePageMemory {
 public:
  static constexpr std::size_t kPage = std::size_t(1) << 21;

  static std::size_t roundUp(std::size_t size) { return (size + kPage - 1) / kPage * kPage; }
  // `size` rounded up to whole pages; throws std::bad_alloc.
  static void* allocate(std::size_t size) {
    void* const block = std::aligned_alloc(kPage, roundUp(size));
    if (block == nullptr) throw std::bad_alloc();
    return block;
  }
  static void release(void* block) noexcept { std::free(block); }

  struct Release {
    void operator()(char* block) const noexcept { release(block); }
  };
  typedef std::unique_ptr<char[], Release> Block;
};

// A standard allocator that takes arrays of over half a page from LargePageMemory and smaller
// ones from the heap; the size given back on release decides which, as it is the size asked.
template <typename T>
class LargePageAllocator {
 public:
  typedef T value_type;

  LargePageAllocator() = default;
  template <typename U>
  LargePageAllocator(LargePageAllocator<U> const&) {}

  T* allocate(std::size_t n) {
    if (large(n)) return static_cast<T*>(LargePageMemory::allocate(n * sizeof(T)));
    return std::allocator<T>().allocate(n);
  }
  void deallocate(T* p, std::size_t n) noexcept {
    if (large(n))
      LargePageMemory::release(p);
    else
      std::allocator<T>().deallocate(p, n);
  }

  template <typename U>
  bool operator==(LargePageAllocator<U> const&) const {
    return true;
  }
  template <typename U>
  bool operator!=(LargePageAllocator<U> const&) const {
    return false;
  }

 private:
  static bool large(std::size_t n) { return n * sizeof(T) > LargePageMemory::kPage / 2; }
};

}  // namespace Frameworks
}  // namespace Tarvo

#endif
