// Argument binding, and the messages for a call that does not fit.
#include "bindings/signature.hpp"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "py/values.hpp"

namespace tavik::bindings {
namespace {

using py::Object;

[[noreturn]] void refuse(const Signature& signature, const std::string& reason) {
  py::raise(PyExc_TypeError, "%s() %s", signature.name, reason.c_str());
}

std::string counted(std::size_t count, const std::string& noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

/// 'a' and 'b', or 'a', 'b', and 'c'
std::string listed(const std::vector<std::string_view>& names) {
  std::string list;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i != 0) list += names.size() > 2 ? ", " : " ";
    if (i != 0 && i + 1 == names.size()) list += "and ";
    list.append("'").append(names[i]).append("'");
  }
  return list;
}

[[noreturn]] void refuse_too_many(const Signature& signature, std::size_t given) {
  const auto by_position = std::span(signature.parameters).first(signature.positional);
  const auto least = std::ranges::count(by_position, Default::missing, &Parameter::initial);
  const bool has_defaults = static_cast<std::size_t>(least) < signature.positional;
  const std::string range = has_defaults ? "from " + std::to_string(least) + " to " : "";
  refuse(signature, "takes " + range + counted(signature.positional, "positional argument") +
                        " but " + std::to_string(given) + (given == 1 ? " was" : " were") +
                        " given");
}

[[noreturn]] void refuse_unexpected(const Signature& signature, const Object& keyword) {
  py::raise(PyExc_TypeError, "%s() got an unexpected keyword argument '%S'", signature.name,
            keyword.get());
}

/// Names every parameter from the first missing one on that was not given and has no default, of
/// those that are passed in the same way.
[[noreturn]] void refuse_missing(const Signature& signature, const Bound& bound,
                                 std::size_t first) {
  const bool by_position = first < signature.positional;
  const std::size_t end = by_position ? signature.positional : signature.count;
  std::vector<std::string_view> names;
  for (std::size_t i = first; i < end; ++i) {
    const auto& [name, initial] = signature.parameters[i];
    if (!bound[i] && initial == Default::missing) names.push_back(name);
  }
  const std::string kind = by_position ? "positional" : "keyword-only";
  refuse(signature, "missing " + counted(names.size(), "required " + kind + " argument") + ": " +
                        listed(names));
}

/// Keywords mostly come in the order of the parameters, so the search starts at `expected`.
std::optional<std::size_t> find_parameter(const Signature& signature, const Object& keyword,
                                          std::size_t expected) {
  for (std::size_t n = 0; n < signature.count; ++n) {
    const std::size_t i = (expected + n) % signature.count;
    if (py::equals(keyword, signature.parameters[i].name)) return i;
  }
  return std::nullopt;
}

void take_keywords(const Signature& signature, const Arguments& arguments, Bound& bound) {
  std::size_t expected = arguments.positional;
  for (std::size_t i = 0; i < arguments.keywords(); ++i) {
    const Object keyword =
        Object::borrow(PyTuple_GET_ITEM(arguments.keyword_names, static_cast<Py_ssize_t>(i)));
    const auto parameter = find_parameter(signature, keyword, expected);
    if (!parameter) refuse_unexpected(signature, keyword);
    if (bound[*parameter]) {
      refuse(signature,
             "got multiple values for argument " + listed({signature.parameters[*parameter].name}));
    }
    bound[*parameter] = Object::borrow(arguments.values[arguments.positional + i]);
    expected = *parameter + 1;
  }
}

/// The default of a parameter that was not given.
Object initial_value(const Signature& signature, const Bound& bound, std::size_t parameter) {
  switch (signature.parameters[parameter].initial) {
    case Default::none:
      return py::none();
    case Default::empty_text:
      return py::empty_string();
    case Default::missing:
      break;
  }
  refuse_missing(signature, bound, parameter);
}

}  // namespace

std::size_t Arguments::keywords() const {
  return keyword_names == nullptr ? 0 : static_cast<std::size_t>(PyTuple_GET_SIZE(keyword_names));
}

Bound bind(const Signature& signature, const Arguments& arguments) {
  if (arguments.positional > signature.positional) refuse_too_many(signature, arguments.positional);
  Bound bound;
  for (std::size_t i = 0; i < arguments.positional; ++i) {
    bound[i] = Object::borrow(arguments.values[i]);
  }
  take_keywords(signature, arguments, bound);
  for (std::size_t i = 0; i < signature.count; ++i) {
    if (!bound[i]) bound[i] = initial_value(signature, bound, i);
  }
  return bound;
}

py::Objects bind_any_number(const Signature& signature, const Arguments& arguments) {
  if (arguments.keywords() != 0) {
    refuse_unexpected(signature, Object::borrow(PyTuple_GET_ITEM(arguments.keyword_names, 0)));
  }
  py::Objects held;
  for (PyObject* const value : arguments.by_position()) held.push_back(Object::borrow(value));
  return held;
}

}  // namespace tavik::bindings
