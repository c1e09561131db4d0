// tarvo-bench-floor FILE SCHEMA RUNS: the floor that the whole-process benchmark holds the
// program to, on the text of FILE read into memory first. Prints three numbers: the median
// CPU seconds of a parse plus validation against SCHEMA (empty: the parse alone), the median
// CPU seconds of that plus the validated pretty write into a buffer, and the size of the
// text written compactly.

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <sstream>
#include <vector>

#include "BenchSupport.h"
#include "JsonDocumentFrame.h"

namespace {

template <typename Work>
double median(int runs, Work work) {
  std::vector<double> times;
  for (int i = 0; i < runs; ++i) {
    double const start = tarvo_bench::cpuSeconds();
    work();
    times.push_back(tarvo_bench::cpuSeconds() - start);
  }
  std::sort(times.begin(), times.end());
  return times[times.size() / 2];
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4 || std::atoi(argv[3]) < 1) {
    std::cerr << "usage: tarvo-bench-floor FILE SCHEMA RUNS\n";
    return 2;
  }
  std::ifstream in(argv[1], std::ios_base::binary);
  std::ostringstream content;
  content << in.rdbuf();
  std::string const text = content.str();
  std::string const schemaPath = argv[2];
  auto const schema = schemaPath.empty() ? nullptr : JsonDocumentFrame::loadSchema(schemaPath);
  if (!in || !tarvo_bench::floorRead(text, schema.get())) {
    std::cerr << "tarvo-bench-floor: " << argv[1] << " is not a valid document\n";
    return 1;
  }
  int const runs = std::atoi(argv[3]);
  std::size_t written = 0;
  double const read = median(runs, [&] { tarvo_bench::floorRead(text, schema.get()); });
  double const convert = median(runs, [&] {
    rapidjson::Document doc;
    doc.Parse(text.c_str(), text.size());
    if (schema) {
      rapidjson::SchemaValidator validator(*schema);
      doc.Accept(validator);
    }
    written += tarvo_bench::floorWrite(doc, schema.get());
  });
  rapidjson::Document doc;
  doc.Parse(text.c_str(), text.size());
  rapidjson::StringBuffer compact;
  rapidjson::Writer<rapidjson::StringBuffer> writer(compact);
  doc.Accept(writer);
  std::cout << read << " " << convert << " " << compact.GetSize() << "\n";
  return written > 0 ? 0 : 1;
}
