#include <gtest/gtest.h>

#include "BaseNameResolver.h"
#include "ColocationConstraints.h"
#include "ConstrHandler.h"
#include "GroupConstraints.h"
#include "HEXAlgException.h"
#include "LocationConstraints.h"
#include "TestSupport.h"

using namespace kpe::constraints;
using Strings = std::vector<std::string>;
typedef BaseConstraint B;

namespace {

std::string dumpOf(ConstrHandler const& store) {
  std::string text;
  for (BaseConstraint const* constraint : store.getConstrs())
    text += constraint->str() + "\n";
  return text;
}

// Gives the factory to a test, as a derived store may use it.
class OpenStore : public ConstrHandler {
 public:
  using ConstrHandler::createAttrConstr;
  using ConstrHandler::createConstr;
  using ConstrHandler::createGlobalConstr;
};

// Maps "a" to the two names "a1" and "a2", drops "gone", keeps the rest.
class SplittingResolver : public BaseNameResolver {
 public:
  SplittingResolver() { quiet = true; }
  std::string resolveNodeName(std::string const& name) const override { return name == "gone" ? "" : name; }

 protected:
  void resolveNodePattern(std::string const& name, std::vector<std::string>& out) const override {
    if (name == "a") {
      out.insert(out.end(), {"a1", "a2"});
    } else {
      BaseNameResolver::resolveNodePattern(name, out);
    }
  }
};

class ConstrHandlerTest : public ::testing::Test {
 protected:
  ~ConstrHandlerTest() override {
    store.clear();
    target.clear();
  }
  ConstrHandler store;
  ConstrHandler target;
};

}  // namespace

TEST_F(ConstrHandlerTest, QueriesLeaveOutAloneForUnknownNamesOnly) {
  ConstrHandler::ConstrList out(1, nullptr);
  store.getConstrs("nobody", out);
  store.getConstrs("nobody", "kpe.tile", out);
  EXPECT_EQ(1u, out.size());
  store.getConstrs(B::NODE, out);
  EXPECT_TRUE(out.empty());

  store.setTileConstr("n", "t");
  BaseConstraint* tile = store.getTileConstr("n");
  store.unload(tile);
  out.assign(1, nullptr);
  store.getConstrs("n", out);
  EXPECT_TRUE(out.empty());
  EXPECT_TRUE(store.empty());
  store.unload(nullptr);
}

TEST_F(ConstrHandlerTest, OneConstraintOfAKindPerObjectWithTheLastValues) {
  store.setTileConstr("n", "t");
  store.setTileConstr("n", 1, 2, PhysicalSpec::MEM);
  store.setColocatedNodesConstr(B::PORT, "n", {"x"}, false);
  store.setColocatedNodesConstr(B::NODE, "n", {"y"}, false);
  EXPECT_EQ(2u, store.size());
  TileConstr const* tile = store.getTileConstr("n");
  EXPECT_FALSE(tile->hasName());
  EXPECT_EQ(HDPoint<int>(1, 2), tile->getXY());
  EXPECT_EQ(PhysicalSpec::MEM, tile->getPhysicalType());
  EXPECT_EQ(B::PORT, store.getColocatedNodesConstr("n")->getObjType());
  EXPECT_EQ(Strings{"y"}, store.getColocatedNodesConstr("n")->getColocatedNodeNames());
  EXPECT_EQ(tile, store.getConstr("n", "tile"));
  EXPECT_EQ(tile, store.getConstr("n", B::TILE));

  store.setTileConstr("", "t");
  store.setAttrConstr(B::NODE, "n", "", 3);
  EXPECT_EQ(2u, store.size());
}

TEST_F(ConstrHandlerTest, AttributesAreFoundByCanonicalNameWithoutCase) {
  store.setAttrConstr(B::NODE, "n", "margin", 3);
  store.setAttrConstr(B::NODE, "n", "KPE.Margin", 2.5);
  store.setAttrConstr(B::NODE, "n", "note", "text");
  EXPECT_EQ(2u, store.size());
  AttrConstr const* margin = store.getAttrConstr("n", "kpe.margin");
  ASSERT_NE(nullptr, margin);
  EXPECT_EQ("KPE.MARGIN", margin->getConstrName());
  EXPECT_EQ(AttrConstr::INT, margin->getAttrType());
  EXPECT_EQ(AttrConstr::STRING, store.getAttrConstr("n", "note")->getAttrType());
  EXPECT_EQ("text", store.getAttrConstr("n", "note")->getStringValue());
  EXPECT_THROW(store.getAttrConstr("n", ""), HEXAlgException);
}

TEST_F(ConstrHandlerTest, ConstraintsAreFoundByTheNameOrItsCanonicalFormWithoutCase) {
  store.setTileConstr("n", "t");
  store.setAttrConstr(B::NODE, "n", "margin", 1);
  store.setAttrConstr(B::NODE, "n", "tq.old", 2);
  BaseConstraint* const tile = store.getTileConstr("n");
  EXPECT_EQ(tile, store.getConstr("n", "TILE"));
  EXPECT_EQ(tile, store.getConstr("n", "Kpe.Tile"));
  EXPECT_EQ(store.getAttrConstr("n", "margin"), store.getConstr("n", "Margin"));
  EXPECT_EQ("kpe.tq.old", store.getConstr("n", "TQ.OLD")->getConstrName());
  EXPECT_EQ(nullptr, store.getConstr("n", "pe.tile"));
  EXPECT_EQ(nullptr, store.getConstr("n", "kpe."));
  EXPECT_EQ(nullptr, store.getConstr("n", "tq.tile"));
  EXPECT_EQ(nullptr, store.getConstr("n", ""));
  EXPECT_EQ(nullptr, store.getConstr("m", "tile"));
}

TEST_F(ConstrHandlerTest, GroupFlagsAreTakenOnlyByTheCallThatMakesTheGroup) {
  store.addInstGroupConstr("ig", {"a"}, true);
  store.addInstGroupConstr("ig", {"b", "a"}, false);
  EXPECT_TRUE(store.getInstGroupConstr("ig")->isIsomorphic());
  EXPECT_EQ((Strings{"a", "b"}), store.getInstGroupConstr("ig")->getNodeNames());
  store.setInstGroupConstr("ig", {"c"}, false);
  EXPECT_FALSE(store.getInstGroupConstr("ig")->isIsomorphic());

  store.addAreaGroupConstr("ag", {}, {}, true, true, true, true, true);
  store.addAreaGroupConstr("ag", {"n"}, {}, false, false, false, false, false);
  EXPECT_EQ(
      " areaGroup(ag)=(n,)() exclude=(true) isSoft=(true) contain_routing=(true) exclusive_routing=(true)"
      " exclusive_placement=(true)",
      store.getAreaGroupConstr("ag")->str());
  ConstrHandler::ConstrList byName;
  store.getConstrs("ag", byName);
  EXPECT_EQ(ConstrHandler::ConstrList{store.getAreaGroupConstr("ag")}, byName);
}

// The set and add operations find a group by kind and name, also after renamePorts has
// moved the index entries of a port of that name, and never find an unloaded one.
TEST_F(ConstrHandlerTest, GroupsAreFoundByKindAndNameAfterPortRenamesAndUnload) {
  store.addInstGroupConstr("g", {"a"}, false);
  store.addDependentRoutingGroupConstr("g", {"b"});
  store.setColocatedDmaConstr(B::PORT, "g", {"q"});
  store.renamePorts({{"g", "h"}});
  store.addInstGroupConstr("g", {"c"}, true);
  store.addDependentRoutingGroupConstr("g", {"d"});
  store.addAreaGroupConstr("g", {"e"}, {}, false, true, false, false, false);
  EXPECT_EQ(4u, store.size());
  EXPECT_EQ((Strings{"a", "c"}), store.getInstGroupConstr("g")->getNodeNames());
  EXPECT_FALSE(store.getInstGroupConstr("g")->isIsomorphic());
  EXPECT_EQ((Strings{"b", "d"}), store.getDependentRoutingGroupConstr("g")->getNodeNames());

  store.unload(store.getDependentRoutingGroupConstr("g"));
  store.addDependentRoutingGroupConstr("g", {"x"});
  EXPECT_EQ(Strings{"x"}, store.getDependentRoutingGroupConstr("g")->getNodeNames());
  EXPECT_EQ(4u, store.size());
}

TEST_F(ConstrHandlerTest, RelationsAreReadFromBothSides) {
  store.setColocatedNodesConstr(B::NODE, "a", {"b"}, false);
  store.setColocatedNodesConstr(B::NODE, "c", {"b"}, false);
  store.setColocatedNodesConstr(B::NODE, "b", {"d"}, false);
  Strings out{"x"};
  store.getColocatedNodes("b", out);
  EXPECT_EQ((Strings{"d", "a", "c"}), out);
  out = {"a"};
  store.getColocatedNodes("e", out);
  EXPECT_EQ(Strings{"a"}, out);
  store.getNotColocatedNodes("b", out);
  EXPECT_TRUE(out.empty());

  store.setColocatedPortsConstr(B::PORT, "p1", {"p2"}, false);
  store.setColocatedNodesConstr(B::PORT, "p3", {"p2"}, false);
  store.setColocatedMemoriesConstr(B::PORT, "p4", {"p2"}, false);
  store.setColocatedMemoriesConstr(B::NODE, "m", {"p2"}, false);
  store.setColocatedNodesConstr(B::NODE, "n", {"p2"}, false);
  out.clear();
  store.getColocatedPorts("p2", out);
  EXPECT_EQ((Strings{"p1", "p3", "p4"}), out);
  out.clear();
  store.getColocatedMemories("p2", out);
  EXPECT_EQ(Strings{"m"}, out);

  store.addExclusiveColocatedPortsConstr(B::PORT, "p1", {"p5"});
  store.setColocatedDmaConstr(B::PORT, "p6", {"p5"});
  out.clear();
  store.getExclusiveColocatedPorts("p5", out);
  store.getColocatedDma("p5", out);
  EXPECT_EQ((Strings{"p1", "p6"}), out);
}

TEST_F(ConstrHandlerTest, PortOnlyOperationsCheckTheObjectTypeFirst) {
  struct Case {
    std::function<void()> call;
    char const* text;
  };
  Strings const names{"x"};
  std::vector<Case> const cases = {
      {[&] { store.setColocatedPortsConstr(B::NODE, "", names, false); },
       "ConstrHandler::setColocatedPortsConstr() - objType must be PORT"},
      {[&] { store.addColocatedPortsConstr(B::NET, "p", names, true); },
       "ConstrHandler::addColocatedPortsConstr() - objType must be PORT"},
      {[&] { store.setExclusiveColocatedPortsConstr(B::NODE, "p", names); },
       "ConstrHandler::setExclusiveColocatedPortsConstr() - objType must be PORT"},
      {[&] { store.addExclusiveColocatedPortsConstr(B::NODE, "p", names); },
       "ConstrHandler::addExclusiveColocatedPortsConstr() - objType must be PORT"},
      {[&] { store.setColocatedDmaConstr(B::NODE, "p", names); },
       "ConstrHandler::setColocatedDmaConstr() - objType must be PORT"},
      {[&] { store.addColocatedDmaConstr(B::GLOBAL, "p", names); },
       "ConstrHandler::addColocatedDmaConstr() - objType must be PORT"},
      {[&] { store.setFifoLocationsConstr(B::NODE, "p", names); },
       "ConstrHandler::setFifoLocationsConstr() - objType must be PORT"},
      {[&] { store.addFifoLocationsConstr(B::NODE, "", names); },
       "ConstrHandler::addFifoLocationsConstr() - objType must be PORT"},
  };
  for (Case const& test : cases) {
    try {
      test.call();
      ADD_FAILURE() << "no exception for " << test.text;
    } catch (HEXAlgException const& error) {
      EXPECT_STREQ(test.text, error.what());
    }
  }
  EXPECT_TRUE(store.empty());
}

TEST_F(ConstrHandlerTest, FactoryRefusesKindsItDoesNotServe) {
  OpenStore open;
  try {
    open.createConstr(B::ATTR, B::NODE, "n");
    ADD_FAILURE() << "an attribute was made by createConstr";
  } catch (HEXAlgException const& error) {
    EXPECT_STREQ("ConstrHandler::createConstr() - this function does not support creating constraints of type 'Attr'",
                 error.what());
  }
  EXPECT_THROW(open.createConstr(B::AREA_GROUP, B::NODE, "n"), HEXAlgException);
  try {
    open.createGlobalConstr(B::TILE, "g");
    ADD_FAILURE() << "a tile was made by createGlobalConstr";
  } catch (HEXAlgException const& error) {
    EXPECT_STREQ(
        "ConstrHandler::createGlobalConstr() - this function does not support creating constraints of type 'Tile'",
        error.what());
  }
  EXPECT_EQ(nullptr, open.createAttrConstr(B::NODE, "", AttrConstr::INT, "a"));
  EXPECT_EQ(B::PORT, open.createConstr(B::BUFFER, B::NODE, "b")->getObjType());
  EXPECT_EQ(B::NET, open.createConstr(B::COLOCATED_MEMORIES, B::NET, "m")->getObjType());
  EXPECT_EQ(2u, open.size());
  open.clear();
}

TEST_F(ConstrHandlerTest, EqualFifoLocationsShareOneRecord) {
  store.setDmaFifoLocationConstr(B::PORT, "p1", PhysicalSpec::MEM, 1, 2, 64, 0, 1);
  store.addDmaFifoLocationConstr(B::PORT, "p2", PhysicalSpec::MEM, 1, 2, 64, 0, 1);
  store.addDmaFifoLocationConstr(B::PORT, "p2", PhysicalSpec::MEM, 1, 2, 32, 0, 1);
  store.setStreamFifoLocationConstr(B::PORT, "", PhysicalSpec::SHIM, 4, 0, 1);
  EXPECT_EQ(2u, store.size());
  EXPECT_EQ((Strings{"dmsfr0", "dmsfr1", "swfr0"}), [this] {
    Strings names;
    for (auto const& record : store.getFifoLocationsRecords())
      names.push_back(record.first);
    return names;
  }());
  EXPECT_EQ((Strings{"dmsfr0", "dmsfr1"}), store.getFifoLocationsConstr("p2")->getFifoLocationsRecordNames());
  std::vector<FifoLocationsConstr*> users;
  store.getFifoLocationsConstrs("dmsfr0", users);
  EXPECT_EQ(2u, users.size());
  store.addDmaFifoRecord("swfr0", PhysicalSpec::MEM, 0, 0, 1, 1, 1);
  EXPECT_EQ(nullptr, store.addDmaFifoRecord("swfr0", PhysicalSpec::MEM, 0, 0, 1, 1, 1));
}

TEST_F(ConstrHandlerTest, CopyMergesThroughTheSetOperationsAndTheResolver) {
  store.setTileConstr("n", 1, 1, PhysicalSpec::TILE);
  store.getTileConstr("n")->getSrcInfo().file = "c.json";
  store.setColocatedNodesConstr(B::NODE, "n", {"a", "gone", "b"}, false);
  store.getColocatedNodesConstr("n")->setColocatedSoftNode("a", true);
  store.setRelativeNodesConstr(B::NODE, "n", {{"a", HDPoint<int>(1, 2)}});
  store.setAreaGroupConstr("ag", {"a"}, {}, false, true, false, false, false);
  store.setStreamFifoLocationConstr(B::PORT, "p", PhysicalSpec::SHIM, 2, 0, 1);
  target.setShimConstr("n", "keep");
  target.setTileConstr("n", "old");

  SplittingResolver resolver;
  target.copy(store, resolver);
  EXPECT_EQ(
      " abs(n,shim)=(-1,-1)\n"
      " abs(n,tile)=(1,1)\n"
      " rel(n,colocated_nodes)=(a1,a2,b,)\n"
      " rel(n,relative_nodes)=(,a1:(X=1,Y=2)a2:(X=1,Y=2))\n"
      " areaGroup(ag)=(a1,a2,)() exclude=(false) isSoft=(true) contain_routing=(false) exclusive_routing=(false)"
      " exclusive_placement=(false)\n"
      " rel(p,fifo_locations)=(swfr0,)\n",
      dumpOf(target));
  EXPECT_EQ((Strings{"a1", "a2"}), target.getColocatedNodesConstr("n")->getColocatedSoftNodes());
  EXPECT_EQ("c.json", target.getTileConstr("n")->getSrcInfo().file);
  EXPECT_TRUE(target.getRecords().equals(store.getRecords()));

  target.clear();
  target.copy(store);
  EXPECT_EQ((Strings{"a", "gone", "b"}), target.getColocatedNodesConstr("n")->getColocatedNodeNames());
}

TEST_F(ConstrHandlerTest, RenamePortsMovesObjectsListsAndIndex) {
  store.setColocatedPortsConstr(B::PORT, "p", {"q", "r"}, false);
  store.getColocatedPortsConstr("p")->setColocatedSoftPort("q", true);
  store.setColocatedDmaConstr(B::PORT, "r", {"p"});
  store.setColocatedNodesConstr(B::PORT, "s", {"p"}, false);
  store.setTileConstr("p2", "t");
  store.renamePorts({{"p", "p2"}, {"q", "q2"}, {"none", "x"}});

  ColocatedPortsConstr const* ports = store.getColocatedPortsConstr("p2");
  ASSERT_NE(nullptr, ports);
  EXPECT_EQ("p2", ports->getObjName());
  EXPECT_EQ((Strings{"q2", "r"}), ports->getColocatedPortNames());
  EXPECT_TRUE(ports->isColocatedSoftPort("q2"));
  EXPECT_EQ(Strings{"p2"}, store.getColocatedDmaConstr("r")->getColocatedPortNames());
  EXPECT_EQ(Strings{"p"}, store.getColocatedNodesConstr("s")->getColocatedNodeNames());
  EXPECT_EQ(nullptr, store.getColocatedPortsConstr("p"));
  // The tile that stood under the new name is no longer found through the index.
  EXPECT_EQ(nullptr, store.getTileConstr("p2"));
  EXPECT_EQ(4u, store.size());
}

// The store remembers the index entry it was asked for last; renamePorts erases that entry.
TEST_F(ConstrHandlerTest, TheOldNameOfARenamedPortIsUnknownAndFreeForANewConstraint) {
  store.setPortLocConstr("p", "s", 1);
  ASSERT_NE(nullptr, store.getPortLocConstr("p"));
  store.renamePorts({{"p", "q"}});
  ConstrHandler::ConstrList out{nullptr};
  store.getConstrs("p", out);
  EXPECT_EQ(ConstrHandler::ConstrList{nullptr}, out);
  EXPECT_EQ(nullptr, store.getPortLocConstr("p"));
  store.setPortLocConstr("p", "t", 2);
  EXPECT_EQ(2u, store.size());
  EXPECT_EQ("s", store.getPortLocConstr("q")->getName());
  EXPECT_EQ("t", store.getPortLocConstr("p")->getName());
}

TEST_F(ConstrHandlerTest, ConstrainedObjectsAreListedOnceInOrderOfAppearance) {
  store.setAttrConstr(B::NET, "w", "weight", 1);
  store.setShimConstr("b", 1, 0);
  store.setTileConstr("a", "t");
  store.setShimConstr("a", "s");
  store.setBufferConstr("b", Address(), Address(), Address());
  Strings nodes, ports, nets;
  store.getAllConstrainedNodes(nodes);
  store.getAllConstrainedPorts(ports);
  store.getAllConstrainedNets(nets);
  EXPECT_EQ((Strings{"b", "a"}), nodes);
  EXPECT_EQ(Strings{"b"}, ports);
  EXPECT_EQ(Strings{"w"}, nets);
  EXPECT_FALSE(store.hasToolGeneratedStores());
  EXPECT_EQ(nullptr, store.getToolGeneratedStore(true));
}
