// The two fixed formula patterns, as linear scanners:
//   token  \b(?:[A-Z][a-z]?\d*){1,8}\b    a word made of one to eight element-like parts
//   part   ([A-Z][a-z]?)(\d*)             a symbol and the digits behind it
// Word characters and digits are those of every script. No symbol is looked up here: that a part
// looks like an element is all that these scanners know.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "text/characters.hpp"

namespace tavik::text {

struct FormulaPart {
  std::string_view symbol;
  std::string_view count;  ///< decimal digits, possibly none
};

/// The parts of `text`, or none when it is anything but a run of parts from end to end.
std::vector<FormulaPart> split_formula(std::string_view text, const CharacterTables& tables);

/// Gives the formula tokens of a text, from left to right. Each character is read once or twice.
class FormulaTokens {
 public:
  FormulaTokens(std::string_view text, const CharacterTables& tables)
      : text_(text), tables_(tables) {}

  /// The next token; nothing after the last one.
  std::optional<std::string_view> next();

 private:
  std::string_view next_word();

  std::string_view text_;
  const CharacterTables& tables_;
  std::size_t at_ = 0;
};

}  // namespace tavik::text
