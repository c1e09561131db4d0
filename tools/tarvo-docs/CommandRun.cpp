#include "CommandRun.h"

#include <optional>
#include <stdexcept>

#include "HDGUIStatus.h"
#include "KindDetection.h"
#include "OutputFile.h"
#include "ProgressBar.h"
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
      m_log(streams.err, quiet) {}

ReadOutcome CommandRun::read(std::string const& argument, DocumentKind const* kind) {
  ReadOutcome outcome;
  outcome.name = argument;
  int const errorsBefore = m_log.errors();
  int const warningsBefore = m_log.warnings();
  int failures = 0;
  std::optional<DocumentSource> source;
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
  } catch (std::exception const&) {
    ++failures;
    reportReadFailure(
        ReadFailure{source ? *source : DocumentSource::file(argument), outcome.kind, std::current_exception()},
        m_streams.err);
  }
  outcome.errors = m_log.errors() - errorsBefore + failures;
  outcome.warnings = m_log.warnings() - warningsBefore;
  return outcome;
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
