#include <pybind11/stl.h>

#include "Bindings.h"
#include "OwnedRefs.h"
#include "PropertySetter.h"
#include "TQLogicalArchModel.h"
#include "TQLogicalConnection.h"
#include "TQLogicalPort.h"

namespace py = pybind11;

namespace tarvo_python {

namespace {

using namespace Tarvo::Frameworks;

void bindEnums(py::module_& module) {
  py::enum_<TQLogicalInstanceType>(module, "InstanceType")
      .value("KPEIP", TQLogicalInstanceType::KPEIP)
      .value("NOCIP", TQLogicalInstanceType::NOCIP)
      .value("PLIP", TQLogicalInstanceType::PLIP)
      .value("UNKNOWN", TQLogicalInstanceType::Unknown);
  py::enum_<TQLogicalConnectionDataFlowTypeEnum>(module, "DataFlowType")
      .value("STREAM", TQLogicalConnectionDataFlowTypeEnum::Stream)
      .value("MEM", TQLogicalConnectionDataFlowTypeEnum::Mem)
      .value("EVENT", TQLogicalConnectionDataFlowTypeEnum::Event)
      .value("UNKNOWN", TQLogicalConnectionDataFlowTypeEnum::Unknown);
  py::enum_<TQLogicalConnectionMemModeEnum>(module, "MemMode")
      .value("READ_ONLY", TQLogicalConnectionMemModeEnum::ReadOnly)
      .value("WRITE_ONLY", TQLogicalConnectionMemModeEnum::WriteOnly)
      .value("READ_WRITE", TQLogicalConnectionMemModeEnum::ReadWrite)
      .value("UNKNOWN", TQLogicalConnectionMemModeEnum::Unknown);
  py::enum_<TQLogicalConnectionAddrTypeEnum>(module, "AddrType")
      .value("VIRTUAL", TQLogicalConnectionAddrTypeEnum::Virtual)
      .value("PHYSICAL", TQLogicalConnectionAddrTypeEnum::Physical)
      .value("UNKNOWN", TQLogicalConnectionAddrTypeEnum::Unknown);
  py::enum_<TQLogicalConnectionDirectionEnum>(module, "ConnectionDirection")
      .value("KPE_TO_PL", TQLogicalConnectionDirectionEnum::KpeToPl)
      .value("PL_TO_KPE", TQLogicalConnectionDirectionEnum::PlToKpe)
      .value("KPE_TO_NOC", TQLogicalConnectionDirectionEnum::KpeToNoc)
      .value("NOC_TO_KPE", TQLogicalConnectionDirectionEnum::NocToKpe)
      .value("NOC_TO_PL", TQLogicalConnectionDirectionEnum::NocToPl)
      .value("PL_TO_NOC", TQLogicalConnectionDirectionEnum::PlToNoc)
      .value("NOC_TO_NOC", TQLogicalConnectionDirectionEnum::NocToNoc)
      .value("PL_TO_PL", TQLogicalConnectionDirectionEnum::PlToPl)
      .value("UNKNOWN", TQLogicalConnectionDirectionEnum::Unknown);
  py::enum_<TQLogicalPortDirectionTypeEnum>(module, "PortDirection")
      .value("MASTER", TQLogicalPortDirectionTypeEnum::Master)
      .value("SLAVE", TQLogicalPortDirectionTypeEnum::Slave)
      .value("UNKNOWN", TQLogicalPortDirectionTypeEnum::Unknown);
  py::enum_<TQLogicalIPTypeEnum>(module, "IPType")
      .value("MEM", TQLogicalIPTypeEnum::Mem)
      .value("STREAM", TQLogicalIPTypeEnum::Stream)
      .value("UNKNOWN", TQLogicalIPTypeEnum::Unknown);
}

void bindPort(py::module_& module) {
  py::class_<TQLogicalPort>(module, "LogicalPort", "A port of a logical instance")
      .def_property_readonly("name", &TQLogicalPort::getName)
      .def_property("clock_frequency", &TQLogicalPort::getClkFreq,
                    setter("clock_frequency", &TQLogicalPort::setClkFreq))
      .def_property("data_width", &TQLogicalPort::getDataWidth, setter("data_width", &TQLogicalPort::setDataWidth))
      .def_property("bus_width", &TQLogicalPort::getBusWidth, setter("bus_width", &TQLogicalPort::setBusWidth))
      .def_property("param_index", &TQLogicalPort::getParamIndex, setter("param_index", &TQLogicalPort::setParamIndex))
      .def_property("trace_file", &TQLogicalPort::getTraceFile, setter("trace_file", &TQLogicalPort::setTraceFile))
      .def_property("channel", &TQLogicalPort::getTqChannel, setter("channel", &TQLogicalPort::setTqChannel))
      .def_property_readonly("channel_full_names", &TQLogicalPort::getTqChannelFullHierNames)
      .def("add_channel_full_name", &TQLogicalPort::addTqChannelFullHierName, py::arg("name"))
      .def_property("annotations", &TQLogicalPort::getAnnotations,
                    setter("annotations", &TQLogicalPort::setAnnotations))
      .def_property("hw_annotation", &TQLogicalPort::getHWAnnotation,
                    setter("hw_annotation", &TQLogicalPort::setHWAnnotation))
      .def_property("sdf_io_names", &TQLogicalPort::getSDFIONames,
                    setter("sdf_io_names", &TQLogicalPort::setSDFIONames))
      .def_property("vlnv_name", &TQLogicalPort::getVLNVName, setter("vlnv_name", &TQLogicalPort::setVLNVName))
      .def_property("type", &TQLogicalPort::getType, setter("type", &TQLogicalPort::setType))
      .def_property("direction", &TQLogicalPort::getDirectionType,
                    setter("direction", &TQLogicalPort::setDirectionType))
      .def_property("register_interface", &TQLogicalPort::getRegisterInterface,
                    setter("register_interface", &TQLogicalPort::setRegisterInterface))
      .def_property("traced", &TQLogicalPort::isTraced, setter("traced", &TQLogicalPort::setIsTraced))
      .def_property_readonly(
          "instance", [](py::object self) { return owned(self.cast<TQLogicalPort&>().getParentInstance(), self); })
      .def_property_readonly(
          "connection", [](py::object self) { return owned(self.cast<TQLogicalPort&>().getLogicalConnection(), self); })
      .def("__repr__", [](TQLogicalPort const& port) { return "<tarvo.LogicalPort " + port.getName() + ">"; });
}

void bindInstances(py::module_& module) {
  py::class_<TQLogicalArchLInst>(module, "LogicalInstance", "An instance of a logical architecture")
      .def_property_readonly("name", &TQLogicalArchLInst::getName)
      .def_property("hw_annotation", &TQLogicalArchLInst::getHWAnnotation,
                    setter("hw_annotation", &TQLogicalArchLInst::setHWAnnotation))
      .def_property_readonly("type", &TQLogicalArchLInst::getType)
      .def_property_readonly("ports",
                             [](py::object self) {
                               auto const& instance = self.cast<TQLogicalArchLInst const&>();
                               return ownedList(
                                   std::vector<TQLogicalPort*>(instance.beginPortItr(), instance.endPortItr()), self);
                             })
      .def(
          "port",
          [](py::object self, std::string const& name) {
            return owned(self.cast<TQLogicalArchLInst&>().getLogicalPort(name), self);
          },
          py::arg("name"), "The port of that name, or None")
      .def("__repr__", [](TQLogicalArchLInst const& instance) {
        return std::string("<tarvo.LogicalInstance ") + instance.getTypeAsStr() + " " + instance.getName() + ">";
      });
  py::class_<TQLogicalTQIPInstance, TQLogicalArchLInst>(module, "KpeInstance")
      .def_property("vlnv_name", &TQLogicalTQIPInstance::getVLNVName,
                    setter("vlnv_name", &TQLogicalTQIPInstance::setVLNVName))
      .def_property("annotation", &TQLogicalTQIPInstance::getAnnotation,
                    setter("annotation", &TQLogicalTQIPInstance::setAnnotation))
      .def_property("logical_device_json", &TQLogicalTQIPInstance::getLogicalDeviceJSON,
                    setter("logical_device_json", &TQLogicalTQIPInstance::setLogicalDeviceJSON));
  py::class_<TQLogicalNOCIPInstance, TQLogicalArchLInst>(module, "NocInstance")
      .def_property("vlnv_name", &TQLogicalNOCIPInstance::getVLNVName,
                    setter("vlnv_name", &TQLogicalNOCIPInstance::setVLNVName))
      .def_property("annotation", &TQLogicalNOCIPInstance::getAnnotation,
                    setter("annotation", &TQLogicalNOCIPInstance::setAnnotation))
      .def_property("ip_type", &TQLogicalNOCIPInstance::getIPType,
                    setter("ip_type", &TQLogicalNOCIPInstance::setIPType));
  py::class_<TQLogicalPLIPInstance, TQLogicalArchLInst>(module, "PlInstance")
      .def_property("vlnv_name", &TQLogicalPLIPInstance::getVLNVName,
                    setter("vlnv_name", &TQLogicalPLIPInstance::setVLNVName))
      .def_property("c_kernel_name", &TQLogicalPLIPInstance::getCKernelName,
                    setter("c_kernel_name", &TQLogicalPLIPInstance::setCKernelName))
      .def_property("sdf_instance_name", &TQLogicalPLIPInstance::getSDFInstName,
                    setter("sdf_instance_name", &TQLogicalPLIPInstance::setSDFInstName))
      .def_property("annotation", &TQLogicalPLIPInstance::getAnnotation,
                    setter("annotation", &TQLogicalPLIPInstance::setAnnotation));
}

void bindConnection(py::module_& module) {
  py::class_<TQLogicalConnection>(module, "LogicalConnection", "A connection from one port to others")
      .def_property_readonly("name", &TQLogicalConnection::getName)
      .def_property_readonly(
          "source", [](py::object self) { return owned(self.cast<TQLogicalConnection&>().getSrcPort(), self); })
      .def_property_readonly(
          "destinations",
          [](py::object self) {
            auto const& connection = self.cast<TQLogicalConnection const&>();
            return ownedList(std::vector<TQLogicalPort*>(connection.beginDstPortItr(), connection.endDstPortItr()),
                             self);
          })
      .def_property("type", &TQLogicalConnection::getType, setter("type", &TQLogicalConnection::setType))
      .def_property("mem_mode", &TQLogicalConnection::getMemMode, setter("mem_mode", &TQLogicalConnection::setMemMode))
      .def_property("addr_type", &TQLogicalConnection::getAddrType,
                    setter("addr_type", &TQLogicalConnection::setAddrType))
      .def_property("direction", &TQLogicalConnection::getDirectionType,
                    setter("direction", &TQLogicalConnection::setDirectionType))
      .def("__repr__", [](TQLogicalConnection const& connection) {
        return "<tarvo.LogicalConnection " + connection.getName() + ">";
      });
}

// A port of another model, or of no model, would leave this one pointing into memory it does
// not own.
void requireOwnPort(TQLogicalArchModel const& model, TQLogicalPort const* port, char const* parameter) {
  if (port == nullptr)
    throw py::type_error(std::string("connect(): ") + parameter + " must be a LogicalPort, not None");
  TQLogicalArchLInst const* instance = port->getParentInstance();
  if (instance == nullptr || model.getLogicalInstance(instance->getName()) != instance)
    throw py::value_error(std::string("connect(): ") + parameter + " " + port->getName() +
                          " is not a port of this model");
}

void bindModel(py::module_& module) {
  py::class_<TQLogicalArchModel>(module, "LogicalArch", "The logical architecture of a KPE design")
      .def(py::init<>())
      .def_property("app_id", &TQLogicalArchModel::getAppID, setter("app_id", &TQLogicalArchModel::setAppID))
      .def_property("device", &TQLogicalArchModel::getDeviceModel,
                    setter("device", &TQLogicalArchModel::setDeviceModel))
      .def_property("schema", &TQLogicalArchModel::getSchema, setter("schema", &TQLogicalArchModel::setSchema))
      .def_property("platform", &TQLogicalArchModel::getPlatform, setter("platform", &TQLogicalArchModel::setPlatform))
      .def_property_readonly("instances",
                             [](py::object self) {
                               auto const& model = self.cast<TQLogicalArchModel const&>();
                               return ownedList(
                                   std::vector<TQLogicalArchLInst*>(model.beginInstItr(), model.endInstItr()), self);
                             })
      .def_property_readonly("connections",
                             [](py::object self) {
                               std::vector<TQLogicalConnection*> connections;
                               self.cast<TQLogicalArchModel const&>().getLogicalConnections(connections);
                               return ownedList(connections, self);
                             })
      .def(
          "instance",
          [](py::object self, std::string const& name) {
            return owned(self.cast<TQLogicalArchModel&>().getLogicalInstance(name), self);
          },
          py::arg("name"), "The instance of that name, or None")
      .def(
          "connection",
          [](py::object self, std::string const& name) {
            return owned(self.cast<TQLogicalArchModel&>().getLogicalConnection(name), self);
          },
          py::arg("name"), "The connection of that name, or None")
      .def(
          "add_kpe_instance",
          [](py::object self, std::string const& name) {
            return owned(self.cast<TQLogicalArchModel&>().addTQIPInstance(name), self);
          },
          py::arg("name"))
      .def(
          "add_noc_instance",
          [](py::object self, std::string const& name) {
            return owned(self.cast<TQLogicalArchModel&>().addNOCIPInstance(name), self);
          },
          py::arg("name"))
      .def(
          "add_pl_instance",
          [](py::object self, std::string const& name) {
            return owned(self.cast<TQLogicalArchModel&>().addPLIPInstance(name), self);
          },
          py::arg("name"))
      .def(
          "add_port",
          [](py::object self, TQLogicalArchLInst* instance, std::string const& name) {
            auto& model = self.cast<TQLogicalArchModel&>();
            if (instance == nullptr) throw py::type_error("add_port(): instance must be a LogicalInstance, not None");
            if (model.getLogicalInstance(instance->getName()) != instance)
              throw py::value_error("add_port(): " + instance->getName() + " is not an instance of this model");
            TQLogicalPort* port = nullptr;
            if (auto* kpe = dynamic_cast<TQLogicalTQIPInstance*>(instance)) port = model.addShimPort(name, *kpe);
            if (auto* noc = dynamic_cast<TQLogicalNOCIPInstance*>(instance)) port = model.addNOCPort(name, *noc);
            if (auto* pl = dynamic_cast<TQLogicalPLIPInstance*>(instance)) port = model.addPLPort(name, *pl);
            if (port == nullptr) throw py::value_error("add_port(): " + instance->getName() + " has a port " + name);
            return owned(port, self);
          },
          py::arg("instance"), py::arg("name"))
      .def(
          "connect",
          [](py::object self, std::string const& name, TQLogicalPort* source,
             std::vector<TQLogicalPort*> const& destinations) {
            auto& model = self.cast<TQLogicalArchModel&>();
            requireOwnPort(model, source, "source");
            for (TQLogicalPort* destination : destinations)
              requireOwnPort(model, destination, "destinations");
            // The model indexes connections by name only when it is read, so a repeated name is
            // looked for among all of them.
            std::vector<TQLogicalConnection*> existing;
            model.getLogicalConnections(existing);
            for (TQLogicalConnection const* connection : existing)
              if (connection->getName() == name) throw py::value_error("connect(): the model has a connection " + name);
            TQLogicalConnection* connection = model.addLogicalConnection(name);
            if (connection == nullptr) throw py::value_error("connect(): the model has a connection " + name);
            connection->setSrcPort(source);
            for (TQLogicalPort* destination : destinations)
              connection->addDstPort(destination);
            return owned(connection, self);
          },
          py::arg("name"), py::arg("source"), py::arg("destinations"))
      .def("__repr__", [](TQLogicalArchModel const& model) {
        return "<tarvo.LogicalArch " + std::to_string(model.endInstItr() - model.beginInstItr()) + " instances>";
      });
}

}  // namespace

void bindLogicalArch(py::module_& module) {
  bindEnums(module);
  bindPort(module);
  bindInstances(module);
  bindConnection(module);
  bindModel(module);
}

}  // namespace tarvo_python
