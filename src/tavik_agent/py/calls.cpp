// Calls with keywords, look-ups of names, and imports worded as Python's import statement words
// them.
#include "py/calls.hpp"

#include <vector>

#include "py/containers.hpp"
#include "py/strings.hpp"

namespace tavik::py {
namespace {

/// The attribute, or no object when there is none.
Object find_attribute(const Object& object, const Object& name) {
  PyObject* found = nullptr;
  return check(PyObject_GetOptionalAttr(object.get(), name.get(), &found)) == 0
             ? Object()
             : Object::steal(found);
}

/// Ends the current call with the error that is set, after giving it one more attribute.
[[noreturn]] void throw_with(const char* attribute, const Object& value) {
  Object error = Object::steal(PyErr_GetRaisedException());
  if (PyObject_SetAttrString(error.get(), attribute, value.get()) < 0) PyErr_Clear();
  PyErr_SetRaisedException(error.release());
  throw Error{};
}

[[noreturn]] void raise_cannot_import(const Object& module, const Object& module_name,
                                      const Object& name) {
  const Object file = find_attribute(module, string("__file__"));
  const Object place = file && is_string(file) ? file.new_ref() : string("unknown location");
  const Object text = Object::steal(PyUnicode_FromFormat(
      "cannot import name %R from %R (%U)", name.get(), module_name.get(), place.get()));
  PyErr_SetImportError(text.get(), module_name.get(), file ? file.get() : nullptr);
  throw_with("name_from", name);
}

}  // namespace

Object call_with_keywords(const Object& function, std::initializer_list<Argument> arguments) {
  std::vector<PyObject*> values;
  const Object keywords = new_list();
  for (const auto& [keyword, value] : arguments) {
    values.push_back(value.get());
    if (keyword != nullptr) append(keywords, string(keyword));
  }
  const Object keyword_names = Object::steal(PyList_AsTuple(keywords.get()));
  const std::size_t positional = values.size() - length(keywords);
  return Object::steal(
      PyObject_Vectorcall(function.get(), values.data(), positional, keyword_names.get()));
}

Object import_from(std::string_view module, std::string_view name) {
  const Object module_name = string(module);
  const Object attribute = string(name);
  const Object imported = Object::steal(PyImport_Import(module_name.get()));
  Object found = find_attribute(imported, attribute);
  if (!found) raise_cannot_import(imported, module_name, attribute);
  return found;
}

Object look_up_global(const Object& globals, const Object& builtins, const Object& name) {
  PyObject* found = nullptr;
  if (check(PyDict_GetItemRef(globals.get(), name.get(), &found)) == 0 &&
      check(PyMapping_GetOptionalItem(builtins.get(), name.get(), &found)) == 0) {
    PyErr_Format(PyExc_NameError, "name '%U' is not defined", name.get());
    throw_with("name", name);
  }
  return Object::steal(found);
}

}  // namespace tavik::py
