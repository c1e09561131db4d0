#ifndef TARVO_DOCS_SARIFWRITER_H
#define TARVO_DOCS_SARIFWRITER_H

#include <iosfwd>
#include <string>
#include <vector>

#include "Diagnostic.h"

namespace tarvo_diagnostics {

// Writes diagnostics as one SARIF 2.1.0 log with one run: one result per diagnostic (rule
// id, level, message, and a physical location with start line and column where the
// diagnostic has a place), and the rules the results use. Columns are UTF-8 characters, as
// the run's columnKind says.
class SarifWriter {
 public:
  static void write(std::ostream& out, std::vector<Diagnostic> const& diagnostics, std::string const& toolName,
                    std::string const& toolVersion);
};

}  // namespace tarvo_diagnostics

#endif
