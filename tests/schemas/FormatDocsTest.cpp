#include <gtest/gtest.h>

#include <boost/filesystem.hpp>

#include <string>

#include "TestSupport.h"
#include "ToolRun.h"

// docs/formats is made from the schemas by scripts/format-docs.py; its check mode is what
// keeps the pages honest, so it must notice every way a page goes stale and write nothing.

namespace {

namespace fs = boost::filesystem;

std::string const kSourceDir = TARVO_SOURCE_DIR;

tarvo_test::ToolRun runScript(std::string const& root, std::string const& options) {
  return tarvo_test::runTarvoDocs("/usr/bin/python3", root + "/scripts/format-docs.py --root " + root + " " + options);
}

void copyTree(fs::path const& from, fs::path const& to) {
  fs::create_directories(to);
  for (fs::directory_iterator it(from), end; it != end; ++it) {
    if (fs::is_directory(it->path()))
      copyTree(it->path(), to / it->path().filename());
    else
      fs::copy_file(it->path(), to / it->path().filename());
  }
}

// `text` with its one occurrence of `from` replaced by `to`.
std::string replaced(std::string text, std::string const& from, std::string const& to) {
  std::string::size_type const at = text.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  if (at != std::string::npos) text.replace(at, from.size(), to);
  return text;
}

TEST(FormatDocs, CheckNamesEveryStalePageAndWritingBringsThemUpToDate) {
  tarvo_test::TempDir const tree;
  for (char const* dir : {"data", "docs", "examples", "scripts"})
    copyTree(kSourceDir + "/" + dir, tree.file(dir));
  fs::create_directories(tree.file("tests/data/array"));
  fs::copy_file(kSourceDir + "/tests/data/array/example_shim_constraints.json",
                tree.file("tests/data/array/example_shim_constraints.json"));
  tarvo_test::ToolRun const fresh = runScript(tree.path(), "--check");
  EXPECT_EQ(fresh.exitCode, 0);
  EXPECT_EQ(fresh.err, "");

  // One schema serves two kinds; an introduction belongs to one; a page may be missing.
  std::string const schema = tree.file("data/parts/zorvex/common/noc/schemas/constraints.json");
  tarvo_test::writeFile(schema, replaced(tarvo_test::readFile(schema), "true for a placement the compiler may change",
                                         "true for a placement the NoC compiler may move"));
  std::string const intro = tree.file("docs/formats/intro/metadata.md");
  tarvo_test::writeFile(intro, tarvo_test::readFile(intro) + "\nA line added by hand.\n");
  fs::remove(tree.file("docs/formats/traffic.md"));
  std::string const before = tarvo_test::readFile(tree.file("docs/formats/noc-constraints.md"));
  tarvo_test::ToolRun const stale = runScript(tree.path(), "--check");
  EXPECT_EQ(stale.exitCode, 1);
  EXPECT_EQ(stale.err,
            "out of date with its schema: docs/formats/traffic.md (run scripts/format-docs.py)\n"
            "out of date with its schema: docs/formats/noc-constraints.md (run scripts/format-docs.py)\n"
            "out of date with its schema: docs/formats/shim-constraints.md (run scripts/format-docs.py)\n"
            "out of date with its schema: docs/formats/metadata.md (run scripts/format-docs.py)\n");
  EXPECT_EQ(tarvo_test::readFile(tree.file("docs/formats/noc-constraints.md")), before);

  tarvo_test::ToolRun const written = runScript(tree.path(), "");
  EXPECT_EQ(written.exitCode, 0);
  EXPECT_EQ(runScript(tree.path(), "--check").exitCode, 0);
  EXPECT_EQ(tarvo_test::readFile(tree.file("docs/formats/noc-constraints.md")),
            replaced(before, "true for a placement the compiler may change",
                     "true for a placement the NoC compiler may move"));
  EXPECT_EQ(tarvo_test::readFile(tree.file("docs/formats/traffic.md")),
            tarvo_test::readFile(kSourceDir + "/docs/formats/traffic.md"));
  std::string const metadata = tarvo_test::readFile(tree.file("docs/formats/metadata.md"));
  EXPECT_NE(metadata.find("A line added by hand.\n\n## Schema\n"), std::string::npos);
}

}  // namespace
