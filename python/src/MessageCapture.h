#ifndef TARVO_PYTHON_MESSAGECAPTURE_H
#define TARVO_PYTHON_MESSAGECAPTURE_H

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

// Collects the library's messages for as long as it lives, in place of the default sink, so
// that Python sees them as objects and warnings instead of lines on standard error.
class MessageCapture {
 public:
  MessageCapture();
  ~MessageCapture();
  MessageCapture(MessageCapture const&) = delete;
  MessageCapture& operator=(MessageCapture const&) = delete;

  std::vector<CapturedMessage> const& messages() const { return m_messages; }

 private:
  int m_sink;
  std::vector<CapturedMessage> m_messages;
};

}  // namespace tarvo_python

#endif
