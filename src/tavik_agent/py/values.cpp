// The questions to a value that need more than a look at its type.
#include "py/values.hpp"

#include "py/strings.hpp"

namespace tavik::py {
namespace {

/// The built-in types that most values have, none of which is among Python's mappings.
bool is_plainly_no_mapping(const Object& value) {
  PyObject* const object = value.get();
  return value.is_none() || PyUnicode_CheckExact(object) || PyList_CheckExact(object) ||
         PyLong_CheckExact(object) || PyFloat_CheckExact(object) || PyTuple_CheckExact(object);
}

}  // namespace

bool is_mapping(const Object& value, const Object& mapping_type) {
  if (PyDict_Check(value.get())) return true;
  if (is_plainly_no_mapping(value)) return false;
  return check(PyObject_IsInstance(value.get(), mapping_type.get())) != 0;
}

bool equals_in_python(const Object& value, std::string_view text) {
  return check(PyObject_RichCompareBool(value.get(), string(text).get(), Py_EQ)) != 0;
}

}  // namespace tavik::py
