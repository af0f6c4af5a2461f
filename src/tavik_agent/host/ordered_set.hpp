// Hashable items, each once, in the order in which they were first added.
#pragma once

#include "host/objects.hpp"

namespace tavik::host {

class OrderedSet {
 public:
  void add(Value item);
  void add_all(const Value& iterable);
  void add_all(const Values& values);
  /// They themselves, or a new list of them. The set is at its end.
  Values take();
  Value take_list() { return new_list(take()); }

 private:
  bool is_listed(const Value& string) const;
  void start_hashing();

  Values few_strings_;  ///< all items as long as they are a few exact strings ...
  Value seen_;          ///< ... or else the keys of this dict
};

}  // namespace tavik::host
