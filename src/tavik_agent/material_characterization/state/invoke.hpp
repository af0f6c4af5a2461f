// Calls from one of the module's functions to another. A function that still bears its name in the
// module's namespace is called directly and shares the caller's Text; one that was put in its place
// is called as Python would call it, with the same arguments by position and by keyword.
#pragma once

#include "material_characterization/functions.hpp"

namespace tavik::characterization {

/// An argument of a call, and the keyword by which it is passed, if any.
template <class Argument>
struct Passed {
  const char* keyword;
  Argument& value;

  py::Argument as_python() const {
    if constexpr (std::is_same_v<Argument, Text>) {
      return {keyword, value.value()};
    } else {
      return {keyword, value};
    }
  }
};

template <class Argument>
Passed<Argument> keyword(const char* name, Argument& value) {
  return {name, value};
}
template <class Argument>
Passed<Argument> passed(Argument& value) {
  return {nullptr, value};
}
template <class Argument>
Passed<Argument> passed(Passed<Argument>& argument) {
  return argument;
}

/// What a function answered, as a Python object.
template <class Label>
Object as_object(const ModuleState& module, Label label) {
  return module.string(label).new_ref();
}
inline Object as_object(const ModuleState&, Object object) { return object; }

/// Calls what `name` is bound to: Function, unless it was replaced. An argument is passed by
/// position, or by keyword when it is given as keyword("name", argument).
template <auto Function, class... Arguments>
Object invoke(const ModuleState& module, Global name, Arguments&&... arguments) {
  const Object bound = module.look_up(name);
  if (bound.is_same(module.own(name))) {
    return as_object(module, Function(module, passed(arguments).value...));
  }
  return py::call_with_keywords(bound, {passed(arguments).as_python()...});
}

}  // namespace tavik::characterization
