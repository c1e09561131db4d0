// Reader and writer of the logical architecture on a generated design of 2,000 instances of
// 64 ports each and 50,000 connections.

#include <sstream>

#include "BenchDocuments.h"
#include "BenchSupport.h"
#include "NOCJsonReadWriteUtils.h"
#include "TQLogicalArchModel.h"
#include "TQLogicalArchReader.h"
#include "TQLogicalArchWriter.h"

namespace {

using namespace Tarvo::Frameworks;

std::string const& documentText() {
  static std::string const text = tarvo_bench::logicalArchText();
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
  tarvo_bench::fillLogicalArch(model);
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
