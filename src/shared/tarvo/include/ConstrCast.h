#ifndef TARVO_CONSTRCAST_H
#define TARVO_CONSTRCAST_H

#include "ConstrFwd.h"

namespace kpe {
namespace constraints {

// Checked downcasts: null for a null argument or a constraint of another type field,
// otherwise the dynamic cast. Never throws.
class ConstrCast {
 public:
  static AreaGroupConstr* toAreaGroup(BaseConstraint* constraint);
  static AreaGroupConstr const* toAreaGroup(BaseConstraint const* constraint);
  static AttrConstr* toAttr(BaseConstraint* constraint);
  static AttrConstr const* toAttr(BaseConstraint const* constraint);
  static BufferConstr* toBuffer(BaseConstraint* constraint);
  static BufferConstr const* toBuffer(BaseConstraint const* constraint);
  static ColocatedDmaConstr* toColocatedDma(BaseConstraint* constraint);
  static ColocatedDmaConstr const* toColocatedDma(BaseConstraint const* constraint);
  static ColocatedMemoriesConstr* toColocatedMemories(BaseConstraint* constraint);
  static ColocatedMemoriesConstr const* toColocatedMemories(BaseConstraint const* constraint);
  static ColocatedNodesConstr* toColocatedNodes(BaseConstraint* constraint);
  static ColocatedNodesConstr const* toColocatedNodes(BaseConstraint const* constraint);
  static ColocatedPortsConstr* toColocatedPorts(BaseConstraint* constraint);
  static ColocatedPortsConstr const* toColocatedPorts(BaseConstraint const* constraint);
  static DependentRoutingGroupConstr* toDependentRoutingGroup(BaseConstraint* constraint);
  static DependentRoutingGroupConstr const* toDependentRoutingGroup(BaseConstraint const* constraint);
  static FifoLocationsConstr* toFifoLocations(BaseConstraint* constraint);
  static FifoLocationsConstr const* toFifoLocations(BaseConstraint const* constraint);
  static InstGroupConstr* toInstGroup(BaseConstraint* constraint);
  static InstGroupConstr const* toInstGroup(BaseConstraint const* constraint);
  static IsomorphicGraphGroupConstr* toIsomorphicGraphGroup(BaseConstraint* constraint);
  static IsomorphicGraphGroupConstr const* toIsomorphicGraphGroup(BaseConstraint const* constraint);
  static MemConstr* toMem(BaseConstraint* constraint);
  static MemConstr const* toMem(BaseConstraint const* constraint);
  static PortLocConstr* toPortLoc(BaseConstraint* constraint);
  static PortLocConstr const* toPortLoc(BaseConstraint const* constraint);
  static RelativeNodesConstr* toRelativeNodes(BaseConstraint* constraint);
  static RelativeNodesConstr const* toRelativeNodes(BaseConstraint const* constraint);
  static ReservedMemoryConstr* toReservedMemory(BaseConstraint* constraint);
  static ReservedMemoryConstr const* toReservedMemory(BaseConstraint const* constraint);
  static ShimConstr* toShim(BaseConstraint* constraint);
  static ShimConstr const* toShim(BaseConstraint const* constraint);
  static StreamChannelConstr* toStreamChannel(BaseConstraint* constraint);
  static StreamChannelConstr const* toStreamChannel(BaseConstraint const* constraint);
  static TileConstr* toTile(BaseConstraint* constraint);
  static TileConstr const* toTile(BaseConstraint const* constraint);
};

}  // namespace constraints
}  // namespace kpe

#endif
