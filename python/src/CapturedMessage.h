#ifndef TARVO_PYTHON_CAPTUREDMESSAGE_H
#define TARVO_PYTHON_CAPTUREDMESSAGE_H

#include <optional>
#include <string>
#include <vector>

class ComMsgMgrInstance;

namespace tarvo_python {

// Where a message places itself in a document: the file, line and column that the reader
// attached to it, or nothing.
struct MessagePlace {
  explicit MessagePlace(ComMsgMgrInstance const& message);

  std::string file;
  std::optional<int> line;
  std::optional<int> column;
};

// One message the library sent while a document was read or written.
struct CapturedMessage {
  static CapturedMessage of(ComMsgMgrInstance const& message);

  std::string severity;  // "INFO", "WARNING", "CRITICAL WARNING" or "ERROR"
  std::string id;        // such as "75-407"
  std::string text;      // the wording with its arguments
  std::string printed;   // as the default sink prints it
  MessagePlace place;
};

}  // namespace tarvo_python

#endif
