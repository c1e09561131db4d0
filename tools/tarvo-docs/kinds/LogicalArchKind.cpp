#include <algorithm>
#include <iterator>
#include <map>
#include <ostream>
#include <stdexcept>

#include "../CommandRun.h"
#include "../Commands.h"
#include "../JsonNestingWatch.h"
#include "HDGUIStatus.h"
#include "Kinds.h"
#include "LoadedDocuments.h"
#include "NOCJsonReadWriteUtils.h"
#include "TQLogicalArchReader.h"
#include "TQLogicalArchWriter.h"

namespace tarvo_docs {

namespace {

using namespace Tarvo::Frameworks;

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
// text whose nesting is not closed at the end is therefore treated as a failed write here
// (the output is then not committed).
void writeWhole(TQLogicalArchModel const& model, std::string const& hierarchyPrefix, std::ostream& out,
                HDGUIStatus& status) {
  JsonNestingWatch watch(out);
  std::ostream text(&watch);
  if (!TQLogicalArchWriter::writeToJsonFile(hierarchyPrefix, text, model, status))
    throw std::runtime_error("the logical architecture is empty; there is nothing to write.");
  text.flush();
  if (!watch.whole())
    throw std::runtime_error("the written logical architecture does not satisfy its schema; it stops after " +
                             std::to_string(watch.bytes()) + " bytes.");
}

class LogicalArchKind : public DocumentKind {
 public:
  std::string name() const override { return "logical-arch"; }

  // Every top-level key is one of the document's, and at least one section is there.
  bool recognises(TopLevelKeys const& keys) const override {
    return keys.allAmong({"KPE", "NoC", "PL", "connections", "appId", "schema", "device", "platform"}) &&
           keys.hasAny({"KPE", "NoC", "PL", "connections"});
  }

  std::string schemaFile() const override { return NOCJsonReadWriteUtils::getLogicalArchJsonSchemaFile(); }

  std::unique_ptr<LoadedDocument> read(DocumentSource const& source, ToolOptions const&,
                                       HDGUIStatus& status) const override {
    auto loaded = std::make_unique<LoadedLogicalArch>();
    TQLogicalArchModel& model = loaded->model;
    // The library's file form is this stream form on a plain file.
    source.open(JsonDocumentFrame::Opener::PlainFile, [&](std::istream& in, std::string const& name) {
      return TQLogicalArchReader::readFromJsonFile(in, name, model, status);
    });
    return loaded;
  }
};

}  // namespace

std::string LoadedLogicalArch::brief() const {
  std::vector<TQLogicalConnection*> connections;
  model.getLogicalConnections(connections);
  return plural(model.getInstances().size(), "instance", "instances") + ", " +
         plural(portCount(model), "port", "ports") + ", " + plural(connections.size(), "connection", "connections");
}

void LoadedLogicalArch::summarize(std::ostream& out) const {
  out << "Logical architecture: " << brief() << "\n";
  for (auto const& field :
       {std::make_pair("Application", model.getAppID()), std::make_pair("Schema", model.getSchema()),
        std::make_pair("Device", model.getDeviceModel()), std::make_pair("Platform", model.getPlatform())})
    if (!field.second.empty()) out << field.first << ": " << field.second << "\n";
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
  std::vector<TQLogicalConnection*> connections;
  model.getLogicalConnections(connections);
  std::map<std::string, std::size_t> byDirection;
  for (TQLogicalConnection const* connection : connections)
    ++byDirection[connection->getDirectionTypeAsStr()];
  out << "Connections by direction:\n";
  for (auto const& direction : byDirection)
    out << "  " << direction.first << ": " << direction.second << "\n";
}

bool LoadedLogicalArch::write(std::ostream& out, ToolOptions const& options, HDGUIStatus& status) const {
  writeWhole(model, options.get(KindOptions::kHierarchy), out, status);
  return true;
}

// rename-ports [--hw] FILE -o OUT: the document again, its ports under the standard
// interface names.
bool renamePorts(CommandRun& run, ReadOutcome& outcome) {
  if (!outcome.ok()) return false;
  TQLogicalArchModel& model = static_cast<LoadedLogicalArch&>(*outcome.document).model;
  model.renameLogicalArchPortNames(run.options().has("--hw"));
  return writeDocumentTo(run, outcome, [&model](std::ostream& out, HDGUIStatus& status) {
    writeWhole(model, std::string(), out, status);
    return true;
  });
}

std::unique_ptr<DocumentKind> makeLogicalArchKind() {
  return std::make_unique<LogicalArchKind>();
}

}  // namespace tarvo_docs
