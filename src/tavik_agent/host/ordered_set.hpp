// Hashable items, each once, in the order in which they were first added.
#pragma once

#include "host/value.hpp"

namespace tavik::host {

class OrderedSet {
 public:
  void add(const Value& item);
  void add_all(const Value& iterable);
  void add_all(const Values& values);
  /// A list of them, which nobody else holds. The set is at its end.
  Value take_list();

 private:
  bool holds_few_strings() const { return !seen_; }
  bool is_listed(const Value& string) const;
  void start_hashing();

  Value list_ = Value::steal(PyList_New(0));  ///< of a few exact strings ...
  Value seen_;                                ///< ... or else the keys of this dict
};

}  // namespace tavik::host
