#ifndef TARVO_DOCS_TOOL_H
#define TARVO_DOCS_TOOL_H

#include <ostream>
#include <string>
#include <vector>

namespace tarvo_docs {

// Runs tarvo-docs on `args` (without the program name), printing to `out` and `err`; `-` as
// input reads std::cin. Returns the exit status (ExitCode.h). The library's messages go to
// `err` while it runs.
int runTool(std::vector<std::string> const& args, std::ostream& out, std::ostream& err);

}  // namespace tarvo_docs

#endif
