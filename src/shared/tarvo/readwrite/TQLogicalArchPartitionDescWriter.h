#ifndef TARVO_TQLOGICALARCHPARTITIONDESCWRITER_H
#define TARVO_TQLOGICALARCHPARTITIONDESCWRITER_H

#include <iosfwd>
#include <string>
#include <vector>

namespace Tarvo {
namespace Frameworks {
class TQLogicalArchModel;
}
}  // namespace Tarvo

// Writes the description of a design's partitions: per KPE instance, the design's columns
// and its one partition with identifier, KPE/PL interface identifier and namespace. Kept
// inside the library; the text goes through no schema.
class TQLogicalArchPartitionDescWriter {
 public:
  // The partition columns stand for themselves unless both are -1, when the design's are
  // written. `uuid` is written as "0x" and each element in eight hexadecimal digits.
  static void writeToJsonFile(std::ostream& out, Tarvo::Frameworks::TQLogicalArchModel const& model,
                              std::vector<unsigned int> const& uuid, unsigned int kpePlInterfaceId,
                              int partitionStartColumn, int partitionNumColumns, int designStartColumn,
                              int designNumColumns, std::string const& nameSpace);
  // False, with no message, when the file can't be opened for writing.
  static bool writeToJsonFile(std::string const& fileName, Tarvo::Frameworks::TQLogicalArchModel const& model,
                              std::vector<unsigned int> const& uuid, unsigned int kpePlInterfaceId,
                              int partitionStartColumn, int partitionNumColumns, int designStartColumn,
                              int designNumColumns, std::string const& nameSpace);
};

#endif
