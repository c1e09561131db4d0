#ifndef TARVO_JSONEVENTFRAME_H
#define TARVO_JSONEVENTFRAME_H

#include <rapidjson/prettywriter.h>
#include <rapidjson/reader.h>
#include <rapidjson/schema.h>

#include <cstdint>
#include <cstring>
#include <exception>
#include <istream>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "HCRapidJsonReadWriteUtils.h"
#include "JsonDocumentFrame.h"
#include "JsonForwardingHandler.h"
#include "JsonInputStream.h"
#include "JsonOutputStream.h"
#include "JsonParse.h"
#include "JsonPointerText.h"

// The load and write sequences of JsonDocumentFrame for a reader or writer that builds or walks
// a large model event by event: the document tree of a text and a model made from it together
// hold several times the text, and building the tree of a written document first costs as
// much as writing it. The reports, and the order in which failures are found, are those of
// JsonDocumentFrame.
class JsonEventFrame {
 public:
  // Parses `in`, validates on `schemaPath` and hands each event, once it is known to be valid,
  // to `handler` (a class with the event operations of a RapidJSON handler, returning nothing).
  // Reports as JsonDocumentFrame::load: a syntax error before a schema that can't be loaded,
  // that before a value the schema refuses. A handler that failed must not be used: it saw
  // only the valid beginning of the text.
  template <typename Handler>
  static void load(std::istream& in, std::string const& fileName, std::string const& schemaPath, Handler& handler);

  // Sends events into a validator whose output is a pretty writer; after the first refused
  // event nothing more is sent, so the text stops at the first invalid value.
  template <typename Target>
  class Emitter;
  // Writes the events that `produce(Emitter&)` sends pretty (indent two blanks) through a
  // validator on `schema`; true when all of them were valid. Otherwise `violation`, if given,
  // says where the text failed.
  template <typename Produce>
  static bool writeValidated(std::ostream& out, rapidjson::SchemaDocument const& schema, Produce const& produce,
                             JsonDocumentFrame::SchemaViolation* violation = nullptr);

 private:
  template <typename Handler>
  class ValidatingSplitter;
  typedef rapidjson::PrettyWriter<tarvo::jsonio::JsonOutputStream> PrettyWriter;
};

// Passes each event to the validator and, while all were valid, to the handler; refuses
// nesting deeper than the load sequence allows. It never stops the parse for a schema
// failure, so that a later syntax error is still found and reported first.
template <typename Handler>
class JsonEventFrame::ValidatingSplitter {
 public:
  typedef char Ch;
  ValidatingSplitter(rapidjson::SchemaValidator* validator, Handler* handler)
      : m_validator(validator), m_handler(handler) {}

  bool valid() const { return m_valid; }
  bool tooDeep() const { return m_tooDeep; }

  bool Null() {
    return forward([](auto& t) { return t.Null(); });
  }
  bool Bool(bool b) {
    return forward([b](auto& t) { return t.Bool(b); });
  }
  bool Int(int i) {
    return forward([i](auto& t) { return t.Int(i); });
  }
  bool Uint(unsigned u) {
    return forward([u](auto& t) { return t.Uint(u); });
  }
  bool Int64(std::int64_t i) {
    return forward([i](auto& t) { return t.Int64(i); });
  }
  bool Uint64(std::uint64_t u) {
    return forward([u](auto& t) { return t.Uint64(u); });
  }
  bool Double(double d) {
    return forward([d](auto& t) { return t.Double(d); });
  }
  bool RawNumber(Ch const* s, rapidjson::SizeType n, bool c) { return String(s, n, c); }
  bool String(Ch const* s, rapidjson::SizeType n, bool c) {
    return forward([=](auto& t) { return t.String(s, n, c); });
  }
  bool Key(Ch const* s, rapidjson::SizeType n, bool c) {
    return forward([=](auto& t) { return t.Key(s, n, c); });
  }
  bool StartObject() {
    return enter() && forward([](auto& t) { return t.StartObject(); });
  }
  bool EndObject(rapidjson::SizeType n) {
    --m_depth;
    return forward([n](auto& t) { return t.EndObject(n); });
  }
  bool StartArray() {
    return enter() && forward([](auto& t) { return t.StartArray(); });
  }
  bool EndArray(rapidjson::SizeType n) {
    --m_depth;
    return forward([n](auto& t) { return t.EndArray(n); });
  }

 private:
  template <typename Event>
  bool forward(Event const& event) {
    if (m_valid && m_validator != nullptr) m_valid = event(*m_validator);
    if (m_valid && m_handler != nullptr) event(*m_handler);
    return true;
  }
  bool enter() {
    if (++m_depth <= tarvo::jsonio::JsonParse::kMaxNestingDepth) return true;
    m_tooDeep = true;
    return false;
  }

  rapidjson::SchemaValidator* m_validator;
  Handler* m_handler;
  unsigned m_depth = 0;
  bool m_valid = true;
  bool m_tooDeep = false;
};

template <typename Handler>
void JsonEventFrame::load(std::istream& in, std::string const& fileName, std::string const& schemaPath,
                          Handler& handler) {
  typedef HCRapidJsonReadWriteUtils Json;
  typedef tarvo::jsonio::JsonParse JsonParse;
  std::unique_ptr<rapidjson::SchemaDocument> schema;
  std::exception_ptr schemaFailure;
  try {
    schema = JsonDocumentFrame::loadSchema(schemaPath);
  } catch (...) {
    schemaFailure = std::current_exception();  // reported after the text proves well formed
  }
  std::unique_ptr<rapidjson::SchemaValidator> validator;
  if (schema) validator = std::make_unique<rapidjson::SchemaValidator>(*schema);
  ValidatingSplitter<Handler> splitter(validator.get(), schema ? &handler : nullptr);
  tarvo::jsonio::JsonInputStream stream(in);
  rapidjson::Reader reader;
  rapidjson::ParseResult result = reader.Parse<rapidjson::kParseDefaultFlags>(stream, splitter);
  if (splitter.tooDeep()) JsonParse::markTooDeep(result);
  if (result.IsError()) Json::errorParsingJsonFile(fileName, JsonParse::errorText(result, stream));
  if (schemaFailure) std::rethrow_exception(schemaFailure);
  if (!splitter.valid())
    Json::errorParsingJsonFile(fileName,
                               tarvo::jsonio::JsonPointerText::uriFragment(validator->GetInvalidDocumentPointer()));
}

// Keeps the member and element counts that the closing events carry.
template <typename Target>
class JsonEventFrame::Emitter {
 public:
  explicit Emitter(Target& target) : m_target(target) {}

  bool ok() const { return m_ok; }

  void startObject() {
    if (!beginValue()) return;
    m_ok = m_target.StartObject();
    m_counts.push_back(Count{false, 0});
  }
  void endObject() { end(&Target::EndObject); }
  void startArray() {
    if (!beginValue()) return;
    m_ok = m_target.StartArray();
    m_counts.push_back(Count{true, 0});
  }
  void endArray() { end(&Target::EndArray); }
  void key(char const* text) { key(text, std::strlen(text)); }
  void key(std::string const& text) { key(text.data(), text.size()); }
  void string(char const* text) { string(text, std::strlen(text)); }
  void string(std::string const& text) { string(text.data(), text.size()); }
  void uint64(std::uint64_t value) {
    if (beginValue()) m_ok = m_target.Uint64(value);
  }
  void int64(std::int64_t value) {
    if (beginValue()) m_ok = m_target.Int64(value);
  }
  void real(double value) {
    if (beginValue()) m_ok = m_target.Double(value);
  }
  void boolean(bool value) {
    if (beginValue()) m_ok = m_target.Bool(value);
  }

 private:
  struct Count {
    bool array;
    rapidjson::SizeType count;
  };

  // Counts an element of the enclosing array; false once an event was refused.
  bool beginValue() {
    if (m_ok && !m_counts.empty() && m_counts.back().array) ++m_counts.back().count;
    return m_ok;
  }
  void key(char const* text, std::size_t size) {
    if (!m_ok) return;
    ++m_counts.back().count;
    m_ok = m_target.Key(text, static_cast<rapidjson::SizeType>(size), false);
  }
  void string(char const* text, std::size_t size) {
    if (beginValue()) m_ok = m_target.String(text, static_cast<rapidjson::SizeType>(size), false);
  }
  void end(bool (Target::*close)(rapidjson::SizeType)) {
    if (!m_ok) return;
    m_ok = (m_target.*close)(m_counts.back().count);
    m_counts.pop_back();
  }

  Target& m_target;
  std::vector<Count> m_counts;
  bool m_ok = true;
};

template <typename Produce>
bool JsonEventFrame::writeValidated(std::ostream& out, rapidjson::SchemaDocument const& schema, Produce const& produce,
                                    JsonDocumentFrame::SchemaViolation* violation) {
  typedef JsonForwardingHandler<PrettyWriter> Handler;
  typedef rapidjson::GenericSchemaValidator<rapidjson::SchemaDocument, Handler> Validator;
  tarvo::jsonio::JsonOutputStream stream(out);
  PrettyWriter writer(stream);
  writer.SetIndent(' ', 2);
  Handler handler(&writer);
  Validator validator(schema, handler, nullptr, 1024, 256);
  Emitter<Validator> emitter(validator);
  produce(emitter);
  if (!emitter.ok() && violation != nullptr) {
    char const* keyword = validator.GetInvalidSchemaKeyword();
    *violation = {tarvo::jsonio::JsonPointerText::uriFragment(validator.GetInvalidSchemaPointer()),
                  keyword != nullptr ? keyword : "",
                  tarvo::jsonio::JsonPointerText::uriFragment(validator.GetInvalidDocumentPointer())};
  }
  return emitter.ok();
}

#endif
