// A tree of words: a phrase is a path from the root, and a text is tried from each of its words.
#include "text/phrase_index.hpp"

namespace tavik::text {
namespace {

constexpr char blank = ' ';

/// The words of a text one after the other; an empty text is one empty word, as is the gap
/// between two blanks.
class Words {
 public:
  explicit Words(std::string_view text) : rest_(text) {}
  bool at_end() const { return at_end_; }
  std::string_view next() {
    const std::size_t end = rest_.find(blank);
    const std::string_view word = rest_.substr(0, end);
    at_end_ = end == std::string_view::npos;
    rest_ = at_end_ ? std::string_view{} : rest_.substr(end + 1);
    return word;
  }

 private:
  std::string_view rest_;
  bool at_end_ = false;
};

}  // namespace

void PhraseIndex::add(std::string_view phrase, std::size_t row) {
  NodeNumber node = root;
  for (Words words(phrase); !words.at_end();) {
    const auto [edge, is_new] =
        nodes_[node].next.try_emplace(std::string(words.next()), nodes_.size());
    node = edge->second;
    if (is_new) nodes_.emplace_back();
  }
  nodes_[node].rows.push_back(row);
}

std::set<std::size_t> PhraseIndex::find(std::string_view text) const {
  std::set<std::size_t> found;
  for (Words starts(text); !starts.at_end(); starts.next()) {
    Words words = starts;
    NodeNumber node = root;
    while (!words.at_end()) {
      const auto edge = nodes_[node].next.find(words.next());
      if (edge == nodes_[node].next.end()) break;
      node = edge->second;
      found.insert(nodes_[node].rows.begin(), nodes_[node].rows.end());
    }
  }
  return found;
}

}  // namespace tavik::text
