#ifndef TARVO_PYTHON_OWNEDREFS_H
#define TARVO_PYTHON_OWNEDREFS_H

#include <pybind11/pybind11.h>

#include <vector>

namespace tarvo_python {

// A model object handed to Python keeps its owner's Python object alive, so that it cannot
// outlive the container that deletes it. Null becomes None.
template <typename T>
pybind11::object owned(T* object, pybind11::handle owner) {
  if (object == nullptr) return pybind11::none();
  return pybind11::cast(object, pybind11::return_value_policy::reference_internal, owner);
}

// The same for each element of a list: pybind11 would tie only the list to the owner.
template <typename Items>
pybind11::list ownedList(Items const& items, pybind11::handle owner) {
  pybind11::list list;
  for (auto* item : items)
    list.append(owned(item, owner));
  return list;
}

}  // namespace tarvo_python

#endif
