#include "TQLogicalArchShimPartitionWriter.h"

#include <ostream>
#include <vector>

#include "JsonDocumentFrame.h"
#include "KPEGRMDeviceUtils.h"
#include "KPEShimPortSites.h"
#include "LogicalArchDocumentKeys.h"
#include "TQLogicalArchModel.h"

using namespace Tarvo::Frameworks;

namespace {

typedef HCRapidJsonReadWriteUtils Json;
typedef Json::Value Value;
typedef LogicalArchDocumentKeys Key;

bool bothUnset(int start, int count) {
  return start == -1 && count == -1;
}

class ShimPortsBuilder {
 public:
  ShimPortsBuilder(HrdIPToolCntr::TrafficSpec const& traffic, KPEShimInterfaceSolution const& solution,
                   HDARPart const& part, Json::Allocator& alloc)
      : m_traffic(traffic), m_solution(solution), m_part(part), m_alloc(alloc) {}

  // Ports are keyed by the hierarchical name of their last site; ports without a site all
  // share the empty key.
  Value ports(std::vector<TQLogicalTQIPInstance*> const& instances) {
    Value object(rapidjson::kObjectType);
    for (TQLogicalTQIPInstance const* instance : instances)
      for (TQLogicalPort const* port : instance->getPorts()) {
        if (port == nullptr) continue;
        std::vector<GRMBel> const sites = KPEShimPortSites::placedSites(*port, m_traffic, m_solution);
        std::string const name = sites.empty() ? std::string() : sites.back().getHierarchicalName1();
        Value key(name.data(), static_cast<rapidjson::SizeType>(name.size()), m_alloc);
        Value value = portObject(*port, sites);
        object.AddMember(key, value, m_alloc);
      }
    return object;
  }

 private:
  Value portObject(TQLogicalPort const& port, std::vector<GRMBel> const& sites) {
    Value object(rapidjson::kObjectType);
    if (!sites.empty()) object.AddMember("PhysicalInstance", siteArray(sites), m_alloc);
    if (port.getType() != TQLogicalConnectionDataFlowTypeEnum::Unknown)
      Json::AddStringProperty(object, Key::type, port.getTypeAsStr(), m_alloc);
    if (port.getDirectionType() != TQLogicalPortDirectionTypeEnum::Unknown)
      Json::AddStringProperty(object, Key::direction, port.getDirectionTypeAsStr(), m_alloc);
    if (port.getDataWidth() != 0) Json::AddULongProperty(object, Key::dataWidth, port.getDataWidth(), m_alloc);
    Json::AddULongProperty(object, Key::parameterIndex, port.getParamIndex(), m_alloc);
    if (port.getRegisterInterface()) Json::AddBooleanProperty(object, Key::registeredInterface, true, m_alloc);
    if (port.isTraced()) Json::AddBooleanProperty(object, Key::tracedInterface, true, m_alloc);
    if (!port.getTraceFile().empty()) Json::AddStringProperty(object, Key::traceFile, port.getTraceFile(), m_alloc);
    if (!port.getAnnotations().empty())
      Json::AddStringArrayProperty(object, Key::annotation, port.getAnnotations(), m_alloc);
    if (!port.getSDFIONames().empty())
      Json::AddStringArrayProperty(object, Key::sdfioName, port.getSDFIONames(), m_alloc);
    return object;
  }

  Value siteArray(std::vector<GRMBel> const& sites) {
    Value array(rapidjson::kArrayType);
    for (GRMBel const& site : sites) {
      Value object(rapidjson::kObjectType);
      Json::AddStringProperty(object, "name", KPEGRMDeviceUtils::getHierName(m_part, site), m_alloc);
      Json::AddIntegrProperty(object, "column", KPEGRMDeviceUtils::getShimColumn(m_part, site), m_alloc);
      Json::AddIntegrProperty(object, "channel", KPEGRMDeviceUtils::getIndexOfChanInShim(m_part, site), m_alloc);
      array.PushBack(object, m_alloc);
    }
    return array;
  }

  HrdIPToolCntr::TrafficSpec const& m_traffic;
  KPEShimInterfaceSolution const& m_solution;
  HDARPart const& m_part;
  Json::Allocator& m_alloc;
};

}  // namespace

void TQLogicalArchShimPartitionWriter::writeToJsonFile(std::ostream& out, TQLogicalArchModel const& model,
                                                       HrdIPToolCntr::TrafficSpec const& traffic,
                                                       KPEShimInterfaceSolution const& solution, HDARPart const& part,
                                                       int partitionStartColumn, int partitionNumColumns,
                                                       int designStartColumn, int designNumColumns) {
  bool const useDesign = bothUnset(partitionStartColumn, partitionNumColumns);
  Json::Document doc(rapidjson::kObjectType);
  Json::Allocator& alloc = doc.GetAllocator();
  Value partition(rapidjson::kObjectType);
  Json::AddIntegrProperty(partition, "startColumn", useDesign ? designStartColumn : partitionStartColumn, alloc);
  Json::AddIntegrProperty(partition, "numColumns", useDesign ? designNumColumns : partitionNumColumns, alloc);
  std::vector<TQLogicalTQIPInstance*> instances;
  if (model.getTQIPInstances(instances) != 0) {
    ShimPortsBuilder builder(traffic, solution, part, alloc);
    partition.AddMember(Value(Key::kpePorts, alloc), builder.ports(instances), alloc);
  }
  doc.AddMember("partition", partition, alloc);
  JsonDocumentFrame::writePretty(out, doc);
}

bool TQLogicalArchShimPartitionWriter::writeToJsonFile(std::string const& fileName, TQLogicalArchModel const& model,
                                                       HrdIPToolCntr::TrafficSpec const& traffic,
                                                       KPEShimInterfaceSolution const& solution, HDARPart const& part,
                                                       int partitionStartColumn, int partitionNumColumns,
                                                       int designStartColumn, int designNumColumns) {
  return JsonDocumentFrame::writeFile(fileName, [&](std::ostream& out) {
    writeToJsonFile(out, model, traffic, solution, part, partitionStartColumn, partitionNumColumns, designStartColumn,
                    designNumColumns);
    return true;
  });
}
