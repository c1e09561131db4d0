#ifndef TARVO_DOCS_LOADEDDOCUMENTS_H
#define TARVO_DOCS_LOADEDDOCUMENTS_H

// The documents of each kind as read into the library's models. The models are public, so
// that a caller (the Python package among them) can reach the model of a read document,
// build one from scratch, and write it with the same call that `convert` makes.

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "../DocumentKind.h"
#include "CompRes.h"
#include "ConstrHandler.h"
#include "Constraints.h"
#include "HDARPart.h"
#include "HIPDevice.h"
#include "JsonDocumentFrame.h"
#include "KPEPrjMetaDataModel.h"
#include "KPEShimInterfaceSolution.h"
#include "TQLogicalArchModel.h"
#include "TrafficSpec.h"

namespace tarvo_docs {

// Options that the kinds read: the documents a NoC or compiler document is read against and
// what their writers take.
struct KindOptions {
  static char const* const kTraffic;    // --traffic FILE
  static char const* const kDevice;     // --device FILE
  static char const* const kArch;       // --arch FILE
  static char const* const kPrefix;     // --prefix TEXT
  static char const* const kHierarchy;  // --hierarchy PREFIX
  static char const* const kOnly;       // --only REGEX
  static char const* const kParam;      // --param NAME=VALUE
};

class LoadedMetadata : public LoadedDocument {
 public:
  std::string brief() const override;
  void summarize(std::ostream& out) const override;
  bool write(std::ostream& out, ToolOptions const& options, HDGUIStatus& status) const override;

  Tarvo::Frameworks::KPEPrjMetaDataModel model;
};

class LoadedConstraints : public LoadedDocument {
 public:
  // `name` is the name the writer gives the document in its messages when no -o is given.
  explicit LoadedConstraints(std::string name) : m_name(std::move(name)) {}
  ~LoadedConstraints() override { store.clear(); }

  std::string brief() const override;
  void summarize(std::ostream& out) const override;
  bool write(std::ostream& out, ToolOptions const& options, HDGUIStatus& status) const override;

  kpe::constraints::ConstrHandler store;

 private:
  std::string m_name;
};

class LoadedLogicalArch : public LoadedDocument {
 public:
  std::string brief() const override;
  void summarize(std::ostream& out) const override;
  // With --hierarchy PREFIX, the writer's hierarchy prefix.
  bool write(std::ostream& out, ToolOptions const& options, HDGUIStatus& status) const override;

  Tarvo::Frameworks::TQLogicalArchModel model;
};

class LoadedTraffic : public LoadedDocument {
 public:
  std::string brief() const override;
  void summarize(std::ostream& out) const override;
  // With --only REGEX, only the instances whose names match and the paths between them;
  // --param NAME=VALUE sets a tool parameter for the write.
  bool write(std::ostream& out, ToolOptions const& options, HDGUIStatus& status) const override;

  HrdIPToolCntr::TrafficSpec spec;
};

// What the NoC solution and placement documents are read against: the traffic specification
// they were made for (--traffic FILE) and the device (--device FILE, or the default device).
struct NocKindInputs {
  static bool given(ToolOptions const& options) { return options.has(KindOptions::kTraffic); }
  // Reads both; the caller has checked that --traffic is given.
  NocKindInputs(ToolOptions const& options, HDGUIStatus& status);

  std::unique_ptr<DevHrdIP::HIPDevice> device;
  HrdIPToolCntr::TrafficSpec spec;
};

class LoadedNocSolution : public LoadedDocument {
 public:
  LoadedNocSolution(ToolOptions const& options, HDGUIStatus& status)
      : inputs(options, status), result(*inputs.device) {}

  std::string brief() const override;
  void summarize(std::ostream& out) const override;
  bool write(std::ostream& out, ToolOptions const& options, HDGUIStatus& status) const override;

  NocKindInputs inputs;
  HrdIPToolCntr::CompRes result;
  // The compiler's verdict as the document gives it; the library's reader leaves it out.
  std::string solutionType;
};

class LoadedNocConstraints : public LoadedDocument {
 public:
  LoadedNocConstraints(ToolOptions const& options, HDGUIStatus& status) : inputs(options, status) {}

  std::string brief() const override;
  void summarize(std::ostream& out) const override;
  bool write(std::ostream& out, ToolOptions const& options, HDGUIStatus& status) const override;

  NocKindInputs inputs;
  HrdIPToolCntr::Constraints constraints;
};

// A NoC document without its traffic specification: checked against its schema and counted,
// but not read into a model, so that it cannot be converted.
class UnboundNocDocument : public LoadedDocument {
 public:
  // `counted` lists the top-level arrays to count, each with the word for one element.
  UnboundNocDocument(DocumentSource const& source, std::string const& schemaPath, JsonDocumentFrame::Opener opener,
                     std::string const& title, std::vector<std::pair<std::string, std::string>> const& counted);

  std::string brief() const override;
  void summarize(std::ostream& out) const override;
  bool write(std::ostream& out, ToolOptions const& options, HDGUIStatus& status) const override;

 private:
  std::string m_title;
  std::string m_counts;
};

// What a compiler solution is read against: the logical architecture (--arch), the traffic
// specification (--traffic) and the device (--device, or the default device). Each KPE port
// gets its channels from the traffic specification: the logical instances named
// INSTANCE/PORT, INSTANCE/PORT<0>_INST and INSTANCE/PORT<1>_INST.
struct ExchangeDesign {
  ExchangeDesign(ToolOptions const& options, HDGUIStatus& status);

  static bool complete(ToolOptions const& options) {
    return options.has(KindOptions::kArch) && options.has(KindOptions::kTraffic);
  }
  std::vector<Tarvo::Frameworks::TQLogicalPort const*> ports() const;

  Tarvo::Frameworks::TQLogicalArchModel model;
  HrdIPToolCntr::TrafficSpec traffic;
  std::unique_ptr<HDARPart> part;
};

class LoadedCompilerSolution : public LoadedDocument {
 public:
  LoadedCompilerSolution(ToolOptions const& options, HDGUIStatus& status)
      : design(options, status), solution(*design.part), complete(ExchangeDesign::complete(options)) {}

  // Reads the solution against the design; an empty text fails as an empty file.
  void read(DocumentSource const& source, ToolOptions const& options, HDGUIStatus& status);

  std::string brief() const override;
  void summarize(std::ostream& out) const override;
  // Needs the design (--arch and --traffic); --prefix is the writer's hierarchy prefix.
  bool write(std::ostream& out, ToolOptions const& options, HDGUIStatus& status) const override;

  ExchangeDesign design;
  KPEShimInterfaceSolution solution;
  bool const complete;

 private:
  std::vector<std::string> placedChannels(Tarvo::Frameworks::TQLogicalPort const& port) const;
};

}  // namespace tarvo_docs

#endif
