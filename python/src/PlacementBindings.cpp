#include <pybind11/operators.h>
#include <pybind11/stl.h>

#include "Bindings.h"
#include "CompRes.h"
#include "Component.h"
#include "Constraints.h"
#include "GRMBel.h"
#include "KPEShimInterfaceSolution.h"
#include "Link.h"
#include "OwnedRefs.h"
#include "PropertySetter.h"
#include "TrafficSpec.h"

namespace py = pybind11;

namespace tarvo_python {

namespace {

using DevHrdIP::Component;
using DevHrdIP::Link;
using HrdIPToolCntr::CompRes;
using HrdIPToolCntr::Constraints;
using HrdIPToolCntr::Route;
using HrdIPToolCntr::TrafficLInst;
using HrdIPToolCntr::TrafficNet;
using HrdIPToolCntr::TrafficPath;

py::object achieved(CompRes::AchievedValues const* values) {
  if (values == nullptr) return py::none();
  return py::make_tuple(values->latency, values->bandwidth);
}

void bindDevice(py::module_& module) {
  py::class_<Component>(module, "Component", "A NoC block of the device, or a port of one")
      .def_property_readonly("name", &Component::getName)
      .def_property_readonly("comp_type", &Component::getCompType)
      .def_property_readonly("role", &Component::getRole)
      .def_property_readonly("parent", [](py::object self) { return owned(self.cast<Component&>().getParent(), self); })
      .def_property_readonly("ports",
                             [](py::object self) { return ownedList(self.cast<Component&>().getPorts(), self); })
      .def("__repr__", [](Component const& component) { return "<tarvo.Component " + component.getName() + ">"; });
  py::class_<Link>(module, "Link", "A link of the device from one component's port to another's")
      .def_property_readonly("source",
                             [](py::object self) { return owned(self.cast<Link&>().getSrcComponent(), self); })
      .def_property_readonly("source_port", &Link::getSrcPortName)
      .def_property_readonly("destination",
                             [](py::object self) { return owned(self.cast<Link&>().getDstComponent(), self); })
      .def_property_readonly("destination_port", &Link::getDstPortName)
      .def_property_readonly("latency", &Link::getLatency)
      .def("__repr__", [](Link const& link) {
        return "<tarvo.Link " + link.getSrcComponent()->getName() + "." + link.getSrcPortName() + " -> " +
               link.getDstComponent()->getName() + "." + link.getDstPortName() + ">";
      });
  py::class_<GRMBel>(module, "Site", "A site of the device's KPE shim row")
      .def_property_readonly("name", &GRMBel::getHierarchicalName1)
      .def_property_readonly("column", &GRMBel::getDeviceColumn)
      .def(py::self == py::self)
      .def("__hash__",
           [](GRMBel const& site) {
             return std::hash<std::uint64_t>()((std::uint64_t(site.getWord1()) << 32) | site.getWord0());
           })
      .def("__repr__", [](GRMBel const& site) { return "<tarvo.Site " + site.getHierarchicalName1() + ">"; });
}

void bindSolution(py::module_& module) {
  py::enum_<CompRes::SolutionState>(module, "SolutionState")
      .value("NO_SOLUTION", CompRes::NO_SOLUTION)
      .value("OPTIMAL", CompRes::OPTIMAL)
      .value("SUBOPTIMAL", CompRes::SUBOPTIMAL)
      .value("DEADLOCKS", CompRes::DEADLOCKS);
  py::class_<Route>(module, "Route", "The links a net takes through the NoC")
      .def_property_readonly("links", [](py::object self) { return ownedList(self.cast<Route&>().getLinks(), self); })
      .def_property_readonly("vc", &Route::getVC)
      .def_property_readonly("achieved_bandwidth", &Route::getAchievedBW)
      .def_property_readonly("locked", &Route::isLocked)
      .def("__repr__",
           [](Route const& route) { return "<tarvo.Route " + std::to_string(route.getLinks().size()) + " links>"; });
  py::class_<CompRes>(module, "NocSolution", "What the NoC compiler made of a traffic specification")
      .def_property(
          "state", [](CompRes const& result) { return static_cast<CompRes::SolutionState>(result.getSolutionState()); },
          setter("state", [](CompRes& result, CompRes::SolutionState state) { result.setSolutionState(state); }))
      .def_property_readonly(
          "routes",
          [](py::object self) {
            py::list routes;
            for (auto const& entry : self.cast<CompRes const&>().getRoutes())
              routes.append(py::make_tuple(owned(entry.first, self), owned(&entry.second, self)));
            return routes;
          },
          "(net, route) for each routed net, in the order of the nets")
      .def(
          "route",
          [](py::object self, TrafficNet const* net) { return owned(self.cast<CompRes&>().getRouteForNet(net), self); },
          py::arg("net"), "The route of a net, or None")
      .def("is_locked", &CompRes::isLocked, py::arg("path"))
      .def(
          "read_achieved",
          [](CompRes const& result, TrafficPath const* path) { return achieved(result.getPathReadAchieved(path)); },
          py::arg("path"), "(latency, bandwidth) achieved for reads, or None")
      .def(
          "write_achieved",
          [](CompRes const& result, TrafficPath const* path) { return achieved(result.getPathWriteAchieved(path)); },
          py::arg("path"))
      .def(
          "component_of",
          [](py::object self, TrafficLInst const* instance) {
            return owned(self.cast<CompRes&>().getPhysicalForLogical(instance), self);
          },
          py::arg("instance"), "The component an instance is placed on, or None")
      .def(
          "instance_at",
          [](py::object self, Component const* component) {
            return owned(self.cast<CompRes&>().getLogicalForPhysical(component), self);
          },
          py::arg("component"))
      .def(
          "dest_id",
          [](CompRes const& result, Component const* component) -> py::object {
            if (!result.hasDestIdForComponent(component)) return py::none();
            return py::int_(result.getDestIdForComponent(component).getValue());
          },
          py::arg("component"), "The destination id of a component, or None")
      .def_property_readonly("locked_dest_ids_for_all", &CompRes::hasLockedDestIdsForAllComps)
      .def("__repr__", [](CompRes const& result) {
        return "<tarvo.NocSolution " + std::to_string(result.getRoutes().size()) + " routed nets>";
      });
}

void bindNocPlacement(py::module_& module) {
  py::class_<Constraints>(module, "NocPlacement", "NoC placement constraints: where instances may go")
      .def_property_readonly(
          "placements",
          [](py::object self) {
            auto const& constraints = self.cast<Constraints const&>();
            std::vector<TrafficLInst const*> instances;
            constraints.getAllConstrainedInstances(instances);
            py::list placements;
            for (TrafficLInst const* instance : instances) {
              std::vector<Component const*> components;
              bool soft = false;
              constraints.getPlacementConst(instance, components, soft);
              placements.append(py::make_tuple(owned(instance, self), ownedList(components, self), soft));
            }
            return placements;
          },
          "(instance, [component, ...], soft) for each placed instance")
      .def(
          "dest_id",
          [](Constraints const& constraints, TrafficLInst const* instance) -> py::object {
            HrdIPToolCntr::DestIdRepr id;
            if (!constraints.getDestIdConst(instance, id)) return py::none();
            return py::int_(id.getValue());
          },
          py::arg("instance"), "The destination id an instance must have, or None")
      .def("__repr__", [](Constraints const& constraints) {
        std::vector<TrafficLInst const*> instances;
        constraints.getAllConstrainedInstances(instances);
        return "<tarvo.NocPlacement " + std::to_string(instances.size()) + " placed instances>";
      });
}

std::size_t placedCount(KPEShimInterfaceSolution const& solution) {
  std::vector<TrafficLInst const*> instances;
  solution.getAllPlacedInstances(instances);
  return instances.size();
}

void bindShimSolution(py::module_& module) {
  py::class_<KPEShimInterfaceSolution>(module, "ShimSolution", "Where the KPE compiler put each channel of the shim")
      .def_property_readonly(
          "placements",
          [](py::object self) {
            auto const& solution = self.cast<KPEShimInterfaceSolution const&>();
            std::vector<TrafficLInst const*> instances;
            solution.getAllPlacedInstances(instances);
            py::list placements;
            for (TrafficLInst const* instance : instances)
              placements.append(py::make_tuple(owned(instance, self), solution.getPhysicalForLogical(instance)));
            return placements;
          },
          "(instance, site) for each placed channel")
      .def_property_readonly("locked",
                             [](py::object self) {
                               std::vector<TrafficLInst const*> instances;
                               self.cast<KPEShimInterfaceSolution const&>().getAllLockedInstances(instances);
                               return ownedList(instances, self);
                             })
      .def(
          "site_of",
          [](KPEShimInterfaceSolution const& solution, TrafficLInst const* instance) -> py::object {
            GRMBel const site = solution.getPhysicalForLogical(instance);
            return site.isBad() ? py::object(py::none()) : py::cast(site);
          },
          py::arg("instance"), "The site of a channel, or None")
      .def(
          "instance_at",
          [](py::object self, GRMBel const& site) {
            return owned(self.cast<KPEShimInterfaceSolution&>().getLogicalForPhysical(site), self);
          },
          py::arg("site"))
      .def("__len__", &placedCount)
      .def("__repr__", [](KPEShimInterfaceSolution const& solution) {
        return "<tarvo.ShimSolution " + std::to_string(placedCount(solution)) + " placed channels>";
      });
}

}  // namespace

void bindPlacements(py::module_& module) {
  bindDevice(module);
  bindSolution(module);
  bindNocPlacement(module);
  bindShimSolution(module);
}

}  // namespace tarvo_python
