// Finds which keyword groups a lowered text mentions, all of them in one pass. The cost grows
// with the length of the text alone, whatever the number of keywords.
#pragma once

#include <cstdint>
#include <string_view>

#include "text/keywords.hpp"

namespace tavik::text {

/// The groups of which at least one keyword was found.
class Mentions {
 public:
  constexpr bool has(Group group) const { return (groups_ & bit(group)) != 0; }
  constexpr void add(Group group) { groups_ |= bit(group); }

 private:
  static constexpr std::uint32_t bit(Group group) {
    return std::uint32_t{1} << static_cast<unsigned>(group);
  }
  std::uint32_t groups_ = 0;
};

Mentions find_keywords(std::string_view lowered, const CharacterTables& tables);

/// The same for a text of which the first `size` bytes were searched as a text of their own. They
/// must end in no white space, and a blank must follow.
Mentions find_more_keywords(std::string_view lowered, std::size_t size, Mentions found,
                            const CharacterTables& tables);

}  // namespace tavik::text
