#ifndef TARVO_PYTHON_BINDINGS_H
#define TARVO_PYTHON_BINDINGS_H

#include <pybind11/pybind11.h>

namespace tarvo_python {

// Each adds one family of the library's classes to the extension module.
void bindErrors(pybind11::module_& module);
void bindTraffic(pybind11::module_& module);
void bindMetadata(pybind11::module_& module);
void bindConstraints(pybind11::module_& module);
void bindLogicalArch(pybind11::module_& module);
void bindPlacements(pybind11::module_& module);
void bindDocuments(pybind11::module_& module);

}  // namespace tarvo_python

#endif
