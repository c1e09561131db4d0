#include "LogicalArchWriterModelRenamer.h"

#include <cstdio>

#include "TQLogicalArchLInst.h"
#include "TQLogicalConnection.h"
#include "TQLogicalPort.h"

using namespace Tarvo::Frameworks;

namespace {

// The name form of each counter: 0 for PL ports, 1 to 4 for NoC ports, 5 to 8 for KPE ports
// with hardware names, 9 to 16 for KPE ports named after both sides of the connection.
char const* const kNameForms[] = {"port%d",         "S%02d_AXI",     "S%02d_AXIS",     "M%02d_AXI",    "M%02d_AXIS",
                                  "S%02d_AXI",      "S%02d_AXIS",    "M%02d_AXI",      "M%02d_AXIS",   "NOC_TQ_AXI_%d",
                                  "NOC_TQ_AXIS_%d", "TQ_NOC_AXI_%d", "TQ_NOC_AXIS_%d", "PL_TQ_AXI_%d", "PL_TQ_AXIS_%d",
                                  "TQ_PL_AXI_%d",   "TQ_PL_AXIS_%d"};
static_assert(sizeof(kNameForms) / sizeof(kNameForms[0]) ==
                  std::tuple_size<LogicalArchWriterModelRenamer::portCounters>::value,
              "one name form per counter");

int const kKeepName = -1;
int const kPLCounter = 0;

// Counters of a KPE port by the direction of its connection.
struct KPECounters {
  TQLogicalConnectionDirectionEnum direction;
  int hardwareMem, hardwareStream, namedMem, namedStream;
};

KPECounters const kKPECounters[] = {
    {TQLogicalConnectionDirectionEnum::KpeToPl, 7, 8, 15, 16},
    {TQLogicalConnectionDirectionEnum::PlToKpe, 5, 6, 13, 14},
    {TQLogicalConnectionDirectionEnum::KpeToNoc, 7, 8, 11, 12},
    {TQLogicalConnectionDirectionEnum::NocToKpe, 5, 6, 9, 10},
};

bool isStreamOrMem(TQLogicalPort const& port) {
  return port.getType() == TQLogicalConnectionDataFlowTypeEnum::Stream ||
         port.getType() == TQLogicalConnectionDataFlowTypeEnum::Mem;
}

bool isStream(TQLogicalPort const& port) {
  return port.getType() == TQLogicalConnectionDataFlowTypeEnum::Stream;
}

std::string formatName(int counter, std::uint32_t value) {
  char buffer[48];
  std::snprintf(buffer, sizeof buffer, kNameForms[counter], static_cast<int>(value));
  return buffer;
}

}  // namespace

std::string LogicalArchWriterModelRenamer::renameModel(TQLogicalArchModel&) {
  return std::string();
}

std::string LogicalArchWriterModelRenamer::renameInstance(TQLogicalArchLInst& instance) {
  return instance.getName();
}

std::string LogicalArchWriterModelRenamer::renameConnection(TQLogicalConnection& connection) {
  return connection.getName();
}

std::string LogicalArchWriterModelRenamer::renamePort(TQLogicalPort& port) {
  int const counter = counterFor(port);
  if (counter != kKeepName) {
    std::uint32_t& value = m_counters[port.getParentInstance()][static_cast<std::size_t>(counter)];
    port.setName(formatName(counter, value));
    ++value;
  }
  return port.getName();
}

int LogicalArchWriterModelRenamer::counterFor(TQLogicalPort const& port) const {
  TQLogicalArchLInst const* instance = port.getParentInstance();
  if (instance == nullptr) return kKeepName;
  switch (instance->getType()) {
    case TQLogicalInstanceType::PLIP:
      return kPLCounter;
    case TQLogicalInstanceType::NOCIP:
      return nocCounterFor(port);
    case TQLogicalInstanceType::KPEIP:
      return kpeCounterFor(port);
    default:
      return kKeepName;
  }
}

// A NoC port is a slave where data enters the NoC and a master where it leaves.
int LogicalArchWriterModelRenamer::nocCounterFor(TQLogicalPort const& port) const {
  TQLogicalConnection const* connection = port.getLogicalConnection();
  if (connection == nullptr || !isStreamOrMem(port)) return kKeepName;
  switch (connection->getDirectionType()) {
    case TQLogicalConnectionDirectionEnum::KpeToNoc:
    case TQLogicalConnectionDirectionEnum::PlToNoc:
      return isStream(port) ? 2 : 1;
    case TQLogicalConnectionDirectionEnum::NocToKpe:
    case TQLogicalConnectionDirectionEnum::NocToPl:
      return isStream(port) ? 4 : 3;
    default:
      return kKeepName;
  }
}

int LogicalArchWriterModelRenamer::kpeCounterFor(TQLogicalPort const& port) const {
  TQLogicalConnection const* connection = port.getLogicalConnection();
  if (connection == nullptr || !isStreamOrMem(port)) return kKeepName;
  for (KPECounters const& row : kKPECounters) {
    if (row.direction != connection->getDirectionType()) continue;
    if (m_hardwareNames) return isStream(port) ? row.hardwareStream : row.hardwareMem;
    return isStream(port) ? row.namedStream : row.namedMem;
  }
  return kKeepName;
}
