#ifndef TARVO_NOCSOLUTIONDOCUMENTKEYS_H
#define TARVO_NOCSOLUTIONDOCUMENTKEYS_H

#include <string>

// The format of the NoC solution document, shared by its reader and writer: the keys, the
// texts of the solution state and of the net types. Keys are strings so that building and
// reading a large document makes no temporary copies of them.
struct NOCSolutionDocumentKeys {
  // Root.
  static inline std::string const solutionType = "SolutionType";
  static inline std::string const lockAllDestIds = "LockAllDestIds";
  static inline std::string const paths = "Paths";
  static inline std::string const components = "Components";

  // Paths.
  static inline std::string const phase = "Phase";
  static inline std::string const from = "From";
  static inline std::string const fromLocked = "FromLocked";
  static inline std::string const to = "To";
  static inline std::string const toLocked = "ToLocked";
  static inline std::string const port = "Port";
  static inline std::string const readTC = "ReadTC";
  static inline std::string const writeTC = "WriteTC";
  static inline std::string const readBW = "ReadBW";
  static inline std::string const writeBW = "WriteBW";
  static inline std::string const readAchievedBW = "ReadAchievedBW";
  static inline std::string const writeAchievedBW = "WriteAchievedBW";
  static inline std::string const readLatency = "ReadLatency";
  static inline std::string const writeLatency = "WriteLatency";
  static inline std::string const readBestPossibleLatency = "ReadBestPossibleLatency";
  static inline std::string const writeBestPossibleLatency = "WriteBestPossibleLatency";
  static inline std::string const pathLocked = "PathLocked";
  static inline std::string const nets = "Nets";

  // Nets.
  static inline std::string const phyInstanceStart = "PhyInstanceStart";
  static inline std::string const phyInstanceEnd = "PhyInstanceEnd";
  static inline std::string const vc = "VC";
  static inline std::string const commType = "CommType";
  static inline std::string const connections = "Connections";
  static inline std::string const requiredBW = "RequiredBW";
  static inline std::string const achievedBW = "AchievedBW";
  static inline std::string const requiredLatency = "RequiredLatency";
  static inline std::string const achievedLatency = "AchievedLatency";

  // Components.
  static inline std::string const name = "Name";
  static inline std::string const trafficLInst = "TrafficLInst";
  static inline std::string const destId = "DestId";
  static inline std::string const portIndex = "PortIndex";

  // Solution states 0 to 3; every other value writes as "NO_SOLUTION".
  static char const* solutionTypeText(int state) {
    switch (state) {
      case 1:
        return "OPTIMAL";
      case 2:
        return "SUBOPTIMAL";
      case 3:
        return "DEADLOCKS";
      default:
        return "NO_SOLUTION";
    }
  }

  // Net types 0 to 2; every other value writes as "WRITE_RESP".
  static char const* commTypeText(int netType) {
    switch (netType) {
      case 0:
        return "READ";
      case 1:
        return "WRITE";
      case 2:
        return "READ_REQ";
      default:
        return "WRITE_RESP";
    }
  }

  // Unknown texts give 4, which is no net type.
  static int commTypeOf(std::string const& text) {
    if (text == "READ") return 0;
    if (text == "WRITE") return 1;
    if (text == "READ_REQ") return 2;
    if (text == "WRITE_RESP") return 3;
    return 4;
  }
};

#endif
