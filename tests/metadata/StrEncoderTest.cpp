#include <gtest/gtest.h>

#include "KPEPrjStrEncoder.h"

namespace {

TEST(StrEncoder, ListsSortByBytesAndKeepDuplicates) {
  std::vector<std::string> const items{"b", "a", "", "B", "a", "ab"};
  EXPECT_EQ(KPEPrjStrEncoder::encodeAsString(items), "Baaabb");
  EXPECT_EQ(items.front(), "b");  // the argument stays as it was
  EXPECT_EQ(KPEPrjStrEncoder::encodeAsString(std::vector<std::string>{}), "");
}

TEST(StrEncoder, MapsPutEachKeyBeforeItsSortedItems) {
  std::map<std::string, std::vector<std::string>> const groups{{"b", {"y", "x"}}, {"a", {"z"}}, {"c", {}}};
  EXPECT_EQ(KPEPrjStrEncoder::encodeAsString(groups), "azbxyc");
  EXPECT_EQ(KPEPrjStrEncoder::encodeAsString(std::map<std::string, std::vector<std::string>>{}), "");
  // Nothing separates the pieces, so these collide; that is accepted.
  EXPECT_EQ(KPEPrjStrEncoder::encodeAsString(std::vector<std::string>{"ab", "c"}),
            KPEPrjStrEncoder::encodeAsString(std::vector<std::string>{"a", "bc"}));
}

TEST(StrEncoder, IntSumsSignedBytes) {
  EXPECT_EQ(KPEPrjStrEncoder::encodeAsInt("ab"), 195u);
  EXPECT_EQ(KPEPrjStrEncoder::encodeAsInt(""), 0u);
  EXPECT_EQ(KPEPrjStrEncoder::encodeAsInt("\xff"), 0xFFFFFFFFu);
  EXPECT_EQ(KPEPrjStrEncoder::encodeAsInt("a\xc3\xa9"), 97u - 61u - 87u);
  EXPECT_EQ(KPEPrjStrEncoder::encodeAsInt("tile_1_0"), KPEPrjStrEncoder::encodeAsInt("0_1_elit"));
}

}  // namespace
