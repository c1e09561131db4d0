#include <cstdio>
#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>

#include "GRMBel.h"
#include "HDARPartLoader.h"
#include "HDGUIStatus.h"
#include "HEXAll.h"
#include "HIPDeviceLoader.h"
#include "KPEGRMDeviceUtils.h"
#include "KPEPrjStrEncoder.h"
#include "KPEShimInterfaceSolution.h"
#include "Kinds.h"
#include "NOCJsonTrafficSpecReader.h"
#include "TQCompilerShimConstraintsWriterJSON.h"
#include "TQCompilerSolutionReaderJSON.h"
#include "TQCompilerSolutionWriterJSON.h"
#include "TQLogicalArchModel.h"
#include "TQLogicalArchReader.h"
#include "TrafficSpec.h"

namespace tarvo_docs {

namespace {

using namespace Tarvo::Frameworks;
using HrdIPToolCntr::TrafficLInst;

char const* const kArchOption = "--arch";
char const* const kTrafficOption = "--traffic";
char const* const kDeviceOption = "--device";
char const* const kPrefixOption = "--prefix";
char const* const kInstanceOption = "--instance";
char const* const kColumnsOption = "--columns";
int const kExitFailed = 1;
int const kExitUsage = 2;

TrafficLInst const* logicalInstance(HrdIPToolCntr::TrafficSpec const& traffic, std::string const& name) {
  if (TrafficLInst const* master = traffic.hasLogicalMaster(name)) return master;
  if (TrafficLInst const* slave = traffic.hasLogicalSlave(name)) return slave;
  return traffic.getTQLogicalInst(name);
}

// What a compiler solution is read against: the logical architecture (--arch), the traffic
// specification (--traffic) and the device (--device, or the default device). The tool gives
// each KPE port its channels from the traffic specification: the logical instances named
// INSTANCE/PORT, INSTANCE/PORT<0>_INST and INSTANCE/PORT<1>_INST.
struct ExchangeDesign {
  ExchangeDesign(ToolOptions const& options, HDGUIStatus& status) : part(loadPart(options)) {
    if (options.has(kArchOption)) TQLogicalArchReader::readFromJsonFile(options.get(kArchOption), model, status);
    if (options.has(kTrafficOption))
      NOC::NOCJsonTrafficSpecReader::readFromJsonFile(options.get(kTrafficOption), traffic, status);
    attachChannels();
  }

  static bool complete(ToolOptions const& options) { return options.has(kArchOption) && options.has(kTrafficOption); }

  std::vector<TQLogicalPort const*> ports() const {
    std::vector<TQLogicalTQIPInstance*> instances;
    model.getTQIPInstances(instances);
    std::vector<TQLogicalPort const*> all;
    for (TQLogicalTQIPInstance const* instance : instances)
      for (TQLogicalPort const* port : instance->getPorts())
        all.push_back(port);
    return all;
  }

  TQLogicalArchModel model;
  HrdIPToolCntr::TrafficSpec traffic;
  std::unique_ptr<HDARPart> part;

 private:
  static std::unique_ptr<HDARPart> loadPart(ToolOptions const& options) {
    if (options.has(kDeviceOption)) return HDARPartLoader::readFromFile(options.get(kDeviceOption));
    std::istringstream text(DevHrdIP::HIPDeviceLoader::getDefaultDeviceText());
    return HDARPartLoader::readFromStream(text, "(default device)");
  }

  void attachChannels() {
    std::vector<TQLogicalTQIPInstance*> instances;
    model.getTQIPInstances(instances);
    for (TQLogicalTQIPInstance* instance : instances)
      for (TQLogicalPort* port : instance->getPorts()) {
        std::string const base = instance->getName() + "/" + port->getName();
        for (std::string const& name : {base, base + "<0>_INST", base + "<1>_INST"})
          if (logicalInstance(traffic, name) != nullptr) port->addTqChannelFullHierName(name);
      }
  }
};

std::string plural(std::size_t count, char const* one, char const* many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

class LoadedCompilerSolution : public LoadedDocument {
 public:
  LoadedCompilerSolution(ToolOptions const& options, HDGUIStatus& status)
      : design(options, status), solution(*design.part), complete(ExchangeDesign::complete(options)) {}

  void read(std::string const& file, ToolOptions const& options, HDGUIStatus& status) {
    empty = !TQCompilerSolutionReaderJSON::readFromJsonFile(file, *design.part, design.model, design.traffic,
                                                            options.get(kPrefixOption), solution, status);
  }

  std::string brief() const override {
    if (empty) return "empty file, nothing placed";
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

  void summarize(std::ostream& out) const override {
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

  bool write(std::ostream& out, ToolOptions const& options) const override {
    if (!complete) {
      std::cerr << "ERROR: a compiler solution is written from the design it places; give --arch FILE and "
                   "--traffic FILE.\n";
      return false;
    }
    HDGUIStatus status;
    return TQCompilerSolutionWriterJSON::writeToJsonFile(options.get(kPrefixOption), out, design.model, design.traffic,
                                                         solution, *design.part, status);
  }

  ExchangeDesign design;
  KPEShimInterfaceSolution solution;

 private:
  // "CHANNEL on SITE (column C, channel N)" for each placed channel of the port.
  std::vector<std::string> placedChannels(TQLogicalPort const& port) const {
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

  bool complete;
  bool empty = false;
};

std::unique_ptr<LoadedCompilerSolution> readSolution(std::string const& file, ToolOptions const& options,
                                                     HDGUIStatus& status) {
  auto loaded = std::make_unique<LoadedCompilerSolution>(options, status);
  loaded->read(file, options, status);
  return loaded;
}

// Reads the solution of a command that works for one instance; null, after a report, when
// the command line or the documents fail.
std::unique_ptr<LoadedCompilerSolution> readForInstance(char const* command, std::vector<std::string> const& args,
                                                        ToolOptions const& options, int& exitCode) {
  if (args.size() != 1 || !options.has(kInstanceOption) || !ExchangeDesign::complete(options)) {
    std::cerr << "tarvo-docs: " << command
              << " needs one compiler solution FILE, --arch, --traffic and --instance (see tarvo-docs --help)\n";
    exitCode = kExitUsage;
    return nullptr;
  }
  try {
    HDGUIStatus status;
    return readSolution(args.front(), options, status);
  } catch (HEXAll const& error) {
    std::cerr << error.what() << "\n";
  } catch (std::exception const& error) {
    std::cerr << "ERROR: " << error.what() << "\n";
  }
  exitCode = kExitFailed;
  return nullptr;
}

// shim-constraints FILE --arch A --traffic T --instance NAME [-o OUT]
int writeShimConstraints(std::vector<std::string> const& args, ToolOptions const& options) {
  int exitCode = 0;
  std::unique_ptr<LoadedCompilerSolution> const loaded = readForInstance("shim-constraints", args, options, exitCode);
  if (!loaded) return exitCode;
  std::ostringstream text;
  try {
    HDGUIStatus status;
    ExchangeDesign const& design = loaded->design;
    if (!TQCompilerShimConstraintsWriterJSON::writeToJsonFile(text, design.model, design.traffic, loaded->solution,
                                                              *design.part, options.get(kInstanceOption), status))
      return kExitFailed;
  } catch (HEXAll const& error) {
    std::cerr << error.what() << "\n";
    return kExitFailed;
  }
  if (text.str().empty())
    std::cerr << "tarvo-docs: no port of the KPE instance '" << options.get(kInstanceOption)
              << "' has a placed channel 0; the shim constraints are empty.\n";
  if (!options.has("-o")) {
    std::cout << text.str() << (text.str().empty() ? "" : "\n");
    return 0;
  }
  std::ofstream out(options.get("-o"), std::ios_base::binary | std::ios_base::trunc);
  out << text.str();
  out.close();
  if (!out.fail()) return 0;
  std::cerr << "ERROR: cannot write '" << options.get("-o") << "'.\n";
  return kExitFailed;
}

// "START:COUNT" of --columns; false for any other text.
bool parseColumns(std::string const& text, int& start, int& count) {
  std::istringstream in(text);
  char colon = 0;
  return static_cast<bool>(in >> start >> colon >> count) && colon == ':' && in.peek() == EOF && start >= 0 &&
         count > 0;
}

// interface-id FILE --arch A --traffic T --instance NAME [--columns START:COUNT]
int printInterfaceIds(std::vector<std::string> const& args, ToolOptions const& options) {
  int start = -1;
  int count = -1;
  if (options.has(kColumnsOption) && !parseColumns(options.get(kColumnsOption), start, count)) {
    std::cerr << "tarvo-docs: --columns needs START:COUNT, a first device column and a number of columns, not '"
              << options.get(kColumnsOption) << "'\n";
    return kExitUsage;
  }
  int exitCode = 0;
  std::unique_ptr<LoadedCompilerSolution> const loaded = readForInstance("interface-id", args, options, exitCode);
  if (!loaded) return exitCode;
  ExchangeDesign const& design = loaded->design;
  std::string const instance = options.get(kInstanceOption);
  HDGUIStatus status;
  std::vector<std::string> ids;
  TQCompilerShimConstraintsWriterJSON::computeKPEPLIntefaceIDs(
      design.model, design.traffic, loaded->solution, *design.part, instance, start, count, false, status, ids);
  std::cout << "Port identifiers of " << instance;
  if (start >= 0) std::cout << " in device columns " << start << " to " << start + count - 1;
  std::cout << ":" << (ids.empty() ? " none" : "") << "\n";
  for (std::string const& id : ids)
    std::cout << "  " << id << "\n";
  if (start >= 0) return 0;
  std::string id;
  TQCompilerShimConstraintsWriterJSON::computeKPEPLIntefaceID(design.model, design.traffic, loaded->solution,
                                                              *design.part, instance, id, status);
  char number[16];
  std::snprintf(number, sizeof number, "0x%08x", KPEPrjStrEncoder::encodeAsInt(id));
  std::cout << "Interface identifier: " << id << "\n"
            << "Interface number: " << number << "\n";
  return 0;
}

class CompilerSolutionKind : public DocumentKind {
 public:
  std::string name() const override { return "compiler-solution"; }

  // Placements whose logical side is an object (instance and port), unlike the NoC
  // placement constraints, which name it by a string.
  bool recognises(rapidjson::Value const& root) const override {
    if (!root.IsObject() || root.MemberCount() != 1 || !root.HasMember("Placement")) return false;
    rapidjson::Value const& placements = root["Placement"];
    if (!placements.IsArray() || placements.Empty() || !placements[0].IsObject()) return false;
    rapidjson::Value const& first = placements[0];
    return first.HasMember("LogicalInstance") && first["LogicalInstance"].IsObject();
  }

  std::unique_ptr<LoadedDocument> read(std::string const& file, ToolOptions const& options,
                                       HDGUIStatus& status) const override {
    return readSolution(file, options, status);
  }

  std::vector<ExtraCommand> extraCommands() const override {
    return {{"shim-constraints",
             "shim-constraints FILE --arch A --traffic T --instance NAME [-o OUT]\n"
             "                          write the shim constraints that pin the ports of one KPE instance\n"
             "                          to their sites in a compiler solution (to standard output\n"
             "                          without -o)",
             writeShimConstraints},
            {"interface-id",
             "interface-id FILE --arch A --traffic T --instance NAME [--columns START:COUNT]\n"
             "                          print the KPE/PL interface identifiers of one KPE instance, only\n"
             "                          of its sites in the given device columns with --columns",
             printInterfaceIds}};
  }

  std::vector<std::string> valueOptions() const override {
    return {kArchOption, kTrafficOption, kDeviceOption, kPrefixOption, kInstanceOption, kColumnsOption};
  }
};

}  // namespace

std::unique_ptr<DocumentKind> makeCompilerSolutionKind() {
  return std::make_unique<CompilerSolutionKind>();
}

}  // namespace tarvo_docs
