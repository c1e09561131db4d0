#include <pybind11/stl.h>

#include "Bindings.h"
#include "CapturedMessage.h"
#include "DocumentFailure.h"

namespace py = pybind11;

namespace tarvo_python {

void bindErrors(py::module_& module) {
  py::class_<CapturedMessage>(module, "Message", "A message the library sent while reading or writing")
      .def_readonly("severity", &CapturedMessage::severity)
      .def_readonly("id", &CapturedMessage::id)
      .def_readonly("text", &CapturedMessage::text)
      .def_property_readonly("file",
                             [](CapturedMessage const& m) {
                               return m.place.file.empty() ? py::object(py::none()) : py::str(m.place.file);
                             })
      .def_property_readonly("line", [](CapturedMessage const& m) { return m.place.line; })
      .def_property_readonly("column", [](CapturedMessage const& m) { return m.place.column; })
      .def("__str__", [](CapturedMessage const& message) { return message.printed; })
      .def("__repr__", [](CapturedMessage const& message) { return "<tarvo.Message " + message.printed + ">"; });

  // DocumentError is a plain Python class so that scripts can raise and subclass it; it is
  // looked up when a failure crosses, when the package is certain to be loaded.
  py::register_exception_translator([](std::exception_ptr pending) {
    try {
      if (pending) std::rethrow_exception(pending);
    } catch (DocumentFailure const& failure) {
      py::object const type = py::module_::import("tarvo._errors").attr("DocumentError");
      auto optional = [](std::optional<int> value) { return value ? py::object(py::int_(*value)) : py::none(); };
      auto text = [](std::string const& value) { return value.empty() ? py::object(py::none()) : py::str(value); };
      py::object const error =
          type(failure.what(), py::arg("file") = text(failure.file), py::arg("line") = optional(failure.line),
               py::arg("column") = optional(failure.column), py::arg("id") = text(failure.id),
               py::arg("pointer") = text(failure.pointer), py::arg("text") = text(failure.text));
      PyErr_SetObject(type.ptr(), error.ptr());
    }
  });
}

}  // namespace tarvo_python
