// The metadata reader on any text: it may throw HEXAll, nothing else, and must not crash.

#include <cstddef>
#include <cstdint>
#include <sstream>

#include "ComMsgMgr.h"
#include "HEXAll.h"
#include "KPEPrjMetaDataModel.h"

// Messages would drown the fuzzer's own output.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
  ComMsgMgr::setDefaultSinkEnabled(false);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, std::size_t size) {
  std::istringstream in(std::string(reinterpret_cast<char const*>(data), size));
  Tarvo::Frameworks::KPEPrjMetaDataModel model;
  try {
    model.readFromJSONStream("fuzz.json", in);
  } catch (HEXAll const&) {
    return 0;
  }
  std::ostringstream out;
  model.writeToJSONStream(out);
  return 0;
}
