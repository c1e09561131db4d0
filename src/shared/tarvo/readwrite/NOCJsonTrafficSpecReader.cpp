#include "NOCJsonTrafficSpecReader.h"

#include <cstdlib>
#include <istream>
#include <string_view>
#include <unordered_map>

#include "HCRapidJsonReadWriteUtils.h"
#include "HDGUIStatus.h"
#include "HIPLogicalObjectNameResolverInterface.h"
#include "JsonDocumentFrame.h"
#include "JsonMembers.h"
#include "NOCJsonEnumTexts.h"
#include "NOCJsonReadWriteUtils.h"
#include "NOCTrafficDocumentKeys.h"
#include "StringScan.h"
#include "TrafficSpec.h"

using tarvo::jsonio::JsonMembers;
using tarvo::jsonio::StringScan;
using namespace DevHrdIP::Definitions;
using HrdIPToolCntr::DestIdRepr;
using HrdIPToolCntr::PerfSpec;
using HrdIPToolCntr::TrafficLInst;
using HrdIPToolCntr::TrafficPath;
using HrdIPToolCntr::TrafficSpec;

typedef HCRapidJsonReadWriteUtils Json;
typedef JsonDocumentFrame::Value Value;
typedef NOCTrafficDocumentKeys Keys;

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

// The member's text as it lies in the document, empty when it is no string.
std::string_view stringView(Value const& object, std::string const& key) {
  Value const* value = JsonMembers::find(object, key);
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
  std::string_view const nameInDocument = stringView(object, Keys::name);
  std::string const name(nameInDocument);
  bool const isMaster = Json::GetBooleanProperty(object, Keys::isMaster);
  std::string const compTypeText = Json::GetStringProperty(object, Keys::compType);
  bool const firewall = Json::GetBooleanProperty(object, Keys::firewall);
  AxiProt const protocol = axiProtFromText(Json::GetStringProperty(object, Keys::protocol));
  COMP_TYPE const compType = compTypeFromText(compTypeText);
  if (compType == COMPERR) Json::errorParsingJsonFile(m_fileName, "Unknown component type : " + compTypeText);
  bool const isVirtual = Json::GetBooleanProperty(object, Keys::isVirtual);
  bool const hasDestId = Json::IsIntegrProperty(object, Keys::destId);
  if (name.empty()) Json::errorParsingJsonFile(m_fileName, "Empty logical instance name");

  std::string const netlistName = isVirtual ? m_resolver.toNetlistName(name) : netlistInstanceName(name);
  if (netlistName.empty() && (isVirtual || !isErrorSlaveName(name)))
    Json::errorParsingJsonFile(m_fileName, "Could not find netlist instance for traffic spec instance: " + name);
  m_instances[nameInDocument] = DocumentInstance{netlistName};

  TrafficLInst::ExternalConns const conns = netlistExternalConns(Json::GetStringProperty(object, Keys::externalConn));
  TrafficLInst& instance = *m_spec.addLogicalInstance(netlistName, protocol, compType, conns);
  instance.firewall = firewall;
  instance.setDesignName(object.HasMember(Keys::designName) ? Json::GetStringProperty(object, Keys::designName) : "");
  if (isMaster)
    readMasterKeys(object, instance);
  else
    readSlaveKeys(object, instance);

  if (Value const* params = JsonMembers::findObject(object, Keys::configParams)) {
    for (auto const& param : params->GetObject())
      instance.addConfigParam(stringValue(param.name), stringValue(param.value));
  }
  if (object.HasMember(Keys::simMetaData))
    instance.ipName = Json::GetStringProperty(object[Keys::simMetaData], Keys::ipName);
  instance.setUseDestIdIdx(Json::GetBooleanProperty(object, Keys::useDestIdIdx));
  instance.setHasParityAddr(Json::GetBooleanProperty(object, Keys::hasParityAddr));
  instance.setHasParityData(Json::GetBooleanProperty(object, Keys::hasParityData));
  if (readsAxiWidth(compType))
    instance.setAxiWidth(static_cast<unsigned>(Json::GetIntegrProperty(object, Keys::axiDataWidth)));
  if (isMemoryControllerText(compTypeText)) readMemoryControllerKeys(object, compTypeText, instance);

  instance.virtualInstance = isVirtual;
  instance.setIsExistDestId(hasDestId);
  if (hasDestId) readDestId(object, instance);
}

void TrafficDocumentReader::readMasterKeys(Value const& object, TrafficLInst& instance) {
  if (Value const* remaps = JsonMembers::findArray(object, Keys::remap)) {
    for (Value const& remap : remaps->GetArray()) {
      instance.addRemapAddrSpec(numberFromText(Json::GetStringProperty(remap, Keys::logical)),
                                numberFromText(Json::GetStringProperty(remap, Keys::physical)),
                                numberFromText(Json::GetStringProperty(remap, Keys::range)));
    }
  }
  if (object.HasMember(Keys::readTC))
    instance.setReadTC(trafficClassFromText(Json::GetStringProperty(object, Keys::readTC)));
  if (object.HasMember(Keys::writeTC))
    instance.setWriteTC(trafficClassFromText(Json::GetStringProperty(object, Keys::writeTC)));
  instance.setNumReadOutstanding(static_cast<uint16_t>(Json::GetIntegrProperty(object, Keys::numReadOutstanding)));
  instance.setNumWriteOutstanding(static_cast<uint16_t>(Json::GetIntegrProperty(object, Keys::numWriteOutstanding)));
  instance.setReadRateLimiter(static_cast<float>(Json::GetIntegrProperty(object, Keys::readRateLimiter)));
  instance.setWriteRateLimiter(static_cast<float>(Json::GetIntegrProperty(object, Keys::writeRateLimiter)));
}

void TrafficDocumentReader::readSlaveKeys(Value const& object, TrafficLInst& instance) {
  if (object.HasMember(Keys::sysAddresses)) {
    if (Value const* addresses = JsonMembers::findArray(object, Keys::sysAddresses)) {
      for (Value const& address : addresses->GetArray())
        instance.addSysAddress({addressProperty(address, Keys::base), addressProperty(address, Keys::size)});
    }
  } else if (object.HasMember(Keys::sysAddress)) {
    instance.addSysAddress(
        {Json::GetULongProperty(object, Keys::sysAddress), Json::GetULongProperty(object, Keys::sysAddressSize)});
  }
  if (!object.HasMember(Keys::memoryParams)) return;
  Value const& params = object[Keys::memoryParams];
  if (params.IsObject()) {
    for (auto const& param : params.GetObject())
      instance.addMemoryParam(stringValue(param.name), stringValue(param.value));
  } else if (params.IsArray()) {
    for (Value const& param : params.GetArray())
      instance.addMemoryParam(Json::GetStringProperty(param, Keys::name), Json::GetStringProperty(param, Keys::value));
  }
}

void TrafficDocumentReader::readMemoryControllerKeys(Value const& object, std::string const& compTypeText,
                                                     TrafficLInst& instance) {
  for (std::string const& portText : Json::GetStringArrayProperty(object, Keys::ports)) {
    PORT_TYPE const port = portTypeFromText(portText);
    if (port != PORT_INVALID)
      m_spec.addPortTypeForMC(&instance, port);
    else
      NOCJsonReadWriteUtils::issueInvalidPortForLogicalSlave(portText, instance.getName());
  }
  if (compTypeText == "HBMMC") return;
  instance.setDdrInterleaveSize(static_cast<uint32_t>(Json::GetIntegrProperty(object, Keys::interleaveSize)));
  instance.setDdrInterleaveSel(static_cast<uint16_t>(Json::GetIntegrProperty(object, Keys::interleaveSel)));
}

void TrafficDocumentReader::readDestId(Value const& object, TrafficLInst& instance) {
  // Only 16 bits are looked at, of which a destination id may use 12.
  uint16_t const destId = static_cast<uint16_t>(Json::GetIntegrProperty(object, Keys::destId));
  if (destId >= (1u << 12)) Json::errorParsingJsonFile(m_fileName, "DestId entry is expected to be a 12 bit maximum");
  instance.setDestId(DestIdRepr(destId));
}

void TrafficDocumentReader::readPath(Value const& object) {
  int const phase = Json::GetIntegrProperty(object, Keys::phase);
  DocumentInstance& from = knownInstance(stringView(object, Keys::from), "Path 'from' name is unknown: ");
  DocumentInstance& to = knownInstance(stringView(object, Keys::to), "Path 'to' name is unknown: ");
  std::string const portText = Json::GetStringProperty(object, Keys::port);
  bool const hasDestIdIndex = Json::IsIntegrProperty(object, Keys::destIdIndex);
  bool const initialBoot = Json::GetBooleanProperty(object, Keys::initialBoot);

  // A path from a slave or to a master is no path of this specification.
  TrafficLInst* master = from.master;
  TrafficLInst* slave = to.slave;
  if (master == nullptr || slave == nullptr) return;
  TrafficPath& path = *m_spec.addPath(master, slave);
  path.phase = phase;

  if (object.HasMember(Keys::readTC))
    master->setReadTC(trafficClassFromText(Json::GetStringProperty(object, Keys::readTC)));
  if (object.HasMember(Keys::writeTC))
    master->setWriteTC(trafficClassFromText(Json::GetStringProperty(object, Keys::writeTC)));
  if (object.HasMember(Keys::writeOrder))
    path.setWoc(writeOrderFromText(Json::GetStringProperty(object, Keys::writeOrder)));
  PORT_TYPE const port = portTypeFromText(portText);
  if (port != PORT_INVALID)
    path.setSlavePort(port);
  else
    NOCJsonReadWriteUtils::issueInvalidPortType(portText);

  readPerfSpecs(object, path);
  path.setExclusiveGroup(Json::GetStringProperty(object, Keys::exclusiveGroup));
  path.setSeparateRoutingGroup(Json::GetStringProperty(object, Keys::separateRoutingGroup));
  path.setIsExistDestIdIndex(hasDestIdIndex);
  if (hasDestIdIndex) readDestIdIndex(object, path);
  path.setIsInitialBoot(initialBoot);
  if (Value const* ranges = JsonMembers::findArray(object, Keys::destIdIdx)) {
    for (Value const& range : ranges->GetArray()) {
      path.addDestIdIdx({static_cast<uint8_t>(Json::GetIntegrProperty(range, Keys::startIdx)),
                         static_cast<uint8_t>(Json::GetIntegrProperty(range, Keys::endIdx))});
    }
  }
  path.setHighPriorityRouting(Json::GetBooleanProperty(object, Keys::highPriorityRouting));
  readPhaseGroups(object, path);
}

void TrafficDocumentReader::readPerfSpecs(Value const& object, TrafficPath& path) {
  uint32_t const writeBW = static_cast<uint32_t>(Json::GetULongProperty(object, Keys::writeBW));
  uint32_t const writeLatency = static_cast<uint32_t>(Json::GetULongProperty(object, Keys::writeLatency));
  path.setWritePerfSpec(PerfSpec(0, writeBW, writeLatency));
  // A stream only writes: its read values are not kept.
  if (Json::GetStringProperty(object, Keys::commType) != Keys::streamCommType) {
    uint32_t const readBW = static_cast<uint32_t>(Json::GetULongProperty(object, Keys::readBW));
    uint32_t const readLatency = static_cast<uint32_t>(Json::GetULongProperty(object, Keys::readLatency));
    path.setReadPerfSpec(PerfSpec(0, readBW, readLatency));
    if (object.HasMember(Keys::readAvgBurst))
      path.setReadAvgBurst(static_cast<uint16_t>(Json::GetULongProperty(object, Keys::readAvgBurst)));
  }
  if (object.HasMember(Keys::writeAvgBurst))
    path.setWriteAvgBurst(static_cast<uint16_t>(Json::GetULongProperty(object, Keys::writeAvgBurst)));
}

void TrafficDocumentReader::readDestIdIndex(Value const& object, TrafficPath& path) {
  uint16_t const index = static_cast<uint16_t>(Json::GetIntegrProperty(object, Keys::destIdIndex));
  if (index > 7) {
    Json::errorParsingSchemaFile(JsonDocumentFrame::canonicalName(NOCJsonReadWriteUtils::getTrafficJsonSchemaFile()),
                                 "DestIdIndex field is out of expected range: [0,7]");
  }
  path.setDestIdIndex(DestIdRepr(index));
}

void TrafficDocumentReader::readPhaseGroups(Value const& object, TrafficPath& path) {
  Value const* groups = JsonMembers::findArray(object, Keys::phaseGroups);
  if (groups == nullptr) return;
  uint32_t const readLatency = static_cast<uint32_t>(Json::GetULongProperty(object, Keys::readLatency));
  uint32_t const writeLatency = static_cast<uint32_t>(Json::GetULongProperty(object, Keys::writeLatency));
  for (Value const& group : groups->GetArray()) {
    std::string const groupName = Json::GetStringProperty(group, Keys::name);
    Value const* phases = JsonMembers::findArray(group, Keys::phases);
    if (phases == nullptr) continue;
    for (Value const& phase : phases->GetArray()) {
      std::string const phaseName = Json::GetStringProperty(phase, Keys::name);
      uint32_t const readBW = static_cast<uint32_t>(Json::GetULongProperty(phase, Keys::readBW));
      uint32_t const writeBW = static_cast<uint32_t>(Json::GetULongProperty(phase, Keys::writeBW));
      path.setReadPerfSpec(groupName, phaseName, PerfSpec(0, readBW, readLatency));
      path.setWritePerfSpec(groupName, phaseName, PerfSpec(0, writeBW, writeLatency));
      path.setReadAvgBurst(static_cast<uint16_t>(Json::GetULongProperty(phase, Keys::readAvgBurst)), phaseName);
      path.setWriteAvgBurst(static_cast<uint16_t>(Json::GetULongProperty(phase, Keys::writeAvgBurst)), phaseName);
    }
  }
}

void TrafficDocumentReader::readSystemProperties(Value const& properties) {
  if (properties.HasMember(Keys::frequency))
    m_spec.setFrequency(Json::GetIntegrProperty(properties, Keys::frequency), true);
  if (properties.HasMember(Keys::rcfPaths)) {
    for (std::string path : Json::GetStringArrayProperty(properties, Keys::rcfPaths)) {
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
  if (properties.HasMember(Keys::secureMode))
    m_spec.setSecureMode(Json::GetBooleanProperty(properties, Keys::secureMode));
  m_spec.setDeviceName(properties.HasMember(Keys::deviceName) ? Json::GetStringProperty(properties, Keys::deviceName)
                                                              : "");
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
  if (Value const* instances = JsonMembers::findArray(doc, Keys::logicalInstances)) reader.readInstances(*instances);
  status.setPercent(40);
  if (Value const* paths = JsonMembers::findArray(doc, Keys::paths)) reader.readPaths(*paths);
  if (Value const* properties = JsonMembers::findObject(doc, Keys::systemProperties))
    reader.readSystemProperties(*properties);
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
