// What the rules ask of a single Python value: its kind, whether it is empty, whether it equals a
// text, its text form. Each is Python's own operation, with a direct path for exact built-in types
// that gives the same result; a subclass always goes Python's way, so that what it overrides is
// respected. All throw Error when Python raises.
#pragma once

#include <algorithm>
#include <initializer_list>
#include <string_view>

#include "py/object.hpp"

namespace tavik::py {

inline bool is_string(const Object& value) { return PyUnicode_Check(value.get()); }
inline bool is_exact_string(const Object& value) { return PyUnicode_CheckExact(value.get()); }
inline bool is_exact_ascii(const Object& value) {
  return is_exact_string(value) && PyUnicode_IS_ASCII(value.get());
}
inline bool is_list(const Object& value) { return PyList_Check(value.get()); }
inline bool is_exact_list(const Object& value) { return PyList_CheckExact(value.get()); }
inline bool is_exact_dict(const Object& value) { return PyDict_CheckExact(value.get()); }
inline bool is_exact_set(const Object& value) { return PyAnySet_CheckExact(value.get()); }
inline bool is_exact_frozen_set(const Object& value) { return PyFrozenSet_CheckExact(value.get()); }
/// A mapping proxy. Who shows a table through one promises that it will not change.
inline bool is_read_only_mapping(const Object& value) {
  return Py_IS_TYPE(value.get(), &PyDictProxy_Type);
}
/// isinstance(value, mapping_type), where that is collections.abc.Mapping
bool is_mapping(const Object& value, const Object& mapping_type);

/// The characters of an ASCII string; they live as long as the string.
inline std::string_view ascii_view(const Object& string) {
  return {static_cast<const char*>(PyUnicode_DATA(string.get())),
          static_cast<std::size_t>(PyUnicode_GET_LENGTH(string.get()))};
}

/// not value
inline bool is_empty(const Object& value) {
  if (is_exact_string(value)) return PyUnicode_GET_LENGTH(value.get()) == 0;
  if (is_exact_list(value)) return PyList_GET_SIZE(value.get()) == 0;
  if (is_exact_dict(value)) return PyDict_GET_SIZE(value.get()) == 0;
  return value.is_none() || check(PyObject_IsTrue(value.get())) == 0;
}

/// value == text by Python's own comparison
bool equals_in_python(const Object& value, std::string_view text);
/// value == text, where the text is ASCII
inline bool equals(const Object& value, std::string_view text) {
  if (is_exact_string(value)) return is_exact_ascii(value) && ascii_view(value) == text;
  return equals_in_python(value, text);
}
/// value == any of the texts, compared in their order
inline bool equals_any(const Object& value, std::initializer_list<std::string_view> texts) {
  return std::ranges::any_of(texts, [&](std::string_view text) { return equals(value, text); });
}

inline Object empty_string() {
  return Object::borrow(Py_GetConstantBorrowed(Py_CONSTANT_EMPTY_STR));
}
/// str(value)
inline Object text_form(const Object& value) {
  return is_exact_string(value) ? value.new_ref() : Object::steal(PyObject_Str(value.get()));
}
/// str(value or "")
inline Object text_form_or_empty(const Object& value) {
  return is_empty(value) ? empty_string() : text_form(value);
}

inline Object boolean(bool value) { return Object::borrow(value ? Py_True : Py_False); }
inline Object real(double value) { return Object::steal(PyFloat_FromDouble(value)); }
/// float(value)
inline double as_real(const Object& value) {
  return PyFloat_AS_DOUBLE(Object::steal(PyNumber_Float(value.get())).get());
}

}  // namespace tavik::py
