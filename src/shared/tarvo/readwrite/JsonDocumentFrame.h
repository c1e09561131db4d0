#ifndef TARVO_JSONDOCUMENTFRAME_H
#define TARVO_JSONDOCUMENTFRAME_H

#include <rapidjson/prettywriter.h>
#include <rapidjson/schema.h>

#include <functional>
#include <iosfwd>
#include <memory>
#include <string>

#include "HCRapidJsonReadWriteUtils.h"

// The sequences that every reader and writer of the library shares: opening a file, parsing,
// finding and loading a schema, validating, and writing through a validator. Failures leave
// by the error operations of HCRapidJsonReadWriteUtils.
class JsonDocumentFrame {
 public:
  // A document allocates from a memory pool of 65536-byte chunks, RapidJSON's default.
  typedef HCRapidJsonReadWriteUtils::Document Document;
  typedef HCRapidJsonReadWriteUtils::Value Value;

  // How a file is opened: gzip-aware in binary mode (NoC traffic and solution readers), or
  // as a plain file (all others).
  enum class Opener { AutoDetect, PlainFile };

  // Where a document failed its schema: URI fragments of the schema and document places
  // (text beginning with #), and the schema keyword.
  struct SchemaViolation {
    std::string schemaPointer;
    std::string keyword;
    std::string documentPointer;
  };

  // Parses `in` into `doc`; a syntax error goes to errorParsingJsonFile with `fileName`, the
  // parser's text and the line and column.
  static void parse(std::istream& in, std::string const& fileName, Document& doc);
  // Finds the canonical schema path, opens it with `opener`, and parses it. A missing or
  // unreadable schema goes to errorReadingSchemaFile, a syntax error to
  // errorParsingSchemaFile, each with the canonical path.
  static std::unique_ptr<rapidjson::SchemaDocument> loadSchema(std::string const& schemaPath,
                                                               Opener opener = Opener::PlainFile);
  // True when `doc` matches; otherwise `violation`, if given, says where it failed.
  static bool validate(Value const& doc, rapidjson::SchemaDocument const& schema,
                       SchemaViolation* violation = nullptr);
  // The load sequence from parsing to validation: a mismatch goes to errorParsingJsonFile
  // with `fileName` and the document pointer.
  static void load(std::istream& in, std::string const& fileName, std::string const& schemaPath, Opener opener,
                   Document& doc);

  // The file form of a reader: canonicalises `fileName`, opens it with `opener`, reports a
  // missing, irregular or unreadable file with errorReadingJsonFile and the canonical name,
  // and otherwise returns the stream form's result, called with the name as given.
  static bool readFile(std::string const& fileName, Opener opener,
                       std::function<bool(std::istream&, std::string const&)> const& streamForm);

  // The write sequence after the document is built: loads the schema (failures throw),
  // writes `doc` pretty (indent two blanks) through a validator, so that text leaves only
  // as far as it is valid. On a mismatch sends "@75-585@%s" with `displayName` and returns
  // false.
  static bool write(std::ostream& out, Value const& doc, std::string const& schemaPath,
                    std::string const& displayName);
  // Writes `doc` pretty through a validator on `schema`; on a mismatch the text up to the
  // first invalid value stays in `out`, and `violation`, if given, says where.
  static bool writeValidated(std::ostream& out, Value const& doc, rapidjson::SchemaDocument const& schema,
                             rapidjson::PrettyFormatOptions format = rapidjson::kFormatDefault,
                             SchemaViolation* violation = nullptr);
  // Writes `doc` pretty with no schema.
  static void writePretty(std::ostream& out, Value const& doc,
                          rapidjson::PrettyFormatOptions format = rapidjson::kFormatDefault);

  // The file form of a writer: canonicalises `fileName`, opens it for writing, returns false
  // with no message when that fails, otherwise the stream form's result. A failed close sets
  // the stream's failure bit and changes nothing else.
  static bool writeFile(std::string const& fileName, std::function<bool(std::ostream&)> const& streamForm);

  // The canonical form of a file name.
  static std::string canonicalName(std::string const& fileName);
};

#endif
