#ifndef TARVO_NOCJSONTRAFFICSPECREADER_H
#define TARVO_NOCJSONTRAFFICSPECREADER_H

#include <iosfwd>
#include <string>

class HDGUIStatus;
class HIPLogicalObjectNameResolverInterface;

namespace HrdIPToolCntr {
class TrafficSpec;
}

namespace NOC {

// Reads a NoC traffic specification document into a TrafficSpec that the caller owns. A
// failure leaves by exception and keeps what was added before it.
class NOCJsonTrafficSpecReader {
 public:
  NOCJsonTrafficSpecReader();
  ~NOCJsonTrafficSpecReader();

  // `fileName` names the stream in messages.
  static bool readFromJsonFile(std::istream& in, std::string const& fileName,
                               HIPLogicalObjectNameResolverInterface& resolver, HrdIPToolCntr::TrafficSpec& spec,
                               HDGUIStatus& status);
  static bool readFromJsonFile(std::istream& in, std::string const& fileName, HrdIPToolCntr::TrafficSpec& spec,
                               HDGUIStatus& status);
  // Plain or gzip-compressed files alike.
  static bool readFromJsonFile(std::string const& fileName, HIPLogicalObjectNameResolverInterface& resolver,
                               HrdIPToolCntr::TrafficSpec& spec, HDGUIStatus& status);
  static bool readFromJsonFile(std::string const& fileName, HrdIPToolCntr::TrafficSpec& spec, HDGUIStatus& status);

  // Adds the error slave and its routes unless the traffic specification has them. For callers, after
  // reading.
  static void enableDefaultSlv(HrdIPToolCntr::TrafficSpec& spec);
};

}  // namespace NOC

#endif
