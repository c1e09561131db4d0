#include "SchemaViolations.h"

#include <valijson/adapters/rapidjson_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validation_results.hpp>
#include <valijson/validator.hpp>

#include <algorithm>

#include "SchemaNavigator.h"
#include "TextSuggestion.h"
#include "ValueText.h"

namespace tarvo_diagnostics {
namespace {

bool startsWith(std::string const& text, char const* prefix) {
  return text.rfind(prefix, 0) == 0;
}

std::string joined(std::vector<std::string> const& items, char const* separator) {
  std::string text;
  for (std::size_t i = 0; i < items.size(); ++i)
    text += (i ? separator : "") + items[i];
  return text;
}

std::string numberText(rapidjson::Value const* value) {
  return value != nullptr ? ValueText::literal(*value) : "?";
}

// valijson's description of a failed rule, as the rule's keyword; "" for the descriptions
// that only repeat a failure of a value inside (an item, a member).
std::string keywordOf(std::string const& description) {
  static std::pair<char const*, char const*> const table[] = {
      {"Value type not permitted", "type"},
      {"Failed to match against any enum values", "enum"},
      {"Expected number less than", "maximum"},
      {"Expected number greater than", "minimum"},
      {"Missing required property", "required"},
      {"Object contains a property that could not be validated", "additionalProperties"},
      {"Failed to match regex", "pattern"},
      {"Array should contain no fewer", "minItems"},
      {"Array should contain no more", "maxItems"},
      {"String should be no fewer", "minLength"},
      {"String should be no more", "maxLength"},
      {"Object should have no fewer", "minProperties"},
      {"Object should have no more", "maxProperties"},
      {"Failed to validate against any schemas allowed by anyOf", "anyOf"},
      {"Failed to validate against exactly one child schema", "oneOf"},
      {"Value should be a multiple of", "multipleOf"},
      {"Elements at indexes", "uniqueItems"},
      {"Missing dependency", "dependencies"},
  };
  for (auto const& entry : table)
    if (startsWith(description, entry.first)) return entry.second;
  return "";
}

std::vector<std::string> typeNames(rapidjson::Value const* type) {
  std::vector<std::string> names;
  if (type != nullptr && type->IsString()) names.emplace_back(type->GetString());
  if (type != nullptr && type->IsArray())
    for (auto const& name : type->GetArray())
      if (name.IsString()) names.emplace_back(name.GetString());
  return names;
}

class Collector {
 public:
  Collector(rapidjson::Value const& document, rapidjson::Value const& schema)
      : m_document(document), m_navigator(schema) {}

  // valijson's context ("<root>", "[key]", "[3]") as pointer steps.
  static SourceMap::Pointer pointerOf(std::vector<std::string> const& context) {
    SourceMap::Pointer pointer;
    for (std::size_t i = 1; i < context.size(); ++i)
      pointer.push_back(context[i].size() >= 2 ? context[i].substr(1, context[i].size() - 2) : context[i]);
    return pointer;
  }

  void add(std::vector<std::string> const& context, std::string const& description) {
    std::string const keyword = keywordOf(description);
    if (keyword.empty()) return;
    SourceMap::Pointer const pointer = pointerOf(context);
    SchemaNavigator::Found const found = m_navigator.at(m_document, pointer);
    if (keyword == "anyOf" || keyword == "oneOf") dropBranchFailures(pointer);
    if (keyword == "additionalProperties") return addUnknownKeys(pointer, found);
    if (keyword == "required") {
      std::string::size_type const open = description.find('\'');
      std::string const key = description.substr(open + 1, description.rfind('\'') - open - 1);
      return push({pointer, key, keyword, ValueText::subject(pointer) + ": missing required key '" + key + "'"});
    }
    push({pointer, "", keyword, describe(keyword, pointer, found, description)});
  }

  std::vector<SchemaViolation> take() { return std::move(m_violations); }

 private:
  void push(SchemaViolation violation) {
    for (SchemaViolation const& seen : m_violations)
      if (seen.pointer == violation.pointer && seen.key == violation.key && seen.keyword == violation.keyword) return;
    m_violations.push_back(std::move(violation));
  }

  // The branches of an "anyOf" report their own failures first; the one failure of the
  // alternatives says more.
  void dropBranchFailures(SourceMap::Pointer const& pointer) {
    while (!m_violations.empty()) {
      SourceMap::Pointer const& last = m_violations.back().pointer;
      if (last.size() < pointer.size() || !std::equal(pointer.begin(), pointer.end(), last.begin())) break;
      m_violations.pop_back();
    }
  }

  // valijson names only the first key that is not allowed; every one is a violation.
  void addUnknownKeys(SourceMap::Pointer const& pointer, SchemaNavigator::Found const& found) {
    if (found.value == nullptr || !found.value->IsObject() || found.schema == nullptr) return;
    std::vector<std::string> const known = SchemaNavigator::namedKeys(*found.schema);
    for (auto const& member : found.value->GetObject()) {
      std::string const key(member.name.GetString(), member.name.GetStringLength());
      if (std::find(known.begin(), known.end(), key) != known.end() ||
          m_navigator.patternSchema(*found.schema, key) != nullptr)
        continue;
      std::string text = "key '" + key + "' is not allowed in " + ValueText::subject(pointer);
      std::string const suggestion = TextSuggestion::closest(key, known, TextSuggestion::nameTolerance(key));
      text += suggestion.empty() ? "; allowed keys: " + joined(known, ", ") : "; did you mean '" + suggestion + "'?";
      push({pointer, key, "additionalProperties", text});
    }
  }

  std::string describe(std::string const& keyword, SourceMap::Pointer const& pointer,
                       SchemaNavigator::Found const& found, std::string const& description) const {
    std::string const subject = ValueText::subject(pointer);
    rapidjson::Value const* schema = found.schema;
    rapidjson::Value const* value = found.value;
    if (schema == nullptr || value == nullptr) return subject + ": " + description;
    auto rule = [schema](char const* name) { return SchemaNavigator::member(*schema, name); };
    std::string expected;
    std::string foundText = ValueText::literal(*value);
    std::string hint;
    if (keyword == "type") {
      expected = joined(typeNames(rule("type")), " or ");
      foundText = ValueText::typed(*value);
    } else if (keyword == "enum" && rule("enum") != nullptr && rule("enum")->IsArray()) {
      std::vector<std::string> texts;
      std::vector<std::string> quotedTexts;
      for (auto const& item : rule("enum")->GetArray()) {
        quotedTexts.push_back(ValueText::literal(item));
        if (item.IsString()) texts.emplace_back(item.GetString(), item.GetStringLength());
      }
      expected = "one of " + joined(quotedTexts, ", ");
      if (value->IsString()) {
        std::string const best = TextSuggestion::closest(value->GetString(), texts, std::string::npos - 1);
        if (!best.empty()) hint = "; did you mean " + ValueText::quoted(best) + "?";
      }
    } else if (keyword == "maximum" || keyword == "minimum") {
      bool const exclusive = rule(keyword == "maximum" ? "exclusiveMaximum" : "exclusiveMinimum") != nullptr &&
                             rule(keyword == "maximum" ? "exclusiveMaximum" : "exclusiveMinimum")->IsTrue();
      char const* const relation =
          keyword == "maximum" ? (exclusive ? "less than " : "at most ") : (exclusive ? "more than " : "at least ");
      expected = relation + numberText(rule(keyword.c_str()));
    } else if (keyword == "pattern") {
      expected = "a text matching " + (rule("pattern") ? std::string(rule("pattern")->GetString()) : "?");
    } else if (keyword == "minItems" || keyword == "maxItems") {
      expected = (keyword == "minItems" ? "at least " : "at most ") + numberText(rule(keyword.c_str())) + " items";
      foundText = std::to_string(value->IsArray() ? value->Size() : 0) + " items";
    } else if (keyword == "minProperties" || keyword == "maxProperties") {
      expected = (keyword == "minProperties" ? "at least " : "at most ") + numberText(rule(keyword.c_str())) + " keys";
      foundText = std::to_string(value->IsObject() ? value->MemberCount() : 0) + " keys";
    } else if (keyword == "minLength" || keyword == "maxLength") {
      expected = (keyword == "minLength" ? "at least " : "at most ") + numberText(rule(keyword.c_str())) + " bytes";
    } else if (keyword == "anyOf" || keyword == "oneOf") {
      std::vector<std::string> kinds;
      rapidjson::Value const* branches = rule(keyword.c_str());
      if (branches != nullptr && branches->IsArray())
        for (auto const& branch : branches->GetArray()) {
          rapidjson::Value const* resolved = m_navigator.resolve(&branch, nullptr);
          for (std::string const& name : typeNames(resolved ? SchemaNavigator::member(*resolved, "type") : nullptr))
            kinds.push_back(name == "object" ? "an object of its form" : name);
        }
      expected = kinds.empty() ? "a value of one of its forms" : joined(kinds, " or ");
      foundText = ValueText::typed(*value);
    } else {
      return subject + ": " + description + " (schema rule '" + keyword + "')";
    }
    return subject + ": expected " + expected + ", found " + foundText + hint + " (schema rule '" + keyword + "')";
  }

  rapidjson::Value const& m_document;
  SchemaNavigator m_navigator;
  std::vector<SchemaViolation> m_violations;
};

}  // namespace

std::vector<SchemaViolation> SchemaViolations::collect(rapidjson::Value const& document,
                                                       rapidjson::Value const& schemaDocument) {
  valijson::Schema schema;
  try {
    valijson::SchemaParser parser(valijson::SchemaParser::kDraft4);
    valijson::adapters::RapidJsonAdapter const schemaAdapter(schemaDocument);
    parser.populateSchema(schemaAdapter, schema);
  } catch (std::exception const&) {
    return {};  // the library loaded this schema; a schema valijson refuses leaves its report alone
  }
  valijson::Validator validator(valijson::Validator::kStrongTypes);
  valijson::ValidationResults results;
  valijson::adapters::RapidJsonAdapter const target(document);
  if (validator.validate(schema, target, &results)) return {};
  Collector collector(document, schemaDocument);
  valijson::ValidationResults::Error error;
  while (results.popError(error)) {
    collector.add(error.context, error.description);
  }
  return collector.take();
}

}  // namespace tarvo_diagnostics
