#include <gtest/gtest.h>

#include <rapidjson/document.h>

#include <sstream>

#include "JsonInputStream.h"
#include "JsonOutputStream.h"
#include "JsonParse.h"
#include "StringScan.h"

namespace {

using tarvo::jsonio::JsonInputStream;
using tarvo::jsonio::JsonOutputStream;
using tarvo::jsonio::JsonParse;
using tarvo::jsonio::StringScan;

std::string parseError(std::string const& text, std::size_t blockSize = 1 << 16) {
  std::istringstream in(text);
  JsonInputStream stream(in, blockSize);
  rapidjson::Document doc;
  rapidjson::ParseResult const result = JsonParse::parse(stream, doc);
  return JsonParse::errorText(result, stream);
}

TEST(JsonInputStream, LineAndColumnOfParseErrorsAcrossBlockBoundaries) {
  std::string const text = "{\n  \"a\": 1,\n  \"b\": [1, 2,\n   3, x]\n}";
  // The same error at the same place, whether the text sits in one block or is cut into
  // blocks of four or five bytes, so that the error lies in the current, the previous or an
  // older block.
  for (std::size_t block : {1u << 16, 4u, 5u, 7u})
    EXPECT_EQ(parseError(text, block), "line 4, column 7: Invalid value.") << "block size " << block;
}

// Newlines stand at every place of the eight-byte words that the count reads at a time.
TEST(JsonInputStream, LinesOfLongTextsAreCountedExactly) {
  std::string text = "[";
  for (int i = 0; i < 300; ++i)
    text += std::string(i % 9, ' ') + "1,\n";
  text += "  x]";
  for (std::size_t block : {1u << 16, 64u, 13u})
    EXPECT_EQ(parseError(text, block), "line 301, column 3: Invalid value.") << "block size " << block;
}

TEST(JsonInputStream, ParseErrorsOfTheFrame) {
  EXPECT_EQ(parseError(""), "line 1, column 1: The document is empty.");
  EXPECT_EQ(parseError("{} {}"), "line 1, column 4: The document root must not be followed by other values.");
  EXPECT_EQ(parseError("{\"a\": 1,\n}"), "line 2, column 1: Missing a name for object member.");
  EXPECT_EQ(parseError("// note\n{}"), "line 1, column 1: Invalid value.");
  EXPECT_EQ(parseError("[1, 2,]"), "line 1, column 7: Invalid value.");
}

TEST(JsonInputStream, DeepNestingIsRefusedAtTheLimit) {
  std::string const deep(1000000, '[');
  EXPECT_EQ(parseError(deep), "line 1, column 513: The text nests arrays and objects deeper than 512 levels.");
  std::string const atLimit = std::string(512, '[') + std::string(512, ']');
  EXPECT_EQ(parseError(atLimit), "");
}

TEST(JsonInputStream, ParsesWholeDocumentsOfManyBlocks) {
  std::string text = "[";
  for (int i = 0; i < 5000; ++i)
    text += (i ? ",\n" : "") + std::to_string(i);
  text += "]";
  std::istringstream in(text);
  JsonInputStream stream(in, 16);
  rapidjson::Document doc;
  ASSERT_FALSE(JsonParse::parse(stream, doc).IsError());
  ASSERT_EQ(doc.Size(), 5000u);
  EXPECT_EQ(doc[4999].GetInt(), 4999);
  EXPECT_EQ(stream.Tell(), text.size());
}

TEST(StringScan, RunsStopAtTheFirstByteOutsideThem) {
  auto plain = [](std::string const& text) { return StringScan::plainRun(text.data(), text.data() + text.size()); };
  auto space = [](std::string const& text) {
    return StringScan::whitespaceRun(text.data(), text.data() + text.size());
  };
  EXPECT_EQ(plain(""), 0u);
  EXPECT_EQ(plain("ab\"c"), 2u);
  EXPECT_EQ(plain(std::string(16, 'a') + "\\"), 16u);
  EXPECT_EQ(plain(std::string(31, 'a') + "\x1F"), 31u);
  EXPECT_EQ(plain(std::string(40, ' ') + "\x7F\x80\xC3\xA9\xFF"), 45u);  // bytes above 0x7F are no control bytes
  EXPECT_EQ(plain(std::string("\0abc", 4)), 0u);
  EXPECT_EQ(space(" \t\r\n x"), 5u);
  EXPECT_EQ(space(std::string(17, ' ') + "\v"), 17u);
  EXPECT_EQ(space(std::string(32, '\n') + "\f"), 32u);
  EXPECT_EQ(space(std::string(16, '\t')), 16u);
}

// Strings and whitespace are taken in runs up to the end of a block; the parse must come out
// as RapidJSON's parse of the same text in memory, document and error offset alike.
TEST(JsonInputStream, RunsOfStringsAndWhitespaceParseAsTextInMemory) {
  std::string text = "[";
  for (int i = 0; i < 60; ++i) {
    std::string item(static_cast<std::size_t>(i), 'a' + i % 26);
    if (i % 3 == 0) item.insert(item.size() / 2, "\\\"\\u00e9\\n");
    if (i % 4 == 1) item += "\xC3\xA9";
    text += (i ? "," : "") + std::string(static_cast<std::size_t>(i % 19), i % 2 ? ' ' : '\n') + "\"" + item + "\"";
  }
  text += "]";
  rapidjson::Document expected;
  expected.Parse(text.c_str(), text.size());
  ASSERT_FALSE(expected.HasParseError());
  for (std::size_t block : {1u << 16, 16u, 17u, 5u}) {
    std::istringstream in(text);
    JsonInputStream stream(in, block);
    rapidjson::Document doc;
    ASSERT_FALSE(JsonParse::parse(stream, doc).IsError()) << "block size " << block;
    EXPECT_TRUE(doc == expected) << "block size " << block;
  }
  std::string const broken = "[\"" + std::string(40, 'x') + "\t\"]";
  for (std::size_t block : {1u << 16, 16u, 5u})
    EXPECT_EQ(parseError(broken, block), "line 1, column 43: Invalid escape character in string.") << "block size " << block;
}

TEST(JsonOutputStream, PassesTextOnInBlocksAndOnFlush) {
  std::ostringstream out;
  {
    JsonOutputStream stream(out, 4);
    for (char c : std::string("abcdefghij"))
      stream.Put(c);
    EXPECT_EQ(out.str(), "abcdefgh");
    stream.Flush();
    EXPECT_EQ(out.str(), "abcdefghij");
    stream.Put('k');
  }
  EXPECT_EQ(out.str(), "abcdefghijk");
}

}  // namespace
