#include <ostream>

#include "Constraints.h"
#include "HDGUIStatus.h"
#include "HIPLogicalObjectNameResolverInterface.h"
#include "Kinds.h"
#include "LoadedDocuments.h"
#include "NOCJsonConstraintsReader.h"
#include "NOCJsonConstraintsWriter.h"
#include "NOCJsonReadWriteUtils.h"

namespace tarvo_docs {

namespace {

using DevHrdIP::Component;
using HrdIPToolCntr::Constraints;
using HrdIPToolCntr::TrafficLInst;

std::vector<TrafficLInst const*> instances(Constraints const& constraints) {
  std::vector<TrafficLInst const*> placed;
  constraints.getAllConstrainedInstances(placed);
  return placed;
}

class NocConstraintsKind : public DocumentKind {
 public:
  std::string name() const override { return "noc-constraints"; }

  // Placements and nothing else.
  // Placements and nothing else (detection stops at the first key, so the first key).
  bool recognises(TopLevelKeys const& keys) const override {
    return keys.keys.size() == 1 && keys.keys.front() == "Placement";
  }

  std::string schemaFile() const override { return NOCJsonReadWriteUtils::getConstraintsJsonSchemaFile(); }

  std::unique_ptr<LoadedDocument> read(DocumentSource const& source, ToolOptions const& options,
                                       HDGUIStatus& status) const override {
    if (!NocKindInputs::given(options))
      return std::make_unique<UnboundNocDocument>(
          source, NOCJsonReadWriteUtils::getConstraintsJsonSchemaFile(), JsonDocumentFrame::Opener::PlainFile,
          "NoC placement constraints", std::vector<std::pair<std::string, std::string>>{{"Placement", "placement"}});
    auto loaded = std::make_unique<LoadedNocConstraints>(options, status);
    HIPLogicalObjectNameResolverInterfaceIdentity identity;
    NocKindInputs const& inputs = loaded->inputs;
    Constraints& constraints = loaded->constraints;
    source.apply([&](auto&... where) {
      return NOC::NOCJsonConstraintsReader::readFromJsonFile(where..., *inputs.device, inputs.spec, constraints,
                                                             identity, status);
    });
    return loaded;
  }
};

}  // namespace

std::string LoadedNocConstraints::brief() const {
  std::size_t const count = instances(constraints).size();
  return std::to_string(count) + (count == 1 ? " placement" : " placements");
}

void LoadedNocConstraints::summarize(std::ostream& out) const {
  out << "NoC placement constraints: " << brief() << "\n";
  out << "  Device: " << inputs.device->getName() << "\n";
  for (TrafficLInst const* instance : instances(constraints)) {
    std::vector<Component const*> components;
    bool soft = true;
    constraints.getPlacementConst(instance, components, soft);
    out << "  " << instance->getName() << (soft ? " (soft):" : ":");
    for (Component const* component : components)
      out << " " << component->getName();
    out << "\n";
  }
}

bool LoadedNocConstraints::write(std::ostream& out, ToolOptions const&, HDGUIStatus& status) const {
  return NOC::NOCJsonConstraintsWriter::writeToJsonFile(out, constraints, status);
}

std::unique_ptr<DocumentKind> makeNocConstraintsKind() {
  return std::make_unique<NocConstraintsKind>();
}

}  // namespace tarvo_docs
