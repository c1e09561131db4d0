#ifndef TARVO_NOCJSONTRAFFICSPECWRITER_H
#define TARVO_NOCJSONTRAFFICSPECWRITER_H

#include <functional>
#include <iosfwd>
#include <string>

class HDGUIStatus;
class HIPLogicalObjectNameResolverInterface;

namespace HrdIPToolCntr {
class TrafficLInst;
class TrafficSpec;
}  // namespace HrdIPToolCntr

namespace NOC {

// Writes a TrafficSpec as a NoC traffic specification document, whole or restricted to the
// instances that a filter accepts, with names translated by a resolver. False when there is
// nothing to write, the file cannot be opened, or the document fails its schema.
class NOCJsonTrafficSpecWriter {
 public:
  typedef std::function<bool(HrdIPToolCntr::TrafficLInst const*)> InstanceFilter;

  NOCJsonTrafficSpecWriter();
  ~NOCJsonTrafficSpecWriter();

  // A path goes out only when the filter accepts both of its ends.
  static bool writeToJsonFile(std::ostream& out, HrdIPToolCntr::TrafficSpec const& spec, InstanceFilter const& filter,
                              HIPLogicalObjectNameResolverInterface& resolver, HDGUIStatus& status);
  static bool writeToJsonFile(std::ostream& out, HrdIPToolCntr::TrafficSpec const& spec, HDGUIStatus& status);
  static bool writeToJsonFile(std::string const& fileName, HrdIPToolCntr::TrafficSpec const& spec, HDGUIStatus& status);
};

}  // namespace NOC

#endif
