// Finds which phrases of a table stand in a text with a single blank, or an end of the text, on
// either side. Phrases and text are compared word by word, a word being what lies between two
// blanks, so the cost grows with the text and not with the number of phrases.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "text/bit_filter.hpp"

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

/// A bit filter knows the words that phrases begin with: one word, two words and so on up to the
/// whole phrase. A hash table knows the whole phrases. Both go by a hash of the words; what is
/// found by it is compared in full.
class PhraseIndex {
 public:
  using Row = std::uint32_t;
  using Rows = std::vector<Row>;

  explicit PhraseIndex(Phrases phrases);

  /// The rows whose phrase occurs in `text`, in ascending order.
  Rows find(std::string_view text) const;

 private:
  using Hash = std::uint64_t;
  struct Entry {
    Row row;
    std::uint32_t fingerprint;
  };
  class Found;

  void enter(Row row);
  bool may_begin_phrase(Hash words) const { return beginnings_.may_hold(place_in_filter(words)); }
  void follow(std::string_view text, std::size_t begin, std::size_t end, Hash words,
              Found& found) const;
  void look_up(Hash hash, std::string_view words, Found& found) const;

  // The hash table has open addressing and two slots or more for each phrase, the filter eight bits
  // for each slot, so that few words pass it without reason.
  static constexpr int fewest_slot_bits = 3;  // so that the filter has a word
  int filter_bits() const { return slot_bits_ + 3; }
  std::size_t place_in_filter(Hash hash) const { return hash >> (64 - filter_bits()); }
  std::size_t slot(Hash hash) const { return hash >> (64 - slot_bits_); }
  std::size_t next(std::size_t slot) const { return (slot + 1) & (entries_.size() - 1); }

  Phrases phrases_;
  std::size_t longest_ = 0;
  int slot_bits_;
  BitFilter<std::vector<std::uint64_t>> beginnings_;
  std::vector<Entry> entries_;
};

}  // namespace tavik::text
