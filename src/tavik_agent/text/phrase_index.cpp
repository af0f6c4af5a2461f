// A text is tried from each of its words, a word longer each time for as long as some phrase may
// begin with these words.
#include "text/phrase_index.hpp"

#include <algorithm>
#include <bit>
#include <limits>
#include <utility>

namespace tavik::text {
namespace {

constexpr std::uint64_t no_words = 1;  // so that an empty word changes the hash, too
constexpr std::uint32_t unused = std::numeric_limits<std::uint32_t>::max();

/// Compared before the words are; the places in filter and table go by the uppermost bits.
constexpr std::uint32_t fingerprint(std::uint64_t hash) { return static_cast<std::uint32_t>(hash); }

struct Word {
  std::size_t end;
  std::uint64_t letters;  ///< five bits a letter; those of a long word lie upon each other
};

/// The word that begins there; it ends before the next blank.
inline Word read_word(std::string_view text, std::size_t begin) {
  std::size_t end = begin;
  std::uint64_t letters = 0;
  for (; end < text.size() && text[end] != ' '; ++end) {
    letters = std::rotl(letters, 5) ^ static_cast<unsigned char>(text[end]);
  }
  return {end, letters};
}

/// The hash of some words and one more. It is a product, so its uppermost bits depend on all
/// letters.
constexpr std::uint64_t with_word(std::uint64_t words, std::uint64_t letters) {
  return (std::rotl(words, 32) ^ letters) * 0x9E3779B97F4A7C15U;
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

/// Rows, each once. Those found again are sorted out whenever they may be as many as the others, so
/// that a text which repeats a phrase takes no room for each time.
class PhraseIndex::Found {
 public:
  void add(Row row) {
    if (rows_.empty()) rows_.reserve(16);
    rows_.push_back(row);
    if (rows_.size() < enough_) return;
    sort_out();
    enough_ += rows_.size();
  }
  Rows take() {
    sort_out();
    return std::move(rows_);
  }

 private:
  void sort_out() {
    std::ranges::sort(rows_);
    const auto repeated = std::ranges::unique(rows_);
    rows_.erase(repeated.begin(), repeated.end());
  }

  Rows rows_;
  std::size_t enough_ = 64;
};

PhraseIndex::PhraseIndex(Phrases phrases)
    : phrases_(std::move(phrases)),
      slot_bits_(
          std::max(static_cast<int>(std::bit_width(phrases_.count() * 2 + 1)), fewest_slot_bits)),
      beginnings_(std::vector<std::uint64_t>((std::size_t{1} << filter_bits()) / 64)),
      entries_(std::size_t{1} << slot_bits_, Entry{unused, 0}) {
  for (std::size_t row = 0; row < phrases_.count(); ++row) enter(static_cast<Row>(row));
}

void PhraseIndex::enter(Row row) {
  const std::string_view phrase = phrases_[row];
  longest_ = std::max(longest_, phrase.size());
  Hash words = no_words;
  for (std::size_t begin = 0; begin <= phrase.size();) {
    const Word word = read_word(phrase, begin);
    words = with_word(words, word.letters);
    beginnings_.add(place_in_filter(words));
    begin = word.end + 1;
  }
  std::size_t at = slot(words);
  while (entries_[at].row != unused) at = next(at);
  entries_[at] = {row, fingerprint(words)};
}

/// Adds the phrases that are the words.
void PhraseIndex::look_up(Hash hash, std::string_view words, Found& found) const {
  for (std::size_t at = slot(hash); entries_[at].row != unused; at = next(at)) {
    const auto [row, print] = entries_[at];
    if (print == fingerprint(hash) && phrases_[row] == words) found.add(row);
  }
}

/// Adds the phrases that begin with the word [begin, end), whose hash is `words`.
void PhraseIndex::follow(std::string_view text, std::size_t begin, std::size_t end, Hash words,
                         Found& found) const {
  do {
    look_up(words, text.substr(begin, end - begin), found);
    if (end == text.size() || end - begin > longest_) return;
    const Word next_word = read_word(text, end + 1);
    end = next_word.end;
    words = with_word(words, next_word.letters);
  } while (may_begin_phrase(words));
}

PhraseIndex::Rows PhraseIndex::find(std::string_view text) const {
  Found found;
  for (std::size_t begin = 0; begin <= text.size();) {
    const auto [end, letters] = read_word(text, begin);
    const Hash word = with_word(no_words, letters);
    if (may_begin_phrase(word)) follow(text, begin, end, word, found);
    begin = end + 1;
  }
  return found.take();
}

}  // namespace tavik::text
