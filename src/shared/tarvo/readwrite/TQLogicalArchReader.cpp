#include "TQLogicalArchReader.h"

#include <climits>
#include <cstring>
#include <istream>
#include <memory>
#include <vector>

#include "HDGUIStatus.h"
#include "JsonEventFrame.h"
#include "LogicalArchDocumentKeys.h"
#include "NOCJsonReadWriteUtils.h"
#include "TQLogicalArchModel.h"

using namespace Tarvo::Frameworks;

namespace {

typedef LogicalArchDocumentKeys Key;

// The document is read in one pass and staged; the model is only touched once the whole text
// has proved valid. Staging keeps the reading rules of the document where the text would
// otherwise have been walked twice: the first of two equal keys counts, all instances go in
// before any connection, and the sections go in the order PL, KPE, NoC.

// One value of the text that is neither an object nor an array.
struct Scalar {
  enum Kind { Text, Number, Boolean, Other };
  Kind kind = Other;
  char const* text = nullptr;
  std::size_t size = 0;
  double number = 0.0;
  bool fitsInt = false;  // a number without fraction or exponent that fits 32 bits signed
  int integer = 0;
  bool boolean = false;

  std::string string() const { return kind == Text ? std::string(text, size) : std::string(); }
};

// Numbers are read as signed 32 bits; another number or another kind reads as 0.
int integerOf(Scalar const& value) {
  return value.kind == Scalar::Number && value.fitsInt ? value.integer : 0;
}
double numberOf(Scalar const& value) {
  return value.kind == Scalar::Number ? value.number : 0.0;
}

// Older documents say "tq" where the array is now called "kpe"; they are read, never written.
TQLogicalConnectionDirectionEnum connectionDirectionOf(std::string const& text) {
  struct OlderText {
    char const* text;
    TQLogicalConnectionDirectionEnum value;
  };
  static OlderText const olderTexts[] = {{"tq_to_pl", TQLogicalConnectionDirectionEnum::KpeToPl},
                                         {"pl_to_tq", TQLogicalConnectionDirectionEnum::PlToKpe},
                                         {"tq_to_noc", TQLogicalConnectionDirectionEnum::KpeToNoc},
                                         {"noc_to_tq", TQLogicalConnectionDirectionEnum::NocToKpe}};
  for (OlderText const& older : olderTexts)
    if (text == older.text) return older.value;
  return fromText<TQLogicalConnectionDirectionEnum>(text);
}

// Calls `set` with the text unless it is empty or not a text.
template <typename Setter>
void ifText(Scalar const& value, Setter set) {
  if (value.kind == Scalar::Text && value.size != 0) set(value.string());
}

// The keys of each kind of object, by their index in its table.
char const* const kRootKeys[] = {Key::appId,     Key::schema,     Key::device,     Key::platform,
                                 Key::plSection, Key::kpeSection, Key::nocSection, Key::connections};
enum RootKey { AppId, Schema, Device, Platform, PLSection, KPESection, NoCSection, Connections };
char const* const kPLKeys[] = {Key::vlnvName,   Key::ckernelName,  Key::sdfinstName,
                               Key::annotation, Key::hwAnnotation, Key::plPorts};
char const* const kKPEKeys[] = {Key::vlnvName, Key::annotation, Key::hwAnnotation, Key::logicalDevice, Key::kpePorts};
char const* const kNoCKeys[] = {Key::vlnvName, Key::annotation, Key::hwAnnotation, Key::ipType, Key::nocPorts};
char const* const kPortKeys[] = {Key::type,           Key::direction,  Key::dataWidth,           Key::busWidth,
                                 Key::parameterIndex, Key::clkFreq,    Key::registeredInterface, Key::tracedInterface,
                                 Key::traceFile,      Key::annotation, Key::hwAnnotation,        Key::sdfioName,
                                 Key::vlnvName,       Key::kpechannel};
enum PortKey {
  PortType,
  PortDirection,
  DataWidth,
  BusWidth,
  ParameterIndex,
  ClkFreq,
  Registered,
  Traced,
  TraceFile,
  PortAnnotation,
  PortHWAnnotation,
  SdfioName,
  PortVLNVName,
  KpeChannel
};
char const* const kConnectionKeys[] = {Key::type,     Key::direction, Key::memMode,
                                       Key::addrType, Key::srcPort,   Key::dstPorts};
enum ConnectionKey { ConnectionType, ConnectionDirection, MemMode, AddrType, SrcPort, DstPorts };
char const* const kRefKeys[] = {Key::instName, Key::portName};

// The keys of one kind of object, with their sizes, to find a key's index quickly.
class KeyTable {
 public:
  template <std::size_t N>
  explicit KeyTable(char const* const (&keys)[N]) : m_keys(keys, keys + N) {}

  int count() const { return static_cast<int>(m_keys.size()); }
  int indexOf(char const* text, std::size_t size) const {
    for (std::size_t i = 0; i < m_keys.size(); ++i)
      if (m_keys[i].size() == size && std::memcmp(m_keys[i].data(), text, size) == 0) return static_cast<int>(i);
    return -1;
  }

 private:
  std::vector<std::string> m_keys;
};

KeyTable const kRootTable(kRootKeys);
KeyTable const kPLTable(kPLKeys);
KeyTable const kKPETable(kKPEKeys);
KeyTable const kNoCTable(kNoCKeys);
KeyTable const kPortTable(kPortKeys);
KeyTable const kConnectionTable(kConnectionKeys);
KeyTable const kRefTable(kRefKeys);

enum Kind { PLKind, KPEKind, NoCKind };

KeyTable const& instanceKeys(Kind kind) {
  return kind == PLKind ? kPLTable : kind == KPEKind ? kKPETable : kNoCTable;
}

// An instance as the document gives it: its fields, held in an instance of its class that
// stays outside the model, and its ports in document order, duplicates included.
struct StagedInstance {
  std::string name;
  std::unique_ptr<TQLogicalArchLInst> fields;
  std::vector<std::unique_ptr<TQLogicalPort>> ports;
};

struct PortReference {
  std::string instName;
  std::string portName;
};

struct StagedConnection {
  std::string name;
  TQLogicalConnectionDataFlowTypeEnum type = TQLogicalConnectionDataFlowTypeEnum::Unknown;
  TQLogicalConnectionDirectionEnum direction = TQLogicalConnectionDirectionEnum::Unknown;
  TQLogicalConnectionMemModeEnum memMode = TQLogicalConnectionMemModeEnum::Unknown;
  TQLogicalConnectionAddrTypeEnum addrType = TQLogicalConnectionAddrTypeEnum::Unknown;
  bool hasSource = false;
  PortReference source;
  std::vector<PortReference> destinations;
};

void setInstanceText(Kind kind, int key, std::string const& text, TQLogicalArchLInst& instance) {
  if (kind == PLKind) {
    auto& pl = static_cast<TQLogicalPLIPInstance&>(instance);
    if (key == 0) pl.setVLNVName(text);
    if (key == 1) pl.setCKernelName(text);
    if (key == 2) pl.setSDFInstName(text);
    if (key == 3) pl.setAnnotation(text);
    if (key == 4) pl.setHWAnnotation(text);
  } else if (kind == KPEKind) {
    auto& kpe = static_cast<TQLogicalTQIPInstance&>(instance);
    if (key == 0) kpe.setVLNVName(text);
    if (key == 1) kpe.setAnnotation(text);
    if (key == 2) kpe.setHWAnnotation(text);
    if (key == 3) kpe.setLogicalDeviceJSON(text);
  } else {
    auto& noc = static_cast<TQLogicalNOCIPInstance&>(instance);
    if (key == 0) noc.setVLNVName(text);
    if (key == 1) noc.setAnnotation(text);
    if (key == 2) noc.setHWAnnotation(text);
    if (key == 3) noc.setIPType(fromText<TQLogicalIPTypeEnum>(text));
  }
}

void setPortValue(int key, Scalar const& value, TQLogicalPort& port) {
  switch (key) {
    case PortType:
      return ifText(value,
                    [&](std::string const& t) { port.setType(fromText<TQLogicalConnectionDataFlowTypeEnum>(t)); });
    case PortDirection:
      return ifText(value,
                    [&](std::string const& t) { port.setDirectionType(fromText<TQLogicalPortDirectionTypeEnum>(t)); });
    case DataWidth:
      if (integerOf(value) != 0) port.setDataWidth(static_cast<std::uint32_t>(integerOf(value)));
      return;
    case BusWidth:
      if (integerOf(value) != 0) port.setBusWidth(static_cast<std::uint32_t>(integerOf(value)));
      return;
    case ParameterIndex:
      if (integerOf(value) != 0) port.setParamIndex(static_cast<std::uint32_t>(integerOf(value)));
      return;
    case ClkFreq:
      if (numberOf(value) >= 0.0) port.setClkFreq(numberOf(value));
      return;
    case Registered:
      if (value.kind == Scalar::Boolean && value.boolean) port.setRegisterInterface(true);
      return;
    case Traced:
      if (value.kind == Scalar::Boolean && value.boolean) port.setIsTraced(true);
      return;
    case TraceFile:
      return ifText(value, [&](std::string const& t) { port.setTraceFile(t); });
    case PortAnnotation:
      return ifText(value, [&](std::string const& t) { port.addAnnotation(t); });
    case PortHWAnnotation:
      return ifText(value, [&](std::string const& t) { port.setHWAnnotation(t); });
    case SdfioName:
      return ifText(value, [&](std::string const& t) { port.addSDFIOName(t); });
    case PortVLNVName:
      return ifText(value, [&](std::string const& t) { port.setVLNVName(t); });
    case KpeChannel:
      return ifText(value, [&](std::string const& t) { port.setTqChannel(t); });
    default:
      return;
  }
}

void setConnectionText(int key, Scalar const& value, StagedConnection& connection) {
  ifText(value, [&](std::string const& t) {
    if (key == ConnectionType) connection.type = fromText<TQLogicalConnectionDataFlowTypeEnum>(t);
    if (key == ConnectionDirection) connection.direction = connectionDirectionOf(t);
    if (key == MemMode) connection.memMode = fromText<TQLogicalConnectionMemModeEnum>(t);
    if (key == AddrType) connection.addrType = fromText<TQLogicalConnectionAddrTypeEnum>(t);
  });
}

// A staged instance's fields start empty as a new instance's do, so copying them all sets
// just those the document gave.
void copyFields(TQLogicalPLIPInstance const& from, TQLogicalPLIPInstance& to) {
  to.setVLNVName(from.getVLNVName());
  to.setCKernelName(from.getCKernelName());
  to.setSDFInstName(from.getSDFInstName());
  to.setAnnotation(from.getAnnotation());
  to.setHWAnnotation(from.getHWAnnotation());
}

void copyFields(TQLogicalTQIPInstance const& from, TQLogicalTQIPInstance& to) {
  to.setVLNVName(from.getVLNVName());
  to.setAnnotation(from.getAnnotation());
  to.setHWAnnotation(from.getHWAnnotation());
  to.setLogicalDeviceJSON(from.getLogicalDeviceJSON());
}

void copyFields(TQLogicalNOCIPInstance const& from, TQLogicalNOCIPInstance& to) {
  to.setVLNVName(from.getVLNVName());
  to.setAnnotation(from.getAnnotation());
  to.setHWAnnotation(from.getHWAnnotation());
  to.setIPType(from.getIPType());
}

// Takes the events of a valid document and stages what it says.
class DocumentStage {
 public:
  void Null() { scalar(Scalar()); }
  void Bool(bool b) {
    Scalar value;
    value.kind = Scalar::Boolean;
    value.boolean = b;
    scalar(value);
  }
  void Int(int i) { scalar(numberScalar(i, true, i)); }
  void Uint(unsigned u) { scalar(numberScalar(u, u <= static_cast<unsigned>(INT_MAX), static_cast<int>(u))); }
  void Int64(std::int64_t i) { scalar(numberScalar(static_cast<double>(i), false, 0)); }
  void Uint64(std::uint64_t u) { scalar(numberScalar(static_cast<double>(u), false, 0)); }
  void Double(double d) { scalar(numberScalar(d, false, 0)); }
  void String(char const* text, rapidjson::SizeType size, bool) {
    Scalar value;
    value.kind = Scalar::Text;
    value.text = text;
    value.size = size;
    scalar(value);
  }
  void Key(char const* text, rapidjson::SizeType size, bool);
  void StartObject() { start(false); }
  void EndObject(rapidjson::SizeType) { m_frames.pop_back(); }
  void StartArray() { start(true); }
  void EndArray(rapidjson::SizeType) { m_frames.pop_back(); }

  void commit(TQLogicalArchModel& model, HDGUIStatus* status);

 private:
  // Where in the document an event stands.
  enum Place {
    Document,
    Root,
    Section,
    Instance,
    Ports,
    Port,
    TextList,
    Connections,
    Connection,
    Destinations,
    Reference,
    Skip
  };
  struct Frame {
    Place place;
    std::uint32_t seen;  // the keys of this object met so far, by index
  };

  static Scalar numberScalar(double number, bool fitsInt, int integer) {
    Scalar value;
    value.kind = Scalar::Number;
    value.number = number;
    value.fitsInt = fitsInt;
    value.integer = integer;
    return value;
  }

  Place place() const { return m_frames.empty() ? Document : m_frames.back().place; }
  void push(Place place) { m_frames.push_back(Frame{place, 0}); }
  // The index of a key the first time the object has it, else -1.
  int firstKey(KeyTable const& table, char const* text, std::size_t size);
  void scalar(Scalar const& value);
  void start(bool array);
  void startInObject(bool array);
  void stageInstance(std::string const& name);
  void stagePort(std::string const& name);
  void stageConnection(std::string const& name);
  template <typename InstanceClass>
  void commitSection(std::vector<StagedInstance>& staged, InstanceClass* (TQLogicalArchModel::*add)(std::string const&),
                     TQLogicalArchModel& model);
  void commitConnections(TQLogicalArchModel& model);

  std::vector<Frame> m_frames;
  int m_key = -1;  // the key whose value comes next, or -1 when it is passed over
  Kind m_kind = PLKind;
  bool m_listIsAnnotation = false;
  StagedInstance* m_instance = nullptr;
  TQLogicalPort* m_port = nullptr;
  StagedConnection* m_connection = nullptr;
  PortReference* m_reference = nullptr;

  std::string m_header[4];
  std::vector<StagedInstance> m_sections[3];
  std::vector<StagedConnection> m_connections;
};

int DocumentStage::firstKey(KeyTable const& table, char const* text, std::size_t size) {
  int const index = table.indexOf(text, size);
  if (index < 0) return -1;
  std::uint32_t const bit = 1u << index;
  if (m_frames.back().seen & bit) return -1;
  m_frames.back().seen |= bit;
  return index;
}

void DocumentStage::Key(char const* text, rapidjson::SizeType size, bool) {
  switch (place()) {
    case Root:
      m_key = firstKey(kRootTable, text, size);
      break;
    case Section:
      stageInstance(std::string(text, size));
      break;
    case Instance:
      m_key = firstKey(instanceKeys(m_kind), text, size);
      break;
    case Ports:
      stagePort(std::string(text, size));
      break;
    case Port:
      m_key = firstKey(kPortTable, text, size);
      break;
    case Connections:
      stageConnection(std::string(text, size));
      break;
    case Connection:
      m_key = firstKey(kConnectionTable, text, size);
      break;
    case Reference:
      m_key = firstKey(kRefTable, text, size);
      break;
    default:
      m_key = -1;
      break;
  }
}

void DocumentStage::stageInstance(std::string const& name) {
  std::vector<StagedInstance>& section = m_sections[m_kind];
  section.push_back(StagedInstance{name, nullptr, {}});
  m_instance = &section.back();
  if (m_kind == PLKind) m_instance->fields = std::make_unique<TQLogicalPLIPInstance>(name);
  if (m_kind == KPEKind) m_instance->fields = std::make_unique<TQLogicalTQIPInstance>(name);
  if (m_kind == NoCKind) m_instance->fields = std::make_unique<TQLogicalNOCIPInstance>(name);
}

void DocumentStage::stagePort(std::string const& name) {
  m_instance->ports.push_back(std::make_unique<TQLogicalPort>(name));
  m_port = m_instance->ports.back().get();
}

void DocumentStage::stageConnection(std::string const& name) {
  m_connections.emplace_back();
  m_connection = &m_connections.back();
  m_connection->name = name;
}

void DocumentStage::scalar(Scalar const& value) {
  switch (place()) {
    case Root:
      if (m_key >= AppId && m_key <= Platform) m_header[m_key] = value.string();
      break;
    case Instance:
      if (m_key >= 0)
        ifText(value, [&](std::string const& t) { setInstanceText(m_kind, m_key, t, *m_instance->fields); });
      break;
    case Port:
      if (m_key >= 0) setPortValue(m_key, value, *m_port);
      break;
    case TextList:
      if (m_listIsAnnotation)
        ifText(value, [&](std::string const& t) { m_port->addAnnotation(t); });
      else
        ifText(value, [&](std::string const& t) { m_port->addSDFIOName(t); });
      break;
    case Connection:
      if (m_key == SrcPort) m_connection->hasSource = true;
      if (m_key >= ConnectionType && m_key <= AddrType) setConnectionText(m_key, value, *m_connection);
      break;
    case Destinations:
      m_connection->destinations.emplace_back();
      break;
    case Reference:
      if (m_key == 0) m_reference->instName = value.string();
      if (m_key == 1) m_reference->portName = value.string();
      break;
    default:
      break;
  }
}

void DocumentStage::start(bool array) {
  switch (place()) {
    case Document:
      push(Root);
      break;
    case Destinations:
      m_connection->destinations.emplace_back();
      m_reference = &m_connection->destinations.back();
      push(array ? Skip : Reference);
      break;
    case Section:
    case Ports:
    case Connections:
      push(array ? Skip : place() == Section ? Instance : place() == Ports ? Port : Connection);
      break;
    case TextList:
    case Skip:
      push(Skip);
      break;
    default:
      startInObject(array);
      break;
  }
}

// A value that opens inside an object belongs to the key just read.
void DocumentStage::startInObject(bool array) {
  Place const here = place();
  Place next = Skip;
  if (here == Root && !array && m_key >= PLSection && m_key <= NoCSection) {
    m_kind = m_key == PLSection ? PLKind : m_key == KPESection ? KPEKind : NoCKind;
    next = Section;
  } else if (here == Root && !array && m_key == Connections) {
    next = Connections;
  } else if (here == Instance && !array && m_key == instanceKeys(m_kind).count() - 1) {
    next = Ports;
  } else if (here == Port && array && (m_key == PortAnnotation || m_key == SdfioName)) {
    m_listIsAnnotation = m_key == PortAnnotation;
    next = TextList;
  } else if (here == Connection && m_key == SrcPort) {
    m_connection->hasSource = true;
    m_reference = &m_connection->source;
    next = array ? Skip : Reference;
  } else if (here == Connection && array && m_key == DstPorts) {
    next = Destinations;
  }
  push(next);
}

// Adds the staged instances of one section in document order. A name that the model already
// has, from any kind, drops the instance with its ports; a port name the instance already has
// drops the port.
template <typename InstanceClass>
void DocumentStage::commitSection(std::vector<StagedInstance>& staged,
                                  InstanceClass* (TQLogicalArchModel::*add)(std::string const&),
                                  TQLogicalArchModel& model) {
  for (StagedInstance& entry : staged) {
    InstanceClass* instance = (model.*add)(entry.name);
    if (instance == nullptr) continue;
    copyFields(static_cast<InstanceClass const&>(*entry.fields), *instance);
    for (std::unique_ptr<TQLogicalPort>& port : entry.ports)
      if (!instance->hasLogicalPort(port->getName())) instance->addPort(port.release());
  }
  staged.clear();
}

void DocumentStage::commit(TQLogicalArchModel& model, HDGUIStatus* status) {
  auto percent = [status](double value) {
    if (status != nullptr) status->setPercent(value);
  };
  percent(20);
  if (!m_header[AppId].empty()) model.setAppID(m_header[AppId]);
  if (!m_header[Schema].empty()) model.setSchema(m_header[Schema]);
  if (!m_header[Platform].empty()) model.setPlatform(m_header[Platform]);
  if (!m_header[Device].empty()) model.setDeviceModel(m_header[Device]);
  commitSection(m_sections[PLKind], &TQLogicalArchModel::addPLIPInstance, model);
  percent(40);
  commitSection(m_sections[KPEKind], &TQLogicalArchModel::addTQIPInstance, model);
  percent(60);
  commitSection(m_sections[NoCKind], &TQLogicalArchModel::addNOCIPInstance, model);
  percent(80);
  commitConnections(model);
  percent(100);
}

// A reference is found through the maps, so a port that a duplicate name hid is not found.
TQLogicalPort* referencedPort(PortReference const& reference, TQLogicalArchModel const& model) {
  TQLogicalArchLInst const* instance = model.getLogicalInstance(reference.instName);
  return instance != nullptr ? instance->getLogicalPort(reference.portName) : nullptr;
}

void DocumentStage::commitConnections(TQLogicalArchModel& model) {
  for (StagedConnection const& staged : m_connections) {
    TQLogicalConnection* connection = model.addLogicalConnection(staged.name);
    if (connection == nullptr) continue;
    connection->setType(staged.type);
    connection->setDirectionType(staged.direction);
    connection->setMemMode(staged.memMode);
    connection->setAddrType(staged.addrType);
    if (staged.hasSource)
      if (TQLogicalPort* port = referencedPort(staged.source, model)) connection->setSrcPort(port);
    for (PortReference const& destination : staged.destinations)
      if (TQLogicalPort* port = referencedPort(destination, model)) connection->addDstPort(port);
  }
  m_connections.clear();
}

}  // namespace

bool TQLogicalArchReader::read(std::istream& in, std::string const& fileName, TQLogicalArchModel& model,
                               HDGUIStatus* status) {
  if (!in.good()) HCRapidJsonReadWriteUtils::errorReadingJsonFile(fileName);
  DocumentStage stage;
  JsonEventFrame::load(in, fileName, NOCJsonReadWriteUtils::getLogicalArchJsonSchemaFile(), stage);
  stage.commit(model, status);
  return true;
}

bool TQLogicalArchReader::readFromJsonFile(std::istream& in, std::string const& fileName, TQLogicalArchModel& model) {
  return read(in, fileName, model, nullptr);
}

bool TQLogicalArchReader::readFromJsonFile(std::istream& in, std::string const& fileName, TQLogicalArchModel& model,
                                           HDGUIStatus& status) {
  return read(in, fileName, model, &status);
}

bool TQLogicalArchReader::readFromJsonFile(std::string const& fileName, TQLogicalArchModel& model) {
  return JsonDocumentFrame::readFile(
      fileName, JsonDocumentFrame::Opener::PlainFile,
      [&](std::istream& in, std::string const& name) { return read(in, name, model, nullptr); });
}

bool TQLogicalArchReader::readFromJsonFile(std::string const& fileName, TQLogicalArchModel& model,
                                           HDGUIStatus& status) {
  return JsonDocumentFrame::readFile(
      fileName, JsonDocumentFrame::Opener::PlainFile,
      [&](std::istream& in, std::string const& name) { return read(in, name, model, &status); });
}
