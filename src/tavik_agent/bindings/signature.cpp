// Argument binding. The way that fits is short and direct; the way that does not is left to a
// function of the host's own making.
#include "bindings/signature.hpp"

#include <optional>
#include <string>

#include "host/imports.hpp"
#include "host/objects.hpp"
#include "host/strings.hpp"

namespace tavik::bindings {
namespace {

using host::check;
using host::Lent;
using host::Value;

Lent default_of(const Parameter& parameter) {
  return parameter.otherwise == Default::null ? Lent(Py_None) : host::lasting_empty_string();
}

Value number(std::size_t value) { return Value::steal(PyLong_FromSize_t(value)); }

/// A code object with the parameters of the signature. It is not compiled: the host's compiler does
/// not survive an allocation that fails.
Value code_of(const Signature& signature, const char* name) {
  const Value empty = Value::steal(reinterpret_cast<PyObject*>(PyCode_NewEmpty("", name, 1)));
  const Value names = host::new_list();
  for (std::size_t i = 0; i < signature.count; ++i) {
    host::append(names, host::string(signature.parameters[i].name));
  }
  if (signature.takes_any_number) host::append(names, host::string(signature.written));
  const std::size_t several = signature.takes_any_number ? CO_VARARGS : 0;
  return host::call_with_keywords(
      host::attribute(empty, "replace"),
      {number(signature.positional).get(), number(signature.count - signature.positional).get(),
       number(host::length(names)).get(), Value::steal(PyList_AsTuple(names.get())).get(),
       number(CO_OPTIMIZED | CO_NEWLOCALS | several).get()},
      {"co_argcount", "co_kwonlyargcount", "co_nlocals", "co_varnames", "co_flags"});
}

/// A host function with the same name, parameters and defaults that has no body.
Value twin_of(const Signature& signature, const char* name) {
  const Value defaults = host::new_list();
  const Value keyword_defaults = host::new_dict();
  for (std::size_t i = 0; i < signature.count; ++i) {
    const Parameter& parameter = signature.parameters[i];
    if (parameter.otherwise == Default::none) continue;
    if (i < signature.positional) {
      host::append(defaults, default_of(parameter));
    } else {
      host::set(keyword_defaults, host::string(parameter.name), default_of(parameter));
    }
  }
  Value function =
      Value::steal(PyFunction_New(code_of(signature, name).get(), host::new_dict().get()));
  check(PyFunction_SetDefaults(function.get(), Value::steal(PyList_AsTuple(defaults.get())).get()));
  check(PyFunction_SetKwDefaults(function.get(), keyword_defaults.get()));
  return function;
}

/// Makes the same call of the function's twin: the host refuses it as it does for its own
/// functions.
[[noreturn]] void refuse(const Signature& signature, const Arguments& arguments) {
  const std::string name(signature.name);
  Value::steal(PyObject_Vectorcall(twin_of(signature, name.c_str()).get(), arguments.values,
                                   arguments.positional, arguments.keyword_names));
  host::raise(PyExc_SystemError, "%s() refused arguments that fit its signature", name.c_str());
}

bool is_name(const Value& keyword, std::string_view name) {
  return host::is_exact_ascii(keyword) ? host::ascii_view(keyword) == name
                                       : host::equals(keyword, name);
}

/// Keywords mostly come in the order of the parameters, so the search starts at `expected`.
std::optional<std::size_t> find_parameter(const Signature& signature, const Value& keyword,
                                          std::size_t expected) {
  for (std::size_t n = 0; n < signature.count; ++n) {
    const std::size_t i =
        expected + n < signature.count ? expected + n : expected + n - signature.count;
    if (is_name(keyword, signature.parameters[i].name)) return i;
  }
  return std::nullopt;
}

/// Takes what is given; whether it fits.
bool take(const Signature& signature, const Arguments& arguments, Bound& bound) {
  if (arguments.positional > signature.positional) return false;
  for (std::size_t i = 0; i < arguments.positional; ++i) bound[i] = Lent(arguments.values[i]);
  std::size_t expected = arguments.positional;
  for (std::size_t i = 0; i < arguments.keywords(); ++i) {
    const Lent keyword(PyTuple_GET_ITEM(arguments.keyword_names, i));
    const auto parameter = find_parameter(signature, keyword, expected);
    if (!parameter || bound[*parameter]) return false;
    bound[*parameter] = Lent(arguments.values[arguments.positional + i]);
    expected = *parameter + 1;
  }
  return true;
}

/// Fills in the defaults; whether there is one wherever nothing was given.
bool complete(const Signature& signature, Bound& bound) {
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
  if (!take(signature, arguments, bound) || !complete(signature, bound)) {
    refuse(signature, arguments);
  }
  return bound;
}

std::span<PyObject* const> bind_any_number(const Signature& signature, const Arguments& arguments) {
  if (arguments.keywords() != 0) refuse(signature, arguments);
  return {arguments.values, arguments.positional};
}

}  // namespace tavik::bindings
