// What a record is made from: a dict with every key in place. Copying it and replacing what differs
// takes a third of the time of filling a dict key by key. A replaced value costs as much as half a
// copy, so there are many templates, each with the labels of the record that it was made for.
#pragma once

#include "host/objects.hpp"
#include "host/vocabulary.hpp"
#include "material_characterization/names.hpp"

namespace tavik::characterization {

class RecordTemplate {
 public:
  using Values = host::Indexed<RecordKey>;

  RecordTemplate(const Values& keys, Values usual) : usual_(std::move(usual)) {
    for (const RecordKey key : host::all_words<RecordKey>()) {
      host::set(record_, keys[key], usual_[key]);
    }
  }

  /// A new record.
  host::Value copy() const { return host::copy_of_exact(record_); }
  /// What it holds under the key.
  const host::Value& usual(RecordKey key) const { return usual_[key]; }

  /// Calls action(value) for every host object that it holds.
  template <class Action>
  void for_each_held(Action action) {
    for (host::Value& value : usual_) action(value);
    action(record_);
  }

 private:
  Values usual_;
  host::Value record_ = host::new_dict();
};

}  // namespace tavik::characterization
