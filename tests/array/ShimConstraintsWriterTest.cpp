#include <gtest/gtest.h>

#include <sstream>

#include "ArrayDesign.h"
#include "HDGUIStatus.h"
#include "TQCompilerShimConstraintsWriterJSON.h"

using namespace array_test;

namespace {

typedef TQCompilerShimConstraintsWriterJSON Writer;

// Four tiles in device columns 3 to 6 (shim columns 0 to 3), sites M0 to M3.
std::unique_ptr<HDARPart> makeShimPart() {
  std::vector<HDARShimTile> tiles;
  for (int column = 3; column <= 6; ++column)
    tiles.push_back(
        tile("S_X" + std::to_string(column) + "Y0", column, column - 3, {{"M0", 0}, {"M1", 1}, {"M2", 2}, {"M3", 3}}));
  return std::make_unique<HDARPart>("shimpart", tiles);
}

// A port and its channels, each with the site it is placed on (none when empty).
struct PortSpec {
  char const* name;
  std::vector<std::string> annotations;
  bool gmio;
  unsigned busWidth;
  double clkFreq;
  bool registered;
  std::vector<std::pair<std::string, std::string>> channels;
};

struct ShimConstraintsWriterTest : public ::testing::Test {
  ShimConstraintsWriterTest() : design(makeShimPart()) {
    TQLogicalTQIPInstance* kpe = design.addInstance("kpe");
    std::vector<PortSpec> const ports{
        {"a0", {"a0"}, false, 64, 250.0, false, {{"c/a0", "S_X3Y0/M0"}}},
        {"g", {"g"}, true, 64, 250.0, true, {{"c/g", "S_X4Y0/M0"}}},
        {"d1", {"dup"}, false, 8, 1.5, false, {{"c/d1", "S_X5Y0/M0"}}},
        {"d2", {"dup"}, false, 128, 312.5, true, {{"c/d2", "S_X6Y0/M0"}}},
        {"n1", {}, false, 32, 100.0, false, {{"c/n1", "S_X5Y0/M1"}}},
        {"n2", {}, false, 32, 100.0, false, {{"c/n2", "S_X6Y0/M1"}}},
        {"tri", {"t1", "t2", "t3"}, false, 16, 200.0, false, {{"c/tri", "S_X4Y0/M1"}}},
        {"x", {"x"}, false, 32, 500.0, false, {{"c/x_a", "S_X3Y0/M1"}, {"c/x_b", "S_X3Y0/M2"}}},
        {"h", {"h"}, false, 32, 500.0, false, {{"c/h<0>_INST", ""}, {"c/h<1>_INST", "S_X4Y0/M2"}}},
        {"none", {"none"}, false, 32, 500.0, false, {{"?c/none", ""}}},
        {"nochannels", {"nc"}, false, 32, 500.0, false, {}},
    };
    for (PortSpec const& spec : ports) {
      std::vector<std::string> channels;
      for (auto const& channel : spec.channels)
        channels.push_back(channel.first);
      // Channels marked "?" are unknown to the traffic specification.
      TQLogicalPort* port = design.addPort(kpe, spec.name, channels, channels.empty() || channels[0][0] != '?');
      port->setAnnotations(spec.annotations);
      port->setType(spec.gmio ? TQLogicalConnectionDataFlowTypeEnum::Mem : TQLogicalConnectionDataFlowTypeEnum::Stream);
      port->setBusWidth(spec.busWidth);
      port->setDataWidth(7);
      port->setClkFreq(spec.clkFreq);
      port->setRegisterInterface(spec.registered);
      for (auto const& channel : spec.channels)
        if (!channel.second.empty()) design.place(channel.first, channel.second);
    }
    kpe->getLogicalPort("n1")->setHWAnnotation("hw1");
    design.addPort(design.addInstance("kpe_extra"), "e", {"c/e"})->addAnnotation("e");
    design.place("c/e", "S_X6Y0/M3");
  }

  std::vector<std::string> ids(int startColumn, int numColumns, bool omitKey, std::string const& instance = "kpe") {
    std::vector<std::string> result;
    EXPECT_TRUE(Writer::computeKPEPLIntefaceIDs(design.model, design.traffic, design.solution, *design.part, instance,
                                                startColumn, numColumns, omitKey, status, result));
    return result;
  }

  std::string write(std::string const& instance, bool expected = true) {
    std::ostringstream out;
    EXPECT_EQ(expected, Writer::writeToJsonFile(out, design.model, design.traffic, design.solution, *design.part,
                                                instance, status));
    return out.str();
  }

  ArrayDesign design;
  HDGUIStatus status;
};

TEST_F(ShimConstraintsWriterTest, WritesChannelZeroOfEachPortUnderEachLogicalName) {
  EXPECT_EQ(tarvo_test::readFile(tarvo_test::dataPath("array/written_shim_constraints.json")), write("kpe"));
  EXPECT_EQ("", write("kp"));
}

TEST_F(ShimConstraintsWriterTest, IdentifiersSortEachPortsItemsBehindItsKey) {
  EXPECT_EQ((std::vector<std::string>{"S_X6Y0_M1cf100.000dw32reg0", "a0S_X3Y0_M0cf250.000dw64reg0",
                                      "dupS_X6Y0_M0cf312.500dw128reg1", "gS_X4Y0_M0reg1", "hS_X4Y0_M2cf500.000dw32reg0",
                                      "t1S_X4Y0_M1cf200.000dw16reg0", "xS_X3Y0_M1S_X3Y0_M2cf500.000dw32reg0"}),
            ids(-1, 0, false));
}

TEST_F(ShimConstraintsWriterTest, AColumnRangeSelectsSitesByTheirDeviceColumn) {
  // Columns 5 and 6 hold the later ports of the shared keys; without them the earlier stand.
  EXPECT_EQ((std::vector<std::string>{"S_X5Y0_M1cf100.000dw32reg0", "S_X5Y0_M0cf 1.500dw08reg0"}), ids(5, 1, true));
  EXPECT_EQ((std::vector<std::string>{"S_X5Y0_M1cf100.000dw32reg0", "dupS_X5Y0_M0cf 1.500dw08reg0", "gS_X4Y0_M0reg1",
                                      "hS_X4Y0_M2cf500.000dw32reg0", "t1S_X4Y0_M1cf200.000dw16reg0"}),
            ids(4, 2, false));
  // Column 0 starts a real range, which here holds only device column 3.
  EXPECT_EQ((std::vector<std::string>{"a0S_X3Y0_M0cf250.000dw64reg0", "xS_X3Y0_M1S_X3Y0_M2cf500.000dw32reg0"}),
            ids(0, 4, false));
  EXPECT_TRUE(ids(7, 3, false).empty());
}

TEST_F(ShimConstraintsWriterTest, TheWholeInterfaceIdentifierJoinsAllKeysAndItems) {
  std::string id = "old";
  EXPECT_TRUE(
      Writer::computeKPEPLIntefaceID(design.model, design.traffic, design.solution, *design.part, "kpe", id, status));
  std::string joined;
  for (std::string const& part : ids(-1, -1, false))
    joined += part;
  EXPECT_EQ(joined, id);
  EXPECT_EQ(0u, joined.find("S_X6Y0_M1cf100.000dw32reg0a0S_X3Y0_M0"));

  EXPECT_TRUE(
      Writer::computeKPEPLIntefaceID(design.model, design.traffic, design.solution, *design.part, "kpe_", id, status));
  EXPECT_EQ("", id);
  std::vector<std::string> twice = ids(-1, -1, true);
  EXPECT_TRUE(Writer::computeKPEPLIntefaceIDs(design.model, design.traffic, design.solution, *design.part, "kpe", -1,
                                              -1, true, status, twice));
  EXPECT_EQ(14u, twice.size());
  EXPECT_EQ(twice[0], twice[7]);
}

TEST_F(ShimConstraintsWriterTest, WithoutKPEInstancesPortDataIsLeftAlone) {
  Writer::PortData data{{"kept", {"x"}}};
  EXPECT_TRUE(Writer::getKPEPLIntefacePortData(design.model, design.traffic, design.solution, *design.part, "none", -1,
                                               -1, status, data));
  EXPECT_TRUE(data.empty());
  data = {{"kept", {"x"}}};
  ArrayDesign empty(makeShimPart());
  EXPECT_FALSE(Writer::getKPEPLIntefacePortData(empty.model, empty.traffic, empty.solution, *empty.part, "kpe", -1, -1,
                                                status, data));
  EXPECT_EQ((Writer::PortData{{"kept", {"x"}}}), data);
  std::ostringstream out;
  EXPECT_TRUE(Writer::writeToJsonFile(out, empty.model, empty.traffic, empty.solution, *empty.part, "kpe", status));
  EXPECT_EQ("", out.str());
  EXPECT_FALSE(Writer::writeToJsonFile(tarvo_test::dataPath("array/no/such/dir.json"), design.model, design.traffic,
                                       design.solution, *design.part, "kpe", status));
}

TEST_F(ShimConstraintsWriterTest, ASchemaFailureStopsTheTextAndNamesTheRule) {
  SchemaDir strict("strict");
  tarvo_test::MessageCapture capture;
  EXPECT_EQ("{\n  \"Placement\": [\n    {\n      \"LogicalInstance\": \"a0\",\n      \"PhysicalInstance\": [",
            write("kpe", false));
  EXPECT_EQ(std::vector<std::string>{"75-645(#/properties/Placement/items/properties/PhysicalInstance/items|pattern|"
                                     "#/Placement/0/PhysicalInstance/0)"},
            capture.summary());
}

}  // namespace
