#include "TQCompilerShimConstraintsWriterJSON.h"

#include <boost/format.hpp>
#include <cstdint>
#include <ostream>

#include "JsonDocumentFrame.h"
#include "KPEExchangeDocumentOutput.h"
#include "KPEGRMDeviceUtils.h"
#include "KPEPrjStrEncoder.h"
#include "KPEShimInterfaceSolution.h"
#include "KPEShimPortSites.h"
#include "NOCJsonReadWriteUtils.h"
#include "TQLogicalArchModel.h"

using namespace Tarvo::Frameworks;

namespace {

typedef HCRapidJsonReadWriteUtils Json;
typedef Json::Value Value;

// The ports of the KPE instances named exactly `instanceName`, in model and port order.
std::vector<TQLogicalPort const*> portsOf(std::vector<TQLogicalTQIPInstance*> const& instances,
                                          std::string const& instanceName) {
  std::vector<TQLogicalPort const*> ports;
  for (TQLogicalTQIPInstance const* instance : instances) {
    if (instance->getName() != instanceName) continue;
    for (TQLogicalPort const* port : instance->getPorts())
      if (port != nullptr) ports.push_back(port);
  }
  return ports;
}

// A device column range; a negative start admits every column.
class ColumnRange {
 public:
  ColumnRange(int startColumn, int numColumns) : m_start(startColumn) {
    // The last column is computed as the interface always has: in wrapping 32-bit arithmetic.
    m_last = static_cast<std::int32_t>(static_cast<std::uint32_t>(startColumn) +
                                       static_cast<std::uint32_t>(numColumns) - 1u);
  }

  bool admits(GRMBel const& site) const {
    if (m_start < 0) return true;
    int const column = site.getDeviceColumn();
    return column >= m_start && column <= m_last;
  }

 private:
  int m_start;
  std::int32_t m_last;
};

// The traits that make a port's part of the identifier; a memory-mapped (GMIO) port has no
// width and clock.
std::vector<std::string> portTraits(TQLogicalPort const& port) {
  std::vector<std::string> items;
  if (!port.isGMIO()) {
    items.push_back((boost::format("dw%02d") % port.getBusWidth()).str());
    items.push_back((boost::format("cf%6.3f") % port.getClkFreq()).str());
  }
  items.push_back((boost::format("reg%0d") % static_cast<int>(port.getRegisterInterface())).str());
  return items;
}

// The names under which the shim constraints document publishes a port: its annotations,
// or else its hardware annotation, or else its name.
std::vector<std::string> logicalNames(TQLogicalPort const& port) {
  if (!port.getAnnotations().empty()) return port.getAnnotations();
  if (!port.getHWAnnotation().empty()) return {port.getHWAnnotation()};
  return {port.getName()};
}

Value placement(std::string const& logicalName, std::string const& siteName, Json::Allocator& alloc) {
  Value object(rapidjson::kObjectType);
  Json::AddStringProperty(object, "LogicalInstance", logicalName, alloc);
  Json::AddStringArrayProperty(object, "PhysicalInstance", {siteName}, alloc);
  Json::AddBooleanProperty(object, "IsSoft", false, alloc);
  return object;
}

}  // namespace

bool TQCompilerShimConstraintsWriterJSON::writeToJsonFile(std::ostream& out, TQLogicalArchModel const& model,
                                                          HrdIPToolCntr::TrafficSpec const& traffic,
                                                          KPEShimInterfaceSolution const& solution,
                                                          HDARPart const& part, std::string const& instanceName,
                                                          HDGUIStatus&) {
  Json::Document doc(rapidjson::kObjectType);
  Value placements(rapidjson::kArrayType);
  std::vector<TQLogicalTQIPInstance*> instances;
  model.getTQIPInstances(instances);
  for (TQLogicalPort const* port : portsOf(instances, instanceName)) {
    std::vector<std::string> const& channels = port->getTqChannelFullHierNames();
    if (channels.empty()) continue;
    // Only channel 0 of a two-channel port is published.
    GRMBel const site =
        KPEShimPortSites::siteOf(traffic, solution, KPEShimPortSites::channelForParity(channels, false));
    if (site.isBad()) continue;
    std::string const siteName = KPEGRMDeviceUtils::getHierName(part, site);
    for (std::string const& name : logicalNames(*port))
      placements.PushBack(placement(name, siteName, doc.GetAllocator()), doc.GetAllocator());
  }
  if (placements.Empty()) return true;
  doc.AddMember("Placement", placements, doc.GetAllocator());
  return KPEExchangeDocumentOutput::write(out, doc, NOCJsonReadWriteUtils::getKPEShimConstraintsJsonSchemaFile());
}

bool TQCompilerShimConstraintsWriterJSON::writeToJsonFile(std::string const& fileName, TQLogicalArchModel const& model,
                                                          HrdIPToolCntr::TrafficSpec const& traffic,
                                                          KPEShimInterfaceSolution const& solution,
                                                          HDARPart const& part, std::string const& instanceName,
                                                          HDGUIStatus& status) {
  return JsonDocumentFrame::writeFile(fileName, [&](std::ostream& out) {
    return writeToJsonFile(out, model, traffic, solution, part, instanceName, status);
  });
}

bool TQCompilerShimConstraintsWriterJSON::getKPEPLIntefacePortData(TQLogicalArchModel const& model,
                                                                   HrdIPToolCntr::TrafficSpec const& traffic,
                                                                   KPEShimInterfaceSolution const& solution,
                                                                   HDARPart const& part,
                                                                   std::string const& instanceName, int startColumn,
                                                                   int numColumns, HDGUIStatus&, PortData& portData) {
  std::vector<TQLogicalTQIPInstance*> instances;
  if (model.getTQIPInstances(instances) == 0) return false;
  portData.clear();
  ColumnRange const range(startColumn, numColumns);
  for (TQLogicalPort const* port : portsOf(instances, instanceName)) {
    std::vector<std::string> items = portTraits(*port);
    bool placed = false;
    for (GRMBel const& site : KPEShimPortSites::placedSites(*port, traffic, solution)) {
      if (!range.admits(site)) continue;
      items.push_back(KPEGRMDeviceUtils::getHierName(part, site));
      placed = true;
    }
    // Ports without annotations share the empty key; the last port of a key wins.
    if (placed) portData[port->getHWAnnotationORAnnotationFirst()] = items;
  }
  return true;
}

bool TQCompilerShimConstraintsWriterJSON::computeKPEPLIntefaceIDs(TQLogicalArchModel const& model,
                                                                  HrdIPToolCntr::TrafficSpec const& traffic,
                                                                  KPEShimInterfaceSolution const& solution,
                                                                  HDARPart const& part, std::string const& instanceName,
                                                                  int startColumn, int numColumns, bool omitKey,
                                                                  HDGUIStatus& status, std::vector<std::string>& ids) {
  PortData portData;
  getKPEPLIntefacePortData(model, traffic, solution, part, instanceName, startColumn, numColumns, status, portData);
  for (auto const& entry : portData)
    ids.push_back((omitKey ? std::string() : entry.first) + KPEPrjStrEncoder::encodeAsString(entry.second));
  return true;
}

bool TQCompilerShimConstraintsWriterJSON::computeKPEPLIntefaceID(TQLogicalArchModel const& model,
                                                                 HrdIPToolCntr::TrafficSpec const& traffic,
                                                                 KPEShimInterfaceSolution const& solution,
                                                                 HDARPart const& part, std::string const& instanceName,
                                                                 std::string& id, HDGUIStatus& status) {
  PortData portData;
  getKPEPLIntefacePortData(model, traffic, solution, part, instanceName, -1, -1, status, portData);
  id = KPEPrjStrEncoder::encodeAsString(portData);
  return true;
}
