// A value that is mostly one of the module's own words, such as a class label.
#pragma once

#include "host/objects.hpp"
#include "host/vocabulary.hpp"

namespace tavik::host {

/// Own words are told apart by their numbers, not by their letters, and their strings stay with
/// their owner, which must live as long. Any other value is compared by the host.
template <class Word>
class Recognised {
 public:
  Recognised() = default;
  explicit Recognised(Value value) : value_(std::move(value)) {}
  Recognised(Word word, const Value& string) : value_(string.get()), word_(word), is_own_(true) {}
  Recognised(Recognised&&) = default;
  Recognised& operator=(Recognised&& other) noexcept {
    let_go();
    value_.object_ = other.value_.release();
    word_ = other.word_;
    is_own_ = other.is_own_;
    return *this;
  }
  ~Recognised() { let_go(); }

  const Value& value() const { return value_; }
  bool is_own() const { return is_own_; }
  /// The word, when it is an own one; otherwise the first of all.
  Word word() const { return word_; }
  /// value == word
  bool is(Word word) const { return is_own_ ? word_ == word : equals_in_letters(word); }

 private:
  [[gnu::cold, gnu::noinline]] bool equals_in_letters(Word word) const {
    return equals(value_, Indexed<Word>::text(word));
  }
  /// References are counted of values of others only; nearly always there is none.
  void let_go() {
    if (!is_own_ && value_) [[unlikely]]
      drop();
    value_.release();
  }
  [[gnu::cold, gnu::noinline]] void drop() { value_ = Value(); }

  Value value_;
  Word word_{};
  bool is_own_ = false;
};

}  // namespace tavik::host
