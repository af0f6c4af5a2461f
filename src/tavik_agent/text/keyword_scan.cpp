// A text is sifted for four bytes of each keyword, and compared with the keyword only where those
// may stand. The acceptance tests of the keywords that stand for a pattern are here, too.
#include "text/keyword_scan.hpp"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstring>

#include "text/keyword_sieve.hpp"

#if defined(__x86_64__) && defined(__SSE2__) && defined(__GNUC__)
#define TAVIK_HAS_AVX2
#include <immintrin.h>
#endif

namespace tavik::text {
namespace {

constexpr std::size_t longest_keyword = std::ranges::max(keywords, {}, [](const Keyword& keyword) {
                                          return keyword.text.size();
                                        }).text.size();

constexpr Sieve sieve;

/// Four bytes as the machine loads them.
using Letters = std::uint32_t;
using Bytes = std::array<char, Window::width>;

/// With zeros for those behind the end of the text.
Letters letters_at(std::string_view text, std::size_t at) {
  Bytes bytes{};
  if (text.size() - at >= bytes.size()) [[likely]] {
    std::memcpy(&bytes, text.data() + at, sizeof bytes);
  } else {
    text.copy(bytes.data(), bytes.size(), at);
  }
  return std::bit_cast<Letters>(bytes);
}

/// The letters of a window. Most keywords of a class are told apart by them, and sixty nanoseconds
/// saved.
struct Sought {
  Letters letters;
  Letters mask;
  constexpr bool stands_in(Letters given) const { return ((given ^ letters) & mask) == 0; }
};

constexpr auto sought = [] {
  std::array<Sought, keywords.size()> all{};
  for (std::size_t i = 0; i < all.size(); ++i) {
    Bytes letters{};
    Bytes mask{};
    const std::string_view text = sieve.windows[i].text();
    for (std::size_t k = 0; k < text.size(); ++k) {
      letters[k] = text[k];
      mask[k] = '\xFF';
    }
    all[i] = {std::bit_cast<Letters>(letters), std::bit_cast<Letters>(mask)};
  }
  return all;
}();

/// Whether a window may have the byte behind its last one.
constexpr bool may_follow(std::size_t number, char byte) {
  return number != Sieve::short_words || !is_ascii_word(byte);
}

/// For each byte a bit for each class and each place in a window of it, where the byte must not
/// stand: sixteen bits for the first place, lowest, then sixteen for the second, and so on.
constexpr auto forbidden = [] {
  std::array<std::uint64_t, 256> of_bytes{};
  of_bytes.fill(~std::uint64_t{0});
  for (std::size_t number = 0; number < Sieve::classes; ++number) {
    for (std::size_t i = sieve.begin[number]; i < sieve.begin[number + 1]; ++i) {
      std::uint64_t bit = std::uint64_t{1} << number;
      for (const char byte : sieve.windows[i].text()) {
        of_bytes[static_cast<unsigned char>(byte)] &= ~bit;
        bit <<= Sieve::classes;
      }
      for (std::uint64_t& of_byte : of_bytes) {
        const auto byte = static_cast<char>(&of_byte - of_bytes.data());
        if (may_follow(number, byte)) of_byte &= ~bit;
        for (std::uint64_t b = bit << Sieve::classes; b != 0; b <<= Sieve::classes) {
          of_byte &= ~b;
        }
      }
    }
  }
  return of_bytes;
}();

/// What is forbidden up to a byte, from what is up to the one before it; nothing is known before
/// the first. The highest bits are for windows that end with the byte.
class Sifting {
 public:
  void step(char byte) {
    state_ = state_ << Sieve::classes | forbidden[static_cast<unsigned char>(byte)];
  }
  /// Those that may end with the last byte.
  unsigned classes() const {
    return static_cast<unsigned>(~state_ >> (Window::width - 1) * Sieve::classes);
  }

 private:
  std::uint64_t state_ = ~std::uint64_t{0};
};

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

/// What was found in a text so far.
class Findings {
 public:
  Findings(std::string_view text, const CharacterTables& tables, Mentions mentions)
      : text_(text), tables_(tables), mentions_(mentions) {}

  /// Looks for the keywords of some classes with their windows at byte `at`.
  void look(std::size_t at, unsigned classes) {
    const Letters letters = letters_at(text_, at);
    for (; classes != 0; classes &= classes - 1) {
      const auto number = static_cast<std::size_t>(std::countr_zero(classes));
      for (std::size_t i = sieve.begin[number]; i < sieve.begin[number + 1]; ++i) {
        if (sought[i].stands_in(letters)) compare(sieve.windows[i], at);
      }
    }
  }

  std::string_view text() const { return text_; }
  Mentions mentions() const { return mentions_; }

 private:
  void compare(Window window, std::size_t at) {
    const Keyword& keyword = keywords[window.keyword];
    if (at < window.offset || mentions_.has(keyword.group)) return;
    const std::size_t begin = at - window.offset;
    const std::size_t end = begin + keyword.text.size();
    if (text_.substr(begin, keyword.text.size()) != keyword.text) return;
    if (is_accepted(keyword.accepted, text_, begin, end, tables_)) mentions_.add(keyword.group);
  }

  std::string_view text_;
  const CharacterTables& tables_;
  Mentions mentions_;
};

/// Looks from byte `begin` on, a byte a step.
void sift(std::size_t begin, Findings& findings) {
  const std::string_view text = findings.text();
  Sifting sifting;
  const auto take = [&](std::size_t at, char byte) {
    sifting.step(byte);
    const unsigned classes = sifting.classes();
    if (classes != 0) [[unlikely]] {
      findings.look(at - (Window::width - 1), classes);
    }
  };
  for (std::size_t at = begin; at < text.size(); ++at) take(at, text[at]);
  for (std::size_t k = 0; k < Window::width - 1; ++k) take(text.size() + k, '\0');
}

#ifdef TAVIK_HAS_AVX2

constexpr std::size_t at_once = sizeof(__m256i);

[[gnu::target("avx2"), gnu::always_inline]] inline __m256i load(const void* bytes) {
  return _mm256_loadu_si256(static_cast<const __m256i*>(bytes));
}

/// A table in both halves, for a look-up of 32 values.
[[gnu::target("avx2"), gnu::always_inline]] inline __m256i table(const Sieve::Table& from) {
  return _mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(&from)));
}

/// At which of 32 bytes a window of some class may begin. Reads three bytes more.
[[gnu::target("avx2"), gnu::always_inline]] inline std::uint32_t windows_among(const char* bytes) {
  __m256i first = _mm256_set1_epi8(-1);
  __m256i second = first;
  __m256i high = _mm256_setzero_si256();
  for (std::size_t k = 0; k < Window::width; ++k) {
    const __m256i codes = load(bytes + k);
    const __m256i low = _mm256_and_si256(codes, _mm256_set1_epi8(15));
    const __m256i bit = _mm256_and_si256(codes, _mm256_set1_epi8(16));
    high = _mm256_or_si256(high, _mm256_srli_epi16(bit, static_cast<int>(4 - k)));
    first = _mm256_and_si256(first, _mm256_shuffle_epi8(table(sieve.low[0][k]), low));
    second = _mm256_and_si256(second, _mm256_shuffle_epi8(table(sieve.low[1][k]), low));
  }
  first = _mm256_and_si256(first, _mm256_shuffle_epi8(table(sieve.high[0]), high));
  second = _mm256_and_si256(second, _mm256_shuffle_epi8(table(sieve.high[1]), high));
  const __m256i third = load(bytes + 2);
  const __m256i outside = _mm256_or_si256(_mm256_cmpgt_epi8(_mm256_set1_epi8('a'), third),
                                          _mm256_cmpgt_epi8(third, _mm256_set1_epi8('z')));
  constexpr char others = ~(1 << Sieve::short_words);
  first = _mm256_and_si256(first, _mm256_or_si256(outside, _mm256_set1_epi8(others)));
  const __m256i none = _mm256_cmpeq_epi8(_mm256_or_si256(first, second), _mm256_setzero_si256());
  return ~static_cast<std::uint32_t>(_mm256_movemask_epi8(none));
}

/// Looks from byte `begin` on, 32 bytes a step.
[[gnu::target("avx2")]] void sift_with_avx2(std::size_t begin, Findings& findings) {
  const std::string_view text = findings.text();
  for (std::size_t at = begin; at < text.size(); at += at_once) {
    const std::size_t left = text.size() - at;
    const char* bytes = text.data() + at;
    char last[2 * at_once];
    if (left < at_once + Window::width - 1) {
      std::memset(last, 0, sizeof last);
      text.copy(last, left, at);
      bytes = last;
    }
    for (std::uint32_t found = windows_among(bytes); found != 0; found &= found - 1) {
      const auto i = static_cast<std::size_t>(std::countr_zero(found));
      Sifting sifting;
      for (std::size_t k = 0; k < Window::width; ++k) sifting.step(bytes[i + k]);
      if (sifting.classes() != 0) findings.look(at + i, sifting.classes());
    }
  }
}

#endif

}  // namespace

Mentions find_keywords(std::string_view lowered, const CharacterTables& tables) {
  return find_more_keywords(lowered, 0, {}, tables);
}

Mentions find_more_keywords(std::string_view lowered, std::size_t size, Mentions found,
                            const CharacterTables& tables) {
  const std::size_t begin = size - std::min(size, longest_keyword);
  Findings findings(lowered, tables, found);
#ifdef TAVIK_HAS_AVX2
  if (__builtin_cpu_supports("avx2")) {
    sift_with_avx2(begin, findings);
    return findings.mentions();
  }
#endif
  sift(begin, findings);
  return findings.mentions();
}

}  // namespace tavik::text
