#include "BenchSupport.h"

#include <malloc.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/schema.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <limits>
#include <sstream>

#include "JsonDocumentFrame.h"
#include "JsonForwardingHandler.h"

namespace tarvo_bench {

namespace {

template <typename Work>
double fastest(int runs, Work work) {
  double best = std::numeric_limits<double>::max();
  for (int i = 0; i < runs; ++i) {
    double const start = cpuSeconds();
    work();
    best = std::min(best, cpuSeconds() - start);
  }
  return best;
}

std::unique_ptr<rapidjson::SchemaDocument> schemaOf(std::string const& path) {
  return path.empty() ? nullptr : JsonDocumentFrame::loadSchema(path);
}

// A field of /proc/self/status in bytes, such as "VmHWM" (peak) or "VmRSS".
std::size_t statusBytes(std::string const& field) {
  std::ifstream status("/proc/self/status");
  std::string line;
  while (std::getline(status, line)) {
    if (line.compare(0, field.size() + 1, field + ":") == 0) return std::stoull(line.substr(field.size() + 1)) * 1024;
  }
  return 0;
}

}  // namespace

double cpuSeconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

bool floorRead(std::string const& text, rapidjson::SchemaDocument const* schema) {
  rapidjson::Document doc;
  doc.Parse(text.c_str(), text.size());
  if (doc.HasParseError()) return false;
  if (!schema) return true;
  rapidjson::SchemaValidator validator(*schema);
  return doc.Accept(validator);
}

std::size_t floorWrite(rapidjson::Value const& doc, rapidjson::SchemaDocument const* schema) {
  rapidjson::StringBuffer buffer;
  rapidjson::PrettyWriter<rapidjson::StringBuffer> writer(buffer);
  writer.SetIndent(' ', 2);
  if (schema) {
    typedef JsonForwardingHandler<rapidjson::PrettyWriter<rapidjson::StringBuffer>> Forward;
    Forward forward(&writer);
    rapidjson::GenericSchemaValidator<rapidjson::SchemaDocument, Forward> validator(*schema, forward);
    doc.Accept(validator);
  } else {
    doc.Accept(writer);
  }
  return buffer.GetSize();
}

double floorReadSeconds(std::string const& text, std::string const& schemaPath, int runs) {
  auto const schema = schemaOf(schemaPath);
  return fastest(runs, [&] { benchmark::DoNotOptimize(floorRead(text, schema.get())); });
}

double floorWriteSeconds(rapidjson::Value const& doc, std::string const& schemaPath, int runs) {
  auto const schema = schemaOf(schemaPath);
  return fastest(runs, [&] { benchmark::DoNotOptimize(floorWrite(doc, schema.get())); });
}

void measure(benchmark::State& state, std::size_t bytes, double floorSeconds, std::function<void()> const& body,
             std::function<void()> const& afterEach) {
  double total = 0.0;
  for (auto _ : state) {
    double const start = cpuSeconds();
    body();
    total += cpuSeconds() - start;
    if (afterEach) {
      state.PauseTiming();
      afterEach();
      state.ResumeTiming();
    }
  }
  double const perIteration = total / static_cast<double>(state.iterations());
  state.counters["MB/s"] = benchmark::Counter(static_cast<double>(bytes) / 1e6 / perIteration);
  state.counters["ratio"] = benchmark::Counter(perIteration / floorSeconds);
  state.counters["MB"] = benchmark::Counter(static_cast<double>(bytes) / 1e6);
}

// In a child, so that the parent's own peak doesn't hide the work's: the child resets its
// peak to its current size, works, and sends back how far the peak rose.
std::size_t peakMemoryOf(std::function<void()> const& work) {
  int channel[2];
  if (pipe(channel) != 0) return 0;
  pid_t const child = fork();
  if (child == 0) {
    malloc_trim(0);  // free heap pages the benchmark loop left resident would hide new ones
    std::ofstream("/proc/self/clear_refs") << "5";
    std::size_t const before = statusBytes("VmRSS");
    work();
    std::size_t const peak = statusBytes("VmHWM");
    std::size_t const added = peak > before ? peak - before : 0;
    ssize_t const sent = write(channel[1], &added, sizeof added);
    _exit(sent == sizeof added ? 0 : 1);
  }
  std::size_t added = 0;
  if (child > 0) {
    if (read(channel[0], &added, sizeof added) != sizeof added) added = 0;
    waitpid(child, nullptr, 0);
  }
  close(channel[0]);
  close(channel[1]);
  return added;
}

void reportPeakMemory(benchmark::State& state, std::size_t textBytes, std::function<void()> const& work) {
  state.counters["peak/text"] =
      benchmark::Counter(static_cast<double>(peakMemoryOf(work)) / static_cast<double>(textBytes));
}

std::size_t compactSize(std::string const& text) {
  rapidjson::Document doc;
  doc.Parse(text.c_str(), text.size());
  rapidjson::StringBuffer buffer;
  rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
  doc.Accept(writer);
  return buffer.GetSize();
}

TextFile::TextFile(std::string const& name, std::string const& text)
    : m_path("/tmp/tarvo-bench-" + std::to_string(getpid()) + "-" + name) {
  std::ofstream(m_path, std::ios_base::binary) << text;
}

TextFile::~TextFile() {
  std::remove(m_path.c_str());
}

}  // namespace tarvo_bench
