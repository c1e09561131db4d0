#include <gtest/gtest.h>

#include "HugePageHeap.h"

namespace {

using tarvo_docs::HugePageHeap;

TEST(HugePageHeap, AddsTheTunableOnceAndKeepsTheOthers) {
  EXPECT_EQ(HugePageHeap::tunablesFor(nullptr), "glibc.malloc.hugetlb=1");
  EXPECT_EQ(HugePageHeap::tunablesFor(""), "glibc.malloc.hugetlb=1");
  EXPECT_EQ(HugePageHeap::tunablesFor("glibc.malloc.arena_max=2"), "glibc.malloc.arena_max=2:glibc.malloc.hugetlb=1");
  // Set by the user either way, or by the program's own first start: no second start.
  EXPECT_EQ(HugePageHeap::tunablesFor("glibc.malloc.hugetlb=0"), std::nullopt);
  EXPECT_EQ(HugePageHeap::tunablesFor("glibc.malloc.arena_max=2:glibc.malloc.hugetlb=1"), std::nullopt);
}

}  // namespace
