// Finds which phrases of a table stand in a text with a single blank, or an end of the text, on
// either side. Phrases and text are compared word by word, a word being what lies between two
// blanks, so the cost grows with the text and not with the number of phrases.
#pragma once

#include <bit>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

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

/// The first words of phrases, the one of a phrase that has no more, or the first two; each told by
/// at most eight letters. Nearly all other words are passed over for not being among them.
class Openings {
 public:
  /// The beginning of a word with zeros behind it, as the machine loads it.
  using Letters = std::uint64_t;

  void add(Letters word);
  void add(Letters first_word, Letters second_word);
  bool may_hold(Letters word) const { return holds(key(word)); }
  bool may_hold(Letters first_word, Letters second_word) const {
    return holds(key(first_word, second_word));
  }

 private:
  static constexpr int bits = 20;  // so that one word of 25 is held by chance
  static constexpr std::uint64_t spread = 0x9E3779B97F4A7C15U;

  static std::uint64_t key(Letters word) { return word * spread; }
  static std::uint64_t key(Letters first_word, Letters second_word) {
    return (std::rotl(first_word * spread, 32) ^ second_word) * spread;
  }
  bool holds(std::uint64_t key) const { return keys_[key >> (64 - bits)]; }

  std::bitset<std::size_t{1} << bits> keys_;
};

class PhraseIndex {
 public:
  using Row = std::uint32_t;

  explicit PhraseIndex(Phrases phrases);

  std::string_view phrase(Row row) const { return phrases_[row]; }
  /// The rows whose phrase occurs in `text`, in ascending order.
  std::vector<Row> find(std::string_view text) const;

 private:
  class Found;

  /// A phrase, or the words that it begins with, in a hash table with open addressing.
  struct Entry {
    Row row = unused;
    std::uint32_t fingerprint = 0;
  };
  static constexpr Row unused = static_cast<Row>(-1);
  static constexpr Row beginning = static_cast<Row>(-2);

  bool enter_all();
  void add_opening(std::string_view phrase);
  void enter(std::uint64_t hash, Row row);
  void find_word(std::string_view text, std::size_t begin, std::size_t end, Found& found) const;
  void find_longer(std::string_view text, std::size_t begin, std::size_t second, std::size_t end,
                   Found& found) const;
  bool look_up(std::uint64_t hash, std::string_view words, Found& found) const;

  std::size_t slot(std::uint64_t hash) const { return hash & (entries_.size() - 1); }
  std::size_t next(std::size_t slot) const { return (slot + 1) & (entries_.size() - 1); }

  Phrases phrases_;
  std::size_t longest_ = 0;
  std::unique_ptr<Openings> openings_ = std::make_unique<Openings>();
  std::vector<Entry> entries_;
  std::size_t used_ = 0;
};

}  // namespace tavik::text
