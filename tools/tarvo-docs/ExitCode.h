#ifndef TARVO_DOCS_EXITCODE_H
#define TARVO_DOCS_EXITCODE_H

namespace tarvo_docs {

// The exit statuses of tarvo-docs, the one table that the help prints.
enum ExitCode : int {
  kExitSuccess = 0,  // every document passed and every output was written
  kExitFailed = 1,   // a document failed, or an output could not be written
  kExitUsage = 2     // the command line is wrong
};

inline char const* exitCodeHelp() {
  return "Exit status:\n"
         "  0  success\n"
         "  1  a document failed (or there was nothing to write); outputs are left as they were\n"
         "  2  usage: an unknown command or option, or a missing argument\n";
}

}  // namespace tarvo_docs

#endif
