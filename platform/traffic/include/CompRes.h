#ifndef TARVO_COMPRES_H
#define TARVO_COMPRES_H

#include <cstdint>
#include <map>
#include <unordered_map>
#include <vector>

#include "Component.h"
#include "CreationOrder.h"
#include "DestIdRepr.h"
#include "HIPDevice.h"
#include "Route.h"
#include "TrafficLInst.h"
#include "TrafficNet.h"
#include "TrafficPath.h"

namespace HrdIPToolCntr {

// The result of the NoC compiler for one TrafficSpec on one device: a route for each routed
// net, what each path achieved, which instances and destination ids are locked, which
// physical component each instance went to and which destination id each component got.
// Borrows the traffic specification's and the device's objects.
class CompRes {
 public:
  enum SolutionState { NO_SOLUTION = 0, OPTIMAL = 1, SUBOPTIMAL = 2, DEADLOCKS = 3 };

  // What a path achieved in one direction.
  struct AchievedValues {
    uint32_t latency = 0;
    uint32_t bandwidth = 0;
  };

  typedef std::map<TrafficNet const*, Route, CreationOrder> RouteStore;

  explicit CompRes(DevHrdIP::HIPDevice const& device) : m_device(device) {}
  CompRes(CompRes const&) = delete;
  CompRes& operator=(CompRes const&) = delete;

  DevHrdIP::HIPDevice const& getDevice() const { return m_device; }

  // Any int; values outside SolutionState mean no solution.
  void setSolutionState(int state) { m_solutionState = state; }
  int getSolutionState() const { return m_solutionState; }

  // A second route for a net replaces the first.
  void addRoute(TrafficNet const* net, std::vector<DevHrdIP::Link const*> const& links, unsigned char vc,
                unsigned int achievedBW, bool locked);
  // Null for a net without a route.
  Route const* getRouteForNet(TrafficNet const* net) const;
  // The routed nets in the order the traffic specification made them.
  RouteStore const& getRoutes() const { return m_routes; }
  // True when the path has a routed net and every routed net of it is locked.
  bool isLocked(TrafficPath const* path) const;

  // Insert or overwrite the path's record; a null path is a key like any other.
  void setPathReadAchieved(TrafficPath const* path, uint32_t latency, uint32_t bandwidth);
  void setPathWriteAchieved(TrafficPath const* path, uint32_t latency, uint32_t bandwidth);
  // Null when the path has no record.
  AchievedValues const* getPathReadAchieved(TrafficPath const* path) const { return find(m_readAchieved, path); }
  AchievedValues const* getPathWriteAchieved(TrafficPath const* path) const { return find(m_writeAchieved, path); }

  void lockLogicalInst(TrafficLInst const* instance) { m_lockedInstances[instance] = true; }
  void setLogicalInstLocked(TrafficLInst const* instance, bool locked) { m_lockedInstances[instance] = locked; }
  // False for an instance without a flag.
  bool isLogicalInstLocked(TrafficLInst const* instance) const;

  // Keeps the first destination id a component gets.
  void setComponentDestId(DevHrdIP::Component const* component, DestIdRepr destId);
  bool hasDestIdForComponent(DevHrdIP::Component const* component) const;
  // 0 for a component without one.
  DestIdRepr getDestIdForComponent(DevHrdIP::Component const* component) const;

  void setHasLockedDestIdsForAllComps(bool locked) { m_lockedDestIdsForAllComps = locked; }
  bool hasLockedDestIdsForAllComps() const { return m_lockedDestIdsForAllComps; }

  // Enters both sides, unless the instance is bound already; a component keeps its first
  // instance. A null side binds nothing.
  void bindLogicalToPhysical(TrafficLInst const* instance, DevHrdIP::Component const* component);
  // Null when nothing is bound.
  TrafficLInst const* getLogicalForPhysical(DevHrdIP::Component const* component) const;
  DevHrdIP::Component const* getPhysicalForLogical(TrafficLInst const* instance) const;

 private:
  typedef std::unordered_map<TrafficPath const*, AchievedValues> AchievedStore;
  static AchievedValues const* find(AchievedStore const& store, TrafficPath const* path);

  DevHrdIP::HIPDevice const& m_device;
  int m_solutionState = NO_SOLUTION;
  RouteStore m_routes;
  AchievedStore m_readAchieved;
  AchievedStore m_writeAchieved;
  std::unordered_map<TrafficLInst const*, bool> m_lockedInstances;
  std::unordered_map<DevHrdIP::Component const*, DestIdRepr> m_destIds;
  bool m_lockedDestIdsForAllComps = false;
  std::unordered_map<TrafficLInst const*, DevHrdIP::Component const*> m_physicalOf;
  std::unordered_map<DevHrdIP::Component const*, TrafficLInst const*> m_logicalOf;
};

}  // namespace HrdIPToolCntr

#endif
