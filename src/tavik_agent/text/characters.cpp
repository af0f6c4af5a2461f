// Decoding of single characters, forwards and backwards, and what is built on it.
#include "text/characters.hpp"

namespace tavik::text {
namespace {

constexpr bool is_continuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

constexpr std::size_t width_from_lead(unsigned char lead) {
  return lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

bool is_word(const Character& character, const CharacterTables& tables) {
  return character.width == 1 ? is_ascii_word(static_cast<char>(character.code))
                              : tables.is_word(character.code);
}

}  // namespace

Character character_at(std::string_view text, std::size_t at) {
  const auto lead = static_cast<unsigned char>(text[at]);
  const std::size_t width = width_from_lead(lead);
  if (width == 1) return {lead, 1};
  char32_t code = lead & (0xFFU >> (width + 1));
  for (std::size_t i = 1; i < width; ++i) {
    code = (code << 6) | (static_cast<unsigned char>(text[at + i]) & 0x3FU);
  }
  return {code, width};
}

Character character_before(std::string_view text, std::size_t at) {
  std::size_t start = at - 1;
  while (is_continuation(text[start])) --start;
  return character_at(text, start);
}

bool is_word_boundary(std::string_view text, std::size_t at, const CharacterTables& tables) {
  const bool before = at > 0 && is_word(character_before(text, at), tables);
  const bool after = at < text.size() && is_word(character_at(text, at), tables);
  return before != after;
}

std::string_view strip(std::string_view text, const CharacterTables& tables) {
  while (!text.empty()) {
    const Character first = character_at(text, 0);
    if (!tables.is_space(first.code)) break;
    text.remove_prefix(first.width);
  }
  while (!text.empty()) {
    const Character last = character_before(text, text.size());
    if (!tables.is_space(last.code)) break;
    text.remove_suffix(last.width);
  }
  return text;
}

}  // namespace tavik::text
