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

/// The hash of some letters and one more, which moves the others up by five bits: the lowest ten
/// bits depend on the last two letters alone, the lowest fifteen on the last three.
constexpr std::uint32_t with_letter(std::uint32_t letters, char letter) {
  return letters << 5 ^ static_cast<unsigned char>(letter);
}
/// The hash of the first two letters.
constexpr std::uint32_t first_two(std::string_view letters) {
  return with_letter(with_letter(0, letters[0]), letters[1]);
}
constexpr std::size_t pairs = std::size_t{1} << 10;
constexpr std::size_t triples = std::size_t{1} << 15;

/// Whether the keyword, which has two letters, counts with this byte behind it.
constexpr bool may_precede(const Keyword& keyword, char third) {
  return keyword.accepted != whole_word || !is_ascii_word(third);
}

/// The first three letters of all keywords.
constexpr auto beginnings = [] {
  BitFilter<std::array<std::uint64_t, triples / 64>> filter;
  for (const Keyword& keyword : keywords) {
    if (keyword.text.size() > 2) {
      filter.add(with_letter(first_two(keyword.text), keyword.text[2]));
      continue;
    }
    for (int byte = 0; byte < 256; ++byte) {
      const char third = static_cast<char>(byte);
      if (may_precede(keyword, third)) filter.add(with_letter(first_two(keyword.text), third));
    }
  }
  return filter;
}();

/// The rows of the keywords, sorted by a hash of their first two letters.
struct RowsByPair {
  static constexpr std::size_t slot(std::string_view letters) { return first_two(letters) % pairs; }

  constexpr RowsByPair() {
    for (const Keyword& keyword : keywords) ++begin[slot(keyword.text) + 1];
    for (std::size_t i = 0; i < pairs; ++i) begin[i + 1] += begin[i];
    auto next = begin;
    for (std::size_t row = 0; row < keywords.size(); ++row) {
      rows[next[slot(keywords[row].text)]++] = static_cast<std::uint16_t>(row);
    }
  }

  std::array<std::uint16_t, pairs + 1> begin{};  ///< where in `rows` those of a slot begin
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
  const std::size_t slot = RowsByPair::slot(text.substr(at));
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
  std::uint32_t letters = first_two(lowered);
  for (std::size_t at = 0; at < last; ++at) {
    letters = with_letter(letters, lowered[at + 2]);
    if (beginnings.may_hold(letters)) compare(lowered, at, tables, mentions);
  }
  compare(lowered, last, tables, mentions);  // for a keyword of two letters
  return mentions;
}

}  // namespace tavik::text
