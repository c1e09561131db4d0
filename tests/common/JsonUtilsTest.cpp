#include <gtest/gtest.h>

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include "HCRapidJsonReadWriteUtils.h"
#include "HEXAll.h"

namespace {

typedef HCRapidJsonReadWriteUtils Json;

Json::Document parse(char const* text) {
  Json::Document doc;
  doc.Parse(text);
  return doc;
}

TEST(JsonUtils, GettersReadOnlyTheirOwnKindAndNeverFail) {
  Json::Document const doc = parse(
      R"({"s": "text", "i": -7, "big": 4000000000, "d": 2.0, "b": true, "list": ["a", 1, "b"], "null": null})");
  EXPECT_EQ(Json::GetStringProperty(doc, "s"), "text");
  EXPECT_EQ(Json::GetStringProperty(doc, "i"), "");
  EXPECT_EQ(Json::GetIntegrProperty(doc, "i"), -7);
  EXPECT_EQ(Json::GetIntegrProperty(doc, "big"), 0);
  EXPECT_EQ(Json::GetULongProperty(doc, "big"), 4000000000ull);
  EXPECT_EQ(Json::GetULongProperty(doc, "i"), 0ull);
  EXPECT_EQ(Json::GetDoubleProperty(doc, "d"), 2.0);
  EXPECT_EQ(Json::GetDoubleProperty(doc, "i"), -7.0);
  EXPECT_TRUE(Json::GetBooleanProperty(doc, "b"));
  EXPECT_FALSE(Json::GetBooleanProperty(doc, "s"));
  EXPECT_EQ(Json::GetStringArrayProperty(doc, "list"), (std::vector<std::string>{"a", "b"}));
  EXPECT_TRUE(Json::GetStringArrayProperty(doc, "s").empty());
  EXPECT_EQ(Json::GetIntegrProperty(doc, "missing"), 0);
  Json::Document const notObject = parse("[1]");
  EXPECT_EQ(Json::GetStringProperty(notObject, "s"), "");
  EXPECT_FALSE(Json::IsStringProperty(notObject, "s"));
}

TEST(JsonUtils, TestsTellNumbersApartByHowTheyAreWritten) {
  Json::Document const doc = parse(R"({"i": 7, "d": 7.0, "e": 1e2, "u": 4294967296, "n": null, "o": {}})");
  EXPECT_TRUE(Json::IsIntegrProperty(doc, "i"));
  EXPECT_FALSE(Json::IsDoubleProperty(doc, "i"));
  EXPECT_TRUE(Json::IsULongProperty(doc, "i"));
  EXPECT_TRUE(Json::IsDoubleProperty(doc, "d"));
  EXPECT_FALSE(Json::IsIntegrProperty(doc, "d"));
  EXPECT_TRUE(Json::IsDoubleProperty(doc, "e"));
  EXPECT_FALSE(Json::IsIntegrProperty(doc, "u"));
  EXPECT_TRUE(Json::IsULongProperty(doc, "u"));
  EXPECT_FALSE(Json::IsStringProperty(doc, "n"));
  EXPECT_FALSE(Json::IsArrayProperty(doc, "o"));
}

TEST(JsonUtils, AddersAppendCopiesInCallOrder) {
  Json::Document doc;
  doc.SetObject();
  auto& alloc = doc.GetAllocator();
  {
    std::string const key = "name";
    std::string const value = "x";
    Json::AddStringProperty(doc, key, value, alloc);
  }
  Json::AddIntegrProperty(doc, "i", -1, alloc);
  Json::AddULongProperty(doc, "u", 18446744073709551615ull, alloc);
  Json::AddDoubleProperty(doc, "d", 0.5, alloc);
  Json::AddBooleanProperty(doc, "b", false, alloc);
  Json::AddStringArrayProperty(doc, "l", {"p", "q"}, alloc);
  Json::Value inner(rapidjson::kObjectType);
  Json::AddIntegrProperty(inner, "k", 1, alloc);
  Json::AddGenericValueProperty(doc, "o", inner, alloc);
  rapidjson::StringBuffer text;
  rapidjson::Writer<rapidjson::StringBuffer> writer(text);
  doc.Accept(writer);
  EXPECT_STREQ(text.GetString(),
               R"({"name":"x","i":-1,"u":18446744073709551615,"d":0.5,"b":false,"l":["p","q"],"o":{"k":1}})");
  EXPECT_EQ(inner.MemberCount(), 1u);  // copied, not moved
}

TEST(JsonUtils, ErrorOperationsThrowMessagesNamingTheFile) {
  try {
    Json::errorParsingJsonFile("/tmp/a.json", "line 2, column 3: Invalid value.");
    FAIL();
  } catch (HEXAll const& error) {
    EXPECT_EQ(error.getMessage().getId(), "8-101");
    EXPECT_EQ(error.getMessage().getArgs(), (std::vector<std::string>{"/tmp/a.json", "line 2, column 3: Invalid value."}));
    EXPECT_STREQ(error.what(),
                 "ERROR: [tarvo 8-101] Failed to parse JSON file '/tmp/a.json': line 2, column 3: Invalid value.");
    ASSERT_EQ(error.getMessage().getMetaTypes().size(), 1u);
    EXPECT_EQ(error.getMessage().getMetaTypes()[0].value, "/tmp/a.json");
  }
  EXPECT_THROW(Json::errorReadingJsonFile("f"), HEXAll);
  EXPECT_THROW(Json::errorReadingSchemaFile("f"), HEXAll);
  EXPECT_THROW(Json::errorParsingSchemaFile("f", "t"), HEXAll);
  Json::Document broken;
  broken.Parse("{\"a\" 1}");
  EXPECT_EQ(Json::GetErrorMsgFromDocument(broken), "offset 5: Missing a colon after a name of object member.");
}

}  // namespace
