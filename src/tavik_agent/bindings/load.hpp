// What happens when the module is loaded.
#pragma once

#include "py/object.hpp"

namespace tavik::bindings {

/// Fills the namespace of a new module: the acronyms, the reference data, the patterns and the set
/// of acronyms, in this order. Throws with Python's ImportError when something is missing.
void fill_namespace(const py::Object& names);

}  // namespace tavik::bindings
