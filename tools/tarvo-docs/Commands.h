#ifndef TARVO_DOCS_COMMANDS_H
#define TARVO_DOCS_COMMANDS_H

#include <functional>
#include <ostream>
#include <string>

#include "CommandRun.h"
#include "ReadOutcome.h"

class HDGUIStatus;

namespace tarvo_docs {

// The functions of the command table's rows, each run for one read document; false when
// that document failed.
bool checkDocument(CommandRun& run, ReadOutcome& outcome);
bool summarizeDocument(CommandRun& run, ReadOutcome& outcome);
bool convertDocument(CommandRun& run, ReadOutcome& outcome);
bool renamePorts(CommandRun& run, ReadOutcome& outcome);
bool writeShimConstraints(CommandRun& run, ReadOutcome& outcome);
bool printInterfaceIds(CommandRun& run, ReadOutcome& outcome);

// The row function of `schema`, which reads no document; returns the exit status.
int printSchema(CommandRun& run);

// The check of --columns START:COUNT: the usage error's text, or empty.
std::string checkColumns(std::string const& text);

// Writes the document's new text (what `write` writes) to the -o target of `run`; on any
// failure, and when there was nothing to write, says so and leaves the target as it was.
bool writeDocumentTo(CommandRun& run, ReadOutcome const& outcome,
                     std::function<bool(std::ostream&, HDGUIStatus&)> const& write);

}  // namespace tarvo_docs

#endif
