// The search goes by a table on the first letters of each keyword, as in the method of Wu and
// Manber without its jumps: three letters of the text are looked up in a bit filter, and only where
// a keyword may begin with them are the keywords with these first two letters compared. The
// acceptance tests of the keywords that stand for a pattern are here, too.
#include "text/keyword_scan.hpp"

#include <array>
#include <cstddef>
#include <cstdint>

#include "text/bit_filter.hpp"

namespace tavik::text {
namespace {

constexpr std::uint32_t bytes = 256;

constexpr std::uint32_t code_of(char byte) { return static_cast<unsigned char>(byte); }
constexpr std::uint32_t pair_of(char first, char second) {
  return code_of(first) | code_of(second) << 8;
}

/// A hash of so many bits of some letters.
template <int bits>
constexpr std::size_t hash_of(std::uint32_t letters) {
  return letters * 0x9E3779B1U >> (32 - bits);
}
constexpr int filter_bits = 16;
constexpr int table_bits = 10;

/// Whether the keyword, which has two letters, counts with this byte behind it.
constexpr bool may_precede(const Keyword& keyword, std::uint32_t third) {
  return keyword.accepted != whole_word || !is_ascii_word(static_cast<char>(third));
}

/// The first three letters of all keywords.
constexpr auto beginnings = [] {
  BitFilter<std::array<std::uint64_t, (std::size_t{1} << filter_bits) / 64>> filter;
  for (const Keyword& keyword : keywords) {
    const std::uint32_t pair = pair_of(keyword.text[0], keyword.text[1]);
    if (keyword.text.size() > 2) {
      filter.add(hash_of<filter_bits>(pair | code_of(keyword.text[2]) << 16));
      continue;
    }
    for (std::uint32_t third = 0; third < bytes; ++third) {
      if (may_precede(keyword, third)) filter.add(hash_of<filter_bits>(pair | third << 16));
    }
  }
  return filter;
}();

/// The rows of the keywords, sorted by a hash of their first two letters.
struct RowsByPair {
  static constexpr std::size_t slots = std::size_t{1} << table_bits;
  static constexpr std::size_t slot(char first, char second) {
    return hash_of<table_bits>(pair_of(first, second));
  }

  constexpr RowsByPair() {
    for (const Keyword& keyword : keywords) ++begin[slot(keyword.text[0], keyword.text[1]) + 1];
    for (std::size_t i = 0; i < slots; ++i) begin[i + 1] += begin[i];
    auto next = begin;
    for (std::size_t row = 0; row < keywords.size(); ++row) {
      rows[next[slot(keywords[row].text[0], keywords[row].text[1])]++] =
          static_cast<std::uint16_t>(row);
    }
  }

  std::array<std::uint16_t, slots + 1> begin{};  ///< where in `rows` those of a slot begin
  std::array<std::uint16_t, keywords.size()> rows{};
};
constexpr RowsByPair by_pair;

std::size_t skip(std::string_view text, std::size_t at, char optional) {
  return at < text.size() && text[at] == optional ? at + 1 : at;
}

/// word, then an optional "s", then a word boundary.
bool word_follows(std::string_view text, std::size_t at, std::string_view word,
                  const CharacterTables& tables) {
  if (text.substr(at, word.size()) != word) return false;
  return is_word_boundary(text, skip(text, at + word.size(), 's'), tables);
}

/// The width of the white-space character at byte `at`; 0 when there is none.
std::size_t space_at(std::string_view text, std::size_t at, const CharacterTables& tables) {
  if (at >= text.size()) return 0;
  const Character character = character_at(text, at);
  return tables.is_space(character.code) ? character.width : 0;
}

bool volts_follow(std::string_view text, std::size_t at, const CharacterTables& tables) {
  const std::size_t hyphen = skip(text, at, '-') - at;
  const std::size_t separator = hyphen != 0 ? hyphen : space_at(text, at, tables);
  return word_follows(text, at + separator, "volt", tables);
}

bool units_follow(std::string_view text, std::size_t begin, const CharacterTables& tables) {
  std::size_t at = begin;
  while (const std::size_t width = space_at(text, at, tables)) at += width;
  return at > begin && word_follows(text, at, "unit", tables);
}

/// Whether the occurrence [begin, end) of a keyword counts.
bool is_accepted(Accepted accepted, std::string_view text, std::size_t begin, std::size_t end,
                 const CharacterTables& tables) {
  if (accepted == anywhere) return true;
  if (!is_word_boundary(text, begin, tables)) return false;
  if (accepted == before_volts) return volts_follow(text, end, tables);
  if (accepted == before_units) return units_follow(text, end, tables);
  return is_word_boundary(text, end, tables);
}

/// Whether the word stands at byte `at`. Its last letter is compared first: many words begin alike.
bool stands_at(std::string_view text, std::size_t at, std::string_view word) {
  return text.size() - at >= word.size() && text[at + word.size() - 1] == word.back() &&
         text.substr(at, word.size()) == word;
}

/// Adds the groups of the keywords that begin at byte `at`.
void compare(std::string_view text, std::size_t at, const CharacterTables& tables,
             Mentions& mentions) {
  const std::size_t slot = RowsByPair::slot(text[at], text[at + 1]);
  for (std::size_t i = by_pair.begin[slot]; i < by_pair.begin[slot + 1]; ++i) {
    const auto& [group, keyword, accepted] = keywords[by_pair.rows[i]];
    if (!stands_at(text, at, keyword) || mentions.has(group)) continue;
    if (is_accepted(accepted, text, at, at + keyword.size(), tables)) mentions.add(group);
  }
}

}  // namespace

Mentions find_keywords(std::string_view lowered, const CharacterTables& tables) {
  Mentions mentions;
  if (lowered.size() < 2) return mentions;
  const std::size_t last = lowered.size() - 2;
  std::uint32_t three = pair_of(lowered[0], lowered[1]) << 8;
  for (std::size_t at = 0; at < last; ++at) {
    three = three >> 8 | code_of(lowered[at + 2]) << 16;
    if (beginnings.may_hold(hash_of<filter_bits>(three))) compare(lowered, at, tables, mentions);
  }
  compare(lowered, last, tables, mentions);  // for a keyword of two letters
  return mentions;
}

}  // namespace tavik::text
