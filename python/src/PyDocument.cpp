#include "PyDocument.h"

#include <iostream>
#include <sstream>

#include "ComMsgMgr.h"
#include "ConstraintStore.h"
#include "Diagnoser.h"
#include "DocumentFailure.h"
#include "HDGUIStatus.h"
#include "HEXAll.h"
#include "KindDetection.h"
#include "OutputFile.h"
#include "OwnedRefs.h"
#include "kinds/LoadedDocuments.h"

namespace py = pybind11;

namespace tarvo_python {

using namespace tarvo_docs;

void PyDocument::attempt(Attempt& attempt, DocumentSource const& source, std::string const& kind,
                         ToolOptions const& options) {
  attempt.kind = kind.empty() ? nullptr : findKind(kind);
  if (!kind.empty() && attempt.kind == nullptr) throw py::value_error("unknown document kind '" + kind + "'");
  tarvo_diagnostics::MessageCapture const capture(attempt.report, true);
  try {
    if (attempt.kind == nullptr) attempt.kind = &detectKind(source);
    HDGUIStatus status;
    attempt.loaded = attempt.kind->read(source, options, status);
    // The parser stops at a NUL byte, so a document followed by one would read as if the rest
    // were not there; the program refuses it, and so does the package.
    std::size_t const nul = source.firstNulByte();
    if (nul != std::string::npos && !attempt.failed())
      attempt.failure =
          "'" + source.name() + "' is not JSON: a NUL byte at offset " + std::to_string(nul) + " follows the document.";
  } catch (HEXAll const& error) {
    attempt.report.failure = error.getMessage();
  } catch (std::bad_alloc const&) {
    throw;
  } catch (std::exception const& error) {
    attempt.failure = error.what();
  }
}

bool PyDocument::Attempt::failed() const {
  if (report.failure || !failure.empty()) return true;
  // The program counts a read that sent an error as failed, and so does the package.
  for (ComMsgMgrInstance const& message : report.messages)
    if (message.getMask() == ComMsgMgr::MSG_ERROR) return true;
  return false;
}

std::vector<tarvo_diagnostics::Diagnostic> PyDocument::Attempt::diagnose(DocumentSource const& source,
                                                                         bool strict) const {
  tarvo_diagnostics::Diagnoser::Options options;
  options.kind = kind ? kind->name() : std::string();
  options.schemaFile = tarvo_diagnostics::Diagnoser::schemaFileOf(options.kind);
  options.strict = strict;
  std::string const* text = source.text();
  std::vector<tarvo_diagnostics::Diagnostic> diagnostics =
      text ? tarvo_diagnostics::Diagnoser(source.name(), *text, options).diagnose(report)
           : tarvo_diagnostics::Diagnoser(source.name(), options).diagnose(report);
  if (!failure.empty())
    diagnostics.push_back({source.name(), 0, 0, 0, tarvo_diagnostics::Severity::Error, "", failure});
  return diagnostics;
}

std::unique_ptr<PyDocument> PyDocument::read(DocumentSource const& source, std::string const& kind,
                                             ToolOptions const& options) {
  Attempt attempt;
  PyDocument::attempt(attempt, source, kind, options);
  if (attempt.failed())
    throw DocumentFailure::of(attempt.report, attempt.failure, attempt.diagnose(source, false), source.name());
  std::unique_ptr<PyDocument> document(
      new PyDocument(attempt.kind->name(), source.name(), options, std::move(attempt.loaded)));
  for (ComMsgMgrInstance const& message : attempt.report.messages)
    document->m_messages.push_back(CapturedMessage::of(message));
  return document;
}

std::vector<tarvo_diagnostics::Diagnostic> PyDocument::check(DocumentSource const& source, std::string const& kind,
                                                             bool strict) {
  Attempt attempt;
  PyDocument::attempt(attempt, source, kind, ToolOptions());
  return attempt.diagnose(source, strict);
}

std::unique_ptr<PyDocument> PyDocument::empty(std::string const& kind) {
  std::unique_ptr<LoadedDocument> loaded;
  if (kind == "metadata") loaded = std::make_unique<LoadedMetadata>();
  if (kind == "constraints") loaded = std::make_unique<LoadedConstraints>("<new>");
  if (kind == "logical-arch") loaded = std::make_unique<LoadedLogicalArch>();
  if (kind == "traffic") loaded = std::make_unique<LoadedTraffic>();
  if (!loaded)
    throw py::value_error("a new document is one of metadata, constraints, logical-arch or traffic, not '" + kind +
                          "'");
  return std::unique_ptr<PyDocument>(new PyDocument(kind, "<new>", ToolOptions(), std::move(loaded)));
}

py::object PyDocument::model(py::object self) {
  LoadedDocument* loaded = m_loaded.get();
  if (auto* metadata = dynamic_cast<LoadedMetadata*>(loaded)) return owned(&metadata->model, self);
  if (auto* constraints = dynamic_cast<LoadedConstraints*>(loaded))
    return py::cast(std::make_shared<ConstraintStore>(constraints->store, std::move(self)));
  if (auto* arch = dynamic_cast<LoadedLogicalArch*>(loaded)) return owned(&arch->model, self);
  if (auto* traffic = dynamic_cast<LoadedTraffic*>(loaded)) return owned(&traffic->spec, self);
  if (auto* solution = dynamic_cast<LoadedNocSolution*>(loaded)) return owned(&solution->result, self);
  if (auto* placement = dynamic_cast<LoadedNocConstraints*>(loaded)) return owned(&placement->constraints, self);
  if (auto* compiler = dynamic_cast<LoadedCompilerSolution*>(loaded)) return owned(&compiler->solution, self);
  return py::none();
}

py::object PyDocument::traffic(py::object self) {
  LoadedDocument* loaded = m_loaded.get();
  if (auto* solution = dynamic_cast<LoadedNocSolution*>(loaded)) return owned(&solution->inputs.spec, self);
  if (auto* placement = dynamic_cast<LoadedNocConstraints*>(loaded)) return owned(&placement->inputs.spec, self);
  if (auto* compiler = dynamic_cast<LoadedCompilerSolution*>(loaded)) return owned(&compiler->design.traffic, self);
  return py::none();
}

py::object PyDocument::arch(py::object self) {
  if (auto* compiler = dynamic_cast<LoadedCompilerSolution*>(m_loaded.get()))
    return owned(&compiler->design.model, self);
  return py::none();
}

bool PyDocument::writeTo(std::ostream& out, ToolOptions const& options) const {
  bool written = false;
  DocumentFailure::guard(m_name, [&] {
    HDGUIStatus status;
    written = m_loaded->write(out, options, status);
  });
  return written;
}

std::string PyDocument::dumps() const {
  tarvo_diagnostics::LibraryReport report;
  tarvo_diagnostics::MessageCapture const capture(report, true);
  std::ostringstream out;
  if (!writeTo(out, m_options)) throw DocumentFailure::refused(report.messages, m_name);
  return out.str();
}

void PyDocument::write(std::string const& path) const {
  tarvo_diagnostics::LibraryReport report;
  tarvo_diagnostics::MessageCapture const capture(report, true);
  ToolOptions options = m_options;
  options.add("-o", path);
  std::uintmax_t written = 0;
  DocumentFailure::guard(path, [&] {
    OutputFile output(path, std::cout);
    if (!writeTo(output.stream(), options)) throw DocumentFailure::refused(report.messages, path);
    written = output.commit();
  });
  if (written == 0)
    throw DocumentFailure(
        "there is nothing to write: the writer wrote nothing for '" + m_name + "'; '" + path + "' is left as it was",
        path);
}

}  // namespace tarvo_python
