#ifndef TARVO_TESTS_TOOLS_INPROCESS_H
#define TARVO_TESTS_TOOLS_INPROCESS_H

#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "Tool.h"
#include "ToolRun.h"

namespace tarvo_test {

// The sample documents of the repository, which the program's tests read.
inline std::string const kExamples = std::string(TARVO_SOURCE_DIR) + "/examples/";
inline std::string const kMeta = kExamples + "project_meta.json";

// Runs tarvo-docs in this process with `input` as its standard input.
inline ToolRun runInProcess(std::vector<std::string> const& args, std::string const& input = std::string()) {
  std::ostringstream out;
  std::ostringstream err;
  std::istringstream in(input);
  std::streambuf* const previous = std::cin.rdbuf(in.rdbuf());
  int const code = tarvo_docs::runTool(args, out, err);
  std::cin.rdbuf(previous);
  std::cin.clear();
  return ToolRun{code, out.str(), err.str()};
}

}  // namespace tarvo_test

#endif
