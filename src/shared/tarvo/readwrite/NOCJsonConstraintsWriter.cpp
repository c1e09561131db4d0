#include "NOCJsonConstraintsWriter.h"

#include <ostream>
#include <vector>

#include "ComMsgMgr.h"
#include "Constraints.h"
#include "HCRapidJsonReadWriteUtils.h"
#include "JsonDocumentFrame.h"
#include "NOCConstraintsDocumentKeys.h"
#include "NOCJsonReadWriteUtils.h"

using DevHrdIP::Component;
using HrdIPToolCntr::Constraints;
using HrdIPToolCntr::TrafficLInst;

typedef HCRapidJsonReadWriteUtils Json;
typedef JsonDocumentFrame::Value Value;
typedef JsonDocumentFrame::Document::AllocatorType Allocator;
typedef NOCConstraintsDocumentKeys Keys;

namespace NOC {

namespace {

// The placement of one instance, or false when it has no component to name.
bool placementObject(Constraints const& constraints, TrafficLInst const* instance, Allocator& alloc, Value& object) {
  std::vector<Component const*> components;
  bool soft = true;
  constraints.getPlacementConst(instance, components, soft);
  std::vector<std::string> names;
  names.reserve(components.size());
  for (Component const* component : components)
    names.push_back(component->getName());
  if (names.empty()) return false;
  object.SetObject();
  Json::AddStringProperty(object, Keys::logicalInstance, instance->getName(), alloc);
  Json::AddStringArrayProperty(object, Keys::physicalInstance, names, alloc);
  Json::AddBooleanProperty(object, Keys::isSoft, soft, alloc);
  return true;
}

}  // namespace

NOCJsonConstraintsWriter::NOCJsonConstraintsWriter() = default;

NOCJsonConstraintsWriter::~NOCJsonConstraintsWriter() = default;

bool NOCJsonConstraintsWriter::writeToJsonFile(std::ostream& out, Constraints const& constraints, HDGUIStatus&) {
  JsonDocumentFrame::Document doc(rapidjson::kObjectType);
  if (constraints.hasInstsWithDestIdConstraint())
    ComMsgMgr::sendMsg::eval(0, __FILE__, __LINE__, "tarvo", ComMsgMgr::MSG_CRITICAL_WARNING, "@75-704@");
  std::vector<TrafficLInst const*> instances;
  constraints.getAllConstrainedInstances(instances);
  Value placements(rapidjson::kArrayType);
  for (TrafficLInst const* instance : instances) {
    Value object;
    if (placementObject(constraints, instance, doc.GetAllocator(), object))
      placements.PushBack(object, doc.GetAllocator());
  }
  // No placement, no document: an empty file says that nothing is constrained.
  if (placements.Empty()) return true;
  doc.AddMember(rapidjson::StringRef(Keys::placement.c_str()), placements, doc.GetAllocator());
  return JsonDocumentFrame::write(out, doc, NOCJsonReadWriteUtils::getConstraintsJsonSchemaFile(), "NoC Constraints");
}

bool NOCJsonConstraintsWriter::writeToJsonFile(std::string const& fileName, Constraints const& constraints,
                                               HDGUIStatus& status) {
  return JsonDocumentFrame::writeFile(fileName,
                                      [&](std::ostream& out) { return writeToJsonFile(out, constraints, status); });
}

}  // namespace NOC
