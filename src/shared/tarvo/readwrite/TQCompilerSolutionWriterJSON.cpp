#include "TQCompilerSolutionWriterJSON.h"

#include <memory>
#include <ostream>
#include <vector>

#include "JsonDocumentFrame.h"
#include "JsonEventFrame.h"
#include "KPEExchangeDocumentOutput.h"
#include "KPEGRMDeviceUtils.h"
#include "KPEShimPortSites.h"
#include "NOCJsonReadWriteUtils.h"
#include "StringScan.h"
#include "TQLogicalArchModel.h"

using namespace Tarvo::Frameworks;

namespace {

// The instance's name as the reader will look for it: without the prefix and one "/".
std::string documentInstanceName(std::string name, std::string const& instancePrefix) {
  if (tarvo::jsonio::StringScan::startsWith(name, instancePrefix)) name.erase(0, instancePrefix.size());
  if (!name.empty() && name[0] == '/') name.erase(0, 1);
  return name;
}

// One placement object: the port, the document name of its instance, and its sites, the
// range [firstSite, endSite) of the list of all sites.
struct Placement {
  std::size_t instanceName;
  TQLogicalPort const* port;
  std::size_t firstSite;
  std::size_t endSite;
};

// What the document holds, gathered before any text is written: with nothing placed
// nothing is written, and the schema isn't even loaded.
struct Placements {
  std::vector<std::string> instanceNames;
  std::vector<Placement> placements;
  std::vector<GRMBel> sites;

  void gather(TQLogicalArchModel const& model, HrdIPToolCntr::TrafficSpec const& traffic,
              KPEShimInterfaceSolution const& solution, std::string const& instancePrefix) {
    std::vector<TQLogicalTQIPInstance*> instances;
    model.getTQIPInstances(instances);
    for (TQLogicalTQIPInstance const* instance : instances) {
      if (!tarvo::jsonio::StringScan::startsWith(instance->getName(), instancePrefix)) continue;
      instanceNames.push_back(documentInstanceName(instance->getName(), instancePrefix));
      for (TQLogicalPort const* port : instance->getPorts()) {
        if (port == nullptr) continue;
        std::vector<GRMBel> const placed = KPEShimPortSites::placedSites(*port, traffic, solution);
        if (placed.empty()) continue;
        std::size_t name = instanceNames.size() - 1;
        TQLogicalArchLInst const* parent = port->getParentInstance();
        if (parent != nullptr && parent != instance) {
          instanceNames.push_back(documentInstanceName(parent->getName(), instancePrefix));
          name = instanceNames.size() - 1;
        }
        placements.push_back(Placement{name, port, sites.size(), sites.size() + placed.size()});
        sites.insert(sites.end(), placed.begin(), placed.end());
      }
    }
  }

  template <typename Emitter>
  void emit(Emitter& emitter, HDARPart const& part) const {
    emitter.startObject();
    emitter.key("Placement");
    emitter.startArray();
    for (Placement const& placement : placements) {
      emitter.startObject();
      emitter.key("LogicalInstance");
      emitter.startObject();
      emitter.key("InstanceName");
      emitter.string(instanceNames[placement.instanceName]);
      emitter.key("PortName");
      emitter.string(placement.port->getName());
      emitter.endObject();
      emitter.key("PhysicalInstance");
      emitter.startArray();
      for (std::size_t site = placement.firstSite; site != placement.endSite; ++site)
        emitSite(emitter, part, sites[site]);
      emitter.endArray();
      emitter.key("IsSoft");
      emitter.boolean(false);
      emitter.endObject();
    }
    emitter.endArray();
    emitter.endObject();
  }

 private:
  template <typename Emitter>
  static void emitSite(Emitter& emitter, HDARPart const& part, GRMBel const& site) {
    emitter.startObject();
    emitter.key("name");
    emitter.string(KPEGRMDeviceUtils::getHierName(part, site));
    emitter.key("column");
    emitter.int64(KPEGRMDeviceUtils::getShimColumn(part, site));
    emitter.key("channel");
    emitter.int64(KPEGRMDeviceUtils::getIndexOfChanInShim(part, site));
    emitter.endObject();
  }
};

}  // namespace

bool TQCompilerSolutionWriterJSON::writeToJsonFile(std::string const& instancePrefix, std::ostream& out,
                                                   TQLogicalArchModel const& model,
                                                   HrdIPToolCntr::TrafficSpec const& traffic,
                                                   KPEShimInterfaceSolution const& solution, HDARPart const& part,
                                                   HDGUIStatus&) {
  Placements placements;
  placements.gather(model, traffic, solution, instancePrefix);
  if (placements.placements.empty()) return true;
  std::unique_ptr<rapidjson::SchemaDocument> const schema =
      JsonDocumentFrame::loadSchema(NOCJsonReadWriteUtils::getTQSolutionJsonSchemaFile());
  JsonDocumentFrame::SchemaViolation violation;
  // The document is written as it is walked, without a tree: a tree of ten thousands of
  // ports costs as much to build as to write.
  if (JsonEventFrame::writeValidated(
          out, *schema, [&](auto& emitter) { placements.emit(emitter, part); }, &violation))
    return true;
  KPEExchangeDocumentOutput::reportViolation(violation);
  return false;
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
