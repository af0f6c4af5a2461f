// ASCII text is lowered by hand, all other text by Python.
#include "py/text.hpp"

#include <algorithm>

namespace tavik::py {

std::string_view Text::utf8() {
  if (!utf8_) utf8_.emplace(value_);
  return utf8_->view();
}

void Text::lower() {
  if (is_exact_ascii(value_)) {
    lowered_ascii_.resize(ascii_view(value_).size());
    std::ranges::transform(ascii_view(value_), lowered_ascii_.begin(), text::ascii_lower);
    lowered_ = lowered_ascii_;
  } else {
    lowered_other_ = Utf8(py::lower(value_));
    lowered_ = lowered_other_.view();
  }
}

std::string_view Text::lowered() {
  if (!lowered_) lower();
  return *lowered_;
}

const text::Mentions& Text::mentions() {
  if (!mentions_) mentions_ = text::find_keywords(lowered(), character_tables);
  return *mentions_;
}

const text::PhraseIndex::Rows& Text::phrases(const text::PhraseIndex& index) {
  if (searched_for_ != &index) {
    phrases_ = index.find(stripped());
    searched_for_ = &index;
  }
  return *phrases_;
}

}  // namespace tavik::py
