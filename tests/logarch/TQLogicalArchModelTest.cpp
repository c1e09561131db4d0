#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "TQLogicalArchModel.h"

using namespace Tarvo::Frameworks;

namespace {

// Records every call of a walk as "kind:name".
class RecordingVisitor : public TQLogicalArchModelVisitorInterface {
 public:
  explicit RecordingVisitor(std::vector<std::string>& calls) : m_calls(calls) {}
  void visitModel(TQLogicalArchModel const& model) const override { m_calls.push_back("model:" + model.getAppID()); }
  void visitInstance(TQLogicalArchLInst const& i) const override { m_calls.push_back("inst:" + i.getName()); }
  void visitConnection(TQLogicalConnection const& c) const override { m_calls.push_back("conn:" + c.getName()); }
  void visitPort(TQLogicalPort const& p) const override { m_calls.push_back("port:" + p.getName()); }

 private:
  std::vector<std::string>& m_calls;
};

// Appends a suffix to every name, and records the calls.
class SuffixRenamer : public TQLogicalArchModelRenameInterface {
 public:
  std::string renameModel(TQLogicalArchModel&) override {
    calls.push_back("model");
    return std::string();
  }
  std::string renameInstance(TQLogicalArchLInst& i) override { return record(i); }
  std::string renameConnection(TQLogicalConnection& c) override { return record(c); }
  std::string renamePort(TQLogicalPort& p) override { return record(p); }

  std::vector<std::string> calls;

 private:
  template <typename Object>
  std::string record(Object& object) {
    calls.push_back(object.getName());
    object.setName(object.getName() + "_r");
    return object.getName();
  }
};

std::vector<std::string> namesOf(std::vector<TQLogicalPort*> const& ports) {
  std::vector<std::string> names;
  for (TQLogicalPort const* port : ports)
    names.push_back(port->getName() + "@" + port->getParentInstance()->getName());
  return names;
}

// kpe (ports k0, k1) -> noc (port n0) and pl (port p0), with one connection c1 from k0 to n0 and p0.
struct SmallModel {
  SmallModel() {
    model.setAppID("app");
    model.setDeviceModel("dev");
    model.setSchema("1.0");
    model.setPlatform("plat");
    kpe = model.addTQIPInstance("kpe");
    noc = model.addNOCIPInstance("noc");
    pl = model.addPLIPInstance("pl");
    k0 = model.addShimPort("k0", *kpe);
    k1 = model.addShimPort("k1", *kpe);
    n0 = model.addNOCPort("n0", *noc);
    p0 = model.addPLPort("p0", *pl);
    c1 = model.addLogicalConnection("c1");
    c1->setSrcPort(k0);
    c1->addDstPort(n0);
    c1->addDstPort(p0);
  }
  TQLogicalArchModel model;
  TQLogicalTQIPInstance* kpe;
  TQLogicalNOCIPInstance* noc;
  TQLogicalPLIPInstance* pl;
  TQLogicalPort *k0, *k1, *n0, *p0;
  TQLogicalConnection* c1;
};

}  // namespace

TEST(TQLogicalArchModel, InstanceNamesAreSharedByAllKindsAndTheFirstStays) {
  TQLogicalArchModel model;
  model.setAppID("only-text");
  EXPECT_TRUE(model.isEmpty());

  TQLogicalPLIPInstance* pl = model.addPLIPInstance("a");
  ASSERT_NE(pl, nullptr);
  EXPECT_EQ(model.addTQIPInstance("a"), nullptr);
  EXPECT_EQ(model.addNOCIPInstance("a"), nullptr);
  EXPECT_EQ(model.addPLIPInstance("a"), nullptr);
  EXPECT_EQ(model.getLogicalInstance("a"), pl);
  EXPECT_EQ(pl->getType(), TQLogicalInstanceType::PLIP);
  EXPECT_FALSE(model.isEmpty());
  EXPECT_EQ(model.getInstances().size(), 1u);
  EXPECT_TRUE(TQLogicalArchModel::isPLIPInstance(pl));
  EXPECT_FALSE(TQLogicalArchModel::isTQIPInstance(pl));
  EXPECT_FALSE(TQLogicalArchModel::isPLIPInstance(nullptr));
}

TEST(TQLogicalArchModel, QueriesAppendByKindInModelOrderAndReturnTheNewSize) {
  SmallModel s;
  TQLogicalTQIPInstance* kpe2 = s.model.addTQIPInstance("kpe2");
  s.model.addShimPort("k0", *kpe2);

  std::vector<TQLogicalTQIPInstance*> kpes{nullptr};
  EXPECT_EQ(s.model.getTQIPInstances(kpes), 3u);
  EXPECT_EQ(kpes, (std::vector<TQLogicalTQIPInstance*>{nullptr, s.kpe, kpe2}));

  std::vector<TQLogicalPort*> ports{s.n0};
  EXPECT_EQ(s.model.getTQIPLogicalPorts(ports), 4u);
  EXPECT_EQ(namesOf(ports), (std::vector<std::string>{"n0@noc", "k0@kpe", "k1@kpe", "k0@kpe2"}));
  std::vector<TQLogicalPort*> plPorts;
  EXPECT_EQ(s.model.getPLIPLogicalPorts(plPorts), 1u);

  std::vector<TQLogicalConnection*> connections{s.c1};
  EXPECT_EQ(s.model.getLogicalConnections(connections), 2u);

  EXPECT_EQ(s.model.getLogicalPortByName("k0", TQLogicalInstanceType::KPEIP), s.k0);
  EXPECT_EQ(s.model.getLogicalPortByName("k0", TQLogicalInstanceType::NOCIP), nullptr);

  // An instance whose type no longer fits its class is not handed out as that class.
  s.pl->setType(TQLogicalInstanceType::KPEIP);
  kpes.clear();
  EXPECT_EQ(s.model.getTQIPInstances(kpes), 2u);
}

TEST(TQLogicalArchModel, PortNamesAreCheckedByTheModelButNotByTheInstance) {
  SmallModel s;
  EXPECT_EQ(s.model.addShimPort("k0", *s.kpe), nullptr);
  EXPECT_EQ(s.model.addPLPort("k0", *s.pl)->getParentInstance(), s.pl);

  TQLogicalPort* second = s.kpe->addPort("k0");
  EXPECT_EQ(s.kpe->getPorts().size(), 3u);
  EXPECT_EQ(s.kpe->getLogicalPort("k0"), second);
  EXPECT_EQ(s.kpe->getLogicalPortByName("k0"), s.k0);
  EXPECT_EQ(second->getParentInstance(), s.kpe);
}

TEST(TQLogicalArchModel, ConnectionsReachTheMapOnlyThroughRename) {
  SmallModel s;
  EXPECT_FALSE(s.model.hasLogicalConnection("c1"));
  EXPECT_EQ(s.model.getLogicalConnection("c1"), nullptr);
  TQLogicalConnection* twin = s.model.addLogicalConnection("c1");
  ASSERT_NE(twin, nullptr);

  // The port remembers the connection it was attached to last.
  twin->setSrcPort(s.k0);
  EXPECT_EQ(s.k0->getLogicalConnection(), twin);
  EXPECT_EQ(s.n0->getLogicalConnection(), s.c1);

  SuffixRenamer renamer;
  s.model.rename(renamer);
  EXPECT_EQ(s.model.getLogicalConnection("c1_r"), twin);
  EXPECT_EQ(s.model.addLogicalConnection("c1_r"), nullptr);
}

TEST(TQLogicalArchModel, RenameWalksInstancesWithPortsThenConnectionsAndRebuildsEveryMap) {
  SmallModel s;
  s.model.addLogicalConnection("c2");
  SuffixRenamer renamer;
  s.model.rename(renamer);

  EXPECT_EQ(renamer.calls, (std::vector<std::string>{"kpe", "k0", "k1", "noc", "n0", "pl", "p0", "c1", "c2"}));
  EXPECT_EQ(s.model.getLogicalInstance("kpe_r"), s.kpe);
  EXPECT_FALSE(s.model.hasLogicalInstance("kpe"));
  EXPECT_EQ(s.kpe->getLogicalPort("k1_r"), s.k1);
  EXPECT_FALSE(s.kpe->hasLogicalPort("k1"));
  EXPECT_TRUE(s.model.hasLogicalConnection("c2_r"));

  // Two objects with one name after a rename: the later one is found.
  s.k1->setName("k0_r");
  s.model.rename(renamer);
  EXPECT_EQ(s.kpe->getLogicalPort("k0_r_r"), s.k1);
}

TEST(TQLogicalArchModel, VisitsInstancesThenConnectionPortsThenTheModel) {
  SmallModel s;
  std::vector<std::string> calls;
  s.model.accept(RecordingVisitor(calls));
  EXPECT_EQ(calls, (std::vector<std::string>{"inst:kpe", "inst:noc", "inst:pl", "port:k0", "port:n0", "port:p0",
                                             "conn:c1", "model:app"}));
}

TEST(TQLogicalPort, TextHelpersSkipEmptyEntries) {
  TQLogicalPort port("p");
  EXPECT_TRUE(port.isPLIO());
  EXPECT_FALSE(port.isGMIO());
  port.setHWAnnotation("hw");
  EXPECT_EQ(port.getHWAnnotationORAnnotationFirst(), "");

  port.setAnnotations({"a", "", "b"});
  port.setSDFIONames({"", "x"});
  EXPECT_EQ(port.getAnnotationsAsString(), "a;b");
  EXPECT_EQ(port.getSDFIONamesAsString(), "x");
  EXPECT_EQ(port.getSDFIONameFirst(), "");
  EXPECT_EQ(port.getHWAnnotationORAnnotationFirst(), "a");
  EXPECT_FALSE(port.matchSWAnnotation(std::string()));
  EXPECT_FALSE(port.matchSWAnnotation(std::vector<std::string>{"", "hw"}));
  EXPECT_TRUE(port.matchSWAnnotation(std::vector<std::string>{"", "b"}));

  port.setType(TQLogicalConnectionDataFlowTypeEnum::Mem);
  EXPECT_TRUE(port.isGMIO());
  EXPECT_FALSE(port.isPLIO());
}

TEST(TQLogicalArchModel, AnnotationSearchPrefersSoftwareWithinAnInstanceAndInstancesInOrder) {
  TQLogicalArchModel model;
  TQLogicalPLIPInstance* first = model.addPLIPInstance("first");
  TQLogicalPLIPInstance* second = model.addPLIPInstance("second");
  TQLogicalPort* hwEarly = model.addPLPort("hwEarly", *first);
  TQLogicalPort* swLate = model.addPLPort("swLate", *first);
  TQLogicalPort* swOther = model.addPLPort("swOther", *second);
  hwEarly->setHWAnnotation("x");
  swLate->addAnnotation("x");
  swOther->addAnnotation("y");

  EXPECT_EQ(first->getLogicalPortBySWOrHWAnnotation("x"), swLate);
  EXPECT_EQ(first->getLogicalPortBySWOrHWAnnotation(""), nullptr);

  // A hardware match on the first instance beats a software match on the second.
  second->addPort("swSecond")->addAnnotation("h");
  hwEarly->setHWAnnotation("h");
  EXPECT_EQ(model.getLogicalPortBySWOrHWAnnotation("h", TQLogicalInstanceType::PLIP), hwEarly);
  EXPECT_EQ(model.getLogicalPortBySWOrHWAnnotation("h", TQLogicalInstanceType::KPEIP), nullptr);

  // The equivalent port is tried by the given port's texts in ascending byte order.
  TQLogicalPort probe("probe");
  probe.setAnnotations({"y", "", "h"});
  EXPECT_EQ(second->getEquivalentPortBySWOrHWAnnotation(&probe), second->getLogicalPort("swSecond"));
  probe.setAnnotations({"y"});
  probe.setHWAnnotation("z");
  EXPECT_EQ(model.getEquivalentPortBySWOrHWAnnotation(&probe, TQLogicalInstanceType::PLIP), swOther);
  probe.setAnnotations({});
  EXPECT_EQ(model.getEquivalentPortBySWOrHWAnnotation(&probe, TQLogicalInstanceType::PLIP), nullptr);
}

TEST(TQLogicalArchLInst, CloneKeepsTheClassFieldsAndCopiesPortsUnconnected) {
  SmallModel s;
  s.noc->setIPType(TQLogicalIPTypeEnum::Stream);
  s.noc->setVLNVName("v");
  s.noc->setHWAnnotation("hw");
  s.n0->setDataWidth(64);
  s.n0->addAnnotation("a");
  s.n0->addTqChannelFullHierName("top/ch");

  std::unique_ptr<TQLogicalNOCIPInstance> clone(s.noc->clone());
  EXPECT_EQ(clone->getName(), "noc");
  EXPECT_EQ(clone->getType(), TQLogicalInstanceType::NOCIP);
  EXPECT_EQ(clone->getIPType(), TQLogicalIPTypeEnum::Stream);
  EXPECT_EQ(clone->getVLNVName(), "v");
  EXPECT_EQ(clone->getHWAnnotation(), "hw");
  TQLogicalPort* port = clone->getLogicalPort("n0");
  ASSERT_NE(port, nullptr);
  EXPECT_NE(port, s.n0);
  EXPECT_EQ(port->getParentInstance(), clone.get());
  EXPECT_EQ(port->getLogicalConnection(), nullptr);
  EXPECT_EQ(port->getDataWidth(), 64u);
  EXPECT_EQ(port->getAnnotations(), std::vector<std::string>{"a"});
  EXPECT_EQ(port->getTqChannelFullHierNames(), std::vector<std::string>{"top/ch"});

  TQLogicalNOCIPInstance copied(*s.noc);
  EXPECT_TRUE(copied.getPorts().empty());
  EXPECT_EQ(copied.getIPType(), TQLogicalIPTypeEnum::Stream);
}

TEST(TQLogicalArchModel, CopyRefusesAnyClashAndLeavesTheTargetAlone) {
  SmallModel source;
  TQLogicalArchModel target;
  target.setAppID("mine");
  target.addPLIPInstance("x");
  target.addNOCIPInstance("pl");
  EXPECT_FALSE(target.canCopy(source.model));
  EXPECT_FALSE(target.copy(source.model));
  EXPECT_EQ(target.getInstances().size(), 2u);
  EXPECT_EQ(target.getAppID(), "mine");

  // Connections from addLogicalConnection are not in the map, so they clash only after a rename.
  TQLogicalArchModel withConnection;
  withConnection.addLogicalConnection("c1");
  EXPECT_TRUE(withConnection.canCopy(source.model));
  SuffixRenamer renamer;
  source.model.rename(renamer);
  withConnection.addLogicalConnection("c1_r");
  withConnection.rename(renamer);
  EXPECT_FALSE(withConnection.canCopy(source.model));
}

TEST(TQLogicalArchModel, CopyClonesInstancesAndReattachesConnectionsToTheNewPorts) {
  SmallModel source;
  source.c1->setDirectionType(TQLogicalConnectionDirectionEnum::KpeToNoc);
  source.model.addLogicalConnection("dangling")->addDstPort(source.k1);
  TQLogicalArchModel target;
  target.setPlatform("old");
  target.addPLIPInstance("own");

  ASSERT_TRUE(target.copy(source.model));
  EXPECT_EQ(target.getAppID(), "app");
  EXPECT_EQ(target.getDeviceModel(), "dev");
  EXPECT_EQ(target.getSchema(), "1.0");
  EXPECT_EQ(target.getPlatform(), "plat");
  EXPECT_EQ(target.getInstances().size(), 4u);

  TQLogicalConnection* c1 = target.getLogicalConnection("c1");
  ASSERT_NE(c1, nullptr);
  EXPECT_NE(c1, source.c1);
  EXPECT_EQ(c1->getDirectionType(), TQLogicalConnectionDirectionEnum::KpeToNoc);
  TQLogicalPort* k0 = target.getLogicalInstance("kpe")->getLogicalPort("k0");
  EXPECT_EQ(c1->getSrcPort(), k0);
  EXPECT_EQ(k0->getLogicalConnection(), c1);
  std::vector<TQLogicalPort*> destinations;
  c1->getDstPorts(destinations);
  EXPECT_EQ(namesOf(destinations), (std::vector<std::string>{"n0@noc", "p0@pl"}));
  EXPECT_EQ(source.n0->getLogicalConnection(), source.c1);

  TQLogicalConnection* dangling = target.getLogicalConnection("dangling");
  ASSERT_NE(dangling, nullptr);
  EXPECT_EQ(dangling->getSrcPort(), nullptr);
  EXPECT_EQ(dangling->getDstPorts().size(), 1u);
}

TEST(TQLogicalArchModel, CopyOntoItselfOnlyWhenNothingClashes) {
  SmallModel s;
  EXPECT_FALSE(s.model.copy(s.model));

  TQLogicalArchModel connectionsOnly;
  connectionsOnly.addLogicalConnection("c");
  EXPECT_TRUE(connectionsOnly.copy(connectionsOnly));
  std::vector<TQLogicalConnection*> all;
  EXPECT_EQ(connectionsOnly.getLogicalConnections(all), 2u);
}

TEST(TQLogicalArchModel, ClearDropsObjectsButKeepsTheTexts) {
  SmallModel s;
  s.model.clear();
  EXPECT_TRUE(s.model.isEmpty());
  EXPECT_FALSE(s.model.hasLogicalInstance("kpe"));
  EXPECT_EQ(s.model.getAppID(), "app");
  EXPECT_EQ(s.model.getDeviceModel(), "dev");
  EXPECT_EQ(s.model.getSchema(), "1.0");
  EXPECT_EQ(s.model.getPlatform(), "plat");
  EXPECT_NE(s.model.addTQIPInstance("kpe"), nullptr);
}

TEST(TQLogicalArchTypes, TextsOfEveryEnumerationAndTheUnknownValue) {
  EXPECT_STREQ(toText(TQLogicalConnectionDirectionEnum::PlToPl), "pl_to_pl");
  EXPECT_STREQ(toText(static_cast<TQLogicalConnectionDirectionEnum>(42)), "unknown");
  EXPECT_STREQ(toText(TQLogicalIPTypeEnum::Mem), "mem");
  EXPECT_STREQ(toText(TQLogicalConnectionDataFlowTypeEnum::Mem), "mem");
  EXPECT_STREQ(toText(TQLogicalConnectionMemModeEnum::ReadWrite), "read-write");
  EXPECT_STREQ(toText(TQLogicalInstanceType::NOCIP), "nocip");
  EXPECT_EQ(fromText<TQLogicalIPTypeEnum>("stream"), TQLogicalIPTypeEnum::Stream);
  EXPECT_EQ(fromText<TQLogicalConnectionDataFlowTypeEnum>("stream"), TQLogicalConnectionDataFlowTypeEnum::Stream);
  EXPECT_EQ(fromText<TQLogicalConnectionAddrTypeEnum>("physical"), TQLogicalConnectionAddrTypeEnum::Physical);
  EXPECT_EQ(fromText<TQLogicalPortDirectionTypeEnum>("Master"), TQLogicalPortDirectionTypeEnum::Unknown);
  EXPECT_EQ(fromText<TQLogicalConnectionDirectionEnum>("tq_to_pl"), TQLogicalConnectionDirectionEnum::Unknown);
}
