#ifndef TARVO_TQLOGICALPORT_H
#define TARVO_TQLOGICALPORT_H

#include <cstdint>
#include <string>
#include <vector>

#include "TQLogicalArchTypes.h"

namespace Tarvo {
namespace Frameworks {

class TQLogicalArchLInst;
class TQLogicalConnection;
class TQLogicalArchModelVisitorInterface;
class TQLogicalArchModelRenameInterface;

// One port of an instance of the logical architecture. Its instance owns it; a connection
// only points at it.
class TQLogicalPort : public _Named {
 public:
  explicit TQLogicalPort(std::string const& name);
  // Copies every field but the parent instance and the connection, which stay null.
  TQLogicalPort(TQLogicalPort const& other);
  TQLogicalPort& operator=(TQLogicalPort const&) = delete;

  TQLogicalPort* clone() const;

  std::string const& getName() const { return m_name; }
  void setName(std::string const& name) { m_name = name; }
  double getClkFreq() const { return m_clkFreq; }
  void setClkFreq(double clkFreq) { m_clkFreq = clkFreq; }
  std::uint32_t getDataWidth() const { return m_dataWidth; }
  void setDataWidth(std::uint32_t width) { m_dataWidth = width; }
  std::uint32_t getBusWidth() const { return m_busWidth; }
  void setBusWidth(std::uint32_t width) { m_busWidth = width; }
  std::uint32_t getParamIndex() const { return m_paramIndex; }
  void setParamIndex(std::uint32_t index) { m_paramIndex = index; }
  std::string const& getTraceFile() const { return m_traceFile; }
  void setTraceFile(std::string const& file) { m_traceFile = file; }
  std::string const& getTqChannel() const { return m_tqChannel; }
  void setTqChannel(std::string const& channel) { m_tqChannel = channel; }
  std::vector<std::string> const& getTqChannelFullHierNames() const { return m_tqChannelFullHierNames; }
  void addTqChannelFullHierName(std::string const& name) { m_tqChannelFullHierNames.push_back(name); }

  // Software annotations.
  std::vector<std::string> const& getAnnotations() const { return m_annotations; }
  void setAnnotations(std::vector<std::string> const& annotations) { m_annotations = annotations; }
  void addAnnotation(std::string const& annotation) { m_annotations.push_back(annotation); }
  // The first annotation, or empty.
  std::string getAnnotationFirst() const;
  // Despite its name it looks at the software annotations only, exactly as
  // getAnnotationFirst; callers depend on that.
  std::string getHWAnnotationORAnnotationFirst() const;
  // The non-empty annotations joined by ";".
  std::string getAnnotationsAsString() const;
  // True when `text` is not empty and is one of the annotations.
  bool matchSWAnnotation(std::string const& text) const;
  // True when any non-empty text of `texts` is one of the annotations.
  bool matchSWAnnotation(std::vector<std::string> const& texts) const;

  std::string const& getHWAnnotation() const { return m_hwAnnotation; }
  void setHWAnnotation(std::string const& annotation) { m_hwAnnotation = annotation; }

  std::vector<std::string> const& getSDFIONames() const { return m_sdfIONames; }
  void setSDFIONames(std::vector<std::string> const& names) { m_sdfIONames = names; }
  void addSDFIOName(std::string const& name) { m_sdfIONames.push_back(name); }
  std::string getSDFIONameFirst() const;
  std::string getSDFIONamesAsString() const;

  std::string const& getVLNVName() const { return m_vlnvName; }
  void setVLNVName(std::string const& name) { m_vlnvName = name; }

  TQLogicalArchLInst const* getParentInstance() const { return m_parent; }
  void setParentInstance(TQLogicalArchLInst const* parent) { m_parent = parent; }
  // The connection the port was last attached to.
  TQLogicalConnection const* getLogicalConnection() const { return m_connection; }
  void setLogicalConnection(TQLogicalConnection const* connection) { m_connection = connection; }

  TQLogicalConnectionDataFlowTypeEnum getType() const { return m_type; }
  void setType(TQLogicalConnectionDataFlowTypeEnum type) { m_type = type; }
  char const* getTypeAsStr() const { return toText(m_type); }
  TQLogicalPortDirectionTypeEnum getDirectionType() const { return m_direction; }
  void setDirectionType(TQLogicalPortDirectionTypeEnum direction) { m_direction = direction; }
  char const* getDirectionTypeAsStr() const { return toText(m_direction); }

  bool getRegisterInterface() const { return m_registerInterface; }
  void setRegisterInterface(bool registered) { m_registerInterface = registered; }
  bool isTraced() const { return m_traced; }
  void setIsTraced(bool traced) { m_traced = traced; }

  // A memory-mapped port; every other port, unknown or event ones too, counts as PLIO.
  bool isGMIO() const { return m_type == TQLogicalConnectionDataFlowTypeEnum::Mem; }
  bool isPLIO() const { return !isGMIO(); }

  void accept(TQLogicalArchModelVisitorInterface const& visitor) const;
  void rename(TQLogicalArchModelRenameInterface& renamer);

 private:
  double m_clkFreq = 0.0;
  std::uint32_t m_dataWidth = 0;
  std::uint32_t m_busWidth = 0;
  std::uint32_t m_paramIndex = 0;
  std::string m_traceFile;
  std::string m_tqChannel;
  std::vector<std::string> m_tqChannelFullHierNames;
  std::vector<std::string> m_annotations;
  std::string m_hwAnnotation;
  std::vector<std::string> m_sdfIONames;
  std::string m_vlnvName;
  TQLogicalArchLInst const* m_parent = nullptr;
  TQLogicalConnection const* m_connection = nullptr;
  TQLogicalConnectionDataFlowTypeEnum m_type = TQLogicalConnectionDataFlowTypeEnum::Unknown;
  TQLogicalPortDirectionTypeEnum m_direction = TQLogicalPortDirectionTypeEnum::Unknown;
  bool m_registerInterface = false;
  bool m_traced = false;
};

}  // namespace Frameworks
}  // namespace Tarvo

#endif
