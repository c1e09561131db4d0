// Reader and writer of the NoC solution on a synthetic mesh of 12 x 12 switches with 2,016
// masters and 2,016 slaves: 150,000 memory-mapped paths of four nets each, every net routed
// over eight links.

#include <memory>
#include <sstream>

#include "BenchSupport.h"
#include "CompRes.h"
#include "HDGUIStatus.h"
#include "NOCJsonReadWriteUtils.h"
#include "NOCJsonSolutionReader.h"
#include "NOCJsonSolutionWriter.h"
#include "NOCMeshGenerator.h"
#include "TrafficSpec.h"

namespace {

using namespace DevHrdIP::Definitions;
using DevHrdIP::HIPDevice;
using DevHrdIP::NOCMeshGenerator;
using DevHrdIP::NOCMeshShape;
using DevHrdIP::NOCMeshUnit;
using HrdIPToolCntr::CompRes;
using HrdIPToolCntr::DestIdRepr;
using HrdIPToolCntr::PerfSpec;
using HrdIPToolCntr::TrafficLInst;
using HrdIPToolCntr::TrafficNet;
using HrdIPToolCntr::TrafficPath;
using HrdIPToolCntr::TrafficSpec;

// Twelve switches each way leave room for six steps from every switch in both directions.
NOCMeshShape const kShape{12, 12, 14, 14};
int const kPaths = 150000;

// The traffic, its device and a routed result, built once.
struct Solution {
  std::unique_ptr<HIPDevice> device = NOCMeshGenerator::makeMesh(kShape, "bench_mesh");
  TrafficSpec spec;
  std::unique_ptr<CompRes> result;

  Solution() : result(new CompRes(*device)) {
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
    for (int p = 0; p < kPaths; ++p) {
      std::size_t const m = static_cast<std::size_t>(p) % masters.size();
      addPath(masters[m], masterInstances[m], p / static_cast<int>(masters.size()));
    }
  }

  TrafficLInst* addInstance(NOCMeshUnit const& unit, COMP_TYPE type) {
    std::string const name = "top/" + unit.name();
    TrafficLInst* instance = spec.addLogicalInstance(name, AXI_MM, type, {{name + "_noc"}});
    DevHrdIP::Component const* component = device->getNOCModel()->getComponent(unit.name());
    result->bindLogicalToPhysical(instance, component);
    result->setComponentDestId(component, DestIdRepr(static_cast<uint16_t>(spec.getAllLogicalInstance().size())));
    return instance;
  }

  // The j-th path of a master goes to a slave six switches away, along one of the seven
  // splits of those six steps between the row and the column.
  void addPath(NOCMeshUnit const& from, TrafficLInst* master, int j) {
    int const alongRow = j % 7;
    int const dx = from.x + alongRow < kShape.columns ? alongRow : -alongRow;
    int const dy = from.y + (6 - alongRow) < kShape.rows ? 6 - alongRow : alongRow - 6;
    NOCMeshUnit const to{from.x + dx, from.y + dy, false, (from.index + j / 7) % kShape.slavesPerSwitch};
    TrafficPath* path = spec.addPath(master, spec.getLogicalSlave("top/" + to.name()));
    path->setSlavePort(PORT0);
    path->setReadPerfSpec(PerfSpec(0, static_cast<uint32_t>(100 + j * 10), 300));
    path->setWritePerfSpec(PerfSpec(0, static_cast<uint32_t>(50 + j * 5), 400));
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
};

// Reads the text where it lies, as the floor does: copying it into a string stream first
// would charge the reader for the copy.
class TextStreamBuf : public std::streambuf {
 public:
  explicit TextStreamBuf(std::string const& text) {
    char* begin = const_cast<char*>(text.data());
    setg(begin, begin, begin + text.size());
  }
};

Solution const& solution() {
  static Solution const built;
  return built;
}

std::string const& documentText() {
  static std::string const text = [] {
    HDGUIStatus status;
    std::ostringstream out;
    NOC::NOCJsonSolutionWriter::writeToJsonFile(out, solution().spec, *solution().result, status);
    return out.str();
  }();
  return text;
}

void BM_NocSolutionRead(benchmark::State& state) {
  Solution const& built = solution();
  std::string const& text = documentText();
  std::string const schema = NOCJsonReadWriteUtils::getSolutionJsonSchemaFile();
  tarvo_bench::measure(state, text.size(), tarvo_bench::floorReadSeconds(text, schema), [&] {
    CompRes result(*built.device);
    HDGUIStatus status;
    TextStreamBuf buffer(text);
    std::istream in(&buffer);
    NOC::NOCJsonSolutionReader::readFromJsonFile(in, "bench.json", built.spec, result, status);
    benchmark::DoNotOptimize(result.getRoutes().size());
  });
  tarvo_bench::TextFile const file("noc_solution.json", text);
  tarvo_bench::reportPeakMemory(state, tarvo_bench::compactSize(text), [&] {
    CompRes result(*built.device);
    HDGUIStatus status;
    NOC::NOCJsonSolutionReader::readFromJsonFile(file.path(), built.spec, result, status);
  });
}

void BM_NocSolutionWrite(benchmark::State& state) {
  Solution const& built = solution();
  std::string const& text = documentText();
  std::string const schema = NOCJsonReadWriteUtils::getSolutionJsonSchemaFile();
  double floor = 0;
  {
    rapidjson::Document doc;
    doc.Parse(text.c_str(), text.size());
    floor = tarvo_bench::floorWriteSeconds(doc, schema);
  }
  tarvo_bench::measure(state, text.size(), floor, [&] {
    HDGUIStatus status;
    std::ostringstream out;
    NOC::NOCJsonSolutionWriter::writeToJsonFile(out, built.spec, *built.result, status);
    benchmark::DoNotOptimize(out.tellp());
  });
  // Into a file, so that the peak is the writer's own and not that of a copy of its text.
  tarvo_bench::TextFile const file("noc_solution_written.json", "");
  tarvo_bench::reportPeakMemory(state, tarvo_bench::compactSize(text), [&] {
    HDGUIStatus status;
    NOC::NOCJsonSolutionWriter::writeToJsonFile(file.path(), built.spec, *built.result, status);
  });
}

BENCHMARK(BM_NocSolutionRead)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_NocSolutionWrite)->Unit(benchmark::kMillisecond);

}  // namespace
