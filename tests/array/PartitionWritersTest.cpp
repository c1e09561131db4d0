#include <gtest/gtest.h>

#include <sstream>

#include "../../src/shared/tarvo/readwrite/TQLogicalArchPartitionDescWriter.h"
#include "../../src/shared/tarvo/readwrite/TQLogicalArchShimPartitionWriter.h"
#include "ArrayDesign.h"

using namespace array_test;

namespace {

// kpe: p, a fully described port with two placed channels, and q, a bare port with none.
struct PartitionWritersTest : public ::testing::Test {
  PartitionWritersTest() {
    TQLogicalTQIPInstance* kpe = design.addInstance("kpe");
    TQLogicalPort* p = design.addPort(kpe, "p", {"c/p<0>_INST", "c/p<1>_INST", "c/unknown"}, false);
    design.addChannel("c/p<0>_INST");
    design.addChannel("c/p<1>_INST");
    p->setType(TQLogicalConnectionDataFlowTypeEnum::Stream);
    p->setDirectionType(TQLogicalPortDirectionTypeEnum::Master);
    p->setDataWidth(32);
    p->setBusWidth(64);
    p->setParamIndex(2);
    p->setClkFreq(300.0);
    p->setRegisterInterface(true);
    p->setIsTraced(true);
    p->setTraceFile("p.vcd");
    p->setAnnotations({"a", "b"});
    p->setSDFIONames({"s"});
    design.addPort(kpe, "q", {});
    design.model.addNOCIPInstance("noc");
    design.place("c/p<0>_INST", "KPE_SHIM_X1Y0/M0");
    design.place("c/p<1>_INST", "KPE_SHIM_X0Y0/CTRL");
  }

  std::string shimPartition(int start, int count) {
    std::ostringstream out;
    TQLogicalArchShimPartitionWriter::writeToJsonFile(out, design.model, design.traffic, design.solution, *design.part,
                                                      start, count, 7, 8);
    return out.str();
  }

  ArrayDesign design;
};

TEST_F(PartitionWritersTest, ShimPartitionListsEachPortUnderItsLastSite) {
  EXPECT_EQ(tarvo_test::readFile(tarvo_test::dataPath("array/shim_partition.json")), shimPartition(2, 3));
  std::string const designColumns = shimPartition(-1, -1);
  EXPECT_EQ(0u, designColumns.find("{\n  \"partition\": {\n    \"startColumn\": 7,\n    \"numColumns\": 8,\n"));
  EXPECT_EQ(0u, shimPartition(-1, 3).find("{\n  \"partition\": {\n    \"startColumn\": -1,\n    \"numColumns\": 3,\n"));

  ArrayDesign withoutKpe;
  std::ostringstream out;
  TQLogicalArchShimPartitionWriter::writeToJsonFile(out, withoutKpe.model, withoutKpe.traffic, withoutKpe.solution,
                                                    *withoutKpe.part, 0, 4, 0, 4);
  EXPECT_EQ("{\n  \"partition\": {\n    \"startColumn\": 0,\n    \"numColumns\": 4\n  }\n}", out.str());
}

TEST_F(PartitionWritersTest, PartitionDescriptionGivesIdentifiersInFixedWidthHexadecimal) {
  design.addInstance("kpe2");
  std::ostringstream out;
  TQLogicalArchPartitionDescWriter::writeToJsonFile(out, design.model, {0xDEADBEEFu, 1u, 0u}, 0xABu, -1, -1, 10, 20,
                                                    "ns/a");
  EXPECT_EQ(tarvo_test::readFile(tarvo_test::dataPath("array/partition_description.json")), out.str());

  tarvo_test::TempDir dir;
  EXPECT_TRUE(
      TQLogicalArchPartitionDescWriter::writeToJsonFile(dir.file("d.json"), design.model, {}, 0u, 1, 2, 10, 20, ""));
  std::string const text = tarvo_test::readFile(dir.file("d.json"));
  EXPECT_NE(std::string::npos, text.find("\"startColumn\": 1,\n          \"numColumns\": 2,\n          \"uuid\": "
                                         "\"0x\",\n          \"kpe_pl_intf_id\": \"0x00000000\""))
      << text;
}

}  // namespace
