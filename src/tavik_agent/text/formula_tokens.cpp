// A token starts at a word boundary, holds word characters only and ends at a word boundary. So it
// is always one whole word that starts with a capital, and since every part does there is one way
// to split it.
#include "text/formula_tokens.hpp"

#include <algorithm>

namespace tavik::text {
namespace {

constexpr int longest_token = 8;  // in parts

std::size_t after_digits(std::string_view text, std::size_t at, const CharacterTables& tables) {
  while (at < text.size()) {
    if (is_ascii(text[at])) {
      if (!is_ascii_digit(text[at])) break;
      ++at;
    } else {
      const Character character = character_at(text, at);
      if (tables.decimal_value(character.code) < 0) break;
      at += character.width;
    }
  }
  return at;
}

/// Where up to eight parts that start at byte `at` end.
std::size_t after_parts(std::string_view text, std::size_t at, const CharacterTables& tables) {
  for (int part = 0; part < longest_token && at < text.size(); ++part) {
    if (!read_part(text, at, tables)) break;
  }
  return at;
}

bool starts_word(std::string_view text, std::size_t at, const CharacterTables& tables) {
  if (at == 0) return true;
  const char before = text[at - 1];
  return is_ascii(before) ? !is_ascii_word(before) : is_word_boundary(text, at, tables);
}

bool ends_word(std::string_view text, std::size_t at, const CharacterTables& tables) {
  if (at == text.size()) return true;
  if (is_ascii(text[at])) return !is_ascii_word(text[at]);
  return !tables.is_word(character_at(text, at).code);
}

}  // namespace

std::optional<FormulaPart> read_part(std::string_view text, std::size_t& at,
                                     const CharacterTables& tables) {
  if (!is_ascii_upper(text[at])) return std::nullopt;
  const std::size_t letters = at + 1 < text.size() && is_ascii_lower(text[at + 1]) ? 2 : 1;
  const std::size_t end = after_digits(text, at + letters, tables);
  const FormulaPart part{text.substr(at, letters), text.substr(at + letters, end - at - letters)};
  at = end;
  return part;
}

std::optional<std::string_view> FormulaTokens::next() {
  for (;;) {
    const auto capital = std::find_if(text_.begin() + at_, text_.end(), is_ascii_upper);
    if (capital == text_.end()) return std::nullopt;
    const auto begin = static_cast<std::size_t>(capital - text_.begin());
    at_ = begin + 1;
    if (!starts_word(text_, begin, tables_)) continue;
    const std::size_t end = after_parts(text_, begin, tables_);
    if (ends_word(text_, end, tables_)) return text_.substr(begin, end - begin);
  }
}

}  // namespace tavik::text
