#include <gtest/gtest.h>

#include <sstream>

#include "HEXAll.h"
#include "JsonDocumentFrame.h"
#include "KPEPrjMetaDataModel.h"
#include "TestSupport.h"

namespace {

using Tarvo::Frameworks::KPEPrjMetaDataModel;

std::string written(KPEPrjMetaDataModel const& model) {
  std::ostringstream out;
  model.writeToJSONStream(out);
  return out.str();
}

void readText(KPEPrjMetaDataModel& model, std::string const& text) {
  std::istringstream in(text);
  model.readFromJSONStream("meta.json", in);
}

TEST(MetaDataModel, WritesEveryTypeInNameOrder) {
  KPEPrjMetaDataModel model;
  model.addStringArrayProperty("f.list", {"x", "y"});
  model.addDoubleProperty("e.double", 2.0);
  model.addULongProperty("d.ulong", 18446744073709551615ull);
  model.addStringProperty("c.string", "text \"quoted\"");
  model.addIntegrProperty("b.int", -5);
  model.addBooleanProperty("a.bool", true);
  model.setKPEPLIntfID(0xFFFFFFFF);
  EXPECT_EQ(written(model),
            "{\n"
            "  \"MetaData\": [\n"
            "    {\n      \"name\": \"KPE_PL_INTF_ID\",\n      \"value\": -1\n    },\n"
            "    {\n      \"name\": \"a.bool\",\n      \"value\": true\n    },\n"
            "    {\n      \"name\": \"b.int\",\n      \"value\": -5\n    },\n"
            "    {\n      \"name\": \"c.string\",\n      \"value\": \"text \\\"quoted\\\"\"\n    },\n"
            "    {\n      \"name\": \"d.ulong\",\n      \"value\": 18446744073709551615\n    },\n"
            "    {\n      \"name\": \"e.double\",\n      \"value\": 2.0\n    },\n"
            "    {\n      \"name\": \"f.list\",\n      \"value\": [\n        \"x\",\n        \"y\"\n      ]\n    }\n"
            "  ]\n"
            "}");
  EXPECT_EQ(written(KPEPrjMetaDataModel()), "{\n  \"MetaData\": []\n}");
}

TEST(MetaDataModel, ReadingBackFollowsTheJsonKindOfEachValue) {
  KPEPrjMetaDataModel source;
  source.addULongProperty("small", 7);
  source.addULongProperty("large", 5000000000ull);
  source.addDoubleProperty("two", 2.0);
  source.addDoubleProperty("tiny", 1e-300);
  source.addBooleanProperty("flag", true);
  source.addStringArrayProperty("list", {"a", ""});
  source.setKPEPLIntfID(0xFFFFFFFF);
  source.setKPEPLIntfIDString("intf-7");
  KPEPrjMetaDataModel model;
  readText(model, written(source));
  EXPECT_EQ(model.getULongProperty("small"), 0ull);  // a small number comes back as Integer
  EXPECT_EQ(model.getIntegrProperty("small"), 7);
  EXPECT_EQ(model.getULongProperty("large"), 5000000000ull);
  EXPECT_EQ(model.getDoubleProperty("two"), 2.0);
  EXPECT_EQ(model.getDoubleProperty("tiny"), 1e-300);
  EXPECT_EQ(model.getStringArrayProperty("list"), (std::vector<std::string>{"a", ""}));
  EXPECT_EQ(model.getKPEPLIntfID(), 0xFFFFFFFFu);
  EXPECT_EQ(model.getKPEPLIntfIDString(), "intf-7");
  // A Boolean is kept as a Boolean, yet the Boolean getter only answers for Integers.
  EXPECT_FALSE(model.getBooleanProperty("flag"));
  EXPECT_EQ(written(model), written(source).replace(written(source).find("\"value\": 7"), 10, "\"value\": 7"));
}

TEST(MetaDataModel, BooleanGetterAndTypeMismatches) {
  KPEPrjMetaDataModel model;
  model.addBooleanProperty("b", true);
  model.addIntegrProperty("one", 1);
  model.addIntegrProperty("zero", 0);
  EXPECT_FALSE(model.getBooleanProperty("b"));
  EXPECT_TRUE(model.getBooleanProperty("one"));
  EXPECT_FALSE(model.getBooleanProperty("zero"));
  EXPECT_EQ(model.getStringProperty("one"), "");
  EXPECT_EQ(model.getDoubleProperty("one"), 0.0);
  model.addStringProperty("one", "now a string");
  EXPECT_EQ(model.getIntegrProperty("one"), 0);
  EXPECT_EQ(model.getStringProperty("one"), "now a string");
  model.removeProperty("one");
  model.removeProperty("never there");
  EXPECT_EQ(model.getProperties().size(), 2u);
  KPEPrjMetaDataModel copy;
  copy.addIntegrProperty("gone", 3);
  EXPECT_TRUE(copy.copy(model));
  EXPECT_TRUE(copy.copy(copy));
  EXPECT_EQ(written(copy), written(model));
  copy.clear();
  EXPECT_TRUE(copy.isEmpty());
}

TEST(MetaDataModel, ReadingMergesAndDropsWhatItCannotClassify) {
  KPEPrjMetaDataModel model;
  model.addIntegrProperty("kept", 1);
  model.addIntegrProperty("replaced", 1);
  readText(model, R"({"MetaData": [
    {"name": "replaced", "value": "text"},
    {"name": "novalue"},
    {"name": "null", "value": null},
    {"name": "object", "value": {}},
    {"name": "negative", "value": -5000000000},
    {"name": "twice", "value": 1},
    {"name": "twice", "value": 2},
    "not an object"]})");
  EXPECT_EQ(model.getIntegrProperty("kept"), 1);
  EXPECT_EQ(model.getStringProperty("replaced"), "text");
  EXPECT_EQ(model.getIntegrProperty("twice"), 2);
  EXPECT_EQ(model.getProperties().size(), 3u);
  readText(model, R"({"Other": []})");
  readText(model, "[1, 2]");
  EXPECT_EQ(model.getProperties().size(), 3u);
}

TEST(MetaDataModel, FileFormsReportTheRightNames) {
  tarvo_test::TempDir dir;
  KPEPrjMetaDataModel model;
  model.addStringProperty("p", "v");
  model.writeToJSONFile(dir.file("meta.json"));
  KPEPrjMetaDataModel loaded;
  loaded.readFromJSONFile(dir.file("meta.json"));
  EXPECT_EQ(loaded.getStringProperty("p"), "v");

  std::string const missing = dir.path() + "/./missing.json";
  try {
    loaded.readFromJSONFile(missing);
    FAIL();
  } catch (HEXAll const& error) {
    EXPECT_EQ(error.getMessage().getId(), "8-100");
    EXPECT_EQ(error.getMessage().getArgs().at(0), JsonDocumentFrame::canonicalName(missing));
  }
  tarvo_test::writeFile(dir.file("bad.json"), "{\"MetaData\": [\n  {\"name\": }\n]}");
  try {
    loaded.readFromJSONFile(dir.path() + "/./bad.json");
    FAIL();
  } catch (HEXAll const& error) {
    EXPECT_EQ(error.getMessage().getArgs(),
              (std::vector<std::string>{dir.path() + "/./bad.json", "line 2, column 12: Invalid value."}));
  }
  std::istringstream failed("{}");
  failed.setstate(std::ios_base::failbit);
  EXPECT_THROW(loaded.readFromJSONStream("s.json", failed), HEXAll);
  // Writing to a place that can't be opened leaves no trace and raises nothing.
  EXPECT_NO_THROW(model.writeToJSONFile(dir.file("no/dir/meta.json")));
}

}  // namespace
