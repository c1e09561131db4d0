#include "ConstrCast.h"

#include "AttrConstr.h"
#include "ColocationConstraints.h"
#include "FifoLocations.h"
#include "GroupConstraints.h"
#include "LocationConstraints.h"

namespace kpe {
namespace constraints {

namespace {

template <class Target, class Source>
Target* castTo(Source* constraint, BaseConstraint::ConstrType type) {
  if (constraint == nullptr || constraint->getType() != type) {
    return nullptr;
  }
  return dynamic_cast<Target*>(constraint);
}

}  // namespace

AreaGroupConstr* ConstrCast::toAreaGroup(BaseConstraint* constraint) {
  return castTo<AreaGroupConstr>(constraint, BaseConstraint::AREA_GROUP);
}
AreaGroupConstr const* ConstrCast::toAreaGroup(BaseConstraint const* constraint) {
  return castTo<AreaGroupConstr const>(constraint, BaseConstraint::AREA_GROUP);
}

AttrConstr* ConstrCast::toAttr(BaseConstraint* constraint) {
  return castTo<AttrConstr>(constraint, BaseConstraint::ATTR);
}
AttrConstr const* ConstrCast::toAttr(BaseConstraint const* constraint) {
  return castTo<AttrConstr const>(constraint, BaseConstraint::ATTR);
}

BufferConstr* ConstrCast::toBuffer(BaseConstraint* constraint) {
  return castTo<BufferConstr>(constraint, BaseConstraint::BUFFER);
}
BufferConstr const* ConstrCast::toBuffer(BaseConstraint const* constraint) {
  return castTo<BufferConstr const>(constraint, BaseConstraint::BUFFER);
}

ColocatedDmaConstr* ConstrCast::toColocatedDma(BaseConstraint* constraint) {
  return castTo<ColocatedDmaConstr>(constraint, BaseConstraint::COLOCATED_DMA);
}
ColocatedDmaConstr const* ConstrCast::toColocatedDma(BaseConstraint const* constraint) {
  return castTo<ColocatedDmaConstr const>(constraint, BaseConstraint::COLOCATED_DMA);
}

ColocatedMemoriesConstr* ConstrCast::toColocatedMemories(BaseConstraint* constraint) {
  return castTo<ColocatedMemoriesConstr>(constraint, BaseConstraint::COLOCATED_MEMORIES);
}
ColocatedMemoriesConstr const* ConstrCast::toColocatedMemories(BaseConstraint const* constraint) {
  return castTo<ColocatedMemoriesConstr const>(constraint, BaseConstraint::COLOCATED_MEMORIES);
}

ColocatedNodesConstr* ConstrCast::toColocatedNodes(BaseConstraint* constraint) {
  return castTo<ColocatedNodesConstr>(constraint, BaseConstraint::COLOCATED_NODES);
}
ColocatedNodesConstr const* ConstrCast::toColocatedNodes(BaseConstraint const* constraint) {
  return castTo<ColocatedNodesConstr const>(constraint, BaseConstraint::COLOCATED_NODES);
}

ColocatedPortsConstr* ConstrCast::toColocatedPorts(BaseConstraint* constraint) {
  return castTo<ColocatedPortsConstr>(constraint, BaseConstraint::COLOCATED_PORTS);
}
ColocatedPortsConstr const* ConstrCast::toColocatedPorts(BaseConstraint const* constraint) {
  return castTo<ColocatedPortsConstr const>(constraint, BaseConstraint::COLOCATED_PORTS);
}

DependentRoutingGroupConstr* ConstrCast::toDependentRoutingGroup(BaseConstraint* constraint) {
  return castTo<DependentRoutingGroupConstr>(constraint, BaseConstraint::DEPENDENT_ROUTING_GROUP);
}
DependentRoutingGroupConstr const* ConstrCast::toDependentRoutingGroup(BaseConstraint const* constraint) {
  return castTo<DependentRoutingGroupConstr const>(constraint, BaseConstraint::DEPENDENT_ROUTING_GROUP);
}

FifoLocationsConstr* ConstrCast::toFifoLocations(BaseConstraint* constraint) {
  return castTo<FifoLocationsConstr>(constraint, BaseConstraint::FIFO_LOCATIONS);
}
FifoLocationsConstr const* ConstrCast::toFifoLocations(BaseConstraint const* constraint) {
  return castTo<FifoLocationsConstr const>(constraint, BaseConstraint::FIFO_LOCATIONS);
}

InstGroupConstr* ConstrCast::toInstGroup(BaseConstraint* constraint) {
  return castTo<InstGroupConstr>(constraint, BaseConstraint::INST_GROUP);
}
InstGroupConstr const* ConstrCast::toInstGroup(BaseConstraint const* constraint) {
  return castTo<InstGroupConstr const>(constraint, BaseConstraint::INST_GROUP);
}

IsomorphicGraphGroupConstr* ConstrCast::toIsomorphicGraphGroup(BaseConstraint* constraint) {
  return castTo<IsomorphicGraphGroupConstr>(constraint, BaseConstraint::ISOMORPHIC_GRAPH_GROUP);
}
IsomorphicGraphGroupConstr const* ConstrCast::toIsomorphicGraphGroup(BaseConstraint const* constraint) {
  return castTo<IsomorphicGraphGroupConstr const>(constraint, BaseConstraint::ISOMORPHIC_GRAPH_GROUP);
}

MemConstr* ConstrCast::toMem(BaseConstraint* constraint) {
  return castTo<MemConstr>(constraint, BaseConstraint::MEM);
}
MemConstr const* ConstrCast::toMem(BaseConstraint const* constraint) {
  return castTo<MemConstr const>(constraint, BaseConstraint::MEM);
}

PortLocConstr* ConstrCast::toPortLoc(BaseConstraint* constraint) {
  return castTo<PortLocConstr>(constraint, BaseConstraint::PORT_LOC);
}
PortLocConstr const* ConstrCast::toPortLoc(BaseConstraint const* constraint) {
  return castTo<PortLocConstr const>(constraint, BaseConstraint::PORT_LOC);
}

RelativeNodesConstr* ConstrCast::toRelativeNodes(BaseConstraint* constraint) {
  return castTo<RelativeNodesConstr>(constraint, BaseConstraint::RELATIVE_NODES);
}
RelativeNodesConstr const* ConstrCast::toRelativeNodes(BaseConstraint const* constraint) {
  return castTo<RelativeNodesConstr const>(constraint, BaseConstraint::RELATIVE_NODES);
}

ReservedMemoryConstr* ConstrCast::toReservedMemory(BaseConstraint* constraint) {
  return castTo<ReservedMemoryConstr>(constraint, BaseConstraint::RESERVED_MEMORY);
}
ReservedMemoryConstr const* ConstrCast::toReservedMemory(BaseConstraint const* constraint) {
  return castTo<ReservedMemoryConstr const>(constraint, BaseConstraint::RESERVED_MEMORY);
}

ShimConstr* ConstrCast::toShim(BaseConstraint* constraint) {
  return castTo<ShimConstr>(constraint, BaseConstraint::SHIM);
}
ShimConstr const* ConstrCast::toShim(BaseConstraint const* constraint) {
  return castTo<ShimConstr const>(constraint, BaseConstraint::SHIM);
}

StreamChannelConstr* ConstrCast::toStreamChannel(BaseConstraint* constraint) {
  return castTo<StreamChannelConstr>(constraint, BaseConstraint::STREAM_CHANNEL);
}
StreamChannelConstr const* ConstrCast::toStreamChannel(BaseConstraint const* constraint) {
  return castTo<StreamChannelConstr const>(constraint, BaseConstraint::STREAM_CHANNEL);
}

TileConstr* ConstrCast::toTile(BaseConstraint* constraint) {
  return castTo<TileConstr>(constraint, BaseConstraint::TILE);
}
TileConstr const* ConstrCast::toTile(BaseConstraint const* constraint) {
  return castTo<TileConstr const>(constraint, BaseConstraint::TILE);
}

}  // namespace constraints
}  // namespace kpe
