#ifndef TARVO_DOCS_READOUTCOME_H
#define TARVO_DOCS_READOUTCOME_H

#include <exception>
#include <memory>
#include <ostream>
#include <string>

#include "DocumentKind.h"
#include "DocumentSource.h"

namespace tarvo_docs {

// What reading one document gave: its kind (once known), the model, and the count of the
// library's error and warning messages.
struct ReadOutcome {
  std::string name;
  DocumentKind const* kind = nullptr;
  std::unique_ptr<LoadedDocument> document;
  int errors = 0;
  int warnings = 0;

  bool ok() const { return document != nullptr && errors == 0; }
};

// A read that failed: the document, its kind if known, and what was thrown.
struct ReadFailure {
  DocumentSource const& source;
  DocumentKind const* kind;
  std::exception_ptr error;
};

// Reports what was thrown: the library's report as it is, anything else as "ERROR: " and its text.
void reportError(std::exception_ptr error, std::ostream& err);

// The one place where a failed read is reported (for `check` and every other command): the
// library's report as it is, and any other failure as "ERROR: " and its text.
void reportReadFailure(ReadFailure const& failure, std::ostream& err);

}  // namespace tarvo_docs

#endif
