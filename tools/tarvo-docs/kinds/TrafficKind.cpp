#include <map>
#include <ostream>
#include <regex>
#include <set>

#include "HDGUIStatus.h"
#include "HIPLogicalObjectNameResolverInterface.h"
#include "HPAParamMgr.h"
#include "Kinds.h"
#include "NOCJsonEnumTexts.h"
#include "NOCJsonTrafficSpecReader.h"
#include "NOCJsonTrafficSpecWriter.h"
#include "TrafficSpec.h"

namespace tarvo_docs {

namespace {

using HrdIPToolCntr::TrafficLInst;
using HrdIPToolCntr::TrafficSpec;

// Keeps the instances whose names contain a match of the expression, and the paths between them.
char const* const kOnlyOption = "--only";
// NAME=VALUE: a tool parameter for the writer, such as project.enableBlockModel=true.
char const* const kParamOption = "--param";

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
    for (std::string const& assignment : options.getAll(kParamOption)) {
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

class LoadedTraffic : public LoadedDocument {
 public:
  TrafficSpec spec;

  std::string brief() const override {
    std::size_t masters = 0;
    std::size_t slaves = 0;
    for (TrafficLInst const* instance : spec.getAllLogicalInstance()) {
      masters += instance->isMaster() ? 1 : 0;
      slaves += instance->isSlave() ? 1 : 0;
    }
    return plural(masters, "master", "masters") + ", " + plural(slaves, "slave", "slaves") + ", " +
           plural(static_cast<std::size_t>(spec.getNumPaths()), "path", "paths");
  }

  void summarize(std::ostream& out) const override {
    out << "NoC traffic specification: " << brief() << "\n";
    if (spec.hasValidDeviceName()) out << "  Device: " << spec.getDeviceName() << "\n";
    if (spec.isUserSetFrequency()) out << "  Frequency: " << spec.getFrequency() << "\n";
    if (spec.getSecureMode()) out << "  Secure mode: on\n";
    summarizeInstances(out, "Masters", [](TrafficLInst const& i) { return i.isMaster(); });
    summarizeInstances(out, "Slaves", [](TrafficLInst const& i) { return i.isSlave(); });
    summarizeInstances(out, "Other instances", [](TrafficLInst const& i) { return !i.isMaster() && !i.isSlave(); });
    summarizePaths(out);
    summarizePhaseGroups(out);
    for (std::string const& path : spec.getRcfPaths())
      out << "  Reconfigurable partition: " << path << "\n";
  }

  bool write(std::ostream& out, ToolOptions const& options) const override {
    ToolParameters const parameters(options);
    NOC::NOCJsonTrafficSpecWriter::InstanceFilter filter = [](TrafficLInst const*) { return true; };
    if (options.has(kOnlyOption)) {
      std::regex const only(options.get(kOnlyOption));
      filter = [only](TrafficLInst const* instance) { return std::regex_search(instance->getName(), only); };
    }
    HIPLogicalObjectNameResolverInterfaceIdentity identity;
    HDGUIStatus status;
    return NOC::NOCJsonTrafficSpecWriter::writeToJsonFile(out, spec, filter, identity, status);
  }

 private:
  template <typename Predicate>
  void summarizeInstances(std::ostream& out, char const* title, Predicate selected) const {
    std::vector<TrafficLInst const*> chosen;
    for (TrafficLInst const* instance : spec.getAllLogicalInstance())
      if (selected(*instance)) chosen.push_back(instance);
    if (chosen.empty()) return;
    out << "  " << title << ":\n";
    for (TrafficLInst const* instance : chosen)
      out << "    " << instanceLine(*instance) << "\n";
  }

  void summarizePaths(std::ostream& out) const {
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

  void summarizePhaseGroups(std::ostream& out) const {
    for (std::string const& group : spec.getAllPhaseGroups()) {
      out << "  Phase group " << group << ":";
      for (std::string const& phase : spec.getAllPhasesForPhaseGroup(group))
        if (phase != TrafficSpec::getDefaultPhaseName()) out << " " << phase;
      out << "\n";
    }
  }
};

class TrafficKind : public DocumentKind {
 public:
  std::string name() const override { return "traffic"; }

  // Only the document's own sections, with instances or system properties among them.
  bool recognises(rapidjson::Value const& root) const override {
    if (!root.IsObject()) return false;
    for (auto member = root.MemberBegin(); member != root.MemberEnd(); ++member) {
      std::string const key(member->name.GetString(), member->name.GetStringLength());
      if (key != "LogicalInstances" && key != "Paths" && key != "SystemProperties") return false;
    }
    return root.HasMember("LogicalInstances") || root.HasMember("SystemProperties");
  }

  std::unique_ptr<LoadedDocument> read(std::string const& file, ToolOptions const&,
                                       HDGUIStatus& status) const override {
    auto loaded = std::make_unique<LoadedTraffic>();
    NOC::NOCJsonTrafficSpecReader::readFromJsonFile(file, loaded->spec, status);
    return loaded;
  }

  std::vector<std::string> valueOptions() const override { return {kOnlyOption, kParamOption}; }
};

}  // namespace

std::unique_ptr<DocumentKind> makeTrafficKind() {
  return std::make_unique<TrafficKind>();
}

}  // namespace tarvo_docs
