#include "CommandRun.h"

#include <algorithm>
#include <optional>
#include <stdexcept>

#include "Diagnoser.h"
#include "HDGUIStatus.h"
#include "HEXAll.h"
#include "KindDetection.h"
#include "OutputFile.h"
#include "ProgressBar.h"
#include "SarifWriter.h"
#include "UsageError.h"

namespace tarvo_docs {

CommandRun::CommandRun(Command const& command, std::vector<std::string> files, ToolOptions options, ToolStreams streams,
                       bool progress, bool quiet)
    : m_command(command),
      m_files(std::move(files)),
      m_options(std::move(options)),
      m_streams(streams),
      m_progress(progress),
      m_quiet(quiet),
      m_log(streams.err, quiet, !command.diagnoses) {}

ReadOutcome CommandRun::read(std::string const& argument, DocumentKind const* kind) {
  ReadOutcome outcome;
  outcome.name = argument;
  int const errorsBefore = m_log.errors();
  int const warningsBefore = m_log.warnings();
  int failures = 0;
  std::optional<DocumentSource> source;
  tarvo_diagnostics::LibraryReport report;
  std::optional<tarvo_diagnostics::MessageCapture> capture;
  if (m_command.diagnoses) capture.emplace(report);
  std::string failure;
  bool const kindGiven = kind != nullptr || m_options.has("--kind");
  try {
    HDGUIStatus status;
    ProgressBar const progress(status, m_streams.err, m_progress);
    status.setMessage("reading " + argument);
    source = DocumentSource::argument(argument, m_streams.in);
    outcome.name = source->name();
    outcome.kind = kind != nullptr ? kind : m_options.has("--kind") ? findKind(m_options.get("--kind")) : nullptr;
    if (outcome.kind == nullptr) outcome.kind = &detectKind(*source);
    outcome.document = outcome.kind->read(*source, m_options, status);
    if (m_log.errors() == errorsBefore) {
      std::size_t const nul = source->firstNulByte();
      if (nul != std::string::npos)
        throw std::runtime_error("'" + outcome.name + "' is not JSON: a NUL byte at offset " + std::to_string(nul) +
                                 " follows the document.");
    }
  } catch (UsageError const&) {
    throw;
  } catch (std::exception const& error) {
    ++failures;
    HEXAll const* const libraryReport = dynamic_cast<HEXAll const*>(&error);
    if (m_command.diagnoses && libraryReport != nullptr)
      report.failure = libraryReport->getMessage();
    else if (m_command.diagnoses)
      failure = error.what();
    else
      reportReadFailure(
          ReadFailure{source ? *source : DocumentSource::file(argument), outcome.kind, std::current_exception()},
          m_streams.err);
  }
  outcome.errors = m_log.errors() - errorsBefore + failures;
  outcome.warnings = m_log.warnings() - warningsBefore;
  capture.reset();
  if (m_command.diagnoses) diagnose(outcome, source ? &*source : nullptr, report, failure, kindGiven);
  return outcome;
}

void CommandRun::diagnose(ReadOutcome& outcome, DocumentSource const* source,
                          tarvo_diagnostics::LibraryReport const& report, std::string const& failure, bool kindGiven) {
  using tarvo_diagnostics::Diagnostic;
  using tarvo_diagnostics::Severity;
  tarvo_diagnostics::Diagnoser::Options options;
  options.kind = outcome.kind ? outcome.kind->name() : std::string();
  options.schemaFile = tarvo_diagnostics::Diagnoser::schemaFileOf(options.kind);
  options.strict = m_options.has("--strict");
  std::string const* text = source ? source->text() : nullptr;
  std::vector<Diagnostic> diagnostics =
      text ? tarvo_diagnostics::Diagnoser(outcome.name, *text, options).diagnose(report)
           : tarvo_diagnostics::Diagnoser(outcome.name, options).diagnose(report);
  if (!failure.empty()) diagnostics.push_back({outcome.name, 0, 0, 0, Severity::Error, "", failure});
  // A document read as the kind the user named, that fails and looks like another kind.
  if (kindGiven && outcome.kind != nullptr && !outcome.ok() && source != nullptr) {
    DocumentKind const* looksLike = nullptr;
    try {
      looksLike = &detectKind(*source);
    } catch (std::exception const&) {
    }
    if (looksLike != nullptr && looksLike != outcome.kind)
      diagnostics.push_back({outcome.name, 0, 0, 0, Severity::Note, "",
                             "the document looks like a " + looksLike->name() + " document, not " +
                                 outcome.kind->name() + "; name its kind with --kind " + looksLike->name()});
  }
  // A schema failure is one report of the library and as many errors as it has violations.
  outcome.errors = std::max<int>(
      outcome.errors, static_cast<int>(std::count_if(diagnostics.begin(), diagnostics.end(), [](Diagnostic const& d) {
        return d.severity == Severity::Error;
      })));
  outcome.warnings = static_cast<int>(std::count_if(
      diagnostics.begin(), diagnostics.end(), [](Diagnostic const& d) { return d.severity == Severity::Warning; }));
  if (sarif()) {
    m_sarifResults.insert(m_sarifResults.end(), diagnostics.begin(), diagnostics.end());
    return;
  }
  for (Diagnostic const& diagnostic : diagnostics)
    if (!m_quiet || diagnostic.severity == Severity::Error) m_streams.err << diagnostic.format() << "\n";
}

void CommandRun::finish() {
  if (m_command.diagnoses && sarif())
    tarvo_diagnostics::SarifWriter::write(m_streams.out, m_sarifResults, "tarvo-docs", TARVO_VERSION);
}

std::optional<std::uintmax_t> CommandRun::writeOutput(std::string const& target,
                                                      std::function<bool(std::ostream&, HDGUIStatus&)> const& write) {
  OutputFile output(target, m_streams.out);
  HDGUIStatus status;
  {
    ProgressBar const progress(status, m_streams.err, m_progress);
    status.setMessage("writing " + target);
    if (!write(output.stream(), status)) return std::nullopt;
  }
  return output.commit();
}

}  // namespace tarvo_docs
