#ifndef TARVO_LOGICALARCHWRITERMODELRENAMER_H
#define TARVO_LOGICALARCHWRITERMODELRENAMER_H

#include <array>
#include <cstdint>
#include <map>
#include <string>

#include "TQLogicalArchModelRenameInterface.h"

namespace Tarvo {
namespace Frameworks {
class TQLogicalArchLInst;
}
}  // namespace Tarvo

// Gives the ports of a model the interface names that the generated hardware uses, numbered
// per instance in the order the model renames them. Instance and connection names stay.
class LogicalArchWriterModelRenamer : public Tarvo::Frameworks::TQLogicalArchModelRenameInterface {
 public:
  // One counter per name form; see the table in the source.
  typedef std::array<std::uint32_t, 17> portCounters;

  // `hardwareNames` gives KPE ports the S/M names of the hardware interface instead of the
  // names that tell the two sides of the connection.
  explicit LogicalArchWriterModelRenamer(bool hardwareNames) : m_hardwareNames(hardwareNames) {}

  std::string renameModel(Tarvo::Frameworks::TQLogicalArchModel& model) override;
  std::string renameInstance(Tarvo::Frameworks::TQLogicalArchLInst& instance) override;
  std::string renameConnection(Tarvo::Frameworks::TQLogicalConnection& connection) override;
  std::string renamePort(Tarvo::Frameworks::TQLogicalPort& port) override;

 private:
  // The name form and counter for `port`, or a negative counter when the name stays.
  int counterFor(Tarvo::Frameworks::TQLogicalPort const& port) const;
  int nocCounterFor(Tarvo::Frameworks::TQLogicalPort const& port) const;
  int kpeCounterFor(Tarvo::Frameworks::TQLogicalPort const& port) const;

  bool m_hardwareNames;
  std::map<Tarvo::Frameworks::TQLogicalArchLInst const*, portCounters> m_counters;
};

#endif
