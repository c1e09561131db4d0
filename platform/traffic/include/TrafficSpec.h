#ifndef TARVO_TRAFFICSPEC_H
#define TARVO_TRAFFICSPEC_H

#include <deque>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "DevHrdIPDefinitions.h"
#include "TrafficLInst.h"
#include "TrafficNameIndex.h"
#include "TrafficNet.h"
#include "TrafficPath.h"

namespace HrdIPToolCntr {

// A NoC traffic specification: logical instances, the paths between them with their nets, phase
// groups and system properties. Owns everything it makes; the pointers it hands out stay valid
// while it lives. Lists keep creation order, and a name given twice finds the later instance.
class TrafficSpec {
 public:
  TrafficSpec();
  ~TrafficSpec();
  TrafficSpec(TrafficSpec const&) = delete;
  TrafficSpec& operator=(TrafficSpec const&) = delete;

  // The reserved endings of the error slave's names, plain and high priority.
  static std::string const& getErrorSlaveName();
  static std::string const& getErrorSlaveName_hp();
  // The phase that every phase group has: a path's default requirements.
  static std::string const& getDefaultPhaseName();

  // A master or slave by the block kind; `externalConns` holds the names of its external
  // connections, one group per port.
  TrafficLInst* addLogicalInstance(std::string const& name, DevHrdIP::Definitions::AxiProt protocol,
                                   DevHrdIP::Definitions::COMP_TYPE compType,
                                   TrafficLInst::ExternalConns const& externalConns);
  std::vector<TrafficLInst*> const& getAllLogicalInstance() const { return m_instanceList; }

  // Look-ups by name; null when there is no instance of that kind with the name.
  TrafficLInst* getLogicalMaster(std::string const& name) { return find(name, TrafficNameIndex::Master); }
  TrafficLInst* getLogicalSlave(std::string const& name) { return find(name, TrafficNameIndex::Slave); }
  TrafficLInst const* getLogicalMaster(std::string const& name) const { return find(name, TrafficNameIndex::Master); }
  TrafficLInst const* getLogicalSlave(std::string const& name) const { return find(name, TrafficNameIndex::Slave); }
  TrafficLInst const* hasLogicalMaster(std::string const& name) const { return getLogicalMaster(name); }
  TrafficLInst const* hasLogicalSlave(std::string const& name) const { return getLogicalSlave(name); }
  // An instance at the KPE array (its NoC and PL channels and its resources).
  TrafficLInst const* getTQLogicalInst(std::string const& name) const;
  // The first master (slave) that has `name` among its external connections.
  TrafficLInst const* getLogicalMasterUsingExternalConns(std::string const& name) const;
  TrafficLInst const* getLogicalSlaveUsingExternalConns(std::string const& name) const;

  // Records a port of a memory controller; a port already recorded is not added again.
  void addPortTypeForMC(TrafficLInst* instance, DevHrdIP::Definitions::PORT_TYPE port);

  // Makes the path and its nets: read, write, read request and write response for a
  // memory-mapped master, one write net for a streaming master.
  TrafficPath* addPath(TrafficLInst* master, TrafficLInst* slave);
  int getNumPaths() const { return static_cast<int>(m_paths.size()); }
  TrafficPath const* getPath(int index) const { return &m_paths.at(static_cast<std::size_t>(index)); }
  TrafficPath* getPath(int index) { return &m_paths.at(static_cast<std::size_t>(index)); }
  // The nets of all paths from `master` to `slave`, in path order; empty if either is null.
  // Indexes the paths made since the last call first.
  std::vector<TrafficNet const*> getNets(TrafficLInst const* master, TrafficLInst const* slave) const;

  std::set<std::string> getAllPhaseGroups() const;
  // Empty for an unknown group.
  std::set<std::string> getAllPhasesForPhaseGroup(std::string const& group) const;

  // `userSet` marks a frequency that the user asked for, as opposed to a derived one.
  void setFrequency(int frequency, bool userSet);
  int getFrequency() const { return m_frequency; }
  bool isUserSetFrequency() const { return m_userSetFrequency; }
  // The frequency if the user set it, otherwise 0.
  int getUserSetFrequency() const { return m_userSetFrequency ? m_frequency : 0; }

  void setSecureMode(bool secure) { m_secureMode = secure; }
  bool getSecureMode() const { return m_secureMode; }
  void setDeviceName(std::string const& name) { m_deviceName = name; }
  std::string const& getDeviceName() const { return m_deviceName; }
  bool hasValidDeviceName() const { return !m_deviceName.empty(); }

  // Hierarchy paths of reconfigurable partitions, in the order added.
  void addRcfPath(std::string const& path) { m_rcfPaths.push_back(path); }
  std::vector<std::string> const& getRcfPaths() const { return m_rcfPaths; }
  bool hasRcfPaths() const { return !m_rcfPaths.empty(); }

  // The error slave answers requests that match no address window. Adds it under the plain
  // reserved name with a path to it from every memory-mapped master; masters that have a high
  // priority path go to a second one under the high priority name instead.
  bool hasErrorSlave() const;
  void addErrorSlaveAndRoutes();

 private:
  friend class TrafficPath;
  struct PairHash {
    std::size_t operator()(std::pair<TrafficLInst const*, TrafficLInst const*> const& ends) const;
  };

  void addPhaseToGroup(std::string const& group, std::string const& phase);
  void indexExternalConns(TrafficLInst* instance, TrafficNameIndex::Role role);
  TrafficLInst* find(std::string const& name, TrafficNameIndex::Role role) const;
  TrafficLInst* addErrorSlave(std::string const& name);

  std::vector<std::unique_ptr<TrafficLInst>> m_instances;
  std::vector<TrafficLInst*> m_instanceList;
  TrafficNameIndex m_names;
  // Paths and nets are many: they lie in chunks, not one allocation each.
  std::deque<TrafficPath> m_paths;
  std::deque<TrafficNet> m_nets;
  // Paths by their ends, for getNets only, so that filling the traffic specification need not keep it.
  mutable std::unordered_map<std::pair<TrafficLInst const*, TrafficLInst const*>, std::vector<TrafficPath const*>,
                             PairHash>
      m_pathsByEnds;
  mutable std::size_t m_indexedPaths = 0;
  std::map<std::string, std::set<std::string>> m_phaseGroups;
  int m_frequency = 0;
  bool m_userSetFrequency = false;
  bool m_secureMode = false;
  std::string m_deviceName;
  std::vector<std::string> m_rcfPaths;
};

}  // namespace HrdIPToolCntr

#endif
