// The NoC traffic reader on any text: it may throw HEXAll, nothing else, and must not crash.
// What it reads is written back, which must not crash either.

#include <cstddef>
#include <cstdint>
#include <sstream>

#include "ComMsgMgr.h"
#include "HDGUIStatus.h"
#include "HEXAll.h"
#include "NOCJsonTrafficSpecReader.h"
#include "NOCJsonTrafficSpecWriter.h"
#include "TrafficSpec.h"

// Messages would drown the fuzzer's own output.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
  ComMsgMgr::setDefaultSinkEnabled(false);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, std::size_t size) {
  std::istringstream in(std::string(reinterpret_cast<char const*>(data), size));
  HrdIPToolCntr::TrafficSpec spec;
  HDGUIStatus status;
  try {
    NOC::NOCJsonTrafficSpecReader::readFromJsonFile(in, "fuzz.json", spec, status);
  } catch (HEXAll const&) {
    return 0;
  }
  NOC::NOCJsonTrafficSpecReader::enableDefaultSlv(spec);
  std::ostringstream out;
  NOC::NOCJsonTrafficSpecWriter::writeToJsonFile(out, spec, status);
  return 0;
}
