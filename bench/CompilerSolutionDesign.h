#ifndef TARVO_BENCH_COMPILERSOLUTIONDESIGN_H
#define TARVO_BENCH_COMPILERSOLUTIONDESIGN_H

#include <memory>
#include <string>

#include "HDARPart.h"
#include "HDARShimRowGenerator.h"
#include "KPEShimInterfaceSolution.h"
#include "TQLogicalArchModel.h"
#include "TrafficSpec.h"

namespace tarvo_bench {

// A KPE compiler solution: at scale 1, 10,000 placed two-channel ports in 10 KPE instances,
// on a shim row of 2,500 tiles with 8 channels each. With `placeAll` false the design is the
// same and only its first port is placed, for the smallest document of the design.
class CompilerSolutionDesign {
 public:
  explicit CompilerSolutionDesign(double scale = 1.0, bool placeAll = true);

  HDARShimRowShape shape;
  std::unique_ptr<HDARPart> part;
  Tarvo::Frameworks::TQLogicalArchModel model;
  HrdIPToolCntr::TrafficSpec traffic;
  std::unique_ptr<KPEShimInterfaceSolution> solution;
  // The written solution.
  std::string text;

  // The design's logical architecture, traffic and shim row (as a device description), for
  // programs that read them from files.
  std::string logicalArchText() const;
  std::string trafficText() const;
  std::string deviceText() const;
};

}  // namespace tarvo_bench

#endif
