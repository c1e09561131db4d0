#include "TQLogicalArchWriter.h"

#include <memory>
#include <ostream>
#include <type_traits>
#include <vector>

#include "JsonDocumentFrame.h"
#include "JsonEventFrame.h"
#include "LogicalArchDocumentKeys.h"
#include "NOCJsonReadWriteUtils.h"
#include "TQLogicalArchModel.h"

using namespace Tarvo::Frameworks;

namespace {

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

// Sends a model as the events of its document; the order of the calls is the order of the
// members. The writer walks the model once and builds no document tree in between.
template <typename Emitter>
class DocumentEvents {
 public:
  DocumentEvents(Emitter& emit, std::string const& hierarchyPrefix) : m_emit(emit), m_names(hierarchyPrefix) {}

  void model(TQLogicalArchModel const& model) {
    m_emit.startObject();
    text(Key::appId, model.getAppID());
    text(Key::schema, model.getSchema());
    text(Key::device, model.getDeviceModel());
    text(Key::platform, model.getPlatform());
    std::vector<TQLogicalTQIPInstance*> kpes;
    model.getTQIPInstances(kpes);
    section(Key::kpeSection, Key::kpePorts, kpes);
    std::vector<TQLogicalNOCIPInstance*> nocs;
    model.getNOCIPInstances(nocs);
    section(Key::nocSection, Key::nocPorts, nocs);
    std::vector<TQLogicalPLIPInstance*> pls;
    model.getPLIPInstances(pls);
    section(Key::plSection, Key::plPorts, pls);
    connections(model);
    m_emit.endObject();
  }

 private:
  void text(char const* key, std::string const& value) {
    if (value.empty()) return;
    m_emit.key(key);
    m_emit.string(value);
  }

  void texts(char const* key, std::vector<std::string> const& values) {
    if (values.empty()) return;
    m_emit.key(key);
    m_emit.startArray();
    for (std::string const& value : values)
      m_emit.string(value);
    m_emit.endArray();
  }

  void count(char const* key, std::uint64_t value) {
    m_emit.key(key);
    m_emit.uint64(value);
  }

  // A section is written when the model has instances of its kind, even if the hierarchy
  // filter leaves none of them.
  template <typename Instance>
  void section(char const* sectionKey, char const* portsKey, std::vector<Instance*> const& instances) {
    if (instances.empty()) return;
    m_emit.key(sectionKey);
    m_emit.startObject();
    for (Instance const* instance : instances) {
      if (!m_names.admits(instance->getName())) continue;
      m_emit.key(m_names.documentName(instance->getName()));
      m_emit.startObject();
      fields(*instance);
      m_emit.key(portsKey);
      m_emit.startObject();
      for (TQLogicalPort const* port : instance->getPorts()) {
        m_emit.key(port->getName());
        portObject(*port);
      }
      m_emit.endObject();
      m_emit.endObject();
    }
    m_emit.endObject();
  }

  void fields(TQLogicalTQIPInstance const& instance) {
    text(Key::vlnvName, instance.getVLNVName());
    text(Key::annotation, instance.getAnnotation());
    text(Key::hwAnnotation, instance.getHWAnnotation());
    text(Key::logicalDevice, instance.getLogicalDeviceJSON());
  }

  void fields(TQLogicalNOCIPInstance const& instance) {
    text(Key::vlnvName, instance.getVLNVName());
    text(Key::annotation, instance.getAnnotation());
    text(Key::hwAnnotation, instance.getHWAnnotation());
    if (instance.getIPType() != TQLogicalIPTypeEnum::Unknown) text(Key::ipType, toText(instance.getIPType()));
  }

  void fields(TQLogicalPLIPInstance const& instance) {
    text(Key::vlnvName, instance.getVLNVName());
    text(Key::ckernelName, instance.getCKernelName());
    text(Key::sdfinstName, instance.getSDFInstName());
    text(Key::annotation, instance.getAnnotation());
    text(Key::hwAnnotation, instance.getHWAnnotation());
  }

  // "parameterIndex" is always written, the other numbers only when set.
  void portObject(TQLogicalPort const& port) {
    m_emit.startObject();
    if (port.getType() != TQLogicalConnectionDataFlowTypeEnum::Unknown) text(Key::type, port.getTypeAsStr());
    if (port.getDirectionType() != TQLogicalPortDirectionTypeEnum::Unknown)
      text(Key::direction, port.getDirectionTypeAsStr());
    if (port.getDataWidth() != 0) count(Key::dataWidth, port.getDataWidth());
    if (port.getBusWidth() != 0) count(Key::busWidth, port.getBusWidth());
    count(Key::parameterIndex, port.getParamIndex());
    if (port.getClkFreq() > 0.0) {
      m_emit.key(Key::clkFreq);
      m_emit.real(port.getClkFreq());
    }
    if (port.getRegisterInterface()) flag(Key::registeredInterface);
    if (port.isTraced()) flag(Key::tracedInterface);
    text(Key::traceFile, port.getTraceFile());
    texts(Key::annotation, port.getAnnotations());
    text(Key::hwAnnotation, port.getHWAnnotation());
    texts(Key::sdfioName, port.getSDFIONames());
    text(Key::vlnvName, port.getVLNVName());
    text(Key::kpechannel, port.getTqChannel());
    m_emit.endObject();
  }

  void flag(char const* key) {
    m_emit.key(key);
    m_emit.boolean(true);
  }

  void portReference(TQLogicalPort const& port) {
    TQLogicalArchLInst const* parent = port.getParentInstance();
    m_emit.startObject();
    m_emit.key(Key::instName);
    m_emit.string(parent != nullptr ? m_names.documentName(parent->getName()) : std::string());
    m_emit.key(Key::portName);
    m_emit.string(port.getName());
    m_emit.endObject();
  }

  void connectionObject(TQLogicalConnection const& connection) {
    m_emit.startObject();
    if (connection.getType() != TQLogicalConnectionDataFlowTypeEnum::Unknown)
      text(Key::type, connection.getTypeAsStr());
    if (TQLogicalPort const* source = connection.getSrcPort()) {
      m_emit.key(Key::srcPort);
      portReference(*source);
    }
    if (!connection.getDstPorts().empty()) {
      m_emit.key(Key::dstPorts);
      m_emit.startArray();
      for (TQLogicalPort const* destination : connection.getDstPorts())
        portReference(*destination);
      m_emit.endArray();
    }
    if (connection.getDirectionType() != TQLogicalConnectionDirectionEnum::Unknown)
      text(Key::direction, connection.getDirectionTypeAsStr());
    if (connection.getMemMode() != TQLogicalConnectionMemModeEnum::Unknown)
      text(Key::memMode, connection.getMemModeAsStr());
    if (connection.getAddrType() != TQLogicalConnectionAddrTypeEnum::Unknown)
      text(Key::addrType, connection.getAddrTypeAsStr());
    m_emit.endObject();
  }

  void connections(TQLogicalArchModel const& model) {
    std::vector<TQLogicalConnection*> connections;
    if (model.getLogicalConnections(connections) == 0) return;
    m_emit.key(Key::connections);
    m_emit.startObject();
    for (TQLogicalConnection const* connection : connections) {
      if (!m_names.admits(connection->getName())) continue;
      m_emit.key(m_names.documentName(connection->getName()));
      connectionObject(*connection);
    }
    m_emit.endObject();
  }

  Emitter& m_emit;
  HierarchyNames m_names;
};

}  // namespace

bool TQLogicalArchWriter::write(std::string const& hierarchyPrefix, std::ostream& out,
                                TQLogicalArchModel const& model) {
  if (model.isEmpty()) return false;
  std::unique_ptr<rapidjson::SchemaDocument> const schema =
      JsonDocumentFrame::loadSchema(NOCJsonReadWriteUtils::getLogicalArchJsonSchemaFile());
  // The result of the validated write is deliberately not looked at: a model that breaks the
  // schema leaves a document cut off where it broke, which is what callers of this writer
  // have always received.
  JsonEventFrame::writeValidated(out, *schema, [&](auto& emitter) {
    DocumentEvents<std::decay_t<decltype(emitter)>>(emitter, hierarchyPrefix).model(model);
  });
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
