#include <grp.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <thread>

#include "InProcess.h"
#include "TestSupport.h"

namespace {

using tarvo_test::readFile;
using tarvo_test::runInProcess;
using tarvo_test::TempDir;
using tarvo_test::ToolRun;
using tarvo_test::writeFile;

using tarvo_test::kExamples;
using tarvo_test::kMeta;
std::string const kDesign[] = {"--arch", kExamples + "logical_arch.json", "--traffic",
                               kExamples + "kpe_array_traffic.json"};

struct stat statusOf(std::string const& path, bool followLinks = true) {
  struct stat status {};
  EXPECT_EQ(followLinks ? stat(path.c_str(), &status) : lstat(path.c_str(), &status), 0) << path;
  return status;
}

// The names in a directory that tarvo-docs may have left behind.
std::vector<std::string> leftovers(TempDir const& dir) {
  std::vector<std::string> names;
  for (auto const& entry : std::filesystem::directory_iterator(dir.path()))
    if (entry.path().filename().string().find("tarvo-docs") != std::string::npos)
      names.push_back(entry.path().filename().string());
  return names;
}

TEST(Output, ASymbolicLinkIsFollowedAndStays) {
  TempDir dir;
  writeFile(dir.file("real.json"), "old text");
  ASSERT_EQ(symlink("real.json", dir.file("link.json").c_str()), 0);
  ASSERT_EQ(symlink("new.json", dir.file("dangling.json").c_str()), 0);
  EXPECT_EQ(runInProcess({"convert", kMeta, "-o", dir.file("link.json")}).exitCode, 0);
  EXPECT_EQ(runInProcess({"convert", kMeta, "-o", dir.file("dangling.json")}).exitCode, 0);
  EXPECT_TRUE(S_ISLNK(statusOf(dir.file("link.json"), false).st_mode));
  EXPECT_TRUE(S_ISLNK(statusOf(dir.file("dangling.json"), false).st_mode));
  EXPECT_EQ(readFile(dir.file("real.json")), readFile(kMeta));
  EXPECT_EQ(readFile(dir.file("new.json")), readFile(kMeta));
  EXPECT_EQ(leftovers(dir), std::vector<std::string>());
}

TEST(Output, AnExistingFileKeepsItsModeAndGroupAndANewOneFollowsTheUmask) {
  TempDir dir;
  std::string const out = dir.file("out.json");
  writeFile(out, "old text");
  ASSERT_EQ(chmod(out.c_str(), 0640), 0);
  group const* other = getgrnam("nogroup");
  gid_t const gid = other != nullptr && getuid() == 0 ? other->gr_gid : getgid();
  ASSERT_EQ(chown(out.c_str(), static_cast<uid_t>(-1), gid), 0);
  ASSERT_EQ(runInProcess({"convert", kMeta, "-o", out}).exitCode, 0);
  EXPECT_EQ(readFile(out), readFile(kMeta));
  EXPECT_EQ(statusOf(out).st_mode & 07777, 0640u);
  EXPECT_EQ(statusOf(out).st_gid, gid);

  mode_t const mask = umask(027);
  EXPECT_EQ(runInProcess({"convert", kMeta, "-o", dir.file("new.json")}).exitCode, 0);
  umask(mask);
  EXPECT_EQ(statusOf(dir.file("new.json")).st_mode & 07777, 0640u);
}

TEST(Output, DevicesAreWrittenInPlaceAndNeverReplaced) {
  ToolRun const full = runInProcess({"convert", kMeta, "-o", "/dev/full"});
  EXPECT_EQ(full.exitCode, 1);
  EXPECT_EQ(full.err,
            "ERROR: cannot write '/dev/full': the text could not be written (No space left on device).\n"
            "ERROR: conversion of '" +
                kMeta + "' failed; '/dev/full' is unchanged.\n");
  EXPECT_TRUE(S_ISCHR(statusOf("/dev/full").st_mode));
  EXPECT_EQ(runInProcess({"convert", kMeta, "-o", "/dev/null"}).exitCode, 0);
  EXPECT_TRUE(S_ISCHR(statusOf("/dev/null").st_mode));

  TempDir dir;
  std::string const fifo = dir.file("fifo");
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  std::string received;
  std::thread reader([&] { received = readFile(fifo); });
  ToolRun const run = runInProcess({"convert", kMeta, "-o", fifo});
  reader.join();
  EXPECT_EQ(run.exitCode, 0) << run.err;
  EXPECT_EQ(received, readFile(kMeta));
  EXPECT_TRUE(S_ISFIFO(statusOf(fifo).st_mode));
}

TEST(Output, NothingToWriteLeavesTheOutputAsItWasAndFails) {
  TempDir dir;
  std::string const out = dir.file("out.json");
  writeFile(out, readFile(kMeta));
  writeFile(dir.file("none.json"), R"({"NodeConstraints": {}})");
  ToolRun const run = runInProcess({"convert", dir.file("none.json"), "-o", out});
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.err, "ERROR: there is nothing to write: the writer wrote nothing for '" + dir.file("none.json") +
                         "'; '" + out + "' is left as it was.\n");
  EXPECT_EQ(readFile(out), readFile(kMeta));
  EXPECT_EQ(runInProcess({"convert", dir.file("none.json"), "-o", "-"}).out, "");

  // A compiler solution that places nothing writes nothing either.
  writeFile(dir.file("unplaced.json"), R"({"Placement": []})");
  std::vector<std::string> unplaced = {"convert", dir.file("unplaced.json"), "-o", out};
  unplaced.insert(unplaced.end(), std::begin(kDesign), std::end(kDesign));
  ToolRun const nothingPlaced = runInProcess(unplaced);
  EXPECT_EQ(nothingPlaced.exitCode, 1);
  EXPECT_EQ(nothingPlaced.err, "ERROR: there is nothing to write: the writer wrote nothing for '" +
                                   dir.file("unplaced.json") + "'; '" + out + "' is left as it was.\n");
  EXPECT_EQ(readFile(out), readFile(kMeta));

  // shim-constraints writes nothing for an instance without a placed channel 0: an answer
  // that leaves an existing OUT alone.
  std::vector<std::string> shim = {"shim-constraints", kExamples + "compiler_solution.json"};
  shim.insert(shim.end(), std::begin(kDesign), std::end(kDesign));
  shim.insert(shim.end(), {"--instance", "kpe_array", "-o", out});
  ToolRun const empty = runInProcess(shim);
  EXPECT_EQ(empty.exitCode, 0);
  EXPECT_EQ(empty.err,
            "tarvo-docs: no port of the KPE instance 'kpe_array' has a placed channel 0; the shim constraints are "
            "empty.\n");
  EXPECT_EQ(readFile(out), readFile(kMeta));
  EXPECT_EQ(leftovers(dir), std::vector<std::string>());
}

TEST(Output, AFailedWriteLeavesNoTraceAndRenamePortsUsesTheSamePath) {
  TempDir dir;
  std::string const out = dir.file("out.json");
  writeFile(out, "previous");
  ToolRun const unbound = runInProcess({"convert", kExamples + "noc_solution.json", "-o", out});
  EXPECT_EQ(unbound.exitCode, 1);
  EXPECT_EQ(unbound.err,
            "ERROR: NoC solution documents are converted through their model; give --traffic FILE.\n"
            "ERROR: conversion of '" +
                kExamples + "noc_solution.json' failed; '" + out + "' is unchanged.\n");
  EXPECT_EQ(readFile(out), "previous");
  EXPECT_EQ(leftovers(dir), std::vector<std::string>());

  ASSERT_EQ(symlink("out.json", dir.file("link.json").c_str()), 0);
  ToolRun const renamed = runInProcess({"rename-ports", kExamples + "logical_arch.json", "-o", dir.file("link.json")});
  EXPECT_EQ(renamed.exitCode, 0) << renamed.err;
  EXPECT_TRUE(S_ISLNK(statusOf(dir.file("link.json"), false).st_mode));
  EXPECT_EQ(readFile(out).compare(0, 2, "{\n"), 0);
  ToolRun const intoDirectory = runInProcess({"convert", kMeta, "-o", dir.path()});
  EXPECT_EQ(intoDirectory.err, "ERROR: cannot write '" + dir.path() + "': it is a directory.\n" +
                                   "ERROR: conversion of '" + kMeta + "' failed; '" + dir.path() + "' is unchanged.\n");
  ToolRun const noDirectory = runInProcess({"convert", kMeta, "-o", dir.file("no/out.json")});
  EXPECT_EQ(noDirectory.exitCode, 1);
  std::string const prefix = "ERROR: cannot write '" + dir.file("no/out.json") + "': it cannot be created in '" +
                             dir.file("no") + "' (No such file or directory).\n";
  EXPECT_EQ(noDirectory.err.compare(0, prefix.size(), prefix), 0) << noDirectory.err;
}

}  // namespace
