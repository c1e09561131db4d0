#include "ReadOutcome.h"

#include "HEXAll.h"

namespace tarvo_docs {

void reportReadFailure(ReadFailure const& failure, std::ostream& err) {
  reportError(failure.error, err);
}

void reportError(std::exception_ptr error, std::ostream& err) {
  try {
    std::rethrow_exception(error);
  } catch (HEXAll const& error) {
    err << error.what() << "\n";
  } catch (std::exception const& error) {
    err << "ERROR: " << error.what() << "\n";
  }
}

}  // namespace tarvo_docs
