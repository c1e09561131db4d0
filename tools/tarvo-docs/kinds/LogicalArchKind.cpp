#include <algorithm>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <ostream>
#include <sstream>

#include "HDGUIStatus.h"
#include "HEXAll.h"
#include "Kinds.h"
#include "TQLogicalArchModel.h"
#include "TQLogicalArchReader.h"
#include "TQLogicalArchWriter.h"

namespace tarvo_docs {

namespace {

using namespace Tarvo::Frameworks;

char const* const kHierarchyOption = "--hierarchy";
char const* const kHardwareNamesOption = "--hw";
int const kExitFailed = 1;
int const kExitUsage = 2;

std::string plural(std::size_t count, char const* one, char const* many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

std::size_t portCount(TQLogicalArchModel const& model) {
  std::size_t count = 0;
  for (TQLogicalArchLInst const* instance : model.getInstances())
    count += instance->getPorts().size();
  return count;
}

// The writer leaves a document cut off where it broke the schema and still succeeds; a
// text that doesn't parse whole is therefore treated as a failed write here.
bool writeWhole(TQLogicalArchModel const& model, std::string const& hierarchyPrefix, std::ostream& out) {
  std::ostringstream text;
  HDGUIStatus status;
  if (!TQLogicalArchWriter::writeToJsonFile(hierarchyPrefix, text, model, status)) {
    std::cerr << "ERROR: the logical architecture is empty; there is nothing to write.\n";
    return false;
  }
  rapidjson::Document check;
  if (check.Parse(text.str().c_str()).HasParseError()) {
    std::cerr << "ERROR: the written logical architecture does not satisfy its schema; it stops after "
              << text.str().size() << " bytes.\n";
    return false;
  }
  out << text.str();
  return true;
}

class LoadedLogicalArch : public LoadedDocument {
 public:
  std::string brief() const override {
    std::vector<TQLogicalConnection*> connections;
    model.getLogicalConnections(connections);
    return plural(model.getInstances().size(), "instance", "instances") + ", " +
           plural(portCount(model), "port", "ports") + ", " + plural(connections.size(), "connection", "connections");
  }

  void summarize(std::ostream& out) const override {
    out << "Logical architecture: " << brief() << "\n";
    for (auto const& field :
         {std::make_pair("Application", model.getAppID()), std::make_pair("Schema", model.getSchema()),
          std::make_pair("Device", model.getDeviceModel()), std::make_pair("Platform", model.getPlatform())})
      if (!field.second.empty()) out << field.first << ": " << field.second << "\n";
    summarizeInstances(out);
    summarizeConnections(out);
  }

  bool write(std::ostream& out, ToolOptions const& options) const override {
    return writeWhole(model, options.get(kHierarchyOption), out);
  }

  TQLogicalArchModel model;

 private:
  void summarizeInstances(std::ostream& out) const {
    std::map<std::string, std::pair<std::size_t, std::size_t>> byKind;
    for (TQLogicalArchLInst const* instance : model.getInstances()) {
      auto& counts = byKind[instance->getTypeAsStr()];
      ++counts.first;
      counts.second += instance->getPorts().size();
    }
    out << "Instances by kind:\n";
    for (auto const& kind : byKind)
      out << "  " << kind.first << ": " << plural(kind.second.first, "instance", "instances") << ", "
          << plural(kind.second.second, "port", "ports") << "\n";
  }

  void summarizeConnections(std::ostream& out) const {
    std::vector<TQLogicalConnection*> connections;
    model.getLogicalConnections(connections);
    std::map<std::string, std::size_t> byDirection;
    for (TQLogicalConnection const* connection : connections)
      ++byDirection[connection->getDirectionTypeAsStr()];
    out << "Connections by direction:\n";
    for (auto const& direction : byDirection)
      out << "  " << direction.first << ": " << direction.second << "\n";
  }
};

std::unique_ptr<LoadedLogicalArch> readLogicalArch(std::string const& file, HDGUIStatus& status) {
  auto loaded = std::make_unique<LoadedLogicalArch>();
  TQLogicalArchReader::readFromJsonFile(file, loaded->model, status);
  return loaded;
}

// rename-ports [--hw] FILE -o OUT: the document again, its ports under the standard
// interface names. OUT is only written when the whole text is ready.
int renamePorts(std::vector<std::string> const& args, ToolOptions const& options) {
  if (args.size() != 1 || !options.has("-o")) {
    std::cerr << "tarvo-docs: rename-ports needs one FILE and -o OUT (see tarvo-docs --help)\n";
    return kExitUsage;
  }
  std::ostringstream text;
  try {
    HDGUIStatus status;
    std::unique_ptr<LoadedLogicalArch> const loaded = readLogicalArch(args.front(), status);
    loaded->model.renameLogicalArchPortNames(options.has(kHardwareNamesOption));
    if (!writeWhole(loaded->model, std::string(), text)) return kExitFailed;
  } catch (HEXAll const& error) {
    std::cerr << error.what() << "\n";
    return kExitFailed;
  }
  std::ofstream out(options.get("-o"), std::ios_base::binary | std::ios_base::trunc);
  out << text.str();
  out.close();
  if (out.fail()) {
    std::cerr << "ERROR: cannot write '" << options.get("-o") << "'.\n";
    return kExitFailed;
  }
  return 0;
}

class LogicalArchKind : public DocumentKind {
 public:
  std::string name() const override { return "logical-arch"; }

  // Every top-level key is one of the document's, and at least one section is there.
  bool recognises(rapidjson::Value const& root) const override {
    if (!root.IsObject()) return false;
    static char const* const sections[] = {"KPE", "NoC", "PL", "connections"};
    static char const* const header[] = {"appId", "schema", "device", "platform"};
    bool hasSection = false;
    for (auto member = root.MemberBegin(); member != root.MemberEnd(); ++member) {
      std::string const key(member->name.GetString(), member->name.GetStringLength());
      bool const isSection = std::find(std::begin(sections), std::end(sections), key) != std::end(sections);
      if (!isSection && std::find(std::begin(header), std::end(header), key) == std::end(header)) return false;
      hasSection = hasSection || isSection;
    }
    return hasSection;
  }

  std::unique_ptr<LoadedDocument> read(std::string const& file, ToolOptions const&,
                                       HDGUIStatus& status) const override {
    return readLogicalArch(file, status);
  }

  std::vector<ExtraCommand> extraCommands() const override {
    return {{"rename-ports",
             "rename-ports [--hw] FILE -o OUT\n"
             "                          write a logical architecture with its ports under the standard\n"
             "                          interface names; --hw gives KPE ports hardware names",
             renamePorts}};
  }

  std::vector<std::string> valueOptions() const override { return {kHierarchyOption}; }
  std::vector<std::string> flagOptions() const override { return {kHardwareNamesOption}; }
};

}  // namespace

std::unique_ptr<DocumentKind> makeLogicalArchKind() {
  return std::make_unique<LogicalArchKind>();
}

}  // namespace tarvo_docs
