// tarvo-docs: checks, summarises and converts the documents of tarvo_readwrite.

#include <iostream>

#include "Tool.h"

int main(int argc, char** argv) {
  return tarvo_docs::runTool(std::vector<std::string>(argv + 1, argv + argc), std::cout, std::cerr);
}
