#include <gtest/gtest.h>

#include <fstream>

#include "HEXAll.h"
#include "KindDetection.h"
#include "TestSupport.h"

namespace {

using tarvo_docs::detectKind;
using tarvo_docs::DocumentSource;

std::string const kExamples = std::string(TARVO_SOURCE_DIR) + "/examples/";

std::string kindOf(std::string const& text) {
  return detectKind(text, "text.json").name();
}

std::string failureOf(std::string const& text) {
  try {
    detectKind(text, "text.json");
  } catch (std::exception const& error) {
    return error.what();
  }
  return "no failure";
}

TEST(KindDetection, EveryExampleIsRecognisedFromFileAndFromText) {
  std::pair<char const*, char const*> const examples[] = {
      {"project_meta.json", "metadata"},          {"constraints.json", "constraints"},
      {"logical_arch.json", "logical-arch"},      {"noc_traffic.json", "traffic"},
      {"noc_traffic.json.gz", "traffic"},         {"kpe_array_traffic.json", "traffic"},
      {"noc_solution.json", "noc-solution"},      {"compiler_solution.json", "compiler-solution"},
      {"noc_constraints.json", "noc-constraints"}};
  for (auto const& example : examples) {
    std::string const file = kExamples + example.first;
    EXPECT_EQ(detectKind(DocumentSource::file(file)).name(), example.second) << file;
    std::ifstream in(file, std::ios::binary);
    EXPECT_EQ(detectKind(DocumentSource::stream(in, "x")).name(), example.second) << file;
  }
}

TEST(KindDetection, TheKindsRulesOnTheTopLevelKeys) {
  EXPECT_EQ(kindOf(R"({"isSoft": true, "isToolGenerated": false})"), "constraints");
  EXPECT_EQ(kindOf(R"({"appId": "a", "schema": "1", "PL": {}})"), "logical-arch");
  EXPECT_EQ(kindOf(R"({"Paths": [], "SystemProperties": {}})"), "traffic");
  EXPECT_EQ(kindOf(R"({"Paths": [], "Components": [], "SolutionType": "OPTIMAL"})"), "noc-solution");
  EXPECT_EQ(kindOf(R"({"Placement": [{"IsSoft": true, "LogicalInstance": {"InstanceName": "k"}}]})"),
            "compiler-solution");
  EXPECT_EQ(kindOf(R"({"Placement": [{"LogicalInstance": "top/cpu"}]})"), "noc-constraints");
  EXPECT_EQ(kindOf(R"({"Placement": []})"), "noc-constraints");
  EXPECT_EQ(kindOf(R"({"Placement": [[{"LogicalInstance": {}}]]})"), "noc-constraints");
  // A key of another kind among a kind's own rules that kind out; an earlier kind wins.
  EXPECT_EQ(kindOf(R"({"appId": "a", "Paths": [], "LogicalInstances": [], "MetaData": []})"), "metadata");
  EXPECT_EQ(failureOf(R"({"appId": "a", "Paths": []})"),
            "cannot tell which kind of document 'text.json' is; name it with --kind");
  EXPECT_EQ(failureOf("[1, 2]"), "cannot tell which kind of document 'text.json' is; name it with --kind");
}

TEST(KindDetection, StopsAtTheDecidingKeyAndReportsEarlierSyntaxErrorsAsTheLibraryDoes) {
  // Nothing after the deciding key is read: the broken rest is the reader's to report.
  EXPECT_EQ(kindOf("{\"MetaData\": [], \"x\": tru"), "metadata");
  EXPECT_EQ(kindOf("{\"Placement\": [{\"LogicalInstance\": {\"Inst"), "compiler-solution");
  EXPECT_EQ(failureOf("{\"appId\": \"a\",\n  \"schema\" 1}"),
            "ERROR: [tarvo 8-101] Failed to parse JSON file 'text.json': line 2, column 12: Missing a colon after a "
            "name of object member.");
  EXPECT_EQ(failureOf(std::string(100000, '[')),
            "ERROR: [tarvo 8-101] Failed to parse JSON file 'text.json': line 1, column 513: The text nests arrays "
            "and objects deeper than 512 levels.");
  EXPECT_EQ(failureOf("{\"Other\": 1} 2"),
            "ERROR: [tarvo 8-101] Failed to parse JSON file 'text.json': line 1, column 14: The document root must "
            "not be followed by other values.");
  EXPECT_EQ(failureOf(""),
            "ERROR: [tarvo 8-101] Failed to parse JSON file 'text.json': line 1, column 1: The "
            "document is empty.");
}

}  // namespace
