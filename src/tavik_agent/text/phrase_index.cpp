// A text is tried from each of its words, a word longer each time for as long as some phrase begins
// with these words. Both phrases and their beginnings are found by a hash of their words; a phrase
// is then compared letter by letter.
#include "text/phrase_index.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <utility>

#include "text/byte_masks.hpp"

namespace tavik::text {
namespace {

constexpr std::uint32_t fingerprint(std::uint64_t hash) {
  return static_cast<std::uint32_t>(hash >> 32);
}

constexpr std::size_t letters_at_once = 8;

std::uint64_t load(const char* bytes, std::size_t size) {
  std::uint64_t letters = 0;
  std::memcpy(&letters, bytes, size);
  return letters;
}

/// Up to eight letters of a text, with zeros behind them, as the machine loads them.
std::uint64_t letters_between(std::string_view text, std::size_t begin, std::size_t end) {
  static constexpr auto masks = [] {
    std::array<std::array<unsigned char, letters_at_once>, letters_at_once + 1> bytes{};
    for (std::size_t size = 0; size <= letters_at_once; ++size) {
      for (std::size_t i = 0; i < size; ++i) bytes[size][i] = 0xFF;
    }
    return std::bit_cast<std::array<std::uint64_t, letters_at_once + 1>>(bytes);
  }();
  const std::size_t size = std::min(end - begin, letters_at_once);
  if (text.size() - begin < letters_at_once) return load(text.data() + begin, size);
  return load(text.data() + begin, letters_at_once) & masks[size];
}

/// Calls visit(begin, end) for every word: what lies between two blanks or ends of the text.
template <class Visit>
void for_each_word(std::string_view text, Visit visit) {
  std::size_t begin = 0;
  for (std::size_t at = 0; at < text.size(); at += mask_width) {
    char last[mask_width] = {};
    const bool is_whole = text.size() - at >= mask_width;
    if (!is_whole) text.copy(last, mask_width, at);
    for (std::uint64_t blanks = blanks_among(is_whole ? &text[at] : last); blanks != 0;
         blanks &= blanks - 1) {
      const std::size_t end = at + static_cast<std::size_t>(std::countr_zero(blanks));
      visit(std::exchange(begin, end + 1), end);
    }
  }
  visit(begin, text.size());
}

/// A hash of words, eight letters a step.
class WordHash {
 public:
  std::uint64_t value() const { return value_; }

  void add(std::string_view text, std::size_t begin, std::size_t end) {
    do {
      value_ = (value_ ^ letters_between(text, begin, end)) * 0x9E3779B97F4A7C15U;
      value_ ^= value_ >> 32;
      begin += letters_at_once;
    } while (begin < end);
  }

 private:
  std::uint64_t value_ = 0x243F6A8885A308D3U;
};

/// Where the word that starts at `at` ends.
std::size_t end_of_word(std::string_view text, std::size_t at) {
  while (at < text.size() && text[at] != blank) ++at;
  return at;
}

}  // namespace

void Phrases::add(std::string_view phrase) {
  letters_ += phrase;
  ends_.push_back(letters_.size());
}

std::string_view Phrases::operator[](std::size_t row) const {
  const std::size_t begin = row == 0 ? 0 : ends_[row - 1];
  return std::string_view(letters_).substr(begin, ends_[row] - begin);
}

void Openings::add(Letters word) { keys_.set(key(word) >> (64 - bits)); }

void Openings::add(Letters first_word, Letters second_word) {
  keys_.set(key(first_word, second_word) >> (64 - bits));
}

/// Rows, each once. Those found again are sorted out when they are as many as the others.
class PhraseIndex::Found {
 public:
  void add(Row row) {
    rows_.push_back(row);
    if (rows_.size() < enough_) return;
    sort_out();
    enough_ += rows_.size();
  }
  std::vector<Row> take() {
    sort_out();
    return std::move(rows_);
  }

 private:
  void sort_out() {
    std::ranges::sort(rows_);
    const auto repeated = std::ranges::unique(rows_);
    rows_.erase(repeated.begin(), repeated.end());
  }

  std::vector<Row> rows_;
  std::size_t enough_ = 64;
};

PhraseIndex::PhraseIndex(Phrases phrases) : phrases_(std::move(phrases)) {
  std::size_t capacity = std::bit_ceil(phrases_.count() * 2 + 1);
  do {
    entries_.assign(capacity, {});
    capacity *= 2;
  } while (!enter_all());
}

/// False when the table is too full to be searched quickly.
bool PhraseIndex::enter_all() {
  used_ = 0;
  for (std::size_t row = 0; row < phrases_.count(); ++row) {
    const std::string_view phrase = phrases_[row];
    add_opening(phrase);
    longest_ = std::max(longest_, phrase.size());
    WordHash hash;
    std::size_t at = 0;
    std::size_t end = end_of_word(phrase, at);
    for (; end != phrase.size(); at = end + 1, end = end_of_word(phrase, at)) {
      hash.add(phrase, at, end);
      if (at != 0) enter(hash.value(), beginning);  // one word alone is told by its opening
    }
    hash.add(phrase, at, end);
    enter(hash.value(), static_cast<Row>(row));
    if (used_ > entries_.size() / 4 * 3) return false;
  }
  return true;
}

void PhraseIndex::add_opening(std::string_view phrase) {
  const std::size_t end = end_of_word(phrase, 0);
  const Openings::Letters first_word = letters_between(phrase, 0, end);
  if (end == phrase.size()) return openings_->add(first_word);
  openings_->add(first_word, letters_between(phrase, end + 1, end_of_word(phrase, end + 1)));
}

void PhraseIndex::enter(std::uint64_t hash, Row row) {
  std::size_t at = slot(hash);
  for (; entries_[at].row != unused; at = next(at)) {
    // Words that something begins with are noted once.
    if (row == beginning && entries_[at].fingerprint == fingerprint(hash)) return;
  }
  entries_[at] = {row, fingerprint(hash)};
  ++used_;
}

/// Whether a phrase may begin with the words; those that are the words are added.
bool PhraseIndex::look_up(std::uint64_t hash, std::string_view words, Found& found) const {
  bool may_begin = false;
  for (std::size_t at = slot(hash); entries_[at].row != unused; at = next(at)) {
    const auto [row, print] = entries_[at];
    if (print != fingerprint(hash)) continue;
    may_begin = true;
    if (row != beginning && phrases_[row] == words) found.add(row);
  }
  return may_begin;
}

/// The phrase that is the word from `begin` to `end`.
void PhraseIndex::find_word(std::string_view text, std::size_t begin, std::size_t end,
                            Found& found) const {
  WordHash hash;
  hash.add(text, begin, end);
  look_up(hash.value(), text.substr(begin, end - begin), found);
}

/// The phrases that begin with two words, from `begin` to before `second` and from there to `end`.
void PhraseIndex::find_longer(std::string_view text, std::size_t begin, std::size_t second,
                              std::size_t end, Found& found) const {
  // No further than a phrase can reach, so that a long word is not read again for the ones before.
  const std::string_view within_reach = text.substr(0, begin + longest_ + 1);
  WordHash hash;
  hash.add(text, begin, second - 1);
  for (std::size_t at = second; at <= within_reach.size();) {
    hash.add(text, at, end);
    if (!look_up(hash.value(), text.substr(begin, end - begin), found)) return;
    at = end + 1;
    end = end_of_word(within_reach, at);
  }
}

std::vector<PhraseIndex::Row> PhraseIndex::find(std::string_view text) const {
  Found found;
  std::size_t before = 0;  // where the word before begins
  Openings::Letters letters_before = 0;
  for_each_word(text, [&](std::size_t begin, std::size_t end) {
    const Openings::Letters letters = letters_between(text, begin, end);
    if (openings_->may_hold(letters)) find_word(text, begin, end, found);
    if (openings_->may_hold(letters_before, letters) && begin != 0) {
      find_longer(text, before, begin, end, found);
    }
    before = begin;
    letters_before = letters;
  });
  return found.take();
}

}  // namespace tavik::text
