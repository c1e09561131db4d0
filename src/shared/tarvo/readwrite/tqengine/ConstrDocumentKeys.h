#ifndef TARVO_CONSTRDOCUMENTKEYS_H
#define TARVO_CONSTRDOCUMENTKEYS_H

namespace kpe {
namespace constraints {

// The keys of the constraint document, shared by its reader and by the constraint classes that
// write it. Character arrays, so that they serve where a literal did and give their length.
struct ConstrDocumentKeys {
  static constexpr char const areaGroup[] = "areaGroup";
  static constexpr char const bankId[] = "bankId";
  static constexpr char const buffers[] = "buffers";
  static constexpr char const channel[] = "channel";
  static constexpr char const colocatedDma[] = "colocated_dma";
  static constexpr char const colocatedMemories[] = "colocated_memories";
  static constexpr char const colocatedNodes[] = "colocated_nodes";
  static constexpr char const colocatedPorts[] = "colocated_ports";
  static constexpr char const colocatedReservedMemories[] = "colocated_reserved_memories";
  static constexpr char const column[] = "column";
  static constexpr char const containRouting[] = "contain_routing";
  static constexpr char const dependentRoutingGroup[] = "dependentRoutingGroup";
  static constexpr char const direction[] = "direction";
  static constexpr char const dmaFifos[] = "dma_fifos";
  static constexpr char const exclude[] = "exclude";
  static constexpr char const exclusiveColocatedPorts[] = "exclusive_colocated_ports";
  static constexpr char const exclusivePlacement[] = "exclusive_placement";
  static constexpr char const exclusiveRouting[] = "exclusive_routing";
  static constexpr char const fifoLocations[] = "fifo_locations";
  static constexpr char const fifoLocationsRecords[] = "fifo_locations_records";
  static constexpr char const file[] = "file";
  static constexpr char const globalConstraints[] = "GlobalConstraints";
  static constexpr char const instGroup[] = "instGroup";
  static constexpr char const isisomorphic[] = "isisomorphic";
  static constexpr char const isomorphicGraphGroup[] = "isomorphicGraphGroup";
  static constexpr char const issoft[] = "issoft";
  static constexpr char const isSoft[] = "isSoft";
  static constexpr char const isToolGenerated[] = "isToolGenerated";
  static constexpr char const line[] = "line";
  static constexpr char const mem[] = "mem";
  static constexpr char const memGroup[] = "memGroup";
  static constexpr char const name[] = "name";
  static constexpr char const netConstraints[] = "NetConstraints";
  static constexpr char const nodeConstraints[] = "NodeConstraints";
  static constexpr char const nodeGroup[] = "nodeGroup";
  static constexpr char const notColocatedNodes[] = "not_colocated_nodes";
  static constexpr char const notColocatedPorts[] = "not_colocated_ports";
  static constexpr char const notColocatedReservedMemories[] = "not_colocated_reserved_memories";
  static constexpr char const offset[] = "offset";
  static constexpr char const portConstraints[] = "PortConstraints";
  static constexpr char const portLoc[] = "port_loc";
  static constexpr char const referenceGraph[] = "referenceGraph";
  static constexpr char const relativeNodes[] = "relative_nodes";
  static constexpr char const reservedMemory[] = "reserved_memory";
  static constexpr char const row[] = "row";
  static constexpr char const shim[] = "shim";
  static constexpr char const shimGroup[] = "shimGroup";
  static constexpr char const size[] = "size";
  static constexpr char const srcInfo[] = "srcInfo";
  static constexpr char const stampedGraphs[] = "stampedGraphs";
  static constexpr char const streamChannel[] = "stream_channel";
  static constexpr char const streamFifos[] = "stream_fifos";
  static constexpr char const tile[] = "tile";
  static constexpr char const tileGroup[] = "tileGroup";
  static constexpr char const tileType[] = "tile_type";

  // Behind a constraint's key, the key of where that constraint was read from.
  static constexpr char const srcInfoSuffix[] = "_src_info";
};

}  // namespace constraints
}  // namespace kpe

#endif
