#include "TrafficLInst.h"

#include <algorithm>

#include "TrafficSpec.h"

namespace HrdIPToolCntr {

using namespace DevHrdIP::Definitions;

namespace {
bool endsWith(std::string const& text, std::string const& ending) {
  return text.size() >= ending.size() && text.compare(text.size() - ending.size(), ending.size(), ending) == 0;
}
}  // namespace

TrafficLInst::TrafficLInst(std::size_t id, std::string const& name, AxiProt protocol, COMP_TYPE compType,
                           ExternalConns const& externalConns)
    : m_id(id), m_name(name), m_protocol(protocol), m_compType(compType), m_externalConns(externalConns) {}

bool TrafficLInst::isMaster() const {
  return getCompRole(m_compType) == ROLE_MASTER;
}

bool TrafficLInst::isSlave() const {
  return getCompRole(m_compType) == ROLE_SLAVE;
}

bool TrafficLInst::isErrorSlave() const {
  return isSlave() &&
         (endsWith(m_name, TrafficSpec::getErrorSlaveName()) || endsWith(m_name, TrafficSpec::getErrorSlaveName_hp()));
}

void TrafficLInst::addRemapAddrSpec(uint64_t logical, uint64_t physical, uint64_t range) {
  m_remaps.push_back(RemapAddrSpec{logical, physical, range});
}

bool TrafficLInst::hasValidSysAddress(int index) const {
  return index >= 0 && static_cast<std::size_t>(index) < m_sysAddresses.size();
}

uint64_t TrafficLInst::getSysAddress(int index) const {
  return hasValidSysAddress(index) ? m_sysAddresses[static_cast<std::size_t>(index)].first : 0;
}

uint64_t TrafficLInst::getSysAddrSize(int index) const {
  return hasValidSysAddress(index) ? m_sysAddresses[static_cast<std::size_t>(index)].second : 0;
}

void TrafficLInst::addPortType(PORT_TYPE port) {
  if (std::find(m_portTypes.begin(), m_portTypes.end(), port) == m_portTypes.end()) m_portTypes.push_back(port);
}

}  // namespace HrdIPToolCntr
