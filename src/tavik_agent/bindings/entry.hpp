// The host's way into a function: binds the arguments, calls it, and turns what it returns or
// throws into what the host expects.
#pragma once

#include <Python.h>

#include <array>
#include <new>
#include <span>
#include <tuple>
#include <type_traits>
#include <utility>

#include "bindings/signature.hpp"
#include "host/text.hpp"
#include "material_characterization/calls.hpp"
#include "material_characterization/functions.hpp"

namespace tavik::bindings {

using characterization::Module;
using host::Lent;
using host::Text;
using host::Value;

/// The one place where exceptions become host errors.
template <class Body>
auto guarded(Body body, std::invoke_result_t<Body> failure) noexcept -> std::invoke_result_t<Body> {
  try {
    return body();
  } catch (const host::Error&) {
    return failure;
  } catch (const std::bad_alloc&) {
    PyErr_NoMemory();
    return failure;
  }
}

/// One step towards the host's limit on nested calls of C functions; a RecursionError beyond it.
class Nested {
 public:
  Nested() {
    if (Py_EnterRecursiveCall(" in material_characterization") != 0) throw host::Error{};
  }
  Nested(const Nested&) = delete;
  Nested& operator=(const Nested&) = delete;
  ~Nested() { Py_LeaveRecursiveCall(); }
};
/// The limit is made for functions of the host's size. A call here takes three times their stack,
/// and host code that it runs may make another, so it counts three times, once by the host.
using Nesting = std::array<Nested, 2>;

/// The state of a loaded module.
Module& state_of(PyObject* module);

/// What a call passes by position, held while the function runs: a `functools.partial` lends its
/// own, and lets go of it when its state is set meanwhile. The rest lies on the caller's stack.
inline host::Values held_arguments(std::span<PyObject* const> positional) {
  host::Values held;
  for (PyObject* const value : positional) held.push_back(Value::borrow(value));
  return held;
}

/// How a parameter is held while the function runs. A plain value, and what is made for one call
/// only, needs no reference of its own.
template <class Parameter>
using Held = std::conditional_t<std::is_same_v<std::remove_cvref_t<Parameter>, Value>, Lent,
                                std::remove_cvref_t<Parameter>>;

template <class Parameter>
auto hold(const Lent& argument) {
  if constexpr (std::is_constructible_v<Held<Parameter>, Lent>) {
    return argument;
  } else {
    return argument.value().another();
  }
}

template <class Result, class... Parameters, std::size_t... I>
Value apply(Result (*function)(const Module&, Parameters...), const Module& module,
            const Bound& bound, std::index_sequence<I...>) {
  std::tuple<Held<Parameters>...> held(hold<Parameters>(bound[I])...);
  return characterization::host_value(module, function(module, std::get<I>(held)...));
}

template <class Result, class... Parameters>
constexpr std::size_t arity(Result (*)(const Module&, Parameters...)) {
  return sizeof...(Parameters);
}

template <auto Function, const char* Docstring>
PyObject* enter(PyObject* self, PyObject* const* values, Py_ssize_t positional,
                PyObject* keyword_names) noexcept {
  static constexpr Signature signature = read_signature(Docstring);
  static_assert(signature.count == arity(Function));
  return guarded(
      [&] {
        const Nesting nesting;
        const Module& module = state_of(self);
        const Arguments arguments{values, static_cast<std::size_t>(positional), keyword_names};
        const Bound bound = bind(signature, arguments);
        const host::Values held = held_arguments({values, arguments.positional});
        return apply(Function, module, bound, std::make_index_sequence<signature.count>{})
            .release();
      },
      nullptr);
}

/// For a function that takes any number of values by position.
template <auto Function, const char* Docstring>
PyObject* enter_any_number(PyObject* self, PyObject* const* values, Py_ssize_t positional,
                           PyObject* keyword_names) noexcept {
  static constexpr Signature signature = read_signature(Docstring);
  static_assert(signature.takes_any_number);
  return guarded(
      [&] {
        const Nesting nesting;
        const Module& module = state_of(self);
        const host::Values parts = held_arguments(bind_any_number(
            signature, {values, static_cast<std::size_t>(positional), keyword_names}));
        return Function(module, {parts.begin(), parts.size()}).release();
      },
      nullptr);
}

}  // namespace tavik::bindings
