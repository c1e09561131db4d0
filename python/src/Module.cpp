#include "Bindings.h"

PYBIND11_MODULE(_tarvo, module) {
  module.doc() = "The document library's models, readers and writers";
  tarvo_python::bindErrors(module);
  tarvo_python::bindTraffic(module);
  tarvo_python::bindMetadata(module);
  tarvo_python::bindConstraints(module);
  tarvo_python::bindLogicalArch(module);
  tarvo_python::bindPlacements(module);
  tarvo_python::bindDocuments(module);
}
