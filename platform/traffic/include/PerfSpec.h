#ifndef TARVO_PERFSPEC_H
#define TARVO_PERFSPEC_H

#include <cstdint>

namespace HrdIPToolCntr {

// What a path asks of the NoC in one direction: traffic class, bandwidth and latency.
struct PerfSpec {
  PerfSpec() = default;
  PerfSpec(uint32_t trafficClass, uint32_t bandwidth, uint32_t latency)
      : trafficClass(trafficClass), bandwidth(bandwidth), latency(latency) {}

  bool operator==(PerfSpec const& other) const {
    return trafficClass == other.trafficClass && bandwidth == other.bandwidth && latency == other.latency;
  }
  bool operator!=(PerfSpec const& other) const { return !(*this == other); }

  uint32_t trafficClass = 0;
  uint32_t bandwidth = 0;
  uint32_t latency = 0;
};

}  // namespace HrdIPToolCntr

#endif
