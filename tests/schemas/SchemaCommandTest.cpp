#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "TestSupport.h"
#include "ToolRun.h"

// `tarvo-docs schema KIND` is how a person finds the file to give an editor: the path must be
// the schema the kind is read against, and --print its exact text.

namespace {

std::string const kSourceDir = TARVO_SOURCE_DIR;

tarvo_test::ToolRun docs(std::string const& arguments) {
  return tarvo_test::runTarvoDocs(TARVO_DOCS_EXE, arguments);
}

// Points the data directory of the runs it lives through at the source tree's data.
class SourceDataDir {
 public:
  SourceDataDir() { setenv("QDS_DATA_DIR", (kSourceDir + "/data").c_str(), 1); }
  ~SourceDataDir() { unsetenv("QDS_DATA_DIR"); }
};

TEST(SchemaCommand, PrintsThePathOrTextOfEachKindsSchema) {
  SourceDataDir const data;
  std::pair<char const*, char const*> const kinds[] = {
      {"metadata", "parts/zorvex/common/tellura/ProjectMetaDataSchema.json"},
      {"constraints", "kpetools_constr_schema.json"},
      {"logical-arch", "parts/zorvex/common/tellura/LogicalArchSchema.json"},
      {"traffic", "parts/zorvex/common/noc/schemas/traffic.json"},
      {"noc-solution", "parts/zorvex/common/noc/schemas/solution.json"},
      {"compiler-solution", "parts/zorvex/common/tellura/TQSolutionSchema.json"},
      {"noc-constraints", "parts/zorvex/common/noc/schemas/constraints.json"},
  };
  for (auto const& kind : kinds) {
    std::string const path = kSourceDir + "/data/" + kind.second;
    tarvo_test::ToolRun const run = docs(std::string("schema ") + kind.first);
    EXPECT_EQ(run.exitCode, 0) << kind.first;
    EXPECT_EQ(run.out, path + "\n");
    EXPECT_EQ(run.err, "");
    tarvo_test::ToolRun const printed = docs(std::string("schema --print ") + kind.first);
    EXPECT_EQ(printed.exitCode, 0) << kind.first;
    EXPECT_EQ(printed.out, tarvo_test::readFile(path)) << kind.first;
  }
}

TEST(SchemaCommand, UnknownOrMissingKindIsAUsageError) {
  tarvo_test::ToolRun const unknown = docs("schema shim");
  EXPECT_EQ(unknown.exitCode, 2);
  EXPECT_EQ(unknown.out, "");
  EXPECT_EQ(unknown.err, "tarvo-docs: unknown document kind 'shim' (see tarvo-docs schema --help)\n");
  tarvo_test::ToolRun const none = docs("schema --print");
  EXPECT_EQ(none.exitCode, 2);
  EXPECT_EQ(none.err, "tarvo-docs: schema needs one KIND (see tarvo-docs schema --help)\n");
  tarvo_test::ToolRun const two = docs("schema traffic metadata");
  EXPECT_EQ(two.exitCode, 2);
  EXPECT_EQ(two.err, "tarvo-docs: schema needs one KIND (see tarvo-docs schema --help)\n");
}

// A document that names its schema for an editor is still told apart by its other keys.
TEST(SchemaCommand, SchemaKeyDoesNotHideTheKind) {
  tarvo_test::TempDir const dir;
  std::string const traffic = tarvo_test::readFile(kSourceDir + "/examples/noc_traffic.json");
  tarvo_test::writeFile(dir.file("t.json"), "{\"$schema\": \"traffic.json\"," + traffic.substr(traffic.find('{') + 1));
  tarvo_test::ToolRun const run = docs("check '" + dir.file("t.json") + "'");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.out, dir.file("t.json") + ": OK (traffic, 3 masters, 2 slaves, 3 paths)\n");
}

}  // namespace
