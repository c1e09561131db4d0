#include <iostream>
#include <map>
#include <ostream>

#include "ComMsgMgrInstance.h"
#include "ConstrHandler.h"
#include "ConstrReader.h"
#include "ConstrWriter.h"
#include "FifoLocations.h"
#include "GroupConstraints.h"
#include "Kinds.h"

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

// While a document is read, follows each message of the reader that knows its place in the
// file with that place, below the line that the default output prints.
class PlaceOfMessages {
 public:
  PlaceOfMessages() : m_sink(ComMsgMgr::addSink(&printPlace)) {}
  ~PlaceOfMessages() { ComMsgMgr::removeSink(m_sink); }
  PlaceOfMessages(PlaceOfMessages const&) = delete;
  PlaceOfMessages& operator=(PlaceOfMessages const&) = delete;

 private:
  static void printPlace(ComMsgMgrInstance const& message) {
    std::string file;
    std::string line;
    std::string column;
    for (ComMsgMgrInstance::MetaAnnotation const& meta : message.getMetaTypes()) {
      if (meta.type == ComMsgMgr::META_FILE) file = meta.value;
      if (meta.type == ComMsgMgr::META_LINE) line = meta.value;
      if (meta.type == ComMsgMgr::META_COLUMN) column = meta.value;
    }
    if (!line.empty()) std::cerr << "    at " << file << ":" << line << ":" << column << "\n";
  }

  int m_sink;
};

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

class LoadedConstraints : public LoadedDocument {
 public:
  explicit LoadedConstraints(std::string file) : m_file(std::move(file)) {}
  ~LoadedConstraints() override { store.clear(); }

  std::string brief() const override {
    return plural(store.size(), "constraint", "constraints") + ", " +
           plural(store.getFifoLocationsRecords().size(), "FIFO record", "FIFO records");
  }

  void summarize(std::ostream& out) const override {
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

  bool write(std::ostream& out, ToolOptions const& options) const override {
    kpe::constraints::ConstrWriter writer(store);
    writer.write(out, options.get("-o", m_file), true);
    return true;
  }

  ConstrHandler store;

 private:
  std::string m_file;
};

class ConstraintKind : public DocumentKind {
 public:
  std::string name() const override { return "constraints"; }

  bool recognises(rapidjson::Value const& root) const override {
    if (!root.IsObject()) return false;
    for (char const* key :
         {"NodeConstraints", "PortConstraints", "NetConstraints", "GlobalConstraints", "isToolGenerated"})
      if (root.HasMember(key)) return true;
    return false;
  }

  std::unique_ptr<LoadedDocument> read(std::string const& file, ToolOptions const&, HDGUIStatus&) const override {
    auto loaded = std::make_unique<LoadedConstraints>(file);
    PlaceOfMessages const places;
    kpe::constraints::ConstrReader(loaded->store).read(file, true);
    return loaded;
  }
};

}  // namespace

std::unique_ptr<DocumentKind> makeConstraintKind() {
  return std::make_unique<ConstraintKind>();
}

}  // namespace tarvo_docs
