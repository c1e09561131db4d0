// The NoC solution reader stages the document while it parses and fills the result only after
// the whole text proved valid; these documents hold what a walk over a document tree decided
// and a staging reader could get wrong: first keys, the order of the reports, and a result
// left alone when the text fails late.

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

#include "ComMsgMgr.h"
#include "ComMsgMgrInstance.h"
#include "HDGUIStatus.h"
#include "HEXAll.h"
#include "NOCJsonSolutionReader.h"
#include "NOCJsonSolutionWriter.h"
#include "NocTestModel.h"

using namespace HrdIPToolCntr;
using NOC::NOCJsonSolutionReader;
using noc_test::TrafficOnDefaultDevice;

namespace {

std::string written(TrafficSpec const& spec, CompRes const& result) {
  HDGUIStatus status;
  std::ostringstream out;
  EXPECT_TRUE(NOC::NOCJsonSolutionWriter::writeToJsonFile(out, spec, result, status));
  return out.str();
}

void read(std::string const& text, TrafficSpec const& spec, CompRes& result) {
  HDGUIStatus status;
  std::istringstream in(text);
  NOCJsonSolutionReader::readFromJsonFile(in, "s.json", spec, result, status);
}

std::string const kRoute = R"("NOC_IN_PS_0", "P", "NOC_SW_X0Y1", "L0", "NOC_SW_X0Y1", "E", "NOC_SW_X1Y1", "W")";
std::string const kNoLink = R"("NOC_SW_X0Y1", "E", "NOC_SW_X2Y1", "W")";

std::string net(std::string const& connections, std::string const& extra = "") {
  return R"({"PhyInstanceStart": "", "PhyInstanceEnd": "", "VC": 3, "CommType": "WRITE", "Connections": [)" +
         connections + R"(], "RequiredBW": 0, "AchievedBW": 40, "RequiredLatency": 0, "AchievedLatency": 9)" + extra +
         "}";
}

std::string path(std::string const& from, std::string const& nets, std::string const& extra = "") {
  return R"({"Phase": 0, "From": ")" + from + R"(", "FromLocked": true, "To": "ddr", "ToLocked": false,
      "Port": "PORT0", "ReadTC": "BE", "WriteTC": "BE", "ReadBW": 0, "WriteBW": 0, "ReadAchievedBW": -1,
      "WriteAchievedBW": 4294967295, "ReadLatency": 0, "WriteLatency": 5, "ReadBestPossibleLatency": 0,
      "WriteBestPossibleLatency": 0, "PathLocked": false, "Nets": [)" +
         nets + "]" + extra + "}";
}

std::string solution(std::string const& paths, std::string const& components, std::string const& extra = "") {
  return R"({"SolutionType": "OPTIMAL", "LockAllDestIds": true, "Paths": [)" + paths + R"(], "Components": [)" +
         components + "]" + extra + "}";
}

std::string const kComponent = R"({"Name": "NOC_MC_0", "TrafficLInst": "ddr", "DestId": 7, "PortIndex": 2})";

TEST(NOCJsonSolutionStagedRead, TheFirstOfTwoEqualKeysCounts) {
  TrafficOnDefaultDevice traffic;
  CompRes plain(*traffic.device);
  read(solution(path("ps_master", net(kRoute)), kComponent), traffic.spec, plain);
  CompRes twice(*traffic.device);
  read(solution(path("ps_master", net(kRoute, R"(, "Connections": [)" + kNoLink + R"(], "VC": 5, "CommType": "READ")"),
                     R"(, "From": "pl_master", "FromLocked": false, "Nets": [])"),
                R"({"Name": "NOC_MC_0", "TrafficLInst": "ddr", "DestId": 7, "PortIndex": 2, "DestId": 9,
                    "PortIndex": 0, "Name": "NOC_IN_PL_0"})",
                R"(, "LockAllDestIds": false, "Paths": [], "Components": [])"),
       traffic.spec, twice);
  EXPECT_EQ(written(traffic.spec, twice), written(traffic.spec, plain));
  EXPECT_TRUE(twice.hasLockedDestIdsForAllComps());
  ASSERT_EQ(twice.getRoutes().size(), 1u);
  EXPECT_EQ(written(traffic.spec, plain).find("\"NOC_SW_X2Y1\""), std::string::npos);
}

TEST(NOCJsonSolutionStagedRead, RouteFailuresAreReportedOnlyForMatchedNetsAndCountsFirst) {
  TrafficOnDefaultDevice traffic;
  std::vector<std::string> warnings;
  int const sink =
      ComMsgMgr::addSink([&warnings](ComMsgMgrInstance const& message) { warnings.push_back(message.getId()); });
  // No master of that name: nothing matches, so the broken route is never looked at.
  CompRes unmatched(*traffic.device);
  read(solution(path("nobody", net(kNoLink)), ""), traffic.spec, unmatched);
  EXPECT_EQ(warnings, (std::vector<std::string>{"75-698"}));
  EXPECT_TRUE(unmatched.getRoutes().empty());
  ComMsgMgr::removeSink(sink);

  CompRes counted(*traffic.device);
  try {
    read(solution(path("ps_master", net(kNoLink + R"(, "NOC_SW_X0Y1")")), ""), traffic.spec, counted);
    ADD_FAILURE() << "no exception";
  } catch (HEXAll const& error) {
    EXPECT_EQ(noc_test::messageOf(error),
              "8-101(s.json|\"Connections\" holds 5 names, which is no whole number of links of four names each)");
  }
  CompRes missing(*traffic.device);
  EXPECT_THROW(read(solution(path("ps_master", net(kRoute + ", " + kNoLink)), ""), traffic.spec, missing),
               std::runtime_error);
}

TEST(NOCJsonSolutionStagedRead, ALateFailureLeavesTheResultUntouched) {
  TrafficOnDefaultDevice traffic;
  CompRes result(*traffic.device);
  std::string const before = written(traffic.spec, result);
  try {
    read(solution(path("ps_master", net(kRoute)) + "," + path("ps_master", net(kNoLink)),
                  kComponent + R"(, {"Name": 5, "DestId": 1})"),
         traffic.spec, result);
    ADD_FAILURE() << "no exception";
  } catch (HEXAll const& error) {
    EXPECT_EQ(noc_test::messageOf(error), "8-101(s.json|#/Components/1/Name)");
  }
  EXPECT_EQ(written(traffic.spec, result), before);
  EXPECT_FALSE(result.hasLockedDestIdsForAllComps());
  try {
    read(solution(path("ps_master", net(kRoute)), kComponent) + "x", traffic.spec, result);
    ADD_FAILURE() << "no exception";
  } catch (HEXAll const& error) {
    EXPECT_EQ(error.getMessage().getId(), "8-101");
  }
  EXPECT_EQ(written(traffic.spec, result), before);
}

}  // namespace
