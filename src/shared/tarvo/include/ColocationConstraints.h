#ifndef TARVO_COLOCATIONCONSTRAINTS_H
#define TARVO_COLOCATIONCONSTRAINTS_H

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "BaseConstraint.h"
#include "DefaultedAttr.h"
#include "HDPoint.h"

namespace kpe {
namespace constraints {

// Nodes (or memories) that go with the object, and nodes that must not. The base srcInfo
// and properties belong to the colocated list; the not-colocated list has its own.
// Shared by ColocatedNodesConstr and ColocatedMemoriesConstr, which differ only in words.
class ColocatedNodeListsConstr : public BaseConstraint {
 public:
  void write(JsonDocument& document, JsonValue& value, BaseNameResolver const* resolver) const override;
  void offsetColumn(int n) override;
  std::string str() const override;
  // Copies all sources from a constraint of the same kind; other kinds are ignored.
  void copySrcInfoFrom(BaseConstraint const* other) override;

  virtual std::vector<std::string> const& getColocatedNodeNames() const;
  virtual void getColocatedNodeNames(std::vector<std::string>& out) const;
  virtual std::vector<std::string> const& getNotColocatedNodeNames() const;
  virtual void getNotColocatedNodeNames(std::vector<std::string>& out) const;
  // Appends each name the list lacks, in order.
  virtual void addNodeNames(std::vector<std::string> const& names);
  virtual void setColocatedNodeNames(std::vector<std::string> const& names);
  virtual void addNotColocatedNodeNames(std::vector<std::string> const& names);
  virtual void setNotColocatedNodeNames(std::vector<std::string> const& names);
  // Either list is set.
  virtual bool hasNodeNames() const;
  virtual bool hasColocatedNodeNames() const;
  virtual bool hasNotColocatedNodeNames() const;
  virtual bool containsColocatedNode(std::string const& name) const;
  virtual bool containsNotColocatedNode(std::string const& name) const;
  // Adds the name to the list if missing; then sets the flag of an existing property entry,
  // or makes one only when soft is true. Unlike setConstrObjectProperties it can clear.
  virtual void setColocatedSoftNode(std::string const& name, bool soft);
  virtual bool isColocatedSoftNode(std::string const& name) const;
  virtual std::vector<std::string> getColocatedSoftNodes() const;
  virtual bool isNotColocatedSoftNode(std::string const& name) const;
  virtual std::vector<std::string> getNotColocatedSoftNodes() const;

  void setNotColocatedSoftNode(std::string const& name, bool soft);
  void setNotColocatedConstrObjectProperties(std::string const& objectName, ConstrProperties const& properties);
  void writeNotConstrSrcInfo(JsonDocument& document, JsonValue& value, std::string const& key) const;

  ConstrPropertiesMap const& getNotColocatedConstrObjectsProperties() const { return m_notColocatedProps; }
  SrcInfo const& getNotColocatedSrcInfo() const { return m_notColocatedSrcInfo; }
  SrcInfo& getNotColocatedSrcInfo() { return m_notColocatedSrcInfo; }

 protected:
  // Document keys and the words of str().
  struct Words {
    char const* colocatedKey;
    char const* notColocatedKey;
    char const* colocatedText;
    char const* notColocatedText;
  };
  // Sets one list of the target's constraint of this kind; finds that constraint.
  typedef std::function<void(ConstrHandler&, ObjectType, std::string const&, std::vector<std::string> const&,
                             bool notColocated)>
      TargetSetter;
  typedef std::function<ColocatedNodeListsConstr*(ConstrHandler&, std::string const&)> TargetFinder;

  ColocatedNodeListsConstr(ConstrType type, ObjectType objType, std::string const& objName, Words const& words);
  void cloneLists(ConstrHandler& target, BaseNameResolver const* resolver, TargetSetter const& setOnTarget,
                  TargetFinder const& findOnTarget) const;

 private:
  Words m_words;
  DefaultedAttr m_colocated;
  DefaultedAttr m_notColocated;
  SrcInfo m_notColocatedSrcInfo;
  ConstrPropertiesMap m_notColocatedProps;
};

class ColocatedNodesConstr : public ColocatedNodeListsConstr {
 public:
  ColocatedNodesConstr(ObjectType objType, std::string const& objName);
  void clone(ConstrHandler& target, BaseNameResolver const* resolver) const override;
};

// Says "memories" in its text where its document keys say "reserved_memories".
class ColocatedMemoriesConstr : public ColocatedNodeListsConstr {
 public:
  ColocatedMemoriesConstr(ObjectType objType, std::string const& objName);
  void clone(ConstrHandler& target, BaseNameResolver const* resolver) const override;
};

// Ports that share the port's place, ports that must not, and ports that share it alone.
// Each of the three lists has its own source and properties; the base ones are the first's.
class ColocatedPortsConstr : public BaseConstraint {
 public:
  explicit ColocatedPortsConstr(std::string const& objName);

  void clone(ConstrHandler& target, BaseNameResolver const* resolver) const override;
  void write(JsonDocument& document, JsonValue& value, BaseNameResolver const* resolver) const override;
  void offsetColumn(int n) override;
  std::string str() const override;
  // Renames the object and the names and property keys of all three lists.
  void renamePorts(std::map<std::string, std::string> const& names) override;
  void copySrcInfoFrom(BaseConstraint const* other) override;

  virtual std::vector<std::string> const& getColocatedPortNames() const;
  virtual void getColocatedPortNames(std::vector<std::string>& out) const;
  virtual std::vector<std::string> const& getNotColocatedPortNames() const;
  virtual void getNotColocatedPortNames(std::vector<std::string>& out) const;
  virtual std::vector<std::string> const& getExclusiveColocatedPortNames() const;
  virtual void getExclusiveColocatedPortNames(std::vector<std::string>& out) const;
  virtual void addPortNames(std::vector<std::string> const& names);
  virtual void setColocatedPortNames(std::vector<std::string> const& names);
  virtual void addNotColocatedPortNames(std::vector<std::string> const& names);
  virtual void setNotColocatedPortNames(std::vector<std::string> const& names);
  virtual void addExclusiveColocatedPortNames(std::vector<std::string> const& names);
  virtual void setExclusiveColocatedPortNames(std::vector<std::string> const& names);
  // Any list is set.
  virtual bool hasPortNames() const;
  virtual bool hasColocatedPortNames() const;
  virtual bool hasNotColocatedPortNames() const;
  virtual bool hasExclusiveColocatedPortNames() const;
  virtual bool containsColocatedPort(std::string const& name) const;
  virtual bool containsNotColocatedPort(std::string const& name) const;
  virtual bool containsExclusiveColocatedPort(std::string const& name) const;
  virtual bool isColocatedSoftPort(std::string const& name) const;
  virtual std::vector<std::string> getColocatedSoftPorts() const;
  virtual bool isNotColocatedSoftPort(std::string const& name) const;
  virtual bool isExclusiveColocatedSoftPort(std::string const& name) const;

  void setColocatedSoftPort(std::string const& name, bool soft);
  void setNotColocatedSoftPort(std::string const& name, bool soft);
  void setExclusiveColocatedSoftPort(std::string const& name, bool soft);
  std::vector<std::string> getNotColocatedSoftPorts() const;
  std::vector<std::string> getExclusiveColocatedSoftPorts() const;
  void setNotColocatedConstrObjectProperties(std::string const& objectName, ConstrProperties const& properties);
  void setExclusiveColocatedConstrObjectProperties(std::string const& objectName, ConstrProperties const& properties);
  void writeNotConstrSrcInfo(JsonDocument& document, JsonValue& value, std::string const& key) const;
  void writeExclusiveConstrSrcInfo(JsonDocument& document, JsonValue& value, std::string const& key) const;

  ConstrPropertiesMap const& getNotColocatedConstrObjectsProperties() const { return m_notColocatedProps; }
  ConstrPropertiesMap const& getExclusiveColocatedConstrObjectsProperties() const { return m_exclusiveProps; }
  SrcInfo const& getNotColocatedSrcInfo() const { return m_notColocatedSrcInfo; }
  SrcInfo& getNotColocatedSrcInfo() { return m_notColocatedSrcInfo; }
  SrcInfo const& getExclusiveColocatedSrcInfo() const { return m_exclusiveSrcInfo; }
  SrcInfo& getExclusiveColocatedSrcInfo() { return m_exclusiveSrcInfo; }

 private:
  void renameColocatedPorts(std::map<std::string, std::string> const& names);
  void renameNotColocatedPorts(std::map<std::string, std::string> const& names);
  void renameExclusiveColocatedPorts(std::map<std::string, std::string> const& names);

  DefaultedAttr m_colocated;
  DefaultedAttr m_notColocated;
  DefaultedAttr m_exclusive;
  SrcInfo m_notColocatedSrcInfo;
  SrcInfo m_exclusiveSrcInfo;
  ConstrPropertiesMap m_notColocatedProps;
  ConstrPropertiesMap m_exclusiveProps;
};

// Ports whose DMA goes with the port's. One list, no properties.
class ColocatedDmaConstr : public BaseConstraint {
 public:
  explicit ColocatedDmaConstr(std::string const& objName);

  void clone(ConstrHandler& target, BaseNameResolver const* resolver) const override;
  void write(JsonDocument& document, JsonValue& value, BaseNameResolver const* resolver) const override;
  void offsetColumn(int n) override;
  std::string str() const override;
  void renamePorts(std::map<std::string, std::string> const& names) override;

  virtual std::vector<std::string> const& getColocatedPortNames() const;
  virtual void getColocatedPortNames(std::vector<std::string>& out) const;
  virtual void addPortNames(std::vector<std::string> const& names);
  virtual void setColocatedPortNames(std::vector<std::string> const& names);
  virtual bool hasColocatedPortNames() const;
  virtual bool containsColocatedPort(std::string const& name) const;

 private:
  DefaultedAttr m_ports;
};

// Nodes kept at an offset from the object node. An unset coordinate of an offset is
// DefaultXYValues' -9999.
class RelativeNodesConstr : public BaseConstraint {
 public:
  typedef std::map<std::string, HDPoint<int>> OffsetMap;

  explicit RelativeNodesConstr(std::string const& objName);

  void clone(ConstrHandler& target, BaseNameResolver const* resolver) const override;
  void write(JsonDocument& document, JsonValue& value, BaseNameResolver const* resolver) const override;
  void offsetColumn(int n) override;
  std::string str() const override;

  virtual void getNodeNames(std::vector<std::string>& out) const;
  virtual OffsetMap const& getNodesWithOffset() const;
  virtual void getNodesWithOffset(OffsetMap& out) const;
  // Inserts absent names and overwrites the offsets of present ones.
  virtual void addNodesWithOffset(OffsetMap const& nodes);
  virtual void setNodesWithOffset(OffsetMap const& nodes);
  virtual void unloadObject(std::string const& name);
  virtual bool isSpecified() const;
  virtual bool hasNodesWithOffset() const;
  virtual void setNodeOffset(std::string const& name, HDPoint<int> const& offset);
  // The stored offset, or (-9999, -9999) for an absent name.
  virtual HDPoint<int> getNodeOffset(std::string const& name) const;

 private:
  OffsetMap m_nodes;
};

}  // namespace constraints
}  // namespace kpe

#endif
