// Calls from one of the module's functions to another. A function that still bears its name in the
// module's namespace is called directly and shares the caller's Text; one that was put in its place
// is called as the host would call it, with the same arguments by position and by keyword.
#pragma once

#include "host/imports.hpp"
#include "host/text.hpp"
#include "material_characterization/module.hpp"

namespace tavik::characterization {

/// An argument that is passed by keyword.
template <class Argument>
struct Keyword {
  const char* name;
  Argument& value;
};
template <class Argument>
Keyword<Argument> keyword(const char* name, Argument& value) {
  return {name, value};
}

namespace calls {

template <class>
constexpr bool is_keyword = false;
template <class Argument>
constexpr bool is_keyword<Keyword<Argument>> = true;

template <class Argument>
auto& plain(Argument& argument) {
  if constexpr (is_keyword<Argument>) {
    return argument.value;
  } else {
    return argument;
  }
}

inline PyObject* object(const host::Value& argument) { return argument.get(); }
/// Of a Text, a Verdict or a FormulaHint.
template <class Argument>
PyObject* object(const Argument& argument) {
  return argument.value().get();
}

template <class Argument>
const char* name(Argument& argument) {
  if constexpr (is_keyword<Argument>) {
    return argument.name;
  } else {
    return nullptr;
  }
}

}  // namespace calls

inline host::Value host_value(const Module& module, Label label) {
  return module.label(label).another();
}
inline host::Value host_value(const Module&, host::Value value) { return value; }
inline host::Value host_value(const Module&, const Verdict& verdict) {
  return verdict.value().another();
}

namespace calls {

inline Verdict answer(const Module& module, Label label) { return {label, module.label(label)}; }
inline Verdict answer(const Module&, Verdict verdict) { return verdict; }
inline host::Value answer(const Module&, host::Value value) { return value; }

}  // namespace calls

/// Calls what `name` is bound to: Function, unless it was replaced. A classifier's answer is a
/// Verdict, any other function's a host value.
template <auto Function, class... Arguments>
auto invoke(const Module& module, Global name, Arguments&&... arguments) {
  using Answer = decltype(calls::answer(module, Function(module, calls::plain(arguments)...)));
  if (module.has_own(name)) [[likely]] {
    return calls::answer(module, Function(module, calls::plain(arguments)...));
  }
  return Answer(host::call_with_keywords(module.look_up(name),
                                         {calls::object(calls::plain(arguments))...},
                                         {calls::name(arguments)...}));
}

}  // namespace tavik::characterization
