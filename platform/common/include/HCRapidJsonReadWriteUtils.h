#ifndef HCRAPIDJSONREADWRITEUTILS_H
#define HCRAPIDJSONREADWRITEUTILS_H

#include <rapidjson/document.h>
#include <rapidjson/error/error.h>
#include <rapidjson/pointer.h>

#include <iosfwd>
#include <string>
#include <vector>

class HCJsonInputStream;

// Typed access to members of RapidJSON objects, and the reports of JSON and schema files.
// No operation touches a value it has not tested: a missing key or a value of another kind
// reads as the empty or zero value of the getter's type.
class HCRapidJsonReadWriteUtils {
 public:
  typedef rapidjson::MemoryPoolAllocator<> Allocator;
  typedef rapidjson::GenericValue<rapidjson::UTF8<>, Allocator> Value;
  typedef rapidjson::GenericDocument<rapidjson::UTF8<>, Allocator> Document;

  // Documents nest no deeper than this; deeper text is refused as a parse error before the
  // recursive parser or the validator can be hurt by it.
  static constexpr unsigned kMaxNestingDepth = 512;

  static std::string GetStringProperty(Value const& object, std::string const& key);
  static bool GetBooleanProperty(Value const& object, std::string const& key);
  // A number with a fraction reads as its integer part when that fits 32 bits.
  static int GetIntegrProperty(Value const& object, std::string const& key);
  static unsigned long long GetULongProperty(Value const& object, std::string const& key);
  // Any number reads as a double.
  static double GetDoubleProperty(Value const& object, std::string const& key);
  // The string items of an array; items of another kind are passed over.
  static std::vector<std::string> GetStringArrayProperty(Value const& object, std::string const& key);

  // True when the member exists and is of that kind. A double is a number written with a
  // fraction or exponent; an integer fits 32 bits signed; a ulong fits 64 bits unsigned.
  static bool IsStringProperty(Value const& object, std::string const& key);
  static bool IsBooleanProperty(Value const& object, std::string const& key);
  static bool IsIntegrProperty(Value const& object, std::string const& key);
  static bool IsULongProperty(Value const& object, std::string const& key);
  static bool IsDoubleProperty(Value const& object, std::string const& key);
  static bool IsArrayProperty(Value const& object, std::string const& key);
  static bool IsObjectProperty(Value const& object, std::string const& key);

  // Each appends one member, copying key and value into the allocator.
  static void AddStringProperty(Value& object, std::string const& key, std::string const& value, Allocator& alloc);
  static void AddBooleanProperty(Value& object, std::string const& key, bool value, Allocator& alloc);
  static void AddIntegrProperty(Value& object, std::string const& key, int value, Allocator& alloc);
  static void AddULongProperty(Value& object, std::string const& key, unsigned long long value, Allocator& alloc);
  static void AddDoubleProperty(Value& object, std::string const& key, double value, Allocator& alloc);
  static void AddStringArrayProperty(Value& object, std::string const& key, std::vector<std::string> const& value,
                                     Allocator& alloc);
  static void AddGenericValueProperty(Value& object, std::string const& key, Value const& value, Allocator& alloc);

  // Parses the stream into `doc` with the default flags, refusing nesting deeper than
  // kMaxNestingDepth. The document's own error state is not set; the result carries it.
  static rapidjson::ParseResult ParseStream(HCJsonInputStream& in, Document& doc);
  // ParseStream on `in`, a syntax error going to errorParsingJsonFile with `fileName`.
  static void ParseJsonStream(std::istream& in, std::string const& fileName, Document& doc);
  // Validates `doc` against the schema file at `schemaPath` (made canonical): an unreadable or
  // broken schema goes to errorReadingSchemaFile or errorParsingSchemaFile, a mismatch to
  // errorParsingJsonFile with `fileName` and the pointer of the invalid value.
  static void ValidateAgainstSchemaFile(Document const& doc, std::string const& fileName, std::string schemaPath);

  // "<parser text> (offset N)" for a document parsed with its own Parse operations.
  static std::string GetErrorMsgFromDocument(Document const& doc);
  // "<parser text> at line L, column C" for a parse through ParseStream.
  static std::string GetErrorMsgFromParse(rapidjson::ParseResult const& result, HCJsonInputStream const& in);

  // "#/a/0": a pointer as a URI fragment, in RapidJSON's form. RapidJSON's own writing reads
  // past the end of a key that isn't valid UTF-8; here such bytes are percent-encoded one
  // by one.
  static std::string GetUriFragment(rapidjson::Pointer const& pointer);

  [[noreturn]] static void errorReadingJsonFile(std::string const& file);
  [[noreturn]] static void errorReadingSchemaFile(std::string const& file);
  [[noreturn]] static void errorParsingJsonFile(std::string const& file, std::string const& text);
  [[noreturn]] static void errorParsingSchemaFile(std::string const& file, std::string const& text);

  // Checks that `file` holds a JSON schema that draft-04's meta-schema accepts; reports an
  // unreadable file, a syntax error or a broken schema through the error operations above.
  static void validateSchemaFile(std::string const& file);
  // The same check on a schema already parsed from `file`: RapidJSON's schema documents
  // assume well-formed schemas, and some malformed ones crash the validator.
  static void validateSchemaDocument(Document const& schema, std::string const& file);
};

#endif
