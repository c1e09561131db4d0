#ifndef TARVO_PYTHON_CONSTRAINTSTORE_H
#define TARVO_PYTHON_CONSTRAINTSTORE_H

#include <pybind11/pybind11.h>

#include <cstdint>
#include <memory>

#include "ConstrHandler.h"

namespace tarvo_python {

// The constraint store as Python holds it. Clearing the store or unloading a constraint deletes
// constraints that Python may still hold, so every removal starts a new generation and a
// Constraint taken in an earlier one refuses to be used instead of reading freed memory.
class ConstraintStore {
 public:
  ConstraintStore() : m_owned(std::make_unique<kpe::constraints::ConstrHandler>()), m_handler(m_owned.get()) {}
  // A store that a document owns; `owner` keeps the document alive.
  ConstraintStore(kpe::constraints::ConstrHandler& handler, pybind11::object owner)
      : m_handler(&handler), m_owner(std::move(owner)) {}

  kpe::constraints::ConstrHandler& handler() const { return *m_handler; }
  std::uint64_t generation() const { return m_generation; }
  void startGeneration() { ++m_generation; }

 private:
  std::unique_ptr<kpe::constraints::ConstrHandler> m_owned;
  kpe::constraints::ConstrHandler* m_handler;
  pybind11::object m_owner;
  std::uint64_t m_generation = 0;
};

// One constraint of a store, valid while no constraint has been removed from the store since.
class ConstraintRef {
 public:
  ConstraintRef(std::shared_ptr<ConstraintStore> store, kpe::constraints::BaseConstraint* constraint)
      : m_store(std::move(store)), m_constraint(constraint), m_generation(m_store->generation()) {}

  kpe::constraints::BaseConstraint& get() const;

 private:
  std::shared_ptr<ConstraintStore> m_store;
  kpe::constraints::BaseConstraint* m_constraint;
  std::uint64_t m_generation;
};

}  // namespace tarvo_python

#endif
