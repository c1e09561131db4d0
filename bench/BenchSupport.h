#ifndef TARVO_BENCH_BENCHSUPPORT_H
#define TARVO_BENCH_BENCHSUPPORT_H

#include <benchmark/benchmark.h>

#include <rapidjson/document.h>
#include <rapidjson/schema.h>

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>

// What every benchmark reports: the throughput of a reader or writer and its ratio to the
// floor that RapidJSON itself sets for the same text: parse plus validation from memory for
// readers, the validated pretty write into a buffer for writers. An empty schema path means
// the document has no schema, and the floor is the parse or write alone.
namespace tarvo_bench {

// CPU seconds of the calling thread: on a shared machine, wall time measures the neighbours too.
double cpuSeconds();

// One parse of `text` from memory, validated against `schema` unless it is null; true when
// the text is valid.
bool floorRead(std::string const& text, rapidjson::SchemaDocument const* schema);
// One pretty write of `doc` into a buffer, through the validator of `schema` unless it is
// null; the size of the text written.
std::size_t floorWrite(rapidjson::Value const& doc, rapidjson::SchemaDocument const* schema);

// Seconds of the fastest of `runs` parses (and validations) of `text` from memory.
double floorReadSeconds(std::string const& text, std::string const& schemaPath, int runs = 3);
// Seconds of the fastest of `runs` pretty writes (through the validator) of `doc` into a buffer.
double floorWriteSeconds(rapidjson::Value const& doc, std::string const& schemaPath, int runs = 3);

// Runs the benchmark loop over `body`, then sets the counters "MB/s" (of `bytes` per
// iteration), "ratio" (our time over the floor's) and "MB" (the text size). Times are CPU
// times of the calling thread, floors included.
// `afterEach`, when given, runs after every call of `body`, outside every timing.
void measure(benchmark::State& state, std::size_t bytes, double floorSeconds, std::function<void()> const& body,
             std::function<void()> const& afterEach = {});

// Peak resident memory that `work` adds, in bytes, measured in a child process.
std::size_t peakMemoryOf(std::function<void()> const& work);
// Sets the counters "peak/text" (peak memory over `textBytes`) from peakMemoryOf(`work`).
void reportPeakMemory(benchmark::State& state, std::size_t textBytes, std::function<void()> const& work);

// The compact form of a text, for memory ratios.
std::size_t compactSize(std::string const& text);

// A file in the temporary directory holding `text`, removed when the object goes.
class TextFile {
 public:
  TextFile(std::string const& name, std::string const& text);
  ~TextFile();
  TextFile(TextFile const&) = delete;
  TextFile& operator=(TextFile const&) = delete;
  std::string const& path() const { return m_path; }

 private:
  std::string m_path;
};

}  // namespace tarvo_bench

#endif
