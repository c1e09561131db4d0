// Reader and writer of the NoC traffic specification on a generated specification of 20,000
// instances and 150,000 paths.

#include <sstream>

#include "BenchSupport.h"
#include "HDGUIStatus.h"
#include "NOCJsonReadWriteUtils.h"
#include "NOCJsonTrafficSpecReader.h"
#include "NOCJsonTrafficSpecWriter.h"
#include "TrafficSpec.h"

namespace {

using namespace DevHrdIP::Definitions;
using HrdIPToolCntr::PerfSpec;
using HrdIPToolCntr::TrafficLInst;
using HrdIPToolCntr::TrafficPath;
using HrdIPToolCntr::TrafficSpec;

int const kMasters = 12000;
int const kSlaves = 8000;
int const kPaths = 150000;

TrafficLInst* addMaster(TrafficSpec& spec, int i) {
  std::string const name = "top/sub_" + std::to_string(i % 97) + "/master_" + std::to_string(i);
  bool const streaming = i % 5 == 0;
  TrafficLInst* master =
      spec.addLogicalInstance(name, streaming ? AXI_STRM : AXI_MM, streaming ? PL_IGU : PS_IGU_0, {{name + "_noc"}});
  master->setReadTC(static_cast<TrafficClass>(i % 4));
  master->setNumReadOutstanding(static_cast<uint16_t>(8 + i % 56));
  master->setNumWriteOutstanding(static_cast<uint16_t>(8 + i % 24));
  if (i % 3 == 0) master->setReadRateLimiter(static_cast<float>(i % 16));
  if (i % 7 == 0) master->addRemapAddrSpec(0x80000000ULL + static_cast<uint64_t>(i) * 0x1000, 0x400000000ULL, 0x1000);
  master->setIsExistDestId(true);
  master->setDestId(HrdIPToolCntr::DestIdRepr(static_cast<uint16_t>(i % 4096)));
  return master;
}

TrafficLInst* addSlave(TrafficSpec& spec, int i) {
  std::string const name = "top/mem_" + std::to_string(i % 31) + "/slave_" + std::to_string(i);
  bool const controller = i % 50 == 0;
  TrafficLInst* slave =
      spec.addLogicalInstance(name, AXI_MM, controller ? DDRC : PL_EGU, {{name + "_p0"}, {name + "_p1"}});
  if (controller) {
    spec.addPortTypeForMC(slave, PORT0);
    spec.addPortTypeForMC(slave, PORT1);
    slave->setDdrInterleaveSize(4096);
    slave->addMemoryParam("Speed", "4266");
  }
  slave->addSysAddress({static_cast<uint64_t>(i) << 24, 0x1000000});
  slave->setIsExistDestId(true);
  slave->setDestId(HrdIPToolCntr::DestIdRepr(static_cast<uint16_t>((i * 7) % 4096)));
  return slave;
}

void fill(TrafficSpec& spec) {
  spec.setFrequency(1000, true);
  spec.setDeviceName("bench_device");
  std::vector<TrafficLInst*> masters;
  std::vector<TrafficLInst*> slaves;
  for (int i = 0; i < kMasters; ++i)
    masters.push_back(addMaster(spec, i));
  for (int i = 0; i < kSlaves; ++i)
    slaves.push_back(addSlave(spec, i));
  for (int i = 0; i < kPaths; ++i) {
    TrafficPath* path = spec.addPath(masters[static_cast<std::size_t>(i) * 7919 % kMasters],
                                     slaves[static_cast<std::size_t>(i) * 104729 % kSlaves]);
    path->phase = i % 3;
    path->setSlavePort(i % 2 == 0 ? PORT0 : PORT1);
    path->setReadPerfSpec(PerfSpec(0, static_cast<uint32_t>(100 + i % 4000), static_cast<uint32_t>(300 + i % 700)));
    path->setWritePerfSpec(PerfSpec(0, static_cast<uint32_t>(50 + i % 2000), static_cast<uint32_t>(400 + i % 500)));
    path->setReadAvgBurst(static_cast<uint16_t>(16 << (i % 5)));
    path->setWriteAvgBurst(static_cast<uint16_t>(16 << (i % 4)));
    if (i % 4 == 0) path->setWoc(WO_RELAXED);
    if (i % 11 == 0) path->addDestIdIdx({static_cast<uint8_t>(i % 8), static_cast<uint8_t>(i % 8 + 2)});
    if (i % 50 == 0) {
      path->setReadPerfSpec("modes", "low", PerfSpec(0, 10, 300));
      path->setWritePerfSpec("modes", "low", PerfSpec(0, 10, 400));
    }
  }
}

std::string const& documentText() {
  static std::string const text = [] {
    TrafficSpec spec;
    fill(spec);
    HDGUIStatus status;
    std::ostringstream out;
    NOC::NOCJsonTrafficSpecWriter::writeToJsonFile(out, spec, status);
    return out.str();
  }();
  return text;
}

void BM_TrafficRead(benchmark::State& state) {
  std::string const& text = documentText();
  std::string const schema = NOCJsonReadWriteUtils::getTrafficJsonSchemaFile();
  tarvo_bench::measure(state, text.size(), tarvo_bench::floorReadSeconds(text, schema), [&] {
    TrafficSpec spec;
    HDGUIStatus status;
    std::istringstream in(text);
    NOC::NOCJsonTrafficSpecReader::readFromJsonFile(in, "bench.json", spec, status);
    benchmark::DoNotOptimize(spec.getNumPaths());
  });
  tarvo_bench::TextFile const file("traffic.json", text);
  tarvo_bench::reportPeakMemory(state, tarvo_bench::compactSize(text), [&] {
    TrafficSpec spec;
    HDGUIStatus status;
    NOC::NOCJsonTrafficSpecReader::readFromJsonFile(file.path(), spec, status);
  });
}

void BM_TrafficWrite(benchmark::State& state) {
  std::string const& text = documentText();
  TrafficSpec spec;
  fill(spec);
  rapidjson::Document doc;
  doc.Parse(text.c_str(), text.size());
  std::string const schema = NOCJsonReadWriteUtils::getTrafficJsonSchemaFile();
  tarvo_bench::measure(state, text.size(), tarvo_bench::floorWriteSeconds(doc, schema), [&] {
    HDGUIStatus status;
    std::ostringstream out;
    NOC::NOCJsonTrafficSpecWriter::writeToJsonFile(out, spec, status);
    benchmark::DoNotOptimize(out.tellp());
  });
  // Into a file, so that the text itself is not counted.
  tarvo_bench::TextFile const file("traffic_written.json", "");
  tarvo_bench::reportPeakMemory(state, tarvo_bench::compactSize(text), [&] {
    HDGUIStatus status;
    NOC::NOCJsonTrafficSpecWriter::writeToJsonFile(file.path(), spec, status);
  });
}

BENCHMARK(BM_TrafficRead)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_TrafficWrite)->Unit(benchmark::kMillisecond);

}  // namespace
