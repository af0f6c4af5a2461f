// Ownership of Python objects. An `Object` owns one reference and gives it back by itself; no other
// file counts references. `steal` takes over a reference that the caller was given, `borrow` takes
// one of its own.
#pragma once

#include <Python.h>

#include <utility>
#include <vector>

#if PY_VERSION_HEX < 0x030D0000 || PY_VERSION_HEX >= 0x030E0000
#error "material_characterization is written and tested for Python 3.13; this is another version."
#endif
#if defined(PYPY_VERSION) || defined(GRAALVM_PYTHON) || defined(Py_LIMITED_API)
#error "material_characterization needs CPython and its full C API."
#endif

namespace tavik::py {

/// A Python call failed; Python's error indicator holds the error that the caller is to see.
struct Error {};

class Object {
 public:
  Object() = default;
  Object(Object&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  Object& operator=(Object&& other) noexcept {
    // The old object goes last: letting go of it can run Python code that looks at this one.
    Object old(std::exchange(object_, std::exchange(other.object_, nullptr)));
    return *this;
  }
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;
  ~Object() { Py_XDECREF(object_); }

  /// Owns the new reference that a Python call returned; throws Error for the null of a failed one.
  static Object steal(PyObject* object) {
    if (object == nullptr) throw Error{};
    return Object(object);
  }
  static Object borrow(PyObject* object) { return Object(Py_NewRef(object)); }

  /// Another owner of the same object.
  Object new_ref() const { return borrow(object_); }
  PyObject* get() const { return object_; }
  PyObject* release() { return std::exchange(object_, nullptr); }

  /// Whether there is an object at all; None is one.
  explicit operator bool() const { return object_ != nullptr; }
  bool is_none() const { return object_ == Py_None; }
  bool is_same(const Object& other) const { return object_ == other.object_; }

 private:
  explicit Object(PyObject* object) : object_(object) {}
  PyObject* object_ = nullptr;
};

using Objects = std::vector<Object>;

inline Object none() { return Object::borrow(Py_None); }

/// Passes on the status of a Python call that answers with a number, -1 for failure.
template <class Status>
Status check(Status status) {
  if (status < 0) throw Error{};
  return status;
}

/// Ends the current call with a Python error of the given kind.
template <class... Arguments>
[[noreturn]] void raise(PyObject* kind, const char* format, Arguments... arguments) {
  PyErr_Format(kind, format, arguments...);
  throw Error{};
}

}  // namespace tavik::py
