#include "CompRes.h"

namespace HrdIPToolCntr {

void CompRes::addRoute(TrafficNet const* net, std::vector<DevHrdIP::Link const*> const& links, unsigned char vc,
                       unsigned int achievedBW, bool locked) {
  if (net == nullptr) return;
  Route route(links, vc, achievedBW, locked);
  // Nets mostly arrive in creation order; the hint makes that insertion constant time.
  auto const hint = m_routes.lower_bound(net);
  if (hint != m_routes.end() && hint->first == net)
    hint->second = std::move(route);
  else
    m_routes.emplace_hint(hint, net, std::move(route));
}

Route const* CompRes::getRouteForNet(TrafficNet const* net) const {
  if (net == nullptr) return nullptr;
  auto const found = m_routes.find(net);
  return found == m_routes.end() ? nullptr : &found->second;
}

bool CompRes::isLocked(TrafficPath const* path) const {
  if (path == nullptr) return false;
  bool routed = false;
  for (int i = 0; i < path->getNumNets(); ++i) {
    Route const* route = getRouteForNet(path->getNet(i));
    if (route == nullptr) continue;
    if (!route->isLocked()) return false;
    routed = true;
  }
  return routed;
}

void CompRes::setPathReadAchieved(TrafficPath const* path, uint32_t latency, uint32_t bandwidth) {
  AchievedValues& values = m_readAchieved[path];
  values.latency = latency;
  values.bandwidth = bandwidth;
}

void CompRes::setPathWriteAchieved(TrafficPath const* path, uint32_t latency, uint32_t bandwidth) {
  AchievedValues& values = m_writeAchieved[path];
  values.latency = latency;
  values.bandwidth = bandwidth;
}

bool CompRes::isLogicalInstLocked(TrafficLInst const* instance) const {
  auto const found = m_lockedInstances.find(instance);
  return found != m_lockedInstances.end() && found->second;
}

void CompRes::setComponentDestId(DevHrdIP::Component const* component, DestIdRepr destId) {
  m_destIds.emplace(component, destId);
}

bool CompRes::hasDestIdForComponent(DevHrdIP::Component const* component) const {
  return m_destIds.count(component) != 0;
}

DestIdRepr CompRes::getDestIdForComponent(DevHrdIP::Component const* component) const {
  auto const found = m_destIds.find(component);
  return found == m_destIds.end() ? DestIdRepr() : found->second;
}

void CompRes::bindLogicalToPhysical(TrafficLInst const* instance, DevHrdIP::Component const* component) {
  if (instance == nullptr || component == nullptr) return;
  if (!m_physicalOf.emplace(instance, component).second) return;
  m_logicalOf.emplace(component, instance);
}

TrafficLInst const* CompRes::getLogicalForPhysical(DevHrdIP::Component const* component) const {
  auto const found = m_logicalOf.find(component);
  return found == m_logicalOf.end() ? nullptr : found->second;
}

DevHrdIP::Component const* CompRes::getPhysicalForLogical(TrafficLInst const* instance) const {
  auto const found = m_physicalOf.find(instance);
  return found == m_physicalOf.end() ? nullptr : found->second;
}

CompRes::AchievedValues const* CompRes::find(AchievedStore const& store, TrafficPath const* path) {
  auto const found = store.find(path);
  return found == store.end() ? nullptr : &found->second;
}

}  // namespace HrdIPToolCntr
