#include "GroupConstraints.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <sstream>

#include "BaseNameResolver.h"
#include "ConstrDocumentKeys.h"
#include "ConstrHandler.h"
#include "ConstrWriteSupport.h"

namespace kpe {
namespace constraints {

typedef ConstrDocumentKeys Keys;

using namespace writesupport;

namespace {

std::vector<std::string> withNode(DefaultedAttr const& list, std::string const& name) {
  return withUniqueAdded(list.getStringList(), std::vector<std::string>(1, name));
}

void addNodes(DefaultedAttr& list, std::vector<std::string> const& names) {
  list.setStringList(withUniqueAdded(list.getStringList(), names));
}

std::string namesText(std::vector<std::string> const& names) {
  std::string text;
  for (std::string const& name : names) {
    text += name + ",";
  }
  return text;
}

char const* boolText(bool value) {
  return value ? "true" : "false";
}

void addTrueIf(JsonValue& group, char const* key, bool value, JsonDocument& document) {
  if (value) {
    addTrue(group, key, document);
  }
}

// "nodeGroup" with the document names of a set list, if any name is left.
void writeNodeGroup(JsonValue& group, DefaultedAttr const& nodes, BaseNameResolver const* resolver,
                    JsonDocument& document) {
  if (!nodes.isSet()) {
    return;
  }
  std::vector<std::string> names = nodes.getStringList();
  resolveScopedNames(resolver, NameKind::Node, names);
  if (names.empty()) {
    return;
  }
  JsonValue array = makeStringArray(names, document);
  addMember(group, Keys::nodeGroup, array, document);
}

std::vector<std::string> resolvedNodes(std::vector<std::string> const& nodes, BaseNameResolver const* resolver) {
  std::vector<std::string> resolved = nodes;
  resolveNames(resolver, NameKind::Node, resolved);
  return resolved;
}

std::string placeText(PhysicalSpec const& place) {
  if (place.hasName()) {
    return place.getName();
  }
  if (!place.hasColumn()) {
    return std::string();
  }
  std::ostringstream text;
  if ((place.isTile() || place.isMem()) && place.hasRow()) {
    text << "(" << place.getColumn() << "," << place.getRow() << ")";
  } else if (place.isShim() && place.hasChannel()) {
    text << "(" << place.getColumn() << "," << place.getChannel() << ")";
  } else {
    text << place.getColumn();
  }
  return text.str();
}

std::string rangeText(PhysicalRange const& range) {
  if (!range.getLow().isSpecified()) {
    return std::string();
  }
  std::string text = placeText(range.getLow());
  if (range.getHigh().isSpecified()) {
    text += ":" + placeText(range.getHigh());
  }
  return text;
}

// A plain number converts from the start of the text, is not -1, and the text has no colon;
// so a name that starts with digits is written as its leading number.
JsonValue makeRangeItem(std::string const& text, JsonDocument& document) {
  if (text.find(':') == std::string::npos) {
    char* end = nullptr;
    errno = 0;
    long const number = std::strtol(text.c_str(), &end, 10);
    bool const converted = end != text.c_str() && errno == 0 && number >= INT_MIN && number <= INT_MAX;
    if (converted && number != -1) {
      return JsonValue(static_cast<int>(number));
    }
  }
  return makeString(text, document);
}

bool inShimGroup(PhysicalRange const& range) {
  PhysicalSpec const& high = range.getHigh();
  return (high.isSpecified() && high.isShim()) || range.getLow().isShim();
}

void addRangeGroup(JsonValue& group, char const* key, std::vector<PhysicalRange> const& ranges,
                   bool (*belongs)(PhysicalRange const&), JsonDocument& document) {
  JsonValue items(rapidjson::kArrayType);
  for (PhysicalRange const& range : ranges) {
    if (belongs(range)) {
      items.PushBack(makeRangeItem(rangeText(range), document), document.GetAllocator());
    }
  }
  if (!items.Empty()) {
    addMember(group, key, items, document);
  }
}

}  // namespace

// ---------------------------------------------------------------------------------------------
// GroupConstr

GroupConstr::GroupConstr(ConstrType type) : BaseConstraint(type), m_name(HATAttr::STRING) {}

std::string GroupConstr::getObjName() const {
  return getName();
}

BaseConstraint::ObjectType GroupConstr::getObjType() const {
  return GLOBAL;
}

void GroupConstr::writeSrcInfo(JsonDocument& document, JsonValue& value, std::string const&) const {
  addSrcInfoMember(document, value, Keys::srcInfo, getSrcInfo());
}

void GroupConstr::addGroupMember(JsonDocument& document, JsonValue& value, char const* key, JsonValue& group) const {
  writeSrcInfo(document, group, Keys::srcInfo);
  addMember(value, key, group, document);
}

// ---------------------------------------------------------------------------------------------
// AreaGroupConstr

AreaGroupConstr::AreaGroupConstr() : GroupConstr(AREA_GROUP), m_nodes(HATAttr::STRING_LIST) {}

void AreaGroupConstr::clone(ConstrHandler& target, BaseNameResolver const* resolver) const {
  target.setAreaGroupConstr(getName(), resolvedNodes(getNodeNames(), resolver), m_ranges, m_exclude, m_isSoft,
                            m_containRouting, m_exclusiveRouting, m_exclusivePlacement);
  if (AreaGroupConstr* made = target.getAreaGroupConstr(getName())) {
    made->copySrcInfoFrom(this);
  }
}

void AreaGroupConstr::write(JsonDocument& document, JsonValue& value, BaseNameResolver const* resolver) const {
  if (!hasName()) {
    return;
  }
  JsonValue group(rapidjson::kObjectType);
  addString(group, Keys::name, getName(), document);
  addTrueIf(group, Keys::exclude, m_exclude, document);
  addTrueIf(group, Keys::issoft, m_isSoft, document);
  addTrueIf(group, Keys::containRouting, m_containRouting, document);
  addTrueIf(group, Keys::exclusiveRouting, m_exclusiveRouting, document);
  addTrueIf(group, Keys::exclusivePlacement, m_exclusivePlacement, document);
  writeNodeGroup(group, m_nodes, resolver, document);
  addRangeGroup(
      group, Keys::tileGroup, m_ranges, [](PhysicalRange const& range) { return range.getLow().isTile(); }, document);
  addRangeGroup(
      group, Keys::memGroup, m_ranges, [](PhysicalRange const& range) { return range.getLow().isMem(); }, document);
  addRangeGroup(group, Keys::shimGroup, m_ranges, inShimGroup, document);
  addGroupMember(document, value, Keys::areaGroup, group);
}

void AreaGroupConstr::offsetColumn(int n) {
  std::vector<PhysicalRange> shifted = m_ranges;
  for (PhysicalRange& range : shifted) {
    range.offsetColumn(n);
  }
  m_ranges.swap(shifted);
}

std::string AreaGroupConstr::str() const {
  std::string text = " areaGroup(" + getName() + ")=(" + namesText(getNodeNames()) + ")(";
  for (PhysicalRange const& range : m_ranges) {
    text += "  " + range.str();
  }
  text += ")";
  text += std::string(" exclude=(") + boolText(m_exclude) + ")";
  text += std::string(" isSoft=(") + boolText(m_isSoft) + ")";
  text += std::string(" contain_routing=(") + boolText(m_containRouting) + ")";
  text += std::string(" exclusive_routing=(") + boolText(m_exclusiveRouting) + ")";
  text += std::string(" exclusive_placement=(") + boolText(m_exclusivePlacement) + ")";
  return text;
}

std::vector<std::string> const& AreaGroupConstr::getNodeNames() const {
  return m_nodes.getStringList();
}
void AreaGroupConstr::getNodeNames(std::vector<std::string>& out) const {
  out = m_nodes.getStringList();
}
std::vector<PhysicalRange> const& AreaGroupConstr::getPhysicalRanges() const {
  return m_ranges;
}
void AreaGroupConstr::getPhysicalRanges(std::vector<PhysicalRange>& out) const {
  out = m_ranges;
}

void AreaGroupConstr::getValidPhysicalGroup(std::vector<PhysicalRange>& out) const {
  for (PhysicalRange const& range : m_ranges) {
    if (range.isValid()) {
      out.push_back(range);
    }
  }
}

void AreaGroupConstr::addNode(std::string const& name) {
  m_nodes.setStringList(withNode(m_nodes, name));
}
void AreaGroupConstr::addNodeGroup(std::vector<std::string> const& names) {
  addNodes(m_nodes, names);
}

void AreaGroupConstr::setNodeGroup(std::vector<std::string> const& names) {
  m_nodes.reset();
  addNodeGroup(names);
}

void AreaGroupConstr::addRange(PhysicalSpec const& place) {
  if (place.isSpecified()) {
    m_ranges.push_back(PhysicalRange(place, PhysicalSpec()));
  }
}

void AreaGroupConstr::addRange(PhysicalRange const& range) {
  if (range.getLow().isSpecified()) {
    m_ranges.push_back(range);
  }
}

void AreaGroupConstr::addRange(PhysicalSpec const& low, PhysicalSpec const& high) {
  if (!low.isSpecified()) {
    return;
  }
  if (high.isSpecified()) {
    m_ranges.push_back(PhysicalRange(low, high));
  } else {
    addRange(low);
  }
}

void AreaGroupConstr::addRanges(std::vector<PhysicalRange> const& ranges) {
  m_ranges.insert(m_ranges.end(), ranges.begin(), ranges.end());
}

void AreaGroupConstr::setRanges(std::vector<PhysicalRange> const& ranges) {
  m_ranges.clear();
  addRanges(ranges);
}

bool AreaGroupConstr::hasNodeNames() const {
  return m_nodes.isSet();
}
bool AreaGroupConstr::hasRanges() const {
  return !m_ranges.empty();
}

// ---------------------------------------------------------------------------------------------
// InstGroupConstr

InstGroupConstr::InstGroupConstr() : GroupConstr(INST_GROUP), m_nodes(HATAttr::STRING_LIST) {}

void InstGroupConstr::clone(ConstrHandler& target, BaseNameResolver const* resolver) const {
  target.setInstGroupConstr(getName(), resolvedNodes(getNodeNames(), resolver), m_isIsomorphic);
  if (InstGroupConstr* made = target.getInstGroupConstr(getName())) {
    made->copySrcInfoFrom(this);
  }
}

void InstGroupConstr::write(JsonDocument& document, JsonValue& value, BaseNameResolver const* resolver) const {
  if (!hasName()) {
    return;
  }
  JsonValue group(rapidjson::kObjectType);
  addString(group, Keys::name, getName(), document);
  addTrueIf(group, Keys::isisomorphic, m_isIsomorphic, document);
  writeNodeGroup(group, m_nodes, resolver, document);
  addGroupMember(document, value, Keys::instGroup, group);
}

void InstGroupConstr::offsetColumn(int) {}

std::string InstGroupConstr::str() const {
  return " instGroup(" + getName() + ")=(" + namesText(getNodeNames()) + ") isIsomorphic=(" + boolText(m_isIsomorphic) +
         ")";
}

std::vector<std::string> const& InstGroupConstr::getNodeNames() const {
  return m_nodes.getStringList();
}
void InstGroupConstr::getNodeNames(std::vector<std::string>& out) const {
  out = m_nodes.getStringList();
}
void InstGroupConstr::addNode(std::string const& name) {
  m_nodes.setStringList(withNode(m_nodes, name));
}
void InstGroupConstr::addNodeGroup(std::vector<std::string> const& names) {
  addNodes(m_nodes, names);
}

void InstGroupConstr::setNodeGroup(std::vector<std::string> const& names) {
  m_nodes.reset();
  addNodeGroup(names);
}

bool InstGroupConstr::hasNodeNames() const {
  return m_nodes.isSet();
}

// ---------------------------------------------------------------------------------------------
// DependentRoutingGroupConstr

DependentRoutingGroupConstr::DependentRoutingGroupConstr()
    : GroupConstr(DEPENDENT_ROUTING_GROUP), m_nodes(HATAttr::STRING_LIST) {}

void DependentRoutingGroupConstr::clone(ConstrHandler& target, BaseNameResolver const* resolver) const {
  target.setDependentRoutingGroupConstr(getName(), resolvedNodes(getNodeNames(), resolver));
  if (DependentRoutingGroupConstr* made = target.getDependentRoutingGroupConstr(getName())) {
    made->copySrcInfoFrom(this);
  }
}

void DependentRoutingGroupConstr::write(JsonDocument& document, JsonValue& value,
                                        BaseNameResolver const* resolver) const {
  if (!hasName()) {
    return;
  }
  JsonValue group(rapidjson::kObjectType);
  addString(group, Keys::name, getName(), document);
  writeNodeGroup(group, m_nodes, resolver, document);
  addGroupMember(document, value, Keys::dependentRoutingGroup, group);
}

void DependentRoutingGroupConstr::offsetColumn(int) {}

std::string DependentRoutingGroupConstr::str() const {
  return " dependentRoutingGroup(" + getName() + ")=(" + namesText(getNodeNames()) + ")";
}

std::vector<std::string> const& DependentRoutingGroupConstr::getNodeNames() const {
  return m_nodes.getStringList();
}
void DependentRoutingGroupConstr::getNodeNames(std::vector<std::string>& out) const {
  out = m_nodes.getStringList();
}
void DependentRoutingGroupConstr::addNode(std::string const& name) {
  m_nodes.setStringList(withNode(m_nodes, name));
}
void DependentRoutingGroupConstr::addNodeGroup(std::vector<std::string> const& names) {
  addNodes(m_nodes, names);
}

void DependentRoutingGroupConstr::setNodeGroup(std::vector<std::string> const& names) {
  m_nodes.reset();
  addNodeGroup(names);
}

bool DependentRoutingGroupConstr::hasNodeNames() const {
  return m_nodes.isSet();
}

// ---------------------------------------------------------------------------------------------
// IsomorphicGraphGroupConstr

IsomorphicGraphGroupConstr::IsomorphicGraphGroupConstr()
    : GroupConstr(ISOMORPHIC_GRAPH_GROUP), m_referenceGraph(HATAttr::STRING), m_stampedGraphs(HATAttr::STRING_LIST) {}

// Graph names are not design names and are never resolved.
void IsomorphicGraphGroupConstr::clone(ConstrHandler& target, BaseNameResolver const*) const {
  target.setIsomorphicGraphGroupConstr(getName(), getReferenceGraph(), getStampedGraphs());
  if (IsomorphicGraphGroupConstr* made = target.getIsomorphicGraphGroupConstr(getName())) {
    made->copySrcInfoFrom(this);
  }
}

void IsomorphicGraphGroupConstr::write(JsonDocument& document, JsonValue& value, BaseNameResolver const*) const {
  if (!hasName()) {
    return;
  }
  JsonValue group(rapidjson::kObjectType);
  addString(group, Keys::name, getName(), document);
  if (hasReferenceGraph()) {
    addString(group, Keys::referenceGraph, getReferenceGraph(), document);
  }
  if (hasStampedGraphs()) {
    JsonValue graphs = makeStringArray(getStampedGraphs(), document);
    addMember(group, Keys::stampedGraphs, graphs, document);
  }
  addGroupMember(document, value, Keys::isomorphicGraphGroup, group);
}

void IsomorphicGraphGroupConstr::offsetColumn(int) {}

std::string IsomorphicGraphGroupConstr::str() const {
  return " isomorphicGraphGroup(" + getName() + ")=(" + getReferenceGraph() + " - " + namesText(getStampedGraphs()) +
         ")";
}

std::vector<std::string> const& IsomorphicGraphGroupConstr::getStampedGraphs() const {
  return m_stampedGraphs.getStringList();
}
void IsomorphicGraphGroupConstr::getStampedGraphs(std::vector<std::string>& out) const {
  out = m_stampedGraphs.getStringList();
}
void IsomorphicGraphGroupConstr::setReferenceGraph(std::string const& graph) {
  m_referenceGraph.setString(graph);
}
void IsomorphicGraphGroupConstr::addStampedGraph(std::string const& graph) {
  m_stampedGraphs.setStringList(withNode(m_stampedGraphs, graph));
}
void IsomorphicGraphGroupConstr::addStampedGraphGroup(std::vector<std::string> const& graphs) {
  addNodes(m_stampedGraphs, graphs);
}
void IsomorphicGraphGroupConstr::setStampedGraphs(std::vector<std::string> const& graphs) {
  m_stampedGraphs.reset();
  addStampedGraphGroup(graphs);
}
bool IsomorphicGraphGroupConstr::hasReferenceGraph() const {
  return m_referenceGraph.isSet();
}
bool IsomorphicGraphGroupConstr::hasStampedGraphs() const {
  return m_stampedGraphs.isSet();
}

}  // namespace constraints
}  // namespace kpe
