// Reader and writer of the NoC solution on a synthetic mesh of 12 x 12 switches with 2,016
// masters and 2,016 slaves: 150,000 memory-mapped paths of four nets each, every net routed
// over eight links.

#include <sstream>

#include "BenchSupport.h"
#include "HDGUIStatus.h"
#include "NOCJsonReadWriteUtils.h"
#include "NOCJsonSolutionReader.h"
#include "NOCJsonSolutionWriter.h"
#include "NocSolutionDesign.h"

namespace {

// Reads the text where it lies, as the floor does: copying it into a string stream first
// would charge the reader for the copy.
class TextStreamBuf : public std::streambuf {
 public:
  explicit TextStreamBuf(std::string const& text) {
    char* begin = const_cast<char*>(text.data());
    setg(begin, begin, begin + text.size());
  }
};

tarvo_bench::NocSolutionDesign const& solution() {
  static tarvo_bench::NocSolutionDesign const built;
  return built;
}

std::string const& documentText() {
  static std::string const text = solution().solutionText();
  return text;
}

void BM_NocSolutionRead(benchmark::State& state) {
  tarvo_bench::NocSolutionDesign const& built = solution();
  std::string const& text = documentText();
  std::string const schema = NOCJsonReadWriteUtils::getSolutionJsonSchemaFile();
  tarvo_bench::measure(state, text.size(), tarvo_bench::floorReadSeconds(text, schema), [&] {
    HrdIPToolCntr::CompRes result(*built.device);
    HDGUIStatus status;
    TextStreamBuf buffer(text);
    std::istream in(&buffer);
    NOC::NOCJsonSolutionReader::readFromJsonFile(in, "bench.json", built.spec, result, status);
    benchmark::DoNotOptimize(result.getRoutes().size());
  });
  tarvo_bench::TextFile const file("noc_solution.json", text);
  tarvo_bench::reportPeakMemory(state, tarvo_bench::compactSize(text), [&] {
    HrdIPToolCntr::CompRes result(*built.device);
    HDGUIStatus status;
    NOC::NOCJsonSolutionReader::readFromJsonFile(file.path(), built.spec, result, status);
  });
}

void BM_NocSolutionWrite(benchmark::State& state) {
  tarvo_bench::NocSolutionDesign const& built = solution();
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
