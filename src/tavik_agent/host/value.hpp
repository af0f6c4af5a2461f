// Ownership of host objects. A `Value` owns one reference and gives it back by itself; no other
// file counts references. `steal` takes over a reference that the caller was given, `borrow` takes
// one of its own.
#pragma once

#include <Python.h>

#include <utility>

#include "text/short_list.hpp"

namespace tavik::host {

/// A host call failed; the host's error indicator holds the error that the caller is to see.
struct Error {};

class Value {
 public:
  Value() = default;
  Value(Value&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  Value& operator=(Value&& other) noexcept {
    // The old object goes last: letting go of it can run host code that looks at this value.
    Value old(std::exchange(object_, std::exchange(other.object_, nullptr)));
    return *this;
  }
  Value(const Value&) = delete;
  Value& operator=(const Value&) = delete;
  ~Value() { Py_XDECREF(object_); }

  /// Owns the new reference that a host call returned; throws Error for the null of a failed call.
  static Value steal(PyObject* object) {
    if (object == nullptr) throw Error{};
    return Value(object);
  }
  static Value borrow(PyObject* object) { return Value(Py_NewRef(object)); }
  /// Of the host's null, which lives for ever, references are not counted.
  static Value null() { return Value(Py_None); }

  Value another() const { return borrow(object_); }
  PyObject* get() const { return object_; }
  PyObject* release() { return std::exchange(object_, nullptr); }

  /// Whether there is an object at all; the host's null is one.
  explicit operator bool() const { return object_ != nullptr; }
  bool is_null() const { return object_ == Py_None; }
  bool is_same(const Value& other) const { return object_ == other.object_; }

 private:
  friend class Lent;
  friend class Seldom;
  template <class Word>
  friend class Recognised;
  explicit Value(PyObject* object) : object_(object) {}
  PyObject* object_ = nullptr;
};

/// A value that somebody else keeps alive meanwhile, such as an argument; it is not counted.
class Lent {
 public:
  Lent() = default;
  explicit Lent(PyObject* object) : value_(object) {}
  Lent(const Lent& other) : value_(other.value_.get()) {}
  Lent& operator=(const Lent& other) {
    value_.release();
    value_.object_ = other.value_.get();
    return *this;
  }
  ~Lent() { value_.release(); }

  const Value& value() const { return value_; }
  operator const Value&() const { return value_; }  // NOLINT(*-explicit-*): it is one
  explicit operator bool() const { return static_cast<bool>(value_); }

 private:
  Value value_;
};

/// A value that mostly is not there. Letting go of it stays out of the way of the code around it:
/// a call runs through most of its code once, so what it costs is to fetch the code.
class Seldom {
 public:
  Seldom() = default;
  explicit Seldom(Value value) : value_(std::move(value)) {}
  Seldom(Seldom&&) = default;
  Seldom& operator=(Seldom&& other) noexcept {
    if (value_) [[unlikely]]
      drop();
    value_.object_ = other.value_.release();
    return *this;
  }
  ~Seldom() {
    if (value_) [[unlikely]]
      drop();
    value_.release();
  }

  const Value& value() const { return value_; }

 private:
  [[gnu::cold, gnu::noinline]] void drop() { value_ = Value(); }
  Value value_;
};

using Values = text::ShortList<Value>;

/// Passes on the status of a host call that answers with a number, -1 for failure.
template <class Status>
Status check(Status status) {
  if (status < 0) throw Error{};
  return status;
}

/// Ends the current call with a host error of the given kind.
template <class... Arguments>
[[noreturn]] void raise(PyObject* kind, const char* format, Arguments... arguments) {
  PyErr_Format(kind, format, arguments...);
  throw Error{};
}

}  // namespace tavik::host
