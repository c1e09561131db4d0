// Reader and writer of project metadata on a store of 100,000 properties of every type.

#include <sstream>

#include "BenchDocuments.h"
#include "BenchSupport.h"
#include "KPEPrjMetaDataModel.h"

namespace {

using Tarvo::Frameworks::KPEPrjMetaDataModel;

std::string const& documentText() {
  static std::string const text = tarvo_bench::metadataText();
  return text;
}

void BM_MetadataRead(benchmark::State& state) {
  std::string const& text = documentText();
  auto read = [&] {
    KPEPrjMetaDataModel model;
    std::istringstream in(text);
    model.readFromJSONStream("bench.json", in);
    benchmark::DoNotOptimize(model.isEmpty());
  };
  tarvo_bench::measure(state, text.size(), tarvo_bench::floorReadSeconds(text, ""), read);
  tarvo_bench::TextFile const file("metadata.json", text);
  tarvo_bench::reportPeakMemory(state, tarvo_bench::compactSize(text), [&] {
    KPEPrjMetaDataModel model;
    model.readFromJSONFile(file.path());
  });
}

void BM_MetadataWrite(benchmark::State& state) {
  std::string const& text = documentText();
  KPEPrjMetaDataModel model;
  tarvo_bench::fillMetadata(model);
  rapidjson::Document doc;
  doc.Parse(text.c_str(), text.size());
  tarvo_bench::measure(state, text.size(), tarvo_bench::floorWriteSeconds(doc, ""), [&] {
    std::ostringstream out;
    model.writeToJSONStream(out);
    benchmark::DoNotOptimize(out.tellp());
  });
}

BENCHMARK(BM_MetadataRead)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MetadataWrite)->Unit(benchmark::kMillisecond);

}  // namespace
