// Constraint reader (with source positions found in the file) and writer on generated
// documents of mixed kinds with area groups: 20,000 constrained objects, and smaller sizes
// to show that the reader's time grows linearly with the document.

#include <boost/filesystem.hpp>

#include <fstream>
#include <map>
#include <memory>
#include <sstream>

#include "BenchSupport.h"
#include "ColocationConstraints.h"
#include "ComMsgMgr.h"
#include "ConstrHandler.h"
#include "ConstrReader.h"
#include "ConstrWriter.h"

namespace {

using namespace kpe::constraints;

int const kObjects = 20000;
int const kNodesPerAreaGroup = 100;

std::string node(int i) {
  return "top/graph/kernel_" + std::to_string(i);
}
std::string port(int i) {
  return "top/graph/kernel_" + std::to_string(i) + ".in[0]";
}

void addNode(ConstrHandler& store, int i) {
  std::string const name = node(i);
  if (i % 8 == 0) {
    store.setTileConstr(name, i % 50, i % 8, PhysicalSpec::TILE);
    store.addColocatedNodesConstr(BaseConstraint::NODE, name, {node(i + 2), node(i + 4)}, false);
    store.getColocatedNodesConstr(name)->setColocatedSoftNode(node(i + 4), true);
    store.setAttrConstr(BaseConstraint::NODE, name, "margin", i % 5);
  } else {
    store.setMemConstr(name, Address(i % 50, 1, 0, 64), Address(-1, -1, 1, 128));
    store.addRelativeNodesConstr(BaseConstraint::NODE, name, {{node(i + 1), HDPoint<int>(1, 0)}});
    store.setAttrConstr(BaseConstraint::NODE, name, "runtime", 0.25);
  }
}

void addPort(ConstrHandler& store, int i) {
  std::string const name = port(i);
  if (i % 8 == 1) {
    store.setBufferConstr(name, Address(i % 50, 2, 0, 0), Address(i % 50, 2, 1, 0), Address());
    store.setStreamChannelConstr(name, i % 50, 0, 1, "North");
    store.addColocatedPortsConstr(BaseConstraint::PORT, name, {port(i + 8)}, false);
  } else {
    store.setPortLocConstr(name, PhysicalSpec::SHIM, i % 50, 0, i % 2);
    store.setStreamChannelConstr(name, 2, 3, "East");
    store.addDmaFifoLocationConstr(BaseConstraint::PORT, name, PhysicalSpec::MEM, i % 50, 0, 256, 0, i % 4);
  }
}

void addAreaGroup(ConstrHandler& store, int group) {
  std::vector<std::string> nodes;
  for (int i = group * kNodesPerAreaGroup; i < (group + 1) * kNodesPerAreaGroup; i += 4)
    nodes.push_back(node(i));
  json::TileSpec low;
  low.setXY(group % 40, 0);
  json::TileSpec high;
  high.setXY(group % 40 + 9, 7);
  json::ShimSpec shim;
  shim.setColumn(group % 40);
  std::vector<PhysicalRange> ranges = {PhysicalRange(low, high), PhysicalRange(shim, PhysicalSpec())};
  store.addAreaGroupConstr("area_" + std::to_string(group), nodes, ranges, false, group % 2 == 0, true, false, false);
}

// Half the objects are nodes, three in eight are ports, one in eight are nets.
void fill(ConstrHandler& store, int objects) {
  for (int i = 0; i < objects; ++i) {
    if (i % 8 < 4)
      addNode(store, i);
    else if (i % 8 < 7)
      addPort(store, i);
    else
      store.setAttrConstr(BaseConstraint::NET, "net_" + std::to_string(i), "fifo_depth", 4);
    if (i % kNodesPerAreaGroup == kNodesPerAreaGroup - 1) addAreaGroup(store, i / kNodesPerAreaGroup);
  }
}

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
  ConstrHandler store;
  fill(store, objects);
  std::ostringstream out;
  ConstrWriter(store).write(out, "bench", true);
  store.clear();
  Document& made = documents[objects];
  made.text = out.str();
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
    fill(store, kObjects);
    store.clear();
  });
  state.counters["model/text"] = static_cast<double>(model) / static_cast<double>(compact);
}

void BM_ConstraintsWrite(benchmark::State& state) {
  ComMsgMgr::setDefaultSinkEnabled(false);
  Document const& doc = document(kObjects);
  ConstrHandler store;
  fill(store, kObjects);
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
