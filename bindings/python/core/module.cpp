// The module co2_properties._core: what the package does not do in Python.

#include <algorithm>
#include <array>
#include <iterator>
#include <limits>
#include <new>
#include <utility>
#include <vector>

#include "arrays.hpp"
#include "entries.hpp"
#include "python.hpp"
#include "values.hpp"

namespace co2_properties::python {
namespace {

struct ModuleState {
  PyObject* all_outputs;  ///< tuple of their names
};

ModuleState& state_of(PyObject* const module) {
  return *static_cast<ModuleState*>(PyModule_GetState(module));
}

// ---- One state ---------------------------------------------------------------------------------

bool as_double(PyObject* const object, double& number) {
  if (PyFloat_Check(object) != 0) {
    number = PyFloat_AsDouble(object);
    return true;
  }
  if (PyLong_Check(object) == 0 || PyBool_Check(object) != 0) return false;
  number = PyLong_AsDouble(object);
  if (PyErr_Occurred() == nullptr) return true;
  PyErr_Clear();
  return false;
}

/// False if `errors` is nothing known; else `keeps` tells whether zeros stay what they are.
bool read_errors(PyObject* const errors, bool& keeps) {
  const auto is = [&](const char* const mode) {
    return PyUnicode_Check(errors) != 0 && PyUnicode_CompareWithASCIIString(errors, mode) == 0;
  };
  keeps = is("ierr");
  return keeps || errors == Py_None || is("raise") || is("warn") || is("nan");
}

Ref tuple_of_names(PyObject* const names) {
  const bool listed = PyTuple_Check(names) != 0 || PyList_Check(names) != 0;
  return listed ? Ref(PySequence_Tuple(names)) : Ref();
}

/// The names that are asked for, as a tuple; without one for what the caller has to look at.
Ref names_asked_for(PyObject* const module, PyObject* const outputs, PyObject* const derivatives) {
  Ref names =
      outputs == Py_None ? Ref(Py_NewRef(state_of(module).all_outputs)) : tuple_of_names(outputs);
  const Ref more = tuple_of_names(derivatives);
  if (!names || !more || PyTuple_Size(more.get()) == 0) return more ? std::move(names) : Ref();
  return Ref(PySequence_Concat(names.get(), more.get()));
}

/// What is asked of a call for one state.
struct Request {
  PyTypeObject* type;
  std::size_t entry;
  Ref names;
  std::array<std::size_t, quantity_count> quantities;  ///< their indices
  std::size_t count;
  bool keeps_zeros;

  /// False where the caller has to look closer; with an exception set if something failed.
  [[nodiscard]] bool read(PyObject* module, PyObject* const* arguments);
  /// A result with the slots from `start` on pointing into it; null with an exception set.
  [[nodiscard]] Values* result(Slots& slots, std::size_t start) const;
};

/// arguments: type, entry, outputs, derivatives, out, errors.
bool Request::read(PyObject* const module, PyObject* const* const arguments) {
  type = reinterpret_cast<PyTypeObject*>(arguments[0]);
  entry = PyLong_AsSize_t(arguments[1]);
  if (entry >= std::size(entries) || arguments[4] != Py_None ||
      !read_errors(arguments[5], keeps_zeros)) {
    return false;
  }
  names = names_asked_for(module, arguments[2], arguments[3]);
  if (!names) return false;
  count = static_cast<std::size_t>(PyTuple_Size(names.get()));
  if (count > quantity_count) return false;
  const bool all = names.get() == state_of(module).all_outputs;
  std::uint64_t seen = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t k =
        all ? i : quantity_index(PyTuple_GetItem(names.get(), static_cast<Py_ssize_t>(i)));
    if (k == quantity_count || (seen >> k & 1U) != 0) return false;
    seen |= std::uint64_t{1} << k;
    quantities[i] = k;
  }
  return true;
}

Values* Request::result(Slots& slots, const std::size_t start) const {
  Values* const values = new_values(type, names.get());
  if (values == nullptr) return nullptr;
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t k = quantities[i];
    slots[start + k] = &values->slots[k].number;
    values->here |= std::uint64_t{1} << k;
  }
  return values;
}

/// Puts NaN where there is no value; false if the code is one to look at.
bool finish(const Request& request, Values& values) {
  if (request.keeps_zeros) return true;
  for (std::size_t i = 0; i < request.count; ++i) {
    const std::size_t k = request.quantities[i];
    double& number = values.slots[k].number;
    if (number == 0.0 && quantities[k].zero_is_none) {
      number = std::numeric_limits<double>::quiet_NaN();
    }
  }
  return values.code == 0 || (values.code < 0 && values.code % 100 == -1);
}

/// None, for the caller to look closer, unless an exception is set.
PyObject* not_here() {
  if (PyErr_Occurred() != nullptr) return nullptr;
  Py_RETURN_NONE;
}

/// state(type, entry, outputs, derivatives, out, errors, first, second): the state of two numbers
/// as a `type`, or None where there is anything to look at closer.
PyObject* state(PyObject* const module, PyObject* const* const arguments, const Py_ssize_t count) {
  Request request;
  double first = 0.0;
  double second = 0.0;
  if (count != 8 || !as_double(arguments[6], first) || !as_double(arguments[7], second) ||
      !request.read(module, arguments)) {
    return not_here();
  }
  Slots slots{};
  Values* const values = request.result(slots, 0);
  Ref made(reinterpret_cast<PyObject*>(values));
  if (!made) return nullptr;
  entries[request.entry].single(first, second, values->code, slots);
  return finish(request, *values) ? made.release() : not_here();
}

/// saturation(type, entry, outputs, derivatives, out, errors, given): liquid and vapour as a `type`
/// each, latent heat and slope of the line; or None.
PyObject* saturation(PyObject* const module, PyObject* const* const arguments,
                     const Py_ssize_t count) {
  Request request;
  double given = 0.0;
  if (count != 7 || !as_double(arguments[6], given) || !request.read(module, arguments)) {
    return not_here();
  }
  Slots slots{};
  Values* const liq = request.result(slots, 0);
  const Ref owned_liq(reinterpret_cast<PyObject*>(liq));
  if (!owned_liq) return nullptr;
  Values* const vap = request.result(slots, of_vapour);
  const Ref owned_vap(reinterpret_cast<PyObject*>(vap));
  if (!owned_vap) return nullptr;
  double line[2];
  slots[of_line] = &line[0];
  slots[of_line + 1] = &line[1];
  entries[request.entry].single(given, given, liq->code, slots);
  vap->code = liq->code;
  if (!finish(request, *liq) || !finish(request, *vap)) return not_here();
  return Py_BuildValue("(OOddi)", liq, vap, line[0], line[1], static_cast<int>(liq->code));
}

// ---- Arrays ------------------------------------------------------------------------------------

/// A view of the memory of an array, as long as it lives.
class View {
 public:
  View() = default;
  View(View&& other) noexcept : view_(std::exchange(other.view_, Py_buffer{})) {}
  View& operator=(View&&) = delete;
  ~View() {
    if (view_.obj != nullptr) PyBuffer_Release(&view_);
  }

  /// False, with an exception set, if this is no array of such elements.
  [[nodiscard]] bool open(PyObject* const array, const std::size_t width, const bool written) {
    const int flags = PyBUF_STRIDES | (written ? PyBUF_WRITABLE : 0);
    if (PyObject_GetBuffer(array, &view_, flags) != 0) return false;
    if (view_.itemsize == static_cast<Py_ssize_t>(width)) return true;
    PyErr_SetString(PyExc_TypeError, "elements of another size");
    return false;
  }
  [[nodiscard]] std::vector<std::ptrdiff_t> shape() const {
    return {view_.shape, view_.shape + view_.ndim};
  }
  [[nodiscard]] Memory memory() const {
    return {static_cast<char*>(view_.buf), {view_.strides, view_.strides + view_.ndim}};
  }

 private:
  Py_buffer view_ = {};
};

/// Gives the interpreter to other threads meanwhile.
class Unlocked {
 public:
  Unlocked() : state_(PyEval_SaveThread()) {}
  ~Unlocked() { PyEval_RestoreThread(state_); }
  Unlocked(const Unlocked&) = delete;
  Unlocked& operator=(const Unlocked&) = delete;

 private:
  PyThreadState* state_;
};

/// The views that a call works on; false with an exception set.
bool open_views(PyObject* const inputs, PyObject* const codes, PyObject* const results,
                std::vector<View>& views, Work& work) {
  const auto open = [&](PyObject* const array, const std::size_t width, const bool written,
                        Memory& memory) {
    View& view = views.emplace_back();
    if (!view.open(array, width, written)) return false;
    memory = view.memory();
    if (view.shape() == views.front().shape()) return true;
    PyErr_SetString(PyExc_ValueError, "arrays of different shapes");
    return false;
  };
  if (!open(codes, sizeof(std::int32_t), true, work.codes)) return false;
  work.shape = views.front().shape();
  for (Py_ssize_t i = 0; i < PyTuple_Size(inputs); ++i) {
    if (!open(PyTuple_GetItem(inputs, i), sizeof(double), false, work.inputs.emplace_back())) {
      return false;
    }
  }
  PyObject* slot = nullptr;
  PyObject* array = nullptr;
  for (Py_ssize_t at = 0; PyDict_Next(results, &at, &slot, &array) != 0;) {
    Work::Result& result = work.results.emplace_back();
    result.slot = PyLong_AsSize_t(slot);
    if (result.slot >= slot_count) {
      PyErr_SetString(PyExc_IndexError, "no such slot");
      return false;
    }
    if (!open(array, sizeof(double), true, result.memory)) return false;
  }
  return true;
}

/// States between two looks at signals, so that an interrupt is seen within a second or so.
constexpr std::size_t states_between_signals = std::size_t{1} << 20U;

/// arrays(entry, inputs, codes, results, nan_for_none, threads): what `Found` says.
PyObject* arrays(PyObject* /*module*/, PyObject* const arguments) {
  PyObject* inputs = nullptr;
  PyObject* codes = nullptr;
  PyObject* results = nullptr;
  unsigned entry = 0;
  int nan_for_none = 0;
  unsigned threads = 1;
  if (PyArg_ParseTuple(arguments, "IO!OO!pI", &entry, &PyTuple_Type, &inputs, &codes, &PyDict_Type,
                       &results, &nan_for_none, &threads) == 0) {
    return nullptr;
  }
  if (entry >= std::size(entries)) {
    PyErr_SetString(PyExc_IndexError, "no such entry");
    return nullptr;
  }
  unsigned found = found_nothing;
  try {
    std::vector<View> views;
    Work work = {};
    work.batch = entries[entry].batch;
    work.nan_for_none = nan_for_none != 0;
    if (!open_views(inputs, codes, results, views, work)) return nullptr;
    const States states(std::move(work));
    if (!states.codes_are_dense()) {
      PyErr_SetString(PyExc_ValueError, "codes with gaps");
      return nullptr;
    }
    const std::size_t step = states_between_signals * std::max(threads, 1U);
    for (std::size_t start = 0; start < states.count(); start += step) {
      if (PyErr_CheckSignals() != 0) return nullptr;
      const Unlocked unlocked;
      found |= states.run(start, std::min(start + step, states.count()), threads);
    }
  } catch (const std::bad_alloc&) {
    return PyErr_NoMemory();
  }
  return PyLong_FromUnsignedLong(found);
}

// ---- The module --------------------------------------------------------------------------------

PyObject* message(PyObject* /*module*/, PyObject* const code) {
  const long value = PyLong_AsLong(code);
  if (value == -1 && PyErr_Occurred() != nullptr) return nullptr;
  using Codes = std::numeric_limits<std::int32_t>;  // there is no code at the ends
  const auto padded = co2_error_message(
      static_cast<std::int32_t>(std::clamp<long>(value, Codes::min(), Codes::max())));
  std::size_t length = padded.size();
  while (length > 0 && padded[length - 1] == ' ') --length;
  return PyUnicode_FromStringAndSize(padded.data(), static_cast<Py_ssize_t>(length));
}

PyObject* info(PyObject* /*module*/, PyObject* /*none*/) {
  double v[9];
  co2_info(v, v + 1, v + 2, v + 3, v + 4, v + 5, v + 6, v + 7, v + 8);
  return Py_BuildValue("(ddddddddd)", v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8]);
}

PyMethodDef methods[] = {
    {"state", reinterpret_cast<PyCFunction>(reinterpret_cast<void*>(state)), METH_FASTCALL,
     nullptr},
    {"saturation", reinterpret_cast<PyCFunction>(reinterpret_cast<void*>(saturation)),
     METH_FASTCALL, nullptr},
    {"arrays", arrays, METH_VARARGS, nullptr},
    {"info", info, METH_NOARGS, nullptr},
    {"message", message, METH_O, "message(code)\n--\n\nText of a status code."},
    {nullptr, nullptr, 0, nullptr},
};

bool add(PyObject* const module, const char* const name, const Ref& value) {
  return value && PyModule_AddObjectRef(module, name, value.get()) == 0;
}

/// Tuple of what make(element) gives for each element of a list.
template <class List, class Make>
Ref tuple_of(const List& list, const Make& make) {
  Ref tuple(PyTuple_New(static_cast<Py_ssize_t>(std::size(list))));
  for (std::size_t i = 0; tuple && i < std::size(list); ++i) {
    PyObject* const item = make(list[i]);
    if (item == nullptr) return Ref();
    PyTuple_SetItem(tuple.get(), static_cast<Py_ssize_t>(i), item);
  }
  return tuple;
}

int fill(PyObject* const module) {
  const Ref names =
      tuple_of(quantities, [](const Quantity& q) { return PyUnicode_InternFromString(q.name); });
  if (!names) return -1;
  state_of(module).all_outputs = PyTuple_GetSlice(names.get(), 0, output_count);
  const bool added =
      add(module, "Values", Ref(make_values_type(module))) &&
      add(module, "ENTRIES",
          tuple_of(entries, [](const Entry& entry) { return PyUnicode_FromString(entry.name); })) &&
      add(module, "QUANTITIES",
          tuple_of(quantities,
                   [](const Quantity& q) {
                     return Py_BuildValue("(sss)", q.name, q.unit, q.meaning);
                   })) &&
      PyModule_AddIntConstant(module, "OUTPUT_COUNT", output_count) == 0 &&
      PyModule_AddStringConstant(module, "__version__", CO2_PROPERTIES_VERSION) == 0;
  return added && state_of(module).all_outputs != nullptr ? 0 : -1;
}

void destroy(void* const module) { Py_CLEAR(state_of(static_cast<PyObject*>(module)).all_outputs); }

PyModuleDef_Slot slots[] = {
    {Py_mod_exec, reinterpret_cast<void*>(fill)},
#ifdef Py_mod_multiple_interpreters
    {Py_mod_multiple_interpreters, Py_MOD_PER_INTERPRETER_GIL_SUPPORTED},
#endif
#ifdef Py_mod_gil
    {Py_mod_gil, Py_MOD_GIL_NOT_USED},
#endif
    {0, nullptr},
};

PyModuleDef definition = {
    PyModuleDef_HEAD_INIT,
    "_core",
    nullptr,
    sizeof(ModuleState),
    methods,
    slots,
    nullptr,
    nullptr,
    destroy,
};

}  // namespace
}  // namespace co2_properties::python

// NOLINTNEXTLINE(bugprone-reserved-identifier,readability-identifier-naming): as Python asks
PyMODINIT_FUNC PyInit__core() { return PyModuleDef_Init(&co2_properties::python::definition); }
