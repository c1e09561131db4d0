#include <pybind11/operators.h>
#include <pybind11/stl.h>

#include "Bindings.h"
#include "OwnedRefs.h"
#include "PropertySetter.h"
#include "TrafficSpec.h"

namespace py = pybind11;

namespace tarvo_python {

namespace {

namespace Defs = DevHrdIP::Definitions;
using HrdIPToolCntr::DestIdRepr;
using HrdIPToolCntr::PerfSpec;
using HrdIPToolCntr::TrafficLInst;
using HrdIPToolCntr::TrafficNet;
using HrdIPToolCntr::TrafficPath;
using HrdIPToolCntr::TrafficSpec;

// A destination id is None where the model says there is none.
py::object optionalDestId(bool exists, DestIdRepr id) {
  return exists ? py::object(py::int_(id.getValue())) : py::object(py::none());
}

void bindEnums(py::module_& module) {
  py::enum_<Defs::AxiProt>(module, "AxiProt").value("AXI_STRM", Defs::AXI_STRM).value("AXI_MM", Defs::AXI_MM);
  py::enum_<Defs::TrafficClass>(module, "TrafficClass")
      .value("BE", Defs::TC_BE)
      .value("LL", Defs::TC_LL)
      .value("ISOC", Defs::TC_ISOC)
      .value("BW", Defs::TC_BW);
  py::enum_<Defs::Write_Order>(module, "WriteOrder")
      .value("STRICT", Defs::WO_STRICT)
      .value("RELAXED", Defs::WO_RELAXED)
      .value("DOORBELL", Defs::WO_DOORBELL)
      .value("INVALID", Defs::WO_INVALID);
  py::enum_<Defs::PORT_TYPE>(module, "PortType")
      .value("INVALID", Defs::PORT_INVALID)
      .value("PORT0", Defs::PORT0)
      .value("PORT1", Defs::PORT1)
      .value("PORT2", Defs::PORT2)
      .value("PORT3", Defs::PORT3);
  py::enum_<Defs::CompRole>(module, "CompRole")
      .value("MASTER", Defs::ROLE_MASTER)
      .value("SLAVE", Defs::ROLE_SLAVE)
      .value("NONE", Defs::ROLE_NONE);
  py::enum_<Defs::COMP_TYPE> compType(module, "CompType");
#define TARVO_PYTHON_COMP_TYPE_VALUE(name, role) compType.value(#name, Defs::name);
  DEVHRDIP_COMP_TYPE_ROWS(TARVO_PYTHON_COMP_TYPE_VALUE)
#undef TARVO_PYTHON_COMP_TYPE_VALUE
  py::enum_<TrafficNet::NetType>(module, "NetType")
      .value("READ", TrafficNet::READ)
      .value("WRITE", TrafficNet::WRITE)
      .value("READ_REQ", TrafficNet::READ_REQ)
      .value("WRITE_RESP", TrafficNet::WRITE_RESP);
}

void bindPerfSpec(py::module_& module) {
  // A value: changing a path's requirement means assigning a new one, so that
  // `path.read.bandwidth = 5` cannot silently change a copy.
  py::class_<PerfSpec>(module, "PerfSpec", "What a path asks of the NoC in one direction")
      .def(py::init([](Defs::TrafficClass trafficClass, uint32_t bandwidth, uint32_t latency) {
             return PerfSpec(static_cast<uint32_t>(trafficClass), bandwidth, latency);
           }),
           py::arg("traffic_class") = Defs::TC_BE, py::arg("bandwidth") = 0, py::arg("latency") = 0)
      .def_property_readonly("traffic_class",
                             [](PerfSpec const& spec) { return static_cast<Defs::TrafficClass>(spec.trafficClass); })
      .def_readonly("bandwidth", &PerfSpec::bandwidth)
      .def_readonly("latency", &PerfSpec::latency)
      .def(py::self == py::self)
      .def("__repr__", [](PerfSpec const& spec) {
        return "PerfSpec(traffic_class=" + std::to_string(spec.trafficClass) +
               ", bandwidth=" + std::to_string(spec.bandwidth) + ", latency=" + std::to_string(spec.latency) + ")";
      });
}

void bindInstance(py::module_& module) {
  py::class_<TrafficLInst> instance(module, "TrafficInstance", "A logical master, slave or array channel");
  plainMember(instance, "ip_name", &TrafficLInst::ipName);
  plainMember(instance, "firewall", &TrafficLInst::firewall);
  plainMember(instance, "is_virtual", &TrafficLInst::virtualInstance);
  instance.def_property_readonly("id", &TrafficLInst::getId)
      .def_property_readonly("name", &TrafficLInst::getName)
      .def_property_readonly("protocol", &TrafficLInst::getProtocol)
      .def_property_readonly("comp_type", &TrafficLInst::getCompType)
      .def_property_readonly("is_master", &TrafficLInst::isMaster)
      .def_property_readonly("is_slave", &TrafficLInst::isSlave)
      .def_property_readonly("is_error_slave", &TrafficLInst::isErrorSlave)
      .def_property_readonly("external_conns", &TrafficLInst::getExternalConnsForAllPorts)
      .def_property("design_name", &TrafficLInst::getDesignName, setter("design_name", &TrafficLInst::setDesignName))
      .def_property("read_traffic_class", &TrafficLInst::getReadTC,
                    setter("read_traffic_class", &TrafficLInst::setReadTC))
      .def_property("write_traffic_class", &TrafficLInst::getWriteTC,
                    setter("write_traffic_class", &TrafficLInst::setWriteTC))
      .def_property("read_outstanding", &TrafficLInst::getNumReadOutstanding,
                    setter("read_outstanding", &TrafficLInst::setNumReadOutstanding))
      .def_property("write_outstanding", &TrafficLInst::getNumWriteOutstanding,
                    setter("write_outstanding", &TrafficLInst::setNumWriteOutstanding))
      .def_property("read_rate_limiter", &TrafficLInst::getReadRateLimiter,
                    setter("read_rate_limiter", &TrafficLInst::setReadRateLimiter))
      .def_property("write_rate_limiter", &TrafficLInst::getWriteRateLimiter,
                    setter("write_rate_limiter", &TrafficLInst::setWriteRateLimiter))
      .def_property_readonly("remaps",
                             [](TrafficLInst const& instance) {
                               std::vector<std::tuple<uint64_t, uint64_t, uint64_t>> remaps;
                               for (auto const& remap : instance.getRemapAddrSpecs())
                                 remaps.emplace_back(remap.logical, remap.physical, remap.range);
                               return remaps;
                             })
      .def("add_remap", &TrafficLInst::addRemapAddrSpec, py::arg("logical"), py::arg("physical"), py::arg("range"))
      .def_property_readonly("sys_addresses",
                             [](TrafficLInst const& instance) {
                               std::vector<std::pair<uint64_t, uint64_t>> windows;
                               for (int i = 0; instance.hasValidSysAddress(i); ++i)
                                 windows.emplace_back(instance.getSysAddress(i), instance.getSysAddrSize(i));
                               return windows;
                             })
      .def(
          "add_sys_address",
          [](TrafficLInst& instance, uint64_t base, uint64_t size) {
            instance.addSysAddress({base, size});
          },
          py::arg("base"), py::arg("size"))
      .def_property_readonly("memory_params", &TrafficLInst::getMemoryParams)
      .def("add_memory_param", &TrafficLInst::addMemoryParam, py::arg("name"), py::arg("value"))
      .def_property_readonly("config_params", &TrafficLInst::getConfigParams)
      .def("add_config_param", &TrafficLInst::addConfigParam, py::arg("name"), py::arg("value"))
      .def_property("use_dest_id_index", &TrafficLInst::getUseDestIdIdx,
                    setter("use_dest_id_index", &TrafficLInst::setUseDestIdIdx))
      .def_property("parity_addr", &TrafficLInst::hasParityAddr, setter("parity_addr", &TrafficLInst::setHasParityAddr))
      .def_property("parity_data", &TrafficLInst::hasParityData, setter("parity_data", &TrafficLInst::setHasParityData))
      .def_property("axi_width", &TrafficLInst::getAxiWidth, setter("axi_width", &TrafficLInst::setAxiWidth))
      .def_property_readonly("port_types", &TrafficLInst::getPortTypes)
      .def_property("ddr_interleave_size", &TrafficLInst::getDdrInterleaveSize,
                    setter("ddr_interleave_size", &TrafficLInst::setDdrInterleaveSize))
      .def_property("ddr_interleave_sel", &TrafficLInst::getDdrInterleaveSel,
                    setter("ddr_interleave_sel", &TrafficLInst::setDdrInterleaveSel))
      .def_property(
          "dest_id",
          [](TrafficLInst const& instance) { return optionalDestId(instance.isExistDestId(), instance.getDestId()); },
          setter("dest_id",
                 [](TrafficLInst& instance, std::optional<uint16_t> id) {
                   instance.setIsExistDestId(id.has_value());
                   instance.setDestId(DestIdRepr(id.value_or(0)));
                 }))
      .def("__repr__",
           [](TrafficLInst const& instance) { return "<tarvo.TrafficInstance " + instance.getName() + ">"; });
}

void bindPath(py::module_& module) {
  py::class_<TrafficNet>(module, "TrafficNet", "One net of a path: read, write, read request or write response")
      .def_property_readonly("id", &TrafficNet::getId)
      .def_property_readonly("type", &TrafficNet::getType)
      .def_property_readonly("path", [](py::object self) { return owned(self.cast<TrafficNet&>().getPath(), self); })
      .def_property_readonly("perf", &TrafficNet::getPerfSpec);

  py::class_<TrafficPath> path(module, "TrafficPath", "A connection from a master to a slave with its requirements");
  plainMember(path, "phase", &TrafficPath::phase);
  path.def_property_readonly("index", &TrafficPath::getIndex)
      .def_property_readonly("source",
                             [](py::object self) { return owned(self.cast<TrafficPath&>().getMaster(), self); })
      .def_property_readonly("destination",
                             [](py::object self) { return owned(self.cast<TrafficPath&>().getSlave(), self); })
      .def_property_readonly("nets",
                             [](py::object self) {
                               auto const& path = self.cast<TrafficPath const&>();
                               std::vector<TrafficNet const*> nets;
                               for (int i = 0; i < path.getNumNets(); ++i)
                                 nets.push_back(path.getNet(i));
                               return ownedList(nets, self);
                             })
      .def_property("slave_port", &TrafficPath::getSlavePort, setter("slave_port", &TrafficPath::setSlavePort))
      .def_property("write_order", &TrafficPath::getWoc, setter("write_order", &TrafficPath::setWoc))
      .def_property(
          "read", [](TrafficPath const& path) { return path.getReadPerfSpec(); },
          setter("read", [](TrafficPath& path, PerfSpec const& spec) { path.setReadPerfSpec(spec); }))
      .def_property(
          "write", [](TrafficPath const& path) { return path.getWritePerfSpec(); },
          setter("write", [](TrafficPath& path, PerfSpec const& spec) { path.setWritePerfSpec(spec); }))
      .def(
          "read_in_phase",
          [](TrafficPath const& path, std::string const& phase) { return path.getReadPerfSpec(phase); },
          py::arg("phase"), "The read requirement in a named phase, or the default for a phase the path does not name")
      .def(
          "write_in_phase",
          [](TrafficPath const& path, std::string const& phase) { return path.getWritePerfSpec(phase); },
          py::arg("phase"))
      .def(
          "set_read_in_phase",
          [](TrafficPath& path, std::string const& group, std::string const& phase, PerfSpec const& spec) {
            path.setReadPerfSpec(group, phase, spec);
          },
          py::arg("group"), py::arg("phase"), py::arg("perf"))
      .def(
          "set_write_in_phase",
          [](TrafficPath& path, std::string const& group, std::string const& phase, PerfSpec const& spec) {
            path.setWritePerfSpec(group, phase, spec);
          },
          py::arg("group"), py::arg("phase"), py::arg("perf"))
      .def_property_readonly("has_read_phases", &TrafficPath::hasMultipleReadPhases)
      .def_property_readonly("has_write_phases", &TrafficPath::hasMultipleWritePhases)
      .def_property(
          "read_avg_burst", [](TrafficPath const& path) { return path.getReadAvgBurst(); },
          setter("read_avg_burst", [](TrafficPath& path, uint16_t burst) { path.setReadAvgBurst(burst); }))
      .def_property(
          "write_avg_burst", [](TrafficPath const& path) { return path.getWriteAvgBurst(); },
          setter("write_avg_burst", [](TrafficPath& path, uint16_t burst) { path.setWriteAvgBurst(burst); }))
      .def_property("exclusive_group", &TrafficPath::getExclusiveGroup,
                    setter("exclusive_group", &TrafficPath::setExclusiveGroup))
      .def_property("separate_routing_group", &TrafficPath::getSeparateRoutingGroup,
                    setter("separate_routing_group", &TrafficPath::setSeparateRoutingGroup))
      .def_property(
          "dest_id_index",
          [](TrafficPath const& path) { return optionalDestId(path.isExistDestIdIndex(), path.getDestIdIndex()); },
          setter("dest_id_index",
                 [](TrafficPath& path, std::optional<uint16_t> index) {
                   path.setIsExistDestIdIndex(index.has_value());
                   path.setDestIdIndex(DestIdRepr(index.value_or(0)));
                 }))
      .def_property_readonly("dest_id_ranges",
                             [](TrafficPath const& path) {
                               std::vector<std::pair<int, int>> ranges;
                               for (int i = 0; path.hasValidDestIdIdx(i); ++i)
                                 ranges.emplace_back(path.getDestIdIdxStart(i), path.getDestIdIdxEnd(i));
                               return ranges;
                             })
      .def(
          "add_dest_id_range",
          [](TrafficPath& path, uint8_t start, uint8_t end) {
            path.addDestIdIdx({start, end});
          },
          py::arg("start"), py::arg("end"))
      .def_property("initial_boot", &TrafficPath::isInitialBoot, setter("initial_boot", &TrafficPath::setIsInitialBoot))
      .def_property("high_priority_routing", &TrafficPath::getHighPriorityRouting,
                    setter("high_priority_routing", &TrafficPath::setHighPriorityRouting))
      .def("__repr__", [](TrafficPath const& path) {
        return "<tarvo.TrafficPath " + path.getMaster()->getName() + " -> " + path.getSlave()->getName() + ">";
      });
}

// An instance of another specification, or none, would leave this one pointing at memory it
// does not own.
void requireOwnInstance(TrafficSpec const& spec, TrafficLInst const* instance, char const* function,
                        char const* parameter) {
  if (instance == nullptr)
    throw py::type_error(std::string(function) + "(): " + parameter + " must be a TrafficInstance, not None");
  auto const& own = spec.getAllLogicalInstance();
  if (instance->getId() >= own.size() || own[instance->getId()] != instance)
    throw py::value_error(std::string(function) + "(): " + instance->getName() +
                          " is not an instance of this specification");
}

void bindSpec(py::module_& module) {
  py::class_<TrafficSpec>(module, "TrafficSpec", "A NoC traffic specification")
      .def(py::init<>())
      .def_property_readonly(
          "instances",
          [](py::object self) { return ownedList(self.cast<TrafficSpec const&>().getAllLogicalInstance(), self); })
      .def_property_readonly("paths",
                             [](py::object self) {
                               auto& spec = self.cast<TrafficSpec&>();
                               std::vector<TrafficPath*> paths;
                               for (int i = 0; i < spec.getNumPaths(); ++i)
                                 paths.push_back(spec.getPath(i));
                               return ownedList(paths, self);
                             })
      .def(
          "instance",
          [](py::object self, std::string const& name) {
            auto const& spec = self.cast<TrafficSpec const&>();
            TrafficLInst const* found = spec.hasLogicalMaster(name);
            if (found == nullptr) found = spec.hasLogicalSlave(name);
            if (found == nullptr) found = spec.getTQLogicalInst(name);
            return owned(found, self);
          },
          py::arg("name"), "The master, slave or array instance of that name, or None")
      .def(
          "add_instance",
          [](py::object self, std::string const& name, Defs::AxiProt protocol, Defs::COMP_TYPE compType,
             TrafficLInst::ExternalConns const& externalConns) {
            return owned(self.cast<TrafficSpec&>().addLogicalInstance(name, protocol, compType, externalConns), self);
          },
          py::arg("name"), py::arg("protocol"), py::arg("comp_type"),
          py::arg("external_conns") = TrafficLInst::ExternalConns())
      .def(
          "add_path",
          [](py::object self, TrafficLInst* source, TrafficLInst* destination) {
            auto& spec = self.cast<TrafficSpec&>();
            requireOwnInstance(spec, source, "add_path", "source");
            requireOwnInstance(spec, destination, "add_path", "destination");
            return owned(spec.addPath(source, destination), self);
          },
          py::arg("source"), py::arg("destination"))
      .def(
          "add_port_type",
          [](TrafficSpec& spec, TrafficLInst* instance, Defs::PORT_TYPE port) {
            requireOwnInstance(spec, instance, "add_port_type", "instance");
            spec.addPortTypeForMC(instance, port);
          },
          py::arg("instance"), py::arg("port"), "Records a port of a memory controller")
      .def_property("frequency", &TrafficSpec::getFrequency,
                    setter("frequency", [](TrafficSpec& spec, int frequency) { spec.setFrequency(frequency, true); }),
                    "The frequency; setting it marks it as the user's")
      .def_property_readonly("user_set_frequency", &TrafficSpec::isUserSetFrequency)
      .def_property("secure_mode", &TrafficSpec::getSecureMode, setter("secure_mode", &TrafficSpec::setSecureMode))
      .def_property("device_name", &TrafficSpec::getDeviceName, setter("device_name", &TrafficSpec::setDeviceName))
      .def_property_readonly("rcf_paths", &TrafficSpec::getRcfPaths)
      .def("add_rcf_path", &TrafficSpec::addRcfPath, py::arg("path"))
      .def_property_readonly("phase_groups",
                             [](TrafficSpec const& spec) {
                               std::map<std::string, std::set<std::string>> groups;
                               for (std::string const& group : spec.getAllPhaseGroups())
                                 groups[group] = spec.getAllPhasesForPhaseGroup(group);
                               return groups;
                             })
      .def("__repr__", [](TrafficSpec const& spec) {
        return "<tarvo.TrafficSpec " + std::to_string(spec.getAllLogicalInstance().size()) + " instances, " +
               std::to_string(spec.getNumPaths()) + " paths>";
      });
}

}  // namespace

void bindTraffic(py::module_& module) {
  bindEnums(module);
  bindPerfSpec(module);
  bindInstance(module);
  bindPath(module);
  bindSpec(module);
}

}  // namespace tarvo_python
