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
  Node node = root;
  for (Words words(phrase); !words.at_end();) {
    const auto [step, is_new] = next_.try_emplace({node, std::string(words.next())}, rows_.size());
    if (is_new) rows_.push_back(no_row);
    node = step->second;
  }
  rows_[node] = row;
}

std::set<std::size_t> PhraseIndex::find(std::string_view text) const {
  std::set<std::size_t> found;
  for (Words starts(text); !starts.at_end(); starts.next()) {
    Words words = starts;
    Node node = root;
    while (!words.at_end()) {
      const auto step = next_.find(Step<std::string_view>{node, words.next()});
      if (step == next_.end()) break;
      node = step->second;
      if (rows_[node] != no_row) found.insert(rows_[node]);
    }
  }
  return found;
}

}  // namespace tavik::text
