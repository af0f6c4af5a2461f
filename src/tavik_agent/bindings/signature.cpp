// Argument binding. The way that fits is short and direct; the way that does not is left to a
// function of the host's own making.
#include "bindings/signature.hpp"

#include <optional>
#include <string>

#include "host/objects.hpp"
#include "host/strings.hpp"

namespace tavik::bindings {
namespace {

using host::Value;

/// Defines a host function with the same name and parameters and makes the same call of it: the
/// host then refuses it as it does for its own functions, before any of it runs.
[[noreturn]] void refuse(const Signature& signature, const Arguments& arguments) {
  const std::string name(signature.name);
  const std::string source = "def " + name + "(" + std::string(signature.written) + "): pass\n";
  const Value names = host::new_dict();
  Value::steal(PyRun_String(source.c_str(), Py_file_input, names.get(), names.get()));
  const Value function = host::get(names, host::string(name));
  Value::steal(PyObject_Vectorcall(function.get(), arguments.values, arguments.positional,
                                   arguments.keyword_names));
  host::raise(PyExc_SystemError, "%s() refused arguments that fit its signature", name.c_str());
}

std::optional<std::size_t> find_parameter(const Signature& signature, const Value& keyword) {
  for (std::size_t i = 0; i < signature.count; ++i) {
    const std::string_view name = signature.parameters[i].name;
    if (host::equals(keyword, name)) return i;
  }
  return std::nullopt;
}

Value default_of(const Parameter& parameter) {
  return parameter.otherwise == Default::null ? Value::null() : host::string("");
}

/// Whether the call fits; `bound` then holds what it gives.
bool fill(const Signature& signature, const Arguments& arguments, Bound& bound) {
  if (arguments.positional > signature.positional) return false;
  for (std::size_t i = 0; i < arguments.positional; ++i) {
    bound[i] = Value::borrow(arguments.values[i]);
  }
  for (std::size_t i = 0; i < arguments.keywords(); ++i) {
    const Value keyword = Value::borrow(PyTuple_GET_ITEM(arguments.keyword_names, i));
    const auto parameter = find_parameter(signature, keyword);
    if (!parameter || bound[*parameter]) return false;
    bound[*parameter] = Value::borrow(arguments.values[arguments.positional + i]);
  }
  for (std::size_t i = 0; i < signature.count; ++i) {
    if (bound[i]) continue;
    if (signature.parameters[i].otherwise == Default::none) return false;
    bound[i] = default_of(signature.parameters[i]);
  }
  return true;
}

}  // namespace

std::size_t Arguments::keywords() const {
  return keyword_names == nullptr ? 0 : static_cast<std::size_t>(PyTuple_GET_SIZE(keyword_names));
}

Bound bind(const Signature& signature, const Arguments& arguments) {
  Bound bound;
  if (!fill(signature, arguments, bound)) refuse(signature, arguments);
  return bound;
}

std::span<PyObject* const> bind_any_number(const Signature& signature, const Arguments& arguments) {
  if (arguments.keywords() != 0) refuse(signature, arguments);
  return {arguments.values, arguments.positional};
}

}  // namespace tavik::bindings
