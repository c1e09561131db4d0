#ifndef TARVO_DOCS_LIBRARYREPORT_H
#define TARVO_DOCS_LIBRARYREPORT_H

#include <optional>
#include <vector>

#include "ComMsgMgrInstance.h"

namespace tarvo_diagnostics {

// What the library reported while it read one document: the messages it sent, and the
// message of the HEXAll that ended the read, if one did.
struct LibraryReport {
  std::vector<ComMsgMgrInstance> messages;
  std::optional<ComMsgMgrInstance> failure;
};

// Collects the messages sent while it lives into a report. With `quiet`, the default sink
// (standard error) is off meanwhile, for a caller that prints diagnostics instead.
class MessageCapture {
 public:
  explicit MessageCapture(LibraryReport& report, bool quiet = false);
  ~MessageCapture();
  MessageCapture(MessageCapture const&) = delete;
  MessageCapture& operator=(MessageCapture const&) = delete;

 private:
  int m_sink;
  bool m_quiet;
};

}  // namespace tarvo_diagnostics

#endif
