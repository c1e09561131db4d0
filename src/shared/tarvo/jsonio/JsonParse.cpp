#include "JsonParse.h"

#include <rapidjson/error/en.h>
#include <rapidjson/reader.h>

#include <cstdint>

#include "HCRapidJsonReadWriteUtils.h"

namespace tarvo {
namespace jsonio {

namespace {

// Forwards every event to the document that is being built, and stops the parse when arrays
// and objects nest deeper than the limit.
class DepthLimitedHandler {
 public:
  explicit DepthLimitedHandler(rapidjson::Document& target) : m_target(target) {}

  bool tooDeep() const { return m_tooDeep; }

  bool Null() { return m_target.Null(); }
  bool Bool(bool b) { return m_target.Bool(b); }
  bool Int(int i) { return m_target.Int(i); }
  bool Uint(unsigned u) { return m_target.Uint(u); }
  bool Int64(std::int64_t i) { return m_target.Int64(i); }
  bool Uint64(std::uint64_t u) { return m_target.Uint64(u); }
  bool Double(double d) { return m_target.Double(d); }
  bool RawNumber(char const* s, rapidjson::SizeType n, bool copy) { return m_target.RawNumber(s, n, copy); }
  bool String(char const* s, rapidjson::SizeType n, bool copy) { return m_target.String(s, n, copy); }
  bool Key(char const* s, rapidjson::SizeType n, bool copy) { return m_target.Key(s, n, copy); }
  bool StartObject() { return enter() && m_target.StartObject(); }
  bool EndObject(rapidjson::SizeType n) {
    --m_depth;
    return m_target.EndObject(n);
  }
  bool StartArray() { return enter() && m_target.StartArray(); }
  bool EndArray(rapidjson::SizeType n) {
    --m_depth;
    return m_target.EndArray(n);
  }

 private:
  bool enter() {
    if (++m_depth <= JsonParse::kMaxNestingDepth) return true;
    m_tooDeep = true;
    return false;
  }

  rapidjson::Document& m_target;
  unsigned m_depth = 0;
  bool m_tooDeep = false;
};

std::string codeText(rapidjson::ParseErrorCode code) {
  // A handler stops a parse only for nesting.
  if (code == rapidjson::kParseErrorTermination)
    return "The text nests arrays and objects deeper than " + std::to_string(JsonParse::kMaxNestingDepth) + " levels.";
  return rapidjson::GetParseError_En(code);
}

}  // namespace

rapidjson::ParseResult JsonParse::parse(JsonInputStream& in, rapidjson::Document& doc) {
  rapidjson::ParseResult result;
  auto generator = [&](rapidjson::Document& target) {
    rapidjson::GenericReader<rapidjson::UTF8<>, rapidjson::UTF8<>> reader;
    DepthLimitedHandler limited(target);
    result = reader.Parse<rapidjson::kParseDefaultFlags>(in, limited);
    if (limited.tooDeep()) markTooDeep(result);
    return !result.IsError();
  };
  doc.Populate(generator);
  return result;
}

void JsonParse::parseOrReport(std::istream& in, std::string const& fileName, rapidjson::Document& doc) {
  JsonInputStream stream(in);
  rapidjson::ParseResult const result = parse(stream, doc);
  if (result.IsError()) HCRapidJsonReadWriteUtils::errorParsingJsonFile(fileName, errorText(result, stream));
}

std::string JsonParse::errorText(rapidjson::ParseResult const& result, JsonInputStream const& in) {
  if (!result.IsError()) return std::string();
  JsonInputStream::Position const where = in.positionOf(result.Offset());
  return "line " + std::to_string(where.line) + ", column " + std::to_string(where.column) + ": " +
         codeText(result.Code());
}

}  // namespace jsonio
}  // namespace tarvo
