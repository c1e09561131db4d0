#include <ostream>

#include "Constraints.h"
#include "HDGUIStatus.h"
#include "HIPLogicalObjectNameResolverInterface.h"
#include "Kinds.h"
#include "NOCJsonConstraintsReader.h"
#include "NOCJsonConstraintsWriter.h"
#include "NOCJsonReadWriteUtils.h"
#include "NocKindInputs.h"

namespace tarvo_docs {

namespace {

using DevHrdIP::Component;
using HrdIPToolCntr::Constraints;
using HrdIPToolCntr::TrafficLInst;

class LoadedConstraints : public LoadedDocument {
 public:
  LoadedConstraints(ToolOptions const& options, HDGUIStatus& status) : inputs(options, status) {}

  NocKindInputs inputs;
  Constraints constraints;

  std::string brief() const override {
    std::size_t const count = instances().size();
    return std::to_string(count) + (count == 1 ? " placement" : " placements");
  }

  void summarize(std::ostream& out) const override {
    out << "NoC placement constraints: " << brief() << "\n";
    out << "  Device: " << inputs.device->getName() << "\n";
    for (TrafficLInst const* instance : instances()) {
      std::vector<Component const*> components;
      bool soft = true;
      constraints.getPlacementConst(instance, components, soft);
      out << "  " << instance->getName() << (soft ? " (soft):" : ":");
      for (Component const* component : components)
        out << " " << component->getName();
      out << "\n";
    }
  }

  bool write(std::ostream& out, ToolOptions const&) const override {
    HDGUIStatus status;
    return NOC::NOCJsonConstraintsWriter::writeToJsonFile(out, constraints, status);
  }

 private:
  std::vector<TrafficLInst const*> instances() const {
    std::vector<TrafficLInst const*> placed;
    constraints.getAllConstrainedInstances(placed);
    return placed;
  }
};

class NocConstraintsKind : public DocumentKind {
 public:
  std::string name() const override { return "noc-constraints"; }

  // Placements and nothing else.
  bool recognises(rapidjson::Value const& root) const override {
    return root.IsObject() && root.MemberCount() == 1 && root.HasMember("Placement");
  }

  std::unique_ptr<LoadedDocument> read(std::string const& file, ToolOptions const& options,
                                       HDGUIStatus& status) const override {
    if (!NocKindInputs::given(options))
      return std::make_unique<UnboundNocDocument>(
          file, NOCJsonReadWriteUtils::getConstraintsJsonSchemaFile(), JsonDocumentFrame::Opener::PlainFile,
          "NoC placement constraints", std::vector<std::pair<std::string, std::string>>{{"Placement", "placement"}});
    auto loaded = std::make_unique<LoadedConstraints>(options, status);
    HIPLogicalObjectNameResolverInterfaceIdentity identity;
    NOC::NOCJsonConstraintsReader::readFromJsonFile(file, *loaded->inputs.device, loaded->inputs.spec,
                                                    loaded->constraints, identity, status);
    return loaded;
  }

  std::vector<std::string> valueOptions() const override {
    return {NocKindInputs::kTrafficOption, NocKindInputs::kDeviceOption};
  }
};

}  // namespace

std::unique_ptr<DocumentKind> makeNocConstraintsKind() {
  return std::make_unique<NocConstraintsKind>();
}

}  // namespace tarvo_docs
