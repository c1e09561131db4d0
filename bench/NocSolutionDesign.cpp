#include "NocSolutionDesign.h"

#include <sstream>
#include <vector>

#include "BenchDocuments.h"
#include "HDGUIStatus.h"
#include "NOCJsonSolutionWriter.h"

namespace tarvo_bench {

using namespace DevHrdIP::Definitions;
using DevHrdIP::NOCMeshGenerator;
using DevHrdIP::NOCMeshUnit;
using HrdIPToolCntr::CompRes;
using HrdIPToolCntr::DestIdRepr;
using HrdIPToolCntr::PerfSpec;
using HrdIPToolCntr::TrafficLInst;
using HrdIPToolCntr::TrafficNet;
using HrdIPToolCntr::TrafficPath;

// Twelve switches each way leave room for six steps from every switch in both directions.
DevHrdIP::NOCMeshShape const NocSolutionDesign::kShape{12, 12, 14, 14};

NocSolutionDesign::NocSolutionDesign(double scale, bool routed)
    : device(NOCMeshGenerator::makeMesh(kShape, "bench_mesh")), result(new CompRes(*device)) {
  std::vector<NOCMeshUnit> masters;
  std::vector<NOCMeshUnit> slaves;
  for (int y = 0; y < kShape.rows; ++y)
    for (int x = 0; x < kShape.columns; ++x)
      for (int i = 0; i < kShape.mastersPerSwitch; ++i) {
        masters.push_back({x, y, true, i});
        slaves.push_back({x, y, false, i});
      }
  for (NOCMeshUnit const& unit : slaves)
    addInstance(unit, PL_EGU);
  std::vector<TrafficLInst*> masterInstances;
  for (NOCMeshUnit const& unit : masters)
    masterInstances.push_back(addInstance(unit, PL_IGU));
  int const paths = scaled(150000, scale);
  for (int p = 0; p < paths; ++p) {
    std::size_t const m = static_cast<std::size_t>(p) % masters.size();
    addPath(masters[m], masterInstances[m], p / static_cast<int>(masters.size()), routed);
  }
}

TrafficLInst* NocSolutionDesign::addInstance(NOCMeshUnit const& unit, COMP_TYPE type) {
  std::string const name = "top/" + unit.name();
  TrafficLInst* instance = spec.addLogicalInstance(name, AXI_MM, type, {{name + "_noc"}});
  DevHrdIP::Component const* component = device->getNOCModel()->getComponent(unit.name());
  result->bindLogicalToPhysical(instance, component);
  result->setComponentDestId(component, DestIdRepr(static_cast<uint16_t>(spec.getAllLogicalInstance().size())));
  return instance;
}

// The j-th path of a master goes to a slave six switches away, along one of the seven
// splits of those six steps between the row and the column.
void NocSolutionDesign::addPath(NOCMeshUnit const& from, TrafficLInst* master, int j, bool routed) {
  int const alongRow = j % 7;
  int const dx = from.x + alongRow < kShape.columns ? alongRow : -alongRow;
  int const dy = from.y + (6 - alongRow) < kShape.rows ? 6 - alongRow : alongRow - 6;
  NOCMeshUnit const to{from.x + dx, from.y + dy, false, (from.index + j / 7) % kShape.slavesPerSwitch};
  TrafficPath* path = spec.addPath(master, spec.getLogicalSlave("top/" + to.name()));
  path->setSlavePort(PORT0);
  path->setReadPerfSpec(PerfSpec(0, static_cast<uint32_t>(100 + j * 10), 300));
  path->setWritePerfSpec(PerfSpec(0, static_cast<uint32_t>(50 + j * 5), 400));
  if (!routed) return;
  auto const request = NOCMeshGenerator::routeXY(*device->getNOCModel(), from, to);
  auto const response = NOCMeshGenerator::routeXY(*device->getNOCModel(), to, from);
  for (int n = 0; n < path->getNumNets(); ++n) {
    TrafficNet::NetType const type = path->getNet(n)->getType();
    bool const answers = type == TrafficNet::READ || type == TrafficNet::WRITE_RESP;
    result->addRoute(path->getNet(n), answers ? response : request, static_cast<unsigned char>(n), 90, j % 9 == 0);
  }
  if (j % 2 == 0) result->setPathReadAchieved(path, 40, 95);
  if (j % 3 == 0) result->setPathWriteAchieved(path, 45, 48);
}

std::string NocSolutionDesign::solutionText() const {
  HDGUIStatus status;
  std::ostringstream out;
  NOC::NOCJsonSolutionWriter::writeToJsonFile(out, spec, *result, status);
  return out.str();
}

std::string NocSolutionDesign::trafficText() const {
  return writtenTraffic(spec);
}

// The same switches, units and links as NOCMeshGenerator::makeMesh makes, in its order.
std::string NocSolutionDesign::deviceText() {
  std::ostringstream components;
  std::ostringstream links;
  auto link = [&links](std::string const& from, std::string const& fromPort, std::string const& to,
                       std::string const& toPort, int latency) {
    for (int back = 0; back < 2; ++back) {
      links << (links.tellp() > 0 ? ",\n" : "") << "{\"from\": \"" << (back ? to : from) << "\", \"fromPort\": \""
            << (back ? toPort : fromPort) << "\", \"to\": \"" << (back ? from : to) << "\", \"toPort\": \""
            << (back ? fromPort : toPort) << "\", \"latency\": " << latency << "}";
    }
  };
  for (int y = 0; y < kShape.rows; ++y) {
    for (int x = 0; x < kShape.columns; ++x) {
      std::string const sw = NOCMeshGenerator::switchName(x, y);
      components << (components.tellp() > 0 ? ",\n" : "") << "{\"name\": \"" << sw << "\", \"type\": \"NSW\"}";
      if (x > 0) link(NOCMeshGenerator::switchName(x - 1, y), "E", sw, "W", 2);
      if (y > 0) link(NOCMeshGenerator::switchName(x, y - 1), "N", sw, "S", 2);
      for (bool master : {true, false}) {
        int const count = master ? kShape.mastersPerSwitch : kShape.slavesPerSwitch;
        for (int index = 0; index < count; ++index) {
          NOCMeshUnit const unit{x, y, master, index};
          components << ",\n{\"name\": \"" << unit.name() << "\", \"type\": \"" << (master ? "PL_IGU" : "PL_EGU")
                     << "\"}";
          link(unit.name(), "P", sw, unit.switchPort(), 1);
        }
      }
    }
  }
  return "{\"name\": \"bench_mesh\", \"noc\": {\"components\": [\n" + components.str() + "],\n\"links\": [\n" +
         links.str() + "]}}\n";
}

}  // namespace tarvo_bench
