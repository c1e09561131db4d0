#ifndef TARVO_DOCS_SCHEMANAVIGATOR_H
#define TARVO_DOCS_SCHEMANAVIGATOR_H

#include <rapidjson/document.h>

#include <map>
#include <regex>
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
  // The schema of the first pattern of "patternProperties" that `key` matches, or null.
  rapidjson::Value const* patternSchema(rapidjson::Value const& schema, std::string const& key) const;
  // The member `name` of a schema object, or null.
  static rapidjson::Value const* member(rapidjson::Value const& schema, char const* name);

 private:
  rapidjson::Value const& m_root;
  // Patterns compiled once, since lint asks for every key of every object.
  mutable std::map<std::string, std::regex> m_patterns;
};

}  // namespace tarvo_diagnostics

#endif
