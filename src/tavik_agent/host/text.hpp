// A host value that is read as text, with what was learnt of it. Its bytes, its lowered form and
// the keywords in it are worked out when first asked for and kept, so classifiers that share one
// Text share that work. A Text lives within one call.
#pragma once

#include <optional>
#include <string_view>

#include "host/strings.hpp"
#include "host/value.hpp"
#include "text/buffer.hpp"
#include "text/keyword_scan.hpp"
#include "text/phrase_index.hpp"

namespace tavik::host {

class Text {
 public:
  /// Any value is accepted; what is not a string fails in the host's way when it is read.
  explicit Text(Value value) : value_(std::move(value)) {}
  /// A text that may begin with another one. What was learnt of that is then not worked out again:
  /// the joined text of a request mostly begins with its query. The other text must live as long.
  Text(Value value, Text& other);
  Text(const Text&) = delete;  // the views below point into the object itself
  Text& operator=(const Text&) = delete;

  const Value& value() const { return value_; }

  /// The characters as they stand. The value must be a string.
  std::string_view utf8();
  /// value.lower()
  std::string_view lowered();
  /// Whether a keyword of the group occurs in the lowered text.
  bool mentions(text::Group group) { return mentions().has(group); }
  const text::Mentions& mentions() {
    if (!mentions_) find_keywords();
    return *mentions_;
  }
  /// The lowered text without white space at its ends, as phrases are looked for in it.
  std::string_view phrase_context();
  /// The rows of an index whose phrases occur there.
  const text::PhraseIndex::Rows& phrases(const text::PhraseIndex& index);

 private:
  void lower();
  void find_keywords();

  Value value_;
  Text* beginning_ = nullptr;
  std::optional<Utf8> utf8_;
  std::optional<std::string_view> lowered_;  ///< into one of the two below, or into utf8_
  text::Buffer lowered_ascii_;
  Utf8 lowered_other_;
  std::optional<text::Mentions> mentions_;
  std::optional<text::PhraseIndex::Rows> phrases_;
  const text::PhraseIndex* searched_for_ = nullptr;  ///< the index that these are rows of
};

/// The text form of a non-empty value or "", as a Text: the one given when it is that already.
class WrittenForm {
 public:
  explicit WrittenForm(Text& text) : given_(text) {
    if (!is_exact_string(text.value())) [[unlikely]]
      convert();
  }
  Text& operator*() { return converted_ ? *converted_ : given_; }
  Text* operator->() { return &**this; }

 private:
  [[gnu::cold]] void convert() { converted_.emplace(text_form_or_empty(given_.value())); }

  Text& given_;
  std::optional<Text> converted_;
};

}  // namespace tavik::host
