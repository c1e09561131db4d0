#ifndef TARVO_CONSTRAINTS_H
#define TARVO_CONSTRAINTS_H

#include <map>
#include <vector>

#include "Component.h"
#include "CreationOrder.h"
#include "DestIdRepr.h"
#include "TrafficLInst.h"

namespace HrdIPToolCntr {

// What the user asks of the NoC compiler for logical instances of one TrafficSpec: to place
// an instance on one of some physical components, as a hard or a soft wish, or to give it a
// destination id. Borrows the traffic specification's and the device's objects.
class Constraints {
 public:
  // A second placement of an instance replaces the first; the result says whether the
  // instance had none before.
  bool addPlacementConst(TrafficLInst const* instance, std::vector<DevHrdIP::Component const*> const& components,
                         bool soft);
  // Replaces the content of `instances` with the placed instances, in creation order.
  void getAllConstrainedInstances(std::vector<TrafficLInst const*>& instances) const;
  // Replaces `components` with the instance's placement and sets `soft`; for an instance
  // without a placement, empties `components`, leaves `soft` alone and returns false.
  bool getPlacementConst(TrafficLInst const* instance, std::vector<DevHrdIP::Component const*>& components,
                         bool& soft) const;

  // A second destination id of an instance replaces the first.
  void addDestIdConst(TrafficLInst const* instance, DestIdRepr destId) {
    if (instance != nullptr) m_destIds[instance] = destId;
  }
  bool hasInstsWithDestIdConstraint() const { return !m_destIds.empty(); }
  // False, with `destId` untouched, for an instance without one.
  bool getDestIdConst(TrafficLInst const* instance, DestIdRepr& destId) const;

 private:
  struct Placement {
    std::vector<DevHrdIP::Component const*> components;
    bool soft = false;
  };

  std::map<TrafficLInst const*, Placement, CreationOrder> m_placements;
  std::map<TrafficLInst const*, DestIdRepr, CreationOrder> m_destIds;
};

}  // namespace HrdIPToolCntr

#endif
