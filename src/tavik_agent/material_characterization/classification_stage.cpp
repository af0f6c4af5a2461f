// The six class labels of the record. What each classifier is given, and nothing else, stands here:
// the structure mode reads the query when there is one, the electronic class the query alone, the
// correlation and magnetic classes the joined text.
#include "material_characterization/calls.hpp"
#include "material_characterization/characterization.hpp"
#include "material_characterization/intent.hpp"

namespace tavik::characterization {
namespace {

void report_decision(Characterization& call, Decision decision, const Verdict& label,
                     Label no_decision = Label::unknown) {
  if (!label.is(no_decision)) call.report(call.module.message_about(decision, label));
}

void classify_structure(Characterization& call) {
  Text& text = host::is_empty(call.query_text.value()) ? *call.combined : call.query_text;
  call.structure_mode =
      invoke<_structure_mode>(call.module, Global::_structure_mode, call.step_params, text);
  report_decision(call, Decision::structure_mode, call.structure_mode);

  call.structure_archetype = invoke<_structure_archetype>(
      call.module, Global::_structure_archetype, keyword("structure_mode", call.structure_mode),
      keyword("combined_text", *call.combined), keyword("query_text", call.query_text),
      keyword("query_intent", call.query_intent));
  report_decision(call, Decision::structure_archetype, call.structure_archetype);
}

void classify_electrons(Characterization& call) {
  call.electronic_class =
      invoke<_electronic_class>(call.module, Global::_electronic_class, call.species,
                                call.formula_hint, call.query_text, call.structure_archetype);
  report_decision(call, Decision::electronic_class, call.electronic_class);
}

void read_intent_fields(Characterization& call) {
  call.intent_correlation = intent_field(call.module, call.query_intent, InputKey::correlation);
  call.intent_magnetism = intent_field(call.module, call.query_intent, InputKey::magnetism);
  call.intent_complexity = intent_field(call.module, call.query_intent, InputKey::complexity_hint);
  call.intent_units = call.query_intent.get(call.module, InputKey::units);
}

void classify_correlation(Characterization& call) {
  call.correlation_class = invoke<_correlation_class>(
      call.module, Global::_correlation_class, call.species, call.formula_hint, *call.combined,
      keyword("intent_correlation", call.intent_correlation),
      keyword("intent_complexity", call.intent_complexity));
  report_decision(call, Decision::correlation_class, call.correlation_class);
  if (is_simple_request(call.intent_complexity)) {
    call.report(
        host::message_in_utf8("user query flagged as ", call.intent_complexity.value(),
                              " (LLM intent) \u2014 complex-material heuristics suppressed"));
  }
}

void classify_magnetism(Characterization& call) {
  call.magnetic_class = invoke<_magnetic_class>(
      call.module, Global::_magnetic_class, call.species, call.formula_hint, *call.combined,
      call.correlation_class, keyword("intent_magnetism", call.intent_magnetism),
      keyword("intent_complexity", call.intent_complexity));
  report_decision(call, Decision::magnetic_class, call.magnetic_class);
}

void classify_family(Characterization& call) {
  call.material_family = invoke<_material_family>(
      call.module, Global::_material_family, call.species, call.structure_mode,
      call.electronic_class, call.formula_hint, call.structure_archetype);
  report_decision(call, Decision::material_family, call.material_family, Label::other);
}

}  // namespace

void classify(Characterization& call) {
  classify_structure(call);
  classify_electrons(call);
  read_intent_fields(call);
  classify_correlation(call);
  classify_magnetism(call);
  classify_family(call);
}

}  // namespace tavik::characterization
