#include "TrafficSpec.h"

#include <functional>

namespace HrdIPToolCntr {

using namespace DevHrdIP::Definitions;

namespace {
// What an error route asks of the NoC: a trickle of responses, no latency bound worth routing for.
uint32_t const kErrorRouteBandwidth = 1;
uint32_t const kErrorRouteLatency = 10000;
}  // namespace

TrafficSpec::TrafficSpec() = default;

TrafficSpec::~TrafficSpec() = default;

std::string const& TrafficSpec::getErrorSlaveName() {
  static std::string const name = "noc_error_slave";
  return name;
}

std::string const& TrafficSpec::getErrorSlaveName_hp() {
  static std::string const name = "noc_error_slave_hp";
  return name;
}

std::string const& TrafficSpec::getDefaultPhaseName() {
  static std::string const name = "Phase_Default";
  return name;
}

TrafficLInst* TrafficSpec::addLogicalInstance(std::string const& name, AxiProt protocol, COMP_TYPE compType,
                                              TrafficLInst::ExternalConns const& externalConns) {
  m_instances.emplace_back(new TrafficLInst(m_instances.size(), name, protocol, compType, externalConns));
  TrafficLInst* instance = m_instances.back().get();
  m_instanceList.push_back(instance);
  if (instance->isMaster()) {
    m_names.set(name, TrafficNameIndex::Master, instance, true);
    indexExternalConns(instance, TrafficNameIndex::MasterConnection);
  } else if (instance->isSlave()) {
    m_names.set(name, TrafficNameIndex::Slave, instance, true);
    indexExternalConns(instance, TrafficNameIndex::SlaveConnection);
  }
  if (isKpeArrayType(compType)) m_names.set(name, TrafficNameIndex::KpeInstance, instance, true);
  return instance;
}

TrafficLInst const* TrafficSpec::getTQLogicalInst(std::string const& name) const {
  return find(name, TrafficNameIndex::KpeInstance);
}

TrafficLInst const* TrafficSpec::getLogicalMasterUsingExternalConns(std::string const& name) const {
  return find(name, TrafficNameIndex::MasterConnection);
}

TrafficLInst const* TrafficSpec::getLogicalSlaveUsingExternalConns(std::string const& name) const {
  return find(name, TrafficNameIndex::SlaveConnection);
}

void TrafficSpec::addPortTypeForMC(TrafficLInst* instance, PORT_TYPE port) {
  instance->addPortType(port);
}

TrafficPath* TrafficSpec::addPath(TrafficLInst* master, TrafficLInst* slave) {
  static TrafficNet::NetType const kMemoryMappedNets[] = {TrafficNet::READ, TrafficNet::WRITE, TrafficNet::READ_REQ,
                                                          TrafficNet::WRITE_RESP};
  static TrafficNet::NetType const kStreamingNets[] = {TrafficNet::WRITE};
  bool const memoryMapped = master->getProtocol() == AXI_MM;
  TrafficNet::NetType const* types = memoryMapped ? kMemoryMappedNets : kStreamingNets;
  int const netCount = memoryMapped ? 4 : 1;
  m_paths.emplace_back(TrafficPath::Key(), m_paths.size(), *this, master, slave, m_nets.size(), netCount);
  TrafficPath* path = &m_paths.back();
  for (int i = 0; i < netCount; ++i)
    m_nets.emplace_back(TrafficNet::Key(), m_nets.size(), types[i], path);
  return path;
}

std::vector<TrafficNet const*> TrafficSpec::getNets(TrafficLInst const* master, TrafficLInst const* slave) const {
  for (; m_indexedPaths < m_paths.size(); ++m_indexedPaths) {
    TrafficPath const& path = m_paths[m_indexedPaths];
    m_pathsByEnds[{path.getMaster(), path.getSlave()}].push_back(&path);
  }
  std::vector<TrafficNet const*> nets;
  if (master == nullptr || slave == nullptr) return nets;
  auto const found = m_pathsByEnds.find({master, slave});
  if (found == m_pathsByEnds.end()) return nets;
  for (TrafficPath const* path : found->second) {
    for (int i = 0; i < path->getNumNets(); ++i)
      nets.push_back(path->getNet(i));
  }
  return nets;
}

std::set<std::string> TrafficSpec::getAllPhaseGroups() const {
  std::set<std::string> groups;
  for (auto const& group : m_phaseGroups)
    groups.insert(groups.end(), group.first);
  return groups;
}

std::set<std::string> TrafficSpec::getAllPhasesForPhaseGroup(std::string const& group) const {
  auto const found = m_phaseGroups.find(group);
  return found == m_phaseGroups.end() ? std::set<std::string>() : found->second;
}

void TrafficSpec::setFrequency(int frequency, bool userSet) {
  m_frequency = frequency;
  m_userSetFrequency = userSet;
}

bool TrafficSpec::hasErrorSlave() const {
  for (TrafficLInst const* instance : m_instanceList) {
    if (instance->isErrorSlave()) return true;
  }
  return false;
}

void TrafficSpec::addErrorSlaveAndRoutes() {
  std::vector<TrafficLInst*> const instances = m_instanceList;
  std::set<TrafficLInst const*> highPriorityMasters;
  for (TrafficPath const& path : m_paths) {
    if (path.getHighPriorityRouting()) highPriorityMasters.insert(path.getMaster());
  }
  TrafficLInst* errorSlave = addErrorSlave(getErrorSlaveName());
  TrafficLInst* errorSlaveHp = highPriorityMasters.empty() ? nullptr : addErrorSlave(getErrorSlaveName_hp());
  PerfSpec const errorTraffic(TC_BE, kErrorRouteBandwidth, kErrorRouteLatency);
  for (TrafficLInst* master : instances) {
    if (!master->isMaster() || master->getProtocol() != AXI_MM) continue;
    bool const highPriority = highPriorityMasters.count(master) != 0;
    TrafficPath* path = addPath(master, highPriority ? errorSlaveHp : errorSlave);
    path->setSlavePort(PORT0);
    path->setReadPerfSpec(errorTraffic);
    path->setWritePerfSpec(errorTraffic);
    path->setHighPriorityRouting(highPriority);
  }
}

void TrafficSpec::addPhaseToGroup(std::string const& group, std::string const& phase) {
  auto inserted = m_phaseGroups.emplace(group, std::set<std::string>());
  if (inserted.second) inserted.first->second.insert(getDefaultPhaseName());
  inserted.first->second.insert(phase);
}

void TrafficSpec::indexExternalConns(TrafficLInst* instance, TrafficNameIndex::Role role) {
  for (auto const& group : instance->getExternalConnsForAllPorts()) {
    for (std::string const& name : group)
      m_names.set(name, role, instance, false);
  }
}

TrafficLInst* TrafficSpec::find(std::string const& name, TrafficNameIndex::Role role) const {
  return m_names.find(name, role);
}

TrafficLInst* TrafficSpec::addErrorSlave(std::string const& name) {
  return addLogicalInstance(name, AXI_MM, ERR_EGU, TrafficLInst::ExternalConns());
}

std::size_t TrafficSpec::PairHash::operator()(std::pair<TrafficLInst const*, TrafficLInst const*> const& ends) const {
  std::size_t const first = std::hash<TrafficLInst const*>()(ends.first);
  return first ^ (std::hash<TrafficLInst const*>()(ends.second) + 0x9e3779b97f4a7c15ULL + (first << 6) + (first >> 2));
}

}  // namespace HrdIPToolCntr
