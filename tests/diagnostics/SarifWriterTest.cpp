#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <set>
#include <sstream>

#include "SarifWriter.h"

namespace {

using tarvo_diagnostics::Diagnostic;
using tarvo_diagnostics::Severity;

rapidjson::Value const& member(rapidjson::Value const& object, char const* key) {
  EXPECT_TRUE(object.IsObject() && object.HasMember(key)) << "missing " << key;
  static rapidjson::Value const null;
  return object.IsObject() && object.HasMember(key) ? object[key] : null;
}

// The properties SARIF 2.1.0 requires of a log, a run, a tool and a result, its level
// values, and the region of a physical location.
TEST(SarifWriter, OneRunOneResultPerDiagnosticWithPlaces) {
  std::vector<Diagnostic> const diagnostics = {
      {"d/t.json", 9, 17, 17, Severity::Error, "tarvo 8-101", "'ReadTC': expected one of \"BE\""},
      {"d/t.json", 3, 12, 10, Severity::Warning, "tarvo-docs unknown-key", "key 'x'"},
      {"d/my t.json", 0, 0, 0, Severity::Note, "tarvo 8-101", "2 more schema violations are not shown"}};
  std::ostringstream out;
  tarvo_diagnostics::SarifWriter::write(out, diagnostics, "tarvo-docs", "1.2.3");
  rapidjson::Document log;
  log.Parse(out.str().c_str());
  ASSERT_FALSE(log.HasParseError());
  EXPECT_STREQ(member(log, "version").GetString(), "2.1.0");
  ASSERT_EQ(member(log, "runs").Size(), 1u);
  rapidjson::Value const& run = log["runs"][0];
  rapidjson::Value const& driver = member(member(run, "tool"), "driver");
  EXPECT_STREQ(member(driver, "name").GetString(), "tarvo-docs");
  EXPECT_STREQ(member(run, "columnKind").GetString(), "unicodeCodePoints");
  ASSERT_EQ(member(driver, "rules").Size(), 2u);  // each rule once
  EXPECT_STREQ(driver["rules"][1]["id"].GetString(), "tarvo-docs unknown-key");

  rapidjson::Value const& results = member(run, "results");
  ASSERT_EQ(results.Size(), 3u);
  std::set<std::string> const levels = {"none", "note", "warning", "error"};
  char const* const expectedLevels[] = {"error", "warning", "note"};
  for (rapidjson::SizeType i = 0; i < results.Size(); ++i) {
    rapidjson::Value const& result = results[i];
    EXPECT_STREQ(member(result, "level").GetString(), expectedLevels[i]);
    EXPECT_EQ(levels.count(result["level"].GetString()), 1u);
    EXPECT_EQ(member(member(result, "message"), "text").GetString(), diagnostics[i].text);
    EXPECT_EQ(member(result, "ruleId").GetString(), diagnostics[i].id);
    EXPECT_EQ(driver["rules"][member(result, "ruleIndex").GetUint()]["id"].GetString(), diagnostics[i].id);
    rapidjson::Value const& location = member(member(result, "locations")[0], "physicalLocation");
    EXPECT_STREQ(member(member(location, "artifactLocation"), "uri").GetString(),
                 i == 2 ? "d/my%20t.json" : "d/t.json");
    EXPECT_EQ(location.HasMember("region"), diagnostics[i].line != 0);
  }
  rapidjson::Value const& region = results[1]["locations"][0]["physicalLocation"]["region"];
  EXPECT_EQ(member(region, "startLine").GetUint(), 3u);
  EXPECT_EQ(member(region, "startColumn").GetUint(), 10u);  // characters, not bytes
}

}  // namespace
