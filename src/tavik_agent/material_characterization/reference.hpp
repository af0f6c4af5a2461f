// Questions to the reference tables and functions. Each is asked of what the name is bound to at
// that moment, and a reference function is called anew for each.
#pragma once

#include "host/objects.hpp"
#include "material_characterization/module.hpp"

namespace tavik::characterization {

/// item in TABLE
inline bool is_in(const Module& module, Global table, const host::Value& item) {
  return host::contains(module.look_up(table), item);
}

/// function()
inline host::Value species_from(const Module& module, Global function) {
  return host::call(module.look_up(function).value());
}

/// is_transition_metal_oxide(species)
inline bool is_transition_metal_oxide(const Module& module, const host::Value& species) {
  const Current predicate = module.look_up(Global::is_transition_metal_oxide);
  return !host::is_empty(host::call(predicate.value(), species));
}

}  // namespace tavik::characterization
