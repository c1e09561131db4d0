#ifndef TARVO_DOCS_VALUETEXT_H
#define TARVO_DOCS_VALUETEXT_H

#include <rapidjson/document.h>

#include <string>

#include "SourceMap.h"

namespace tarvo_diagnostics {

// How diagnostics name values and places of a document in their texts.
class ValueText {
 public:
  // The JSON type of a value as schemas name it: "integer" for whole numbers.
  static char const* typeName(rapidjson::Value const& value);
  // The value as written in JSON: strings quoted (shortened past 60 bytes), "an object" and
  // "an array" for containers.
  static std::string literal(rapidjson::Value const& value);
  // "string \"8\"", "integer 7", "an object".
  static std::string typed(rapidjson::Value const& value);
  // What a pointer names in words: "'Key'", "item 3 of 'Paths'", "the document".
  static std::string subject(SourceMap::Pointer const& pointer);
  // `text` in double quotes with quotes and backslashes escaped.
  static std::string quoted(std::string const& text);
};

}  // namespace tarvo_diagnostics

#endif
