// A Python value that is read as text, with what was learnt of it. Its bytes, its lowered form and
// what is found in it are worked out when first asked for and kept, so classifiers that share one
// Text share that work. A Text lives within one call.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "py/strings.hpp"
#include "text/keyword_scan.hpp"
#include "text/phrase_index.hpp"

namespace tavik::py {

class Text {
 public:
  /// Any value is accepted; what is not a string fails in Python's way when it is read.
  explicit Text(Object value) : value_(std::move(value)) {}
  Text(const Text&) = delete;  // the views below point into the object itself
  Text& operator=(const Text&) = delete;

  const Object& value() const { return value_; }

  /// The characters as they stand. The value must be a string.
  std::string_view utf8();
  /// value.lower()
  std::string_view lowered();
  /// The lowered text without white space at its ends.
  std::string_view stripped() { return text::strip(lowered(), character_tables); }
  /// The keyword groups that the lowered text mentions.
  const text::Mentions& mentions();
  bool mentions(text::Group group) { return mentions().has(group); }
  /// The rows of an index whose phrases occur in the stripped text.
  const text::PhraseIndex::Rows& phrases(const text::PhraseIndex& index);

 private:
  void lower();

  Object value_;
  std::optional<Utf8> utf8_;
  std::optional<std::string_view> lowered_;  ///< into one of the two below
  std::string lowered_ascii_;
  Utf8 lowered_other_;
  std::optional<text::Mentions> mentions_;
  std::optional<text::PhraseIndex::Rows> phrases_;
  const text::PhraseIndex* searched_for_ = nullptr;  ///< the index that these are rows of
};

/// str(value or "") of a Text, as a Text: the one given when it is that already.
class TextForm {
 public:
  explicit TextForm(Text& text) : given_(text) {
    if (!is_exact_string(text.value())) converted_.emplace(text_form_or_empty(text.value()));
  }
  Text& operator*() { return converted_ ? *converted_ : given_; }
  Text* operator->() { return &**this; }

 private:
  Text& given_;
  std::optional<Text> converted_;
};

}  // namespace tavik::py
