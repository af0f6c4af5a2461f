// The magnetic character of a material: the intent decides first, then explicit wording, then
// species and formula.
#include "material_characterization/intent.hpp"
#include "material_characterization/reference.hpp"

namespace tavik::characterization {
namespace {

using text::Group;

constexpr auto simple_ferromagnets = Global::phase1_simple_ferromagnet_species;
constexpr auto seeded_magnets = Global::collinear_magmom_seed_species;

template <class Test>
bool any_of(const Value& species, Test test) {
  if (host::is_empty_list(species)) return false;
  host::Iterator items(species);
  while (const Value item = items.next()) {
    if (test(item)) return true;
  }
  return false;
}

/// Whether any species is in the collection of a reference function, which is called anew for each
/// species examined.
bool any_from(const Module& module, Global function, const Value& species) {
  return any_of(species, [&](const Value& item) {
    return host::contains(species_from(module, function), item);
  });
}

bool any_nonmagnetic_metal(const Module& module, const Value& species) {
  return any_of(species, [&](const Value& item) {
    return is_in(module, Global::NONMAGNETIC_METAL_SPECIES, item);
  });
}

bool is_complex_magnet(const Module& module, const Value& species) {
  return host::length(species) == 1 &&
         is_in(module, Global::COMPLEX_MAGNETIC_SPECIES, host::first(species));
}

bool all_simple_ferromagnets(const Module& module, const Value& species) {
  return !host::is_empty(species) &&
         host::all_are_in(species, [&] { return species_from(module, simple_ferromagnets); });
}

bool asks_for_collinear_cell(const text::Mentions& words) {
  return words.has(Group::collinear) && words.has(Group::small_cell);
}

}  // namespace

Label _magnetic_class(const Module& module, const Value& species, const FormulaHint& formula_hint,
                      Text& combined_text, const Verdict& correlation_class,
                      const IntentField& intent_magnetism, const IntentField& intent_complexity) {
  const auto is_nio = [&] { return host::equals(formula_hint.value(), "NiO"); };
  const auto is_oxide = [&] { return is_transition_metal_oxide(module, species); };
  const auto is_correlated_oxide = [&] {
    return correlation_class.is(Label::dftu_sensitive) && (is_nio() || is_oxide());
  };

  if (intent_magnetism.is(IntentWord::non_collinear)) return Label::noncollinear_template;
  if (intent_magnetism.is(IntentWord::antiferromagnetic)) return Label::template_antiferromagnet;
  if (intent_magnetism.is(IntentWord::ferrimagnetic)) return Label::template_antiferromagnet;
  if (intent_magnetism.is(IntentWord::ferromagnetic)) {
    return !host::is_empty(species) && any_from(module, simple_ferromagnets, species)
               ? Label::simple_ferromagnet
               : Label::collinear_magnetic;
  }
  if (intent_magnetism.is(IntentWord::nonmagnetic)) return Label::nonmagnetic;

  const text::Mentions words = combined_text.mentions();
  // A small collinear cell asked for in so many words outranks any wording of magnetic order.
  if (asks_for_collinear_cell(words) && is_correlated_oxide()) {
    return Label::collinear_magnetic;
  }
  if (words.has(Group::noncollinear_or_spin_orbit)) return Label::noncollinear_template;
  if (words.has(Group::antiferromagnetic)) return Label::template_antiferromagnet;
  if (words.has(Group::alpha_manganese)) return Label::complex_magnetic;

  if (is_complex_magnet(module, species)) return Label::complex_magnetic;
  // Of the correlated oxides only NiO has an order to start from; the others stay open.
  if (!is_simple_request(intent_complexity) && is_correlated_oxide()) {
    return is_nio() ? Label::template_antiferromagnet : Label::unknown;
  }
  if (all_simple_ferromagnets(module, species)) return Label::simple_ferromagnet;
  if (any_from(module, simple_ferromagnets, species) && !is_oxide()) {
    return Label::simple_ferromagnet;
  }
  if (any_from(module, seeded_magnets, species) && !is_oxide()) return Label::collinear_magnetic;
  if (any_nonmagnetic_metal(module, species)) return Label::nonmagnetic;
  if (formula_hint.is_semiconductor_or_insulator(module)) return Label::nonmagnetic;
  return Label::unknown;
}

}  // namespace tavik::characterization
