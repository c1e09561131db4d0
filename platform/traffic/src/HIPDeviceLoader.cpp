#include "HIPDeviceLoader.h"

#include <rapidjson/schema.h>

#include <fstream>
#include <iterator>
#include <sstream>
#include <unordered_map>

#include "HCRapidJsonReadWriteUtils.h"
#include "HUTEnv.h"
#include "HUTFile.h"
#include "JsonParse.h"
#include "JsonSchemaCheck.h"

namespace DevHrdIP {

using namespace Definitions;

namespace {

typedef HCRapidJsonReadWriteUtils Json;
typedef Json::Value Value;

#define DEVHRDIP_COMP_TYPE_TEXT(name, role) #name,
char const* const kCompTypeTexts[] = {DEVHRDIP_COMP_TYPE_ROWS(DEVHRDIP_COMP_TYPE_TEXT)};
#undef DEVHRDIP_COMP_TYPE_TEXT

// The block kind of a type text; false for a text that names none. "COMPERR" is the error
// row and names none either.
bool compTypeOf(std::string const& text, COMP_TYPE& type) {
  static std::unordered_map<std::string, COMP_TYPE> const byText = [] {
    std::unordered_map<std::string, COMP_TYPE> map;
    for (int row = 0; row < static_cast<int>(COMPERR); ++row)
      map.emplace(kCompTypeTexts[row], COMP_TYPE(row));
    return map;
  }();
  auto const found = byText.find(text);
  if (found == byText.end()) return false;
  type = found->second;
  return true;
}

CompRole roleOf(Value const& entry, COMP_TYPE type) {
  if (!Json::IsStringProperty(entry, "role")) return getCompRole(type);
  std::string const role = Json::GetStringProperty(entry, "role");
  if (role == "master") return ROLE_MASTER;
  if (role == "slave") return ROLE_SLAVE;
  return ROLE_NONE;
}

void parse(std::istream& in, std::string const& fileName, Json::Document& doc) {
  tarvo::jsonio::JsonParse::parseOrReport(in, fileName, doc);
}

void validate(Json::Document const& doc, std::string const& fileName) {
  tarvo::jsonio::JsonSchemaCheck::validateAgainstFile(doc, fileName, HIPDeviceLoader::getSchemaFile());
}

// Builds the NoC from a description that passed the schema, or that is the compiled-in one.
// The loader checks what the schema cannot: type texts, unique names, links between known
// components.
class NocBuilder {
 public:
  NocBuilder(NOCModel& model, std::string const& fileName) : m_model(model), m_fileName(fileName) {}

  void build(Value const& noc) {
    Value const* components = member(noc, "components");
    if (components != nullptr && components->IsArray())
      for (Value const& entry : components->GetArray())
        addComponent(entry);
    Value const* links = member(noc, "links");
    if (links != nullptr && links->IsArray())
      for (Value const& entry : links->GetArray())
        addLink(entry);
  }

 private:
  static Value const* member(Value const& object, char const* key) {
    if (!object.IsObject()) return nullptr;
    auto const found = object.FindMember(key);
    return found == object.MemberEnd() ? nullptr : &found->value;
  }

  [[noreturn]] void fail(std::string const& text) const { Json::errorParsingJsonFile(m_fileName, text); }

  COMP_TYPE typeOf(Value const& entry, std::string const& name) const {
    std::string const text = Json::GetStringProperty(entry, "type");
    COMP_TYPE type = COMPERR;
    if (!compTypeOf(text, type)) fail("component '" + name + "' has the unknown type '" + text + "'");
    return type;
  }

  void addComponent(Value const& entry) {
    std::string const name = Json::GetStringProperty(entry, "name");
    COMP_TYPE const type = typeOf(entry, name);
    Component* component = m_model.addComponent(name, type, roleOf(entry, type));
    if (component == nullptr) fail("the component name '" + name + "' is given twice");
    Value const* ports = member(entry, "ports");
    if (ports == nullptr || !ports->IsArray()) return;
    for (Value const& portEntry : ports->GetArray()) {
      std::string const portName = Json::GetStringProperty(portEntry, "name");
      COMP_TYPE const portType = typeOf(portEntry, portName);
      if (m_model.addPortComponent(component, portName, portType, roleOf(portEntry, portType)) == nullptr)
        fail("the component name '" + portName + "' is given twice");
    }
  }

  Component* endOf(Value const& entry, char const* key) const {
    std::string const name = Json::GetStringProperty(entry, key);
    Component* component = m_model.getComponent(name);
    if (component == nullptr) fail("a link names the component '" + name + "', which the device does not have");
    return component;
  }

  void addLink(Value const& entry) {
    Component* from = endOf(entry, "from");
    Component* to = endOf(entry, "to");
    std::string const fromPort = Json::GetStringProperty(entry, "fromPort");
    std::string const toPort = Json::GetStringProperty(entry, "toPort");
    unsigned const latency =
        Json::IsIntegrProperty(entry, "latency") ? static_cast<unsigned>(Json::GetIntegrProperty(entry, "latency")) : 1;
    if (m_model.addLink(from, fromPort, to, toPort, latency) == nullptr)
      fail("the link from " + from->getName() + " " + fromPort + " to " + to->getName() + " " + toPort +
           " is given twice");
  }

  NOCModel& m_model;
  std::string const& m_fileName;
};

std::unique_ptr<HIPDevice> build(Json::Document const& doc, std::string const& fileName) {
  std::unique_ptr<HIPDevice> device(new HIPDevice(Json::GetStringProperty(doc, "name")));
  auto const noc = doc.IsObject() ? doc.FindMember("noc") : doc.MemberEnd();
  if (doc.IsObject() && noc != doc.MemberEnd() && noc->value.IsObject())
    NocBuilder(device->createNOCModel(), fileName).build(noc->value);
  return device;
}

}  // namespace

std::unique_ptr<HIPDevice> HIPDeviceLoader::readFromFile(std::string const& fileName) {
  std::string canonical = fileName;
  HUTFile(fileName).getCanonicalName(canonical);
  std::ifstream in(canonical, std::ios_base::binary);
  HUTFile const file(canonical);
  if (!file.exists() || !file.isFile() || !in.good()) Json::errorReadingJsonFile(canonical);
  return readFromStream(in, fileName);
}

std::unique_ptr<HIPDevice> HIPDeviceLoader::readFromStream(std::istream& in, std::string const& fileName) {
  Json::Document doc;
  parse(in, fileName, doc);
  validate(doc, fileName);
  return build(doc, fileName);
}

std::unique_ptr<HIPDevice> HIPDeviceLoader::makeDefaultDevice() {
  std::istringstream in(getDefaultDeviceText());
  Json::Document doc;
  std::string const name = "(default device)";
  parse(in, name, doc);
  return build(doc, name);
}

std::string HIPDeviceLoader::getSchemaFile() {
  std::string const& separator = HUTFile::getDirSeparator();
  std::string const relative = "devices" + separator + "device.schema.json";
  return HUTEnv::getQDSDataDir(relative) + separator + relative;
}

}  // namespace DevHrdIP
