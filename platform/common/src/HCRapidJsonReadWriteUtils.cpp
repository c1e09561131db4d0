#include "HCRapidJsonReadWriteUtils.h"

#include <rapidjson/error/en.h>
#include <rapidjson/reader.h>
#include <rapidjson/schema.h>
#include <rapidjson/stringbuffer.h>

#include <fstream>

#include "ComMsgMgrInstance.h"
#include "HCRapidJsonStreams.h"
#include "HEXAll.h"
#include "HUTEnv.h"
#include "HUTFile.h"

typedef HCRapidJsonReadWriteUtils::Value Value;
typedef HCRapidJsonReadWriteUtils::Allocator Allocator;

namespace {

char const* const kMetaSchema = "json-schema/draft-04-schema.json";

Value const* findMember(Value const& object, std::string const& key) {
  if (!object.IsObject()) return nullptr;
  Value::ConstMemberIterator const found =
      object.FindMember(Value(rapidjson::StringRef(key.data(), static_cast<rapidjson::SizeType>(key.size()))));
  return found == object.MemberEnd() ? nullptr : &found->value;
}

Value keyValue(std::string const& key, Allocator& alloc) {
  return Value(key.data(), static_cast<rapidjson::SizeType>(key.size()), alloc);
}

// Forwards every event to the document that is being built, and stops the parse when arrays
// and objects nest deeper than the limit.
template <typename Handler>
class DepthLimitedHandler {
 public:
  DepthLimitedHandler(Handler& target, unsigned maxDepth) : m_target(target), m_maxDepth(maxDepth) {}

  bool tooDeep() const { return m_tooDeep; }

  bool Null() { return m_target.Null(); }
  bool Bool(bool b) { return m_target.Bool(b); }
  bool Int(int i) { return m_target.Int(i); }
  bool Uint(unsigned u) { return m_target.Uint(u); }
  bool Int64(int64_t i) { return m_target.Int64(i); }
  bool Uint64(uint64_t u) { return m_target.Uint64(u); }
  bool Double(double d) { return m_target.Double(d); }
  bool RawNumber(char const* s, rapidjson::SizeType n, bool copy) { return m_target.RawNumber(s, n, copy); }
  bool String(char const* s, rapidjson::SizeType n, bool copy) { return m_target.String(s, n, copy); }
  bool Key(char const* s, rapidjson::SizeType n, bool copy) { return m_target.Key(s, n, copy); }
  bool StartObject() { return enter() && m_target.StartObject(); }
  bool EndObject(rapidjson::SizeType n) {
    --m_depth;
    return m_target.EndObject(n);
  }
  bool StartArray() { return enter() && m_target.StartArray(); }
  bool EndArray(rapidjson::SizeType n) {
    --m_depth;
    return m_target.EndArray(n);
  }

 private:
  bool enter() {
    if (++m_depth <= m_maxDepth) return true;
    m_tooDeep = true;
    return false;
  }

  Handler& m_target;
  unsigned m_maxDepth;
  unsigned m_depth = 0;
  bool m_tooDeep = false;
};

std::string parseErrorText(rapidjson::ParseErrorCode code) {
  // A handler stops a parse only for nesting.
  if (code == rapidjson::kParseErrorTermination)
    return "The text nests arrays and objects deeper than " +
           std::to_string(HCRapidJsonReadWriteUtils::kMaxNestingDepth) + " levels.";
  return rapidjson::GetParseError_En(code);
}

[[noreturn]] void raise(char const* id, std::string const& file, std::string const* text = nullptr) {
  ComMsgMgrInstance message =
      text == nullptr ? ComMsgMgrInstance::createInstance::eval(1, __FILE__, __LINE__, "tarvo", ComMsgMgr::MSG_ERROR,
                                                                id, file)
                      : ComMsgMgrInstance::createInstance::eval(2, __FILE__, __LINE__, "tarvo", ComMsgMgr::MSG_ERROR,
                                                                id, file, *text);
  message.attachMetaType(0, ComMsgMgr::META_FILE, "", file);
  throw HEXAll(message);
}

std::string uriFragment(rapidjson::Pointer const& pointer) { return HCRapidJsonReadWriteUtils::GetUriFragment(pointer); }

bool isUnreserved(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '-' || c == '.' ||
         c == '_' || c == '~';
}

// Reads and parses a schema-like file, reporting failures as schema failures.
void parseSchemaLikeFile(std::string const& file, HCRapidJsonReadWriteUtils::Document& doc) {
  std::ifstream in(file, std::ios_base::in | std::ios_base::binary);
  if (!HUTFile(file).isFile() || !in) HCRapidJsonReadWriteUtils::errorReadingSchemaFile(file);
  HCJsonInputStream stream(in);
  rapidjson::ParseResult const result = HCRapidJsonReadWriteUtils::ParseStream(stream, doc);
  if (result.IsError())
    HCRapidJsonReadWriteUtils::errorParsingSchemaFile(file, HCRapidJsonReadWriteUtils::GetErrorMsgFromParse(result, stream));
}

}  // namespace

std::string HCRapidJsonReadWriteUtils::GetStringProperty(Value const& object, std::string const& key) {
  Value const* value = findMember(object, key);
  return value != nullptr && value->IsString() ? std::string(value->GetString(), value->GetStringLength())
                                               : std::string();
}

bool HCRapidJsonReadWriteUtils::GetBooleanProperty(Value const& object, std::string const& key) {
  Value const* value = findMember(object, key);
  return value != nullptr && value->IsBool() && value->GetBool();
}

int HCRapidJsonReadWriteUtils::GetIntegrProperty(Value const& object, std::string const& key) {
  Value const* value = findMember(object, key);
  if (value != nullptr && value->IsInt()) return value->GetInt();
  // A number written with a fraction within range reads as its integer part.
  if (value != nullptr && value->IsDouble() && value->GetDouble() > -2147483649.0 && value->GetDouble() < 2147483648.0)
    return static_cast<int>(value->GetDouble());
  return 0;
}

unsigned long long HCRapidJsonReadWriteUtils::GetULongProperty(Value const& object, std::string const& key) {
  Value const* value = findMember(object, key);
  return value != nullptr && value->IsUint64() ? value->GetUint64() : 0;
}

double HCRapidJsonReadWriteUtils::GetDoubleProperty(Value const& object, std::string const& key) {
  Value const* value = findMember(object, key);
  return value != nullptr && value->IsNumber() ? value->GetDouble() : 0.0;
}

std::vector<std::string> HCRapidJsonReadWriteUtils::GetStringArrayProperty(Value const& object,
                                                                           std::string const& key) {
  std::vector<std::string> items;
  Value const* value = findMember(object, key);
  if (value == nullptr || !value->IsArray()) return items;
  items.reserve(value->Size());
  for (Value const& item : value->GetArray())
    if (item.IsString()) items.emplace_back(item.GetString(), item.GetStringLength());
  return items;
}

bool HCRapidJsonReadWriteUtils::IsStringProperty(Value const& object, std::string const& key) {
  Value const* value = findMember(object, key);
  return value != nullptr && value->IsString();
}

bool HCRapidJsonReadWriteUtils::IsBooleanProperty(Value const& object, std::string const& key) {
  Value const* value = findMember(object, key);
  return value != nullptr && value->IsBool();
}

bool HCRapidJsonReadWriteUtils::IsIntegrProperty(Value const& object, std::string const& key) {
  Value const* value = findMember(object, key);
  return value != nullptr && value->IsInt();
}

bool HCRapidJsonReadWriteUtils::IsULongProperty(Value const& object, std::string const& key) {
  Value const* value = findMember(object, key);
  return value != nullptr && value->IsUint64();
}

bool HCRapidJsonReadWriteUtils::IsDoubleProperty(Value const& object, std::string const& key) {
  Value const* value = findMember(object, key);
  return value != nullptr && value->IsDouble();
}

bool HCRapidJsonReadWriteUtils::IsArrayProperty(Value const& object, std::string const& key) {
  Value const* value = findMember(object, key);
  return value != nullptr && value->IsArray();
}

bool HCRapidJsonReadWriteUtils::IsObjectProperty(Value const& object, std::string const& key) {
  Value const* value = findMember(object, key);
  return value != nullptr && value->IsObject();
}

void HCRapidJsonReadWriteUtils::AddStringProperty(Value& object, std::string const& key, std::string const& value,
                                                  Allocator& alloc) {
  object.AddMember(keyValue(key, alloc), Value(value.data(), static_cast<rapidjson::SizeType>(value.size()), alloc),
                   alloc);
}

void HCRapidJsonReadWriteUtils::AddBooleanProperty(Value& object, std::string const& key, bool value,
                                                   Allocator& alloc) {
  object.AddMember(keyValue(key, alloc), Value(value), alloc);
}

void HCRapidJsonReadWriteUtils::AddIntegrProperty(Value& object, std::string const& key, int value,
                                                  Allocator& alloc) {
  object.AddMember(keyValue(key, alloc), Value(value), alloc);
}

void HCRapidJsonReadWriteUtils::AddULongProperty(Value& object, std::string const& key, unsigned long long value,
                                                 Allocator& alloc) {
  object.AddMember(keyValue(key, alloc), Value(static_cast<uint64_t>(value)), alloc);
}

void HCRapidJsonReadWriteUtils::AddDoubleProperty(Value& object, std::string const& key, double value,
                                                  Allocator& alloc) {
  object.AddMember(keyValue(key, alloc), Value(value), alloc);
}

void HCRapidJsonReadWriteUtils::AddStringArrayProperty(Value& object, std::string const& key,
                                                       std::vector<std::string> const& value, Allocator& alloc) {
  Value items(rapidjson::kArrayType);
  items.Reserve(static_cast<rapidjson::SizeType>(value.size()), alloc);
  for (std::string const& item : value)
    items.PushBack(Value(item.data(), static_cast<rapidjson::SizeType>(item.size()), alloc), alloc);
  object.AddMember(keyValue(key, alloc), items, alloc);
}

void HCRapidJsonReadWriteUtils::AddGenericValueProperty(Value& object, std::string const& key, Value const& value,
                                                        Allocator& alloc) {
  object.AddMember(keyValue(key, alloc), Value(value, alloc), alloc);
}

rapidjson::ParseResult HCRapidJsonReadWriteUtils::ParseStream(HCJsonInputStream& in, Document& doc) {
  rapidjson::ParseResult result;
  auto generator = [&](Document& target) {
    rapidjson::GenericReader<rapidjson::UTF8<>, rapidjson::UTF8<>> reader;
    DepthLimitedHandler<Document> limited(target, kMaxNestingDepth);
    result = reader.Parse<rapidjson::kParseDefaultFlags>(in, limited);
    // The parser stops behind the bracket that went too deep; point at the bracket itself.
    if (limited.tooDeep()) result.Set(rapidjson::kParseErrorTermination, result.Offset() - 1);
    return !result.IsError();
  };
  doc.Populate(generator);
  return result;
}

std::string HCRapidJsonReadWriteUtils::GetErrorMsgFromDocument(Document const& doc) {
  if (!doc.HasParseError()) return std::string();
  return "offset " + std::to_string(doc.GetErrorOffset()) + ": " + parseErrorText(doc.GetParseError());
}

std::string HCRapidJsonReadWriteUtils::GetErrorMsgFromParse(rapidjson::ParseResult const& result,
                                                            HCJsonInputStream const& in) {
  if (!result.IsError()) return std::string();
  HCJsonInputStream::Position const where = in.positionOf(result.Offset());
  return "line " + std::to_string(where.line) + ", column " + std::to_string(where.column) + ": " +
         parseErrorText(result.Code());
}

std::string HCRapidJsonReadWriteUtils::GetUriFragment(rapidjson::Pointer const& pointer) {
  static char const* const hexDigits = "0123456789ABCDEF";
  std::string text = "#";
  for (rapidjson::Pointer::Token const* token = pointer.GetTokens();
       token != pointer.GetTokens() + pointer.GetTokenCount(); ++token) {
    text += '/';
    for (rapidjson::SizeType i = 0; i < token->length; ++i) {
      char const c = token->name[i];
      if (c == '~') {
        text += "~0";
      } else if (c == '/') {
        text += "~1";
      } else if (isUnreserved(c)) {
        text += c;
      } else {
        unsigned char const byte = static_cast<unsigned char>(c);
        text += '%';
        text += hexDigits[byte >> 4];
        text += hexDigits[byte & 15];
      }
    }
  }
  return text;
}

void HCRapidJsonReadWriteUtils::ParseJsonStream(std::istream& in, std::string const& fileName, Document& doc) {
  HCJsonInputStream stream(in);
  rapidjson::ParseResult const result = ParseStream(stream, doc);
  if (result.IsError()) errorParsingJsonFile(fileName, GetErrorMsgFromParse(result, stream));
}

void HCRapidJsonReadWriteUtils::ValidateAgainstSchemaFile(Document const& doc, std::string const& fileName,
                                                          std::string schemaPath) {
  HUTFile(schemaPath).getCanonicalName(schemaPath);
  Document schemaDoc;
  parseSchemaLikeFile(schemaPath, schemaDoc);
  rapidjson::SchemaDocument const schema(schemaDoc);
  rapidjson::SchemaValidator validator(schema);
  if (!doc.Accept(validator)) errorParsingJsonFile(fileName, GetUriFragment(validator.GetInvalidDocumentPointer()));
}

void HCRapidJsonReadWriteUtils::errorReadingJsonFile(std::string const& file) { raise("@8-100@%s", file); }

void HCRapidJsonReadWriteUtils::errorReadingSchemaFile(std::string const& file) { raise("@8-102@%s", file); }

void HCRapidJsonReadWriteUtils::errorParsingJsonFile(std::string const& file, std::string const& text) {
  raise("@8-101@%s%s", file, &text);
}

void HCRapidJsonReadWriteUtils::errorParsingSchemaFile(std::string const& file, std::string const& text) {
  raise("@8-103@%s%s", file, &text);
}

void HCRapidJsonReadWriteUtils::validateSchemaFile(std::string const& file) {
  Document schema;
  parseSchemaLikeFile(file, schema);
  validateSchemaDocument(schema, file);
}

void HCRapidJsonReadWriteUtils::validateSchemaDocument(Document const& schema, std::string const& file) {
  std::string const metaPath = HUTEnv::getQDSDataDir(kMetaSchema) + HUTFile::getDirSeparator() + kMetaSchema;
  Document meta;
  parseSchemaLikeFile(metaPath, meta);
  rapidjson::SchemaDocument const metaSchema(meta);
  rapidjson::SchemaValidator validator(metaSchema);
  if (schema.Accept(validator)) return;
  std::string const keyword = validator.GetInvalidSchemaKeyword() ? validator.GetInvalidSchemaKeyword() : "";
  errorParsingSchemaFile(file, "not a draft-04 JSON schema: the value at " +
                                   uriFragment(validator.GetInvalidDocumentPointer()) + " fails the meta-schema's \"" +
                                   keyword + "\"");
}
