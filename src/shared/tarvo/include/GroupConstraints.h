#ifndef TARVO_GROUPCONSTRAINTS_H
#define TARVO_GROUPCONSTRAINTS_H

#include <string>
#include <vector>

#include "BaseConstraint.h"
#include "DefaultedAttr.h"
#include "PhysicalRange.h"

namespace kpe {
namespace constraints {

// What the four group kinds share: they belong to the design, not to one object, and are
// known by a name of their own. getObjName gives that name, getObjType always GLOBAL.
class GroupConstr : public BaseConstraint {
 public:
  std::string getObjName() const override;
  ObjectType getObjType() const override;
  // Writes "srcInfo" inside the group's object when the group came from source members.
  void writeSrcInfo(JsonDocument& document, JsonValue& value, std::string const& key) const override;

  std::string const& getName() const { return m_name.getString(); }
  void setName(std::string const& name) { m_name.setString(name); }
  bool hasName() const { return m_name.isSet(); }

 protected:
  explicit GroupConstr(ConstrType type);
  // Adds `group` under `key`, with "srcInfo" at its end.
  void addGroupMember(JsonDocument& document, JsonValue& value, char const* key, JsonValue& group) const;

 private:
  DefaultedAttr m_name;
};

// Nodes kept to a region of the array: a list of nodes, ranges of places and five flags.
class AreaGroupConstr : public GroupConstr {
 public:
  AreaGroupConstr();

  void clone(ConstrHandler& target, BaseNameResolver const* resolver) const override;
  // One "areaGroup" member per group; ranges sorted into "tileGroup", "memGroup",
  // "shimGroup", valid or not.
  void write(JsonDocument& document, JsonValue& value, BaseNameResolver const* resolver) const override;
  void offsetColumn(int n) override;
  std::string str() const override;

  virtual std::vector<std::string> const& getNodeNames() const;
  virtual void getNodeNames(std::vector<std::string>& out) const;
  virtual std::vector<PhysicalRange> const& getPhysicalRanges() const;
  virtual void getPhysicalRanges(std::vector<PhysicalRange>& out) const;
  // Appends the ranges that are valid.
  virtual void getValidPhysicalGroup(std::vector<PhysicalRange>& out) const;
  virtual void addNode(std::string const& name);
  virtual void addNodeGroup(std::vector<std::string> const& names);
  virtual void setNodeGroup(std::vector<std::string> const& names);
  // A lone place with a name or a column.
  virtual void addRange(PhysicalSpec const& place);
  // A range whose low has a name or a column.
  virtual void addRange(PhysicalRange const& range);
  // Nothing without a specified low; a pair with a specified high, else low alone.
  virtual void addRange(PhysicalSpec const& low, PhysicalSpec const& high);
  // Appends all, unchecked.
  virtual void addRanges(std::vector<PhysicalRange> const& ranges);
  virtual void setRanges(std::vector<PhysicalRange> const& ranges);
  virtual bool hasNodeNames() const;
  virtual bool hasRanges() const;

  bool isExclude() const { return m_exclude; }
  bool isSoft() const { return m_isSoft; }
  bool isContainRouting() const { return m_containRouting; }
  bool isExclusiveRouting() const { return m_exclusiveRouting; }
  bool isExclusivePlacement() const { return m_exclusivePlacement; }
  void setExclude(bool value) { m_exclude = value; }
  void setSoft(bool value) { m_isSoft = value; }
  void setContainRouting(bool value) { m_containRouting = value; }
  void setExclusiveRouting(bool value) { m_exclusiveRouting = value; }
  void setExclusivePlacement(bool value) { m_exclusivePlacement = value; }

 private:
  std::vector<PhysicalRange> m_ranges;
  bool m_exclude = false;
  bool m_isSoft = false;
  bool m_containRouting = false;
  bool m_exclusiveRouting = false;
  bool m_exclusivePlacement = false;
  DefaultedAttr m_nodes;
};

// A named set of instances.
class InstGroupConstr : public GroupConstr {
 public:
  InstGroupConstr();

  void clone(ConstrHandler& target, BaseNameResolver const* resolver) const override;
  void write(JsonDocument& document, JsonValue& value, BaseNameResolver const* resolver) const override;
  void offsetColumn(int n) override;
  std::string str() const override;

  virtual std::vector<std::string> const& getNodeNames() const;
  virtual void getNodeNames(std::vector<std::string>& out) const;
  virtual void addNode(std::string const& name);
  virtual void addNodeGroup(std::vector<std::string> const& names);
  virtual void setNodeGroup(std::vector<std::string> const& names);
  virtual bool hasNodeNames() const;

  bool isIsomorphic() const { return m_isIsomorphic; }
  void setIsomorphic(bool value) { m_isIsomorphic = value; }

 private:
  bool m_isIsomorphic = false;
  DefaultedAttr m_nodes;
};

// Nodes whose routing is tied together.
class DependentRoutingGroupConstr : public GroupConstr {
 public:
  DependentRoutingGroupConstr();

  void clone(ConstrHandler& target, BaseNameResolver const* resolver) const override;
  void write(JsonDocument& document, JsonValue& value, BaseNameResolver const* resolver) const override;
  void offsetColumn(int n) override;
  std::string str() const override;

  virtual std::vector<std::string> const& getNodeNames() const;
  virtual void getNodeNames(std::vector<std::string>& out) const;
  virtual void addNode(std::string const& name);
  virtual void addNodeGroup(std::vector<std::string> const& names);
  virtual void setNodeGroup(std::vector<std::string> const& names);
  virtual bool hasNodeNames() const;

 private:
  DefaultedAttr m_nodes;
};

// Stamped graphs that repeat a reference graph. Graph names are never resolved.
class IsomorphicGraphGroupConstr : public GroupConstr {
 public:
  IsomorphicGraphGroupConstr();

  void clone(ConstrHandler& target, BaseNameResolver const* resolver) const override;
  void write(JsonDocument& document, JsonValue& value, BaseNameResolver const* resolver) const override;
  void offsetColumn(int n) override;
  std::string str() const override;

  virtual std::vector<std::string> const& getStampedGraphs() const;
  virtual void getStampedGraphs(std::vector<std::string>& out) const;
  virtual void setReferenceGraph(std::string const& graph);
  virtual void addStampedGraph(std::string const& graph);
  virtual void addStampedGraphGroup(std::vector<std::string> const& graphs);
  virtual void setStampedGraphs(std::vector<std::string> const& graphs);
  virtual bool hasReferenceGraph() const;
  virtual bool hasStampedGraphs() const;

  std::string const& getReferenceGraph() const { return m_referenceGraph.getString(); }

 private:
  DefaultedAttr m_referenceGraph;
  DefaultedAttr m_stampedGraphs;
};

}  // namespace constraints
}  // namespace kpe

#endif
