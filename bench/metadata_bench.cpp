// Reader and writer of project metadata on a store of 100,000 properties of every type.

#include <sstream>

#include "BenchSupport.h"
#include "KPEPrjMetaDataModel.h"

namespace {

using Tarvo::Frameworks::KPEPrjMetaDataModel;

int const kProperties = 100000;

void fill(KPEPrjMetaDataModel& model) {
  for (int i = 0; i < kProperties; ++i) {
    std::string const name = "project.property." + std::to_string(i);
    switch (i % 6) {
      case 0: model.addBooleanProperty(name, i % 4 == 0); break;
      case 1: model.addIntegrProperty(name, i * 7 - 300000); break;
      case 2: model.addULongProperty(name, 5000000000ull + static_cast<unsigned long long>(i)); break;
      case 3: model.addStringProperty(name, "value of property " + std::to_string(i)); break;
      case 4: model.addDoubleProperty(name, i / 7.0); break;
      default: model.addStringArrayProperty(name, {"a" + std::to_string(i), "b", "c"}); break;
    }
  }
}

std::string const& documentText() {
  static std::string const text = [] {
    KPEPrjMetaDataModel model;
    fill(model);
    std::ostringstream out;
    model.writeToJSONStream(out);
    return out.str();
  }();
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
  fill(model);
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
