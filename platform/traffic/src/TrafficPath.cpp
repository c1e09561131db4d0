#include "TrafficPath.h"

#include "TrafficLInst.h"
#include "TrafficSpec.h"

namespace HrdIPToolCntr {

using namespace DevHrdIP::Definitions;

TrafficPath::TrafficPath(std::size_t index, TrafficSpec& spec, TrafficLInst const* master, TrafficLInst const* slave,
                         std::size_t firstNetId)
    : m_index(index), m_spec(spec), m_master(master), m_slave(slave) {
  if (master->getProtocol() == AXI_MM) {
    for (TrafficNet::NetType type :
         {TrafficNet::READ, TrafficNet::WRITE, TrafficNet::READ_REQ, TrafficNet::WRITE_RESP}) {
      m_nets.emplace_back(new TrafficNet(firstNetId + m_nets.size(), type, this));
    }
  } else {
    m_nets.emplace_back(new TrafficNet(firstNetId, TrafficNet::WRITE, this));
  }
}

TrafficPath::~TrafficPath() = default;

void TrafficPath::setReadPerfSpec(std::string const& group, std::string const& phase, PerfSpec const& spec) {
  m_spec.addPhaseToGroup(group, phase);
  namedPhase(m_readPhases, m_defaultRead, phase).perf = spec;
}

void TrafficPath::setWritePerfSpec(std::string const& group, std::string const& phase, PerfSpec const& spec) {
  m_spec.addPhaseToGroup(group, phase);
  namedPhase(m_writePhases, m_defaultWrite, phase).perf = spec;
}

void TrafficPath::setReadAvgBurst(uint16_t burst, std::string const& phase) {
  namedPhase(m_readPhases, m_defaultRead, phase).avgBurst = burst;
}

void TrafficPath::setWriteAvgBurst(uint16_t burst, std::string const& phase) {
  namedPhase(m_writePhases, m_defaultWrite, phase).avgBurst = burst;
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
  auto const found = m_readPhases.find(phase);
  return found == m_readPhases.end() ? m_defaultRead : found->second;
}

TrafficPath::PhaseValues const& TrafficPath::writePhase(std::string const& phase) const {
  auto const found = m_writePhases.find(phase);
  return found == m_writePhases.end() ? m_defaultWrite : found->second;
}

TrafficPath::PhaseValues& TrafficPath::namedPhase(std::map<std::string, PhaseValues>& phases, PhaseValues& defaults,
                                                  std::string const& phase) {
  if (phase == TrafficSpec::getDefaultPhaseName()) return defaults;
  // A phase starts at the defaults, so that values it does not give stay the path's own.
  return phases.emplace(phase, defaults).first->second;
}

}  // namespace HrdIPToolCntr
