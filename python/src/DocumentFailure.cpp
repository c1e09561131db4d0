#include "DocumentFailure.h"

#include "ComMsgMgr.h"
#include "ComMsgMgrInstance.h"
#include "HEXAll.h"

namespace tarvo_python {

void DocumentFailure::guard(std::string const& file, std::function<void()> const& work) {
  try {
    work();
  } catch (HEXAll const& error) {
    throw DocumentFailure(CapturedMessage::of(error.getMessage()), file);
  } catch (DocumentFailure const&) {
    throw;
  } catch (std::bad_alloc const&) {
    throw;
  } catch (std::exception const& error) {
    // Readers report some failures (a solution made for another device, a bad option) with
    // standard exceptions and no message id.
    DocumentFailure failure(error.what(), file);
    failure.text = error.what();
    throw failure;
  }
}

DocumentFailure::DocumentFailure(CapturedMessage const& message, std::string const& file)
    : std::runtime_error(message.printed),
      file(message.place.file.empty() ? file : message.place.file),
      line(message.place.line),
      column(message.place.column),
      id(message.id),
      text(message.text) {}

DocumentFailure DocumentFailure::of(tarvo_diagnostics::LibraryReport const& report, std::string const& failure,
                                    std::vector<tarvo_diagnostics::Diagnostic> const& diagnostics,
                                    std::string const& file) {
  ComMsgMgrInstance const* reported = report.failure ? &*report.failure : nullptr;
  for (auto message = report.messages.begin(); reported == nullptr && message != report.messages.end(); ++message)
    if (message->getMask() == ComMsgMgr::MSG_ERROR) reported = &*message;
  if (reported == nullptr) {
    DocumentFailure plain(failure, file);
    plain.text = failure;
    return plain;
  }
  DocumentFailure result(CapturedMessage::of(*reported), file);
  std::string const id = reported->getComponent() + " " + reported->getId();
  for (auto const& diagnostic : diagnostics) {
    if (diagnostic.severity != tarvo_diagnostics::Severity::Error || diagnostic.line == 0 || diagnostic.id != id)
      continue;
    result.line = static_cast<int>(diagnostic.line);
    result.column = static_cast<int>(diagnostic.column);
    break;
  }
  // Parse and schema failures name the failing value by a pointer in URI-fragment form.
  std::vector<std::string> const& args = reported->getArgs();
  std::size_t const pointerArg = reported->getId() == "8-101" ? 1 : reported->getId() == "75-571" ? 3 : args.size();
  if (pointerArg < args.size() && args[pointerArg].rfind('#', 0) == 0) result.pointer = args[pointerArg];
  return result;
}

DocumentFailure DocumentFailure::refused(std::vector<ComMsgMgrInstance> const& messages, std::string const& file) {
  for (auto message = messages.rbegin(); message != messages.rend(); ++message)
    if (message->getMask() == ComMsgMgr::MSG_ERROR || message->getMask() == ComMsgMgr::MSG_CRITICAL_WARNING)
      return DocumentFailure(CapturedMessage::of(*message), file);
  DocumentFailure failure("the writer refused to write '" + file + "'", file);
  failure.text = failure.what();
  return failure;
}

}  // namespace tarvo_python
