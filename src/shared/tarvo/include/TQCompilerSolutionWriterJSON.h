#ifndef TARVO_TQCOMPILERSOLUTIONWRITERJSON_H
#define TARVO_TQCOMPILERSOLUTIONWRITERJSON_H

#include <iosfwd>
#include <string>

class HDARPart;
class HDGUIStatus;
class KPEShimInterfaceSolution;
namespace HrdIPToolCntr {
class TrafficSpec;
}
namespace Tarvo {
namespace Frameworks {
class TQLogicalArchModel;
}
}  // namespace Tarvo

// Writes a KPEShimInterfaceSolution as a compiler solution document: every placed channel of
// every port of the KPE instances, with the column and channel of each site. With nothing
// placed nothing is written and the result is true. A document that fails its schema is cut
// off at the first invalid value and gives false; a missing or broken schema throws.
class TQCompilerSolutionWriterJSON {
 public:
  TQCompilerSolutionWriterJSON() {}
  ~TQCompilerSolutionWriterJSON() {}

  // Only instances whose names begin with a non-empty `instancePrefix` are written, under
  // their names without the prefix and without one leading "/".
  static bool writeToJsonFile(std::string const& instancePrefix, std::ostream& out,
                              Tarvo::Frameworks::TQLogicalArchModel const& model,
                              HrdIPToolCntr::TrafficSpec const& traffic, KPEShimInterfaceSolution const& solution,
                              HDARPart const& part, HDGUIStatus& status);
  static bool writeToJsonFile(std::ostream& out, Tarvo::Frameworks::TQLogicalArchModel const& model,
                              HrdIPToolCntr::TrafficSpec const& traffic, KPEShimInterfaceSolution const& solution,
                              HDARPart const& part, HDGUIStatus& status);
  // False, with no message, when the file can't be opened for writing.
  static bool writeToJsonFile(std::string const& instancePrefix, std::string const& fileName,
                              Tarvo::Frameworks::TQLogicalArchModel const& model,
                              HrdIPToolCntr::TrafficSpec const& traffic, KPEShimInterfaceSolution const& solution,
                              HDARPart const& part, HDGUIStatus& status);
  static bool writeToJsonFile(std::string const& fileName, Tarvo::Frameworks::TQLogicalArchModel const& model,
                              HrdIPToolCntr::TrafficSpec const& traffic, KPEShimInterfaceSolution const& solution,
                              HDARPart const& part, HDGUIStatus& status);
};

#endif
