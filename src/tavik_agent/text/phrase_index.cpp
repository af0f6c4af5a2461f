// A text is tried from each of its words, a word longer each time for as long as some phrase may
// begin with these words. What may be a phrase is found by a hash and compared letter by letter.
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

/// Where blanks stand among the 64 bytes from `at` on, and the end of the text. In line, it takes
/// registers that the loop over the words needs, and a long text a twentieth more time.
[[gnu::noinline]] std::uint64_t word_ends(std::string_view text, std::size_t at) {
  const std::uint64_t blanks = mask_from(text, at, blanks_among);
  const std::size_t left = text.size() - at;
  return left < mask_width ? blanks | std::uint64_t{1} << left : blanks;
}

/// Where the first word starts of which no part lies before `at`; behind the end when none does.
std::size_t first_word_behind(std::string_view text, std::size_t at) {
  return at == 0 ? 0 : std::min(text.find(blank, at - 1), text.size()) + 1;
}

/// Calls visit(begin, end) for every word from `begin` on, where one starts: what lies between two
/// blanks or ends of the text.
template <class Visit>
void for_each_word(std::string_view text, std::size_t begin, Visit visit) {
  for (std::size_t at = begin; at <= text.size(); at += mask_width) {
    for (std::uint64_t ends = word_ends(text, at); ends != 0; ends &= ends - 1) {
      const std::size_t end = at + static_cast<std::size_t>(std::countr_zero(ends));
      visit(std::exchange(begin, end + 1), end);
    }
  }
}

/// A hash of words, eight letters a step.
std::uint64_t hash_of(std::string_view words) {
  std::uint64_t hash = 0x243F6A8885A308D3U;
  for (std::size_t at = 0; at < words.size(); at += letters_at_once) {
    hash = (hash ^ letters_between(words, at, words.size())) * 0x9E3779B97F4A7C15U;
    hash ^= hash >> 32;
  }
  return hash;
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

/// Rows, each once. Those found again are sorted out when they are as many as the others.
class PhraseIndex::Found {
 public:
  void add(Row row) {
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
    rows_.shorten(rows_.size() - repeated.size());
  }

  Rows rows_;
  std::size_t enough_ = 64;
};

PhraseIndex::PhraseIndex(Phrases phrases) : phrases_(std::move(phrases)) {
  entries_.resize(std::bit_ceil(phrases_.count() * 2 + 1));
  for (std::size_t row = 0; row < phrases_.count(); ++row) enter(static_cast<Row>(row));
}

void PhraseIndex::enter(Row row) {
  const std::string_view phrase = phrases_[row];
  longest_ = std::max(longest_, phrase.size());
  shortest_ = std::min(shortest_, phrase.size());
  PhraseFilter::Key words = PhraseFilter::no_words;
  for_each_word(phrase, 0, [&](std::size_t begin, std::size_t end) {
    words = PhraseFilter::with_word(words, letters_between(phrase, begin, end));
    filter_->add(words, end == phrase.size() ? PhraseFilter::phrase : PhraseFilter::beginning);
  });
  const std::uint64_t hash = hash_of(phrase);
  std::size_t at = slot(hash);
  while (entries_[at].row != unused) at = next(at);
  entries_[at] = {row, fingerprint(hash)};
}

/// Adds the phrases that are the words.
void PhraseIndex::look_up(std::string_view words, Found& found) const {
  const std::uint64_t hash = hash_of(words);
  for (std::size_t at = slot(hash); entries_[at].row != unused; at = next(at)) {
    const auto [row, print] = entries_[at];
    if (print == fingerprint(hash) && phrases_[row] == words) found.add(row);
  }
}

/// Finds out about the words from `begin` to `end`: whether more words may make them a phrase.
bool PhraseIndex::follow(std::string_view text, std::size_t begin, std::size_t end,
                         PhraseFilter::Key words, Found& found) const {
  if (end - begin > longest_) return false;
  const PhraseFilter::Nature nature = filter_->nature(words);
  if (nature & PhraseFilter::phrase) look_up(text.substr(begin, end - begin), found);
  return nature & PhraseFilter::beginning;
}

/// Adds one more word to the words that a phrase may begin with.
void PhraseIndex::extend(Beginnings& beginnings, std::string_view text, std::size_t end,
                         PhraseFilter::Letters letters, Found& found) const {
  std::size_t kept = 0;
  for (auto [begin, words] : beginnings) {
    words = PhraseFilter::with_word(words, letters);
    if (follow(text, begin, end, words, found)) beginnings[kept++] = {begin, words};
  }
  beginnings.shorten(kept);
}

// Four words of five take neither branch; told so, the compiler keeps what those need in registers.
void PhraseIndex::search(std::string_view text, std::size_t start, Found& found) const {
  const PhraseFilter& filter = *filter_;
  Beginnings beginnings;
  for_each_word(text, start, [&](std::size_t begin, std::size_t end) {
    const PhraseFilter::Letters letters = letters_between(text, begin, end);
    const auto word = PhraseFilter::with_word(PhraseFilter::no_words, letters);
    if (!beginnings.empty()) [[unlikely]] {
      extend(beginnings, text, end, letters, found);
    }
    if (filter.nature(word) != 0) [[unlikely]] {
      if (follow(text, begin, end, word, found)) beginnings.push_back({begin, word});
    }
  });
}

PhraseIndex::Rows PhraseIndex::find_more(std::string_view text, std::size_t size,
                                         const Rows& found_there) const {
  Found found;
  for (const Row row : found_there) found.add(row);
  search(text, first_word_behind(text, size - std::min(size, longest_)), found);
  return found.take();
}

}  // namespace tavik::text
