// Reader and writer of the NoC traffic specification on a generated specification of 20,000
// instances and 150,000 paths.

#include <sstream>

#include "BenchDocuments.h"
#include "BenchSupport.h"
#include "HDGUIStatus.h"
#include "NOCJsonReadWriteUtils.h"
#include "NOCJsonTrafficSpecReader.h"
#include "NOCJsonTrafficSpecWriter.h"
#include "TrafficSpec.h"

namespace {

using HrdIPToolCntr::TrafficSpec;

std::string const& documentText() {
  static std::string const text = tarvo_bench::trafficText();
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
  tarvo_bench::fillTraffic(spec);
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
