#include "Commands.h"
#include "HDGUIStatus.h"

namespace tarvo_docs {

namespace {

std::string counts(ReadOutcome const& outcome) {
  std::string text;
  if (outcome.errors) text += ", " + std::to_string(outcome.errors) + (outcome.errors == 1 ? " error" : " errors");
  if (outcome.warnings)
    text += ", " + std::to_string(outcome.warnings) + (outcome.warnings == 1 ? " warning" : " warnings");
  return text;
}

}  // namespace

bool checkDocument(CommandRun& run, ReadOutcome& outcome) {
  std::string const kind = outcome.kind ? outcome.kind->name() : "unknown kind";
  bool const passed = outcome.ok() && !(run.options().has("--strict") && outcome.warnings > 0);
  // Standard output carries the SARIF log alone.
  if (run.sarif()) return passed;
  if (!passed)
    run.out() << outcome.name << ": FAILED (" << kind << counts(outcome) << ")\n";
  else if (!run.quiet())
    run.out() << outcome.name << ": OK (" << kind << ", " << outcome.document->brief() << counts(outcome) << ")\n";
  return passed;
}

bool summarizeDocument(CommandRun& run, ReadOutcome& outcome) {
  if (outcome.document) outcome.document->summarize(run.out());
  return outcome.ok();
}

bool convertDocument(CommandRun& run, ReadOutcome& outcome) {
  if (!outcome.ok()) return false;
  LoadedDocument const& document = *outcome.document;
  ToolOptions const& options = run.options();
  return writeDocumentTo(run, outcome, [&document, &options](std::ostream& out, HDGUIStatus& status) {
    return document.write(out, options, status);
  });
}

bool writeDocumentTo(CommandRun& run, ReadOutcome const& outcome,
                     std::function<bool(std::ostream&, HDGUIStatus&)> const& write) {
  std::string const target = run.options().get("-o");
  std::string const shown = target == "-" ? "standard output" : "'" + target + "'";
  try {
    std::optional<std::uintmax_t> const written = run.writeOutput(target, write);
    if (written && *written > 0) return true;
    if (written)
      run.err() << "ERROR: there is nothing to write: the writer wrote nothing for '" << outcome.name << "'; " << shown
                << " is left as it was.\n";
    else
      run.err() << "ERROR: conversion of '" << outcome.name << "' failed; " << shown << " is unchanged.\n";
  } catch (std::exception const&) {
    reportError(std::current_exception(), run.err());
    run.err() << "ERROR: conversion of '" << outcome.name << "' failed; " << shown << " is unchanged.\n";
  }
  return false;
}

}  // namespace tarvo_docs
