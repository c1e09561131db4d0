#include "Lint.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>

#include "ConstrPlaceText.h"
#include "SchemaNavigator.h"
#include "TQLogicalArchTypes.h"
#include "TextSuggestion.h"
#include "ValueText.h"

namespace tarvo_diagnostics {
namespace {

std::string const kUnknownKey = "tarvo-docs unknown-key";
std::string const kDuplicateKey = "tarvo-docs duplicate-key";
std::string const kInvalidUtf8 = "tarvo-docs invalid-utf8";
std::string const kLossyValue = "tarvo-docs lossy-value";

std::string hexByte(unsigned char byte) {
  char text[8];
  std::snprintf(text, sizeof text, "0x%02X", byte);
  return text;
}

class Walker {
 public:
  Walker(SchemaNavigator const* navigator, std::string const& kind, std::vector<LintFinding>& out)
      : m_navigator(navigator), m_kind(kind), m_out(out) {}

  void walk(rapidjson::Value const& value, rapidjson::Value const* schema, SourceMap::Pointer& pointer) {
    schema = m_navigator ? m_navigator->resolve(schema, &value) : nullptr;
    if (value.IsString()) {
      checkUtf8(value, pointer, false, 0);
      checkLoss(value, pointer);
    } else if (value.IsNumber()) {
      checkLoss(value, pointer);
    } else if (value.IsArray()) {
      rapidjson::Value const* items = schema ? SchemaNavigator::member(*schema, "items") : nullptr;
      for (rapidjson::SizeType i = 0; i < value.Size(); ++i) {
        rapidjson::Value const* itemSchema =
            items != nullptr && items->IsArray() ? (i < items->Size() ? &(*items)[i] : nullptr) : items;
        pointer.push_back(std::to_string(i));
        walk(value[i], itemSchema, pointer);
        pointer.pop_back();
      }
    } else if (value.IsObject()) {
      walkObject(value, schema, pointer);
    }
  }

 private:
  void add(SourceMap::Pointer const& pointer, std::size_t occurrence, bool atKey, std::string const& id,
           std::string text) {
    m_out.push_back({pointer, occurrence, atKey, id, std::move(text)});
  }

  void walkObject(rapidjson::Value const& object, rapidjson::Value const* schema, SourceMap::Pointer& pointer) {
    std::vector<std::string> const named = schema ? SchemaNavigator::namedKeys(*schema) : std::vector<std::string>();
    rapidjson::Value const* properties = schema ? SchemaNavigator::member(*schema, "properties") : nullptr;
    rapidjson::Value const* additional = schema ? SchemaNavigator::member(*schema, "additionalProperties") : nullptr;
    // Other keys pass through unread only where the schema names keys and gives no rule for
    // the others; where it gives one, the keys are names (of nodes, nets, ...) and not typos.
    bool const lintKeys = !named.empty() && (additional == nullptr || additional->IsTrue());
    std::map<std::string, std::size_t> seen;
    for (auto const& member : object.GetObject()) {
      std::string const key(member.name.GetString(), member.name.GetStringLength());
      std::size_t const occurrence = seen[key]++;
      pointer.push_back(key);
      checkUtf8(member.name, pointer, true, occurrence);
      // Groups of the constraint document repeat their key by design, one member per group.
      bool const repeatsByDesign = m_kind == "constraints" && pointer.size() == 2 && pointer[0] == "GlobalConstraints";
      if (occurrence == 1 && !repeatsByDesign)
        add(pointer, occurrence, true, kDuplicateKey,
            "duplicate key '" + key + "' in " +
                ValueText::subject(SourceMap::Pointer(pointer.begin(), pointer.end() - 1)) +
                "; where the reader looks the key up, it reads the first value");
      bool const isNamed = std::find(named.begin(), named.end(), key) != named.end();
      rapidjson::Value const* child = isNamed             ? &(*properties)[member.name]
                                      : schema != nullptr ? m_navigator->patternSchema(*schema, key)
                                                          : nullptr;
      if (lintKeys && !isNamed && child == nullptr && occurrence == 0) {
        std::string const suggestion = TextSuggestion::closest(key, named, TextSuggestion::nameTolerance(key));
        // A constraint object's other keys are its attributes, which the reader keeps: only one
        // that comes close to a constraint kind is likely a typo.
        if (m_kind != "constraints")
          add(pointer, 0, true, kUnknownKey,
              "key '" + key + "' is not one the schema names; it is passed through unchecked" +
                  (suggestion.empty() ? std::string() : "; did you mean '" + suggestion + "'?"));
        else if (!suggestion.empty())
          add(pointer, 0, true, kUnknownKey,
              "key '" + key + "' names no constraint and is read as an attribute; did you mean '" + suggestion + "'?");
      }
      if (child == nullptr && additional != nullptr && additional->IsObject()) child = additional;
      walk(member.value, child, pointer);
      pointer.pop_back();
    }
  }

  void checkUtf8(rapidjson::Value const& text, SourceMap::Pointer const& pointer, bool atKey, std::size_t occurrence) {
    std::size_t const bad = Lint::invalidUtf8At(text.GetString(), text.GetStringLength());
    if (bad == std::string::npos) return;
    add(pointer, occurrence, atKey, kInvalidUtf8,
        std::string(atKey ? "key" : "text") + " is not valid UTF-8: byte " +
            hexByte(static_cast<unsigned char>(text.GetString()[bad])) + " at byte " + std::to_string(bad + 1));
  }

  void checkLoss(rapidjson::Value const& value, SourceMap::Pointer const& pointer) {
    std::string const& key = pointer.empty() ? std::string() : pointer.back();
    std::string const parentKey = pointer.size() >= 2 ? pointer[pointer.size() - 2] : std::string();
    if (m_kind == "traffic") {
      if ((key == "ReadRateLimiter" || key == "WriteRateLimiter") && value.IsDouble() &&
          std::trunc(value.GetDouble()) != value.GetDouble() && std::fabs(value.GetDouble()) < 2147483648.0)
        add(pointer, 0, false, kLossyValue,
            "'" + key + "' is read as an integer: " + ValueText::literal(value) + " becomes " +
                std::to_string(static_cast<int>(value.GetDouble())));
    }
    if (m_kind == "logical-arch" && value.IsString()) checkArchText(value, pointer);
    if (m_kind == "constraints" && value.IsString()) {
      if (parentKey == "tileGroup" || parentKey == "shimGroup" || parentKey == "memGroup")
        checkPlaceText(value, pointer);
      if (parentKey == "relative_nodes") {
        kpe::constraints::ConstrPlaceText::RelativeNode const relative =
            kpe::constraints::ConstrPlaceText::parseRelativeNode(value.GetString());
        bool const hasOffset = relative.x != kpe::constraints::DefaultXYValues::XCoordinateNotSetValue ||
                               relative.y != kpe::constraints::DefaultXYValues::YCoordinateNotSetValue;
        if (relative.valid && !hasOffset)
          add(pointer, 0, false, kLossyValue,
              "relative node " + ValueText::literal(value) +
                  " gives no offset in the form 'node:(X=dx,Y=dy)'; both offsets stay unset");
      }
    }
  }

  // Texts of the logical architecture's enumerations; the reader reads others as "unknown".
  void checkArchText(rapidjson::Value const& value, SourceMap::Pointer const& pointer) {
    using namespace Tarvo::Frameworks;
    std::string const& key = pointer.back();
    std::size_t const depth = pointer.size();
    bool const inPort =
        depth == 5 && (pointer[2] == "kpeshimPorts" || pointer[2] == "nocPorts" || pointer[2] == "plPorts");
    bool const inConnection = depth == 3 && pointer[0] == "connections";
    std::vector<std::string> known;
    if ((inPort || inConnection) && key == "type") known = knownTexts<TQLogicalConnectionDataFlowTypeEnum>();
    if (inPort && key == "direction") known = knownTexts<TQLogicalPortDirectionTypeEnum>();
    if (inConnection && key == "direction") {
      known = knownTexts<TQLogicalConnectionDirectionEnum>();
      known.insert(known.end(), {"tq_to_pl", "pl_to_tq", "tq_to_noc", "noc_to_tq"});  // older texts still read
    }
    if (inConnection && key == "memMode") known = knownTexts<TQLogicalConnectionMemModeEnum>();
    if (inConnection && key == "addrType") known = knownTexts<TQLogicalConnectionAddrTypeEnum>();
    if (depth == 3 && pointer[0] == "NoC" && key == "type") known = knownTexts<TQLogicalIPTypeEnum>();
    std::string const text(value.GetString(), value.GetStringLength());
    if (known.empty() || std::find(known.begin(), known.end(), text) != known.end()) return;
    std::string const best = TextSuggestion::closest(text, known, std::string::npos - 1);
    add(pointer, 0, false, kLossyValue,
        "'" + key + "' text " + ValueText::quoted(text) + " is not known; it is read as \"unknown\"; did you mean " +
            ValueText::quoted(best) + "?");
  }

  template <typename Enum>
  static std::vector<std::string> knownTexts() {
    std::vector<std::string> texts;
    for (unsigned v = 0; v < static_cast<unsigned>(Enum::Unknown); ++v)
      texts.emplace_back(Tarvo::Frameworks::toText(static_cast<Enum>(v)));
    return texts;
  }

  // A group range text: places are "(column,row)", a bare column, or a name. A text shaped
  // like coordinates that does not parse as them is read as a name, which no design has.
  void checkPlaceText(rapidjson::Value const& value, SourceMap::Pointer const& pointer) {
    using kpe::constraints::ConstrPlaceText;
    ConstrPlaceText::Split const split = ConstrPlaceText::splitRange(value.GetString());
    for (std::string const& piece : {split.low, split.high}) {
      if (piece.empty()) continue;
      ConstrPlaceText::Place const place = ConstrPlaceText::parsePlace(piece);
      bool const looksLikeCoordinates = piece.find_first_of("(),") != std::string::npos ||
                                        piece.find_first_not_of("0123456789 \t+-") == std::string::npos;
      if (place.hasSecond && (place.column == -1 || place.second == -1))
        add(pointer, 0, false, kLossyValue,
            "place " + ValueText::quoted(piece) + " is not of the form '(column,row)' with two numbers; " +
                "what is no number is read as -1");
      else if (!place.name.empty() && looksLikeCoordinates)
        add(pointer, 0, false, kLossyValue,
            "place " + ValueText::quoted(piece) +
                " is not of the form '(column,row)' or a column; it is read as the name " +
                ValueText::quoted(place.name));
    }
  }

  SchemaNavigator const* m_navigator;
  std::string const& m_kind;
  std::vector<LintFinding>& m_out;
};

}  // namespace

std::size_t Lint::invalidUtf8At(char const* text, std::size_t length) {
  auto const* bytes = reinterpret_cast<unsigned char const*>(text);
  for (std::size_t i = 0; i < length;) {
    unsigned char const lead = bytes[i];
    std::size_t size;
    unsigned long code;
    if (lead < 0x80) {
      ++i;
      continue;
    } else if (lead >= 0xC2 && lead <= 0xDF) {
      size = 2;
      code = lead & 0x1F;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
      size = 3;
      code = lead & 0x0F;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
      size = 4;
      code = lead & 0x07;
    } else {
      return i;
    }
    if (i + size > length) return i;
    for (std::size_t k = 1; k < size; ++k) {
      if ((bytes[i + k] & 0xC0) != 0x80) return i;
      code = (code << 6) | (bytes[i + k] & 0x3F);
    }
    // Overlong forms, surrogates and code points past U+10FFFF are not UTF-8 either.
    if ((size == 3 && code < 0x800) || (size == 4 && (code < 0x10000 || code > 0x10FFFF)) ||
        (code >= 0xD800 && code <= 0xDFFF))
      return i;
    i += size;
  }
  return std::string::npos;
}

std::vector<LintFinding> Lint::run(rapidjson::Value const& document, rapidjson::Value const* schema,
                                   std::string const& kind) {
  std::vector<LintFinding> findings;
  SourceMap::Pointer pointer;
  if (schema == nullptr) {
    Walker(nullptr, kind, findings).walk(document, nullptr, pointer);
    return findings;
  }
  SchemaNavigator const navigator(*schema);
  Walker(&navigator, kind, findings).walk(document, schema, pointer);
  return findings;
}

}  // namespace tarvo_diagnostics
