// What the module takes from other modules when it is loaded, its own namespace, and calls of
// functions found there.
#pragma once

#include <atomic>
#include <cstdint>
#include <initializer_list>
#include <string_view>

#include "host/value.hpp"

namespace tavik::host {

/// from module import name. Throws with the host's ImportError, which names what is missing.
Value import_from(std::string_view module, std::string_view name);

/// The value that a name is bound to in a namespace; a NameError when there is none.
Value look_up(const Value& names, const Value& name);

/// Whether a name is bound to just this object.
bool is_bound_to(const Value& names, const Value& name, const Value& object);

/// Whether version_of tells of every change of the dict. Not as long as its values lie in an
/// instance: the host does not count an attribute that is set there.
inline bool counts_changes(const Value& dict) {
  return reinterpret_cast<PyDictObject*>(dict.get())->ma_values == nullptr;
}

/// A number that every change of the dict replaces by one that no dict had before. The host keeps
/// it for its own caches up to version 3.13, which is the only one that the module is built for; a
/// look-up takes 60 instructions, reading this takes one.
inline std::uint64_t version_of(const Value& dict) {
#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
#elif defined(_MSC_VER)
#pragma warning(push)
#pragma warning(disable : 4996)
#endif
  return std::atomic_ref(reinterpret_cast<PyDictObject*>(dict.get())->ma_version_tag)
      .load(std::memory_order_acquire);
#if defined(__GNUC__)
#pragma GCC diagnostic pop
#elif defined(_MSC_VER)
#pragma warning(pop)
#endif
}

/// function(...), each argument by position or, where it has a name, by keyword.
[[gnu::cold]] Value call_with_keywords(const Value& function,
                                       std::initializer_list<PyObject*> arguments,
                                       std::initializer_list<const char*> names);

}  // namespace tavik::host
