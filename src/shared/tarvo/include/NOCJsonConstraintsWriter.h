#ifndef TARVO_NOCJSONCONSTRAINTSWRITER_H
#define TARVO_NOCJSONCONSTRAINTSWRITER_H

#include <iosfwd>
#include <string>

class HDGUIStatus;

namespace HrdIPToolCntr {
class Constraints;
}

namespace NOC {

// Writes the placements of a Constraints object as a NoC placement constraints document.
// Without placements nothing at all is written and the result is true. False when the file
// cannot be opened or the document fails its schema.
class NOCJsonConstraintsWriter {
 public:
  NOCJsonConstraintsWriter();
  ~NOCJsonConstraintsWriter();

  // Destination id constraints are not part of the document; a message says so. The status
  // record is not used.
  static bool writeToJsonFile(std::ostream& out, HrdIPToolCntr::Constraints const& constraints, HDGUIStatus& status);
  static bool writeToJsonFile(std::string const& fileName, HrdIPToolCntr::Constraints const& constraints,
                              HDGUIStatus& status);
};

}  // namespace NOC

#endif
