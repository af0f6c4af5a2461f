// The entry point: normalises the inputs and runs the stages in their order.
#include "material_characterization/stages/characterization.hpp"

namespace tavik::characterization {
namespace {

Object or_empty_mapping(const Object& mapping) {
  return py::is_empty(mapping) ? py::new_dict() : mapping.new_ref();
}

Object or_no_object(const Object& mapping) {
  return py::is_empty(mapping) ? Object() : mapping.new_ref();
}

}  // namespace

Object characterize_material(const ModuleState& module, const Object& step,
                             const Object& step_params, Text& query_text, const Object& findings,
                             const Object& planner_manifest, const Object& previous_steps_params,
                             const Object& base_characterization, const Object& query_intent) {
  // Telling whether a value is empty may run Python code, so the order is part of the contract.
  const Object params = or_empty_mapping(step_params);
  const Object earlier_params = or_no_object(previous_steps_params);
  const Object manifest = or_no_object(planner_manifest);
  const Object intent = or_empty_mapping(query_intent);
  Characterization call(module, {.step = step,
                                 .step_params = params,
                                 .query_text = query_text,
                                 .findings = findings,
                                 .planner_manifest = manifest,
                                 .previous_steps_params = earlier_params,
                                 .base_characterization = base_characterization,
                                 .query_intent = intent});
  read_intent_species(call);
  join_texts(call);
  resolve_species(call);
  decide_formula_hint(call);
  classify(call);
  decide_energy_unit(call);
  decide_spin_mode(call);
  score_confidence(call);
  Object record = assemble_record(call);
  return py::is_empty(base_characterization) ? std::move(record) : merge_into_base(call, record);
}

}  // namespace tavik::characterization
