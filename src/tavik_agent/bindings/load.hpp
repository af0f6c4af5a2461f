// What happens when the module is loaded.
#pragma once

#include "host/value.hpp"

namespace tavik::bindings {

/// Fills the namespace of a new module: the acronyms, the reference data, the patterns and the set
/// of acronyms, in this order. Throws with the host's ImportError when something is missing.
void fill_namespace(const host::Value& names);

}  // namespace tavik::bindings
