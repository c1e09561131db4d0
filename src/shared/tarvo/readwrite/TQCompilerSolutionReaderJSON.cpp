#include "TQCompilerSolutionReaderJSON.h"

#include <istream>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "HDGUIStatus.h"
#include "HSTStrUtils.h"
#include "HUTFile.h"
#include "JsonDocumentFrame.h"
#include "KPEGRMDeviceUtils.h"
#include "KPEShimInterfaceSolution.h"
#include "KPEShimPortSites.h"
#include "NOCJsonReadWriteUtils.h"
#include "TQLogicalArchModel.h"
#include "TrafficSpec.h"

using namespace Tarvo::Frameworks;

namespace {

typedef HCRapidJsonReadWriteUtils Json;
typedef Json::Value Value;

}  // namespace

// Places the sites of one document on the channels of the model's ports.
class TQCompilerSolutionReaderJSON::PlacementReader {
 public:
  PlacementReader(HDARPart const& part, TQLogicalArchModel const& model, HrdIPToolCntr::TrafficSpec const& traffic,
                  std::string const& instancePrefix, KPEShimInterfaceSolution& solution)
      : m_part(part), m_traffic(traffic), m_solution(solution) {
    std::vector<TQLogicalTQIPInstance*> all;
    model.getTQIPInstances(all);
    for (TQLogicalTQIPInstance* instance : all)
      if (instancePrefix.empty() || HSTStrUtils::startsWith(instance->getName(), instancePrefix))
        m_instances.push_back(instance);
  }

  void read(Value const& element) {
    if (!Json::IsObjectProperty(element, "LogicalInstance")) return;
    Value const& logical = element["LogicalInstance"];
    TQLogicalArchLInst const* instance = findInstance(Json::GetStringProperty(logical, "InstanceName"));
    if (instance == nullptr) return;
    TQLogicalPort const* port = findPort(*instance, Json::GetStringProperty(logical, "PortName"));
    if (port == nullptr || port->getTqChannelFullHierNames().empty()) return;
    // "IsSoft" is the compiler's own hint; a placement read here is never locked.
    if (!Json::IsArrayProperty(element, "PhysicalInstance")) return;
    for (Value const& site : element["PhysicalInstance"].GetArray())
      place(*port, site);
  }

 private:
  // The first instance whose full name contains the document's name: the writer shortens
  // names by the prefix, so an exact comparison would miss. Remembered by name, since every
  // port of an instance names it again.
  TQLogicalArchLInst const* findInstance(std::string const& name) {
    auto const known = m_instanceByName.find(name);
    if (known != m_instanceByName.end()) return known->second;
    TQLogicalArchLInst const* found = nullptr;
    for (TQLogicalTQIPInstance const* instance : m_instances)
      if (HSTStrUtils::contains(instance->getName().c_str(), name.c_str()) != nullptr) {
        found = instance;
        break;
      }
    m_instanceByName.emplace(name, found);
    return found;
  }

  // The first port of that name in port order, by an index made on the instance's first use.
  TQLogicalPort const* findPort(TQLogicalArchLInst const& instance, std::string const& name) {
    auto inserted = m_ports.emplace(&instance, PortIndex());
    PortIndex& index = inserted.first->second;
    if (inserted.second)
      for (TQLogicalPort const* port : instance.getPorts())
        if (port != nullptr) index.emplace(port->getName(), port);
    auto const found = index.find(name);
    return found != index.end() ? found->second : nullptr;
  }

  void place(TQLogicalPort const& port, Value const& siteObject) {
    GRMBel const site = KPEGRMDeviceUtils::getGRMBel(m_part, Json::GetStringProperty(siteObject, "name"));
    if (site.isBad()) return;
    int const channel = KPEGRMDeviceUtils::getIndexOfChanInShim(m_part, site);
    bool const odd = (channel & 1) != 0;
    std::string const& channelName = KPEShimPortSites::channelForParity(port.getTqChannelFullHierNames(), odd);
    HrdIPToolCntr::TrafficLInst const* instance = KPEShimPortSites::logicalInstance(m_traffic, channelName);
    if (instance != nullptr) m_solution.addPlacement(instance, site);
  }

  // Keys point into the ports' own names, which stay put while the model is only read.
  typedef std::unordered_map<std::string_view, TQLogicalPort const*> PortIndex;

  HDARPart const& m_part;
  HrdIPToolCntr::TrafficSpec const& m_traffic;
  KPEShimInterfaceSolution& m_solution;
  std::vector<TQLogicalTQIPInstance const*> m_instances;
  std::unordered_map<std::string, TQLogicalArchLInst const*> m_instanceByName;
  std::unordered_map<TQLogicalArchLInst const*, PortIndex> m_ports;
};

bool TQCompilerSolutionReaderJSON::readFromJsonFile(std::istream& in, std::string const& fileName, HDARPart const& part,
                                                    TQLogicalArchModel const& model,
                                                    HrdIPToolCntr::TrafficSpec const& traffic,
                                                    std::string const& instancePrefix,
                                                    KPEShimInterfaceSolution& solution, HDGUIStatus& status) {
  if (in.fail()) Json::errorReadingJsonFile(fileName);
  Json::Document doc;
  JsonDocumentFrame::load(in, fileName, NOCJsonReadWriteUtils::getTQSolutionJsonSchemaFile(),
                          JsonDocumentFrame::Opener::PlainFile, doc);
  status.setPercent(20);
  if (Json::IsArrayProperty(doc, "Placement")) {
    PlacementReader reader(part, model, traffic, instancePrefix, solution);
    for (Value const& element : doc["Placement"].GetArray())
      reader.read(element);
  }
  status.setPercent(100);
  return true;
}

bool TQCompilerSolutionReaderJSON::readFromJsonFile(std::istream& in, std::string const& fileName, HDARPart const& part,
                                                    TQLogicalArchModel const& model,
                                                    HrdIPToolCntr::TrafficSpec const& traffic,
                                                    KPEShimInterfaceSolution& solution, HDGUIStatus& status) {
  return readFromJsonFile(in, fileName, part, model, traffic, std::string(), solution, status);
}

bool TQCompilerSolutionReaderJSON::readFromJsonFile(std::string const& fileName, HDARPart const& part,
                                                    TQLogicalArchModel const& model,
                                                    HrdIPToolCntr::TrafficSpec const& traffic,
                                                    std::string const& instancePrefix,
                                                    KPEShimInterfaceSolution& solution, HDGUIStatus& status) {
  std::string const canonical = JsonDocumentFrame::canonicalName(fileName);
  return JsonDocumentFrame::readFile(
      fileName, JsonDocumentFrame::Opener::PlainFile, [&](std::istream& in, std::string const& name) {
        // An empty file is the writer's way of saying that nothing was placed.
        if (HUTFile(canonical).size() <= 0) return false;
        return readFromJsonFile(in, name, part, model, traffic, instancePrefix, solution, status);
      });
}

bool TQCompilerSolutionReaderJSON::readFromJsonFile(std::string const& fileName, HDARPart const& part,
                                                    TQLogicalArchModel const& model,
                                                    HrdIPToolCntr::TrafficSpec const& traffic,
                                                    KPEShimInterfaceSolution& solution, HDGUIStatus& status) {
  return readFromJsonFile(fileName, part, model, traffic, std::string(), solution, status);
}
