#ifndef TARVO_TESTS_TOOLRUN_H
#define TARVO_TESTS_TOOLRUN_H

#include <string>

namespace tarvo_test {

// The outcome of one run of tarvo-docs.
struct ToolRun {
  int exitCode;
  std::string out;
  std::string err;
};

// Runs tarvo-docs with `arguments` (a shell word list) from the source tree's top.
ToolRun runTarvoDocs(std::string const& tool, std::string const& arguments);

}  // namespace tarvo_test

#endif
