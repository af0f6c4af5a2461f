// A bit filter: a set of hashes that may answer "perhaps" for one that was never added, but never
// "no" for one that was. It is a table of bits, one for each value of a hash's lowest bits.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tavik::text {

/// Words is an array or a vector of 64-bit words; how many there are is a power of two, one or
/// more.
template <class Words>
class BitFilter {
 public:
  constexpr BitFilter() = default;
  explicit constexpr BitFilter(Words words) : words_(std::move(words)) {}

  constexpr void add(std::size_t hash) { words_[word(hash)] |= std::uint64_t{1} << hash % 64; }
  constexpr bool may_hold(std::size_t hash) const {
    return (words_[word(hash)] >> hash % 64 & 1) != 0;
  }

 private:
  constexpr std::size_t word(std::size_t hash) const { return hash / 64 & (words_.size() - 1); }

  Words words_{};
};

}  // namespace tavik::text
