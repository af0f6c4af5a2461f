// Whether electron correlation asks for more than plain DFT: the intent decides alone, then
// wording, then reference data. A simple request switches wording and reference data off.
#include "material_characterization/intent.hpp"
#include "material_characterization/reference.hpp"

namespace tavik::characterization {
namespace {

bool is_plain_metal(const Module& module, const Value& species) {
  if (host::length(species) != 1) return false;
  const Value only = host::first(species);
  return host::union_contains(
      module.look_up(Global::NONMAGNETIC_METAL_SPECIES),
      [&] { return species_from(module, Global::phase1_simple_ferromagnet_species); }, only);
}

}  // namespace

Label _correlation_class(const Module& module, const Value& species,
                         const FormulaHint& formula_hint, Text& combined_text,
                         const IntentField& intent_correlation,
                         const IntentField& intent_complexity) {
  if (intent_correlation.is(IntentWord::dft_plus_u)) return Label::dftu_sensitive;
  if (intent_correlation.is(IntentWord::hybrid)) return Label::dftu_sensitive;
  if (intent_correlation.is(IntentWord::plain_dft)) return Label::plain_dft;
  if (is_simple_request(intent_complexity)) return Label::plain_dft;
  if (combined_text.mentions(text::Group::dft_plus_u)) return Label::dftu_sensitive;
  if (formula_hint.is_in(module, Global::DFTU_SENSITIVE_FORMULAS)) return Label::dftu_sensitive;
  if (is_transition_metal_oxide(module, species)) return Label::dftu_sensitive;
  if (is_plain_metal(module, species)) return Label::plain_dft;
  if (formula_hint.is_semiconductor_or_insulator(module)) return Label::plain_dft;
  return Label::unknown;
}

}  // namespace tavik::characterization
