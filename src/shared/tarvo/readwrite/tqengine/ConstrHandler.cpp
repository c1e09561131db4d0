#include "ConstrHandler.h"

#include <iostream>
#include <unordered_set>

#include "AsciiCase.h"
#include "ColocationConstraints.h"
#include "ConstrCast.h"
#include "ConstrReader.h"
#include "ConstrVisitor.h"
#include "ConstrWriter.h"
#include "GroupConstraints.h"
#include "HEXAlgException.h"
#include "HUTFileUtils.h"
#include "LocationConstraints.h"

namespace kpe {
namespace constraints {

namespace {

void addUnique(std::vector<std::string>& out, std::string const& name) {
  if (!name.empty() && std::find(out.begin(), out.end(), name) == out.end()) {
    out.push_back(name);
  }
}

void requirePort(BaseConstraint::ObjectType objType, char const* operation) {
  if (objType != BaseConstraint::PORT) {
    throw HEXAlgException(std::string("ConstrHandler::") + operation + "() - objType must be PORT");
  }
}

template <class T>
bool eraseFirst(std::vector<T>& items, T const& item) {
  auto const found = std::find(items.begin(), items.end(), item);
  if (found == items.end()) {
    return false;
  }
  items.erase(found);
  return true;
}

std::size_t const kBucketRoom = 3;

bool isGroupKind(BaseConstraint::ConstrType type) {
  return type >= BaseConstraint::AREA_GROUP && type <= BaseConstraint::ISOMORPHIC_GRAPH_GROUP;
}

}  // namespace

ConstrHandler::ConstrHandler() = default;

// Constraints are not deleted here: only clear() and unload() free them.
ConstrHandler::~ConstrHandler() = default;

// ---------------------------------------------------------------------------------------------
// Documents

bool ConstrHandler::read(std::string const& file) {
  std::vector<std::string> problems;
  HUTFileUtils::checkFileForReading(file, problems);
  ConstrReader reader(*this);
  reader.read(file, true);
  return true;
}

bool ConstrHandler::read(std::istream& in, std::string const& name, BaseNameResolver const& resolver) {
  ConstrReader reader(*this, resolver);
  reader.read(in, name, true);
  return true;
}

bool ConstrHandler::write(std::ostream& out, std::string const& name, BaseNameResolver const& resolver) const {
  ConstrWriter writer(*this, resolver);
  writer.write(out, name, true);
  return true;
}

bool ConstrHandler::write(std::string const& file) const {
  ConstrWriter writer(*this);
  writer.write(file, true);
  return true;
}

bool ConstrHandler::writeAreaGroupConstrs(std::ostream& out, std::string const& name,
                                          BaseNameResolver const& resolver) const {
  ConstrWriter writer(*this, resolver);
  writer.writeAreaGroupConstrs(out, name, true);
  return true;
}

// ---------------------------------------------------------------------------------------------
// Ownership

// The list is emptied before any constraint is deleted, so no destructor sees itself in it.
void ConstrHandler::clear() {
  ConstrList doomed;
  doomed.swap(m_constrs);
  for (BaseConstraint* constraint : doomed) {
    delete constraint;
  }
  m_records.clear();
  m_lastBucket = nullptr;
  m_index.clear();
  m_groups.clear();
}

void ConstrHandler::reserveObjects(std::size_t count) {
  m_index.reserve(m_index.size() + count);
}

bool ConstrHandler::empty() const {
  return m_constrs.empty();
}

std::size_t ConstrHandler::size() const {
  return m_constrs.size();
}

// The bucket stays in the index, possibly empty.
void ConstrHandler::unload(BaseConstraint const* constraint) {
  if (constraint == nullptr) {
    return;
  }
  BaseConstraint* const owned = const_cast<BaseConstraint*>(constraint);
  eraseFirst(m_constrs, owned);
  eraseFirst(bucketFor(constraint->getObjName()), owned);
  if (isGroupKind(constraint->getType())) {
    forgetGroup(owned);
  }
  delete constraint;
}

void ConstrHandler::addConstraint(BaseConstraint* constraint) {
  if (constraint == nullptr) {
    return;
  }
  m_constrs.push_back(constraint);
  if (!isGroupKind(constraint->getType())) {
    bucketFor(constraint->objNameField()).push_back(constraint);
    return;
  }
  std::string const name = constraint->getObjName();
  bucketFor(name).push_back(constraint);
  m_groups[name].push_back(constraint);
}

// A group renamed since it was made is no longer under its name: then every entry is
// searched, so that no pointer to a deleted group stays behind.
void ConstrHandler::forgetGroup(BaseConstraint* group) {
  auto const bucket = m_groups.find(group->getObjName());
  if (bucket != m_groups.end() && eraseFirst(bucket->second, group)) {
    return;
  }
  for (auto& entry : m_groups) {
    if (eraseFirst(entry.second, group)) {
      return;
    }
  }
}

BaseConstraint* ConstrHandler::createConstr(ConstrType type, ObjectType objType, std::string const& name) {
  BaseConstraint* made = nullptr;
  switch (type) {
    case BaseConstraint::BUFFER:
      made = new BufferConstr(name);
      break;
    case BaseConstraint::RESERVED_MEMORY:
      made = new ReservedMemoryConstr(name);
      break;
    case BaseConstraint::TILE:
      made = new TileConstr(name);
      break;
    case BaseConstraint::MEM:
      made = new MemConstr(name);
      break;
    case BaseConstraint::SHIM:
      made = new ShimConstr(name);
      break;
    case BaseConstraint::PORT_LOC:
      made = new PortLocConstr(name);
      break;
    case BaseConstraint::STREAM_CHANNEL:
      made = new StreamChannelConstr(name);
      break;
    case BaseConstraint::COLOCATED_NODES:
      made = new ColocatedNodesConstr(objType, name);
      break;
    case BaseConstraint::RELATIVE_NODES:
      made = new RelativeNodesConstr(name);
      break;
    case BaseConstraint::COLOCATED_PORTS:
      made = new ColocatedPortsConstr(name);
      break;
    case BaseConstraint::COLOCATED_DMA:
      made = new ColocatedDmaConstr(name);
      break;
    case BaseConstraint::COLOCATED_MEMORIES:
      made = new ColocatedMemoriesConstr(objType, name);
      break;
    case BaseConstraint::FIFO_LOCATIONS:
      made = new FifoLocationsConstr(name);
      break;
    default:
      throw HEXAlgException(
          "ConstrHandler::createConstr() - this function does not support creating constraints of type '" +
          BaseConstraint::getConstrTypeAsStr(type) + "'");
  }
  addConstraint(made);
  return made;
}

BaseConstraint* ConstrHandler::createGlobalConstr(ConstrType type, std::string const& name) {
  GroupConstr* made = nullptr;
  switch (type) {
    case BaseConstraint::AREA_GROUP:
      made = new AreaGroupConstr();
      break;
    case BaseConstraint::INST_GROUP:
      made = new InstGroupConstr();
      break;
    case BaseConstraint::DEPENDENT_ROUTING_GROUP:
      made = new DependentRoutingGroupConstr();
      break;
    case BaseConstraint::ISOMORPHIC_GRAPH_GROUP:
      made = new IsomorphicGraphGroupConstr();
      break;
    default:
      throw HEXAlgException(
          "ConstrHandler::createGlobalConstr() - this function does not support creating constraints of type '" +
          BaseConstraint::getConstrTypeAsStr(type) + "'");
  }
  made->setName(name);
  addConstraint(made);
  return made;
}

AttrConstr* ConstrHandler::createAttrConstr(ObjectType objType, std::string const& objName,
                                            AttrConstr::AttrType attrType, std::string const& attrName) {
  if (objName.empty() || attrName.empty()) {
    return nullptr;
  }
  auto* made = new AttrConstr(objType, objName, attrType, AttrConstr::makeCanonicalAttrName(attrName));
  addConstraint(made);
  return made;
}

// ---------------------------------------------------------------------------------------------
// Queries

ConstrHandler::ConstrList const* ConstrHandler::findBucket(std::string const& objName) const {
  if (m_lastBucket != nullptr && *m_lastName == objName) {
    return m_lastBucket;
  }
  auto const found = m_index.find(objName);
  if (found == m_index.end()) {
    return nullptr;
  }
  rememberBucket(*found);
  return &found->second;
}

// The remembered entry lies in this store's own index, which a non-const operation may change.
ConstrHandler::ConstrList& ConstrHandler::bucketFor(std::string const& objName) {
  if (m_lastBucket != nullptr && *m_lastName == objName) {
    return const_cast<ConstrList&>(*m_lastBucket);
  }
  auto const made = m_index.try_emplace(objName);
  // An object mostly carries a few constraints, and room for three takes no more memory
  // than room for one.
  if (made.second) {
    made.first->second.reserve(kBucketRoom);
  }
  rememberBucket(*made.first);
  return made.first->second;
}

void ConstrHandler::rememberBucket(std::pair<std::string const, ConstrList> const& entry) const {
  m_lastName = &entry.first;
  m_lastBucket = &entry.second;
}

void ConstrHandler::getConstrs(std::string const& objName, std::string const& attrName, ConstrList& out) const {
  ConstrList const* const bucket = findBucket(objName);
  if (bucket == nullptr) {
    return;
  }
  out.clear();
  for (BaseConstraint* constraint : *bucket) {
    if (AsciiCase::equals(constraint->getConstrName(), attrName)) {
      out.push_back(constraint);
    }
  }
}

void ConstrHandler::getConstrs(ObjectType objType, ConstrList& out) const {
  out.clear();
  for (BaseConstraint* constraint : m_constrs) {
    if (constraint->getObjType() == objType) {
      out.push_back(constraint);
    }
  }
}

void ConstrHandler::getConstrs(std::string const& objName, ConstrList& out) const {
  if (ConstrList const* const bucket = findBucket(objName)) {
    out = *bucket;
  }
}

void ConstrHandler::getConstrs(ConstrList& out) const {
  out = m_constrs;
}

ConstrHandler::ConstrList const& ConstrHandler::getConstrs() const {
  return m_constrs;
}

void ConstrHandler::getConstrs(std::string const& objName, ConstrType type, ConstrList& out) const {
  ConstrList const* const bucket = findBucket(objName);
  if (bucket == nullptr) {
    return;
  }
  out.clear();
  for (BaseConstraint* constraint : *bucket) {
    if (constraint->getType() == type) {
      out.push_back(constraint);
    }
  }
}

// The first constraint that getConstrs finds by the name, else by its canonical form; asked
// for every key the reader reads, so it builds neither the list nor the canonical name.
BaseConstraint* ConstrHandler::getConstr(std::string const& objName, std::string const& attrName) const {
  ConstrList const* const bucket = findBucket(objName);
  if (bucket == nullptr) {
    return nullptr;
  }
  for (BaseConstraint* constraint : *bucket) {
    if (AsciiCase::equals(constraint->getConstrName(), attrName)) {
      return constraint;
    }
  }
  for (BaseConstraint* constraint : *bucket) {
    if (AttrConstr::isCanonicalNameOf(constraint->getConstrName(), attrName)) {
      return constraint;
    }
  }
  return nullptr;
}

BaseConstraint* ConstrHandler::getConstr(std::string const& objName, ConstrType type) const {
  ConstrList found;
  getConstrs(objName, type, found);
  return found.empty() ? nullptr : found.front();
}

// The type field is tested before the cast, as in ConstrCast: an entry of class T always
// carries T's type, and a cast that fails costs a walk of the class hierarchy.
template <class T>
T* ConstrHandler::findIn(ConstrList const& bucket, ConstrType type) {
  for (BaseConstraint* constraint : bucket) {
    if (constraint->getType() != type) {
      continue;
    }
    if (T* typed = dynamic_cast<T*>(constraint)) {
      return typed;
    }
  }
  return nullptr;
}

template <class T>
T* ConstrHandler::findInBucket(ConstrType type, std::string const& objName) const {
  ConstrList const* const bucket = findBucket(objName);
  return bucket == nullptr ? nullptr : findIn<T>(*bucket, type);
}

// The type field is tested first so that the walk over a large list stays cheap; an entry
// of class T always carries T's type.
template <class T>
T* ConstrHandler::findGroup(ConstrType type, std::string const& name) const {
  for (BaseConstraint* constraint : m_constrs) {
    if (constraint->getType() != type) {
      continue;
    }
    T* group = dynamic_cast<T*>(constraint);
    if (group != nullptr && group->getName() == name) {
      return group;
    }
  }
  return nullptr;
}

TileConstr* ConstrHandler::getTileConstr(std::string const& objName) const {
  return findInBucket<TileConstr>(BaseConstraint::TILE, objName);
}
ShimConstr* ConstrHandler::getShimConstr(std::string const& objName) const {
  return findInBucket<ShimConstr>(BaseConstraint::SHIM, objName);
}
MemConstr* ConstrHandler::getMemConstr(std::string const& objName) const {
  return findInBucket<MemConstr>(BaseConstraint::MEM, objName);
}
BufferConstr* ConstrHandler::getBufferConstr(std::string const& objName) const {
  return findInBucket<BufferConstr>(BaseConstraint::BUFFER, objName);
}
ReservedMemoryConstr* ConstrHandler::getReservedMemoryConstr(std::string const& objName) const {
  return findInBucket<ReservedMemoryConstr>(BaseConstraint::RESERVED_MEMORY, objName);
}
PortLocConstr* ConstrHandler::getPortLocConstr(std::string const& objName) const {
  return findInBucket<PortLocConstr>(BaseConstraint::PORT_LOC, objName);
}
StreamChannelConstr* ConstrHandler::getStreamChannelConstr(std::string const& objName) const {
  return findInBucket<StreamChannelConstr>(BaseConstraint::STREAM_CHANNEL, objName);
}
ColocatedNodesConstr* ConstrHandler::getColocatedNodesConstr(std::string const& objName) const {
  return findInBucket<ColocatedNodesConstr>(BaseConstraint::COLOCATED_NODES, objName);
}
ColocatedPortsConstr* ConstrHandler::getColocatedPortsConstr(std::string const& objName) const {
  return findInBucket<ColocatedPortsConstr>(BaseConstraint::COLOCATED_PORTS, objName);
}
ColocatedDmaConstr* ConstrHandler::getColocatedDmaConstr(std::string const& objName) const {
  return findInBucket<ColocatedDmaConstr>(BaseConstraint::COLOCATED_DMA, objName);
}
ColocatedMemoriesConstr* ConstrHandler::getColocatedMemoriesConstr(std::string const& objName) const {
  return findInBucket<ColocatedMemoriesConstr>(BaseConstraint::COLOCATED_MEMORIES, objName);
}
RelativeNodesConstr* ConstrHandler::getRelativeNodesConstr(std::string const& objName) const {
  return findInBucket<RelativeNodesConstr>(BaseConstraint::RELATIVE_NODES, objName);
}
FifoLocationsConstr* ConstrHandler::getFifoLocationsConstr(std::string const& objName) const {
  return findInBucket<FifoLocationsConstr>(BaseConstraint::FIFO_LOCATIONS, objName);
}
AreaGroupConstr* ConstrHandler::getAreaGroupConstr(std::string const& name) const {
  return findGroup<AreaGroupConstr>(BaseConstraint::AREA_GROUP, name);
}
InstGroupConstr* ConstrHandler::getInstGroupConstr(std::string const& name) const {
  return findGroup<InstGroupConstr>(BaseConstraint::INST_GROUP, name);
}
DependentRoutingGroupConstr* ConstrHandler::getDependentRoutingGroupConstr(std::string const& name) const {
  return findGroup<DependentRoutingGroupConstr>(BaseConstraint::DEPENDENT_ROUTING_GROUP, name);
}
IsomorphicGraphGroupConstr* ConstrHandler::getIsomorphicGraphGroupConstr(std::string const& name) const {
  return findGroup<IsomorphicGraphGroupConstr>(BaseConstraint::ISOMORPHIC_GRAPH_GROUP, name);
}

AttrConstr* ConstrHandler::getAttrConstr(std::string const& objName, std::string const& attrName) const {
  if (attrName.empty()) {
    throw HEXAlgException("ConstrHandler::get() - attrName must be specified when T == AttrConstr");
  }
  return ConstrCast::toAttr(getConstr(objName, AttrConstr::makeCanonicalAttrName(attrName)));
}

FifoLocationsRecord* ConstrHandler::getFifoLocationsRecord(std::string const& name) const {
  return m_records.get(name);
}

FifoLocationsRecords::RecordMap const& ConstrHandler::getFifoLocationsRecords() const {
  return m_records.getRecords();
}

void ConstrHandler::getConstrainedObjects(ObjectType objType, NameList& out) const {
  out.clear();
  std::unordered_set<std::string> seen;
  for (BaseConstraint* constraint : m_constrs) {
    if (constraint->getObjType() != objType) {
      continue;
    }
    std::string name = constraint->getObjName();
    if (seen.insert(name).second) {
      out.push_back(std::move(name));
    }
  }
}

void ConstrHandler::getAllConstrainedNodes(NameList& out) const {
  getConstrainedObjects(BaseConstraint::NODE, out);
}
void ConstrHandler::getAllConstrainedPorts(NameList& out) const {
  getConstrainedObjects(BaseConstraint::PORT, out);
}
void ConstrHandler::getAllConstrainedNets(NameList& out) const {
  getConstrainedObjects(BaseConstraint::NET, out);
}

void ConstrHandler::getFifoLocationsConstrs(std::string const& recordName,
                                            std::vector<FifoLocationsConstr*>& out) const {
  for (BaseConstraint* constraint : m_constrs) {
    FifoLocationsConstr* fifo = ConstrCast::toFifoLocations(constraint);
    if (fifo != nullptr && fifo->containsFifoRecord(recordName)) {
      out.push_back(fifo);
    }
  }
}

// ---------------------------------------------------------------------------------------------
// Relations read from both sides

void ConstrHandler::addRelatedObjects(BaseConstraint const* own,
                                      std::function<bool(BaseConstraint const*)> const& listsName,
                                      NameList& out) const {
  for (BaseConstraint const* constraint : m_constrs) {
    if (constraint != own && listsName(constraint)) {
      addUnique(out, constraint->getObjName());
    }
  }
}

namespace {

// A constraint of the class that lists `name` in the list chosen by `contains`, with the
// object type required, if any.
template <class T, class Cast>
std::function<bool(BaseConstraint const*)> listing(Cast cast, bool (T::*contains)(std::string const&) const,
                                                   std::string const& name, BaseConstraint::ObjectType const* objType) {
  return [cast, contains, &name, objType](BaseConstraint const* constraint) {
    auto const* typed = cast(constraint);
    return typed != nullptr && (objType == nullptr || typed->getObjType() == *objType) && (typed->*contains)(name);
  };
}

BaseConstraint::ObjectType const kNode = BaseConstraint::NODE;
BaseConstraint::ObjectType const kPort = BaseConstraint::PORT;

ColocatedNodesConstr const* asNodes(BaseConstraint const* c) {
  return ConstrCast::toColocatedNodes(c);
}
ColocatedMemoriesConstr const* asMemories(BaseConstraint const* c) {
  return ConstrCast::toColocatedMemories(c);
}
ColocatedPortsConstr const* asPorts(BaseConstraint const* c) {
  return ConstrCast::toColocatedPorts(c);
}
ColocatedDmaConstr const* asDma(BaseConstraint const* c) {
  return ConstrCast::toColocatedDma(c);
}

}  // namespace

void ConstrHandler::getColocatedNodes(std::string const& name, NameList& out) const {
  ColocatedNodesConstr const* own = getColocatedNodesConstr(name);
  if (own != nullptr) {
    out = own->getColocatedNodeNames();
  }
  addRelatedObjects(own, listing(asNodes, &ColocatedNodeListsConstr::containsColocatedNode, name, &kNode), out);
}

void ConstrHandler::getNotColocatedNodes(std::string const& name, NameList& out) const {
  ColocatedNodesConstr const* own = getColocatedNodesConstr(name);
  if (own != nullptr) {
    out = own->getNotColocatedNodeNames();
  }
  addRelatedObjects(own, listing(asNodes, &ColocatedNodeListsConstr::containsNotColocatedNode, name, &kNode), out);
}

void ConstrHandler::getColocatedMemories(std::string const& name, NameList& out) const {
  ColocatedMemoriesConstr const* own = getColocatedMemoriesConstr(name);
  if (own != nullptr) {
    out = own->getColocatedNodeNames();
  }
  addRelatedObjects(own, listing(asMemories, &ColocatedNodeListsConstr::containsColocatedNode, name, &kNode), out);
}

void ConstrHandler::getNotColocatedMemories(std::string const& name, NameList& out) const {
  ColocatedMemoriesConstr const* own = getColocatedMemoriesConstr(name);
  if (own != nullptr) {
    out = own->getNotColocatedNodeNames();
  }
  addRelatedObjects(own, listing(asMemories, &ColocatedNodeListsConstr::containsNotColocatedNode, name, &kNode), out);
}

// Node and memory lists on a PORT object relate ports too.
void ConstrHandler::getColocatedPorts(std::string const& name, NameList& out) const {
  ColocatedPortsConstr const* own = getColocatedPortsConstr(name);
  if (own != nullptr) {
    out = own->getColocatedPortNames();
  }
  addRelatedObjects(own, listing(asPorts, &ColocatedPortsConstr::containsColocatedPort, name, nullptr), out);
  addRelatedObjects(nullptr, listing(asNodes, &ColocatedNodeListsConstr::containsColocatedNode, name, &kPort), out);
  addRelatedObjects(nullptr, listing(asMemories, &ColocatedNodeListsConstr::containsColocatedNode, name, &kPort), out);
}

void ConstrHandler::getNotColocatedPorts(std::string const& name, NameList& out) const {
  ColocatedPortsConstr const* own = getColocatedPortsConstr(name);
  if (own != nullptr) {
    out = own->getNotColocatedPortNames();
  }
  addRelatedObjects(own, listing(asPorts, &ColocatedPortsConstr::containsNotColocatedPort, name, nullptr), out);
  addRelatedObjects(nullptr, listing(asNodes, &ColocatedNodeListsConstr::containsNotColocatedNode, name, &kPort), out);
  addRelatedObjects(nullptr, listing(asMemories, &ColocatedNodeListsConstr::containsNotColocatedNode, name, &kPort),
                    out);
}

void ConstrHandler::getExclusiveColocatedPorts(std::string const& name, NameList& out) const {
  ColocatedPortsConstr const* own = getColocatedPortsConstr(name);
  if (own != nullptr) {
    out = own->getExclusiveColocatedPortNames();
  }
  addRelatedObjects(own, listing(asPorts, &ColocatedPortsConstr::containsExclusiveColocatedPort, name, nullptr), out);
}

void ConstrHandler::getColocatedDma(std::string const& name, NameList& out) const {
  ColocatedDmaConstr const* own = getColocatedDmaConstr(name);
  if (own != nullptr) {
    out = own->getColocatedPortNames();
  }
  addRelatedObjects(own, listing(asDma, &ColocatedDmaConstr::containsColocatedPort, name, nullptr), out);
}

// ---------------------------------------------------------------------------------------------
// Set and add operations

// The entry of a new name is made by the search, so that the constraint made next finds it
// as the remembered entry instead of hashing the name again.
template <class T>
T* ConstrHandler::findOrCreate(ConstrType type, ObjectType objType, std::string const& objName) {
  if (T* found = findIn<T>(bucketFor(objName), type)) {
    return found;
  }
  return dynamic_cast<T*>(createConstr(type, objType, objName));
}

// The one constraint of the kind for a named object, found or made, is handed to `change`;
// an empty name changes nothing.
template <class T, class Change>
void ConstrHandler::changeConstr(ConstrType type, ObjectType objType, std::string const& objName,
                                 Change const& change) {
  if (objName.empty()) {
    return;
  }
  if (T* constraint = findOrCreate<T>(type, objType, objName)) {
    change(*constraint);
  }
}

// `add` extends the object's constraint of the kind; an object without one gets it from `set`.
template <class T, class Add, class Set>
void ConstrHandler::addToConstr(ConstrType type, std::string const& objName, Add const& add, Set const& set) {
  if (objName.empty()) {
    return;
  }
  if (T* constraint = findInBucket<T>(type, objName)) {
    add(*constraint);
  } else {
    set();
  }
}

// Among the groups made under the name, the first that still carries it. Groups enter the
// list and this index in the same order, so this is the group that a walk of the list finds
// as long as no stored group is given another name (nothing in the library renames one).
template <class T>
T* ConstrHandler::findStoredGroup(ConstrType type, std::string const& name) const {
  auto const bucket = m_groups.find(name);
  if (bucket == m_groups.end()) {
    return nullptr;
  }
  for (BaseConstraint* constraint : bucket->second) {
    if (constraint->getType() != type) {
      continue;
    }
    T* group = dynamic_cast<T*>(constraint);
    if (group != nullptr && group->getName() == name) {
      return group;
    }
  }
  return nullptr;
}

template <class T>
T* ConstrHandler::findOrCreateGroup(ConstrType type, std::string const& name, bool& created) {
  created = false;
  if (T* found = findStoredGroup<T>(type, name)) {
    return found;
  }
  created = true;
  return dynamic_cast<T*>(createGlobalConstr(type, name));
}

// An existing attribute keeps its type; the value goes to the setter of the caller's type.
template <class T>
void ConstrHandler::setAttrValue(ObjectType objType, std::string const& objName, std::string const& attrName,
                                 AttrConstr::AttrType attrType, T const& value) {
  if (objName.empty() || attrName.empty()) {
    return;
  }
  AttrConstr* attr = getAttrConstr(objName, attrName);
  if (attr == nullptr) {
    attr = createAttrConstr(objType, objName, attrType, attrName);
  }
  if (attr != nullptr) {
    attr->setValue(value);
  }
}

void ConstrHandler::setAttrConstr(ObjectType objType, std::string const& objName, std::string const& attrName,
                                  std::string const& value) {
  setAttrValue(objType, objName, attrName, AttrConstr::STRING, value);
}

void ConstrHandler::setAttrConstr(ObjectType objType, std::string const& objName, std::string const& attrName,
                                  double value) {
  setAttrValue(objType, objName, attrName, AttrConstr::DOUBLE, value);
}

void ConstrHandler::setAttrConstr(ObjectType objType, std::string const& objName, std::string const& attrName,
                                  int value) {
  setAttrValue(objType, objName, attrName, AttrConstr::INT, value);
}

void ConstrHandler::setAttrConstr(ObjectType objType, std::string const& objName, std::string const& attrName,
                                  bool value) {
  setAttrValue(objType, objName, attrName, AttrConstr::BOOL, value);
}

void ConstrHandler::setBufferConstr(std::string const& objName, Address const& ping, Address const& pong,
                                    Address const& rtpSelector) {
  changeConstr<BufferConstr>(BaseConstraint::BUFFER, BaseConstraint::PORT, objName, [&](BufferConstr& buffer) {
    buffer.setPing(ping);
    buffer.setPong(pong);
    buffer.setRtpSelector(rtpSelector);
  });
}

void ConstrHandler::setTileConstr(std::string const& objName, std::string const& tileName) {
  changeConstr<TileConstr>(BaseConstraint::TILE, BaseConstraint::NODE, objName,
                           [&](TileConstr& tile) { tile.setName(tileName); });
}

void ConstrHandler::setTileConstr(std::string const& objName, int column, int row, PhysicalSpec::PhysicalType type) {
  changeConstr<TileConstr>(BaseConstraint::TILE, BaseConstraint::NODE, objName, [&](TileConstr& tile) {
    tile.setXY(column, row);
    tile.setPhysicalType(type);
  });
}

void ConstrHandler::setMemConstr(std::string const& objName, Address const& ping, Address const& pong) {
  changeConstr<MemConstr>(BaseConstraint::MEM, BaseConstraint::NODE, objName, [&](MemConstr& mem) {
    mem.setPing(ping);
    mem.setPong(pong);
  });
}

void ConstrHandler::setReservedMemoryConstr(std::string const& objName, Address const& address) {
  changeConstr<ReservedMemoryConstr>(BaseConstraint::RESERVED_MEMORY, BaseConstraint::NODE, objName,
                                     [&](ReservedMemoryConstr& memory) { memory.setAddress(address); });
}

void ConstrHandler::setShimConstr(std::string const& objName, int column, int channel) {
  changeConstr<ShimConstr>(BaseConstraint::SHIM, BaseConstraint::NODE, objName, [&](ShimConstr& shim) {
    shim.setColumn(column);
    shim.setChannel(channel);
  });
}

void ConstrHandler::setShimConstr(std::string const& objName, std::string const& shimName) {
  changeConstr<ShimConstr>(BaseConstraint::SHIM, BaseConstraint::NODE, objName,
                           [&](ShimConstr& shim) { shim.setName(shimName); });
}

void ConstrHandler::setPortLocConstr(std::string const& objName, PhysicalSpec::PhysicalType type, int column, int row,
                                     int channel) {
  changeConstr<PortLocConstr>(BaseConstraint::PORT_LOC, BaseConstraint::PORT, objName, [&](PortLocConstr& place) {
    place.setPhysicalType(type);
    place.setRow(row);
    place.setColumn(column);
    place.setChannel(channel);
  });
}

void ConstrHandler::setPortLocConstr(std::string const& objName, std::string const& name, int channel) {
  changeConstr<PortLocConstr>(BaseConstraint::PORT_LOC, BaseConstraint::PORT, objName, [&](PortLocConstr& place) {
    place.setName(name);
    place.setChannel(channel);
  });
}

void ConstrHandler::setStreamChannelConstr(std::string const& objName, int offset, int channel,
                                           std::string const& direction) {
  changeConstr<StreamChannelConstr>(BaseConstraint::STREAM_CHANNEL, BaseConstraint::PORT, objName,
                                    [&](StreamChannelConstr& stream) {
                                      stream.setOffset(offset);
                                      stream.setChannel(channel);
                                      stream.setDirection(direction);
                                    });
}

void ConstrHandler::setStreamChannelConstr(std::string const& objName, int column, int row, int channel,
                                           std::string const& direction) {
  changeConstr<StreamChannelConstr>(BaseConstraint::STREAM_CHANNEL, BaseConstraint::PORT, objName,
                                    [&](StreamChannelConstr& stream) {
                                      stream.setColumn(column);
                                      stream.setRow(row);
                                      stream.setChannel(channel);
                                      stream.setDirection(direction);
                                    });
}

// Colocated nodes and colocated memories share their lists and these operations.
template <class T>
void ConstrHandler::setNodeLists(ConstrType type, ObjectType objType, std::string const& objName, NameList const& names,
                                 bool notColocated) {
  changeConstr<T>(type, objType, objName, [&](T& lists) {
    if (notColocated) {
      lists.setNotColocatedNodeNames(names);
    } else {
      lists.setColocatedNodeNames(names);
    }
  });
}

// A missing constraint is made through the virtual set form, as the other add forms do, so
// that a derived store sees it.
template <class T>
void ConstrHandler::addNodeLists(ConstrType type, ObjectType objType, std::string const& objName, NameList const& names,
                                 bool notColocated, NodeListsSet set) {
  addToConstr<T>(
      type, objName,
      [&](T& lists) {
        if (notColocated) {
          lists.addNotColocatedNodeNames(names);
        } else {
          lists.addNodeNames(names);
        }
      },
      [&] { (this->*set)(objType, objName, names, notColocated); });
}

void ConstrHandler::setColocatedNodesConstr(ObjectType objType, std::string const& objName, NameList const& names,
                                            bool notColocated) {
  setNodeLists<ColocatedNodesConstr>(BaseConstraint::COLOCATED_NODES, objType, objName, names, notColocated);
}

void ConstrHandler::addColocatedNodesConstr(ObjectType objType, std::string const& objName, NameList const& names,
                                            bool notColocated) {
  addNodeLists<ColocatedNodesConstr>(BaseConstraint::COLOCATED_NODES, objType, objName, names, notColocated,
                                     &ConstrHandler::setColocatedNodesConstr);
}

void ConstrHandler::setColocatedMemoriesConstr(ObjectType objType, std::string const& objName, NameList const& names,
                                               bool notColocated) {
  setNodeLists<ColocatedMemoriesConstr>(BaseConstraint::COLOCATED_MEMORIES, objType, objName, names, notColocated);
}

void ConstrHandler::addColocatedMemoriesConstr(ObjectType objType, std::string const& objName, NameList const& names,
                                               bool notColocated) {
  addNodeLists<ColocatedMemoriesConstr>(BaseConstraint::COLOCATED_MEMORIES, objType, objName, names, notColocated,
                                        &ConstrHandler::setColocatedMemoriesConstr);
}

void ConstrHandler::setColocatedPortsConstr(ObjectType objType, std::string const& objName, NameList const& names,
                                            bool notColocated) {
  requirePort(objType, "setColocatedPortsConstr");
  changeConstr<ColocatedPortsConstr>(BaseConstraint::COLOCATED_PORTS, objType, objName,
                                     [&](ColocatedPortsConstr& ports) {
                                       if (notColocated) {
                                         ports.setNotColocatedPortNames(names);
                                       } else {
                                         ports.setColocatedPortNames(names);
                                       }
                                     });
}

void ConstrHandler::addColocatedPortsConstr(ObjectType objType, std::string const& objName, NameList const& names,
                                            bool notColocated) {
  requirePort(objType, "addColocatedPortsConstr");
  addToConstr<ColocatedPortsConstr>(
      BaseConstraint::COLOCATED_PORTS, objName,
      [&](ColocatedPortsConstr& ports) {
        if (notColocated) {
          ports.addNotColocatedPortNames(names);
        } else {
          ports.addPortNames(names);
        }
      },
      [&] { setColocatedPortsConstr(objType, objName, names, notColocated); });
}

void ConstrHandler::setExclusiveColocatedPortsConstr(ObjectType objType, std::string const& objName,
                                                     NameList const& names) {
  requirePort(objType, "setExclusiveColocatedPortsConstr");
  changeConstr<ColocatedPortsConstr>(BaseConstraint::COLOCATED_PORTS, objType, objName,
                                     [&](ColocatedPortsConstr& ports) { ports.setExclusiveColocatedPortNames(names); });
}

void ConstrHandler::addExclusiveColocatedPortsConstr(ObjectType objType, std::string const& objName,
                                                     NameList const& names) {
  requirePort(objType, "addExclusiveColocatedPortsConstr");
  changeConstr<ColocatedPortsConstr>(BaseConstraint::COLOCATED_PORTS, objType, objName,
                                     [&](ColocatedPortsConstr& ports) { ports.addExclusiveColocatedPortNames(names); });
}

void ConstrHandler::setColocatedDmaConstr(ObjectType objType, std::string const& objName, NameList const& names) {
  requirePort(objType, "setColocatedDmaConstr");
  changeConstr<ColocatedDmaConstr>(BaseConstraint::COLOCATED_DMA, objType, objName,
                                   [&](ColocatedDmaConstr& dma) { dma.setColocatedPortNames(names); });
}

void ConstrHandler::addColocatedDmaConstr(ObjectType objType, std::string const& objName, NameList const& names) {
  requirePort(objType, "addColocatedDmaConstr");
  addToConstr<ColocatedDmaConstr>(
      BaseConstraint::COLOCATED_DMA, objName, [&](ColocatedDmaConstr& dma) { dma.addPortNames(names); },
      [&] { setColocatedDmaConstr(objType, objName, names); });
}

void ConstrHandler::setFifoLocationsConstr(ObjectType objType, std::string const& objName, NameList const& records) {
  requirePort(objType, "setFifoLocationsConstr");
  changeConstr<FifoLocationsConstr>(BaseConstraint::FIFO_LOCATIONS, objType, objName,
                                    [&](FifoLocationsConstr& fifo) { fifo.setFifoLocationsRecordNames(records); });
}

void ConstrHandler::addFifoLocationsConstr(ObjectType objType, std::string const& objName, NameList const& records) {
  requirePort(objType, "addFifoLocationsConstr");
  addToConstr<FifoLocationsConstr>(
      BaseConstraint::FIFO_LOCATIONS, objName,
      [&](FifoLocationsConstr& fifo) { fifo.addFifoLocationsRecordNames(records); },
      [&] { setFifoLocationsConstr(objType, objName, records); });
}

void ConstrHandler::setRelativeNodesConstr(ObjectType objType, std::string const& objName, OffsetMap const& nodes) {
  changeConstr<RelativeNodesConstr>(BaseConstraint::RELATIVE_NODES, objType, objName,
                                    [&](RelativeNodesConstr& relative) { relative.setNodesWithOffset(nodes); });
}

void ConstrHandler::addRelativeNodesConstr(ObjectType objType, std::string const& objName, OffsetMap const& nodes) {
  addToConstr<RelativeNodesConstr>(
      BaseConstraint::RELATIVE_NODES, objName,
      [&](RelativeNodesConstr& relative) { relative.addNodesWithOffset(nodes); },
      [&] { setRelativeNodesConstr(objType, objName, nodes); });
}

// ---------------------------------------------------------------------------------------------
// FIFO locations: equal locations share one record

DmaFifoRecord* ConstrHandler::findOrAddDmaRecord(PhysicalSpec::PhysicalType type, int column, int row, int size,
                                                 int offset, int bankId) {
  FifoLocationsRecords sample;
  DmaFifoRecord const* like = sample.addDmaFifoRecord(std::string(), type, column, row, size, offset, bankId);
  if (FifoLocationsRecord* found = m_records.findEqual(*like)) {
    return static_cast<DmaFifoRecord*>(found);
  }
  return m_records.addDmaFifoRecord(type, column, row, size, offset, bankId);
}

StreamFifoRecord* ConstrHandler::findOrAddStreamRecord(PhysicalSpec::PhysicalType type, int column, int row,
                                                       int channel) {
  FifoLocationsRecords sample;
  StreamFifoRecord const* like = sample.addStreamFifoRecord(std::string(), type, column, row, channel);
  if (FifoLocationsRecord* found = m_records.findEqual(*like)) {
    return static_cast<StreamFifoRecord*>(found);
  }
  return m_records.addStreamFifoRecord(type, column, row, channel);
}

void ConstrHandler::setDmaFifoLocationConstr(ObjectType objType, std::string const& portName,
                                             PhysicalSpec::PhysicalType type, int column, int row, int size, int offset,
                                             int bankId) {
  if (DmaFifoRecord* record = findOrAddDmaRecord(type, column, row, size, offset, bankId)) {
    setFifoLocationsConstr(objType, portName, NameList(1, record->getName()));
  }
}

void ConstrHandler::addDmaFifoLocationConstr(ObjectType objType, std::string const& portName,
                                             PhysicalSpec::PhysicalType type, int column, int row, int size, int offset,
                                             int bankId) {
  if (DmaFifoRecord* record = findOrAddDmaRecord(type, column, row, size, offset, bankId)) {
    addFifoLocationsConstr(objType, portName, NameList(1, record->getName()));
  }
}

void ConstrHandler::setStreamFifoLocationConstr(ObjectType objType, std::string const& portName,
                                                PhysicalSpec::PhysicalType type, int column, int row, int channel) {
  if (StreamFifoRecord* record = findOrAddStreamRecord(type, column, row, channel)) {
    setFifoLocationsConstr(objType, portName, NameList(1, record->getName()));
  }
}

void ConstrHandler::addStreamFifoLocationConstr(ObjectType objType, std::string const& portName,
                                                PhysicalSpec::PhysicalType type, int column, int row, int channel) {
  if (StreamFifoRecord* record = findOrAddStreamRecord(type, column, row, channel)) {
    addFifoLocationsConstr(objType, portName, NameList(1, record->getName()));
  }
}

DmaFifoRecord* ConstrHandler::addDmaFifoRecord(std::string const& name, PhysicalSpec::PhysicalType type, int column,
                                               int row, int size, int offset, int bankId) {
  return m_records.addDmaFifoRecord(name, type, column, row, size, offset, bankId);
}

StreamFifoRecord* ConstrHandler::addStreamFifoRecord(std::string const& name, PhysicalSpec::PhysicalType type,
                                                     int column, int row, int channel) {
  return m_records.addStreamFifoRecord(name, type, column, row, channel);
}

// ---------------------------------------------------------------------------------------------
// Groups

void ConstrHandler::setAreaGroupConstr(std::string const& name, NameList const& nodes,
                                       std::vector<PhysicalRange> const& ranges, bool exclude, bool isSoft,
                                       bool containRouting, bool exclusiveRouting, bool exclusivePlacement) {
  if (name.empty()) {
    return;
  }
  bool created = false;
  auto* group = findOrCreateGroup<AreaGroupConstr>(BaseConstraint::AREA_GROUP, name, created);
  if (group == nullptr) {
    return;
  }
  group->setNodeGroup(nodes);
  group->setRanges(ranges);
  group->setExclude(exclude);
  group->setSoft(isSoft);
  group->setContainRouting(containRouting);
  group->setExclusiveRouting(exclusiveRouting);
  group->setExclusivePlacement(exclusivePlacement);
}

void ConstrHandler::addAreaGroupConstr(std::string const& name, NameList const& nodes,
                                       std::vector<PhysicalRange> const& ranges, bool exclude, bool isSoft,
                                       bool containRouting, bool exclusiveRouting, bool exclusivePlacement) {
  if (name.empty()) {
    return;
  }
  bool created = false;
  auto* group = findOrCreateGroup<AreaGroupConstr>(BaseConstraint::AREA_GROUP, name, created);
  if (group == nullptr) {
    return;
  }
  group->addNodeGroup(nodes);
  group->addRanges(ranges);
  if (created) {
    group->setExclude(exclude);
    group->setSoft(isSoft);
    group->setContainRouting(containRouting);
    group->setExclusiveRouting(exclusiveRouting);
    group->setExclusivePlacement(exclusivePlacement);
  }
}

void ConstrHandler::setInstGroupConstr(std::string const& name, NameList const& nodes, bool isIsomorphic) {
  if (name.empty()) {
    return;
  }
  bool created = false;
  if (auto* group = findOrCreateGroup<InstGroupConstr>(BaseConstraint::INST_GROUP, name, created)) {
    group->setNodeGroup(nodes);
    group->setIsomorphic(isIsomorphic);
  }
}

void ConstrHandler::addInstGroupConstr(std::string const& name, NameList const& nodes, bool isIsomorphic) {
  if (name.empty()) {
    return;
  }
  bool created = false;
  if (auto* group = findOrCreateGroup<InstGroupConstr>(BaseConstraint::INST_GROUP, name, created)) {
    group->addNodeGroup(nodes);
    if (created) {
      group->setIsomorphic(isIsomorphic);
    }
  }
}

void ConstrHandler::setDependentRoutingGroupConstr(std::string const& name, NameList const& nodes) {
  if (name.empty()) {
    return;
  }
  bool created = false;
  if (auto* group =
          findOrCreateGroup<DependentRoutingGroupConstr>(BaseConstraint::DEPENDENT_ROUTING_GROUP, name, created)) {
    group->setNodeGroup(nodes);
  }
}

void ConstrHandler::addDependentRoutingGroupConstr(std::string const& name, NameList const& nodes) {
  if (name.empty()) {
    return;
  }
  bool created = false;
  if (auto* group =
          findOrCreateGroup<DependentRoutingGroupConstr>(BaseConstraint::DEPENDENT_ROUTING_GROUP, name, created)) {
    group->addNodeGroup(nodes);
  }
}

void ConstrHandler::setIsomorphicGraphGroupConstr(std::string const& name, std::string const& referenceGraph,
                                                  NameList const& stampedGraphs) {
  if (name.empty()) {
    return;
  }
  bool created = false;
  if (auto* group =
          findOrCreateGroup<IsomorphicGraphGroupConstr>(BaseConstraint::ISOMORPHIC_GRAPH_GROUP, name, created)) {
    group->setReferenceGraph(referenceGraph);
    group->setStampedGraphs(stampedGraphs);
  }
}

void ConstrHandler::addIsomorphicGraphGroupConstr(std::string const& name, std::string const& referenceGraph,
                                                  NameList const& stampedGraphs) {
  if (name.empty()) {
    return;
  }
  bool created = false;
  if (auto* group =
          findOrCreateGroup<IsomorphicGraphGroupConstr>(BaseConstraint::ISOMORPHIC_GRAPH_GROUP, name, created)) {
    group->setReferenceGraph(referenceGraph);
    group->addStampedGraphGroup(stampedGraphs);
  }
}

// ---------------------------------------------------------------------------------------------
// Copy, rename, visit

void ConstrHandler::copyFrom(ConstrHandler const& source, BaseNameResolver const* resolver) {
  ConstrList const snapshot = source.getConstrs();
  for (BaseConstraint const* constraint : snapshot) {
    constraint->clone(*this, resolver);
  }
  m_records.copy(source);
}

void ConstrHandler::copy(ConstrHandler const& source) {
  copyFrom(source, nullptr);
}

void ConstrHandler::copy(ConstrHandler const& source, BaseNameResolver const& resolver) {
  copyFrom(source, &resolver);
}

void ConstrHandler::accept(ConstBaseVisitor& visitor) const {
  for (BaseConstraint const* constraint : m_constrs) {
    visitor.visit(constraint);
  }
}

void ConstrHandler::accept(BaseVisitor& visitor) const {
  for (BaseConstraint* constraint : m_constrs) {
    visitor.visit(constraint);
  }
}

// An entry already at a new name is overwritten; its constraints stay in the list.
void ConstrHandler::renamePorts(std::map<std::string, std::string> const& names) {
  ConstrList const snapshot = m_constrs;
  for (BaseConstraint* constraint : snapshot) {
    constraint->renamePorts(names);
  }
  for (auto const& rename : names) {
    auto const bucket = m_index.find(rename.first);
    if (bucket == m_index.end() || bucket->second.empty()) {
      continue;
    }
    ConstrList moved = bucket->second;
    m_lastBucket = nullptr;
    m_index.erase(bucket);
    m_index[rename.second] = std::move(moved);
  }
}

void ConstrHandler::dump() const {
  for (BaseConstraint const* constraint : m_constrs) {
    std::cout << constraint->str() << "\n";
  }
}

// ---------------------------------------------------------------------------------------------
// Hooks: this store keeps no child stores.

void ConstrHandler::prepareChildStores() {}
bool ConstrHandler::hasToolGeneratedStores() const {
  return false;
}
bool ConstrHandler::hasUserConstraints() const {
  return false;
}
bool ConstrHandler::isToolGenerated() const {
  return false;
}
bool ConstrHandler::isReadOnly() const {
  return false;
}
bool ConstrHandler::isSoft() const {
  return false;
}
ConstrHandler* ConstrHandler::getToolGeneratedStore(bool) {
  return nullptr;
}

}  // namespace constraints
}  // namespace kpe
