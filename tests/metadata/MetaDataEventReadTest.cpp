// The metadata reader reads event by event; these documents hold what a document tree would
// have decided differently from a naive event reader: first members, number ranges, nesting,
// and a store left as it was when the text fails.

#include <gtest/gtest.h>

#include <sstream>

#include "HEXAll.h"
#include "KPEPrjMetaDataModel.h"

namespace {

using Tarvo::Frameworks::KPEPrjMetaDataModel;

std::string written(KPEPrjMetaDataModel const& model) {
  std::ostringstream out;
  model.writeToJSONStream(out);
  return out.str();
}

// The store after reading `text` into a store holding "kept" = 1 and "a" = "old".
std::string afterReading(std::string const& text) {
  KPEPrjMetaDataModel model;
  model.addIntegrProperty("kept", 1);
  model.addStringProperty("a", "old");
  std::istringstream in(text);
  model.readFromJSONStream("meta.json", in);
  return written(model);
}

std::string item(std::string const& name, std::string const& value) {
  return "    {\n      \"name\": \"" + name + "\",\n      \"value\": " + value + "\n    }";
}

std::string store(std::vector<std::string> const& items) {
  std::string text = "{\n  \"MetaData\": [\n";
  for (std::size_t i = 0; i < items.size(); ++i)
    text += items[i] + (i + 1 < items.size() ? ",\n" : "\n");
  return text + "  ]\n}";
}

TEST(MetaDataEventRead, NumbersTakeTheTypeTheirRangeGives) {
  EXPECT_EQ(afterReading(R"({"MetaData": [
    {"name": "b", "value": 2147483647},
    {"name": "c", "value": 2147483648},
    {"name": "d", "value": -2147483648},
    {"name": "e", "value": -2147483649},
    {"name": "f", "value": 4294967296},
    {"name": "g", "value": 18446744073709551615},
    {"name": "h", "value": 1.5e3},
    {"name": "i", "value": false}]})"),
            store({item("a", "\"old\""), item("b", "2147483647"), item("c", "2147483648"), item("d", "-2147483648"),
                   item("f", "4294967296"), item("g", "18446744073709551615"), item("h", "1500.0"), item("i", "false"),
                   item("kept", "1")}));
}

TEST(MetaDataEventRead, OnlyFirstMembersCountAndNestedValuesAreSkipped) {
  EXPECT_EQ(afterReading(R"({"Before": {"MetaData": [{"name": "x", "value": 1}]},
    "MetaData": [
      {"value": "first", "name": "b", "value": "second", "name": "c"},
      {"name": 5, "value": 3},
      {"name": ["n"], "value": [["deep"], "s1", {"k": "v"}, 7, null, "s2"]},
      {"name": "a", "value": {"nested": [1]}, "extra": [{"value": 9}]},
      {"name": "d"},
      [{"name": "e", "value": 1}],
      {"name": "f", "value": []}],
    "MetaData": [{"name": "z", "value": 1}]})"),
            store({item("", "[\n        \"s1\",\n        \"s2\"\n      ]"), item("a", "\"old\""),
                   item("b", "\"first\""), item("f", "[]"), item("kept", "1")}));
  // The first "MetaData" decides even when it is no array.
  std::string const untouched = store({item("a", "\"old\""), item("kept", "1")});
  EXPECT_EQ(afterReading(R"({"MetaData": {}, "MetaData": [{"name": "z", "value": 1}]})"), untouched);
  EXPECT_EQ(afterReading(R"([{"MetaData": [{"name": "z", "value": 1}]}])"), untouched);
  EXPECT_EQ(afterReading(R"("MetaData")"), untouched);
}

TEST(MetaDataEventRead, TheDocumentWinsAndAFailedTextLeavesTheStoreAsItWas) {
  EXPECT_EQ(afterReading(R"({"MetaData": [{"name": "a", "value": 1}, {"name": "a", "value": [""]}]})"),
            store({item("a", "[\n        \"\"\n      ]"), item("kept", "1")}));
  KPEPrjMetaDataModel model;
  model.addIntegrProperty("kept", 1);
  std::string const before = written(model);
  std::istringstream broken(R"({"MetaData": [{"name": "new", "value": 1}, {"name": "late" "value": 2}]})");
  try {
    model.readFromJSONStream("broken.json", broken);
    FAIL();
  } catch (HEXAll const& error) {
    EXPECT_EQ(error.getMessage().getId(), "8-101");
    EXPECT_EQ(
        error.getMessage().getArgs(),
        (std::vector<std::string>{"broken.json", "line 1, column 60: Missing a comma or '}' after an object member."}));
  }
  EXPECT_EQ(written(model), before);
  std::string deep = R"({"MetaData": [{"name": "new", "value": 1}, {"name": "deep", "value": )";
  deep += std::string(600, '[') + std::string(600, ']') + "}]}";
  std::istringstream tooDeep(deep);
  try {
    model.readFromJSONStream("deep.json", tooDeep);
    FAIL();
  } catch (HEXAll const& error) {
    EXPECT_EQ(error.getMessage().getArgs().at(1),
              "line 1, column 579: The text nests arrays and objects deeper than 512 levels.");
  }
  EXPECT_EQ(written(model), before);
}

}  // namespace
