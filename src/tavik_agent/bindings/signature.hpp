// A function's parameters, read from the first line of its docstring, which is also where the host
// reads them:
//   name($module, /, first, second="", *, third=None)
// and the binding of a call's arguments to them. A call that does not fit is refused in the host's
// own words for a function with that signature.
#pragma once

#include <Python.h>

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

#include "host/value.hpp"

namespace tavik::bindings {

enum class Default { none, null, empty_text };

struct Parameter {
  std::string_view name;
  Default otherwise = Default::none;
};

struct Signature {
  static constexpr std::size_t most_parameters = 8;

  std::string_view name;
  std::string_view written;  ///< the parameters as the docstring has them
  std::array<Parameter, most_parameters> parameters{};
  std::size_t count = 0;
  std::size_t positional = 0;  ///< how many of them may be given by position
  bool takes_any_number = false;
};

namespace signatures {

inline constexpr std::string_view opening = "($module, /, ";
inline constexpr std::string_view closing = ")\n--\n\n";
inline constexpr std::string_view separator = ", ";

/// Where `word` starts in `text`; the end of the text when it is not there. Spelt out, since
/// sanitizers keep string_view::find from being evaluated by the compiler.
constexpr std::size_t position(std::string_view text, std::string_view word) {
  return static_cast<std::size_t>(std::ranges::search(text, word).begin() - text.begin());
}

constexpr Parameter read_parameter(std::string_view text) {
  const std::size_t equals = position(text, "=");
  if (equals == text.size()) return {text};
  const bool is_text = text.substr(equals + 1) == R"("")";
  return {text.substr(0, equals), is_text ? Default::empty_text : Default::null};
}

}  // namespace signatures

consteval Signature read_signature(std::string_view docstring) {
  using namespace signatures;
  Signature signature;
  const std::size_t open = position(docstring, opening);
  signature.name = docstring.substr(0, open);
  const std::size_t begin = open + opening.size();
  signature.written = docstring.substr(begin, position(docstring, closing) - begin);

  bool keyword_only = false;
  for (std::string_view rest = signature.written; !rest.empty();) {
    const std::string_view word = rest.substr(0, position(rest, separator));
    rest.remove_prefix(std::min(rest.size(), word.size() + separator.size()));
    if (word == "*") {
      keyword_only = true;
    } else if (word.front() == '*') {
      signature.takes_any_number = true;
    } else {
      signature.parameters[signature.count++] = read_parameter(word);
      if (!keyword_only) ++signature.positional;
    }
  }
  return signature;
}

/// The arguments of one call, as the host passes them; the caller keeps them alive.
struct Arguments {
  PyObject* const* values;
  std::size_t positional;
  PyObject* keyword_names;  ///< a tuple, or no object

  std::size_t keywords() const;
};

/// Whoever binds them keeps the arguments alive; defaults live for ever.
using Bound = std::array<host::Lent, Signature::most_parameters>;

/// The value of each parameter. Throws with the host's TypeError when the call does not fit.
Bound bind(const Signature& signature, const Arguments& arguments);

/// The values of a function that takes any number by position and none by keyword.
std::span<PyObject* const> bind_any_number(const Signature& signature, const Arguments& arguments);

}  // namespace tavik::bindings
