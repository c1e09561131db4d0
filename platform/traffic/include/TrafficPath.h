#ifndef TARVO_TRAFFICPATH_H
#define TARVO_TRAFFICPATH_H

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "DestIdRepr.h"
#include "DevHrdIPDefinitions.h"
#include "PerfSpec.h"
#include "TrafficNet.h"

namespace HrdIPToolCntr {

class TrafficLInst;
class TrafficSpec;

// A connection from a master to a slave with its requirements. A path has default read and
// write requirements and may have others for named phases of phase groups; a phase it gives
// no values for runs at its defaults. Made and owned by its TrafficSpec.
class TrafficPath {
 public:
  // Only the traffic specification makes paths; the key lets it do so in place in its store.
  class Key {
    friend class TrafficSpec;
    Key() = default;
  };
  TrafficPath(Key, std::size_t index, TrafficSpec& spec, TrafficLInst const* master, TrafficLInst const* slave,
              std::size_t firstNet, int netCount);
  TrafficPath(TrafficPath const&) = delete;
  TrafficPath& operator=(TrafficPath const&) = delete;
  ~TrafficPath();

  // Position in the traffic specification's list of paths.
  std::size_t getIndex() const { return m_index; }
  TrafficLInst const* getMaster() const { return m_master; }
  TrafficLInst const* getSlave() const { return m_slave; }

  int getNumNets() const { return m_netCount; }
  // Throws std::out_of_range for an index that is no net of the path.
  TrafficNet const* getNet(int index) const;

  void setSlavePort(DevHrdIP::Definitions::PORT_TYPE port) { m_slavePort = port; }
  DevHrdIP::Definitions::PORT_TYPE getSlavePort() const { return m_slavePort; }
  // WO_INVALID until set.
  void setWoc(DevHrdIP::Definitions::Write_Order order) { m_woc = order; }
  DevHrdIP::Definitions::Write_Order getWoc() const { return m_woc; }

  void setReadPerfSpec(PerfSpec const& spec) { m_defaultRead.perf = spec; }
  void setWritePerfSpec(PerfSpec const& spec) { m_defaultWrite.perf = spec; }
  // Also makes `phase` a phase of `group` in the traffic specification.
  void setReadPerfSpec(std::string const& group, std::string const& phase, PerfSpec const& spec);
  void setWritePerfSpec(std::string const& group, std::string const& phase, PerfSpec const& spec);
  PerfSpec getReadPerfSpec() const { return m_defaultRead.perf; }
  PerfSpec getWritePerfSpec() const { return m_defaultWrite.perf; }
  PerfSpec getReadPerfSpec(std::string const& phase) const { return readPhase(phase).perf; }
  PerfSpec getWritePerfSpec(std::string const& phase) const { return writePhase(phase).perf; }

  void setReadAvgBurst(uint16_t burst) { m_defaultRead.avgBurst = burst; }
  void setWriteAvgBurst(uint16_t burst) { m_defaultWrite.avgBurst = burst; }
  void setReadAvgBurst(uint16_t burst, std::string const& phase);
  void setWriteAvgBurst(uint16_t burst, std::string const& phase);
  uint16_t getReadAvgBurst() const { return m_defaultRead.avgBurst; }
  uint16_t getWriteAvgBurst() const { return m_defaultWrite.avgBurst; }
  uint16_t getReadAvgBurst(std::string const& phase) const { return readPhase(phase).avgBurst; }
  uint16_t getWriteAvgBurst(std::string const& phase) const { return writePhase(phase).avgBurst; }
  // True when the path has read (write) values for a phase besides its defaults.
  bool hasMultipleReadPhases() const { return m_phases && !m_phases->read.empty(); }
  bool hasMultipleWritePhases() const { return m_phases && !m_phases->write.empty(); }

  void setExclusiveGroup(std::string const& group) { m_exclusiveGroup = group; }
  std::string const& getExclusiveGroup() const { return m_exclusiveGroup; }
  void setSeparateRoutingGroup(std::string const& group) { m_separateRoutingGroup = group; }
  std::string const& getSeparateRoutingGroup() const { return m_separateRoutingGroup; }

  void setIsExistDestIdIndex(bool exists) { m_isExistDestIdIndex = exists; }
  bool isExistDestIdIndex() const { return m_isExistDestIdIndex; }
  void setDestIdIndex(DestIdRepr index) { m_destIdIndex = index; }
  DestIdRepr getDestIdIndex() const { return m_destIdIndex; }
  // Ranges of destination id indices as (start, end).
  void addDestIdIdx(std::pair<uint8_t, uint8_t> const& range) { m_destIdIdx.push_back(range); }
  bool hasValidDestIdIdx(int index) const;
  // Both 0 for an index without a range.
  uint8_t getDestIdIdxStart(int index) const;
  uint8_t getDestIdIdxEnd(int index) const;

  void setIsInitialBoot(bool initialBoot) { m_isInitialBoot = initialBoot; }
  bool isInitialBoot() const { return m_isInitialBoot; }
  void setHighPriorityRouting(bool high) { m_highPriorityRouting = high; }
  bool getHighPriorityRouting() const { return m_highPriorityRouting; }

  // Plain member that readers assign directly.
  int phase = 0;

 private:
  struct PhaseValues {
    PerfSpec perf;
    uint16_t avgBurst = 0;
  };
  // Few paths have phases of their own; they keep them apart.
  struct NamedPhases {
    std::map<std::string, PhaseValues> read;
    std::map<std::string, PhaseValues> write;
  };

  // The values of a named phase, or the defaults for a phase the path does not name.
  PhaseValues const& readPhase(std::string const& phase) const;
  PhaseValues const& writePhase(std::string const& phase) const;
  PhaseValues& namedReadPhase(std::string const& phase);
  PhaseValues& namedWritePhase(std::string const& phase);
  static PhaseValues const& find(std::map<std::string, PhaseValues> const* phases, PhaseValues const& defaults,
                                 std::string const& phase);
  static PhaseValues& findOrAdd(std::map<std::string, PhaseValues>& phases, PhaseValues& defaults,
                                std::string const& phase);

  std::size_t m_index;
  TrafficSpec& m_spec;
  TrafficLInst const* m_master;
  TrafficLInst const* m_slave;
  std::size_t m_firstNet;
  int m_netCount;
  DevHrdIP::Definitions::PORT_TYPE m_slavePort = DevHrdIP::Definitions::PORT_INVALID;
  DevHrdIP::Definitions::Write_Order m_woc = DevHrdIP::Definitions::WO_INVALID;
  PhaseValues m_defaultRead;
  PhaseValues m_defaultWrite;
  std::unique_ptr<NamedPhases> m_phases;
  std::string m_exclusiveGroup;
  std::string m_separateRoutingGroup;
  bool m_isExistDestIdIndex = false;
  DestIdRepr m_destIdIndex;
  std::vector<std::pair<uint8_t, uint8_t>> m_destIdIdx;
  bool m_isInitialBoot = false;
  bool m_highPriorityRouting = false;
};

}  // namespace HrdIPToolCntr

#endif
