// Reader and writer of the logical architecture on a generated design of 2,000 instances of
// 64 ports each and 50,000 connections.

#include <sstream>

#include "BenchSupport.h"
#include "NOCJsonReadWriteUtils.h"
#include "TQLogicalArchModel.h"
#include "TQLogicalArchReader.h"
#include "TQLogicalArchWriter.h"

namespace {

using namespace Tarvo::Frameworks;

int const kInstances = 2000;
int const kPortsPerInstance = 64;
int const kConnections = 50000;

void fillPort(TQLogicalPort& port, int index) {
  bool const stream = index % 3 != 0;
  port.setType(stream ? TQLogicalConnectionDataFlowTypeEnum::Stream : TQLogicalConnectionDataFlowTypeEnum::Mem);
  port.setDirectionType(index % 2 ? TQLogicalPortDirectionTypeEnum::Master : TQLogicalPortDirectionTypeEnum::Slave);
  port.setDataWidth(index % 4 ? 64 : 128);
  if (!stream) port.setBusWidth(128);
  port.setParamIndex(static_cast<std::uint32_t>(index % kPortsPerInstance));
  port.setClkFreq(500.0 + index % 7 * 12.5);
  port.setRegisterInterface(index % 5 == 0);
  port.addAnnotation("graph.node" + std::to_string(index / 8) + ".p" + std::to_string(index % 8));
  port.addSDFIOName("io_" + std::to_string(index));
  if (index % 2) port.setTqChannel("ch" + std::to_string(index));
}

// A tenth of the instances are KPE, a tenth NoC and the rest PL, as in a design with many
// kernels in the logic.
TQLogicalArchLInst& addInstance(TQLogicalArchModel& model, int index, std::string const& name) {
  if (index % 10 == 0) return *model.addTQIPInstance(name);
  if (index % 10 == 1) return *model.addNOCIPInstance(name);
  return *model.addPLIPInstance(name);
}

TQLogicalPort* addPort(TQLogicalArchModel& model, TQLogicalArchLInst& instance, std::string const& name) {
  if (auto* kpe = dynamic_cast<TQLogicalTQIPInstance*>(&instance)) return model.addShimPort(name, *kpe);
  if (auto* noc = dynamic_cast<TQLogicalNOCIPInstance*>(&instance)) return model.addNOCPort(name, *noc);
  return model.addPLPort(name, static_cast<TQLogicalPLIPInstance&>(instance));
}

// Each connection runs from one port to one or two others.
void fill(TQLogicalArchModel& model) {
  model.setAppID("bench_app");
  model.setSchema("1.2");
  model.setDeviceModel("zv1902");
  model.setPlatform("zv1902_base");
  std::vector<TQLogicalPort*> ports;
  for (int i = 0; i < kInstances; ++i) {
    TQLogicalArchLInst& instance =
        addInstance(model, i, "design/block" + std::to_string(i / 50) + "/inst" + std::to_string(i));
    for (int p = 0; p < kPortsPerInstance; ++p) {
      TQLogicalPort* port = addPort(model, instance, "port_" + std::to_string(p));
      fillPort(*port, static_cast<int>(ports.size()));
      ports.push_back(port);
    }
  }
  for (int c = 0; c < kConnections; ++c) {
    TQLogicalConnection& connection = *model.addLogicalConnection("design/net" + std::to_string(c));
    connection.setType(c % 3 ? TQLogicalConnectionDataFlowTypeEnum::Stream : TQLogicalConnectionDataFlowTypeEnum::Mem);
    connection.setDirectionType(static_cast<TQLogicalConnectionDirectionEnum>(c % 8));
    if (c % 3 == 0) connection.setMemMode(TQLogicalConnectionMemModeEnum::ReadWrite);
    std::size_t const source = static_cast<std::size_t>(c) * 2 % ports.size();
    connection.setSrcPort(ports[source]);
    connection.addDstPort(ports[(source + 1) % ports.size()]);
    if (c % 4 == 0) connection.addDstPort(ports[(source + 7919) % ports.size()]);
  }
}

std::string const& documentText() {
  static std::string const text = [] {
    TQLogicalArchModel model;
    fill(model);
    std::ostringstream out;
    TQLogicalArchWriter::writeToJsonFile(out, model);
    return out.str();
  }();
  return text;
}

void BM_LogicalArchRead(benchmark::State& state) {
  std::string const& text = documentText();
  std::string const schema = NOCJsonReadWriteUtils::getLogicalArchJsonSchemaFile();
  tarvo_bench::measure(state, text.size(), tarvo_bench::floorReadSeconds(text, schema), [&] {
    TQLogicalArchModel model;
    std::istringstream in(text);
    TQLogicalArchReader::readFromJsonFile(in, "bench.json", model);
    benchmark::DoNotOptimize(model.isEmpty());
  });
  tarvo_bench::TextFile const file("logical_arch.json", text);
  tarvo_bench::reportPeakMemory(state, tarvo_bench::compactSize(text), [&] {
    TQLogicalArchModel model;
    TQLogicalArchReader::readFromJsonFile(file.path(), model);
  });
}

void BM_LogicalArchWrite(benchmark::State& state) {
  std::string const& text = documentText();
  TQLogicalArchModel model;
  fill(model);
  rapidjson::Document doc;
  doc.Parse(text.c_str(), text.size());
  std::string const schema = NOCJsonReadWriteUtils::getLogicalArchJsonSchemaFile();
  tarvo_bench::measure(state, text.size(), tarvo_bench::floorWriteSeconds(doc, schema), [&] {
    std::ostringstream out;
    TQLogicalArchWriter::writeToJsonFile(out, model);
    benchmark::DoNotOptimize(out.tellp());
  });
}

BENCHMARK(BM_LogicalArchRead)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LogicalArchWrite)->Unit(benchmark::kMillisecond);

}  // namespace
