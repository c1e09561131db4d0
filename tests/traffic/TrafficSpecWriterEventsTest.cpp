#include <gtest/gtest.h>

#include <sstream>

#include "HDGUIStatus.h"
#include "HIPLogicalObjectNameResolverInterface.h"
#include "NOCJsonTrafficSpecWriter.h"
#include "TestSupport.h"
#include "TrafficSpec.h"

using namespace HrdIPToolCntr;
using namespace DevHrdIP::Definitions;
using NOC::NOCJsonTrafficSpecWriter;

namespace {

// Keeps every question the writer asks, in order; names beginning with "gone" are not in the
// design.
class RecordingResolver : public HIPLogicalObjectNameResolverInterfaceIdentity {
 public:
  std::string fromNetlistInstance(std::string const& name) override {
    calls.push_back("instance " + name);
    return name;
  }
  std::string fromNetlistName(std::string const& name) override {
    calls.push_back("name " + name);
    return name;
  }
  bool isNameInDesign(std::string const& name) override {
    calls.push_back("in design " + name);
    return name.compare(0, 4, "gone") != 0;
  }
  bool suppressRcfPaths(std::string const&) override {
    calls.push_back("rcf");
    return false;
  }
  std::vector<std::string> calls;
};

TEST(TrafficSpecWriterEventsTest, TheResolverIsAskedForEveryNameEvenAfterTheTextFailed) {
  TrafficSpec spec;
  spec.addRcfPath("rp/");
  TrafficLInst* master = spec.addLogicalInstance("m", AXI_MM, PL_IGU, {});
  master->setReadRateLimiter(-1.0f);  // refused by the schema
  TrafficLInst* slave = spec.addLogicalInstance("gone_s", AXI_MM, PL_EGU, {{"gone_a", "b"}, {"c"}});
  spec.addPath(master, slave)->setSlavePort(PORT0);

  RecordingResolver resolver;
  tarvo_test::MessageCapture messages;
  HDGUIStatus status;
  std::ostringstream out;
  EXPECT_FALSE(NOCJsonTrafficSpecWriter::writeToJsonFile(
      out, spec, [](TrafficLInst const*) { return true; }, resolver, status));
  EXPECT_EQ(messages.summary(), std::vector<std::string>({"75-585(NoC Traffic Spec)"}));
  EXPECT_EQ(out.str().substr(out.str().size() - 17), "\"ReadRateLimiter\"");
  EXPECT_EQ(resolver.calls, std::vector<std::string>(
                                {"rcf", "instance m", "in design m", "instance gone_s", "in design gone_s",
                                 "in design gone_a", "in design b", "name b", "in design c", "name c", "in design m",
                                 "name m", "in design gone_s", "in design gone_a", "in design b", "name b"}));
}

}  // namespace
