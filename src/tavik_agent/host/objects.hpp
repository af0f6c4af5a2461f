// The operations on host values that the rules speak of. Each is the host's own operation, with a
// direct path for exact built-in types that gives the same result; a subclass always goes the
// host's way, so that what it overrides is respected. All throw Error when the host call fails.
#pragma once

#include <algorithm>
#include <initializer_list>
#include <string_view>
#include <utility>

#include "host/value.hpp"

namespace tavik::host {

inline bool is_string(const Value& value) { return PyUnicode_Check(value.get()); }
inline bool is_exact_string(const Value& value) { return PyUnicode_CheckExact(value.get()); }
inline bool is_exact_ascii(const Value& value) {
  return is_exact_string(value) && PyUnicode_IS_ASCII(value.get());
}
inline bool is_exact_set(const Value& value) { return PyAnySet_CheckExact(value.get()); }
inline bool is_exact_frozen_set(const Value& value) { return PyFrozenSet_CheckExact(value.get()); }
inline bool is_exact_dict(const Value& value) { return PyDict_CheckExact(value.get()); }
inline bool is_exact_list(const Value& value) { return PyList_CheckExact(value.get()); }
inline bool is_list(const Value& value) { return PyList_Check(value.get()); }
/// `mapping_type` is the host's abstract mapping, collections.abc.Mapping.
bool is_mapping(const Value& value, const Value& mapping_type);
/// A mapping proxy. Who shows a table through one promises that it will not change.
inline bool is_read_only_mapping(const Value& value) {
  return Py_IS_TYPE(value.get(), &PyDictProxy_Type);
}

/// The characters of an ASCII string; they live as long as the host object.
inline std::string_view ascii_view(const Value& string) {
  return {static_cast<const char*>(PyUnicode_DATA(string.get())),
          static_cast<std::size_t>(PyUnicode_GET_LENGTH(string.get()))};
}

inline bool is_empty(const Value& value) {
  PyObject* const object = value.get();
  if (is_exact_string(value)) return PyUnicode_GET_LENGTH(object) == 0;
  if (PyList_CheckExact(object)) return PyList_GET_SIZE(object) == 0;
  if (PyDict_CheckExact(object)) return PyDict_GET_SIZE(object) == 0;
  return value.is_null() || check(PyObject_IsTrue(object)) == 0;
}

/// The host keeps one empty string for ever.
inline Lent lasting_empty_string() { return Lent(Py_GetConstantBorrowed(Py_CONSTANT_EMPTY_STR)); }
inline Value empty_string() { return lasting_empty_string().value().another(); }
/// The host's string conversion.
inline Value text_form(const Value& value) {
  return is_exact_string(value) ? value.another() : Value::steal(PyObject_Str(value.get()));
}
/// The text form of a non-empty value, "" for an empty one.
inline Value text_form_or_empty(const Value& value) {
  return is_empty(value) ? empty_string() : text_form(value);
}

[[gnu::cold]] bool equals_in_host(const Value& value, std::string_view text);
/// value == text, where the text is ASCII
inline bool equals(const Value& value, std::string_view text) {
  if (is_exact_string(value)) return is_exact_ascii(value) && ascii_view(value) == text;
  return equals_in_host(value, text);
}
/// value == any of the texts, compared in their order
inline bool equals_any(const Value& value, std::initializer_list<std::string_view> texts) {
  if (!is_exact_string(value)) {
    return std::ranges::any_of(texts, [&](auto text) { return equals_in_host(value, text); });
  }
  return is_exact_ascii(value) && std::ranges::find(texts, ascii_view(value)) != texts.end();
}

Value get_in_host(const Value& mapping, const Value& key);
/// mapping.get(key)
inline Value get(const Value& mapping, const Value& key) {
  const bool is_plainly_empty = is_exact_dict(mapping) && PyDict_GET_SIZE(mapping.get()) == 0;
  return is_plainly_empty ? Value::null() : get_in_host(mapping, key);
}
/// Whether the test holds for the keys of an exact dict, in its order; it is asked until it does
/// not. The test must run no host code.
template <class Test>
bool all_keys(const Value& dict, Test test) {
  PyObject* key = nullptr;
  for (Py_ssize_t at = 0; PyDict_Next(dict.get(), &at, &key, nullptr);) {
    if (!test(Value::borrow(key))) return false;
  }
  return true;
}

/// The same for the keys and values of a dict that others may use at the same time. The test must
/// throw nothing.
template <class Test>
bool all_entries(const Value& dict, Test test) {
  bool holds = true;
  PyObject* key = nullptr;
  PyObject* value = nullptr;
  Py_BEGIN_CRITICAL_SECTION(dict.get());
  for (Py_ssize_t at = 0; holds && PyDict_Next(dict.get(), &at, &key, &value);) {
    holds = test(Value::borrow(key), Value::borrow(value));
  }
  Py_END_CRITICAL_SECTION();
  return holds;
}

/// mapping.items(), as something to walk
Value items(const Value& mapping);
/// item in collection
bool contains(const Value& collection, const Value& item);
/// text in list, where the text is ASCII
bool contains_text(const Value& collection, std::string_view text);
/// set(values)
Value set_of(const Value& values);
Value set_of(const Values& values);
/// The items of an exact list when all of them are exact strings, otherwise none.
Values exact_strings_in(const Value& items);
/// Whether a value is an exact list of nothing but exact strings.
bool is_list_of_exact_strings(const Value& value);
/// set.issubset(collection)
bool is_subset(const Value& set, const Value& collection);

std::size_t length_in_host(const Value& sized);
/// len(sized)
inline std::size_t length(const Value& sized) {
  return is_exact_list(sized) ? static_cast<std::size_t>(PyList_GET_SIZE(sized.get()))
                              : length_in_host(sized);
}
inline std::size_t length_of_exact(const Value& dict) {
  return static_cast<std::size_t>(PyDict_GET_SIZE(dict.get()));
}
/// sequence[0]
Value first(const Value& sequence);
/// A tuple of the values of an exact dict, in its order, and one of its items.
Value tuple_of_values(const Value& dict);
inline Value item(const Value& tuple, std::size_t at) {
  return Value::borrow(PyTuple_GET_ITEM(tuple.get(), static_cast<Py_ssize_t>(at)));
}
/// first, second = pair
std::pair<Value, Value> unpack_pair(const Value& pair);

Value new_list();
/// A new list that takes over the values.
Value new_list(Values values);
void append(const Value& list, const Value& item);
/// A new tuple.
template <class... Values>
Value tuple_of(const Values&... items) {
  return Value::steal(PyTuple_Pack(sizeof...(items), items.get()...));
}
/// A new list with the items of an iterable, none for an empty value.
Value list_of(const Value& iterable_or_empty);

Value new_dict();
/// A new dict like an exact one.
inline Value copy_of_exact(const Value& dict) { return Value::steal(PyDict_Copy(dict.get())); }
/// dict(mapping)
Value copy_of(const Value& mapping);
/// dict[key] = value
void set(const Value& dict, const Value& key, const Value& value);
/// dict.setdefault(key, value)
void set_default(const Value& dict, const Value& key, const Value& value);

inline Lent boolean(bool value) { return Lent(value ? Py_True : Py_False); }
Value real(double value);
/// float(value)
double as_real(const Value& value);

/// Whether there is plainly nothing to walk: many requests name no species, and each walk that is
/// not begun spares fifty instructions.
inline bool is_empty_list(const Value& iterable) {
  return is_exact_list(iterable) && PyList_GET_SIZE(iterable.get()) == 0;
}

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

/// item in left.union(right()): the method is looked up before right() is called. A plain string is
/// looked up in both, as nobody can tell.
template <class Right>
bool union_contains(const Value& left, Right right, const Value& item) {
  const bool is_plain = is_exact_set(left) && is_exact_string(item);
  const Value unite = is_plain ? Value() : attribute(left, "union");
  const auto held = right();
  const Value& other = held;
  if (unite) return contains(call(unite, other), item);
  if (is_exact_set(other)) return contains(left, item) || contains(other, item);
  return contains(call_method(left, "union", other), item);
}

/// set(items) <= right(): the set is made before right() is called. It is not made at all for a
/// list of strings, which nobody can tell from it: asking for each of a few takes an eighth of the
/// time.
template <class Right>
bool all_are_in(const Value& items, Right right) {
  const Values strings = exact_strings_in(items);
  const Value set = strings.empty() ? set_of(items) : Value();
  const Value collection = right();
  const auto is_in = [&](const Value& string) { return contains(collection, string); };
  if (is_exact_set(collection) && !set) return std::ranges::all_of(strings, is_in);
  return is_subset(set ? set.another() : set_of(strings), collection);
}

}  // namespace tavik::host
