#include "NOCJsonSolutionWriter.h"

#include <ostream>
#include <unordered_set>
#include <utility>
#include <vector>

#include "CompRes.h"
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

// Keys, enumeration texts and the device's names outlive the document, which lives only
// for the call: they are referenced, not copied, which saves a large solution millions of
// copies. Names made for the document are copied.
Value ref(std::string const& text) {
  return Value(rapidjson::StringRef(text.data(), text.size()));
}

Value ref(char const* text) {
  return Value(rapidjson::StringRef(text));
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
    add(root, Keys::solutionType, ref(Keys::solutionTypeText(m_result.getSolutionState())));
    add(root, Keys::lockAllDestIds, Value(m_result.hasLockedDestIdsForAllComps()));
    Value paths(rapidjson::kArrayType);
    paths.Reserve(static_cast<rapidjson::SizeType>(selected.size()), m_alloc);
    for (TrafficPath const* path : selected)
      paths.PushBack(pathObject(*path), m_alloc);
    add(root, Keys::paths, std::move(paths));
    Value components(rapidjson::kArrayType);
    if (m_result.getDevice().getNOCModel() != nullptr)
      for (Component const* component : m_result.getDevice().getNOCModel()->getAllTopLevelComponents())
        addComponentEntries(*component, components);
    add(root, Keys::components, std::move(components));
  }

 private:
  void add(Value& object, std::string const& key, Value&& value) {
    object.AddMember(rapidjson::StringRef(key.data(), key.size()), value, m_alloc);
  }

  Value copy(std::string const& text) {
    return Value(text.data(), static_cast<rapidjson::SizeType>(text.size()), m_alloc);
  }

  // The paths of routed nets in the order of their first routed net, as far as the filter
  // accepts both ends and the net belongs to the traffic specification.
  std::vector<TrafficPath const*> selectPaths() const {
    std::vector<TrafficPath const*> selected;
    std::unordered_set<TrafficPath const*> seen;
    for (auto const& routed : m_result.getRoutes()) {
      TrafficPath const* path = routed.first->getPath();
      if (!belongsToSpec(*path)) continue;
      if (!m_filter(path->getMaster()) || !m_filter(path->getSlave())) continue;
      if (seen.insert(path).second) selected.push_back(path);
    }
    return selected;
  }

  // A path knows its place in its traffic specification, so no set of all nets is needed.
  bool belongsToSpec(TrafficPath const& path) const {
    int const index = static_cast<int>(path.getIndex());
    return index < m_spec.getNumPaths() && m_spec.getPath(index) == &path;
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
    add(object, Keys::phase, Value(path.phase));
    add(object, Keys::from, copy(masterName(*path.getMaster())));
    add(object, Keys::fromLocked, Value(m_result.isLogicalInstLocked(path.getMaster())));
    add(object, Keys::to, copy(slaveName(*path.getSlave())));
    add(object, Keys::toLocked, Value(m_result.isLogicalInstLocked(path.getSlave())));
    add(object, Keys::port, ref(portTypeToText(path.getSlavePort())));
    add(object, Keys::readTC, ref(trafficClassToText(static_cast<int>(read.trafficClass))));
    add(object, Keys::writeTC, ref(trafficClassToText(static_cast<int>(write.trafficClass))));
    add(object, Keys::readBW, Value(static_cast<int>(read.bandwidth)));
    add(object, Keys::writeBW, Value(static_cast<int>(write.bandwidth)));
    add(object, Keys::readAchievedBW, Value(readAchievedBW));
    add(object, Keys::writeAchievedBW, Value(writeAchievedBW));
    add(object, Keys::readLatency, Value(static_cast<int>(read.latency)));
    add(object, Keys::writeLatency, Value(static_cast<int>(write.latency)));
    add(object, Keys::readBestPossibleLatency, Value(static_cast<int>(read.latency)));
    add(object, Keys::writeBestPossibleLatency, Value(static_cast<int>(write.latency)));
    add(object, Keys::pathLocked, Value(m_result.isLocked(&path)));
    Value nets(rapidjson::kArrayType);
    nets.Reserve(static_cast<rapidjson::SizeType>(path.getNumNets()), m_alloc);
    for (int n = 0; n < path.getNumNets(); ++n) {
      TrafficNet const* net = path.getNet(n);
      Route const* route = m_result.getRouteForNet(net);
      // A route of one link goes from a unit straight to its neighbour and is not written.
      if (route == nullptr || route->getLinks().size() < 2) continue;
      nets.PushBack(netObject(*net, *route), m_alloc);
    }
    add(object, Keys::nets, std::move(nets));
    return object;
  }

  Value netObject(TrafficNet const& net, Route const& route) {
    std::vector<Link const*> const& links = route.getLinks();
    PerfSpec const required = net.getPerfSpec();
    Value object(rapidjson::kObjectType);
    add(object, Keys::phyInstanceStart, ref(links.front()->getSrcComponent()->getName()));
    add(object, Keys::phyInstanceEnd, ref(links.back()->getDstComponent()->getName()));
    add(object, Keys::vc, Value(static_cast<int>(route.getVC())));
    add(object, Keys::commType, ref(Keys::commTypeText(net.getType())));
    Value connections(rapidjson::kArrayType);
    connections.Reserve(static_cast<rapidjson::SizeType>(4 * links.size()), m_alloc);
    for (Link const* link : links) {
      connections.PushBack(ref(link->getSrcComponent()->getName()), m_alloc);
      connections.PushBack(ref(link->getSrcPortName()), m_alloc);
      connections.PushBack(ref(link->getDstComponent()->getName()), m_alloc);
      connections.PushBack(ref(link->getDstPortName()), m_alloc);
    }
    add(object, Keys::connections, std::move(connections));
    add(object, Keys::requiredBW, Value(static_cast<int>(required.bandwidth)));
    add(object, Keys::achievedBW, Value(static_cast<int>(route.getAchievedBW())));
    add(object, Keys::requiredLatency, Value(static_cast<int>(required.latency)));
    add(object, Keys::achievedLatency, Value(static_cast<int>(route.getStructLatency())));
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
      add(object, Keys::name, ref(component.getName()));
      if (instance != nullptr) add(object, Keys::trafficLInst, copy(slaveName(*instance)));
      add(object, Keys::destId, Value(static_cast<int>(m_result.getDestIdForComponent(targets[index]).getValue())));
      if (memoryController) add(object, Keys::portIndex, Value(static_cast<int>(index)));
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
