// The NoC placement constraints reader on any text, against a small traffic specification on
// the default device. It may throw HEXAll, nothing else, and must not crash; what it read
// must be written again without a schema failure.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <sstream>

#include "ComMsgMgr.h"
#include "Constraints.h"
#include "HDGUIStatus.h"
#include "HEXAll.h"
#include "HIPDeviceLoader.h"
#include "HIPLogicalObjectNameResolverInterface.h"
#include "NOCJsonConstraintsReader.h"
#include "NOCJsonConstraintsWriter.h"
#include "TrafficSpec.h"

namespace {

using namespace DevHrdIP::Definitions;
using namespace HrdIPToolCntr;

struct Traffic {
  std::unique_ptr<DevHrdIP::HIPDevice> device = DevHrdIP::HIPDeviceLoader::makeDefaultDevice();
  TrafficSpec spec;

  Traffic() {
    spec.addLogicalInstance("ps_master", AXI_MM, PS_IGU_0, {});
    spec.addLogicalInstance("ddr", AXI_MM, DDRC, {});
    spec.addLogicalInstance("pl_slave", AXI_MM, PL_EGU, {});
    spec.addLogicalInstance("array_channel", AXI_STRM, KPE_PL_STRM_IN, {});
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
  Constraints constraints;
  HIPLogicalObjectNameResolverInterfaceIdentity identity;
  HDGUIStatus status;
  try {
    NOC::NOCJsonConstraintsReader::readFromJsonFile(in, "fuzz.json", *traffic().device, traffic().spec, constraints,
                                                    identity, status);
  } catch (HEXAll const&) {
    return 0;
  }
  std::ostringstream out;
  if (!NOC::NOCJsonConstraintsWriter::writeToJsonFile(out, constraints, status)) std::abort();
  return 0;
}
