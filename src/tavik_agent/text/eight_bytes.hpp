// Text read eight bytes at a time, as one machine word with the first byte lowest.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace tavik::text {

static_assert(std::endian::native == std::endian::little,
              "the first byte of a text is taken for the lowest of a machine word");

inline constexpr std::size_t word_size = sizeof(std::uint64_t);

/// Eight bytes that are there.
inline std::uint64_t load(const char* from) {
  std::uint64_t bytes = 0;
  std::memcpy(&bytes, from, word_size);
  return bytes;
}

/// The eight bytes from `at` on, with zeros for those behind the end of the text.
inline std::uint64_t eight_bytes(std::string_view text, std::size_t at) {
  if (text.size() - at >= word_size) return load(text.data() + at);
  char rest[word_size] = {};
  text.copy(rest, word_size, at);
  return load(rest);
}

/// Up to eight bytes between two places, with zeros behind them.
inline std::uint64_t bytes_between(std::string_view text, std::size_t begin, std::size_t end) {
  return begin == end ? 0
                      : eight_bytes(text, begin) & (~std::uint64_t{0} >> (64 - 8 * (end - begin)));
}

constexpr std::uint64_t repeated(unsigned char byte) { return 0x0101010101010101U * byte; }

// Of eight bytes, those that are meant, by the highest bit of each.

/// Any bit in which a byte differs from a blank is its highest one or carries into it.
constexpr std::uint64_t blanks_among(std::uint64_t bytes) {
  const std::uint64_t differing = bytes ^ repeated(' ');
  return ~(((differing & repeated(0x7F)) + repeated(0x7F)) | differing | repeated(0x7F));
}

/// A letter from A on carries into the highest bit of the first sum, one beyond Z into the
/// second's.
constexpr std::uint64_t capitals_among(std::uint64_t bytes) {
  const std::uint64_t low = bytes & repeated(0x7F);
  const std::uint64_t from_a = low + repeated(0x80 - 'A');
  const std::uint64_t beyond_z = low + repeated(0x80 - 'Z' - 1);
  return from_a & ~beyond_z & ~bytes & repeated(0x80);
}

/// Finds the bytes of a kind in a text, one after the other.
template <std::uint64_t (*among)(std::uint64_t bytes)>
class ByteSearch {
 public:
  explicit ByteSearch(std::string_view text) : text_(text) { look(); }

  /// Where the next one stands; the end of the text after the last one.
  std::size_t next() {
    while (found_ == 0) {
      if (text_.size() - at_ <= word_size) return text_.size();
      at_ += word_size;
      look();
    }
    const std::size_t byte = static_cast<std::size_t>(std::countr_zero(found_)) / 8;
    found_ &= found_ - 1;
    return at_ + byte;
  }

 private:
  void look() { found_ = among(eight_bytes(text_, at_)); }

  std::string_view text_;
  std::size_t at_ = 0;
  std::uint64_t found_ = 0;
};

using Blanks = ByteSearch<blanks_among>;
using Capitals = ByteSearch<capitals_among>;

}  // namespace tavik::text
