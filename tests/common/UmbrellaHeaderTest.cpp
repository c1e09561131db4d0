#include <gtest/gtest.h>

#include <boost/filesystem.hpp>

#include "TestSupport.h"

namespace {

// A header left out of the umbrella is invisible to users who include only it.
TEST(UmbrellaHeader, IncludesEveryExportedHeader) {
  namespace fs = boost::filesystem;
  std::string const source = TARVO_SOURCE_DIR;
  std::string const umbrella = tarvo_test::readFile(source + "/src/shared/tarvo/include/tarvo_readwrite.h");
  for (char const* dir : {"platform/common/include", "platform/streams/include", "platform/traffic/include",
                          "platform/device/include", "src/shared/tarvo/include"}) {
    if (!fs::is_directory(source + "/" + dir)) continue;
    for (fs::directory_iterator it(source + "/" + dir), end; it != end; ++it) {
      std::string const name = it->path().filename().string();
      if (it->path().extension() != ".h" || name == "tarvo_readwrite.h") continue;
      EXPECT_NE(umbrella.find("#include \"" + name + "\""), std::string::npos) << name << " is not in the umbrella";
    }
  }
}

}  // namespace
