#include "TQLogicalArchReader.h"

#include <istream>

#include "HDGUIStatus.h"
#include "JsonDocumentFrame.h"
#include "LogicalArchDocumentKeys.h"
#include "NOCJsonReadWriteUtils.h"
#include "TQLogicalArchModel.h"

using namespace Tarvo::Frameworks;

namespace {

typedef HCRapidJsonReadWriteUtils Json;
typedef Json::Value Value;
typedef LogicalArchDocumentKeys Key;

void setPercent(HDGUIStatus* status, double percent) {
  if (status != nullptr) status->setPercent(percent);
}

Value const* findMember(Value const& object, char const* key) {
  if (!object.IsObject()) return nullptr;
  Value::ConstMemberIterator const found = object.FindMember(key);
  return found == object.MemberEnd() ? nullptr : &found->value;
}

Value const* findObject(Value const& object, char const* key) {
  Value const* member = findMember(object, key);
  return member != nullptr && member->IsObject() ? member : nullptr;
}

std::string nameOf(Value::ConstMemberIterator member) {
  return std::string(member->name.GetString(), member->name.GetStringLength());
}

// Calls `set` with the text of `key` unless it is missing or empty.
template <typename Setter>
void readText(Value const& object, char const* key, Setter set) {
  std::string const text = Json::GetStringProperty(object, key);
  if (!text.empty()) set(text);
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

// The annotation lists take an array, or one string from hand-made documents; empty texts
// are dropped.
template <typename Adder>
void readTextList(Value const& object, char const* key, Adder add) {
  std::vector<std::string> texts;
  if (Json::IsArrayProperty(object, key))
    texts = Json::GetStringArrayProperty(object, key);
  else if (Json::IsStringProperty(object, key))
    texts.push_back(Json::GetStringProperty(object, key));
  for (std::string const& text : texts)
    if (!text.empty()) add(text);
}

// The widths and the index are read as signed 32-bit numbers; 0 leaves the field alone.
template <typename Setter>
void readCount(Value const& object, char const* key, Setter set) {
  int const value = Json::GetIntegrProperty(object, key);
  if (value != 0) set(static_cast<std::uint32_t>(value));
}

void readPort(Value const& object, TQLogicalPort& port) {
  readText(object, Key::type,
           [&](std::string const& t) { port.setType(fromText<TQLogicalConnectionDataFlowTypeEnum>(t)); });
  readText(object, Key::direction,
           [&](std::string const& t) { port.setDirectionType(fromText<TQLogicalPortDirectionTypeEnum>(t)); });
  readCount(object, Key::dataWidth, [&](std::uint32_t v) { port.setDataWidth(v); });
  readCount(object, Key::busWidth, [&](std::uint32_t v) { port.setBusWidth(v); });
  readCount(object, Key::parameterIndex, [&](std::uint32_t v) { port.setParamIndex(v); });
  double const clkFreq = Json::GetDoubleProperty(object, Key::clkFreq);
  if (clkFreq >= 0.0) port.setClkFreq(clkFreq);
  if (Json::GetBooleanProperty(object, Key::registeredInterface)) port.setRegisterInterface(true);
  if (Json::GetBooleanProperty(object, Key::tracedInterface)) port.setIsTraced(true);
  readText(object, Key::traceFile, [&](std::string const& t) { port.setTraceFile(t); });
  readTextList(object, Key::annotation, [&](std::string const& t) { port.addAnnotation(t); });
  readText(object, Key::hwAnnotation, [&](std::string const& t) { port.setHWAnnotation(t); });
  readTextList(object, Key::sdfioName, [&](std::string const& t) { port.addSDFIOName(t); });
  readText(object, Key::vlnvName, [&](std::string const& t) { port.setVLNVName(t); });
  readText(object, Key::kpechannel, [&](std::string const& t) { port.setTqChannel(t); });
}

void readFields(Value const& object, TQLogicalPLIPInstance& instance) {
  readText(object, Key::vlnvName, [&](std::string const& t) { instance.setVLNVName(t); });
  readText(object, Key::ckernelName, [&](std::string const& t) { instance.setCKernelName(t); });
  readText(object, Key::sdfinstName, [&](std::string const& t) { instance.setSDFInstName(t); });
  readText(object, Key::annotation, [&](std::string const& t) { instance.setAnnotation(t); });
  readText(object, Key::hwAnnotation, [&](std::string const& t) { instance.setHWAnnotation(t); });
}

void readFields(Value const& object, TQLogicalTQIPInstance& instance) {
  readText(object, Key::vlnvName, [&](std::string const& t) { instance.setVLNVName(t); });
  readText(object, Key::annotation, [&](std::string const& t) { instance.setAnnotation(t); });
  readText(object, Key::hwAnnotation, [&](std::string const& t) { instance.setHWAnnotation(t); });
  readText(object, Key::logicalDevice, [&](std::string const& t) { instance.setLogicalDeviceJSON(t); });
}

void readFields(Value const& object, TQLogicalNOCIPInstance& instance) {
  readText(object, Key::vlnvName, [&](std::string const& t) { instance.setVLNVName(t); });
  readText(object, Key::annotation, [&](std::string const& t) { instance.setAnnotation(t); });
  readText(object, Key::hwAnnotation, [&](std::string const& t) { instance.setHWAnnotation(t); });
  readText(object, Key::ipType, [&](std::string const& t) { instance.setIPType(fromText<TQLogicalIPTypeEnum>(t)); });
}

// How one section of instances is read: its keys and the model's operations for its kind.
template <typename Instance>
struct Section {
  char const* key;
  char const* portsKey;
  Instance* (TQLogicalArchModel::*addInstance)(std::string const&);
  TQLogicalPort* (TQLogicalArchModel::*addPort)(std::string const&, Instance&);
};

// An instance whose name is taken, by an instance of any kind, is dropped with its ports;
// so is a port whose name the instance already has.
template <typename Instance>
void readSection(Value const& root, Section<Instance> const& section, TQLogicalArchModel& model) {
  Value const* instances = findObject(root, section.key);
  if (instances == nullptr) return;
  for (auto member = instances->MemberBegin(); member != instances->MemberEnd(); ++member) {
    Instance* instance = (model.*section.addInstance)(nameOf(member));
    if (instance == nullptr) continue;
    readFields(member->value, *instance);
    Value const* ports = findObject(member->value, section.portsKey);
    if (ports == nullptr) continue;
    for (auto port = ports->MemberBegin(); port != ports->MemberEnd(); ++port)
      if (TQLogicalPort* added = (model.*section.addPort)(nameOf(port), *instance)) readPort(port->value, *added);
  }
}

// The port that a reference {"instName", "portName"} names, found through the maps.
TQLogicalPort* referencedPort(Value const& reference, TQLogicalArchModel const& model) {
  TQLogicalArchLInst const* instance = model.getLogicalInstance(Json::GetStringProperty(reference, Key::instName));
  return instance != nullptr ? instance->getLogicalPort(Json::GetStringProperty(reference, Key::portName)) : nullptr;
}

void readConnection(Value const& object, TQLogicalConnection& connection, TQLogicalArchModel const& model) {
  readText(object, Key::type,
           [&](std::string const& t) { connection.setType(fromText<TQLogicalConnectionDataFlowTypeEnum>(t)); });
  readText(object, Key::direction,
           [&](std::string const& t) { connection.setDirectionType(connectionDirectionOf(t)); });
  readText(object, Key::memMode,
           [&](std::string const& t) { connection.setMemMode(fromText<TQLogicalConnectionMemModeEnum>(t)); });
  readText(object, Key::addrType,
           [&](std::string const& t) { connection.setAddrType(fromText<TQLogicalConnectionAddrTypeEnum>(t)); });
  if (Value const* source = findMember(object, Key::srcPort))
    if (TQLogicalPort* port = referencedPort(*source, model)) connection.setSrcPort(port);
  Value const* destinations = findMember(object, Key::dstPorts);
  if (destinations == nullptr || !destinations->IsArray()) return;
  for (Value const& destination : destinations->GetArray())
    if (TQLogicalPort* port = referencedPort(destination, model)) connection.addDstPort(port);
}

void readConnections(Value const& root, TQLogicalArchModel& model) {
  Value const* connections = findObject(root, Key::connections);
  if (connections == nullptr) return;
  for (auto member = connections->MemberBegin(); member != connections->MemberEnd(); ++member)
    if (TQLogicalConnection* connection = model.addLogicalConnection(nameOf(member)))
      readConnection(member->value, *connection, model);
}

void readHeader(Value const& root, TQLogicalArchModel& model) {
  readText(root, Key::appId, [&](std::string const& t) { model.setAppID(t); });
  readText(root, Key::schema, [&](std::string const& t) { model.setSchema(t); });
  readText(root, Key::platform, [&](std::string const& t) { model.setPlatform(t); });
  readText(root, Key::device, [&](std::string const& t) { model.setDeviceModel(t); });
}

// Instances come before connections whatever the order in the file, so that every port a
// connection can name exists.
void readDocument(Value const& root, TQLogicalArchModel& model, HDGUIStatus* status) {
  setPercent(status, 20);
  readHeader(root, model);
  readSection(root,
              Section<TQLogicalPLIPInstance>{Key::plSection, Key::plPorts, &TQLogicalArchModel::addPLIPInstance,
                                             &TQLogicalArchModel::addPLPort},
              model);
  setPercent(status, 40);
  readSection(root,
              Section<TQLogicalTQIPInstance>{Key::kpeSection, Key::kpePorts, &TQLogicalArchModel::addTQIPInstance,
                                             &TQLogicalArchModel::addShimPort},
              model);
  setPercent(status, 60);
  readSection(root,
              Section<TQLogicalNOCIPInstance>{Key::nocSection, Key::nocPorts, &TQLogicalArchModel::addNOCIPInstance,
                                              &TQLogicalArchModel::addNOCPort},
              model);
  setPercent(status, 80);
  readConnections(root, model);
  setPercent(status, 100);
}

}  // namespace

bool TQLogicalArchReader::read(std::istream& in, std::string const& fileName, TQLogicalArchModel& model,
                               HDGUIStatus* status) {
  if (!in.good()) Json::errorReadingJsonFile(fileName);
  Json::Allocator pool(JsonDocumentFrame::kPoolChunkSize);
  Json::Document doc(&pool);
  JsonDocumentFrame::load(in, fileName, NOCJsonReadWriteUtils::getLogicalArchJsonSchemaFile(),
                          JsonDocumentFrame::Opener::PlainFile, doc);
  readDocument(doc, model, status);
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
