#include <pybind11/stl.h>

#include <climits>

#include "Bindings.h"
#include "KPEPrjMetaDataModel.h"
#include "PropertySetter.h"

namespace py = pybind11;

namespace tarvo_python {

namespace {

using Tarvo::Frameworks::KPEPrjMetaDataModel;

py::object toPython(boost::any const& value) {
  if (auto const* b = boost::any_cast<bool>(&value)) return py::bool_(*b);
  if (auto const* i = boost::any_cast<int>(&value)) return py::int_(*i);
  if (auto const* u = boost::any_cast<unsigned long long>(&value)) return py::int_(*u);
  if (auto const* d = boost::any_cast<double>(&value)) return py::float_(*d);
  if (auto const* s = boost::any_cast<std::string>(&value)) return py::str(*s);
  return py::cast(boost::any_cast<std::vector<std::string>>(value));
}

// The property's type follows the Python value: bool, int (an integer property while it fits
// one, unsigned long above that), float, str, or a list of str.
void assign(KPEPrjMetaDataModel& model, std::string const& name, py::handle value) {
  if (py::isinstance<py::bool_>(value)) return model.addBooleanProperty(name, value.cast<bool>());
  if (py::isinstance<py::int_>(value)) {
    py::int_ const number = py::reinterpret_borrow<py::int_>(value);
    if (number >= py::int_(INT_MIN) && number <= py::int_(INT_MAX))
      return model.addIntegrProperty(name, value.cast<int>());
    if (number >= py::int_(0) && number <= py::int_(ULLONG_MAX))
      return model.addULongProperty(name, value.cast<unsigned long long>());
    throw py::value_error("value of '" + name +
                          "' does not fit a metadata number: " + py::str(value).cast<std::string>());
  }
  if (py::isinstance<py::float_>(value)) return model.addDoubleProperty(name, value.cast<double>());
  if (py::isinstance<py::str>(value)) return model.addStringProperty(name, value.cast<std::string>());
  if (py::isinstance<py::list>(value) || py::isinstance<py::tuple>(value)) {
    std::vector<std::string> items;
    for (py::handle item : value) {
      if (!py::isinstance<py::str>(item))
        throw py::type_error("value of '" + name + "' must be a list of str, not one holding " +
                             std::string(py::str(item.get_type().attr("__name__"))));
      items.push_back(item.cast<std::string>());
    }
    return model.addStringArrayProperty(name, items);
  }
  throw py::type_error("value of '" + name + "' must be bool, int, float, str or a list of str, not " +
                       std::string(py::str(value.get_type().attr("__name__"))));
}

boost::any const& lookUp(KPEPrjMetaDataModel const& model, std::string const& name) {
  auto const found = model.getProperties().find(name);
  if (found == model.getProperties().end()) throw py::key_error(name);
  return found->second;
}

}  // namespace

void bindMetadata(py::module_& module) {
  py::class_<KPEPrjMetaDataModel>(module, "Metadata", "Project metadata: a mapping of typed properties")
      .def(py::init<>())
      .def(
          "__getitem__",
          [](KPEPrjMetaDataModel const& model, std::string const& name) { return toPython(lookUp(model, name)); },
          py::arg("name"))
      .def("__setitem__", &assign, py::arg("name"), py::arg("value"))
      .def(
          "__delitem__",
          [](KPEPrjMetaDataModel& model, std::string const& name) {
            lookUp(model, name);
            model.removeProperty(name);
          },
          py::arg("name"))
      .def("__contains__",
           [](KPEPrjMetaDataModel const& model, py::handle name) {
             return py::isinstance<py::str>(name) && model.getProperties().count(name.cast<std::string>()) != 0;
           })
      .def("__len__", [](KPEPrjMetaDataModel const& model) { return model.getProperties().size(); })
      .def("__iter__",
           [](KPEPrjMetaDataModel const& model) {
             // Names are copied so that changing the mapping while iterating cannot break the loop.
             py::list names;
             for (auto const& property : model.getProperties())
               names.append(property.first);
             return py::iter(names);
           })
      .def("keys",
           [](KPEPrjMetaDataModel const& model) {
             std::vector<std::string> names;
             for (auto const& property : model.getProperties())
               names.push_back(property.first);
             return names;
           })
      .def("items",
           [](KPEPrjMetaDataModel const& model) {
             py::list items;
             for (auto const& property : model.getProperties())
               items.append(py::make_tuple(property.first, toPython(property.second)));
             return items;
           })
      .def(
          "get",
          [](KPEPrjMetaDataModel const& model, std::string const& name, py::object fallback) {
            auto const found = model.getProperties().find(name);
            return found == model.getProperties().end() ? fallback : toPython(found->second);
          },
          py::arg("name"), py::arg("default") = py::none())
      .def("clear", &KPEPrjMetaDataModel::clear)
      .def_property("pl_interface_id", &KPEPrjMetaDataModel::getKPEPLIntfID,
                    setter("pl_interface_id", &KPEPrjMetaDataModel::setKPEPLIntfID))
      .def("__repr__", [](KPEPrjMetaDataModel const& model) {
        return "<tarvo.Metadata " + std::to_string(model.getProperties().size()) + " properties>";
      });
}

}  // namespace tarvo_python
