#ifndef TARVO_NOCTRAFFICDOCUMENTKEYS_H
#define TARVO_NOCTRAFFICDOCUMENTKEYS_H

#include <string>

// The keys of the NoC traffic specification document, shared by its reader and writer. Keys
// are strings so that building and reading a large document makes no temporary copies of them.
struct NOCTrafficDocumentKeys {
  static inline std::string const axiDataWidth = "AxiDataWidth";
  static inline std::string const base = "Base";
  static inline std::string const commType = "CommType";
  static inline std::string const compType = "CompType";
  static inline std::string const configParams = "ConfigParams";
  static inline std::string const designName = "DesignName";
  static inline std::string const destId = "DestId";
  static inline std::string const destIdIdx = "DestIdIdx";
  static inline std::string const destIdIndex = "DestIdIndex";
  static inline std::string const deviceName = "DeviceName";
  static inline std::string const endIdx = "end_idx";
  static inline std::string const exclusiveGroup = "ExclusiveGroup";
  static inline std::string const externalConn = "ExternalConn";
  static inline std::string const firewall = "Firewall";
  static inline std::string const frequency = "Frequency";
  static inline std::string const from = "From";
  static inline std::string const hasParityAddr = "HasParityAddr";
  static inline std::string const hasParityData = "HasParityData";
  static inline std::string const highPriorityRouting = "HighPriorityRouting";
  static inline std::string const initialBoot = "InitialBoot";
  static inline std::string const interleaveSel = "InterleaveSel";
  static inline std::string const interleaveSize = "InterleaveSize";
  static inline std::string const ipName = "IPName";
  static inline std::string const isMaster = "IsMaster";
  static inline std::string const isVirtual = "IsVirtual";
  static inline std::string const logical = "Logical";
  static inline std::string const logicalInstances = "LogicalInstances";
  static inline std::string const memoryParams = "MemoryParams";
  static inline std::string const name = "Name";
  static inline std::string const numReadOutstanding = "NumReadOutstanding";
  static inline std::string const numWriteOutstanding = "NumWriteOutstanding";
  static inline std::string const paths = "Paths";
  static inline std::string const phase = "Phase";
  static inline std::string const phaseGroups = "PhaseGroups";
  static inline std::string const phases = "Phases";
  static inline std::string const physical = "Physical";
  static inline std::string const port = "Port";
  static inline std::string const ports = "Ports";
  static inline std::string const protocol = "Protocol";
  static inline std::string const range = "Range";
  static inline std::string const rcfPaths = "RcfPaths";
  static inline std::string const readAvgBurst = "ReadAvgBurst";
  static inline std::string const readBW = "ReadBW";
  static inline std::string const readLatency = "ReadLatency";
  static inline std::string const readRateLimiter = "ReadRateLimiter";
  static inline std::string const readTC = "ReadTC";
  static inline std::string const remap = "Remap";
  static inline std::string const secureMode = "SECURE_QLR_ZMC_TRAFFIC";
  static inline std::string const separateRoutingGroup = "SeparateRoutingGroup";
  static inline std::string const simMetaData = "SimMetaData";
  static inline std::string const size = "Size";
  static inline std::string const startIdx = "start_idx";
  static inline std::string const sysAddress = "SysAddress";
  static inline std::string const sysAddresses = "SysAddresses";
  static inline std::string const sysAddressSize = "SysAddressSize";
  static inline std::string const systemProperties = "SystemProperties";
  static inline std::string const to = "To";
  static inline std::string const useDestIdIdx = "UseDestIdIdx";
  static inline std::string const value = "Value";
  static inline std::string const writeAvgBurst = "WriteAvgBurst";
  static inline std::string const writeBW = "WriteBW";
  static inline std::string const writeLatency = "WriteLatency";
  static inline std::string const writeOrder = "WriteOrder";
  static inline std::string const writeRateLimiter = "WriteRateLimiter";
  static inline std::string const writeTC = "WriteTC";

  // The texts of "CommType": a streaming path, and a memory-mapped one by the directions it
  // carries.
  static inline std::string const streamCommType = "STRM";
  static inline std::string const readWriteCommType = "MM_ReadWrite";
  static inline std::string const readOnlyCommType = "MM_ReadOnly";
  static inline std::string const writeOnlyCommType = "MM_WriteOnly";
};

#endif
