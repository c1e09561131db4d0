#ifndef TARVO_CONSTRREADER_H
#define TARVO_CONSTRREADER_H

#include <rapidjson/schema.h>

#include <array>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include "BaseConstraint.h"
#include "ComMsgMgr.h"
#include "PhysicalRange.h"

namespace kpe {
namespace constraints {

class Address;
class BaseNameResolver;
class ConstrHandler;
class ConstrSourceScanner;
struct ConstrSourcePosition;

// Reads a constraint document into a ConstrHandler through its set and add operations. Names
// of the document pass through a BaseNameResolver on the way in. Each constraint learns
// where it stands in the file, from source members or by a search of the file's text.
// Failures leave by exception; what reached the store before stays.
class ConstrReader {
 public:
  // With a resolver of its own that maps every name to itself.
  explicit ConstrReader(ConstrHandler& store);
  // `resolver` must outlive the reader.
  ConstrReader(ConstrHandler& store, BaseNameResolver const& resolver);
  virtual ~ConstrReader();
  ConstrReader(ConstrReader const&) = delete;
  ConstrReader& operator=(ConstrReader const&) = delete;

  // A schema file to use instead of the installed one.
  void setSchema(std::string const& file);

  void read(std::istream& in, std::string const& fileName, bool validate);
  void read(std::string const& fileName, bool validate);
  // Reads only "GlobalConstraints".
  void readAreaGroupConstrs(std::istream& in, std::string const& fileName, bool validate);
  void readAreaGroupConstrs(std::string const& fileName, bool validate);

 private:
  typedef BaseConstraint::ObjectType ObjectType;
  typedef void (BaseNameResolver::*ListResolver)(std::vector<std::string>&) const;
  enum class Scope { Whole, GlobalOnly };
  enum class NameList { Colocated, NotColocated, Exclusive };
  struct NameItems {
    std::vector<std::string> names;
    std::vector<bool> soft;
  };
  typedef ConstrSourcePosition Position;

  void readFile(std::string const& fileName, bool validate, Scope scope);
  void readStream(std::istream& in, std::string const& fileName, bool validate, Scope scope);
  void reset();
  std::string findSchemaFile() const;
  void loadSchema();
  void parseAndValidate(std::istream& in, bool validate);

  void readConstraints();
  void readInChildStore(bool soft);
  void readSections();
  void readNodeConstraints(JsonValue const& section);
  void readPortConstraints(JsonValue const& section);
  void readNetConstraints(JsonValue const& section);
  void readGlobalConstraints(JsonValue const& section);
  void readFifoRecords(JsonValue const& records);

  // Walks the kind members of a node or port object, each followed by its source.
  void readObject(JsonValue const& object, std::string const& name, ObjectType type);
  void readNodeKey(std::string const& name, std::string const& key, JsonValue const& value);
  void readPortKey(std::string const& name, std::string const& key, JsonValue const& value);
  void readAttribute(ObjectType type, std::string const& name, std::string const& key, JsonValue const& value);

  void readTile(std::string const& name, JsonValue const& value);
  void readShim(std::string const& name, JsonValue const& value);
  void readPortLoc(std::string const& name, JsonValue const& value);
  void readStreamChannel(std::string const& name, JsonValue const& value);
  void readMem(std::string const& name, JsonValue const& value);
  void readBuffers(std::string const& name, JsonValue const& value);
  // The addresses of "mem" or "buffers" into unset ones; false, with a message, when the
  // array is unfit.
  bool readAddresses(std::string const& name, std::string const& key, JsonValue const& value,
                     std::array<Address, 3>& addresses);
  void readColocatedNodeLists(BaseConstraint::ConstrType kind, ObjectType type, std::string const& name,
                              JsonValue const& value, bool notColocated, bool onlyIfAny);
  void readColocatedPorts(std::string const& name, JsonValue const& value, NameList list);
  void readColocatedDma(std::string const& name, JsonValue const& value);
  void readFifoLocations(std::string const& name, JsonValue const& value);
  void readRelativeNodes(std::string const& name, JsonValue const& value);
  NameItems readNameItems(JsonValue const& value, ListResolver resolve) const;
  // The string items of an array (none for a missing value), resolved as one list.
  std::vector<std::string> readNames(JsonValue const* value, ListResolver resolve) const;

  void readAreaGroup(JsonValue const& group);
  void readInstGroup(JsonValue const& group);
  void readDependentRoutingGroup(JsonValue const& group);
  void readIsomorphicGraphGroup(JsonValue const& group);
  void readRanges(JsonValue const& group, std::string const& groupName, PhysicalSpec::PhysicalType type,
                  std::vector<PhysicalRange>& ranges);
  // One range item; false, with a message, when it has no low place.
  bool readRange(JsonValue const& item, std::string const& groupName, PhysicalSpec::PhysicalType type,
                 PhysicalRange& range);
  PhysicalSpec readPlace(JsonValue const* value, PhysicalSpec::PhysicalType type, std::string const& groupName);
  PhysicalSpec readPlaceText(std::string const& text, PhysicalSpec::PhysicalType type, std::string const& groupName);
  void readGroupSource(BaseConstraint::ConstrType kind, std::string const& name, JsonValue const& object);

  // The source a key of an object stands for, or null.
  SrcInfo* sourceOf(std::string const& name, std::string const& key) const;
  void scanSource(std::string const& name, std::string const& key);
  // The position of `key` behind `name`, or of `name` alone when `key` is null; 0 and 0,
  // after the reader's messages, when the file cannot be searched.
  Position scan(std::string const& name, std::string const* key);
  void setScannedSource(SrcInfo& info, Position const& position);
  void readExplicitSource(std::string const& name, std::string const& key, JsonValue const& source);
  static void readExplicitSource(SrcInfo& info, JsonValue const& source);
  ConstrSourceScanner& scanner();
  // Sends the messages of a file that cannot be scanned; true when it can.
  bool announceScan();
  std::string const& recordFileName();

  // Where an object, or a key of it, stands, for the messages of the reader.
  Position positionOf(std::string const& name, std::string const& key = std::string());
  void report(int srcLine, ComMsgMgr::MsgMask mask, char const* id, std::vector<std::string> args,
              Position const& position);

  ConstrHandler& m_store;
  std::unique_ptr<BaseNameResolver> m_ownedResolver;
  BaseNameResolver const* m_resolver;
  std::unique_ptr<rapidjson::SchemaDocument> m_schema;
  std::unique_ptr<JsonDocument> m_doc;
  // The kind that a position found by scanning receives; always false.
  bool const m_positionFlag = false;
  std::string m_fileName;
  std::string m_schemaOverride;
  std::unique_ptr<ConstrSourceScanner> m_scanner;
  std::string m_recordFileName;
  bool m_recordFileNameMade = false;
};

}  // namespace constraints
}  // namespace kpe

#endif
