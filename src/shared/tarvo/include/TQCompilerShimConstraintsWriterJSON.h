#ifndef TARVO_TQCOMPILERSHIMCONSTRAINTSWRITERJSON_H
#define TARVO_TQCOMPILERSHIMCONSTRAINTSWRITERJSON_H

#include <iosfwd>
#include <map>
#include <string>
#include <vector>

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

// For one KPE instance, found by its exact name: the shim constraints document, which pins
// each port's channel 0 to its site, and the KPE/PL interface identifier, made of each
// port's first annotation, width, clock, register flag and sites. ("Inteface" in the names
// is the interface's established spelling.)
class TQCompilerShimConstraintsWriterJSON {
 public:
  typedef std::map<std::string, std::vector<std::string>> PortData;

  TQCompilerShimConstraintsWriterJSON() {}
  ~TQCompilerShimConstraintsWriterJSON() {}

  // With nothing placed nothing is written and the result is true. A document that fails
  // its schema is cut off at the first invalid value and gives false; a missing or broken
  // schema throws.
  static bool writeToJsonFile(std::ostream& out, Tarvo::Frameworks::TQLogicalArchModel const& model,
                              HrdIPToolCntr::TrafficSpec const& traffic, KPEShimInterfaceSolution const& solution,
                              HDARPart const& part, std::string const& instanceName, HDGUIStatus& status);
  // False, with no message, when the file can't be opened for writing.
  static bool writeToJsonFile(std::string const& fileName, Tarvo::Frameworks::TQLogicalArchModel const& model,
                              HrdIPToolCntr::TrafficSpec const& traffic, KPEShimInterfaceSolution const& solution,
                              HDARPart const& part, std::string const& instanceName, HDGUIStatus& status);

  // Replaces `portData` by the items of each port that has a placed channel in device
  // columns startColumn .. startColumn + numColumns - 1 (all columns when startColumn is
  // negative), keyed by the port's first annotation; a later port of the same key replaces
  // an earlier one. False, with `portData` untouched, when the model has no KPE instance.
  static bool getKPEPLIntefacePortData(Tarvo::Frameworks::TQLogicalArchModel const& model,
                                       HrdIPToolCntr::TrafficSpec const& traffic,
                                       KPEShimInterfaceSolution const& solution, HDARPart const& part,
                                       std::string const& instanceName, int startColumn, int numColumns,
                                       HDGUIStatus& status, PortData& portData);
  // Appends one identifier per port key, in key order: the key (unless `omitKey`) followed by
  // the port's items sorted.
  static bool computeKPEPLIntefaceIDs(Tarvo::Frameworks::TQLogicalArchModel const& model,
                                      HrdIPToolCntr::TrafficSpec const& traffic,
                                      KPEShimInterfaceSolution const& solution, HDARPart const& part,
                                      std::string const& instanceName, int startColumn, int numColumns, bool omitKey,
                                      HDGUIStatus& status, std::vector<std::string>& ids);
  // The identifier of the whole interface: every key followed by its items sorted.
  static bool computeKPEPLIntefaceID(Tarvo::Frameworks::TQLogicalArchModel const& model,
                                     HrdIPToolCntr::TrafficSpec const& traffic,
                                     KPEShimInterfaceSolution const& solution, HDARPart const& part,
                                     std::string const& instanceName, std::string& id, HDGUIStatus& status);
};

#endif
