#ifndef TARVO_TRAFFICLINST_H
#define TARVO_TRAFFICLINST_H

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "DestIdRepr.h"
#include "DevHrdIPDefinitions.h"

namespace HrdIPToolCntr {

class TrafficSpec;

// An address window that a master sees at `logical` and the NoC sends to `physical`.
struct RemapAddrSpec {
  uint64_t logical = 0;
  uint64_t physical = 0;
  uint64_t range = 0;

  bool operator==(RemapAddrSpec const& other) const {
    return logical == other.logical && physical == other.physical && range == other.range;
  }
};

// A logical master or slave of a traffic specification (or an array-side channel, which is
// neither). Made and owned by its TrafficSpec; whether it is a master follows its block kind.
class TrafficLInst {
 public:
  typedef std::vector<std::vector<std::string>> ExternalConns;

  TrafficLInst(TrafficLInst const&) = delete;
  TrafficLInst& operator=(TrafficLInst const&) = delete;

  // Creation order within the traffic specification, from 0.
  std::size_t getId() const { return m_id; }
  std::string const& getName() const { return m_name; }
  DevHrdIP::Definitions::AxiProt getProtocol() const { return m_protocol; }
  DevHrdIP::Definitions::COMP_TYPE getCompType() const { return m_compType; }
  bool isMaster() const;
  bool isSlave() const;
  // A slave whose name ends with one of the error slave's reserved endings.
  bool isErrorSlave() const;
  // Groups of names of external connections, one group per port.
  ExternalConns const& getExternalConnsForAllPorts() const { return m_externalConns; }

  void setDesignName(std::string const& name) { m_designName = name; }
  std::string const& getDesignName() const { return m_designName; }

  // Masters.
  void addRemapAddrSpec(uint64_t logical, uint64_t physical, uint64_t range);
  std::vector<RemapAddrSpec> const& getRemapAddrSpecs() const { return m_remaps; }
  void setReadTC(DevHrdIP::Definitions::TrafficClass tc) { m_readTC = tc; }
  void setWriteTC(DevHrdIP::Definitions::TrafficClass tc) { m_writeTC = tc; }
  DevHrdIP::Definitions::TrafficClass getReadTC() const { return m_readTC; }
  DevHrdIP::Definitions::TrafficClass getWriteTC() const { return m_writeTC; }
  void setNumReadOutstanding(uint16_t count) { m_numReadOutstanding = count; }
  void setNumWriteOutstanding(uint16_t count) { m_numWriteOutstanding = count; }
  uint16_t getNumReadOutstanding() const { return m_numReadOutstanding; }
  uint16_t getNumWriteOutstanding() const { return m_numWriteOutstanding; }
  void setReadRateLimiter(float limit) { m_readRateLimiter = limit; }
  void setWriteRateLimiter(float limit) { m_writeRateLimiter = limit; }
  float getReadRateLimiter() const { return m_readRateLimiter; }
  float getWriteRateLimiter() const { return m_writeRateLimiter; }

  // Slaves: address windows as (base, size), and memory parameters.
  void addSysAddress(std::pair<uint64_t, uint64_t> const& baseAndSize) { m_sysAddresses.push_back(baseAndSize); }
  bool hasValidSysAddress(int index) const;
  // Both 0 for an index without a window.
  uint64_t getSysAddress(int index) const;
  uint64_t getSysAddrSize(int index) const;
  // A second value under one name replaces the first.
  void addMemoryParam(std::string const& name, std::string const& value) { m_memoryParams[name] = value; }
  std::map<std::string, std::string> const& getMemoryParams() const { return m_memoryParams; }

  void addConfigParam(std::string const& name, std::string const& value) { m_configParams[name] = value; }
  std::map<std::string, std::string> const& getConfigParams() const { return m_configParams; }

  void setUseDestIdIdx(bool use) { m_useDestIdIdx = use; }
  bool getUseDestIdIdx() const { return m_useDestIdIdx; }
  void setHasParityAddr(bool has) { m_hasParityAddr = has; }
  bool hasParityAddr() const { return m_hasParityAddr; }
  void setHasParityData(bool has) { m_hasParityData = has; }
  bool hasParityData() const { return m_hasParityData; }

  void setAxiWidth(unsigned width) { m_axiWidth = width; }
  unsigned getAxiWidth() const { return m_axiWidth; }
  // Memory controllers: the ports in use, each once, in the order first added.
  std::vector<DevHrdIP::Definitions::PORT_TYPE> const& getPortTypes() const { return m_portTypes; }
  void setDdrInterleaveSize(uint32_t size) { m_ddrInterleaveSize = size; }
  uint32_t getDdrInterleaveSize() const { return m_ddrInterleaveSize; }
  void setDdrInterleaveSel(uint16_t sel) { m_ddrInterleaveSel = sel; }
  uint16_t getDdrInterleaveSel() const { return m_ddrInterleaveSel; }

  bool isVirtual() const { return virtualInstance; }
  void setIsExistDestId(bool exists) { m_isExistDestId = exists; }
  bool isExistDestId() const { return m_isExistDestId; }
  void setDestId(DestIdRepr id) { m_destId = id; }
  DestIdRepr getDestId() const { return m_destId; }

  // Plain members that readers assign directly.
  bool firewall = false;
  bool virtualInstance = false;
  std::string ipName;

 private:
  friend class TrafficSpec;
  TrafficLInst(std::size_t id, std::string const& name, DevHrdIP::Definitions::AxiProt protocol,
               DevHrdIP::Definitions::COMP_TYPE compType, ExternalConns const& externalConns);
  // Through TrafficSpec::addPortTypeForMC.
  void addPortType(DevHrdIP::Definitions::PORT_TYPE port);

  std::size_t m_id;
  std::string m_name;
  DevHrdIP::Definitions::AxiProt m_protocol;
  DevHrdIP::Definitions::COMP_TYPE m_compType;
  ExternalConns m_externalConns;
  std::string m_designName;
  std::vector<RemapAddrSpec> m_remaps;
  DevHrdIP::Definitions::TrafficClass m_readTC = DevHrdIP::Definitions::TC_BE;
  DevHrdIP::Definitions::TrafficClass m_writeTC = DevHrdIP::Definitions::TC_BE;
  uint16_t m_numReadOutstanding = 0;
  uint16_t m_numWriteOutstanding = 0;
  float m_readRateLimiter = 0.0f;
  float m_writeRateLimiter = 0.0f;
  std::vector<std::pair<uint64_t, uint64_t>> m_sysAddresses;
  std::map<std::string, std::string> m_memoryParams;
  std::map<std::string, std::string> m_configParams;
  bool m_useDestIdIdx = false;
  bool m_hasParityAddr = false;
  bool m_hasParityData = false;
  unsigned m_axiWidth = 0;
  std::vector<DevHrdIP::Definitions::PORT_TYPE> m_portTypes;
  uint32_t m_ddrInterleaveSize = 0;
  uint16_t m_ddrInterleaveSel = 0;
  bool m_isExistDestId = false;
  DestIdRepr m_destId;
};

}  // namespace HrdIPToolCntr

#endif
