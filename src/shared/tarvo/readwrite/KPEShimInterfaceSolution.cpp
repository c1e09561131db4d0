#include "KPEShimInterfaceSolution.h"

KPEShimInterfaceSolution::KPEShimInterfaceSolution(HDARPart const& part) : part(part) {}

KPEShimInterfaceSolution::~KPEShimInterfaceSolution() = default;

bool KPEShimInterfaceSolution::addPlacement(TrafficLInst const* inst, GRMBel const& site) {
  if (!logicalToPhysical.emplace(inst, std::make_pair(site, false)).second) return false;
  physicalToLogical.emplace(site, inst);
  return true;
}

GRMBel KPEShimInterfaceSolution::getPhysicalForLogical(TrafficLInst const* inst) const {
  auto const found = logicalToPhysical.find(inst);
  return found != logicalToPhysical.end() ? found->second.first : GRMBel();
}

KPEShimInterfaceSolution::TrafficLInst const* KPEShimInterfaceSolution::getLogicalForPhysical(GRMBel site) const {
  auto const found = physicalToLogical.find(site);
  return found != physicalToLogical.end() ? found->second : nullptr;
}

void KPEShimInterfaceSolution::getAllPlacedInstances(std::vector<TrafficLInst const*>& out) const {
  for (auto const& entry : logicalToPhysical)
    out.push_back(entry.first);
}

void KPEShimInterfaceSolution::getAllLockedInstances(std::vector<TrafficLInst const*>& out) const {
  for (auto const& entry : logicalToPhysical)
    if (entry.second.second) out.push_back(entry.first);
}

bool KPEShimInterfaceSolution::lockLogicalInst(TrafficLInst const* inst) {
  auto const found = logicalToPhysical.find(inst);
  if (found == logicalToPhysical.end()) return false;
  found->second.second = true;
  return true;
}

void KPEShimInterfaceSolution::lockPlacement() {
  for (auto& entry : logicalToPhysical)
    entry.second.second = true;
}

void KPEShimInterfaceSolution::removeLogicalInstance(TrafficLInst const* inst) {
  auto const found = logicalToPhysical.find(inst);
  if (found == logicalToPhysical.end()) return;
  physicalToLogical.erase(found->second.first);
  logicalToPhysical.erase(found);
}

void KPEShimInterfaceSolution::removeLogicalInstances(std::vector<TrafficLInst const*> const& insts) {
  for (TrafficLInst const* inst : insts)
    removeLogicalInstance(inst);
}

bool KPEShimInterfaceSolution::replaceLogicalInstances(TrafficLInst const* from, TrafficLInst const* to) {
  auto const found = logicalToPhysical.find(from);
  if (found == logicalToPhysical.end()) return true;
  GRMBel const site = found->second.first;
  bool const wasLocked = found->second.second;
  physicalToLogical.erase(site);
  logicalToPhysical.erase(found);
  addPlacement(to, site);
  if (!wasLocked) lockLogicalInst(to);
  return true;
}

bool KPEShimInterfaceSolution::copyFrom(KPEShimInterfaceSolution const& other) {
  clear();
  std::vector<TrafficLInst const*> locked;
  for (auto const& entry : other.logicalToPhysical) {
    if (entry.first != nullptr && !entry.second.first.isBad()) addPlacement(entry.first, entry.second.first);
    if (entry.second.second) locked.push_back(entry.first);
  }
  for (TrafficLInst const* inst : locked)
    lockLogicalInst(inst);
  return true;
}

void KPEShimInterfaceSolution::clear() {
  logicalToPhysical.clear();
  physicalToLogical.clear();
}
