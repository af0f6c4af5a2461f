// The six class labels of the record. What each classifier is given, and nothing else, stands here:
// the structure mode reads the query when there is one, the electronic class the query alone, the
// correlation and magnetic classes the joined text.
#include "material_characterization/classifiers/intent.hpp"
#include "material_characterization/stages/characterization.hpp"
#include "material_characterization/state/invoke.hpp"

namespace tavik::characterization {
namespace {

template <class Label>
void report_unless(Label no_decision, Characterization& call, const Object& label) {
  if (!equals(label, no_decision)) call.report(call.module.message_about<Label>(label));
}

void classify_structure(Characterization& call) {
  Text& query = call.inputs.query_text;
  Text& text = py::is_empty(query.value()) ? *call.combined : query;
  call.structure_mode =
      invoke<_structure_mode>(call.module, Global::_structure_mode, call.inputs.step_params, text);
  report_unless(StructureMode::unknown, call, call.structure_mode);

  call.structure_archetype = invoke<_structure_archetype>(
      call.module, Global::_structure_archetype, keyword("structure_mode", call.structure_mode),
      keyword("combined_text", *call.combined), keyword("query_text", query),
      keyword("query_intent", call.inputs.query_intent));
  report_unless(StructureArchetype::unknown, call, call.structure_archetype);
}

void classify_electrons(Characterization& call) {
  call.electronic_class = invoke<_electronic_class>(
      call.module, Global::_electronic_class, call.species, call.formula_hint,
      call.inputs.query_text, call.structure_archetype);
  report_unless(ElectronicClass::unknown, call, call.electronic_class);
}

void read_intent_fields(Characterization& call) {
  const Object& intent = call.inputs.query_intent;
  call.intent_correlation = intent_field(call.module, intent, InputKey::correlation);
  call.intent_magnetism = intent_field(call.module, intent, InputKey::magnetism);
  call.intent_complexity = intent_field(call.module, intent, InputKey::complexity_hint);
  call.intent_units = call.module.read(intent, InputKey::units);
}

void classify_correlation(Characterization& call) {
  call.correlation_class = invoke<_correlation_class>(
      call.module, Global::_correlation_class, call.species, call.formula_hint, *call.combined,
      keyword("intent_correlation", call.intent_correlation),
      keyword("intent_complexity", call.intent_complexity));
  report_unless(CorrelationClass::unknown, call, call.correlation_class);
  if (is_simple_request(call.intent_complexity)) {
    call.report("user query flagged as ", call.intent_complexity,
                " (LLM intent) \u2014 complex-material heuristics suppressed");
  }
}

void classify_magnetism(Characterization& call) {
  call.magnetic_class = invoke<_magnetic_class>(
      call.module, Global::_magnetic_class, call.species, call.formula_hint, *call.combined,
      call.correlation_class, keyword("intent_magnetism", call.intent_magnetism),
      keyword("intent_complexity", call.intent_complexity));
  report_unless(MagneticClass::unknown, call, call.magnetic_class);
}

void classify_family(Characterization& call) {
  call.material_family = invoke<_material_family>(
      call.module, Global::_material_family, call.species, call.structure_mode,
      call.electronic_class, call.formula_hint, call.structure_archetype);
  report_unless(MaterialFamily::other, call, call.material_family);
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
