#ifndef TARVO_DOCS_HUGEPAGEHEAP_H
#define TARVO_DOCS_HUGEPAGEHEAP_H

#include <optional>
#include <string>

namespace tarvo_docs {

// Reading a large document grows the heap by hundreds of megabytes. With 4 KB pages the
// kernel's page faults then cost about as much as the parse itself; glibc backs its heap with
// transparent huge pages when its tunable glibc.malloc.hugetlb says so, but reads tunables only
// when a process starts. The program therefore starts itself once more with the tunable added.
class HugePageHeap {
 public:
  // The GLIBC_TUNABLES value to start again with, given the current one (null when unset);
  // nothing when the current value already sets glibc.malloc.hugetlb, either way.
  static std::optional<std::string> tunablesFor(char const* current);

  // Replaces the process by the same program with the tunable added, when the C library is
  // glibc, the kernel offers transparent huge pages and the tunable is not set yet. Returns
  // (and the program goes on as it is) when any of that does not hold or the start fails.
  static void restartWithHugePages(char** argv);
};

}  // namespace tarvo_docs

#endif
