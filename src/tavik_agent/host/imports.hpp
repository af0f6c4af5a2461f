// What the module takes from other modules when it is loaded, its own namespace, and calls of
// functions found there.
#pragma once

#include <initializer_list>

#include "host/value.hpp"

namespace tavik::host {

/// from module import name. Throws with the host's ImportError, which names what is missing.
Value import_from(const char* module, const char* name);

/// The value that a name is bound to in a namespace; a NameError when there is none.
Value look_up(const Value& names, const Value& name);

/// function(...), each argument by position or, where it has a name, by keyword.
Value call_with_keywords(const Value& function, std::initializer_list<PyObject*> arguments,
                         std::initializer_list<const char*> names);

}  // namespace tavik::host
