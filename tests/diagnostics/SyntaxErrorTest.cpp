#include <gtest/gtest.h>

#include "DiagnosticsTestSupport.h"
#include "TestSupport.h"

namespace {

using Lines = std::vector<std::string>;

// A traffic specification of `count` instances, one per line from line 3 on; large enough
// (about 200 kB) that the reader's input crosses several blocks before the middle.
std::string largeTraffic(int count, int brokenLine = 0) {
  std::string text = "{\n  \"LogicalInstances\": [\n";
  for (int i = 0; i < count; ++i) {
    std::string const name = "\"top/unit_" + std::to_string(i) + "/m_axi\"";
    text += "    { \"Name\": " + name + (i + 3 == brokenLine ? " " : ", ") +
            "\"IsMaster\": true, \"CompType\": \"PL_IGU\", \"Protocol\": \"AXI_MM\", \"ReadTC\": \"BE\" }" +
            (i + 1 < count ? ",\n" : "\n");
  }
  return text + "  ]\n}\n";
}

TEST(SyntaxError, AtTheStartInTheMiddleAndAtTheEndOfALargeDocument) {
  tarvo_test::TempDir dir;
  std::string const f = dir.file("large.json");
  std::string const missingComma = "Missing a comma or '}' after an object member. [tarvo 8-101]";

  std::string start = largeTraffic(2000);
  start.replace(start.find("\": ["), 3, "\" [");
  tarvo_test::writeFile(f, start);
  EXPECT_EQ(tarvo_test::diagnoseFile("traffic", f),
            (Lines{f + ":2:22: error: Missing a colon after a name of object member. [tarvo 8-101]"}));

  // Line 1503: four blanks, "{ ", "Name": "top/unit_1500/m_axi" and the blank take 36 bytes.
  tarvo_test::writeFile(f, largeTraffic(2000, 1503));
  EXPECT_EQ(tarvo_test::diagnoseFile("traffic", f), (Lines{f + ":1503:37: error: " + missingComma}));

  std::string end = largeTraffic(2000);
  end.erase(end.size() - 2);  // the closing brace and its newline: the text ends behind "  ]\n"
  tarvo_test::writeFile(f, end);
  EXPECT_EQ(tarvo_test::diagnoseFile("traffic", f), (Lines{f + ":2004:1: error: " + missingComma}));
}

TEST(SyntaxError, ArrayItemMissing) {
  tarvo_test::TempDir dir;
  std::string const f = dir.file("broken.json");
  tarvo_test::writeFile(f, "{\n  \"what\": [1, 2,, 3]\n}\n");
  EXPECT_EQ(tarvo_test::diagnoseFile("traffic", f), (Lines{f + ":2:17: error: Invalid value. [tarvo 8-101]"}));
}

}  // namespace
