#include <map>
#include <ostream>

#include "ConstrHandler.h"
#include "ConstrReader.h"
#include "ConstrWriter.h"
#include "FifoLocations.h"
#include "GroupConstraints.h"
#include "Kinds.h"
#include "LoadedDocuments.h"
#include "NOCJsonReadWriteUtils.h"

namespace tarvo_docs {

namespace {

using kpe::constraints::AreaGroupConstr;
using kpe::constraints::BaseConstraint;
using kpe::constraints::ConstrHandler;
using kpe::constraints::DmaFifoRecord;
using kpe::constraints::FifoLocationsRecord;
using kpe::constraints::GroupConstr;
using kpe::constraints::StreamFifoRecord;

std::string plural(std::size_t count, char const* one, char const* many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

std::string groupText(GroupConstr const& group) {
  std::string text = BaseConstraint::getConstrTypeAsStr(group.getType()) + " '" + group.getName() + "'";
  if (auto const* area = dynamic_cast<AreaGroupConstr const*>(&group))
    text += ": " + plural(area->getNodeNames().size(), "node", "nodes") + ", " +
            plural(area->getPhysicalRanges().size(), "range", "ranges") + (area->isSoft() ? ", soft" : "") +
            (area->isExclude() ? ", exclude" : "");
  else if (auto const* inst = dynamic_cast<kpe::constraints::InstGroupConstr const*>(&group))
    text += ": " + plural(inst->getNodeNames().size(), "node", "nodes") + (inst->isIsomorphic() ? ", isomorphic" : "");
  else if (auto const* routing = dynamic_cast<kpe::constraints::DependentRoutingGroupConstr const*>(&group))
    text += ": " + plural(routing->getNodeNames().size(), "node", "nodes");
  else if (auto const* graphs = dynamic_cast<kpe::constraints::IsomorphicGraphGroupConstr const*>(&group))
    text += ": reference '" + graphs->getReferenceGraph() + "', " +
            plural(graphs->getStampedGraphs().size(), "stamped graph", "stamped graphs");
  return text;
}

std::string recordText(FifoLocationsRecord const& record) {
  if (auto const* dma = dynamic_cast<DmaFifoRecord const*>(&record))
    return "DMA " + dma->getPhysicalSpec().str() + " size " + std::to_string(dma->getSize());
  if (auto const* stream = dynamic_cast<StreamFifoRecord const*>(&record))
    return "stream " + stream->getPhysicalSpec().str();
  return "unspecified";
}

class ConstraintKind : public DocumentKind {
 public:
  std::string name() const override { return "constraints"; }

  bool recognises(TopLevelKeys const& keys) const override {
    return keys.hasAny(
        {"NodeConstraints", "PortConstraints", "NetConstraints", "GlobalConstraints", "isToolGenerated"});
  }

  // The reader's own choice; where there is none, the first place it would look.
  std::string schemaFile() const override {
    std::string const installed = kpe::constraints::ConstrWriter::findInstalledSchemaFile();
    return installed.empty() ? NOCJsonReadWriteUtils::getSchemaFile({"kpetools_constr_schema.json"}) : installed;
  }

  std::unique_ptr<LoadedDocument> read(DocumentSource const& source, ToolOptions const&, HDGUIStatus&) const override {
    auto loaded = std::make_unique<LoadedConstraints>(source.name());
    kpe::constraints::ConstrReader reader(loaded->store);
    source.apply([&reader](auto&... where) { reader.read(where..., true); });
    return loaded;
  }
};

}  // namespace

std::string LoadedConstraints::brief() const {
  return plural(store.size(), "constraint", "constraints") + ", " +
         plural(store.getFifoLocationsRecords().size(), "FIFO record", "FIFO records");
}

void LoadedConstraints::summarize(std::ostream& out) const {
  out << "Constraint document: " << brief() << "\n";
  std::map<std::pair<BaseConstraint::ConstrType, BaseConstraint::ObjectType>, std::size_t> counts;
  for (BaseConstraint const* constraint : store.getConstrs())
    ++counts[std::make_pair(constraint->getType(), constraint->getObjType())];
  out << "By kind and object type:\n";
  for (auto const& count : counts)
    out << "  " << BaseConstraint::getConstrTypeAsStr(count.first.first) << " on "
        << BaseConstraint::getObjTypeAsStr(count.first.second) << ": " << count.second << "\n";
  out << "Groups:\n";
  for (BaseConstraint const* constraint : store.getConstrs())
    if (auto const* group = dynamic_cast<GroupConstr const*>(constraint)) out << "  " << groupText(*group) << "\n";
  out << "FIFO records:\n";
  for (auto const& record : store.getFifoLocationsRecords())
    out << "  " << record.first << ": " << recordText(*record.second) << "\n";
}

// The writer names the document in its messages; that is the output, or the source without -o.
bool LoadedConstraints::write(std::ostream& out, ToolOptions const& options, HDGUIStatus&) const {
  kpe::constraints::ConstrWriter writer(store);
  writer.write(out, options.get("-o", m_name), true);
  return true;
}

std::unique_ptr<DocumentKind> makeConstraintKind() {
  return std::make_unique<ConstraintKind>();
}

}  // namespace tarvo_docs
