#include "HugePageHeap.h"

#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <fstream>

namespace tarvo_docs {

namespace {

char const kTunable[] = "glibc.malloc.hugetlb";

#if defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__)
// "always [madvise] never": huge pages are there unless "never" is chosen.
bool kernelOffersHugePages() {
  std::ifstream in("/sys/kernel/mm/transparent_hugepage/enabled");
  std::string line;
  return std::getline(in, line) && line.find("[never]") == std::string::npos;
}
#endif

}  // namespace

std::optional<std::string> HugePageHeap::tunablesFor(char const* current) {
  std::string const setting = std::string(kTunable) + "=1";
  if (current == nullptr || *current == '\0') return setting;
  if (std::strstr(current, kTunable) != nullptr) return std::nullopt;
  return std::string(current) + ":" + setting;
}

void HugePageHeap::restartWithHugePages(char** argv) {
#if defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__)
  std::optional<std::string> const tunables = tunablesFor(std::getenv("GLIBC_TUNABLES"));
  if (!tunables || !kernelOffersHugePages()) return;
  if (setenv("GLIBC_TUNABLES", tunables->c_str(), 1) != 0) return;
  execv("/proc/self/exe", argv);
  // Still here: the program goes on with the heap it has; the tunable stays set, so no
  // program that it might start again would try once more.
#else
  (void)argv;
#endif
}

}  // namespace tarvo_docs
