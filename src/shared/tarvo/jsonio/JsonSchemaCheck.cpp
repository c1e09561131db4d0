#include "JsonSchemaCheck.h"

#include <rapidjson/schema.h>

#include <fstream>

#include "HCRapidJsonReadWriteUtils.h"
#include "HUTEnv.h"
#include "HUTFile.h"
#include "JsonInputStream.h"
#include "JsonParse.h"
#include "JsonPointerText.h"

namespace tarvo {
namespace jsonio {

namespace {

typedef HCRapidJsonReadWriteUtils Json;

char const* const kMetaSchema = "json-schema/draft-04-schema.json";

}  // namespace

void JsonSchemaCheck::parseSchemaFile(std::string const& file, rapidjson::Document& doc) {
  std::ifstream in(file, std::ios_base::in | std::ios_base::binary);
  if (!HUTFile(file).isFile() || !in) Json::errorReadingSchemaFile(file);
  JsonInputStream stream(in);
  rapidjson::ParseResult const result = JsonParse::parse(stream, doc);
  if (result.IsError()) Json::errorParsingSchemaFile(file, JsonParse::errorText(result, stream));
}

void JsonSchemaCheck::checkDraft04(rapidjson::Document const& schema, std::string const& file) {
  std::string const metaPath = HUTEnv::getQDSDataDir(kMetaSchema) + HUTFile::getDirSeparator() + kMetaSchema;
  rapidjson::Document meta;
  parseSchemaFile(metaPath, meta);
  rapidjson::SchemaDocument const metaSchema(meta);
  rapidjson::SchemaValidator validator(metaSchema);
  if (schema.Accept(validator)) return;
  std::string const keyword = validator.GetInvalidSchemaKeyword() ? validator.GetInvalidSchemaKeyword() : "";
  Json::errorParsingSchemaFile(file, "not a draft-04 JSON schema: the value at " +
                                         JsonPointerText::uriFragment(validator.GetInvalidDocumentPointer()) +
                                         " fails the meta-schema's \"" + keyword + "\"");
}

void JsonSchemaCheck::validateAgainstFile(rapidjson::Document const& doc, std::string const& fileName,
                                          std::string schemaPath) {
  HUTFile(schemaPath).getCanonicalName(schemaPath);
  rapidjson::Document schemaDoc;
  parseSchemaFile(schemaPath, schemaDoc);
  rapidjson::SchemaDocument const schema(schemaDoc);
  rapidjson::SchemaValidator validator(schema);
  if (!doc.Accept(validator))
    Json::errorParsingJsonFile(fileName, JsonPointerText::uriFragment(validator.GetInvalidDocumentPointer()));
}

}  // namespace jsonio
}  // namespace tarvo
