#include "KPEShimInterfaceConstraints.h"

#include <algorithm>

KPEShimInterfaceConstraints::KPEShimInterfaceConstraints(HDARPart const& part,
                                                         std::vector<HrdIPToolCntr::TrafficSpec const*> const& specs)
    : part(part), trafficSpecs(specs) {}

bool KPEShimInterfaceConstraints::addPlacementConst(TrafficLInst const* inst, std::vector<GRMBel> const& sites,
                                                    bool isSoft) {
  return placements.emplace(inst, std::make_pair(isSoft, sites)).second;
}

void KPEShimInterfaceConstraints::getPlacementConst(TrafficLInst const* inst, std::vector<GRMBel>& sites,
                                                    bool& isSoft) const {
  auto const found = placements.find(inst);
  if (found == placements.end()) return;
  isSoft = found->second.first;
  sites = found->second.second;
}

void KPEShimInterfaceConstraints::getAllConstrainedInstances(std::vector<TrafficLInst const*>& out) const {
  for (auto const& entry : placements)
    out.push_back(entry.first);
}

bool KPEShimInterfaceConstraints::hasLogical(GRMBel const& site) const {
  for (auto const& entry : placements) {
    std::vector<GRMBel> const& sites = entry.second.second;
    if (std::find(sites.begin(), sites.end(), site) != sites.end()) return true;
  }
  return false;
}

bool KPEShimInterfaceConstraints::movePlacementConst(TrafficLInst const* from, TrafficLInst const* to) {
  auto const found = placements.find(from);
  if (found == placements.end()) return true;
  std::pair<bool, std::vector<GRMBel>> const entry = found->second;
  addPlacementConst(to, entry.second, entry.first);
  placements.erase(from);
  return true;
}

bool KPEShimInterfaceConstraints::replaceLogicalInstances(TrafficLInst const* from, TrafficLInst const* to) {
  movePlacementConst(from, to);
  return true;
}

void KPEShimInterfaceConstraints::removePlacementConst(TrafficLInst const* inst) {
  placements.erase(inst);
}

void KPEShimInterfaceConstraints::removePlacementConst(std::vector<TrafficLInst const*> const& insts) {
  for (TrafficLInst const* inst : insts)
    removePlacementConst(inst);
}

bool KPEShimInterfaceConstraints::copyFrom(KPEShimInterfaceConstraints const& other) {
  std::vector<TrafficLInst const*> instances;
  other.getAllConstrainedInstances(instances);
  for (TrafficLInst const* inst : instances) {
    std::vector<GRMBel> sites;
    bool isSoft = false;
    other.getPlacementConst(inst, sites, isSoft);
    if (placements.count(inst) != 0) return false;
    addPlacementConst(inst, sites, isSoft);
  }
  return true;
}
