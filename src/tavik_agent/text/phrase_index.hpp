// Finds which phrases of a table stand in a text with a single blank, or an end of the text, on
// either side. Phrases and text are compared word by word, a word being what lies between two
// blanks, so the cost grows with the text and not with the number of phrases.
#pragma once

#include <cstddef>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tavik::text {

class PhraseIndex {
 public:
  /// Adds a phrase, which must be new, under the number of its row.
  void add(std::string_view phrase, std::size_t row);

  /// The rows whose phrase occurs in `text`.
  std::set<std::size_t> find(std::string_view text) const;

 private:
  /// The words read so far.
  using Node = std::size_t;
  static constexpr Node root = 0;
  static constexpr std::size_t no_row = static_cast<std::size_t>(-1);

  template <class String>
  struct Step {
    Node from;
    String word;
  };
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(const auto& step) const {
      constexpr std::size_t spread = 0x9E3779B97F4A7C15U;  // so that equal words part by their node
      return std::hash<std::string_view>{}(step.word) ^ (step.from * spread);
    }
  };
  struct Equal {
    using is_transparent = void;
    bool operator()(const auto& left, const auto& right) const {
      return left.from == right.from && left.word == right.word;
    }
  };

  std::unordered_map<Step<std::string>, Node, Hash, Equal> next_;
  std::vector<std::size_t> rows_{no_row};  ///< of the phrase that ends at each node
};

}  // namespace tavik::text
