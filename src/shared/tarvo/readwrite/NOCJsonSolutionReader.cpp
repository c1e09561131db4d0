#include "NOCJsonSolutionReader.h"

#include <istream>
#include <stdexcept>
#include <vector>

#include "ComMsgMgr.h"
#include "CompRes.h"
#include "HCRapidJsonReadWriteUtils.h"
#include "HIPLogicalObjectNameResolverInterface.h"
#include "JsonDocumentFrame.h"
#include "JsonMembers.h"
#include "NOCJsonEnumTexts.h"
#include "NOCJsonReadWriteUtils.h"
#include "NOCSolutionDocumentKeys.h"
#include "StringScan.h"
#include "TrafficSpec.h"

using tarvo::jsonio::JsonMembers;
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
typedef JsonDocumentFrame::Value Value;
typedef NOCSolutionDocumentKeys Keys;

namespace NOC {

namespace {

// What a path of the document names, in the order of its keys.
struct PathEntry {
  std::string from;
  bool fromLocked = false;
  std::string to;
  bool toLocked = false;
  PORT_TYPE port = PORT_INVALID;
  uint32_t readAchievedBW = 0;
  uint32_t writeAchievedBW = 0;
  int readLatency = 0;
  int writeLatency = 0;
  bool pathLocked = false;
};

// One reading of one document.
class SolutionDocumentReader {
 public:
  SolutionDocumentReader(std::string const& fileName, HIPLogicalObjectNameResolverInterface& resolver,
                         TrafficSpec const& spec, CompRes& result)
      : m_fileName(fileName),
        m_resolver(resolver),
        m_spec(spec),
        m_result(result),
        m_noc(result.getDevice().getNOCModel()) {}

  void read(Value const& root) {
    // "SolutionType" is the compiler's own verdict; the state of the result is not taken from it.
    bool const lockAll =
        Json::IsBooleanProperty(root, Keys::lockAllDestIds) && Json::GetBooleanProperty(root, Keys::lockAllDestIds);
    m_result.setHasLockedDestIdsForAllComps(lockAll);
    if (Value const* paths = JsonMembers::findArray(root, Keys::paths))
      for (Value const& path : paths->GetArray())
        readPath(path);
    if (Value const* components = JsonMembers::findArray(root, Keys::components))
      for (Value const& component : components->GetArray())
        readComponent(component);
  }

 private:
  static PathEntry pathEntry(Value const& object) {
    PathEntry entry;
    entry.from = Json::GetStringProperty(object, Keys::from);
    entry.fromLocked = Json::GetBooleanProperty(object, Keys::fromLocked);
    entry.to = Json::GetStringProperty(object, Keys::to);
    entry.toLocked = Json::GetBooleanProperty(object, Keys::toLocked);
    entry.port = portTypeFromText(Json::GetStringProperty(object, Keys::port));
    // A written -1 is no unsigned value and reads as 0.
    if (Json::IsULongProperty(object, Keys::readAchievedBW))
      entry.readAchievedBW = static_cast<uint32_t>(Json::GetULongProperty(object, Keys::readAchievedBW));
    if (Json::IsULongProperty(object, Keys::writeAchievedBW))
      entry.writeAchievedBW = static_cast<uint32_t>(Json::GetULongProperty(object, Keys::writeAchievedBW));
    entry.readLatency = Json::GetIntegrProperty(object, Keys::readLatency);
    entry.writeLatency = Json::GetIntegrProperty(object, Keys::writeLatency);
    entry.pathLocked = Json::GetBooleanProperty(object, Keys::pathLocked);
    return entry;
  }

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

  void readPath(Value const& object) {
    PathEntry const entry = pathEntry(object);
    TrafficLInst const* master = findEnd(translate(entry.from), true);
    TrafficLInst const* slave = findEnd(translate(entry.to), false);
    std::vector<TrafficNet const*> const candidates = m_spec.getNets(master, slave);
    uint32_t readLatencySum = 0;
    uint32_t writeLatencySum = 0;
    TrafficPath const* current = nullptr;
    if (Value const* nets = JsonMembers::findArray(object, Keys::nets)) {
      for (Value const& net : nets->GetArray()) {
        int const type = Keys::commTypeOf(Json::GetStringProperty(net, Keys::commType));
        TrafficNet const* match = lastMatch(candidates, type, entry.port);
        if (match == nullptr) continue;
        current = match->getPath();
        uint32_t const latency = static_cast<uint32_t>(Json::GetIntegrProperty(net, Keys::achievedLatency));
        (type == TrafficNet::READ || type == TrafficNet::READ_REQ ? readLatencySum : writeLatencySum) += latency;
        m_result.addRoute(match, links(net), static_cast<unsigned char>(Json::GetIntegrProperty(net, Keys::vc)),
                          static_cast<unsigned int>(Json::GetIntegrProperty(net, Keys::achievedBW)), entry.pathLocked);
        if (entry.pathLocked) continue;
        if (entry.fromLocked) m_result.lockLogicalInst(master);
        if (entry.toLocked) m_result.lockLogicalInst(slave);
      }
    }
    // With no matching net the record goes under no path, as the tools have always done.
    if (entry.readLatency != 0) m_result.setPathReadAchieved(current, readLatencySum, entry.readAchievedBW);
    if (entry.writeLatency != 0) m_result.setPathWriteAchieved(current, writeLatencySum, entry.writeAchievedBW);
  }

  // Of the nets between the ends, the last of the type that leads to the port.
  static TrafficNet const* lastMatch(std::vector<TrafficNet const*> const& candidates, int type, PORT_TYPE port) {
    for (auto net = candidates.rbegin(); net != candidates.rend(); ++net)
      if ((*net)->getType() == type && (*net)->getPath()->getSlavePort() == port) return *net;
    return nullptr;
  }

  std::vector<Link const*> links(Value const& net) {
    std::vector<Link const*> route;
    Value const* connections = JsonMembers::findArray(net, Keys::connections);
    if (connections == nullptr) return route;
    rapidjson::SizeType const count = connections->Size();
    if (count % 4 != 0)
      Json::errorParsingJsonFile(m_fileName, "\"Connections\" holds " + std::to_string(count) +
                                                 " names, which is no whole number of links of four names each");
    route.reserve(count / 4);
    for (rapidjson::SizeType i = 0; i < count; i += 4) {
      for (rapidjson::SizeType k = 0; k < 4; ++k)
        assignText((*connections)[i + k], m_quad[k]);
      Link const* link = findLink();
      if (link == nullptr)
        throw std::runtime_error("No Connection between " + m_quad[0] + " " + m_quad[1] + " to " + m_quad[2] + " " +
                                 m_quad[3] + "\nDevice Model version mismatch!" +
                                 "\nPlease make sure checkpoint and Brelum versions match!");
      route.push_back(link);
    }
    return route;
  }

  // The link between the ports that m_quad names, through the NoC model's own look-up.
  Link const* findLink() const {
    return m_noc ? m_noc->getLinkBetween(m_quad[0], m_quad[1], m_quad[2], m_quad[3]) : nullptr;
  }

  // Reuses the string's storage: a large solution names millions of ports.
  static void assignText(Value const& value, std::string& text) {
    if (value.IsString())
      text.assign(value.GetString(), value.GetStringLength());
    else
      text.clear();
  }

  void readComponent(Value const& object) {
    std::string const name = Json::GetStringProperty(object, Keys::name);
    Component const* component = m_noc ? m_noc->getComponent(name) : nullptr;
    if (component == nullptr) {
      ComMsgMgr::sendMsg::eval(1, __FILE__, __LINE__, "tarvo", ComMsgMgr::MSG_CRITICAL_WARNING, "@75-184@%s", name);
      return;
    }
    CompRole const role = component->getRole();
    if ((role == ROLE_MASTER || role == ROLE_SLAVE) && object.HasMember(Keys::trafficLInst.c_str())) {
      std::string const text = Json::GetStringProperty(object, Keys::trafficLInst);
      std::string const translated = translate(text);
      std::string const& instanceName = translated.empty() ? text : translated;
      TrafficLInst const* instance =
          role == ROLE_MASTER ? m_spec.getLogicalMaster(instanceName) : m_spec.getLogicalSlave(instanceName);
      m_result.bindLogicalToPhysical(instance, component);
    }
    DestIdRepr const destId(static_cast<uint16_t>(Json::GetIntegrProperty(object, Keys::destId)));
    // A memory controller's id belongs to the port at the index; an index beyond its ports
    // raises std::out_of_range.
    if (component->hasPorts())
      component = component->getPorts().at(static_cast<std::size_t>(Json::GetIntegrProperty(object, Keys::portIndex)));
    m_result.setComponentDestId(component, destId);
  }

  std::string const& m_fileName;
  HIPLogicalObjectNameResolverInterface& m_resolver;
  TrafficSpec const& m_spec;
  CompRes& m_result;
  NOCModel const* m_noc;
  std::string m_quad[4];
};

}  // namespace

NOCJsonSolutionReader::NOCJsonSolutionReader() = default;

NOCJsonSolutionReader::~NOCJsonSolutionReader() = default;

bool NOCJsonSolutionReader::readFromJsonFile(std::istream& in, std::string const& fileName,
                                             HIPLogicalObjectNameResolverInterface& resolver, TrafficSpec const& spec,
                                             CompRes& result, HDGUIStatus&) {
  if (in.fail()) Json::errorReadingJsonFile(fileName);
  JsonDocumentFrame::Document doc;
  JsonDocumentFrame::load(in, fileName, NOCJsonReadWriteUtils::getSolutionJsonSchemaFile(),
                          JsonDocumentFrame::Opener::AutoDetect, doc);
  SolutionDocumentReader(fileName, resolver, spec, result).read(doc);
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
