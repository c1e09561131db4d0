#include <gtest/gtest.h>

#include <sstream>

#include "HDGUIStatus.h"
#include "HEXAll.h"
#include "HIPLogicalObjectNameResolverInterface.h"
#include "JsonDocumentFrame.h"
#include "NOCJsonReadWriteUtils.h"
#include "NOCJsonTrafficSpecReader.h"
#include "TestSupport.h"
#include "TrafficSpec.h"

using namespace HrdIPToolCntr;
using namespace DevHrdIP::Definitions;
using NOC::NOCJsonTrafficSpecReader;
using tarvo_test::messageOf;

namespace {

typedef std::vector<std::vector<std::string>> Groups;

// Instances become "top/<name>/i", other names "net/<name>"; "ghost" and names that begin with
// "drop" have no translation.
class PrefixResolver : public HIPLogicalObjectNameResolverInterfaceIdentity {
 public:
  std::string toNetlistInstance(std::string const& name) override {
    return name == "ghost" ? "" : "top/" + name + "/i";
  }
  std::string toNetlistName(std::string const& name) override {
    return name.compare(0, 4, "drop") == 0 ? "" : "net/" + name;
  }
};

std::string failureOf(std::istream& in, HIPLogicalObjectNameResolverInterface* resolver = nullptr) {
  TrafficSpec spec;
  HDGUIStatus status;
  HIPLogicalObjectNameResolverInterfaceIdentity identity;
  try {
    NOCJsonTrafficSpecReader::readFromJsonFile(in, "t.json", resolver ? *resolver : identity, spec, status);
  } catch (HEXAll const& error) {
    return messageOf(error);
  }
  return "no failure";
}

std::string failureOf(std::string const& text, HIPLogicalObjectNameResolverInterface* resolver = nullptr) {
  std::istringstream in(text);
  return failureOf(in, resolver);
}

std::string instanceDoc(std::string const& members) {
  return R"({"LogicalInstances": [{"IsMaster": true, "Protocol": "AXI_MM", )" + members + "}]}";
}

std::string pathDoc(std::string const& members) {
  return R"({"LogicalInstances": [{"Name": "m", "IsMaster": true, "CompType": "PL_IGU", "Protocol": "AXI_MM"},
    {"Name": "s", "IsMaster": false, "CompType": "PL_EGU", "Protocol": "AXI_MM"}],
    "Paths": [{"Phase": 0, "Port": "PORT0", "CommType": "MM_ReadWrite", "ReadBW": 1, "ReadLatency": 1,
    "WriteBW": 1, "WriteLatency": 1, )" +
         members + "}]}";
}

TEST(NOCJsonTrafficSpecReaderTest, ReadsEveryFormOfTheDocument) {
  tarvo_test::MessageCapture messages;
  TrafficSpec spec;
  HDGUIStatus status;
  std::string const file = tarvo_test::dataPath("traffic/reader_forms.json");
  ASSERT_TRUE(NOCJsonTrafficSpecReader::readFromJsonFile(file, spec, status));
  EXPECT_EQ(status.getMessage(), "Reading Traffic File " + file);
  EXPECT_TRUE(status.getMessageSet());
  EXPECT_EQ(status.getPercent(), 100.0);
  EXPECT_EQ(messages.summary(), std::vector<std::string>({"73-30(BOGUS|ddr)", "73-448(PORT9)"}));

  TrafficLInst const& cpu = *spec.getLogicalMaster("cpu");
  EXPECT_TRUE(cpu.firewall);
  EXPECT_EQ(cpu.getExternalConnsForAllPorts(), Groups({{"a", "b"}, {}, {"c"}}));
  EXPECT_EQ(cpu.getDesignName(), "cpu_design");
  ASSERT_EQ(cpu.getRemapAddrSpecs().size(), 1u);
  EXPECT_TRUE((cpu.getRemapAddrSpecs()[0] == RemapAddrSpec{0x1000, 8, 4096}));
  // The path's "ReadTC" replaced the instance's own.
  EXPECT_EQ(cpu.getReadTC(), TC_BW);
  EXPECT_EQ(cpu.getWriteTC(), TC_ISOC);
  EXPECT_EQ(cpu.getNumReadOutstanding(), 65535);
  EXPECT_EQ(cpu.getReadRateLimiter(), 2.0f);
  EXPECT_EQ(cpu.getWriteRateLimiter(), 3.0f);
  EXPECT_FALSE(cpu.hasValidSysAddress(0));  // a slave key on a master
  EXPECT_EQ(cpu.getConfigParams().at("k"), "v");
  EXPECT_EQ(cpu.ipName, "cpu_ip");
  EXPECT_TRUE(cpu.getUseDestIdIdx() && cpu.hasParityAddr() && !cpu.hasParityData());
  EXPECT_TRUE(cpu.isExistDestId());
  EXPECT_EQ(cpu.getDestId().getValue(), 4095);

  TrafficLInst const& pl = *spec.getLogicalMaster("pl");
  EXPECT_TRUE(pl.isVirtual());
  EXPECT_EQ(pl.getAxiWidth(), 256u);
  EXPECT_EQ(pl.getDestId().getValue(), 0);  // 65536 has no bits in the low 16
  EXPECT_EQ(pl.getNumReadOutstanding(), 4);

  TrafficLInst const& ddr = *spec.getLogicalSlave("ddr");
  EXPECT_EQ(ddr.getSysAddrSize(0), 4096u);
  EXPECT_EQ(ddr.getSysAddress(1), 17179869184u);
  EXPECT_EQ(ddr.getSysAddrSize(1), 0x80000000u);
  EXPECT_EQ(ddr.getMemoryParams().at("speed"), "3200");
  EXPECT_EQ(ddr.getPortTypes(), std::vector<PORT_TYPE>({PORT1, PORT3}));
  EXPECT_EQ(ddr.getDdrInterleaveSize(), 4096u);
  EXPECT_EQ(ddr.getDdrInterleaveSel(), 3);
  EXPECT_EQ(ddr.getAxiWidth(), 0u);
  EXPECT_EQ(ddr.getNumWriteOutstanding(), 0);  // a master key on a slave
  EXPECT_EQ(ddr.getReadTC(), TC_BE);

  TrafficLInst const& hbm = *spec.getLogicalSlave("hbm");
  EXPECT_EQ(hbm.getSysAddress(0), 1024u);
  EXPECT_EQ(hbm.getSysAddrSize(0), 2048u);
  EXPECT_EQ(hbm.getMemoryParams().at("ch"), "2");
  EXPECT_EQ(hbm.getPortTypes(), std::vector<PORT_TYPE>({PORT0}));
  EXPECT_EQ(hbm.getDdrInterleaveSize(), 0u);

  TrafficLInst const& bram = *spec.getLogicalSlave("bram");
  EXPECT_EQ(bram.getAxiWidth(), 64u);
  EXPECT_TRUE(bram.getPortTypes().empty());
  EXPECT_EQ(bram.getDdrInterleaveSize(), 0u);
  EXPECT_FALSE(bram.hasValidSysAddress(0));  // an empty list hides the single form

  ASSERT_EQ(spec.getNumPaths(), 3);  // the path from a slave is dropped
  TrafficPath const& full = *spec.getPath(0);
  EXPECT_EQ(full.phase, 2);
  EXPECT_EQ(full.getSlavePort(), PORT1);
  EXPECT_EQ(full.getReadPerfSpec(), PerfSpec(0, 1000, 300));
  EXPECT_EQ(full.getWritePerfSpec(), PerfSpec(0, 500, 400));
  EXPECT_EQ(full.getReadAvgBurst(), 64);
  EXPECT_EQ(full.getWriteAvgBurst(), 32);
  EXPECT_EQ(full.getWoc(), WO_RELAXED);
  EXPECT_EQ(full.getExclusiveGroup(), "ex");
  EXPECT_EQ(full.getSeparateRoutingGroup(), "sep");
  EXPECT_TRUE(full.isExistDestIdIndex());
  EXPECT_EQ(full.getDestIdIndex().getValue(), 7);
  EXPECT_TRUE(full.isInitialBoot() && full.getHighPriorityRouting());
  EXPECT_EQ(full.getDestIdIdxStart(0), 2);
  EXPECT_EQ(full.getDestIdIdxEnd(0), 5);
  // A phase takes the path's latencies.
  EXPECT_EQ(full.getReadPerfSpec("boot"), PerfSpec(0, 10, 300));
  EXPECT_EQ(full.getWritePerfSpec("boot"), PerfSpec(0, 20, 400));
  EXPECT_EQ(full.getReadAvgBurst("boot"), 4);
  EXPECT_EQ(full.getWriteAvgBurst("boot"), 8);
  EXPECT_EQ(spec.getAllPhasesForPhaseGroup("g"), std::set<std::string>({"Phase_Default", "boot"}));

  TrafficPath const& stream = *spec.getPath(1);
  EXPECT_EQ(stream.getSlavePort(), PORT_INVALID);
  EXPECT_EQ(stream.getReadPerfSpec(), PerfSpec());
  EXPECT_EQ(stream.getReadAvgBurst(), 0);
  EXPECT_EQ(stream.getWritePerfSpec(), PerfSpec(0, 800, 90));
  EXPECT_EQ(stream.getWriteAvgBurst(), 16);
  EXPECT_EQ(stream.getWoc(), WO_INVALID);

  EXPECT_EQ(spec.getFrequency(), 1000);
  EXPECT_TRUE(spec.isUserSetFrequency());
  EXPECT_EQ(spec.getRcfPaths(), std::vector<std::string>({"top/rp1/", "top/rp2/"}));
  EXPECT_TRUE(spec.getSecureMode());
  EXPECT_EQ(spec.getDeviceName(), "dev1");
}

TEST(NOCJsonTrafficSpecReaderTest, TranslatesNamesThroughTheResolver) {
  PrefixResolver resolver;
  TrafficSpec spec;
  HDGUIStatus status;
  std::istringstream in(R"({"LogicalInstances": [
    {"Name": "m", "IsMaster": true, "CompType": "PL_IGU", "Protocol": "AXI_MM", "ExternalConn": "e1 drop_e2,e3"},
    {"Name": "v", "IsMaster": true, "CompType": "PL_IGU", "Protocol": "AXI_MM", "IsVirtual": true},
    {"Name": "drop_noc_error_slave", "IsMaster": false, "CompType": "ERR_EGU", "Protocol": "AXI_MM"}],
    "Paths": [{"Phase": 0, "From": "m", "To": "drop_noc_error_slave", "Port": "PORT0", "CommType": "MM_ReadWrite",
      "ReadBW": 1, "ReadLatency": 1, "WriteBW": 1, "WriteLatency": 1}],
    "SystemProperties": {"RcfPaths": ["rp//", "ghost/"]}})");
  ASSERT_TRUE(NOCJsonTrafficSpecReader::readFromJsonFile(in, "t.json", resolver, spec, status));

  TrafficLInst const* master = spec.getLogicalMaster("top/m/i");
  ASSERT_NE(master, nullptr);
  EXPECT_EQ(master->getExternalConnsForAllPorts(), Groups({{"net/e1"}, {"net/e3"}}));
  EXPECT_NE(spec.getLogicalMaster("net/v"), nullptr);
  // The error slave counts as found even with no translation, and its paths use that name.
  TrafficLInst const* errorSlave = spec.getLogicalSlave("");
  ASSERT_NE(errorSlave, nullptr);
  ASSERT_EQ(spec.getNumPaths(), 1);
  EXPECT_EQ(spec.getPath(0)->getSlave(), errorSlave);
  // A partition path keeps its netlist name up to the end of the document's path.
  EXPECT_EQ(spec.getRcfPaths(), std::vector<std::string>({"top/rp/", "ghost/"}));

  EXPECT_EQ(failureOf(instanceDoc(R"("Name": "ghost", "CompType": "PL_IGU")"), &resolver),
            "8-101(t.json|Could not find netlist instance for traffic spec instance: ghost)");
  EXPECT_EQ(failureOf(instanceDoc(R"("Name": "drop", "CompType": "PL_IGU", "IsVirtual": true)"), &resolver),
            "8-101(t.json|Could not find netlist instance for traffic spec instance: drop)");
}

TEST(NOCJsonTrafficSpecReaderTest, ReportsBadValuesWithTheirTexts) {
  std::string const schema = JsonDocumentFrame::canonicalName(NOCJsonReadWriteUtils::getTrafficJsonSchemaFile());
  // The type is checked before the name.
  EXPECT_EQ(failureOf(instanceDoc(R"("Name": "", "CompType": "COMPERR")")),
            "8-101(t.json|Unknown component type : COMPERR)");
  EXPECT_EQ(failureOf(instanceDoc(R"("Name": "", "CompType": "PL_IGU")")), "8-101(t.json|Empty logical instance name)");
  EXPECT_EQ(failureOf(instanceDoc(R"("Name": "m", "CompType": "PL_IGU", "DestId": 4096)")),
            "8-101(t.json|DestId entry is expected to be a 12 bit maximum)");
  EXPECT_EQ(failureOf(pathDoc(R"("From": "x", "To": "s")")), "8-101(t.json|Path 'from' name is unknown: x)");
  EXPECT_EQ(failureOf(pathDoc(R"("From": "m", "To": "y")")), "8-101(t.json|Path 'to' name is unknown: y)");
  EXPECT_EQ(failureOf(pathDoc(R"("From": "m", "To": "s", "DestIdIndex": 8)")),
            "8-103(" + schema + "|DestIdIndex field is out of expected range: [0,7])");
  EXPECT_EQ(failureOf(pathDoc(R"("From": "m", "To": "s", "DestIdIndex": -1)")),
            "8-103(" + schema + "|DestIdIndex field is out of expected range: [0,7])");
  EXPECT_EQ(failureOf(pathDoc(R"("From": "m", "To": "s", "DestIdIndex": 7)")), "no failure");

  EXPECT_EQ(failureOf(instanceDoc(R"("Name": "m", "CompType": "PL_IGU", "NumReadOutstanding": 65536)")),
            "8-101(t.json|#/LogicalInstances/0/NumReadOutstanding)");
  EXPECT_EQ(failureOf(pathDoc(R"("From": "m", "To": "s", "CommType": "STREAM")")), "8-101(t.json|#/Paths/0/CommType)");
  EXPECT_EQ(failureOf(R"({"Paths": 3})"), "8-101(t.json|#/Paths)");
  EXPECT_EQ(failureOf(""), "8-101(t.json|line 1, column 1: The document is empty.)");
}

TEST(NOCJsonTrafficSpecReaderTest, OpensFilesPlainOrCompressedAndReportsUnreadableOnes) {
  TrafficSpec plain;
  TrafficSpec compressed;
  HDGUIStatus status;
  ASSERT_TRUE(
      NOCJsonTrafficSpecReader::readFromJsonFile(tarvo_test::dataPath("traffic/reader_forms.json"), plain, status));
  tarvo_test::MessageCapture quiet;
  ASSERT_TRUE(NOCJsonTrafficSpecReader::readFromJsonFile(tarvo_test::dataPath("traffic/reader_forms.json.gz"),
                                                         compressed, status));
  EXPECT_EQ(compressed.getNumPaths(), plain.getNumPaths());
  EXPECT_EQ(compressed.getAllLogicalInstance().size(), plain.getAllLogicalInstance().size());
  EXPECT_EQ(compressed.getRcfPaths(), plain.getRcfPaths());

  tarvo_test::TempDir dir;
  std::string const missing = dir.file("missing.json");
  try {
    NOCJsonTrafficSpecReader::readFromJsonFile(missing, plain, status);
    FAIL() << "a missing file was read";
  } catch (HEXAll const& error) {
    EXPECT_EQ(messageOf(error), "8-100(" + JsonDocumentFrame::canonicalName(missing) + ")");
  }

  std::istringstream failed("{}");
  failed.setstate(std::ios_base::failbit);
  EXPECT_EQ(failureOf(failed), "8-100(t.json)");
}

TEST(NOCJsonTrafficSpecReaderTest, EmptyDocumentLeavesTheSpecificationAlone) {
  TrafficSpec spec;
  spec.setDeviceName("kept");
  HDGUIStatus status;
  std::istringstream in("{}");
  EXPECT_TRUE(NOCJsonTrafficSpecReader::readFromJsonFile(in, "t.json", spec, status));
  EXPECT_TRUE(spec.getAllLogicalInstance().empty());
  EXPECT_EQ(spec.getDeviceName(), "kept");

  // With properties but no device name, the name is cleared.
  std::istringstream properties(R"({"SystemProperties": {}})");
  EXPECT_TRUE(NOCJsonTrafficSpecReader::readFromJsonFile(properties, "t.json", spec, status));
  EXPECT_EQ(spec.getDeviceName(), "");
}

TEST(NOCJsonTrafficSpecReaderTest, DefaultSlaveIsAddedOnce) {
  TrafficSpec spec;
  HDGUIStatus status;
  std::istringstream in(pathDoc(R"("From": "m", "To": "s")"));
  NOCJsonTrafficSpecReader::readFromJsonFile(in, "t.json", spec, status);
  NOCJsonTrafficSpecReader::enableDefaultSlv(spec);
  NOCJsonTrafficSpecReader::enableDefaultSlv(spec);
  ASSERT_EQ(spec.getNumPaths(), 2);
  EXPECT_TRUE(spec.getPath(1)->getSlave()->isErrorSlave());
  EXPECT_EQ(spec.getAllLogicalInstance().size(), 3u);
}

}  // namespace
