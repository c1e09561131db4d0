#ifndef TARVO_HCRAPIDJSONREADWRITEUTILS_H
#define TARVO_HCRAPIDJSONREADWRITEUTILS_H

#include <rapidjson/document.h>

#include <string>
#include <vector>

// Typed access to members of RapidJSON objects, and the reports of JSON and schema files.
// No operation touches a value it has not tested: a missing key or a value of another kind
// reads as the empty or zero value of the getter's type.
class HCRapidJsonReadWriteUtils {
 public:
  typedef rapidjson::MemoryPoolAllocator<> Allocator;
  typedef rapidjson::GenericValue<rapidjson::UTF8<>, Allocator> Value;
  typedef rapidjson::GenericDocument<rapidjson::UTF8<>, Allocator> Document;

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

  // Each appends one member, copying key and value into the allocator.
  static void AddStringProperty(Value& object, std::string const& key, std::string const& value, Allocator& alloc);
  static void AddBooleanProperty(Value& object, std::string const& key, bool value, Allocator& alloc);
  static void AddIntegrProperty(Value& object, std::string const& key, int value, Allocator& alloc);
  static void AddULongProperty(Value& object, std::string const& key, unsigned long long value, Allocator& alloc);
  static void AddDoubleProperty(Value& object, std::string const& key, double value, Allocator& alloc);
  static void AddStringArrayProperty(Value& object, std::string const& key, std::vector<std::string> const& value,
                                     Allocator& alloc);
  static void AddGenericValueProperty(Value& object, std::string const& key, Value const& value, Allocator& alloc);

  // "<parser text> (offset N)" for a document parsed with its own Parse operations.
  static std::string GetErrorMsgFromDocument(Document const& doc);

  [[noreturn]] static void errorReadingJsonFile(std::string const& file);
  [[noreturn]] static void errorReadingSchemaFile(std::string const& file);
  [[noreturn]] static void errorParsingJsonFile(std::string const& file, std::string const& text);
  [[noreturn]] static void errorParsingSchemaFile(std::string const& file, std::string const& text);

  // Checks that `file` holds a JSON schema that draft-04's meta-schema accepts; reports an
  // unreadable file, a syntax error or a broken schema through the error operations above.
  static void validateSchemaFile(std::string const& file);
};

#endif
