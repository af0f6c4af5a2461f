// The formula hint of the record: the intent's formula when it has one, else a heuristic hint that
// must not name elements beyond those of the intent.
#include "material_characterization/chemistry/formulas.hpp"
#include "material_characterization/stages/characterization.hpp"
#include "material_characterization/state/invoke.hpp"

namespace tavik::characterization {
namespace {

Object hint_in(const Characterization& call, Text& text) {
  return invoke<_formula_hint>(call.module, Global::_formula_hint, text, call.species);
}

bool names_elements_beyond_intent(const Characterization& call) {
  const py::Objects formula_species = symbols_of(call.module, call.formula_hint);
  if (formula_species.empty()) return false;
  const Object intent_set = py::set_of(call.intent_species);
  return !py::is_subset(py::set_of(formula_species), intent_set);
}

void decide_by_heuristic(Characterization& call) {
  call.formula_hint = hint_in(call, call.inputs.query_text);
  if (py::is_empty(call.formula_hint)) call.formula_hint = hint_in(call, *call.combined);
  if (py::is_empty(call.formula_hint)) return;
  if (!call.intent_species.empty() && names_elements_beyond_intent(call)) {
    call.formula_hint = py::empty_string();
    return;
  }
  call.report("formula hint ", call.formula_hint);
}

}  // namespace

void decide_formula_hint(Characterization& call) {
  const Object& intent = call.inputs.query_intent;
  const Object written = call.module.read(intent, InputKey::formula);
  call.intent_formula = py::strip(py::text_form_or_empty(written));
  if (!call.module.has_key(intent, InputKey::formula)) return decide_by_heuristic(call);
  call.formula_hint = call.intent_formula.new_ref();
  if (py::is_empty(call.intent_formula)) return;
  call.report("user query explicitly wrote formula ", call.intent_formula, " (LLM intent)");
}

}  // namespace tavik::characterization
