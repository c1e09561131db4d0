#include <gtest/gtest.h>

#include <sstream>

#include "BaseNameResolver.h"
#include "ColocationConstraints.h"
#include "ConstrHandler.h"
#include "ConstrReader.h"
#include "ConstrWriter.h"
#include "GroupConstraints.h"
#include "HEXAll.h"
#include "HUTFile.h"
#include "JsonDocumentFrame.h"
#include "LocationConstraints.h"
#include "TestSupport.h"

using namespace kpe::constraints;
using Strings = std::vector<std::string>;

namespace {

PhysicalSpec place(PhysicalSpec::PhysicalType type, int column, int row) {
  PhysicalSpec spec(type);
  spec.setXY(column, row);
  return spec;
}

PhysicalSpec shimPlace(int column, int channel) {
  PhysicalSpec spec(PhysicalSpec::SHIM);
  spec.setColumn(column);
  spec.setChannel(channel);
  return spec;
}

PhysicalSpec namedPlace(PhysicalSpec::PhysicalType type, std::string const& name) {
  PhysicalSpec spec(type);
  spec.setName(name);
  return spec;
}

SrcInfo explicitSource(std::string const& file, int line, int column) {
  SrcInfo info;
  info.kind = SrcInfo::EXPLICIT;
  info.file = file;
  info.line = line;
  info.column = column;
  return info;
}

// A store filled through every kind's set or add operation, with sources and soft marks.
void fillEveryKind(ConstrHandler& store) {
  typedef BaseConstraint B;
  store.setTileConstr("n1", 3, 4, PhysicalSpec::TILE);
  store.setMemConstr("n1", Address(1, 2, 3, 4), Address(-1, -1, 0, 64));
  store.setShimConstr("n1", 7, 1);
  store.setReservedMemoryConstr("n1", Address(2, 0, -1, 16));
  store.addColocatedNodesConstr(B::NODE, "n1", {"n2", "n3"}, false);
  store.getColocatedNodesConstr("n1")->setColocatedSoftNode("n3", true);
  store.addColocatedNodesConstr(B::NODE, "n1", {"n4"}, true);
  store.setRelativeNodesConstr(B::NODE, "n1", {{"n5", HDPoint<int>(1, -2)}, {"n6", HDPoint<int>(0, -9999)}});
  store.addColocatedMemoriesConstr(B::NODE, "n1", {"m1"}, false);
  store.setAttrConstr(B::NODE, "n1", "margin", 5);
  store.getTileConstr("n1")->setSrcInfo(explicitSource("a.json", 3, 7));
  store.setTileConstr("n2", "tile_a");
  store.setShimConstr("n2", "shim_a");

  store.setDmaFifoLocationConstr(B::PORT, "p1", PhysicalSpec::MEM, 2, 1, 128, 32, 3);
  store.setStreamFifoLocationConstr(B::PORT, "p2", PhysicalSpec::SHIM, 5, 0, 2);
  store.setBufferConstr("p1", Address(), Address(1, 1, -1, -1), Address(-1, -1, 2, 8));
  store.setStreamChannelConstr("p1", 2, 3, 1, "south");
  store.setColocatedPortsConstr(B::PORT, "p1", {"p2"}, false);
  store.addColocatedPortsConstr(B::PORT, "p1", {"p3"}, true);
  store.addExclusiveColocatedPortsConstr(B::PORT, "p1", {"p4"});
  store.getColocatedPortsConstr("p1")->setExclusiveColocatedSoftPort("p4", true);
  store.getColocatedPortsConstr("p1")->getNotColocatedSrcInfo() = explicitSource("a.json", 9, 2);
  store.addColocatedDmaConstr(B::PORT, "p1", {"p5"});
  store.setPortLocConstr("p2", PhysicalSpec::SHIM, 6, 0, 3);
  store.setStreamChannelConstr("p3", 1, 0, "West");
  store.setPortLocConstr("p3", "shim_b", 2);
  store.setAttrConstr(B::PORT, "p3", "kpe.fifo_depth", 16);
  store.setAttrConstr(B::NET, "net1", "tq.route_hint", "short");
  store.setAttrConstr(B::NET, "net1", "weight", 0.5);

  std::vector<PhysicalRange> ranges;
  ranges.push_back(PhysicalRange(place(PhysicalSpec::TILE, 0, 1), place(PhysicalSpec::TILE, 3, 4)));
  ranges.push_back(PhysicalRange(place(PhysicalSpec::MEM, 2, 0), place(PhysicalSpec::MEM, 5, 0)));
  ranges.push_back(PhysicalRange(shimPlace(4, 1), PhysicalSpec()));
  ranges.push_back(PhysicalRange(namedPlace(PhysicalSpec::TILE, "corner"), PhysicalSpec()));
  PhysicalSpec column(PhysicalSpec::TILE);
  column.setColumn(9);
  ranges.push_back(PhysicalRange(column, PhysicalSpec()));
  store.addAreaGroupConstr("ag1", {"n1", "n2"}, ranges, true, false, true, false, true);
  store.getAreaGroupConstr("ag1")->setSrcInfo(explicitSource("a.json", 20, 5));
  store.setInstGroupConstr("ig1", {"n1"}, true);
  store.addDependentRoutingGroupConstr("dr1", {"n2", "n3"});
  store.setIsomorphicGraphGroupConstr("iso1", "g0", {"g1", "g2"});
}

class ConstrWriterTest : public ::testing::Test {
 protected:
  ~ConstrWriterTest() override { store.clear(); }

  std::string written(bool validate = true) {
    std::ostringstream out;
    ConstrWriter writer(store);
    writer.write(out, "out.json", validate);
    return out.str();
  }

  ConstrHandler store;
  tarvo_test::MessageCapture messages;
};

// Maps n1 to two document names in lists and drops n3 and the node n2 from the document.
class SplittingResolver : public BaseNameResolver {
 public:
  std::string getDocumentNodeName(std::string const& name) const override {
    return name == "n2" || name == "n3" ? std::string() : "top/" + name;
  }
  void resolveScopedNodeNames(std::vector<std::string>& names) const override {
    std::vector<std::string> out;
    for (std::string const& name : names) {
      if (name == "n1") out.insert(out.end(), {"top/n1a", "top/n1b"});
      if (name == "n3") out.push_back("top/n3");
    }
    names = out;
  }
};

class ToolGeneratedStore : public ConstrHandler {
 public:
  bool isToolGenerated() const override { return true; }
  bool isSoft() const override { return true; }
};

}  // namespace

TEST_F(ConstrWriterTest, EveryKindIsWrittenInItsFormAndOrder) {
  fillEveryKind(store);
  std::string const text = written();
  EXPECT_EQ(tarvo_test::readFile(tarvo_test::dataPath("constraints/every_kind.json")), text);
  EXPECT_EQ((Strings{"75-4195(out.json)", "75-4193(" + ConstrWriter::findInstalledSchemaFile() + ")"}),
            messages.summary());
}

namespace {

// "id(arg|arg)" of the message an HEXAll carries, with its file annotation.
std::string raised(HEXAll const& error) {
  std::string text = tarvo_test::messageOf(error);
  for (auto const& meta : error.getMessage().getMetaTypes())
    text += " file=" + meta.value;
  return text;
}

}  // namespace

TEST_F(ConstrWriterTest, EmptyStoreWritesNothingAndRemovesTheFile) {
  tarvo_test::TempDir dir;
  std::string const file = dir.file("c.json");
  tarvo_test::writeFile(file, "{\"stale\": true}");
  ConstrWriter writer(store);
  writer.setSchema(dir.file("no_such_schema.json"));
  writer.write(file, true);
  EXPECT_FALSE(HUTFile(file).exists());

  std::ostringstream out;
  writer.write(out, "c.json", true);
  EXPECT_EQ("", out.str());
  EXPECT_TRUE(messages.summary().empty());
}

TEST_F(ConstrWriterTest, ResolverRenamesSplitsAndDropsNames) {
  store.setTileConstr("n1", 1, 2, PhysicalSpec::TILE);
  store.setColocatedNodesConstr(BaseConstraint::NODE, "n1", {"n3", "n1", "n2"}, false);
  store.getColocatedNodesConstr("n1")->setColocatedSoftNode("n1", true);
  store.setRelativeNodesConstr(BaseConstraint::NODE, "n1", {{"n1", HDPoint<int>(1, 1)}, {"n2", HDPoint<int>(2, 2)}});
  store.setTileConstr("n2", "t");
  store.setAreaGroupConstr("ag", {"n2"}, {}, false, false, false, false, false);
  SplittingResolver resolver;
  std::ostringstream out;
  ConstrWriter(store, resolver).write(out, "out.json", true);
  EXPECT_EQ(R"json({
  "NodeConstraints": {
    "top/n1": {
      "tile": {
        "column": 1,
        "row": 2,
        "tile_type": "core"
      },
      "colocated_nodes": ["top/n3", {
          "top/n1a": {
            "issoft": true
          }
        }, {
          "top/n1b": {
            "issoft": true
          }
        }],
      "relative_nodes": ["top/n1a:(X=1,Y=1)"]
    }
  },
  "GlobalConstraints": {
    "areaGroup": {
      "name": "ag"
    }
  }
})json",
            out.str());
}

// Also: an object whose constraints write nothing stays, and group keys repeat.
TEST_F(ConstrWriterTest, EmptyValuesNegativeAttributesAndRepeatedGroups) {
  ToolGeneratedStore tool;
  tool.setTileConstr("n", -1, -1, PhysicalSpec::TILE);
  tool.setBufferConstr("p", Address(), Address(4, 5, -1, -1), Address());
  tool.setAttrConstr(BaseConstraint::PORT, "p", "margin", -1);
  tool.getAttrConstr("p", "margin")->setSrcInfo(explicitSource("a.json", 1, 1));
  tool.setAttrConstr(BaseConstraint::PORT, "p", "depth", -1);
  tool.setAttrConstr(BaseConstraint::PORT, "p", "kpe.Runtime", -0.5);
  tool.addAreaGroupConstr("a", {}, {}, false, false, false, false, false);
  tool.addAreaGroupConstr("b", {}, {PhysicalRange(place(PhysicalSpec::MEM, 1, 0), place(PhysicalSpec::MEM, 2, 0))},
                          false, true, false, false, false);
  std::ostringstream out;
  ConstrWriter(tool).write(out, "out.json", true);
  tool.clear();
  EXPECT_EQ(R"json({
  "isToolGenerated": true,
  "isSoft": true,
  "NodeConstraints": {
    "n": {}
  },
  "PortConstraints": {
    "p": {
      "buffers": [{
          "column": 4,
          "row": 5
        }],
      "depth": -1
    }
  },
  "GlobalConstraints": {
    "areaGroup": {
      "name": "a"
    },
    "areaGroup": {
      "name": "b",
      "issoft": true,
      "memGroup": ["(1,0):(2,0)"]
    }
  }
})json",
            out.str());
  EXPECT_EQ("75-586(n)", messages.summary().at(2));
}

TEST_F(ConstrWriterTest, AreaGroupDocumentHoldsOnlyTheGroups) {
  store.setTileConstr("n1", 1, 2, PhysicalSpec::TILE);
  store.addInstGroupConstr("ig", {"n1"}, false);
  std::ostringstream out;
  ConstrWriter(store).writeAreaGroupConstrs(out, "groups.json", true);
  EXPECT_EQ(R"json({
  "GlobalConstraints": {
    "instGroup": {
      "name": "ig",
      "nodeGroup": ["n1"]
    }
  }
})json",
            out.str());
  EXPECT_TRUE(messages.summary().empty());
}

TEST_F(ConstrWriterTest, FailuresRaiseTheirMessages) {
  store.setTileConstr("n1", 1, 2, PhysicalSpec::TILE);
  store.setShimConstr("n1", 3, 0);
  ConstrWriter writer(store);

  std::ostringstream failed;
  failed.setstate(std::ios_base::badbit);
  try {
    writer.write(failed, "bad.json", true);
    FAIL() << "a failed stream was written";
  } catch (HEXAll const& error) {
    EXPECT_EQ("75-573(bad.json) file=bad.json", raised(error));
  }

  tarvo_test::TempDir dir;
  std::string const schema = dir.file("no_shim.json");
  tarvo_test::writeFile(schema, R"({"properties": {"NodeConstraints": {"additionalProperties": {
      "properties": {"shim": {"not": {}}}}}}})");
  writer.setSchema(schema);
  // The value fails when it ends, so its contents stay in the text.
  std::ostringstream partial;
  try {
    writer.write(partial, "out.json", true);
    FAIL() << "an invalid document was written";
  } catch (HEXAll const& error) {
    EXPECT_EQ(
        "75-572(out.json|#/properties/NodeConstraints/additionalProperties/properties/shim|not|#/NodeConstraints/n1/"
        "shim) file=out.json",
        raised(error));
  }
  EXPECT_EQ(R"json({
  "NodeConstraints": {
    "n1": {
      "tile": {
        "column": 1,
        "row": 2,
        "tile_type": "core"
      },
      "shim": {
        "column": 3,
        "channel": 0)json",
            partial.str());

  std::ostringstream unchecked;
  writer.write(unchecked, "out.json", false);
  EXPECT_NE(std::string::npos, unchecked.str().find("\"channel\": 0"));

  writer.setSchema(dir.file("missing.json"));
  try {
    writer.write(unchecked, "out.json", true);
    FAIL() << "a missing schema was accepted";
  } catch (HEXAll const& error) {
    std::string const missing = dir.file("missing.json");
    EXPECT_EQ("8-102(" + missing + ") file=" + missing, raised(error));
  }
}

TEST_F(ConstrWriterTest, StoreWritesThroughAWriterWithValidation) {
  fillEveryKind(store);
  tarvo_test::TempDir dir;
  std::string const file = dir.file("every.json");
  EXPECT_TRUE(store.write(file));
  EXPECT_EQ(tarvo_test::readFile(tarvo_test::dataPath("constraints/every_kind.json")), tarvo_test::readFile(file));
}

// The schema takes what people write and leaves the reader's own checks to the reader.
TEST(ConstrSchemaTest, AcceptsHumanFormsAndRejectsWrongTypes) {
  std::unique_ptr<rapidjson::SchemaDocument> const schema =
      JsonDocumentFrame::loadSchema(ConstrWriter::findInstalledSchemaFile());
  auto accepts = [&schema](std::string const& text) {
    JsonDocumentFrame::Document document;
    document.Parse(text.c_str());
    EXPECT_FALSE(document.HasParseError()) << text;
    return JsonDocumentFrame::validate(document, *schema);
  };
  EXPECT_TRUE(accepts(tarvo_test::readFile(tarvo_test::dataPath("constraints/human_forms.json"))));
  EXPECT_TRUE(accepts(tarvo_test::readFile(tarvo_test::dataPath("constraints/every_kind.json"))));

  EXPECT_FALSE(accepts(R"({"NodeConstraints": {"n": {"tile": {"column": "3"}}}})"));
  EXPECT_FALSE(accepts(R"({"NodeConstraints": {"n": {"tile_src_info": {"file": "a", "line": "1"}}}})"));
  EXPECT_FALSE(accepts(R"({"NodeConstraints": {"n": {"colocated_nodes": [{"a": {"soft": true}}]}}})"));
  EXPECT_FALSE(accepts(R"({"NodeConstraints": {"n": {"colocated_nodes": [{"a": {"issoft": true}, "b": {}}]}}})"));
  EXPECT_FALSE(accepts(R"({"PortConstraints": {"p": {"stream_channel": {"direction": "up"}}}})"));
  EXPECT_FALSE(accepts(R"({"PortConstraints": {"fifo_locations_records": {"dma_fifos": {"r": {"size": 1.5}}}}})"));
  EXPECT_FALSE(accepts(R"({"GlobalConstraints": {"areaGroup": {"tileGroup": [1]}}})"));
  EXPECT_FALSE(accepts(R"({"GlobalConstraints": {"areaGroup": {"name": "a", "tileGroup": [[1, 2, 3]]}}})"));
  EXPECT_FALSE(accepts(R"({"GlobalConstraints": {"instGroup": {"name": "a", "isisomorphic": "yes"}}})"));
  EXPECT_FALSE(accepts(R"({"isSoft": "true"})"));
  EXPECT_FALSE(accepts(R"({"NodeConstraint": {}})"));
}

TEST_F(ConstrWriterTest, WrittenDocumentReadsBackIntoAnEqualStore) {
  fillEveryKind(store);
  std::string const expected = tarvo_test::readFile(tarvo_test::dataPath("constraints/every_kind.json"));
  ConstrHandler copy;
  std::istringstream in(expected);
  copy.read(in, "every_kind.json", BaseNameResolver());
  std::ostringstream out;
  ConstrWriter(copy).write(out, "again.json", true);
  EXPECT_EQ(expected, out.str());
  EXPECT_EQ(store.size(), copy.size());
  copy.clear();
}

TEST_F(ConstrWriterTest, OnlySourcesReadFromSourceMembersAreWritten) {
  store.setTileConstr("scanned", "t");
  store.getTileConstr("scanned")->getSrcInfo().file = "c.json";
  store.getTileConstr("scanned")->getSrcInfo().kind = SrcInfo::SCANNED;
  store.setTileConstr("nofile", "t");
  store.getTileConstr("nofile")->setSrcInfo(explicitSource("", 1, 1));
  store.setAttrConstr(BaseConstraint::GLOBAL, "g", "hint", 1);
  store.getAttrConstr("g", "hint")->setSrcInfo(explicitSource("c.json", 1, 1));
  EXPECT_EQ(R"json({
  "NodeConstraints": {
    "scanned": {
      "tile": {
        "name": "t"
      }
    },
    "nofile": {
      "tile": {
        "name": "t"
      }
    }
  },
  "GlobalConstraints": {
    "hint": 1
  }
})json",
            written());
}

TEST_F(ConstrWriterTest, FileThatCannotBeOpenedIsReported) {
  store.setTileConstr("n", "t");
  tarvo_test::TempDir dir;
  std::string const file = dir.file("missing_dir/c.json");
  try {
    ConstrWriter(store).write(file, true);
    FAIL() << "a file in a missing directory was written";
  } catch (HEXAll const& error) {
    EXPECT_EQ("75-573(" + file + ") file=" + file, raised(error));
  }
}

namespace {

// Document names: nodes get "N.", ports "P.".
class PrefixResolver : public BaseNameResolver {
 public:
  std::string getDocumentNodeName(std::string const& name) const override { return "N." + name; }
  std::string getDocumentPortName(std::string const& name) const override { return "P." + name; }
};

}  // namespace

TEST_F(ConstrWriterTest, NodeListsTakeNodeNamesAndPortListsPortNames) {
  typedef BaseConstraint B;
  store.setColocatedPortsConstr(B::PORT, "p", {"q"}, false);
  store.setColocatedDmaConstr(B::PORT, "p", {"r"});
  store.setColocatedNodesConstr(B::PORT, "p", {"n"}, true);
  store.getColocatedNodesConstr("p")->setNotColocatedSoftNode("n", true);
  store.setColocatedMemoriesConstr(B::PORT, "p", {"m"}, false);
  store.setFifoLocationsConstr(B::PORT, "p", {"rec"});
  store.setAttrConstr(B::PORT, "p", "label", "x");
  store.setRelativeNodesConstr(B::NODE, "a", {{"b", HDPoint<int>(-9999, 3)}, {"c", HDPoint<int>(-9999, -9999)}});
  PrefixResolver resolver;
  std::ostringstream out;
  ConstrWriter(store, resolver).write(out, "out.json", true);
  EXPECT_EQ(R"json({
  "NodeConstraints": {
    "N.a": {
      "relative_nodes": ["N.b:(Y=3)"]
    }
  },
  "PortConstraints": {
    "P.p": {
      "colocated_ports": ["P.q"],
      "colocated_dma": ["P.r"],
      "not_colocated_nodes": [{
          "N.n": {
            "issoft": true
          }
        }],
      "colocated_reserved_memories": ["N.m"],
      "fifo_locations": ["rec"],
      "label": "x"
    }
  }
})json",
            out.str());
}
