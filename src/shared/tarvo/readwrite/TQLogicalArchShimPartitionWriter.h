#ifndef TARVO_TQLOGICALARCHSHIMPARTITIONWRITER_H
#define TARVO_TQLOGICALARCHSHIMPARTITIONWRITER_H

#include <iosfwd>
#include <string>

class HDARPart;
class KPEShimInterfaceSolution;
namespace HrdIPToolCntr {
class TrafficSpec;
}
namespace Tarvo {
namespace Frameworks {
class TQLogicalArchModel;
}
}  // namespace Tarvo

// Writes the shim ports of one partition of the KPE array: the partition's columns and, per
// port of the KPE instances, its placed sites and traits. Kept inside the library; the text
// goes through no schema.
class TQLogicalArchShimPartitionWriter {
 public:
  // The partition columns stand for themselves unless both are -1 (0xFFFFFFFF), when the
  // design's are written. A port's channels are placed through `traffic` and `solution`.
  static void writeToJsonFile(std::ostream& out, Tarvo::Frameworks::TQLogicalArchModel const& model,
                              HrdIPToolCntr::TrafficSpec const& traffic, KPEShimInterfaceSolution const& solution,
                              HDARPart const& part, int partitionStartColumn, int partitionNumColumns,
                              int designStartColumn, int designNumColumns);
  // False, with no message, when the file can't be opened for writing.
  static bool writeToJsonFile(std::string const& fileName, Tarvo::Frameworks::TQLogicalArchModel const& model,
                              HrdIPToolCntr::TrafficSpec const& traffic, KPEShimInterfaceSolution const& solution,
                              HDARPart const& part, int partitionStartColumn, int partitionNumColumns,
                              int designStartColumn, int designNumColumns);
};

#endif
