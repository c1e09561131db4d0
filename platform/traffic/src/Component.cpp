#include "Component.h"

#include "Link.h"

namespace DevHrdIP {

// A component has a handful of outgoing links, so a scan beats building a key of four names.
Link const* Component::getOutgoingLink(std::string const& srcPort, std::string const& dstComponent,
                                       std::string const& dstPort) const {
  for (Link const* link : m_outgoingLinks) {
    if (link->getSrcPortName() == srcPort && link->getDstPortName() == dstPort &&
        link->getDstComponent()->getName() == dstComponent)
      return link;
  }
  return nullptr;
}

}  // namespace DevHrdIP
