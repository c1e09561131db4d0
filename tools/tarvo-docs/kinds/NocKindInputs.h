#ifndef TARVO_DOCS_NOCKINDINPUTS_H
#define TARVO_DOCS_NOCKINDINPUTS_H

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "../DocumentKind.h"
#include "HIPDevice.h"
#include "JsonDocumentFrame.h"
#include "TrafficSpec.h"

namespace tarvo_docs {

// What the NoC solution and placement documents are read against: the traffic specification
// they were made for (--traffic FILE) and the device (--device FILE, or the default device).
struct NocKindInputs {
  static char const* const kTrafficOption;
  static char const* const kDeviceOption;

  static bool given(ToolOptions const& options) { return options.has(kTrafficOption); }
  // Reads both; the caller has checked that --traffic is given.
  NocKindInputs(ToolOptions const& options, HDGUIStatus& status);

  std::unique_ptr<DevHrdIP::HIPDevice> device;
  HrdIPToolCntr::TrafficSpec spec;
};

// A NoC document without its traffic specification: checked against its schema and counted,
// but not read into a model, so that it cannot be converted.
class UnboundNocDocument : public LoadedDocument {
 public:
  // `counted` lists the top-level arrays to count, each with the word for one element.
  UnboundNocDocument(std::string const& file, std::string const& schemaPath, JsonDocumentFrame::Opener opener,
                     std::string const& title, std::vector<std::pair<std::string, std::string>> const& counted);

  std::string brief() const override;
  void summarize(std::ostream& out) const override;
  bool write(std::ostream& out, ToolOptions const& options) const override;

 private:
  std::string m_title;
  std::string m_counts;
};

}  // namespace tarvo_docs

#endif
