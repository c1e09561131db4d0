#include <gtest/gtest.h>

#include <functional>
#include <sstream>

#include "ArrayDesign.h"
#include "HDGUIStatus.h"
#include "HEXAll.h"
#include "TQCompilerShimConstraintsWriterJSON.h"
#include "TQCompilerSolutionReaderJSON.h"
#include "TQCompilerSolutionWriterJSON.h"

using namespace array_test;

namespace {

// top/kpe: p1 on a site the KPE oracle knows nothing of; p2 with both channels placed; p3
// with only channel 1 placed; p4 with nothing placed; p5 with an unknown and a placed
// channel. top/kpe2: q on the "KPE_ML" tile.
struct CompilerSolutionWriterTest : public ::testing::Test {
  CompilerSolutionWriterTest() {
    TQLogicalTQIPInstance* kpe = design.addInstance("top/kpe");
    design.addPort(kpe, "p1", {"c/p1"});
    design.addPort(kpe, "p2", {"c/p2<0>_INST", "c/p2<1>_INST"});
    design.addPort(kpe, "p3", {"c/p3<0>_INST", "c/p3<1>_INST"});
    design.addPort(kpe, "p4", {"c/p4"});
    design.addPort(kpe, "p5", {"c/p5<0>_INST", "c/p5<1>_INST"}, false);
    design.addChannel("c/p5<1>_INST");
    design.addPort(design.addInstance("top/kpe2"), "q", {"c/q"});
    design.place("c/p1", "KPE_SHIM_X0Y0/CTRL");
    design.place("c/p2<0>_INST", "KPE_SHIM_X1Y0/M0");
    design.place("c/p2<1>_INST", "KPE_SHIM_X1Y0/M1");
    design.place("c/p3<1>_INST", "KPE_SHIM_X0Y0/S1");
    design.place("c/p5<1>_INST", "KPE_SHIM_X1Y0/S1");
    design.place("c/q", "KPE_ML_SHIM_X2Y0/PL_M1");
  }

  std::string write(std::string const& prefix, bool expected = true) {
    std::ostringstream out;
    EXPECT_EQ(expected, TQCompilerSolutionWriterJSON::writeToJsonFile(prefix, out, design.model, design.traffic,
                                                                      design.solution, *design.part, status));
    return out.str();
  }

  ArrayDesign design;
  HDGUIStatus status;
};

TEST_F(CompilerSolutionWriterTest, WritesEveryPlacedChannelWithItsCoordinates) {
  EXPECT_EQ(tarvo_test::readFile(tarvo_test::dataPath("array/written_solution.json")), write("top"));
  EXPECT_EQ(0.0, status.getPercent());
}

TEST_F(CompilerSolutionWriterTest, APrefixSelectsByTheBeginningOfTheName) {
  ArrayDesign names;
  for (char const* name : {"a/bc", "/a/b/d", "x"}) {
    names.addPort(names.addInstance(name), "p", {std::string(name) + ":c"});
    names.place(std::string(name) + ":c", "KPE_SHIM_X0Y0/S0");
  }
  std::ostringstream prefixed;
  TQCompilerSolutionWriterJSON::writeToJsonFile("a/b", prefixed, names.model, names.traffic, names.solution,
                                                *names.part, status);
  std::string const text = prefixed.str();
  EXPECT_NE(std::string::npos, text.find("\"InstanceName\": \"c\""));
  EXPECT_EQ(text.find("InstanceName"), text.rfind("InstanceName"));
  std::ostringstream all;
  TQCompilerSolutionWriterJSON::writeToJsonFile(all, names.model, names.traffic, names.solution, *names.part, status);
  for (char const* written : {"\"a/bc\"", "\"a/b/d\"", "\"x\""})
    EXPECT_NE(std::string::npos, all.str().find(std::string("\"InstanceName\": ") + written)) << written;
}

TEST_F(CompilerSolutionWriterTest, ReadingTheTextBackGivesTheSamePlacements) {
  std::string const text = write("top");
  TestSolution readBack(*design.part);
  std::istringstream in(text);
  EXPECT_TRUE(TQCompilerSolutionReaderJSON::readFromJsonFile(in, "w.json", *design.part, design.model, design.traffic,
                                                             "top", readBack, status));
  std::vector<TrafficLInst const*> written, read;
  design.solution.getAllPlacedInstances(written);
  readBack.getAllPlacedInstances(read);
  EXPECT_EQ(written, read);
  for (TrafficLInst const* instance : written)
    EXPECT_EQ(design.solution.getPhysicalForLogical(instance), readBack.getPhysicalForLogical(instance))
        << instance->getName();
}

TEST_F(CompilerSolutionWriterTest, NothingToWriteLeavesAnEmptyFileThatReadsAsFalse) {
  EXPECT_EQ("", write("elsewhere"));
  tarvo_test::TempDir dir;
  std::string const file = dir.file("solution.json");
  design.solution.clear();
  EXPECT_TRUE(TQCompilerSolutionWriterJSON::writeToJsonFile(file, design.model, design.traffic, design.solution,
                                                            *design.part, status));
  EXPECT_EQ("", tarvo_test::readFile(file));
  EXPECT_FALSE(TQCompilerSolutionReaderJSON::readFromJsonFile(file, *design.part, design.model, design.traffic,
                                                              design.solution, status));
  EXPECT_FALSE(TQCompilerSolutionWriterJSON::writeToJsonFile(dir.file("no/such/dir.json"), design.model, design.traffic,
                                                             design.solution, *design.part, status));
}

TEST_F(CompilerSolutionWriterTest, ASchemaFailureStopsTheTextAndNamesTheRule) {
  SchemaDir strict("strict");
  tarvo_test::MessageCapture capture;
  std::string const text = write("top", false);
  EXPECT_EQ(std::vector<std::string>{"75-645(#/definitions/site/properties/column|minimum|#/Placement/0/"
                                     "PhysicalInstance/0/column)"},
            capture.summary());
  EXPECT_EQ(
      "{\n  \"Placement\": [\n    {\n      \"LogicalInstance\": {\n        \"InstanceName\": \"kpe\",\n        "
      "\"PortName\": \"p1\"\n      },\n      \"PhysicalInstance\": [\n        {\n          \"name\": "
      "\"KPE_SHIM_X0Y0_CTRL\",\n          \"column\"",
      text);
}

TEST_F(CompilerSolutionWriterTest, ABrokenSchemaThrowsInTheReaderAndBothWriters) {
  SchemaDir broken("broken");
  std::string const schemas = tarvo_test::dataPath("array/broken/parts/zorvex/common/");
  auto failure = [](std::function<void()> const& work) -> std::string {
    try {
      work();
    } catch (HEXAll const& error) {
      return error.what();
    }
    return "no error";
  };
  std::string const parseError = "': line 3, column 1: Missing a comma or '}' after an object member.";
  EXPECT_EQ("ERROR: [tarvo 8-103] Failed to parse JSON schema file '" + schemas + "tellura/TQSolutionSchema.json" +
                parseError,
            failure([&] { write("top"); }));
  std::istringstream in("{}");
  EXPECT_EQ("ERROR: [tarvo 8-103] Failed to parse JSON schema file '" + schemas + "tellura/TQSolutionSchema.json" +
                parseError,
            failure([&] {
              TQCompilerSolutionReaderJSON::readFromJsonFile(in, "r.json", *design.part, design.model, design.traffic,
                                                             design.solution, status);
            }));
  std::ostringstream out;
  EXPECT_EQ(
      "ERROR: [tarvo 8-103] Failed to parse JSON schema file '" + schemas + "noc/schemas/constraints.json" + parseError,
      failure([&] {
        TQCompilerShimConstraintsWriterJSON::writeToJsonFile(out, design.model, design.traffic, design.solution,
                                                             *design.part, "top/kpe", status);
      }));
  EXPECT_EQ("", out.str());
}

}  // namespace
