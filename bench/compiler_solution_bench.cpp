// Reader and writer of the KPE compiler solution on a design of 10,000 placed two-channel
// ports in 10 KPE instances, on a shim row of 2,500 tiles with 8 channels each.

#include <memory>
#include <sstream>
#include <streambuf>

#include "BenchSupport.h"
#include "GRMOracle.h"
#include "HDARShimRowGenerator.h"
#include "HDGUIStatus.h"
#include "KPEShimInterfaceSolution.h"
#include "NOCJsonReadWriteUtils.h"
#include "TQCompilerSolutionReaderJSON.h"
#include "TQCompilerSolutionWriterJSON.h"
#include "TQLogicalArchModel.h"
#include "TrafficSpec.h"

namespace {

using namespace Tarvo::Frameworks;

int const kInstances = 10;
int const kPortsPerInstance = 1000;
int const kChannelsPerTile = 8;

// The solution can't be filled but by reading, so the design is placed by reading a
// document that names every site once.
struct BenchDesign {
  BenchDesign() {
    HDARShimRowShape const shape{kInstances * kPortsPerInstance * 2 / kChannelsPerTile, kChannelsPerTile, 10, true};
    part = HDARShimRowGenerator::makePart(shape, "bench");
    std::ostringstream placements;
    placements << "{\"Placement\": [";
    int site = 0;
    for (int i = 0; i < kInstances; ++i) {
      std::string const instanceName = "top/graph" + std::to_string(i) + "/kpe";
      TQLogicalTQIPInstance* instance = model.addTQIPInstance(instanceName);
      for (int p = 0; p < kPortsPerInstance; ++p, site += 2) {
        std::string const portName = "port" + std::to_string(p);
        TQLogicalPort* port = model.addShimPort(portName, *instance);
        for (char const* mark : {"<0>_INST", "<1>_INST"}) {
          std::string const channel = instanceName + "/" + portName + mark;
          port->addTqChannelFullHierName(channel);
          traffic.addLogicalInstance(channel, DevHrdIP::Definitions::AXI_STRM, DevHrdIP::Definitions::KPE_PL_STRM_IN,
                                     {});
        }
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

  std::unique_ptr<HDARPart> part;
  TQLogicalArchModel model;
  HrdIPToolCntr::TrafficSpec traffic;
  std::unique_ptr<KPEShimInterfaceSolution> solution;
  std::string text;
};

// Takes the written text and keeps only its length, as the floor's buffer does no more.
class CountingBuffer : public std::streambuf {
 public:
  std::streamsize count() const { return m_count; }

 protected:
  std::streamsize xsputn(char const*, std::streamsize n) override {
    m_count += n;
    return n;
  }
  int overflow(int c) override {
    ++m_count;
    return c;
  }

 private:
  std::streamsize m_count = 0;
};

BenchDesign const& design() {
  static BenchDesign const instance;
  return instance;
}

void BM_CompilerSolutionRead(benchmark::State& state) {
  BenchDesign const& d = design();
  std::string const schema = NOCJsonReadWriteUtils::getTQSolutionJsonSchemaFile();
  auto read = [&](std::istream& in) {
    KPEShimInterfaceSolution solution(*d.part);
    HDGUIStatus status;
    TQCompilerSolutionReaderJSON::readFromJsonFile(in, "bench.json", *d.part, d.model, d.traffic, solution, status);
    benchmark::DoNotOptimize(solution.empty());
  };
  tarvo_bench::measure(state, d.text.size(), tarvo_bench::floorReadSeconds(d.text, schema), [&] {
    std::istringstream in(d.text);
    read(in);
  });
  tarvo_bench::TextFile const file("compiler_solution.json", d.text);
  tarvo_bench::reportPeakMemory(state, tarvo_bench::compactSize(d.text), [&] {
    KPEShimInterfaceSolution solution(*d.part);
    HDGUIStatus status;
    TQCompilerSolutionReaderJSON::readFromJsonFile(file.path(), *d.part, d.model, d.traffic, solution, status);
  });
}

void BM_CompilerSolutionWrite(benchmark::State& state) {
  BenchDesign const& d = design();
  rapidjson::Document doc;
  doc.Parse(d.text.c_str(), d.text.size());
  double const floor = tarvo_bench::floorWriteSeconds(doc, NOCJsonReadWriteUtils::getTQSolutionJsonSchemaFile());
  tarvo_bench::measure(state, d.text.size(), floor, [&] {
    CountingBuffer buffer;
    std::ostream out(&buffer);
    HDGUIStatus status;
    TQCompilerSolutionWriterJSON::writeToJsonFile(out, d.model, d.traffic, *d.solution, *d.part, status);
    benchmark::DoNotOptimize(buffer.count());
  });
}

BENCHMARK(BM_CompilerSolutionRead)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CompilerSolutionWrite)->Unit(benchmark::kMillisecond);

}  // namespace
