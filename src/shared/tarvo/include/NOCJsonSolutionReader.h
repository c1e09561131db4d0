#ifndef TARVO_NOCJSONSOLUTIONREADER_H
#define TARVO_NOCJSONSOLUTIONREADER_H

#include <iosfwd>
#include <string>

class HDGUIStatus;
class HIPLogicalObjectNameResolverInterface;

namespace HrdIPToolCntr {
class CompRes;
class TrafficSpec;
}  // namespace HrdIPToolCntr

namespace NOC {

// Reads a NoC solution document into a CompRes, against a loaded TrafficSpec and the device
// that the CompRes holds. Routes are rebuilt link by link from the device, so a solution made
// for another device fails with std::runtime_error. Other failures leave by the error
// operations of HCRapidJsonReadWriteUtils; what was added before a failure stays. The status
// record is not used.
class NOCJsonSolutionReader {
 public:
  NOCJsonSolutionReader();
  ~NOCJsonSolutionReader();

  static bool readFromJsonFile(std::istream& in, std::string const& fileName,
                               HIPLogicalObjectNameResolverInterface& resolver, HrdIPToolCntr::TrafficSpec const& spec,
                               HrdIPToolCntr::CompRes& result, HDGUIStatus& status);
  static bool readFromJsonFile(std::istream& in, std::string const& fileName, HrdIPToolCntr::TrafficSpec const& spec,
                               HrdIPToolCntr::CompRes& result, HDGUIStatus& status);
  static bool readFromJsonFile(std::string const& fileName, HIPLogicalObjectNameResolverInterface& resolver,
                               HrdIPToolCntr::TrafficSpec const& spec, HrdIPToolCntr::CompRes& result,
                               HDGUIStatus& status);
  static bool readFromJsonFile(std::string const& fileName, HrdIPToolCntr::TrafficSpec const& spec,
                               HrdIPToolCntr::CompRes& result, HDGUIStatus& status);
};

}  // namespace NOC

#endif
