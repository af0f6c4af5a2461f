// Python's way into a function: binds the arguments, calls it, and turns what it returns or throws
// into what Python expects.
#pragma once

#include <array>
#include <cstddef>
#include <exception>
#include <new>
#include <tuple>
#include <type_traits>
#include <utility>

#include "bindings/signature.hpp"
#include "material_characterization/state/invoke.hpp"

namespace tavik::bindings {

using characterization::ModuleState;
using py::Object;

/// The one place where exceptions become Python errors.
template <class Body>
auto guarded(Body body, std::invoke_result_t<Body> failure) noexcept -> std::invoke_result_t<Body> {
  try {
    return body();
  } catch (const py::Error&) {
    return failure;
  } catch (const std::bad_alloc&) {
    PyErr_NoMemory();
    return failure;
  } catch (const std::exception& error) {
    PyErr_SetString(PyExc_SystemError, error.what());
    return failure;
  }
}

/// One step towards Python's limit on nested calls of C functions; a RecursionError beyond it.
class Nested {
 public:
  Nested() {
    if (Py_EnterRecursiveCall(" in material_characterization") != 0) throw py::Error{};
  }
  Nested(const Nested&) = delete;
  Nested& operator=(const Nested&) = delete;
  ~Nested() { Py_LeaveRecursiveCall(); }
};
/// The limit is made for functions with smaller frames. A call here takes three times their stack,
/// so it counts three times: Python counts one, this counts two.
using Nesting = std::array<Nested, 2>;

/// A RuntimeError when the module is not loaded.
const ModuleState& state_of(const Object& module);

template <class Result, class... Parameters, std::size_t... I>
Object apply(Result (*function)(const ModuleState&, Parameters...), const ModuleState& module,
             const Bound& bound, std::index_sequence<I...>) {
  std::tuple<std::remove_cvref_t<Parameters>...> values(bound[I].new_ref()...);
  return characterization::as_object(module, function(module, std::get<I>(values)...));
}

template <class Result, class... Parameters>
constexpr std::size_t arity(Result (*)(const ModuleState&, Parameters...)) {
  return sizeof...(Parameters);
}

template <auto Function, const Signature& signature>
Object call(const ModuleState& module, const Arguments& arguments) {
  if constexpr (signature.takes_any_number) {
    const py::Objects held = bind_any_number(signature, arguments);
    return Function(module, {held.begin(), held.end()});
  } else {
    static_assert(signature.count == arity(Function), "the stub has other parameters");
    const Bound bound = bind(signature, arguments);
    return apply(Function, module, bound, std::make_index_sequence<signature.count>{});
  }
}

/// The module is held while one of its functions runs: the last reference to both may go meanwhile.
/// What the module holds includes its functions.
template <auto Function, const Signature& signature>
PyObject* enter(PyObject* self, PyObject* const* values, Py_ssize_t positional,
                PyObject* keyword_names) noexcept {
  return guarded(
      [&] {
        const Nesting nesting;
        const Object module = Object::borrow(self);
        const Arguments arguments{values, static_cast<std::size_t>(positional), keyword_names};
        return call<Function, signature>(state_of(module), arguments).release();
      },
      nullptr);
}

}  // namespace tavik::bindings
