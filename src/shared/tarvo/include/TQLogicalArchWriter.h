#ifndef TARVO_TQLOGICALARCHWRITER_H
#define TARVO_TQLOGICALARCHWRITER_H

#include <iosfwd>
#include <string>

class HDGUIStatus;

namespace Tarvo {
namespace Frameworks {
class TQLogicalArchModel;
}
}  // namespace Tarvo

// Writes a model as a logical architecture document, whole or for one sub-hierarchy. The
// text goes through the document's schema as it is written: a model that doesn't fit it
// gives a document cut off at the first invalid value, and still the result true. Callers
// that care validate the model's output themselves. An empty model writes nothing and gives
// false; a missing or broken schema throws.
class TQLogicalArchWriter {
 public:
  TQLogicalArchWriter() {}
  ~TQLogicalArchWriter() {}

  static bool writeToJsonFile(std::ostream& out, Tarvo::Frameworks::TQLogicalArchModel const& model);
  // `status` is accepted and left alone.
  static bool writeToJsonFile(std::ostream& out, Tarvo::Frameworks::TQLogicalArchModel const& model,
                              HDGUIStatus& status);
  // With a non-empty `hierarchyPrefix`, writes only the instances and connections whose names
  // begin with it, under their names without the prefix and without the first "/" after it.
  static bool writeToJsonFile(std::string const& hierarchyPrefix, std::ostream& out,
                              Tarvo::Frameworks::TQLogicalArchModel const& model, HDGUIStatus& status);
  // False, with no message, when the file can't be opened for writing.
  static bool writeToJsonFile(std::string const& fileName, Tarvo::Frameworks::TQLogicalArchModel const& model);
  static bool writeToJsonFile(std::string const& fileName, Tarvo::Frameworks::TQLogicalArchModel const& model,
                              HDGUIStatus& status);

 private:
  static bool write(std::string const& hierarchyPrefix, std::ostream& out,
                    Tarvo::Frameworks::TQLogicalArchModel const& model);
};

#endif
