// ASCII text is lowered by hand, and only when it has capitals; all other text by the host.
#include "host/text.hpp"

#include <algorithm>

#include "host/objects.hpp"

namespace tavik::host {
namespace {

/// Whether the text is the words, a blank and something more, so that each is read as it is alone.
bool begins_with(const Value& text, const Value& words) {
  if (!is_exact_ascii(text) || !is_exact_ascii(words) || is_empty(words)) return false;
  const std::string_view whole = ascii_view(text);
  const std::string_view part = ascii_view(words);
  return whole.starts_with(part) && whole.substr(part.size()).starts_with(' ') &&
         text::strip(part, character_tables()).size() == part.size();
}

}  // namespace

Text::Text(Value value, Text& other) : value_(std::move(value)) {
  if (begins_with(value_, other.value_)) beginning_ = &other;
}

std::string_view Text::utf8() {
  if (!utf8_) utf8_.emplace(value_);
  return utf8_->view();
}

void Text::lower() {
  if (!is_exact_ascii(value_)) {
    lowered_other_ = Utf8(host::lower(value_));
    lowered_ = lowered_other_.view();
  } else if (text::find_capital(utf8(), 0) == utf8().size()) {
    lowered_ = utf8();
  } else {
    char* const small = lowered_ascii_.make_room(utf8().size());
    text::lower(utf8(), small);
    lowered_ = std::string_view(small, utf8().size());
  }
}

std::string_view Text::lowered() {
  if (!lowered_) lower();
  return *lowered_;
}

void Text::find_keywords() {
  if (beginning_ == nullptr) {
    mentions_ = text::find_keywords(lowered(), character_tables());
  } else {
    mentions_ = text::find_more_keywords(lowered(), beginning_->lowered().size(),
                                         beginning_->mentions(), character_tables());
  }
}

std::string_view Text::phrase_context() { return text::strip(lowered(), character_tables()); }

const text::PhraseIndex::Rows& Text::phrases(const text::PhraseIndex& index) {
  if (searched_for_ != &index) {
    if (beginning_ != nullptr) {
      phrases_.emplace(index.find_more(phrase_context(), beginning_->lowered().size(),
                                       beginning_->phrases(index)));
    } else {
      phrases_.emplace(index.find(phrase_context()));
    }
    searched_for_ = &index;
  }
  return *phrases_;
}

}  // namespace tavik::host
