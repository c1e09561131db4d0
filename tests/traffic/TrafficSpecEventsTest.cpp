#include <gtest/gtest.h>

#include <sstream>

#include "HDGUIStatus.h"
#include "HEXAll.h"
#include "HIPLogicalObjectNameResolverInterface.h"
#include "NOCJsonTrafficSpecReader.h"
#include "NOCJsonTrafficSpecWriter.h"
#include "TestSupport.h"
#include "TrafficSpec.h"

using namespace HrdIPToolCntr;
using namespace DevHrdIP::Definitions;
using NOC::NOCJsonTrafficSpecReader;
using NOC::NOCJsonTrafficSpecWriter;
using tarvo_test::messageOf;

namespace {

// Keeps every question it is asked, in order, and translates each name to itself; names
// beginning with "gone" are not in the design.
class RecordingResolver : public HIPLogicalObjectNameResolverInterfaceIdentity {
 public:
  std::string toNetlistInstance(std::string const& name) override { return record("instance ", name); }
  std::string toNetlistName(std::string const& name) override { return record("name ", name); }
  std::string fromNetlistInstance(std::string const& name) override { return record("from instance ", name); }
  std::string fromNetlistName(std::string const& name) override { return record("from name ", name); }
  bool isNameInDesign(std::string const& name) override {
    record("in design ", name);
    return name.compare(0, 4, "gone") != 0;
  }
  bool suppressRcfPaths(std::string const&) override {
    calls.push_back("rcf");
    return false;
  }
  std::vector<std::string> calls;

 private:
  std::string const& record(char const* question, std::string const& name) {
    calls.push_back(question + name);
    return name;
  }
};

// The failure of reading `text` ("no failure" when it reads), with the resolver's calls.
std::string failureOf(std::string const& text, TrafficSpec& spec, RecordingResolver& resolver) {
  HDGUIStatus status;
  std::istringstream in(text);
  try {
    NOCJsonTrafficSpecReader::readFromJsonFile(in, "t.json", resolver, spec, status);
  } catch (HEXAll const& error) {
    return messageOf(error);
  }
  return "no failure";
}

std::string failureOf(std::string const& text) {
  TrafficSpec spec;
  RecordingResolver resolver;
  return failureOf(text, spec, resolver);
}

std::string const kPathValues =
    R"("Port": "PORT0", "CommType": "MM_ReadWrite", "ReadBW": 1, "ReadLatency": 1, "WriteBW": 1, "WriteLatency": 1)";

std::string instance(std::string const& name, bool isMaster, std::string const& compType, std::string const& more) {
  return R"({"Name": ")" + name + R"(", "IsMaster": )" + (isMaster ? "true" : "false") + R"(, "CompType": ")" +
         compType + R"(", "Protocol": "AXI_MM")" + more + "}";
}

std::string master(std::string const& name, std::string const& more = "", std::string const& compType = "PL_IGU") {
  return instance(name, true, compType, more);
}

std::string slave(std::string const& name, std::string const& more = "", std::string const& compType = "PL_EGU") {
  return instance(name, false, compType, more);
}

std::string path(std::string const& from, std::string const& to, std::string const& more = "",
                 std::string const& phase = "0") {
  return R"({"Phase": )" + phase + R"(, "From": ")" + from + R"(", "To": ")" + to + R"(", )" + kPathValues + more + "}";
}

TEST(TrafficSpecEventsTest, OfEqualKeysTheFirstCountsButEveryParameterMemberDoes) {
  TrafficSpec spec;
  RecordingResolver resolver;
  ASSERT_EQ(failureOf(R"({"LogicalInstances": [
    {"Name": "m", "Name": "other", "IsMaster": true, "CompType": "PL_IGU", "CompType": "BOGUS", "Protocol": "AXI_MM",
     "Remap": [{"Logical": "0x10", "Logical": "0x20", "Physical": "8", "Range": "010"}], "Remap": [],
     "ConfigParams": {"k": "a", "j": "c", "k": "b"}, "SimMetaData": {"IPName": "ip1", "IPName": "ip2"},
     "SimMetaData": {"IPName": "ip3"}, "ReadRateLimiter": 2.9, "ReadRateLimiter": 5},
    {"Name": "s", "IsMaster": false, "CompType": "DDRC", "Protocol": "AXI_MM", "MemoryParams": {"x": "1", "x": "2"},
     "MemoryParams": [{"Name": "y", "Value": "3"}], "SysAddresses": [{"Base": 16, "Size": "0x20", "Size": 1}],
     "SysAddresses": [{"Base": 1, "Size": 1}], "Ports": ["PORT1"], "Ports": ["PORT2"], "InterleaveSel": 3,
     "InterleaveSel": 4}],
    "Paths": [{"Phase": 4, "Phase": 5, "From": "m", "From": "s", "To": "s", )" +
                          kPathValues + R"(, "ExclusiveGroup": "e1", "ExclusiveGroup": "e2"}],
    "LogicalInstances": [{"Name": "late", "IsMaster": true, "CompType": "PL_IGU", "Protocol": "AXI_MM"}]})",
                      spec, resolver),
            "no failure");

  ASSERT_EQ(spec.getAllLogicalInstance().size(), 2u);
  TrafficLInst const& m = *spec.getLogicalMaster("m");
  EXPECT_EQ(m.getCompType(), PL_IGU);
  ASSERT_EQ(m.getRemapAddrSpecs().size(), 1u);
  EXPECT_TRUE((m.getRemapAddrSpecs()[0] == RemapAddrSpec{0x10, 8, 8}));
  // Every member of a parameter map is added in turn, so the last of equal names stays.
  EXPECT_EQ(m.getConfigParams(), (std::map<std::string, std::string>{{"j", "c"}, {"k", "b"}}));
  EXPECT_EQ(m.ipName, "ip1");
  EXPECT_EQ(m.getReadRateLimiter(), 2.0f);

  TrafficLInst const& s = *spec.getLogicalSlave("s");
  EXPECT_EQ(s.getMemoryParams(), (std::map<std::string, std::string>{{"x", "2"}}));
  EXPECT_EQ(s.getSysAddress(0), 16u);
  EXPECT_EQ(s.getSysAddrSize(0), 0x20u);
  EXPECT_FALSE(s.hasValidSysAddress(1));
  EXPECT_EQ(s.getPortTypes(), std::vector<PORT_TYPE>({PORT1}));
  EXPECT_EQ(s.getDdrInterleaveSel(), 3);

  ASSERT_EQ(spec.getNumPaths(), 1);
  EXPECT_EQ(spec.getPath(0)->phase, 4);
  EXPECT_EQ(spec.getPath(0)->getMaster(), &m);
  EXPECT_EQ(spec.getPath(0)->getExclusiveGroup(), "e1");
}

TEST(TrafficSpecEventsTest, NumbersReadAsTheGettersOfTheirKindReadThem) {
  TrafficSpec spec;
  RecordingResolver resolver;
  ASSERT_EQ(
      failureOf(R"({"LogicalInstances": [)" + master("m", R"(, "ReadRateLimiter": 1e10, "WriteRateLimiter": 3000000000,
                                 "AxiDataWidth": 3000000000, "DestId": 5000000000)") +
                    "," + slave("s", R"(, "SysAddress": 18446744073709551615, "SysAddressSize": 4294967296,
                                "AxiDataWidth": 2147483647)") +
                    R"(], "Paths": [)" + path("m", "s", R"(, "DestIdIndex": 5000000000)", "-7") + "," +
                    path("m", "s", R"(, "DestIdIndex": -0)", "3000000000") +
                    R"(], "SystemProperties": {"Frequency": 2147483648}})",
                spec, resolver),
      "no failure");
  TrafficLInst const& m = *spec.getLogicalMaster("m");
  // A number out of the range of an Integer reads as 0, one with a fraction as its integer part
  // when that is in range.
  EXPECT_EQ(m.getReadRateLimiter(), 0.0f);
  EXPECT_EQ(m.getWriteRateLimiter(), 0.0f);
  EXPECT_EQ(m.getAxiWidth(), 0u);
  EXPECT_FALSE(m.isExistDestId());
  TrafficLInst const& s = *spec.getLogicalSlave("s");
  EXPECT_EQ(s.getSysAddress(0), 18446744073709551615u);
  EXPECT_EQ(s.getSysAddrSize(0), 4294967296u);
  EXPECT_EQ(s.getAxiWidth(), 2147483647u);

  ASSERT_EQ(spec.getNumPaths(), 2);
  EXPECT_EQ(spec.getPath(0)->phase, -7);
  EXPECT_FALSE(spec.getPath(0)->isExistDestIdIndex());
  EXPECT_EQ(spec.getPath(1)->phase, 0);
  EXPECT_TRUE(spec.getPath(1)->isExistDestIdIndex());
  EXPECT_EQ(spec.getPath(1)->getDestIdIndex().getValue(), 0);
  EXPECT_EQ(spec.getFrequency(), 0);
  EXPECT_TRUE(spec.isUserSetFrequency());

  // A negative id keeps its low 16 bits, which are more than 12.
  EXPECT_EQ(failureOf(R"({"LogicalInstances": [)" + master("m", R"(, "DestId": -1)") + "]}"),
            "8-101(t.json|DestId entry is expected to be a 12 bit maximum)");
}

TEST(TrafficSpecEventsTest, WalkFailuresComeInstancesFirstWhereverTheyLieInTheText) {
  // The second instance's type fails before the first path, which the text puts first.
  EXPECT_EQ(failureOf(R"({"Paths": [)" + path("x", "s") + R"(], "LogicalInstances": [)" + master("m") + "," +
                      slave("s", "", "BOGUS") + "]}"),
            "8-101(t.json|Unknown component type : BOGUS)");
  EXPECT_EQ(failureOf(R"({"LogicalInstances": [)" + master("") + "," + slave("s", "", "BOGUS") + "]}"),
            "8-101(t.json|Empty logical instance name)");
  // A text the document holds elsewhere is no instance name.
  EXPECT_EQ(failureOf(R"({"LogicalInstances": [)" + master("m") + "," + slave("s") + R"(], "Paths": [)" +
                      path("m", "s") + "," + path("PORT0", "m") + "]}"),
            "8-101(t.json|Path 'from' name is unknown: PORT0)");

  // Within an instance, the ports are reported before its destination id fails.
  tarvo_test::MessageCapture messages;
  EXPECT_EQ(failureOf(R"({"LogicalInstances": [{"Name": "d", "IsMaster": false, "CompType": "DDRC",
    "Protocol": "AXI_MM", "DestId": 4096, "Ports": ["PORT1", "BAD"]}]})"),
            "8-101(t.json|DestId entry is expected to be a 12 bit maximum)");
  EXPECT_EQ(messages.summary(), std::vector<std::string>({"73-30(BAD|d)"}));

  // The resolver is asked in the walk's order: instances, each with its external connections,
  // then the partition paths.
  TrafficSpec spec;
  RecordingResolver resolver;
  ASSERT_EQ(failureOf(R"({"SystemProperties": {"RcfPaths": ["rp/"]}, "Paths": [)" + path("v", "s") +
                          R"(], "LogicalInstances": [)" + slave("s", R"(, "ExternalConn": "a b,c")") + "," +
                          master("v", R"(, "IsVirtual": true)") + "]}",
                      spec, resolver),
            "no failure");
  EXPECT_EQ(resolver.calls,
            std::vector<std::string>({"instance s", "name a", "name b", "name c", "name v", "instance rp"}));
  EXPECT_EQ(spec.getNumPaths(), 1);
}

TEST(TrafficSpecEventsTest, ALateSyntaxOrSchemaFailureWinsAndNothingIsTouched) {
  std::string const walkFailure = R"({"LogicalInstances": [)" + master("m", "", "BOGUS") + "," +
                                  slave("s", R"(, "ExternalConn": "a")") + R"(], "Paths": [)" + path("m", "s");
  TrafficSpec spec;
  spec.setDeviceName("kept");
  RecordingResolver resolver;
  tarvo_test::MessageCapture messages;
  EXPECT_EQ(failureOf(walkFailure + "}", spec, resolver),
            "8-101(t.json|line 1, column 353: Missing a comma or ']' after an array element.)");
  EXPECT_EQ(failureOf(walkFailure + R"(, {"Phase": "one"}]})", spec, resolver), "8-101(t.json|#/Paths/1/Phase)");
  EXPECT_TRUE(spec.getAllLogicalInstance().empty());
  EXPECT_EQ(spec.getDeviceName(), "kept");
  EXPECT_TRUE(resolver.calls.empty());
  EXPECT_TRUE(messages.summary().empty());
  EXPECT_EQ(failureOf(walkFailure + "]}", spec, resolver), "8-101(t.json|Unknown component type : BOGUS)");
}

TEST(TrafficSpecEventsTest, WriterAsksTheResolverForEveryNameEvenAfterTheTextFailed) {
  TrafficSpec spec;
  spec.addRcfPath("rp/");
  TrafficLInst* master = spec.addLogicalInstance("m", AXI_MM, PL_IGU, {});
  master->setReadRateLimiter(-1.0f);  // refused by the schema
  TrafficLInst* slave = spec.addLogicalInstance("gone_s", AXI_MM, PL_EGU, {{"gone_a", "b"}, {"c"}});
  spec.addPath(master, slave)->setSlavePort(PORT0);

  RecordingResolver resolver;
  tarvo_test::MessageCapture messages;
  HDGUIStatus status;
  std::ostringstream out;
  EXPECT_FALSE(NOCJsonTrafficSpecWriter::writeToJsonFile(
      out, spec, [](TrafficLInst const*) { return true; }, resolver, status));
  EXPECT_EQ(messages.summary(), std::vector<std::string>({"75-585(NoC Traffic Spec)"}));
  EXPECT_EQ(out.str().substr(out.str().size() - 17), "\"ReadRateLimiter\"");
  EXPECT_EQ(resolver.calls,
            std::vector<std::string>({"rcf", "from instance m", "in design m", "from instance gone_s",
                                      "in design gone_s", "in design gone_a", "in design b", "from name b",
                                      "in design c", "from name c", "in design m", "from name m", "in design gone_s",
                                      "in design gone_a", "in design b", "from name b"}));
}

}  // namespace
