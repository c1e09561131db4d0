#ifndef TARVO_TQLOGICALARCHMODEL_H
#define TARVO_TQLOGICALARCHMODEL_H

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "HSTRange.h"
#include "TQLogicalArchLInst.h"
#include "TQLogicalArchModelRenameInterface.h"
#include "TQLogicalArchModelVisitorInterface.h"
#include "TQLogicalArchTypes.h"
#include "TQLogicalConnection.h"
#include "TQLogicalPort.h"

namespace Tarvo {
namespace Frameworks {

// The logical architecture of a KPE design: its instances, their ports, and the logical
// connections between the ports. The model owns instances and connections; pointers it hands
// out stay valid until clear() or its end, also across rename().
class TQLogicalArchModel {
 public:
  typedef std::vector<TQLogicalArchLInst*> Instances;
  typedef HST::Range<Instances::const_iterator> InstanceRange;

  TQLogicalArchModel() = default;
  TQLogicalArchModel(TQLogicalArchModel const&) = delete;
  TQLogicalArchModel& operator=(TQLogicalArchModel const&) = delete;
  ~TQLogicalArchModel();

  // Each gives null when an instance of that name, of any kind, exists.
  TQLogicalTQIPInstance* addTQIPInstance(std::string const& name);
  TQLogicalNOCIPInstance* addNOCIPInstance(std::string const& name);
  TQLogicalPLIPInstance* addPLIPInstance(std::string const& name);
  // Each gives null when the instance already has a port of that name.
  TQLogicalPort* addPLPort(std::string const& name, TQLogicalPLIPInstance& instance);
  TQLogicalPort* addShimPort(std::string const& name, TQLogicalTQIPInstance& instance);
  TQLogicalPort* addNOCPort(std::string const& name, TQLogicalNOCIPInstance& instance);
  // Gives null when the connection map holds the name. The new connection is not entered in
  // that map until rename() rebuilds it, so until then it is neither found by name nor
  // stops a second connection of the same name.
  TQLogicalConnection* addLogicalConnection(std::string const& name);

  std::string getAppID() const { return m_appID; }
  void setAppID(std::string const& appID) { m_appID = appID; }
  std::string getDeviceModel() const { return m_deviceModel; }
  void setDeviceModel(std::string const& device) { m_deviceModel = device; }
  std::string getSchema() const { return m_schema; }
  void setSchema(std::string const& schema) { m_schema = schema; }
  std::string getPlatform() const { return m_platform; }
  void setPlatform(std::string const& platform) { m_platform = platform; }

  // No instances and no connections; the four texts don't count.
  bool isEmpty() const { return m_instances.empty() && m_connections.empty(); }
  // Deletes instances, ports and connections; the four texts stay.
  void clear();

  bool hasLogicalInstance(std::string const& name) const { return m_instanceMap.count(name) != 0; }
  TQLogicalArchLInst* getLogicalInstance(std::string const& name) const;
  bool hasLogicalConnection(std::string const& name) const { return m_connectionMap.count(name) != 0; }
  TQLogicalConnection* getLogicalConnection(std::string const& name) const;

  static bool isTQIPInstance(TQLogicalArchLInst const* instance);
  static bool isNOCIPInstance(TQLogicalArchLInst const* instance);
  static bool isPLIPInstance(TQLogicalArchLInst const* instance);

  InstanceRange getInstances() const { return InstanceRange(m_instances.begin(), m_instances.end()); }
  Instances::const_iterator beginInstItr() const { return m_instances.begin(); }
  Instances::const_iterator endInstItr() const { return m_instances.end(); }

  // These append to `out`, in model order, and return its new size.
  std::uint64_t getLogicalConnections(std::vector<TQLogicalConnection*>& out) const;
  std::uint64_t getTQIPInstances(std::vector<TQLogicalTQIPInstance*>& out) const;
  std::uint64_t getNOCIPInstances(std::vector<TQLogicalNOCIPInstance*>& out) const;
  std::uint64_t getPLIPInstances(std::vector<TQLogicalPLIPInstance*>& out) const;
  std::uint64_t getTQIPLogicalPorts(std::vector<TQLogicalPort*>& out) const;
  std::uint64_t getNOCIPLogicalPorts(std::vector<TQLogicalPort*>& out) const;
  std::uint64_t getPLIPLogicalPorts(std::vector<TQLogicalPort*>& out) const;

  // First port of that name on an instance of that type, in model and port order.
  TQLogicalPort* getLogicalPortByName(std::string const& name, TQLogicalInstanceType type) const;
  // The first hit of the instance's search on the instances of that type, in model order:
  // a hardware match on an early instance beats a software match on a later one.
  TQLogicalPort* getLogicalPortBySWOrHWAnnotation(std::string const& text, TQLogicalInstanceType type) const;
  TQLogicalPort* getEquivalentPortBySWOrHWAnnotation(TQLogicalPort const* port, TQLogicalInstanceType type) const;

  // True when no instance and no connection of `other` has a name that this model's maps hold.
  bool canCopy(TQLogicalArchModel const& other) const;
  // Adds copies of `other`'s instances and connections, the connections attached to the
  // copied ports, and takes its four texts. False, with nothing changed, unless canCopy.
  bool copy(TQLogicalArchModel const& other);

  // Visits every instance, then each connection's ports and the connection, then the model.
  void accept(TQLogicalArchModelVisitorInterface const& visitor) const;
  // Renames instances with their ports, then connections, and rebuilds every map from the
  // lists; where two objects now share a name the later one is found.
  void rename(TQLogicalArchModelRenameInterface& renamer);
  // Gives ports their standard interface names; `hardwareNames` asks for hardware interface
  // names on KPE ports.
  void renameLogicalArchPortNames(bool hardwareNames);

 private:
  template <typename Instance>
  Instance* addInstance(std::string const& name, TQLogicalInstanceType type);
  template <typename Instance>
  std::uint64_t appendInstancesOf(TQLogicalInstanceType type, std::vector<Instance*>& out) const;
  std::uint64_t appendPortsOf(TQLogicalInstanceType type, std::vector<TQLogicalPort*>& out) const;
  // The port of this model that stands where `port` stands in another: same instance
  // name, same port name.
  TQLogicalPort* findCounterpart(TQLogicalPort const* port) const;
  void rebuildMaps();

  std::map<std::string, TQLogicalArchLInst*> m_instanceMap;
  std::map<std::string, TQLogicalConnection*> m_connectionMap;
  Instances m_instances;
  std::vector<TQLogicalConnection*> m_connections;
  std::string m_appID;
  std::string m_deviceModel;
  std::string m_schema;
  std::string m_platform;
};

}  // namespace Frameworks
}  // namespace Tarvo

#endif
