// String operations. What is done by hand here is done for exact ASCII strings only; everything
// else is the host's own work.
#include "host/strings.hpp"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>

#include "host/objects.hpp"

namespace tavik::host {
namespace {

/// Looks at all bytes, eight at a time.
[[gnu::noinline]] bool is_ascii(std::string_view bytes) {
  std::uint64_t combined = 0;
  for (std::uint64_t eight = 0; bytes.size() >= sizeof eight; bytes.remove_prefix(sizeof eight)) {
    std::memcpy(&eight, bytes.data(), sizeof eight);
    combined |= eight;
  }
  return (combined & 0x8080808080808080U) == 0 && std::ranges::all_of(bytes, text::is_ascii);
}

PyObject* new_ascii(std::size_t length) {
  return PyUnicode_New(static_cast<Py_ssize_t>(length), 127);
}

/// A new ASCII string whose characters are still to be written.
Value blank_ascii(std::size_t length) { return Value::steal(new_ascii(length)); }

char* characters_of(const Value& new_ascii) {
  return static_cast<char*>(PyUnicode_DATA(new_ascii.get()));
}

/// value.name(), which must be a string.
Value string_method(const Value& value, const char* name) {
  Value result = call_method(value, name);
  if (!is_string(result)) {
    raise(PyExc_TypeError, "%s() must return a string, not '%.200s'", name,
          Py_TYPE(result.get())->tp_name);
  }
  return result;
}

/// The string with every character mapped; the same object when that changes nothing.
template <class Map>
Value map_ascii(const Value& value, Map map) {
  const std::string_view from = ascii_view(value);
  if (std::ranges::all_of(from, [&](char c) { return map(c) == c; })) return value.another();
  Value mapped = blank_ascii(from.size());
  std::ranges::transform(from, characters_of(mapped), map);
  return mapped;
}

Value capitalised_ascii(const Value& value) {
  const std::string_view from = ascii_view(value);
  if (from.empty()) return value.another();
  const char head = text::ascii_upper(from.front());
  const auto is_small = [](char c) { return !text::is_ascii_upper(c); };
  if (head == from.front() && std::ranges::all_of(from.substr(1), is_small)) return value.another();
  Value mapped = blank_ascii(from.size());
  std::ranges::transform(from, characters_of(mapped), text::ascii_lower);
  *characters_of(mapped) = head;
  return mapped;
}

Value substring(const Value& value, Py_ssize_t begin, Py_ssize_t end) {
  return Value::steal(PyUnicode_Substring(value.get(), begin, end));
}

Value join_in_host(const Values& strings) {
  const Value list = new_list();
  for (const Value& string : strings) append(list, string);
  return Value::steal(PyUnicode_Join(string(" ").get(), list.get()));
}

bool is_plain_word(const Value& value) {
  constexpr auto is_letter_or_digit = [](char c) { return text::is_ascii_word(c); };
  return is_exact_ascii(value) && std::ranges::all_of(ascii_view(value), is_letter_or_digit);
}

char* write(char* at, std::string_view text) { return at + text.copy(at, text.size()); }

Lent item_of(const Value& list, Py_ssize_t at) { return Lent(PyList_GET_ITEM(list.get(), at)); }

/// The length of what repr(list) writes, when that is a list of plain words; otherwise 0.
std::size_t length_of_written_words(const Value& list) {
  constexpr std::size_t around_each = 4;  // "['" and "']", or "', '"
  std::size_t length = 0;
  for (Py_ssize_t i = 0; i < PyList_GET_SIZE(list.get()); ++i) {
    if (!is_plain_word(item_of(list, i))) return 0;
    length += ascii_view(item_of(list, i)).size() + around_each;
  }
  return length;
}

char* write_words(char* at, const Value& list) {
  for (Py_ssize_t i = 0; i < PyList_GET_SIZE(list.get()); ++i) {
    at = write(write(at, i == 0 ? "['" : "', '"), ascii_view(item_of(list, i)));
  }
  return write(at, "']");
}

/// prefix + repr(list) + suffix, or no object. A list of species is a short list of plain words,
/// which the host's own repr, made for all that a list may hold, takes five times as long to write.
Value message_about_words(std::string_view prefix, const Value& list, std::string_view suffix) {
  PyObject* whole = nullptr;
  std::size_t length = 0;
  Py_BEGIN_CRITICAL_SECTION(list.get());
  length = length_of_written_words(list);
  if (length != 0) whole = new_ascii(prefix.size() + length + suffix.size());
  if (whole != nullptr) {
    write(write_words(write(characters_of(Lent(whole)), prefix), list), suffix);
  }
  Py_END_CRITICAL_SECTION();
  return length == 0 ? Value() : Value::steal(whole);
}

Value power_of_ten(std::size_t exponent) {
  const Value base = Value::steal(PyLong_FromLong(10));
  return Value::steal(
      PyNumber_Power(base.get(), Value::steal(PyLong_FromSize_t(exponent)).get(), Py_None));
}

/// By halves: the host's fast multiplication keeps a long run of digits from costing its square,
/// and the host's limit on converting long digit strings does not come into play.
Value integer_of_ascii(std::string_view digits) {
  constexpr std::size_t fits_a_machine_word = 18;
  if (digits.size() <= fits_a_machine_word) {
    long long value = 0;
    for (const char digit : digits) value = value * 10 + (digit - '0');
    return Value::steal(PyLong_FromLongLong(value));
  }
  const std::size_t low = digits.size() / 2;
  const std::size_t high = digits.size() - low;
  const Value scaled = Value::steal(
      PyNumber_Multiply(integer_of_ascii(digits.substr(0, high)).get(), power_of_ten(low).get()));
  return Value::steal(PyNumber_Add(scaled.get(), integer_of_ascii(digits.substr(high)).get()));
}

}  // namespace

Value string(std::string_view utf8) {
  // The host keeps one object for each string of one character.
  if (utf8.size() != 1 && is_ascii(utf8)) {
    Value ascii = blank_ascii(utf8.size());
    std::ranges::copy(utf8, characters_of(ascii));
    return ascii;
  }
  return Value::steal(
      PyUnicode_DecodeUTF8(utf8.data(), static_cast<Py_ssize_t>(utf8.size()), "surrogatepass"));
}

Value strip(const Value& value) {
  if (is_exact_ascii(value)) {
    const std::string_view whole = ascii_view(value);
    const auto is_inner = [](char c) { return c > ' '; };  // all white space lies below
    if (whole.empty() || (is_inner(whole.front()) && is_inner(whole.back()))) {
      return value.another();
    }
  }
  if (!is_exact_string(value)) return string_method(value, "strip");
  const auto is_space = [&](Py_ssize_t i) {
    return Py_UNICODE_ISSPACE(PyUnicode_READ_CHAR(value.get(), i)) != 0;
  };
  Py_ssize_t begin = 0;
  Py_ssize_t end = PyUnicode_GET_LENGTH(value.get());
  while (begin < end && is_space(begin)) ++begin;
  while (begin < end && is_space(end - 1)) --end;
  const bool is_whole = end - begin == PyUnicode_GET_LENGTH(value.get());
  return is_whole ? value.another() : substring(value, begin, end);
}

Value lower(const Value& value) {
  return is_exact_ascii(value) ? map_ascii(value, [](char c) { return text::ascii_lower(c); })
                               : string_method(value, "lower");
}

Value upper(const Value& value) {
  return is_exact_ascii(value) ? map_ascii(value, [](char c) { return text::ascii_upper(c); })
                               : string_method(value, "upper");
}

bool is_alphabetic(const Value& value) {
  if (!is_exact_ascii(value)) return !is_empty(call_method(value, "isalpha"));
  const std::string_view view = ascii_view(value);
  return !view.empty() && std::ranges::all_of(view, [](char c) {
    return text::is_ascii_upper(c) || text::is_ascii_lower(c);
  });
}

bool ends_with(const Value& value, char last) {
  if (is_exact_ascii(value)) return ascii_view(value).ends_with(last);
  return !is_empty(call_method(value, "endswith", string({&last, 1})));
}

Value capitalised(const Value& string) {
  if (is_exact_ascii(string)) return capitalised_ascii(string);
  const Value head = upper(substring(string, 0, 1));
  const Value tail = lower(substring(string, 1, PyUnicode_GET_LENGTH(string.get())));
  return Value::steal(PyUnicode_Concat(head.get(), tail.get()));
}

Value join_with_blanks(const Values& strings) {
  if (strings.size() == 1 && is_exact_string(strings.front())) return strings.front().another();
  if (!std::ranges::all_of(strings, is_exact_ascii)) return join_in_host(strings);
  std::size_t length = strings.empty() ? 0 : strings.size() - 1;
  for (const Value& string : strings) length += ascii_view(string).size();
  Value joined = blank_ascii(length);
  char* at = characters_of(joined);
  for (const Value& string : strings) {
    if (&string != &strings.front()) *at++ = ' ';
    at = write(at, ascii_view(string));
  }
  return joined;
}

Value message(Ascii prefix, const Value& value, Ascii suffix) {
  if (is_exact_list(value)) {
    if (Value whole = message_about_words(prefix.text, value, suffix.text)) return whole;
  }
  const Value text = text_form(value);
  if (!is_exact_ascii(text)) return message_in_utf8(prefix.text, text, suffix.text);
  const std::string_view words = ascii_view(text);
  Value whole = blank_ascii(prefix.text.size() + words.size() + suffix.text.size());
  write(write(write(characters_of(whole), prefix.text), words), suffix.text);
  return whole;
}

Value message_in_utf8(std::string_view prefix, const Value& value, std::string_view suffix) {
  return Value::steal(PyUnicode_FromFormat("%.*s%S%.*s", static_cast<int>(prefix.size()),
                                           prefix.data(), value.get(),
                                           static_cast<int>(suffix.size()), suffix.data()));
}

Value integer(std::string_view digits) {
  std::string ascii;
  for (std::size_t at = 0; at < digits.size();) {
    const text::Character digit = text::character_at(digits, at);
    ascii += static_cast<char>('0' + Py_UNICODE_TODECIMAL(digit.code));
    at += digit.width;
  }
  return integer_of_ascii(ascii);
}

Utf8::Utf8(const Value& string) {
  if (PyUnicode_IS_ASCII(string.get())) {
    owner_ = string.another();
    view_ = ascii_view(string);
    return;
  }
  owner_ = Value::steal(PyUnicode_AsEncodedString(string.get(), "utf-8", "surrogatepass"));
  view_ = {PyBytes_AS_STRING(owner_.get()),
           static_cast<std::size_t>(PyBytes_GET_SIZE(owner_.get()))};
}

}  // namespace tavik::host
