#include <gtest/gtest.h>

#include "AttrConstr.h"
#include "ColocationConstraints.h"
#include "ConstrCast.h"
#include "ConstrHandler.h"
#include "ConstrVisitor.h"
#include "GroupConstraints.h"
#include "HEXAlgException.h"
#include "LocationConstraints.h"
#include "PhysicalRange.h"

using namespace kpe::constraints;

namespace {

PhysicalSpec at(PhysicalSpec::PhysicalType type, int column, int row) {
  PhysicalSpec spec(type);
  spec.setXY(column, row);
  return spec;
}

}  // namespace

TEST(ConstraintCoreTest, CellsAtTheirDefaultCountAsUnset) {
  DefaultedAttr cell(HATAttr::INT);
  EXPECT_FALSE(cell.isSet());
  cell.setInt(0);
  EXPECT_TRUE(cell.isSet());
  cell.setInt(-1);
  EXPECT_FALSE(cell.isSet());

  Address address(-2, 0, -1, -1);
  address.offsetColumn(1);
  EXPECT_EQ(-1, address.getColumn());
  EXPECT_FALSE(address.hasColumn());
  EXPECT_EQ("(-1,0,-1,-1)", address.str());

  DefaultedAttr list(HATAttr::STRING_LIST);
  list.setStringList({"a"});
  EXPECT_TRUE(list.isSet());
  list.setStringList({});
  EXPECT_FALSE(list.isSet());
}

// A value of another kind converts the HATAttr, but the cell keeps the default of the kind
// it was made with, and reset returns to that kind.
TEST(ConstraintCoreTest, CellsKeepTheDefaultOfTheirOwnKind) {
  DefaultedAttr number(HATAttr::INT);
  number.setString("-1");
  EXPECT_EQ(HATAttr::STRING, number.getKind());
  EXPECT_FALSE(number.isSet());
  number.setString("7");
  EXPECT_TRUE(number.isSet());
  number.reset();
  EXPECT_EQ(HATAttr::INT, number.getKind());
  EXPECT_EQ(-1, number.getInt());

  DefaultedAttr text(HATAttr::STRING);
  text.setInt(5);
  EXPECT_TRUE(text.isSet());
  EXPECT_EQ("5", text.getString());
  text.setDouble(-1.0);
  EXPECT_EQ("-1", text.getString());
  EXPECT_TRUE(text.isSet());
  text.reset();
  EXPECT_EQ(HATAttr::STRING, text.getKind());
  EXPECT_EQ("", text.getString());
  EXPECT_FALSE(text.isSet());
}

// A text handed out by reference once the cell holds one is the cell's own: later sets and
// assignments show in it.
TEST(ConstraintCoreTest, HandedOutTextsFollowTheCell) {
  DefaultedAttr text(HATAttr::STRING);
  EXPECT_EQ("", text.getString());
  text.setString("tile_3");
  std::string const& handedOut = text.getString();
  text.setString("tile_4");
  EXPECT_EQ("tile_4", handedOut);
  text = DefaultedAttr(HATAttr::STRING);
  EXPECT_EQ("", handedOut);
  EXPECT_FALSE(text.isSet());

  DefaultedAttr list(HATAttr::STRING_LIST);
  list.setStringList({"a", "b"});
  DefaultedAttr copy(list);
  list.reset();
  EXPECT_EQ((std::vector<std::string>{"a", "b"}), copy.getStringList());
  EXPECT_TRUE(copy.isSet());
  copy = DefaultedAttr(HATAttr::STRING_LIST);
  EXPECT_TRUE(copy.getStringList().empty());
  EXPECT_FALSE(copy.isSet());
}

// A cell keeps the last string and the last list it was given apart from its number, as a
// HATAttr does: a set of another kind converts what the getters read but leaves them, and
// copies and resets take or drop them with the number.
TEST(ConstraintCoreTest, CellsConvertBetweenKindsAsAValueCell) {
  DefaultedAttr list(HATAttr::STRING_LIST);
  list.setStringList({"a", "b"});
  list.setInt(3);
  EXPECT_EQ(HATAttr::INT, list.getKind());
  EXPECT_EQ("3", list.toString());
  EXPECT_EQ((std::vector<std::string>{"a", "b"}), list.getStringList());
  EXPECT_TRUE(list.isSet());
  list.setStringList({});
  EXPECT_TRUE(list.getStringList().empty());
  EXPECT_FALSE(list.isSet());

  DefaultedAttr text(HATAttr::STRING);
  text.setString("x");
  text.setStringList({"p", "q"});
  EXPECT_EQ("p q", text.getString());
  text.setBool(true);
  EXPECT_EQ("true", text.getString());
  EXPECT_EQ(1, text.getInt());
  text.setString("");
  EXPECT_EQ("", text.getString());
  EXPECT_FALSE(text.isSet());

  DefaultedAttr number(HATAttr::INT);
  number.setString("2.5");
  EXPECT_EQ(2.5, number.getDouble());
  EXPECT_EQ(2, number.getInt());
  number.setDouble(2.5);
  EXPECT_EQ("2.5", number.toString());
  number.setBool(true);
  EXPECT_EQ(1.0, number.getDouble());
  DefaultedAttr const copy(number);
  number.reset();
  EXPECT_EQ("true", copy.toString());
  EXPECT_TRUE(copy.isSet());
  EXPECT_EQ("-1", number.toString());
  EXPECT_FALSE(number.isSet());

  DefaultedAttr flag(HATAttr::BOOL);
  flag.setString("1");
  EXPECT_TRUE(flag.isSet());
  flag.setString("yes");
  EXPECT_FALSE(flag.isSet());
  DefaultedAttr fraction(HATAttr::DOUBLE);
  fraction.setInt(-1);
  EXPECT_FALSE(fraction.isSet());
  EXPECT_EQ("-1", fraction.toString());
}

TEST(ConstraintCoreTest, TypeTextsAndTheAttrConstructorGuard) {
  EXPECT_EQ("kpe.independent_packet_switched_routing_roup",
            BaseConstraint::getConstrNameFromType(BaseConstraint::DEPENDENT_ROUTING_GROUP));
  EXPECT_EQ("ColocatedMemories", BaseConstraint::getConstrTypeAsStr(BaseConstraint::COLOCATED_MEMORIES));
  EXPECT_EQ("kpe.colocated_reserved_memories",
            BaseConstraint::getConstrNameFromType(BaseConstraint::COLOCATED_MEMORIES));
  EXPECT_EQ("", BaseConstraint::getConstrNameFromType(BaseConstraint::ConstrType(18)));
  EXPECT_EQ("", BaseConstraint::getConstrTypeAsStr(BaseConstraint::ConstrType(18)));
  EXPECT_EQ("GLOBAL", BaseConstraint::getObjTypeAsStr(BaseConstraint::GLOBAL));
  EXPECT_EQ("", BaseConstraint::getObjTypeAsStr(BaseConstraint::ObjectType(4)));

  // Forms 1 and 3 refuse the attribute type; a derived class reaches form 3.
  struct Bad : BaseConstraint {
    Bad() : BaseConstraint(ATTR, NODE, "n") {}
    void clone(ConstrHandler&, BaseNameResolver const*) const override {}
    void write(JsonDocument&, JsonValue&, BaseNameResolver const*) const override {}
    void offsetColumn(int) override {}
  };
  try {
    Bad bad;
    FAIL() << "an attribute constraint was made without a name";
  } catch (HEXAlgException const& error) {
    EXPECT_STREQ(
        "BaseConstraint::BaseConstraint() - Invalid constructor call: BaseConstraints of type 'Attr' must be "
        "uniquely named",
        error.what());
  }
}

TEST(ConstraintCoreTest, PropertiesOnceSoftStaySoftThroughTheBaseSetter) {
  TileConstr tile("n");
  tile.setConstrObjectProperties("a", ConstrProperties{true});
  tile.setConstrObjectProperties("a", ConstrProperties{false});
  tile.setConstrObjectProperties("b", ConstrProperties{false});
  EXPECT_TRUE(ConstrProperties::hasNonDefaultProps("a", tile.getConstrObjectsProperties()));
  EXPECT_EQ(1u, tile.getConstrObjectsProperties().size());
}

TEST(ConstraintCoreTest, NameAndCoordinatesOfAPlaceExcludeEachOther) {
  PhysicalSpec spec(PhysicalSpec::SHIM);
  spec.setChannel(2);
  spec.setXY(1, 2);
  spec.setBankId(3);
  spec.setOffset(4);
  EXPECT_EQ(2, spec.getChannel());
  spec.setColumn(5);
  EXPECT_FALSE(spec.hasBankId());
  EXPECT_FALSE(spec.hasOffset());
  EXPECT_TRUE(spec.hasChannel());
  EXPECT_EQ("shim=(5,2)", spec.str());

  spec.setName("s0");
  EXPECT_FALSE(spec.hasColumn());
  EXPECT_FALSE(spec.hasChannel());
  EXPECT_EQ("shim=(s0)", spec.str());
  spec.setXY(HDPoint<int>(0, 0));
  EXPECT_FALSE(spec.hasName());
  EXPECT_TRUE(spec.isSpecified());

  EXPECT_EQ(PhysicalSpec::TILE, PhysicalSpec::toPhysicalSpecTileType("core"));
  EXPECT_EQ(PhysicalSpec::TILE, PhysicalSpec::toPhysicalSpecTileType("Mem"));
  EXPECT_EQ(PhysicalSpec::MEM, PhysicalSpec::toPhysicalSpecTileType("mem"));
  EXPECT_EQ(PhysicalSpec::SHIM, PhysicalSpec::toPhysicalSpecTileType("shim"));
  EXPECT_EQ("unknown-tile-type", PhysicalSpec::toString(PhysicalSpec::UNKNOWN_TILE_TYPE));
}

TEST(ConstraintCoreTest, RangeValidityAndContainment) {
  PhysicalSpec const none;
  EXPECT_FALSE(PhysicalRange(none, at(PhysicalSpec::TILE, 1, 1)).isValid());
  EXPECT_TRUE(PhysicalRange(at(PhysicalSpec::MEM, 1, 1), none).isValid());
  EXPECT_FALSE(PhysicalRange(at(PhysicalSpec::MEM, 1, 1), at(PhysicalSpec::MEM, 2, 1)).isValid());
  EXPECT_FALSE(PhysicalRange(at(PhysicalSpec::TILE, 1, 1), at(PhysicalSpec::SHIM, 2, 1)).isValid());
  EXPECT_TRUE(PhysicalRange(at(PhysicalSpec::SHIM, 1, 0), at(PhysicalSpec::SHIM, 2, 0)).isValid());

  PhysicalRange range(at(PhysicalSpec::TILE, 1, 2), at(PhysicalSpec::TILE, 3, 4));
  EXPECT_EQ("low=tile=(1,2) high=tile=(3,4)", range.str());
  EXPECT_EQ(HDPoint<int>(3, 4), range.getRect().first);
  PhysicalRect const rect(HDPoint<int>(3, 4), HDPoint<int>(0, 2));
  EXPECT_TRUE(range.isInside(rect));
  range.offsetColumn(1);
  EXPECT_FALSE(range.isInside(rect));
  PhysicalSpec columnOnly;
  columnOnly.setColumn(3);
  EXPECT_TRUE(columnOnly.isInside(rect));
  EXPECT_TRUE(PhysicalSpec().isInside(rect));
  EXPECT_EQ("", PhysicalRange().str());
}

TEST(ConstraintCoreTest, CastsCheckTheTypeField) {
  ConstrHandler store;
  store.setTileConstr("n", "t");
  BaseConstraint* tile = store.getTileConstr("n");
  EXPECT_EQ(tile, ConstrCast::toTile(tile));
  EXPECT_EQ(nullptr, ConstrCast::toShim(tile));
  EXPECT_EQ(nullptr, ConstrCast::toTile(static_cast<BaseConstraint*>(nullptr)));
  EXPECT_EQ(nullptr, ConstrCast::toAreaGroup(static_cast<BaseConstraint const*>(tile)));
  store.clear();
}

namespace {

// Records the kind of each visited constraint.
class KindRecorder : public ConstBaseVisitor {
 public:
  std::string seen;
  void visitFifoLocations(FifoLocationsConstr const*) override { seen += "fifo "; }
  void visitDependentRoutingGroup(DependentRoutingGroupConstr const*) override { seen += "routing "; }
  void visitInstGroup(InstGroupConstr const*) override { seen += "inst "; }
  void visitAreaGroup(AreaGroupConstr const*) override { seen += "area "; }
  void visitColocatedMemories(ColocatedMemoriesConstr const*) override { seen += "memories "; }
  void visitColocatedDma(ColocatedDmaConstr const*) override { seen += "dma "; }
  void visitColocatedPorts(ColocatedPortsConstr const*) override { seen += "ports "; }
  void visitRelativeNodes(RelativeNodesConstr const*) override { seen += "relative "; }
  void visitColocatedNodes(ColocatedNodesConstr const*) override { seen += "nodes "; }
  void visitStreamChannel(StreamChannelConstr const*) override { seen += "stream "; }
  void visitPortLoc(PortLocConstr const*) override { seen += "portloc "; }
  void visitShim(ShimConstr const*) override { seen += "shim "; }
  void visitReservedMemory(ReservedMemoryConstr const*) override { seen += "reserved "; }
  void visitMem(MemConstr const*) override { seen += "mem "; }
  void visitTile(TileConstr const*) override { seen += "tile "; }
  void visitBuffer(BufferConstr const*) override { seen += "buffer "; }
  void visitAttr(AttrConstr const*) override { seen += "attr "; }
};

}  // namespace

TEST(ConstraintCoreTest, VisitorPassesOverIsomorphicGraphGroups) {
  ConstrHandler store;
  store.setTileConstr("n", "t");
  store.setIsomorphicGraphGroupConstr("iso", "g", {"g1"});
  store.setAttrConstr(BaseConstraint::NODE, "n", "margin", 2);
  store.setInstGroupConstr("ig", {"n"}, false);
  KindRecorder recorder;
  store.accept(recorder);
  EXPECT_EQ("tile attr inst ", recorder.seen);
  store.clear();
}
