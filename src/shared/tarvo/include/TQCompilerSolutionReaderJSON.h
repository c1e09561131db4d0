#ifndef TARVO_TQCOMPILERSOLUTIONREADERJSON_H
#define TARVO_TQCOMPILERSOLUTIONREADERJSON_H

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

// Reads the KPE compiler's solution document into a KPEShimInterfaceSolution: for each
// channel of each placed port, its site. Names that the model, the traffic specification or
// the device don't know are passed over without a word. The solution isn't emptied first;
// the placements read go on top of it, first wins. Failures leave by exception; an empty
// file gives false.
class TQCompilerSolutionReaderJSON {
 public:
  TQCompilerSolutionReaderJSON() {}
  ~TQCompilerSolutionReaderJSON() {}

  // Only KPE instances whose full names begin with a non-empty `instancePrefix` are looked
  // at; a document's instance name matches the first of them that contains it.
  static bool readFromJsonFile(std::istream& in, std::string const& fileName, HDARPart const& part,
                               Tarvo::Frameworks::TQLogicalArchModel const& model,
                               HrdIPToolCntr::TrafficSpec const& traffic, std::string const& instancePrefix,
                               KPEShimInterfaceSolution& solution, HDGUIStatus& status);
  static bool readFromJsonFile(std::istream& in, std::string const& fileName, HDARPart const& part,
                               Tarvo::Frameworks::TQLogicalArchModel const& model,
                               HrdIPToolCntr::TrafficSpec const& traffic, KPEShimInterfaceSolution& solution,
                               HDGUIStatus& status);
  static bool readFromJsonFile(std::string const& fileName, HDARPart const& part,
                               Tarvo::Frameworks::TQLogicalArchModel const& model,
                               HrdIPToolCntr::TrafficSpec const& traffic, std::string const& instancePrefix,
                               KPEShimInterfaceSolution& solution, HDGUIStatus& status);
  static bool readFromJsonFile(std::string const& fileName, HDARPart const& part,
                               Tarvo::Frameworks::TQLogicalArchModel const& model,
                               HrdIPToolCntr::TrafficSpec const& traffic, KPEShimInterfaceSolution& solution,
                               HDGUIStatus& status);

 private:
  class PlacementReader;
};

#endif
