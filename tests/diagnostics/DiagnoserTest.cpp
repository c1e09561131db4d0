#include <gtest/gtest.h>

#include "DiagnosticsTestSupport.h"
#include "TestSupport.h"

namespace {

using tarvo_test::dataPath;
using tarvo_test::diagnoseFile;
using Lines = std::vector<std::string>;

std::string doc(std::string const& name) {
  return dataPath("diagnostics/" + name);
}

TEST(Diagnoser, EverySchemaViolationAtItsPlaceWithExpectedAndFound) {
  std::string const f = doc("traffic_three_violations.json");
  EXPECT_EQ(diagnoseFile("traffic", f),
            (Lines{f + ":9:17: error: 'ReadTC': expected one of \"BE\", \"LL\", \"ISOC\", \"BW\", found \"LX\"; "
                       "did you mean \"LL\"? (schema rule 'enum') [tarvo 8-101]",
                   f + ":10:29: error: 'NumReadOutstanding': expected integer, found string \"32\" (schema rule "
                       "'type') [tarvo 8-101]",
                   f + ":12:5: error: item 1 of 'LogicalInstances': missing required key 'Name' [tarvo 8-101]",
                   f + ":13:7: error: key 'Nmae' is not allowed in item 1 of 'LogicalInstances'; did you mean "
                       "'Name'? [tarvo 8-101]",
                   f + ":18:24: error: 'InterleaveSel': expected at most 65535, found 70000 (schema rule 'maximum') "
                       "[tarvo 8-101]"}));
  // Past the limit a count follows; the library's own violation (the first it met) stays.
  EXPECT_EQ(diagnoseFile("traffic", f, false, 1),
            (Lines{f + ":9:17: error: 'ReadTC': expected one of \"BE\", \"LL\", \"ISOC\", \"BW\", found \"LX\"; "
                       "did you mean \"LL\"? (schema rule 'enum') [tarvo 8-101]",
                   f + ": note: 4 more schema violations are not shown [tarvo 8-101]"}));
}

TEST(Diagnoser, KeysNotAllowedAndDeepWrongTypesOfOtherKinds) {
  std::string const arch = doc("logical_arch_unknown_key.json");
  EXPECT_EQ(diagnoseFile("logical-arch", arch),
            (Lines{arch + ":7:65: error: key 'dataWidht' is not allowed in 'in_samples'; did you mean 'dataWidth'? "
                          "[tarvo 8-101]"}));
  // The constraint reader names the schema rule; its message follows as a note.
  std::string const constraints = doc("constraints_typo.json");
  Lines const lines = diagnoseFile("constraints", constraints);
  EXPECT_EQ(lines, (Lines{constraints + ":9:37: error: 'row': expected integer, found string \"1\" (schema rule "
                                        "'type') [tarvo 75-571]",
                          constraints + ":9:37: note: Constraint file '" + constraints +
                              "' does not match its schema: the rule at #/definitions/integer (keyword 'type') "
                              "fails for the value at #/NodeConstraints/fir_1/tile/row. Correct that value and read "
                              "the file again. [tarvo 75-571]"}));
}

// RapidJSON 1.1.0 and valijson name one failure at different places: the library stops at a
// member whose "patternProperties" rule fails, valijson names each value inside it. The
// library's failure is covered by valijson's, so no second error is made up for it.
TEST(Diagnoser, ValidatorsDisagreeingOnPatternPropertiesKeepBothFindings) {
  std::string const f = doc("constraints_src_info_and_error.json");
  std::string const note = f + ":5:24: note: Constraint file '" + f +
                           "' does not match its schema: the rule at # (keyword 'patternProperties') fails for the "
                           "value at #/NodeConstraints/fir_0/tile_src_info. Correct that value and read the file "
                           "again. [tarvo 75-571]";
  EXPECT_EQ(diagnoseFile("constraints", f),
            (Lines{f + ":5:34: error: 'file': expected string, found integer 7 (schema rule 'type') [tarvo 75-571]",
                   f + ":5:45: error: 'line': expected integer, found string \"12\" (schema rule 'type') "
                       "[tarvo 75-571]",
                   f + ":6:41: error: 'channel': expected integer, found boolean true (schema rule 'type') "
                       "[tarvo 75-571]",
                   note}));
}

TEST(Diagnoser, NamesTheDocumentDoesNotDefineAtWhereItNamesThem) {
  std::string const end = doc("traffic_unknown_end.json");
  EXPECT_EQ(diagnoseFile("traffic", end),
            (Lines{end + ":9:27: error: 'From' names 'top/cpu/m_axi_9', which is not a logical instance of this "
                         "document [tarvo 8-101]",
                   end + ":9:27: note: Failed to parse JSON file '" + end +
                       "': Path 'from' name is unknown: top/cpu/m_axi_9 [tarvo 8-101]"}));
  // One message per bad port, each at its own occurrence of the same text.
  std::string const ports = doc("traffic_bad_ports.json");
  std::string const path =
      ": warning: Invalid port type 'PORT7' on a path; the port is ignored. Use PORT0 to PORT3 "
      "(or PC0_PORT0 to PC1_PORT1). [tarvo 73-448]";
  EXPECT_EQ(diagnoseFile("traffic", ports),
            (Lines{ports + ":4:110: warning: Port 'PORT7' is not a valid port of the logical slave 'top/ddr_mc'; the "
                           "port is ignored. Use PORT0 to PORT3 (or PC0_PORT0 to PC1_PORT1). [tarvo 73-30]",
                   ports + ":7:74" + path, ports + ":9:74" + path}));
}

TEST(Diagnoser, StrictFindsTyposDuplicatesBadBytesAndLossyValues) {
  std::string const typo = doc("constraints_typo.json");
  Lines const strict = diagnoseFile("constraints", typo, true);
  // 'margin' is an attribute of the node, as the reader keeps it: no finding.
  ASSERT_EQ(strict.size(), 4u);
  EXPECT_EQ(strict[2], typo +
                           ":5:7: warning: key 'colocated_node' names no constraint and is read as an attribute; did "
                           "you mean 'colocated_nodes'? [tarvo-docs unknown-key]");
  EXPECT_EQ(strict[3], typo +
                           ":13:80: warning: place \"(2,x)\" is not of the form '(column,row)' with two numbers; "
                           "what is no number is read as -1 [tarvo-docs lossy-value]");

  std::string const lossy = doc("traffic_lossy.json");
  EXPECT_EQ(diagnoseFile("traffic", lossy, true),
            (Lines{lossy + ":3:64: error: 'CompType': \"PS_IGU_O\" is not a known component type; did you mean "
                           "\"PS_IGU_0\"? [tarvo 8-101]",
                   lossy + ":3:64: note: Failed to parse JSON file '" + lossy +
                       "': Unknown component type : PS_IGU_O [tarvo 8-101]",
                   lossy + ":4:26: warning: 'ReadRateLimiter' is read as an integer: 2.5 becomes 2 "
                           "[tarvo-docs lossy-value]",
                   lossy + ":5:7: warning: duplicate key 'IsMaster' in item 0 of 'LogicalInstances'; where the "
                           "reader looks the key up, it reads the first value [tarvo-docs duplicate-key]"}));

  std::string const utf8 = doc("traffic_invalid_utf8.json");
  EXPECT_EQ(diagnoseFile("traffic", utf8), Lines());
  EXPECT_EQ(diagnoseFile("traffic", utf8, true),
            (Lines{utf8 + ":4:50: warning: text is not valid UTF-8: byte 0xFF at byte 5 [tarvo-docs invalid-utf8]"}));

  std::string const arch = doc("logical_arch_lint.json");
  EXPECT_EQ(diagnoseFile("logical-arch", arch, true),
            (Lines{arch + ":7:33: warning: 'type' text \"steam\" is not known; it is read as \"unknown\"; did you "
                          "mean \"stream\"? [tarvo-docs lossy-value]",
                   arch + ":12:80: warning: 'memMode' text \"read_only\" is not known; it is read as \"unknown\"; "
                          "did you mean \"read-only\"? [tarvo-docs lossy-value]"}));
}

TEST(Diagnoser, GoodDocumentsGiveNothing) {
  std::string const examples = std::string(TARVO_SOURCE_DIR) + "/examples/";
  EXPECT_EQ(diagnoseFile("traffic", examples + "noc_traffic.json"), Lines());
  EXPECT_EQ(diagnoseFile("traffic", examples + "noc_traffic.json.gz", true), Lines());
  EXPECT_EQ(diagnoseFile("logical-arch", examples + "logical_arch.json", true), Lines());
  // Repeated group keys are the constraint document's form, not duplicates.
  Lines const constraints = diagnoseFile("constraints", examples + "constraints.json", true);
  for (std::string const& line : constraints)
    EXPECT_EQ(line.find("duplicate"), std::string::npos) << line;
}

}  // namespace
