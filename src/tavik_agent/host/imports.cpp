// Imports worded as the host's import statement words them, and calls with keywords.
#include "host/imports.hpp"

#include "host/objects.hpp"
#include "host/strings.hpp"

namespace tavik::host {
namespace {

/// The attribute, or no object when there is none.
Value find_attribute(const Value& object, const Value& name) {
  PyObject* found = nullptr;
  return check(PyObject_GetOptionalAttr(object.get(), name.get(), &found)) == 0
             ? Value()
             : Value::steal(found);
}

/// Ends the current call with the error that is set, after giving it one more attribute.
[[noreturn]] void throw_with(const char* attribute, const Value& value) {
  const Value error = Value::steal(PyErr_GetRaisedException());
  check(PyObject_SetAttrString(error.get(), attribute, value.get()));
  PyErr_SetRaisedException(error.another().release());
  throw Error{};
}

[[noreturn]] void raise_cannot_import(const Value& module, const Value& module_name,
                                      const Value& name) {
  const Value file = find_attribute(module, string("__file__"));
  const Value place = file && is_string(file) ? file.another() : string("unknown location");
  const Value text = Value::steal(PyUnicode_FromFormat("cannot import name %R from %R (%U)",
                                                       name.get(), module_name.get(), place.get()));
  PyErr_SetImportError(text.get(), module_name.get(), file ? file.get() : nullptr);
  throw_with("name_from", name);
}

}  // namespace

Value import_from(std::string_view module, std::string_view name) {
  const Value module_name = string(module);
  const Value attribute = string(name);
  const Value imported = Value::steal(PyImport_Import(module_name.get()));
  Value found = find_attribute(imported, attribute);
  if (!found) raise_cannot_import(imported, module_name, attribute);
  return found;
}

Value look_up(const Value& names, const Value& name) {
  PyObject* found = nullptr;
  if (check(PyDict_GetItemRef(names.get(), name.get(), &found)) == 0) {
    PyErr_Format(PyExc_NameError, "name '%U' is not defined", name.get());
    throw_with("name", name);
  }
  return Value::steal(found);
}

bool is_bound_to(const Value& names, const Value& name, const Value& object) {
  PyObject* found = nullptr;
  if (PyDict_GetItemRef(names.get(), name.get(), &found) < 0) PyErr_Clear();
  return found != nullptr && Value::steal(found).is_same(object);
}

Value call_with_keywords(const Value& function, std::initializer_list<PyObject*> arguments,
                         std::initializer_list<const char*> names) {
  const Value keywords = new_list();
  for (const char* name : names) {
    if (name != nullptr) append(keywords, string(name));
  }
  const Value keyword_names = Value::steal(PyList_AsTuple(keywords.get()));
  const std::size_t positional = arguments.size() - length(keywords);
  return Value::steal(
      PyObject_Vectorcall(function.get(), arguments.begin(), positional, keyword_names.get()));
}

}  // namespace tavik::host
