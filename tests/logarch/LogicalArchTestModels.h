#ifndef TARVO_TESTS_LOGICALARCHTESTMODELS_H
#define TARVO_TESTS_LOGICALARCHTESTMODELS_H

#include <sstream>
#include <string>

#include "TQLogicalArchModel.h"

namespace logarch_test {

using namespace Tarvo::Frameworks;

inline std::string joined(std::vector<std::string> const& texts) {
  std::string text;
  for (auto const& t : texts)
    text += (text.empty() ? "" : ",") + t;
  return "[" + text + "]";
}

inline std::string portPlace(TQLogicalPort const* port) {
  if (port == nullptr) return "-";
  return (port->getParentInstance() ? port->getParentInstance()->getName() : "?") + "." + port->getName();
}

// Every field of a model that its document carries, one line per object, in model order.
inline std::string describe(TQLogicalArchModel const& model) {
  std::ostringstream out;
  out << "model " << model.getAppID() << "|" << model.getSchema() << "|" << model.getDeviceModel() << "|"
      << model.getPlatform() << "\n";
  for (TQLogicalArchLInst const* instance : model.getInstances()) {
    out << instance->getTypeAsStr() << " " << instance->getName() << " hw=" << instance->getHWAnnotation();
    if (auto const* kpe = dynamic_cast<TQLogicalTQIPInstance const*>(instance))
      out << " vlnv=" << kpe->getVLNVName() << " ann=" << kpe->getAnnotation()
          << " dev=" << kpe->getLogicalDeviceJSON();
    if (auto const* noc = dynamic_cast<TQLogicalNOCIPInstance const*>(instance))
      out << " vlnv=" << noc->getVLNVName() << " ann=" << noc->getAnnotation() << " ip=" << toText(noc->getIPType());
    if (auto const* pl = dynamic_cast<TQLogicalPLIPInstance const*>(instance))
      out << " vlnv=" << pl->getVLNVName() << " ck=" << pl->getCKernelName() << " sdf=" << pl->getSDFInstName()
          << " ann=" << pl->getAnnotation();
    out << "\n";
    for (TQLogicalPort const* port : instance->getPorts())
      out << "  " << port->getName() << " " << port->getTypeAsStr() << " " << port->getDirectionTypeAsStr()
          << " w=" << port->getDataWidth() << "/" << port->getBusWidth() << " i=" << port->getParamIndex()
          << " f=" << port->getClkFreq() << " r=" << port->getRegisterInterface() << " t=" << port->isTraced()
          << " tf=" << port->getTraceFile() << " ann=" << joined(port->getAnnotations())
          << " hw=" << port->getHWAnnotation() << " sdf=" << joined(port->getSDFIONames())
          << " vlnv=" << port->getVLNVName() << " ch=" << port->getTqChannel()
          << " conn=" << (port->getLogicalConnection() ? port->getLogicalConnection()->getName() : "-") << "\n";
  }
  std::vector<TQLogicalConnection*> connections;
  model.getLogicalConnections(connections);
  for (TQLogicalConnection const* connection : connections) {
    out << "conn " << connection->getName() << " " << connection->getTypeAsStr() << " "
        << connection->getDirectionTypeAsStr() << " " << connection->getMemModeAsStr() << " "
        << connection->getAddrTypeAsStr() << " " << portPlace(connection->getSrcPort()) << " ->";
    for (TQLogicalPort const* port : connection->getDstPorts())
      out << " " << portPlace(port);
    out << "\n";
  }
  return out.str();
}

// A model built through the add operations with every field the document carries set, and
// connections of several directions between all three kinds of instance. Instances are made
// in the order the reader reads the sections, so that a model read back is in the same order.
inline void buildFullModel(TQLogicalArchModel& model) {
  model.setAppID("app-7");
  model.setSchema("2.1");
  model.setDeviceModel("dev_a");
  model.setPlatform("plat_b");

  TQLogicalPLIPInstance& pl = *model.addPLIPInstance("top/pl");
  pl.setVLNVName("v:pl");
  pl.setCKernelName("kern");
  pl.setSDFInstName("sdf_pl");
  pl.setAnnotation("pl_ann");
  pl.setHWAnnotation("hw_pl");
  TQLogicalPort& p0 = *model.addPLPort("p0", pl);
  p0.setType(TQLogicalConnectionDataFlowTypeEnum::Event);
  p0.setDirectionType(TQLogicalPortDirectionTypeEnum::Master);
  TQLogicalPort& p1 = *model.addPLPort("p1", pl);
  p1.setType(TQLogicalConnectionDataFlowTypeEnum::Stream);

  TQLogicalTQIPInstance& kpe = *model.addTQIPInstance("top/kpe");
  kpe.setVLNVName("v:kpe:1.0");
  kpe.setAnnotation("array");
  kpe.setHWAnnotation("hw_kpe");
  kpe.setLogicalDeviceJSON("dev.json");
  TQLogicalPort& in0 = *model.addShimPort("in0", kpe);
  in0.setType(TQLogicalConnectionDataFlowTypeEnum::Stream);
  in0.setDirectionType(TQLogicalPortDirectionTypeEnum::Slave);
  in0.setDataWidth(64);
  in0.setBusWidth(128);
  in0.setParamIndex(3);
  in0.setClkFreq(312.5);
  in0.setRegisterInterface(true);
  in0.setIsTraced(true);
  in0.setTraceFile("in0.vcd");
  in0.setAnnotations({"a1", "a2"});
  in0.setHWAnnotation("h_in0");
  in0.setSDFIONames({"s1", "s2"});
  in0.setVLNVName("v:port");
  in0.setTqChannel("ch0");
  TQLogicalPort& out0 = *model.addShimPort("out0", kpe);
  out0.setType(TQLogicalConnectionDataFlowTypeEnum::Mem);
  out0.setDirectionType(TQLogicalPortDirectionTypeEnum::Master);
  out0.setDataWidth(32);

  TQLogicalNOCIPInstance& noc = *model.addNOCIPInstance("top/noc");
  noc.setVLNVName("v:noc");
  noc.setAnnotation("noc_ann");
  noc.setHWAnnotation("hw_noc");
  noc.setIPType(TQLogicalIPTypeEnum::Stream);
  TQLogicalPort& n0 = *model.addNOCPort("n0", noc);
  n0.setType(TQLogicalConnectionDataFlowTypeEnum::Mem);
  n0.setDirectionType(TQLogicalPortDirectionTypeEnum::Slave);

  TQLogicalConnection& c0 = *model.addLogicalConnection("top/c0");
  c0.setType(TQLogicalConnectionDataFlowTypeEnum::Mem);
  c0.setDirectionType(TQLogicalConnectionDirectionEnum::KpeToNoc);
  c0.setMemMode(TQLogicalConnectionMemModeEnum::ReadWrite);
  c0.setAddrType(TQLogicalConnectionAddrTypeEnum::Physical);
  c0.setSrcPort(&out0);
  c0.addDstPort(&n0);
  TQLogicalConnection& c1 = *model.addLogicalConnection("top/c1");
  c1.setType(TQLogicalConnectionDataFlowTypeEnum::Stream);
  c1.setDirectionType(TQLogicalConnectionDirectionEnum::PlToKpe);
  c1.setSrcPort(&p1);
  c1.addDstPort(&in0);
  c1.addDstPort(&p0);
  model.addLogicalConnection("top/c2")->setDirectionType(TQLogicalConnectionDirectionEnum::PlToPl);
}

}  // namespace logarch_test

#endif
