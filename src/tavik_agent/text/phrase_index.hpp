// Finds which phrases of a table stand in a text with a single blank, or an end of the text, on
// either side. Phrases and text are compared word by word, a word being what lies between two
// blanks, so the cost grows with the text and not with the number of phrases.
#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tavik::text {

class PhraseIndex {
 public:
  /// Adds a phrase under the number of its row.
  void add(std::string_view phrase, std::size_t row);

  /// The rows whose phrase occurs in `text`.
  std::set<std::size_t> find(std::string_view text) const;

 private:
  struct Hash : std::hash<std::string_view> {
    using is_transparent = void;
  };
  using NodeNumber = std::size_t;
  /// What may follow the words read so far, and the rows that end here.
  struct Node {
    std::unordered_map<std::string, NodeNumber, Hash, std::equal_to<>> next;
    std::vector<std::size_t> rows;
  };
  static constexpr NodeNumber root = 0;
  std::vector<Node> nodes_ = std::vector<Node>(1);
};

}  // namespace tavik::text
