#include "Constraints.h"

namespace HrdIPToolCntr {

bool Constraints::addPlacementConst(TrafficLInst const* instance,
                                    std::vector<DevHrdIP::Component const*> const& components, bool soft) {
  if (instance == nullptr) return false;
  auto const inserted = m_placements.emplace(instance, Placement());
  inserted.first->second.components = components;
  inserted.first->second.soft = soft;
  return inserted.second;
}

void Constraints::getAllConstrainedInstances(std::vector<TrafficLInst const*>& instances) const {
  instances.clear();
  for (auto const& placement : m_placements)
    instances.push_back(placement.first);
}

bool Constraints::getPlacementConst(TrafficLInst const* instance, std::vector<DevHrdIP::Component const*>& components,
                                    bool& soft) const {
  components.clear();
  if (instance == nullptr) return false;
  auto const found = m_placements.find(instance);
  if (found == m_placements.end()) return false;
  components = found->second.components;
  soft = found->second.soft;
  return true;
}

bool Constraints::getDestIdConst(TrafficLInst const* instance, DestIdRepr& destId) const {
  if (instance == nullptr) return false;
  auto const found = m_destIds.find(instance);
  if (found == m_destIds.end()) return false;
  destId = found->second;
  return true;
}

}  // namespace HrdIPToolCntr
