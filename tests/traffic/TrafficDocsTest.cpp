#include <gtest/gtest.h>

#include <sstream>

#include "HDGUIStatus.h"
#include "NOCJsonTrafficSpecReader.h"
#include "TestSupport.h"
#include "ToolRun.h"
#include "TrafficSpec.h"

namespace {

using tarvo_test::readFile;
using tarvo_test::TempDir;

std::string const kExample = std::string(TARVO_SOURCE_DIR) + "/examples/noc_traffic.json";

tarvo_test::ToolRun docs(std::string const& arguments) {
  return tarvo_test::runTarvoDocs(TARVO_DOCS_EXE, arguments);
}

TEST(TrafficDocsTest, ConvertIsByteIdenticalForPlainAndCompressedFiles) {
  TempDir dir;
  ASSERT_EQ(docs("convert '" + kExample + "' -o '" + dir.file("plain.json") + "'").exitCode, 0);
  EXPECT_EQ(readFile(dir.file("plain.json")), readFile(kExample));
  ASSERT_EQ(docs("convert '" + kExample + ".gz' -o '" + dir.file("unzipped.json") + "'").exitCode, 0);
  EXPECT_EQ(readFile(dir.file("unzipped.json")), readFile(kExample));
}

TEST(TrafficDocsTest, OnlyKeepsMatchingInstancesAndThePathsBetweenThem) {
  TempDir dir;
  ASSERT_EQ(docs("convert --only 'cpu|ddr' '" + kExample + "' -o '" + dir.file("only.json") + "'").exitCode, 0);
  HrdIPToolCntr::TrafficSpec spec;
  HDGUIStatus status;
  NOC::NOCJsonTrafficSpecReader::readFromJsonFile(dir.file("only.json"), spec, status);
  ASSERT_EQ(spec.getAllLogicalInstance().size(), 2u);
  EXPECT_EQ(spec.getAllLogicalInstance()[0]->getName(), "top/cpu/m_axi_0");
  EXPECT_EQ(spec.getAllLogicalInstance()[1]->getName(), "top/ddr_mc");
  ASSERT_EQ(spec.getNumPaths(), 1);
  EXPECT_EQ(spec.getPath(0)->getMaster()->getName(), "top/cpu/m_axi_0");
}

TEST(TrafficDocsTest, CheckAndSummary) {
  TempDir dir;
  std::string const broken = dir.file("broken.json");
  tarvo_test::writeFile(broken, R"({"LogicalInstances": [{"Name": "a", "IsMaster": true, "CompType": "NOPE",
    "Protocol": "AXI_MM"}]})");
  tarvo_test::ToolRun const check = docs("check '" + broken + "' '" + kExample + ".gz'");
  EXPECT_EQ(check.exitCode, 1);
  EXPECT_EQ(check.err, broken + ":1:67: error: 'CompType': \"NOPE\" is not a known component type [tarvo 8-101]\n" +
                           broken + ":1:67: note: Failed to parse JSON file '" + broken +
                           "': Unknown component type : NOPE [tarvo 8-101]\n");
  EXPECT_EQ(check.out,
            broken + ": FAILED (traffic, 1 error)\n" + kExample + ".gz: OK (traffic, 3 masters, 2 slaves, 3 paths)\n");

  tarvo_test::ToolRun const summary = docs("summary '" + kExample + "'");
  EXPECT_EQ(summary.exitCode, 0);
  EXPECT_EQ(summary.out,
            "NoC traffic specification: 3 masters, 2 slaves, 3 paths\n"
            "  Device: zorvex_d80\n"
            "  Frequency: 1000\n"
            "  Masters:\n"
            "    top/cpu/m_axi_0 (PS_IGU_0, AXI_MM, dest id 12)\n"
            "    top/rp_video/dma/m_axi (PL_IGU, AXI_MM, dest id 13)\n"
            "    top/kpe/noc_out_0 (KPE_NOC_IGU, AXI_STRM, dest id 14)\n"
            "  Slaves:\n"
            "    top/ddr_mc (DDRC, AXI_MM, ports PORT0 PORT1, dest id 32)\n"
            "    top/pl_sink/s_axis (PL_EGU, AXI_STRM, dest id 33)\n"
            "  Paths by protocol: AXI_MM 2, AXI_STRM 1\n"
            "  Phase group modes: hd uhd\n"
            "  Reconfigurable partition: top/rp_video/\n");
}

}  // namespace
