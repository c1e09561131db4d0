#include "Diagnostic.h"

#include <algorithm>

namespace tarvo_diagnostics {

char const* severityText(Severity severity) {
  switch (severity) {
    case Severity::Error:
      return "error";
    case Severity::Warning:
      return "warning";
    case Severity::Note:
      break;
  }
  return "note";
}

std::string Diagnostic::format() const {
  std::string out = file;
  if (line != 0) out += ':' + std::to_string(line) + ':' + std::to_string(column);
  out += ": ";
  out += severityText(severity);
  out += ": " + text;
  if (!id.empty()) out += " [" + id + ']';
  return out;
}

bool operator==(Diagnostic const& a, Diagnostic const& b) {
  return a.file == b.file && a.line == b.line && a.column == b.column && a.characterColumn == b.characterColumn &&
         a.severity == b.severity && a.id == b.id && a.text == b.text;
}

bool failsCheck(std::vector<Diagnostic> const& diagnostics, bool warningsFail) {
  return std::any_of(diagnostics.begin(), diagnostics.end(), [warningsFail](Diagnostic const& d) {
    return d.severity == Severity::Error || (warningsFail && d.severity == Severity::Warning);
  });
}

}  // namespace tarvo_diagnostics
