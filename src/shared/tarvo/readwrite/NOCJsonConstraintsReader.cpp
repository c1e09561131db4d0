#include "NOCJsonConstraintsReader.h"

#include <cstdint>
#include <istream>
#include <string_view>
#include <vector>

#include "Constraints.h"
#include "HDGUIStatus.h"
#include "HIPDevice.h"
#include "JsonDocumentFrame.h"
#include "JsonEventFrame.h"
#include "NOCConstraintsDocumentKeys.h"
#include "NOCJsonReadWriteUtils.h"
#include "TrafficInstanceLookup.h"
#include "TrafficSpec.h"

using DevHrdIP::Component;
using DevHrdIP::HIPDevice;
using DevHrdIP::NOCModel;
using HrdIPToolCntr::Constraints;
using HrdIPToolCntr::TrafficLInst;
using HrdIPToolCntr::TrafficSpec;

typedef NOCConstraintsDocumentKeys Keys;

namespace NOC {

namespace {

// The placements are read in one pass and staged; the constraints are only touched once the
// whole text has proved valid, in document order. Of two equal keys of an object the first
// counts.
struct StagedPlacement {
  std::string logicalInstance;
  std::vector<std::string> physicalInstances;
  bool soft = false;
};

class PlacementStage {
 public:
  void Null() { scalar(); }
  void Bool(bool b) {
    if (m_field == IsSoft) m_placements.back().soft = b;
    scalar();
  }
  void Int(int) { scalar(); }
  void Uint(unsigned) { scalar(); }
  void Int64(std::int64_t) { scalar(); }
  void Uint64(std::uint64_t) { scalar(); }
  void Double(double) { scalar(); }
  void String(char const* s, rapidjson::SizeType n, bool) {
    if (m_depth == kInNames && m_inNames) m_placements.back().physicalInstances.emplace_back(s, n);
    if (m_field == LogicalInstance) m_placements.back().logicalInstance.assign(s, n);
    scalar();
  }
  void Key(char const* s, rapidjson::SizeType n, bool) {
    std::string_view const key(s, n);
    Field field = None;
    if (m_depth == kInRoot && key == Keys::placement) field = Placement;
    if (m_depth == kInPlacement && m_inPlacements) {
      if (key == Keys::logicalInstance) field = LogicalInstance;
      if (key == Keys::physicalInstance) field = PhysicalInstance;
      if (key == Keys::isSoft) field = IsSoft;
    }
    unsigned& seen = m_depth == kInRoot ? m_rootSeen : m_placementSeen;
    m_field = None;
    if (field == None || (seen & (1u << field))) return;
    seen |= 1u << field;
    m_field = field;
  }
  void StartObject() {
    if (m_depth == kInPlacements && m_inPlacements) {
      m_placements.emplace_back();
      m_placementSeen = 0;
    }
    ++m_depth;
    m_field = None;
  }
  void EndObject(rapidjson::SizeType) { --m_depth; }
  void StartArray() {
    if (m_field == Placement) m_inPlacements = true;
    if (m_field == PhysicalInstance) m_inNames = true;
    ++m_depth;
    m_field = None;
  }
  void EndArray(rapidjson::SizeType) {
    --m_depth;
    if (m_depth == kInRoot) m_inPlacements = false;
    if (m_depth == kInPlacement) m_inNames = false;
  }

  std::vector<StagedPlacement> m_placements;

 private:
  enum Field { None, Placement, LogicalInstance, PhysicalInstance, IsSoft };
  // Depths of the containers open around an event.
  static constexpr unsigned kInRoot = 1;
  static constexpr unsigned kInPlacements = 2;
  static constexpr unsigned kInPlacement = 3;
  static constexpr unsigned kInNames = 4;

  void scalar() { m_field = None; }

  unsigned m_depth = 0;
  Field m_field = None;
  bool m_inPlacements = false;
  bool m_inNames = false;
  unsigned m_rootSeen = 0;
  unsigned m_placementSeen = 0;
};

void readPlacement(StagedPlacement const& placement, NOCModel const* noc, TrafficSpec const& spec,
                   Constraints& constraints) {
  TrafficLInst const* instance = TrafficInstanceLookup::find(spec, placement.logicalInstance);
  if (instance == nullptr) return;
  std::vector<Component const*> components;
  for (std::string const& name : placement.physicalInstances) {
    Component const* component = noc ? noc->getComponent(name) : nullptr;
    if (component != nullptr) components.push_back(component);
  }
  if (!components.empty()) constraints.addPlacementConst(instance, components, placement.soft);
}

}  // namespace

NOCJsonConstraintsReader::NOCJsonConstraintsReader() = default;

NOCJsonConstraintsReader::~NOCJsonConstraintsReader() = default;

bool NOCJsonConstraintsReader::readFromJsonFile(std::istream& in, std::string const& fileName, HIPDevice const& device,
                                                TrafficSpec const& spec, Constraints& constraints,
                                                HIPLogicalObjectNameResolverInterface&, HDGUIStatus& status) {
  PlacementStage stage;
  JsonEventFrame::load(in, fileName, NOCJsonReadWriteUtils::getConstraintsJsonSchemaFile(), stage);
  status.setPercent(20);
  for (StagedPlacement const& placement : stage.m_placements)
    readPlacement(placement, device.getNOCModel(), spec, constraints);
  status.setPercent(100);
  return true;
}

bool NOCJsonConstraintsReader::readFromJsonFile(std::string const& fileName, HIPDevice const& device,
                                                TrafficSpec const& spec, Constraints& constraints,
                                                HIPLogicalObjectNameResolverInterface& resolver, HDGUIStatus& status) {
  return JsonDocumentFrame::readFile(fileName, JsonDocumentFrame::Opener::PlainFile,
                                     [&](std::istream& in, std::string const& name) {
                                       return readFromJsonFile(in, name, device, spec, constraints, resolver, status);
                                     });
}

}  // namespace NOC
