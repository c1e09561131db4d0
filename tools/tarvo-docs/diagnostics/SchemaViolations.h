#ifndef TARVO_DOCS_SCHEMAVIOLATIONS_H
#define TARVO_DOCS_SCHEMAVIOLATIONS_H

#include <rapidjson/document.h>

#include <string>
#include <vector>

#include "SourceMap.h"

namespace tarvo_diagnostics {

// One value of a document that breaks a rule of its schema.
struct SchemaViolation {
  SourceMap::Pointer pointer;  // the value the rule belongs to (for "required" and
                               // "additionalProperties": the object)
  std::string key;             // the key not allowed, or the required key missing; else ""
  std::string keyword;         // "type", "enum", "maximum", ...
  std::string text;            // what the rule expects and what was found
};

// Every schema violation of a document, collected by valijson over the schema the library
// uses, in the order of valijson's walk. Only called for a document that the library's
// validator refused, so a document the library accepts never gets one.
class SchemaViolations {
 public:
  // `schema` is the parsed schema document; a schema valijson cannot take gives no violations.
  static std::vector<SchemaViolation> collect(rapidjson::Value const& document, rapidjson::Value const& schema);
};

}  // namespace tarvo_diagnostics

#endif
