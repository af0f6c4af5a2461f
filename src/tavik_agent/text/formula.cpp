// A token starts at a word boundary, holds word characters only and ends at a word boundary. So it
// is always one whole word, and since every part starts with a capital there is one way to split
// it.
#include "text/formula.hpp"

namespace tavik::text {
namespace {

constexpr int longest_token = 8;  // in parts

/// The width of the word character at byte `at`; 0 when there is none.
std::size_t word_character(std::string_view text, std::size_t at, const CharacterTables& tables) {
  if (is_ascii(text[at])) return is_ascii_word(text[at]) ? 1 : 0;
  const Character character = character_at(text, at);
  return tables.is_word(character.code) ? character.width : 0;
}

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

/// Reads the part at byte `at` and moves `at` behind it; nothing when no capital stands there.
std::optional<FormulaPart> read_part(std::string_view text, std::size_t& at,
                                     const CharacterTables& tables) {
  if (!is_ascii_upper(text[at])) return std::nullopt;
  const std::size_t letters = at + 1 < text.size() && is_ascii_lower(text[at + 1]) ? 2 : 1;
  const std::size_t end = after_digits(text, at + letters, tables);
  const FormulaPart part{text.substr(at, letters), text.substr(at + letters, end - at - letters)};
  at = end;
  return part;
}

bool is_token(std::string_view word, const CharacterTables& tables) {
  int parts = 0;
  for (std::size_t at = 0; at < word.size(); ++parts) {
    if (parts == longest_token || !read_part(word, at, tables)) return false;
  }
  return true;
}

}  // namespace

std::vector<FormulaPart> split_formula(std::string_view text, const CharacterTables& tables) {
  std::vector<FormulaPart> parts;
  for (std::size_t at = 0; at < text.size();) {
    const auto part = read_part(text, at, tables);
    if (!part) return {};
    parts.push_back(*part);
  }
  return parts;
}

std::string_view FormulaTokens::next_word() {
  while (at_ < text_.size() && word_character(text_, at_, tables_) == 0) {
    at_ += character_at(text_, at_).width;
  }
  const std::size_t begin = at_;
  while (at_ < text_.size()) {
    const std::size_t width = word_character(text_, at_, tables_);
    if (width == 0) break;
    at_ += width;
  }
  return text_.substr(begin, at_ - begin);
}

std::optional<std::string_view> FormulaTokens::next() {
  for (std::string_view word = next_word(); !word.empty(); word = next_word()) {
    if (is_token(word, tables_)) return word;
  }
  return std::nullopt;
}

}  // namespace tavik::text
