#include "SchemaNavigator.h"

#include <rapidjson/pointer.h>

#include <cstdlib>
#include <regex>

#include "ValueText.h"

namespace tarvo_diagnostics {
namespace {

bool typeAdmits(rapidjson::Value const& type, rapidjson::Value const& value) {
  auto admits = [&value](rapidjson::Value const& name) {
    if (!name.IsString()) return false;
    std::string const wanted = name.GetString();
    std::string const actual = ValueText::typeName(value);
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

rapidjson::Value const* SchemaNavigator::patternSchema(rapidjson::Value const& schema, std::string const& key) const {
  rapidjson::Value const* patterns = member(schema, "patternProperties");
  if (patterns == nullptr || !patterns->IsObject()) return nullptr;
  for (auto const& pattern : patterns->GetObject()) {
    std::string const text(pattern.name.GetString(), pattern.name.GetStringLength());
    auto compiled = m_patterns.find(text);
    if (compiled == m_patterns.end())
      compiled = m_patterns.emplace(text, std::regex(text, std::regex::ECMAScript)).first;
    if (std::regex_search(key, compiled->second)) return &pattern.value;
  }
  return nullptr;
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
      if (properties != nullptr && properties->IsObject()) {
        auto named = properties->FindMember(rapidjson::Value(rapidjson::StringRef(step.data(), step.size())));
        if (named != properties->MemberEnd()) nextSchema = &named->value;
      }
      if (nextSchema == nullptr && schema != nullptr) nextSchema = patternSchema(*schema, step);
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
