// Characters of UTF-8 text: decoding, ASCII letter case, stripping, and the questions about a
// character that only Unicode tables can answer. Lone surrogates are decoded like any other
// character, so every Python string has a reading here.
#pragma once

#include <cstddef>
#include <string_view>

namespace tavik::text {

/// What the rules ask of a character. Whoever searches a text brings the Unicode tables.
struct CharacterTables {
  bool (*is_word)(char32_t);       ///< a letter, a digit or the underscore
  bool (*is_space)(char32_t);      ///< white space
  int (*decimal_value)(char32_t);  ///< 0 to 9 for a decimal digit of any script, otherwise -1
};

struct Character {
  char32_t code;
  std::size_t width;  ///< in bytes
};

constexpr bool is_ascii(char byte) { return static_cast<unsigned char>(byte) < 0x80; }
constexpr bool is_ascii_upper(char byte) { return byte >= 'A' && byte <= 'Z'; }
constexpr bool is_ascii_lower(char byte) { return byte >= 'a' && byte <= 'z'; }
constexpr bool is_ascii_digit(char byte) { return byte >= '0' && byte <= '9'; }
constexpr char ascii_lower(char byte) {
  return is_ascii_upper(byte) ? static_cast<char>(byte | 0x20) : byte;
}
constexpr char ascii_upper(char byte) {
  return is_ascii_lower(byte) ? static_cast<char>(byte & ~0x20) : byte;
}
constexpr bool is_ascii_word(char byte) {
  return is_ascii_upper(byte) || is_ascii_lower(byte) || is_ascii_digit(byte) || byte == '_';
}

/// The character that starts at byte `at`, which must lie before the end of `text`.
Character character_at(std::string_view text, std::size_t at);

/// The character that ends just before byte `at`, which must not be 0.
Character character_before(std::string_view text, std::size_t at);

/// Whether one of the two neighbours of byte `at` is a word character and the other is not;
/// beyond the ends of `text` there is none.
bool is_word_boundary(std::string_view text, std::size_t at, const CharacterTables& tables);

/// `text` without leading and trailing white space.
std::string_view strip(std::string_view text, const CharacterTables& tables);

}  // namespace tavik::text
