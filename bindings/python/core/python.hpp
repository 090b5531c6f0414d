#pragma once
// Python's stable interface: one build serves Python 3.11 and every later version. Free-threaded
// Pythons do not have it (setup.py).

#include <Python.h>

#include <utility>

namespace co2_properties::python {

/// An owned reference.
class Ref {
 public:
  explicit Ref(PyObject* const owned = nullptr) noexcept : object_(owned) {}
  Ref(Ref&& other) noexcept : object_(other.release()) {}
  Ref& operator=(Ref&& other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  Ref(const Ref&) = delete;
  Ref& operator=(const Ref&) = delete;
  ~Ref() { Py_XDECREF(object_); }

  [[nodiscard]] PyObject* get() const noexcept { return object_; }
  [[nodiscard]] PyObject* release() noexcept { return std::exchange(object_, nullptr); }
  explicit operator bool() const noexcept { return object_ != nullptr; }

 private:
  PyObject* object_;
};

}  // namespace co2_properties::python
