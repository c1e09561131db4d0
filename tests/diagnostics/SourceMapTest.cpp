#include <gtest/gtest.h>

#include "SourceMap.h"

namespace {

using tarvo_diagnostics::SourceMap;

std::string const kText =
    "{\n"
    "  \"a/b\": { \"x~\": [10, {\"k\": \"v\"}] },\n"
    "  \"$n\": 1, \"$n\": 2,\n"
    "  \"list\": [\"m\\u00e9\", \"PORT7\", \"PORT7\"], \"Port\": \"PORT7\",\n"
    "  \"\xC3\xA9t\xC3\xA9\": \"z\"\n"
    "}\n";

TEST(SourceMap, PointersFindKeysAndValuesAndDuplicates) {
  SourceMap const map(kText);
  SourceMap::Answers const answers = map.locate({{SourceMap::pointerFromUriFragment("#/a~1b/x~0/1/k")},
                                                 {{"a/b", "x~", "0"}},
                                                 {{"$n"}, 1},
                                                 {SourceMap::pointerFromUriFragment("#/%24n")},
                                                 {{}},
                                                 {{"a/b", "nothing"}},
                                                 {{"\xC3\xA9t\xC3\xA9"}}});
  ASSERT_EQ(answers.places.size(), 7u);
  EXPECT_EQ(kText.substr(answers.places[0].key, 3), "\"k\"");
  EXPECT_EQ(kText.substr(answers.places[0].value, 3), "\"v\"");
  EXPECT_EQ(answers.places[1].key, SourceMap::npos);  // an item has no key
  EXPECT_EQ(kText.substr(answers.places[1].value, 2), "10");
  EXPECT_EQ(kText.substr(answers.places[2].key, 8), "\"$n\": 2,");
  EXPECT_EQ(kText.substr(answers.places[3].key, 8), "\"$n\": 1,");
  EXPECT_EQ(answers.places[4].value, 0u);
  EXPECT_EQ(answers.places[5].value, SourceMap::npos);
  EXPECT_EQ(kText.substr(answers.places[6].value, 3), "\"z\"");

  SourceMap::Position const z = map.positionOf(answers.places[6].value);
  EXPECT_EQ(z.line, 5u);
  EXPECT_EQ(z.column, 12u);  // bytes: the key holds two characters of two bytes
  EXPECT_EQ(z.characterColumn, 10u);
}

TEST(SourceMap, NamesByKeyItemAndOccurrence) {
  SourceMap const map(kText);
  SourceMap::Answers const answers = map.locate({}, {{"PORT7", "Port", 0},
                                                     {"PORT7", "list", 1},
                                                     {"PORT7", "", 0},
                                                     {"m\xC3\xA9", "list", 0},
                                                     {"$n", "", 0},
                                                     {"PORT7", "list", 2}});
  ASSERT_EQ(answers.names.size(), 6u);
  EXPECT_EQ(map.positionOf(answers.names[0]).column, 50u);
  EXPECT_EQ(map.positionOf(answers.names[1]).column, 32u);
  EXPECT_EQ(map.positionOf(answers.names[2]).column, 23u);
  EXPECT_EQ(map.positionOf(answers.names[3]).column, 12u);  // matched through its \u escape
  EXPECT_EQ(map.positionOf(answers.names[4]).line, 3u);     // a key counts when no member key is asked
  EXPECT_EQ(answers.names[5], SourceMap::npos);
}

TEST(SourceMap, LinesColumnsAndBrokenText) {
  SourceMap const map("{\r\n\"a\": [1,\n");
  EXPECT_EQ(map.positionOf(0).line, 1u);
  EXPECT_EQ(map.positionOf(3).line, 2u);
  EXPECT_EQ(map.positionOf(3).column, 1u);
  EXPECT_EQ(map.positionOf(1000).line, 3u);  // the end of the text
  EXPECT_EQ(map.offsetOf(2, 4), 6u);
  EXPECT_EQ(map.offsetOf(9, 9), 12u);  // clamped to the end
  // The scan stops where the text stops; what lies before is still found.
  SourceMap::Answers const answers = map.locate({{{"a", "0"}}, {{"a", "2"}}});
  EXPECT_EQ(answers.places[0].value, 9u);
  EXPECT_EQ(answers.places[1].value, SourceMap::npos);
}

TEST(SourceMap, FragmentsAndEscapes) {
  EXPECT_EQ(SourceMap::pointerFromUriFragment("#"), SourceMap::Pointer());
  EXPECT_EQ(SourceMap::pointerFromUriFragment("#/a~1b/~0%7E1/%25/"), (SourceMap::Pointer{"a/b", "~~1", "%", ""}));
  std::string const escaped = R"(a\"b\\\/\n\u00e9\ud83d\ude00\u12)";
  EXPECT_EQ(SourceMap::decodeString(escaped.data(), escaped.data() + escaped.size()),
            "a\"b\\/\n\xC3\xA9\xF0\x9F\x98\x80u12");
}

}  // namespace
