#pragma once
// The results of a call as an object: numbers in one block of memory, of which floats are made when
// somebody looks at them.

#include <cstdint>

#include "python.hpp"
#include "quantities.hpp"

namespace co2_properties::python {

struct Values {
  PyObject ob_base;
  PyObject* names;     ///< tuple, in the order that was asked for
  PyObject* ierr;      ///< array of codes, or null: `code`
  std::uint64_t here;  ///< bit k: `quantities[k]` is present
  std::int32_t code;
  bool boxed;  ///< slots hold objects
  union Slot {
    double number;
    PyObject* object;
  } slots[quantity_count];
};
static_assert(quantity_count <= 64);

/// An object without values; null with an exception set on failure.
Values* new_values(PyTypeObject* type, PyObject* names);

/// The type, for its module; null with an exception set on failure.
PyObject* make_values_type(PyObject* module);

/// Index of a name in `quantities`, or `quantity_count`.
std::size_t quantity_index(PyObject* name);

}  // namespace co2_properties::python
