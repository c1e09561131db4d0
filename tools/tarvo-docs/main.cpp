// tarvo-docs: checks, summarises and converts the documents of tarvo_readwrite.

#include <iostream>

#include "HugePageHeap.h"
#include "Tool.h"

int main(int argc, char** argv) {
  tarvo_docs::HugePageHeap::restartWithHugePages(argv);
#if defined(__SANITIZE_ADDRESS__)
  // The leak checker would report the document left to the end.
  auto const last = tarvo_docs::LastDocument::Free;
#else
  auto const last = tarvo_docs::LastDocument::LeaveToExit;
#endif
  return tarvo_docs::runTool(std::vector<std::string>(argv + 1, argv + argc), std::cout, std::cerr, last);
}
