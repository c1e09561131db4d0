#ifndef TARVO_CREATIONORDER_H
#define TARVO_CREATIONORDER_H

namespace HrdIPToolCntr {

// Orders objects of one TrafficSpec (instances, nets) by when they were made, so that stores
// keyed by them are walked the same way on every run.
struct CreationOrder {
  template <typename T>
  bool operator()(T const* a, T const* b) const {
    return a->getId() < b->getId();
  }
};

}  // namespace HrdIPToolCntr

#endif
