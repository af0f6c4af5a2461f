// Metal, semiconductor or insulator: by archetype, then by formula, then by the user's words, then
// by the one species.
#include "host/ordered_set.hpp"
#include "host/strings.hpp"
#include "material_characterization/calls.hpp"
#include "material_characterization/functions.hpp"
#include "material_characterization/reference.hpp"

namespace tavik::characterization {
namespace {

host::Values normalised(const Value& species) {
  host::Values symbols;
  host::Iterator items(species);
  while (const Value item = items.next()) {
    Value symbol = host::strip(host::text_form(item));
    if (!host::is_empty(symbol)) symbols.push_back(std::move(symbol));
  }
  return symbols;
}

bool holds_one_distinct(const host::Values& symbols) {
  if (symbols.size() < 2) return symbols.size() == 1;
  host::OrderedSet distinct;
  distinct.add_all(symbols);
  return distinct.take().size() == 1;
}

}  // namespace

Label classify_system_class(const Module& module, const Value& given_species,
                            const FormulaHint& formula_hint, Text& explicit_text,
                            const Verdict& structure_archetype) {
  const host::Values species = normalised(given_species);
  host::WrittenForm text(explicit_text);
  const Value simple_fm = species_from(module, Global::phase1_simple_ferromagnet_species);
  const Value magnetic_seed_species = species_from(module, Global::collinear_magmom_seed_species);

  if (structure_archetype.is(Label::graphene_2d)) return Label::unknown;
  if (structure_archetype.is(Label::hbn_2d)) return Label::insulator;
  if (structure_archetype.is(Label::tmd_2d)) return Label::semiconductor;
  if (structure_archetype.is(Label::phosphorene_2d)) return Label::semiconductor;
  if (structure_archetype.is(Label::mxene_2d)) return Label::metal;
  if (formula_hint.is_in(module, Global::SEMICONDUCTOR_FORMULAS)) return Label::semiconductor;
  if (formula_hint.is_in(module, Global::INSULATOR_FORMULAS)) return Label::insulator;
  if (formula_hint.is_in(module, Global::DFTU_SENSITIVE_FORMULAS)) return Label::insulator;
  if (text->mentions(text::Group::metallic)) return Label::metal;

  if (holds_one_distinct(species) &&
      is_in(module, Global::SEMICONDUCTOR_FORMULAS, species.front())) {
    return Label::semiconductor;
  }
  if (species.size() == 1) {
    const Value& only = species.front();
    if (is_in(module, Global::NONMAGNETIC_METAL_SPECIES, only)) return Label::metal;
    if (host::contains(simple_fm, only)) return Label::metal;
    if (is_in(module, Global::COMPLEX_MAGNETIC_SPECIES, only)) return Label::metal;
    if (host::contains(magnetic_seed_species, only)) return Label::metal;
  }
  // For tables that do not list the three best known semiconductors.
  if (!host::is_empty(formula_hint.value()) &&
      host::equals_any(formula_hint.value(), {"GaAs", "Si", "Ge"})) {
    return Label::semiconductor;
  }
  return Label::unknown;
}

Verdict _electronic_class(const Module& module, const Value& species,
                          const FormulaHint& formula_hint, Text& explicit_text,
                          const Verdict& structure_archetype) {
  return invoke<classify_system_class>(
      module, Global::classify_system_class, species, keyword("formula_hint", formula_hint),
      keyword("explicit_text", explicit_text), keyword("structure_archetype", structure_archetype));
}

}  // namespace tavik::characterization
