#include "HCRapidJsonReadWriteUtils.h"

#include <rapidjson/error/en.h>

#include "ComMsgMgrInstance.h"
#include "HEXAll.h"
#include "JsonMembers.h"
#include "JsonSchemaCheck.h"

typedef HCRapidJsonReadWriteUtils::Value Value;
typedef HCRapidJsonReadWriteUtils::Allocator Allocator;

namespace {

Value const* findMember(Value const& object, std::string const& key) {
  return tarvo::jsonio::JsonMembers::find(object, key);
}

Value keyValue(std::string const& key, Allocator& alloc) {
  return Value(key.data(), static_cast<rapidjson::SizeType>(key.size()), alloc);
}

[[noreturn]] void raise(char const* id, std::string const& file, std::string const* text = nullptr) {
  ComMsgMgrInstance message =
      text == nullptr
          ? ComMsgMgrInstance::createInstance::eval(1, __FILE__, __LINE__, "tarvo", ComMsgMgr::MSG_ERROR, id, file)
          : ComMsgMgrInstance::createInstance::eval(2, __FILE__, __LINE__, "tarvo", ComMsgMgr::MSG_ERROR, id, file,
                                                    *text);
  message.attachMetaType(0, ComMsgMgr::META_FILE, "", file);
  throw HEXAll(message);
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

void HCRapidJsonReadWriteUtils::AddStringProperty(Value& object, std::string const& key, std::string const& value,
                                                  Allocator& alloc) {
  object.AddMember(keyValue(key, alloc), Value(value.data(), static_cast<rapidjson::SizeType>(value.size()), alloc),
                   alloc);
}

void HCRapidJsonReadWriteUtils::AddBooleanProperty(Value& object, std::string const& key, bool value,
                                                   Allocator& alloc) {
  object.AddMember(keyValue(key, alloc), Value(value), alloc);
}

void HCRapidJsonReadWriteUtils::AddIntegrProperty(Value& object, std::string const& key, int value, Allocator& alloc) {
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

std::string HCRapidJsonReadWriteUtils::GetErrorMsgFromDocument(Document const& doc) {
  if (!doc.HasParseError()) return std::string();
  return "offset " + std::to_string(doc.GetErrorOffset()) + ": " + rapidjson::GetParseError_En(doc.GetParseError());
}

void HCRapidJsonReadWriteUtils::errorReadingJsonFile(std::string const& file) {
  raise("@8-100@%s", file);
}

void HCRapidJsonReadWriteUtils::errorReadingSchemaFile(std::string const& file) {
  raise("@8-102@%s", file);
}

void HCRapidJsonReadWriteUtils::errorParsingJsonFile(std::string const& file, std::string const& text) {
  raise("@8-101@%s%s", file, &text);
}

void HCRapidJsonReadWriteUtils::errorParsingSchemaFile(std::string const& file, std::string const& text) {
  raise("@8-103@%s%s", file, &text);
}

void HCRapidJsonReadWriteUtils::validateSchemaFile(std::string const& file) {
  Document schema;
  tarvo::jsonio::JsonSchemaCheck::parseSchemaFile(file, schema);
  tarvo::jsonio::JsonSchemaCheck::checkDraft04(schema, file);
}
