#include <gtest/gtest.h>

#include <sstream>

#include "HDGUIStatus.h"
#include "HEXAll.h"
#include "HIPLogicalObjectNameResolverInterface.h"
#include "HPAParamMgr.h"
#include "NOCJsonTrafficSpecReader.h"
#include "NOCJsonTrafficSpecWriter.h"
#include "TestSupport.h"
#include "TrafficSpec.h"

using namespace HrdIPToolCntr;
using namespace DevHrdIP::Definitions;
using NOC::NOCJsonTrafficSpecReader;
using NOC::NOCJsonTrafficSpecWriter;

namespace {

// Every field that the writer writes, with a value other than its default.
void buildFullSpec(TrafficSpec& spec) {
  spec.setFrequency(1200, true);
  spec.addRcfPath("top/rp/");
  spec.setSecureMode(true);
  spec.setDeviceName("dev");

  TrafficLInst* master = spec.addLogicalInstance("m0", AXI_MM, PL_IGU, {{"e0", "e1"}, {"e2"}});
  master->setDesignName("m0_design");
  master->setUseDestIdIdx(true);
  master->setHasParityAddr(true);
  master->setHasParityData(true);
  master->firewall = true;
  master->setReadTC(TC_LL);
  master->setWriteTC(TC_BW);
  master->setAxiWidth(128);
  master->setNumReadOutstanding(16);
  master->setNumWriteOutstanding(32);
  master->setReadRateLimiter(2.0f);
  master->setWriteRateLimiter(3.0f);
  master->addRemapAddrSpec(4096, 255, 0);
  master->addConfigParam("b", "2");
  master->addConfigParam("a", "1");
  master->ipName = "m0_ip";
  master->setIsExistDestId(true);
  master->setDestId(DestIdRepr(17));

  TrafficLInst* ddr = spec.addLogicalInstance("s0", AXI_MM, DDRC, {{"ddr_p0"}, {"ddr_p1"}});
  spec.addPortTypeForMC(ddr, PORT1);
  spec.addPortTypeForMC(ddr, PORT3);
  ddr->setDdrInterleaveSize(4096);
  ddr->setDdrInterleaveSel(2);
  ddr->addSysAddress({0, 0x80000000ULL});
  ddr->addSysAddress({0x800000000ULL, 0x100});
  ddr->addMemoryParam("speed", "3200");

  TrafficLInst* stream = spec.addLogicalInstance("v0", AXI_STRM, KPE_NOC_IGU, {});
  stream->virtualInstance = true;

  TrafficPath* full = spec.addPath(master, ddr);
  full->phase = 1;
  full->setSlavePort(PORT1);
  full->setReadPerfSpec(PerfSpec(0, 1000, 300));
  full->setWritePerfSpec(PerfSpec(0, 500, 400));
  full->setReadAvgBurst(64);
  full->setWriteAvgBurst(32);
  full->setWoc(WO_RELAXED);
  full->setExclusiveGroup("ex");
  full->setSeparateRoutingGroup("sep");
  full->setIsExistDestIdIndex(true);
  full->setDestIdIndex(DestIdRepr(5));
  full->setIsInitialBoot(true);
  full->addDestIdIdx({1, 2});
  full->addDestIdIdx({3, 4});
  full->setHighPriorityRouting(true);
  full->setReadPerfSpec("g", "boot", PerfSpec(0, 10, 300));
  full->setWritePerfSpec("g", "boot", PerfSpec(0, 20, 400));
  full->setReadAvgBurst(4, "boot");
  full->setWriteAvgBurst(8, "boot");

  TrafficPath* streaming = spec.addPath(stream, ddr);
  streaming->setSlavePort(PORT3);
  streaming->setWritePerfSpec(PerfSpec(0, 800, 90));
  streaming->setWriteAvgBurst(16);

  TrafficPath* writeOnly = spec.addPath(master, ddr);
  writeOnly->setSlavePort(PORT3);
  writeOnly->setWritePerfSpec(PerfSpec(0, 5, 6));
  writeOnly->setWoc(WO_STRICT);
}

std::string written(TrafficSpec const& spec) {
  HDGUIStatus status;
  std::ostringstream out;
  EXPECT_TRUE(NOCJsonTrafficSpecWriter::writeToJsonFile(out, spec, status));
  return out.str();
}

void readText(std::string const& text, TrafficSpec& spec) {
  HDGUIStatus status;
  std::istringstream in(text);
  NOCJsonTrafficSpecReader::readFromJsonFile(in, "t.json", spec, status);
}

// Names in the design are "d/<name>" in the document; external names "x/<name>". Names that
// begin with "out" are not in the design.
class HierarchyResolver : public HIPLogicalObjectNameResolverInterfaceIdentity {
 public:
  std::string fromNetlistInstance(std::string const& name) override { return "d/" + name; }
  std::string fromNetlistName(std::string const& name) override { return "x/" + name; }
  bool isNameInDesign(std::string const& name) override { return name.compare(0, 3, "out") != 0; }
  bool suppressRcfPaths(std::string const&) override { return true; }
};

TEST(NOCJsonTrafficSpecWriterTest, WritesEveryFieldInOrderAndReadsBackEqual) {
  TrafficSpec spec;
  buildFullSpec(spec);
  std::string const text = written(spec);
  EXPECT_EQ(text, tarvo_test::readFile(tarvo_test::dataPath("traffic/written_full.json")));

  TrafficSpec reread;
  readText(text, reread);
  EXPECT_EQ(written(reread), text);
}

TEST(NOCJsonTrafficSpecWriterTest, DifferencesBetweenWriterAndReaderStay) {
  TrafficSpec spec;
  TrafficLInst* master = spec.addLogicalInstance("m", AXI_MM, PS_IGU_0, {});
  master->setReadRateLimiter(2.5f);
  master->setAxiWidth(64);  // no width for this kind on reading
  TrafficLInst* slave = spec.addLogicalInstance("s", AXI_MM, PL_EGU, {});
  spec.addPortTypeForMC(slave, PORT0);  // ports only for memory controllers on reading
  slave->setDdrInterleaveSize(64);
  slave->setNumReadOutstanding(3);  // a master's key on a slave
  spec.addPath(master, slave)->setWoc(static_cast<Write_Order>(7));

  std::string const text = written(spec);
  EXPECT_NE(text.find(R"("ReadRateLimiter": 2.5)"), std::string::npos);
  EXPECT_NE(text.find(R"("WriteOrder": "invalid")"), std::string::npos);
  EXPECT_NE(text.find(R"("Port": "PORTERR")"), std::string::npos);
  tarvo_test::MessageCapture messages;
  TrafficSpec reread;
  readText(text, reread);
  EXPECT_EQ(messages.summary(), std::vector<std::string>({"73-448(PORTERR)"}));
  TrafficLInst const& master2 = *reread.getLogicalMaster("m");
  TrafficLInst const& slave2 = *reread.getLogicalSlave("s");
  EXPECT_EQ(master2.getReadRateLimiter(), 2.0f);
  EXPECT_EQ(master2.getAxiWidth(), 0u);
  EXPECT_TRUE(slave2.getPortTypes().empty());
  EXPECT_EQ(slave2.getDdrInterleaveSize(), 0u);
  EXPECT_EQ(slave2.getNumReadOutstanding(), 0);
  EXPECT_EQ(reread.getPath(0)->getWoc(), WO_INVALID);

  // The error row is written and refused.
  spec.addLogicalInstance("bad", AXI_MM, COMPERR, {});
  TrafficSpec refused;
  EXPECT_THROW(readText(written(spec), refused), HEXAll);
}

TEST(NOCJsonTrafficSpecWriterTest, NothingToWriteAndFrequencyOnly) {
  TrafficSpec spec;
  HDGUIStatus status;
  std::ostringstream nothing;
  EXPECT_FALSE(NOCJsonTrafficSpecWriter::writeToJsonFile(nothing, spec, status));
  EXPECT_EQ(nothing.str(), "");

  spec.setFrequency(100, true);
  EXPECT_EQ(written(spec),
            "{\n  \"SystemProperties\": {\n    \"Frequency\": 100\n  },\n  \"LogicalInstances\": [],\n"
            "  \"Paths\": []\n}");
}

TEST(NOCJsonTrafficSpecWriterTest, FilterDropsInstancesAndTheirPaths) {
  TrafficSpec spec;
  TrafficLInst* kept = spec.addLogicalInstance("kept", AXI_MM, PL_IGU, {});
  TrafficLInst* refused = spec.addLogicalInstance("refused", AXI_MM, PL_IGU, {});
  TrafficLInst* slave = spec.addLogicalInstance("s", AXI_MM, PL_EGU, {});
  spec.addPath(refused, slave)->setSlavePort(PORT0);
  spec.addPath(kept, slave)->setSlavePort(PORT0);
  HIPLogicalObjectNameResolverInterfaceIdentity identity;
  HDGUIStatus status;
  std::ostringstream out;
  ASSERT_TRUE(NOCJsonTrafficSpecWriter::writeToJsonFile(
      out, spec, [&](TrafficLInst const* instance) { return instance != refused; }, identity, status));
  TrafficSpec reread;
  readText(out.str(), reread);
  EXPECT_EQ(reread.getAllLogicalInstance().size(), 2u);
  ASSERT_EQ(reread.getNumPaths(), 1);
  EXPECT_EQ(reread.getPath(0)->getMaster()->getName(), "kept");

  EXPECT_THROW(NOCJsonTrafficSpecWriter::writeToJsonFile(out, spec, NOCJsonTrafficSpecWriter::InstanceFilter(),
                                                         identity, status),
               std::bad_function_call);
}

TEST(NOCJsonTrafficSpecWriterTest, ResolverNamesInstancesAndPathEnds) {
  TrafficSpec spec;
  spec.addRcfPath("rp/");  // held back by the resolver: an empty object stays
  TrafficLInst* master = spec.addLogicalInstance("m", AXI_MM, PL_IGU, {});
  TrafficLInst* outside = spec.addLogicalInstance("out_m", AXI_MM, PL_IGU, {{"out_a", "b"}, {"c"}});
  TrafficLInst* ddr = spec.addLogicalInstance("out_ddr", AXI_MM, DDRC, {{"p0"}, {"out_p1"}, {"p2"}});
  TrafficLInst* errorSlave = spec.addLogicalInstance("noc_error_slave", AXI_MM, ERR_EGU, {});
  spec.addPath(outside, ddr)->setSlavePort(PORT0);
  spec.addPath(master, ddr)->setSlavePort(PORT1);
  spec.addPath(master, ddr)->setSlavePort(PORT2);
  spec.addPath(master, errorSlave)->setSlavePort(PORT0);

  auto write = [&spec](bool blockModel) {
    HPAParamMgr::getParamMgr().setValue("project.enableBlockModel", blockModel ? "true" : "false");
    HierarchyResolver resolver;
    HDGUIStatus status;
    std::ostringstream out;
    NOCJsonTrafficSpecWriter::writeToJsonFile(
        out, spec, [](TrafficLInst const*) { return true; }, resolver, status);
    HPAParamMgr::getParamMgr().unsetValue("project.enableBlockModel");
    return out.str();
  };
  std::string const expected = tarvo_test::readFile(tarvo_test::dataPath("traffic/written_resolved.json"));
  EXPECT_EQ(write(false), expected);
  // Port-wise, the port's own group decides; a group with no name in the design drops the path.
  std::string const portWise = write(true);
  EXPECT_NE(portWise.find(R"("From": "x/b",)"
                          "\n"
                          R"(      "To": "x/p0",)"),
            std::string::npos);
  EXPECT_EQ(portWise.find(R"("Port": "PORT1")"), std::string::npos);
  EXPECT_NE(portWise.find(R"("To": "x/p2",)"), std::string::npos);
}

TEST(NOCJsonTrafficSpecWriterTest, SchemaFailureStopsTheTextAndReturnsFalse) {
  TrafficSpec spec;
  spec.addLogicalInstance("m", AXI_MM, PL_IGU, {})->setReadRateLimiter(-1.0f);
  tarvo_test::MessageCapture messages;
  HDGUIStatus status;
  std::ostringstream out;
  EXPECT_FALSE(NOCJsonTrafficSpecWriter::writeToJsonFile(out, spec, status));
  EXPECT_EQ(messages.summary(), std::vector<std::string>({"75-585(NoC Traffic Spec)"}));
  EXPECT_EQ(out.str(),
            "{\n  \"LogicalInstances\": [\n    {\n      \"Name\": \"m\",\n      \"IsMaster\": true,\n"
            "      \"CompType\": \"PL_IGU\",\n      \"Protocol\": \"AXI_MM\",\n      \"ReadTC\": \"BE\",\n"
            "      \"WriteTC\": \"BE\",\n      \"ReadRateLimiter\"");
}

TEST(NOCJsonTrafficSpecWriterTest, FileFormWritesOrRefusesToOpen) {
  TrafficSpec spec;
  spec.setFrequency(5, true);
  HDGUIStatus status;
  tarvo_test::TempDir dir;
  ASSERT_TRUE(NOCJsonTrafficSpecWriter::writeToJsonFile(dir.file("t.json"), spec, status));
  EXPECT_EQ(tarvo_test::readFile(dir.file("t.json")), written(spec));
  EXPECT_FALSE(NOCJsonTrafficSpecWriter::writeToJsonFile(dir.file("no/such/dir/t.json"), spec, status));
}

}  // namespace
