// The NoC solution reader on any text, against a small traffic specification on the default
// device. It may throw HEXAll (load failures), std::runtime_error (a link the device does not
// have) and std::out_of_range (a port index beyond a memory controller's ports), nothing else,
// and must not crash; a solution it read must be written again without a schema failure.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <stdexcept>

#include "ComMsgMgr.h"
#include "CompRes.h"
#include "HDGUIStatus.h"
#include "HEXAll.h"
#include "HIPDeviceLoader.h"
#include "NOCJsonSolutionReader.h"
#include "NOCJsonSolutionWriter.h"
#include "TrafficSpec.h"

namespace {

using namespace DevHrdIP::Definitions;
using namespace HrdIPToolCntr;

// The instances and paths that the seed documents name.
struct Traffic {
  std::unique_ptr<DevHrdIP::HIPDevice> device = DevHrdIP::HIPDeviceLoader::makeDefaultDevice();
  TrafficSpec spec;

  Traffic() {
    TrafficLInst* ps = spec.addLogicalInstance("ps_master", AXI_MM, PS_IGU_0, {});
    TrafficLInst* pl = spec.addLogicalInstance("pl_master", AXI_MM, PL_IGU, {{"top/pl_axi"}});
    TrafficLInst* array = spec.addLogicalInstance("array_master", AXI_STRM, KPE_NOC_IGU, {});
    TrafficLInst* ddr = spec.addLogicalInstance("ddr", AXI_MM, DDRC, {{"top/ddr_p0"}, {"top/ddr_p2"}});
    TrafficLInst* slave = spec.addLogicalInstance("pl_slave", AXI_MM, PL_EGU, {});
    spec.addPath(ps, ddr)->setSlavePort(PORT0);
    spec.addPath(ps, ddr)->setSlavePort(PORT0);
    spec.addPath(pl, ddr)->setSlavePort(PORT2);
    spec.addPath(pl, slave)->setSlavePort(PORT0);
    spec.addPath(array, slave)->setSlavePort(PORT0);
  }
};

Traffic const& traffic() {
  static Traffic const built;
  return built;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  ComMsgMgr::setDefaultSinkEnabled(false);
  traffic();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, std::size_t size) {
  std::istringstream in(std::string(reinterpret_cast<char const*>(data), size));
  CompRes result(*traffic().device);
  HDGUIStatus status;
  try {
    NOC::NOCJsonSolutionReader::readFromJsonFile(in, "fuzz.json", traffic().spec, result, status);
  } catch (HEXAll const&) {
    return 0;
  } catch (std::out_of_range const&) {
    return 0;
  } catch (std::runtime_error const&) {
    return 0;
  }
  std::ostringstream out;
  if (!NOC::NOCJsonSolutionWriter::writeToJsonFile(out, traffic().spec, result, status)) std::abort();
  return 0;
}
