#include "DocumentFailure.h"

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

DocumentFailure DocumentFailure::refused(std::vector<CapturedMessage> const& messages, std::string const& file) {
  for (auto message = messages.rbegin(); message != messages.rend(); ++message)
    if (message->severity == "ERROR" || message->severity == "CRITICAL WARNING") return DocumentFailure(*message, file);
  DocumentFailure failure("the writer refused to write '" + file + "'", file);
  failure.text = failure.what();
  return failure;
}

}  // namespace tarvo_python
