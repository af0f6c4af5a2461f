// Python strings: making them, taking their bytes, and the string methods that the rules name.
// Methods of an exact string have direct paths; a subclass is asked for its own method, and must
// answer with a string.
#pragma once

#include <string_view>

#include "py/values.hpp"
#include "text/characters.hpp"

namespace tavik::py {

/// Python's tables of character properties.
inline constexpr text::CharacterTables character_tables{
    .is_word = [](char32_t c) { return c == U'_' || Py_UNICODE_ISALNUM(c) != 0; },
    .is_space = [](char32_t c) { return Py_UNICODE_ISSPACE(c) != 0; },
    .decimal_value = [](char32_t c) { return static_cast<int>(Py_UNICODE_TODECIMAL(c)); },
};

/// The string of UTF-8 text (lone surrogates included).
Object string(std::string_view utf8);

Object strip(const Object& value);
Object lower(const Object& value);
Object upper(const Object& value);
bool is_alphabetic(const Object& value);
bool ends_with(const Object& value, char last);
/// The first character of a string in upper case followed by the rest in lower case.
Object capitalised(const Object& string);
/// " ".join(list)
Object join_with_blanks(const Object& list);

/// prefix + str(value) + suffix, the two in UTF-8.
Object message(std::string_view prefix, const Object& value, std::string_view suffix = "");

/// The integer that a run of decimal digits of any script stands for. Exact at any length.
Object integer(std::string_view digits);

/// The UTF-8 bytes of a string; lone surrogates are encoded like any other character. Bytes of an
/// ASCII string are those of the Python object, any other string is encoded anew, so that reading a
/// caller's string leaves nothing behind in it.
class Utf8 {
 public:
  Utf8() = default;
  explicit Utf8(const Object& string);
  std::string_view view() const { return view_; }

 private:
  Object owner_;
  std::string_view view_;
};

}  // namespace tavik::py
