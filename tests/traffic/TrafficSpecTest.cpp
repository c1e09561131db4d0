#include <gtest/gtest.h>

#include "TrafficSpec.h"

using namespace HrdIPToolCntr;
using namespace DevHrdIP::Definitions;

namespace {

std::vector<int> netTypes(std::vector<TrafficNet const*> const& nets) {
  std::vector<int> types;
  for (TrafficNet const* net : nets)
    types.push_back(net->getType());
  return types;
}

TEST(TrafficSpecTest, FindsInstancesByRoleNameAndExternalConnection) {
  TrafficSpec spec;
  TrafficLInst* master = spec.addLogicalInstance("m", AXI_MM, PL_IGU, {{"ext_a", "ext_b"}, {"ext_c"}});
  TrafficLInst* slave = spec.addLogicalInstance("s", AXI_MM, DDRC, {{"ext_a"}});
  TrafficLInst* channel = spec.addLogicalInstance("ch", AXI_STRM, KPE_PL_STRM_IN, {});
  TrafficLInst* arrayMaster = spec.addLogicalInstance("am", AXI_STRM, KPE_NOC_IGU, {});

  EXPECT_EQ(spec.getLogicalMaster("m"), master);
  EXPECT_EQ(spec.getLogicalSlave("m"), nullptr);
  EXPECT_EQ(spec.getLogicalSlave("s"), slave);
  EXPECT_EQ(spec.hasLogicalMaster("s"), nullptr);
  // An array-side channel is neither master nor slave; an array master is both kinds.
  EXPECT_EQ(spec.hasLogicalMaster("ch"), nullptr);
  EXPECT_EQ(spec.hasLogicalSlave("ch"), nullptr);
  EXPECT_EQ(spec.getTQLogicalInst("ch"), channel);
  EXPECT_EQ(spec.getTQLogicalInst("am"), arrayMaster);
  EXPECT_EQ(spec.hasLogicalMaster("am"), arrayMaster);
  EXPECT_EQ(spec.getTQLogicalInst("m"), nullptr);

  EXPECT_EQ(spec.getLogicalMasterUsingExternalConns("ext_c"), master);
  EXPECT_EQ(spec.getLogicalSlaveUsingExternalConns("ext_a"), slave);
  EXPECT_EQ(spec.getLogicalSlaveUsingExternalConns("ext_b"), nullptr);

  // A second instance of a name is found from then on; both stay in the list.
  TrafficLInst* again = spec.addLogicalInstance("m", AXI_STRM, PL_IGU_2, {});
  EXPECT_EQ(spec.getLogicalMaster("m"), again);
  ASSERT_EQ(spec.getAllLogicalInstance().size(), 5u);
  EXPECT_EQ(spec.getAllLogicalInstance().front(), master);
  EXPECT_EQ(again->getId(), 4u);
}

TEST(TrafficSpecTest, ThousandsOfNamesKeepEachRoleApart) {
  TrafficSpec spec;
  std::vector<TrafficLInst*> masters;
  for (int i = 0; i < 3000; ++i)
    masters.push_back(
        spec.addLogicalInstance("top/m" + std::to_string(i), AXI_MM, PL_IGU, {{"conn" + std::to_string(i % 1000)}}));
  // A slave named as a master's external connection: the name plays both roles.
  TrafficLInst* slave = spec.addLogicalInstance("conn7", AXI_MM, DDRC, {{"top/m5"}});
  for (int i = 0; i < 3000; ++i) {
    std::string const name = "top/m" + std::to_string(i);
    ASSERT_EQ(spec.getLogicalMaster(name), masters[static_cast<std::size_t>(i)]) << name;
    EXPECT_EQ(spec.getLogicalSlave(name), nullptr) << name;
  }
  // The first master that names a connection keeps it.
  EXPECT_EQ(spec.getLogicalMasterUsingExternalConns("conn999"), masters[999]);
  EXPECT_EQ(spec.getLogicalMasterUsingExternalConns("conn7"), masters[7]);
  EXPECT_EQ(spec.getLogicalSlave("conn7"), slave);
  EXPECT_EQ(spec.getLogicalMaster("conn7"), nullptr);
  EXPECT_EQ(spec.getLogicalSlaveUsingExternalConns("top/m5"), slave);
  EXPECT_EQ(spec.getLogicalMasterUsingExternalConns("top/m5"), nullptr);
  EXPECT_EQ(spec.getLogicalMaster("top/m3000"), nullptr);
  EXPECT_EQ(spec.getLogicalMaster(""), nullptr);
  EXPECT_EQ(spec.getTQLogicalInst("top/m1"), nullptr);
}

TEST(TrafficSpecTest, PathsMakeNetsByProtocolAndGroupThemByEnds) {
  TrafficSpec spec;
  TrafficLInst* mm = spec.addLogicalInstance("mm", AXI_MM, PS_IGU_0, {});
  TrafficLInst* strm = spec.addLogicalInstance("strm", AXI_STRM, PL_IGU, {});
  TrafficLInst* slave = spec.addLogicalInstance("s", AXI_MM, PL_EGU, {});

  TrafficPath* first = spec.addPath(mm, slave);
  TrafficPath* streaming = spec.addPath(strm, slave);
  TrafficPath* second = spec.addPath(mm, slave);
  first->setReadPerfSpec(PerfSpec(0, 100, 10));
  first->setWritePerfSpec(PerfSpec(0, 200, 20));

  EXPECT_EQ(netTypes(spec.getNets(strm, slave)), std::vector<int>({TrafficNet::WRITE}));
  std::vector<TrafficNet const*> const nets = spec.getNets(mm, slave);
  EXPECT_EQ(netTypes(nets), std::vector<int>({0, 1, 2, 3, 0, 1, 2, 3}));
  EXPECT_EQ(nets[0]->getPath(), first);
  EXPECT_EQ(nets[4]->getPath(), second);
  // Net ids count across paths in creation order.
  EXPECT_EQ(nets[4]->getId(), 5u);
  EXPECT_EQ(streaming->getNet(0)->getId(), 4u);

  EXPECT_EQ(nets[0]->getPerfSpec(), PerfSpec(0, 100, 10));
  EXPECT_EQ(nets[2]->getPerfSpec(), PerfSpec(0, 100, 10));
  EXPECT_EQ(nets[1]->getPerfSpec(), PerfSpec(0, 200, 20));
  EXPECT_EQ(nets[3]->getPerfSpec(), PerfSpec(0, 200, 20));

  EXPECT_TRUE(spec.getNets(slave, mm).empty());
  EXPECT_TRUE(spec.getNets(nullptr, slave).empty());
  EXPECT_EQ(spec.getNumPaths(), 3);
  EXPECT_EQ(spec.getPath(2), second);
}

TEST(TrafficSpecTest, PhasesFallBackToThePathDefaults) {
  TrafficSpec spec;
  TrafficLInst* master = spec.addLogicalInstance("m", AXI_MM, PL_IGU, {});
  TrafficLInst* slave = spec.addLogicalInstance("s", AXI_MM, PL_EGU, {});
  TrafficPath* path = spec.addPath(master, slave);
  path->setReadPerfSpec(PerfSpec(0, 100, 10));
  path->setReadAvgBurst(64);
  EXPECT_FALSE(path->hasMultipleReadPhases());

  path->setReadPerfSpec("g", "p1", PerfSpec(0, 5, 10));
  path->setReadAvgBurst(16, "p1");
  path->setWriteAvgBurst(32, "p2");  // a burst alone keeps the default bandwidth
  path->setWritePerfSpec("h", "p3", PerfSpec(0, 7, 0));

  EXPECT_TRUE(path->hasMultipleReadPhases());
  EXPECT_EQ(path->getReadPerfSpec("p1"), PerfSpec(0, 5, 10));
  EXPECT_EQ(path->getReadAvgBurst("p1"), 16);
  EXPECT_EQ(path->getReadPerfSpec("unknown"), PerfSpec(0, 100, 10));
  EXPECT_EQ(path->getReadAvgBurst("unknown"), 64);
  EXPECT_EQ(path->getReadPerfSpec(), PerfSpec(0, 100, 10));
  EXPECT_EQ(path->getWriteAvgBurst("p2"), 32);
  EXPECT_EQ(path->getWritePerfSpec("p2"), PerfSpec());

  // Every group has the default phase; the burst-only phase named no group.
  EXPECT_EQ(spec.getAllPhaseGroups(), std::set<std::string>({"g", "h"}));
  EXPECT_EQ(spec.getAllPhasesForPhaseGroup("g"), std::set<std::string>({"Phase_Default", "p1"}));
  EXPECT_EQ(spec.getAllPhasesForPhaseGroup("h"), std::set<std::string>({"Phase_Default", "p3"}));
  EXPECT_TRUE(spec.getAllPhasesForPhaseGroup("none").empty());

  // The default phase's name reaches the defaults themselves.
  path->setReadPerfSpec("g", "Phase_Default", PerfSpec(0, 1, 2));
  EXPECT_EQ(path->getReadPerfSpec(), PerfSpec(0, 1, 2));
}

TEST(TrafficSpecTest, ErrorSlaveServesMemoryMappedMasters) {
  TrafficSpec spec;
  TrafficLInst* mm = spec.addLogicalInstance("mm", AXI_MM, PS_IGU_0, {});
  TrafficLInst* fast = spec.addLogicalInstance("fast", AXI_MM, PS_IGU_1, {});
  TrafficLInst* strm = spec.addLogicalInstance("strm", AXI_STRM, PL_IGU, {});
  TrafficLInst* slave = spec.addLogicalInstance("s", AXI_MM, DDRC, {});
  spec.addPath(mm, slave);
  spec.addPath(fast, slave)->setHighPriorityRouting(true);
  spec.addPath(strm, slave);
  EXPECT_FALSE(spec.hasErrorSlave());

  spec.addErrorSlaveAndRoutes();

  EXPECT_TRUE(spec.hasErrorSlave());
  TrafficLInst const* errorSlave = spec.getLogicalSlave(TrafficSpec::getErrorSlaveName());
  TrafficLInst const* errorSlaveHp = spec.getLogicalSlave(TrafficSpec::getErrorSlaveName_hp());
  ASSERT_NE(errorSlave, nullptr);
  ASSERT_NE(errorSlaveHp, nullptr);
  EXPECT_TRUE(errorSlave->isErrorSlave());
  EXPECT_FALSE(slave->isErrorSlave());
  ASSERT_EQ(spec.getNumPaths(), 5);
  EXPECT_EQ(spec.getPath(3)->getMaster(), mm);
  EXPECT_EQ(spec.getPath(3)->getSlave(), errorSlave);
  EXPECT_EQ(spec.getPath(4)->getMaster(), fast);
  EXPECT_EQ(spec.getPath(4)->getSlave(), errorSlaveHp);
  EXPECT_TRUE(spec.getPath(4)->getHighPriorityRouting());
  EXPECT_EQ(spec.getPath(3)->getSlavePort(), PORT0);
}

TEST(TrafficSpecTest, InstanceListsKeepOrderAndRefuseBadIndices) {
  TrafficSpec spec;
  TrafficLInst* mc = spec.addLogicalInstance("mc", AXI_MM, DDRC, {});
  spec.addPortTypeForMC(mc, PORT2);
  spec.addPortTypeForMC(mc, PORT0);
  spec.addPortTypeForMC(mc, PORT2);
  EXPECT_EQ(mc->getPortTypes(), std::vector<PORT_TYPE>({PORT2, PORT0}));

  mc->addSysAddress({0x1000, 0x100});
  EXPECT_TRUE(mc->hasValidSysAddress(0));
  EXPECT_FALSE(mc->hasValidSysAddress(1));
  EXPECT_FALSE(mc->hasValidSysAddress(-1));
  EXPECT_EQ(mc->getSysAddrSize(0), 0x100u);
  EXPECT_EQ(mc->getSysAddress(1), 0u);

  TrafficPath* path = spec.addPath(spec.addLogicalInstance("m", AXI_MM, PL_IGU, {}), mc);
  path->addDestIdIdx({1, 2});
  path->addDestIdIdx({3, 4});
  EXPECT_EQ(path->getDestIdIdxEnd(1), 4);
  EXPECT_FALSE(path->hasValidDestIdIdx(2));
  EXPECT_EQ(path->getWoc(), WO_INVALID);
}

TEST(TrafficSpecTest, BlockKindRolesFollowTheirRows) {
  EXPECT_EQ(getCompRole(PL_IGU), ROLE_MASTER);
  EXPECT_EQ(getCompRole(PL_EGU_2), ROLE_SLAVE);
  EXPECT_EQ(getCompRole(HBMMC), ROLE_SLAVE);
  EXPECT_EQ(getCompRole(HBM_IGU), ROLE_MASTER);
  EXPECT_EQ(getCompRole(NSW), ROLE_NONE);
  EXPECT_EQ(getCompRole(COMPERR), ROLE_NONE);
  EXPECT_EQ(getCompRole(static_cast<COMP_TYPE>(500)), ROLE_NONE);
  EXPECT_FALSE(isKpeArrayType(HBM_SW));
  EXPECT_TRUE(isKpeArrayType(KPE_CASCADE));
  EXPECT_FALSE(isKpeArrayType(COMPERR));
}

}  // namespace
