// The magnetic character of a material: the intent decides first, then explicit wording, then
// species and formula.
#include "material_characterization/classifiers/intent.hpp"
#include "material_characterization/classifiers/reference_tables.hpp"

namespace tavik::characterization {
namespace {

using text::Group;

constexpr auto simple_ferromagnets = Global::phase1_simple_ferromagnet_species;
constexpr auto seeded_magnets = Global::collinear_magmom_seed_species;

template <class Test>
bool any_of(const Object& species, Test test) {
  py::Iterator items(species);
  while (const Object item = items.next()) {
    if (test(item)) return true;
  }
  return false;
}

/// Whether any species is in the collection of a reference function, which is called anew for each
/// species examined.
bool any_from(const ModuleState& module, Global function, const Object& species) {
  return any_of(species, [&](const Object& item) {
    return py::contains(species_from(module, function), item);
  });
}

bool any_nonmagnetic_metal(const ModuleState& module, const Object& species) {
  return any_of(species, [&](const Object& item) {
    return is_in(module, Global::NONMAGNETIC_METAL_SPECIES, item);
  });
}

bool is_complex_magnet(const ModuleState& module, const Object& species) {
  return py::length(species) == 1 &&
         is_in(module, Global::COMPLEX_MAGNETIC_SPECIES, py::first(species));
}

bool all_simple_ferromagnets(const ModuleState& module, const Object& species) {
  return !py::is_empty(species) &&
         py::all_are_in(species, [&] { return species_from(module, simple_ferromagnets); });
}

bool asks_for_collinear_cell(const text::Mentions& words) {
  return words.has(Group::collinear) && words.has(Group::small_cell);
}

}  // namespace

MagneticClass _magnetic_class(const ModuleState& module, const Object& species,
                              const Object& formula_hint, Text& combined_text,
                              const Object& correlation_class, const Object& intent_magnetism,
                              const Object& intent_complexity) {
  using enum MagneticClass;
  const auto is_nio = [&] { return py::equals(formula_hint, "NiO"); };
  const auto is_oxide = [&] { return is_transition_metal_oxide(module, species); };
  const auto is_correlated_oxide = [&] {
    return equals(correlation_class, CorrelationClass::dftu_sensitive) && (is_nio() || is_oxide());
  };

  if (equals(intent_magnetism, IntentMagnetism::non_collinear)) return noncollinear_template;
  if (equals(intent_magnetism, IntentMagnetism::antiferromagnetic)) return template_antiferromagnet;
  if (equals(intent_magnetism, IntentMagnetism::ferrimagnetic)) return template_antiferromagnet;
  if (equals(intent_magnetism, IntentMagnetism::ferromagnetic)) {
    return !py::is_empty(species) && any_from(module, simple_ferromagnets, species)
               ? simple_ferromagnet
               : collinear_magnetic;
  }
  if (equals(intent_magnetism, IntentMagnetism::nonmagnetic)) return nonmagnetic;

  const text::Mentions words = combined_text.mentions();
  // A small collinear cell asked for in so many words outranks any wording of magnetic order.
  if (asks_for_collinear_cell(words) && is_correlated_oxide()) return collinear_magnetic;
  if (words.has(Group::noncollinear_or_spin_orbit)) return noncollinear_template;
  if (words.has(Group::antiferromagnetic)) return template_antiferromagnet;
  if (words.has(Group::alpha_manganese)) return complex_magnetic;

  if (is_complex_magnet(module, species)) return complex_magnetic;
  // Of the correlated oxides only NiO has an order to start from; the others stay open.
  if (!is_simple_request(intent_complexity) && is_correlated_oxide()) {
    return is_nio() ? template_antiferromagnet : unknown;
  }
  if (all_simple_ferromagnets(module, species)) return simple_ferromagnet;
  if (any_from(module, simple_ferromagnets, species) && !is_oxide()) return simple_ferromagnet;
  if (any_from(module, seeded_magnets, species) && !is_oxide()) return collinear_magnetic;
  if (any_nonmagnetic_metal(module, species)) return nonmagnetic;
  if (is_semiconductor_or_insulator(module, formula_hint)) return nonmagnetic;
  return unknown;
}

}  // namespace tavik::characterization
