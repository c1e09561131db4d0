#include <cstdio>
#include <ostream>
#include <sstream>
#include <stdexcept>

#include "../CommandRun.h"
#include "../Commands.h"
#include "GRMBel.h"
#include "HDARPartLoader.h"
#include "HDGUIStatus.h"
#include "HIPDeviceLoader.h"
#include "KPEGRMDeviceUtils.h"
#include "KPEPrjStrEncoder.h"
#include "Kinds.h"
#include "LoadedDocuments.h"
#include "NOCJsonReadWriteUtils.h"
#include "NOCJsonTrafficSpecReader.h"
#include "TQCompilerShimConstraintsWriterJSON.h"
#include "TQCompilerSolutionReaderJSON.h"
#include "TQCompilerSolutionWriterJSON.h"
#include "TQLogicalArchReader.h"

namespace tarvo_docs {

namespace {

using namespace Tarvo::Frameworks;
using HrdIPToolCntr::TrafficLInst;

char const* const kInstanceOption = "--instance";
char const* const kColumnsOption = "--columns";

TrafficLInst const* logicalInstance(HrdIPToolCntr::TrafficSpec const& traffic, std::string const& name) {
  if (TrafficLInst const* master = traffic.hasLogicalMaster(name)) return master;
  if (TrafficLInst const* slave = traffic.hasLogicalSlave(name)) return slave;
  return traffic.getTQLogicalInst(name);
}

std::unique_ptr<HDARPart> loadPart(ToolOptions const& options) {
  if (options.has(KindOptions::kDevice)) return HDARPartLoader::readFromFile(options.get(KindOptions::kDevice));
  std::istringstream text(DevHrdIP::HIPDeviceLoader::getDefaultDeviceText());
  return HDARPartLoader::readFromStream(text, "(default device)");
}

std::string plural(std::size_t count, char const* one, char const* many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

// "START:COUNT" of --columns; false for any other text.
bool parseColumns(std::string const& text, int& start, int& count) {
  std::istringstream in(text);
  char colon = 0;
  return static_cast<bool>(in >> start >> colon >> count) && colon == ':' && in.peek() == EOF && start >= 0 &&
         count > 0;
}

class CompilerSolutionKind : public DocumentKind {
 public:
  std::string name() const override { return "compiler-solution"; }

  // Placements whose logical side is an object (instance and port), unlike the NoC
  // placement constraints, which name it by a string.
  bool recognises(TopLevelKeys const& keys) const override {
    return keys.keys.size() == 1 && keys.keys.front() == "Placement" && keys.placementNamesObjects;
  }

  std::string schemaFile() const override { return NOCJsonReadWriteUtils::getTQSolutionJsonSchemaFile(); }

  std::unique_ptr<LoadedDocument> read(DocumentSource const& source, ToolOptions const& options,
                                       HDGUIStatus& status) const override {
    auto loaded = std::make_unique<LoadedCompilerSolution>(options, status);
    loaded->read(source, options, status);
    return loaded;
  }
};

}  // namespace

ExchangeDesign::ExchangeDesign(ToolOptions const& options, HDGUIStatus& status) : part(loadPart(options)) {
  if (options.has(KindOptions::kArch))
    TQLogicalArchReader::readFromJsonFile(options.get(KindOptions::kArch), model, status);
  if (options.has(KindOptions::kTraffic))
    NOC::NOCJsonTrafficSpecReader::readFromJsonFile(options.get(KindOptions::kTraffic), traffic, status);
  std::vector<TQLogicalTQIPInstance*> instances;
  model.getTQIPInstances(instances);
  for (TQLogicalTQIPInstance* instance : instances)
    for (TQLogicalPort* port : instance->getPorts()) {
      std::string const base = instance->getName() + "/" + port->getName();
      for (std::string const& name : {base, base + "<0>_INST", base + "<1>_INST"})
        if (logicalInstance(traffic, name) != nullptr) port->addTqChannelFullHierName(name);
    }
}

std::vector<TQLogicalPort const*> ExchangeDesign::ports() const {
  std::vector<TQLogicalTQIPInstance*> instances;
  model.getTQIPInstances(instances);
  std::vector<TQLogicalPort const*> all;
  for (TQLogicalTQIPInstance const* instance : instances)
    for (TQLogicalPort const* port : instance->getPorts())
      all.push_back(port);
  return all;
}

void LoadedCompilerSolution::read(DocumentSource const& source, ToolOptions const& options, HDGUIStatus& status) {
  std::string const prefix = options.get(KindOptions::kPrefix);
  bool const read = source.apply([&](auto&... where) {
    return TQCompilerSolutionReaderJSON::readFromJsonFile(where..., *design.part, design.model, design.traffic, prefix,
                                                          solution, status);
  });
  // The reader takes an empty text for "nothing placed"; as a document it is no solution.
  if (!read) throw std::runtime_error("'" + source.name() + "' is empty; there is no compiler solution in it.");
}

std::string LoadedCompilerSolution::brief() const {
  if (!complete) return "valid; give --arch and --traffic to place its ports";
  std::size_t channels = 0;
  std::size_t ports = 0;
  for (TQLogicalPort const* port : design.ports()) {
    std::size_t const placed = placedChannels(*port).size();
    channels += placed;
    ports += placed != 0 ? 1 : 0;
  }
  return plural(channels, "placed channel", "placed channels") + " on " + plural(ports, "port", "ports");
}

void LoadedCompilerSolution::summarize(std::ostream& out) const {
  out << "KPE compiler solution: " << brief() << "\n";
  out << "  Device: " << design.part->getName() << "\n";
  std::vector<std::string> unplaced;
  for (TQLogicalPort const* port : design.ports()) {
    std::string const name = port->getParentInstance()->getName() + "/" + port->getName();
    std::vector<std::string> const channels = placedChannels(*port);
    if (channels.empty()) unplaced.push_back(name);
    if (channels.empty()) continue;
    out << "  " << name << ":\n";
    for (std::string const& channel : channels)
      out << "    " << channel << "\n";
  }
  if (complete && !unplaced.empty()) {
    out << "  Ports with no placed channel:";
    for (std::string const& name : unplaced)
      out << " " << name;
    out << "\n";
  }
}

bool LoadedCompilerSolution::write(std::ostream& out, ToolOptions const& options, HDGUIStatus& status) const {
  if (!complete)
    throw std::runtime_error(
        "a compiler solution is written from the design it places; give --arch FILE and --traffic FILE.");
  return TQCompilerSolutionWriterJSON::writeToJsonFile(options.get(KindOptions::kPrefix), out, design.model,
                                                       design.traffic, solution, *design.part, status);
}

// "CHANNEL on SITE (column C, channel N)" for each placed channel of the port.
std::vector<std::string> LoadedCompilerSolution::placedChannels(TQLogicalPort const& port) const {
  std::vector<std::string> lines;
  for (std::string const& channel : port.getTqChannelFullHierNames()) {
    GRMBel const site = solution.getPhysicalForLogical(logicalInstance(design.traffic, channel));
    if (site.isBad()) continue;
    lines.push_back(channel + " on " + KPEGRMDeviceUtils::getHierName(*design.part, site) + " (column " +
                    std::to_string(KPEGRMDeviceUtils::getShimColumn(*design.part, site)) + ", channel " +
                    std::to_string(KPEGRMDeviceUtils::getIndexOfChanInShim(*design.part, site)) + ")");
  }
  return lines;
}

std::string checkColumns(std::string const& text) {
  int start = 0;
  int count = 0;
  if (parseColumns(text, start, count)) return std::string();
  return "--columns needs START:COUNT, a first device column and a number of columns, not '" + text + "'";
}

// shim-constraints FILE --arch A --traffic T --instance NAME [-o OUT]
bool writeShimConstraints(CommandRun& run, ReadOutcome& outcome) {
  if (!outcome.ok()) return false;
  auto const& loaded = static_cast<LoadedCompilerSolution const&>(*outcome.document);
  ExchangeDesign const& design = loaded.design;
  std::string const instance = run.options().get(kInstanceOption);
  std::string const target = run.options().get("-o", "-");
  std::optional<std::uintmax_t> const written = run.writeOutput(target, [&](std::ostream& out, HDGUIStatus& status) {
    return TQCompilerShimConstraintsWriterJSON::writeToJsonFile(out, design.model, design.traffic, loaded.solution,
                                                                *design.part, instance, status);
  });
  if (!written) return false;
  // The writer writes nothing for an instance with no placed channel 0; that is an answer,
  // not a failure, and an existing OUT is left as it was.
  if (*written == 0 && !run.quiet())
    run.err() << "tarvo-docs: no port of the KPE instance '" << instance
              << "' has a placed channel 0; the shim constraints are empty.\n";
  if (*written != 0 && target == "-") run.out() << "\n";
  return true;
}

// interface-id FILE --arch A --traffic T --instance NAME [--columns START:COUNT]
bool printInterfaceIds(CommandRun& run, ReadOutcome& outcome) {
  if (!outcome.ok()) return false;
  auto const& loaded = static_cast<LoadedCompilerSolution const&>(*outcome.document);
  ExchangeDesign const& design = loaded.design;
  std::string const instance = run.options().get(kInstanceOption);
  int start = -1;
  int count = -1;
  if (run.options().has(kColumnsOption)) parseColumns(run.options().get(kColumnsOption), start, count);
  HDGUIStatus status;
  std::vector<std::string> ids;
  TQCompilerShimConstraintsWriterJSON::computeKPEPLIntefaceIDs(
      design.model, design.traffic, loaded.solution, *design.part, instance, start, count, false, status, ids);
  std::ostream& out = run.out();
  out << "Port identifiers of " << instance;
  if (start >= 0) out << " in device columns " << start << " to " << start + count - 1;
  out << ":" << (ids.empty() ? " none" : "") << "\n";
  for (std::string const& id : ids)
    out << "  " << id << "\n";
  if (start >= 0) return true;
  std::string id;
  TQCompilerShimConstraintsWriterJSON::computeKPEPLIntefaceID(design.model, design.traffic, loaded.solution,
                                                              *design.part, instance, id, status);
  char number[16];
  std::snprintf(number, sizeof number, "0x%08x", KPEPrjStrEncoder::encodeAsInt(id));
  out << "Interface identifier: " << id << "\n"
      << "Interface number: " << number << "\n";
  return true;
}

std::unique_ptr<DocumentKind> makeCompilerSolutionKind() {
  return std::make_unique<CompilerSolutionKind>();
}

}  // namespace tarvo_docs
