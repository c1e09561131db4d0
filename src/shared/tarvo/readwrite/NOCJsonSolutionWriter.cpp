#include "NOCJsonSolutionWriter.h"

#include <ostream>
#include <unordered_set>
#include <vector>

#include "CompRes.h"
#include "HCRapidJsonReadWriteUtils.h"
#include "HIPLogicalObjectNameResolverInterface.h"
#include "JsonDocumentFrame.h"
#include "NOCJsonEnumTexts.h"
#include "NOCJsonReadWriteUtils.h"
#include "NOCSolutionDocumentKeys.h"
#include "TrafficSpec.h"

using namespace DevHrdIP::Definitions;
using DevHrdIP::Component;
using DevHrdIP::Link;
using HrdIPToolCntr::CompRes;
using HrdIPToolCntr::PerfSpec;
using HrdIPToolCntr::Route;
using HrdIPToolCntr::TrafficLInst;
using HrdIPToolCntr::TrafficNet;
using HrdIPToolCntr::TrafficPath;
using HrdIPToolCntr::TrafficSpec;

typedef HCRapidJsonReadWriteUtils Json;
typedef JsonDocumentFrame::Value Value;
typedef JsonDocumentFrame::Document::AllocatorType Allocator;
typedef NOCSolutionDocumentKeys Keys;

namespace NOC {

namespace {

// Components whose destination ids belong to their ports.
bool isMemoryController(COMP_TYPE type) {
  switch (type) {
    case DDRC:
    case DDR5:
    case DDR5C:
    case DDR5E:
    case DDR5X:
    case HBMMC:
      return true;
    default:
      return false;
  }
}

Value stringValue(std::string const& text, Allocator& alloc) {
  return Value(text.data(), static_cast<rapidjson::SizeType>(text.size()), alloc);
}

// One writing of one document.
class SolutionDocumentWriter {
 public:
  SolutionDocumentWriter(TrafficSpec const& spec, CompRes const& result,
                         NOCJsonSolutionWriter::InstanceFilter const& filter,
                         HIPLogicalObjectNameResolverInterface& resolver, Allocator& alloc)
      : m_spec(spec), m_result(result), m_filter(filter), m_resolver(resolver), m_alloc(alloc) {}

  void buildDocument(Value& root) {
    std::vector<TrafficPath const*> const selected = selectPaths();
    Json::AddStringProperty(root, Keys::solutionType, Keys::solutionTypeText(m_result.getSolutionState()), m_alloc);
    Json::AddBooleanProperty(root, Keys::lockAllDestIds, m_result.hasLockedDestIdsForAllComps(), m_alloc);
    Value paths(rapidjson::kArrayType);
    paths.Reserve(static_cast<rapidjson::SizeType>(selected.size()), m_alloc);
    for (TrafficPath const* path : selected)
      paths.PushBack(pathObject(*path), m_alloc);
    addMember(root, Keys::paths, paths);
    Value components(rapidjson::kArrayType);
    if (m_result.getDevice().getNOCModel() != nullptr)
      for (Component const* component : m_result.getDevice().getNOCModel()->getAllTopLevelComponents())
        addComponentEntries(*component, components);
    addMember(root, Keys::components, components);
  }

 private:
  void addMember(Value& object, std::string const& key, Value& value) {
    object.AddMember(rapidjson::StringRef(key.data(), static_cast<rapidjson::SizeType>(key.size())), value, m_alloc);
  }

  // The paths of routed nets in the order of their first routed net, as far as the filter
  // accepts both ends and the net belongs to the specification.
  std::vector<TrafficPath const*> selectPaths() const {
    std::unordered_set<TrafficNet const*> specNets;
    for (int p = 0; p < m_spec.getNumPaths(); ++p) {
      TrafficPath const* path = m_spec.getPath(p);
      for (int n = 0; n < path->getNumNets(); ++n)
        specNets.insert(path->getNet(n));
    }
    std::vector<TrafficPath const*> selected;
    std::unordered_set<TrafficPath const*> seen;
    for (auto const& routed : m_result.getRoutes()) {
      TrafficNet const* net = routed.first;
      if (specNets.count(net) == 0) continue;
      TrafficPath const* path = net->getPath();
      if (!m_filter(path->getMaster()) || !m_filter(path->getSlave())) continue;
      if (seen.insert(path).second) selected.push_back(path);
    }
    return selected;
  }

  // The first external connection name that stands for itself in the design, translated.
  std::string firstExternal(TrafficLInst const& instance) const {
    for (auto const& group : instance.getExternalConnsForAllPorts()) {
      for (std::string const& name : group) {
        if (!m_resolver.isNameInDesign(name)) continue;
        std::string translated = m_resolver.fromNetlistName(name);
        if (!translated.empty()) return translated;
      }
    }
    return std::string();
  }

  std::string masterName(TrafficLInst const& master) const {
    if (m_resolver.isNameInDesign(master.getName())) return m_resolver.fromNetlistInstance(master.getName());
    return firstExternal(master);
  }

  // The name rule of slaves, also used for the instance of a component.
  std::string slaveName(TrafficLInst const& slave) const {
    if (!m_resolver.isNameInDesign(slave.getName())) return firstExternal(slave);
    if (slave.isErrorSlave()) return m_resolver.fromNetlistName(slave.getName());
    return m_resolver.fromNetlistInstance(slave.getName());
  }

  Value pathObject(TrafficPath const& path) {
    PerfSpec const read = path.getReadPerfSpec();
    PerfSpec const write = path.getWritePerfSpec();
    CompRes::AchievedValues const* readAchieved = m_result.getPathReadAchieved(&path);
    CompRes::AchievedValues const* writeAchieved = m_result.getPathWriteAchieved(&path);
    // Without a record, reads show their requirement and writes -1, as the tools expect.
    int const readAchievedBW = static_cast<int>(readAchieved ? readAchieved->bandwidth : read.bandwidth);
    int const writeAchievedBW = writeAchieved ? static_cast<int>(writeAchieved->bandwidth) : -1;

    Value object(rapidjson::kObjectType);
    Json::AddIntegrProperty(object, Keys::phase, path.phase, m_alloc);
    Json::AddStringProperty(object, Keys::from, masterName(*path.getMaster()), m_alloc);
    Json::AddBooleanProperty(object, Keys::fromLocked, m_result.isLogicalInstLocked(path.getMaster()), m_alloc);
    Json::AddStringProperty(object, Keys::to, slaveName(*path.getSlave()), m_alloc);
    Json::AddBooleanProperty(object, Keys::toLocked, m_result.isLogicalInstLocked(path.getSlave()), m_alloc);
    Json::AddStringProperty(object, Keys::port, portTypeToText(path.getSlavePort()), m_alloc);
    Json::AddStringProperty(object, Keys::readTC, trafficClassToText(static_cast<int>(read.trafficClass)), m_alloc);
    Json::AddStringProperty(object, Keys::writeTC, trafficClassToText(static_cast<int>(write.trafficClass)), m_alloc);
    Json::AddIntegrProperty(object, Keys::readBW, static_cast<int>(read.bandwidth), m_alloc);
    Json::AddIntegrProperty(object, Keys::writeBW, static_cast<int>(write.bandwidth), m_alloc);
    Json::AddIntegrProperty(object, Keys::readAchievedBW, readAchievedBW, m_alloc);
    Json::AddIntegrProperty(object, Keys::writeAchievedBW, writeAchievedBW, m_alloc);
    Json::AddIntegrProperty(object, Keys::readLatency, static_cast<int>(read.latency), m_alloc);
    Json::AddIntegrProperty(object, Keys::writeLatency, static_cast<int>(write.latency), m_alloc);
    Json::AddIntegrProperty(object, Keys::readBestPossibleLatency, static_cast<int>(read.latency), m_alloc);
    Json::AddIntegrProperty(object, Keys::writeBestPossibleLatency, static_cast<int>(write.latency), m_alloc);
    Json::AddBooleanProperty(object, Keys::pathLocked, m_result.isLocked(&path), m_alloc);
    Value nets(rapidjson::kArrayType);
    for (int n = 0; n < path.getNumNets(); ++n) {
      TrafficNet const* net = path.getNet(n);
      Route const* route = m_result.getRouteForNet(net);
      // A route of one link goes from a unit straight to its neighbour and is not written.
      if (route == nullptr || route->getLinks().size() < 2) continue;
      nets.PushBack(netObject(*net, *route), m_alloc);
    }
    addMember(object, Keys::nets, nets);
    return object;
  }

  Value netObject(TrafficNet const& net, Route const& route) {
    std::vector<Link const*> const& links = route.getLinks();
    PerfSpec const required = net.getPerfSpec();
    Value object(rapidjson::kObjectType);
    Json::AddStringProperty(object, Keys::phyInstanceStart, links.front()->getSrcComponent()->getName(), m_alloc);
    Json::AddStringProperty(object, Keys::phyInstanceEnd, links.back()->getDstComponent()->getName(), m_alloc);
    Json::AddIntegrProperty(object, Keys::vc, route.getVC(), m_alloc);
    Json::AddStringProperty(object, Keys::commType, Keys::commTypeText(net.getType()), m_alloc);
    Value connections(rapidjson::kArrayType);
    connections.Reserve(static_cast<rapidjson::SizeType>(4 * links.size()), m_alloc);
    for (Link const* link : links) {
      connections.PushBack(stringValue(link->getSrcComponent()->getName(), m_alloc), m_alloc);
      connections.PushBack(stringValue(link->getSrcPortName(), m_alloc), m_alloc);
      connections.PushBack(stringValue(link->getDstComponent()->getName(), m_alloc), m_alloc);
      connections.PushBack(stringValue(link->getDstPortName(), m_alloc), m_alloc);
    }
    addMember(object, Keys::connections, connections);
    Json::AddIntegrProperty(object, Keys::requiredBW, static_cast<int>(required.bandwidth), m_alloc);
    Json::AddIntegrProperty(object, Keys::achievedBW, static_cast<int>(route.getAchievedBW()), m_alloc);
    Json::AddIntegrProperty(object, Keys::requiredLatency, static_cast<int>(required.latency), m_alloc);
    Json::AddIntegrProperty(object, Keys::achievedLatency, static_cast<int>(route.getStructLatency()), m_alloc);
    return object;
  }

  // One entry per destination id: a memory controller's ids are those of its ports, told
  // apart by their index among all ports.
  void addComponentEntries(Component const& component, Value& entries) {
    TrafficLInst const* instance = m_result.getLogicalForPhysical(&component);
    bool const memoryController = isMemoryController(component.getCompType());
    std::vector<Component const*> const self(1, &component);
    std::vector<Component const*> const& targets = memoryController ? component.getPorts() : self;
    for (std::size_t index = 0; index < targets.size(); ++index) {
      if (!m_result.hasDestIdForComponent(targets[index])) continue;
      Value object(rapidjson::kObjectType);
      Json::AddStringProperty(object, Keys::name, component.getName(), m_alloc);
      if (instance != nullptr) Json::AddStringProperty(object, Keys::trafficLInst, slaveName(*instance), m_alloc);
      Json::AddIntegrProperty(object, Keys::destId, m_result.getDestIdForComponent(targets[index]).getValue(), m_alloc);
      if (memoryController) Json::AddIntegrProperty(object, Keys::portIndex, static_cast<int>(index), m_alloc);
      entries.PushBack(object, m_alloc);
    }
  }

  TrafficSpec const& m_spec;
  CompRes const& m_result;
  NOCJsonSolutionWriter::InstanceFilter const& m_filter;
  HIPLogicalObjectNameResolverInterface& m_resolver;
  Allocator& m_alloc;
};

}  // namespace

NOCJsonSolutionWriter::NOCJsonSolutionWriter() = default;

NOCJsonSolutionWriter::~NOCJsonSolutionWriter() = default;

bool NOCJsonSolutionWriter::writeToJsonFile(std::ostream& out, TrafficSpec const& spec, CompRes const& result,
                                            InstanceFilter const& filter,
                                            HIPLogicalObjectNameResolverInterface& resolver, HDGUIStatus&) {
  // The default pool allocator works in chunks of 64 KiB.
  JsonDocumentFrame::Document doc(rapidjson::kObjectType);
  SolutionDocumentWriter(spec, result, filter, resolver, doc.GetAllocator()).buildDocument(doc);
  return JsonDocumentFrame::write(out, doc, NOCJsonReadWriteUtils::getSolutionJsonSchemaFile(), "NoC Solution");
}

bool NOCJsonSolutionWriter::writeToJsonFile(std::ostream& out, TrafficSpec const& spec, CompRes const& result,
                                            HDGUIStatus& status) {
  HIPLogicalObjectNameResolverInterfaceIdentity identity;
  InstanceFilter const acceptAll = [](TrafficLInst const* const&) { return true; };
  return writeToJsonFile(out, spec, result, acceptAll, identity, status);
}

bool NOCJsonSolutionWriter::writeToJsonFile(std::string const& fileName, TrafficSpec const& spec, CompRes const& result,
                                            HDGUIStatus& status) {
  return JsonDocumentFrame::writeFile(fileName,
                                      [&](std::ostream& out) { return writeToJsonFile(out, spec, result, status); });
}

}  // namespace NOC
