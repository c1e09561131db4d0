#include "NOCJsonTrafficSpecReader.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <istream>
#include <string_view>
#include <utility>
#include <vector>

#include "HCRapidJsonReadWriteUtils.h"
#include "HDGUIStatus.h"
#include "HIPLogicalObjectNameResolverInterface.h"
#include "JsonDocumentFrame.h"
#include "JsonEventFrame.h"
#include "JsonNumber.h"
#include "NOCJsonEnumTexts.h"
#include "NOCJsonReadWriteUtils.h"
#include "NOCTrafficDocumentKeys.h"
#include "StringScan.h"
#include "TextInterner.h"
#include "TrafficSpec.h"

using tarvo::jsonio::JsonNumber;
using tarvo::jsonio::StringScan;
using namespace DevHrdIP::Definitions;
using HrdIPToolCntr::DestIdRepr;
using HrdIPToolCntr::PerfSpec;
using HrdIPToolCntr::TrafficLInst;
using HrdIPToolCntr::TrafficPath;
using HrdIPToolCntr::TrafficSpec;

typedef HCRapidJsonReadWriteUtils Json;
typedef NOCTrafficDocumentKeys Keys;

namespace NOC {

namespace {

// The document is read in one pass and staged compactly: each value as the getters of a
// document tree would have read it, texts that recur (names, ports, groups) numbered once.
// The traffic specification, the resolver and the messages are only touched once the whole
// text has proved valid, and then in the order a walk over a document tree took: every
// instance, every path, the system properties. Of two equal keys of an object the first
// counts; the members of a parameter map all count, in document order.

bool isErrorSlaveName(std::string const& name) {
  return StringScan::endsWith(name, TrafficSpec::getErrorSlaveName()) ||
         StringScan::endsWith(name, TrafficSpec::getErrorSlaveName_hp());
}

// Base 0: "0x" hexadecimal, a leading 0 octal, otherwise decimal; no number reads as 0.
uint64_t numberFromText(std::string const& text) {
  return std::strtoull(text.c_str(), nullptr, 0);
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

// The number the interner gives the empty text, which it is given first.
constexpr std::uint32_t kEmptyText = 0;

// Where an event lies: the kind of the innermost open object or array.
enum class Place : std::uint8_t {
  Root,
  Instances,
  Instance,
  Remaps,
  Remap,
  SysAddresses,
  SysAddress,
  MemoryParamMap,
  MemoryParamList,
  MemoryParam,
  ConfigParams,
  SimMetaData,
  Ports,
  Paths,
  Path,
  DestIdIdxList,
  DestIdIdx,
  PhaseGroups,
  PhaseGroup,
  Phases,
  Phase,
  SystemProperties,
  RcfPaths,
  Skipped
};

// The keys the reader takes, per kind of object, each kind numbered from 0 in the order of its
// table below.
enum RootKey { RootInstances, RootPaths, RootSystemProperties };
enum InstanceKey {
  IName,
  IIsMaster,
  ICompType,
  IFirewall,
  IProtocol,
  IIsVirtual,
  IDestId,
  IExternalConn,
  IDesignName,
  IRemap,
  IReadTC,
  IWriteTC,
  INumReadOutstanding,
  INumWriteOutstanding,
  IReadRateLimiter,
  IWriteRateLimiter,
  ISysAddresses,
  ISysAddress,
  ISysAddressSize,
  IMemoryParams,
  IConfigParams,
  ISimMetaData,
  IUseDestIdIdx,
  IHasParityAddr,
  IHasParityData,
  IAxiDataWidth,
  IPorts,
  IInterleaveSize,
  IInterleaveSel
};
enum RemapKey { RLogical, RPhysical, RRange };
enum AddressKey { ABase, ASize };
enum NameValueKey { NVName, NVValue };
enum SimMetaDataKey { SIPName };
enum PathKey {
  PPhase,
  PFrom,
  PTo,
  PPort,
  PDestIdIndex,
  PInitialBoot,
  PReadTC,
  PWriteTC,
  PWriteOrder,
  PWriteBW,
  PWriteLatency,
  PCommType,
  PReadBW,
  PReadLatency,
  PReadAvgBurst,
  PWriteAvgBurst,
  PExclusiveGroup,
  PSeparateRoutingGroup,
  PDestIdIdx,
  PHighPriorityRouting,
  PPhaseGroups
};
enum DestIdIdxKey { DStart, DEnd };
enum PhaseGroupKey { GName, GPhases };
enum PhaseKey { PhName, PhReadBW, PhWriteBW, PhReadAvgBurst, PhWriteAvgBurst };
enum SystemKey { SFrequency, SRcfPaths, SSecureMode, SDeviceName };

struct KeyTable {
  std::string const* const* keys;
  std::size_t count;
};

template <std::size_t N>
constexpr KeyTable tableOf(std::string const* const (&keys)[N]) {
  return KeyTable{keys, N};
}

std::string const* const kRootKeys[] = {&Keys::logicalInstances, &Keys::paths, &Keys::systemProperties};
std::string const* const kInstanceKeys[] = {&Keys::name,
                                            &Keys::isMaster,
                                            &Keys::compType,
                                            &Keys::firewall,
                                            &Keys::protocol,
                                            &Keys::isVirtual,
                                            &Keys::destId,
                                            &Keys::externalConn,
                                            &Keys::designName,
                                            &Keys::remap,
                                            &Keys::readTC,
                                            &Keys::writeTC,
                                            &Keys::numReadOutstanding,
                                            &Keys::numWriteOutstanding,
                                            &Keys::readRateLimiter,
                                            &Keys::writeRateLimiter,
                                            &Keys::sysAddresses,
                                            &Keys::sysAddress,
                                            &Keys::sysAddressSize,
                                            &Keys::memoryParams,
                                            &Keys::configParams,
                                            &Keys::simMetaData,
                                            &Keys::useDestIdIdx,
                                            &Keys::hasParityAddr,
                                            &Keys::hasParityData,
                                            &Keys::axiDataWidth,
                                            &Keys::ports,
                                            &Keys::interleaveSize,
                                            &Keys::interleaveSel};
std::string const* const kRemapKeys[] = {&Keys::logical, &Keys::physical, &Keys::range};
std::string const* const kAddressKeys[] = {&Keys::base, &Keys::size};
std::string const* const kNameValueKeys[] = {&Keys::name, &Keys::value};
std::string const* const kSimMetaDataKeys[] = {&Keys::ipName};
std::string const* const kPathKeys[] = {&Keys::phase,
                                        &Keys::from,
                                        &Keys::to,
                                        &Keys::port,
                                        &Keys::destIdIndex,
                                        &Keys::initialBoot,
                                        &Keys::readTC,
                                        &Keys::writeTC,
                                        &Keys::writeOrder,
                                        &Keys::writeBW,
                                        &Keys::writeLatency,
                                        &Keys::commType,
                                        &Keys::readBW,
                                        &Keys::readLatency,
                                        &Keys::readAvgBurst,
                                        &Keys::writeAvgBurst,
                                        &Keys::exclusiveGroup,
                                        &Keys::separateRoutingGroup,
                                        &Keys::destIdIdx,
                                        &Keys::highPriorityRouting,
                                        &Keys::phaseGroups};
std::string const* const kDestIdIdxKeys[] = {&Keys::startIdx, &Keys::endIdx};
std::string const* const kPhaseGroupKeys[] = {&Keys::name, &Keys::phases};
std::string const* const kPhaseKeys[] = {&Keys::name, &Keys::readBW, &Keys::writeBW, &Keys::readAvgBurst,
                                         &Keys::writeAvgBurst};
std::string const* const kSystemKeys[] = {&Keys::frequency, &Keys::rcfPaths, &Keys::secureMode, &Keys::deviceName};

// The keys an object at `place` has; none for a place that is no object the reader takes.
KeyTable keysAt(Place place) {
  switch (place) {
    case Place::Root:
      return tableOf(kRootKeys);
    case Place::Instance:
      return tableOf(kInstanceKeys);
    case Place::Remap:
      return tableOf(kRemapKeys);
    case Place::SysAddress:
      return tableOf(kAddressKeys);
    case Place::MemoryParam:
      return tableOf(kNameValueKeys);
    case Place::SimMetaData:
      return tableOf(kSimMetaDataKeys);
    case Place::Path:
      return tableOf(kPathKeys);
    case Place::DestIdIdx:
      return tableOf(kDestIdIdxKeys);
    case Place::PhaseGroup:
      return tableOf(kPhaseGroupKeys);
    case Place::Phase:
      return tableOf(kPhaseKeys);
    case Place::SystemProperties:
      return tableOf(kSystemKeys);
    default:
      return KeyTable{nullptr, 0};
  }
}

// One scalar value as the parser gave it.
struct Scalar {
  enum Kind { Null, Bool, Number, String };
  Kind kind;
  bool boolean;
  JsonNumber number;
  std::string_view text;

  bool isTrue() const { return kind == Bool && boolean; }
  // The text of a string, otherwise empty.
  std::string_view string() const { return kind == String ? text : std::string_view(); }
};

typedef std::pair<std::string, std::string> NameValue;

// A logical instance, each value as the getters read it.
struct StagedInstance {
  std::uint64_t seen = 0;  // the keys present, a bit per InstanceKey
  std::uint32_t name = kEmptyText;
  std::uint32_t compType = kEmptyText;
  std::uint32_t protocol = kEmptyText;
  std::uint32_t readTC = kEmptyText;
  std::uint32_t writeTC = kEmptyText;
  bool isMaster = false;
  bool firewall = false;
  bool isVirtual = false;
  bool hasDestId = false;
  bool useDestIdIdx = false;
  bool hasParityAddr = false;
  bool hasParityData = false;
  std::uint16_t destId = 0;
  int numReadOutstanding = 0;
  int numWriteOutstanding = 0;
  int readRateLimiter = 0;
  int writeRateLimiter = 0;
  int axiDataWidth = 0;
  int interleaveSize = 0;
  int interleaveSel = 0;
  std::uint64_t sysAddress = 0;
  std::uint64_t sysAddressSize = 0;
  std::string externalConn;
  std::string designName;
  std::string ipName;
  std::vector<HrdIPToolCntr::RemapAddrSpec> remaps;
  std::vector<std::pair<std::uint64_t, std::uint64_t>> sysAddresses;
  std::vector<NameValue> memoryParams;
  std::vector<NameValue> configParams;
  std::vector<std::string> ports;

  bool has(InstanceKey key) const { return (seen >> key) & 1u; }
};

struct StagedPhase {
  std::string name;
  std::uint32_t readBW = 0;
  std::uint32_t writeBW = 0;
  std::uint16_t readAvgBurst = 0;
  std::uint16_t writeAvgBurst = 0;
};

struct StagedPhaseGroup {
  std::string name;
  std::uint32_t firstPhase = 0;  // into TrafficStage::m_phases
  std::uint32_t phaseCount = 0;
};

// A path, each value as the getters read it; texts by their numbers.
struct StagedPath {
  std::uint32_t seen = 0;  // the keys present, a bit per PathKey
  int phase = 0;
  std::uint32_t from = kEmptyText;
  std::uint32_t to = kEmptyText;
  std::uint32_t port = kEmptyText;
  std::uint32_t readTC = kEmptyText;
  std::uint32_t writeTC = kEmptyText;
  std::uint32_t writeOrder = kEmptyText;
  std::uint32_t exclusiveGroup = kEmptyText;
  std::uint32_t separateRoutingGroup = kEmptyText;
  std::uint32_t writeBW = 0;
  std::uint32_t writeLatency = 0;
  std::uint32_t readBW = 0;
  std::uint32_t readLatency = 0;
  std::uint16_t readAvgBurst = 0;
  std::uint16_t writeAvgBurst = 0;
  std::uint16_t destIdIndex = 0;
  bool hasDestIdIndex = false;
  bool initialBoot = false;
  bool stream = false;
  bool highPriorityRouting = false;
  std::uint32_t firstDestIdIdx = 0;  // into TrafficStage::m_destIdIdx
  std::uint32_t destIdIdxCount = 0;
  std::uint32_t firstGroup = 0;  // into TrafficStage::m_groups
  std::uint32_t groupCount = 0;

  bool has(PathKey key) const { return (seen >> key) & 1u; }
};

struct StagedSystemProperties {
  bool present = false;  // the first "SystemProperties" is an object
  std::uint32_t seen = 0;
  int frequency = 0;
  bool secureMode = false;
  std::string deviceName;
  std::vector<std::string> rcfPaths;

  bool has(SystemKey key) const { return (seen >> key) & 1u; }
};

// Collects the events of one document.
class TrafficStage {
 public:
  TrafficStage() { m_texts.intern(std::string_view()); }

  void Null() { scalar(Scalar{Scalar::Null, false, JsonNumber(), std::string_view()}); }
  void Bool(bool b) { scalar(Scalar{Scalar::Bool, b, JsonNumber(), std::string_view()}); }
  void Int(int i) { number(JsonNumber::ofSigned(i)); }
  void Uint(unsigned u) { number(JsonNumber::ofUnsigned(u)); }
  void Int64(std::int64_t i) { number(JsonNumber::ofSigned(i)); }
  void Uint64(std::uint64_t u) { number(JsonNumber::ofUnsigned(u)); }
  void Double(double d) { number(JsonNumber::ofReal(d)); }
  void String(char const* s, rapidjson::SizeType n, bool) {
    scalar(Scalar{Scalar::String, false, JsonNumber(), std::string_view(s, n)});
  }
  void Key(char const* s, rapidjson::SizeType n, bool) {
    Frame& frame = m_frames.back();
    frame.key = -1;
    if (frame.place == Place::MemoryParamMap || frame.place == Place::ConfigParams) {
      m_mapKey.assign(s, n);
      return;
    }
    KeyTable const table = keysAt(frame.place);
    for (std::size_t k = 0; k < table.count; ++k) {
      std::string const& key = *table.keys[k];
      if (key.size() != n || std::memcmp(key.data(), s, n) != 0) continue;
      std::uint64_t const bit = std::uint64_t(1) << k;
      if (frame.seen & bit) return;  // a later equal key: the first one counts
      frame.seen |= bit;
      frame.key = static_cast<int>(k);
      return;
    }
  }
  void StartObject() { open(objectPlace()); }
  void EndObject(rapidjson::SizeType) { close(); }
  void StartArray() { open(arrayPlace()); }
  void EndArray(rapidjson::SizeType) { close(); }

  TextInterner m_texts;
  std::deque<StagedInstance> m_instances;
  std::deque<StagedPath> m_paths;
  std::vector<std::pair<std::uint8_t, std::uint8_t>> m_destIdIdx;
  std::vector<StagedPhaseGroup> m_groups;
  std::vector<StagedPhase> m_phases;
  StagedSystemProperties m_system;

 private:
  // An open object or array, and in an object the key whose value comes next (-1: one the
  // reader does not take).
  struct Frame {
    Place place;
    int key;
    std::uint64_t seen;
  };

  void number(JsonNumber const& value) { scalar(Scalar{Scalar::Number, false, value, std::string_view()}); }
  std::uint32_t textId(Scalar const& value) { return m_texts.intern(value.string()); }

  // The place an object starting now opens, with its staged record begun.
  Place objectPlace() {
    if (m_frames.empty()) return Place::Root;
    Frame const& frame = m_frames.back();
    switch (frame.place) {
      case Place::Instances:
        m_instances.emplace_back();
        return Place::Instance;
      case Place::Paths:
        m_paths.emplace_back();
        return Place::Path;
      case Place::Remaps:
        m_instances.back().remaps.emplace_back();
        return Place::Remap;
      case Place::SysAddresses:
        m_instances.back().sysAddresses.emplace_back(0, 0);
        return Place::SysAddress;
      case Place::MemoryParamList:
        m_instances.back().memoryParams.emplace_back();
        return Place::MemoryParam;
      case Place::DestIdIdxList:
        m_destIdIdx.emplace_back(0, 0);
        ++m_paths.back().destIdIdxCount;
        return Place::DestIdIdx;
      case Place::PhaseGroups:
        m_groups.emplace_back();
        m_groups.back().firstPhase = static_cast<std::uint32_t>(m_phases.size());
        ++m_paths.back().groupCount;
        return Place::PhaseGroup;
      case Place::Phases:
        m_phases.emplace_back();
        ++m_groups.back().phaseCount;
        return Place::Phase;
      case Place::Root:
        if (frame.key == RootSystemProperties) {
          m_system.present = true;
          return Place::SystemProperties;
        }
        break;
      case Place::Instance:
        if (frame.key == IMemoryParams) return Place::MemoryParamMap;
        if (frame.key == IConfigParams) return Place::ConfigParams;
        if (frame.key == ISimMetaData) return Place::SimMetaData;
        break;
      default:
        break;
    }
    return Place::Skipped;
  }

  // The place an array starting now opens.
  Place arrayPlace() {
    if (m_frames.empty()) return Place::Skipped;
    Frame const& frame = m_frames.back();
    switch (frame.place) {
      case Place::Root:
        if (frame.key == RootInstances) return Place::Instances;
        if (frame.key == RootPaths) return Place::Paths;
        break;
      case Place::Instance:
        if (frame.key == IRemap) return Place::Remaps;
        if (frame.key == ISysAddresses) return Place::SysAddresses;
        if (frame.key == IMemoryParams) return Place::MemoryParamList;
        if (frame.key == IPorts) return Place::Ports;
        break;
      case Place::Path:
        if (frame.key == PDestIdIdx) {
          m_paths.back().firstDestIdIdx = static_cast<std::uint32_t>(m_destIdIdx.size());
          return Place::DestIdIdxList;
        }
        if (frame.key == PPhaseGroups) {
          m_paths.back().firstGroup = static_cast<std::uint32_t>(m_groups.size());
          return Place::PhaseGroups;
        }
        break;
      case Place::PhaseGroup:
        if (frame.key == GPhases) return Place::Phases;
        break;
      case Place::SystemProperties:
        if (frame.key == SRcfPaths) return Place::RcfPaths;
        break;
      default:
        break;
    }
    return Place::Skipped;
  }

  void open(Place place) {
    // A container as a parameter's value reads as an empty text.
    if (!m_frames.empty()) valueOfMap(std::string_view());
    if (!m_frames.empty()) m_frames.back().key = -1;
    m_frames.push_back(Frame{place, -1, 0});
  }

  void close() {
    Frame const frame = m_frames.back();
    m_frames.pop_back();
    if (frame.place == Place::Instance) m_instances.back().seen = frame.seen;
    if (frame.place == Place::Path) m_paths.back().seen = static_cast<std::uint32_t>(frame.seen);
    if (frame.place == Place::SystemProperties) m_system.seen = static_cast<std::uint32_t>(frame.seen);
  }

  // A member of a parameter map: every member counts, a value that is no string as empty.
  bool valueOfMap(std::string_view text) {
    Place const place = m_frames.back().place;
    if (place != Place::MemoryParamMap && place != Place::ConfigParams) return false;
    StagedInstance& instance = m_instances.back();
    (place == Place::MemoryParamMap ? instance.memoryParams : instance.configParams)
        .emplace_back(m_mapKey, std::string(text));
    return true;
  }

  void scalar(Scalar const& value) {
    if (m_frames.empty()) return;
    Frame& frame = m_frames.back();
    if (valueOfMap(value.string())) return;
    if (frame.place == Place::Ports || frame.place == Place::RcfPaths) {
      if (value.kind == Scalar::String)
        (frame.place == Place::Ports ? m_instances.back().ports : m_system.rcfPaths).emplace_back(value.text);
      return;
    }
    int const key = frame.key;
    frame.key = -1;
    if (key < 0) return;
    switch (frame.place) {
      case Place::Instance:
        instanceValue(static_cast<InstanceKey>(key), value);
        break;
      case Place::Path:
        pathValue(static_cast<PathKey>(key), value);
        break;
      case Place::Remap: {
        std::uint64_t const number = numberFromText(std::string(value.string()));
        HrdIPToolCntr::RemapAddrSpec& remap = m_instances.back().remaps.back();
        (key == RLogical ? remap.logical : key == RPhysical ? remap.physical : remap.range) = number;
        break;
      }
      case Place::SysAddress: {
        // Either a string holding a number or an unsigned integer.
        std::uint64_t const address =
            value.kind == Scalar::String ? numberFromText(std::string(value.text)) : value.number.ulong();
        std::pair<std::uint64_t, std::uint64_t>& range = m_instances.back().sysAddresses.back();
        (key == ABase ? range.first : range.second) = address;
        break;
      }
      case Place::MemoryParam:
        (key == NVName ? m_instances.back().memoryParams.back().first : m_instances.back().memoryParams.back().second) =
            value.string();
        break;
      case Place::SimMetaData:
        m_instances.back().ipName = value.string();
        break;
      case Place::DestIdIdx:
        (key == DStart ? m_destIdIdx.back().first : m_destIdIdx.back().second) =
            static_cast<std::uint8_t>(value.number.integer());
        break;
      case Place::PhaseGroup:
        if (key == GName) m_groups.back().name = value.string();
        break;
      case Place::Phase:
        phaseValue(static_cast<PhaseKey>(key), value);
        break;
      case Place::SystemProperties:
        if (key == SFrequency) m_system.frequency = value.number.integer();
        if (key == SSecureMode) m_system.secureMode = value.isTrue();
        if (key == SDeviceName) m_system.deviceName = value.string();
        break;
      default:
        break;
    }
  }

  void instanceValue(InstanceKey key, Scalar const& value) {
    StagedInstance& instance = m_instances.back();
    switch (key) {
      case IName:
        instance.name = textId(value);
        break;
      case IIsMaster:
        instance.isMaster = value.isTrue();
        break;
      case ICompType:
        instance.compType = textId(value);
        break;
      case IFirewall:
        instance.firewall = value.isTrue();
        break;
      case IProtocol:
        instance.protocol = textId(value);
        break;
      case IIsVirtual:
        instance.isVirtual = value.isTrue();
        break;
      case IDestId:
        instance.hasDestId = value.number.isInteger();
        // Only 16 bits are looked at, of which a destination id may use 12.
        instance.destId = static_cast<std::uint16_t>(value.number.integer());
        break;
      case IExternalConn:
        instance.externalConn = value.string();
        break;
      case IDesignName:
        instance.designName = value.string();
        break;
      case IReadTC:
        instance.readTC = textId(value);
        break;
      case IWriteTC:
        instance.writeTC = textId(value);
        break;
      case INumReadOutstanding:
        instance.numReadOutstanding = value.number.integer();
        break;
      case INumWriteOutstanding:
        instance.numWriteOutstanding = value.number.integer();
        break;
      case IReadRateLimiter:
        instance.readRateLimiter = value.number.integer();
        break;
      case IWriteRateLimiter:
        instance.writeRateLimiter = value.number.integer();
        break;
      case ISysAddress:
        instance.sysAddress = value.number.ulong();
        break;
      case ISysAddressSize:
        instance.sysAddressSize = value.number.ulong();
        break;
      case IUseDestIdIdx:
        instance.useDestIdIdx = value.isTrue();
        break;
      case IHasParityAddr:
        instance.hasParityAddr = value.isTrue();
        break;
      case IHasParityData:
        instance.hasParityData = value.isTrue();
        break;
      case IAxiDataWidth:
        instance.axiDataWidth = value.number.integer();
        break;
      case IInterleaveSize:
        instance.interleaveSize = value.number.integer();
        break;
      case IInterleaveSel:
        instance.interleaveSel = value.number.integer();
        break;
      default:
        break;
    }
  }

  void pathValue(PathKey key, Scalar const& value) {
    StagedPath& path = m_paths.back();
    switch (key) {
      case PPhase:
        path.phase = value.number.integer();
        break;
      case PFrom:
        path.from = textId(value);
        break;
      case PTo:
        path.to = textId(value);
        break;
      case PPort:
        path.port = textId(value);
        break;
      case PDestIdIndex:
        path.hasDestIdIndex = value.number.isInteger();
        path.destIdIndex = static_cast<std::uint16_t>(value.number.integer());
        break;
      case PInitialBoot:
        path.initialBoot = value.isTrue();
        break;
      case PReadTC:
        path.readTC = textId(value);
        break;
      case PWriteTC:
        path.writeTC = textId(value);
        break;
      case PWriteOrder:
        path.writeOrder = textId(value);
        break;
      case PWriteBW:
        path.writeBW = static_cast<std::uint32_t>(value.number.ulong());
        break;
      case PWriteLatency:
        path.writeLatency = static_cast<std::uint32_t>(value.number.ulong());
        break;
      case PCommType:
        path.stream = value.string() == Keys::streamCommType;
        break;
      case PReadBW:
        path.readBW = static_cast<std::uint32_t>(value.number.ulong());
        break;
      case PReadLatency:
        path.readLatency = static_cast<std::uint32_t>(value.number.ulong());
        break;
      case PReadAvgBurst:
        path.readAvgBurst = static_cast<std::uint16_t>(value.number.ulong());
        break;
      case PWriteAvgBurst:
        path.writeAvgBurst = static_cast<std::uint16_t>(value.number.ulong());
        break;
      case PExclusiveGroup:
        path.exclusiveGroup = textId(value);
        break;
      case PSeparateRoutingGroup:
        path.separateRoutingGroup = textId(value);
        break;
      case PHighPriorityRouting:
        path.highPriorityRouting = value.isTrue();
        break;
      default:
        break;
    }
  }

  void phaseValue(PhaseKey key, Scalar const& value) {
    StagedPhase& phase = m_phases.back();
    switch (key) {
      case PhName:
        phase.name = value.string();
        break;
      case PhReadBW:
        phase.readBW = static_cast<std::uint32_t>(value.number.ulong());
        break;
      case PhWriteBW:
        phase.writeBW = static_cast<std::uint32_t>(value.number.ulong());
        break;
      case PhReadAvgBurst:
        phase.readAvgBurst = static_cast<std::uint16_t>(value.number.ulong());
        break;
      case PhWriteAvgBurst:
        phase.writeAvgBurst = static_cast<std::uint16_t>(value.number.ulong());
        break;
    }
  }

  std::vector<Frame> m_frames;
  std::string m_mapKey;  // the key of the parameter whose value comes next
};

// Puts a staged document into the traffic specification.
class TrafficCommit {
 public:
  TrafficCommit(std::string const& fileName, HIPLogicalObjectNameResolverInterface& resolver, TrafficSpec& spec,
                TrafficStage& stage)
      : m_fileName(fileName),
        m_resolver(resolver),
        m_spec(spec),
        m_stage(stage),
        m_instanceOfText(stage.m_texts.size(), kNoInstance) {}

  // Each staged instance and path is let go once it is in the TrafficSpec, so that the
  // model grows into the memory the stage gives back.
  void readInstances() {
    m_instances.reserve(m_stage.m_instances.size());
    for (; !m_stage.m_instances.empty(); m_stage.m_instances.pop_front())
      readInstance(m_stage.m_instances.front());
  }

  void readPaths() {
    for (; !m_stage.m_paths.empty(); m_stage.m_paths.pop_front())
      readPath(m_stage.m_paths.front());
  }

  void readSystemProperties();

 private:
  std::string text(std::uint32_t id) const { return std::string(m_stage.m_texts.text(id)); }

  void readInstance(StagedInstance const& staged);
  void readMasterKeys(StagedInstance const& staged, TrafficLInst& instance);
  void readSlaveKeys(StagedInstance const& staged, TrafficLInst& instance);
  void readMemoryControllerKeys(StagedInstance const& staged, std::string const& compTypeText, TrafficLInst& instance);
  void readPath(StagedPath const& staged);
  void readPhaseGroups(StagedPath const& staged, TrafficPath& path);
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
  DocumentInstance& knownInstance(std::uint32_t name, char const* unknownText);
  TrafficLInst::ExternalConns netlistExternalConns(std::string const& text);

  static constexpr std::uint32_t kNoInstance = ~std::uint32_t(0);

  std::string const& m_fileName;
  HIPLogicalObjectNameResolverInterface& m_resolver;
  TrafficSpec& m_spec;
  TrafficStage& m_stage;
  std::vector<DocumentInstance> m_instances;
  // By the number of a document name, the last instance of that name, so that paths ask
  // neither the resolver nor the traffic specification again.
  std::vector<std::uint32_t> m_instanceOfText;
};

void TrafficCommit::readInstance(StagedInstance const& staged) {
  std::string const name = text(staged.name);
  std::string const compTypeText = text(staged.compType);
  AxiProt const protocol = axiProtFromText(text(staged.protocol));
  COMP_TYPE const compType = compTypeFromText(compTypeText);
  if (compType == COMPERR) Json::errorParsingJsonFile(m_fileName, "Unknown component type : " + compTypeText);
  if (name.empty()) Json::errorParsingJsonFile(m_fileName, "Empty logical instance name");

  std::string const netlistName = staged.isVirtual ? m_resolver.toNetlistName(name) : netlistInstanceName(name);
  if (netlistName.empty() && (staged.isVirtual || !isErrorSlaveName(name)))
    Json::errorParsingJsonFile(m_fileName, "Could not find netlist instance for traffic spec instance: " + name);
  m_instanceOfText[staged.name] = static_cast<std::uint32_t>(m_instances.size());
  m_instances.push_back(DocumentInstance{netlistName});

  TrafficLInst::ExternalConns const conns = netlistExternalConns(staged.externalConn);
  TrafficLInst& instance = *m_spec.addLogicalInstance(netlistName, protocol, compType, conns);
  instance.firewall = staged.firewall;
  instance.setDesignName(staged.designName);
  if (staged.isMaster)
    readMasterKeys(staged, instance);
  else
    readSlaveKeys(staged, instance);

  for (NameValue const& param : staged.configParams)
    instance.addConfigParam(param.first, param.second);
  if (staged.has(ISimMetaData)) instance.ipName = staged.ipName;
  instance.setUseDestIdIdx(staged.useDestIdIdx);
  instance.setHasParityAddr(staged.hasParityAddr);
  instance.setHasParityData(staged.hasParityData);
  if (readsAxiWidth(compType)) instance.setAxiWidth(static_cast<unsigned>(staged.axiDataWidth));
  if (isMemoryControllerText(compTypeText)) readMemoryControllerKeys(staged, compTypeText, instance);

  instance.virtualInstance = staged.isVirtual;
  instance.setIsExistDestId(staged.hasDestId);
  if (staged.hasDestId) {
    if (staged.destId >= (1u << 12))
      Json::errorParsingJsonFile(m_fileName, "DestId entry is expected to be a 12 bit maximum");
    instance.setDestId(DestIdRepr(staged.destId));
  }
}

void TrafficCommit::readMasterKeys(StagedInstance const& staged, TrafficLInst& instance) {
  for (HrdIPToolCntr::RemapAddrSpec const& remap : staged.remaps)
    instance.addRemapAddrSpec(remap.logical, remap.physical, remap.range);
  if (staged.has(IReadTC)) instance.setReadTC(trafficClassFromText(text(staged.readTC)));
  if (staged.has(IWriteTC)) instance.setWriteTC(trafficClassFromText(text(staged.writeTC)));
  instance.setNumReadOutstanding(static_cast<uint16_t>(staged.numReadOutstanding));
  instance.setNumWriteOutstanding(static_cast<uint16_t>(staged.numWriteOutstanding));
  instance.setReadRateLimiter(static_cast<float>(staged.readRateLimiter));
  instance.setWriteRateLimiter(static_cast<float>(staged.writeRateLimiter));
}

void TrafficCommit::readSlaveKeys(StagedInstance const& staged, TrafficLInst& instance) {
  if (staged.has(ISysAddresses)) {
    for (std::pair<std::uint64_t, std::uint64_t> const& address : staged.sysAddresses)
      instance.addSysAddress(address);
  } else if (staged.has(ISysAddress)) {
    instance.addSysAddress({staged.sysAddress, staged.sysAddressSize});
  }
  for (NameValue const& param : staged.memoryParams)
    instance.addMemoryParam(param.first, param.second);
}

void TrafficCommit::readMemoryControllerKeys(StagedInstance const& staged, std::string const& compTypeText,
                                             TrafficLInst& instance) {
  for (std::string const& portText : staged.ports) {
    PORT_TYPE const port = portTypeFromText(portText);
    if (port != PORT_INVALID)
      m_spec.addPortTypeForMC(&instance, port);
    else
      NOCJsonReadWriteUtils::issueInvalidPortForLogicalSlave(portText, instance.getName());
  }
  if (compTypeText == "HBMMC") return;
  instance.setDdrInterleaveSize(static_cast<uint32_t>(staged.interleaveSize));
  instance.setDdrInterleaveSel(static_cast<uint16_t>(staged.interleaveSel));
}

void TrafficCommit::readPath(StagedPath const& staged) {
  DocumentInstance& from = knownInstance(staged.from, "Path 'from' name is unknown: ");
  DocumentInstance& to = knownInstance(staged.to, "Path 'to' name is unknown: ");

  // A path from a slave or to a master is no path of this specification.
  TrafficLInst* master = from.master;
  TrafficLInst* slave = to.slave;
  if (master == nullptr || slave == nullptr) return;
  TrafficPath& path = *m_spec.addPath(master, slave);
  path.phase = staged.phase;

  if (staged.has(PReadTC)) master->setReadTC(trafficClassFromText(text(staged.readTC)));
  if (staged.has(PWriteTC)) master->setWriteTC(trafficClassFromText(text(staged.writeTC)));
  if (staged.has(PWriteOrder)) path.setWoc(writeOrderFromText(text(staged.writeOrder)));
  std::string const portText = text(staged.port);
  PORT_TYPE const port = portTypeFromText(portText);
  if (port != PORT_INVALID)
    path.setSlavePort(port);
  else
    NOCJsonReadWriteUtils::issueInvalidPortType(portText);

  path.setWritePerfSpec(PerfSpec(0, staged.writeBW, staged.writeLatency));
  // A stream only writes: its read values are not kept.
  if (!staged.stream) {
    path.setReadPerfSpec(PerfSpec(0, staged.readBW, staged.readLatency));
    if (staged.has(PReadAvgBurst)) path.setReadAvgBurst(staged.readAvgBurst);
  }
  if (staged.has(PWriteAvgBurst)) path.setWriteAvgBurst(staged.writeAvgBurst);
  path.setExclusiveGroup(text(staged.exclusiveGroup));
  path.setSeparateRoutingGroup(text(staged.separateRoutingGroup));
  path.setIsExistDestIdIndex(staged.hasDestIdIndex);
  if (staged.hasDestIdIndex) {
    if (staged.destIdIndex > 7) {
      Json::errorParsingSchemaFile(JsonDocumentFrame::canonicalName(NOCJsonReadWriteUtils::getTrafficJsonSchemaFile()),
                                   "DestIdIndex field is out of expected range: [0,7]");
    }
    path.setDestIdIndex(DestIdRepr(staged.destIdIndex));
  }
  path.setIsInitialBoot(staged.initialBoot);
  for (std::uint32_t range = 0; range < staged.destIdIdxCount; ++range)
    path.addDestIdIdx(m_stage.m_destIdIdx[staged.firstDestIdIdx + range]);
  path.setHighPriorityRouting(staged.highPriorityRouting);
  readPhaseGroups(staged, path);
}

void TrafficCommit::readPhaseGroups(StagedPath const& staged, TrafficPath& path) {
  for (std::uint32_t g = staged.firstGroup; g < staged.firstGroup + staged.groupCount; ++g) {
    StagedPhaseGroup const& group = m_stage.m_groups[g];
    for (std::uint32_t p = group.firstPhase; p < group.firstPhase + group.phaseCount; ++p) {
      StagedPhase const& phase = m_stage.m_phases[p];
      path.setReadPerfSpec(group.name, phase.name, PerfSpec(0, phase.readBW, staged.readLatency));
      path.setWritePerfSpec(group.name, phase.name, PerfSpec(0, phase.writeBW, staged.writeLatency));
      path.setReadAvgBurst(phase.readAvgBurst, phase.name);
      path.setWriteAvgBurst(phase.writeAvgBurst, phase.name);
    }
  }
}

void TrafficCommit::readSystemProperties() {
  StagedSystemProperties const& properties = m_stage.m_system;
  if (!properties.present) return;
  if (properties.has(SFrequency)) m_spec.setFrequency(properties.frequency, true);
  for (std::string path : properties.rcfPaths) {
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
  if (properties.has(SSecureMode)) m_spec.setSecureMode(properties.secureMode);
  m_spec.setDeviceName(properties.deviceName);
}

std::string TrafficCommit::netlistInstanceName(std::string const& name) {
  // The error slave needs no instance in the netlist.
  return isErrorSlaveName(name) ? m_resolver.toNetlistName(name) : m_resolver.toNetlistInstance(name);
}

TrafficCommit::DocumentInstance& TrafficCommit::knownInstance(std::uint32_t name, char const* unknownText) {
  std::uint32_t const index = m_instanceOfText[name];
  if (index == kNoInstance) Json::errorParsingJsonFile(m_fileName, unknownText + text(name));
  DocumentInstance& instance = m_instances[index];
  // Paths add no instances, so the look-ups give the same answer for every path.
  if (!instance.looked) {
    instance.master = m_spec.getLogicalMaster(instance.netlistName);
    instance.slave = m_spec.getLogicalSlave(instance.netlistName);
    instance.looked = true;
  }
  return instance;
}

TrafficLInst::ExternalConns TrafficCommit::netlistExternalConns(std::string const& text) {
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
  TrafficStage stage;
  JsonEventFrame::load(in, fileName, NOCJsonReadWriteUtils::getTrafficJsonSchemaFile(), stage);
  status.setPercent(20);
  TrafficCommit commit(fileName, resolver, spec, stage);
  commit.readInstances();
  status.setPercent(40);
  commit.readPaths();
  commit.readSystemProperties();
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
