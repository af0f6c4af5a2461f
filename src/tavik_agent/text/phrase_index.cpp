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

/// Where blanks stand among the 64 bytes from `at` on, and the end of the text, which `at` must not
/// lie behind. In line, it takes registers that the loop over the words needs, and a long text a
/// twentieth more time.
[[gnu::noinline]] std::uint64_t word_ends(std::string_view text, std::size_t at) {
  const std::uint64_t blanks = mask_from(text, at, blanks_among);
  const std::size_t left = text.size() - at;
  return left < mask_width ? blanks | std::uint64_t{1} << left : blanks;
}

/// Where the first word starts of which no part lies before `at`; behind the end when none does.
std::size_t first_word_behind(std::string_view text, std::size_t at) {
  return at == 0 ? 0 : std::min(text.find(blank, at - 1), text.size()) + 1;
}

/// Calls visit(begin, end) for every word: what lies between two blanks or ends of the text.
template <class Visit>
void for_each_word(std::string_view text, Visit visit) {
  for (std::size_t begin = 0; begin <= text.size();) {
    const std::size_t end = std::min(text.find(blank, begin), text.size());
    visit(std::exchange(begin, end + 1), end);
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

/// Where words end among 64 bytes of a text.
struct WordEnds {
  WordEnds(std::string_view text, std::size_t from) : at(from), mask(word_ends(text, from)) {}

  /// The first of them, which is then left out.
  std::size_t take() {
    const auto first = static_cast<std::size_t>(std::countr_zero(mask));
    mask &= mask - 1;
    return at + first;
  }

  std::size_t at;
  std::uint64_t mask;
};

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
  for_each_word(phrase, [&](std::size_t begin, std::size_t end) {
    const PhraseFilter::Letters letters = letters_between(phrase, begin, end);
    if (begin == 0) filter_->add_first(letters);
    words = PhraseFilter::with_word(words, letters);
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

/// Gives the words of a text that phrases begin with, and few others. The loop over the words calls
/// nothing, so that all it needs stays in registers: with the calls in it, it took a third longer.
class PhraseIndex::FirstWords {
 public:
  FirstWords(std::string_view text, std::size_t start, const PhraseFilter& filter)
      : text_(text), filter_(filter), next_(start), ends_(text, start) {}

  /// Goes on to the next one; whether there is one.
  bool next() {
    while (!next_in_block()) {
      const std::size_t at = ends_.at + mask_width;
      if (at > text_.size()) return false;
      ends_ = WordEnds(text_, at);
    }
    return true;
  }

  std::size_t begin() const { return begin_; }
  std::size_t end() const { return next_ - 1; }
  WordEnds ends_behind() const { return ends_; }

 private:
  bool next_in_block() {
    const std::string_view text = text_;
    const PhraseFilter& filter = filter_;
    WordEnds ends = ends_;
    std::size_t begin = next_;
    while (ends.mask != 0) {
      const std::size_t end = ends.take();
      if (filter.may_begin_phrase(letters_between(text, begin, end))) [[unlikely]] {
        begin_ = begin;
        next_ = end + 1;
        ends_ = ends;
        return true;
      }
      begin = end + 1;
    }
    next_ = begin;
    return false;
  }

  std::string_view text_;
  const PhraseFilter& filter_;
  std::size_t begin_ = 0;
  std::size_t next_;
  WordEnds ends_;
};

/// Adds the phrases that begin with the given word, taking in one word more each time for as long
/// as some phrase may begin with these words.
void PhraseIndex::follow(std::string_view text, const FirstWords& first, Found& found) const {
  const std::size_t begin = first.begin();
  std::size_t end = first.end();
  WordEnds ends = first.ends_behind();
  auto words = PhraseFilter::with_word(PhraseFilter::no_words, letters_between(text, begin, end));
  while (end - begin <= longest_) {
    const PhraseFilter::Nature nature = filter_->nature(words);
    if (nature & PhraseFilter::phrase) look_up(text.substr(begin, end - begin), found);
    if (!(nature & PhraseFilter::beginning) || end == text.size()) return;
    const std::size_t next = end + 1;
    while (ends.mask == 0) {
      const std::size_t at = ends.at + mask_width;
      if (at - begin > longest_) return;
      ends = WordEnds(text, at);
    }
    end = ends.take();
    words = PhraseFilter::with_word(words, letters_between(text, next, end));
  }
}

void PhraseIndex::search(std::string_view text, std::size_t start, Found& found) const {
  if (start > text.size()) return;
  FirstWords words(text, start, *filter_);
  while (words.next()) follow(text, words, found);
}

PhraseIndex::Rows PhraseIndex::find_more(std::string_view text, std::size_t size,
                                         const Rows& found_there) const {
  Found found;
  for (const Row row : found_there) found.add(row);
  search(text, first_word_behind(text, size - std::min(size, longest_)), found);
  return found.take();
}

}  // namespace tavik::text
