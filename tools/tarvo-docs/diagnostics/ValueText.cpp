#include "ValueText.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace tarvo_diagnostics {

char const* ValueText::typeName(rapidjson::Value const& value) {
  if (value.IsObject()) return "object";
  if (value.IsArray()) return "array";
  if (value.IsString()) return "string";
  if (value.IsBool()) return "boolean";
  if (value.IsNull()) return "null";
  return value.IsInt64() || value.IsUint64() ? "integer" : "number";
}

std::string ValueText::quoted(std::string const& text) {
  std::string out = "\"";
  for (char c : text) {
    if (c == '"' || c == '\\') out += '\\';
    out += c;
  }
  return out + '"';
}

std::string ValueText::literal(rapidjson::Value const& value) {
  if (value.IsObject()) return "an object";
  if (value.IsArray()) return "an array";
  if (value.IsString()) {
    std::string text(value.GetString(), value.GetStringLength());
    if (text.size() > 60) text = text.substr(0, 57) + "...";
    return quoted(text);
  }
  rapidjson::StringBuffer buffer;
  rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
  value.Accept(writer);
  return buffer.GetString();
}

std::string ValueText::typed(rapidjson::Value const& value) {
  if (value.IsObject() || value.IsArray() || value.IsNull()) return literal(value);
  return std::string(typeName(value)) + " " + literal(value);
}

std::string ValueText::subject(SourceMap::Pointer const& pointer) {
  if (pointer.empty()) return "the document";
  std::string const& last = pointer.back();
  bool const index = !last.empty() && last.find_first_not_of("0123456789") == std::string::npos;
  if (!index) return "'" + last + "'";
  std::string text = "item " + last;
  // An item of an item (a list in a list) names the nearest key above it.
  for (auto step = pointer.rbegin() + 1; step != pointer.rend(); ++step)
    if (step->empty() || step->find_first_not_of("0123456789") != std::string::npos)
      return text + " of '" + *step + "'";
  return text + " of the document";
}

}  // namespace tarvo_diagnostics
