#include <gtest/gtest.h>

#include <boost/filesystem.hpp>

#include <fstream>
#include <map>
#include <regex>
#include <sstream>

#include "ComMsgMgrInstance.h"
#include "HEXAll.h"
#include "HUTEnv.h"
#include "TestSupport.h"

namespace {

TEST(Messages, LineNamesSeverityComponentIdAndFilledWording) {
  tarvo_test::MessageCapture capture;
  ComMsgMgr::sendMsg::eval(1, __FILE__, __LINE__, "tarvo", ComMsgMgr::MSG_CRITICAL_WARNING, "@75-412@%s",
                           std::string("n7"));
  ComMsgMgr::sendMsg::eval(0, __FILE__, __LINE__, "tarvo", ComMsgMgr::MSG_INFO, "@75-857@");
  ASSERT_EQ(capture.messages().size(), 2u);
  EXPECT_EQ(capture.messages()[0].getLine(),
            "CRITICAL WARNING: [tarvo 75-412] Node 'n7' is not in the design and is dropped from the list.");
  EXPECT_EQ(capture.summary(), (std::vector<std::string>{"75-412(n7)", "75-857()"}));
  EXPECT_EQ(ComMsgMgr::severityText(ComMsgMgr::MSG_WARNING), std::string("WARNING"));
  EXPECT_EQ(ComMsgMgr::severityText(ComMsgMgr::MSG_ERROR), std::string("ERROR"));
}

TEST(Messages, UnknownIdStillShowsIdAndArguments) {
  ComMsgMgrInstance const message("f.cpp", 1, "tarvo", ComMsgMgr::MSG_INFO, "@99-1@%s%s", {"x", "y"});
  EXPECT_EQ(message.getLine(), "INFO: [tarvo 99-1] Message @99-1@%s%s: 'x', 'y'");
}

TEST(Messages, HexAllCarriesTheLineAndPrintsToSinks) {
  ComMsgMgrInstance message =
      ComMsgMgrInstance::createInstance::eval(1, __FILE__, __LINE__, "tarvo", ComMsgMgr::MSG_ERROR, "@75-573@%s", "o.json");
  message.attachMetaType(0, ComMsgMgr::META_FILE, "", "o.json");
  HEXAll const error(message);
  EXPECT_STREQ(error.what(),
               "ERROR: [tarvo 75-573] Cannot write constraints to 'o.json': the file cannot be opened or the stream "
               "has failed.");
  tarvo_test::MessageCapture capture;
  error.print();
  EXPECT_EQ(capture.summary(), (std::vector<std::string>{"75-573(o.json)"}));
}

// Every message id in the sources must have catalogue wording with one placeholder per
// argument, or users would see the bare id.
TEST(Messages, CatalogueCoversEveryIdOfTheSources) {
  namespace fs = boost::filesystem;
  std::regex const idPattern("\"@([0-9]+-[0-9]+)@((%s)*)\"");
  std::map<std::string, std::size_t> used;
  for (char const* dir : {"src", "platform"}) {
    for (fs::recursive_directory_iterator it(fs::path(TARVO_SOURCE_DIR) / dir), end; it != end; ++it) {
      std::string const ext = it->path().extension().string();
      if (ext != ".cpp" && ext != ".h") continue;
      std::ifstream in(it->path().string());
      std::stringstream text;
      text << in.rdbuf();
      std::string const source = text.str();
      for (std::sregex_iterator m(source.begin(), source.end(), idPattern), last; m != last; ++m)
        used[(*m)[1]] = (*m)[2].length() / 2;
    }
  }
  ASSERT_FALSE(used.empty());
  for (auto const& id : used) {
    std::string const* wording = ComMsgMgr::lookupWording(id.first);
    ASSERT_NE(wording, nullptr) << "no catalogue wording for " << id.first;
    std::size_t placeholders = 0;
    for (std::size_t at = wording->find("%s"); at != std::string::npos; at = wording->find("%s", at + 2))
      ++placeholders;
    EXPECT_EQ(placeholders, id.second) << "placeholders of " << id.first;
  }
}

}  // namespace
