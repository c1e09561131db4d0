#include "Diagnoser.h"

#include <rapidjson/document.h>

#include <algorithm>
#include <fstream>
#include <memory>
#include <regex>
#include <sstream>

#include "ConstrWriter.h"
#include "Lint.h"
#include "NOCJsonEnumTexts.h"
#include "NOCJsonReadWriteUtils.h"
#include "SchemaViolations.h"
#include "TextSuggestion.h"
#include "ValueText.h"
#include "xp_ifstream.h"

namespace tarvo_diagnostics {
namespace {

Severity severityOf(ComMsgMgr::MsgMask mask) {
  if (mask == ComMsgMgr::MSG_ERROR) return Severity::Error;
  if (mask == ComMsgMgr::MSG_WARNING || mask == ComMsgMgr::MSG_CRITICAL_WARNING) return Severity::Warning;
  return Severity::Note;
}

// Messages that name an object of the document: which argument holds the name, the key
// whose values (or items) name such objects ("" for any key or value), and whether the
// argument is a list of names joined by blanks (the first one is placed).
struct NamedObject {
  char const* id;
  std::size_t argument;
  char const* memberKey;
  bool list;
};
NamedObject const kNamedObjects[] = {
    {"73-30", 0, "Ports", false}, {"73-448", 0, "Port", false},
    {"75-184", 0, "", false},     {"75-698", 2, "", false},
    {"75-407", 0, "", false},     {"75-408", 0, "", false},
    {"75-410", 0, "", false},     {"75-411", 0, "", true},
    {"75-412", 0, "", false},     {"75-413", 0, "", true},
    {"75-414", 0, "", false},     {"75-415", 0, "", true},
    {"75-497", 0, "", false},     {"75-498", 0, "", false},
    {"75-574", 1, "", false},     {"75-579", 1, "", false},
    {"75-584", 1, "", false},     {"75-587", 1, "", false},
    {"75-588", 1, "", false},     {"75-747", 1, "", false},
    {"75-595", 2, "", false},     {"75-596", 2, "", false},
    {"75-748", 2, "", false},     {"75-646", 0, "", false},
    {"75-647", 0, "", false},     {"75-880", 0, "relative_nodes", false},
};

// The texts of the component types that the traffic reader knows.
std::vector<std::string> const& componentTypeTexts() {
  static std::vector<std::string> const texts = [] {
    std::vector<std::string> all;
    for (int value = 0; value < DevHrdIP::Definitions::COMPERR; ++value)
      all.emplace_back(NOC::compTypeToText(value));
    return all;
  }();
  return texts;
}

std::string metaValue(ComMsgMgrInstance const& message, ComMsgMgr::MetaType type) {
  for (auto const& meta : message.getMetaTypes())
    if (meta.type == type) return meta.value;
  return "";
}

// What places a diagnostic, until the one scan of the text.
enum class Anchor { None, Value, Key, Name, LineColumn };
struct Pending {
  Anchor anchor = Anchor::None;
  std::size_t query = 0;  // index into the pointer or the name queries
  std::size_t line = 0;
  std::size_t column = 0;
};

}  // namespace

// One diagnosis: diagnostics collected with what places them, then placed by one scan.
class Diagnoser::Run {
 public:
  Run(Diagnoser const& owner) : m_owner(owner) {}

  std::vector<Diagnostic> diagnose(LibraryReport const& report) {
    for (ComMsgMgrInstance const& message : report.messages)
      addMessage(message);
    if (report.failure) addMessage(*report.failure);
    if (m_owner.m_options.strict) addLint();
    place();
    return std::move(m_diagnostics);
  }

 private:
  Diagnostic& add(Severity severity, std::string const& id, std::string text, Pending pending = {}) {
    Diagnostic diagnostic;
    diagnostic.file = m_owner.m_file;
    diagnostic.severity = severity;
    diagnostic.id = id;
    diagnostic.text = std::move(text);
    m_diagnostics.push_back(std::move(diagnostic));
    m_pending.push_back(pending);
    return m_diagnostics.back();
  }

  Pending atPointer(SourceMap::Pointer pointer, bool key, std::size_t occurrence = 0) {
    m_queries.push_back({std::move(pointer), occurrence});
    return {key ? Anchor::Key : Anchor::Value, m_queries.size() - 1, 0, 0};
  }

  Pending atName(std::string const& name, std::string const& memberKey) {
    std::size_t occurrence = 0;
    for (SourceMap::NameQuery const& query : m_names)
      if (query.name == name && query.memberKey == memberKey) ++occurrence;
    m_names.push_back({name, memberKey, occurrence});
    return {Anchor::Name, m_names.size() - 1, 0, 0};
  }

  void addMessage(ComMsgMgrInstance const& message) {
    std::string const id = message.getComponent() + " " + message.getId();
    Severity const severity = severityOf(message.getMask());
    std::vector<std::string> const& args = message.getArgs();
    // The constraint reader gives places of its own.
    std::string const line = metaValue(message, ComMsgMgr::META_LINE);
    if (!line.empty()) {
      Pending const pending{Anchor::LineColumn, 0, std::stoul(line),
                            std::stoul("0" + metaValue(message, ComMsgMgr::META_COLUMN))};
      add(severity, id, message.getText(), pending);
      return;
    }
    if (message.getId() == "8-101" && args.size() == 2) return addParseFailure(message, id, args[1]);
    if (message.getId() == "75-571" && args.size() == 4) {
      addSchemaFailure(id, SourceMap::pointerFromUriFragment(args[3]));
      add(Severity::Note, id, message.getText(), atPointer(SourceMap::pointerFromUriFragment(args[3]), false));
      return;
    }
    for (NamedObject const& named : kNamedObjects) {
      if (message.getId() != named.id || named.argument >= args.size()) continue;
      std::string name = args[named.argument];
      if (named.list) name = name.substr(0, name.find(' '));
      add(severity, id, message.getText(), atName(name, named.memberKey));
      return;
    }
    add(severity, id, message.getText());
  }

  void addParseFailure(ComMsgMgrInstance const& message, std::string const& id, std::string const& reason) {
    static std::regex const syntax("^line ([0-9]+), column ([0-9]+): (.*)$");
    static std::regex const unknownEnd("^Path '(from|to)' name is unknown: (.*)$");
    std::smatch match;
    if (!reason.empty() && reason[0] == '#') return addSchemaFailure(id, SourceMap::pointerFromUriFragment(reason));
    if (std::regex_match(reason, match, syntax)) {
      add(Severity::Error, id, match[3], {Anchor::LineColumn, 0, std::stoul(match[1]), std::stoul(match[2])});
      return;
    }
    static std::regex const unknownType("^Unknown component type : (.*)$");
    if (std::regex_match(reason, match, unknownType)) {
      std::string const best =
          TextSuggestion::closest(match[1], componentTypeTexts(), TextSuggestion::nameTolerance(match[1]));
      add(Severity::Error, id,
          "'CompType': " + ValueText::quoted(match[1]) + " is not a known component type" +
              (best.empty() ? std::string() : "; did you mean " + ValueText::quoted(best) + "?"),
          atName(match[1], "CompType"));
      add(Severity::Note, id, message.getText(), m_pending.back());
      return;
    }
    // Failures of the traffic reader that name a value of the document.
    static std::pair<std::regex, char const*> const namedValues[] = {
        {std::regex("^Could not find netlist instance for traffic spec instance: (.*)$"), "Name"},
        {std::regex("^Empty logical instance name()$"), "Name"},
    };
    for (auto const& named : namedValues)
      if (std::regex_match(reason, match, named.first)) {
        add(Severity::Error, id, message.getText(), atName(match[1], named.second));
        return;
      }
    if (reason == "DestId entry is expected to be a 12 bit maximum") {
      add(Severity::Error, id, message.getText(), atLargeDestId());
      return;
    }
    if (std::regex_match(reason, match, unknownEnd)) {
      std::string const key = match[1] == "from" ? "From" : "To";
      add(Severity::Error, id,
          "'" + key + "' names '" + match[2].str() + "', which is not a logical instance of this document",
          atName(match[2], key));
      add(Severity::Note, id, message.getText(), m_pending.back());
      return;
    }
    add(severityOf(message.getMask()), id, message.getText());
  }

  // The first destination id of a logical instance beyond 12 bits, the one the reader stops at.
  Pending atLargeDestId() {
    rapidjson::Document const* doc = document();
    if (doc == nullptr || !doc->IsObject() || !doc->HasMember("LogicalInstances") ||
        !(*doc)["LogicalInstances"].IsArray())
      return {};
    rapidjson::Value const& instances = (*doc)["LogicalInstances"];
    for (rapidjson::SizeType i = 0; i < instances.Size(); ++i) {
      auto const found = instances[i].IsObject() ? instances[i].FindMember("DestId") : instances[i].MemberEnd();
      if (instances[i].IsObject() && found != instances[i].MemberEnd() && found->value.IsInt() &&
          found->value.GetInt() >= (1 << 12))
        return atPointer({"LogicalInstances", std::to_string(i), "DestId"}, false);
    }
    return {};
  }

  SourceMap const& source() {
    if (!m_source) m_source.emplace(m_owner.m_text ? *m_owner.m_text : readText(m_owner.m_file));
    return *m_source;
  }

  rapidjson::Document const* document() {
    if (!m_parsed) {
      m_parsed = true;
      std::string const& text = source().text();
      m_document.Parse(text.c_str(), text.size());
    }
    return m_document.HasParseError() ? nullptr : &m_document;
  }

  rapidjson::Document const* schema() {
    if (!m_schemaLoaded) {
      m_schemaLoaded = true;
      std::ifstream in(m_owner.m_options.schemaFile, std::ios_base::binary);
      std::string const text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
      if (in.is_open()) m_schema.Parse(text.c_str(), text.size());
    }
    return m_schema.IsObject() ? &m_schema : nullptr;
  }

  // The library stops at the first violation; valijson lists all of them. The library's
  // verdict stands: its violation comes first, and is added if valijson did not see it.
  void addSchemaFailure(std::string const& id, SourceMap::Pointer const& reported) {
    std::vector<SchemaViolation> violations;
    if (document() != nullptr && schema() != nullptr) violations = SchemaViolations::collect(*document(), *schema());
    // The two validators name the same failure at different depths: the library at the value
    // of a member that is not allowed, valijson at its object; the library at a member that
    // fails its "patternProperties" rule, valijson at the values inside it.
    auto sameFailure = [&reported](SchemaViolation const& v) {
      SourceMap::Pointer full = v.pointer;
      if (v.keyword == "additionalProperties") full.push_back(v.key);
      return full.size() >= reported.size() && std::equal(reported.begin(), reported.end(), full.begin());
    };
    auto first = std::find_if(violations.begin(), violations.end(), sameFailure);
    if (first != violations.end())
      std::rotate(violations.begin(), first, first + 1);
    else
      violations.insert(violations.begin(),
                        {reported, "", "", ValueText::subject(reported) + ": does not match the schema"});
    std::size_t const shown = std::min(violations.size(), m_owner.m_options.maxSchemaViolations);
    m_textOrdered.emplace_back(m_diagnostics.size(), m_diagnostics.size() + shown);
    for (std::size_t i = 0; i < shown; ++i) {
      SchemaViolation const& violation = violations[i];
      bool const atKey = violation.keyword == "additionalProperties" && !violation.key.empty();
      SourceMap::Pointer pointer = violation.pointer;
      if (atKey) pointer.push_back(violation.key);
      add(Severity::Error, id, violation.text, atPointer(pointer, atKey));
    }
    if (violations.size() > shown) {
      std::size_t const rest = violations.size() - shown;
      add(Severity::Note, id,
          std::to_string(rest) + " more schema violation" + (rest == 1 ? " is" : "s are") + " not shown");
    }
  }

  void addLint() {
    if (document() == nullptr) return;
    std::size_t const first = m_diagnostics.size();
    for (LintFinding const& finding : Lint::run(*document(), schema(), m_owner.m_options.kind))
      add(Severity::Warning, finding.id, finding.text, atPointer(finding.pointer, finding.atKey, finding.occurrence));
    m_textOrdered.emplace_back(first, m_diagnostics.size());
  }

  void place() {
    bool const anyPlace =
        std::any_of(m_pending.begin(), m_pending.end(), [](Pending const& p) { return p.anchor != Anchor::None; });
    if (!anyPlace) return;
    SourceMap const& source = this->source();
    SourceMap::Answers const answers =
        m_queries.empty() && m_names.empty() ? SourceMap::Answers() : source.locate(m_queries, m_names);
    std::vector<std::size_t> offsets(m_diagnostics.size(), SourceMap::npos);
    for (std::size_t i = 0; i < m_diagnostics.size(); ++i) {
      Pending const& pending = m_pending[i];
      std::size_t offset = SourceMap::npos;
      switch (pending.anchor) {
        case Anchor::Value:
          offset = answers.places[pending.query].value;
          break;
        case Anchor::Key:
          offset = answers.places[pending.query].key;
          break;
        case Anchor::Name:
          offset = answers.names[pending.query];
          break;
        case Anchor::LineColumn:
          offset = source.offsetOf(pending.line, pending.column);
          break;
        case Anchor::None:
          break;
      }
      offsets[i] = offset;
      if (offset == SourceMap::npos) continue;
      SourceMap::Position const position = source.positionOf(offset);
      Diagnostic& diagnostic = m_diagnostics[i];
      diagnostic.line = pending.anchor == Anchor::LineColumn ? pending.line : position.line;
      diagnostic.column = pending.anchor == Anchor::LineColumn ? pending.column : position.column;
      diagnostic.characterColumn = position.characterColumn;
    }
    // Schema violations and lint findings read best in the order of the text.
    for (auto const& range : m_textOrdered) {
      std::vector<std::size_t> order(range.second - range.first);
      for (std::size_t i = 0; i < order.size(); ++i)
        order[i] = range.first + i;
      std::stable_sort(order.begin(), order.end(),
                       [&offsets](std::size_t a, std::size_t b) { return offsets[a] < offsets[b]; });
      std::vector<Diagnostic> sorted;
      for (std::size_t i : order)
        sorted.push_back(m_diagnostics[i]);
      std::copy(sorted.begin(), sorted.end(), m_diagnostics.begin() + static_cast<std::ptrdiff_t>(range.first));
    }
  }

  Diagnoser const& m_owner;
  std::vector<Diagnostic> m_diagnostics;
  std::vector<Pending> m_pending;
  std::vector<SourceMap::Query> m_queries;
  std::vector<SourceMap::NameQuery> m_names;
  std::vector<std::pair<std::size_t, std::size_t>> m_textOrdered;  // ranges shown in text order
  std::optional<SourceMap> m_source;
  bool m_parsed = false;
  bool m_schemaLoaded = false;
  rapidjson::Document m_document;
  rapidjson::Document m_schema;
};

Diagnoser::Diagnoser(std::string file, std::string text, Options options)
    : m_file(std::move(file)), m_text(std::move(text)), m_options(std::move(options)) {}

Diagnoser::Diagnoser(std::string file, Options options) : m_file(std::move(file)), m_options(std::move(options)) {}

std::vector<Diagnostic> Diagnoser::diagnose(LibraryReport const& report) const {
  return Run(*this).diagnose(report);
}

std::string Diagnoser::readText(std::string const& file) {
  try {
    ovk::iostreams::xp_ifstream in(file.c_str(), ovk::iostreams::xp_autodetect());
    if (!in) return "";
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
  } catch (std::exception const&) {
    return "";
  }
}

std::string Diagnoser::schemaFileOf(std::string const& kind) {
  if (kind == "traffic") return NOCJsonReadWriteUtils::getTrafficJsonSchemaFile();
  if (kind == "noc-solution") return NOCJsonReadWriteUtils::getSolutionJsonSchemaFile();
  if (kind == "noc-constraints") return NOCJsonReadWriteUtils::getConstraintsJsonSchemaFile();
  if (kind == "logical-arch") return NOCJsonReadWriteUtils::getLogicalArchJsonSchemaFile();
  if (kind == "compiler-solution") return NOCJsonReadWriteUtils::getTQSolutionJsonSchemaFile();
  if (kind == "constraints") return kpe::constraints::ConstrWriter::findInstalledSchemaFile();
  return "";
}

}  // namespace tarvo_diagnostics
