// Constraint reader (with source positions found in the file) and writer on generated
// documents of mixed kinds with area groups: 20,000 constrained objects, and smaller sizes
// to show that the reader's time grows linearly with the document.

#include <boost/filesystem.hpp>

#include <fstream>
#include <map>
#include <memory>
#include <sstream>

#include "BenchDocuments.h"
#include "BenchSupport.h"
#include "ComMsgMgr.h"
#include "ConstrHandler.h"
#include "ConstrReader.h"
#include "ConstrWriter.h"

namespace {

using namespace kpe::constraints;

int const kObjects = 20000;

// The written document of `objects` objects, kept in a file for the reader to search.
struct Document {
  ~Document() {
    boost::system::error_code ignored;
    if (!file.empty()) boost::filesystem::remove(file, ignored);
  }
  std::string text;
  std::string file;
};

Document const& document(int objects) {
  static std::map<int, Document> documents;
  auto found = documents.find(objects);
  if (found != documents.end()) return found->second;
  Document& made = documents[objects];
  made.text = tarvo_bench::constraintsText(objects);
  made.file =
      (boost::filesystem::temp_directory_path() / boost::filesystem::unique_path("constraints-bench-%%%%%%%%.json"))
          .string();
  std::ofstream(made.file, std::ios_base::binary) << made.text;
  return made;
}

// The store is emptied after each read, outside the timing: clearing is the store's work,
// not the reader's. The next read then reuses the memory, as every floor run after the first
// reuses the memory of the document before it.
class ReadStore {
 public:
  ~ReadStore() { m_store.clear(); }
  void read(std::string const& file) {
    ConstrReader(m_store).read(file, true);
    benchmark::DoNotOptimize(m_store.size());
  }
  void clear() { m_store.clear(); }

 private:
  ConstrHandler m_store;
};

void BM_ConstraintsRead(benchmark::State& state) {
  ComMsgMgr::setDefaultSinkEnabled(false);
  Document const& doc = document(static_cast<int>(state.range(0)));
  std::string const schema = ConstrWriter::findInstalledSchemaFile();
  double const floor = tarvo_bench::floorReadSeconds(doc.text, schema);
  {
    ReadStore store;
    tarvo_bench::measure(
        state, doc.text.size(), floor, [&] { store.read(doc.file); }, [&] { store.clear(); });
  }
  state.SetComplexityN(state.range(0));
  if (state.range(0) != kObjects) return;
  std::size_t const compact = tarvo_bench::compactSize(doc.text);
  tarvo_bench::reportPeakMemory(state, compact, [&] { ReadStore().read(doc.file); });
  // The filled store alone, for comparison: most of the reader's peak is the model it fills.
  std::size_t const model = tarvo_bench::peakMemoryOf([] {
    ConstrHandler store;
    tarvo_bench::fillConstraints(store, kObjects);
    store.clear();
  });
  state.counters["model/text"] = static_cast<double>(model) / static_cast<double>(compact);
}

void BM_ConstraintsWrite(benchmark::State& state) {
  ComMsgMgr::setDefaultSinkEnabled(false);
  Document const& doc = document(kObjects);
  ConstrHandler store;
  tarvo_bench::fillConstraints(store, kObjects);
  rapidjson::Document parsed;
  parsed.Parse(doc.text.c_str(), doc.text.size());
  tarvo_bench::measure(state, doc.text.size(),
                       tarvo_bench::floorWriteSeconds(parsed, ConstrWriter::findInstalledSchemaFile()), [&] {
                         std::ostringstream out;
                         ConstrWriter(store).write(out, "bench", true);
                         benchmark::DoNotOptimize(out.tellp());
                       });
  store.clear();
}

BENCHMARK(BM_ConstraintsRead)
    ->Arg(kObjects / 8)
    ->Arg(kObjects / 4)
    ->Arg(kObjects / 2)
    ->Arg(kObjects)
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ConstraintsWrite)->Unit(benchmark::kMillisecond);

}  // namespace
