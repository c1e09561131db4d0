#ifndef TARVO_CONSTRVISITOR_H
#define TARVO_CONSTRVISITOR_H

#include "ConstrFwd.h"

namespace kpe {
namespace constraints {

// Dispatches a constraint to the operation of its kind. Isomorphic graph groups have no
// operation and are passed over in silence.
class BaseVisitor {
 public:
  virtual ~BaseVisitor() = default;
  virtual void visit(BaseConstraint* constraint);
  virtual void visitFifoLocations(FifoLocationsConstr* constraint) = 0;
  virtual void visitDependentRoutingGroup(DependentRoutingGroupConstr* constraint) = 0;
  virtual void visitInstGroup(InstGroupConstr* constraint) = 0;
  virtual void visitAreaGroup(AreaGroupConstr* constraint) = 0;
  virtual void visitColocatedMemories(ColocatedMemoriesConstr* constraint) = 0;
  virtual void visitColocatedDma(ColocatedDmaConstr* constraint) = 0;
  virtual void visitColocatedPorts(ColocatedPortsConstr* constraint) = 0;
  virtual void visitRelativeNodes(RelativeNodesConstr* constraint) = 0;
  virtual void visitColocatedNodes(ColocatedNodesConstr* constraint) = 0;
  virtual void visitStreamChannel(StreamChannelConstr* constraint) = 0;
  virtual void visitPortLoc(PortLocConstr* constraint) = 0;
  virtual void visitShim(ShimConstr* constraint) = 0;
  virtual void visitReservedMemory(ReservedMemoryConstr* constraint) = 0;
  virtual void visitMem(MemConstr* constraint) = 0;
  virtual void visitTile(TileConstr* constraint) = 0;
  virtual void visitBuffer(BufferConstr* constraint) = 0;
  virtual void visitAttr(AttrConstr* constraint) = 0;
};

// The same over const constraints.
class ConstBaseVisitor {
 public:
  virtual ~ConstBaseVisitor() = default;
  virtual void visit(BaseConstraint const* constraint);
  virtual void visitFifoLocations(FifoLocationsConstr const* constraint) = 0;
  virtual void visitDependentRoutingGroup(DependentRoutingGroupConstr const* constraint) = 0;
  virtual void visitInstGroup(InstGroupConstr const* constraint) = 0;
  virtual void visitAreaGroup(AreaGroupConstr const* constraint) = 0;
  virtual void visitColocatedMemories(ColocatedMemoriesConstr const* constraint) = 0;
  virtual void visitColocatedDma(ColocatedDmaConstr const* constraint) = 0;
  virtual void visitColocatedPorts(ColocatedPortsConstr const* constraint) = 0;
  virtual void visitRelativeNodes(RelativeNodesConstr const* constraint) = 0;
  virtual void visitColocatedNodes(ColocatedNodesConstr const* constraint) = 0;
  virtual void visitStreamChannel(StreamChannelConstr const* constraint) = 0;
  virtual void visitPortLoc(PortLocConstr const* constraint) = 0;
  virtual void visitShim(ShimConstr const* constraint) = 0;
  virtual void visitReservedMemory(ReservedMemoryConstr const* constraint) = 0;
  virtual void visitMem(MemConstr const* constraint) = 0;
  virtual void visitTile(TileConstr const* constraint) = 0;
  virtual void visitBuffer(BufferConstr const* constraint) = 0;
  virtual void visitAttr(AttrConstr const* constraint) = 0;
};

}  // namespace constraints
}  // namespace kpe

#endif
