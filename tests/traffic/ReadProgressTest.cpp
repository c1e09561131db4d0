#include <gtest/gtest.h>

#include <atomic>
#include <set>
#include <thread>

#include "HDGUIStatus.h"
#include "NOCJsonTrafficSpecReader.h"
#include "TrafficSpec.h"

namespace {

// A progress display polls the record from its own thread while the reader fills it, as
// tarvo-docs --progress does. Every value it sees is one the reader set, and the message is
// never torn.
TEST(ReadProgress, PollingFromASecondThreadDuringReads) {
  std::string const file = std::string(TARVO_SOURCE_DIR) + "/examples/noc_traffic.json";
  std::string const message = "Reading Traffic File " + file;
  HDGUIStatus status;
  std::atomic<bool> done{false};
  std::set<double> seenPercents;
  std::set<std::string> seenMessages;
  std::thread poller([&] {
    while (!done) {
      seenPercents.insert(status.getPercent());
      if (status.getMessageSet()) seenMessages.insert(status.getMessage());
    }
  });
  for (int i = 0; i < 50; ++i) {
    HrdIPToolCntr::TrafficSpec spec;
    ASSERT_TRUE(NOC::NOCJsonTrafficSpecReader::readFromJsonFile(file, spec, status));
  }
  done = true;
  poller.join();
  EXPECT_EQ(status.getPercent(), 100.0);
  for (double percent : seenPercents) EXPECT_TRUE(percent == 0 || percent == 20 || percent == 40 || percent == 100);
  ASSERT_LE(seenMessages.size(), 1u);
  for (std::string const& seen : seenMessages) EXPECT_EQ(seen, message);
}

}  // namespace
