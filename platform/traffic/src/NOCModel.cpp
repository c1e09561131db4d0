#include "NOCModel.h"

namespace DevHrdIP {

using namespace Definitions;

NOCModel::NOCModel() = default;

NOCModel::~NOCModel() = default;

Component* NOCModel::addComponent(std::string const& name, COMP_TYPE compType, CompRole role) {
  Component* component = enter(std::unique_ptr<Component>(new Component(name, compType, role, nullptr)));
  if (component != nullptr) m_topLevel.push_back(component);
  return component;
}

Component* NOCModel::addPortComponent(Component* parent, std::string const& name, COMP_TYPE compType, CompRole role) {
  Component* port = enter(std::unique_ptr<Component>(new Component(name, compType, role, parent)));
  if (port != nullptr) parent->m_ports.push_back(port);
  return port;
}

Link* NOCModel::addLink(Component* src, std::string const& srcPort, Component* dst, std::string const& dstPort,
                        unsigned latency) {
  if (src->getOutgoingLink(srcPort, dst->getName(), dstPort) != nullptr) return nullptr;
  m_links.emplace_back(new Link(src, srcPort, dst, dstPort, latency));
  Link* link = m_links.back().get();
  src->m_outgoingLinks.push_back(link);
  return link;
}

Component const* NOCModel::getComponent(std::string const& name) const {
  auto const found = m_byName.find(name);
  return found == m_byName.end() ? nullptr : found->second;
}

Component* NOCModel::getComponent(std::string const& name) {
  auto const found = m_byName.find(name);
  return found == m_byName.end() ? nullptr : found->second;
}

Link const* NOCModel::getLinkBetween(std::string const& srcComponent, std::string const& srcPort,
                                     std::string const& dstComponent, std::string const& dstPort) const {
  Component const* src = getComponent(srcComponent);
  return src == nullptr ? nullptr : src->getOutgoingLink(srcPort, dstComponent, dstPort);
}

Component* NOCModel::enter(std::unique_ptr<Component> component) {
  if (!m_byName.emplace(component->getName(), component.get()).second) return nullptr;
  m_components.push_back(std::move(component));
  return m_components.back().get();
}

}  // namespace DevHrdIP
