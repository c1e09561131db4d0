#include "DiagnosticsTestSupport.h"

#include "ConstrHandler.h"
#include "ConstrReader.h"
#include "HDGUIStatus.h"
#include "HEXAll.h"
#include "NOCJsonConstraintsReader.h"
#include "NOCJsonTrafficSpecReader.h"
#include "TQLogicalArchModel.h"
#include "TQLogicalArchReader.h"
#include "TrafficSpec.h"

namespace tarvo_test {

using tarvo_diagnostics::Diagnoser;
using tarvo_diagnostics::LibraryReport;
using tarvo_diagnostics::MessageCapture;

LibraryReport reportOf(std::function<void()> const& read) {
  LibraryReport report;
  MessageCapture capture(report, true);
  try {
    read();
  } catch (HEXAll const& failure) {
    report.failure = failure.getMessage();
  }
  return report;
}

std::vector<std::string> lines(std::vector<tarvo_diagnostics::Diagnostic> const& diagnostics) {
  std::vector<std::string> out;
  for (auto const& diagnostic : diagnostics)
    out.push_back(diagnostic.format());
  return out;
}

std::vector<std::string> diagnoseFile(std::string const& kind, std::string const& path, bool strict,
                                      std::size_t maxSchemaViolations) {
  LibraryReport report;
  if (kind == "traffic") {
    report = reportOf([&path] {
      HrdIPToolCntr::TrafficSpec spec;
      HDGUIStatus status;
      NOC::NOCJsonTrafficSpecReader::readFromJsonFile(path, spec, status);
    });
  } else if (kind == "constraints") {
    report = reportOf([&path] {
      // The store owns its constraints but frees them only in clear(), also after a failed read.
      struct Store {
        kpe::constraints::ConstrHandler handler;
        ~Store() { handler.clear(); }
      } store;
      kpe::constraints::ConstrReader(store.handler).read(path, true);
    });
  } else if (kind == "logical-arch") {
    report = reportOf([&path] {
      Tarvo::Frameworks::TQLogicalArchModel model;
      TQLogicalArchReader::readFromJsonFile(path, model);
    });
  }
  Diagnoser::Options options;
  options.kind = kind;
  options.schemaFile = Diagnoser::schemaFileOf(kind);
  options.strict = strict;
  options.maxSchemaViolations = maxSchemaViolations;
  return lines(Diagnoser(path, options).diagnose(report));
}

}  // namespace tarvo_test
