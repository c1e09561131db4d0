// The constraint reader on any text, read from a file so that the search for source
// positions runs too. The reader may throw HEXAll, nothing else, and must not crash; a
// document that passed validation must be written again without a schema failure.

#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include "ComMsgMgr.h"
#include "ConstrHandler.h"
#include "ConstrReader.h"
#include "ConstrWriter.h"
#include "HEXAll.h"

namespace {

std::string const& inputFile() {
  static std::string const file = "/tmp/constraints_fuzz_" + std::to_string(getpid()) + ".json";
  return file;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  ComMsgMgr::setDefaultSinkEnabled(false);
  std::atexit([] { std::remove(inputFile().c_str()); });
  return 0;
}

// The first byte chooses validation; the rest is the document.
extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, std::size_t size) {
  if (size == 0) return 0;
  bool const validate = (data[0] & 1) != 0;
  std::ofstream(inputFile(), std::ios_base::binary | std::ios_base::trunc)
      .write(reinterpret_cast<char const*>(data + 1), static_cast<std::streamsize>(size - 1));
  kpe::constraints::ConstrHandler store;
  try {
    kpe::constraints::ConstrReader(store).read(inputFile(), validate);
  } catch (HEXAll const&) {
    store.clear();
    return 0;
  }
  std::ostringstream out;
  try {
    kpe::constraints::ConstrWriter(store).write(out, "fuzz.json", true);
  } catch (HEXAll const&) {
    if (validate) std::abort();
  }
  store.clear();
  return 0;
}
