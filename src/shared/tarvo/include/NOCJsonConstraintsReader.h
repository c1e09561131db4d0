#ifndef TARVO_NOCJSONCONSTRAINTSREADER_H
#define TARVO_NOCJSONCONSTRAINTSREADER_H

#include <iosfwd>
#include <string>

class HDGUIStatus;
class HIPLogicalObjectNameResolverInterface;

namespace DevHrdIP {
class HIPDevice;
}

namespace HrdIPToolCntr {
class Constraints;
class TrafficSpec;
}  // namespace HrdIPToolCntr

namespace NOC {

// Reads a NoC placement constraints document into a Constraints object. Instances and
// components that the traffic specification or the device does not know are passed over without a
// word. Names are taken as they stand: the resolver is not used. Failures leave by the error
// operations of HCRapidJsonReadWriteUtils.
class NOCJsonConstraintsReader {
 public:
  NOCJsonConstraintsReader();
  ~NOCJsonConstraintsReader();

  // Sets the percent value of `status` to 20 after validation and to 100 at the end.
  static bool readFromJsonFile(std::istream& in, std::string const& fileName, DevHrdIP::HIPDevice const& device,
                               HrdIPToolCntr::TrafficSpec const& spec, HrdIPToolCntr::Constraints& constraints,
                               HIPLogicalObjectNameResolverInterface& resolver, HDGUIStatus& status);
  static bool readFromJsonFile(std::string const& fileName, DevHrdIP::HIPDevice const& device,
                               HrdIPToolCntr::TrafficSpec const& spec, HrdIPToolCntr::Constraints& constraints,
                               HIPLogicalObjectNameResolverInterface& resolver, HDGUIStatus& status);
};

}  // namespace NOC

#endif
