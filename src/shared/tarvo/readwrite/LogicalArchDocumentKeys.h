#ifndef TARVO_LOGICALARCHDOCUMENTKEYS_H
#define TARVO_LOGICALARCHDOCUMENTKEYS_H

// The keys of the logical architecture document, shared by its reader and writer. The texts
// of the enumerations are the model's own (TQLogicalArchTypes.h).
struct LogicalArchDocumentKeys {
  // Root.
  static constexpr char const* appId = "appId";
  static constexpr char const* schema = "schema";
  static constexpr char const* device = "device";
  static constexpr char const* platform = "platform";
  static constexpr char const* kpeSection = "KPE";
  static constexpr char const* nocSection = "NoC";
  static constexpr char const* plSection = "PL";
  static constexpr char const* connections = "connections";

  // Instances.
  static constexpr char const* vlnvName = "vlnvName";
  static constexpr char const* annotation = "annotation";
  static constexpr char const* hwAnnotation = "hw_annotation";
  static constexpr char const* logicalDevice = "logical_device";
  static constexpr char const* ipType = "type";
  static constexpr char const* ckernelName = "ckernelName";
  static constexpr char const* sdfinstName = "sdfinstName";
  static constexpr char const* kpePorts = "kpeshimPorts";
  static constexpr char const* nocPorts = "nocPorts";
  static constexpr char const* plPorts = "plPorts";

  // Ports, besides vlnvName, annotation and hw_annotation.
  static constexpr char const* type = "type";
  static constexpr char const* direction = "direction";
  static constexpr char const* dataWidth = "dataWidth";
  static constexpr char const* busWidth = "busWidth";
  static constexpr char const* parameterIndex = "parameterIndex";
  static constexpr char const* clkFreq = "clkFreq";
  static constexpr char const* registeredInterface = "registeredInterface";
  static constexpr char const* tracedInterface = "tracedInterface";
  static constexpr char const* traceFile = "traceFile";
  static constexpr char const* sdfioName = "sdfioName";
  static constexpr char const* kpechannel = "kpechannel";

  // Connections, besides type and direction.
  static constexpr char const* memMode = "memMode";
  static constexpr char const* addrType = "addrType";
  static constexpr char const* srcPort = "srcPort";
  static constexpr char const* dstPorts = "dstPorts";
  static constexpr char const* instName = "instName";
  static constexpr char const* portName = "portName";
};

#endif
