// A value that is mostly one of the module's own words, such as a class label.
#pragma once

#include <optional>

#include "host/objects.hpp"
#include "host/vocabulary.hpp"

namespace tavik::host {

/// Own words are told apart by their numbers, not by their letters, and their strings stay with
/// their owner, which must live as long. Any other value is compared by the host.
template <class Word>
class Recognised {
 public:
  Recognised() = default;
  explicit Recognised(Value value) : other_(std::move(value)) {}
  Recognised(Word word, const Value& string) : string_(&string), own_(word) {}

  const Value& value() const { return own_ ? *string_ : other_.value(); }
  /// The word, when it is an own one.
  std::optional<Word> own() const { return own_; }
  /// value == word
  bool is(Word word) const { return own_ ? *own_ == word : equals_in_letters(word); }

 private:
  [[gnu::cold, gnu::noinline]] bool equals_in_letters(Word word) const {
    return equals(other_.value(), Indexed<Word>::text(word));
  }

  const Value* string_ = nullptr;
  Seldom other_;
  std::optional<Word> own_;
};

}  // namespace tavik::host
