#include <pybind11/stl.h>

#include <map>

#include "Bindings.h"
#include "PyDocument.h"

namespace py = pybind11;

namespace tarvo_python {

namespace {

using tarvo_docs::DocumentSource;
using tarvo_docs::ToolOptions;

// `--traffic`, `--arch`, `--device`, `--prefix` and their values, as tarvo-docs takes them.
ToolOptions toolOptions(std::map<std::string, std::string> const& given) {
  ToolOptions options;
  for (auto const& option : given)
    options.add(option.first, option.second);
  return options;
}

}  // namespace

void bindDocuments(py::module_& module) {
  py::class_<PyDocument>(module, "_Document")
      .def_property_readonly("kind", &PyDocument::kind)
      .def_property_readonly("name", &PyDocument::name)
      .def_property_readonly("messages", &PyDocument::messages)
      .def("model", [](py::object self) { return self.cast<PyDocument&>().model(self); })
      .def("traffic", [](py::object self) { return self.cast<PyDocument&>().traffic(self); })
      .def("arch", [](py::object self) { return self.cast<PyDocument&>().arch(self); })
      .def("dumps", &PyDocument::dumps)
      .def("write", &PyDocument::write, py::arg("path"));

  module.def(
      "read_file",
      [](std::string const& path, std::string const& kind, std::map<std::string, std::string> const& options) {
        return PyDocument::read(DocumentSource::file(path), kind, toolOptions(options));
      },
      py::arg("path"), py::arg("kind"), py::arg("options"));
  module.def(
      "read_text",
      [](std::string const& text, std::string const& name, std::string const& kind,
         std::map<std::string, std::string> const& options) {
        return PyDocument::read(DocumentSource::text(name, text), kind, toolOptions(options));
      },
      py::arg("text"), py::arg("name"), py::arg("kind"), py::arg("options"));
  module.def("new_document", &PyDocument::empty, py::arg("kind"));

  using tarvo_diagnostics::Diagnostic;
  py::class_<Diagnostic>(module, "Diagnostic", "One finding about a document, at its place when one is known")
      .def_readonly("file", &Diagnostic::file)
      .def_property_readonly(
          "line", [](Diagnostic const& d) { return d.line ? std::optional<std::size_t>(d.line) : std::nullopt; })
      .def_property_readonly(
          "column", [](Diagnostic const& d) { return d.line ? std::optional<std::size_t>(d.column) : std::nullopt; })
      .def_property_readonly("severity",
                             [](Diagnostic const& d) { return tarvo_diagnostics::severityText(d.severity); })
      .def_readonly("id", &Diagnostic::id)
      .def_readonly("text", &Diagnostic::text)
      .def("__str__", &Diagnostic::format)
      .def("__repr__", [](Diagnostic const& d) { return "<tarvo.Diagnostic " + d.format() + ">"; });
  module.def(
      "check_file",
      [](std::string const& path, std::string const& kind, bool strict) {
        return PyDocument::check(DocumentSource::file(path), kind, strict);
      },
      py::arg("path"), py::arg("kind"), py::arg("strict"));
}

}  // namespace tarvo_python
