// Whether electron correlation asks for more than plain DFT: the intent decides alone, then
// wording, then reference data. A simple request switches wording and reference data off.
#include "material_characterization/classifiers/intent.hpp"
#include "material_characterization/classifiers/reference_tables.hpp"

namespace tavik::characterization {
namespace {

bool is_plain_metal(const ModuleState& module, const Object& species) {
  if (py::length(species) != 1) return false;
  const Object only = py::first(species);
  return py::union_contains(
      module.look_up(Global::NONMAGNETIC_METAL_SPECIES),
      [&] { return species_from(module, Global::phase1_simple_ferromagnet_species); }, only);
}

}  // namespace

CorrelationClass _correlation_class(const ModuleState& module, const Object& species,
                                    const Object& formula_hint, Text& combined_text,
                                    const Object& intent_correlation,
                                    const Object& intent_complexity) {
  using enum CorrelationClass;
  if (equals(intent_correlation, IntentCorrelation::dft_plus_u)) return dftu_sensitive;
  if (equals(intent_correlation, IntentCorrelation::hybrid)) return dftu_sensitive;
  if (equals(intent_correlation, IntentCorrelation::plain_dft)) return plain_dft;
  if (is_simple_request(intent_complexity)) return plain_dft;
  if (combined_text.mentions(text::Group::dft_plus_u)) return dftu_sensitive;
  if (is_in(module, Global::DFTU_SENSITIVE_FORMULAS, formula_hint)) return dftu_sensitive;
  if (is_transition_metal_oxide(module, species)) return dftu_sensitive;
  if (is_plain_metal(module, species)) return plain_dft;
  if (is_semiconductor_or_insulator(module, formula_hint)) return plain_dft;
  return unknown;
}

}  // namespace tavik::characterization
