#ifndef TARVO_TESTS_DIAGNOSTICSTESTSUPPORT_H
#define TARVO_TESTS_DIAGNOSTICSTESTSUPPORT_H

#include <functional>
#include <string>
#include <vector>

#include "Diagnoser.h"

namespace tarvo_test {

// What the library reports while `read` runs: its messages and the HEXAll that ended it.
tarvo_diagnostics::LibraryReport reportOf(std::function<void()> const& read);

// Reads a file of tests/data/diagnostics with the library's reader of `kind` and returns the
// printed diagnostics, one line each, with the file named `display`.
std::vector<std::string> diagnoseFile(std::string const& kind, std::string const& path, bool strict = false,
                                      std::size_t maxSchemaViolations = 50);

std::vector<std::string> lines(std::vector<tarvo_diagnostics::Diagnostic> const& diagnostics);

}  // namespace tarvo_test

#endif
