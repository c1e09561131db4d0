// Reader and writer of the KPE compiler solution on a design of 10,000 placed two-channel
// ports in 10 KPE instances, on a shim row of 2,500 tiles with 8 channels each.

#include <sstream>
#include <streambuf>

#include "BenchSupport.h"
#include "CompilerSolutionDesign.h"
#include "HDGUIStatus.h"
#include "KPEShimInterfaceSolution.h"
#include "NOCJsonReadWriteUtils.h"
#include "TQCompilerSolutionReaderJSON.h"
#include "TQCompilerSolutionWriterJSON.h"

namespace {

using namespace Tarvo::Frameworks;

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

tarvo_bench::CompilerSolutionDesign const& design() {
  static tarvo_bench::CompilerSolutionDesign const instance;
  return instance;
}

void BM_CompilerSolutionRead(benchmark::State& state) {
  tarvo_bench::CompilerSolutionDesign const& d = design();
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
  tarvo_bench::CompilerSolutionDesign const& d = design();
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
