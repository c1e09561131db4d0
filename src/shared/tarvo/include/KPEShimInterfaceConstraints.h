#ifndef TARVO_KPESHIMINTERFACECONSTRAINTS_H
#define TARVO_KPESHIMINTERFACECONSTRAINTS_H

#include <map>
#include <utility>
#include <vector>

#include "GRMBel.h"

class HDARPart;
namespace HrdIPToolCntr {
class TrafficLInst;
class TrafficSpec;
}  // namespace HrdIPToolCntr

// For each constrained logical instance of the KPE boundary, the sites it may be placed on.
// The instances are borrowed from their traffic specification; the part and the
// specifications are kept for the caller and not read here.
class KPEShimInterfaceConstraints {
 public:
  typedef HrdIPToolCntr::TrafficLInst TrafficLInst;

  KPEShimInterfaceConstraints(HDARPart const& part, std::vector<HrdIPToolCntr::TrafficSpec const*> const& specs);

  HDARPart const& getPart() const { return part; }
  std::vector<HrdIPToolCntr::TrafficSpec const*> const& getTrafficSpecs() const { return trafficSpecs; }

  // False, with nothing changed, when `inst` is already constrained.
  bool addPlacementConst(TrafficLInst const* inst, std::vector<GRMBel> const& sites, bool isSoft);
  // Leaves both outputs as they are when `inst` isn't constrained.
  void getPlacementConst(TrafficLInst const* inst, std::vector<GRMBel>& sites, bool& isSoft) const;
  // Appends, in the order of the pointer values.
  void getAllConstrainedInstances(std::vector<TrafficLInst const*>& out) const;
  // Whether any instance may be placed on `site` (the physical side, despite the name).
  bool hasLogical(GRMBel const& site) const;

  // Moves the entry of `from` to `to`. When `to` already has one, it stays and the entry of
  // `from` is dropped: the move never merges and never fails.
  bool movePlacementConst(TrafficLInst const* from, TrafficLInst const* to);
  bool replaceLogicalInstances(TrafficLInst const* from, TrafficLInst const* to);
  void removePlacementConst(TrafficLInst const* inst);
  void removePlacementConst(std::vector<TrafficLInst const*> const& insts);
  // Merges `other` in; stops with false at the first instance this object already has,
  // keeping what was copied before it.
  bool copyFrom(KPEShimInterfaceConstraints const& other);
  void clear() { placements.clear(); }
  bool empty() const { return placements.empty(); }

 private:
  HDARPart const& part;
  std::vector<HrdIPToolCntr::TrafficSpec const*> trafficSpecs;
  std::map<TrafficLInst const*, std::pair<bool, std::vector<GRMBel>>> placements;
};

#endif
