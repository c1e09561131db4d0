#include <gtest/gtest.h>

#include "ConstrPlaceText.h"

using kpe::constraints::ConstrPlaceText;

TEST(ConstrPlaceText, NumberRuleTakesOnlyTheNumbersOwnDecimalForm) {
  EXPECT_EQ(5, ConstrPlaceText::toNumber("5 "));
  EXPECT_EQ(-3, ConstrPlaceText::toNumber(" \t-3\n\v\f\r"));
  EXPECT_EQ(0, ConstrPlaceText::toNumber("0"));
  EXPECT_EQ(2147483647, ConstrPlaceText::toNumber("2147483647"));
  for (char const* text : {"05", "+5", "-0", "5a", "a5", "", "   ", "2147483648", "99999999999999999999", "1 2"})
    EXPECT_EQ(-1, ConstrPlaceText::toNumber(text)) << text;
}

TEST(ConstrPlaceText, PlacePiecesAreCoordinatesColumnsOrNames) {
  ConstrPlaceText::Place pair = ConstrPlaceText::parsePlace("(2, 3)");
  EXPECT_TRUE(pair.balanced);
  EXPECT_TRUE(pair.hasSecond);
  EXPECT_EQ(2, pair.column);
  EXPECT_EQ(3, pair.second);
  EXPECT_EQ("", pair.name);

  ConstrPlaceText::Place column = ConstrPlaceText::parsePlace("7 ");
  EXPECT_FALSE(column.hasSecond);
  EXPECT_EQ(7, column.column);
  EXPECT_EQ("", column.name);

  // Not a number by the rule, so a name, kept as written.
  EXPECT_EQ("05", ConstrPlaceText::parsePlace("05").name);
  EXPECT_EQ(-1, ConstrPlaceText::parsePlace("05").column);
  EXPECT_EQ("3,", ConstrPlaceText::parsePlace("3,").name);
  EXPECT_EQ(" tile_a", ConstrPlaceText::parsePlace("( tile_a)").name);

  // A pair of non-numbers stays a pair with nothing in it.
  ConstrPlaceText::Place empty = ConstrPlaceText::parsePlace("(a,b)");
  EXPECT_TRUE(empty.hasSecond);
  EXPECT_EQ(-1, empty.column);
  EXPECT_EQ(-1, empty.second);
  EXPECT_EQ("", empty.name);

  ConstrPlaceText::Place open = ConstrPlaceText::parsePlace("(4,1");
  EXPECT_FALSE(open.balanced);
  EXPECT_EQ(4, open.column);
  EXPECT_EQ(1, open.second);
  ConstrPlaceText::Place close = ConstrPlaceText::parsePlace("4)");
  EXPECT_FALSE(close.balanced);
  EXPECT_EQ(4, close.column);
}

TEST(ConstrPlaceText, RangeTextsSplitAtTheFirstColon) {
  ConstrPlaceText::Split both = ConstrPlaceText::splitRange("(1,2):(3,4):x");
  EXPECT_EQ("(1,2)", both.low);
  EXPECT_EQ("(3,4):x", both.high);
  EXPECT_FALSE(both.missingLow);

  ConstrPlaceText::Split noLow = ConstrPlaceText::splitRange(":(3,4)");
  EXPECT_EQ("", noLow.low);
  EXPECT_EQ("(3,4)", noLow.high);
  EXPECT_TRUE(noLow.missingLow);

  ConstrPlaceText::Split lowOnly = ConstrPlaceText::splitRange("tile_a");
  EXPECT_EQ("tile_a", lowOnly.low);
  EXPECT_EQ("", lowOnly.high);
  EXPECT_FALSE(ConstrPlaceText::splitRange("").missingLow);
}

TEST(ConstrPlaceText, RelativeNodeOffsetsKeepTheirOrder) {
  struct Case {
    char const* text;
    bool valid;
    char const* node;
    int x;
    int y;
  };
  int const unset = -9999;
  Case const cases[] = {
      {"n1:(X=1,Y=-2)", true, "n1", 1, -2},
      {"n1:X=3", true, "n1", 3, unset},
      {"n1:(Y=4)", true, "n1", unset, 4},
      {"n1:(Y=1,X=2)", true, "n1", unset, unset},  // Y before X behind a comma gives neither
      {"n1:( X = 5 , Y 6)", true, "n1", 5, 6},     // "=" is optional behind the letter
      {"n1:(X=a)", true, "n1", -1, unset},         // given, but no number
      {"a:b:(X=1)", true, "a", 1, unset},
      {"n1:", false, "", unset, unset},
      {":X=1", false, "", unset, unset},
      {"n1", false, "", unset, unset},
  };
  for (Case const& c : cases) {
    ConstrPlaceText::RelativeNode const node = ConstrPlaceText::parseRelativeNode(c.text);
    EXPECT_EQ(c.valid, node.valid) << c.text;
    EXPECT_EQ(c.node, node.node) << c.text;
    EXPECT_EQ(c.x, node.x) << c.text;
    EXPECT_EQ(c.y, node.y) << c.text;
  }
  EXPECT_FALSE(ConstrPlaceText::parseRelativeNode("n1:(X=1").balanced);
  EXPECT_EQ("(X=1", ConstrPlaceText::parseRelativeNode("n1:(X=1").offsetText);
}
