// The species of a request are a handful of short strings. Comparing them one by one takes a third
// of the time of making a dict for them, so a dict is made only for more items, or for other ones.
#include "host/ordered_set.hpp"

#include <algorithm>

namespace tavik::host {
namespace {

constexpr std::size_t few = 8;

}  // namespace

bool OrderedSet::is_listed(const Value& string) const {
  return std::ranges::any_of(few_strings_, [&](const Value& listed) {
    return listed.is_same(string) || PyUnicode_Compare(listed.get(), string.get()) == 0;
  });
}

void OrderedSet::start_hashing() {
  seen_ = new_dict();
  for (const Value& item : few_strings_) set(seen_, item, Value::null());
}

void OrderedSet::add(Value item) {
  if (!seen_) {
    if (is_exact_string(item) && few_strings_.size() < few) {
      if (!is_listed(item)) few_strings_.push_back(std::move(item));
      return;
    }
    start_hashing();
  }
  set(seen_, item, Value::null());
}

void OrderedSet::add_all(const Value& iterable) {
  Iterator items(iterable);
  while (Value item = items.next()) add(std::move(item));
}

void OrderedSet::add_all(const Values& values) {
  for (const Value& value : values) add(value.another());
}

Values OrderedSet::take() {
  if (!seen_) return std::move(few_strings_);
  Values keys;
  all_keys(seen_, [&](const Value& key) {
    keys.push_back(key.another());
    return true;
  });
  return keys;
}

}  // namespace tavik::host
