#ifndef TARVO_CONSTRHANDLER_H
#define TARVO_CONSTRHANDLER_H

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "Address.h"
#include "AttrConstr.h"
#include "BaseConstraint.h"
#include "ConstrFwd.h"
#include "FifoLocations.h"
#include "HDPoint.h"
#include "PhysicalRange.h"
#include "PhysicalSpec.h"

namespace kpe {
namespace constraints {

// The store of a design's constraints: it alone makes them and owns them, together with the
// FIFO location records. A constraint is known by (kind, object name), an attribute by
// (object name, canonical attribute name without regard to case), a group by (kind, group
// name). A second set replaces values, a second add merges; nothing checks for conflicts.
//
// The destructor does not delete the constraints, so that a derived store may own their
// release: call clear() before a store goes away.
class ConstrHandler {
 public:
  typedef BaseConstraint::ConstrType ConstrType;
  typedef BaseConstraint::ObjectType ObjectType;
  typedef std::vector<BaseConstraint*> ConstrList;
  typedef std::vector<std::string> NameList;
  typedef std::map<std::string, HDPoint<int>> OffsetMap;

  ConstrHandler();
  ConstrHandler(ConstrHandler const&) = delete;
  ConstrHandler& operator=(ConstrHandler const&) = delete;

  virtual ~ConstrHandler();

  // Constraint documents: validated, names through `resolver`. Failures are exceptions.
  virtual bool read(std::string const& file);
  virtual bool read(std::istream& in, std::string const& name, BaseNameResolver const& resolver);
  virtual bool write(std::ostream& out, std::string const& name, BaseNameResolver const& resolver) const;
  virtual bool write(std::string const& file) const;
  // Writes only "GlobalConstraints".
  virtual bool writeAreaGroupConstrs(std::ostream& out, std::string const& name,
                                     BaseNameResolver const& resolver) const;

  // Makes room in the index for `count` more objects, so that a reader that knows how many
  // it will add does not grow the index step by step.
  void reserveObjects(std::size_t count);
  // Deletes every constraint and record.
  virtual void clear();
  virtual bool empty() const;
  virtual std::size_t size() const;
  // Removes and deletes the constraint; the caller's pointer is dead afterwards.
  virtual void unload(BaseConstraint const* constraint);

  // Queries of the object's constraints replace `out` only when the store knows the name.
  virtual void getConstrs(std::string const& objName, std::string const& attrName, ConstrList& out) const;
  virtual void getConstrs(ObjectType objType, ConstrList& out) const;
  virtual void getConstrs(std::string const& objName, ConstrList& out) const;
  virtual void getConstrs(ConstrList& out) const;
  virtual ConstrList const& getConstrs() const;
  virtual BaseConstraint* getConstr(std::string const& objName, std::string const& attrName) const;
  virtual BaseConstraint* getConstr(std::string const& objName, ConstrType type) const;

  // Relations read from both sides: the name's own list, then every other constraint of
  // the kind that lists the name (add-unique of its object name).
  virtual void getColocatedNodes(std::string const& name, NameList& out) const;
  virtual void getNotColocatedNodes(std::string const& name, NameList& out) const;
  virtual void getColocatedPorts(std::string const& name, NameList& out) const;
  virtual void getNotColocatedPorts(std::string const& name, NameList& out) const;
  virtual void getExclusiveColocatedPorts(std::string const& name, NameList& out) const;
  virtual void getColocatedDma(std::string const& name, NameList& out) const;
  virtual void getColocatedMemories(std::string const& name, NameList& out) const;
  virtual void getNotColocatedMemories(std::string const& name, NameList& out) const;

  virtual void setAttrConstr(ObjectType objType, std::string const& objName, std::string const& attrName,
                             std::string const& value);
  virtual void setAttrConstr(ObjectType objType, std::string const& objName, std::string const& attrName, double value);
  virtual void setAttrConstr(ObjectType objType, std::string const& objName, std::string const& attrName, int value);
  virtual void setAttrConstr(ObjectType objType, std::string const& objName, std::string const& attrName, bool value);
  virtual void setBufferConstr(std::string const& objName, Address const& ping, Address const& pong,
                               Address const& rtpSelector);
  virtual void setTileConstr(std::string const& objName, std::string const& tileName);
  virtual void setTileConstr(std::string const& objName, int column, int row, PhysicalSpec::PhysicalType type);
  virtual void setMemConstr(std::string const& objName, Address const& ping, Address const& pong);
  virtual void setReservedMemoryConstr(std::string const& objName, Address const& address);
  virtual void setShimConstr(std::string const& objName, int column, int channel);
  virtual void setShimConstr(std::string const& objName, std::string const& shimName);
  virtual void setPortLocConstr(std::string const& objName, PhysicalSpec::PhysicalType type, int column, int row,
                                int channel);
  virtual void setPortLocConstr(std::string const& objName, std::string const& name, int channel);
  virtual void setStreamChannelConstr(std::string const& objName, int offset, int channel,
                                      std::string const& direction);
  virtual void setStreamChannelConstr(std::string const& objName, int column, int row, int channel,
                                      std::string const& direction);
  virtual void setColocatedNodesConstr(ObjectType objType, std::string const& objName, NameList const& names,
                                       bool notColocated);
  virtual void setRelativeNodesConstr(ObjectType objType, std::string const& objName, OffsetMap const& nodes);
  virtual void setColocatedPortsConstr(ObjectType objType, std::string const& objName, NameList const& names,
                                       bool notColocated);
  virtual void setExclusiveColocatedPortsConstr(ObjectType objType, std::string const& objName, NameList const& names);
  virtual void setColocatedDmaConstr(ObjectType objType, std::string const& objName, NameList const& names);
  virtual void setFifoLocationsConstr(ObjectType objType, std::string const& objName, NameList const& records);
  virtual void setDmaFifoLocationConstr(ObjectType objType, std::string const& portName,
                                        PhysicalSpec::PhysicalType type, int column, int row, int size, int offset,
                                        int bankId);
  virtual void setStreamFifoLocationConstr(ObjectType objType, std::string const& portName,
                                           PhysicalSpec::PhysicalType type, int column, int row, int channel);
  virtual void setColocatedMemoriesConstr(ObjectType objType, std::string const& objName, NameList const& names,
                                          bool notColocated);
  virtual void setAreaGroupConstr(std::string const& name, NameList const& nodes,
                                  std::vector<PhysicalRange> const& ranges, bool exclude, bool isSoft,
                                  bool containRouting, bool exclusiveRouting, bool exclusivePlacement);
  virtual void setInstGroupConstr(std::string const& name, NameList const& nodes, bool isIsomorphic);
  virtual void setDependentRoutingGroupConstr(std::string const& name, NameList const& nodes);
  virtual void setIsomorphicGraphGroupConstr(std::string const& name, std::string const& referenceGraph,
                                             NameList const& stampedGraphs);
  virtual void addFifoLocationsConstr(ObjectType objType, std::string const& objName, NameList const& records);
  virtual void addDmaFifoLocationConstr(ObjectType objType, std::string const& portName,
                                        PhysicalSpec::PhysicalType type, int column, int row, int size, int offset,
                                        int bankId);
  virtual void addStreamFifoLocationConstr(ObjectType objType, std::string const& portName,
                                           PhysicalSpec::PhysicalType type, int column, int row, int channel);
  virtual void addColocatedNodesConstr(ObjectType objType, std::string const& objName, NameList const& names,
                                       bool notColocated);
  virtual void addRelativeNodesConstr(ObjectType objType, std::string const& objName, OffsetMap const& nodes);
  virtual void addColocatedPortsConstr(ObjectType objType, std::string const& objName, NameList const& names,
                                       bool notColocated);
  virtual void addExclusiveColocatedPortsConstr(ObjectType objType, std::string const& objName, NameList const& names);
  // Records by name (not resolved); see FifoLocationsRecords.
  virtual DmaFifoRecord* addDmaFifoRecord(std::string const& name, PhysicalSpec::PhysicalType type, int column, int row,
                                          int size, int offset, int bankId);
  virtual StreamFifoRecord* addStreamFifoRecord(std::string const& name, PhysicalSpec::PhysicalType type, int column,
                                                int row, int channel);
  virtual void addColocatedDmaConstr(ObjectType objType, std::string const& objName, NameList const& names);
  virtual void addColocatedMemoriesConstr(ObjectType objType, std::string const& objName, NameList const& names,
                                          bool notColocated);
  // The five flags are taken only when this call makes the group.
  virtual void addAreaGroupConstr(std::string const& name, NameList const& nodes,
                                  std::vector<PhysicalRange> const& ranges, bool exclude, bool isSoft,
                                  bool containRouting, bool exclusiveRouting, bool exclusivePlacement);
  // The flag is taken only when this call makes the group.
  virtual void addInstGroupConstr(std::string const& name, NameList const& nodes, bool isIsomorphic);
  virtual void addDependentRoutingGroupConstr(std::string const& name, NameList const& nodes);
  virtual void addIsomorphicGraphGroupConstr(std::string const& name, std::string const& referenceGraph,
                                             NameList const& stampedGraphs);

  // Clones every constraint of `source` into this store through its set operations, then
  // copies the records. What this store holds already stays.
  virtual void copy(ConstrHandler const& source);
  virtual void copy(ConstrHandler const& source, BaseNameResolver const& resolver);

  virtual void accept(ConstBaseVisitor& visitor) const;
  virtual void accept(BaseVisitor& visitor) const;

  // Distinct object names of that object type, in order of first appearance.
  virtual void getAllConstrainedNodes(NameList& out) const;
  virtual void getAllConstrainedPorts(NameList& out) const;
  virtual void getAllConstrainedNets(NameList& out) const;
  // Appends every FIFO location constraint that lists the record.
  virtual void getFifoLocationsConstrs(std::string const& recordName, std::vector<FifoLocationsConstr*>& out) const;

 protected:
  // Takes ownership; indexes the constraint under its object name of this moment.
  virtual void addConstraint(BaseConstraint* constraint);
  // Kinds 0 to 13 but Attr; most kinds fix the object type and ignore `objType`.
  virtual BaseConstraint* createConstr(ConstrType type, ObjectType objType, std::string const& name);
  // Kinds 14 to 17, named by `name`.
  virtual BaseConstraint* createGlobalConstr(ConstrType type, std::string const& name);
  // Null, making nothing, when either name is empty.
  virtual AttrConstr* createAttrConstr(ObjectType objType, std::string const& objName, AttrConstr::AttrType attrType,
                                       std::string const& attrName);

 public:
  // Hooks for derived stores; this store has no child stores and says no to all.
  virtual void prepareChildStores();
  // Whether tool-generated documents go to child stores (asked by the reader).
  virtual bool hasToolGeneratedStores() const;
  virtual bool hasUserConstraints() const;
  // Fills the document's "isToolGenerated".
  virtual bool isToolGenerated() const;
  virtual bool isReadOnly() const;
  // Fills the document's "isSoft".
  virtual bool isSoft() const;
  // The child store for tool-generated constraints of that hardness, or null.
  virtual ConstrHandler* getToolGeneratedStore(bool soft);

  // Keeps a literal text from choosing the bool form.
  void setAttrConstr(ObjectType objType, std::string const& objName, std::string const& attrName, char const* value) {
    setAttrConstr(objType, objName, attrName, std::string(value));
  }

  TileConstr* getTileConstr(std::string const& objName) const;
  ShimConstr* getShimConstr(std::string const& objName) const;
  MemConstr* getMemConstr(std::string const& objName) const;
  BufferConstr* getBufferConstr(std::string const& objName) const;
  ReservedMemoryConstr* getReservedMemoryConstr(std::string const& objName) const;
  PortLocConstr* getPortLocConstr(std::string const& objName) const;
  StreamChannelConstr* getStreamChannelConstr(std::string const& objName) const;
  ColocatedNodesConstr* getColocatedNodesConstr(std::string const& objName) const;
  ColocatedPortsConstr* getColocatedPortsConstr(std::string const& objName) const;
  ColocatedDmaConstr* getColocatedDmaConstr(std::string const& objName) const;
  ColocatedMemoriesConstr* getColocatedMemoriesConstr(std::string const& objName) const;
  RelativeNodesConstr* getRelativeNodesConstr(std::string const& objName) const;
  FifoLocationsConstr* getFifoLocationsConstr(std::string const& objName) const;
  AreaGroupConstr* getAreaGroupConstr(std::string const& name) const;
  InstGroupConstr* getInstGroupConstr(std::string const& name) const;
  DependentRoutingGroupConstr* getDependentRoutingGroupConstr(std::string const& name) const;
  IsomorphicGraphGroupConstr* getIsomorphicGraphGroupConstr(std::string const& name) const;
  AttrConstr* getAttrConstr(std::string const& objName, std::string const& attrName) const;
  void getConstrs(std::string const& objName, ConstrType type, ConstrList& out) const;

  FifoLocationsRecord* getFifoLocationsRecord(std::string const& name) const;
  FifoLocationsRecords::RecordMap const& getFifoLocationsRecords() const;
  FifoLocationsRecords const& getRecords() const { return m_records; }
  FifoLocationsRecords& getRecords() { return m_records; }

  // Renames port objects and port lists, and moves the index entries of renamed names.
  void renamePorts(std::map<std::string, std::string> const& names);
  // Prints str() of every constraint, one to a line, on the standard output.
  void dump() const;

 private:
  // The index entry of a name, or null.
  ConstrList const* findBucket(std::string const& objName) const;
  // The index entry of a name, made if there is none, with a copy of the name as its key.
  ConstrList& bucketFor(std::string const& objName);
  void rememberBucket(std::pair<std::string const, ConstrList> const& entry) const;
  template <class T>
  static T* findIn(ConstrList const& bucket, ConstrType type);
  template <class T>
  T* findInBucket(ConstrType type, std::string const& objName) const;
  template <class T>
  T* findGroup(ConstrType type, std::string const& name) const;
  // The group of that kind and name among those made under the name, without a walk of
  // the whole list.
  template <class T>
  T* findStoredGroup(ConstrType type, std::string const& name) const;
  void forgetGroup(BaseConstraint* group);
  template <class T>
  T* findOrCreate(ConstrType type, ObjectType objType, std::string const& objName);
  template <class T, class Change>
  void changeConstr(ConstrType type, ObjectType objType, std::string const& objName, Change const& change);
  template <class T, class Add, class Set>
  void addToConstr(ConstrType type, std::string const& objName, Add const& add, Set const& set);
  template <class T>
  void setNodeLists(ConstrType type, ObjectType objType, std::string const& objName, NameList const& names,
                    bool notColocated);
  typedef void (ConstrHandler::*NodeListsSet)(ObjectType, std::string const&, NameList const&, bool);
  template <class T>
  void addNodeLists(ConstrType type, ObjectType objType, std::string const& objName, NameList const& names,
                    bool notColocated, NodeListsSet set);
  template <class T>
  T* findOrCreateGroup(ConstrType type, std::string const& name, bool& created);
  template <class T>
  void setAttrValue(ObjectType objType, std::string const& objName, std::string const& attrName,
                    AttrConstr::AttrType attrType, T const& value);
  void copyFrom(ConstrHandler const& source, BaseNameResolver const* resolver);
  void getConstrainedObjects(ObjectType objType, NameList& out) const;
  // Add-unique of the object name of every constraint but `own` that `listsName` accepts.
  void addRelatedObjects(BaseConstraint const* own, std::function<bool(BaseConstraint const*)> const& listsName,
                         NameList& out) const;
  DmaFifoRecord* findOrAddDmaRecord(PhysicalSpec::PhysicalType type, int column, int row, int size, int offset,
                                    int bankId);
  StreamFifoRecord* findOrAddStreamRecord(PhysicalSpec::PhysicalType type, int column, int row, int channel);

  FifoLocationsRecords m_records;
  ConstrList m_constrs;
  std::unordered_map<std::string, ConstrList> m_index;
  // The index entry asked for last. Callers, the reader above all, ask about one object many
  // times in a row; a look-up of the same name then costs a comparison instead of a hash.
  // Entries stay where they are when others are added, so only erasing one forgets it.
  mutable std::string const* m_lastName = nullptr;
  mutable ConstrList const* m_lastBucket = nullptr;
  // Groups by the name they were made under. Kept apart from m_index, whose entries
  // renamePorts moves, so that the set and add operations find a group by its name alone.
  std::unordered_map<std::string, ConstrList> m_groups;
};

}  // namespace constraints
}  // namespace kpe

#endif
