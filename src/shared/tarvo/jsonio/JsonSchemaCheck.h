#ifndef TARVO_JSONSCHEMACHECK_H
#define TARVO_JSONSCHEMACHECK_H

#include <rapidjson/document.h>

#include <string>

namespace tarvo {
namespace jsonio {

// Loading and checking schema files. Failures leave by the error operations of
// HCRapidJsonReadWriteUtils.
class JsonSchemaCheck {
 public:
  // Reads and parses `file`, an unreadable file going to errorReadingSchemaFile and a syntax
  // error to errorParsingSchemaFile.
  static void parseSchemaFile(std::string const& file, rapidjson::Document& doc);
  // Checks that `schema`, read from `file`, is a draft-04 JSON schema: RapidJSON's schema
  // documents assume well-formed schemas, and some malformed ones crash the validator. A
  // broken schema goes to errorParsingSchemaFile.
  static void checkDraft04(rapidjson::Document const& schema, std::string const& file);
  // Validates `doc` against the schema file at `schemaPath` (made canonical): an unreadable or
  // broken schema is reported as by parseSchemaFile, a mismatch goes to errorParsingJsonFile
  // with `fileName` and the pointer of the invalid value.
  static void validateAgainstFile(rapidjson::Document const& doc, std::string const& fileName, std::string schemaPath);
};

}  // namespace jsonio
}  // namespace tarvo

#endif
