// String methods. What is done by hand here is done for exact strings only, letters are mapped by
// hand for ASCII only; everything else is Python's own work.
#include "py/strings.hpp"

#include <algorithm>
#include <string>

#include "py/calls.hpp"
#include "py/containers.hpp"

namespace tavik::py {
namespace {

/// value.name(), which must be a string.
Object string_method(const Object& value, const char* name) {
  Object result = call_method(value, name);
  if (!is_string(result)) {
    raise(PyExc_TypeError, "%s() must return a string, not '%.200s'", name,
          Py_TYPE(result.get())->tp_name);
  }
  return result;
}

/// An ASCII string with its first character and all others mapped; the same object when that
/// changes nothing.
template <class First, class Rest>
Object map_ascii(const Object& value, First first, Rest rest) {
  const std::string_view from = ascii_view(value);
  if (from.empty()) return value.new_ref();
  const bool is_mapped = first(from.front()) == from.front() &&
                         std::ranges::all_of(from.substr(1), [&](char c) { return rest(c) == c; });
  if (is_mapped) return value.new_ref();
  Object mapped = Object::steal(PyUnicode_New(static_cast<Py_ssize_t>(from.size()), 127));
  char* const to = static_cast<char*>(PyUnicode_DATA(mapped.get()));
  std::ranges::transform(from, to, rest);
  *to = first(from.front());
  return mapped;
}

Object substring(const Object& value, Py_ssize_t begin, Py_ssize_t end) {
  return Object::steal(PyUnicode_Substring(value.get(), begin, end));
}

bool is_plain_word(const Object& value) {
  return is_exact_ascii(value) && std::ranges::all_of(ascii_view(value), text::is_ascii_word);
}

/// Adds repr(list) when the value is an exact list of plain words, as a list of species is; whether
/// it did. Python's repr, made for all that a list may hold, takes several times as long.
bool add_list_of_words(std::string& to, const Object& value) {
  if (!is_exact_list(value) || is_empty(value)) return false;
  const std::size_t begin = to.size();
  std::string_view separator = "['";
  Iterator words(value);
  while (const Object word = words.next()) {
    if (!is_plain_word(word)) {
      to.resize(begin);
      return false;
    }
    to.append(std::exchange(separator, "', '")).append(ascii_view(word));
  }
  to += "']";
  return true;
}

Object power_of_ten(std::size_t exponent) {
  const Object base = Object::steal(PyLong_FromLong(10));
  return Object::steal(
      PyNumber_Power(base.get(), Object::steal(PyLong_FromSize_t(exponent)).get(), Py_None));
}

/// By halves: Python's fast multiplication keeps a long run of digits from costing its square, and
/// Python's limit on converting long digit strings does not come into play.
Object integer_of_ascii(std::string_view digits) {
  constexpr std::size_t fits_a_machine_word = 18;
  if (digits.size() <= fits_a_machine_word) {
    long long value = 0;
    for (const char digit : digits) value = value * 10 + (digit - '0');
    return Object::steal(PyLong_FromLongLong(value));
  }
  const std::size_t low = digits.size() / 2;
  const std::size_t high = digits.size() - low;
  const Object scaled = Object::steal(
      PyNumber_Multiply(integer_of_ascii(digits.substr(0, high)).get(), power_of_ten(low).get()));
  return Object::steal(PyNumber_Add(scaled.get(), integer_of_ascii(digits.substr(high)).get()));
}

}  // namespace

Object string(std::string_view utf8) {
  return Object::steal(
      PyUnicode_DecodeUTF8(utf8.data(), static_cast<Py_ssize_t>(utf8.size()), "surrogatepass"));
}

Object strip(const Object& value) {
  if (!is_exact_string(value)) return string_method(value, "strip");
  const auto is_space = [&](Py_ssize_t i) {
    return Py_UNICODE_ISSPACE(PyUnicode_READ_CHAR(value.get(), i)) != 0;
  };
  Py_ssize_t begin = 0;
  Py_ssize_t end = PyUnicode_GET_LENGTH(value.get());
  while (begin < end && is_space(begin)) ++begin;
  while (begin < end && is_space(end - 1)) --end;
  const bool is_whole = end - begin == PyUnicode_GET_LENGTH(value.get());
  return is_whole ? value.new_ref() : substring(value, begin, end);
}

Object lower(const Object& value) {
  return is_exact_ascii(value) ? map_ascii(value, text::ascii_lower, text::ascii_lower)
                               : string_method(value, "lower");
}

Object upper(const Object& value) {
  return is_exact_ascii(value) ? map_ascii(value, text::ascii_upper, text::ascii_upper)
                               : string_method(value, "upper");
}

bool is_alphabetic(const Object& value) { return !is_empty(call_method(value, "isalpha")); }

bool ends_with(const Object& value, char last) {
  if (is_exact_ascii(value)) return ascii_view(value).ends_with(last);
  return !is_empty(call_method(value, "endswith", string({&last, 1})));
}

Object capitalised(const Object& string) {
  if (is_exact_ascii(string)) return map_ascii(string, text::ascii_upper, text::ascii_lower);
  const Object head = upper(substring(string, 0, 1));
  const Object tail = lower(substring(string, 1, PyUnicode_GET_LENGTH(string.get())));
  return Object::steal(PyUnicode_Concat(head.get(), tail.get()));
}

Object join_with_blanks(const Object& list) {
  return Object::steal(PyUnicode_Join(string(" ").get(), list.get()));
}

Object message(std::string_view prefix, const Object& value, std::string_view suffix) {
  constexpr std::size_t length_of_most = 128;
  std::string whole;
  whole.reserve(length_of_most);
  whole += prefix;
  if (!add_list_of_words(whole, value)) whole += Utf8(text_form(value)).view();
  return string(whole += suffix);
}

Object integer(std::string_view digits) {
  std::string ascii;
  for (std::size_t at = 0; at < digits.size();) {
    const text::Character digit = text::character_at(digits, at);
    ascii += static_cast<char>('0' + Py_UNICODE_TODECIMAL(digit.code));
    at += digit.width;
  }
  return integer_of_ascii(ascii);
}

Utf8::Utf8(const Object& string) {
  if (PyUnicode_IS_ASCII(string.get())) {
    owner_ = string.new_ref();
    view_ = ascii_view(string);
    return;
  }
  owner_ = Object::steal(PyUnicode_AsEncodedString(string.get(), "utf-8", "surrogatepass"));
  view_ = {PyBytes_AS_STRING(owner_.get()),
           static_cast<std::size_t>(PyBytes_GET_SIZE(owner_.get()))};
}

}  // namespace tavik::py
