// ASCII text is lowered by hand, and only when it has capitals; all other text by the host.
#include "host/text.hpp"

#include <algorithm>

#include "host/objects.hpp"

namespace tavik::host {

std::string_view Text::utf8() {
  if (!utf8_) utf8_.emplace(value_);
  return utf8_->view();
}

void Text::lower() {
  if (!is_exact_string(value_) || !PyUnicode_IS_ASCII(value_.get())) {
    lowered_other_ = Utf8(host::lower(value_));
    lowered_ = lowered_other_.view();
  } else if (std::ranges::none_of(utf8(), text::is_ascii_upper)) {
    lowered_ = utf8();
  } else {
    lowered_ascii_.resize(utf8().size());
    std::ranges::transform(utf8(), lowered_ascii_.begin(), text::ascii_lower);
    lowered_ = lowered_ascii_;
  }
}

std::string_view Text::lowered() {
  if (!lowered_) lower();
  return *lowered_;
}

const text::Mentions& Text::mentions() {
  if (!mentions_) mentions_ = text::find_keywords(lowered(), character_tables());
  return *mentions_;
}

WrittenForm::WrittenForm(Text& text) : given_(text) {
  if (!is_exact_string(text.value())) converted_.emplace(text_form_or_empty(text.value()));
}

}  // namespace tavik::host
