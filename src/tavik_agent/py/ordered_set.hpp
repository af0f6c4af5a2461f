// Hashable items, each once, in the order in which they were first added: the keys of a dict, which
// is made when there is an item.
#pragma once

#include "py/containers.hpp"

namespace tavik::py {

class OrderedSet {
 public:
  void add(const Object& item) {
    if (!items_) items_ = new_dict();
    set_item(items_, item, none());
  }
  void add_all(const Object& iterable) {
    Iterator items(iterable);
    while (const Object item = items.next()) add(item);
  }
  void add_all(const Objects& objects) {
    for (const Object& object : objects) add(object);
  }
  std::size_t size() const { return items_ ? length(items_) : 0; }
  /// A new list of them.
  Object list() const { return items_ ? Object::steal(PyDict_Keys(items_.get())) : new_list(); }

 private:
  Object items_;
};

}  // namespace tavik::py
