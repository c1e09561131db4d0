#include "JsonDocumentFrame.h"

#include <rapidjson/stringbuffer.h>

#include "ComMsgMgr.h"
#include "HCRapidJsonStreams.h"
#include "HUTFile.h"
#include "HUTFileWriteStream.h"
#include "xp_ifstream.h"

typedef HCRapidJsonReadWriteUtils Json;

namespace {

// The validator gives the sub-validators of oneOf, anyOf, allOf, patternProperties and
// dependencies a default-constructed output handler. A default-constructed pretty writer has
// no stream and crashes; this handler forwards to the real writer and does nothing when it
// has none.
template <typename Writer>
class ForwardingHandler {
 public:
  ForwardingHandler() = default;
  explicit ForwardingHandler(Writer* writer) : m_writer(writer) {}

  bool Null() { return !m_writer || m_writer->Null(); }
  bool Bool(bool b) { return !m_writer || m_writer->Bool(b); }
  bool Int(int i) { return !m_writer || m_writer->Int(i); }
  bool Uint(unsigned u) { return !m_writer || m_writer->Uint(u); }
  bool Int64(int64_t i) { return !m_writer || m_writer->Int64(i); }
  bool Uint64(uint64_t u) { return !m_writer || m_writer->Uint64(u); }
  bool Double(double d) { return !m_writer || m_writer->Double(d); }
  bool RawNumber(char const* s, rapidjson::SizeType n, bool copy) { return !m_writer || m_writer->RawNumber(s, n, copy); }
  bool String(char const* s, rapidjson::SizeType n, bool copy) { return !m_writer || m_writer->String(s, n, copy); }
  bool StartObject() { return !m_writer || m_writer->StartObject(); }
  bool Key(char const* s, rapidjson::SizeType n, bool copy) { return !m_writer || m_writer->Key(s, n, copy); }
  bool EndObject(rapidjson::SizeType n) { return !m_writer || m_writer->EndObject(n); }
  bool StartArray() { return !m_writer || m_writer->StartArray(); }
  bool EndArray(rapidjson::SizeType n) { return !m_writer || m_writer->EndArray(n); }

 private:
  Writer* m_writer = nullptr;
};

typedef rapidjson::PrettyWriter<HCJsonOutputStream> PrettyWriter;
typedef ForwardingHandler<PrettyWriter> WriterHandler;
typedef rapidjson::GenericSchemaValidator<rapidjson::SchemaDocument, WriterHandler> WritingValidator;

constexpr std::size_t kSchemaStackCapacity = 1024;
constexpr std::size_t kDocumentStackCapacity = 256;

std::string uriFragment(rapidjson::Pointer const& pointer) {
  rapidjson::StringBuffer text;
  pointer.StringifyUriFragment(text);
  return std::string(text.GetString(), text.GetSize());
}

template <typename Validator>
void describe(Validator const& validator, JsonDocumentFrame::SchemaViolation* violation) {
  if (violation == nullptr) return;
  violation->schemaPointer = uriFragment(validator.GetInvalidSchemaPointer());
  char const* keyword = validator.GetInvalidSchemaKeyword();
  violation->keyword = keyword != nullptr ? keyword : "";
  violation->documentPointer = uriFragment(validator.GetInvalidDocumentPointer());
}

ovk::iostreams::xp_ifstream::opener_type openerOf(JsonDocumentFrame::Opener opener) {
  if (opener == JsonDocumentFrame::Opener::AutoDetect) return ovk::iostreams::xp_autodetect();
  return ovk::iostreams::basic_file();
}

bool isReadable(std::string const& canonical, std::istream const& in) {
  HUTFile const file(canonical);
  return file.exists() && file.isFile() && in.good();
}

}  // namespace

std::string JsonDocumentFrame::canonicalName(std::string const& fileName) {
  std::string canonical = fileName;
  HUTFile(fileName).getCanonicalName(canonical);
  return canonical;
}

void JsonDocumentFrame::parse(std::istream& in, std::string const& fileName, Document& doc) {
  HCJsonInputStream stream(in);
  rapidjson::ParseResult const result = Json::ParseStream(stream, doc);
  if (result.IsError()) Json::errorParsingJsonFile(fileName, Json::GetErrorMsgFromParse(result, stream));
}

std::unique_ptr<rapidjson::SchemaDocument> JsonDocumentFrame::loadSchema(std::string const& schemaPath,
                                                                         Opener opener) {
  std::string const canonical = canonicalName(schemaPath);
  ovk::iostreams::xp_ifstream in(canonical.c_str(), openerOf(opener));
  if (!isReadable(canonical, in)) Json::errorReadingSchemaFile(canonical);
  Document schema(nullptr, kPoolChunkSize);
  HCJsonInputStream stream(in);
  rapidjson::ParseResult const result = Json::ParseStream(stream, schema);
  if (result.IsError()) Json::errorParsingSchemaFile(canonical, Json::GetErrorMsgFromParse(result, stream));
  return std::make_unique<rapidjson::SchemaDocument>(schema);
}

bool JsonDocumentFrame::validate(Value const& doc, rapidjson::SchemaDocument const& schema,
                                 SchemaViolation* violation) {
  rapidjson::SchemaValidator validator(schema);
  if (doc.Accept(validator)) return true;
  describe(validator, violation);
  return false;
}

void JsonDocumentFrame::load(std::istream& in, std::string const& fileName, std::string const& schemaPath,
                             Opener opener, Document& doc) {
  parse(in, fileName, doc);
  std::unique_ptr<rapidjson::SchemaDocument> const schema = loadSchema(schemaPath, opener);
  SchemaViolation violation;
  if (!validate(doc, *schema, &violation)) Json::errorParsingJsonFile(fileName, violation.documentPointer);
}

bool JsonDocumentFrame::readFile(std::string const& fileName, Opener opener,
                                 std::function<bool(std::istream&, std::string const&)> const& streamForm) {
  std::string const canonical = canonicalName(fileName);
  ovk::iostreams::xp_ifstream in(canonical.c_str(), openerOf(opener));
  if (!isReadable(canonical, in)) Json::errorReadingJsonFile(canonical);
  return streamForm(in, fileName);
}

bool JsonDocumentFrame::writeValidated(std::ostream& out, Value const& doc, rapidjson::SchemaDocument const& schema,
                                       rapidjson::PrettyFormatOptions format, SchemaViolation* violation) {
  HCJsonOutputStream stream(out);
  PrettyWriter writer(stream);
  writer.SetIndent(' ', 2);
  writer.SetFormatOptions(format);
  WriterHandler handler(&writer);
  WritingValidator validator(schema, handler, nullptr, kSchemaStackCapacity, kDocumentStackCapacity);
  bool const valid = doc.Accept(validator);
  if (!valid) describe(validator, violation);
  return valid;
}

void JsonDocumentFrame::writePretty(std::ostream& out, Value const& doc, rapidjson::PrettyFormatOptions format) {
  HCJsonOutputStream stream(out);
  PrettyWriter writer(stream);
  writer.SetIndent(' ', 2);
  writer.SetFormatOptions(format);
  doc.Accept(writer);
}

bool JsonDocumentFrame::write(std::ostream& out, Value const& doc, std::string const& schemaPath,
                              std::string const& displayName) {
  std::unique_ptr<rapidjson::SchemaDocument> const schema = loadSchema(schemaPath, Opener::PlainFile);
  if (writeValidated(out, doc, *schema)) return true;
  ComMsgMgr::sendMsg::eval(1, __FILE__, __LINE__, "tarvo", ComMsgMgr::MSG_ERROR, "@75-585@%s", displayName);
  return false;
}

bool JsonDocumentFrame::writeFile(std::string const& fileName, std::function<bool(std::ostream&)> const& streamForm) {
  HUTFileWriteStream out(canonicalName(fileName), HUTFileWriteStream::TRUNCATE);
  if (out.fail()) return false;
  bool const written = streamForm(out);
  if (out.rdbuf()->close() == nullptr) out.setstate(std::ios_base::failbit);
  return written;
}
