// Finds which keyword groups a lowered text mentions, all of them in one pass. The cost grows
// with the length of the text alone, whatever the number of keywords.
#pragma once

#include <bitset>
#include <string_view>

#include "text/keywords.hpp"

namespace tavik::text {

/// The groups of which at least one keyword was found.
class Mentions {
 public:
  bool has(Group group) const { return groups_[static_cast<std::size_t>(group)]; }
  void add(Group group) { groups_.set(static_cast<std::size_t>(group)); }

 private:
  std::bitset<most_groups> groups_;
};

Mentions find_keywords(std::string_view lowered, const CharacterTables& tables);

}  // namespace tavik::text
