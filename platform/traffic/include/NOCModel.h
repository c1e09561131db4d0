#ifndef TARVO_NOCMODEL_H
#define TARVO_NOCMODEL_H

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "Component.h"
#include "DevHrdIPDefinitions.h"
#include "Link.h"

namespace DevHrdIP {

// The NoC of a device: its components and the links between their ports. Owns both; the
// pointers it hands out stay valid while it lives. Component names are unique across
// top-level components and ports.
class NOCModel {
 public:
  NOCModel();
  ~NOCModel();
  NOCModel(NOCModel const&) = delete;
  NOCModel& operator=(NOCModel const&) = delete;

  // Null when the name is taken.
  Component* addComponent(std::string const& name, Definitions::COMP_TYPE compType, Definitions::CompRole role);
  // A port sub-component of `parent`, appended to its ports; null when the name is taken.
  Component* addPortComponent(Component* parent, std::string const& name, Definitions::COMP_TYPE compType,
                              Definitions::CompRole role);
  // Null when the same link (both components, both port names) exists already.
  Link* addLink(Component* src, std::string const& srcPort, Component* dst, std::string const& dstPort,
                unsigned latency);

  // Any component by name, a port sub-component too; null if there is none.
  Component const* getComponent(std::string const& name) const;
  Component* getComponent(std::string const& name);
  // The link between the named ports of the named components; null if there is none.
  Link const* getLinkBetween(std::string const& srcComponent, std::string const& srcPort,
                             std::string const& dstComponent, std::string const& dstPort) const;

  // Top-level components in the order they were added.
  std::vector<Component const*> const& getAllTopLevelComponents() const { return m_topLevel; }
  std::size_t getNumComponents() const { return m_components.size(); }
  std::size_t getNumLinks() const { return m_links.size(); }

 private:
  Component* enter(std::unique_ptr<Component> component);

  std::vector<std::unique_ptr<Component>> m_components;
  std::vector<std::unique_ptr<Link>> m_links;
  std::unordered_map<std::string, Component*> m_byName;
  std::vector<Component const*> m_topLevel;
};

}  // namespace DevHrdIP

#endif
