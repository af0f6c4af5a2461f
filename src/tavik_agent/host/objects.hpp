// The operations on host values that the rules speak of. Each is the host's own operation, with a
// direct path for exact built-in types that gives the same result; a subclass always goes the
// host's way, so that what it overrides is respected. All throw Error when the host call fails.
#pragma once

#include <initializer_list>
#include <string_view>
#include <utility>

#include "host/value.hpp"

namespace tavik::host {

bool is_empty(const Value& value);
inline bool is_string(const Value& value) { return PyUnicode_Check(value.get()); }
inline bool is_exact_set(const Value& value) { return PyAnySet_CheckExact(value.get()); }
inline bool is_list(const Value& value) { return PyList_Check(value.get()); }
/// `mapping_type` is the host's abstract mapping, collections.abc.Mapping.
bool is_mapping(const Value& value, const Value& mapping_type);
/// A mapping proxy. Who shows a table through one promises that it will not change.
inline bool is_read_only_mapping(const Value& value) {
  return Py_IS_TYPE(value.get(), &PyDictProxy_Type);
}

/// The host's string conversion.
Value text_form(const Value& value);
/// The text form of a non-empty value, "" for an empty one.
Value text_form_or_empty(const Value& value);

/// value == text
bool equals(const Value& value, std::string_view text);
/// value == any of the texts, compared in their order
bool equals_any(const Value& value, std::initializer_list<std::string_view> texts);

/// mapping.get(key)
Value get(const Value& mapping, const Value& key);
/// mapping.items()
Value items(const Value& mapping);
/// item in collection
bool contains(const Value& collection, const Value& item);
/// set(values)
Value set_of(const Value& values);
/// set.issubset(collection)
bool is_subset(const Value& set, const Value& collection);

std::size_t length(const Value& sized);
/// sequence[0]
Value first(const Value& sequence);
/// first, second = pair
std::pair<Value, Value> unpack_pair(const Value& pair);

Value new_list();
void append(const Value& list, const Value& item);
/// A new tuple.
template <class... Values>
Value tuple_of(const Values&... items) {
  return Value::steal(PyTuple_Pack(sizeof...(items), items.get()...));
}
/// A new list with the items of an iterable, none for an empty value.
Value list_of(const Value& iterable_or_empty);

/// Hashable items, each once, in the order in which they were first added.
class OrderedSet {
 public:
  void add(const Value& item);
  void add_all(const Value& iterable);
  /// A new list of them.
  Value list() const;

 private:
  Value seen_ = Value::steal(PyDict_New());
};

Value new_dict();
/// dict(mapping)
Value copy_of(const Value& mapping);
/// dict[key] = value
void set(const Value& dict, const Value& key, const Value& value);
/// dict.setdefault(key, value)
void set_default(const Value& dict, const Value& key, const Value& value);

Value boolean(bool value);
Value real(double value);
/// float(value)
double as_real(const Value& value);

/// Walks an iterable in the host's way: a list may change while it is walked.
class Iterator {
 public:
  explicit Iterator(const Value& iterable);
  /// The next item; no object after the last one.
  Value next();

 private:
  Value next_of_list();

  Value walked_;  ///< an exact list or tuple, or else the host's iterator
  Py_ssize_t at_ = 0;
};

/// function(*arguments), and what the host raises when `function` cannot be called.
template <class... Values>
Value call(const Value& function, const Values&... arguments) {
  PyObject* objects[] = {nullptr, arguments.get()...};  // the callee may use the first slot
  return Value::steal(PyObject_Vectorcall(
      function.get(), objects + 1, sizeof...(arguments) | PY_VECTORCALL_ARGUMENTS_OFFSET, nullptr));
}

inline Value attribute(const Value& value, const char* name) {
  return Value::steal(PyObject_GetAttrString(value.get(), name));
}

/// value.name(*arguments)
template <class... Values>
Value call_method(const Value& value, const char* name, const Values&... arguments) {
  return Value::steal(PyObject_CallMethodObjArgs(
      value.get(), Value::steal(PyUnicode_FromString(name)).get(), arguments.get()..., nullptr));
}

/// item in left.union(right()): the method is looked up before right() is called.
template <class Right>
bool union_contains(const Value& left, Right right, const Value& item) {
  const Value unite = is_exact_set(left) ? Value() : attribute(left, "union");
  const Value other = right();
  if (unite) return contains(call(unite, other), item);
  if (is_exact_set(other)) return contains(left, item) || contains(other, item);
  return contains(call_method(left, "union", other), item);
}

}  // namespace tavik::host
