#ifndef TARVO_PYTHON_DOCUMENTFAILURE_H
#define TARVO_PYTHON_DOCUMENTFAILURE_H

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "CapturedMessage.h"
#include "Diagnostic.h"
#include "LibraryReport.h"

namespace tarvo_python {

// A read or write that failed, with what is known of the place. The extension turns it into
// tarvo.DocumentError.
class DocumentFailure : public std::runtime_error {
 public:
  DocumentFailure(std::string const& message, std::string const& file) : std::runtime_error(message), file(file) {}
  // An error message the library sent without throwing.
  DocumentFailure(CapturedMessage const& message, std::string const& file);

  // A read that failed: the library's exception, or else its first error message, or else
  // `failure`; placed at the first error that the diagnostics place for it.
  static DocumentFailure of(tarvo_diagnostics::LibraryReport const& report, std::string const& failure,
                            std::vector<tarvo_diagnostics::Diagnostic> const& diagnostics, std::string const& file);
  // A writer that refused after its own messages: the last of them that is an error or a
  // critical warning, or a plain refusal.
  static DocumentFailure refused(std::vector<ComMsgMgrInstance> const& messages, std::string const& file);

  // Runs `work`, turning the library's exceptions into a DocumentFailure naming `file`.
  static void guard(std::string const& file, std::function<void()> const& work);

  std::string file;
  std::optional<int> line;
  std::optional<int> column;
  std::string id;       // such as "8-101"; empty when the failure has no message id
  std::string text;     // the message without severity and id
  std::string pointer;  // JSON pointer of the failing value, when known
};

}  // namespace tarvo_python

#endif
