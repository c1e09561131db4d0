#ifndef TARVO_BASECONSTRAINT_H
#define TARVO_BASECONSTRAINT_H

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "HCRapidJsonReadWriteUtils.h"

namespace kpe {
namespace constraints {

class BaseNameResolver;
class ConstrHandler;

typedef HCRapidJsonReadWriteUtils::Document JsonDocument;
typedef HCRapidJsonReadWriteUtils::Value JsonValue;

// Per-object properties of a listed object. A default record (soft false) is never stored.
struct ConstrProperties {
  bool soft = false;

  bool isDefault() const { return !soft; }
  // False if the name is absent, else the soft flag of its record.
  static bool hasNonDefaultProps(std::string const& objectName,
                                 std::map<std::string, ConstrProperties> const& properties);
};

typedef std::map<std::string, ConstrProperties> ConstrPropertiesMap;

// Where a constraint came from.
struct SrcInfo {
  // 1: read with source members, 0: found by scanning the file, 2: anything else.
  enum Kind : std::int32_t { SCANNED = 0, EXPLICIT = 1, NONE = 2 };

  SrcInfo() = default;
  SrcInfo(SrcInfo const&) = default;
  SrcInfo& operator=(SrcInfo const&) = default;
  virtual ~SrcInfo() = default;

  std::int32_t kind = NONE;
  std::string file;
  std::int32_t line = 0;
  std::int32_t column = 0;
};

// What every constraint shares. Constraints are made and owned by ConstrHandler alone.
class BaseConstraint {
 public:
  enum ConstrType : std::uint32_t {
    BUFFER = 0,
    RESERVED_MEMORY = 1,
    TILE = 2,
    MEM = 3,
    SHIM = 4,
    PORT_LOC = 5,
    STREAM_CHANNEL = 6,
    ATTR = 7,
    COLOCATED_NODES = 8,
    RELATIVE_NODES = 9,
    COLOCATED_PORTS = 10,
    COLOCATED_DMA = 11,
    COLOCATED_MEMORIES = 12,
    FIFO_LOCATIONS = 13,
    AREA_GROUP = 14,
    INST_GROUP = 15,
    DEPENDENT_ROUTING_GROUP = 16,
    ISOMORPHIC_GRAPH_GROUP = 17
  };
  enum ObjectType : std::uint32_t { NODE = 0, PORT = 1, NET = 2, GLOBAL = 3 };

  // A global constraint of `type` with the attribute name of the type. Refuses ATTR.
  explicit BaseConstraint(ConstrType type);
  // All as passed; the only form that makes an attribute constraint.
  BaseConstraint(ConstrType type, std::string const& name, ObjectType objType, std::string const& objName);
  // The attribute name of the type. Refuses ATTR.
  BaseConstraint(ConstrType type, ObjectType objType, std::string const& objName);
  BaseConstraint(BaseConstraint const&) = delete;
  BaseConstraint& operator=(BaseConstraint const&) = delete;

  // Attribute name ("kpe.tile"), kind text ("Tile"), object type text ("NODE"); empty for
  // values out of range.
  static std::string const& getConstrNameFromType(ConstrType type);
  static std::string const& getConstrTypeAsStr(ConstrType type);
  static std::string const& getObjTypeAsStr(ObjectType type);

  virtual ~BaseConstraint();
  virtual std::string getObjName() const;
  virtual ObjectType getObjType() const;
  virtual void setObjName(std::string const& name);
  // Makes the same constraint in `target` through its set operations, names translated by
  // `resolver` (null leaves them alone).
  virtual void clone(ConstrHandler& target, BaseNameResolver const* resolver) const = 0;
  // Adds this constraint's members to `value`; a null resolver leaves names alone.
  virtual void write(JsonDocument& document, JsonValue& value, BaseNameResolver const* resolver) const = 0;
  // Adds key + "_src_info" for a non-global constraint read with source members.
  virtual void writeSrcInfo(JsonDocument& document, JsonValue& value, std::string const& key) const;
  virtual void offsetColumn(int n) = 0;
  virtual std::string str() const;
  // Renames the object of a PORT constraint if the map gives it a different name.
  virtual void renamePorts(std::map<std::string, std::string> const& names);
  // Copies kind, file, line and column of the other's source; null does nothing.
  virtual void copySrcInfoFrom(BaseConstraint const* other);

  ConstrType getType() const { return m_type; }
  std::string const& getConstrName() const { return *m_constrName; }
  // The objName field itself, without the copy of getObjName: what getObjName returns for
  // every kind but the groups, which replace it.
  std::string const& objNameField() const { return m_objName; }

  SrcInfo const& getSrcInfo() const { return m_srcInfo; }
  SrcInfo& getSrcInfo() { return m_srcInfo; }
  void setSrcInfo(SrcInfo const& info) { m_srcInfo = info; }

  ConstrPropertiesMap const& getConstrObjectsProperties() const { return m_objProps; }
  // Stores a non-default record; a default one neither stores nor erases.
  void setConstrObjectProperties(std::string const& objectName, ConstrProperties const& properties);
  void setConstrObjectsProperties(ConstrPropertiesMap const& properties);

 protected:
  // The object name translated for a clone: by node, port or net resolving; GLOBAL and a
  // null resolver leave it.
  std::string resolvedObjName(BaseNameResolver const* resolver) const;
  // Writes an "{file, line, column}" object under `key` when `info` came from source members.
  static void addSrcInfoMember(JsonDocument& document, JsonValue& value, std::string const& key, SrcInfo const& info);
  ConstrPropertiesMap& objectsProperties() { return m_objProps; }

 private:
  // The two types side by side, with no padding between them: a store holds many constraints.
  ConstrType m_type;
  ObjectType m_objType;
  // The type's own attribute name, shared by every constraint of the type; a constraint made
  // with another name (an attribute's) points at its own copy.
  std::string const* m_constrName;
  std::unique_ptr<std::string const> m_ownConstrName;
  std::string m_objName;
  SrcInfo m_srcInfo;
  ConstrPropertiesMap m_objProps;
};

}  // namespace constraints
}  // namespace kpe

#endif
