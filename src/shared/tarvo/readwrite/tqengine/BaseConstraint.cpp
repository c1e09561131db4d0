#include "BaseConstraint.h"

#include <array>

#include "BaseNameResolver.h"
#include "ConstrDocumentKeys.h"
#include "ConstrWriteSupport.h"
#include "HEXAlgException.h"

namespace kpe {
namespace constraints {

typedef ConstrDocumentKeys Keys;

namespace {

constexpr std::size_t kConstrTypeCount = 18;

struct ConstrTypeTexts {
  std::array<std::string, kConstrTypeCount + 1> kind;
  std::array<std::string, kConstrTypeCount + 1> attribute;  // the last entry stays empty
};

ConstrTypeTexts const& constrTypeTexts() {
  static ConstrTypeTexts const texts = {
      {"Buffer", "ReservedMemory", "Tile", "Mem", "Shim", "PortLoc", "StreamChannel", "Attr", "ColocatedNodes",
       "RelativeNodes", "ColocatedPorts", "ColocatedDma", "ColocatedMemories", "FifoLocations", "AreaGroup",
       "InstGroup", "DependentRoutingGroup", "IsomorphicGraphGroup", ""},
      {"kpe.buffers", "kpe.reserved_memory", "kpe.tile", "kpe.mem", "kpe.shim", "kpe.port_loc", "kpe.stream_channel",
       "kpe.attr", "kpe.colocated_nodes", "kpe.relative_nodes", "kpe.colocated_ports", "kpe.colocated_dma",
       "kpe.colocated_reserved_memories", "kpe.fifo_locations", "kpe.area_group", "kpe.inst_group",
       "kpe.independent_packet_switched_routing_roup", "kpe.isomorphic_graph_group", ""}};
  return texts;
}

std::size_t typeIndex(BaseConstraint::ConstrType type) {
  return type < kConstrTypeCount ? static_cast<std::size_t>(type) : kConstrTypeCount;
}

BaseConstraint::ConstrType refuseAttr(BaseConstraint::ConstrType type) {
  if (type == BaseConstraint::ATTR) {
    throw HEXAlgException(
        "BaseConstraint::BaseConstraint() - Invalid constructor call: BaseConstraints of type 'Attr' must be "
        "uniquely named");
  }
  return type;
}

}  // namespace

bool ConstrProperties::hasNonDefaultProps(std::string const& objectName,
                                          std::map<std::string, ConstrProperties> const& properties) {
  auto const found = properties.find(objectName);
  return found != properties.end() && found->second.soft;
}

BaseConstraint::BaseConstraint(ConstrType type)
    : m_type(refuseAttr(type)), m_objType(GLOBAL), m_constrName(&getConstrNameFromType(type)) {}

BaseConstraint::BaseConstraint(ConstrType type, std::string const& name, ObjectType objType, std::string const& objName)
    : m_type(type), m_objType(objType), m_constrName(&getConstrNameFromType(type)), m_objName(objName) {
  if (name != *m_constrName) {
    m_ownConstrName = std::make_unique<std::string const>(name);
    m_constrName = m_ownConstrName.get();
  }
}

BaseConstraint::BaseConstraint(ConstrType type, ObjectType objType, std::string const& objName)
    : m_type(refuseAttr(type)), m_objType(objType), m_constrName(&getConstrNameFromType(type)), m_objName(objName) {}

BaseConstraint::~BaseConstraint() = default;

std::string const& BaseConstraint::getConstrNameFromType(ConstrType type) {
  return constrTypeTexts().attribute[typeIndex(type)];
}

std::string const& BaseConstraint::getConstrTypeAsStr(ConstrType type) {
  return constrTypeTexts().kind[typeIndex(type)];
}

std::string const& BaseConstraint::getObjTypeAsStr(ObjectType type) {
  static std::array<std::string, 5> const texts = {"NODE", "PORT", "NET", "GLOBAL", ""};
  return texts[type < 4 ? static_cast<std::size_t>(type) : 4];
}

std::string BaseConstraint::getObjName() const {
  return m_objName;
}

BaseConstraint::ObjectType BaseConstraint::getObjType() const {
  return m_objType;
}

void BaseConstraint::setObjName(std::string const& name) {
  m_objName = name;
}

void BaseConstraint::writeSrcInfo(JsonDocument& document, JsonValue& value, std::string const& key) const {
  if (getObjType() == GLOBAL) {
    return;
  }
  addSrcInfoMember(document, value, key + Keys::srcInfoSuffix, m_srcInfo);
}

std::string BaseConstraint::str() const {
  return " constraint(" + m_objName + ")=(" + *m_constrName + ")";
}

void BaseConstraint::renamePorts(std::map<std::string, std::string> const& names) {
  if (m_objType != PORT) {
    return;
  }
  auto const found = names.find(m_objName);
  if (found != names.end() && found->second != m_objName) {
    setObjName(found->second);
  }
}

void BaseConstraint::copySrcInfoFrom(BaseConstraint const* other) {
  if (other == nullptr) {
    return;
  }
  m_srcInfo.kind = other->m_srcInfo.kind;
  m_srcInfo.file = other->m_srcInfo.file;
  m_srcInfo.line = other->m_srcInfo.line;
  m_srcInfo.column = other->m_srcInfo.column;
}

void BaseConstraint::setConstrObjectProperties(std::string const& objectName, ConstrProperties const& properties) {
  if (!properties.isDefault()) {
    m_objProps[objectName] = properties;
  }
}

void BaseConstraint::setConstrObjectsProperties(ConstrPropertiesMap const& properties) {
  for (auto const& entry : properties) {
    setConstrObjectProperties(entry.first, entry.second);
  }
}

std::string BaseConstraint::resolvedObjName(BaseNameResolver const* resolver) const {
  std::string name = getObjName();
  if (resolver == nullptr) {
    return name;
  }
  switch (getObjType()) {
    case NODE:
      return resolver->resolveNodeName(name);
    case PORT:
      return resolver->resolvePortName(name);
    case NET:
      return resolver->resolveNetName(name);
    default:
      return name;
  }
}

void BaseConstraint::addSrcInfoMember(JsonDocument& document, JsonValue& value, std::string const& key,
                                      SrcInfo const& info) {
  if (info.file.empty() || info.kind != SrcInfo::EXPLICIT) {
    return;
  }
  JsonValue source(rapidjson::kObjectType);
  writesupport::addString(source, "file", info.file, document);
  writesupport::addInt(source, "line", info.line, document);
  writesupport::addInt(source, "column", info.column, document);
  writesupport::addMember(value, key, source, document);
}

}  // namespace constraints
}  // namespace kpe
