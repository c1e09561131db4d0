#include "TQLogicalArchWriter.h"

#include <memory>
#include <ostream>
#include <vector>

#include "JsonDocumentFrame.h"
#include "LogicalArchDocumentKeys.h"
#include "NOCJsonReadWriteUtils.h"
#include "TQLogicalArchModel.h"

using namespace Tarvo::Frameworks;

namespace {

typedef HCRapidJsonReadWriteUtils Json;
typedef Json::Value Value;
typedef LogicalArchDocumentKeys Key;

// The names under which objects of one sub-hierarchy are written.
class HierarchyNames {
 public:
  explicit HierarchyNames(std::string const& prefix) : m_prefix(prefix) {}

  // Whether an instance or connection of this name belongs to the sub-hierarchy.
  bool admits(std::string const& name) const {
    return m_prefix.empty() || name.compare(0, m_prefix.size(), m_prefix) == 0;
  }

  // The name without the prefix and without the first "/" left after that. An instance
  // named inside a connection gets this without the test of admits(), so an instance outside
  // the sub-hierarchy loses only its first "/".
  std::string documentName(std::string const& name) const {
    if (m_prefix.empty()) return name;
    std::string result = name;
    std::string::size_type const prefixAt = result.find(m_prefix);
    if (prefixAt != std::string::npos) result.erase(prefixAt, m_prefix.size());
    std::string::size_type const slashAt = result.find('/');
    if (slashAt != std::string::npos) result.erase(slashAt, 1);
    return result;
  }

 private:
  std::string m_prefix;
};

// Builds the document tree of a model; the order of the calls is the order of the members.
class DocumentBuilder {
 public:
  DocumentBuilder(Json::Document& doc, std::string const& hierarchyPrefix)
      : m_doc(doc), m_alloc(doc.GetAllocator()), m_names(hierarchyPrefix) {}

  void build(TQLogicalArchModel const& model) {
    addText(m_doc, Key::appId, model.getAppID());
    addText(m_doc, Key::schema, model.getSchema());
    addText(m_doc, Key::device, model.getDeviceModel());
    addText(m_doc, Key::platform, model.getPlatform());
    std::vector<TQLogicalTQIPInstance*> kpes;
    model.getTQIPInstances(kpes);
    addSection(Key::kpeSection, Key::kpePorts, kpes);
    std::vector<TQLogicalNOCIPInstance*> nocs;
    model.getNOCIPInstances(nocs);
    addSection(Key::nocSection, Key::nocPorts, nocs);
    std::vector<TQLogicalPLIPInstance*> pls;
    model.getPLIPInstances(pls);
    addSection(Key::plSection, Key::plPorts, pls);
    addConnections(model);
  }

 private:
  void addText(Value& object, char const* key, std::string const& text) {
    if (!text.empty()) Json::AddStringProperty(object, key, text, m_alloc);
  }

  void addMember(Value& object, std::string const& name, Value& value) {
    Value key(name.data(), static_cast<rapidjson::SizeType>(name.size()), m_alloc);
    object.AddMember(key, value, m_alloc);
  }

  // A section is written when the model has instances of its kind, even if the hierarchy
  // filter leaves none of them.
  template <typename Instance>
  void addSection(char const* sectionKey, char const* portsKey, std::vector<Instance*> const& instances) {
    if (instances.empty()) return;
    Value section(rapidjson::kObjectType);
    for (Instance const* instance : instances) {
      if (!m_names.admits(instance->getName())) continue;
      Value object(rapidjson::kObjectType);
      addFields(object, *instance);
      Value ports(rapidjson::kObjectType);
      for (TQLogicalPort const* port : instance->getPorts()) {
        Value portValue = portObject(*port);
        addMember(ports, port->getName(), portValue);
      }
      object.AddMember(rapidjson::StringRef(portsKey), ports, m_alloc);
      addMember(section, m_names.documentName(instance->getName()), object);
    }
    m_doc.AddMember(rapidjson::StringRef(sectionKey), section, m_alloc);
  }

  void addFields(Value& object, TQLogicalTQIPInstance const& instance) {
    addText(object, Key::vlnvName, instance.getVLNVName());
    addText(object, Key::annotation, instance.getAnnotation());
    addText(object, Key::hwAnnotation, instance.getHWAnnotation());
    addText(object, Key::logicalDevice, instance.getLogicalDeviceJSON());
  }

  void addFields(Value& object, TQLogicalNOCIPInstance const& instance) {
    addText(object, Key::vlnvName, instance.getVLNVName());
    addText(object, Key::annotation, instance.getAnnotation());
    addText(object, Key::hwAnnotation, instance.getHWAnnotation());
    if (instance.getIPType() != TQLogicalIPTypeEnum::Unknown)
      Json::AddStringProperty(object, Key::ipType, toText(instance.getIPType()), m_alloc);
  }

  void addFields(Value& object, TQLogicalPLIPInstance const& instance) {
    addText(object, Key::vlnvName, instance.getVLNVName());
    addText(object, Key::ckernelName, instance.getCKernelName());
    addText(object, Key::sdfinstName, instance.getSDFInstName());
    addText(object, Key::annotation, instance.getAnnotation());
    addText(object, Key::hwAnnotation, instance.getHWAnnotation());
  }

  // "parameterIndex" is always written, the other numbers only when set.
  Value portObject(TQLogicalPort const& port) {
    Value object(rapidjson::kObjectType);
    if (port.getType() != TQLogicalConnectionDataFlowTypeEnum::Unknown)
      Json::AddStringProperty(object, Key::type, port.getTypeAsStr(), m_alloc);
    if (port.getDirectionType() != TQLogicalPortDirectionTypeEnum::Unknown)
      Json::AddStringProperty(object, Key::direction, port.getDirectionTypeAsStr(), m_alloc);
    if (port.getDataWidth() != 0) Json::AddULongProperty(object, Key::dataWidth, port.getDataWidth(), m_alloc);
    if (port.getBusWidth() != 0) Json::AddULongProperty(object, Key::busWidth, port.getBusWidth(), m_alloc);
    Json::AddULongProperty(object, Key::parameterIndex, port.getParamIndex(), m_alloc);
    if (port.getClkFreq() > 0.0) Json::AddDoubleProperty(object, Key::clkFreq, port.getClkFreq(), m_alloc);
    if (port.getRegisterInterface()) Json::AddBooleanProperty(object, Key::registeredInterface, true, m_alloc);
    if (port.isTraced()) Json::AddBooleanProperty(object, Key::tracedInterface, true, m_alloc);
    addText(object, Key::traceFile, port.getTraceFile());
    if (!port.getAnnotations().empty())
      Json::AddStringArrayProperty(object, Key::annotation, port.getAnnotations(), m_alloc);
    addText(object, Key::hwAnnotation, port.getHWAnnotation());
    if (!port.getSDFIONames().empty())
      Json::AddStringArrayProperty(object, Key::sdfioName, port.getSDFIONames(), m_alloc);
    addText(object, Key::vlnvName, port.getVLNVName());
    addText(object, Key::kpechannel, port.getTqChannel());
    return object;
  }

  Value portReference(TQLogicalPort const& port) {
    Value reference(rapidjson::kObjectType);
    TQLogicalArchLInst const* parent = port.getParentInstance();
    Json::AddStringProperty(reference, Key::instName, parent ? m_names.documentName(parent->getName()) : "", m_alloc);
    Json::AddStringProperty(reference, Key::portName, port.getName(), m_alloc);
    return reference;
  }

  Value connectionObject(TQLogicalConnection const& connection) {
    Value object(rapidjson::kObjectType);
    if (connection.getType() != TQLogicalConnectionDataFlowTypeEnum::Unknown)
      Json::AddStringProperty(object, Key::type, connection.getTypeAsStr(), m_alloc);
    if (TQLogicalPort const* source = connection.getSrcPort()) {
      Value reference = portReference(*source);
      object.AddMember(rapidjson::StringRef(Key::srcPort), reference, m_alloc);
    }
    if (!connection.getDstPorts().empty()) {
      Value destinations(rapidjson::kArrayType);
      for (TQLogicalPort const* destination : connection.getDstPorts())
        destinations.PushBack(portReference(*destination), m_alloc);
      object.AddMember(rapidjson::StringRef(Key::dstPorts), destinations, m_alloc);
    }
    if (connection.getDirectionType() != TQLogicalConnectionDirectionEnum::Unknown)
      Json::AddStringProperty(object, Key::direction, connection.getDirectionTypeAsStr(), m_alloc);
    if (connection.getMemMode() != TQLogicalConnectionMemModeEnum::Unknown)
      Json::AddStringProperty(object, Key::memMode, connection.getMemModeAsStr(), m_alloc);
    if (connection.getAddrType() != TQLogicalConnectionAddrTypeEnum::Unknown)
      Json::AddStringProperty(object, Key::addrType, connection.getAddrTypeAsStr(), m_alloc);
    return object;
  }

  void addConnections(TQLogicalArchModel const& model) {
    std::vector<TQLogicalConnection*> connections;
    if (model.getLogicalConnections(connections) == 0) return;
    Value section(rapidjson::kObjectType);
    for (TQLogicalConnection const* connection : connections) {
      if (!m_names.admits(connection->getName())) continue;
      Value object = connectionObject(*connection);
      addMember(section, m_names.documentName(connection->getName()), object);
    }
    m_doc.AddMember(rapidjson::StringRef(Key::connections), section, m_alloc);
  }

  Json::Document& m_doc;
  Json::Allocator& m_alloc;
  HierarchyNames m_names;
};

}  // namespace

bool TQLogicalArchWriter::write(std::string const& hierarchyPrefix, std::ostream& out,
                                TQLogicalArchModel const& model) {
  if (model.isEmpty()) return false;
  Json::Allocator pool(JsonDocumentFrame::kPoolChunkSize);
  Json::Document doc(rapidjson::kObjectType, &pool);
  DocumentBuilder(doc, hierarchyPrefix).build(model);
  std::unique_ptr<rapidjson::SchemaDocument> const schema =
      JsonDocumentFrame::loadSchema(NOCJsonReadWriteUtils::getLogicalArchJsonSchemaFile());
  // The result of the validated write is deliberately not looked at: a model that breaks the
  // schema leaves a document cut off where it broke, which is what callers of this writer
  // have always received.
  JsonDocumentFrame::writeValidated(out, doc, *schema);
  return true;
}

bool TQLogicalArchWriter::writeToJsonFile(std::ostream& out, TQLogicalArchModel const& model) {
  return write(std::string(), out, model);
}

bool TQLogicalArchWriter::writeToJsonFile(std::ostream& out, TQLogicalArchModel const& model, HDGUIStatus&) {
  return write(std::string(), out, model);
}

bool TQLogicalArchWriter::writeToJsonFile(std::string const& hierarchyPrefix, std::ostream& out,
                                          TQLogicalArchModel const& model, HDGUIStatus&) {
  return write(hierarchyPrefix, out, model);
}

bool TQLogicalArchWriter::writeToJsonFile(std::string const& fileName, TQLogicalArchModel const& model) {
  return JsonDocumentFrame::writeFile(fileName, [&](std::ostream& out) { return write(std::string(), out, model); });
}

bool TQLogicalArchWriter::writeToJsonFile(std::string const& fileName, TQLogicalArchModel const& model, HDGUIStatus&) {
  return JsonDocumentFrame::writeFile(fileName, [&](std::ostream& out) { return write(std::string(), out, model); });
}
