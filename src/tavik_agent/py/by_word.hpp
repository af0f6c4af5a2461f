// Python objects that belong to the words of a vocabulary, one for each. A vocabulary is an
// enumeration Word with a function texts_of(Word) that gives an array of the words' texts.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "py/object.hpp"

namespace tavik::py {

template <class Word>
inline constexpr auto texts = texts_of(Word{});

template <class Word>
constexpr std::string_view text_of(Word word) {
  return texts<Word>[static_cast<std::size_t>(word)];
}

/// Every word of a vocabulary, in its order.
template <class Word>
inline constexpr auto all_words = [] {
  std::array<Word, texts<Word>.size()> words{};
  for (std::size_t i = 0; i < words.size(); ++i) words[i] = static_cast<Word>(i);
  return words;
}();

template <class Word>
class ByWord {
 public:
  Object& operator[](Word word) { return objects_[static_cast<std::size_t>(word)]; }
  const Object& operator[](Word word) const { return objects_[static_cast<std::size_t>(word)]; }
  auto begin() { return objects_.begin(); }
  auto end() { return objects_.end(); }

 private:
  std::array<Object, texts<Word>.size()> objects_;
};

/// The words themselves, as interned strings.
template <class Word>
ByWord<Word> interned() {
  ByWord<Word> strings;
  for (const Word word : all_words<Word>) {
    strings[word] = Object::steal(PyUnicode_InternFromString(std::string(text_of(word)).c_str()));
  }
  return strings;
}

}  // namespace tavik::py
