// A function's parameters, and the binding of a call's arguments to them. The signatures themselves
// are generated from the stub beside the module.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "py/object.hpp"

namespace tavik::bindings {

enum class Default { missing, none, empty_text };

struct Parameter {
  std::string_view name;
  Default initial = Default::missing;
};

struct Signature {
  static constexpr std::size_t most_parameters = 8;

  const char* name = nullptr;
  std::array<Parameter, most_parameters> parameters{};
  std::size_t count = 0;          ///< of them
  std::size_t positional = 0;     ///< how many of them may be given by position
  bool takes_any_number = false;  ///< by position, and none by keyword
  const char* docstring =
      nullptr;  ///< with the signature in its first line, where inspect reads it
};

/// The arguments of one call, as Python passes them.
struct Arguments {
  PyObject* const* values;
  std::size_t positional;
  PyObject* keyword_names;  ///< a tuple, or no object

  std::size_t keywords() const;
  std::span<PyObject* const> by_position() const { return {values, positional}; }
};

/// The value of each parameter, held for as long as the function runs: whoever passes an argument
/// may let go of it meanwhile.
using Bound = std::array<py::Object, Signature::most_parameters>;

/// Throws with Python's TypeError when the call does not fit.
Bound bind(const Signature& signature, const Arguments& arguments);

/// The same for a function that takes any number of arguments.
py::Objects bind_any_number(const Signature& signature, const Arguments& arguments);

}  // namespace tavik::bindings
