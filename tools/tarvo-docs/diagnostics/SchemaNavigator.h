#ifndef TARVO_DOCS_SCHEMANAVIGATOR_H
#define TARVO_DOCS_SCHEMANAVIGATOR_H

#include <rapidjson/document.h>

#include <string>
#include <vector>

#include "SourceMap.h"

namespace tarvo_diagnostics {

// Finds the part of a draft-04 schema that applies to a value of a document, for the texts
// of diagnostics: what a rule expects, which keys an object may have. Follows local "$ref"s
// and, in "anyOf"/"oneOf", the first branch whose "type" admits the value.
class SchemaNavigator {
 public:
  explicit SchemaNavigator(rapidjson::Value const& schemaRoot) : m_root(schemaRoot) {}

  struct Found {
    rapidjson::Value const* schema = nullptr;  // null: no rule applies (any value goes)
    rapidjson::Value const* value = nullptr;   // the document's value; null when the steps leave it
  };
  Found at(rapidjson::Value const& document, SourceMap::Pointer const& steps) const;

  // `schema` with its "$ref"s followed, and its "anyOf"/"oneOf" branch chosen for `value`.
  rapidjson::Value const* resolve(rapidjson::Value const* schema, rapidjson::Value const* value) const;

  // The keys that the object schema names under "properties".
  static std::vector<std::string> namedKeys(rapidjson::Value const& schema);
  // True when a key that "properties" does not name matches a pattern of "patternProperties".
  static bool matchesPattern(rapidjson::Value const& schema, std::string const& key);
  // False only for "additionalProperties": false.
  static bool allowsOtherKeys(rapidjson::Value const& schema);
  // The member `name` of a schema object, or null.
  static rapidjson::Value const* member(rapidjson::Value const& schema, char const* name);

 private:
  rapidjson::Value const& m_root;
};

}  // namespace tarvo_diagnostics

#endif
