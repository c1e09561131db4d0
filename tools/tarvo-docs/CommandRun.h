#ifndef TARVO_DOCS_COMMANDRUN_H
#define TARVO_DOCS_COMMANDRUN_H

#include <cstdint>
#include <functional>
#include <istream>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "Command.h"
#include "Diagnostic.h"
#include "LibraryReport.h"
#include "MessageLog.h"
#include "ReadOutcome.h"
#include "ToolOptions.h"

class HDGUIStatus;

namespace tarvo_docs {

// The streams a run of tarvo-docs works with.
struct ToolStreams {
  std::ostream& out;
  std::ostream& err;
  std::istream& in;  // what `-` reads
};

// One run of one command, parsed and checked: what the command's function works with, and
// the one pipeline through which every command reads its documents and writes its outputs.
class CommandRun {
 public:
  CommandRun(Command const& command, std::vector<std::string> files, ToolOptions options, ToolStreams streams,
             bool progress, bool quiet);

  Command const& command() const { return m_command; }
  std::vector<std::string> const& files() const { return m_files; }
  ToolOptions const& options() const { return m_options; }
  std::ostream& out() { return m_streams.out; }
  std::ostream& err() { return m_streams.err; }
  bool quiet() const { return m_quiet; }

  // Reads the document that `argument` names (`-`: standard input) as `kind`, or as the kind
  // given with --kind, or as detected. Failures are reported and counted, never thrown (a
  // usage error excepted).
  ReadOutcome read(std::string const& argument, DocumentKind const* kind);

  // Writes what `write` writes to `target` (`-`: standard output) through OutputFile.
  // Returns the number of bytes written, 0 when `write` wrote nothing, and nothing when
  // `write` returned false (after its own message); in both cases the target is as it was.
  // Throws what `write` throws, and OutputError when the output cannot be written.
  std::optional<std::uintmax_t> writeOutput(std::string const& target,
                                            std::function<bool(std::ostream&, HDGUIStatus&)> const& write);

  // True when the diagnostics go to standard output as one SARIF log at the end of the run.
  bool sarif() const { return m_options.get("--diagnostics-format") == "sarif"; }
  // Ends the run: prints the SARIF log of all documents read, where asked for.
  void finish();

 private:
  // Prints (or keeps for the SARIF log) the diagnostics of one read, and counts them into
  // `outcome`. `failure` is the text of a failure that is not the library's report.
  void diagnose(ReadOutcome& outcome, DocumentSource const* source, tarvo_diagnostics::LibraryReport const& report,
                std::string const& failure, bool kindGiven);

  Command const& m_command;
  std::vector<std::string> m_files;
  ToolOptions m_options;
  ToolStreams m_streams;
  bool m_progress;
  bool m_quiet;
  MessageLog m_log;
  std::vector<tarvo_diagnostics::Diagnostic> m_sarifResults;
};

}  // namespace tarvo_docs

#endif
