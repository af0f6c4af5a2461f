// Kind tests, comparisons, look-ups and iteration on host values.
#include "host/objects.hpp"

#include "host/strings.hpp"

namespace tavik::host {
namespace {

/// The built-in types that most values have, none of which the host counts among its mappings.
bool is_plainly_no_mapping(const Value& value) {
  PyObject* const object = value.get();
  return value.is_null() || PyUnicode_CheckExact(object) || PyList_CheckExact(object) ||
         PyLong_CheckExact(object) || PyFloat_CheckExact(object) || PyTuple_CheckExact(object);
}

}  // namespace

bool is_mapping(const Value& value, const Value& mapping_type) {
  if (PyDict_Check(value.get())) return true;
  if (is_plainly_no_mapping(value)) return false;
  return check(PyObject_IsInstance(value.get(), mapping_type.get())) != 0;
}

bool equals_in_host(const Value& value, std::string_view text) {
  return check(PyObject_RichCompareBool(value.get(), string(text).get(), Py_EQ)) != 0;
}

Value get_in_host(const Value& mapping, const Value& key) {
  if (!is_exact_dict(mapping)) return call_method(mapping, "get", key);
  PyObject* found = nullptr;
  return check(PyDict_GetItemRef(mapping.get(), key.get(), &found)) == 0 ? Value::null()
                                                                         : Value::steal(found);
}

Value items(const Value& mapping) {
  const bool is_plainly_empty =
      PyDict_CheckExact(mapping.get()) && PyDict_GET_SIZE(mapping.get()) == 0;
  return is_plainly_empty ? Value::steal(PyTuple_New(0)) : call_method(mapping, "items");
}

bool contains(const Value& collection, const Value& item) {
  if (is_exact_set(collection) && PyUnicode_CheckExact(item.get())) {
    return check(PySet_Contains(collection.get(), item.get())) != 0;
  }
  return check(PySequence_Contains(collection.get(), item.get())) != 0;
}

bool contains_text(const Value& collection, std::string_view text) {
  if (!is_list_of_exact_strings(collection)) return contains(collection, string(text));
  Iterator items(collection);
  while (const Value item = items.next()) {
    if (equals(item, text)) return true;
  }
  return false;
}

Value set_of(const Value& values) { return Value::steal(PySet_New(values.get())); }

Value set_of(const Values& values) {
  Value set = Value::steal(PySet_New(nullptr));
  for (const Value& value : values) check(PySet_Add(set.get(), value.get()));
  return set;
}

Values exact_strings_in(const Value& items) {
  Values strings;
  if (!is_exact_list(items)) return strings;
  Iterator walk(items);
  while (Value item = walk.next()) {
    if (!is_exact_string(item)) return {};
    strings.push_back(std::move(item));
  }
  return strings;
}

bool is_list_of_exact_strings(const Value& value) {
  if (!is_exact_list(value)) return false;
  bool are_strings = true;
  Py_BEGIN_CRITICAL_SECTION(value.get());
  for (Py_ssize_t i = 0; are_strings && i < PyList_GET_SIZE(value.get()); ++i) {
    are_strings = is_exact_string(Lent(PyList_GET_ITEM(value.get(), i)));
  }
  Py_END_CRITICAL_SECTION();
  return are_strings;
}

bool is_subset(const Value& set, const Value& collection) {
  return !is_empty(call_method(set, "issubset", collection));
}

std::size_t length_in_host(const Value& sized) {
  return static_cast<std::size_t>(check(PyObject_Size(sized.get())));
}

Value first(const Value& sequence) {
  return Value::steal(PyObject_GetItem(sequence.get(), Value::steal(PyLong_FromLong(0)).get()));
}

std::pair<Value, Value> unpack_pair(const Value& pair) {
  if (Py_TYPE(pair.get())->tp_iter == nullptr && !PySequence_Check(pair.get())) {
    raise(PyExc_TypeError, "cannot unpack non-iterable %.200s object",
          Py_TYPE(pair.get())->tp_name);
  }
  Iterator members(pair);
  Value first = members.next();
  Value second = first ? members.next() : Value();
  if (!second) {
    raise(PyExc_ValueError, "not enough values to unpack (expected 2, got %d)", first ? 1 : 0);
  }
  if (members.next()) raise(PyExc_ValueError, "too many values to unpack (expected 2)");
  return {std::move(first), std::move(second)};
}

Value new_list() { return Value::steal(PyList_New(0)); }

Value new_list(Values values) {
  Value list = Value::steal(PyList_New(static_cast<Py_ssize_t>(values.size())));
  Py_ssize_t at = 0;
  for (Value& value : values) PyList_SET_ITEM(list.get(), at++, value.release());
  values.shorten(0);
  return list;
}

Value tuple_of_values(const Value& dict) {
  return Value::steal(PyList_AsTuple(Value::steal(PyDict_Values(dict.get())).get()));
}

void append(const Value& list, const Value& item) { check(PyList_Append(list.get(), item.get())); }

Value list_of(const Value& iterable_or_empty) {
  if (is_empty(iterable_or_empty)) return new_list();
  return Value::steal(PySequence_List(iterable_or_empty.get()));
}

Value new_dict() { return Value::steal(PyDict_New()); }

Value copy_of(const Value& mapping) {
  return Value::steal(
      PyObject_CallOneArg(reinterpret_cast<PyObject*>(&PyDict_Type), mapping.get()));
}

void set(const Value& dict, const Value& key, const Value& value) {
  check(PyDict_SetItem(dict.get(), key.get(), value.get()));
}

void set_default(const Value& dict, const Value& key, const Value& value) {
  check(PyDict_SetDefaultRef(dict.get(), key.get(), value.get(), nullptr));
}

Value real(double value) { return Value::steal(PyFloat_FromDouble(value)); }

double as_real(const Value& value) {
  return PyFloat_AS_DOUBLE(Value::steal(PyNumber_Float(value.get())).get());
}

Iterator::Iterator(const Value& iterable) {
  PyObject* const object = iterable.get();
  walked_ = PyList_CheckExact(object) || PyTuple_CheckExact(object)
                ? Value::borrow(object)
                : Value::steal(PyObject_GetIter(object));
}

Value Iterator::next_of_list() {
  Value item;
  Py_BEGIN_CRITICAL_SECTION(walked_.get());
  if (at_ < PyList_GET_SIZE(walked_.get())) {
    item = Value::borrow(PyList_GET_ITEM(walked_.get(), at_++));
  }
  Py_END_CRITICAL_SECTION();
  return item;
}

Value Iterator::next() {
  PyObject* const walked = walked_.get();
  if (PyList_CheckExact(walked)) return next_of_list();
  if (PyTuple_CheckExact(walked)) {
    return at_ < PyTuple_GET_SIZE(walked) ? Value::borrow(PyTuple_GET_ITEM(walked, at_++))
                                          : Value();
  }
  PyObject* const item = PyIter_Next(walked);
  if (item == nullptr && PyErr_Occurred() != nullptr) throw Error{};
  return item == nullptr ? Value() : Value::steal(item);
}

}  // namespace tavik::host
