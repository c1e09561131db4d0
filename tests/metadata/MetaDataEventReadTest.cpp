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

// A store read into while empty keeps the read in a compact form of its own until something
// changes it: both forms must answer alike and hand over intact.
void readInto(KPEPrjMetaDataModel& model, std::string const& text) {
  std::istringstream in(text);
  model.readFromJSONStream("meta.json", in);
}

// Out of order, a name twice (the last wins), an empty name, a value of each type.
char const* const kMixed = R"({"MetaData": [
  {"name": "z", "value": 1},
  {"name": "list", "note": "skipped", "value": ["b", "", "a"]},
  {"name": "dup", "value": "first"},
  {"value": 3.5},
  {"name": "big", "value": 4294967296},
  {"name": "dup", "value": ["second"]},
  {"name": "flag", "value": true},
  {"name": "z", "value": "last"},
  {"name": "int", "value": -7}]})";

TEST(MetaDataReadStore, AnEmptyStoreReadsInNameOrderAndAnswersEveryGetter) {
  KPEPrjMetaDataModel model;
  readInto(model, kMixed);
  EXPECT_EQ(model.getPropertyCount(), 7u);
  EXPECT_FALSE(model.isEmpty());
  EXPECT_EQ(model.getDoubleProperty(""), 3.5);
  EXPECT_EQ(model.getULongProperty("big"), 4294967296ull);
  EXPECT_EQ(model.getStringArrayProperty("dup"), std::vector<std::string>{"second"});
  EXPECT_EQ(model.getStringProperty("dup"), "");
  EXPECT_EQ(model.getIntegrProperty("int"), -7);
  EXPECT_TRUE(model.getBooleanProperty("int"));
  EXPECT_FALSE(model.getBooleanProperty("flag"));
  EXPECT_EQ(model.getIntegrProperty("flag"), 0);
  EXPECT_EQ(model.getStringArrayProperty("list"), (std::vector<std::string>{"b", "", "a"}));
  EXPECT_EQ(model.getStringProperty("z"), "last");
  EXPECT_EQ(model.getIntegrProperty("z"), 0);
  EXPECT_EQ(model.getDoubleProperty("missing"), 0.0);
  EXPECT_EQ(model.getStringArrayProperty("a"), std::vector<std::string>());
  std::string const expected =
      store({item("", "3.5"), item("big", "4294967296"), item("dup", "[\n        \"second\"\n      ]"),
             item("flag", "true"), item("int", "-7"),
             item("list", "[\n        \"b\",\n        \"\",\n        \"a\"\n      ]"), item("z", "\"last\"")});
  EXPECT_EQ(written(model), expected);

  // The map made on request holds the same, and writing after it is unchanged.
  auto const& properties = model.getProperties();
  ASSERT_EQ(properties.size(), 7u);
  EXPECT_EQ(properties.begin()->first, "");
  EXPECT_EQ(boost::any_cast<std::string>(properties.at("z")), "last");
  EXPECT_EQ(boost::any_cast<unsigned long long>(properties.at("big")), 4294967296ull);
  EXPECT_EQ(written(model), expected);
}

TEST(MetaDataReadStore, ChangesAfterAReadStartFromWhatWasRead) {
  KPEPrjMetaDataModel model;
  readInto(model, kMixed);
  model.addIntegrProperty("z", 2);
  model.removeProperty("list");
  EXPECT_EQ(model.getPropertyCount(), 6u);
  EXPECT_EQ(model.getIntegrProperty("z"), 2);
  EXPECT_EQ(model.getStringArrayProperty("dup"), std::vector<std::string>{"second"});

  KPEPrjMetaDataModel read;
  readInto(read, R"({"MetaData": [{"name": "b", "value": 1}, {"name": "a", "value": "x"}]})");
  readInto(read, R"({"MetaData": [{"name": "b", "value": "two"}, {"name": "c", "value": false}]})");
  EXPECT_EQ(written(read), store({item("a", "\"x\""), item("b", "\"two\""), item("c", "false")}));

  // A copy of a read store is deep: clearing the source leaves it whole.
  KPEPrjMetaDataModel copy;
  copy.addIntegrProperty("gone", 1);
  copy.copy(read);
  read.clear();
  EXPECT_TRUE(read.isEmpty());
  EXPECT_EQ(written(read), "{\n  \"MetaData\": []\n}");
  EXPECT_EQ(written(copy), store({item("a", "\"x\""), item("b", "\"two\""), item("c", "false")}));

  // A text that names nothing leaves an empty store as it was.
  KPEPrjMetaDataModel empty;
  readInto(empty, R"({"MetaData": [{"name": "n", "value": null}]})");
  EXPECT_TRUE(empty.isEmpty());
  empty.addStringProperty("s", "t");
  EXPECT_EQ(written(empty), store({item("s", "\"t\"")}));
}

TEST(MetaDataReadStore, LongAndManyTextsSurviveTheRead) {
  std::string const longText(100000, 'q');
  std::string text = R"({"MetaData": [{"name": "long", "value": ")" + longText + R"("})";
  for (int i = 0; i < 90000; ++i)
    text += R"(, {"name": "p)" + std::to_string(i) + R"(", "value": ["item)" + std::to_string(i) + R"("]})";
  text += "]}";
  KPEPrjMetaDataModel model;
  readInto(model, text);
  EXPECT_EQ(model.getPropertyCount(), 90001u);
  EXPECT_EQ(model.getStringProperty("long"), longText);
  for (int i = 0; i < 90000; i += 4999)
    EXPECT_EQ(model.getStringArrayProperty("p" + std::to_string(i)),
              std::vector<std::string>{"item" + std::to_string(i)});
}

}  // namespace
