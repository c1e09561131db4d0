#include "NOCJsonConstraintsReader.h"

#include <istream>
#include <vector>

#include "Constraints.h"
#include "HCRapidJsonReadWriteUtils.h"
#include "HDGUIStatus.h"
#include "HIPDevice.h"
#include "JsonDocumentFrame.h"
#include "NOCConstraintsDocumentKeys.h"
#include "NOCJsonReadWriteUtils.h"
#include "TrafficInstanceLookup.h"
#include "TrafficSpec.h"

using DevHrdIP::Component;
using DevHrdIP::HIPDevice;
using DevHrdIP::NOCModel;
using HrdIPToolCntr::Constraints;
using HrdIPToolCntr::TrafficLInst;
using HrdIPToolCntr::TrafficSpec;

typedef HCRapidJsonReadWriteUtils Json;
typedef JsonDocumentFrame::Value Value;
typedef NOCConstraintsDocumentKeys Keys;

namespace NOC {

namespace {

void readPlacement(Value const& object, NOCModel const* noc, TrafficSpec const& spec, Constraints& constraints) {
  TrafficLInst const* instance =
      TrafficInstanceLookup::find(spec, Json::GetStringProperty(object, Keys::logicalInstance));
  if (instance == nullptr) return;
  std::vector<std::string> const names = Json::GetStringArrayProperty(object, Keys::physicalInstance);
  bool const soft = Json::GetBooleanProperty(object, Keys::isSoft);
  std::vector<Component const*> components;
  for (std::string const& name : names) {
    Component const* component = noc ? noc->getComponent(name) : nullptr;
    if (component != nullptr) components.push_back(component);
  }
  if (!components.empty()) constraints.addPlacementConst(instance, components, soft);
}

}  // namespace

NOCJsonConstraintsReader::NOCJsonConstraintsReader() = default;

NOCJsonConstraintsReader::~NOCJsonConstraintsReader() = default;

bool NOCJsonConstraintsReader::readFromJsonFile(std::istream& in, std::string const& fileName, HIPDevice const& device,
                                                TrafficSpec const& spec, Constraints& constraints,
                                                HIPLogicalObjectNameResolverInterface&, HDGUIStatus& status) {
  JsonDocumentFrame::Document doc;
  JsonDocumentFrame::load(in, fileName, NOCJsonReadWriteUtils::getConstraintsJsonSchemaFile(),
                          JsonDocumentFrame::Opener::PlainFile, doc);
  status.setPercent(20);
  if (Json::IsArrayProperty(doc, Keys::placement))
    for (Value const& placement : doc[Keys::placement.c_str()].GetArray())
      readPlacement(placement, device.getNOCModel(), spec, constraints);
  status.setPercent(100);
  return true;
}

bool NOCJsonConstraintsReader::readFromJsonFile(std::string const& fileName, HIPDevice const& device,
                                                TrafficSpec const& spec, Constraints& constraints,
                                                HIPLogicalObjectNameResolverInterface& resolver, HDGUIStatus& status) {
  return JsonDocumentFrame::readFile(fileName, JsonDocumentFrame::Opener::PlainFile,
                                     [&](std::istream& in, std::string const& name) {
                                       return readFromJsonFile(in, name, device, spec, constraints, resolver, status);
                                     });
}

}  // namespace NOC
