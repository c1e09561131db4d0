#include <gtest/gtest.h>

#include <set>

#include "NOCJsonEnumTexts.h"

using namespace DevHrdIP::Definitions;
using namespace NOC;

namespace {

TEST(NOCJsonEnumTextsTest, BlockKindsHaveOneTextEachAndTheErrorRowIsNoKind) {
  std::set<std::string> texts;
  for (int row = 0; row < COMPERR; ++row) {
    std::string const text = compTypeToText(row);
    EXPECT_TRUE(texts.insert(text).second) << text;
    EXPECT_EQ(compTypeFromText(text), row) << text;
  }
  EXPECT_EQ(texts.size(), 111u);
  EXPECT_STREQ(compTypeToText(DDR5X), "DDR5X");
  EXPECT_STREQ(compTypeToText(HBM_IGU), "HBM_IGU");
  EXPECT_STREQ(compTypeToText(COMPERR), "COMPERR");
  EXPECT_STREQ(compTypeToText(500), "COMPERR");
  EXPECT_EQ(compTypeFromText("COMPERR"), COMPERR);
  EXPECT_EQ(compTypeFromText("ddrc"), COMPERR);
}

TEST(NOCJsonEnumTextsTest, UnknownTextsAndValuesFallBack) {
  EXPECT_EQ(axiProtFromText("AXI_STRM"), AXI_STRM);
  EXPECT_EQ(axiProtFromText("axi_strm"), AXI_MM);
  EXPECT_STREQ(axiProtToText(2), "AXI_STRM");

  EXPECT_EQ(trafficClassFromText("ISOC"), TC_ISOC);
  EXPECT_EQ(trafficClassFromText("XX"), TC_BE);
  EXPECT_STREQ(trafficClassToText(TC_ISOC), "ISOC");
  EXPECT_STREQ(trafficClassToText(9), "BW");

  EXPECT_EQ(writeOrderFromText("doorbell"), WO_DOORBELL);
  EXPECT_EQ(writeOrderFromText("Strict"), WO_INVALID);
  EXPECT_STREQ(writeOrderToText(WO_RELAXED), "relaxed");
  EXPECT_STREQ(writeOrderToText(-1), "invalid");

  EXPECT_EQ(portTypeFromText("PC1_PORT0"), PORT2);
  EXPECT_EQ(portTypeFromText("PORT3"), PORT3);
  EXPECT_EQ(portTypeFromText("PORTERR"), PORT_INVALID);
  EXPECT_STREQ(portTypeToText(PORT3), "PORT3");
  EXPECT_STREQ(portTypeToText(3), "PORTERR");
}

}  // namespace
