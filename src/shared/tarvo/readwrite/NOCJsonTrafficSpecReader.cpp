#include "NOCJsonTrafficSpecReader.h"

#include <cstdlib>
#include <istream>
#include <string_view>
#include <unordered_map>

#include "HCRapidJsonReadWriteUtils.h"
#include "HDGUIStatus.h"
#include "HIPLogicalObjectNameResolverInterface.h"
#include "JsonDocumentFrame.h"
#include "NOCJsonEnumTexts.h"
#include "NOCJsonReadWriteUtils.h"
#include "StringScan.h"
#include "TrafficSpec.h"

using tarvo::jsonio::StringScan;
using namespace DevHrdIP::Definitions;
using HrdIPToolCntr::DestIdRepr;
using HrdIPToolCntr::PerfSpec;
using HrdIPToolCntr::TrafficLInst;
using HrdIPToolCntr::TrafficPath;
using HrdIPToolCntr::TrafficSpec;

typedef HCRapidJsonReadWriteUtils Json;
typedef JsonDocumentFrame::Value Value;

namespace NOC {

namespace {

bool isErrorSlaveName(std::string const& name) {
  return StringScan::endsWith(name, TrafficSpec::getErrorSlaveName()) ||
         StringScan::endsWith(name, TrafficSpec::getErrorSlaveName_hp());
}

// Base 0: "0x" hexadecimal, a leading 0 octal, otherwise decimal; no number reads as 0.
uint64_t numberFromText(std::string const& text) {
  return std::strtoull(text.c_str(), nullptr, 0);
}

// Either a string holding a number or an unsigned integer.
uint64_t addressProperty(Value const& object, std::string const& key) {
  if (Json::IsStringProperty(object, key)) return numberFromText(Json::GetStringProperty(object, key));
  return Json::GetULongProperty(object, key);
}

Value const* member(Value const& object, char const* key) {
  if (!object.IsObject()) return nullptr;
  Value::ConstMemberIterator const found = object.FindMember(key);
  return found != object.MemberEnd() ? &found->value : nullptr;
}

// The member's value when it is an array (an object), otherwise null.
Value const* arrayMember(Value const& object, char const* key) {
  Value const* value = member(object, key);
  return value != nullptr && value->IsArray() ? value : nullptr;
}

Value const* objectMember(Value const& object, char const* key) {
  Value const* value = member(object, key);
  return value != nullptr && value->IsObject() ? value : nullptr;
}

// The member's text as it lies in the document, empty when it is no string.
std::string_view stringView(Value const& object, char const* key) {
  Value const* value = member(object, key);
  return value != nullptr && value->IsString() ? std::string_view(value->GetString(), value->GetStringLength())
                                               : std::string_view();
}

std::string stringValue(Value const& value) {
  return value.IsString() ? std::string(value.GetString(), value.GetStringLength()) : std::string();
}

// "a b,c" -> {{a, b}, {c}}: groups at each comma, names at each blank, empty names dropped. A
// comma at the very end makes no further group.
std::vector<std::vector<std::string>> splitExternalConns(std::string const& text) {
  std::vector<std::vector<std::string>> groups;
  std::size_t groupStart = 0;
  while (groupStart < text.size()) {
    std::size_t groupEnd = text.find(',', groupStart);
    if (groupEnd == std::string::npos) groupEnd = text.size();
    groups.emplace_back();
    std::size_t nameStart = groupStart;
    while (nameStart < groupEnd) {
      std::size_t nameEnd = text.find(' ', nameStart);
      if (nameEnd == std::string::npos || nameEnd > groupEnd) nameEnd = groupEnd;
      if (nameEnd > nameStart) groups.back().push_back(text.substr(nameStart, nameEnd - nameStart));
      nameStart = nameEnd + 1;
    }
    groupStart = groupEnd + 1;
  }
  return groups;
}

bool readsAxiWidth(COMP_TYPE type) {
  return (type >= PL_IGU && type <= PL_EGU_2) || type == HBM_IGU;
}

bool isMemoryControllerText(std::string const& text) {
  return text == "DDRC" || text == "DDR5" || text == "DDR5C" || text == "DDR5E" || text == "DDR5X" || text == "HBMMC";
}

// One walk over one document.
class TrafficDocumentReader {
 public:
  TrafficDocumentReader(std::string const& fileName, HIPLogicalObjectNameResolverInterface& resolver, TrafficSpec& spec)
      : m_fileName(fileName), m_resolver(resolver), m_spec(spec) {}

  void readInstances(Value const& instances) {
    m_instances.reserve(instances.Size());
    for (Value const& instance : instances.GetArray()) {
      if (instance.IsObject()) readInstance(instance);
    }
  }

  void readPaths(Value const& paths) {
    for (Value const& path : paths.GetArray()) {
      if (path.IsObject()) readPath(path);
    }
  }

  void readSystemProperties(Value const& properties);

 private:
  void readInstance(Value const& object);
  void readMasterKeys(Value const& object, TrafficLInst& instance);
  void readSlaveKeys(Value const& object, TrafficLInst& instance);
  void readMemoryControllerKeys(Value const& object, std::string const& compTypeText, TrafficLInst& instance);
  void readDestId(Value const& object, TrafficLInst& instance);
  void readPath(Value const& object);
  void readPerfSpecs(Value const& object, TrafficPath& path);
  void readDestIdIndex(Value const& object, TrafficPath& path);
  void readPhaseGroups(Value const& object, TrafficPath& path);
  // The netlist name of an instance that is not virtual; empty when the resolver knows none.
  std::string netlistInstanceName(std::string const& name);
  // An instance named in the document: its netlist name, and what the traffic specification finds
  // under that name, looked up once, when a path first names it.
  struct DocumentInstance {
    std::string netlistName;
    bool looked = false;
    TrafficLInst* master = nullptr;
    TrafficLInst* slave = nullptr;
  };
  DocumentInstance& knownInstance(std::string_view name, char const* unknownText);
  TrafficLInst::ExternalConns netlistExternalConns(std::string const& text);

  std::string const& m_fileName;
  HIPLogicalObjectNameResolverInterface& m_resolver;
  TrafficSpec& m_spec;
  // By document name, viewing the names in the document, so that paths ask neither the
  // resolver nor the traffic specification again.
  std::unordered_map<std::string_view, DocumentInstance> m_instances;
};

void TrafficDocumentReader::readInstance(Value const& object) {
  std::string_view const nameInDocument = stringView(object, "Name");
  std::string const name(nameInDocument);
  bool const isMaster = Json::GetBooleanProperty(object, "IsMaster");
  std::string const compTypeText = Json::GetStringProperty(object, "CompType");
  bool const firewall = Json::GetBooleanProperty(object, "Firewall");
  AxiProt const protocol = axiProtFromText(Json::GetStringProperty(object, "Protocol"));
  COMP_TYPE const compType = compTypeFromText(compTypeText);
  if (compType == COMPERR) Json::errorParsingJsonFile(m_fileName, "Unknown component type : " + compTypeText);
  bool const isVirtual = Json::GetBooleanProperty(object, "IsVirtual");
  bool const hasDestId = Json::IsIntegrProperty(object, "DestId");
  if (name.empty()) Json::errorParsingJsonFile(m_fileName, "Empty logical instance name");

  std::string const netlistName = isVirtual ? m_resolver.toNetlistName(name) : netlistInstanceName(name);
  if (netlistName.empty() && (isVirtual || !isErrorSlaveName(name)))
    Json::errorParsingJsonFile(m_fileName, "Could not find netlist instance for traffic spec instance: " + name);
  m_instances[nameInDocument] = DocumentInstance{netlistName};

  TrafficLInst::ExternalConns const conns = netlistExternalConns(Json::GetStringProperty(object, "ExternalConn"));
  TrafficLInst& instance = *m_spec.addLogicalInstance(netlistName, protocol, compType, conns);
  instance.firewall = firewall;
  instance.setDesignName(object.HasMember("DesignName") ? Json::GetStringProperty(object, "DesignName") : "");
  if (isMaster)
    readMasterKeys(object, instance);
  else
    readSlaveKeys(object, instance);

  if (Value const* params = objectMember(object, "ConfigParams")) {
    for (auto const& param : params->GetObject())
      instance.addConfigParam(stringValue(param.name), stringValue(param.value));
  }
  if (object.HasMember("SimMetaData")) instance.ipName = Json::GetStringProperty(object["SimMetaData"], "IPName");
  instance.setUseDestIdIdx(Json::GetBooleanProperty(object, "UseDestIdIdx"));
  instance.setHasParityAddr(Json::GetBooleanProperty(object, "HasParityAddr"));
  instance.setHasParityData(Json::GetBooleanProperty(object, "HasParityData"));
  if (readsAxiWidth(compType))
    instance.setAxiWidth(static_cast<unsigned>(Json::GetIntegrProperty(object, "AxiDataWidth")));
  if (isMemoryControllerText(compTypeText)) readMemoryControllerKeys(object, compTypeText, instance);

  instance.virtualInstance = isVirtual;
  instance.setIsExistDestId(hasDestId);
  if (hasDestId) readDestId(object, instance);
}

void TrafficDocumentReader::readMasterKeys(Value const& object, TrafficLInst& instance) {
  if (Value const* remaps = arrayMember(object, "Remap")) {
    for (Value const& remap : remaps->GetArray()) {
      instance.addRemapAddrSpec(numberFromText(Json::GetStringProperty(remap, "Logical")),
                                numberFromText(Json::GetStringProperty(remap, "Physical")),
                                numberFromText(Json::GetStringProperty(remap, "Range")));
    }
  }
  if (object.HasMember("ReadTC")) instance.setReadTC(trafficClassFromText(Json::GetStringProperty(object, "ReadTC")));
  if (object.HasMember("WriteTC"))
    instance.setWriteTC(trafficClassFromText(Json::GetStringProperty(object, "WriteTC")));
  instance.setNumReadOutstanding(static_cast<uint16_t>(Json::GetIntegrProperty(object, "NumReadOutstanding")));
  instance.setNumWriteOutstanding(static_cast<uint16_t>(Json::GetIntegrProperty(object, "NumWriteOutstanding")));
  instance.setReadRateLimiter(static_cast<float>(Json::GetIntegrProperty(object, "ReadRateLimiter")));
  instance.setWriteRateLimiter(static_cast<float>(Json::GetIntegrProperty(object, "WriteRateLimiter")));
}

void TrafficDocumentReader::readSlaveKeys(Value const& object, TrafficLInst& instance) {
  if (object.HasMember("SysAddresses")) {
    if (Value const* addresses = arrayMember(object, "SysAddresses")) {
      for (Value const& address : addresses->GetArray())
        instance.addSysAddress({addressProperty(address, "Base"), addressProperty(address, "Size")});
    }
  } else if (object.HasMember("SysAddress")) {
    instance.addSysAddress(
        {Json::GetULongProperty(object, "SysAddress"), Json::GetULongProperty(object, "SysAddressSize")});
  }
  if (!object.HasMember("MemoryParams")) return;
  Value const& params = object["MemoryParams"];
  if (params.IsObject()) {
    for (auto const& param : params.GetObject())
      instance.addMemoryParam(stringValue(param.name), stringValue(param.value));
  } else if (params.IsArray()) {
    for (Value const& param : params.GetArray())
      instance.addMemoryParam(Json::GetStringProperty(param, "Name"), Json::GetStringProperty(param, "Value"));
  }
}

void TrafficDocumentReader::readMemoryControllerKeys(Value const& object, std::string const& compTypeText,
                                                     TrafficLInst& instance) {
  for (std::string const& portText : Json::GetStringArrayProperty(object, "Ports")) {
    PORT_TYPE const port = portTypeFromText(portText);
    if (port != PORT_INVALID)
      m_spec.addPortTypeForMC(&instance, port);
    else
      NOCJsonReadWriteUtils::issueInvalidPortForLogicalSlave(portText, instance.getName());
  }
  if (compTypeText == "HBMMC") return;
  instance.setDdrInterleaveSize(static_cast<uint32_t>(Json::GetIntegrProperty(object, "InterleaveSize")));
  instance.setDdrInterleaveSel(static_cast<uint16_t>(Json::GetIntegrProperty(object, "InterleaveSel")));
}

void TrafficDocumentReader::readDestId(Value const& object, TrafficLInst& instance) {
  // Only 16 bits are looked at, of which a destination id may use 12.
  uint16_t const destId = static_cast<uint16_t>(Json::GetIntegrProperty(object, "DestId"));
  if (destId >= (1u << 12)) Json::errorParsingJsonFile(m_fileName, "DestId entry is expected to be a 12 bit maximum");
  instance.setDestId(DestIdRepr(destId));
}

void TrafficDocumentReader::readPath(Value const& object) {
  int const phase = Json::GetIntegrProperty(object, "Phase");
  DocumentInstance& from = knownInstance(stringView(object, "From"), "Path 'from' name is unknown: ");
  DocumentInstance& to = knownInstance(stringView(object, "To"), "Path 'to' name is unknown: ");
  std::string const portText = Json::GetStringProperty(object, "Port");
  bool const hasDestIdIndex = Json::IsIntegrProperty(object, "DestIdIndex");
  bool const initialBoot = Json::GetBooleanProperty(object, "InitialBoot");

  // A path from a slave or to a master is no path of this specification.
  TrafficLInst* master = from.master;
  TrafficLInst* slave = to.slave;
  if (master == nullptr || slave == nullptr) return;
  TrafficPath& path = *m_spec.addPath(master, slave);
  path.phase = phase;

  if (object.HasMember("ReadTC")) master->setReadTC(trafficClassFromText(Json::GetStringProperty(object, "ReadTC")));
  if (object.HasMember("WriteTC")) master->setWriteTC(trafficClassFromText(Json::GetStringProperty(object, "WriteTC")));
  if (object.HasMember("WriteOrder")) path.setWoc(writeOrderFromText(Json::GetStringProperty(object, "WriteOrder")));
  PORT_TYPE const port = portTypeFromText(portText);
  if (port != PORT_INVALID)
    path.setSlavePort(port);
  else
    NOCJsonReadWriteUtils::issueInvalidPortType(portText);

  readPerfSpecs(object, path);
  path.setExclusiveGroup(Json::GetStringProperty(object, "ExclusiveGroup"));
  path.setSeparateRoutingGroup(Json::GetStringProperty(object, "SeparateRoutingGroup"));
  path.setIsExistDestIdIndex(hasDestIdIndex);
  if (hasDestIdIndex) readDestIdIndex(object, path);
  path.setIsInitialBoot(initialBoot);
  if (Value const* ranges = arrayMember(object, "DestIdIdx")) {
    for (Value const& range : ranges->GetArray()) {
      path.addDestIdIdx({static_cast<uint8_t>(Json::GetIntegrProperty(range, "start_idx")),
                         static_cast<uint8_t>(Json::GetIntegrProperty(range, "end_idx"))});
    }
  }
  path.setHighPriorityRouting(Json::GetBooleanProperty(object, "HighPriorityRouting"));
  readPhaseGroups(object, path);
}

void TrafficDocumentReader::readPerfSpecs(Value const& object, TrafficPath& path) {
  uint32_t const writeBW = static_cast<uint32_t>(Json::GetULongProperty(object, "WriteBW"));
  uint32_t const writeLatency = static_cast<uint32_t>(Json::GetULongProperty(object, "WriteLatency"));
  path.setWritePerfSpec(PerfSpec(0, writeBW, writeLatency));
  // A stream only writes: its read values are not kept.
  if (Json::GetStringProperty(object, "CommType") != "STRM") {
    uint32_t const readBW = static_cast<uint32_t>(Json::GetULongProperty(object, "ReadBW"));
    uint32_t const readLatency = static_cast<uint32_t>(Json::GetULongProperty(object, "ReadLatency"));
    path.setReadPerfSpec(PerfSpec(0, readBW, readLatency));
    if (object.HasMember("ReadAvgBurst"))
      path.setReadAvgBurst(static_cast<uint16_t>(Json::GetULongProperty(object, "ReadAvgBurst")));
  }
  if (object.HasMember("WriteAvgBurst"))
    path.setWriteAvgBurst(static_cast<uint16_t>(Json::GetULongProperty(object, "WriteAvgBurst")));
}

void TrafficDocumentReader::readDestIdIndex(Value const& object, TrafficPath& path) {
  uint16_t const index = static_cast<uint16_t>(Json::GetIntegrProperty(object, "DestIdIndex"));
  if (index > 7) {
    Json::errorParsingSchemaFile(JsonDocumentFrame::canonicalName(NOCJsonReadWriteUtils::getTrafficJsonSchemaFile()),
                                 "DestIdIndex field is out of expected range: [0,7]");
  }
  path.setDestIdIndex(DestIdRepr(index));
}

void TrafficDocumentReader::readPhaseGroups(Value const& object, TrafficPath& path) {
  Value const* groups = arrayMember(object, "PhaseGroups");
  if (groups == nullptr) return;
  uint32_t const readLatency = static_cast<uint32_t>(Json::GetULongProperty(object, "ReadLatency"));
  uint32_t const writeLatency = static_cast<uint32_t>(Json::GetULongProperty(object, "WriteLatency"));
  for (Value const& group : groups->GetArray()) {
    std::string const groupName = Json::GetStringProperty(group, "Name");
    Value const* phases = arrayMember(group, "Phases");
    if (phases == nullptr) continue;
    for (Value const& phase : phases->GetArray()) {
      std::string const phaseName = Json::GetStringProperty(phase, "Name");
      uint32_t const readBW = static_cast<uint32_t>(Json::GetULongProperty(phase, "ReadBW"));
      uint32_t const writeBW = static_cast<uint32_t>(Json::GetULongProperty(phase, "WriteBW"));
      path.setReadPerfSpec(groupName, phaseName, PerfSpec(0, readBW, readLatency));
      path.setWritePerfSpec(groupName, phaseName, PerfSpec(0, writeBW, writeLatency));
      path.setReadAvgBurst(static_cast<uint16_t>(Json::GetULongProperty(phase, "ReadAvgBurst")), phaseName);
      path.setWriteAvgBurst(static_cast<uint16_t>(Json::GetULongProperty(phase, "WriteAvgBurst")), phaseName);
    }
  }
}

void TrafficDocumentReader::readSystemProperties(Value const& properties) {
  if (properties.HasMember("Frequency")) m_spec.setFrequency(Json::GetIntegrProperty(properties, "Frequency"), true);
  if (properties.HasMember("RcfPaths")) {
    for (std::string path : Json::GetStringArrayProperty(properties, "RcfPaths")) {
      path.erase(path.find_last_not_of('/') + 1);
      std::string netlistPath = netlistInstanceName(path);
      if (netlistPath.empty()) {
        m_spec.addRcfPath(path + "/");
        continue;
      }
      // Keep the netlist path up to the end of the document path within it.
      std::size_t const at = netlistPath.find(path);
      if (at != std::string::npos) netlistPath.erase(at + path.size());
      m_spec.addRcfPath(netlistPath + "/");
    }
  }
  if (properties.HasMember("SECURE_QLR_ZMC_TRAFFIC"))
    m_spec.setSecureMode(Json::GetBooleanProperty(properties, "SECURE_QLR_ZMC_TRAFFIC"));
  m_spec.setDeviceName(properties.HasMember("DeviceName") ? Json::GetStringProperty(properties, "DeviceName") : "");
}

std::string TrafficDocumentReader::netlistInstanceName(std::string const& name) {
  // The error slave needs no instance in the netlist.
  return isErrorSlaveName(name) ? m_resolver.toNetlistName(name) : m_resolver.toNetlistInstance(name);
}

TrafficDocumentReader::DocumentInstance& TrafficDocumentReader::knownInstance(std::string_view name,
                                                                              char const* unknownText) {
  auto const found = m_instances.find(name);
  if (found == m_instances.end()) Json::errorParsingJsonFile(m_fileName, unknownText + std::string(name));
  DocumentInstance& instance = found->second;
  // Paths add no instances, so the look-ups give the same answer for every path.
  if (!instance.looked) {
    instance.master = m_spec.getLogicalMaster(instance.netlistName);
    instance.slave = m_spec.getLogicalSlave(instance.netlistName);
    instance.looked = true;
  }
  return instance;
}

TrafficLInst::ExternalConns TrafficDocumentReader::netlistExternalConns(std::string const& text) {
  TrafficLInst::ExternalConns conns = splitExternalConns(text);
  for (std::vector<std::string>& group : conns) {
    std::vector<std::string> translated;
    for (std::string const& name : group) {
      std::string netlistName = m_resolver.toNetlistName(name);
      if (!netlistName.empty()) translated.push_back(std::move(netlistName));
    }
    group.swap(translated);
  }
  return conns;
}

}  // namespace

NOCJsonTrafficSpecReader::NOCJsonTrafficSpecReader() = default;

NOCJsonTrafficSpecReader::~NOCJsonTrafficSpecReader() = default;

bool NOCJsonTrafficSpecReader::readFromJsonFile(std::istream& in, std::string const& fileName,
                                                HIPLogicalObjectNameResolverInterface& resolver, TrafficSpec& spec,
                                                HDGUIStatus& status) {
  status.setMessage("Reading Traffic File " + fileName);
  status.setPercent(0);
  if (in.fail()) Json::errorReadingJsonFile(fileName);
  JsonDocumentFrame::Document doc;
  JsonDocumentFrame::load(in, fileName, NOCJsonReadWriteUtils::getTrafficJsonSchemaFile(),
                          JsonDocumentFrame::Opener::AutoDetect, doc);
  status.setPercent(20);
  TrafficDocumentReader reader(fileName, resolver, spec);
  if (Value const* instances = arrayMember(doc, "LogicalInstances")) reader.readInstances(*instances);
  status.setPercent(40);
  if (Value const* paths = arrayMember(doc, "Paths")) reader.readPaths(*paths);
  if (Value const* properties = objectMember(doc, "SystemProperties")) reader.readSystemProperties(*properties);
  status.setPercent(100);
  return true;
}

bool NOCJsonTrafficSpecReader::readFromJsonFile(std::istream& in, std::string const& fileName, TrafficSpec& spec,
                                                HDGUIStatus& status) {
  HIPLogicalObjectNameResolverInterfaceIdentity identity;
  return readFromJsonFile(in, fileName, identity, spec, status);
}

bool NOCJsonTrafficSpecReader::readFromJsonFile(std::string const& fileName,
                                                HIPLogicalObjectNameResolverInterface& resolver, TrafficSpec& spec,
                                                HDGUIStatus& status) {
  return JsonDocumentFrame::readFile(
      fileName, JsonDocumentFrame::Opener::AutoDetect,
      [&](std::istream& in, std::string const& name) { return readFromJsonFile(in, name, resolver, spec, status); });
}

bool NOCJsonTrafficSpecReader::readFromJsonFile(std::string const& fileName, TrafficSpec& spec, HDGUIStatus& status) {
  HIPLogicalObjectNameResolverInterfaceIdentity identity;
  return readFromJsonFile(fileName, identity, spec, status);
}

void NOCJsonTrafficSpecReader::enableDefaultSlv(TrafficSpec& spec) {
  if (!spec.hasErrorSlave()) spec.addErrorSlaveAndRoutes();
}

}  // namespace NOC
