#include "TrafficPath.h"

#include <stdexcept>

#include "TrafficLInst.h"
#include "TrafficSpec.h"

namespace HrdIPToolCntr {

using namespace DevHrdIP::Definitions;

TrafficPath::TrafficPath(Key, std::size_t index, TrafficSpec& spec, TrafficLInst const* master,
                         TrafficLInst const* slave, std::size_t firstNet, int netCount)
    : m_index(index), m_spec(spec), m_master(master), m_slave(slave), m_firstNet(firstNet), m_netCount(netCount) {}

TrafficPath::~TrafficPath() = default;

TrafficNet const* TrafficPath::getNet(int index) const {
  if (index < 0 || index >= m_netCount) throw std::out_of_range("TrafficPath::getNet() - no such net");
  return &m_spec.m_nets[m_firstNet + static_cast<std::size_t>(index)];
}

void TrafficPath::setReadPerfSpec(std::string const& group, std::string const& phase, PerfSpec const& spec) {
  m_spec.addPhaseToGroup(group, phase);
  namedReadPhase(phase).perf = spec;
}

void TrafficPath::setWritePerfSpec(std::string const& group, std::string const& phase, PerfSpec const& spec) {
  m_spec.addPhaseToGroup(group, phase);
  namedWritePhase(phase).perf = spec;
}

void TrafficPath::setReadAvgBurst(uint16_t burst, std::string const& phase) {
  namedReadPhase(phase).avgBurst = burst;
}

void TrafficPath::setWriteAvgBurst(uint16_t burst, std::string const& phase) {
  namedWritePhase(phase).avgBurst = burst;
}

bool TrafficPath::hasValidDestIdIdx(int index) const {
  return index >= 0 && static_cast<std::size_t>(index) < m_destIdIdx.size();
}

uint8_t TrafficPath::getDestIdIdxStart(int index) const {
  return hasValidDestIdIdx(index) ? m_destIdIdx[static_cast<std::size_t>(index)].first : 0;
}

uint8_t TrafficPath::getDestIdIdxEnd(int index) const {
  return hasValidDestIdIdx(index) ? m_destIdIdx[static_cast<std::size_t>(index)].second : 0;
}

TrafficPath::PhaseValues const& TrafficPath::readPhase(std::string const& phase) const {
  return find(m_phases ? &m_phases->read : nullptr, m_defaultRead, phase);
}

TrafficPath::PhaseValues const& TrafficPath::writePhase(std::string const& phase) const {
  return find(m_phases ? &m_phases->write : nullptr, m_defaultWrite, phase);
}

TrafficPath::PhaseValues& TrafficPath::namedReadPhase(std::string const& phase) {
  if (!m_phases) m_phases.reset(new NamedPhases);
  return findOrAdd(m_phases->read, m_defaultRead, phase);
}

TrafficPath::PhaseValues& TrafficPath::namedWritePhase(std::string const& phase) {
  if (!m_phases) m_phases.reset(new NamedPhases);
  return findOrAdd(m_phases->write, m_defaultWrite, phase);
}

TrafficPath::PhaseValues const& TrafficPath::find(std::map<std::string, PhaseValues> const* phases,
                                                  PhaseValues const& defaults, std::string const& phase) {
  if (phases == nullptr) return defaults;
  auto const found = phases->find(phase);
  return found == phases->end() ? defaults : found->second;
}

TrafficPath::PhaseValues& TrafficPath::findOrAdd(std::map<std::string, PhaseValues>& phases, PhaseValues& defaults,
                                                 std::string const& phase) {
  if (phase == TrafficSpec::getDefaultPhaseName()) return defaults;
  // A phase starts at the defaults, so that values it does not give stay the path's own.
  return phases.emplace(phase, defaults).first->second;
}

}  // namespace HrdIPToolCntr
