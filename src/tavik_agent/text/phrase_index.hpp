// Finds which phrases of a table stand in a text with a single blank, or an end of the text, on
// either side. Phrases and text are compared word by word, a word being what lies between two
// blanks, so the cost grows with the text and not with the number of phrases.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "text/short_list.hpp"

namespace tavik::text {

/// Phrases, numbered by row, one after the other in one string.
class Phrases {
 public:
  void add(std::string_view phrase);
  std::size_t count() const { return ends_.size(); }
  std::string_view operator[](std::size_t row) const;

 private:
  std::string letters_;
  std::vector<std::size_t> ends_;
};

/// Tells nearly all words that are no phrase, and that no phrase begins with, from those that may.
/// Words are known by a key made of the first eight letters of each. First words, which each word
/// of a text is compared with, have a smaller table of their own.
class PhraseFilter {
 public:
  /// The beginning of a word with zeros behind it, as the machine loads it.
  using Letters = std::uint64_t;
  using Key = std::uint64_t;

  static constexpr Key no_words = 1;  // so that empty words change a key, too
  /// The key of some words and one more.
  static Key with_word(Key words, Letters word) {
    return (std::rotl(words, 32) ^ word) * multiplier;
  }

  /// What some words may be; zero when they are nothing of interest.
  using Nature = unsigned;
  static constexpr Nature phrase = 1;
  static constexpr Nature beginning = 2;

  void add(Key words, Nature nature) { word_of(words) |= std::uint64_t{nature} << shift(words); }
  Nature nature(Key words) const {
    return natures_[place(words) / 32] >> shift(words) & (phrase | beginning);
  }

  void add_first(Letters word) {
    first_words_[first_place(word) / 64] |= std::uint64_t{1} << first_place(word) % 64;
  }
  bool may_begin_phrase(Letters word) const {
    const std::size_t place = first_place(word);
    return (first_words_[place / 64] >> place % 64 & 1) != 0;
  }

 private:
  static constexpr std::uint64_t multiplier = 0x9E3779B97F4A7C15U;
  static constexpr int first_bits = 19;  // so that of other words one of 48 passes
  static constexpr int place_bits = 20;  // so that of other words one of 45 passes

  static std::size_t first_place(Letters word) { return word * multiplier >> (64 - first_bits); }
  static std::size_t place(Key words) { return words >> (64 - place_bits); }
  static unsigned shift(Key words) { return place(words) % 32 * 2; }
  std::uint64_t& word_of(Key words) { return natures_[place(words) / 32]; }

  std::array<std::uint64_t, (std::size_t{1} << first_bits) / 64> first_words_{};
  std::array<std::uint64_t, (std::size_t{1} << place_bits) / 32> natures_{};
};

class PhraseIndex {
 public:
  using Row = std::uint32_t;
  using Rows = ShortList<Row, 16>;

  explicit PhraseIndex(Phrases phrases);

  std::string_view phrase(Row row) const { return phrases_[row]; }
  /// Whether a text has no room for any of the phrases.
  bool is_too_short(std::string_view text) const { return text.size() < shortest_; }
  /// The rows whose phrase occurs in `text`, in ascending order.
  Rows find(std::string_view text) const { return find_more(text, 0, {}); }
  /// The same for a text of which the first `size` bytes, which a blank must follow, were searched
  /// as a text of their own.
  Rows find_more(std::string_view text, std::size_t size, const Rows& found_there) const;

 private:
  class Found;

  /// A phrase, in a hash table with open addressing.
  struct Entry {
    Row row = unused;
    std::uint32_t fingerprint = 0;
  };
  static constexpr Row unused = static_cast<Row>(-1);

  void enter(Row row);

  class FirstWords;

  void search(std::string_view text, std::size_t start, Found& found) const;
  void follow(std::string_view text, const FirstWords& first, Found& found) const;
  void look_up(std::string_view words, Found& found) const;

  std::size_t slot(std::uint64_t hash) const { return hash & (entries_.size() - 1); }
  std::size_t next(std::size_t slot) const { return (slot + 1) & (entries_.size() - 1); }

  Phrases phrases_;
  std::size_t longest_ = 0;
  std::size_t shortest_ = std::string_view::npos;
  std::unique_ptr<PhraseFilter> filter_ = std::make_unique<PhraseFilter>();
  std::vector<Entry> entries_;
};

}  // namespace tavik::text
