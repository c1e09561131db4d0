#include <map>
#include <ostream>
#include <regex>
#include <set>

#include "HDGUIStatus.h"
#include "HIPLogicalObjectNameResolverInterface.h"
#include "HPAParamMgr.h"
#include "Kinds.h"
#include "LoadedDocuments.h"
#include "NOCJsonEnumTexts.h"
#include "NOCJsonReadWriteUtils.h"
#include "NOCJsonTrafficSpecReader.h"
#include "NOCJsonTrafficSpecWriter.h"
#include "TrafficSpec.h"

namespace tarvo_docs {

namespace {

using HrdIPToolCntr::TrafficLInst;
using HrdIPToolCntr::TrafficSpec;

std::string plural(std::size_t count, char const* one, char const* many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

std::string instanceLine(TrafficLInst const& instance) {
  std::string line = instance.getName() + " (" + NOC::compTypeToText(instance.getCompType()) + ", " +
                     NOC::axiProtToText(instance.getProtocol());
  if (!instance.getPortTypes().empty()) {
    line += ", ports";
    for (auto port : instance.getPortTypes())
      line += std::string(" ") + NOC::portTypeToText(port);
  }
  if (instance.isExistDestId()) line += ", dest id " + std::to_string(instance.getDestId().getValue());
  if (instance.isVirtual()) line += ", virtual";
  return line + ")";
}

// Sets the --param values for as long as it lives.
class ToolParameters {
 public:
  explicit ToolParameters(ToolOptions const& options) {
    for (std::string const& assignment : options.getAll(KindOptions::kParam)) {
      std::string::size_type const equals = assignment.find('=');
      if (equals == std::string::npos || equals == 0)
        throw std::runtime_error("--param needs NAME=VALUE, not '" + assignment + "'");
      std::string const name = assignment.substr(0, equals);
      HPAParamMgr::getParamMgr().setValue(name, assignment.substr(equals + 1));
      m_names.insert(name);
    }
  }
  ~ToolParameters() {
    for (std::string const& name : m_names)
      HPAParamMgr::getParamMgr().unsetValue(name);
  }
  ToolParameters(ToolParameters const&) = delete;
  ToolParameters& operator=(ToolParameters const&) = delete;

 private:
  std::set<std::string> m_names;
};

template <typename Predicate>
void summarizeInstances(TrafficSpec const& spec, std::ostream& out, char const* title, Predicate selected) {
  std::vector<TrafficLInst const*> chosen;
  for (TrafficLInst const* instance : spec.getAllLogicalInstance())
    if (selected(*instance)) chosen.push_back(instance);
  if (chosen.empty()) return;
  out << "  " << title << ":\n";
  for (TrafficLInst const* instance : chosen)
    out << "    " << instanceLine(*instance) << "\n";
}

void summarizePaths(TrafficSpec const& spec, std::ostream& out) {
  std::map<std::string, int> byProtocol;
  for (int i = 0; i < spec.getNumPaths(); ++i)
    ++byProtocol[NOC::axiProtToText(spec.getPath(i)->getMaster()->getProtocol())];
  if (byProtocol.empty()) return;
  out << "  Paths by protocol: ";
  char const* separator = "";
  for (auto const& count : byProtocol) {
    out << separator << count.first << " " << count.second;
    separator = ", ";
  }
  out << "\n";
}

void summarizePhaseGroups(TrafficSpec const& spec, std::ostream& out) {
  for (std::string const& group : spec.getAllPhaseGroups()) {
    out << "  Phase group " << group << ":";
    for (std::string const& phase : spec.getAllPhasesForPhaseGroup(group))
      if (phase != TrafficSpec::getDefaultPhaseName()) out << " " << phase;
    out << "\n";
  }
}

class TrafficKind : public DocumentKind {
 public:
  std::string name() const override { return "traffic"; }

  // Only the document's own sections, with instances or system properties among them.
  bool recognises(TopLevelKeys const& keys) const override {
    return keys.allAmong({"LogicalInstances", "Paths", "SystemProperties"}) &&
           keys.hasAny({"LogicalInstances", "SystemProperties"});
  }

  std::string schemaFile() const override { return NOCJsonReadWriteUtils::getTrafficJsonSchemaFile(); }

  std::unique_ptr<LoadedDocument> read(DocumentSource const& source, ToolOptions const&,
                                       HDGUIStatus& status) const override {
    auto loaded = std::make_unique<LoadedTraffic>();
    TrafficSpec& spec = loaded->spec;
    // The library's file form is this stream form on a file that may be compressed.
    source.open(JsonDocumentFrame::Opener::AutoDetect, [&](std::istream& in, std::string const& name) {
      return NOC::NOCJsonTrafficSpecReader::readFromJsonFile(in, name, spec, status);
    });
    return loaded;
  }
};

}  // namespace

std::string LoadedTraffic::brief() const {
  std::size_t masters = 0;
  std::size_t slaves = 0;
  for (TrafficLInst const* instance : spec.getAllLogicalInstance()) {
    masters += instance->isMaster() ? 1 : 0;
    slaves += instance->isSlave() ? 1 : 0;
  }
  return plural(masters, "master", "masters") + ", " + plural(slaves, "slave", "slaves") + ", " +
         plural(static_cast<std::size_t>(spec.getNumPaths()), "path", "paths");
}

void LoadedTraffic::summarize(std::ostream& out) const {
  out << "NoC traffic specification: " << brief() << "\n";
  if (spec.hasValidDeviceName()) out << "  Device: " << spec.getDeviceName() << "\n";
  if (spec.isUserSetFrequency()) out << "  Frequency: " << spec.getFrequency() << "\n";
  if (spec.getSecureMode()) out << "  Secure mode: on\n";
  summarizeInstances(spec, out, "Masters", [](TrafficLInst const& i) { return i.isMaster(); });
  summarizeInstances(spec, out, "Slaves", [](TrafficLInst const& i) { return i.isSlave(); });
  summarizeInstances(spec, out, "Other instances", [](TrafficLInst const& i) { return !i.isMaster() && !i.isSlave(); });
  summarizePaths(spec, out);
  summarizePhaseGroups(spec, out);
  for (std::string const& path : spec.getRcfPaths())
    out << "  Reconfigurable partition: " << path << "\n";
}

bool LoadedTraffic::write(std::ostream& out, ToolOptions const& options, HDGUIStatus& status) const {
  ToolParameters const parameters(options);
  NOC::NOCJsonTrafficSpecWriter::InstanceFilter filter = [](TrafficLInst const*) { return true; };
  if (options.has(KindOptions::kOnly)) {
    std::regex const only(options.get(KindOptions::kOnly));
    filter = [only](TrafficLInst const* instance) { return std::regex_search(instance->getName(), only); };
  }
  HIPLogicalObjectNameResolverInterfaceIdentity identity;
  return NOC::NOCJsonTrafficSpecWriter::writeToJsonFile(out, spec, filter, identity, status);
}

std::unique_ptr<DocumentKind> makeTrafficKind() {
  return std::make_unique<TrafficKind>();
}

}  // namespace tarvo_docs
