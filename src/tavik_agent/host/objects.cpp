// Kind tests, comparisons, look-ups and iteration on host values.
#include "host/objects.hpp"

#include <algorithm>
#include <initializer_list>

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

bool is_empty(const Value& value) {
  return value.is_null() || check(PyObject_IsTrue(value.get())) == 0;
}

bool is_mapping(const Value& value, const Value& mapping_type) {
  if (PyDict_Check(value.get())) return true;
  if (is_plainly_no_mapping(value)) return false;
  return check(PyObject_IsInstance(value.get(), mapping_type.get())) != 0;
}

Value text_form(const Value& value) { return Value::steal(PyObject_Str(value.get())); }

Value text_form_or_empty(const Value& value) {
  return is_empty(value) ? string("") : text_form(value);
}

bool equals(const Value& value, std::string_view text) {
  if (PyUnicode_CheckExact(value.get())) {
    return PyUnicode_EqualToUTF8AndSize(value.get(), text.data(),
                                        static_cast<Py_ssize_t>(text.size())) != 0;
  }
  return check(PyObject_RichCompareBool(value.get(), string(text).get(), Py_EQ)) != 0;
}

bool equals_any(const Value& value, std::initializer_list<std::string_view> texts) {
  return std::ranges::any_of(texts, [&](std::string_view text) { return equals(value, text); });
}

Value get(const Value& mapping, const Value& key) {
  if (!PyDict_CheckExact(mapping.get())) return call_method(mapping, "get", key);
  PyObject* found = nullptr;
  return check(PyDict_GetItemRef(mapping.get(), key.get(), &found)) == 0 ? Value::null()
                                                                         : Value::steal(found);
}

Value items(const Value& mapping) { return call_method(mapping, "items"); }

bool contains(const Value& collection, const Value& item) {
  if (is_exact_set(collection) && PyUnicode_CheckExact(item.get())) {
    return check(PySet_Contains(collection.get(), item.get())) != 0;
  }
  return check(PySequence_Contains(collection.get(), item.get())) != 0;
}

Value set_of(const Value& values) { return Value::steal(PySet_New(values.get())); }

bool is_subset(const Value& set, const Value& collection) {
  return !is_empty(call_method(set, "issubset", collection));
}

std::size_t length(const Value& sized) {
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

void append(const Value& list, const Value& item) { check(PyList_Append(list.get(), item.get())); }

Value list_of(const Value& iterable_or_empty) {
  if (is_empty(iterable_or_empty)) return new_list();
  return Value::steal(PySequence_List(iterable_or_empty.get()));
}

void OrderedSet::add(const Value& item) { check(PyDict_SetItem(seen_.get(), item.get(), Py_None)); }

void OrderedSet::add_all(const Value& iterable) {
  Iterator items(iterable);
  while (const Value item = items.next()) add(item);
}

Value OrderedSet::list() const { return Value::steal(PyDict_Keys(seen_.get())); }

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

Value boolean(bool value) { return Value::borrow(value ? Py_True : Py_False); }

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
  PyObject* const item = PyList_GetItemRef(walked_.get(), at_++);
  if (item == nullptr && PyErr_ExceptionMatches(PyExc_IndexError)) {
    PyErr_Clear();  // another thread made the list shorter meanwhile
    return Value();
  }
  return Value::steal(item);
}

Value Iterator::next() {
  PyObject* const walked = walked_.get();
  if (PyList_CheckExact(walked)) {
    return at_ < PyList_GET_SIZE(walked) ? next_of_list() : Value();
  }
  if (PyTuple_CheckExact(walked)) {
    return at_ < PyTuple_GET_SIZE(walked) ? Value::borrow(PyTuple_GET_ITEM(walked, at_++))
                                          : Value();
  }
  PyObject* const item = PyIter_Next(walked);
  if (item == nullptr && PyErr_Occurred() != nullptr) throw Error{};
  return item == nullptr ? Value() : Value::steal(item);
}

}  // namespace tavik::host
