// Host strings: making them, taking their bytes, and the string methods that the rules name.
// Methods of an exact string have direct paths for ASCII; a subclass is asked for its own method,
// and must answer with a string.
#pragma once

#include <string_view>

#include "host/objects.hpp"
#include "host/value.hpp"
#include "text/characters.hpp"

namespace tavik::host {

/// The host's tables of character properties.
inline const text::CharacterTables& character_tables() {
  static constexpr text::CharacterTables tables{
      .is_word = [](char32_t c) { return c == U'_' || Py_UNICODE_ISALNUM(c) != 0; },
      .is_space = [](char32_t c) { return Py_UNICODE_ISSPACE(c) != 0; },
      .decimal_value = [](char32_t c) { return static_cast<int>(Py_UNICODE_TODECIMAL(c)); },
  };
  return tables;
}

/// The host string of UTF-8 text (lone surrogates included).
Value string(std::string_view utf8);

Value strip(const Value& value);
Value lower(const Value& value);
Value upper(const Value& value);
bool is_alphabetic(const Value& value);
bool ends_with(const Value& value, char last);

/// The first character of a string in upper case followed by the rest in lower case.
Value capitalised(const Value& string);

/// " ".join(strings)
Value join_with_blanks(const Values& strings);

/// A literal of ASCII text; any other does not compile.
struct Ascii {
  consteval Ascii(const char* literal) : text(literal) {  // NOLINT(*-explicit-*): it is one
    for (const char byte : text) {
      if (!tavik::text::is_ascii(byte)) throw "beyond ASCII";
    }
  }
  std::string_view text;
};

/// prefix, the text form of `value`, suffix
Value message(Ascii prefix, const Value& value, Ascii suffix = "");
/// The same for any words in UTF-8, made by the host.
Value message_in_utf8(std::string_view prefix, const Value& value, std::string_view suffix = "");

/// The integer that a run of decimal digits of any script stands for. Exact at any length.
Value integer(std::string_view digits);

/// The UTF-8 bytes of a string; lone surrogates are encoded like any other character. Bytes of an
/// ASCII string are those of the host object, any other string is encoded anew, so that reading a
/// caller's string leaves nothing behind in it.
class Utf8 {
 public:
  Utf8() = default;
  explicit Utf8(const Value& string);
  std::string_view view() const { return view_; }

 private:
  Value owner_;
  std::string_view view_;
};

}  // namespace tavik::host
