#include <gtest/gtest.h>

#include <algorithm>

#include "ArrayDesign.h"
#include "KPEShimInterfaceConstraints.h"

using namespace array_test;

namespace {

// Four array-side channels a, b, c, d and the sites of the test part.
struct ShimInterfaceTest : public ::testing::Test {
  ShimInterfaceTest() {
    for (char const* name : {"a", "b", "c", "d"})
      design.addChannel(name);
  }
  TrafficLInst const* inst(char const* name) const { return design.channel(name); }
  GRMBel site(char const* name) const { return design.site(name); }

  ArrayDesign design;
  GRMBel const s0 = site("KPE_SHIM_X0Y0/S0");
  GRMBel const s1 = site("KPE_SHIM_X0Y0/S1");
  GRMBel const m0 = site("KPE_SHIM_X1Y0/M0");
};

TEST_F(ShimInterfaceTest, ConstraintsKeepTheFirstEntryAndLeaveOutputsOfUnknownInstances) {
  KPEShimInterfaceConstraints constraints(*design.part, {&design.traffic});
  EXPECT_TRUE(constraints.empty());
  EXPECT_TRUE(constraints.addPlacementConst(inst("a"), {s0, s1}, true));
  EXPECT_FALSE(constraints.addPlacementConst(inst("a"), {m0}, false));
  EXPECT_TRUE(constraints.addPlacementConst(inst("b"), {}, false));

  std::vector<GRMBel> sites{m0};
  bool isSoft = false;
  constraints.getPlacementConst(inst("a"), sites, isSoft);
  EXPECT_EQ((std::vector<GRMBel>{s0, s1}), sites);
  EXPECT_TRUE(isSoft);
  constraints.getPlacementConst(inst("c"), sites, isSoft);
  EXPECT_EQ((std::vector<GRMBel>{s0, s1}), sites);
  EXPECT_TRUE(isSoft);

  EXPECT_TRUE(constraints.hasLogical(s1));
  EXPECT_FALSE(constraints.hasLogical(m0));
}

TEST_F(ShimInterfaceTest, ConstraintsMoveWithoutMergingAndCopyStopsAtTheFirstClash) {
  KPEShimInterfaceConstraints constraints(*design.part, {});
  constraints.addPlacementConst(inst("a"), {s0}, false);
  constraints.addPlacementConst(inst("b"), {s1}, true);
  EXPECT_TRUE(constraints.movePlacementConst(inst("c"), inst("d")));
  EXPECT_TRUE(constraints.replaceLogicalInstances(inst("a"), inst("b")));
  std::vector<TrafficLInst const*> left;
  constraints.getAllConstrainedInstances(left);
  EXPECT_EQ(std::vector<TrafficLInst const*>{inst("b")}, left);
  std::vector<GRMBel> sites;
  bool isSoft = false;
  constraints.getPlacementConst(inst("b"), sites, isSoft);
  EXPECT_EQ(std::vector<GRMBel>{s1}, sites);

  // The copy goes in pointer order and stops at the first instance this object has.
  std::vector<TrafficLInst const*> order{inst("a"), inst("b"), inst("c")};
  std::sort(order.begin(), order.end());
  constraints.removePlacementConst(inst("b"));
  constraints.addPlacementConst(order[1], {s1}, true);
  KPEShimInterfaceConstraints other(*design.part, {});
  for (TrafficLInst const* instance : order)
    other.addPlacementConst(instance, {m0}, false);
  EXPECT_FALSE(constraints.copyFrom(other));
  std::vector<TrafficLInst const*> copied;
  constraints.getAllConstrainedInstances(copied);
  EXPECT_EQ((std::vector<TrafficLInst const*>{order[0], order[1]}), copied);

  constraints.removePlacementConst(std::vector<TrafficLInst const*>{inst("a"), inst("b"), inst("c")});
  EXPECT_TRUE(constraints.empty());
}

TEST_F(ShimInterfaceTest, SolutionIsFirstWinsOnEachSideAndEmptyFollowsTheSites) {
  TestSolution& solution = design.solution;
  EXPECT_TRUE(solution.addPlacement(inst("a"), s0));
  EXPECT_FALSE(solution.addPlacement(inst("a"), s1));
  EXPECT_TRUE(solution.addPlacement(inst("b"), s0));
  EXPECT_EQ(s0, solution.getPhysicalForLogical(inst("a")));
  EXPECT_EQ(s0, solution.getPhysicalForLogical(inst("b")));
  EXPECT_TRUE(solution.getPhysicalForLogical(inst("c")).isBad());
  EXPECT_EQ(inst("a"), solution.getLogicalForPhysical(s0));
  EXPECT_EQ(nullptr, solution.getLogicalForPhysical(s1));

  // Removing b erases the site's reverse entry, though it names a.
  solution.removeLogicalInstance(inst("b"));
  EXPECT_TRUE(solution.empty());
  std::vector<TrafficLInst const*> placed;
  solution.getAllPlacedInstances(placed);
  EXPECT_EQ(std::vector<TrafficLInst const*>{inst("a")}, placed);
  solution.clear();
  EXPECT_TRUE(solution.getPhysicalForLogical(inst("a")).isBad());
}

TEST_F(ShimInterfaceTest, ReplacingAnInstanceInvertsItsLock) {
  TestSolution& solution = design.solution;
  solution.addPlacement(inst("a"), s0);
  solution.addPlacement(inst("b"), s1);
  EXPECT_TRUE(solution.lockLogicalInst(inst("a")));
  EXPECT_FALSE(solution.lockLogicalInst(inst("c")));

  EXPECT_TRUE(solution.replaceLogicalInstances(inst("a"), inst("c")));
  EXPECT_TRUE(solution.replaceLogicalInstances(inst("b"), inst("d")));
  EXPECT_EQ(s0, solution.getPhysicalForLogical(inst("c")));
  EXPECT_EQ(inst("d"), solution.getLogicalForPhysical(s1));
  std::vector<TrafficLInst const*> locked;
  solution.getAllLockedInstances(locked);
  EXPECT_EQ(std::vector<TrafficLInst const*>{inst("d")}, locked);

  // Onto a placed instance: it keeps its own site, and the moved site loses its reverse entry.
  EXPECT_TRUE(solution.replaceLogicalInstances(inst("c"), inst("d")));
  EXPECT_EQ(s1, solution.getPhysicalForLogical(inst("d")));
  EXPECT_EQ(nullptr, solution.getLogicalForPhysical(s0));
  EXPECT_TRUE(solution.getPhysicalForLogical(inst("c")).isBad());
}

TEST_F(ShimInterfaceTest, SolutionCopyDropsNullAndBadEntriesAndKeepsLocks) {
  TestSolution source(*design.part);
  source.addPlacement(inst("a"), s0);
  source.addPlacement(inst("b"), GRMBel());
  source.addPlacement(nullptr, m0);
  source.addPlacement(inst("c"), s1);
  source.lockLogicalInst(inst("a"));
  source.lockLogicalInst(inst("b"));

  TestSolution& target = design.solution;
  target.addPlacement(inst("d"), m0);
  EXPECT_TRUE(target.copyFrom(source));
  std::vector<TrafficLInst const*> placed;
  target.getAllPlacedInstances(placed);
  std::vector<TrafficLInst const*> expected{inst("a"), inst("c")};
  std::sort(expected.begin(), expected.end());
  EXPECT_EQ(expected, placed);
  std::vector<TrafficLInst const*> locked;
  target.getAllLockedInstances(locked);
  EXPECT_EQ(std::vector<TrafficLInst const*>{inst("a")}, locked);
  EXPECT_EQ(nullptr, target.getLogicalForPhysical(m0));
}

}  // namespace
