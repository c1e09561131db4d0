#include "JsonDocumentFrame.h"

#include <rapidjson/stringbuffer.h>

#include "ComMsgMgr.h"
#include "HUTFile.h"
#include "HUTFileWriteStream.h"
#include "JsonForwardingHandler.h"
#include "JsonInputStream.h"
#include "JsonOutputStream.h"
#include "JsonParse.h"
#include "JsonPointerText.h"
#include "JsonSchemaCheck.h"
#include "xp_ifstream.h"

typedef HCRapidJsonReadWriteUtils Json;
using tarvo::jsonio::JsonInputStream;
using tarvo::jsonio::JsonOutputStream;
using tarvo::jsonio::JsonParse;

namespace {

typedef rapidjson::PrettyWriter<JsonOutputStream> PrettyWriter;
typedef JsonForwardingHandler<PrettyWriter> WriterHandler;
typedef rapidjson::GenericSchemaValidator<rapidjson::SchemaDocument, WriterHandler> WritingValidator;

constexpr std::size_t kSchemaStackCapacity = 1024;
constexpr std::size_t kDocumentStackCapacity = 256;

std::string uriFragment(rapidjson::Pointer const& pointer) {
  return tarvo::jsonio::JsonPointerText::uriFragment(pointer);
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
  JsonParse::parseOrReport(in, fileName, doc);
}

std::unique_ptr<rapidjson::SchemaDocument> JsonDocumentFrame::loadSchema(std::string const& schemaPath, Opener opener) {
  std::string const canonical = canonicalName(schemaPath);
  ovk::iostreams::xp_ifstream in(canonical.c_str(), openerOf(opener));
  if (!isReadable(canonical, in)) Json::errorReadingSchemaFile(canonical);
  Document schema;
  JsonInputStream stream(in);
  rapidjson::ParseResult const result = JsonParse::parse(stream, schema);
  if (result.IsError()) Json::errorParsingSchemaFile(canonical, JsonParse::errorText(result, stream));
  tarvo::jsonio::JsonSchemaCheck::checkDraft04(schema, canonical);
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
  JsonOutputStream stream(out);
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
  JsonOutputStream stream(out);
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
