// Lists of fixed words, each as an enumeration, its texts and the host's strings. A list is one
// macro with a row a word, so that a word and its text cannot drift apart:
//   #define TAVIK_COLOURS(SAME, AS) SAME(red) AS(dark_red, "dark-red")
//   TAVIK_VOCABULARY(Colour, TAVIK_COLOURS)
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "host/value.hpp"

#define TAVIK_ENUMERATOR(name) name,
#define TAVIK_ENUMERATOR_AS(name, text) name,
#define TAVIK_TEXT(name) #name,
#define TAVIK_TEXT_AS(name, text) text,
#define TAVIK_VOCABULARY(Type, LIST)                                              \
  enum class Type : std::uint8_t { LIST(TAVIK_ENUMERATOR, TAVIK_ENUMERATOR_AS) }; \
  constexpr auto texts_of(Type) {                                                 \
    return std::to_array<std::string_view>({LIST(TAVIK_TEXT, TAVIK_TEXT_AS)});    \
  }

namespace tavik::host {

/// One host object for each word of a vocabulary.
template <class Word>
class Indexed {
 public:
  static constexpr auto texts = texts_of(Word{});
  static constexpr std::size_t size = texts.size();
  static constexpr std::string_view text(Word word) {
    return texts[static_cast<std::size_t>(word)];
  }

  Value& operator[](Word word) { return values_[static_cast<std::size_t>(word)]; }
  const Value& operator[](Word word) const { return values_[static_cast<std::size_t>(word)]; }
  auto begin() { return values_.begin(); }
  auto end() { return values_.end(); }

 private:
  std::array<Value, size> values_;
};

/// The host's own strings for a vocabulary, interned.
template <class Word>
Indexed<Word> interned() {
  Indexed<Word> strings;
  auto text = Indexed<Word>::texts.begin();
  for (Value& string : strings) {
    string = Value::steal(PyUnicode_InternFromString(std::string(*text++).c_str()));
  }
  return strings;
}

/// Every word of a vocabulary, in its order.
template <class Word>
constexpr auto all_words() {
  std::array<Word, Indexed<Word>::size> words{};
  for (std::size_t i = 0; i < words.size(); ++i) words[i] = static_cast<Word>(i);
  return words;
}

}  // namespace tavik::host
