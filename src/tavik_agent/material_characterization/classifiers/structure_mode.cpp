// What kind of atomic system is simulated: by the step's own parameters, and only when they say
// nothing by the text.
#include "material_characterization/functions.hpp"

namespace tavik::characterization {
namespace {

bool is_written(const Object& value) {
  return py::is_string(value) && !py::is_empty(py::strip(value));
}

bool has_lattice(const ModuleState& module, const Object& step_params) {
  const Object domain = module.read(step_params, InputKey::domain);
  return module.is_mapping(domain) && !module.read(domain, InputKey::latvec).is_none();
}

}  // namespace

StructureMode _structure_mode(const ModuleState& module, const Object& step_params,
                              Text& combined_text) {
  using enum StructureMode;
  const Object atom_block = module.read(step_params, InputKey::atom);
  if (module.is_mapping(atom_block)) {
    const Object xyz = module.read(atom_block, InputKey::xyz);
    if (is_written(xyz)) return external_structure;
    if (!xyz.is_none() || !module.read(atom_block, InputKey::fracxyz).is_none()) {
      return has_lattice(module, step_params) ? periodic_bulk : molecule_or_cluster;
    }
  }
  return combined_text.mentions(text::Group::periodic_cell) ? periodic_bulk : unknown;
}

}  // namespace tavik::characterization
