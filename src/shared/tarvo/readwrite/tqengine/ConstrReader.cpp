#include "ConstrReader.h"

#include <cstring>
#include <fstream>
#include <istream>
#include <string_view>

#include "Address.h"
#include "BaseNameResolver.h"
#include "ColocationConstraints.h"
#include "ComMsgMgrInstance.h"
#include "ConstrDocumentKeys.h"
#include "ConstrHandler.h"
#include "ConstrJsonViews.h"
#include "ConstrPlaceText.h"
#include "ConstrSourceScanner.h"
#include "ConstrWriter.h"
#include "GroupConstraints.h"
#include "HEXAlgException.h"
#include "HEXAll.h"
#include "HUTEnv.h"
#include "HUTFile.h"
#include "HUTFileUtils.h"
#include "JsonDocumentFrame.h"
#include "StringScan.h"

using tarvo::jsonio::StringScan;

namespace kpe {
namespace constraints {

typedef ConstrDocumentKeys Keys;

namespace {

std::size_t const kParseStackCapacity = 1024;

std::string const& text(JsonValue const& name, std::string& buffer) {
  buffer.assign(name.GetString(), name.GetStringLength());
  return buffer;
}

// Whether the member name is `key` followed by the source suffix; asked for every key.
bool isSourceKeyOf(JsonValue const& name, std::string const& key) {
  std::size_t const suffixSize = std::strlen(Keys::srcInfoSuffix);
  return name.GetStringLength() == key.size() + suffixSize &&
         key.compare(0, key.size(), name.GetString(), key.size()) == 0 &&
         std::memcmp(name.GetString() + key.size(), Keys::srcInfoSuffix, suffixSize) == 0;
}

// The section `key` of the root, if it is an object with members.
JsonValue const* section(JsonValue const& root, char const* key) {
  json::JBaseValue const found(root, key);
  return found.isValid() && found.value()->IsObject() && found.value()->MemberCount() > 0 ? found.value() : nullptr;
}

int intMember(JsonValue const& object, char const* key) {
  return json::JInt(object, key).get();
}

std::string stringMember(JsonValue const& object, char const* key) {
  return json::JString(object, key).get();
}

bool trueMember(JsonValue const& object, char const* key) {
  return json::JBool(object, key).get();
}

void readAddress(JsonValue const& object, Address& address) {
  address.setColumn(intMember(object, Keys::column));
  address.setRow(intMember(object, Keys::row));
  address.setBankId(intMember(object, Keys::bankId));
  address.setOffset(intMember(object, Keys::offset));
}

// The messages of a range item with no low place, by list: with the item's text, without.
struct RangeMessages {
  char const* withText;
  char const* withoutText;
};

RangeMessages rangeMessages(PhysicalSpec::PhysicalType type) {
  switch (type) {
    case PhysicalSpec::SHIM:
      return {"@75-595@%s%s%s", "@75-587@%s%s"};
    case PhysicalSpec::MEM:
      return {"@75-748@%s%s%s", "@75-747@%s%s"};
    default:
      return {"@75-596@%s%s%s", "@75-588@%s%s"};
  }
}

template <class View, class Source>
PhysicalSpec placeFrom(Source const& source, bool& balanced) {
  View const place(source);
  balanced = place.balanced();
  return place.spec();
}

// One place of a range list; `source` is a JSON value or a piece of a place text.
template <class Source>
PhysicalSpec rangePlace(Source const& source, PhysicalSpec::PhysicalType type, bool& balanced) {
  switch (type) {
    case PhysicalSpec::SHIM:
      return placeFrom<json::JShimValue>(source, balanced);
    case PhysicalSpec::MEM:
      return placeFrom<json::JMemValue>(source, balanced);
    default:
      return placeFrom<json::JTileValue>(source, balanced);
  }
}

}  // namespace

ConstrReader::ConstrReader(ConstrHandler& store)
    : m_store(store), m_ownedResolver(new BaseNameResolver()), m_resolver(m_ownedResolver.get()) {}

ConstrReader::ConstrReader(ConstrHandler& store, BaseNameResolver const& resolver)
    : m_store(store), m_resolver(&resolver) {}

ConstrReader::~ConstrReader() = default;

void ConstrReader::setSchema(std::string const& file) {
  m_schemaOverride = file;
}

void ConstrReader::read(std::istream& in, std::string const& fileName, bool validate) {
  readStream(in, fileName, validate, Scope::Whole);
}

void ConstrReader::read(std::string const& fileName, bool validate) {
  readFile(fileName, validate, Scope::Whole);
}

void ConstrReader::readAreaGroupConstrs(std::istream& in, std::string const& fileName, bool validate) {
  readStream(in, fileName, validate, Scope::GlobalOnly);
}

void ConstrReader::readAreaGroupConstrs(std::string const& fileName, bool validate) {
  readFile(fileName, validate, Scope::GlobalOnly);
}

// The reasons of checkFileForReading are not kept: an unreadable file is reported by the
// stream's state, with the name as the caller gave it.
void ConstrReader::readFile(std::string const& fileName, bool validate, Scope scope) {
  std::vector<std::string> problems;
  HUTFileUtils::checkFileForReading(fileName, problems);
  std::ifstream in(fileName, std::ios_base::in | std::ios_base::binary);
  readStream(in, fileName, validate, scope);
}

void ConstrReader::readStream(std::istream& in, std::string const& fileName, bool validate, Scope scope) {
  reset();
  // Whatever way the read ends, the document, the schema and the file index go with it.
  struct ResetOnExit {
    ConstrReader& reader;
    ~ResetOnExit() { reader.reset(); }
  } const resetOnExit{*this};

  if (in.rdstate() != std::ios_base::goodbit) HCRapidJsonReadWriteUtils::errorReadingJsonFile(fileName);
  m_fileName = fileName;
  loadSchema();
  parseAndValidate(in, validate);
  if (scope == Scope::Whole) {
    readConstraints();
  } else if (JsonValue const* global = section(*m_doc, Keys::globalConstraints)) {
    readGlobalConstraints(*global);
  }
}

void ConstrReader::reset() {
  m_schema.reset();
  m_doc.reset();
  m_fileName.clear();
  m_scanner.reset();
  m_recordFileName.clear();
  m_recordFileNameMade = false;
}

std::string ConstrReader::findSchemaFile() const {
  if (!m_schemaOverride.empty()) return m_schemaOverride;
  std::string const installed = ConstrWriter::findInstalledSchemaFile();
  if (!installed.empty()) return installed;
  ComMsgMgrInstance const message =
      ComMsgMgrInstance::createInstance::eval(0, __FILE__, __LINE__, "tarvo", ComMsgMgr::MSG_ERROR, "@75-391@");
  throw HEXAll(message);
}

void ConstrReader::loadSchema() {
  std::string const path = findSchemaFile();
  HCRapidJsonReadWriteUtils::validateSchemaFile(path);
  m_schema = JsonDocumentFrame::loadSchema(path);
}

void ConstrReader::parseAndValidate(std::istream& in, bool validate) {
  m_doc.reset(new JsonDocument(nullptr, kParseStackCapacity));
  JsonDocumentFrame::parse(in, m_fileName, *m_doc);
  JsonDocumentFrame::SchemaViolation violation;
  if (!validate || JsonDocumentFrame::validate(*m_doc, *m_schema, &violation)) return;
  ComMsgMgrInstance message = ComMsgMgrInstance::createInstance::eval(
      4, __FILE__, __LINE__, "tarvo", ComMsgMgr::MSG_ERROR, "@75-571@%s%s%s%s", m_fileName, violation.schemaPointer,
      violation.keyword, violation.documentPointer);
  message.attachMetaType(0, ComMsgMgr::META_FILE, "", m_fileName);
  throw HEXAll(message);
}

void ConstrReader::readConstraints() {
  bool const toolGenerated = trueMember(*m_doc, Keys::isToolGenerated);
  bool const soft = trueMember(*m_doc, Keys::isSoft);
  if (!toolGenerated || !m_store.hasToolGeneratedStores())
    readSections();
  else
    readInChildStore(soft);
}

// A tool-generated document belongs to a child store of its hardness, and a reader of that
// store reads the file again by its name.
void ConstrReader::readInChildStore(bool soft) {
  std::string const fileName = m_fileName;
  std::string const schemaOverride = m_schemaOverride;
  ConstrHandler* child = m_store.getToolGeneratedStore(soft);
  if (child == nullptr)
    throw HEXAlgException(
        "ConstrReader::readConstraints() - could not get the child tool generated constraint handler");
  ComMsgMgr::sendMsg::eval(2, __FILE__, __LINE__, "tarvo", ComMsgMgr::MSG_INFO, "@75-648@%s%s", fileName,
                           soft ? "soft" : "hard");
  ComMsgMgr::sendMsg::eval(1, __FILE__, __LINE__, "tarvo", ComMsgMgr::MSG_INFO, "@75-4193@%s", findSchemaFile());
  reset();
  ConstrReader childReader(*child, *m_resolver);
  childReader.setSchema(schemaOverride);
  childReader.read(fileName, true);
}

void ConstrReader::readSections() {
  JsonValue const& root = *m_doc;
  JsonValue const* const nodes = section(root, Keys::nodeConstraints);
  JsonValue const* const ports = section(root, Keys::portConstraints);
  JsonValue const* const nets = section(root, Keys::netConstraints);
  m_store.reserveObjects((nodes ? nodes->MemberCount() : 0) + (ports ? ports->MemberCount() : 0) +
                         (nets ? nets->MemberCount() : 0));
  if (nodes) readNodeConstraints(*nodes);
  if (ports) readPortConstraints(*ports);
  if (nets) readNetConstraints(*nets);
  if (JsonValue const* global = section(root, Keys::globalConstraints)) readGlobalConstraints(*global);
}

void ConstrReader::readNodeConstraints(JsonValue const& nodes) {
  std::string documentName;
  for (auto const& member : nodes.GetObject()) {
    std::string const name = m_resolver->resolveNodeName(text(member.name, documentName));
    if (name.empty()) {
      report(__LINE__, ComMsgMgr::MSG_CRITICAL_WARNING, "@75-407@%s", {documentName}, positionOf(documentName));
      continue;
    }
    readObject(member.value, name, BaseConstraint::NODE);
  }
}

void ConstrReader::readPortConstraints(JsonValue const& ports) {
  std::string documentName;
  for (auto const& member : ports.GetObject()) {
    if (text(member.name, documentName) == "fifo_locations_records") {
      readFifoRecords(member.value);
      continue;
    }
    std::string const name = m_resolver->resolvePortName(documentName);
    if (!name.empty()) {
      readObject(member.value, name, BaseConstraint::PORT);
      continue;
    }
    std::string const scope = m_resolver->getScopeName();
    if (!scope.empty())
      report(__LINE__, ComMsgMgr::MSG_CRITICAL_WARNING, "@75-497@%s%s", {documentName, scope},
             positionOf(documentName));
    else
      report(__LINE__, ComMsgMgr::MSG_CRITICAL_WARNING, "@75-498@%s", {documentName}, positionOf(documentName));
  }
}

// Attributes only; a net key's source is searched for, then taken from its source member
// wherever that stands in the object.
void ConstrReader::readNetConstraints(JsonValue const& nets) {
  std::string documentName;
  std::string key;
  for (auto const& member : nets.GetObject()) {
    std::string const name = m_resolver->resolveNetName(text(member.name, documentName));
    if (name.empty()) {
      report(__LINE__, ComMsgMgr::MSG_CRITICAL_WARNING, "@75-408@%s", {documentName}, positionOf(documentName));
      continue;
    }
    if (!member.value.IsObject()) continue;
    for (auto const& entry : member.value.GetObject()) {
      text(entry.name, key);
      if (!StringScan::endsWith(key, Keys::srcInfoSuffix)) readAttribute(BaseConstraint::NET, name, key, entry.value);
      scanSource(name, key);
      json::JBaseValue const source(member.value, (key + Keys::srcInfoSuffix).c_str());
      if (source.isValid()) readExplicitSource(name, key, *source.value());
    }
  }
}

void ConstrReader::readGlobalConstraints(JsonValue const& global) {
  for (auto const& member : global.GetObject()) {
    std::string_view const word(member.name.GetString(), member.name.GetStringLength());
    if (word == "areaGroup")
      readAreaGroup(member.value);
    else if (word == "instGroup")
      readInstGroup(member.value);
    else if (word == "dependentRoutingGroup")
      readDependentRoutingGroup(member.value);
    else if (word == "isomorphicGraphGroup")
      readIsomorphicGraphGroup(member.value);
  }
}

void ConstrReader::readFifoRecords(JsonValue const& records) {
  std::string name;
  json::JBaseValue const dma(records, Keys::dmaFifos);
  if (dma.isValid() && dma.value()->IsObject()) {
    for (auto const& record : dma.value()->GetObject()) {
      JsonValue const& fields = record.value;
      m_store.addDmaFifoRecord(
          text(record.name, name), PhysicalSpec::toPhysicalSpecTileType(stringMember(fields, Keys::tileType)),
          intMember(fields, Keys::column), intMember(fields, Keys::row), intMember(fields, Keys::size),
          intMember(fields, Keys::offset), intMember(fields, Keys::bankId));
    }
  }
  json::JBaseValue const stream(records, Keys::streamFifos);
  if (stream.isValid() && stream.value()->IsObject()) {
    for (auto const& record : stream.value()->GetObject()) {
      JsonValue const& fields = record.value;
      m_store.addStreamFifoRecord(
          text(record.name, name), PhysicalSpec::toPhysicalSpecTileType(stringMember(fields, Keys::tileType)),
          intMember(fields, Keys::column), intMember(fields, Keys::row), intMember(fields, Keys::channel));
    }
  }
}

// An explicit source counts only directly behind its key; everything else is searched for.
void ConstrReader::readObject(JsonValue const& object, std::string const& name, ObjectType type) {
  if (!object.IsObject()) return;
  std::string key;
  for (auto member = object.MemberBegin(); member != object.MemberEnd(); ++member) {
    text(member->name, key);
    if (type == BaseConstraint::NODE)
      readNodeKey(name, key, member->value);
    else
      readPortKey(name, key, member->value);
    auto const next = member + 1;
    if (next != object.MemberEnd() && isSourceKeyOf(next->name, key)) {
      readExplicitSource(name, key, next->value);
      member = next;
    } else {
      scanSource(name, key);
    }
  }
}

void ConstrReader::readNodeKey(std::string const& name, std::string const& key, JsonValue const& value) {
  std::string_view const word(key);  // compared by length first
  if (word == "tile")
    readTile(name, value);
  else if (word == "mem")
    readMem(name, value);
  else if (word == "shim")
    readShim(name, value);
  else if (word == "reserved_memory") {
    Address address;
    readAddress(value, address);
    if (address.isSpecified()) m_store.setReservedMemoryConstr(name, address);
  } else if (word == "colocated_nodes")
    readColocatedNodeLists(BaseConstraint::COLOCATED_NODES, BaseConstraint::NODE, name, value, false, true);
  else if (word == "not_colocated_nodes")
    readColocatedNodeLists(BaseConstraint::COLOCATED_NODES, BaseConstraint::NODE, name, value, true, true);
  else if (word == "relative_nodes")
    readRelativeNodes(name, value);
  else if (word == "colocated_reserved_memories")
    readColocatedNodeLists(BaseConstraint::COLOCATED_MEMORIES, BaseConstraint::NODE, name, value, false, true);
  else if (word == "not_colocated_reserved_memories")
    readColocatedNodeLists(BaseConstraint::COLOCATED_MEMORIES, BaseConstraint::NODE, name, value, true, true);
  else if (!StringScan::endsWith(key, Keys::srcInfoSuffix))
    readAttribute(BaseConstraint::NODE, name, key, value);
}

void ConstrReader::readPortKey(std::string const& name, std::string const& key, JsonValue const& value) {
  std::string_view const word(key);  // compared by length first
  if (word == "buffers")
    readBuffers(name, value);
  else if (word == "stream_channel")
    readStreamChannel(name, value);
  else if (word == "colocated_nodes")
    readColocatedNodeLists(BaseConstraint::COLOCATED_NODES, BaseConstraint::PORT, name, value, false, false);
  else if (word == "not_colocated_nodes")
    readColocatedNodeLists(BaseConstraint::COLOCATED_NODES, BaseConstraint::PORT, name, value, true, false);
  else if (word == "colocated_ports")
    readColocatedPorts(name, value, NameList::Colocated);
  else if (word == "not_colocated_ports")
    readColocatedPorts(name, value, NameList::NotColocated);
  else if (word == "exclusive_colocated_ports")
    readColocatedPorts(name, value, NameList::Exclusive);
  else if (word == "colocated_dma")
    readColocatedDma(name, value);
  else if (word == "colocated_reserved_memories")
    readColocatedNodeLists(BaseConstraint::COLOCATED_MEMORIES, BaseConstraint::PORT, name, value, false, true);
  else if (word == "not_colocated_reserved_memories")
    readColocatedNodeLists(BaseConstraint::COLOCATED_MEMORIES, BaseConstraint::PORT, name, value, true, true);
  else if (word == "fifo_locations")
    readFifoLocations(name, value);
  else if (word == "port_loc")
    readPortLoc(name, value);
  else if (!StringScan::endsWith(key, Keys::srcInfoSuffix))
    readAttribute(BaseConstraint::PORT, name, key, value);
}

// By the JSON kind of the value; integers beyond 32 bits, null, arrays and objects are
// dropped in silence.
void ConstrReader::readAttribute(ObjectType type, std::string const& name, std::string const& key,
                                 JsonValue const& value) {
  if (value.IsBool())
    m_store.setAttrConstr(type, name, key, value.GetBool());
  else if (value.IsInt())
    m_store.setAttrConstr(type, name, key, value.GetInt());
  else if (value.IsDouble())
    m_store.setAttrConstr(type, name, key, value.GetDouble());
  else if (value.IsString())
    m_store.setAttrConstr(type, name, key, std::string(value.GetString(), value.GetStringLength()));
}

void ConstrReader::readTile(std::string const& name, JsonValue const& value) {
  std::string const tileName = stringMember(value, Keys::name);
  if (!tileName.empty()) {
    m_store.setTileConstr(name, tileName);
    return;
  }
  json::JInt const column(value, Keys::column);
  json::JInt const row(value, Keys::row);
  if (!column.isValid() && !row.isValid()) return;
  std::string tileType = stringMember(value, Keys::tileType);
  if (tileType.empty()) tileType = "core";
  m_store.setTileConstr(name, column.get(), row.get(), PhysicalSpec::toPhysicalSpecTileType(tileType));
}

void ConstrReader::readShim(std::string const& name, JsonValue const& value) {
  std::string const shimName = stringMember(value, Keys::name);
  if (!shimName.empty()) {
    m_store.setShimConstr(name, shimName);
    return;
  }
  int const column = intMember(value, Keys::column);
  if (column > -1) m_store.setShimConstr(name, column, intMember(value, Keys::channel));
}

void ConstrReader::readPortLoc(std::string const& name, JsonValue const& value) {
  std::string const shimName = stringMember(value, Keys::name);
  if (!shimName.empty()) {
    m_store.setPortLocConstr(name, shimName, intMember(value, Keys::channel));
    return;
  }
  std::string tileType = stringMember(value, Keys::tileType);
  if (tileType.empty()) tileType = "shim";
  int const column = intMember(value, Keys::column);
  if (column > -1)
    m_store.setPortLocConstr(name, PhysicalSpec::toPhysicalSpecTileType(tileType), column, intMember(value, Keys::row),
                             intMember(value, Keys::channel));
}

void ConstrReader::readStreamChannel(std::string const& name, JsonValue const& value) {
  int const column = intMember(value, Keys::column);
  int const row = intMember(value, Keys::row);
  int const offset = intMember(value, Keys::offset);
  int const channel = intMember(value, Keys::channel);
  std::string const direction = stringMember(value, Keys::direction);
  if (column >= 0 && row >= 0)
    m_store.setStreamChannelConstr(name, column, row, channel, direction);
  else if (offset >= 0 && !direction.empty())
    m_store.setStreamChannelConstr(name, offset, channel, direction);
}

void ConstrReader::readMem(std::string const& name, JsonValue const& value) {
  std::array<Address, 3> addresses;
  if (readAddresses(name, Keys::mem, value, addresses)) m_store.setMemConstr(name, addresses[0], addresses[1]);
}

void ConstrReader::readBuffers(std::string const& name, JsonValue const& value) {
  std::array<Address, 3> addresses;
  if (readAddresses(name, Keys::buffers, value, addresses))
    m_store.setBufferConstr(name, addresses[0], addresses[1], addresses[2]);
}

// Fills the given addresses (ping, pong, rtpSelector), leaving the missing ones unset.
bool ConstrReader::readAddresses(std::string const& name, std::string const& key, JsonValue const& value,
                                 std::array<Address, 3>& addresses) {
  char const* problem = nullptr;
  if (!value.IsArray())
    problem = "@75-579@%s%s";
  else if (value.Empty())
    problem = "@75-574@%s%s";
  else if (value.Size() > 3)
    problem = "@75-584@%s%s";
  if (problem != nullptr) {
    report(__LINE__, ComMsgMgr::MSG_CRITICAL_WARNING, problem, {m_fileName, name}, positionOf(name, key));
    return false;
  }
  for (rapidjson::SizeType i = 0; i < value.Size(); ++i)
    readAddress(value[i], addresses[i]);
  return true;
}

std::vector<std::string> ConstrReader::readNames(JsonValue const* value, ListResolver resolve) const {
  std::vector<std::string> names = json::JStringArray(value).get();
  (m_resolver->*resolve)(names);
  return names;
}

// Each item is resolved by itself and may become several names, all with its soft mark.
ConstrReader::NameItems ConstrReader::readNameItems(JsonValue const& value, ListResolver resolve) const {
  NameItems items;
  for (json::JObjectArrayWithProperties::Item const& item : json::JObjectArrayWithProperties(&value).get()) {
    std::vector<std::string> resolved(1, item.name);
    (m_resolver->*resolve)(resolved);
    for (std::string const& name : resolved) {
      items.names.push_back(name);
      items.soft.push_back(item.soft);
    }
  }
  return items;
}

// Colocated nodes and colocated memories share their lists and their reading.
void ConstrReader::readColocatedNodeLists(BaseConstraint::ConstrType kind, ObjectType type, std::string const& name,
                                          JsonValue const& value, bool notColocated, bool onlyIfAny) {
  NameItems const items = readNameItems(value, &BaseNameResolver::resolveNodeNames);
  if (onlyIfAny && items.names.empty()) return;
  ColocatedNodeListsConstr* constraint = nullptr;
  if (kind == BaseConstraint::COLOCATED_NODES) {
    m_store.addColocatedNodesConstr(type, name, items.names, notColocated);
    constraint = m_store.getColocatedNodesConstr(name);
  } else {
    m_store.addColocatedMemoriesConstr(type, name, items.names, notColocated);
    constraint = m_store.getColocatedMemoriesConstr(name);
  }
  if (constraint == nullptr) return;
  for (std::size_t i = 0; i < items.names.size(); ++i) {
    ConstrProperties properties;
    properties.soft = items.soft[i];
    if (notColocated)
      constraint->setNotColocatedConstrObjectProperties(items.names[i], properties);
    else
      constraint->setConstrObjectProperties(items.names[i], properties);
  }
}

void ConstrReader::readColocatedPorts(std::string const& name, JsonValue const& value, NameList list) {
  NameItems const items = readNameItems(value, &BaseNameResolver::resolvePortNames);
  if (list == NameList::Exclusive)
    m_store.addExclusiveColocatedPortsConstr(BaseConstraint::PORT, name, items.names);
  else
    m_store.addColocatedPortsConstr(BaseConstraint::PORT, name, items.names, list == NameList::NotColocated);
  ColocatedPortsConstr* constraint = m_store.getColocatedPortsConstr(name);
  if (constraint == nullptr) return;
  for (std::size_t i = 0; i < items.names.size(); ++i) {
    ConstrProperties properties;
    properties.soft = items.soft[i];
    if (list == NameList::Colocated)
      constraint->setConstrObjectProperties(items.names[i], properties);
    else if (list == NameList::NotColocated)
      constraint->setNotColocatedConstrObjectProperties(items.names[i], properties);
    else
      constraint->setExclusiveColocatedConstrObjectProperties(items.names[i], properties);
  }
}

void ConstrReader::readColocatedDma(std::string const& name, JsonValue const& value) {
  std::vector<std::string> const ports = readNames(&value, &BaseNameResolver::resolvePortNames);
  if (!ports.empty()) m_store.addColocatedDmaConstr(BaseConstraint::PORT, name, ports);
}

void ConstrReader::readFifoLocations(std::string const& name, JsonValue const& value) {
  std::vector<std::string> const records = json::JStringArray(&value).get();
  if (!records.empty()) m_store.setFifoLocationsConstr(BaseConstraint::PORT, name, records);
}

void ConstrReader::readRelativeNodes(std::string const& name, JsonValue const& value) {
  RelativeNodesConstr::OffsetMap offsets;
  for (std::string const& element : json::JStringArray(&value).get()) {
    ConstrPlaceText::RelativeNode relative = ConstrPlaceText::parseRelativeNode(element);
    if (!relative.valid) {
      report(__LINE__, ComMsgMgr::MSG_ERROR, "@75-880@%s", {element}, positionOf(name, Keys::relativeNodes));
      continue;
    }
    if (!relative.balanced)
      report(__LINE__, ComMsgMgr::MSG_CRITICAL_WARNING, "@75-646@%s", {relative.offsetText},
             positionOf(name, Keys::relativeNodes));
    std::vector<std::string> nodes(1, std::move(relative.node));
    m_resolver->resolveNodeNames(nodes);
    for (std::string& node : nodes)
      offsets[std::move(node)] = HDPoint<int>(relative.x, relative.y);
  }
  if (!offsets.empty()) m_store.addRelativeNodesConstr(BaseConstraint::NODE, name, offsets);
}

void ConstrReader::readAreaGroup(JsonValue const& group) {
  std::string const name = stringMember(group, Keys::name);
  std::vector<std::string> const nodes =
      readNames(json::JBaseValue(group, Keys::nodeGroup).value(), &BaseNameResolver::resolveNodeNames);
  std::vector<PhysicalRange> ranges;
  readRanges(group, name, PhysicalSpec::TILE, ranges);
  readRanges(group, name, PhysicalSpec::SHIM, ranges);
  readRanges(group, name, PhysicalSpec::MEM, ranges);
  m_store.addAreaGroupConstr(name, nodes, ranges, trueMember(group, Keys::exclude), trueMember(group, Keys::issoft),
                             trueMember(group, Keys::containRouting), trueMember(group, Keys::exclusiveRouting),
                             trueMember(group, Keys::exclusivePlacement));
  readGroupSource(BaseConstraint::AREA_GROUP, name, group);
}

void ConstrReader::readInstGroup(JsonValue const& group) {
  std::string const name = stringMember(group, Keys::name);
  std::vector<std::string> const nodes =
      readNames(json::JBaseValue(group, Keys::nodeGroup).value(), &BaseNameResolver::resolveNodeNames);
  m_store.addInstGroupConstr(name, nodes, trueMember(group, Keys::isisomorphic));
  readGroupSource(BaseConstraint::INST_GROUP, name, group);
}

void ConstrReader::readDependentRoutingGroup(JsonValue const& group) {
  std::string const name = stringMember(group, Keys::name);
  std::vector<std::string> const nodes =
      readNames(json::JBaseValue(group, Keys::nodeGroup).value(), &BaseNameResolver::resolveNodeNames);
  m_store.addDependentRoutingGroupConstr(name, nodes);
  readGroupSource(BaseConstraint::DEPENDENT_ROUTING_GROUP, name, group);
}

void ConstrReader::readIsomorphicGraphGroup(JsonValue const& group) {
  std::string const name = stringMember(group, Keys::name);
  json::JBaseValue const graphs(group, Keys::stampedGraphs);
  m_store.addIsomorphicGraphGroupConstr(name, stringMember(group, Keys::referenceGraph),
                                        json::JStringArray(graphs.value()).get());
  readGroupSource(BaseConstraint::ISOMORPHIC_GRAPH_GROUP, name, group);
}

void ConstrReader::readRanges(JsonValue const& group, std::string const& groupName, PhysicalSpec::PhysicalType type,
                              std::vector<PhysicalRange>& ranges) {
  char const* key = type == PhysicalSpec::SHIM ? "shimGroup" : type == PhysicalSpec::MEM ? "memGroup" : "tileGroup";
  json::JBaseArray const items(group, key);
  for (unsigned i = 0; i < items.size(); ++i) {
    PhysicalRange range;
    if (readRange(items.at(i), groupName, type, range)) ranges.push_back(range);
  }
}

// An integer is a column; a pair of integers a place; a pair of places (texts or integer
// pairs) low and high; a text is a place text with an optional ":" before the high place.
bool ConstrReader::readRange(JsonValue const& item, std::string const& groupName, PhysicalSpec::PhysicalType type,
                             PhysicalRange& range) {
  PhysicalSpec low(type);
  PhysicalSpec high(type);
  bool const isText = item.IsString();
  std::string const itemText = isText ? std::string(item.GetString(), item.GetStringLength()) : std::string();
  json::JPair const pair(&item);
  if (item.IsInt() || json::JIntPair(&item).isValid()) {
    low = readPlace(&item, type, groupName);
  } else if (pair.isValid()) {
    JsonValue const* places[] = {pair.firstValue(), pair.secondValue()};
    PhysicalSpec* targets[] = {&low, &high};
    for (int i = 0; i < 2; ++i)
      if (places[i]->IsString() || json::JIntPair(places[i]).isValid())
        *targets[i] = readPlace(places[i], type, groupName);
  } else if (isText) {
    ConstrPlaceText::Split const split = ConstrPlaceText::splitRange(itemText);
    if (split.missingLow)
      report(__LINE__, ComMsgMgr::MSG_CRITICAL_WARNING, "@75-647@%s", {itemText}, positionOf(groupName));
    if (!split.low.empty()) low = readPlaceText(split.low, type, groupName);
    if (!split.high.empty()) high = readPlaceText(split.high, type, groupName);
  }
  if (!low.isSpecified()) {
    RangeMessages const messages = rangeMessages(type);
    if (isText)
      report(__LINE__, ComMsgMgr::MSG_CRITICAL_WARNING, messages.withText, {m_fileName, groupName, itemText},
             positionOf(groupName));
    else
      report(__LINE__, ComMsgMgr::MSG_CRITICAL_WARNING, messages.withoutText, {m_fileName, groupName},
             positionOf(groupName));
    return false;
  }
  range = PhysicalRange(low, high.isSpecified() ? high : PhysicalSpec());
  return true;
}

PhysicalSpec ConstrReader::readPlace(JsonValue const* value, PhysicalSpec::PhysicalType type,
                                     std::string const& groupName) {
  bool balanced = true;
  PhysicalSpec place = rangePlace(value, type, balanced);
  if (!balanced)
    report(__LINE__, ComMsgMgr::MSG_CRITICAL_WARNING, "@75-646@%s",
           {std::string(value->GetString(), value->GetStringLength())}, positionOf(groupName));
  return place;
}

PhysicalSpec ConstrReader::readPlaceText(std::string const& piece, PhysicalSpec::PhysicalType type,
                                         std::string const& groupName) {
  bool balanced = true;
  PhysicalSpec place = rangePlace(piece, type, balanced);
  if (!balanced) report(__LINE__, ComMsgMgr::MSG_CRITICAL_WARNING, "@75-646@%s", {piece}, positionOf(groupName));
  return place;
}

// A group is found in the file by its name alone; a "srcInfo" member with a file wins. The
// store indexes a group under its name, so it is found by name and kind without a walk of
// all constraints.
void ConstrReader::readGroupSource(BaseConstraint::ConstrType kind, std::string const& name, JsonValue const& object) {
  BaseConstraint* group = m_store.getConstr(name, kind);
  if (group == nullptr) return;
  setScannedSource(group->getSrcInfo(), scan(name, nullptr));
  json::JBaseValue const source(object, Keys::srcInfo);
  if (source.isValid()) readExplicitSource(group->getSrcInfo(), *source.value());
}

SrcInfo* ConstrReader::sourceOf(std::string const& name, std::string const& key) const {
  if (StringScan::startsWith(key, "not_")) {
    BaseConstraint* constraint = m_store.getConstr(name, key.substr(4));
    if (auto* nodes = dynamic_cast<ColocatedNodeListsConstr*>(constraint)) return &nodes->getNotColocatedSrcInfo();
    if (auto* ports = dynamic_cast<ColocatedPortsConstr*>(constraint)) return &ports->getNotColocatedSrcInfo();
    return nullptr;
  }
  if (StringScan::startsWith(key, "exclusive_")) {
    ColocatedPortsConstr* ports = m_store.getColocatedPortsConstr(name);
    return ports == nullptr ? nullptr : &ports->getExclusiveColocatedSrcInfo();
  }
  BaseConstraint* constraint = m_store.getConstr(name, key);
  return constraint == nullptr ? nullptr : &constraint->getSrcInfo();
}

void ConstrReader::scanSource(std::string const& name, std::string const& key) {
  if (SrcInfo* info = sourceOf(name, key)) setScannedSource(*info, scan(name, &key));
}

ConstrReader::Position ConstrReader::scan(std::string const& name, std::string const* key) {
  if (!announceScan()) return Position();
  return key != nullptr ? scanner().find(name, *key) : scanner().find(name);
}

void ConstrReader::setScannedSource(SrcInfo& info, Position const& position) {
  info.kind = m_positionFlag ? SrcInfo::EXPLICIT : SrcInfo::SCANNED;
  info.file = recordFileName();
  info.line = position.line;
  info.column = position.column;
}

void ConstrReader::readExplicitSource(std::string const& name, std::string const& key, JsonValue const& source) {
  if (SrcInfo* info = sourceOf(name, key)) readExplicitSource(*info, source);
}

void ConstrReader::readExplicitSource(SrcInfo& info, JsonValue const& source) {
  json::JSrcInfoValue const explicitSource(&source);
  if (!explicitSource.isValid()) return;
  info.kind = SrcInfo::EXPLICIT;
  info.file = explicitSource.file();
  info.line = explicitSource.line();
  info.column = explicitSource.column();
}

ConstrSourceScanner& ConstrReader::scanner() {
  if (!m_scanner) m_scanner.reset(new ConstrSourceScanner(m_fileName));
  return *m_scanner;
}

// The file is read once per document; its messages come with every constraint, as each
// constraint's search would meet the same file.
bool ConstrReader::announceScan() {
  switch (scanner().load()) {
    case ConstrSourceScanner::State::NoFileName:
      ComMsgMgr::sendMsg::eval(0, __FILE__, __LINE__, "tarvo", ComMsgMgr::MSG_WARNING, "@75-857@");
      return false;
    case ConstrSourceScanner::State::CannotOpen:
      ComMsgMgr::sendMsg::eval(1, __FILE__, __LINE__, "tarvo", ComMsgMgr::MSG_WARNING, "@75-856@%s", m_fileName);
      return false;
    case ConstrSourceScanner::State::Loaded:
      return true;
    default:
      return false;
  }
}

// An absolute name relative to the working directory, else the file's last path step,
// else the name as given.
std::string const& ConstrReader::recordFileName() {
  if (m_recordFileNameMade) return m_recordFileName;
  m_recordFileNameMade = true;
  if (!HUTFileUtils::makeRelativeToPath(m_fileName, HUTEnv::getPWD(), m_recordFileName))
    m_recordFileName = HUTFile(m_fileName).getName();
  if (m_recordFileName.empty()) m_recordFileName = m_fileName;
  return m_recordFileName;
}

ConstrReader::Position ConstrReader::positionOf(std::string const& name, std::string const& key) {
  Position found = key.empty() ? scanner().find(name) : scanner().find(name, key);
  if (found.line == 0 && !key.empty()) found = scanner().find(name);
  return found;
}

// Sends a message of the reader; where the file shows the object, the message carries its
// file, line and column as meta types for programs that print them.
void ConstrReader::report(int srcLine, ComMsgMgr::MsgMask mask, char const* id, std::vector<std::string> args,
                          Position const& position) {
  ComMsgMgrInstance message(__FILE__, srcLine, "tarvo", mask, id, std::move(args));
  if (position.line > 0) {
    message.attachMetaType(0, ComMsgMgr::META_FILE, "", m_fileName);
    message.attachMetaType(0, ComMsgMgr::META_LINE, "", std::to_string(position.line));
    message.attachMetaType(0, ComMsgMgr::META_COLUMN, "", std::to_string(position.column));
  }
  ComMsgMgr::sendMessage(message);
}

}  // namespace constraints
}  // namespace kpe
