#ifndef TARVO_CONSTRFWD_H
#define TARVO_CONSTRFWD_H

// The constraint classes, their store, resolver and visitors, declared for headers that
// only name them.

namespace kpe {
namespace constraints {

class BaseConstraint;
class AreaGroupConstr;
class AttrConstr;
class BufferConstr;
class ColocatedDmaConstr;
class ColocatedMemoriesConstr;
class ColocatedNodesConstr;
class ColocatedPortsConstr;
class DependentRoutingGroupConstr;
class FifoLocationsConstr;
class InstGroupConstr;
class IsomorphicGraphGroupConstr;
class MemConstr;
class PortLocConstr;
class RelativeNodesConstr;
class ReservedMemoryConstr;
class ShimConstr;
class StreamChannelConstr;
class TileConstr;

class BaseNameResolver;
class BaseVisitor;
class ConstBaseVisitor;
class ConstrHandler;

}  // namespace constraints
}  // namespace kpe

#endif
