// Look-ups, unpacking and iteration on Python's containers.
#include "py/containers.hpp"

namespace tavik::py {

Object get(const Object& mapping, const Object& key) {
  if (!is_exact_dict(mapping)) return call_method(mapping, "get", key);
  if (PyDict_GET_SIZE(mapping.get()) == 0) return none();
  PyObject* found = nullptr;
  return check(PyDict_GetItemRef(mapping.get(), key.get(), &found)) == 0 ? none()
                                                                         : Object::steal(found);
}

Object first(const Object& sequence) {
  return Object::steal(PyObject_GetItem(sequence.get(), Object::steal(PyLong_FromLong(0)).get()));
}

std::pair<Object, Object> unpack_pair(const Object& pair) {
  if (Py_TYPE(pair.get())->tp_iter == nullptr && !PySequence_Check(pair.get())) {
    raise(PyExc_TypeError, "cannot unpack non-iterable %.200s object",
          Py_TYPE(pair.get())->tp_name);
  }
  Iterator members(pair);
  Object first = members.next();
  Object second = first ? members.next() : Object();
  if (!second) {
    raise(PyExc_ValueError, "not enough values to unpack (expected 2, got %d)", first ? 1 : 0);
  }
  if (members.next()) raise(PyExc_ValueError, "too many values to unpack (expected 2)");
  return {std::move(first), std::move(second)};
}

Objects stripped_texts_of(const Object& iterable) {
  Objects texts;
  if (is_exact_list(iterable)) texts.reserve(length(iterable));
  for_each_stripped_text(iterable, [&](Object text) { texts.push_back(std::move(text)); });
  return texts;
}

Object list_of_items(const Object& iterable_or_empty) {
  if (is_empty(iterable_or_empty)) return new_list();
  return Object::steal(PySequence_List(iterable_or_empty.get()));
}

Object set_of(const Objects& objects) {
  Object set = Object::steal(PySet_New(nullptr));
  for (const Object& object : objects) check(PySet_Add(set.get(), object.get()));
  return set;
}

bool is_subset(const Object& set, const Object& collection) {
  return !is_empty(call_method(set, "issubset", collection));
}

Object dict_of(const Object& mapping) {
  return Object::steal(
      PyObject_CallOneArg(reinterpret_cast<PyObject*>(&PyDict_Type), mapping.get()));
}

void set_default(const Object& dict, const Object& key, const Object& value) {
  check(PyDict_SetDefaultRef(dict.get(), key.get(), value.get(), nullptr));
}

Object keys_of(const Object& dict) {
  return Object::steal(PyList_AsTuple(Object::steal(PyDict_Keys(dict.get())).get()));
}

Object values_of(const Object& dict) {
  return Object::steal(PyList_AsTuple(Object::steal(PyDict_Values(dict.get())).get()));
}

bool all_exact_strings(const Object& tuple) {
  Iterator items(tuple);
  while (const Object item = items.next()) {
    if (!is_exact_string(item)) return false;
  }
  return true;
}

Iterator::Iterator(const Object& iterable) {
  PyObject* const object = iterable.get();
  walked_ = PyList_CheckExact(object) || PyTuple_CheckExact(object)
                ? Object::borrow(object)
                : Object::steal(PyObject_GetIter(object));
}

Object Iterator::next_of_list() {
  Object item;
  Py_BEGIN_CRITICAL_SECTION(walked_.get());
  if (at_ < PyList_GET_SIZE(walked_.get())) {
    item = Object::borrow(PyList_GET_ITEM(walked_.get(), at_++));
  }
  Py_END_CRITICAL_SECTION();
  return item;
}

Object Iterator::next() {
  PyObject* const walked = walked_.get();
  if (PyList_CheckExact(walked)) return next_of_list();
  if (PyTuple_CheckExact(walked)) {
    return at_ < PyTuple_GET_SIZE(walked) ? Object::borrow(PyTuple_GET_ITEM(walked, at_++))
                                          : Object();
  }
  PyObject* const item = PyIter_Next(walked);
  if (item == nullptr && PyErr_Occurred() != nullptr) throw Error{};
  return item == nullptr ? Object() : Object::steal(item);
}

Objects exact_strings_in(const Object& items) {
  Objects strings;
  if (!is_exact_list(items)) return strings;
  strings.reserve(length(items));
  Iterator walk(items);
  while (Object item = walk.next()) {
    if (!is_exact_string(item)) return {};
    strings.push_back(std::move(item));
  }
  return strings;
}

}  // namespace tavik::py
