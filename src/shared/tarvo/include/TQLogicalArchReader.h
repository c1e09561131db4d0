#ifndef TARVO_TQLOGICALARCHREADER_H
#define TARVO_TQLOGICALARCHREADER_H

#include <iosfwd>
#include <string>

class HDGUIStatus;

namespace Tarvo {
namespace Frameworks {
class TQLogicalArchModel;
}
}  // namespace Tarvo

// Reads a logical architecture document into a model, which it adds to without emptying it.
// Failures of the file, the text or the schema leave by the exceptions of
// HCRapidJsonReadWriteUtils, before the model is touched; within a valid document, duplicate
// names, unknown texts and references to unknown ports are passed over silently.
class TQLogicalArchReader {
 public:
  TQLogicalArchReader() {}
  ~TQLogicalArchReader() {}

  // `fileName` names the stream in messages.
  static bool readFromJsonFile(std::istream& in, std::string const& fileName,
                               Tarvo::Frameworks::TQLogicalArchModel& model);
  // Also sets the percent value of `status` as the sections are read.
  static bool readFromJsonFile(std::istream& in, std::string const& fileName,
                               Tarvo::Frameworks::TQLogicalArchModel& model, HDGUIStatus& status);
  static bool readFromJsonFile(std::string const& fileName, Tarvo::Frameworks::TQLogicalArchModel& model);
  static bool readFromJsonFile(std::string const& fileName, Tarvo::Frameworks::TQLogicalArchModel& model,
                               HDGUIStatus& status);

 private:
  static bool read(std::istream& in, std::string const& fileName, Tarvo::Frameworks::TQLogicalArchModel& model,
                   HDGUIStatus* status);
};

#endif
