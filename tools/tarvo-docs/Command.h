#ifndef TARVO_DOCS_COMMAND_H
#define TARVO_DOCS_COMMAND_H

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace tarvo_docs {

class CommandRun;
struct ReadOutcome;

// One option of a command: `--name VALUE`, or a flag when `value` is empty.
struct CommandOption {
  std::string name;   // "--traffic", "-o"
  std::string value;  // "FILE"; empty for a flag
  std::string help;
  bool repeatable = false;
  // Checks a value before anything is read: the usage error's whole text, or empty.
  std::function<std::string(std::string const&)> check = nullptr;
};

// One command of tarvo-docs: one row of the command table.
struct Command {
  std::string name;
  std::string usage;  // the synopsis, such as "convert FILE -o OUT"
  std::string help;   // what it does, one short paragraph
  std::vector<CommandOption> options;
  // What the command line must give: FILE arguments, options, and the words for a usage error
  // ("needs one FILE and -o OUT").
  std::size_t minFiles = 0;
  std::size_t maxFiles = 0;
  std::vector<std::string> requiredOptions;
  std::string requirement;
  // A command that needs a read document: each FILE (`-` standard input) is read, of the
  // kind `kind` or, when that is empty, of the kind given with --kind or detected, and
  // `onDocument` runs for each, read or failed; false when that document failed. A command
  // that needs nothing read has `run`, which returns the exit status.
  std::string kind;
  bool walksDirectories = false;  // a directory FILE stands for its *.json and *.json.gz files
  // The library's reports of a read come as diagnostics (FILE:LINE:COLUMN: SEVERITY: TEXT [ID])
  // with every schema violation; the command takes --strict and --diagnostics-format.
  bool diagnoses = false;
  std::function<bool(CommandRun&, ReadOutcome&)> onDocument = nullptr;
  std::function<int(CommandRun&)> run = nullptr;
};

// Every command, in the order the help lists them.
std::vector<Command> const& commandTable();

}  // namespace tarvo_docs

#endif
