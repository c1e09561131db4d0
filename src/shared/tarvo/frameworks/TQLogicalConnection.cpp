#include "TQLogicalConnection.h"

#include "TQLogicalArchModelRenameInterface.h"
#include "TQLogicalArchModelVisitorInterface.h"
#include "TQLogicalPort.h"

namespace Tarvo {
namespace Frameworks {

TQLogicalConnection::TQLogicalConnection(std::string const& name) : _Named(name) {}

TQLogicalConnection::TQLogicalConnection(TQLogicalConnection const& other)
    : _Named(other),
      m_type(other.m_type),
      m_memMode(other.m_memMode),
      m_addrType(other.m_addrType),
      m_direction(other.m_direction) {}

TQLogicalConnection* TQLogicalConnection::clone() const {
  return new TQLogicalConnection(*this);
}

void TQLogicalConnection::setSrcPort(TQLogicalPort* port) {
  m_srcPort = port;
  port->setLogicalConnection(this);
}

void TQLogicalConnection::addDstPort(TQLogicalPort* port) {
  m_dstPorts.push_back(port);
  port->setLogicalConnection(this);
}

std::uint64_t TQLogicalConnection::getDstPorts(std::vector<TQLogicalPort*>& out) const {
  out.insert(out.end(), m_dstPorts.begin(), m_dstPorts.end());
  return out.size();
}

void TQLogicalConnection::accept(TQLogicalArchModelVisitorInterface const& visitor) const {
  if (m_srcPort) m_srcPort->accept(visitor);
  for (TQLogicalPort const* port : m_dstPorts)
    port->accept(visitor);
  visitor.visitConnection(*this);
}

void TQLogicalConnection::rename(TQLogicalArchModelRenameInterface& renamer) {
  renamer.renameConnection(*this);
}

}  // namespace Frameworks
}  // namespace Tarvo
