#include "NOCJsonTrafficSpecWriter.h"

#include <ostream>

#include "HCRapidJsonReadWriteUtils.h"
#include "HIPLogicalObjectNameResolverInterface.h"
#include "HPAParamMgr.h"
#include "JsonDocumentFrame.h"
#include "NOCJsonEnumTexts.h"
#include "NOCJsonReadWriteUtils.h"
#include "NOCTrafficDocumentKeys.h"
#include "TrafficSpec.h"

using namespace DevHrdIP::Definitions;
using HrdIPToolCntr::PerfSpec;
using HrdIPToolCntr::TrafficLInst;
using HrdIPToolCntr::TrafficPath;
using HrdIPToolCntr::TrafficSpec;

typedef HCRapidJsonReadWriteUtils Json;
typedef JsonDocumentFrame::Value Value;
typedef NOCTrafficDocumentKeys Keys;
typedef JsonDocumentFrame::Document::AllocatorType Allocator;

namespace NOC {

namespace {

// "0x" and upper-case hexadecimal digits without leading zeros; zero is "0x0".
std::string hexText(uint64_t value) {
  char digits[16];
  int count = 0;
  do {
    digits[count++] = "0123456789ABCDEF"[value & 0xF];
    value >>= 4;
  } while (value != 0);
  std::string text = "0x";
  while (count > 0)
    text += digits[--count];
  return text;
}

// The number of a port text of the form "PORT<digits>", otherwise 0.
std::size_t portIndexOf(std::string const& portText) {
  static std::string const prefix = "PORT";
  if (portText.size() <= prefix.size() || portText.compare(0, prefix.size(), prefix) != 0) return 0;
  std::size_t index = 0;
  for (std::size_t i = prefix.size(); i < portText.size(); ++i) {
    if (portText[i] < '0' || portText[i] > '9') return 0;
    index = index * 10 + static_cast<std::size_t>(portText[i] - '0');
  }
  return index;
}

// One writing of one document.
class TrafficDocumentWriter {
 public:
  TrafficDocumentWriter(TrafficSpec const& spec, NOCJsonTrafficSpecWriter::InstanceFilter const& filter,
                        HIPLogicalObjectNameResolverInterface& resolver, Allocator& alloc)
      : m_spec(spec),
        m_filter(filter),
        m_resolver(resolver),
        m_alloc(alloc),
        m_blockModel(HPAParamMgr::getParamMgr().getValueAsBool("project.enableBlockModel")) {}

  void buildDocument(Value& root);

 private:
  // Whether "SystemProperties" has anything to hold.
  bool hasSystemProperties() const;
  Value systemProperties();
  Value logicalInstances();
  Value paths();
  struct ExternalNames {
    std::string joined;
    std::string first;
  };

  Value instanceObject(TrafficLInst const& instance);
  void addTrafficKeys(TrafficLInst const& instance, Value& object);
  void addSysAddresses(TrafficLInst const& instance, Value& object);
  void addRemaps(TrafficLInst const& instance, Value& object);
  void addParams(std::string const& key, std::map<std::string, std::string> const& params, Value& object);
  bool addPathObject(TrafficPath const& path, Value& paths);
  void addPathKeys(TrafficPath const& path, Value& object);
  Value phaseGroups(TrafficPath const& path);
  ExternalNames externalNames(TrafficLInst const& instance);
  // The document name of a path end; empty when it has none, which drops the path.
  std::string pathEndName(TrafficLInst const& instance, std::size_t portIndex);
  static std::string const& commType(TrafficPath const& path);
  // Appends a built array or object by moving it, which leaves `value` null. Keys come from the
  // key table, which outlives the document, and are not copied.
  void addMember(Value& object, std::string const& key, Value& value) {
    object.AddMember(Value(rapidjson::StringRef(key.data(), static_cast<rapidjson::SizeType>(key.size()))), value,
                     m_alloc);
  }

  TrafficSpec const& m_spec;
  NOCJsonTrafficSpecWriter::InstanceFilter const& m_filter;
  HIPLogicalObjectNameResolverInterface& m_resolver;
  Allocator& m_alloc;
  // A block-level memory controller resolves a path end to the port's own connection.
  bool const m_blockModel;
};

void TrafficDocumentWriter::buildDocument(Value& root) {
  if (hasSystemProperties()) {
    Value properties = systemProperties();
    addMember(root, Keys::systemProperties, properties);
  }
  Value instances = logicalInstances();
  addMember(root, Keys::logicalInstances, instances);
  Value paths = this->paths();
  addMember(root, Keys::paths, paths);
}

bool TrafficDocumentWriter::hasSystemProperties() const {
  return m_spec.isUserSetFrequency() || !m_spec.getRcfPaths().empty() || m_spec.getSecureMode() ||
         m_spec.hasValidDeviceName();
}

Value TrafficDocumentWriter::systemProperties() {
  Value properties(rapidjson::kObjectType);
  if (m_spec.isUserSetFrequency()) Json::AddIntegrProperty(properties, Keys::frequency, m_spec.getFrequency(), m_alloc);
  if (!m_spec.getRcfPaths().empty() && !m_resolver.suppressRcfPaths(std::string()))
    Json::AddStringArrayProperty(properties, Keys::rcfPaths, m_spec.getRcfPaths(), m_alloc);
  if (m_spec.getSecureMode()) Json::AddBooleanProperty(properties, Keys::secureMode, true, m_alloc);
  if (m_spec.hasValidDeviceName())
    Json::AddStringProperty(properties, Keys::deviceName, m_spec.getDeviceName(), m_alloc);
  return properties;
}

Value TrafficDocumentWriter::logicalInstances() {
  Value instances(rapidjson::kArrayType);
  for (TrafficLInst const* instance : m_spec.getAllLogicalInstance()) {
    if (m_filter(instance)) instances.PushBack(instanceObject(*instance), m_alloc);
  }
  return instances;
}

Value TrafficDocumentWriter::paths() {
  Value paths(rapidjson::kArrayType);
  for (int i = 0; i < m_spec.getNumPaths(); ++i) {
    TrafficPath const& path = *m_spec.getPath(i);
    bool const masterAccepted = m_filter(path.getMaster());
    bool const slaveAccepted = m_filter(path.getSlave());
    if (masterAccepted && slaveAccepted) addPathObject(path, paths);
  }
  return paths;
}

Value TrafficDocumentWriter::instanceObject(TrafficLInst const& instance) {
  std::string const& name = instance.getName();
  std::string const baseName =
      instance.isErrorSlave() ? m_resolver.fromNetlistName(name) : m_resolver.fromNetlistInstance(name);
  bool const nameMissing = !m_resolver.isNameInDesign(name);
  ExternalNames const external = externalNames(instance);

  Value object(rapidjson::kObjectType);
  Json::AddStringProperty(object, Keys::name, nameMissing ? external.first : baseName, m_alloc);
  if (!instance.getDesignName().empty())
    Json::AddStringProperty(object, Keys::designName, instance.getDesignName(), m_alloc);
  Json::AddBooleanProperty(object, Keys::isMaster, instance.isMaster(), m_alloc);
  if (instance.getUseDestIdIdx()) Json::AddBooleanProperty(object, Keys::useDestIdIdx, true, m_alloc);
  if (instance.hasParityAddr()) Json::AddBooleanProperty(object, Keys::hasParityAddr, true, m_alloc);
  if (instance.hasParityData()) Json::AddBooleanProperty(object, Keys::hasParityData, true, m_alloc);
  Json::AddStringProperty(object, Keys::compType, compTypeToText(instance.getCompType()), m_alloc);
  if (instance.firewall) Json::AddBooleanProperty(object, Keys::firewall, true, m_alloc);
  Json::AddStringProperty(object, Keys::protocol, axiProtToText(instance.getProtocol()), m_alloc);
  addTrafficKeys(instance, object);
  addSysAddresses(instance, object);
  if (instance.isMaster()) addRemaps(instance, object);
  addParams(Keys::memoryParams, instance.getMemoryParams(), object);
  addParams(Keys::configParams, instance.getConfigParams(), object);
  if (instance.isVirtual() || nameMissing) Json::AddBooleanProperty(object, Keys::isVirtual, true, m_alloc);
  if (!instance.ipName.empty()) {
    Value simMetaData(rapidjson::kObjectType);
    Json::AddStringProperty(simMetaData, Keys::ipName, instance.ipName, m_alloc);
    addMember(object, Keys::simMetaData, simMetaData);
  }
  if (instance.isExistDestId()) Json::AddIntegrProperty(object, Keys::destId, instance.getDestId().getValue(), m_alloc);
  if (!external.joined.empty()) Json::AddStringProperty(object, Keys::externalConn, external.joined, m_alloc);
  return object;
}

// From "ReadTC" to "InterleaveSel": the keys between "Protocol" and "SysAddresses".
void TrafficDocumentWriter::addTrafficKeys(TrafficLInst const& instance, Value& object) {
  if (instance.isMaster()) {
    Json::AddStringProperty(object, Keys::readTC, trafficClassToText(instance.getReadTC()), m_alloc);
    Json::AddStringProperty(object, Keys::writeTC, trafficClassToText(instance.getWriteTC()), m_alloc);
  }
  if (!instance.getPortTypes().empty()) {
    std::vector<std::string> ports;
    for (PORT_TYPE port : instance.getPortTypes())
      ports.push_back(portTypeToText(port));
    Json::AddStringArrayProperty(object, Keys::ports, ports, m_alloc);
  }
  if (instance.getAxiWidth() != 0)
    Json::AddIntegrProperty(object, Keys::axiDataWidth, static_cast<int>(instance.getAxiWidth()), m_alloc);
  if (instance.getNumReadOutstanding() != 0)
    Json::AddIntegrProperty(object, Keys::numReadOutstanding, instance.getNumReadOutstanding(), m_alloc);
  if (instance.getNumWriteOutstanding() != 0)
    Json::AddIntegrProperty(object, Keys::numWriteOutstanding, instance.getNumWriteOutstanding(), m_alloc);
  if (instance.getReadRateLimiter() != 0.0f)
    Json::AddDoubleProperty(object, Keys::readRateLimiter, instance.getReadRateLimiter(), m_alloc);
  if (instance.getWriteRateLimiter() != 0.0f)
    Json::AddDoubleProperty(object, Keys::writeRateLimiter, instance.getWriteRateLimiter(), m_alloc);
  if (instance.getDdrInterleaveSize() != 0)
    Json::AddIntegrProperty(object, Keys::interleaveSize, static_cast<int>(instance.getDdrInterleaveSize()), m_alloc);
  if (instance.getDdrInterleaveSel() != 0)
    Json::AddIntegrProperty(object, Keys::interleaveSel, instance.getDdrInterleaveSel(), m_alloc);
}

void TrafficDocumentWriter::addSysAddresses(TrafficLInst const& instance, Value& object) {
  if (!instance.hasValidSysAddress(0)) return;
  Value addresses(rapidjson::kArrayType);
  for (int i = 0; instance.hasValidSysAddress(i); ++i) {
    Value address(rapidjson::kObjectType);
    Json::AddStringProperty(address, Keys::base, hexText(instance.getSysAddress(i)), m_alloc);
    Json::AddStringProperty(address, Keys::size, hexText(instance.getSysAddrSize(i)), m_alloc);
    addresses.PushBack(address, m_alloc);
  }
  addMember(object, Keys::sysAddresses, addresses);
}

void TrafficDocumentWriter::addRemaps(TrafficLInst const& instance, Value& object) {
  if (instance.getRemapAddrSpecs().empty()) return;
  Value remaps(rapidjson::kArrayType);
  for (auto const& remap : instance.getRemapAddrSpecs()) {
    Value entry(rapidjson::kObjectType);
    Json::AddStringProperty(entry, Keys::logical, hexText(remap.logical), m_alloc);
    Json::AddStringProperty(entry, Keys::physical, hexText(remap.physical), m_alloc);
    Json::AddStringProperty(entry, Keys::range, hexText(remap.range), m_alloc);
    remaps.PushBack(entry, m_alloc);
  }
  addMember(object, Keys::remap, remaps);
}

void TrafficDocumentWriter::addParams(std::string const& key, std::map<std::string, std::string> const& params,
                                      Value& object) {
  if (params.empty()) return;
  Value values(rapidjson::kObjectType);
  for (auto const& param : params)
    Json::AddStringProperty(values, param.first, param.second, m_alloc);
  addMember(object, key, values);
}

bool TrafficDocumentWriter::addPathObject(TrafficPath const& path, Value& paths) {
  std::string const portText = portTypeToText(path.getSlavePort());
  std::size_t const portIndex = portIndexOf(portText);
  TrafficLInst const& master = *path.getMaster();
  TrafficLInst const& slave = *path.getSlave();
  std::string const from = pathEndName(master, portIndex);
  std::string const to =
      slave.isErrorSlave() ? m_resolver.fromNetlistName(slave.getName()) : pathEndName(slave, portIndex);
  if (from.empty() || to.empty()) return false;

  Value object(rapidjson::kObjectType);
  Json::AddIntegrProperty(object, Keys::phase, path.phase, m_alloc);
  Json::AddStringProperty(object, Keys::from, from, m_alloc);
  Json::AddStringProperty(object, Keys::to, to, m_alloc);
  Json::AddStringProperty(object, Keys::port, portText, m_alloc);
  Json::AddStringProperty(object, Keys::commType, commType(path), m_alloc);
  addPathKeys(path, object);
  paths.PushBack(object, m_alloc);
  return true;
}

// From "ReadBW" on.
void TrafficDocumentWriter::addPathKeys(TrafficPath const& path, Value& object) {
  PerfSpec const read = path.getReadPerfSpec();
  PerfSpec const write = path.getWritePerfSpec();
  Json::AddULongProperty(object, Keys::readBW, read.bandwidth, m_alloc);
  Json::AddULongProperty(object, Keys::readLatency, read.latency, m_alloc);
  Json::AddULongProperty(object, Keys::readAvgBurst, path.getReadAvgBurst(), m_alloc);
  Json::AddULongProperty(object, Keys::writeBW, write.bandwidth, m_alloc);
  Json::AddULongProperty(object, Keys::writeLatency, write.latency, m_alloc);
  Json::AddULongProperty(object, Keys::writeAvgBurst, path.getWriteAvgBurst(), m_alloc);
  if (path.getWoc() != WO_INVALID)
    Json::AddStringProperty(object, Keys::writeOrder, writeOrderToText(path.getWoc()), m_alloc);
  if (!path.getExclusiveGroup().empty())
    Json::AddStringProperty(object, Keys::exclusiveGroup, path.getExclusiveGroup(), m_alloc);
  if (!path.getSeparateRoutingGroup().empty())
    Json::AddStringProperty(object, Keys::separateRoutingGroup, path.getSeparateRoutingGroup(), m_alloc);
  if (path.isExistDestIdIndex())
    Json::AddIntegrProperty(object, Keys::destIdIndex, path.getDestIdIndex().getValue(), m_alloc);
  if (path.isInitialBoot()) Json::AddBooleanProperty(object, Keys::initialBoot, true, m_alloc);
  if (path.hasValidDestIdIdx(0)) {
    Value ranges(rapidjson::kArrayType);
    for (int i = 0; path.hasValidDestIdIdx(i); ++i) {
      Value range(rapidjson::kObjectType);
      Json::AddIntegrProperty(range, Keys::startIdx, path.getDestIdIdxStart(i), m_alloc);
      Json::AddIntegrProperty(range, Keys::endIdx, path.getDestIdIdxEnd(i), m_alloc);
      ranges.PushBack(range, m_alloc);
    }
    addMember(object, Keys::destIdIdx, ranges);
  }
  if (path.getHighPriorityRouting()) Json::AddBooleanProperty(object, Keys::highPriorityRouting, true, m_alloc);
  if (path.hasMultipleReadPhases() || path.hasMultipleWritePhases()) {
    Value groups = phaseGroups(path);
    addMember(object, Keys::phaseGroups, groups);
  }
}

Value TrafficDocumentWriter::phaseGroups(TrafficPath const& path) {
  Value groups(rapidjson::kArrayType);
  for (std::string const& groupName : m_spec.getAllPhaseGroups()) {
    Value phases(rapidjson::kArrayType);
    for (std::string const& phaseName : m_spec.getAllPhasesForPhaseGroup(groupName)) {
      if (phaseName == TrafficSpec::getDefaultPhaseName()) continue;
      Value phase(rapidjson::kObjectType);
      Json::AddStringProperty(phase, Keys::name, phaseName, m_alloc);
      Json::AddULongProperty(phase, Keys::readBW, path.getReadPerfSpec(phaseName).bandwidth, m_alloc);
      Json::AddULongProperty(phase, Keys::writeBW, path.getWritePerfSpec(phaseName).bandwidth, m_alloc);
      Json::AddULongProperty(phase, Keys::readAvgBurst, path.getReadAvgBurst(phaseName), m_alloc);
      Json::AddULongProperty(phase, Keys::writeAvgBurst, path.getWriteAvgBurst(phaseName), m_alloc);
      phases.PushBack(phase, m_alloc);
    }
    Value group(rapidjson::kObjectType);
    Json::AddStringProperty(group, Keys::name, groupName, m_alloc);
    addMember(group, Keys::phases, phases);
    groups.PushBack(group, m_alloc);
  }
  return groups;
}

TrafficDocumentWriter::ExternalNames TrafficDocumentWriter::externalNames(TrafficLInst const& instance) {
  ExternalNames names;
  TrafficLInst::ExternalConns const& groups = instance.getExternalConnsForAllPorts();
  for (std::size_t index = 0; index < groups.size(); ++index) {
    if (index > 0) names.joined += ',';
    for (std::string const& name : groups[index]) {
      if (!m_resolver.isNameInDesign(name)) continue;
      std::string const translated = m_resolver.fromNetlistName(name);
      if (translated.empty()) continue;
      if (!names.joined.empty()) names.joined += ' ';
      names.joined += translated;
      if (names.first.empty()) names.first = translated;
    }
  }
  return names;
}

std::string TrafficDocumentWriter::pathEndName(TrafficLInst const& instance, std::size_t portIndex) {
  if (m_resolver.isNameInDesign(instance.getName())) return m_resolver.fromNetlistName(instance.getName());
  TrafficLInst::ExternalConns const& groups = instance.getExternalConnsForAllPorts();
  if (m_blockModel && portIndex < groups.size() && instance.getCompType() == DDRC) {
    for (std::string const& name : groups[portIndex]) {
      if (m_resolver.isNameInDesign(name)) return m_resolver.fromNetlistName(name);
    }
    return std::string();
  }
  for (auto const& group : groups) {
    for (std::string const& name : group) {
      if (m_resolver.isNameInDesign(name)) return m_resolver.fromNetlistName(name);
    }
  }
  return m_resolver.fromNetlistName(instance.getName());
}

std::string const& TrafficDocumentWriter::commType(TrafficPath const& path) {
  if (path.getMaster()->getProtocol() != AXI_MM) return Keys::streamCommType;
  PerfSpec const read = path.getReadPerfSpec();
  PerfSpec const write = path.getWritePerfSpec();
  std::string const* type = &Keys::readWriteCommType;
  if (read.latency == 0 && read.bandwidth == 0) type = &Keys::writeOnlyCommType;
  // Neither reads nor writes comes out as read only.
  if (write.latency == 0 && write.bandwidth == 0) type = &Keys::readOnlyCommType;
  return *type;
}

}  // namespace

NOCJsonTrafficSpecWriter::NOCJsonTrafficSpecWriter() = default;

NOCJsonTrafficSpecWriter::~NOCJsonTrafficSpecWriter() = default;

bool NOCJsonTrafficSpecWriter::writeToJsonFile(std::ostream& out, TrafficSpec const& spec, InstanceFilter const& filter,
                                               HIPLogicalObjectNameResolverInterface& resolver, HDGUIStatus&) {
  if (spec.getAllLogicalInstance().empty() && spec.getUserSetFrequency() == 0 && !spec.hasRcfPaths()) return false;
  JsonDocumentFrame::Document doc(rapidjson::kObjectType);
  TrafficDocumentWriter writer(spec, filter, resolver, doc.GetAllocator());
  writer.buildDocument(doc);
  return JsonDocumentFrame::write(out, doc, NOCJsonReadWriteUtils::getTrafficJsonSchemaFile(), "NoC Traffic Spec");
}

bool NOCJsonTrafficSpecWriter::writeToJsonFile(std::ostream& out, TrafficSpec const& spec, HDGUIStatus& status) {
  HIPLogicalObjectNameResolverInterfaceIdentity identity;
  InstanceFilter const acceptAll = [](TrafficLInst const*) { return true; };
  return writeToJsonFile(out, spec, acceptAll, identity, status);
}

bool NOCJsonTrafficSpecWriter::writeToJsonFile(std::string const& fileName, TrafficSpec const& spec,
                                               HDGUIStatus& status) {
  return JsonDocumentFrame::writeFile(fileName, [&](std::ostream& out) { return writeToJsonFile(out, spec, status); });
}

}  // namespace NOC
