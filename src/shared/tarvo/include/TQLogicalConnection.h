#ifndef TARVO_TQLOGICALCONNECTION_H
#define TARVO_TQLOGICALCONNECTION_H

#include <cstdint>
#include <string>
#include <vector>

#include "HSTRange.h"
#include "TQLogicalArchTypes.h"

namespace Tarvo {
namespace Frameworks {

class TQLogicalPort;
class TQLogicalArchModelVisitorInterface;
class TQLogicalArchModelRenameInterface;

// A logical connection from one source port to any number of destination ports. The ports
// are borrowed from their instances.
class TQLogicalConnection : public _Named {
 public:
  typedef std::vector<TQLogicalPort*> Ports;
  typedef HST::Range<Ports::const_iterator> PortRange;

  explicit TQLogicalConnection(std::string const& name);
  // Copies the name and the four enumerations; no source, no destinations.
  TQLogicalConnection(TQLogicalConnection const& other);
  TQLogicalConnection& operator=(TQLogicalConnection const&) = delete;

  TQLogicalConnection* clone() const;

  std::string const& getName() const { return m_name; }
  void setName(std::string const& name) { m_name = name; }

  TQLogicalPort* getSrcPort() const { return m_srcPort; }
  // Also attaches `port` to this connection; `port` must not be null.
  void setSrcPort(TQLogicalPort* port);
  // Appends `port`, duplicates included, and attaches it to this connection.
  void addDstPort(TQLogicalPort* port);
  // Appends the destinations to `out`; returns the new size of `out`.
  std::uint64_t getDstPorts(std::vector<TQLogicalPort*>& out) const;
  PortRange getDstPorts() const { return PortRange(m_dstPorts.begin(), m_dstPorts.end()); }
  Ports::const_iterator beginDstPortItr() const { return m_dstPorts.begin(); }
  Ports::const_iterator endDstPortItr() const { return m_dstPorts.end(); }

  TQLogicalConnectionDataFlowTypeEnum getType() const { return m_type; }
  void setType(TQLogicalConnectionDataFlowTypeEnum type) { m_type = type; }
  char const* getTypeAsStr() const { return toText(m_type); }
  TQLogicalConnectionMemModeEnum getMemMode() const { return m_memMode; }
  void setMemMode(TQLogicalConnectionMemModeEnum mode) { m_memMode = mode; }
  char const* getMemModeAsStr() const { return toText(m_memMode); }
  TQLogicalConnectionAddrTypeEnum getAddrType() const { return m_addrType; }
  void setAddrType(TQLogicalConnectionAddrTypeEnum type) { m_addrType = type; }
  char const* getAddrTypeAsStr() const { return toText(m_addrType); }
  TQLogicalConnectionDirectionEnum getDirectionType() const { return m_direction; }
  void setDirectionType(TQLogicalConnectionDirectionEnum direction) { m_direction = direction; }
  char const* getDirectionTypeAsStr() const { return toText(m_direction); }

  // Visits the source, each destination, then the connection.
  void accept(TQLogicalArchModelVisitorInterface const& visitor) const;
  void rename(TQLogicalArchModelRenameInterface& renamer);

 private:
  TQLogicalPort* m_srcPort = nullptr;
  Ports m_dstPorts;
  TQLogicalConnectionDataFlowTypeEnum m_type = TQLogicalConnectionDataFlowTypeEnum::Unknown;
  TQLogicalConnectionMemModeEnum m_memMode = TQLogicalConnectionMemModeEnum::Unknown;
  TQLogicalConnectionAddrTypeEnum m_addrType = TQLogicalConnectionAddrTypeEnum::Unknown;
  TQLogicalConnectionDirectionEnum m_direction = TQLogicalConnectionDirectionEnum::Unknown;
};

}  // namespace Frameworks
}  // namespace Tarvo

#endif
