#ifndef TARVO_DOCS_DIAGNOSTIC_H
#define TARVO_DOCS_DIAGNOSTIC_H

#include <cstddef>
#include <string>
#include <vector>

namespace tarvo_diagnostics {

enum class Severity { Error, Warning, Note };

// "error", "warning" or "note".
char const* severityText(Severity severity);

// One finding about a document, at a place of its text when one is known. Lines and columns
// are 1-based; `column` counts bytes from the line's start, `characterColumn` counts UTF-8
// characters (what editors that read SARIF expect). A line of 0 means no place is known.
struct Diagnostic {
  std::string file;
  std::size_t line = 0;
  std::size_t column = 0;
  std::size_t characterColumn = 0;
  Severity severity = Severity::Error;
  std::string id;    // "tarvo 8-101" (the library's), "tarvo-docs NAME" (lint), "" (no rule)
  std::string text;  // no trailing newline

  // "FILE:LINE:COLUMN: SEVERITY: TEXT [ID]", or "FILE: SEVERITY: TEXT [ID]" with no place.
  std::string format() const;
};

bool operator==(Diagnostic const& a, Diagnostic const& b);

// True when any diagnostic is an error, or (`warningsFail`) a warning.
bool failsCheck(std::vector<Diagnostic> const& diagnostics, bool warningsFail);

}  // namespace tarvo_diagnostics

#endif
