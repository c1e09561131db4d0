#include <gtest/gtest.h>

#include "BaseNameResolver.h"
#include "TestSupport.h"

using namespace kpe::constraints;
using Strings = std::vector<std::string>;

namespace {

// Drops "a" and "c", keeps the rest; "s" stands for two names through the node pattern.
class PartialResolver : public BaseNameResolver {
 public:
  explicit PartialResolver(bool silent = false) { quiet = silent; }
  std::string resolveNodeName(std::string const& name) const override { return known(name) ? name : ""; }
  std::string getDocumentNodeName(std::string const& name) const override { return known(name) ? "d." + name : ""; }

 protected:
  void resolveNodePattern(std::string const& name, std::vector<std::string>& out) const override {
    if (name == "s") {
      out.insert(out.end(), {"s1", "s2"});
      return;
    }
    BaseNameResolver::resolveNodePattern(name, out);
  }

 private:
  static bool known(std::string const& name) { return name != "a" && name != "c"; }
};

}  // namespace

TEST(BaseNameResolverTest, IdentityLeavesEveryListAsItIs) {
  tarvo_test::MessageCapture messages;
  BaseNameResolver identity;
  Strings names{"x", "y", "x"};
  identity.resolveNodeNames(names);
  identity.resolvePortNames(names);
  identity.resolveNetNames(names);
  identity.resolveScopedNodeNames(names);
  identity.resolveScopedPortNames(names);
  identity.resolveScopedNetNames(names);
  EXPECT_EQ((Strings{"x", "y", "x"}), names);
  Strings empty;
  identity.resolveNodeNames(empty);
  EXPECT_TRUE(empty.empty());
  EXPECT_TRUE(messages.summary().empty());
  EXPECT_EQ("", identity.getScopeName());
}

TEST(BaseNameResolverTest, UnresolvedNamesAreReportedOnceAndDropped) {
  tarvo_test::MessageCapture messages;
  PartialResolver resolver;
  Strings one{"a", "b"};
  resolver.resolveNodeNames(one);
  EXPECT_EQ((Strings{"b"}), one);
  Strings two{"a", "b", "c"};
  resolver.resolveNodeNames(two);
  EXPECT_EQ((Strings{"b"}), two);
  EXPECT_EQ((Strings{"75-412(a)", "75-413(a c)"}), messages.summary());
}

TEST(BaseNameResolverTest, QuietResolverDropsWithoutAWord) {
  tarvo_test::MessageCapture messages;
  PartialResolver resolver(true);
  Strings names{"a", "b", "c"};
  resolver.resolveNodeNames(names);
  EXPECT_EQ((Strings{"b"}), names);
  EXPECT_TRUE(messages.summary().empty());
}

TEST(BaseNameResolverTest, PatternMayGiveSeveralNamesButScopedListsIgnoreIt) {
  tarvo_test::MessageCapture messages;
  PartialResolver resolver;
  Strings names{"s", "b"};
  resolver.resolveNodeNames(names);
  EXPECT_EQ((Strings{"s1", "s2", "b"}), names);

  Strings scoped{"s", "a", "b"};
  resolver.resolveScopedNodeNames(scoped);
  EXPECT_EQ((Strings{"d.s", "d.b"}), scoped);
  EXPECT_EQ((Strings{"75-418(a)"}), messages.summary());
}
