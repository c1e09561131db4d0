#include <rapidjson/istreamwrapper.h>
#include <rapidjson/reader.h>

#include <map>
#include <ostream>
#include <set>

#include "CompRes.h"
#include "HDGUIStatus.h"
#include "JsonDocumentFrame.h"
#include "Kinds.h"
#include "LoadedDocuments.h"
#include "NOCJsonEnumTexts.h"
#include "NOCJsonReadWriteUtils.h"
#include "NOCJsonSolutionReader.h"
#include "NOCJsonSolutionWriter.h"

namespace tarvo_docs {

namespace {

using DevHrdIP::Component;
using HrdIPToolCntr::CompRes;
using HrdIPToolCntr::TrafficNet;
using HrdIPToolCntr::TrafficPath;

std::string plural(std::size_t count, char const* one, char const* many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

// Finds the text of the top-level "SolutionType" and stops the parser there, so that the
// document is not parsed a second time after the reader: the writer puts the key first.
class SolutionTypeHandler : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, SolutionTypeHandler> {
 public:
  std::string value;

  bool Default() { return !wanted(); }
  bool String(char const* text, rapidjson::SizeType length, bool) {
    if (wanted()) value.assign(text, length);
    return !wanted();
  }
  bool Key(char const* text, rapidjson::SizeType length, bool) {
    if (m_depth == 1) m_wanted = std::string(text, length) == "SolutionType";
    return true;
  }
  bool StartObject() { return !wanted() && ++m_depth > 0; }
  bool StartArray() { return !wanted() && ++m_depth > 0; }
  bool EndObject(rapidjson::SizeType) { return --m_depth > 0; }
  bool EndArray(rapidjson::SizeType) { return --m_depth > 0; }

 private:
  bool wanted() const { return m_depth == 1 && m_wanted; }

  unsigned m_depth = 0;
  bool m_wanted = false;
};

// The library leaves the compiler's verdict out of the result it reads; the tool carries it
// over so that a converted document keeps it. Empty when it is no string or not there.
std::string solutionTypeOf(DocumentSource const& source) {
  SolutionTypeHandler handler;
  source.open(JsonDocumentFrame::Opener::AutoDetect, [&handler](std::istream& in, std::string const&) {
    rapidjson::IStreamWrapper stream(in);
    rapidjson::Reader().Parse<rapidjson::kParseIterativeFlag>(stream, handler);
    return true;
  });
  return handler.value;
}

int solutionStateOf(std::string const& solutionType) {
  static std::map<std::string, int> const states = {{"NO_SOLUTION", CompRes::NO_SOLUTION},
                                                    {"OPTIMAL", CompRes::OPTIMAL},
                                                    {"SUBOPTIMAL", CompRes::SUBOPTIMAL},
                                                    {"DEADLOCKS", CompRes::DEADLOCKS}};
  auto const found = states.find(solutionType);
  return found == states.end() ? CompRes::NO_SOLUTION : found->second;
}

std::vector<TrafficPath const*> routedPaths(CompRes const& result) {
  std::vector<TrafficPath const*> paths;
  std::set<TrafficPath const*> seen;
  for (auto const& routed : result.getRoutes())
    if (seen.insert(routed.first->getPath()).second) paths.push_back(routed.first->getPath());
  return paths;
}

void summarizePath(std::ostream& out, CompRes const& result, TrafficPath const& path) {
  std::size_t nets = 0;
  std::size_t links = 0;
  for (int n = 0; n < path.getNumNets(); ++n) {
    if (HrdIPToolCntr::Route const* route = result.getRouteForNet(path.getNet(n))) {
      ++nets;
      links += route->getLinks().size();
    }
  }
  out << "  Path " << path.getMaster()->getName() << " -> " << path.getSlave()->getName() << " "
      << NOC::portTypeToText(path.getSlavePort()) << ": " << plural(nets, "routed net", "routed nets") << ", "
      << plural(links, "link", "links") << (result.isLocked(&path) ? ", locked" : "") << "\n";
}

// "component = id (instance)" for each component and port with a destination id, in
// device order.
std::vector<std::string> destIds(DevHrdIP::HIPDevice const& device, CompRes const& result) {
  std::vector<std::string> entries;
  if (device.getNOCModel() == nullptr) return entries;
  for (Component const* top : device.getNOCModel()->getAllTopLevelComponents()) {
    std::vector<Component const*> candidates(1, top);
    candidates.insert(candidates.end(), top->getPorts().begin(), top->getPorts().end());
    for (Component const* component : candidates) {
      if (!result.hasDestIdForComponent(component)) continue;
      std::string text =
          component->getName() + " = " + std::to_string(result.getDestIdForComponent(component).getValue());
      if (auto const* instance = result.getLogicalForPhysical(top)) text += " (" + instance->getName() + ")";
      entries.push_back(text);
    }
  }
  return entries;
}

class NocSolutionKind : public DocumentKind {
 public:
  std::string name() const override { return "noc-solution"; }

  bool recognises(TopLevelKeys const& keys) const override { return keys.has("SolutionType"); }

  std::string schemaFile() const override { return NOCJsonReadWriteUtils::getSolutionJsonSchemaFile(); }

  std::unique_ptr<LoadedDocument> read(DocumentSource const& source, ToolOptions const& options,
                                       HDGUIStatus& status) const override {
    if (!NocKindInputs::given(options))
      return std::make_unique<UnboundNocDocument>(
          source, NOCJsonReadWriteUtils::getSolutionJsonSchemaFile(), JsonDocumentFrame::Opener::AutoDetect,
          "NoC solution",
          std::vector<std::pair<std::string, std::string>>{{"Paths", "path"}, {"Components", "component"}});
    auto loaded = std::make_unique<LoadedNocSolution>(options, status);
    HrdIPToolCntr::TrafficSpec const& spec = loaded->inputs.spec;
    CompRes& result = loaded->result;
    // The library's file form is this stream form on a file that may be compressed.
    source.open(JsonDocumentFrame::Opener::AutoDetect, [&](std::istream& in, std::string const& name) {
      return NOC::NOCJsonSolutionReader::readFromJsonFile(in, name, spec, result, status);
    });
    loaded->solutionType = solutionTypeOf(source);
    loaded->result.setSolutionState(solutionStateOf(loaded->solutionType));
    return loaded;
  }
};

}  // namespace

std::string LoadedNocSolution::brief() const {
  return plural(routedPaths(result).size(), "path", "paths") + ", " +
         plural(result.getRoutes().size(), "routed net", "routed nets") + ", " +
         plural(destIds(*inputs.device, result).size(), "destination id", "destination ids");
}

void LoadedNocSolution::summarize(std::ostream& out) const {
  out << "NoC solution: " << brief() << "\n";
  out << "  Device: " << inputs.device->getName() << "\n";
  out << "  Solution type: " << solutionType << "\n";
  out << "  Destination ids locked for all components: " << (result.hasLockedDestIdsForAllComps() ? "yes" : "no")
      << "\n";
  for (TrafficPath const* path : routedPaths(result))
    summarizePath(out, result, *path);
  for (std::string const& entry : destIds(*inputs.device, result))
    out << "  Destination id " << entry << "\n";
}

bool LoadedNocSolution::write(std::ostream& out, ToolOptions const&, HDGUIStatus& status) const {
  return NOC::NOCJsonSolutionWriter::writeToJsonFile(out, inputs.spec, result, status);
}

std::unique_ptr<DocumentKind> makeNocSolutionKind() {
  return std::make_unique<NocSolutionKind>();
}

}  // namespace tarvo_docs
