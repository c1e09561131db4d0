#include "TQCompilerSolutionReaderJSON.h"

#include <cstdint>
#include <functional>
#include <istream>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "HDGUIStatus.h"
#include "HSTStrUtils.h"
#include "HUTFile.h"
#include "JsonDocumentFrame.h"
#include "JsonEventFrame.h"
#include "KPEGRMDeviceUtils.h"
#include "KPEShimInterfaceSolution.h"
#include "KPEShimPortSites.h"
#include "NOCJsonReadWriteUtils.h"
#include "StringScan.h"
#include "TQLogicalArchModel.h"
#include "TrafficInstanceLookup.h"
#include "TrafficSpec.h"

using namespace Tarvo::Frameworks;

namespace {

typedef HCRapidJsonReadWriteUtils Json;

// What the reader takes from one placement object of the text.
struct PlacementText {
  bool hasLogical = false;
  bool hasPhysical = false;
  std::string instanceName;
  std::string portName;
  std::vector<std::string> siteNames;  // the first siteCount are this object's; kept for their buffers
  std::size_t siteCount = 0;

  void clear() {
    hasLogical = hasPhysical = false;
    instanceName.clear();
    portName.clear();
    siteCount = 0;
  }
  std::string& newSite() {
    if (siteCount == siteNames.size()) siteNames.emplace_back();
    std::string& name = siteNames[siteCount++];
    name.clear();
    return name;
  }
};

}  // namespace

// Resolves placement objects against the model, the traffic specification and the device,
// and keeps the placements they make until the whole text has proved valid.
class TQCompilerSolutionReaderJSON::PlacementReader {
 public:
  PlacementReader(HDARPart const& part, TQLogicalArchModel const& model, HrdIPToolCntr::TrafficSpec const& traffic,
                  std::string const& instancePrefix)
      : m_part(part), m_traffic(traffic) {
    std::vector<TQLogicalTQIPInstance*> all;
    model.getTQIPInstances(all);
    for (TQLogicalTQIPInstance* instance : all)
      if (instancePrefix.empty() || tarvo::jsonio::StringScan::startsWith(instance->getName(), instancePrefix))
        m_instances.push_back(instance);
  }

  void read(PlacementText const& element) {
    if (!element.hasLogical) return;
    TQLogicalArchLInst const* instance = findInstance(element.instanceName);
    if (instance == nullptr) return;
    TQLogicalPort const* port = findPort(*instance, element.portName);
    if (port == nullptr || port->getTqChannelFullHierNames().empty()) return;
    // "IsSoft" is the compiler's own hint; a placement read here is never locked.
    if (!element.hasPhysical) return;
    for (std::size_t site = 0; site < element.siteCount; ++site)
      place(*port, element.siteNames[site]);
  }

  void apply(KPEShimInterfaceSolution& solution) const {
    for (auto const& placement : m_placements)
      solution.addPlacement(placement.first, placement.second);
  }

 private:
  // The first instance whose full name contains the document's name: the writer shortens
  // names by the prefix, so an exact comparison would miss. Remembered by name, since every
  // port of an instance names it again.
  TQLogicalArchLInst const* findInstance(std::string const& name) {
    auto const known = m_instanceByName.find(name);
    if (known != m_instanceByName.end()) return known->second;
    TQLogicalArchLInst const* found = nullptr;
    for (TQLogicalTQIPInstance const* instance : m_instances)
      if (HSTStrUtils::contains(instance->getName().c_str(), name.c_str()) != nullptr) {
        found = instance;
        break;
      }
    m_instanceByName.emplace(name, found);
    return found;
  }

  // The first port of that name in port order, by an index made on the instance's first use.
  TQLogicalPort const* findPort(TQLogicalArchLInst const& instance, std::string const& name) {
    auto inserted = m_ports.emplace(&instance, PortIndex());
    PortIndex& index = inserted.first->second;
    if (inserted.second)
      for (TQLogicalPort const* port : instance.getPorts())
        if (port != nullptr) index.emplace(port->getName(), port);
    auto const found = index.find(name);
    return found != index.end() ? found->second : nullptr;
  }

  void place(TQLogicalPort const& port, std::string const& siteName) {
    GRMBel const site = KPEGRMDeviceUtils::getGRMBel(m_part, siteName);
    if (site.isBad()) return;
    int const channel = KPEGRMDeviceUtils::getIndexOfChanInShim(m_part, site);
    bool const odd = (channel & 1) != 0;
    std::string const& channelName = KPEShimPortSites::channelForParity(port.getTqChannelFullHierNames(), odd);
    HrdIPToolCntr::TrafficLInst const* instance = TrafficInstanceLookup::find(m_traffic, channelName);
    if (instance != nullptr) m_placements.emplace_back(instance, site);
  }

  // Keys point into the ports' own names, which stay put while the model is only read.
  typedef std::unordered_map<std::string_view, TQLogicalPort const*> PortIndex;

  HDARPart const& m_part;
  HrdIPToolCntr::TrafficSpec const& m_traffic;
  std::vector<TQLogicalTQIPInstance const*> m_instances;
  std::unordered_map<std::string, TQLogicalArchLInst const*> m_instanceByName;
  std::unordered_map<TQLogicalArchLInst const*, PortIndex> m_ports;
  std::vector<std::pair<HrdIPToolCntr::TrafficLInst const*, GRMBel>> m_placements;
};

namespace {

// Follows the events of a valid text and hands each placement object, once closed, to the
// reader. Of two equal keys in one object the first counts, as a look-up by key would find.
class PlacementEvents {
 public:
  explicit PlacementEvents(std::function<void(PlacementText const&)> read) : m_read(std::move(read)) {}

  void StartObject() { open(true); }
  void StartArray() { open(false); }
  void EndObject(rapidjson::SizeType) { close(); }
  void EndArray(rapidjson::SizeType) { close(); }
  void Key(char const* text, rapidjson::SizeType size, bool) {
    std::string_view const key(text, size);
    m_next = Frame::Ignored;
    m_field = nullptr;
    switch (m_frames.empty() ? Frame::Ignored : m_frames.back()) {
      case Frame::Root:
        if (key == "Placement" && first(m_seenPlacement)) m_next = Frame::Placements;
        break;
      case Frame::Element:
        if (key == "LogicalInstance" && first(m_seenLogical)) m_next = Frame::Logical;
        if (key == "PhysicalInstance" && first(m_seenPhysical)) m_next = Frame::Physical;
        break;
      case Frame::Logical:
        if (key == "InstanceName" && first(m_seenInstanceName)) m_field = &m_element.instanceName;
        if (key == "PortName" && first(m_seenPortName)) m_field = &m_element.portName;
        break;
      case Frame::Site:
        if (key == "name" && first(m_seenSiteName)) m_field = m_site;
        break;
      default:
        break;
    }
  }
  void String(char const* text, rapidjson::SizeType size, bool) {
    if (m_field != nullptr) m_field->assign(text, size);
    scalar();
  }
  void Null() { scalar(); }
  void Bool(bool) { scalar(); }
  void Int(int) { scalar(); }
  void Uint(unsigned) { scalar(); }
  void Int64(std::int64_t) { scalar(); }
  void Uint64(std::uint64_t) { scalar(); }
  void Double(double) { scalar(); }

 private:
  enum class Frame { Root, Placements, Element, Logical, Physical, Site, Ignored };

  static bool first(bool& seen) { return !seen && (seen = true); }

  void scalar() {
    m_next = Frame::Ignored;
    m_field = nullptr;
  }

  void open(bool object) {
    Frame const frame = object ? openObject() : openArray();
    m_frames.push_back(frame);
    scalar();
  }

  Frame openObject() {
    if (m_frames.empty()) return Frame::Root;
    switch (m_frames.back()) {
      case Frame::Placements:
        m_element.clear();
        m_seenLogical = m_seenPhysical = m_seenInstanceName = m_seenPortName = false;
        return Frame::Element;
      case Frame::Element:
        if (m_next != Frame::Logical) return Frame::Ignored;
        m_element.hasLogical = true;
        return Frame::Logical;
      case Frame::Physical:
        m_site = &m_element.newSite();
        m_seenSiteName = false;
        return Frame::Site;
      default:
        return Frame::Ignored;
    }
  }

  Frame openArray() {
    if (m_frames.empty()) return Frame::Ignored;
    if (m_frames.back() == Frame::Root && m_next == Frame::Placements) return Frame::Placements;
    if (m_frames.back() != Frame::Element || m_next != Frame::Physical) return Frame::Ignored;
    m_element.hasPhysical = true;
    return Frame::Physical;
  }

  void close() {
    Frame const closed = m_frames.back();
    m_frames.pop_back();
    if (closed == Frame::Element) m_read(m_element);
    scalar();
  }

  std::function<void(PlacementText const&)> m_read;
  std::vector<Frame> m_frames;
  Frame m_next = Frame::Ignored;
  std::string* m_field = nullptr;  // the text that the next string fills
  PlacementText m_element;
  std::string* m_site = nullptr;
  bool m_seenPlacement = false;
  bool m_seenLogical = false;
  bool m_seenPhysical = false;
  bool m_seenInstanceName = false;
  bool m_seenPortName = false;
  bool m_seenSiteName = false;
};

}  // namespace

bool TQCompilerSolutionReaderJSON::readFromJsonFile(std::istream& in, std::string const& fileName, HDARPart const& part,
                                                    TQLogicalArchModel const& model,
                                                    HrdIPToolCntr::TrafficSpec const& traffic,
                                                    std::string const& instancePrefix,
                                                    KPEShimInterfaceSolution& solution, HDGUIStatus& status) {
  if (in.fail()) Json::errorReadingJsonFile(fileName);
  // The text is read in one validating pass; the solution is only touched once all of it
  // has proved valid.
  PlacementReader reader(part, model, traffic, instancePrefix);
  PlacementEvents events([&reader](PlacementText const& element) { reader.read(element); });
  JsonEventFrame::load(in, fileName, NOCJsonReadWriteUtils::getTQSolutionJsonSchemaFile(), events);
  status.setPercent(20);
  reader.apply(solution);
  status.setPercent(100);
  return true;
}

bool TQCompilerSolutionReaderJSON::readFromJsonFile(std::istream& in, std::string const& fileName, HDARPart const& part,
                                                    TQLogicalArchModel const& model,
                                                    HrdIPToolCntr::TrafficSpec const& traffic,
                                                    KPEShimInterfaceSolution& solution, HDGUIStatus& status) {
  return readFromJsonFile(in, fileName, part, model, traffic, std::string(), solution, status);
}

bool TQCompilerSolutionReaderJSON::readFromJsonFile(std::string const& fileName, HDARPart const& part,
                                                    TQLogicalArchModel const& model,
                                                    HrdIPToolCntr::TrafficSpec const& traffic,
                                                    std::string const& instancePrefix,
                                                    KPEShimInterfaceSolution& solution, HDGUIStatus& status) {
  std::string const canonical = JsonDocumentFrame::canonicalName(fileName);
  return JsonDocumentFrame::readFile(
      fileName, JsonDocumentFrame::Opener::PlainFile, [&](std::istream& in, std::string const& name) {
        // An empty file is the writer's way of saying that nothing was placed.
        if (HUTFile(canonical).size() <= 0) return false;
        return readFromJsonFile(in, name, part, model, traffic, instancePrefix, solution, status);
      });
}

bool TQCompilerSolutionReaderJSON::readFromJsonFile(std::string const& fileName, HDARPart const& part,
                                                    TQLogicalArchModel const& model,
                                                    HrdIPToolCntr::TrafficSpec const& traffic,
                                                    KPEShimInterfaceSolution& solution, HDGUIStatus& status) {
  return readFromJsonFile(fileName, part, model, traffic, std::string(), solution, status);
}
