#ifndef TARVO_TQLOGICALARCHLINST_H
#define TARVO_TQLOGICALARCHLINST_H

#include <map>
#include <string>
#include <vector>

#include "HSTRange.h"
#include "TQLogicalArchTypes.h"

namespace Tarvo {
namespace Frameworks {

class TQLogicalPort;
class TQLogicalArchModel;
class TQLogicalArchModelVisitorInterface;
class TQLogicalArchModelRenameInterface;

// An IP instance of the logical architecture. It owns its ports.
class TQLogicalArchLInst : public _Named {
 public:
  typedef std::vector<TQLogicalPort*> Ports;
  typedef HST::Range<Ports::const_iterator> PortRange;

  explicit TQLogicalArchLInst(std::string const& name);
  // Copies the name, the hardware annotation and the type; no ports.
  TQLogicalArchLInst(TQLogicalArchLInst const& other);
  TQLogicalArchLInst& operator=(TQLogicalArchLInst const&) = delete;
  virtual ~TQLogicalArchLInst();

  // A copy of the same class with copies of all ports, none of them connected.
  virtual TQLogicalArchLInst* clone() const;

  std::string const& getName() const { return m_name; }
  // Changes the field only: maps that hold the old name keep it.
  void setName(std::string const& name) { m_name = name; }
  std::string const& getHWAnnotation() const { return m_hwAnnotation; }
  void setHWAnnotation(std::string const& annotation) { m_hwAnnotation = annotation; }
  TQLogicalInstanceType getType() const { return m_type; }
  void setType(TQLogicalInstanceType type) { m_type = type; }
  char const* getTypeAsStr() const { return toText(m_type); }

  // Makes a port and enters it under its name, replacing an earlier entry of that name; the
  // earlier port stays in the port list.
  TQLogicalPort* addPort(std::string const& name);
  // Takes ownership of `port`, entered as above.
  TQLogicalPort* addPort(TQLogicalPort* port);

  bool hasLogicalPort(std::string const& name) const { return m_portMap.count(name) != 0; }
  TQLogicalPort* getLogicalPort(std::string const& name) const;
  // First port of that name in port order, also one the map no longer shows.
  TQLogicalPort* getLogicalPortByName(std::string const& name) const;
  // The first port with `text` as a software annotation; failing that, the first with it
  // as hardware annotation; otherwise null.
  TQLogicalPort* getLogicalPortBySWOrHWAnnotation(std::string const& text) const;
  // The port here that stands for the same object as `port` (possibly of another model),
  // trying its annotations and hardware annotation in ascending byte order.
  TQLogicalPort* getEquivalentPortBySWOrHWAnnotation(TQLogicalPort const* port) const;

  PortRange getPorts() const { return PortRange(m_ports.begin(), m_ports.end()); }
  Ports::const_iterator beginPortItr() const { return m_ports.begin(); }
  Ports::const_iterator endPortItr() const { return m_ports.end(); }

  // Renames the instance, then its ports in order.
  void rename(TQLogicalArchModelRenameInterface& renamer);
  // Visits the instance only, not its ports.
  void accept(TQLogicalArchModelVisitorInterface const& visitor) const;

 protected:
  // Gives `target` copies of this instance's ports.
  void clonePortsInto(TQLogicalArchLInst& target) const;

 private:
  friend class TQLogicalArchModel;
  void clearPortMap() { m_portMap.clear(); }
  void rebuildPortMap();

  std::string m_hwAnnotation;
  TQLogicalInstanceType m_type = TQLogicalInstanceType::Unknown;
  std::map<std::string, TQLogicalPort*> m_portMap;
  Ports m_ports;
};

// An instance of the KPE array.
class TQLogicalTQIPInstance : public TQLogicalArchLInst {
 public:
  explicit TQLogicalTQIPInstance(std::string const& name) : TQLogicalArchLInst(name) {}
  TQLogicalTQIPInstance(TQLogicalTQIPInstance const& other) = default;
  ~TQLogicalTQIPInstance() override = default;
  TQLogicalTQIPInstance* clone() const override;

  std::string const& getVLNVName() const { return m_vlnvName; }
  void setVLNVName(std::string const& name) { m_vlnvName = name; }
  std::string const& getAnnotation() const { return m_annotation; }
  void setAnnotation(std::string const& annotation) { m_annotation = annotation; }
  std::string const& getLogicalDeviceJSON() const { return m_logicalDeviceJSON; }
  void setLogicalDeviceJSON(std::string const& json) { m_logicalDeviceJSON = json; }

 private:
  std::string m_vlnvName;
  std::string m_annotation;
  std::string m_logicalDeviceJSON;
};

// An instance of the NoC.
class TQLogicalNOCIPInstance : public TQLogicalArchLInst {
 public:
  explicit TQLogicalNOCIPInstance(std::string const& name) : TQLogicalArchLInst(name) {}
  TQLogicalNOCIPInstance(TQLogicalNOCIPInstance const& other) = default;
  ~TQLogicalNOCIPInstance() override = default;
  TQLogicalNOCIPInstance* clone() const override;

  std::string const& getVLNVName() const { return m_vlnvName; }
  void setVLNVName(std::string const& name) { m_vlnvName = name; }
  std::string const& getAnnotation() const { return m_annotation; }
  void setAnnotation(std::string const& annotation) { m_annotation = annotation; }
  TQLogicalIPTypeEnum getIPType() const { return m_ipType; }
  void setIPType(TQLogicalIPTypeEnum type) { m_ipType = type; }

 private:
  std::string m_vlnvName;
  std::string m_annotation;
  TQLogicalIPTypeEnum m_ipType = TQLogicalIPTypeEnum::Mem;
};

// An instance in the programmable logic.
class TQLogicalPLIPInstance : public TQLogicalArchLInst {
 public:
  explicit TQLogicalPLIPInstance(std::string const& name) : TQLogicalArchLInst(name) {}
  TQLogicalPLIPInstance(TQLogicalPLIPInstance const& other) = default;
  ~TQLogicalPLIPInstance() override = default;
  TQLogicalPLIPInstance* clone() const override;

  std::string const& getVLNVName() const { return m_vlnvName; }
  void setVLNVName(std::string const& name) { m_vlnvName = name; }
  std::string const& getCKernelName() const { return m_cKernelName; }
  void setCKernelName(std::string const& name) { m_cKernelName = name; }
  std::string const& getSDFInstName() const { return m_sdfInstName; }
  void setSDFInstName(std::string const& name) { m_sdfInstName = name; }
  std::string const& getAnnotation() const { return m_annotation; }
  void setAnnotation(std::string const& annotation) { m_annotation = annotation; }

 private:
  std::string m_vlnvName;
  std::string m_cKernelName;
  std::string m_sdfInstName;
  std::string m_annotation;
};

}  // namespace Frameworks
}  // namespace Tarvo

#endif
