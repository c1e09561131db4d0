// The compiler solution reader on any text, against a fixed design: it may throw HEXAll,
// nothing else, and must not crash. What it read is written again, and reading that text
// must give the same placements.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <sstream>

#include "ComMsgMgr.h"
#include "HDARPart.h"
#include "HDGUIStatus.h"
#include "HEXAll.h"
#include "KPEShimInterfaceSolution.h"
#include "TQCompilerSolutionReaderJSON.h"
#include "TQCompilerSolutionWriterJSON.h"
#include "TQLogicalArchModel.h"
#include "TrafficSpec.h"

namespace {

using namespace Tarvo::Frameworks;

// Two tiles of each naming family; channels 0 to 3 and a site that is no channel. Two KPE
// instances, neither name a part of the other, with ports of one channel, two channels,
// two unmarked channels and a channel the traffic specification doesn't know.
struct Design {
  Design() {
    std::vector<HDARShimTile> tiles;
    for (char const* name : {"KPE_SHIM_X0Y0", "KPE_SHIM_X1Y0", "KPE_ML_SHIM_X2Y0", "KPE_ML_SHIM_X3Y0"}) {
      HDARShimTile tile{name, static_cast<int>(tiles.size()) + 4, {}};
      for (int channel = 0; channel < 4; ++channel)
        tile.sites.push_back(HDARShimSite{"CH_" + std::to_string(channel), -1, channel});
      tile.sites.push_back(HDARShimSite{"CTRL", -1, -1});
      tiles.push_back(tile);
    }
    part = std::make_unique<HDARPart>("fuzz", tiles);
    for (char const* instanceName : {"alpha/kpe", "beta/array"}) {
      TQLogicalTQIPInstance* instance = model.addTQIPInstance(instanceName);
      addPort(*instance, "p1", {"/one"}, true);
      addPort(*instance, "p2", {"/two<0>_INST", "/two<1>_INST"}, true);
      addPort(*instance, "p3", {"/a", "/b"}, true);
      addPort(*instance, "p4", {"/unknown"}, false);
    }
  }

  void addPort(TQLogicalTQIPInstance& instance, std::string const& name, std::vector<std::string> const& channels,
               bool known) {
    TQLogicalPort* port = model.addShimPort(name, instance);
    for (std::string const& channel : channels) {
      std::string const full = instance.getName() + "/" + name + channel;
      port->addTqChannelFullHierName(full);
      if (known)
        traffic.addLogicalInstance(full, DevHrdIP::Definitions::AXI_STRM, DevHrdIP::Definitions::KPE_PL_STRM_IN, {});
    }
  }

  std::unique_ptr<HDARPart> part;
  TQLogicalArchModel model;
  HrdIPToolCntr::TrafficSpec traffic;
};

Design const& design() {
  static Design const instance;
  return instance;
}

std::vector<std::pair<HrdIPToolCntr::TrafficLInst const*, GRMBel>> placements(KPEShimInterfaceSolution const& s) {
  std::vector<HrdIPToolCntr::TrafficLInst const*> placed;
  s.getAllPlacedInstances(placed);
  std::vector<std::pair<HrdIPToolCntr::TrafficLInst const*, GRMBel>> result;
  for (auto const* instance : placed)
    result.emplace_back(instance, s.getPhysicalForLogical(instance));
  return result;
}

}  // namespace

// Messages would drown the fuzzer's own output.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
  ComMsgMgr::setDefaultSinkEnabled(false);
  design();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, std::size_t size) {
  Design const& d = design();
  HDGUIStatus status;
  KPEShimInterfaceSolution solution(*d.part);
  std::istringstream in(std::string(reinterpret_cast<char const*>(data), size));
  try {
    TQCompilerSolutionReaderJSON::readFromJsonFile(in, "fuzz.json", *d.part, d.model, d.traffic, solution, status);
  } catch (HEXAll const&) {
    return 0;
  }
  std::ostringstream out;
  if (!TQCompilerSolutionWriterJSON::writeToJsonFile(out, d.model, d.traffic, solution, *d.part, status)) std::abort();
  // Nothing placed is written as no text at all.
  KPEShimInterfaceSolution again(*d.part);
  if (!out.str().empty()) {
    std::istringstream written(out.str());
    TQCompilerSolutionReaderJSON::readFromJsonFile(written, "written.json", *d.part, d.model, d.traffic, again, status);
  }
  if (placements(again) != placements(solution)) std::abort();
  return 0;
}
