#include "TQLogicalArchModel.h"

#include "LogicalArchWriterModelRenamer.h"

namespace Tarvo {
namespace Frameworks {

namespace {

TQLogicalPort* addNewPort(std::string const& name, TQLogicalArchLInst& instance) {
  if (instance.hasLogicalPort(name)) return nullptr;
  return instance.addPort(new TQLogicalPort(name));
}

bool isOfType(TQLogicalArchLInst const* instance, TQLogicalInstanceType type) {
  return instance != nullptr && instance->getType() == type;
}

}  // namespace

TQLogicalArchModel::~TQLogicalArchModel() {
  clear();
}

template <typename Instance>
Instance* TQLogicalArchModel::addInstance(std::string const& name, TQLogicalInstanceType type) {
  if (hasLogicalInstance(name)) return nullptr;
  auto* instance = new Instance(name);
  instance->setType(type);
  m_instances.push_back(instance);
  m_instanceMap[name] = instance;
  return instance;
}

TQLogicalTQIPInstance* TQLogicalArchModel::addTQIPInstance(std::string const& name) {
  return addInstance<TQLogicalTQIPInstance>(name, TQLogicalInstanceType::KPEIP);
}

TQLogicalNOCIPInstance* TQLogicalArchModel::addNOCIPInstance(std::string const& name) {
  return addInstance<TQLogicalNOCIPInstance>(name, TQLogicalInstanceType::NOCIP);
}

TQLogicalPLIPInstance* TQLogicalArchModel::addPLIPInstance(std::string const& name) {
  return addInstance<TQLogicalPLIPInstance>(name, TQLogicalInstanceType::PLIP);
}

TQLogicalPort* TQLogicalArchModel::addPLPort(std::string const& name, TQLogicalPLIPInstance& instance) {
  return addNewPort(name, instance);
}

TQLogicalPort* TQLogicalArchModel::addShimPort(std::string const& name, TQLogicalTQIPInstance& instance) {
  return addNewPort(name, instance);
}

TQLogicalPort* TQLogicalArchModel::addNOCPort(std::string const& name, TQLogicalNOCIPInstance& instance) {
  return addNewPort(name, instance);
}

TQLogicalConnection* TQLogicalArchModel::addLogicalConnection(std::string const& name) {
  if (hasLogicalConnection(name)) return nullptr;
  auto* connection = new TQLogicalConnection(name);
  m_connections.push_back(connection);
  return connection;
}

void TQLogicalArchModel::clear() {
  for (TQLogicalArchLInst* instance : m_instances)
    delete instance;
  for (TQLogicalConnection* connection : m_connections)
    delete connection;
  m_instances.clear();
  m_connections.clear();
  m_instanceMap.clear();
  m_connectionMap.clear();
}

TQLogicalArchLInst* TQLogicalArchModel::getLogicalInstance(std::string const& name) const {
  auto const found = m_instanceMap.find(name);
  return found == m_instanceMap.end() ? nullptr : found->second;
}

TQLogicalConnection* TQLogicalArchModel::getLogicalConnection(std::string const& name) const {
  auto const found = m_connectionMap.find(name);
  return found == m_connectionMap.end() ? nullptr : found->second;
}

bool TQLogicalArchModel::isTQIPInstance(TQLogicalArchLInst const* instance) {
  return isOfType(instance, TQLogicalInstanceType::KPEIP);
}

bool TQLogicalArchModel::isNOCIPInstance(TQLogicalArchLInst const* instance) {
  return isOfType(instance, TQLogicalInstanceType::NOCIP);
}

bool TQLogicalArchModel::isPLIPInstance(TQLogicalArchLInst const* instance) {
  return isOfType(instance, TQLogicalInstanceType::PLIP);
}

std::uint64_t TQLogicalArchModel::getLogicalConnections(std::vector<TQLogicalConnection*>& out) const {
  out.insert(out.end(), m_connections.begin(), m_connections.end());
  return out.size();
}

// An instance whose type was changed to one its class doesn't have is left out rather
// than cast to the wrong class.
template <typename Instance>
std::uint64_t TQLogicalArchModel::appendInstancesOf(TQLogicalInstanceType type, std::vector<Instance*>& out) const {
  for (TQLogicalArchLInst* instance : m_instances)
    if (instance->getType() == type)
      if (auto* typed = dynamic_cast<Instance*>(instance)) out.push_back(typed);
  return out.size();
}

std::uint64_t TQLogicalArchModel::getTQIPInstances(std::vector<TQLogicalTQIPInstance*>& out) const {
  return appendInstancesOf(TQLogicalInstanceType::KPEIP, out);
}

std::uint64_t TQLogicalArchModel::getNOCIPInstances(std::vector<TQLogicalNOCIPInstance*>& out) const {
  return appendInstancesOf(TQLogicalInstanceType::NOCIP, out);
}

std::uint64_t TQLogicalArchModel::getPLIPInstances(std::vector<TQLogicalPLIPInstance*>& out) const {
  return appendInstancesOf(TQLogicalInstanceType::PLIP, out);
}

std::uint64_t TQLogicalArchModel::appendPortsOf(TQLogicalInstanceType type, std::vector<TQLogicalPort*>& out) const {
  for (TQLogicalArchLInst const* instance : m_instances)
    if (instance->getType() == type) out.insert(out.end(), instance->beginPortItr(), instance->endPortItr());
  return out.size();
}

std::uint64_t TQLogicalArchModel::getTQIPLogicalPorts(std::vector<TQLogicalPort*>& out) const {
  return appendPortsOf(TQLogicalInstanceType::KPEIP, out);
}

std::uint64_t TQLogicalArchModel::getNOCIPLogicalPorts(std::vector<TQLogicalPort*>& out) const {
  return appendPortsOf(TQLogicalInstanceType::NOCIP, out);
}

std::uint64_t TQLogicalArchModel::getPLIPLogicalPorts(std::vector<TQLogicalPort*>& out) const {
  return appendPortsOf(TQLogicalInstanceType::PLIP, out);
}

TQLogicalPort* TQLogicalArchModel::getLogicalPortByName(std::string const& name, TQLogicalInstanceType type) const {
  for (TQLogicalArchLInst const* instance : m_instances)
    if (instance->getType() == type)
      if (TQLogicalPort* port = instance->getLogicalPortByName(name)) return port;
  return nullptr;
}

TQLogicalPort* TQLogicalArchModel::getLogicalPortBySWOrHWAnnotation(std::string const& text,
                                                                    TQLogicalInstanceType type) const {
  for (TQLogicalArchLInst const* instance : m_instances)
    if (instance->getType() == type)
      if (TQLogicalPort* port = instance->getLogicalPortBySWOrHWAnnotation(text)) return port;
  return nullptr;
}

TQLogicalPort* TQLogicalArchModel::getEquivalentPortBySWOrHWAnnotation(TQLogicalPort const* port,
                                                                       TQLogicalInstanceType type) const {
  for (TQLogicalArchLInst const* instance : m_instances)
    if (instance->getType() == type)
      if (TQLogicalPort* found = instance->getEquivalentPortBySWOrHWAnnotation(port)) return found;
  return nullptr;
}

bool TQLogicalArchModel::canCopy(TQLogicalArchModel const& other) const {
  for (TQLogicalArchLInst const* instance : other.m_instances)
    if (hasLogicalInstance(instance->getName())) return false;
  for (TQLogicalConnection const* connection : other.m_connections)
    if (hasLogicalConnection(connection->getName())) return false;
  return true;
}

TQLogicalPort* TQLogicalArchModel::findCounterpart(TQLogicalPort const* port) const {
  if (port == nullptr || port->getParentInstance() == nullptr) return nullptr;
  TQLogicalArchLInst const* instance = getLogicalInstance(port->getParentInstance()->getName());
  return instance ? instance->getLogicalPort(port->getName()) : nullptr;
}

bool TQLogicalArchModel::copy(TQLogicalArchModel const& other) {
  if (!canCopy(other)) return false;
  // Counts taken first: a model copied onto itself must not walk what it appends.
  std::size_t const instanceCount = other.m_instances.size();
  std::size_t const connectionCount = other.m_connections.size();
  for (std::size_t i = 0; i < instanceCount; ++i) {
    TQLogicalArchLInst* clone = other.m_instances[i]->clone();
    m_instances.push_back(clone);
    m_instanceMap[clone->getName()] = clone;
  }
  for (std::size_t i = 0; i < connectionCount; ++i) {
    TQLogicalConnection const* source = other.m_connections[i];
    TQLogicalConnection* copied = source->clone();
    if (TQLogicalPort* port = findCounterpart(source->getSrcPort())) copied->setSrcPort(port);
    for (TQLogicalPort const* destination : source->getDstPorts())
      if (TQLogicalPort* port = findCounterpart(destination)) copied->addDstPort(port);
    m_connections.push_back(copied);
    m_connectionMap[copied->getName()] = copied;
  }
  m_appID = other.m_appID;
  m_deviceModel = other.m_deviceModel;
  m_schema = other.m_schema;
  m_platform = other.m_platform;
  return true;
}

void TQLogicalArchModel::accept(TQLogicalArchModelVisitorInterface const& visitor) const {
  for (TQLogicalArchLInst const* instance : m_instances)
    instance->accept(visitor);
  for (TQLogicalConnection const* connection : m_connections)
    connection->accept(visitor);
  visitor.visitModel(*this);
}

void TQLogicalArchModel::rename(TQLogicalArchModelRenameInterface& renamer) {
  for (TQLogicalArchLInst* instance : m_instances)
    instance->clearPortMap();
  m_instanceMap.clear();
  m_connectionMap.clear();
  for (TQLogicalArchLInst* instance : m_instances)
    instance->rename(renamer);
  for (TQLogicalConnection* connection : m_connections)
    connection->rename(renamer);
  rebuildMaps();
}

void TQLogicalArchModel::rebuildMaps() {
  for (TQLogicalArchLInst* instance : m_instances)
    instance->rebuildPortMap();
  for (TQLogicalArchLInst* instance : m_instances)
    m_instanceMap[instance->getName()] = instance;
  for (TQLogicalConnection* connection : m_connections)
    m_connectionMap[connection->getName()] = connection;
}

void TQLogicalArchModel::renameLogicalArchPortNames(bool hardwareNames) {
  LogicalArchWriterModelRenamer renamer(hardwareNames);
  rename(renamer);
}

}  // namespace Frameworks
}  // namespace Tarvo
