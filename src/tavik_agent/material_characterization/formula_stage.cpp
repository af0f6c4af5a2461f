// The formula hint of the record: the intent's formula when it has one, else a heuristic hint that
// must not name elements beyond those of the intent.
#include "host/strings.hpp"
#include "material_characterization/calls.hpp"
#include "material_characterization/characterization.hpp"
#include "material_characterization/formulas.hpp"

namespace tavik::characterization {
namespace {

FormulaHint hint_in(const Characterization& call, Text& text) {
  return FormulaHint(invoke<_formula_hint>(call.module, Global::_formula_hint, text, call.species));
}

bool names_elements_beyond_intent(const Characterization& call) {
  const host::Values formula_species = symbols_of(call.module, call.formula_hint.value());
  if (formula_species.empty()) return false;
  const Value intent_set = host::set_of(call.intent_species);
  return !host::is_subset(host::set_of(formula_species), intent_set);
}

void decide_by_heuristic(Characterization& call) {
  call.formula_hint = hint_in(call, call.query_text);
  // Where nothing was replaced, the same text has the same answer.
  const bool is_same_question = call.combined == &call.query_text && call.module.is_untouched();
  if (host::is_empty(call.formula_hint.value()) && !is_same_question) {
    call.formula_hint = hint_in(call, *call.combined);
  }
  if (host::is_empty(call.formula_hint.value())) return;
  if (!call.intent_species.empty() && names_elements_beyond_intent(call)) {
    call.formula_hint = FormulaHint(host::empty_string());
    return;
  }
  call.report("formula hint ", call.formula_hint.value());
}

}  // namespace

void decide_formula_hint(Characterization& call) {
  const Value written = call.query_intent.get(call.module, InputKey::formula);
  call.intent_formula = host::strip(host::text_form_or_empty(written));
  if (!call.query_intent.has(call.module, InputKey::formula)) return decide_by_heuristic(call);
  call.formula_hint = FormulaHint(call.intent_formula.another());
  if (host::is_empty(call.intent_formula)) return;
  call.report("user query explicitly wrote formula ", call.intent_formula, " (LLM intent)");
}

}  // namespace tavik::characterization
