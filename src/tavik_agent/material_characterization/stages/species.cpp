// Which species the step is about. The first source that names any wins: this step's element block,
// the intent, an earlier step's element block, the prose, the earlier characterization.
#include "material_characterization/stages/characterization.hpp"
#include "material_characterization/state/invoke.hpp"
#include "py/ordered_set.hpp"

namespace tavik::characterization {
namespace {

Object species_declared_in(const Characterization& call, const Object& params) {
  const Object element_block = call.module.read(params, InputKey::element);
  return invoke<_species_from_element_block>(call.module, Global::_species_from_element_block,
                                             element_block);
}

// Each takes the species of one source; false when it names none.

bool take_declared_species(Characterization& call) {
  call.species = species_declared_in(call, call.inputs.step_params);
  if (py::is_empty(call.species)) return false;
  call.report("element definitions declare species ", call.species);
  return true;
}

bool take_intent_species(Characterization& call) {
  if (call.intent_species.empty()) return false;
  py::OrderedSet distinct;
  distinct.add_all(call.intent_species);
  call.species = distinct.list();
  call.report("user query explicitly named species ", call.species, " (LLM intent)");
  return true;
}

bool take_species_of_earlier_steps(Characterization& call) {
  if (!call.inputs.previous_steps_params) return false;
  py::Iterator steps(py::items(call.inputs.previous_steps_params));
  while (const Object step = steps.next()) {
    const Object params = py::unpack_pair(step).second;
    if (!call.module.is_mapping(params)) continue;
    call.species = species_declared_in(call, params);
    if (py::is_empty(call.species)) continue;
    call.report("reused prior-step species ", call.species);
    return true;
  }
  return false;
}

bool take_species_in_prose(Characterization& call) {
  call.species =
      invoke<_species_from_text>(call.module, Global::_species_from_text, *call.combined);
  if (py::is_empty(call.species)) return false;
  call.report("prose-scanned fallback species ", call.species, " (low confidence)");
  return true;
}

/// As the earlier record holds them: unstripped, repeats included, and without a message.
void take_species_of_base(Characterization& call) {
  const Object& base = call.inputs.base_characterization;
  if (py::is_empty(base)) return;
  call.species = py::new_list();
  const Object named = call.module.read(base, RecordKey::species);
  if (py::is_empty(named)) return;
  py::Iterator items(named);
  while (const Object item = items.next()) {
    const Object text = py::text_form(item);
    if (!py::is_empty(py::strip(text))) py::append(call.species, text);
  }
}

}  // namespace

void read_intent_species(Characterization& call) {
  const Object named = call.module.read(call.inputs.query_intent, InputKey::species);
  if (py::is_empty(named)) return;
  py::for_each_stripped_text(
      named, [&](const Object& symbol) { call.intent_species.push_back(py::capitalised(symbol)); });
}

void resolve_species(Characterization& call) {
  if (take_declared_species(call)) return;
  if (take_intent_species(call)) return;
  if (take_species_of_earlier_steps(call)) return;
  if (take_species_in_prose(call)) return;
  take_species_of_base(call);
}

}  // namespace tavik::characterization
