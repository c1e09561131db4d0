#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "LogicalArchWriterModelRenamer.h"
#include "TQLogicalArchModel.h"

using namespace Tarvo::Frameworks;

namespace {

using Flow = TQLogicalConnectionDataFlowTypeEnum;
using Dir = TQLogicalConnectionDirectionEnum;

struct PortSpec {
  Flow flow;
  Dir direction;
};

class RenamerTest : public ::testing::Test {
 protected:
  // Adds ports named q0, q1 ... to `instance`, each the source of its own connection.
  void addPorts(TQLogicalArchLInst& instance, std::vector<PortSpec> const& specs) {
    for (PortSpec const& spec : specs) {
      TQLogicalPort* port = instance.addPort("q" + std::to_string(instance.getPorts().size()));
      port->setType(spec.flow);
      TQLogicalConnection* connection = model.addLogicalConnection("c" + std::to_string(++m_connections));
      connection->setDirectionType(spec.direction);
      connection->setSrcPort(port);
    }
  }

  static std::vector<std::string> portNames(TQLogicalArchLInst const& instance) {
    std::vector<std::string> names;
    for (TQLogicalPort const* port : instance.getPorts())
      names.push_back(port->getName());
    return names;
  }

  // One port for every row of the KPE table, twice over, and an event port.
  TQLogicalTQIPInstance& kpeWithEveryRow() {
    TQLogicalTQIPInstance& kpe = *model.addTQIPInstance("kpe");
    std::vector<PortSpec> rows;
    for (int round = 0; round < 2; ++round)
      for (Dir direction : {Dir::KpeToPl, Dir::PlToKpe, Dir::KpeToNoc, Dir::NocToKpe})
        for (Flow flow : {Flow::Stream, Flow::Mem})
          rows.push_back({flow, direction});
    rows.push_back({Flow::Event, Dir::KpeToPl});
    rows.push_back({Flow::Stream, Dir::PlToPl});
    addPorts(kpe, rows);
    return kpe;
  }

  TQLogicalArchModel model;

 private:
  int m_connections = 0;
};

}  // namespace

TEST_F(RenamerTest, KPEPortsNamedAfterBothSidesOfTheirConnection) {
  TQLogicalTQIPInstance& kpe = kpeWithEveryRow();
  kpe.addPort("unconnected")->setType(Flow::Stream);
  model.renameLogicalArchPortNames(false);
  EXPECT_EQ(portNames(kpe),
            (std::vector<std::string>{"TQ_PL_AXIS_0", "TQ_PL_AXI_0", "PL_TQ_AXIS_0", "PL_TQ_AXI_0", "TQ_NOC_AXIS_0",
                                      "TQ_NOC_AXI_0", "NOC_TQ_AXIS_0", "NOC_TQ_AXI_0", "TQ_PL_AXIS_1", "TQ_PL_AXI_1",
                                      "PL_TQ_AXIS_1", "PL_TQ_AXI_1", "TQ_NOC_AXIS_1", "TQ_NOC_AXI_1", "NOC_TQ_AXIS_1",
                                      "NOC_TQ_AXI_1", "q16", "q17", "unconnected"}));
}

TEST_F(RenamerTest, KPEHardwareNamesShareOneSeriesAcrossPLAndNoC) {
  TQLogicalTQIPInstance& kpe = kpeWithEveryRow();
  model.renameLogicalArchPortNames(true);
  EXPECT_EQ(portNames(kpe),
            (std::vector<std::string>{"M00_AXIS", "M00_AXI", "S00_AXIS", "S00_AXI", "M01_AXIS", "M01_AXI", "S01_AXIS",
                                      "S01_AXI", "M02_AXIS", "M02_AXI", "S02_AXIS", "S02_AXI", "M03_AXIS", "M03_AXI",
                                      "S03_AXIS", "S03_AXI", "q16", "q17"}));
}

TEST_F(RenamerTest, NoCAndPLPortsAndCountersRestartOnEachInstance) {
  TQLogicalNOCIPInstance& noc = *model.addNOCIPInstance("noc");
  addPorts(noc, {{Flow::Stream, Dir::KpeToNoc},
                 {Flow::Mem, Dir::KpeToNoc},
                 {Flow::Stream, Dir::PlToNoc},
                 {Flow::Mem, Dir::PlToNoc},
                 {Flow::Stream, Dir::NocToKpe},
                 {Flow::Mem, Dir::NocToKpe},
                 {Flow::Stream, Dir::NocToPl},
                 {Flow::Mem, Dir::NocToPl},
                 {Flow::Stream, Dir::NocToNoc},
                 {Flow::Unknown, Dir::NocToPl}});
  noc.addPort("unconnected")->setType(Flow::Mem);
  TQLogicalNOCIPInstance& noc2 = *model.addNOCIPInstance("noc2");
  addPorts(noc2, {{Flow::Mem, Dir::NocToPl}});
  TQLogicalPLIPInstance& pl = *model.addPLIPInstance("pl");
  pl.addPort("loose");
  addPorts(pl, {{Flow::Event, Dir::Unknown}, {Flow::Mem, Dir::KpeToPl}});

  model.renameLogicalArchPortNames(true);
  EXPECT_EQ(portNames(noc), (std::vector<std::string>{"S00_AXIS", "S00_AXI", "S01_AXIS", "S01_AXI", "M00_AXIS",
                                                      "M00_AXI", "M01_AXIS", "M01_AXI", "q8", "q9", "unconnected"}));
  EXPECT_EQ(portNames(noc2), std::vector<std::string>{"M00_AXI"});
  EXPECT_EQ(portNames(pl), (std::vector<std::string>{"port0", "port1", "port2"}));
  EXPECT_EQ(model.getLogicalInstance("pl")->getLogicalPort("port2"), pl.getPorts().begin()[2]);
}

TEST_F(RenamerTest, CountersPast99GetMoreDigits) {
  TQLogicalTQIPInstance& kpe = *model.addTQIPInstance("kpe");
  addPorts(kpe, std::vector<PortSpec>(101, {Flow::Stream, Dir::PlToKpe}));
  LogicalArchWriterModelRenamer renamer(true);
  model.rename(renamer);
  std::vector<std::string> const names = portNames(kpe);
  EXPECT_EQ(names[9], "S09_AXIS");
  EXPECT_EQ(names[99], "S99_AXIS");
  EXPECT_EQ(names[100], "S100_AXIS");

  // A renamer keeps counting where it stopped; instance and connection names stay.
  TQLogicalPort& port = *kpe.addPort("more");
  port.setType(Flow::Stream);
  TQLogicalConnection& late = *model.addLogicalConnection("late");
  late.addDstPort(&port);
  late.setDirectionType(Dir::NocToKpe);
  EXPECT_EQ(renamer.renamePort(port), "S101_AXIS");
  EXPECT_EQ(renamer.renameInstance(kpe), "kpe");
  EXPECT_EQ(renamer.renameConnection(late), "late");
  EXPECT_EQ(renamer.renameModel(model), "");
}
