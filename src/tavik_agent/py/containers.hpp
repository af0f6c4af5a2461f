// Python's containers: look-ups, iteration, membership, and the making of lists, sets and dicts.
// The direct paths are for exact built-in types only and give what Python's own operation gives.
#pragma once

#include <algorithm>
#include <utility>

#include "py/calls.hpp"
#include "py/strings.hpp"
#include "py/values.hpp"

namespace tavik::py {

/// mapping.get(key)
Object get(const Object& mapping, const Object& key);
/// mapping.items(), as something to walk
inline Object items(const Object& mapping) { return call_method(mapping, "items"); }
/// item in collection
inline bool contains(const Object& collection, const Object& item) {
  return check(PySequence_Contains(collection.get(), item.get())) != 0;
}
/// len(sized)
inline std::size_t length(const Object& sized) {
  return static_cast<std::size_t>(check(PyObject_Size(sized.get())));
}
/// sequence[0]
Object first(const Object& sequence);
/// first, second = pair
std::pair<Object, Object> unpack_pair(const Object& pair);
inline Object new_list() { return Object::steal(PyList_New(0)); }
inline void append(const Object& list, const Object& item) {
  check(PyList_Append(list.get(), item.get()));
}
/// list(iterable or [])
Object list_of_items(const Object& iterable_or_empty);
/// A new tuple.
template <class... Items>
Object tuple_of(const Items&... items) {
  return Object::steal(PyTuple_Pack(sizeof...(items), items.get()...));
}
/// tuple[at], where the tuple has as many items
inline Object item(const Object& tuple, std::size_t at) {
  return Object::borrow(PyTuple_GET_ITEM(tuple.get(), static_cast<Py_ssize_t>(at)));
}

/// set(iterable)
inline Object set_of(const Object& iterable) { return Object::steal(PySet_New(iterable.get())); }
Object set_of(const Objects& objects);
/// set.issubset(collection)
bool is_subset(const Object& set, const Object& collection);

inline Object new_dict() { return Object::steal(PyDict_New()); }
/// A copy of an exact dict.
inline Object copy_of(const Object& dict) { return Object::steal(PyDict_Copy(dict.get())); }
/// dict(mapping)
Object dict_of(const Object& mapping);
/// dict[key] = value
inline void set_item(const Object& dict, const Object& key, const Object& value) {
  check(PyDict_SetItem(dict.get(), key.get(), value.get()));
}
/// dict.setdefault(key, value)
void set_default(const Object& dict, const Object& key, const Object& value);
/// tuple(dict) and tuple(dict.values()), for an exact dict
Object keys_of(const Object& dict);
Object values_of(const Object& dict);

/// Whether every item of an exact tuple is an exact string.
bool all_exact_strings(const Object& tuple);

/// Walks an iterable in Python's way: a list may change while it is walked.
class Iterator {
 public:
  explicit Iterator(const Object& iterable);
  /// The next item; no object after the last one.
  Object next();

 private:
  Object next_of_list();

  Object walked_;  ///< an exact list or tuple, or else Python's iterator
  Py_ssize_t at_ = 0;
};

/// Calls visit(text) for each text in (str(item).strip() for item in iterable) that is not empty.
template <class Visit>
void for_each_stripped_text(const Object& iterable, Visit visit) {
  Iterator items(iterable);
  while (const Object item = items.next()) {
    Object text = strip(text_form(item));
    if (!is_empty(text)) visit(std::move(text));
  }
}
/// A list of them.
Objects stripped_texts_of(const Object& iterable);

/// The items of an exact list when all of them are exact strings; otherwise none.
Objects exact_strings_in(const Object& items);

/// set(items) <= right(): the set is made before right() is called. For a list of plain strings and
/// an exact set it is not made, as nobody can tell.
template <class Right>
bool all_are_in(const Object& items, Right right) {
  const Objects strings = exact_strings_in(items);
  if (strings.empty()) {
    const Object set = set_of(items);
    return is_subset(set, right());
  }
  const Object collection = right();
  if (!is_exact_set(collection)) return is_subset(set_of(strings), collection);
  return std::ranges::all_of(strings, [&](auto& string) { return contains(collection, string); });
}

/// item in left.union(right()): the method is looked up before right() is called. For exact sets
/// the union is not made: an item that is a plain string is in it when it is in either.
template <class Right>
bool union_contains(const Object& left, Right right, const Object& item) {
  if (is_exact_set(left) && is_exact_string(item)) {
    const Object other = right();
    if (is_exact_set(other)) return contains(left, item) || contains(other, item);
    return contains(call_method(left, "union", other), item);
  }
  const Object unite = attribute(left, "union");
  return contains(call(unite, right()), item);
}

}  // namespace tavik::py
