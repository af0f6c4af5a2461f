// Where in a text a keyword may stand, told from four of its bytes. The keywords are sorted into
// classes, at compile time, such that few places of prose look like one of a class and are none.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

#include "text/keywords.hpp"

namespace tavik::text {

/// The bytes by which a keyword is found: four, or all that it has.
struct Window {
  static constexpr std::size_t width = 4;

  std::uint8_t keyword;  ///< its row
  std::uint8_t offset;   ///< of the window in the keyword

  constexpr std::string_view text() const { return keywords[keyword].text.substr(offset, width); }
};

/// The last five bits of a byte, which tell letters, blank and digits from each other, but for
/// digits from the letters p to y.
constexpr std::size_t code_of(char byte) { return static_cast<unsigned char>(byte) % 32U; }

/// How likely a byte of prose has each code.
inline constexpr auto likelihoods = [] {
  std::array<double, 32> of_codes{};
  double likelihood = 0.14;
  for (const char byte : std::string_view(" etaoinsrhldcumfpgwybvkxjqz")) {  // the commonest first
    of_codes[code_of(byte)] = likelihood;
    likelihood *= 0.87;
  }
  for (double& likely : of_codes) likely = std::max(likely, 0.003);
  return of_codes;
}();

/// The part of the keyword that is least likely to stand in prose, from its third letter on where
/// it is long enough: many words begin alike.
constexpr Window rarest_window(std::size_t keyword) {
  const std::string_view text = keywords[keyword].text;
  const std::size_t last = text.size() - std::min(text.size(), Window::width);
  Window rarest{};
  double least = 2;
  for (std::size_t offset = std::min<std::size_t>(2, last); offset <= last; ++offset) {
    const Window window{static_cast<std::uint8_t>(keyword), static_cast<std::uint8_t>(offset)};
    double likely = 1;
    for (const char byte : window.text()) likely *= likelihoods[code_of(byte)];
    if (likely < least) {
      least = likely;
      rarest = window;
    }
  }
  return rarest;
}

inline constexpr auto rarest_windows = [] {
  std::array<Window, keywords.size()> of_rows{};
  for (std::size_t row = 0; row < of_rows.size(); ++row) of_rows[row] = rarest_window(row);
  return of_rows;
}();

/// What four bytes must look like to pass for a window of a class: the low halves of their codes,
/// each by itself, and the high bits of all four together. Compilers limit how much is worked out
/// beforehand, so how likely each byte is to pass is kept, not summed up anew.
struct Looks {
  std::uint16_t low[Window::width] = {};  ///< sets of the sixteen values
  std::uint16_t high = 0;
  double likely[Window::width][2] = {};  ///< of each byte, without its high bit and with it

  constexpr void add(Window window) {
    const std::string_view text = window.text();
    unsigned high_bits = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
      const std::size_t code = code_of(text[i]);
      high_bits |= static_cast<unsigned>(code / 16) << i;
      if (low[i] >> code % 16 & 1) continue;
      low[i] |= static_cast<std::uint16_t>(1U << code % 16);
      likely[i][0] += likelihoods[code % 16];
      likely[i][1] += likelihoods[code % 16 + 16];
    }
    for (std::size_t i = text.size(); i < Window::width; ++i) {
      low[i] = 0xFFFF;
      likely[i][0] = likely[i][1] = 0.5;
    }
    for (unsigned bits = high_bits; bits < 16; bits += 1U << text.size()) {
      high |= static_cast<std::uint16_t>(1U << bits);
    }
  }

  /// How likely four bytes of prose are to pass.
  constexpr double likelihood() const {
    double sum = 0;
    for (unsigned bits = 0; bits < 16; ++bits) {
      if (high >> bits & 1) {
        sum += likely[0][bits & 1] * likely[1][bits >> 1 & 1] * likely[2][bits >> 2 & 1] *
               likely[3][bits >> 3];
      }
    }
    return sum;
  }
};

/// The windows by class, and the tables that tell from four bytes of which classes they may be.
class Sieve {
 public:
  static constexpr std::size_t classes = 16;
  /// The class of the words of two letters. In prose these mostly stand within longer words.
  static constexpr std::size_t short_words = 0;
  using Table = std::array<std::uint8_t, 16>;  ///< for each value, a bit for each of eight classes

  constexpr Sieve() {
    for (const Window window : rarest_windows) put(window);
    lay_out();
  }

  std::array<std::array<Table, Window::width>, 2> low{};
  std::array<Table, 2> high{};
  std::array<Window, keywords.size()> windows{};
  std::array<std::uint8_t, classes + 1> begin{};  ///< where the windows of each class begin

 private:
  static constexpr bool is_short_word(Window window) {
    return keywords[window.keyword].accepted == whole_word && window.text().size() == 2;
  }

  /// Where the window makes the least difference.
  constexpr std::size_t best_class(Window window) const {
    std::size_t best = 0;
    double least = 2;
    for (std::size_t i = 0; i < classes; ++i) {
      Looks more = looks_[i];
      more.add(window);
      const double added = more.likelihood() - looks_[i].likelihood();
      if (i != short_words && added < least) {
        least = added;
        best = i;
      }
    }
    return best;
  }

  constexpr void put(Window window) {
    const std::size_t number = is_short_word(window) ? short_words : best_class(window);
    class_of_[window.keyword] = static_cast<std::uint8_t>(number);
    looks_[number].add(window);
  }

  constexpr void lay_out() {
    std::uint8_t count = 0;
    for (std::size_t i = 0; i < classes; ++i) {
      begin[i] = count;
      for (std::size_t row = 0; row < keywords.size(); ++row) {
        if (class_of_[row] == i) windows[count++] = rarest_windows[row];
      }
      for (std::size_t value = 0; value < 16; ++value) {
        const auto bit = static_cast<std::uint8_t>(1U << i % 8);
        for (std::size_t k = 0; k < Window::width; ++k) {
          if (looks_[i].low[k] >> value & 1) low[i / 8][k][value] |= bit;
        }
        if (looks_[i].high >> value & 1) high[i / 8][value] |= bit;
      }
    }
    begin[classes] = count;
  }

  std::array<Looks, classes> looks_{};
  std::array<std::uint8_t, keywords.size()> class_of_{};
};

}  // namespace tavik::text
