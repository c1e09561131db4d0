#ifndef TARVO_BENCH_NOCSOLUTIONDESIGN_H
#define TARVO_BENCH_NOCSOLUTIONDESIGN_H

#include <memory>
#include <string>

#include "CompRes.h"
#include "HIPDevice.h"
#include "NOCMeshGenerator.h"
#include "TrafficSpec.h"

namespace tarvo_bench {

// A routed NoC solution on a synthetic mesh of 12 x 12 switches with 2,016 masters and
// 2,016 slaves: at scale 1, 150,000 memory-mapped paths of four nets each, every net routed
// over eight links. With `routed` false the traffic is the same and the result holds nothing,
// for the document a solution reader reads at least.
class NocSolutionDesign {
 public:
  static DevHrdIP::NOCMeshShape const kShape;

  explicit NocSolutionDesign(double scale = 1.0, bool routed = true);

  std::unique_ptr<DevHrdIP::HIPDevice> device;
  HrdIPToolCntr::TrafficSpec spec;
  std::unique_ptr<HrdIPToolCntr::CompRes> result;

  // The written solution and traffic specification.
  std::string solutionText() const;
  std::string trafficText() const;
  // The mesh as a device description, for programs that read the device from a file.
  static std::string deviceText();

 private:
  HrdIPToolCntr::TrafficLInst* addInstance(DevHrdIP::NOCMeshUnit const& unit, DevHrdIP::Definitions::COMP_TYPE type);
  void addPath(DevHrdIP::NOCMeshUnit const& from, HrdIPToolCntr::TrafficLInst* master, int j, bool routed);
};

}  // namespace tarvo_bench

#endif
