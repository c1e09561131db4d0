#ifndef TARVO_PYTHON_PROPERTYSETTER_H
#define TARVO_PYTHON_PROPERTYSETTER_H

#include <pybind11/pybind11.h>

#include <utility>

namespace tarvo_python {

// The setter of property `name`, named after it, so that a value of the wrong type raises a
// TypeError that says which property refused it.
template <typename Set>
pybind11::cpp_function setter(char const* name, Set&& set) {
  return pybind11::cpp_function(std::forward<Set>(set), pybind11::name(name), pybind11::arg("self"),
                                pybind11::arg(name));
}

// A plain member as a property whose setter is named after it.
template <typename Class, typename Field, typename Bound>
void plainMember(Bound& bound, char const* name, Field Class::*member) {
  bound.def_property(
      name, [member](Class const& object) { return object.*member; },
      setter(name, [member](Class& object, Field const& value) { object.*member = value; }));
}

}  // namespace tarvo_python

#endif
