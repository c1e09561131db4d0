#include "ColocationConstraints.h"

#include <boost/format.hpp>

#include "BaseNameResolver.h"
#include "ConstrCast.h"
#include "ConstrDocumentKeys.h"
#include "ConstrHandler.h"
#include "ConstrWriteSupport.h"
#include "PhysicalSpec.h"

namespace kpe {
namespace constraints {

typedef ConstrDocumentKeys Keys;

using namespace writesupport;

namespace {

typedef std::map<std::string, std::string> RenameMap;

void addUniqueNames(DefaultedAttr& list, std::vector<std::string> const& names) {
  list.setStringList(withUniqueAdded(list.getStringList(), names));
}

void setSoftListName(DefaultedAttr& list, ConstrPropertiesMap& properties, std::string const& name, bool soft) {
  std::vector<std::string> names = list.getStringList();
  setSoftName(names, properties, name, soft);
  list.setStringList(names);
}

void setNonDefaultProperties(ConstrPropertiesMap& properties, std::string const& name, ConstrProperties const& record) {
  if (!record.isDefault()) {
    properties[name] = record;
  }
}

// Renames the names of a list that the map holds, and the keys of its property map.
void renameList(DefaultedAttr& list, ConstrPropertiesMap& properties, RenameMap const& names) {
  std::vector<std::string> renamed = list.getStringList();
  for (std::string& name : renamed) {
    auto const found = names.find(name);
    if (found != names.end()) {
      name = found->second;
    }
  }
  if (!renamed.empty()) {
    list.setStringList(renamed);
  }
  ConstrPropertiesMap rekeyed;
  for (auto const& entry : properties) {
    auto const found = names.find(entry.first);
    rekeyed[found != names.end() ? found->second : entry.first] = entry.second;
  }
  properties.swap(rekeyed);
}

ConstrPropertiesMap rekeyThrough(ConstrPropertiesMap const& properties, BaseNameResolver const* resolver,
                                 NameKind kind) {
  if (resolver == nullptr) {
    return properties;
  }
  return rekeyProperties(properties,
                         [resolver, kind](std::vector<std::string>& names) { resolveNames(resolver, kind, names); });
}

std::vector<std::string> resolvedCopy(std::vector<std::string> const& names, BaseNameResolver const* resolver,
                                      NameKind kind) {
  std::vector<std::string> resolved = names;
  resolveNames(resolver, kind, resolved);
  return resolved;
}

}  // namespace

// ---------------------------------------------------------------------------------------------
// ColocatedNodeListsConstr

ColocatedNodeListsConstr::ColocatedNodeListsConstr(ConstrType type, ObjectType objType, std::string const& objName,
                                                   Words const& words)
    : BaseConstraint(type, objType, objName),
      m_words(words),
      m_colocated(HATAttr::STRING_LIST),
      m_notColocated(HATAttr::STRING_LIST) {}

void ColocatedNodeListsConstr::cloneLists(ConstrHandler& target, BaseNameResolver const* resolver,
                                          TargetSetter const& setOnTarget, TargetFinder const& findOnTarget) const {
  std::string const name = resolvedObjName(resolver);
  std::vector<std::string> const colocated = resolvedCopy(getColocatedNodeNames(), resolver, NameKind::Node);
  if (!colocated.empty()) {
    setOnTarget(target, getObjType(), name, colocated, false);
    if (ColocatedNodeListsConstr* made = findOnTarget(target, name)) {
      made->setConstrObjectsProperties(rekeyThrough(getConstrObjectsProperties(), resolver, NameKind::Node));
    }
  }
  std::vector<std::string> const notColocated = resolvedCopy(getNotColocatedNodeNames(), resolver, NameKind::Node);
  if (!notColocated.empty()) {
    setOnTarget(target, getObjType(), name, notColocated, true);
    if (ColocatedNodeListsConstr* made = findOnTarget(target, name)) {
      for (auto const& entry : rekeyThrough(m_notColocatedProps, resolver, NameKind::Node)) {
        made->setNotColocatedConstrObjectProperties(entry.first, entry.second);
      }
    }
  }
  if (ColocatedNodeListsConstr* made = findOnTarget(target, name)) {
    made->copySrcInfoFrom(this);
  }
}

void ColocatedNodeListsConstr::write(JsonDocument& document, JsonValue& value, BaseNameResolver const* resolver) const {
  if (writeNameItems(value, m_words.colocatedKey, getColocatedNodeNames(), getConstrObjectsProperties(), resolver,
                     NameKind::Node, document)) {
    writeSrcInfo(document, value, m_words.colocatedKey);
  }
  if (writeNameItems(value, m_words.notColocatedKey, getNotColocatedNodeNames(), m_notColocatedProps, resolver,
                     NameKind::Node, document)) {
    writeNotConstrSrcInfo(document, value, m_words.notColocatedKey);
  }
}

void ColocatedNodeListsConstr::offsetColumn(int) {}

std::string ColocatedNodeListsConstr::str() const {
  return listText(getObjName(), m_words.colocatedText, getColocatedNodeNames()) +
         listText(getObjName(), m_words.notColocatedText, getNotColocatedNodeNames());
}

void ColocatedNodeListsConstr::copySrcInfoFrom(BaseConstraint const* other) {
  if (other == nullptr || other->getType() != getType()) {
    return;
  }
  auto const* lists = dynamic_cast<ColocatedNodeListsConstr const*>(other);
  if (lists == nullptr) {
    return;
  }
  BaseConstraint::copySrcInfoFrom(other);
  m_notColocatedSrcInfo = lists->m_notColocatedSrcInfo;
}

std::vector<std::string> const& ColocatedNodeListsConstr::getColocatedNodeNames() const {
  return m_colocated.getStringList();
}

void ColocatedNodeListsConstr::getColocatedNodeNames(std::vector<std::string>& out) const {
  out = m_colocated.getStringList();
}

std::vector<std::string> const& ColocatedNodeListsConstr::getNotColocatedNodeNames() const {
  return m_notColocated.getStringList();
}

void ColocatedNodeListsConstr::getNotColocatedNodeNames(std::vector<std::string>& out) const {
  out = m_notColocated.getStringList();
}

void ColocatedNodeListsConstr::addNodeNames(std::vector<std::string> const& names) {
  addUniqueNames(m_colocated, names);
}

void ColocatedNodeListsConstr::setColocatedNodeNames(std::vector<std::string> const& names) {
  m_colocated.setStringList(names);
}

void ColocatedNodeListsConstr::addNotColocatedNodeNames(std::vector<std::string> const& names) {
  addUniqueNames(m_notColocated, names);
}

void ColocatedNodeListsConstr::setNotColocatedNodeNames(std::vector<std::string> const& names) {
  m_notColocated.setStringList(names);
}

bool ColocatedNodeListsConstr::hasNodeNames() const {
  return hasColocatedNodeNames() || hasNotColocatedNodeNames();
}
bool ColocatedNodeListsConstr::hasColocatedNodeNames() const {
  return m_colocated.isSet();
}
bool ColocatedNodeListsConstr::hasNotColocatedNodeNames() const {
  return m_notColocated.isSet();
}

bool ColocatedNodeListsConstr::containsColocatedNode(std::string const& name) const {
  return containsName(getColocatedNodeNames(), name);
}

bool ColocatedNodeListsConstr::containsNotColocatedNode(std::string const& name) const {
  return containsName(getNotColocatedNodeNames(), name);
}

void ColocatedNodeListsConstr::setColocatedSoftNode(std::string const& name, bool soft) {
  setSoftListName(m_colocated, objectsProperties(), name, soft);
}

bool ColocatedNodeListsConstr::isColocatedSoftNode(std::string const& name) const {
  return ConstrProperties::hasNonDefaultProps(name, getConstrObjectsProperties());
}

std::vector<std::string> ColocatedNodeListsConstr::getColocatedSoftNodes() const {
  return softNamesOf(getColocatedNodeNames(), getConstrObjectsProperties());
}

bool ColocatedNodeListsConstr::isNotColocatedSoftNode(std::string const& name) const {
  return ConstrProperties::hasNonDefaultProps(name, m_notColocatedProps);
}

std::vector<std::string> ColocatedNodeListsConstr::getNotColocatedSoftNodes() const {
  return softNamesOf(getNotColocatedNodeNames(), m_notColocatedProps);
}

void ColocatedNodeListsConstr::setNotColocatedSoftNode(std::string const& name, bool soft) {
  setSoftListName(m_notColocated, m_notColocatedProps, name, soft);
}

void ColocatedNodeListsConstr::setNotColocatedConstrObjectProperties(std::string const& objectName,
                                                                     ConstrProperties const& properties) {
  setNonDefaultProperties(m_notColocatedProps, objectName, properties);
}

void ColocatedNodeListsConstr::writeNotConstrSrcInfo(JsonDocument& document, JsonValue& value,
                                                     std::string const& key) const {
  if (getObjType() != GLOBAL) {
    addSrcInfoMember(document, value, key + Keys::srcInfoSuffix, m_notColocatedSrcInfo);
  }
}

ColocatedNodesConstr::ColocatedNodesConstr(ObjectType objType, std::string const& objName)
    : ColocatedNodeListsConstr(
          COLOCATED_NODES, objType, objName,
          {Keys::colocatedNodes, Keys::notColocatedNodes, Keys::colocatedNodes, Keys::notColocatedNodes}) {}

void ColocatedNodesConstr::clone(ConstrHandler& target, BaseNameResolver const* resolver) const {
  cloneLists(
      target, resolver,
      [](ConstrHandler& store, ObjectType objType, std::string const& name, std::vector<std::string> const& names,
         bool notColocated) { store.setColocatedNodesConstr(objType, name, names, notColocated); },
      [](ConstrHandler& store, std::string const& name) -> ColocatedNodeListsConstr* {
        return store.getColocatedNodesConstr(name);
      });
}

ColocatedMemoriesConstr::ColocatedMemoriesConstr(ObjectType objType, std::string const& objName)
    : ColocatedNodeListsConstr(COLOCATED_MEMORIES, objType, objName,
                               {Keys::colocatedReservedMemories, Keys::notColocatedReservedMemories,
                                Keys::colocatedMemories, "not_colocated_memories"}) {}

void ColocatedMemoriesConstr::clone(ConstrHandler& target, BaseNameResolver const* resolver) const {
  cloneLists(
      target, resolver,
      [](ConstrHandler& store, ObjectType objType, std::string const& name, std::vector<std::string> const& names,
         bool notColocated) { store.setColocatedMemoriesConstr(objType, name, names, notColocated); },
      [](ConstrHandler& store, std::string const& name) -> ColocatedNodeListsConstr* {
        return store.getColocatedMemoriesConstr(name);
      });
}

// ---------------------------------------------------------------------------------------------
// ColocatedPortsConstr

ColocatedPortsConstr::ColocatedPortsConstr(std::string const& objName)
    : BaseConstraint(COLOCATED_PORTS, PORT, objName),
      m_colocated(HATAttr::STRING_LIST),
      m_notColocated(HATAttr::STRING_LIST),
      m_exclusive(HATAttr::STRING_LIST) {}

void ColocatedPortsConstr::clone(ConstrHandler& target, BaseNameResolver const* resolver) const {
  std::string const name = resolvedObjName(resolver);
  std::vector<std::string> const colocated = resolvedCopy(getColocatedPortNames(), resolver, NameKind::Port);
  if (!colocated.empty()) {
    target.setColocatedPortsConstr(PORT, name, colocated, false);
    if (ColocatedPortsConstr* made = target.getColocatedPortsConstr(name)) {
      made->setConstrObjectsProperties(rekeyThrough(getConstrObjectsProperties(), resolver, NameKind::Port));
    }
  }
  std::vector<std::string> const notColocated = resolvedCopy(getNotColocatedPortNames(), resolver, NameKind::Port);
  if (!notColocated.empty()) {
    target.setColocatedPortsConstr(PORT, name, notColocated, true);
    if (ColocatedPortsConstr* made = target.getColocatedPortsConstr(name)) {
      for (auto const& entry : rekeyThrough(m_notColocatedProps, resolver, NameKind::Port)) {
        made->setNotColocatedConstrObjectProperties(entry.first, entry.second);
      }
    }
  }
  std::vector<std::string> const exclusive = resolvedCopy(getExclusiveColocatedPortNames(), resolver, NameKind::Port);
  if (!exclusive.empty()) {
    target.setExclusiveColocatedPortsConstr(PORT, name, exclusive);
    if (ColocatedPortsConstr* made = target.getColocatedPortsConstr(name)) {
      for (auto const& entry : rekeyThrough(m_exclusiveProps, resolver, NameKind::Port)) {
        made->setExclusiveColocatedConstrObjectProperties(entry.first, entry.second);
      }
    }
  }
  if (ColocatedPortsConstr* made = target.getColocatedPortsConstr(name)) {
    made->copySrcInfoFrom(this);
  }
}

void ColocatedPortsConstr::write(JsonDocument& document, JsonValue& value, BaseNameResolver const* resolver) const {
  if (writeNameItems(value, Keys::colocatedPorts, getColocatedPortNames(), getConstrObjectsProperties(), resolver,
                     NameKind::Port, document)) {
    writeSrcInfo(document, value, Keys::colocatedPorts);
  }
  if (writeNameItems(value, Keys::notColocatedPorts, getNotColocatedPortNames(), m_notColocatedProps, resolver,
                     NameKind::Port, document)) {
    writeNotConstrSrcInfo(document, value, Keys::notColocatedPorts);
  }
  if (writeNameItems(value, Keys::exclusiveColocatedPorts, getExclusiveColocatedPortNames(), m_exclusiveProps, resolver,
                     NameKind::Port, document)) {
    writeExclusiveConstrSrcInfo(document, value, Keys::exclusiveColocatedPorts);
  }
}

void ColocatedPortsConstr::offsetColumn(int) {}

std::string ColocatedPortsConstr::str() const {
  return listText(getObjName(), "colocated_ports", getColocatedPortNames()) +
         listText(getObjName(), "not_colocated_ports", getNotColocatedPortNames()) +
         listText(getObjName(), "exclusive_colocated_ports", getExclusiveColocatedPortNames());
}

void ColocatedPortsConstr::renamePorts(std::map<std::string, std::string> const& names) {
  BaseConstraint::renamePorts(names);
  renameColocatedPorts(names);
  renameNotColocatedPorts(names);
  renameExclusiveColocatedPorts(names);
}

void ColocatedPortsConstr::renameColocatedPorts(std::map<std::string, std::string> const& names) {
  renameList(m_colocated, objectsProperties(), names);
}

void ColocatedPortsConstr::renameNotColocatedPorts(std::map<std::string, std::string> const& names) {
  renameList(m_notColocated, m_notColocatedProps, names);
}

void ColocatedPortsConstr::renameExclusiveColocatedPorts(std::map<std::string, std::string> const& names) {
  renameList(m_exclusive, m_exclusiveProps, names);
}

void ColocatedPortsConstr::copySrcInfoFrom(BaseConstraint const* other) {
  ColocatedPortsConstr const* ports = ConstrCast::toColocatedPorts(other);
  if (ports == nullptr) {
    return;
  }
  BaseConstraint::copySrcInfoFrom(other);
  m_notColocatedSrcInfo = ports->m_notColocatedSrcInfo;
  m_exclusiveSrcInfo = ports->m_exclusiveSrcInfo;
}

std::vector<std::string> const& ColocatedPortsConstr::getColocatedPortNames() const {
  return m_colocated.getStringList();
}
void ColocatedPortsConstr::getColocatedPortNames(std::vector<std::string>& out) const {
  out = m_colocated.getStringList();
}
std::vector<std::string> const& ColocatedPortsConstr::getNotColocatedPortNames() const {
  return m_notColocated.getStringList();
}
void ColocatedPortsConstr::getNotColocatedPortNames(std::vector<std::string>& out) const {
  out = m_notColocated.getStringList();
}
std::vector<std::string> const& ColocatedPortsConstr::getExclusiveColocatedPortNames() const {
  return m_exclusive.getStringList();
}
void ColocatedPortsConstr::getExclusiveColocatedPortNames(std::vector<std::string>& out) const {
  out = m_exclusive.getStringList();
}
void ColocatedPortsConstr::addPortNames(std::vector<std::string> const& names) {
  addUniqueNames(m_colocated, names);
}
void ColocatedPortsConstr::setColocatedPortNames(std::vector<std::string> const& names) {
  m_colocated.setStringList(names);
}
void ColocatedPortsConstr::addNotColocatedPortNames(std::vector<std::string> const& names) {
  addUniqueNames(m_notColocated, names);
}
void ColocatedPortsConstr::setNotColocatedPortNames(std::vector<std::string> const& names) {
  m_notColocated.setStringList(names);
}
void ColocatedPortsConstr::addExclusiveColocatedPortNames(std::vector<std::string> const& names) {
  addUniqueNames(m_exclusive, names);
}
void ColocatedPortsConstr::setExclusiveColocatedPortNames(std::vector<std::string> const& names) {
  m_exclusive.setStringList(names);
}
bool ColocatedPortsConstr::hasPortNames() const {
  return hasColocatedPortNames() || hasNotColocatedPortNames() || hasExclusiveColocatedPortNames();
}
bool ColocatedPortsConstr::hasColocatedPortNames() const {
  return m_colocated.isSet();
}
bool ColocatedPortsConstr::hasNotColocatedPortNames() const {
  return m_notColocated.isSet();
}
bool ColocatedPortsConstr::hasExclusiveColocatedPortNames() const {
  return m_exclusive.isSet();
}
bool ColocatedPortsConstr::containsColocatedPort(std::string const& name) const {
  return containsName(getColocatedPortNames(), name);
}
bool ColocatedPortsConstr::containsNotColocatedPort(std::string const& name) const {
  return containsName(getNotColocatedPortNames(), name);
}
bool ColocatedPortsConstr::containsExclusiveColocatedPort(std::string const& name) const {
  return containsName(getExclusiveColocatedPortNames(), name);
}
bool ColocatedPortsConstr::isColocatedSoftPort(std::string const& name) const {
  return ConstrProperties::hasNonDefaultProps(name, getConstrObjectsProperties());
}
std::vector<std::string> ColocatedPortsConstr::getColocatedSoftPorts() const {
  return softNamesOf(getColocatedPortNames(), getConstrObjectsProperties());
}
bool ColocatedPortsConstr::isNotColocatedSoftPort(std::string const& name) const {
  return ConstrProperties::hasNonDefaultProps(name, m_notColocatedProps);
}
bool ColocatedPortsConstr::isExclusiveColocatedSoftPort(std::string const& name) const {
  return ConstrProperties::hasNonDefaultProps(name, m_exclusiveProps);
}
void ColocatedPortsConstr::setColocatedSoftPort(std::string const& name, bool soft) {
  setSoftListName(m_colocated, objectsProperties(), name, soft);
}
void ColocatedPortsConstr::setNotColocatedSoftPort(std::string const& name, bool soft) {
  setSoftListName(m_notColocated, m_notColocatedProps, name, soft);
}
void ColocatedPortsConstr::setExclusiveColocatedSoftPort(std::string const& name, bool soft) {
  setSoftListName(m_exclusive, m_exclusiveProps, name, soft);
}
std::vector<std::string> ColocatedPortsConstr::getNotColocatedSoftPorts() const {
  return softNamesOf(getNotColocatedPortNames(), m_notColocatedProps);
}
std::vector<std::string> ColocatedPortsConstr::getExclusiveColocatedSoftPorts() const {
  return softNamesOf(getExclusiveColocatedPortNames(), m_exclusiveProps);
}
void ColocatedPortsConstr::setNotColocatedConstrObjectProperties(std::string const& objectName,
                                                                 ConstrProperties const& properties) {
  setNonDefaultProperties(m_notColocatedProps, objectName, properties);
}
void ColocatedPortsConstr::setExclusiveColocatedConstrObjectProperties(std::string const& objectName,
                                                                       ConstrProperties const& properties) {
  setNonDefaultProperties(m_exclusiveProps, objectName, properties);
}
void ColocatedPortsConstr::writeNotConstrSrcInfo(JsonDocument& document, JsonValue& value,
                                                 std::string const& key) const {
  addSrcInfoMember(document, value, key + Keys::srcInfoSuffix, m_notColocatedSrcInfo);
}
void ColocatedPortsConstr::writeExclusiveConstrSrcInfo(JsonDocument& document, JsonValue& value,
                                                       std::string const& key) const {
  addSrcInfoMember(document, value, key + Keys::srcInfoSuffix, m_exclusiveSrcInfo);
}

// ---------------------------------------------------------------------------------------------
// ColocatedDmaConstr

ColocatedDmaConstr::ColocatedDmaConstr(std::string const& objName)
    : BaseConstraint(COLOCATED_DMA, PORT, objName), m_ports(HATAttr::STRING_LIST) {}

void ColocatedDmaConstr::clone(ConstrHandler& target, BaseNameResolver const* resolver) const {
  std::string const name = resolvedObjName(resolver);
  std::vector<std::string> const ports = resolvedCopy(getColocatedPortNames(), resolver, NameKind::Port);
  if (!ports.empty()) {
    target.setColocatedDmaConstr(PORT, name, ports);
  }
  if (ColocatedDmaConstr* made = target.getColocatedDmaConstr(name)) {
    made->copySrcInfoFrom(this);
  }
}

void ColocatedDmaConstr::write(JsonDocument& document, JsonValue& value, BaseNameResolver const* resolver) const {
  std::vector<std::string> ports = getColocatedPortNames();
  resolveScopedNames(resolver, NameKind::Port, ports);
  if (ports.empty()) {
    return;
  }
  JsonValue array = makeStringArray(ports, document);
  addMember(value, Keys::colocatedDma, array, document);
  writeSrcInfo(document, value, Keys::colocatedDma);
}

void ColocatedDmaConstr::offsetColumn(int) {}

std::string ColocatedDmaConstr::str() const {
  return listText(getObjName(), "colocated_dma", getColocatedPortNames());
}

void ColocatedDmaConstr::renamePorts(std::map<std::string, std::string> const& names) {
  BaseConstraint::renamePorts(names);
  ConstrPropertiesMap noProperties;
  renameList(m_ports, noProperties, names);
}

std::vector<std::string> const& ColocatedDmaConstr::getColocatedPortNames() const {
  return m_ports.getStringList();
}
void ColocatedDmaConstr::getColocatedPortNames(std::vector<std::string>& out) const {
  out = m_ports.getStringList();
}
void ColocatedDmaConstr::addPortNames(std::vector<std::string> const& names) {
  addUniqueNames(m_ports, names);
}
void ColocatedDmaConstr::setColocatedPortNames(std::vector<std::string> const& names) {
  m_ports.setStringList(names);
}
bool ColocatedDmaConstr::hasColocatedPortNames() const {
  return m_ports.isSet();
}
bool ColocatedDmaConstr::containsColocatedPort(std::string const& name) const {
  return containsName(getColocatedPortNames(), name);
}

// ---------------------------------------------------------------------------------------------
// RelativeNodesConstr

RelativeNodesConstr::RelativeNodesConstr(std::string const& objName) : BaseConstraint(RELATIVE_NODES, NODE, objName) {}

void RelativeNodesConstr::clone(ConstrHandler& target, BaseNameResolver const* resolver) const {
  std::string const name = resolvedObjName(resolver);
  OffsetMap resolved;
  for (auto const& entry : m_nodes) {
    for (std::string const& node : resolvedCopy({entry.first}, resolver, NameKind::Node)) {
      resolved[node] = entry.second;
    }
  }
  target.setRelativeNodesConstr(NODE, name, resolved);
  if (RelativeNodesConstr* made = target.getRelativeNodesConstr(name)) {
    made->copySrcInfoFrom(this);
  }
}

// Each node by its first document name, with the offsets it has; a node with neither goes.
void RelativeNodesConstr::write(JsonDocument& document, JsonValue& value, BaseNameResolver const* resolver) const {
  std::vector<std::string> items;
  for (auto const& entry : m_nodes) {
    std::vector<std::string> names(1, entry.first);
    resolveScopedNames(resolver, NameKind::Node, names);
    if (names.empty()) {
      continue;
    }
    bool const hasX = entry.second.x != DefaultXYValues::XCoordinateNotSetValue;
    bool const hasY = entry.second.y != DefaultXYValues::YCoordinateNotSetValue;
    if (hasX && hasY) {
      items.push_back((boost::format("%s:(X=%d,Y=%d)") % names.front() % entry.second.x % entry.second.y).str());
    } else if (hasX) {
      items.push_back((boost::format("%s:(X=%d)") % names.front() % entry.second.x).str());
    } else if (hasY) {
      items.push_back((boost::format("%s:(Y=%d)") % names.front() % entry.second.y).str());
    }
  }
  if (items.empty()) {
    return;
  }
  JsonValue array = makeStringArray(items, document);
  addMember(value, Keys::relativeNodes, array, document);
  writeSrcInfo(document, value, Keys::relativeNodes);
}

// Offsets are relative and need no shift.
void RelativeNodesConstr::offsetColumn(int) {}

// The items follow one another with a single comma before the first.
std::string RelativeNodesConstr::str() const {
  std::string text = " rel(" + getObjName() + ",relative_nodes)=(";
  bool first = true;
  for (auto const& entry : m_nodes) {
    if (first) {
      text += ",";
      first = false;
    }
    text += (boost::format("%s:(X=%d,Y=%d)") % entry.first % entry.second.x % entry.second.y).str();
  }
  return text + ")";
}

void RelativeNodesConstr::getNodeNames(std::vector<std::string>& out) const {
  out.clear();
  for (auto const& entry : m_nodes) {
    out.push_back(entry.first);
  }
}

RelativeNodesConstr::OffsetMap const& RelativeNodesConstr::getNodesWithOffset() const {
  return m_nodes;
}
void RelativeNodesConstr::getNodesWithOffset(OffsetMap& out) const {
  out = m_nodes;
}

void RelativeNodesConstr::addNodesWithOffset(OffsetMap const& nodes) {
  for (auto const& entry : nodes) {
    m_nodes[entry.first] = entry.second;
  }
}

void RelativeNodesConstr::setNodesWithOffset(OffsetMap const& nodes) {
  m_nodes = nodes;
}
void RelativeNodesConstr::unloadObject(std::string const& name) {
  m_nodes.erase(name);
}
bool RelativeNodesConstr::isSpecified() const {
  return hasNodesWithOffset();
}
bool RelativeNodesConstr::hasNodesWithOffset() const {
  return !m_nodes.empty();
}

void RelativeNodesConstr::setNodeOffset(std::string const& name, HDPoint<int> const& offset) {
  m_nodes[name] = offset;
}

HDPoint<int> RelativeNodesConstr::getNodeOffset(std::string const& name) const {
  auto const found = m_nodes.find(name);
  if (found == m_nodes.end()) {
    return HDPoint<int>(DefaultXYValues::XCoordinateNotSetValue, DefaultXYValues::YCoordinateNotSetValue);
  }
  return found->second;
}

}  // namespace constraints
}  // namespace kpe
