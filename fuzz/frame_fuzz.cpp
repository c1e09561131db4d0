// The load sequence with any schema: the input is split at its first NUL byte into a schema
// text and a document text. Loading may throw HEXAll, nothing else, and must not crash; a
// loaded document is then written through the same schema.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <unistd.h>

#include "ComMsgMgr.h"
#include "HEXAll.h"
#include "JsonDocumentFrame.h"

namespace {

std::string const& schemaFile() {
  static std::string const path = "/tmp/tarvo-frame-fuzz-" + std::to_string(getpid()) + ".schema.json";
  return path;
}

}  // namespace

// Messages would drown the fuzzer's own output.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
  ComMsgMgr::setDefaultSinkEnabled(false);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, std::size_t size) {
  std::string const input(reinterpret_cast<char const*>(data), size);
  std::string::size_type const split = input.find('\0');
  if (split == std::string::npos) return 0;
  {
    std::ofstream schema(schemaFile(), std::ios_base::binary | std::ios_base::trunc);
    schema << input.substr(0, split);
  }
  std::istringstream in(input.substr(split + 1));
  JsonDocumentFrame::Document doc;
  try {
    JsonDocumentFrame::load(in, "fuzz.json", schemaFile(), JsonDocumentFrame::Opener::PlainFile, doc);
    std::ostringstream out;
    JsonDocumentFrame::write(out, doc, schemaFile(), "fuzz");
  } catch (HEXAll const&) {
  }
  return 0;
}
