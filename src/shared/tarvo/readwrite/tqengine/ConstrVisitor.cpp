#include "ConstrVisitor.h"

#include "AttrConstr.h"
#include "ColocationConstraints.h"
#include "ConstrCast.h"
#include "FifoLocations.h"
#include "GroupConstraints.h"
#include "LocationConstraints.h"

namespace kpe {
namespace constraints {

namespace {

// One dispatch for both visitor kinds; `Constraint` is BaseConstraint or its const form.
// Isomorphic graph groups have no case on purpose: visitors never see them.
template <class Visitor, class Constraint>
void dispatch(Visitor& visitor, Constraint* constraint) {
  if (constraint == nullptr) {
    return;
  }
  switch (constraint->getType()) {
    case BaseConstraint::FIFO_LOCATIONS:
      visitor.visitFifoLocations(ConstrCast::toFifoLocations(constraint));
      break;
    case BaseConstraint::DEPENDENT_ROUTING_GROUP:
      visitor.visitDependentRoutingGroup(ConstrCast::toDependentRoutingGroup(constraint));
      break;
    case BaseConstraint::INST_GROUP:
      visitor.visitInstGroup(ConstrCast::toInstGroup(constraint));
      break;
    case BaseConstraint::AREA_GROUP:
      visitor.visitAreaGroup(ConstrCast::toAreaGroup(constraint));
      break;
    case BaseConstraint::COLOCATED_MEMORIES:
      visitor.visitColocatedMemories(ConstrCast::toColocatedMemories(constraint));
      break;
    case BaseConstraint::COLOCATED_DMA:
      visitor.visitColocatedDma(ConstrCast::toColocatedDma(constraint));
      break;
    case BaseConstraint::COLOCATED_PORTS:
      visitor.visitColocatedPorts(ConstrCast::toColocatedPorts(constraint));
      break;
    case BaseConstraint::RELATIVE_NODES:
      visitor.visitRelativeNodes(ConstrCast::toRelativeNodes(constraint));
      break;
    case BaseConstraint::COLOCATED_NODES:
      visitor.visitColocatedNodes(ConstrCast::toColocatedNodes(constraint));
      break;
    case BaseConstraint::STREAM_CHANNEL:
      visitor.visitStreamChannel(ConstrCast::toStreamChannel(constraint));
      break;
    case BaseConstraint::PORT_LOC:
      visitor.visitPortLoc(ConstrCast::toPortLoc(constraint));
      break;
    case BaseConstraint::SHIM:
      visitor.visitShim(ConstrCast::toShim(constraint));
      break;
    case BaseConstraint::RESERVED_MEMORY:
      visitor.visitReservedMemory(ConstrCast::toReservedMemory(constraint));
      break;
    case BaseConstraint::MEM:
      visitor.visitMem(ConstrCast::toMem(constraint));
      break;
    case BaseConstraint::TILE:
      visitor.visitTile(ConstrCast::toTile(constraint));
      break;
    case BaseConstraint::BUFFER:
      visitor.visitBuffer(ConstrCast::toBuffer(constraint));
      break;
    case BaseConstraint::ATTR:
      visitor.visitAttr(ConstrCast::toAttr(constraint));
      break;
    default:
      break;
  }
}

}  // namespace

void BaseVisitor::visit(BaseConstraint* constraint) {
  dispatch(*this, constraint);
}

void ConstBaseVisitor::visit(BaseConstraint const* constraint) {
  dispatch(*this, constraint);
}

}  // namespace constraints
}  // namespace kpe
