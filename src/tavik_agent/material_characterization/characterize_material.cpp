// The entry point: normalises the inputs and runs the stages in their order.
#include "material_characterization/characterization.hpp"

namespace tavik::characterization {
namespace {

host::Lent unless_empty(const Value& mapping) {
  return host::is_empty(mapping) ? host::Lent() : host::Lent(mapping.get());
}

}  // namespace

Value characterize_material(const Module& module, const Value& step, const Value& step_params,
                            Text& query_text, const Value& findings, const Value& planner_manifest,
                            const Value& previous_steps_params, const Value& base_characterization,
                            const Value& query_intent) {
  // Emptiness is a question to the host, so the order in which it is asked is part of the contract.
  const Fields params(unless_empty(step_params));
  const host::Lent earlier_params = unless_empty(previous_steps_params);
  const host::Lent manifest = unless_empty(planner_manifest);
  const Fields intent(unless_empty(query_intent));
  Characterization call(module, {.given_step = step,
                                 .query_text = query_text,
                                 .findings = findings,
                                 .planner_manifest = manifest,
                                 .previous_steps_params = earlier_params,
                                 .base_characterization = base_characterization,
                                 .step_params = params,
                                 .query_intent = intent});
  read_intent_species(call);
  join_texts(call);
  resolve_species(call);
  decide_formula_hint(call);
  classify(call);
  decide_energy_unit(call);
  decide_spin_mode(call);
  score_confidence(call);
  Value record = assemble_record(call);
  return host::is_empty(base_characterization) ? std::move(record) : merge_into_base(call, record);
}

}  // namespace tavik::characterization
