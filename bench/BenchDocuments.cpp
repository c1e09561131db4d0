#include "BenchDocuments.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <vector>

#include "ColocationConstraints.h"
#include "ConstrWriter.h"
#include "HDGUIStatus.h"
#include "NOCJsonTrafficSpecWriter.h"
#include "TQLogicalArchWriter.h"

namespace tarvo_bench {

namespace {

using namespace DevHrdIP::Definitions;
using namespace Tarvo::Frameworks;
using HrdIPToolCntr::PerfSpec;
using HrdIPToolCntr::TrafficLInst;
using HrdIPToolCntr::TrafficPath;
using HrdIPToolCntr::TrafficSpec;
using kpe::constraints::Address;
using kpe::constraints::BaseConstraint;
using kpe::constraints::ConstrHandler;
using kpe::constraints::PhysicalRange;
using kpe::constraints::PhysicalSpec;

// ---- traffic specification

TrafficLInst* addMaster(TrafficSpec& spec, int i) {
  std::string const name = "top/sub_" + std::to_string(i % 97) + "/master_" + std::to_string(i);
  bool const streaming = i % 5 == 0;
  TrafficLInst* master =
      spec.addLogicalInstance(name, streaming ? AXI_STRM : AXI_MM, streaming ? PL_IGU : PS_IGU_0, {{name + "_noc"}});
  master->setReadTC(static_cast<TrafficClass>(i % 4));
  master->setNumReadOutstanding(static_cast<uint16_t>(8 + i % 56));
  master->setNumWriteOutstanding(static_cast<uint16_t>(8 + i % 24));
  if (i % 3 == 0) master->setReadRateLimiter(static_cast<float>(i % 16));
  if (i % 7 == 0) master->addRemapAddrSpec(0x80000000ULL + static_cast<uint64_t>(i) * 0x1000, 0x400000000ULL, 0x1000);
  master->setIsExistDestId(true);
  master->setDestId(HrdIPToolCntr::DestIdRepr(static_cast<uint16_t>(i % 4096)));
  return master;
}

TrafficLInst* addSlave(TrafficSpec& spec, int i) {
  std::string const name = "top/mem_" + std::to_string(i % 31) + "/slave_" + std::to_string(i);
  bool const controller = i % 50 == 0;
  TrafficLInst* slave =
      spec.addLogicalInstance(name, AXI_MM, controller ? DDRC : PL_EGU, {{name + "_p0"}, {name + "_p1"}});
  if (controller) {
    spec.addPortTypeForMC(slave, PORT0);
    spec.addPortTypeForMC(slave, PORT1);
    slave->setDdrInterleaveSize(4096);
    slave->addMemoryParam("Speed", "4266");
  }
  slave->addSysAddress({static_cast<uint64_t>(i) << 24, 0x1000000});
  slave->setIsExistDestId(true);
  slave->setDestId(HrdIPToolCntr::DestIdRepr(static_cast<uint16_t>((i * 7) % 4096)));
  return slave;
}

// ---- logical architecture

int const kPortsPerInstance = 64;

void fillPort(TQLogicalPort& port, int index) {
  bool const stream = index % 3 != 0;
  port.setType(stream ? TQLogicalConnectionDataFlowTypeEnum::Stream : TQLogicalConnectionDataFlowTypeEnum::Mem);
  port.setDirectionType(index % 2 ? TQLogicalPortDirectionTypeEnum::Master : TQLogicalPortDirectionTypeEnum::Slave);
  port.setDataWidth(index % 4 ? 64 : 128);
  if (!stream) port.setBusWidth(128);
  port.setParamIndex(static_cast<std::uint32_t>(index % kPortsPerInstance));
  port.setClkFreq(500.0 + index % 7 * 12.5);
  port.setRegisterInterface(index % 5 == 0);
  port.addAnnotation("graph.node" + std::to_string(index / 8) + ".p" + std::to_string(index % 8));
  port.addSDFIOName("io_" + std::to_string(index));
  if (index % 2) port.setTqChannel("ch" + std::to_string(index));
}

// A tenth of the instances are KPE, a tenth NoC and the rest PL, as in a design with many
// kernels in the logic.
TQLogicalArchLInst& addInstance(TQLogicalArchModel& model, int index, std::string const& name) {
  if (index % 10 == 0) return *model.addTQIPInstance(name);
  if (index % 10 == 1) return *model.addNOCIPInstance(name);
  return *model.addPLIPInstance(name);
}

TQLogicalPort* addPort(TQLogicalArchModel& model, TQLogicalArchLInst& instance, std::string const& name) {
  if (auto* kpe = dynamic_cast<TQLogicalTQIPInstance*>(&instance)) return model.addShimPort(name, *kpe);
  if (auto* noc = dynamic_cast<TQLogicalNOCIPInstance*>(&instance)) return model.addNOCPort(name, *noc);
  return model.addPLPort(name, static_cast<TQLogicalPLIPInstance&>(instance));
}

// ---- constraints

int const kNodesPerAreaGroup = 100;

std::string node(int i) {
  return "top/graph/kernel_" + std::to_string(i);
}
std::string port(int i) {
  return "top/graph/kernel_" + std::to_string(i) + ".in[0]";
}

void addNode(ConstrHandler& store, int i) {
  std::string const name = node(i);
  if (i % 8 == 0) {
    store.setTileConstr(name, i % 50, i % 8, PhysicalSpec::TILE);
    store.addColocatedNodesConstr(BaseConstraint::NODE, name, {node(i + 2), node(i + 4)}, false);
    store.getColocatedNodesConstr(name)->setColocatedSoftNode(node(i + 4), true);
    store.setAttrConstr(BaseConstraint::NODE, name, "margin", i % 5);
  } else {
    store.setMemConstr(name, Address(i % 50, 1, 0, 64), Address(-1, -1, 1, 128));
    store.addRelativeNodesConstr(BaseConstraint::NODE, name, {{node(i + 1), HDPoint<int>(1, 0)}});
    store.setAttrConstr(BaseConstraint::NODE, name, "runtime", 0.25);
  }
}

void addPort(ConstrHandler& store, int i) {
  std::string const name = port(i);
  if (i % 8 == 1) {
    store.setBufferConstr(name, Address(i % 50, 2, 0, 0), Address(i % 50, 2, 1, 0), Address());
    store.setStreamChannelConstr(name, i % 50, 0, 1, "North");
    store.addColocatedPortsConstr(BaseConstraint::PORT, name, {port(i + 8)}, false);
  } else {
    store.setPortLocConstr(name, PhysicalSpec::SHIM, i % 50, 0, i % 2);
    store.setStreamChannelConstr(name, 2, 3, "East");
    store.addDmaFifoLocationConstr(BaseConstraint::PORT, name, PhysicalSpec::MEM, i % 50, 0, 256, 0, i % 4);
  }
}

void addAreaGroup(ConstrHandler& store, int group) {
  std::vector<std::string> nodes;
  for (int i = group * kNodesPerAreaGroup; i < (group + 1) * kNodesPerAreaGroup; i += 4)
    nodes.push_back(node(i));
  json::TileSpec low;
  low.setXY(group % 40, 0);
  json::TileSpec high;
  high.setXY(group % 40 + 9, 7);
  json::ShimSpec shim;
  shim.setColumn(group % 40);
  std::vector<PhysicalRange> ranges = {PhysicalRange(low, high), PhysicalRange(shim, PhysicalSpec())};
  store.addAreaGroupConstr("area_" + std::to_string(group), nodes, ranges, false, group % 2 == 0, true, false, false);
}

}  // namespace

int scaled(int count, double scale, int least) {
  return std::max(least, static_cast<int>(std::lround(count * scale)));
}

void fillTraffic(TrafficSpec& spec, double scale) {
  int const masterCount = scaled(12000, scale);
  int const slaveCount = scaled(8000, scale);
  int const pathCount = masterCount > 0 && slaveCount > 0 ? scaled(150000, scale) : 0;
  spec.setFrequency(1000, true);
  spec.setDeviceName("bench_device");
  std::vector<TrafficLInst*> masters;
  std::vector<TrafficLInst*> slaves;
  for (int i = 0; i < masterCount; ++i)
    masters.push_back(addMaster(spec, i));
  for (int i = 0; i < slaveCount; ++i)
    slaves.push_back(addSlave(spec, i));
  for (int i = 0; i < pathCount; ++i) {
    TrafficPath* path = spec.addPath(masters[static_cast<std::size_t>(i) * 7919 % masters.size()],
                                     slaves[static_cast<std::size_t>(i) * 104729 % slaves.size()]);
    path->phase = i % 3;
    path->setSlavePort(i % 2 == 0 ? PORT0 : PORT1);
    path->setReadPerfSpec(PerfSpec(0, static_cast<uint32_t>(100 + i % 4000), static_cast<uint32_t>(300 + i % 700)));
    path->setWritePerfSpec(PerfSpec(0, static_cast<uint32_t>(50 + i % 2000), static_cast<uint32_t>(400 + i % 500)));
    path->setReadAvgBurst(static_cast<uint16_t>(16 << (i % 5)));
    path->setWriteAvgBurst(static_cast<uint16_t>(16 << (i % 4)));
    if (i % 4 == 0) path->setWoc(WO_RELAXED);
    if (i % 11 == 0) path->addDestIdIdx({static_cast<uint8_t>(i % 8), static_cast<uint8_t>(i % 8 + 2)});
    if (i % 50 == 0) {
      path->setReadPerfSpec("modes", "low", PerfSpec(0, 10, 300));
      path->setWritePerfSpec("modes", "low", PerfSpec(0, 10, 400));
    }
  }
}

// Each connection runs from one port to one or two others.
void fillLogicalArch(TQLogicalArchModel& model, double scale) {
  int const instanceCount = scaled(2000, scale, 1);
  int const connectionCount = instanceCount > 0 ? scaled(50000, scale) : 0;
  model.setAppID("bench_app");
  model.setSchema("1.2");
  model.setDeviceModel("zv1902");
  model.setPlatform("zv1902_base");
  std::vector<TQLogicalPort*> ports;
  for (int i = 0; i < instanceCount; ++i) {
    TQLogicalArchLInst& instance =
        addInstance(model, i, "design/block" + std::to_string(i / 50) + "/inst" + std::to_string(i));
    for (int p = 0; p < kPortsPerInstance; ++p) {
      TQLogicalPort* port = addPort(model, instance, "port_" + std::to_string(p));
      fillPort(*port, static_cast<int>(ports.size()));
      ports.push_back(port);
    }
  }
  for (int c = 0; c < connectionCount; ++c) {
    TQLogicalConnection& connection = *model.addLogicalConnection("design/net" + std::to_string(c));
    connection.setType(c % 3 ? TQLogicalConnectionDataFlowTypeEnum::Stream : TQLogicalConnectionDataFlowTypeEnum::Mem);
    connection.setDirectionType(static_cast<TQLogicalConnectionDirectionEnum>(c % 8));
    if (c % 3 == 0) connection.setMemMode(TQLogicalConnectionMemModeEnum::ReadWrite);
    std::size_t const source = static_cast<std::size_t>(c) * 2 % ports.size();
    connection.setSrcPort(ports[source]);
    connection.addDstPort(ports[(source + 1) % ports.size()]);
    if (c % 4 == 0) connection.addDstPort(ports[(source + 7919) % ports.size()]);
  }
}

void fillMetadata(KPEPrjMetaDataModel& model, double scale) {
  int const count = scaled(100000, scale);
  for (int i = 0; i < count; ++i) {
    std::string const name = "project.property." + std::to_string(i);
    switch (i % 6) {
      case 0:
        model.addBooleanProperty(name, i % 4 == 0);
        break;
      case 1:
        model.addIntegrProperty(name, i * 7 - 300000);
        break;
      case 2:
        model.addULongProperty(name, 5000000000ull + static_cast<unsigned long long>(i));
        break;
      case 3:
        model.addStringProperty(name, "value of property " + std::to_string(i));
        break;
      case 4:
        model.addDoubleProperty(name, i / 7.0);
        break;
      default:
        model.addStringArrayProperty(name, {"a" + std::to_string(i), "b", "c"});
        break;
    }
  }
}

// Half the objects are nodes, three in eight are ports, one in eight are nets.
void fillConstraints(ConstrHandler& store, int objects) {
  for (int i = 0; i < objects; ++i) {
    if (i % 8 < 4)
      addNode(store, i);
    else if (i % 8 < 7)
      addPort(store, i);
    else
      store.setAttrConstr(BaseConstraint::NET, "net_" + std::to_string(i), "fifo_depth", 4);
    if (i % kNodesPerAreaGroup == kNodesPerAreaGroup - 1) addAreaGroup(store, i / kNodesPerAreaGroup);
  }
}

std::string trafficText(double scale) {
  TrafficSpec spec;
  fillTraffic(spec, scale);
  return writtenTraffic(spec);
}

std::string writtenTraffic(TrafficSpec const& spec) {
  HDGUIStatus status;
  std::ostringstream out;
  NOC::NOCJsonTrafficSpecWriter::writeToJsonFile(out, spec, status);
  return out.str();
}

std::string logicalArchText(double scale) {
  TQLogicalArchModel model;
  fillLogicalArch(model, scale);
  std::ostringstream out;
  TQLogicalArchWriter::writeToJsonFile(out, model);
  return out.str();
}

std::string metadataText(double scale) {
  KPEPrjMetaDataModel model;
  fillMetadata(model, scale);
  std::ostringstream out;
  model.writeToJSONStream(out);
  return out.str();
}

std::string constraintsText(int objects) {
  ConstrHandler store;
  fillConstraints(store, objects);
  std::ostringstream out;
  kpe::constraints::ConstrWriter(store).write(out, "bench", true);
  store.clear();
  return out.str();
}

}  // namespace tarvo_bench
