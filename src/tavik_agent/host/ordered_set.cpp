// The species of a request are a handful of short strings. Comparing them one by one takes a third
// of the time of making a dict for them, so a dict is made only for more items, or for other ones.
#include "host/ordered_set.hpp"

#include "host/objects.hpp"

namespace tavik::host {
namespace {

constexpr Py_ssize_t few = 8;

}  // namespace

bool OrderedSet::is_listed(const Value& string) const {
  for (Py_ssize_t i = 0; i < PyList_GET_SIZE(list_.get()); ++i) {
    PyObject* const item = PyList_GET_ITEM(list_.get(), i);
    if (item == string.get() || PyUnicode_Compare(item, string.get()) == 0) return true;
  }
  return false;
}

void OrderedSet::start_hashing() {
  seen_ = new_dict();
  Iterator items(list_);
  while (const Value item = items.next()) set(seen_, item, Value::null());
}

void OrderedSet::add(const Value& item) {
  if (holds_few_strings()) {
    if (is_exact_string(item) && PyList_GET_SIZE(list_.get()) < few) {
      if (!is_listed(item)) append(list_, item);
      return;
    }
    start_hashing();
  }
  set(seen_, item, Value::null());
}

void OrderedSet::add_all(const Value& iterable) {
  Iterator items(iterable);
  while (const Value item = items.next()) add(item);
}

void OrderedSet::add_all(const Values& values) {
  for (const Value& value : values) add(value);
}

Value OrderedSet::take_list() {
  return holds_few_strings() ? std::move(list_) : Value::steal(PyDict_Keys(seen_.get()));
}

}  // namespace tavik::host
