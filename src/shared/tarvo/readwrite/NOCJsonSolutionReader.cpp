#include "NOCJsonSolutionReader.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <istream>
#include <stdexcept>
#include <vector>

#include "ComMsgMgr.h"
#include "CompRes.h"
#include "HCRapidJsonReadWriteUtils.h"
#include "HIPLogicalObjectNameResolverInterface.h"
#include "JsonEventFrame.h"
#include "JsonNumber.h"
#include "NOCJsonEnumTexts.h"
#include "NOCJsonReadWriteUtils.h"
#include "NOCSolutionDocumentKeys.h"
#include "StringScan.h"
#include "TrafficSpec.h"

using tarvo::jsonio::StringScan;
using namespace DevHrdIP::Definitions;
using DevHrdIP::Component;
using DevHrdIP::Link;
using DevHrdIP::NOCModel;
using HrdIPToolCntr::CompRes;
using HrdIPToolCntr::DestIdRepr;
using HrdIPToolCntr::TrafficLInst;
using HrdIPToolCntr::TrafficNet;
using HrdIPToolCntr::TrafficPath;
using HrdIPToolCntr::TrafficSpec;

typedef HCRapidJsonReadWriteUtils Json;
typedef NOCSolutionDocumentKeys Keys;

namespace NOC {

namespace {

// The document is read in one pass and staged; the result is only touched once the whole
// text has proved valid, and then in the order a walk over a document tree took: the dest-id
// lock, every path, every component. Of two equal keys of an object the first counts. The
// links a route names are looked up in the device as they come, which touches nothing but
// keeps the millions of names of a large solution out of memory.

typedef tarvo::jsonio::JsonNumber Number;

// What a net names: its type and figures, and the links of its route found in the device.
struct StagedNet {
  int type = Keys::commTypeOf("");
  Number vc;
  Number achievedBW;
  Number achievedLatency;
  bool hasConnections = false;
  std::size_t names = 0;      // elements of "Connections"
  std::size_t firstLink = 0;  // into SolutionStage::m_links
  std::size_t linkCount = 0;
  int missing = -1;  // the link not found, into SolutionStage::m_missing
};

// What a path of the document names, in the order of its keys.
struct PathEntry {
  std::string from;
  bool fromLocked = false;
  std::string to;
  bool toLocked = false;
  std::string port;
  Number readAchievedBW;
  Number writeAchievedBW;
  Number readLatency;
  Number writeLatency;
  bool pathLocked = false;
  std::size_t firstNet = 0;  // into SolutionStage::m_nets
  std::size_t netCount = 0;
};

struct StagedComponent {
  std::string name;
  bool hasTrafficLInst = false;
  std::string trafficLInst;
  Number destId;
  Number portIndex;
};

// The keys the reader takes, each object's in its own range of bits so that the first of
// two equal keys is told from the second.
enum Field {
  NoField = -1,
  RootLockAll,
  RootPaths,
  RootComponents,
  PathFrom,
  PathFromLocked,
  PathTo,
  PathToLocked,
  PathPort,
  PathReadAchievedBW,
  PathWriteAchievedBW,
  PathReadLatency,
  PathWriteLatency,
  PathLocked,
  PathNets,
  NetCommType,
  NetVC,
  NetAchievedBW,
  NetAchievedLatency,
  NetConnections,
  ComponentName,
  ComponentTrafficLInst,
  ComponentDestId,
  ComponentPortIndex
};

struct FieldKey {
  std::string const& key;
  Field field;
};

// The keys of one kind of object.
template <std::size_t N>
Field fieldOf(FieldKey const (&keys)[N], char const* text, std::size_t size) {
  for (FieldKey const& key : keys)
    if (key.key.size() == size && std::memcmp(key.key.data(), text, size) == 0) return key.field;
  return NoField;
}

FieldKey const kRootKeys[] = {
    {Keys::lockAllDestIds, RootLockAll}, {Keys::paths, RootPaths}, {Keys::components, RootComponents}};
FieldKey const kPathKeys[] = {{Keys::from, PathFrom},
                              {Keys::fromLocked, PathFromLocked},
                              {Keys::to, PathTo},
                              {Keys::toLocked, PathToLocked},
                              {Keys::port, PathPort},
                              {Keys::readAchievedBW, PathReadAchievedBW},
                              {Keys::writeAchievedBW, PathWriteAchievedBW},
                              {Keys::readLatency, PathReadLatency},
                              {Keys::writeLatency, PathWriteLatency},
                              {Keys::pathLocked, PathLocked},
                              {Keys::nets, PathNets}};
FieldKey const kNetKeys[] = {{Keys::commType, NetCommType},
                             {Keys::vc, NetVC},
                             {Keys::achievedBW, NetAchievedBW},
                             {Keys::achievedLatency, NetAchievedLatency},
                             {Keys::connections, NetConnections}};
FieldKey const kComponentKeys[] = {{Keys::name, ComponentName},
                                   {Keys::trafficLInst, ComponentTrafficLInst},
                                   {Keys::destId, ComponentDestId},
                                   {Keys::portIndex, ComponentPortIndex}};

// Collects the events of one document.
class SolutionStage {
 public:
  explicit SolutionStage(NOCModel const* noc) : m_noc(noc) {}

  void Null() { scalar(); }
  void Bool(bool b) {
    if (m_field == RootLockAll) m_lockAll = b;
    if (m_field == PathFromLocked) m_paths.back().fromLocked = b;
    if (m_field == PathToLocked) m_paths.back().toLocked = b;
    if (m_field == PathLocked) m_paths.back().pathLocked = b;
    scalar();
  }
  void Int(int i) { number(Number{Number::Signed, i, 0, 0.0}); }
  void Uint(unsigned u) { number(Number{Number::Unsigned, 0, u, 0.0}); }
  void Int64(std::int64_t i) { number(Number{Number::Signed, i, 0, 0.0}); }
  void Uint64(std::uint64_t u) { number(Number{Number::Unsigned, 0, u, 0.0}); }
  void Double(double d) { number(Number{Number::Real, 0, 0, d}); }
  void String(char const* s, rapidjson::SizeType n, bool) {
    if (m_depth == kInConnections && m_inConnections) {
      m_quad[m_nets.back().names % 4].assign(s, n);
      connectionName();
      return;
    }
    switch (m_field) {
      case PathFrom:
        m_paths.back().from.assign(s, n);
        break;
      case PathTo:
        m_paths.back().to.assign(s, n);
        break;
      case PathPort:
        m_paths.back().port.assign(s, n);
        break;
      case NetCommType:
        m_nets.back().type = Keys::commTypeOf(std::string(s, n));
        break;
      case ComponentName:
        m_components.back().name.assign(s, n);
        break;
      case ComponentTrafficLInst:
        m_components.back().trafficLInst.assign(s, n);
        break;
      default:
        break;
    }
    scalar();
  }
  void Key(char const* s, rapidjson::SizeType n, bool) {
    m_field = NoField;
    Field field = NoField;
    if (m_depth == kInRoot)
      field = fieldOf(kRootKeys, s, n);
    else if (m_depth == kInElement && m_inPaths)
      field = fieldOf(kPathKeys, s, n);
    else if (m_depth == kInNet && m_inNets)
      field = fieldOf(kNetKeys, s, n);
    else if (m_depth == kInElement && m_inComponents)
      field = fieldOf(kComponentKeys, s, n);
    if (field == NoField) return;
    std::uint32_t const bit = 1u << field;
    std::uint32_t& seen = m_depth == kInRoot ? m_rootSeen : m_objectSeen;
    if (seen & bit) return;
    seen |= bit;
    m_field = field;
    if (field == ComponentTrafficLInst) m_components.back().hasTrafficLInst = true;
  }
  void StartObject() {
    if (m_depth == kInSection && m_inPaths) {
      m_paths.emplace_back();
      m_paths.back().firstNet = m_nets.size();
      m_objectSeen = 0;
    } else if (m_depth == kInSection && m_inComponents) {
      m_components.emplace_back();
      m_objectSeen = 0;
    } else if (m_depth == kInNets && m_inNets) {
      m_nets.emplace_back();
      m_nets.back().firstLink = m_links.size();
      m_pathSeen = m_objectSeen;
      m_objectSeen = 0;
    }
    element();
    ++m_depth;
  }
  void EndObject(rapidjson::SizeType) {
    --m_depth;
    if (m_depth == kInNets && m_inNets) {
      m_objectSeen = m_pathSeen;
      ++m_paths.back().netCount;
    }
  }
  void StartArray() {
    Field const field = m_field;
    element();
    ++m_depth;
    if (field == RootPaths) m_inPaths = true;
    if (field == RootComponents) m_inComponents = true;
    if (field == PathNets) m_inNets = true;
    if (field == NetConnections) {
      m_inConnections = true;
      m_nets.back().hasConnections = true;
    }
  }
  void EndArray(rapidjson::SizeType) {
    --m_depth;
    if (m_depth == kInRoot) m_inPaths = m_inComponents = false;
    if (m_depth == kInElement) m_inNets = false;
    if (m_depth == kInNet) m_inConnections = false;
  }

  bool m_lockAll = false;
  std::vector<PathEntry> m_paths;
  std::vector<StagedNet> m_nets;
  std::vector<Link const*> m_links;
  std::vector<std::array<std::string, 4>> m_missing;
  std::vector<StagedComponent> m_components;

 private:
  // Depths of the containers open around an event.
  static constexpr unsigned kInRoot = 1;
  static constexpr unsigned kInSection = 2;
  static constexpr unsigned kInElement = 3;
  static constexpr unsigned kInNets = 4;
  static constexpr unsigned kInNet = 5;
  static constexpr unsigned kInConnections = 6;

  void number(Number const& value) {
    switch (m_field) {
      case PathReadAchievedBW:
        m_paths.back().readAchievedBW = value;
        break;
      case PathWriteAchievedBW:
        m_paths.back().writeAchievedBW = value;
        break;
      case PathReadLatency:
        m_paths.back().readLatency = value;
        break;
      case PathWriteLatency:
        m_paths.back().writeLatency = value;
        break;
      case NetVC:
        m_nets.back().vc = value;
        break;
      case NetAchievedBW:
        m_nets.back().achievedBW = value;
        break;
      case NetAchievedLatency:
        m_nets.back().achievedLatency = value;
        break;
      case ComponentDestId:
        m_components.back().destId = value;
        break;
      case ComponentPortIndex:
        m_components.back().portIndex = value;
        break;
      default:
        break;
    }
    scalar();
  }
  // A value other than a string of a route: as an element of "Connections" it names nothing.
  void scalar() {
    if (m_depth == kInConnections && m_inConnections) {
      m_quad[m_nets.back().names % 4].clear();
      connectionName();
    }
    m_field = NoField;
  }
  // An object or array starting: a value where a key was due, or an element of a route.
  void element() { scalar(); }

  // Every fourth name of a route completes a link, looked up until one is missing.
  void connectionName() {
    StagedNet& net = m_nets.back();
    if (++net.names % 4 != 0 || net.missing >= 0) return;
    Link const* link = findLink();
    if (link == nullptr) {
      net.missing = static_cast<int>(m_missing.size());
      m_missing.push_back({m_quad[0], m_quad[1], m_quad[2], m_quad[3]});
      return;
    }
    m_links.push_back(link);
    ++net.linkCount;
  }

  // The link between the ports that m_quad names, through the NoC model's own look-up.
  Link const* findLink() const {
    return m_noc ? m_noc->getLinkBetween(m_quad[0], m_quad[1], m_quad[2], m_quad[3]) : nullptr;
  }

  NOCModel const* m_noc;
  unsigned m_depth = 0;
  Field m_field = NoField;
  bool m_inPaths = false;
  bool m_inComponents = false;
  bool m_inNets = false;
  bool m_inConnections = false;
  std::uint32_t m_rootSeen = 0;
  std::uint32_t m_objectSeen = 0;
  std::uint32_t m_pathSeen = 0;  // the path's keys while one of its nets is read
  std::string m_quad[4];
};

// Puts a staged document into the result.
class SolutionCommit {
 public:
  SolutionCommit(std::string const& fileName, HIPLogicalObjectNameResolverInterface& resolver, TrafficSpec const& spec,
                 CompRes& result, SolutionStage const& stage)
      : m_fileName(fileName),
        m_resolver(resolver),
        m_spec(spec),
        m_result(result),
        m_noc(result.getDevice().getNOCModel()),
        m_stage(stage) {}

  void commit() {
    // "SolutionType" is the compiler's own verdict; the state of the result is not taken from it.
    m_result.setHasLockedDestIdsForAllComps(m_stage.m_lockAll);
    for (PathEntry const& path : m_stage.m_paths)
      readPath(path);
    for (StagedComponent const& component : m_stage.m_components)
      readComponent(component);
  }

 private:
  // Names of the document to names of the traffic specification. Error slaves keep their names
  // unless the translation lies in a reconfigurable partition.
  std::string translate(std::string const& name) const {
    if (StringScan::endsWith(name, TrafficSpec::getErrorSlaveName()) ||
        StringScan::endsWith(name, TrafficSpec::getErrorSlaveName_hp())) {
      if (!m_spec.hasRcfPaths()) return name;
      std::string const candidate = m_resolver.toNetlistName(name);
      for (std::string const& rcfPath : m_spec.getRcfPaths())
        if (StringScan::startsWith(candidate, rcfPath)) return candidate;
      return name;
    }
    std::string instance = m_resolver.toNetlistInstance(name);
    if (!instance.empty()) return instance;
    std::string::size_type const slash = name.rfind('/');
    std::string const prefix = slash == std::string::npos ? std::string() : name.substr(0, slash);
    std::string const leaf = slash == std::string::npos ? name : name.substr(slash + 1);
    std::string const translatedPrefix = m_resolver.fromNetlistInstance(prefix);
    if (!translatedPrefix.empty()) return translatedPrefix + "/" + leaf;
    return m_resolver.toNetlistName(name);
  }

  TrafficLInst const* findEnd(std::string const& name, bool master) const {
    TrafficLInst const* instance = master ? m_spec.getLogicalMaster(name) : m_spec.getLogicalSlave(name);
    if (instance == nullptr)
      instance =
          master ? m_spec.getLogicalMasterUsingExternalConns(name) : m_spec.getLogicalSlaveUsingExternalConns(name);
    if (instance == nullptr)
      ComMsgMgr::sendMsg::eval(3, __FILE__, __LINE__, "tarvo", ComMsgMgr::MSG_CRITICAL_WARNING, "@75-698@%s%s%s",
                               m_fileName, master ? "Master" : "Slave", name);
    return instance;
  }

  void readPath(PathEntry const& entry) {
    TrafficLInst const* master = findEnd(translate(entry.from), true);
    TrafficLInst const* slave = findEnd(translate(entry.to), false);
    PORT_TYPE const port = portTypeFromText(entry.port);
    std::vector<TrafficNet const*> const candidates = m_spec.getNets(master, slave);
    uint32_t readLatencySum = 0;
    uint32_t writeLatencySum = 0;
    TrafficPath const* current = nullptr;
    for (std::size_t n = entry.firstNet; n < entry.firstNet + entry.netCount; ++n) {
      StagedNet const& net = m_stage.m_nets[n];
      TrafficNet const* match = lastMatch(candidates, net.type, port);
      if (match == nullptr) continue;
      current = match->getPath();
      uint32_t const latency = static_cast<uint32_t>(net.achievedLatency.integer());
      (net.type == TrafficNet::READ || net.type == TrafficNet::READ_REQ ? readLatencySum : writeLatencySum) += latency;
      m_result.addRoute(match, links(net), static_cast<unsigned char>(net.vc.integer()),
                        static_cast<unsigned int>(net.achievedBW.integer()), entry.pathLocked);
      if (entry.pathLocked) continue;
      if (entry.fromLocked) m_result.lockLogicalInst(master);
      if (entry.toLocked) m_result.lockLogicalInst(slave);
    }
    // A written -1 is no unsigned value and reads as 0.
    uint32_t const readAchievedBW =
        entry.readAchievedBW.isULong() ? static_cast<uint32_t>(entry.readAchievedBW.ulong()) : 0;
    uint32_t const writeAchievedBW =
        entry.writeAchievedBW.isULong() ? static_cast<uint32_t>(entry.writeAchievedBW.ulong()) : 0;
    // With no matching net the record goes under no path, as the tools have always done.
    if (entry.readLatency.integer() != 0) m_result.setPathReadAchieved(current, readLatencySum, readAchievedBW);
    if (entry.writeLatency.integer() != 0) m_result.setPathWriteAchieved(current, writeLatencySum, writeAchievedBW);
  }

  // Of the nets between the ends, the last of the type that leads to the port.
  static TrafficNet const* lastMatch(std::vector<TrafficNet const*> const& candidates, int type, PORT_TYPE port) {
    for (auto net = candidates.rbegin(); net != candidates.rend(); ++net)
      if ((*net)->getType() == type && (*net)->getPath()->getSlavePort() == port) return *net;
    return nullptr;
  }

  std::vector<Link const*> links(StagedNet const& net) const {
    if (!net.hasConnections) return {};
    if (net.names % 4 != 0)
      Json::errorParsingJsonFile(m_fileName, "\"Connections\" holds " + std::to_string(net.names) +
                                                 " names, which is no whole number of links of four names each");
    if (net.missing >= 0) {
      std::array<std::string, 4> const& quad = m_stage.m_missing[static_cast<std::size_t>(net.missing)];
      throw std::runtime_error("No Connection between " + quad[0] + " " + quad[1] + " to " + quad[2] + " " + quad[3] +
                               "\nDevice Model version mismatch!" +
                               "\nPlease make sure checkpoint and Brelum versions match!");
    }
    auto const first = m_stage.m_links.begin() + static_cast<std::ptrdiff_t>(net.firstLink);
    return std::vector<Link const*>(first, first + static_cast<std::ptrdiff_t>(net.linkCount));
  }

  void readComponent(StagedComponent const& staged) {
    Component const* component = m_noc ? m_noc->getComponent(staged.name) : nullptr;
    if (component == nullptr) {
      ComMsgMgr::sendMsg::eval(1, __FILE__, __LINE__, "tarvo", ComMsgMgr::MSG_CRITICAL_WARNING, "@75-184@%s",
                               staged.name);
      return;
    }
    CompRole const role = component->getRole();
    if ((role == ROLE_MASTER || role == ROLE_SLAVE) && staged.hasTrafficLInst) {
      std::string const& text = staged.trafficLInst;
      std::string const translated = translate(text);
      std::string const& instanceName = translated.empty() ? text : translated;
      TrafficLInst const* instance =
          role == ROLE_MASTER ? m_spec.getLogicalMaster(instanceName) : m_spec.getLogicalSlave(instanceName);
      m_result.bindLogicalToPhysical(instance, component);
    }
    DestIdRepr const destId(static_cast<uint16_t>(staged.destId.integer()));
    // A memory controller's id belongs to the port at the index; an index beyond its ports
    // raises std::out_of_range.
    if (component->hasPorts())
      component = component->getPorts().at(static_cast<std::size_t>(staged.portIndex.integer()));
    m_result.setComponentDestId(component, destId);
  }

  std::string const& m_fileName;
  HIPLogicalObjectNameResolverInterface& m_resolver;
  TrafficSpec const& m_spec;
  CompRes& m_result;
  NOCModel const* m_noc;
  SolutionStage const& m_stage;
};

}  // namespace

NOCJsonSolutionReader::NOCJsonSolutionReader() = default;

NOCJsonSolutionReader::~NOCJsonSolutionReader() = default;

bool NOCJsonSolutionReader::readFromJsonFile(std::istream& in, std::string const& fileName,
                                             HIPLogicalObjectNameResolverInterface& resolver, TrafficSpec const& spec,
                                             CompRes& result, HDGUIStatus&) {
  if (in.fail()) Json::errorReadingJsonFile(fileName);
  SolutionStage stage(result.getDevice().getNOCModel());
  JsonEventFrame::load(in, fileName, NOCJsonReadWriteUtils::getSolutionJsonSchemaFile(), stage);
  SolutionCommit(fileName, resolver, spec, result, stage).commit();
  return true;
}

bool NOCJsonSolutionReader::readFromJsonFile(std::istream& in, std::string const& fileName, TrafficSpec const& spec,
                                             CompRes& result, HDGUIStatus& status) {
  HIPLogicalObjectNameResolverInterfaceIdentity identity;
  return readFromJsonFile(in, fileName, identity, spec, result, status);
}

bool NOCJsonSolutionReader::readFromJsonFile(std::string const& fileName,
                                             HIPLogicalObjectNameResolverInterface& resolver, TrafficSpec const& spec,
                                             CompRes& result, HDGUIStatus& status) {
  return JsonDocumentFrame::readFile(fileName, JsonDocumentFrame::Opener::AutoDetect,
                                     [&](std::istream& in, std::string const& name) {
                                       return readFromJsonFile(in, name, resolver, spec, result, status);
                                     });
}

bool NOCJsonSolutionReader::readFromJsonFile(std::string const& fileName, TrafficSpec const& spec, CompRes& result,
                                             HDGUIStatus& status) {
  HIPLogicalObjectNameResolverInterfaceIdentity identity;
  return readFromJsonFile(fileName, identity, spec, result, status);
}

}  // namespace NOC
