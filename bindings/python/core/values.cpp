#include "values.hpp"

#include <array>
#include <cstddef>
#include <string>

namespace co2_properties::python {
namespace {

Values& values_of(PyObject* const self) noexcept { return *reinterpret_cast<Values*>(self); }

bool has(const Values& values, const std::size_t k) noexcept {
  return (values.here >> k & 1U) != 0;
}

PyObject* get_quantity(PyObject* const self, void* const quantity) {
  const Values& values = values_of(self);
  const auto k = static_cast<std::size_t>(static_cast<const Quantity*>(quantity) - quantities);
  if (!has(values, k)) {
    return PyErr_Format(PyExc_AttributeError, "%s was not asked for: name it in outputs",
                        quantities[k].name);
  }
  return values.boxed ? Py_NewRef(values.slots[k].object)
                      : PyFloat_FromDouble(values.slots[k].number);
}

PyObject* get_ierr(PyObject* const self, void* /*closure*/) {
  const Values& values = values_of(self);
  return values.ierr != nullptr ? Py_NewRef(values.ierr) : PyLong_FromLong(values.code);
}

PyObject* get_names(PyObject* const self, void* /*closure*/) {
  return Py_NewRef(values_of(self).names);
}

/// Values(values, ierr): from a dictionary by name, whose values are kept as they are.
PyObject* make(PyTypeObject* const type, PyObject* const arguments, PyObject* /*keywords*/) {
  PyObject* by_name = nullptr;
  PyObject* ierr = nullptr;
  if (PyArg_ParseTuple(arguments, "O!O", &PyDict_Type, &by_name, &ierr) == 0) return nullptr;
  const Ref names(PySequence_Tuple(by_name));
  if (!names) return nullptr;
  Ref made(reinterpret_cast<PyObject*>(new_values(type, names.get())));
  if (!made) return nullptr;
  Values& values = values_of(made.get());
  values.boxed = true;
  values.ierr = Py_NewRef(ierr);
  PyObject* name = nullptr;
  PyObject* value = nullptr;
  for (Py_ssize_t at = 0; PyDict_Next(by_name, &at, &name, &value) != 0;) {
    const std::size_t k = quantity_index(name);
    if (k == quantity_count) return PyErr_Format(PyExc_KeyError, "%S", name);
    values.slots[k].object = Py_NewRef(value);
    values.here |= std::uint64_t{1} << k;
  }
  return made.release();
}

void destroy(PyObject* const self) {
  Values& values = values_of(self);
  if (values.boxed) {
    for (std::size_t k = 0; k < quantity_count; ++k) {
      if (has(values, k)) Py_DECREF(values.slots[k].object);
    }
  }
  Py_XDECREF(values.names);
  Py_XDECREF(values.ierr);
  PyTypeObject* const type = Py_TYPE(self);
  reinterpret_cast<freefunc>(PyType_GetSlot(type, Py_tp_free))(self);
  Py_DECREF(type);
}

/// The attributes: every quantity with its meaning and unit as its documentation.
PyGetSetDef* attributes() {
  static const auto texts = [] {
    std::array<std::string, quantity_count> made;
    for (std::size_t k = 0; k < quantity_count; ++k) {
      made[k] = quantities[k].meaning;
      if (quantities[k].unit != std::string("-")) made[k] += std::string(", ") + quantities[k].unit;
    }
    return made;
  }();
  static auto list = [] {
    std::array<PyGetSetDef, quantity_count + 3> made{};
    for (std::size_t k = 0; k < quantity_count; ++k) {
      made[k] = {quantities[k].name, get_quantity, nullptr, texts[k].c_str(),
                 const_cast<Quantity*>(&quantities[k])};
    }
    made[quantity_count] = {"ierr", get_ierr, nullptr,
                            "status: 0, below 0 a warning, above 0 an error", nullptr};
    made[quantity_count + 1] = {"_names", get_names, nullptr, nullptr, nullptr};
    return made;
  }();
  return list.data();
}

}  // namespace

Values* new_values(PyTypeObject* const type, PyObject* const names) {
  auto* const values = reinterpret_cast<Values*>(PyType_GenericAlloc(type, 0));
  if (values != nullptr) values->names = Py_NewRef(names);
  return values;
}

std::size_t quantity_index(PyObject* const name) {
  std::size_t k = quantity_count;
  if (PyUnicode_Check(name) == 0) return k;
  for (k = 0; k < quantity_count; ++k) {
    if (PyUnicode_CompareWithASCIIString(name, quantities[k].name) == 0) break;
  }
  return k;
}

PyObject* make_values_type(PyObject* const module) {
  PyType_Slot slots[] = {{Py_tp_new, reinterpret_cast<void*>(make)},
                         {Py_tp_dealloc, reinterpret_cast<void*>(destroy)},
                         {Py_tp_getset, attributes()},
                         {0, nullptr}};
  PyType_Spec spec = {"co2_properties._core.Values", sizeof(Values), 0,
                      Py_TPFLAGS_DEFAULT | Py_TPFLAGS_BASETYPE, slots};
  return PyType_FromModuleAndSpec(module, &spec, nullptr);
}

}  // namespace co2_properties::python
