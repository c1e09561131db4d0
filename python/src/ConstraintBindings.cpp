#include <pybind11/stl.h>

#include "Bindings.h"
#include "ConstraintStore.h"
#include "DocumentFailure.h"
#include "PhysicalRange.h"
#include "PhysicalSpec.h"

namespace py = pybind11;

namespace tarvo_python {

using kpe::constraints::Address;
using kpe::constraints::BaseConstraint;
using kpe::constraints::ConstrHandler;
using kpe::constraints::PhysicalRange;
using kpe::constraints::PhysicalSpec;

kpe::constraints::BaseConstraint& ConstraintRef::get() const {
  if (m_store->generation() != m_generation)
    throw py::value_error("the constraint is no longer in its store: constraints were cleared or unloaded since");
  return *m_constraint;
}

namespace {

using Store = std::shared_ptr<ConstraintStore>;
using ObjectType = BaseConstraint::ObjectType;
using NameList = ConstrHandler::NameList;
using JsonValue = HCRapidJsonReadWriteUtils::Value;

py::object toPython(JsonValue const& value) {
  if (value.IsObject()) {
    py::dict dict;
    for (auto member = value.MemberBegin(); member != value.MemberEnd(); ++member)
      dict[py::str(member->name.GetString(), member->name.GetStringLength())] = toPython(member->value);
    return dict;
  }
  if (value.IsArray()) {
    py::list list;
    for (auto const& item : value.GetArray())
      list.append(toPython(item));
    return list;
  }
  if (value.IsString()) return py::str(value.GetString(), value.GetStringLength());
  if (value.IsBool()) return py::bool_(value.GetBool());
  if (value.IsInt64()) return py::int_(value.GetInt64());
  if (value.IsUint64()) return py::int_(value.GetUint64());
  if (value.IsNumber()) return py::float_(value.GetDouble());
  return py::none();
}

// The constraint's values as the constraint document holds them under its object.
py::dict fieldsOf(BaseConstraint const& constraint) {
  HCRapidJsonReadWriteUtils::Document document;
  JsonValue value(rapidjson::kObjectType);
  DocumentFailure::guard("", [&] { constraint.write(document, value, nullptr); });
  return toPython(value).cast<py::dict>();
}

py::list refs(Store const& store, std::vector<BaseConstraint*> const& constraints) {
  py::list list;
  for (BaseConstraint* constraint : constraints)
    list.append(ConstraintRef(store, constraint));
  return list;
}

PhysicalSpec place(PhysicalSpec::PhysicalType type, int column, int row) {
  PhysicalSpec spec(type);
  spec.setXY(column, row);
  return spec;
}

void bindValues(py::module_& module) {
  py::enum_<ObjectType>(module, "ObjectType")
      .value("NODE", BaseConstraint::NODE)
      .value("PORT", BaseConstraint::PORT)
      .value("NET", BaseConstraint::NET)
      .value("GLOBAL", BaseConstraint::GLOBAL);
  py::enum_<PhysicalSpec::PhysicalType>(module, "TileType")
      .value("TILE", PhysicalSpec::TILE)
      .value("SHIM", PhysicalSpec::SHIM)
      .value("MEM", PhysicalSpec::MEM)
      .value("UNKNOWN", PhysicalSpec::UNKNOWN_TILE_TYPE);

  py::class_<Address>(module, "Address", "A place in memory; parts left out stay unset")
      .def(py::init([](std::optional<int> column, std::optional<int> row, std::optional<int> bankId,
                       std::optional<int> offset) {
             Address address;
             if (column) address.setColumn(*column);
             if (row) address.setRow(*row);
             if (bankId) address.setBankId(*bankId);
             if (offset) address.setOffset(*offset);
             return address;
           }),
           py::kw_only(), py::arg("column") = py::none(), py::arg("row") = py::none(), py::arg("bank_id") = py::none(),
           py::arg("offset") = py::none())
      .def_property_readonly(
          "column", [](Address const& a) { return a.hasColumn() ? std::optional<int>(a.getColumn()) : std::nullopt; })
      .def_property_readonly(
          "row", [](Address const& a) { return a.hasRow() ? std::optional<int>(a.getRow()) : std::nullopt; })
      .def_property_readonly(
          "bank_id", [](Address const& a) { return a.hasBankId() ? std::optional<int>(a.getBankId()) : std::nullopt; })
      .def_property_readonly(
          "offset", [](Address const& a) { return a.hasOffset() ? std::optional<int>(a.getOffset()) : std::nullopt; })
      .def("__repr__", [](Address const& a) { return "<tarvo.Address " + a.str() + ">"; });
}

void bindConstraint(py::module_& module) {
  py::class_<ConstraintRef>(module, "Constraint", "One constraint of a store")
      .def_property_readonly(
          "kind", [](ConstraintRef const& ref) { return BaseConstraint::getConstrTypeAsStr(ref.get().getType()); })
      .def_property_readonly("name", [](ConstraintRef const& ref) { return ref.get().getConstrName(); })
      .def_property_readonly("object_name", [](ConstraintRef const& ref) { return ref.get().getObjName(); })
      .def_property_readonly("object_type", [](ConstraintRef const& ref) { return ref.get().getObjType(); })
      .def_property_readonly(
          "fields", [](ConstraintRef const& ref) { return fieldsOf(ref.get()); },
          "The values as the constraint document holds them, such as {'tile': {...}}")
      .def_property_readonly(
          "source",
          [](ConstraintRef const& ref) -> py::object {
            auto const& info = ref.get().getSrcInfo();
            if (info.kind == kpe::constraints::SrcInfo::NONE) return py::none();
            return py::make_tuple(info.file, info.line, info.column);
          },
          "(file, line, column) where the constraint was written, or None")
      .def("__str__", [](ConstraintRef const& ref) { return ref.get().str(); })
      .def("__repr__", [](ConstraintRef const& ref) {
        BaseConstraint const& constraint = ref.get();
        return "<tarvo.Constraint " + BaseConstraint::getConstrTypeAsStr(constraint.getType()) + " " +
               constraint.getObjName() + ">";
      });
}

void bindStore(py::module_& module) {
  py::class_<ConstraintStore, Store>(module, "ConstraintStore", "KPE constraints: the store of a constraint file")
      .def(py::init<>())
      .def("__len__", [](Store const& store) { return store->handler().size(); })
      .def("__iter__", [](Store const& store) { return py::iter(refs(store, store->handler().getConstrs())); })
      .def(
          "constraints",
          [](Store const& store, std::string const& objectName) {
            ConstrHandler::ConstrList found;
            store->handler().getConstrs(objectName, found);
            return refs(store, found);
          },
          py::arg("object_name"), "The constraints on one object (or the groups of that name)")
      .def(
          "unload",
          [](Store const& store, ConstraintRef const& ref) {
            BaseConstraint& constraint = ref.get();
            store->startGeneration();
            store->handler().unload(&constraint);
          },
          py::arg("constraint"))
      .def("clear",
           [](Store const& store) {
             store->startGeneration();
             store->handler().clear();
           })
      .def(
          "set_tile",
          [](Store const& s, std::string const& obj, int column, int row, PhysicalSpec::PhysicalType type) {
            s->handler().setTileConstr(obj, column, row, type);
          },
          py::arg("object_name"), py::arg("column"), py::arg("row"), py::arg("tile_type") = PhysicalSpec::TILE)
      .def(
          "set_tile_name",
          [](Store const& s, std::string const& obj, std::string const& tile) {
            s->handler().setTileConstr(obj, tile);
          },
          py::arg("object_name"), py::arg("tile"))
      .def(
          "set_shim",
          [](Store const& s, std::string const& obj, int column, int channel) {
            s->handler().setShimConstr(obj, column, channel);
          },
          py::arg("object_name"), py::arg("column"), py::arg("channel"))
      .def(
          "set_mem",
          [](Store const& s, std::string const& obj, Address const& ping, Address const& pong) {
            s->handler().setMemConstr(obj, ping, pong);
          },
          py::arg("object_name"), py::arg("ping"), py::arg("pong") = Address())
      .def(
          "set_buffer",
          [](Store const& s, std::string const& obj, Address const& ping, Address const& pong, Address const& rtp) {
            s->handler().setBufferConstr(obj, ping, pong, rtp);
          },
          py::arg("object_name"), py::arg("ping"), py::arg("pong") = Address(), py::arg("rtp_selector") = Address())
      .def(
          "set_reserved_memory",
          [](Store const& s, std::string const& obj, Address const& address) {
            s->handler().setReservedMemoryConstr(obj, address);
          },
          py::arg("object_name"), py::arg("address"))
      .def(
          "set_port_loc",
          [](Store const& s, std::string const& obj, PhysicalSpec::PhysicalType type, int column, int row,
             int channel) { s->handler().setPortLocConstr(obj, type, column, row, channel); },
          py::arg("object_name"), py::arg("tile_type"), py::arg("column"), py::arg("row"), py::arg("channel"))
      .def(
          "set_stream_channel",
          [](Store const& s, std::string const& obj, int offset, int channel, std::string const& direction) {
            s->handler().setStreamChannelConstr(obj, offset, channel, direction);
          },
          py::arg("object_name"), py::arg("offset"), py::arg("channel"), py::arg("direction"))
      .def(
          "set_attr",
          [](Store const& s, ObjectType type, std::string const& obj, std::string const& attr, py::handle value) {
            // bool before int: a Python bool is an int too.
            if (py::isinstance<py::bool_>(value))
              s->handler().setAttrConstr(type, obj, attr, value.cast<bool>());
            else if (py::isinstance<py::int_>(value))
              s->handler().setAttrConstr(type, obj, attr, value.cast<int>());
            else if (py::isinstance<py::float_>(value))
              s->handler().setAttrConstr(type, obj, attr, value.cast<double>());
            else if (py::isinstance<py::str>(value))
              s->handler().setAttrConstr(type, obj, attr, value.cast<std::string>());
            else
              throw py::type_error("set_attr(): value must be bool, int, float or str, not " +
                                   std::string(py::str(value.get_type().attr("__name__"))));
          },
          py::arg("object_type"), py::arg("object_name"), py::arg("attr"), py::arg("value"))
      .def(
          "set_colocated_nodes",
          [](Store const& s, std::string const& obj, NameList const& names, bool notColocated) {
            s->handler().setColocatedNodesConstr(BaseConstraint::NODE, obj, names, notColocated);
          },
          py::arg("object_name"), py::arg("names"), py::arg("not_colocated") = false)
      .def(
          "set_relative_nodes",
          [](Store const& s, std::string const& obj, std::map<std::string, std::pair<int, int>> const& offsets) {
            ConstrHandler::OffsetMap nodes;
            for (auto const& entry : offsets)
              nodes.emplace(entry.first, HDPoint<int>(entry.second.first, entry.second.second));
            s->handler().setRelativeNodesConstr(BaseConstraint::NODE, obj, nodes);
          },
          py::arg("object_name"), py::arg("offsets"))
      .def(
          "set_colocated_ports",
          [](Store const& s, std::string const& obj, NameList const& names, bool notColocated) {
            s->handler().setColocatedPortsConstr(BaseConstraint::PORT, obj, names, notColocated);
          },
          py::arg("object_name"), py::arg("names"), py::arg("not_colocated") = false)
      .def(
          "set_exclusive_colocated_ports",
          [](Store const& s, std::string const& obj, NameList const& names) {
            s->handler().setExclusiveColocatedPortsConstr(BaseConstraint::PORT, obj, names);
          },
          py::arg("object_name"), py::arg("names"))
      .def(
          "set_colocated_memories",
          [](Store const& s, std::string const& obj, NameList const& names, bool notColocated) {
            s->handler().setColocatedMemoriesConstr(BaseConstraint::NODE, obj, names, notColocated);
          },
          py::arg("object_name"), py::arg("names"), py::arg("not_colocated") = false)
      .def(
          "set_fifo_locations",
          [](Store const& s, std::string const& obj, NameList const& records) {
            s->handler().setFifoLocationsConstr(BaseConstraint::PORT, obj, records);
          },
          py::arg("object_name"), py::arg("records"))
      .def(
          "add_dma_fifo_record",
          [](Store const& s, std::string const& name, PhysicalSpec::PhysicalType type, int column, int row, int size,
             int offset, int bankId) { s->handler().addDmaFifoRecord(name, type, column, row, size, offset, bankId); },
          py::arg("name"), py::arg("tile_type"), py::arg("column"), py::arg("row"), py::arg("size"), py::arg("offset"),
          py::arg("bank_id"))
      .def(
          "add_stream_fifo_record",
          [](Store const& s, std::string const& name, PhysicalSpec::PhysicalType type, int column, int row,
             int channel) { s->handler().addStreamFifoRecord(name, type, column, row, channel); },
          py::arg("name"), py::arg("tile_type"), py::arg("column"), py::arg("row"), py::arg("channel"))
      .def(
          "set_area_group",
          [](Store const& s, std::string const& name, NameList const& nodes,
             std::vector<std::tuple<PhysicalSpec::PhysicalType, int, int, int, int>> const& ranges, bool exclude,
             bool soft, bool containRouting, bool exclusiveRouting, bool exclusivePlacement) {
            std::vector<PhysicalRange> physical;
            for (auto const& r : ranges)
              physical.emplace_back(place(std::get<0>(r), std::get<1>(r), std::get<2>(r)),
                                    place(std::get<0>(r), std::get<3>(r), std::get<4>(r)));
            s->handler().setAreaGroupConstr(name, nodes, physical, exclude, soft, containRouting, exclusiveRouting,
                                            exclusivePlacement);
          },
          py::arg("name"), py::arg("nodes"), py::arg("ranges"), py::kw_only(), py::arg("exclude") = false,
          py::arg("soft") = false, py::arg("contain_routing") = false, py::arg("exclusive_routing") = false,
          py::arg("exclusive_placement") = false,
          "ranges: (tile_type, low_column, low_row, high_column, high_row) for each rectangle")
      .def(
          "set_inst_group",
          [](Store const& s, std::string const& name, NameList const& nodes, bool isomorphic) {
            s->handler().setInstGroupConstr(name, nodes, isomorphic);
          },
          py::arg("name"), py::arg("nodes"), py::arg("isomorphic") = false)
      .def(
          "set_dependent_routing_group",
          [](Store const& s, std::string const& name, NameList const& nodes) {
            s->handler().setDependentRoutingGroupConstr(name, nodes);
          },
          py::arg("name"), py::arg("nodes"))
      .def(
          "set_isomorphic_graph_group",
          [](Store const& s, std::string const& name, std::string const& reference, NameList const& stamped) {
            s->handler().setIsomorphicGraphGroupConstr(name, reference, stamped);
          },
          py::arg("name"), py::arg("reference_graph"), py::arg("stamped_graphs"))
      .def("__repr__", [](Store const& store) {
        return "<tarvo.ConstraintStore " + std::to_string(store->handler().size()) + " constraints>";
      });
}

}  // namespace

void bindConstraints(py::module_& module) {
  bindValues(module);
  bindConstraint(module);
  bindStore(module);
}

}  // namespace tarvo_python
