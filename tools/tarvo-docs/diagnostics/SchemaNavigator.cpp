#include "SchemaNavigator.h"

#include <rapidjson/pointer.h>

#include <cstdlib>
#include <regex>

namespace tarvo_diagnostics {
namespace {

char const* typeName(rapidjson::Value const& value) {
  if (value.IsObject()) return "object";
  if (value.IsArray()) return "array";
  if (value.IsString()) return "string";
  if (value.IsBool()) return "boolean";
  if (value.IsNull()) return "null";
  return value.IsInt64() || value.IsUint64() ? "integer" : "number";
}

bool typeAdmits(rapidjson::Value const& type, rapidjson::Value const& value) {
  auto admits = [&value](rapidjson::Value const& name) {
    if (!name.IsString()) return false;
    std::string const wanted = name.GetString();
    std::string const actual = typeName(value);
    return wanted == actual || (wanted == "number" && actual == "integer");
  };
  if (type.IsString()) return admits(type);
  if (type.IsArray())
    for (auto const& name : type.GetArray())
      if (admits(name)) return true;
  return false;
}

}  // namespace

rapidjson::Value const* SchemaNavigator::member(rapidjson::Value const& schema, char const* name) {
  if (!schema.IsObject()) return nullptr;
  auto found = schema.FindMember(name);
  return found == schema.MemberEnd() ? nullptr : &found->value;
}

rapidjson::Value const* SchemaNavigator::resolve(rapidjson::Value const* schema, rapidjson::Value const* value) const {
  // Bounded, so that a schema whose references run in a circle cannot hang a diagnosis.
  for (int guard = 0; schema != nullptr && guard < 64; ++guard) {
    rapidjson::Value const* ref = member(*schema, "$ref");
    if (ref != nullptr && ref->IsString() && ref->GetString()[0] == '#') {
      schema = rapidjson::Pointer(ref->GetString() + 1).Get(m_root);
      continue;
    }
    rapidjson::Value const* branches = member(*schema, "anyOf");
    if (branches == nullptr) branches = member(*schema, "oneOf");
    if (branches == nullptr || !branches->IsArray() || branches->Empty() || value == nullptr) return schema;
    rapidjson::Value const* chosen = nullptr;
    for (auto const& branch : branches->GetArray()) {
      rapidjson::Value const* resolved = resolve(&branch, value);
      rapidjson::Value const* type = resolved ? member(*resolved, "type") : nullptr;
      if (type == nullptr || typeAdmits(*type, *value)) {
        chosen = resolved;
        break;
      }
    }
    return chosen != nullptr ? chosen : schema;
  }
  return schema;
}

std::vector<std::string> SchemaNavigator::namedKeys(rapidjson::Value const& schema) {
  std::vector<std::string> keys;
  rapidjson::Value const* properties = member(schema, "properties");
  if (properties != nullptr && properties->IsObject())
    for (auto const& property : properties->GetObject())
      keys.emplace_back(property.name.GetString());
  return keys;
}

bool SchemaNavigator::matchesPattern(rapidjson::Value const& schema, std::string const& key) {
  rapidjson::Value const* patterns = member(schema, "patternProperties");
  if (patterns == nullptr || !patterns->IsObject()) return false;
  for (auto const& pattern : patterns->GetObject())
    if (std::regex_search(key, std::regex(pattern.name.GetString(), std::regex::ECMAScript))) return true;
  return false;
}

bool SchemaNavigator::allowsOtherKeys(rapidjson::Value const& schema) {
  rapidjson::Value const* additional = member(schema, "additionalProperties");
  return additional == nullptr || !additional->IsBool() || additional->GetBool();
}

SchemaNavigator::Found SchemaNavigator::at(rapidjson::Value const& document, SourceMap::Pointer const& steps) const {
  Found found;
  found.value = &document;
  found.schema = resolve(&m_root, found.value);
  for (std::string const& step : steps) {
    rapidjson::Value const* value = found.value;
    rapidjson::Value const* schema = found.schema;
    rapidjson::Value const* next = nullptr;
    rapidjson::Value const* nextSchema = nullptr;
    if (value != nullptr && value->IsArray()) {
      std::size_t const index = std::strtoul(step.c_str(), nullptr, 10);
      if (index < value->Size()) next = &(*value)[static_cast<rapidjson::SizeType>(index)];
      rapidjson::Value const* items = schema ? member(*schema, "items") : nullptr;
      if (items != nullptr && items->IsArray())
        nextSchema = index < items->Size() ? &(*items)[static_cast<rapidjson::SizeType>(index)] : nullptr;
      else
        nextSchema = items;
    } else {
      if (value != nullptr && value->IsObject()) {
        auto entry = value->FindMember(rapidjson::Value(rapidjson::StringRef(step.data(), step.size())));
        if (entry != value->MemberEnd()) next = &entry->value;
      }
      rapidjson::Value const* properties = schema ? member(*schema, "properties") : nullptr;
      rapidjson::Value const* patterns = schema ? member(*schema, "patternProperties") : nullptr;
      if (properties != nullptr && properties->IsObject() &&
          properties->HasMember(rapidjson::Value(rapidjson::StringRef(step.data(), step.size()))))
        nextSchema = &(*properties)[rapidjson::Value(rapidjson::StringRef(step.data(), step.size()))];
      if (nextSchema == nullptr && patterns != nullptr && patterns->IsObject())
        for (auto const& pattern : patterns->GetObject())
          if (std::regex_search(step, std::regex(pattern.name.GetString(), std::regex::ECMAScript))) {
            nextSchema = &pattern.value;
            break;
          }
      if (nextSchema == nullptr && schema != nullptr) {
        rapidjson::Value const* additional = member(*schema, "additionalProperties");
        if (additional != nullptr && additional->IsObject()) nextSchema = additional;
      }
    }
    found.value = next;
    found.schema = resolve(nextSchema, next);
  }
  return found;
}

}  // namespace tarvo_diagnostics
