// tarvo-bench-generate DIR [SCALE]: writes the large documents of every kind that the
// whole-process benchmark times, each with the smallest document of its kind (what the
// program's start-up is measured on) and the inputs its reader needs, plus a list of them
// (documents.tsv) with the schema the floor validates against.

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>

#include "BenchDocuments.h"
#include "ComMsgMgr.h"
#include "CompilerSolutionDesign.h"
#include "ConstrWriter.h"
#include "NOCJsonReadWriteUtils.h"
#include "NocSolutionDesign.h"

namespace {

class Output {
 public:
  explicit Output(std::string dir) : m_dir(std::move(dir)), m_list(m_dir + "/documents.tsv") {
    m_list << "# name, kind, file, empty file, schema, then the words of the options\n";
  }

  std::string write(std::string const& name, std::string const& text) const {
    std::string const path = m_dir + "/" + name;
    std::ofstream out(path, std::ios_base::binary);
    out << text;
    if (!out.flush()) throw std::runtime_error("cannot write " + path);
    return path;
  }

  // One document with its smallest one; `options` are the program's options that name its inputs.
  void add(std::string const& name, std::string const& kind, std::string const& text, std::string const& emptyText,
           std::string const& schema, std::string const& options = std::string()) {
    std::string const file = write(name + ".json", text);
    std::string const empty = write(name + "-empty.json", emptyText);
    m_list << name << "\t" << kind << "\t" << file << "\t" << empty << "\t" << schema << "\t" << options << "\n";
    std::cout << name << ": " << text.size() << " bytes\n";
  }

 private:
  std::string m_dir;
  std::ofstream m_list;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2 || argc > 3) {
    std::cerr << "usage: tarvo-bench-generate DIR [SCALE]\n";
    return 2;
  }
  double const scale = argc == 3 ? std::atof(argv[2]) : 1.0;
  if (!(scale > 0.0 && scale <= 1.0)) {
    std::cerr << "tarvo-bench-generate: SCALE must be above 0 and at most 1\n";
    return 2;
  }
  try {
    ComMsgMgr::setDefaultSinkEnabled(false);
    Output out(argv[1]);
    out.add("traffic", "traffic", tarvo_bench::trafficText(scale), tarvo_bench::trafficText(0.0),
            NOCJsonReadWriteUtils::getTrafficJsonSchemaFile());
    out.add("logical_arch", "logical-arch", tarvo_bench::logicalArchText(scale), tarvo_bench::logicalArchText(0.0),
            NOCJsonReadWriteUtils::getLogicalArchJsonSchemaFile());
    out.add("constraints", "constraints", tarvo_bench::constraintsText(tarvo_bench::scaled(20000, scale, 100)),
            tarvo_bench::constraintsText(1), kpe::constraints::ConstrWriter::findInstalledSchemaFile());
    out.add("metadata", "metadata", tarvo_bench::metadataText(scale), tarvo_bench::metadataText(0.0), "");
    {
      // The smallest solution is read against the same traffic and device, so that the
      // start-up taken off includes reading them.
      tarvo_bench::NocSolutionDesign const routed(scale, true);
      tarvo_bench::NocSolutionDesign const unrouted(scale, false);
      std::string const options = "--traffic\t" + out.write("noc_solution-traffic.json", routed.trafficText()) +
                                  "\t--device\t" +
                                  out.write("noc_solution-device.json", tarvo_bench::NocSolutionDesign::deviceText());
      out.add("noc_solution", "noc-solution", routed.solutionText(), unrouted.solutionText(),
              NOCJsonReadWriteUtils::getSolutionJsonSchemaFile(), options);
    }
    {
      tarvo_bench::CompilerSolutionDesign const placed(scale, true);
      tarvo_bench::CompilerSolutionDesign const firstPlaced(scale, false);
      std::string const options = "--arch\t" + out.write("compiler_solution-arch.json", placed.logicalArchText()) +
                                  "\t--traffic\t" + out.write("compiler_solution-traffic.json", placed.trafficText()) +
                                  "\t--device\t" + out.write("compiler_solution-device.json", placed.deviceText());
      out.add("compiler_solution", "compiler-solution", placed.text, firstPlaced.text,
              NOCJsonReadWriteUtils::getTQSolutionJsonSchemaFile(), options);
    }
  } catch (std::exception const& e) {
    std::cerr << "tarvo-bench-generate: " << e.what() << "\n";
    return 1;
  }
  return 0;
}
