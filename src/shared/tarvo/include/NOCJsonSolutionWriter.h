#ifndef TARVO_NOCJSONSOLUTIONWRITER_H
#define TARVO_NOCJSONSOLUTIONWRITER_H

#include <functional>
#include <iosfwd>
#include <string>

class HDGUIStatus;
class HIPLogicalObjectNameResolverInterface;

namespace HrdIPToolCntr {
class CompRes;
class TrafficLInst;
class TrafficSpec;
}  // namespace HrdIPToolCntr

namespace NOC {

// Writes the NoC compiler's result as a NoC solution document: the routed paths with their
// nets and what they achieved, then the destination ids of the device's components. False
// when the file cannot be opened or the document fails its schema.
class NOCJsonSolutionWriter {
 public:
  typedef std::function<bool(HrdIPToolCntr::TrafficLInst const* const&)> InstanceFilter;

  NOCJsonSolutionWriter();
  ~NOCJsonSolutionWriter();

  // A path goes out when it has a routed net and the filter accepts both of its ends. The
  // status record is not used.
  static bool writeToJsonFile(std::ostream& out, HrdIPToolCntr::TrafficSpec const& spec,
                              HrdIPToolCntr::CompRes const& result, InstanceFilter const& filter,
                              HIPLogicalObjectNameResolverInterface& resolver, HDGUIStatus& status);
  // All instances, identity names.
  static bool writeToJsonFile(std::ostream& out, HrdIPToolCntr::TrafficSpec const& spec,
                              HrdIPToolCntr::CompRes const& result, HDGUIStatus& status);
  static bool writeToJsonFile(std::string const& fileName, HrdIPToolCntr::TrafficSpec const& spec,
                              HrdIPToolCntr::CompRes const& result, HDGUIStatus& status);
};

}  // namespace NOC

#endif
