#include <pybind11/stl.h>

#include <istream>
#include <memory>
#include <sstream>

#include "BaseNameResolver.h"
#include "Bindings.h"
#include "ConstraintStore.h"
#include "DocumentFailure.h"
#include "HDGUIStatus.h"
#include "KPEPrjMetaDataModel.h"
#include "NOCJsonTrafficSpecReader.h"
#include "OwnedRefs.h"
#include "PyDocument.h"
#include "TQLogicalArchModel.h"
#include "TQLogicalArchReader.h"
#include "TrafficSpec.h"

namespace py = pybind11;

namespace tarvo_python {

namespace {

// A document whose model is one object of the library.
template <typename Model>
class ModelDocument : public PyDocument {
 public:
  using PyDocument::PyDocument;
  Model model_;

  py::object model(py::object self) override { return owned(&model_, self); }
};

class ConstraintDocument : public ModelDocument<kpe::constraints::ConstrHandler> {
 public:
  using ModelDocument::ModelDocument;
  py::object model(py::object self) override {
    return py::cast(std::make_shared<ConstraintStore>(model_, std::move(self)));
  }
};

// Reads `in` (named `name` in messages), or the file `name` where `in` is null, as a document of
// `kind`.
std::unique_ptr<PyDocument> readKind(std::string const& kind, std::istream* in, std::string const& name) {
  HDGUIStatus status;
  if (kind == "traffic") {
    auto document = std::make_unique<ModelDocument<HrdIPToolCntr::TrafficSpec>>(kind, name);
    if (in)
      NOC::NOCJsonTrafficSpecReader::readFromJsonFile(*in, name, document->model_, status);
    else
      NOC::NOCJsonTrafficSpecReader::readFromJsonFile(name, document->model_, status);
    return document;
  }
  if (kind == "metadata") {
    auto document = std::make_unique<ModelDocument<Tarvo::Frameworks::KPEPrjMetaDataModel>>(kind, name);
    if (in)
      document->model_.readFromJSONStream(name, *in);
    else
      document->model_.readFromJSONFile(name);
    return document;
  }
  if (kind == "constraints") {
    auto document = std::make_unique<ConstraintDocument>(kind, name);
    if (in)
      document->model_.read(*in, name, kpe::constraints::BaseNameResolver());
    else
      document->model_.read(name);
    return document;
  }
  if (kind == "logical-arch") {
    auto document = std::make_unique<ModelDocument<Tarvo::Frameworks::TQLogicalArchModel>>(kind, name);
    if (in)
      TQLogicalArchReader::readFromJsonFile(*in, name, document->model_);
    else
      TQLogicalArchReader::readFromJsonFile(name, document->model_);
    return document;
  }
  throw py::value_error("unknown document kind '" + kind + "'");
}

std::unique_ptr<PyDocument> readGuarded(std::string const& kind, std::istream* in, std::string const& name) {
  MessageCapture capture;
  std::unique_ptr<PyDocument> document;
  DocumentFailure::guard(name, [&] { document = readKind(kind, in, name); });
  document->messages() = capture.messages();
  return document;
}

}  // namespace

void bindDocuments(py::module_& module) {
  py::class_<PyDocument>(module, "_Document")
      .def_property_readonly("kind", &PyDocument::kind)
      .def_property_readonly("file", &PyDocument::file)
      .def_property_readonly("messages", [](PyDocument& document) { return document.messages(); })
      .def("model", [](py::object self) { return self.cast<PyDocument&>().model(self); });

  module.def(
      "read_text",
      [](std::string const& text, std::string const& kind, std::string const& name) {
        std::istringstream in(text);
        return readGuarded(kind, &in, name);
      },
      py::arg("text"), py::arg("kind"), py::arg("name"));
  module.def(
      "read_file", [](std::string const& path, std::string const& kind) { return readGuarded(kind, nullptr, path); },
      py::arg("path"), py::arg("kind"));
}

}  // namespace tarvo_python
