// The logical architecture reader on any text: it may throw HEXAll, nothing else, and must
// not crash. A model it read is written, and the written text must read again; after one
// more round the text must not change (the first round may: a NoC instance of unknown type
// comes back as "mem"). Renaming the ports of what was read must not crash either.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>

#include "ComMsgMgr.h"
#include "HDGUIStatus.h"
#include "HEXAll.h"
#include "TQLogicalArchModel.h"
#include "TQLogicalArchReader.h"
#include "TQLogicalArchWriter.h"

namespace {

using Tarvo::Frameworks::TQLogicalArchModel;

std::string written(TQLogicalArchModel const& model, std::string const& prefix = std::string()) {
  std::ostringstream out;
  HDGUIStatus status;
  TQLogicalArchWriter::writeToJsonFile(prefix, out, model, status);
  return out.str();
}

// Written text reads without an exception; one that escapes is a finding.
void readWritten(std::string const& text, TQLogicalArchModel& model) {
  std::istringstream in(text);
  TQLogicalArchReader::readFromJsonFile(in, "written.json", model);
}

}  // namespace

// Messages would drown the fuzzer's own output.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
  ComMsgMgr::setDefaultSinkEnabled(false);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, std::size_t size) {
  std::istringstream in(std::string(reinterpret_cast<char const*>(data), size));
  TQLogicalArchModel read;
  try {
    TQLogicalArchReader::readFromJsonFile(in, "fuzz.json", read);
  } catch (HEXAll const&) {
    return 0;
  }
  if (read.isEmpty()) return 0;

  TQLogicalArchModel once;
  readWritten(written(read), once);
  std::string const second = written(once);
  TQLogicalArchModel twice;
  readWritten(second, twice);
  if (written(twice) != second) std::abort();

  // A sub-hierarchy named after the first instance, and the renamed ports, must write too.
  std::string const prefix = read.getInstances().empty() ? std::string("x") : read.getInstances().begin()[0]->getName();
  TQLogicalArchModel part;
  std::string const partText = written(read, prefix.substr(0, prefix.find('/') + 1));
  if (!partText.empty()) readWritten(partText, part);
  twice.renameLogicalArchPortNames(size % 2 == 0);
  TQLogicalArchModel renamed;
  readWritten(written(twice), renamed);
  return 0;
}
