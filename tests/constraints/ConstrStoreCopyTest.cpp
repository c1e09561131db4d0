#include <gtest/gtest.h>

#include <sstream>

#include "BaseNameResolver.h"
#include "ColocationConstraints.h"
#include "ConstrHandler.h"
#include "ConstrWriter.h"
#include "TestSupport.h"

using namespace kpe::constraints;
using Strings = std::vector<std::string>;
typedef BaseConstraint B;

namespace {

// Notes every call of the two set forms that the colocation add forms fall back on.
class WatchingStore : public ConstrHandler {
 public:
  void setColocatedNodesConstr(ObjectType objType, std::string const& objName, NameList const& names,
                               bool notColocated) override {
    calls.push_back("nodes " + objName + " " + std::to_string(names.size()) + (notColocated ? " not" : ""));
    ConstrHandler::setColocatedNodesConstr(objType, objName, names, notColocated);
  }
  void setColocatedMemoriesConstr(ObjectType objType, std::string const& objName, NameList const& names,
                                  bool notColocated) override {
    calls.push_back("memories " + objName + " " + std::to_string(names.size()) + (notColocated ? " not" : ""));
    ConstrHandler::setColocatedMemoriesConstr(objType, objName, names, notColocated);
  }
  Strings calls;
};

// The "fifo_locations_records" member of the store's document, as written.
std::string recordsWritten(std::string const& text) {
  std::size_t const from = text.find("\"fifo_locations_records\"");
  return from == std::string::npos ? std::string() : text.substr(from, text.find("\"p1\"", from) - from);
}

std::string written(ConstrHandler& store) {
  std::ostringstream out;
  ConstrWriter(store).write(out, "copy.json", true);
  return out.str();
}

}  // namespace

// FIFO location records of a store copied into itself were destroyed before being cloned.
// The constraints merge into themselves through the set operations; the records must stay.
TEST(ConstrStoreCopy, CopyIntoItselfKeepsEveryRecord) {
  std::string const expected = tarvo_test::readFile(tarvo_test::dataPath("constraints/every_kind.json"));
  ConstrHandler store;
  std::istringstream in(expected);
  store.read(in, "every_kind.json", BaseNameResolver());
  std::size_t const records = store.getFifoLocationsRecords().size();
  ASSERT_GT(records, 1u);

  store.copy(store);
  EXPECT_EQ(records, store.getFifoLocationsRecords().size());
  EXPECT_EQ(
      "\"fifo_locations_records\": {\n"
      "      \"dma_fifos\": {\n"
      "        \"dmsfr0\": {\n"
      "          \"tile_type\": \"mem\",\n"
      "          \"row\": 1,\n"
      "          \"column\": 2,\n"
      "          \"size\": 128,\n"
      "          \"offset\": 32,\n"
      "          \"bankId\": 3\n"
      "        }\n"
      "      },\n"
      "      \"stream_fifos\": {\n"
      "        \"swfr0\": {\n"
      "          \"tile_type\": \"shim\",\n"
      "          \"row\": 0,\n"
      "          \"column\": 5,\n"
      "          \"channel\": 2\n"
      "        }\n"
      "      }\n"
      "    },\n"
      "    ",
      recordsWritten(written(store)));
  EXPECT_EQ(recordsWritten(expected), recordsWritten(written(store)));
  store.clear();
}

// Only a missing constraint is made through the set form; an existing one is added to.
TEST(ConstrStoreCopy, ColocationAddFormsMakeNewConstraintsThroughTheVirtualSetForm) {
  WatchingStore store;
  store.addColocatedNodesConstr(B::NODE, "n", {"a", "b"}, false);
  store.addColocatedNodesConstr(B::NODE, "n", {"c"}, false);
  store.addColocatedMemoriesConstr(B::NODE, "m", {"x"}, true);
  store.addColocatedMemoriesConstr(B::NODE, "m", {"y"}, false);
  store.addColocatedNodesConstr(B::NODE, "", {"z"}, false);
  EXPECT_EQ((Strings{"nodes n 2", "memories m 1 not"}), store.calls);
  EXPECT_EQ((Strings{"a", "b", "c"}), store.getColocatedNodesConstr("n")->getColocatedNodeNames());
  EXPECT_EQ((Strings{"x"}), store.getColocatedMemoriesConstr("m")->getNotColocatedNodeNames());
  EXPECT_EQ((Strings{"y"}), store.getColocatedMemoriesConstr("m")->getColocatedNodeNames());
  store.clear();
}
