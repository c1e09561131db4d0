#include "NOCJsonTrafficSpecWriter.h"

#include <cstdint>
#include <map>
#include <memory>
#include <ostream>
#include <type_traits>

#include "ComMsgMgr.h"
#include "HIPLogicalObjectNameResolverInterface.h"
#include "HPAParamMgr.h"
#include "JsonDocumentFrame.h"
#include "JsonEventFrame.h"
#include "NOCJsonEnumTexts.h"
#include "NOCJsonReadWriteUtils.h"
#include "NOCTrafficDocumentKeys.h"
#include "TrafficSpec.h"

using namespace DevHrdIP::Definitions;
using HrdIPToolCntr::PerfSpec;
using HrdIPToolCntr::TrafficLInst;
using HrdIPToolCntr::TrafficPath;
using HrdIPToolCntr::TrafficSpec;

typedef NOCTrafficDocumentKeys Keys;

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

// One writing of one document, sent as events as the TrafficSpec is walked: a document tree of
// a large traffic model costs more to build than to write, and holds several times the text.
// The resolver is asked in the order a tree was once built in.
template <typename Emitter>
class TrafficDocumentEvents {
 public:
  TrafficDocumentEvents(Emitter& emit, TrafficSpec const& spec, NOCJsonTrafficSpecWriter::InstanceFilter const& filter,
                        HIPLogicalObjectNameResolverInterface& resolver)
      : m_emit(emit),
        m_spec(spec),
        m_filter(filter),
        m_resolver(resolver),
        m_blockModel(HPAParamMgr::getParamMgr().getValueAsBool("project.enableBlockModel")) {}

  void document() {
    m_emit.startObject();
    if (hasSystemProperties()) {
      m_emit.key(Keys::systemProperties);
      systemProperties();
    }
    m_emit.key(Keys::logicalInstances);
    logicalInstances();
    m_emit.key(Keys::paths);
    paths();
    m_emit.endObject();
  }

 private:
  // Whether "SystemProperties" has anything to hold.
  bool hasSystemProperties() const;
  void systemProperties();
  void logicalInstances();
  void paths();
  struct ExternalNames {
    std::string joined;
    std::string first;
  };

  void instanceObject(TrafficLInst const& instance);
  void trafficKeys(TrafficLInst const& instance);
  void sysAddresses(TrafficLInst const& instance);
  void remaps(TrafficLInst const& instance);
  void params(std::string const& key, std::map<std::string, std::string> const& params);
  void pathObject(TrafficPath const& path);
  void pathKeys(TrafficPath const& path);
  void phaseGroups(TrafficPath const& path);
  ExternalNames externalNames(TrafficLInst const& instance);
  // The document name of a path end; empty when it has none, which drops the path.
  std::string pathEndName(TrafficLInst const& instance, std::size_t portIndex);
  static std::string const& commType(TrafficPath const& path);

  void member(std::string const& key, std::string const& text) {
    m_emit.key(key);
    m_emit.string(text);
  }
  void member(std::string const& key, char const* text) {
    m_emit.key(key);
    m_emit.string(text);
  }
  void member(std::string const& key, bool value) {
    m_emit.key(key);
    m_emit.boolean(value);
  }
  void integerMember(std::string const& key, std::int64_t value) {
    m_emit.key(key);
    m_emit.int64(value);
  }
  void unsignedMember(std::string const& key, std::uint64_t value) {
    m_emit.key(key);
    m_emit.uint64(value);
  }

  Emitter& m_emit;
  TrafficSpec const& m_spec;
  NOCJsonTrafficSpecWriter::InstanceFilter const& m_filter;
  HIPLogicalObjectNameResolverInterface& m_resolver;
  // A block-level memory controller resolves a path end to the port's own connection.
  bool const m_blockModel;
};

template <typename Emitter>
bool TrafficDocumentEvents<Emitter>::hasSystemProperties() const {
  return m_spec.isUserSetFrequency() || !m_spec.getRcfPaths().empty() || m_spec.getSecureMode() ||
         m_spec.hasValidDeviceName();
}

template <typename Emitter>
void TrafficDocumentEvents<Emitter>::systemProperties() {
  m_emit.startObject();
  if (m_spec.isUserSetFrequency()) integerMember(Keys::frequency, m_spec.getFrequency());
  if (!m_spec.getRcfPaths().empty() && !m_resolver.suppressRcfPaths(std::string())) {
    m_emit.key(Keys::rcfPaths);
    m_emit.startArray();
    for (std::string const& path : m_spec.getRcfPaths())
      m_emit.string(path);
    m_emit.endArray();
  }
  if (m_spec.getSecureMode()) member(Keys::secureMode, true);
  if (m_spec.hasValidDeviceName()) member(Keys::deviceName, m_spec.getDeviceName());
  m_emit.endObject();
}

template <typename Emitter>
void TrafficDocumentEvents<Emitter>::logicalInstances() {
  m_emit.startArray();
  for (TrafficLInst const* instance : m_spec.getAllLogicalInstance()) {
    if (m_filter(instance)) instanceObject(*instance);
  }
  m_emit.endArray();
}

template <typename Emitter>
void TrafficDocumentEvents<Emitter>::paths() {
  m_emit.startArray();
  for (int i = 0; i < m_spec.getNumPaths(); ++i) {
    TrafficPath const& path = *m_spec.getPath(i);
    bool const masterAccepted = m_filter(path.getMaster());
    bool const slaveAccepted = m_filter(path.getSlave());
    if (masterAccepted && slaveAccepted) pathObject(path);
  }
  m_emit.endArray();
}

template <typename Emitter>
void TrafficDocumentEvents<Emitter>::instanceObject(TrafficLInst const& instance) {
  std::string const& name = instance.getName();
  std::string const baseName =
      instance.isErrorSlave() ? m_resolver.fromNetlistName(name) : m_resolver.fromNetlistInstance(name);
  bool const nameMissing = !m_resolver.isNameInDesign(name);
  ExternalNames const external = externalNames(instance);

  m_emit.startObject();
  member(Keys::name, nameMissing ? external.first : baseName);
  if (!instance.getDesignName().empty()) member(Keys::designName, instance.getDesignName());
  member(Keys::isMaster, instance.isMaster());
  if (instance.getUseDestIdIdx()) member(Keys::useDestIdIdx, true);
  if (instance.hasParityAddr()) member(Keys::hasParityAddr, true);
  if (instance.hasParityData()) member(Keys::hasParityData, true);
  member(Keys::compType, compTypeToText(instance.getCompType()));
  if (instance.firewall) member(Keys::firewall, true);
  member(Keys::protocol, axiProtToText(instance.getProtocol()));
  trafficKeys(instance);
  sysAddresses(instance);
  if (instance.isMaster()) remaps(instance);
  params(Keys::memoryParams, instance.getMemoryParams());
  params(Keys::configParams, instance.getConfigParams());
  if (instance.isVirtual() || nameMissing) member(Keys::isVirtual, true);
  if (!instance.ipName.empty()) {
    m_emit.key(Keys::simMetaData);
    m_emit.startObject();
    member(Keys::ipName, instance.ipName);
    m_emit.endObject();
  }
  if (instance.isExistDestId()) integerMember(Keys::destId, instance.getDestId().getValue());
  if (!external.joined.empty()) member(Keys::externalConn, external.joined);
  m_emit.endObject();
}

// From "ReadTC" to "InterleaveSel": the keys between "Protocol" and "SysAddresses".
template <typename Emitter>
void TrafficDocumentEvents<Emitter>::trafficKeys(TrafficLInst const& instance) {
  if (instance.isMaster()) {
    member(Keys::readTC, trafficClassToText(instance.getReadTC()));
    member(Keys::writeTC, trafficClassToText(instance.getWriteTC()));
  }
  if (!instance.getPortTypes().empty()) {
    m_emit.key(Keys::ports);
    m_emit.startArray();
    for (PORT_TYPE port : instance.getPortTypes())
      m_emit.string(portTypeToText(port));
    m_emit.endArray();
  }
  if (instance.getAxiWidth() != 0) integerMember(Keys::axiDataWidth, static_cast<int>(instance.getAxiWidth()));
  if (instance.getNumReadOutstanding() != 0) integerMember(Keys::numReadOutstanding, instance.getNumReadOutstanding());
  if (instance.getNumWriteOutstanding() != 0)
    integerMember(Keys::numWriteOutstanding, instance.getNumWriteOutstanding());
  if (instance.getReadRateLimiter() != 0.0f) {
    m_emit.key(Keys::readRateLimiter);
    m_emit.real(instance.getReadRateLimiter());
  }
  if (instance.getWriteRateLimiter() != 0.0f) {
    m_emit.key(Keys::writeRateLimiter);
    m_emit.real(instance.getWriteRateLimiter());
  }
  if (instance.getDdrInterleaveSize() != 0)
    integerMember(Keys::interleaveSize, static_cast<int>(instance.getDdrInterleaveSize()));
  if (instance.getDdrInterleaveSel() != 0) integerMember(Keys::interleaveSel, instance.getDdrInterleaveSel());
}

template <typename Emitter>
void TrafficDocumentEvents<Emitter>::sysAddresses(TrafficLInst const& instance) {
  if (!instance.hasValidSysAddress(0)) return;
  m_emit.key(Keys::sysAddresses);
  m_emit.startArray();
  for (int i = 0; instance.hasValidSysAddress(i); ++i) {
    m_emit.startObject();
    member(Keys::base, hexText(instance.getSysAddress(i)));
    member(Keys::size, hexText(instance.getSysAddrSize(i)));
    m_emit.endObject();
  }
  m_emit.endArray();
}

template <typename Emitter>
void TrafficDocumentEvents<Emitter>::remaps(TrafficLInst const& instance) {
  if (instance.getRemapAddrSpecs().empty()) return;
  m_emit.key(Keys::remap);
  m_emit.startArray();
  for (auto const& remap : instance.getRemapAddrSpecs()) {
    m_emit.startObject();
    member(Keys::logical, hexText(remap.logical));
    member(Keys::physical, hexText(remap.physical));
    member(Keys::range, hexText(remap.range));
    m_emit.endObject();
  }
  m_emit.endArray();
}

template <typename Emitter>
void TrafficDocumentEvents<Emitter>::params(std::string const& key, std::map<std::string, std::string> const& params) {
  if (params.empty()) return;
  m_emit.key(key);
  m_emit.startObject();
  for (auto const& param : params)
    member(param.first, param.second);
  m_emit.endObject();
}

template <typename Emitter>
void TrafficDocumentEvents<Emitter>::pathObject(TrafficPath const& path) {
  std::string const portText = portTypeToText(path.getSlavePort());
  std::size_t const portIndex = portIndexOf(portText);
  TrafficLInst const& master = *path.getMaster();
  TrafficLInst const& slave = *path.getSlave();
  std::string const from = pathEndName(master, portIndex);
  std::string const to =
      slave.isErrorSlave() ? m_resolver.fromNetlistName(slave.getName()) : pathEndName(slave, portIndex);
  if (from.empty() || to.empty()) return;

  m_emit.startObject();
  integerMember(Keys::phase, path.phase);
  member(Keys::from, from);
  member(Keys::to, to);
  member(Keys::port, portText);
  member(Keys::commType, commType(path));
  pathKeys(path);
  m_emit.endObject();
}

// From "ReadBW" on.
template <typename Emitter>
void TrafficDocumentEvents<Emitter>::pathKeys(TrafficPath const& path) {
  PerfSpec const read = path.getReadPerfSpec();
  PerfSpec const write = path.getWritePerfSpec();
  unsignedMember(Keys::readBW, read.bandwidth);
  unsignedMember(Keys::readLatency, read.latency);
  unsignedMember(Keys::readAvgBurst, path.getReadAvgBurst());
  unsignedMember(Keys::writeBW, write.bandwidth);
  unsignedMember(Keys::writeLatency, write.latency);
  unsignedMember(Keys::writeAvgBurst, path.getWriteAvgBurst());
  if (path.getWoc() != WO_INVALID) member(Keys::writeOrder, writeOrderToText(path.getWoc()));
  if (!path.getExclusiveGroup().empty()) member(Keys::exclusiveGroup, path.getExclusiveGroup());
  if (!path.getSeparateRoutingGroup().empty()) member(Keys::separateRoutingGroup, path.getSeparateRoutingGroup());
  if (path.isExistDestIdIndex()) integerMember(Keys::destIdIndex, path.getDestIdIndex().getValue());
  if (path.isInitialBoot()) member(Keys::initialBoot, true);
  if (path.hasValidDestIdIdx(0)) {
    m_emit.key(Keys::destIdIdx);
    m_emit.startArray();
    for (int i = 0; path.hasValidDestIdIdx(i); ++i) {
      m_emit.startObject();
      integerMember(Keys::startIdx, path.getDestIdIdxStart(i));
      integerMember(Keys::endIdx, path.getDestIdIdxEnd(i));
      m_emit.endObject();
    }
    m_emit.endArray();
  }
  if (path.getHighPriorityRouting()) member(Keys::highPriorityRouting, true);
  if (path.hasMultipleReadPhases() || path.hasMultipleWritePhases()) {
    m_emit.key(Keys::phaseGroups);
    phaseGroups(path);
  }
}

template <typename Emitter>
void TrafficDocumentEvents<Emitter>::phaseGroups(TrafficPath const& path) {
  m_emit.startArray();
  for (std::string const& groupName : m_spec.getAllPhaseGroups()) {
    m_emit.startObject();
    member(Keys::name, groupName);
    m_emit.key(Keys::phases);
    m_emit.startArray();
    for (std::string const& phaseName : m_spec.getAllPhasesForPhaseGroup(groupName)) {
      if (phaseName == TrafficSpec::getDefaultPhaseName()) continue;
      m_emit.startObject();
      member(Keys::name, phaseName);
      unsignedMember(Keys::readBW, path.getReadPerfSpec(phaseName).bandwidth);
      unsignedMember(Keys::writeBW, path.getWritePerfSpec(phaseName).bandwidth);
      unsignedMember(Keys::readAvgBurst, path.getReadAvgBurst(phaseName));
      unsignedMember(Keys::writeAvgBurst, path.getWriteAvgBurst(phaseName));
      m_emit.endObject();
    }
    m_emit.endArray();
    m_emit.endObject();
  }
  m_emit.endArray();
}

template <typename Emitter>
typename TrafficDocumentEvents<Emitter>::ExternalNames TrafficDocumentEvents<Emitter>::externalNames(
    TrafficLInst const& instance) {
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

template <typename Emitter>
std::string TrafficDocumentEvents<Emitter>::pathEndName(TrafficLInst const& instance, std::size_t portIndex) {
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

template <typename Emitter>
std::string const& TrafficDocumentEvents<Emitter>::commType(TrafficPath const& path) {
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
  std::unique_ptr<rapidjson::SchemaDocument> const schema =
      JsonDocumentFrame::loadSchema(NOCJsonReadWriteUtils::getTrafficJsonSchemaFile());
  if (JsonEventFrame::writeValidated(out, *schema, [&](auto& emitter) {
        TrafficDocumentEvents<std::decay_t<decltype(emitter)>>(emitter, spec, filter, resolver).document();
      }))
    return true;
  ComMsgMgr::sendMsg::eval(1, __FILE__, __LINE__, "tarvo", ComMsgMgr::MSG_ERROR, "@75-585@%s", "NoC Traffic Spec");
  return false;
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
