#include "TQLogicalArchLInst.h"

#include <set>

#include "TQLogicalArchModelRenameInterface.h"
#include "TQLogicalArchModelVisitorInterface.h"
#include "TQLogicalPort.h"

namespace Tarvo {
namespace Frameworks {

TQLogicalArchLInst::TQLogicalArchLInst(std::string const& name) : _Named(name) {}

TQLogicalArchLInst::TQLogicalArchLInst(TQLogicalArchLInst const& other)
    : _Named(other), m_hwAnnotation(other.m_hwAnnotation), m_type(other.m_type) {}

TQLogicalArchLInst::~TQLogicalArchLInst() {
  for (TQLogicalPort* port : m_ports)
    delete port;
}

TQLogicalArchLInst* TQLogicalArchLInst::clone() const {
  auto* copy = new TQLogicalArchLInst(*this);
  clonePortsInto(*copy);
  return copy;
}

void TQLogicalArchLInst::clonePortsInto(TQLogicalArchLInst& target) const {
  for (TQLogicalPort const* port : m_ports)
    target.addPort(new TQLogicalPort(*port));
}

TQLogicalPort* TQLogicalArchLInst::addPort(std::string const& name) {
  return addPort(new TQLogicalPort(name));
}

TQLogicalPort* TQLogicalArchLInst::addPort(TQLogicalPort* port) {
  m_ports.push_back(port);
  m_portMap[port->getName()] = port;
  port->setParentInstance(this);
  return port;
}

TQLogicalPort* TQLogicalArchLInst::getLogicalPort(std::string const& name) const {
  auto const found = m_portMap.find(name);
  return found == m_portMap.end() ? nullptr : found->second;
}

TQLogicalPort* TQLogicalArchLInst::getLogicalPortByName(std::string const& name) const {
  for (TQLogicalPort* port : m_ports)
    if (port->getName() == name) return port;
  return nullptr;
}

TQLogicalPort* TQLogicalArchLInst::getLogicalPortBySWOrHWAnnotation(std::string const& text) const {
  for (TQLogicalPort* port : m_ports)
    if (port->matchSWAnnotation(text)) return port;
  for (TQLogicalPort* port : m_ports)
    if (!port->getHWAnnotation().empty() && port->getHWAnnotation() == text) return port;
  return nullptr;
}

TQLogicalPort* TQLogicalArchLInst::getEquivalentPortBySWOrHWAnnotation(TQLogicalPort const* port) const {
  std::set<std::string> texts;
  for (auto const& annotation : port->getAnnotations())
    if (!annotation.empty()) texts.insert(annotation);
  if (!port->getHWAnnotation().empty()) texts.insert(port->getHWAnnotation());
  for (auto const& text : texts)
    if (TQLogicalPort* found = getLogicalPortBySWOrHWAnnotation(text)) return found;
  return nullptr;
}

void TQLogicalArchLInst::rename(TQLogicalArchModelRenameInterface& renamer) {
  renamer.renameInstance(*this);
  for (TQLogicalPort* port : m_ports)
    port->rename(renamer);
}

void TQLogicalArchLInst::accept(TQLogicalArchModelVisitorInterface const& visitor) const {
  visitor.visitInstance(*this);
}

void TQLogicalArchLInst::rebuildPortMap() {
  m_portMap.clear();
  for (TQLogicalPort* port : m_ports)
    m_portMap[port->getName()] = port;
}

TQLogicalTQIPInstance* TQLogicalTQIPInstance::clone() const {
  auto* copy = new TQLogicalTQIPInstance(*this);
  clonePortsInto(*copy);
  return copy;
}

TQLogicalNOCIPInstance* TQLogicalNOCIPInstance::clone() const {
  auto* copy = new TQLogicalNOCIPInstance(*this);
  clonePortsInto(*copy);
  return copy;
}

TQLogicalPLIPInstance* TQLogicalPLIPInstance::clone() const {
  auto* copy = new TQLogicalPLIPInstance(*this);
  clonePortsInto(*copy);
  return copy;
}

}  // namespace Frameworks
}  // namespace Tarvo
