#include "SarifWriter.h"

#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

#include <algorithm>
#include <cctype>
#include <ostream>

namespace tarvo_diagnostics {
namespace {

// A file name as a URI reference: bytes outside the unreserved set and "/" percent-encoded.
std::string uriOf(std::string const& file) {
  static char const* const hex = "0123456789ABCDEF";
  std::string uri;
  for (char c : file) {
    unsigned char const byte = static_cast<unsigned char>(c);
    if (std::isalnum(byte) || c == '-' || c == '.' || c == '_' || c == '~' || c == '/') {
      uri += c;
    } else {
      uri += '%';
      uri += hex[byte >> 4];
      uri += hex[byte & 15];
    }
  }
  return uri;
}

}  // namespace

void SarifWriter::write(std::ostream& out, std::vector<Diagnostic> const& diagnostics, std::string const& toolName,
                        std::string const& toolVersion) {
  rapidjson::StringBuffer buffer;
  rapidjson::PrettyWriter<rapidjson::StringBuffer> w(buffer);
  w.SetIndent(' ', 2);
  auto text = [&w](std::string const& value) {
    w.String(value.data(), static_cast<rapidjson::SizeType>(value.size()));
  };
  std::vector<std::string> rules;
  for (Diagnostic const& diagnostic : diagnostics)
    if (!diagnostic.id.empty() && std::find(rules.begin(), rules.end(), diagnostic.id) == rules.end())
      rules.push_back(diagnostic.id);

  w.StartObject();
  w.Key("$schema");
  text("https://json.schemastore.org/sarif-2.1.0.json");
  w.Key("version");
  text("2.1.0");
  w.Key("runs");
  w.StartArray();
  w.StartObject();
  w.Key("tool");
  w.StartObject();
  w.Key("driver");
  w.StartObject();
  w.Key("name");
  text(toolName);
  w.Key("version");
  text(toolVersion);
  w.Key("rules");
  w.StartArray();
  for (std::string const& rule : rules) {
    w.StartObject();
    w.Key("id");
    text(rule);
    w.EndObject();
  }
  w.EndArray();
  w.EndObject();
  w.EndObject();
  w.Key("columnKind");
  text("unicodeCodePoints");
  w.Key("results");
  w.StartArray();
  for (Diagnostic const& diagnostic : diagnostics) {
    w.StartObject();
    if (!diagnostic.id.empty()) {
      w.Key("ruleId");
      text(diagnostic.id);
      w.Key("ruleIndex");
      w.Uint(static_cast<unsigned>(std::find(rules.begin(), rules.end(), diagnostic.id) - rules.begin()));
    }
    w.Key("level");
    text(severityText(diagnostic.severity));
    w.Key("message");
    w.StartObject();
    w.Key("text");
    text(diagnostic.text);
    w.EndObject();
    w.Key("locations");
    w.StartArray();
    w.StartObject();
    w.Key("physicalLocation");
    w.StartObject();
    w.Key("artifactLocation");
    w.StartObject();
    w.Key("uri");
    text(uriOf(diagnostic.file));
    w.EndObject();
    if (diagnostic.line != 0) {
      w.Key("region");
      w.StartObject();
      w.Key("startLine");
      w.Uint64(diagnostic.line);
      w.Key("startColumn");
      w.Uint64(diagnostic.characterColumn);
      w.EndObject();
    }
    w.EndObject();
    w.EndObject();
    w.EndArray();
    w.EndObject();
  }
  w.EndArray();
  w.EndObject();
  w.EndArray();
  w.EndObject();
  out << buffer.GetString() << '\n';
}

}  // namespace tarvo_diagnostics
