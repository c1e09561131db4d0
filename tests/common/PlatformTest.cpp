#include <gtest/gtest.h>

#include <boost/filesystem.hpp>

#include <atomic>
#include <cstdlib>
#include <thread>

#include "HATAttr.h"
#include "HDGUIStatus.h"
#include "HPAParamMgr.h"
#include "HSTStrUtils.h"
#include "HUTEnv.h"
#include "HUTFile.h"
#include "HUTFileUtils.h"
#include "TestSupport.h"

namespace {

// Sets an environment variable for the length of a scope.
class ScopedEnv {
 public:
  ScopedEnv(char const* name, std::string const& value) : m_name(name) {
    char const* old = std::getenv(name);
    if (old != nullptr) m_old = old;
    m_had = old != nullptr;
    setenv(name, value.c_str(), 1);
  }
  ~ScopedEnv() {
    if (m_had)
      setenv(m_name, m_old.c_str(), 1);
    else
      unsetenv(m_name);
  }

 private:
  char const* m_name;
  std::string m_old;
  bool m_had = false;
};

TEST(DataDir, EnvironmentEntriesComeFirstThenTheInstallationThenTheSourceTree) {
  tarvo_test::TempDir first;
  tarvo_test::TempDir second;
  boost::filesystem::create_directories(second.path() + "/parts/x");
  tarvo_test::writeFile(second.path() + "/parts/x/s.json", "{}");
  ScopedEnv env("QDS_DATA_DIR", first.path() + ":" + second.path());
  EXPECT_EQ(HUTEnv::getQDSDataDir("parts/x/s.json"), second.path());
  // Found in none: the first candidate, so that the caller's message names a real place.
  EXPECT_EQ(HUTEnv::getQDSDataDir("parts/none.json"), first.path());
  // The catalogue is only in the source tree's data/, reached from the build tree.
  EXPECT_EQ(HUTEnv::getQDSDataDir("messages/tarvo_messages.json"), std::string(TARVO_SOURCE_DIR) + "/data");
}

TEST(Files, CanonicalNamesAndPlainTests) {
  tarvo_test::TempDir dir;
  std::string const file = dir.file("a.json");
  tarvo_test::writeFile(file, "12345");
  std::string canonical;
  HUTFile(dir.path() + "/sub/../a.json").getCanonicalName(canonical);
  EXPECT_EQ(canonical, boost::filesystem::canonical(file).string());
  HUTFile const hutFile(file);
  EXPECT_TRUE(hutFile.exists());
  EXPECT_TRUE(hutFile.isFile());
  EXPECT_FALSE(HUTFile(dir.path()).isFile());
  EXPECT_EQ(hutFile.size(), 5);
  EXPECT_EQ(hutFile.getName(), "a.json");
  EXPECT_TRUE(hutFile.rm());
  EXPECT_FALSE(hutFile.exists());
  EXPECT_EQ(hutFile.size(), -1);
  EXPECT_EQ(HUTFile::getDirSeparator(), "/");

  std::vector<std::string> problems;
  EXPECT_EQ(HUTFileUtils::checkFileForReading(file, problems), "");
  ASSERT_EQ(problems.size(), 1u);
  std::string relative;
  EXPECT_TRUE(HUTFileUtils::makeRelativeToPath("/a/b/c.json", "/a/d", relative));
  EXPECT_EQ(relative, "../b/c.json");
  EXPECT_FALSE(HUTFileUtils::makeRelativeToPath("b/c.json", "/a", relative));
}

TEST(Strings, ContainsAndHelpers) {
  EXPECT_STREQ(HSTStrUtils::contains("ab<0>_INST", "<0>_INST"), "<0>_INST");
  EXPECT_EQ(HSTStrUtils::contains("ab", "<1>_INST"), nullptr);
  EXPECT_EQ(HSTStrUtils::split("a::b", ':'), (std::vector<std::string>{"a", "", "b"}));
  EXPECT_EQ(HSTStrUtils::trim(" \t x y \n"), "x y");
}

TEST(Attr, CellsConvertAndCarryState) {
  HATAttr cell(HATAttr::INT);
  cell.setIntVal(-1);
  cell.setStateFlag(HATAttr::STATE_DEFAULT);
  EXPECT_EQ(cell.getStringVal(), "-1");
  EXPECT_TRUE(cell.hasStateFlag(HATAttr::STATE_DEFAULT));
  cell.clearStateFlag(HATAttr::STATE_DEFAULT);
  EXPECT_EQ(cell.getState(), 0u);
  HATAttr list(HATAttr::STRING_LIST);
  list.setStringList({"a", "b"});
  EXPECT_EQ(list.getStringVal(), "a b");
  EXPECT_NE(list, cell);
}

// Texts and lists live apart from the cell: copies are deep, a list outlives sets of other
// kinds, and a text set empty again reads empty.
TEST(Attr, CopiesAreDeepAndAListOutlivesOtherKinds) {
  HATAttr cell(HATAttr::STRING_LIST);
  cell.setStringList({"a"});
  HATAttr copy(cell);
  copy.setStringList({"b", "c"});
  cell.setDoubleVal(2.5);
  EXPECT_EQ(cell.getStringList(), std::vector<std::string>{"a"});
  EXPECT_EQ(cell.getIntVal(), 2);
  EXPECT_EQ(copy.getIntVal(), 2);
  cell = copy;
  copy.setStringVal("x");
  copy.setStringVal("");
  EXPECT_EQ(copy.getStringVal(), "");
  EXPECT_FALSE(copy.getBoolVal());
  EXPECT_EQ(cell.getStringVal(), "b c");
  EXPECT_EQ(HATAttr(HATAttr::DOUBLE).getDoubleVal(), 0.0);
  EXPECT_EQ(HATAttr(HATAttr::STRING), HATAttr(copy));
}

TEST(Params, ProgramSetValuesAndBooleanReading) {
  HPAParamMgr& params = HPAParamMgr::getParamMgr();
  params.setValue("test.flag", "1");
  EXPECT_TRUE(params.getValueAsBool("test.flag"));
  params.setValue("test.flag", "yes");
  EXPECT_FALSE(params.getValueAsBool("test.flag"));
  params.unsetValue("test.flag");
  EXPECT_FALSE(params.getValueAsBool("test.flag"));
  EXPECT_EQ(params.getValue("test.flag"), "");
}

// A second thread polls the record while the first updates it, as a progress display does.
TEST(Status, PollingFromAnotherThreadSeesConsistentProgress) {
  HDGUIStatus status;
  std::atomic<bool> done{false};
  std::atomic<int> regressions{0};
  std::thread poller([&] {
    double last = 0.0;
    while (!done) {
      double const now = status.getPercent();
      if (now < last) ++regressions;
      last = now;
      std::string const message = status.getMessage();
      if (!message.empty() && message.compare(0, 8, "Reading ") != 0) ++regressions;
    }
  });
  for (int i = 0; i <= 100; ++i) {
    status.setMessage("Reading step " + std::to_string(i));
    status.setPercent(i);
  }
  done = true;
  poller.join();
  EXPECT_EQ(regressions, 0);
  EXPECT_EQ(status.getPercent(), 100.0);
  EXPECT_EQ(status.getMessage(), "Reading step 100");
  EXPECT_TRUE(status.getMessageSet());
}

}  // namespace
