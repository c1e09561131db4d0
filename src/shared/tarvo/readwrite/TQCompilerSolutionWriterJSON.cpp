#include "TQCompilerSolutionWriterJSON.h"

#include <ostream>
#include <vector>

#include "HSTStrUtils.h"
#include "JsonDocumentFrame.h"
#include "KPEExchangeDocumentOutput.h"
#include "KPEGRMDeviceUtils.h"
#include "KPEShimPortSites.h"
#include "NOCJsonReadWriteUtils.h"
#include "TQLogicalArchModel.h"

using namespace Tarvo::Frameworks;

namespace {

typedef HCRapidJsonReadWriteUtils Json;
typedef Json::Value Value;

// The instance's name as the reader will look for it: without the prefix and one "/".
std::string documentInstanceName(std::string name, std::string const& instancePrefix) {
  if (HSTStrUtils::startsWith(name, instancePrefix)) name.erase(0, instancePrefix.size());
  if (!name.empty() && name[0] == '/') name.erase(0, 1);
  return name;
}

// Builds placement objects. Keys are constants and are referenced, not copied: a solution
// of ten thousands of ports has six keys a site.
class PlacementBuilder {
 public:
  PlacementBuilder(HDARPart const& part, Json::Allocator& alloc) : m_part(part), m_alloc(alloc) {}

  Value placement(std::string const& instanceName, std::string const& portName, std::vector<GRMBel> const& sites) {
    Value logical(rapidjson::kObjectType);
    logical.AddMember("InstanceName", text(instanceName), m_alloc);
    logical.AddMember("PortName", text(portName), m_alloc);
    Value physical(rapidjson::kArrayType);
    physical.Reserve(static_cast<rapidjson::SizeType>(sites.size()), m_alloc);
    for (GRMBel const& site : sites)
      physical.PushBack(siteObject(site), m_alloc);
    Value object(rapidjson::kObjectType);
    object.AddMember("LogicalInstance", logical, m_alloc);
    object.AddMember("PhysicalInstance", physical, m_alloc);
    object.AddMember("IsSoft", false, m_alloc);
    return object;
  }

 private:
  Value text(std::string const& value) {
    return Value(value.data(), static_cast<rapidjson::SizeType>(value.size()), m_alloc);
  }

  Value siteObject(GRMBel const& site) {
    Value object(rapidjson::kObjectType);
    object.AddMember("name", text(KPEGRMDeviceUtils::getHierName(m_part, site)), m_alloc);
    object.AddMember("column", KPEGRMDeviceUtils::getShimColumn(m_part, site), m_alloc);
    object.AddMember("channel", KPEGRMDeviceUtils::getIndexOfChanInShim(m_part, site), m_alloc);
    return object;
  }

  HDARPart const& m_part;
  Json::Allocator& m_alloc;
};

}  // namespace

bool TQCompilerSolutionWriterJSON::writeToJsonFile(std::string const& instancePrefix, std::ostream& out,
                                                   TQLogicalArchModel const& model,
                                                   HrdIPToolCntr::TrafficSpec const& traffic,
                                                   KPEShimInterfaceSolution const& solution, HDARPart const& part,
                                                   HDGUIStatus&) {
  Json::Document doc(rapidjson::kObjectType);
  Value placements(rapidjson::kArrayType);
  PlacementBuilder builder(part, doc.GetAllocator());
  std::vector<TQLogicalTQIPInstance*> instances;
  model.getTQIPInstances(instances);
  for (TQLogicalTQIPInstance const* instance : instances) {
    if (!HSTStrUtils::startsWith(instance->getName(), instancePrefix)) continue;
    std::string const instanceName = documentInstanceName(instance->getName(), instancePrefix);
    for (TQLogicalPort const* port : instance->getPorts()) {
      if (port == nullptr) continue;
      std::vector<GRMBel> const sites = KPEShimPortSites::placedSites(*port, traffic, solution);
      if (sites.empty()) continue;
      TQLogicalArchLInst const* parent = port->getParentInstance();
      placements.PushBack(builder.placement(parent == nullptr || parent == instance
                                                ? instanceName
                                                : documentInstanceName(parent->getName(), instancePrefix),
                                            port->getName(), sites),
                          doc.GetAllocator());
    }
  }
  if (placements.Empty()) return true;
  doc.AddMember("Placement", placements, doc.GetAllocator());
  return KPEExchangeDocumentOutput::write(out, doc, NOCJsonReadWriteUtils::getTQSolutionJsonSchemaFile());
}

bool TQCompilerSolutionWriterJSON::writeToJsonFile(std::ostream& out, TQLogicalArchModel const& model,
                                                   HrdIPToolCntr::TrafficSpec const& traffic,
                                                   KPEShimInterfaceSolution const& solution, HDARPart const& part,
                                                   HDGUIStatus& status) {
  return writeToJsonFile(std::string(), out, model, traffic, solution, part, status);
}

bool TQCompilerSolutionWriterJSON::writeToJsonFile(std::string const& instancePrefix, std::string const& fileName,
                                                   TQLogicalArchModel const& model,
                                                   HrdIPToolCntr::TrafficSpec const& traffic,
                                                   KPEShimInterfaceSolution const& solution, HDARPart const& part,
                                                   HDGUIStatus& status) {
  return JsonDocumentFrame::writeFile(fileName, [&](std::ostream& out) {
    return writeToJsonFile(instancePrefix, out, model, traffic, solution, part, status);
  });
}

bool TQCompilerSolutionWriterJSON::writeToJsonFile(std::string const& fileName, TQLogicalArchModel const& model,
                                                   HrdIPToolCntr::TrafficSpec const& traffic,
                                                   KPEShimInterfaceSolution const& solution, HDARPart const& part,
                                                   HDGUIStatus& status) {
  return writeToJsonFile(std::string(), fileName, model, traffic, solution, part, status);
}
