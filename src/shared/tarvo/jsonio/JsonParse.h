#ifndef TARVO_JSONPARSE_H
#define TARVO_JSONPARSE_H

#include <rapidjson/document.h>
#include <rapidjson/error/error.h>

#include <iosfwd>
#include <string>

#include "JsonInputStream.h"

namespace tarvo {
namespace jsonio {

// Parsing with a nesting limit, and the parse error texts that readers report.
class JsonParse {
 public:
  // Documents nest no deeper than this; deeper text is refused as a parse error before the
  // recursive parser or the validator can be hurt by it.
  static constexpr unsigned kMaxNestingDepth = 512;

  // Parses the stream into `doc` with the default flags, refusing nesting deeper than
  // kMaxNestingDepth. The document's own error state is not set; the result carries it.
  static rapidjson::ParseResult parse(JsonInputStream& in, rapidjson::Document& doc);
  // parse() on `in`; a syntax error goes to errorParsingJsonFile with `fileName`.
  static void parseOrReport(std::istream& in, std::string const& fileName, rapidjson::Document& doc);

  // A parser that stopped for nesting stops behind the bracket that went too deep: this turns
  // its result into the nesting error at the bracket itself.
  static void markTooDeep(rapidjson::ParseResult& result) {
    result.Set(rapidjson::kParseErrorTermination, result.Offset() - 1);
  }
  // "line L, column C: <parser text>" for a parse from `in`; empty when there was no error.
  static std::string errorText(rapidjson::ParseResult const& result, JsonInputStream const& in);
};

}  // namespace jsonio
}  // namespace tarvo

#endif
