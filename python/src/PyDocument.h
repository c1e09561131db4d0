#ifndef TARVO_PYTHON_PYDOCUMENT_H
#define TARVO_PYTHON_PYDOCUMENT_H

#include <pybind11/pybind11.h>

#include <string>
#include <vector>

#include "MessageCapture.h"

namespace tarvo_python {

// A document read into the library's model, with the messages sent while it was read. The
// model is handed to Python tied to the document, so that it stays valid while either is held.
class PyDocument {
 public:
  PyDocument(std::string kind, std::string file) : m_kind(std::move(kind)), m_file(std::move(file)) {}
  virtual ~PyDocument() = default;
  PyDocument(PyDocument const&) = delete;
  PyDocument& operator=(PyDocument const&) = delete;

  std::string const& kind() const { return m_kind; }
  std::string const& file() const { return m_file; }
  std::vector<CapturedMessage>& messages() { return m_messages; }

  // `self` is this document's Python object, which the model keeps alive.
  virtual pybind11::object model(pybind11::object self) = 0;

 private:
  std::string m_kind;
  std::string m_file;
  std::vector<CapturedMessage> m_messages;
};

}  // namespace tarvo_python

#endif
