// The Aho-Corasick automaton over all keywords, made at compile time as a plain transition table,
// and the acceptance tests of the keywords that stand for a pattern.
#include "text/keyword_scan.hpp"

#include <cstddef>

namespace tavik::text {
namespace {

constexpr std::size_t count_states() {
  std::size_t states = 1;
  for (const Keyword& keyword : keywords) states += keyword.text.size();
  return states;  // an upper bound: common beginnings share states
}

class Automaton {
 public:
  using State = std::uint16_t;
  using Row = std::uint8_t;  ///< position in `keywords` plus one, 0 for none
  static constexpr State start = 0;

  constexpr Automaton() {
    for (std::size_t i = 0; i < keywords.size(); ++i) add(i);
    link();
  }

  constexpr State step(State from, char byte) const {
    return next_[from][letter_[static_cast<unsigned char>(byte)]];
  }
  constexpr bool is_hit(State state) const { return hit_[state]; }
  /// The nearest state that ends a keyword among `state` and its suffixes; `start` when none.
  constexpr State ending(State state) const { return rows_[state] != 0 ? state : shorter_[state]; }
  constexpr State shorter_ending(State state) const { return shorter_[state]; }
  constexpr Row first_row(State state) const { return rows_[state]; }
  constexpr Row next_row(Row row) const { return same_text_[row - 1]; }

 private:
  static constexpr std::size_t states_ = count_states();
  static constexpr std::size_t letters_ = 42;
  static_assert(keywords.size() < 255);

  constexpr std::uint8_t letter(char byte) {
    std::uint8_t& known = letter_[static_cast<unsigned char>(byte)];
    if (known == 0) known = ++used_letters_;
    return known;
  }

  constexpr void add(std::size_t keyword) {
    State state = start;
    for (const char byte : keywords[keyword].text) {
      State& next = next_[state][letter(byte)];
      if (next == start) next = ++last_;
      state = next;
    }
    same_text_[keyword] = rows_[state];
    rows_[state] = static_cast<Row>(keyword + 1);
  }

  // Breadth first, so that a suffix is finished before any state that falls back on it.
  constexpr void link() {
    std::array<State, states_> queue{};
    std::array<State, states_> suffix{};
    std::size_t head = 0;
    std::size_t tail = 1;
    while (head < tail) {
      const State state = queue[head++];
      shorter_[state] = state == start ? start : ending(suffix[state]);
      hit_[state] = rows_[state] != 0 || shorter_[state] != start;
      for (std::size_t l = 1; l < letters_; ++l) {
        const State fallback = state == start ? start : next_[suffix[state]][l];
        State& next = next_[state][l];
        if (next == start) {
          next = fallback;
        } else {
          suffix[next] = fallback;
          queue[tail++] = next;
        }
      }
    }
  }

  std::array<std::uint8_t, 256> letter_{};  ///< 0: occurs in no keyword
  std::array<std::array<State, letters_>, states_> next_{};
  std::array<State, states_> shorter_{};
  std::array<Row, states_> rows_{};
  std::array<Row, keywords.size()> same_text_{};
  std::array<bool, states_> hit_{};
  std::uint8_t used_letters_ = 0;
  State last_ = start;
};

constexpr Automaton automaton;

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

}  // namespace

bool whole_word(std::string_view text, std::size_t begin, std::size_t end,
                const CharacterTables& tables) {
  return is_word_boundary(text, begin, tables) && is_word_boundary(text, end, tables);
}

bool before_volts(std::string_view text, std::size_t begin, std::size_t end,
                  const CharacterTables& tables) {
  const std::size_t hyphen = skip(text, end, '-') - end;
  const std::size_t separator = hyphen != 0 ? hyphen : space_at(text, end, tables);
  return is_word_boundary(text, begin, tables) &&
         word_follows(text, end + separator, "volt", tables);
}

bool before_units(std::string_view text, std::size_t begin, std::size_t end,
                  const CharacterTables& tables) {
  if (!is_word_boundary(text, begin, tables)) return false;
  std::size_t at = end;
  while (const std::size_t width = space_at(text, at, tables)) at += width;
  return at > end && word_follows(text, at, "unit", tables);
}

Mentions find_keywords(std::string_view lowered, const CharacterTables& tables) {
  Mentions found;
  Automaton::State state = Automaton::start;
  for (std::size_t i = 0; i < lowered.size(); ++i) {
    state = automaton.step(state, lowered[i]);
    if (!automaton.is_hit(state)) continue;
    const std::size_t end = i + 1;
    for (auto ending = automaton.ending(state); ending != Automaton::start;
         ending = automaton.shorter_ending(ending)) {
      for (auto row = automaton.first_row(ending); row != 0; row = automaton.next_row(row)) {
        const Keyword& keyword = keywords[row - 1U];
        if (found.has(keyword.group)) continue;
        const std::size_t begin = end - keyword.text.size();
        if (keyword.accepts == nullptr || keyword.accepts(lowered, begin, end, tables)) {
          found.add(keyword.group);
        }
      }
    }
  }
  return found;
}

}  // namespace tavik::text
