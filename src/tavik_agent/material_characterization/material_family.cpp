// The broad family of a material, from the labels reached before it.
#include <algorithm>
#include <array>

#include "host/strings.hpp"
#include "material_characterization/functions.hpp"
#include "material_characterization/reference.hpp"

namespace tavik::characterization {
namespace {

/// A layered parent counts: it is meant to be exfoliated.
bool is_two_dimensional(const Verdict& structure_archetype) {
  constexpr std::array labels{Label::graphene_2d,
                              Label::hbn_2d,
                              Label::tmd_2d,
                              Label::phosphorene_2d,
                              Label::mxene_2d,
                              Label::two_dimensional,
                              Label::layered_parent_exfoliation};
  return std::ranges::any_of(labels, [&](Label label) { return structure_archetype.is(label); });
}

}  // namespace

Label _material_family(const Module& module, const Value& species, const Verdict& structure_mode,
                       const Verdict& electronic_class, const FormulaHint& formula_hint,
                       const Verdict& structure_archetype) {
  if (is_two_dimensional(structure_archetype)) return Label::two_dimensional;
  if (structure_mode.is(Label::molecule_or_cluster)) return Label::molecule;
  if (formula_hint.is_in(module, Global::SEMICONDUCTOR_FORMULAS) ||
      electronic_class.is(Label::semiconductor)) {
    return Label::semiconductor;
  }
  if (host::ends_with(formula_hint.value(), 'O') || host::contains_text(species, "O")) {
    return Label::oxide;
  }
  if (host::length(species) == 1 && electronic_class.is(Label::metal)) {
    return Label::elemental_metal;
  }
  if (host::length(species) >= 2 && electronic_class.is(Label::metal)) return Label::alloy;
  return Label::other;
}

}  // namespace tavik::characterization
