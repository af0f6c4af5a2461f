// Questions to the reference tables and functions. Each is asked of what the name is bound to at
// that moment, and a reference function is called anew for each.
#pragma once

#include "material_characterization/functions.hpp"

namespace tavik::characterization {

/// item in TABLE
inline bool is_in(const ModuleState& module, Global table, const Object& item) {
  return py::contains(module.look_up(table), item);
}

/// item in SEMICONDUCTOR_FORMULAS.union(INSULATOR_FORMULAS)
inline bool is_semiconductor_or_insulator(const ModuleState& module, const Object& formula) {
  return py::union_contains(
      module.look_up(Global::SEMICONDUCTOR_FORMULAS),
      [&] { return module.look_up(Global::INSULATOR_FORMULAS); }, formula);
}

/// function()
inline Object species_from(const ModuleState& module, Global function) {
  return py::call(module.look_up(function));
}

/// is_transition_metal_oxide(species)
inline bool is_transition_metal_oxide(const ModuleState& module, const Object& species) {
  return !py::is_empty(py::call(module.look_up(Global::is_transition_metal_oxide), species));
}

}  // namespace tavik::characterization
