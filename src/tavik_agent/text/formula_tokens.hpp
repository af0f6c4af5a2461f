// The two fixed formula patterns, as linear scanners:
//   token  \b(?:[A-Z][a-z]?\d*){1,8}\b    a word made of one to eight element-like parts
//   part   ([A-Z][a-z]?)(\d*)             a symbol and the digits behind it
// Word characters and digits are those of every script. No symbol is looked up here: that a part
// looks like an element is all that these scanners know.
#pragma once

#include <optional>
#include <string_view>

#include "text/characters.hpp"

namespace tavik::text {

/// A capital, alone or with a small letter.
constexpr bool is_symbol(std::string_view text) {
  return !text.empty() && text.size() <= 2 && is_ascii_upper(text[0]) &&
         (text.size() == 1 || is_ascii_lower(text[1]));
}

/// A number below symbol_numbers for whatever has the shape of a symbol.
constexpr std::size_t symbol_number(std::string_view symbol) {
  const auto first = static_cast<std::size_t>(symbol[0] - 'A');
  const auto second = symbol.size() == 1 ? 0 : static_cast<std::size_t>(symbol[1] - 'a' + 1);
  return first * 27 + second;
}
inline constexpr std::size_t symbol_numbers = symbol_number("Zz") + 1;

struct FormulaPart {
  std::string_view symbol;
  std::string_view count;  ///< decimal digits, possibly none
};

/// Reads the part at byte `at` and moves `at` behind it; nothing when no capital stands there.
std::optional<FormulaPart> read_part(std::string_view text, std::size_t& at,
                                     const CharacterTables& tables);

/// Whether `text` is a run of parts from end to end, at least one, and the test holds for each; it
/// is asked until it does not.
template <class Test>
bool all_parts(std::string_view text, const CharacterTables& tables, Test test) {
  for (std::size_t at = 0; at < text.size();) {
    const auto part = read_part(text, at, tables);
    if (!part || !test(*part)) return false;
  }
  return !text.empty();
}

/// Gives the formula tokens of a text, from left to right. Each character is read once or twice.
class FormulaTokens {
 public:
  FormulaTokens(std::string_view text, const CharacterTables& tables)
      : text_(text), tables_(tables) {}

  /// The next token; nothing after the last one.
  std::optional<std::string_view> next();

 private:
  std::string_view text_;
  const CharacterTables& tables_;
  std::size_t at_ = 0;
};

}  // namespace tavik::text
