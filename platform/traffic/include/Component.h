#ifndef TARVO_COMPONENT_H
#define TARVO_COMPONENT_H

#include <string>
#include <vector>

#include "DevHrdIPDefinitions.h"

namespace DevHrdIP {

class Link;
class NOCModel;

// A physical block of the NoC: a switch, a master or slave unit, a memory controller. A
// memory controller's ports are components of their own, its port sub-components. Made and
// owned by its NOCModel.
class Component {
 public:
  Component(Component const&) = delete;
  Component& operator=(Component const&) = delete;

  std::string const& getName() const { return m_name; }
  Definitions::COMP_TYPE getCompType() const { return m_compType; }
  // ROLE_MASTER (0), ROLE_SLAVE (1) or ROLE_NONE.
  Definitions::CompRole getRole() const { return m_role; }
  // The component whose port this is; null for a top-level component.
  Component const* getParent() const { return m_parent; }
  // The port sub-components, in the order the device lists them.
  std::vector<Component const*> const& getPorts() const { return m_ports; }
  bool hasPorts() const { return !m_ports.empty(); }
  // The links that leave this component, in the order they were added.
  std::vector<Link const*> const& getOutgoingLinks() const { return m_outgoingLinks; }
  // The link from the named port of this component to the named port of another; null if
  // there is none.
  Link const* getOutgoingLink(std::string const& srcPort, std::string const& dstComponent,
                              std::string const& dstPort) const;

 private:
  friend class NOCModel;
  Component(std::string const& name, Definitions::COMP_TYPE compType, Definitions::CompRole role,
            Component const* parent)
      : m_name(name), m_compType(compType), m_role(role), m_parent(parent) {}

  std::string m_name;
  Definitions::COMP_TYPE m_compType;
  Definitions::CompRole m_role;
  Component const* m_parent;
  std::vector<Component const*> m_ports;
  std::vector<Link const*> m_outgoingLinks;
};

}  // namespace DevHrdIP

#endif
