#ifndef TARVO_PYTHON_PYDOCUMENT_H
#define TARVO_PYTHON_PYDOCUMENT_H

#include <pybind11/pybind11.h>

#include <memory>
#include <string>
#include <vector>

#include "CapturedMessage.h"
#include "Diagnostic.h"
#include "DocumentKind.h"
#include "DocumentSource.h"
#include "LibraryReport.h"
#include "ToolOptions.h"

namespace tarvo_python {

// A document read into the library's model the way tarvo-docs reads it (the same kind
// detection, options and readers), with the messages sent while it was read. It writes with
// the call that `tarvo-docs convert` makes, so that its bytes are the program's.
class PyDocument {
 public:
  // Reads `source` as `kind`, or as the kind detected from its content when `kind` is empty.
  // Failures, and reads during which the library sent an error, leave as DocumentFailure.
  static std::unique_ptr<PyDocument> read(tarvo_docs::DocumentSource const& source, std::string const& kind,
                                          tarvo_docs::ToolOptions const& options);
  // What `tarvo-docs check` finds in `source`: the library's reports placed at their line
  // and column, every schema violation, and under `strict` the lint findings.
  static std::vector<tarvo_diagnostics::Diagnostic> check(tarvo_docs::DocumentSource const& source,
                                                          std::string const& kind, bool strict);
  // A document of `kind` with an empty model, for a script that builds one.
  static std::unique_ptr<PyDocument> empty(std::string const& kind);

  PyDocument(PyDocument const&) = delete;
  PyDocument& operator=(PyDocument const&) = delete;

  std::string const& kind() const { return m_kind; }
  std::string const& name() const { return m_name; }
  std::vector<CapturedMessage> const& messages() const { return m_messages; }

  // The model, tied to the document's Python object `self`; None for a NoC document read
  // without its traffic specification.
  pybind11::object model(pybind11::object self);
  // The traffic specification and logical architecture that a NoC or compiler solution was
  // read against, or None.
  pybind11::object traffic(pybind11::object self);
  pybind11::object arch(pybind11::object self);

  // The text that `tarvo-docs convert` writes.
  std::string dumps() const;
  // Writes to `path` as `tarvo-docs convert -o path` does: through a temporary file renamed
  // over it, gzip-compressed for ".gz", nothing at all when the writer refuses.
  void write(std::string const& path) const;

 private:
  PyDocument(std::string kind, std::string name, tarvo_docs::ToolOptions options,
             std::unique_ptr<tarvo_docs::LoadedDocument> loaded)
      : m_kind(std::move(kind)), m_name(std::move(name)), m_options(std::move(options)), m_loaded(std::move(loaded)) {}

  // One read as the program makes it: what the library reported, and the model when the read
  // got that far. Only an unknown kind leaves by exception.
  struct Attempt {
    tarvo_docs::DocumentKind const* kind = nullptr;
    std::unique_ptr<tarvo_docs::LoadedDocument> loaded;
    tarvo_diagnostics::LibraryReport report;
    std::string failure;  // a failure without a message of the library
    bool failed() const;
    std::vector<tarvo_diagnostics::Diagnostic> diagnose(tarvo_docs::DocumentSource const& source, bool strict) const;
  };
  static void attempt(Attempt& attempt, tarvo_docs::DocumentSource const& source, std::string const& kind,
                      tarvo_docs::ToolOptions const& options);

  // Runs the document's writer into `out` with `options`; false when it refused.
  bool writeTo(std::ostream& out, tarvo_docs::ToolOptions const& options) const;

  std::string m_kind;
  std::string m_name;
  tarvo_docs::ToolOptions m_options;
  std::unique_ptr<tarvo_docs::LoadedDocument> m_loaded;
  std::vector<CapturedMessage> m_messages;
};

}  // namespace tarvo_python

#endif
