#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <boost/iostreams/filter/gzip.hpp>
#include <boost/iostreams/filtering_stream.hpp>
#include <fstream>
#include <regex>
#include <sstream>

#include "TestSupport.h"
#include "Tool.h"

namespace {

struct ToolResult {
  int exit;
  std::string out;
  std::string err;
};

ToolResult tool(std::vector<std::string> const& args) {
  std::ostringstream out;
  std::ostringstream err;
  int const exit = tarvo_docs::runTool(args, out, err);
  return {exit, out.str(), err.str()};
}

std::string doc(std::string const& name) {
  return tarvo_test::dataPath("diagnostics/" + name);
}

TEST(ToolDiagnostics, CheckPrintsEveryViolationAndCountsThem) {
  std::string const f = doc("traffic_three_violations.json");
  ToolResult const run = tool({"check", f});
  EXPECT_EQ(run.exit, 1);
  EXPECT_EQ(run.out, f + ": FAILED (traffic, 5 errors)\n");
  EXPECT_EQ(run.err,
            f +
                ":9:17: error: 'ReadTC': expected one of \"BE\", \"LL\", \"ISOC\", \"BW\", found \"LX\"; did you mean "
                "\"LL\"? (schema rule 'enum') [tarvo 8-101]\n" +
                f +
                ":10:29: error: 'NumReadOutstanding': expected integer, found string \"32\" (schema rule 'type') "
                "[tarvo 8-101]\n" +
                f + ":12:5: error: item 1 of 'LogicalInstances': missing required key 'Name' [tarvo 8-101]\n" + f +
                ":13:7: error: key 'Nmae' is not allowed in item 1 of 'LogicalInstances'; did you mean 'Name'? "
                "[tarvo 8-101]\n" +
                f +
                ":18:24: error: 'InterleaveSel': expected at most 65535, found 70000 (schema rule 'maximum') "
                "[tarvo 8-101]\n");
  // --quiet leaves the errors and drops the OK lines only.
  EXPECT_EQ(tool({"check", "--quiet", f}).err, run.err);
}

TEST(ToolDiagnostics, StrictTurnsLintIntoFailingWarnings) {
  std::string const f = doc("constraints_typo_only.json");
  ToolResult const plain = tool({"check", f});
  EXPECT_EQ(plain.exit, 0);
  EXPECT_EQ(plain.out, f + ": OK (constraints, 2 constraints, 0 FIFO records)\n");
  EXPECT_EQ(plain.err, "");
  ToolResult const strict = tool({"check", "--strict", f});
  EXPECT_EQ(strict.exit, 1);
  EXPECT_EQ(strict.out, f + ": FAILED (constraints, 1 warning)\n");
  EXPECT_EQ(strict.err, f + ":5:7: warning: key 'colocated_node' names no constraint and is read as an attribute; "
                            "did you mean 'colocated_nodes'? [tarvo-docs unknown-key]\n");
}

TEST(ToolDiagnostics, SyntaxErrorsAndOtherKindsAreNamed) {
  tarvo_test::TempDir dir;
  std::string const broken = dir.file("broken.json");
  tarvo_test::writeFile(broken, "{\n  \"LogicalInstances\": [\n    { \"Name\": \"a\" }\n  ],\n}\n");
  ToolResult const syntax = tool({"check", broken});
  EXPECT_EQ(syntax.exit, 1);
  EXPECT_EQ(syntax.out, broken + ": FAILED (traffic, 1 error)\n");
  EXPECT_EQ(syntax.err, broken + ":5:1: error: Missing a name for object member. [tarvo 8-101]\n");

  std::string const constraints = doc("constraints_typo_only.json");
  ToolResult const asTraffic = tool({"check", "--kind", "traffic", constraints});
  EXPECT_EQ(asTraffic.exit, 1);
  EXPECT_EQ(asTraffic.err, constraints +
                               ":2:3: error: key 'NodeConstraints' is not allowed in the document; allowed "
                               "keys: $schema, SystemProperties, LogicalInstances, Paths [tarvo 8-101]\n" +
                               constraints + ": note: the document looks like a constraints document, not traffic; " +
                               "name its kind with --kind constraints\n");
}

TEST(ToolDiagnostics, CompressedDocumentsArePlacedInTheirInflatedText) {
  tarvo_test::TempDir dir;
  std::string const gz = dir.file("t.json.gz");
  {
    std::ofstream file(gz, std::ios_base::binary);
    boost::iostreams::filtering_ostream out;
    out.push(boost::iostreams::gzip_compressor());
    out.push(file);
    out << tarvo_test::readFile(doc("traffic_unknown_end.json"));
  }
  ToolResult const run = tool({"check", gz});
  EXPECT_EQ(run.err, gz +
                         ":9:27: error: 'From' names 'top/cpu/m_axi_9', which is not a logical instance of this "
                         "document [tarvo 8-101]\n" +
                         gz + ":9:27: note: Failed to parse JSON file '" + gz +
                         "': Path 'from' name is unknown: top/cpu/m_axi_9 [tarvo 8-101]\n");
}

// The SARIF log holds the places the text form prints, for every file of the run, and
// nothing else goes to standard output.
TEST(ToolDiagnostics, SarifCarriesTheSamePlaces) {
  std::vector<std::string> const files = {doc("traffic_three_violations.json"), doc("constraints_typo.json"),
                                          std::string(TARVO_SOURCE_DIR) + "/examples/noc_traffic.json"};
  ToolResult const text = tool({"check", "--strict", files[0], files[1], files[2]});
  ToolResult const sarif = tool({"check", "--strict", "--diagnostics-format", "sarif", files[0], files[1], files[2]});
  EXPECT_EQ(sarif.exit, 1);
  EXPECT_EQ(sarif.err, "");
  rapidjson::Document log;
  log.Parse(sarif.out.c_str());
  ASSERT_FALSE(log.HasParseError());
  ASSERT_TRUE(log["runs"].IsArray() && log["runs"].Size() == 1u);
  std::string places;
  for (auto const& result : log["runs"][0]["results"].GetArray()) {
    auto const& location = result["locations"][0]["physicalLocation"];
    places += std::string(location["artifactLocation"]["uri"].GetString());
    if (location.HasMember("region"))
      places += ":" + std::to_string(location["region"]["startLine"].GetUint()) + ":" +
                std::to_string(location["region"]["startColumn"].GetUint());
    places += ": " + std::string(result["level"].GetString()) + "\n";
  }
  std::regex const tail(": (error|warning|note): .*");
  std::string expected;
  std::istringstream lines(text.err);
  for (std::string line; std::getline(lines, line);) {
    std::smatch match;
    ASSERT_TRUE(std::regex_search(line, match, tail)) << line;
    expected += line.substr(0, static_cast<std::size_t>(match.position(0))) + ": " + match[1].str() + "\n";
  }
  EXPECT_EQ(places, expected);
  EXPECT_EQ(std::count(places.begin(), places.end(), '\n'), 9);
}

TEST(ToolDiagnostics, UnknownDiagnosticsFormatIsAUsageError) {
  ToolResult const run = tool({"check", "--diagnostics-format", "xml", doc("traffic_lossy.json")});
  EXPECT_EQ(run.exit, 2);
  EXPECT_EQ(run.err, "tarvo-docs: check: --diagnostics-format is text or sarif, not 'xml'\n");
}

}  // namespace
