// Metal, semiconductor or insulator: by archetype, then by formula, then by the user's words, then
// by the one species.
#include "material_characterization/classifiers/reference_tables.hpp"
#include "material_characterization/state/invoke.hpp"

namespace tavik::characterization {
namespace {

bool holds_one_distinct(const py::Objects& species) {
  return species.size() == 1 || (!species.empty() && py::length(py::set_of(species)) == 1);
}

}  // namespace

ElectronicClass classify_system_class(const ModuleState& module, const Object& given_species,
                                      const Object& formula_hint, Text& explicit_text,
                                      const Object& structure_archetype) {
  using enum ElectronicClass;
  const py::Objects species = py::stripped_texts_of(given_species);
  py::TextForm text(explicit_text);
  text->lowered();  // what Python raises about it comes before any rule decides
  const Object simple_fm = species_from(module, Global::phase1_simple_ferromagnet_species);
  const Object magnetic_seed_species = species_from(module, Global::collinear_magmom_seed_species);

  if (equals(structure_archetype, StructureArchetype::graphene_2d)) return unknown;
  if (equals(structure_archetype, StructureArchetype::hbn_2d)) return insulator;
  if (equals(structure_archetype, StructureArchetype::tmd_2d)) return semiconductor;
  if (equals(structure_archetype, StructureArchetype::phosphorene_2d)) return semiconductor;
  if (equals(structure_archetype, StructureArchetype::mxene_2d)) return metal;
  if (is_in(module, Global::SEMICONDUCTOR_FORMULAS, formula_hint)) return semiconductor;
  if (is_in(module, Global::INSULATOR_FORMULAS, formula_hint)) return insulator;
  if (is_in(module, Global::DFTU_SENSITIVE_FORMULAS, formula_hint)) return insulator;
  if (text->mentions(text::Group::metallic)) return metal;

  if (holds_one_distinct(species) &&
      is_in(module, Global::SEMICONDUCTOR_FORMULAS, species.front())) {
    return semiconductor;
  }
  if (species.size() == 1) {
    const Object& only = species.front();
    if (is_in(module, Global::NONMAGNETIC_METAL_SPECIES, only)) return metal;
    if (py::contains(simple_fm, only)) return metal;
    if (is_in(module, Global::COMPLEX_MAGNETIC_SPECIES, only)) return metal;
    if (py::contains(magnetic_seed_species, only)) return metal;
  }
  // For tables that do not list the three best known semiconductors.
  if (!py::is_empty(formula_hint) && py::equals_any(formula_hint, {"GaAs", "Si", "Ge"})) {
    return semiconductor;
  }
  return unknown;
}

Object _electronic_class(const ModuleState& module, const Object& species,
                         const Object& formula_hint, Text& explicit_text,
                         const Object& structure_archetype) {
  return invoke<classify_system_class>(
      module, Global::classify_system_class, species, keyword("formula_hint", formula_hint),
      keyword("explicit_text", explicit_text), keyword("structure_archetype", structure_archetype));
}

}  // namespace tavik::characterization
