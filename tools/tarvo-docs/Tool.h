#ifndef TARVO_DOCS_TOOL_H
#define TARVO_DOCS_TOOL_H

#include <ostream>
#include <string>
#include <vector>

namespace tarvo_docs {

// What becomes of the last document read: freed, or left for the end of the process, which
// gives the pages of a large model back at once where its destructors take a tenth of a run.
enum class LastDocument { Free, LeaveToExit };

// Runs tarvo-docs on `args` (without the program name), printing to `out` and `err`; `-` as
// input reads std::cin. Returns the exit status (ExitCode.h). The library's messages go to
// `err` while it runs. Only a caller that ends the process right after may leave the last
// document to its end.
int runTool(std::vector<std::string> const& args, std::ostream& out, std::ostream& err,
            LastDocument last = LastDocument::Free);

}  // namespace tarvo_docs

#endif
