#include <gtest/gtest.h>

#include <sstream>

#include "ArrayDesign.h"
#include "HDGUIStatus.h"
#include "HEXAll.h"
#include "KPEGRMDeviceUtils.h"
#include "TQCompilerSolutionReaderJSON.h"
#include "TestSupport.h"

using namespace array_test;
using namespace DevHrdIP::Definitions;

namespace {

// Placements as "channel@site", both ways, in channel order.
std::vector<std::string> placements(ArrayDesign const& design) {
  std::vector<std::string> lines;
  for (TrafficLInst const* instance : design.traffic.getAllLogicalInstance()) {
    GRMBel const site = design.solution.getPhysicalForLogical(instance);
    if (site.isBad()) continue;
    TrafficLInst const* back = design.solution.getLogicalForPhysical(site);
    lines.push_back(instance->getName() + "@" + site.getHierarchicalName1() +
                    (back == instance ? "" : " (site names " + (back ? back->getName() : "none") + ")"));
  }
  return lines;
}

std::string failure(std::function<void()> const& read) {
  try {
    read();
  } catch (HEXAll const& error) {
    return error.what();
  }
  return "no error";
}

struct CompilerSolutionReaderTest : public ::testing::Test {
  CompilerSolutionReaderTest() {
    TQLogicalTQIPInstance* kpe = design.addInstance("top/kpe");
    design.addChannel("ch/p1", PL_IGU);
    design.addPort(kpe, "p1", {"ch/p1"});
    design.addChannel("ch/p2<0>_INST", PL_EGU);
    design.addPort(kpe, "p2", {"ch/p2<0>_INST", "ch/p2<1>_INST"});
    design.addPort(kpe, "p3", {"ch/p3<0>_INST", "ch/p3<1>_INST"});
    design.addPort(kpe, "p4", {"ch/p4_a", "ch/p4_b"});
    design.addPort(kpe, "nochannels", {});
    design.addPort(kpe, "p5", {"ch/p5"}, false);
  }

  bool readText(std::string const& text, std::string const& prefix = std::string()) {
    std::istringstream in(text);
    return TQCompilerSolutionReaderJSON::readFromJsonFile(in, "text.json", *design.part, design.model, design.traffic,
                                                          prefix, design.solution, status);
  }

  bool readFile(std::string const& name) {
    return TQCompilerSolutionReaderJSON::readFromJsonFile(tarvo_test::dataPath("array/" + name), *design.part,
                                                          design.model, design.traffic, design.solution, status);
  }

  ArrayDesign design;
  HDGUIStatus status;
};

TEST_F(CompilerSolutionReaderTest, PlacesChannelsByTheParityOfTheDeviceChannel) {
  EXPECT_TRUE(readFile("reader_cases.json"));
  // p1 has one channel and takes the odd site whatever the document says of it; p2's sites
  // stand in reverse order; p3's second even site is refused; p4 names no channel of either
  // parity; unknown ports, instances and sites are passed over.
  EXPECT_EQ((std::vector<std::string>{"ch/p1@KPE_SHIM_X0Y0/S1", "ch/p2<0>_INST@KPE_SHIM_X1Y0/M0",
                                      "ch/p2<1>_INST@KPE_SHIM_X1Y0/M1", "ch/p3<0>_INST@KPE_SHIM_X0Y0/M0"}),
            placements(design));
  EXPECT_EQ(nullptr, design.solution.getLogicalForPhysical(design.site("KPE_SHIM_X0Y0/S0")));
  std::vector<TrafficLInst const*> locked;
  design.solution.getAllLockedInstances(locked);
  EXPECT_TRUE(locked.empty());
  EXPECT_EQ(100.0, status.getPercent());
  EXPECT_FALSE(status.getMessageSet());
}

TEST_F(CompilerSolutionReaderTest, AddsToWhatTheSolutionHoldsFirstWins) {
  design.place("ch/p3<0>_INST", "KPE_SHIM_X1Y0/S0");
  // Members in any order; of two equal keys the first counts.
  EXPECT_TRUE(readText(R"({"Placement": [{"PhysicalInstance": [{"name": "KPE_SHIM_X0Y0_M0"},
      {"name": "KPE_SHIM_X0Y0_M1", "name": "KPE_SHIM_X1Y0_M1"}], "PhysicalInstance": [{"name": "KPE_SHIM_X1Y0_S1"}],
      "LogicalInstance": {"InstanceName": "", "PortName": "p3", "PortName": "p1"}}]})"));
  EXPECT_EQ((std::vector<std::string>{"ch/p3<0>_INST@KPE_SHIM_X1Y0/S0", "ch/p3<1>_INST@KPE_SHIM_X0Y0/M1"}),
            placements(design));
  // A text that fails late adds nothing, not even its valid beginning.
  EXPECT_THROW(readText(R"({"Placement": [{"LogicalInstance": {"InstanceName": "", "PortName": "p1"},
      "PhysicalInstance": [{"name": "KPE_SHIM_X0Y0_S0"}]}, {"IsSoft": 1}]})"),
               HEXAll);
  EXPECT_EQ(2u, placements(design).size());
}

TEST_F(CompilerSolutionReaderTest, InstanceNamesAreFoundAsPartsOfFullNamesBehindThePrefix) {
  ArrayDesign wide;
  for (char const* name : {"a/x/kpe2", "b/kpe"}) {
    TQLogicalTQIPInstance* instance = wide.addInstance(name);
    wide.addPort(instance, "p", {std::string(name) + "/ch"});
  }
  char const* const text = R"({"Placement": [{"LogicalInstance": {"InstanceName": "kpe", "PortName": "p"},
      "PhysicalInstance": [{"name": "KPE_SHIM_X0Y0_S0"}]}]})";
  std::istringstream first(text);
  TQCompilerSolutionReaderJSON::readFromJsonFile(first, "t.json", *wide.part, wide.model, wide.traffic, wide.solution,
                                                 status);
  EXPECT_EQ(wide.site("KPE_SHIM_X0Y0/S0"), wide.solution.getPhysicalForLogical(wide.channel("a/x/kpe2/ch")));
  std::istringstream second(text);
  TQCompilerSolutionReaderJSON::readFromJsonFile(second, "t.json", *wide.part, wide.model, wide.traffic, "b",
                                                 wide.solution, status);
  EXPECT_EQ(wide.site("KPE_SHIM_X0Y0/S0"), wide.solution.getPhysicalForLogical(wide.channel("b/kpe/ch")));
}

TEST_F(CompilerSolutionReaderTest, DocumentsWithoutPlacementsReadAsNothing) {
  EXPECT_TRUE(readText("{}"));
  EXPECT_EQ(100.0, status.getPercent());
  EXPECT_TRUE(readText(R"({"Placement": []})"));
  EXPECT_TRUE(design.solution.empty());
  // The empty file is what the writer leaves when nothing is placed.
  design.place("ch/p1", "KPE_SHIM_X0Y0/S1");
  EXPECT_FALSE(readFile("empty.json"));
  EXPECT_EQ(std::vector<std::string>{"ch/p1@KPE_SHIM_X0Y0/S1"}, placements(design));
}

TEST_F(CompilerSolutionReaderTest, FailuresNameTheFileAndThePlace) {
  tarvo_test::MessageCapture capture;
  std::string const dir = tarvo_test::dataPath("array");
  EXPECT_EQ("ERROR: [tarvo 8-101] Failed to parse JSON file '" + dir +
                "/syntax_error.json': line 3, column 3: Missing a comma or ']' after an array element.",
            failure([&] { readFile("syntax_error.json"); }));
  EXPECT_EQ("ERROR: [tarvo 8-100] Cannot read JSON file '" + dir +
                "/missing.json': it does not exist, is not a regular file, or cannot be opened. Check the path and "
                "its permissions.",
            failure([&] { readFile("missing.json"); }));
  EXPECT_EQ("ERROR: [tarvo 8-101] Failed to parse JSON file 'text.json': #/Placement/0/PhysicalInstance/0/column",
            failure([&] {
              readText(R"({"Placement": [{"PhysicalInstance": [{"name": "KPE_SHIM_X0Y0_S0", "column": "4"}]}]})");
            }));
  EXPECT_EQ("ERROR: [tarvo 8-101] Failed to parse JSON file 'text.json': #/Placement/0/LogicalInstance",
            failure([&] { readText(R"({"Placement": [{"LogicalInstance": {"InstanceName": "kpe"}}]})"); }));
  // A key that isn't valid UTF-8 is named byte by byte.
  EXPECT_EQ("ERROR: [tarvo 8-101] Failed to parse JSON file 'text.json': #/Placement/0/Logical~1%EB",
            failure([&] { readText("{\"Placement\": [{\"Logical/\xEB\": {}}]}"); }));
  std::istringstream failed("{}");
  failed.setstate(std::ios_base::failbit);
  EXPECT_EQ(
      "ERROR: [tarvo 8-100] Cannot read JSON file 'f.json': it does not exist, is not a regular file, or "
      "cannot be opened. Check the path and its permissions.",
      failure([&] {
        TQCompilerSolutionReaderJSON::readFromJsonFile(failed, "f.json", *design.part, design.model, design.traffic,
                                                       design.solution, status);
      }));
  EXPECT_TRUE(design.solution.empty());
}

}  // namespace
