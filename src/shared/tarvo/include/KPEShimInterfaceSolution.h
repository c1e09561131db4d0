#ifndef TARVO_KPESHIMINTERFACESOLUTION_H
#define TARVO_KPESHIMINTERFACESOLUTION_H

#include <map>
#include <utility>
#include <vector>

#include "GRMBel.h"

class HDARPart;
class TQCompilerSolutionReaderJSON;
namespace HrdIPToolCntr {
class TrafficLInst;
}

// Where each logical instance of the KPE boundary was placed, both ways, and whether the
// placement is locked. Instances are borrowed from their traffic specification. The solution
// is made by reading a compiler solution document.
//
// Insertion is first-wins on each map separately, so two instances may name one site and
// then only the first of them is found from the site.
class KPEShimInterfaceSolution {
 public:
  typedef HrdIPToolCntr::TrafficLInst TrafficLInst;

  explicit KPEShimInterfaceSolution(HDARPart const& part);
  ~KPEShimInterfaceSolution();

  HDARPart const& getPart() const { return part; }

  // The site of `inst`; bad when it has none.
  GRMBel getPhysicalForLogical(TrafficLInst const* inst) const;
  // The instance placed on `site`, or null.
  TrafficLInst const* getLogicalForPhysical(GRMBel site) const;
  // These append, in the order of the pointer values.
  void getAllPlacedInstances(std::vector<TrafficLInst const*>& out) const;
  void getAllLockedInstances(std::vector<TrafficLInst const*>& out) const;

  // False when `inst` has no placement.
  bool lockLogicalInst(TrafficLInst const* inst);
  void lockPlacement();
  void lockAll() { lockPlacement(); }

  void removeLogicalInstance(TrafficLInst const* inst);
  void removeLogicalInstances(std::vector<TrafficLInst const*> const& insts);
  // Moves the placement of `from` to `to` and inverts its lock: a locked placement arrives
  // unlocked and an unlocked one locked. Callers rely on that inversion.
  bool replaceLogicalInstances(TrafficLInst const* from, TrafficLInst const* to);
  // Replaces the contents by those of `other`, without entries of a null instance or a bad
  // site, keeping the lock flags.
  bool copyFrom(KPEShimInterfaceSolution const& other);
  void clear();
  // Whether no site is taken; looks at the site side only.
  bool empty() const { return physicalToLogical.empty(); }

 protected:
  // False, with nothing changed, when `inst` is already placed. A site that is already
  // taken keeps its first instance; the placement of `inst` is still made.
  bool addPlacement(TrafficLInst const* inst, GRMBel const& site);

 private:
  friend class TQCompilerSolutionReaderJSON;

  HDARPart const& part;
  std::map<TrafficLInst const*, std::pair<GRMBel, bool>> logicalToPhysical;
  std::map<GRMBel, TrafficLInst const*> physicalToLogical;
};

#endif
