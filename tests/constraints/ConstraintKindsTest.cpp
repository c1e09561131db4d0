#include <gtest/gtest.h>

#include "AttrConstr.h"
#include "BaseNameResolver.h"
#include "ColocationConstraints.h"
#include "ConstrHandler.h"
#include "FifoLocations.h"
#include "GroupConstraints.h"
#include "LocationConstraints.h"

using namespace kpe::constraints;
using Strings = std::vector<std::string>;
typedef BaseConstraint B;

namespace {

class ConstraintKindsTest : public ::testing::Test {
 protected:
  ~ConstraintKindsTest() override {
    store.clear();
    target.clear();
  }
  ConstrHandler store;
  ConstrHandler target;
};

// Maps every node "x" in a list to "x.0" and "x.1"; single names stay.
class DoublingResolver : public BaseNameResolver {
 protected:
  void resolveNodePattern(std::string const& name, std::vector<std::string>& out) const override {
    out.insert(out.end(), {name + ".0", name + ".1"});
  }
};

PhysicalSpec at(PhysicalSpec::PhysicalType type, int column, int row) {
  PhysicalSpec spec(type);
  spec.setXY(column, row);
  return spec;
}

}  // namespace

TEST_F(ConstraintKindsTest, DirectionTextsIgnoreCaseAndUnknownWords) {
  StreamChannelConstr stream("p");
  stream.setDirection("north");
  EXPECT_EQ(StreamChannelConstr::North, stream.getDirection());
  stream.setDirection("upward");
  EXPECT_EQ("North", stream.getDirectionAsStr());
  stream.setDirection("WEST");
  EXPECT_EQ(StreamChannelConstr::West, stream.getDirection());
  stream.setDirection("");
  EXPECT_EQ(StreamChannelConstr::Unset, stream.getDirection());
  EXPECT_EQ("unset", stream.getDirectionAsStr());
}

TEST_F(ConstraintKindsTest, ColumnShiftsMoveOnlyPlacesGivenByCoordinates) {
  store.setTileConstr("named", "t0");
  store.setTileConstr("placed", 3, 5, PhysicalSpec::TILE);
  store.setShimConstr("shim", 2, 1);
  store.setStreamChannelConstr("abs", 4, 1, 0, "East");
  store.setStreamChannelConstr("rel", 2, 0, "East");
  store.setBufferConstr("buf", Address(1, 0, -1, -1), Address(-2, 0, -1, -1), Address(-1, -1, 1, 4));
  store.setRelativeNodesConstr(B::NODE, "placed", {{"x", HDPoint<int>(1, 1)}});
  store.setAreaGroupConstr("ag", {}, {PhysicalRange(at(PhysicalSpec::TILE, 1, 1), PhysicalSpec())}, false, false, false,
                           false, false);
  PhysicalSpec named;
  named.setName("corner");
  store.getAreaGroupConstr("ag")->addRange(named);
  for (BaseConstraint* constraint : store.getConstrs())
    constraint->offsetColumn(1);

  std::string text;
  for (BaseConstraint const* constraint : store.getConstrs())
    text += constraint->str() + "\n";
  EXPECT_EQ(
      " abs(named,tile)=(-1,-1)\n"
      " abs(placed,tile)=(4,5)\n"
      " abs(shim,shim)=(3,1)\n"
      " stream_chan(abs)=Absolute:(5,1,0,East)\n"
      " stream_chan(rel)=Relative:(2,0,East)\n"
      " buf(buf,data_buffer)=ping=(2,0,-1,-1)rtpSelector=(-1,-1,1,4)\n"
      " rel(placed,relative_nodes)=(,x:(X=1,Y=1))\n"
      " areaGroup(ag)=()(  low=tile=(2,1)  low=tile=(corner)) exclude=(false) isSoft=(false)"
      " contain_routing=(false) exclusive_routing=(false) exclusive_placement=(false)\n",
      text);
  EXPECT_EQ("t0", store.getTileConstr("named")->getName());
  EXPECT_FALSE(store.getBufferConstr("buf")->getPong().hasColumn());
}

TEST_F(ConstraintKindsTest, ShiftingAPlaceClearsItsBankAndOffset) {
  AreaGroupConstr group;
  PhysicalSpec spec = at(PhysicalSpec::MEM, 1, 0);
  spec.setBankId(2);
  spec.setOffset(8);
  group.addRange(spec);
  group.offsetColumn(2);
  PhysicalSpec const& moved = group.getPhysicalRanges().front().getLow();
  EXPECT_EQ(3, moved.getColumn());
  EXPECT_FALSE(moved.hasBankId());
  EXPECT_FALSE(moved.hasOffset());
}

TEST_F(ConstraintKindsTest, ClonesUseTheFormTheSourceHolds) {
  store.setStreamChannelConstr("rel", 3, 1, "South");
  store.setPortLocConstr("named", "shim_a", 2);
  store.setPortLocConstr("placed", PhysicalSpec::MEM, 4, 1, 0);
  store.setShimConstr("empty", -1, 5);
  store.setMemConstr("m", Address(1, 1, 0, 0), Address());
  store.setReservedMemoryConstr("r", Address(-1, -1, 1, 2));
  target.copy(store);

  StreamChannelConstr const* stream = target.getStreamChannelConstr("rel");
  EXPECT_FALSE(stream->hasColumn());
  EXPECT_EQ(3, stream->getOffset());
  EXPECT_TRUE(stream->isValid());
  EXPECT_EQ("shim_a", target.getPortLocConstr("named")->getName());
  EXPECT_EQ(2, target.getPortLocConstr("named")->getChannel());
  EXPECT_EQ(PhysicalSpec::MEM, target.getPortLocConstr("placed")->getPhysicalType());
  EXPECT_EQ(nullptr, target.getShimConstr("empty"));
  EXPECT_EQ(" mem(m,shared_buffer)=ping=(1,1,0,0)", target.getMemConstr("m")->str());
  EXPECT_EQ(" buf(r,reserved_memory)=(-1,-1,1,2)", target.getReservedMemoryConstr("r")->str());
  EXPECT_EQ(5u, target.size());
}

TEST_F(ConstraintKindsTest, SoftMarksOfColocationLists) {
  store.setColocatedNodesConstr(B::NODE, "n", {"a", "b"}, false);
  ColocatedNodesConstr* nodes = store.getColocatedNodesConstr("n");
  nodes->addNodeNames({"b", "c"});
  EXPECT_EQ((Strings{"a", "b", "c"}), nodes->getColocatedNodeNames());
  EXPECT_TRUE(nodes->getColocatedSoftNodes().empty());
  nodes->setColocatedSoftNode("d", true);
  nodes->setColocatedSoftNode("a", true);
  nodes->setColocatedSoftNode("a", false);
  nodes->setColocatedSoftNode("e", false);
  EXPECT_EQ((Strings{"a", "b", "c", "d", "e"}), nodes->getColocatedNodeNames());
  EXPECT_EQ(Strings{"d"}, nodes->getColocatedSoftNodes());
  EXPECT_EQ(2u, nodes->getConstrObjectsProperties().size());
  nodes->setNotColocatedSoftNode("z", true);
  EXPECT_TRUE(nodes->isNotColocatedSoftNode("z"));
  EXPECT_FALSE(nodes->isColocatedSoftNode("z"));
}

TEST_F(ConstraintKindsTest, CloneThroughAResolverKeepsSoftMarksAndSources) {
  store.setColocatedNodesConstr(B::NODE, "n", {"a"}, true);
  ColocatedNodesConstr* nodes = store.getColocatedNodesConstr("n");
  nodes->setNotColocatedSoftNode("a", true);
  nodes->getNotColocatedSrcInfo().file = "c.json";
  nodes->getNotColocatedSrcInfo().kind = SrcInfo::EXPLICIT;
  DoublingResolver resolver;
  target.copy(store, resolver);
  ColocatedNodesConstr const* copy = target.getColocatedNodesConstr("n");
  ASSERT_NE(nullptr, copy);
  EXPECT_EQ((Strings{"a.0", "a.1"}), copy->getNotColocatedSoftNodes());
  EXPECT_EQ("c.json", copy->getNotColocatedSrcInfo().file);
  EXPECT_EQ(" rel(n,not_colocated_nodes)=(a.0,a.1,)", copy->str());
}

TEST_F(ConstraintKindsTest, ColocatedPortListsAndTheirTexts) {
  store.setColocatedPortsConstr(B::PORT, "p", {"q"}, true);
  store.addExclusiveColocatedPortsConstr(B::PORT, "p", {"r", "r"});
  ColocatedPortsConstr* ports = store.getColocatedPortsConstr("p");
  ports->setNotColocatedSoftPort("q", true);
  ports->getExclusiveColocatedSrcInfo().line = 4;
  EXPECT_EQ(" rel(p,not_colocated_ports)=(q,) rel(p,exclusive_colocated_ports)=(r,)", ports->str());
  EXPECT_TRUE(ports->hasPortNames());
  EXPECT_FALSE(ports->hasColocatedPortNames());
  EXPECT_EQ(Strings{"q"}, ports->getNotColocatedSoftPorts());

  store.setColocatedMemoriesConstr(B::NODE, "m", {"a"}, false);
  EXPECT_EQ(" rel(m,colocated_memories)=(a,)", store.getColocatedMemoriesConstr("m")->str());

  ColocatedPortsConstr other("o");
  other.copySrcInfoFrom(ports);
  EXPECT_EQ(4, other.getExclusiveColocatedSrcInfo().line);
  TileConstr tile("t");
  tile.getSrcInfo().line = 9;
  other.copySrcInfoFrom(&tile);
  EXPECT_EQ(0, other.getSrcInfo().line);
}

TEST_F(ConstraintKindsTest, RelativeOffsetsAndTheirText) {
  RelativeNodesConstr relative("n");
  relative.setNodesWithOffset({{"b", HDPoint<int>(1, 2)}});
  relative.addNodesWithOffset({{"a", HDPoint<int>(0, -9999)}, {"b", HDPoint<int>(3, 4)}});
  EXPECT_EQ(" rel(n,relative_nodes)=(,a:(X=0,Y=-9999)b:(X=3,Y=4))", relative.str());
  EXPECT_EQ(HDPoint<int>(-9999, -9999), relative.getNodeOffset("c"));
  relative.unloadObject("a");
  Strings names;
  relative.getNodeNames(names);
  EXPECT_EQ(Strings{"b"}, names);
}

TEST_F(ConstraintKindsTest, AreaGroupRangesAndValidity) {
  AreaGroupConstr group;
  group.addRange(PhysicalSpec(PhysicalSpec::TILE));
  group.addRange(PhysicalSpec(PhysicalSpec::TILE), at(PhysicalSpec::TILE, 1, 1));
  group.addRange(PhysicalRange(PhysicalSpec(), at(PhysicalSpec::TILE, 1, 1)));
  EXPECT_FALSE(group.hasRanges());
  group.addRange(at(PhysicalSpec::MEM, 1, 0), at(PhysicalSpec::MEM, 2, 0));
  group.addRange(at(PhysicalSpec::SHIM, 1, 0), PhysicalSpec());
  group.addRanges({PhysicalRange()});
  std::vector<PhysicalRange> valid;
  group.getValidPhysicalGroup(valid);
  ASSERT_EQ(1u, valid.size());
  EXPECT_TRUE(valid.front().getLow().isShim());
  EXPECT_EQ(3u, group.getPhysicalRanges().size());
}

TEST_F(ConstraintKindsTest, FifoRecordsCompareByPlaceAndNames) {
  FifoLocationsRecords records;
  DmaFifoRecord* first = records.addDmaFifoRecord(PhysicalSpec::MEM, 1, 2, 64, 0, 1);
  DmaFifoRecord* second = records.addDmaFifoRecord("mine", PhysicalSpec::MEM, 1, 2, 64, 0, 1);
  StreamFifoRecord* stream = records.addStreamFifoRecord(PhysicalSpec::SHIM, 3, 0, 1);
  EXPECT_EQ("dmsfr0", first->getName());
  EXPECT_EQ("swfr0", stream->getName());
  EXPECT_TRUE(first->equals(*second));
  EXPECT_FALSE(first->equals(*stream));
  EXPECT_EQ(nullptr, records.addDmaFifoRecord("swfr0", PhysicalSpec::MEM, 1, 2, 64, 0, 1));
  EXPECT_EQ(second, records.addDmaFifoRecord("mine", PhysicalSpec::TILE, 0, 0, 0, 0, 0));

  FifoLocationsRecords empty;
  EXPECT_TRUE(empty.equals(records));
  EXPECT_FALSE(records.equals(empty));

  FifoLocationsConstr fifo("p");
  fifo.addFifoLocationsRecordNames({"a", "a"});
  EXPECT_EQ("a", fifo.getFifoLocationsRecordName(1));
  EXPECT_EQ("", fifo.getFifoLocationsRecordName(9));
}

TEST_F(ConstraintKindsTest, AttributeNamesBecomeCanonical) {
  EXPECT_EQ("KPE.MARGIN", AttrConstr::makeCanonicalAttrName("margin"));
  EXPECT_EQ("KPE.MARGIN", AttrConstr::makeCanonicalAttrName("Kpe.Margin"));
  EXPECT_EQ("kpe.MyAttr", AttrConstr::makeCanonicalAttrName("MyAttr"));
  EXPECT_EQ("kpe.tq.old", AttrConstr::makeCanonicalAttrName("tq.old"));
  EXPECT_EQ("KPE.x", AttrConstr::makeCanonicalAttrName("KPE.x"));

  store.setAttrConstr(B::NODE, "n", "flag", true);
  store.setAttrConstr(B::NODE, "n", "flag", 0);
  EXPECT_EQ(" attr(n)=(false)", store.getAttrConstr("n", "flag")->str());
  EXPECT_EQ(AttrConstr::BOOL, store.getAttrConstr("n", "flag")->getAttrType());
}

namespace {

// Ports "p" stand for "p.a" and "p.b" in lists; "x" has no counterpart.
class PortSplitter : public BaseNameResolver {
 public:
  PortSplitter() { quiet = true; }
  std::string resolvePortName(std::string const& name) const override { return name == "x" ? "" : name; }

 protected:
  void resolvePortPattern(std::string const& name, std::vector<std::string>& out) const override {
    if (name == "p") {
      out.insert(out.end(), {"p.a", "p.b"});
    } else {
      BaseNameResolver::resolvePortPattern(name, out);
    }
  }
};

}  // namespace

TEST_F(ConstraintKindsTest, PortListsCloneThroughThePortResolver) {
  store.setColocatedPortsConstr(B::PORT, "o", {"p", "x"}, false);
  store.getColocatedPortsConstr("o")->setColocatedSoftPort("p", true);
  store.setColocatedPortsConstr(B::PORT, "o", {"x"}, true);
  store.addExclusiveColocatedPortsConstr(B::PORT, "o", {"q"});
  store.getColocatedPortsConstr("o")->setExclusiveColocatedSoftPort("q", true);
  store.setColocatedDmaConstr(B::PORT, "o", {"p"});
  store.setColocatedDmaConstr(B::PORT, "d", {"x"});
  PortSplitter resolver;
  target.copy(store, resolver);

  ColocatedPortsConstr const* ports = target.getColocatedPortsConstr("o");
  ASSERT_NE(nullptr, ports);
  EXPECT_EQ(" rel(o,colocated_ports)=(p.a,p.b,) rel(o,exclusive_colocated_ports)=(q,)", ports->str());
  EXPECT_EQ((Strings{"p.a", "p.b"}), ports->getColocatedSoftPorts());
  EXPECT_EQ(Strings{"q"}, ports->getExclusiveColocatedSoftPorts());
  EXPECT_EQ(" rel(o,colocated_dma)=(p.a,p.b,)", target.getColocatedDmaConstr("o")->str());
  EXPECT_EQ(nullptr, target.getColocatedDmaConstr("d"));
  EXPECT_EQ(2u, target.size());
}

TEST_F(ConstraintKindsTest, PlacesAreCompleteOnlyWithTheirChannel) {
  store.setShimConstr("s", 1, -1);
  store.setPortLocConstr("p", "shim_a", -1);
  store.setStreamChannelConstr("abs", 1, 2, 0, "");
  store.setStreamChannelConstr("rel", 0, 1, "East");
  EXPECT_FALSE(store.getShimConstr("s")->isValid());
  EXPECT_FALSE(store.getPortLocConstr("p")->isValid());
  EXPECT_FALSE(store.getStreamChannelConstr("abs")->isValid());
  EXPECT_TRUE(store.getStreamChannelConstr("rel")->isValid());
  store.setShimConstr("s", 1, 0);
  store.setPortLocConstr("p", "shim_a", 4);
  store.setStreamChannelConstr("abs", 1, 2, 0, "north");
  EXPECT_TRUE(store.getShimConstr("s")->isValid());
  EXPECT_TRUE(store.getPortLocConstr("p")->isValid());
  EXPECT_TRUE(store.getStreamChannelConstr("abs")->isValid());
  EXPECT_EQ(" abs(p,shim)=(-1,4)", store.getPortLocConstr("p")->str());

  store.setAttrConstr(B::NODE, "n", "label", "text");
  EXPECT_EQ(AttrConstr::STRING, store.getAttrConstr("n", "label")->getAttrType());
  ConstrHandler::ConstrList out;
  store.getConstrs("abs", B::STREAM_CHANNEL, out);
  EXPECT_EQ(1u, out.size());
  store.getConstrs("abs", B::TILE, out);
  EXPECT_TRUE(out.empty());

  testing::internal::CaptureStdout();
  store.dump();
  EXPECT_EQ(
      " abs(s,shim)=(1,0)\n abs(p,shim)=(-1,4)\n stream_chan(abs)=Absolute:(1,2,0,North)\n"
      " stream_chan(rel)=Relative:(0,1,East)\n attr(n)=(text)\n",
      testing::internal::GetCapturedStdout());
}
