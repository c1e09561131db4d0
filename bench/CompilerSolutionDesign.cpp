#include "CompilerSolutionDesign.h"

#include <sstream>

#include "BenchDocuments.h"
#include "HDGUIStatus.h"
#include "TQCompilerSolutionReaderJSON.h"
#include "TQCompilerSolutionWriterJSON.h"
#include "TQLogicalArchWriter.h"

namespace tarvo_bench {

using namespace Tarvo::Frameworks;

namespace {

int const kInstances = 10;
int const kChannelsPerTile = 8;

}  // namespace

// The solution can't be filled but by reading, so the design is placed by reading a
// document that names every site once.
CompilerSolutionDesign::CompilerSolutionDesign(double scale, bool placeAll) {
  int const portsPerInstance = scaled(1000, scale, 1);
  shape = HDARShimRowShape{kInstances * portsPerInstance * 2 / kChannelsPerTile, kChannelsPerTile, 10, true};
  part = HDARShimRowGenerator::makePart(shape, "bench");
  std::ostringstream placements;
  placements << "{\"Placement\": [";
  int site = 0;
  for (int i = 0; i < kInstances; ++i) {
    std::string const instanceName = "top/graph" + std::to_string(i) + "/kpe";
    TQLogicalTQIPInstance* instance = model.addTQIPInstance(instanceName);
    for (int p = 0; p < portsPerInstance; ++p, site += 2) {
      std::string const portName = "port" + std::to_string(p);
      TQLogicalPort* port = model.addShimPort(portName, *instance);
      for (char const* mark : {"<0>_INST", "<1>_INST"}) {
        std::string const channel = instanceName + "/" + portName + mark;
        port->addTqChannelFullHierName(channel);
        traffic.addLogicalInstance(channel, DevHrdIP::Definitions::AXI_STRM, DevHrdIP::Definitions::KPE_PL_STRM_IN, {});
      }
      if (site > 0 && !placeAll) continue;
      std::string const tile = HDARShimRowGenerator::tileName(shape, site / kChannelsPerTile);
      placements << (site == 0 ? "" : ",") << "{\"LogicalInstance\": {\"InstanceName\": \"" << instanceName
                 << "\", \"PortName\": \"" << portName << "\"}, \"PhysicalInstance\": [";
      for (int c = 0; c < 2; ++c)
        placements << (c == 0 ? "" : ",") << "{\"name\": \"" << tile << "_"
                   << HDARShimRowGenerator::siteName((site + c) % kChannelsPerTile) << "\"}";
      placements << "]}";
    }
  }
  placements << "]}";
  solution = std::make_unique<KPEShimInterfaceSolution>(*part);
  std::istringstream in(placements.str());
  HDGUIStatus status;
  TQCompilerSolutionReaderJSON::readFromJsonFile(in, "placements.json", *part, model, traffic, *solution, status);
  std::ostringstream out;
  TQCompilerSolutionWriterJSON::writeToJsonFile(out, model, traffic, *solution, *part, status);
  text = out.str();
}

std::string CompilerSolutionDesign::logicalArchText() const {
  std::ostringstream out;
  TQLogicalArchWriter::writeToJsonFile(out, model);
  return out.str();
}

std::string CompilerSolutionDesign::trafficText() const {
  return writtenTraffic(traffic);
}

std::string CompilerSolutionDesign::deviceText() const {
  std::ostringstream out;
  out << "{\"name\": \"bench\", \"kpeShimRow\": {\"tiles\": [";
  char const* separator = "\n";
  for (HDARShimTile const& tile : HDARShimRowGenerator::makeShimRow(shape)) {
    out << separator << "{\"name\": \"" << tile.name << "\", \"column\": " << tile.column << ", \"sites\": [";
    for (std::size_t s = 0; s < tile.sites.size(); ++s)
      out << (s ? ", " : "") << "{\"name\": \"" << tile.sites[s].name << "\", \"column\": " << tile.sites[s].column
          << ", \"channel\": " << tile.sites[s].channel << "}";
    out << "]}";
    separator = ",\n";
  }
  out << "]}}\n";
  return out.str();
}

}  // namespace tarvo_bench
