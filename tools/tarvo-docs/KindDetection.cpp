#include "KindDetection.h"

#include <rapidjson/istreamwrapper.h>
#include <rapidjson/reader.h>

#include <stdexcept>

#include "JsonDocumentFrame.h"

namespace tarvo_docs {

namespace {

// Deeper than the library's load sequence allows; the library's own parse then says so.
unsigned const kMaxDepth = 512;

// Receives the parser's events and stops it (by returning false) once a kind is certain,
// the root is known to be no object, or the root object ended.
class KeyHandler : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, KeyHandler> {
 public:
  DocumentKind const* kind = nullptr;

  bool Default() { return valueStarts(false, false); }
  bool StartObject() { return valueStarts(true, false) && ++m_depth <= kMaxDepth; }
  bool StartArray() { return valueStarts(false, true) && ++m_depth <= kMaxDepth; }
  bool EndObject(rapidjson::SizeType) { return ends(); }
  bool EndArray(rapidjson::SizeType) { return ends(); }
  bool Key(char const* text, rapidjson::SizeType length, bool) {
    if (m_depth == 1) {
      // "$schema" names the schema for editors, whatever the kind.
      if (std::string(text, length) == "$schema") return true;
      m_keys.keys.emplace_back(text, length);
      if (m_keys.keys.back() != "Placement") return decide();
      m_probe = Probe::Value;
    } else if (m_depth == 3 && m_probe == Probe::ElementKeys && std::string(text, length) == "LogicalInstance") {
      m_probe = Probe::LogicalInstance;
    }
    return true;
  }

 private:
  // How far the look into the value of "Placement" has come.
  enum class Probe { None, Value, FirstElement, ElementKeys, LogicalInstance };

  bool valueStarts(bool object, bool array) {
    if (m_depth == 0) return object;
    switch (m_probe) {
      case Probe::Value:
        if (!array) return finishProbe(false);
        m_probe = Probe::FirstElement;
        return true;
      case Probe::FirstElement:
        if (!object) return finishProbe(false);
        m_probe = Probe::ElementKeys;
        return true;
      case Probe::LogicalInstance:
        return m_depth != 3 || finishProbe(object);
      default:
        return true;
    }
  }
  bool ends() {
    --m_depth;
    if (m_depth == 0) return false;  // every key read, none decided
    if (m_probe == Probe::ElementKeys && m_depth == 2) return finishProbe(false);
    if (m_probe == Probe::FirstElement && m_depth == 1) return finishProbe(false);
    return true;
  }
  bool finishProbe(bool namesObjects) {
    m_probe = Probe::None;
    m_keys.placementNamesObjects = namesObjects;
    return decide();
  }
  bool decide() {
    for (auto const& candidate : documentKinds())
      if (candidate->recognises(m_keys)) {
        kind = candidate.get();
        return false;
      }
    return true;
  }

  TopLevelKeys m_keys;
  unsigned m_depth = 0;
  Probe m_probe = Probe::None;
};

// The kind, or null when the keys decide none or the text breaks off before they do.
DocumentKind const* scan(std::istream& in) {
  rapidjson::IStreamWrapper stream(in);
  KeyHandler handler;
  rapidjson::Reader reader;
  reader.Parse<rapidjson::kParseIterativeFlag | rapidjson::kParseStopWhenDoneFlag>(stream, handler);
  return handler.kind;
}

[[noreturn]] void failUndetected(DocumentSource const& source) {
  // The library's parse of the whole text reports a syntax error in its own words.
  source.open(JsonDocumentFrame::Opener::AutoDetect, [](std::istream& in, std::string const& name) {
    JsonDocumentFrame::Document doc;
    JsonDocumentFrame::parse(in, name, doc);
    return true;
  });
  throw std::runtime_error("cannot tell which kind of document '" + source.name() + "' is; name it with --kind");
}

}  // namespace

DocumentKind const& detectKind(DocumentSource const& source) {
  DocumentKind const* kind = nullptr;
  source.open(JsonDocumentFrame::Opener::AutoDetect, [&kind](std::istream& in, std::string const&) {
    kind = scan(in);
    return true;
  });
  if (kind == nullptr) failUndetected(source);
  return *kind;
}

DocumentKind const& detectKind(std::string const& text, std::string const& displayName) {
  return detectKind(DocumentSource::text(displayName, text));
}

}  // namespace tarvo_docs
