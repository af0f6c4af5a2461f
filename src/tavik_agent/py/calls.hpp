// Attributes, calls of Python objects, global names, and imports.
#pragma once

#include <initializer_list>
#include <string_view>

#include "py/object.hpp"

namespace tavik::py {

inline Object attribute(const Object& value, const char* name) {
  return Object::steal(PyObject_GetAttrString(value.get(), name));
}

/// function(*arguments), and what Python raises when `function` cannot be called
template <class... Arguments>
Object call(const Object& function, const Arguments&... arguments) {
  PyObject* objects[] = {nullptr, arguments.get()...};  // the callee may use the first slot
  return Object::steal(PyObject_Vectorcall(
      function.get(), objects + 1, sizeof...(arguments) | PY_VECTORCALL_ARGUMENTS_OFFSET, nullptr));
}

/// value.name(*arguments)
template <class... Arguments>
Object call_method(const Object& value, const char* name, const Arguments&... arguments) {
  return Object::steal(PyObject_CallMethodObjArgs(
      value.get(), Object::steal(PyUnicode_FromString(name)).get(), arguments.get()..., nullptr));
}

/// An argument of a call; by position when there is no keyword.
struct Argument {
  const char* keyword;
  const Object& value;
};

/// function(...); the arguments with a keyword come last.
Object call_with_keywords(const Object& function, std::initializer_list<Argument> arguments);

/// from module import name. Throws with Python's ImportError, which names what is missing.
Object import_from(std::string_view module, std::string_view name);

/// The built-ins that functions defined here and now would have.
inline Object builtins() { return Object::borrow(PyEval_GetBuiltins()); }
/// What a function with these globals and built-ins reaches by the name; a NameError when it
/// reaches nothing.
Object look_up_global(const Object& globals, const Object& builtins, const Object& name);

}  // namespace tavik::py
