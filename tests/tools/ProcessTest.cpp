// The output path where a second process or a signal is involved: the real program.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include "TestSupport.h"
#include "ToolRun.h"

extern char** environ;

namespace {

using tarvo_test::readFile;
using tarvo_test::TempDir;
using tarvo_test::writeFile;

// A metadata document of `count` properties whose values start at `first`.
std::string metadata(int count, int first) {
  std::string text = "{\"MetaData\": [";
  for (int i = 0; i < count; ++i)
    text += (i ? ",{\"name\": \"p" : "{\"name\": \"p") + std::to_string(i) +
            "\", \"value\": " + std::to_string(first + i) + "}";
  return text + "]}";
}

// Starts tarvo-docs with `args`, its output and errors thrown away.
pid_t start(std::vector<std::string> args) {
  args.insert(args.begin(), TARVO_DOCS_EXE);
  std::vector<char*> argv;
  for (std::string& arg : args)
    argv.push_back(&arg[0]);
  argv.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
  pid_t pid = -1;
  EXPECT_EQ(posix_spawn(&pid, TARVO_DOCS_EXE, &actions, nullptr, argv.data(), environ), 0);
  posix_spawn_file_actions_destroy(&actions);
  return pid;
}

int waitFor(pid_t pid) {
  int status = 0;
  EXPECT_EQ(waitpid(pid, &status, 0), pid);
  return status;
}

std::vector<std::string> temporaryFiles(TempDir const& dir) {
  std::vector<std::string> names;
  for (auto const& entry : std::filesystem::directory_iterator(dir.path()))
    if (entry.path().filename().string().find(".tarvo-docs-") != std::string::npos)
      names.push_back(entry.path().string());
  return names;
}

TEST(Process, TwoConvertsIntoOneOutputEachWriteAWholeDocument) {
  TempDir dir;
  writeFile(dir.file("a.json"), metadata(100000, 0));
  writeFile(dir.file("b.json"), metadata(100000, 7));
  ASSERT_EQ(
      tarvo_test::runTarvoDocs(TARVO_DOCS_EXE, "convert '" + dir.file("a.json") + "' -o '" + dir.file("a-out") + "'")
          .exitCode,
      0);
  ASSERT_EQ(
      tarvo_test::runTarvoDocs(TARVO_DOCS_EXE, "convert '" + dir.file("b.json") + "' -o '" + dir.file("b-out") + "'")
          .exitCode,
      0);
  std::string const out = dir.file("out.json");
  pid_t const first = start({"convert", dir.file("a.json"), "-o", out});
  pid_t const second = start({"convert", dir.file("b.json"), "-o", out});
  int const firstStatus = waitFor(first);
  int const secondStatus = waitFor(second);
  EXPECT_TRUE(WIFEXITED(firstStatus) && WEXITSTATUS(firstStatus) == 0);
  EXPECT_TRUE(WIFEXITED(secondStatus) && WEXITSTATUS(secondStatus) == 0);
  std::string const written = readFile(out);
  EXPECT_TRUE(written == readFile(dir.file("a-out")) || written == readFile(dir.file("b-out")));
  EXPECT_EQ(temporaryFiles(dir), std::vector<std::string>());
}

TEST(Process, SigintDuringTheWriteRemovesTheTemporaryFileAndLeavesTheOutput) {
  TempDir dir;
  writeFile(dir.file("big.json"), metadata(1000000, 0));
  std::string const out = dir.file("out.json");
  writeFile(out, "previous");
  pid_t const pid = start({"convert", dir.file("big.json"), "-o", out});
  // The temporary file appears when the write begins, after the read.
  bool seen = false;
  auto const deadline = std::chrono::steady_clock::now() + std::chrono::minutes(2);
  while (!seen && std::chrono::steady_clock::now() < deadline) {
    seen = !temporaryFiles(dir).empty();
    if (!seen) std::this_thread::sleep_for(std::chrono::microseconds(500));
  }
  ASSERT_TRUE(seen);
  ASSERT_EQ(kill(pid, SIGINT), 0);
  int const status = waitFor(pid);
  EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGINT) << status;
  EXPECT_EQ(temporaryFiles(dir), std::vector<std::string>());
  EXPECT_EQ(readFile(out), "previous");
}

TEST(Process, DevStdoutIsTheStandardOutputItselfAndNeverReplacesAFile) {
  TempDir dir;
  std::string const meta = std::string(TARVO_SOURCE_DIR) + "/examples/project_meta.json";
  std::string const log = dir.file("log.txt");
  writeFile(log, "earlier lines\n");
  std::string const command = "'" TARVO_DOCS_EXE "' convert '" + meta + "' -o /dev/stdout >>'" + log + "'";
  ASSERT_EQ(std::system(command.c_str()), 0);
  EXPECT_EQ(readFile(log), "earlier lines\n" + readFile(meta));
  EXPECT_EQ(temporaryFiles(dir), std::vector<std::string>());
}

TEST(Process, AnOutputTheUserMayNotWriteIsRefusedAndLeftAsItWas) {
  char const* const setpriv = "/usr/bin/setpriv";
  if (access(setpriv, X_OK) != 0) GTEST_SKIP() << "setpriv (util-linux) is not installed";
  if (getuid() != 0) GTEST_SKIP() << "needs root to run as another user";
  TempDir dir;
  // The user may enter and write the directory, so only the file's own mode protects it.
  ASSERT_EQ(chmod(dir.path().c_str(), 0777), 0);
  std::string const out = dir.file("out.json");
  writeFile(out, "read-only for others");
  ASSERT_EQ(chmod(out.c_str(), 0644), 0);
  std::string const meta = std::string(TARVO_SOURCE_DIR) + "/examples/project_meta.json";
  tarvo_test::ToolRun const run =
      tarvo_test::runTarvoDocs(setpriv, "--reuid=nobody --regid=nogroup --clear-groups '" TARVO_DOCS_EXE "' convert '" +
                                            meta + "' -o '" + out + "'");
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.err, "ERROR: cannot write '" + out +
                         "': you may not write it; it is left as it was (Permission "
                         "denied).\nERROR: conversion of '" +
                         meta + "' failed; '" + out + "' is unchanged.\n");
  EXPECT_EQ(readFile(out), "read-only for others");
  EXPECT_EQ(temporaryFiles(dir), std::vector<std::string>());
}

}  // namespace
