// The broad family of a material, from the labels reached before it.
#include "material_characterization/classifiers/reference_tables.hpp"

namespace tavik::characterization {
namespace {

/// A layered parent counts: it is meant to be exfoliated.
bool is_two_dimensional(const Object& structure_archetype) {
  using enum StructureArchetype;
  return equals(structure_archetype, graphene_2d) || equals(structure_archetype, hbn_2d) ||
         equals(structure_archetype, tmd_2d) || equals(structure_archetype, phosphorene_2d) ||
         equals(structure_archetype, mxene_2d) || equals(structure_archetype, two_dimensional) ||
         equals(structure_archetype, layered_parent_exfoliation);
}

}  // namespace

MaterialFamily _material_family(const ModuleState& module, const Object& species,
                                const Object& structure_mode, const Object& electronic_class,
                                const Object& formula_hint, const Object& structure_archetype) {
  using enum MaterialFamily;
  const auto is_metal = [&] { return equals(electronic_class, ElectronicClass::metal); };

  if (is_two_dimensional(structure_archetype)) return two_dimensional;
  if (equals(structure_mode, StructureMode::molecule_or_cluster)) return molecule;
  if (is_in(module, Global::SEMICONDUCTOR_FORMULAS, formula_hint)) return semiconductor;
  if (equals(electronic_class, ElectronicClass::semiconductor)) return semiconductor;
  if (py::ends_with(formula_hint, 'O')) return oxide;
  if (py::contains(species, py::string("O"))) return oxide;
  if (py::length(species) == 1 && is_metal()) return elemental_metal;
  if (py::length(species) >= 2 && is_metal()) return alloy;
  return other;
}

}  // namespace tavik::characterization
