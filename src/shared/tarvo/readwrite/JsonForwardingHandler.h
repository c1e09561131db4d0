#ifndef TARVO_JSONFORWARDINGHANDLER_H
#define TARVO_JSONFORWARDINGHANDLER_H

#include <rapidjson/rapidjson.h>

#include <cstdint>

// The output handler of a validating write. The validator gives the sub-validators of oneOf,
// anyOf, allOf, patternProperties and dependencies a default-constructed output handler; a
// default-constructed pretty writer has no stream and crashes. This handler forwards to the
// real writer and does nothing when default-constructed.
template <typename Writer>
class JsonForwardingHandler {
 public:
  typedef char Ch;

  JsonForwardingHandler() = default;
  explicit JsonForwardingHandler(Writer* writer) : m_writer(writer) {}

  bool Null() { return !m_writer || m_writer->Null(); }
  bool Bool(bool b) { return !m_writer || m_writer->Bool(b); }
  bool Int(int i) { return !m_writer || m_writer->Int(i); }
  bool Uint(unsigned u) { return !m_writer || m_writer->Uint(u); }
  bool Int64(int64_t i) { return !m_writer || m_writer->Int64(i); }
  bool Uint64(uint64_t u) { return !m_writer || m_writer->Uint64(u); }
  bool Double(double d) { return !m_writer || m_writer->Double(d); }
  bool RawNumber(Ch const* s, rapidjson::SizeType n, bool copy) { return !m_writer || m_writer->RawNumber(s, n, copy); }
  bool String(Ch const* s, rapidjson::SizeType n, bool copy) { return !m_writer || m_writer->String(s, n, copy); }
  bool StartObject() { return !m_writer || m_writer->StartObject(); }
  bool Key(Ch const* s, rapidjson::SizeType n, bool copy) { return !m_writer || m_writer->Key(s, n, copy); }
  bool EndObject(rapidjson::SizeType n) { return !m_writer || m_writer->EndObject(n); }
  bool StartArray() { return !m_writer || m_writer->StartArray(); }
  bool EndArray(rapidjson::SizeType n) { return !m_writer || m_writer->EndArray(n); }

 private:
  Writer* m_writer = nullptr;
};

#endif
