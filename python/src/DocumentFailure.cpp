#include "DocumentFailure.h"

#include "HEXAll.h"
#include "MessageCapture.h"

void DocumentFailure::guard(std::string const& file, std::function<void()> const& work) {
  try {
    work();
  } catch (HEXAll const& error) {
    ComMsgMgrInstance const& message = error.getMessage();
    MessagePlace const place(message);
    DocumentFailure failure(error.what(), place.file.empty() ? file : place.file);
    failure.id = message.getId();
    failure.text = message.getText();
    failure.line = place.line;
    failure.column = place.column;
    throw failure;
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
