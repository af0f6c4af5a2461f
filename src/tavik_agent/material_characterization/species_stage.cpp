// Which species the step is about. The first source that names any wins: this step's element block,
// the intent, an earlier step's element block, the prose, the earlier characterization.
#include "host/ordered_set.hpp"
#include "host/strings.hpp"
#include "material_characterization/calls.hpp"
#include "material_characterization/characterization.hpp"

namespace tavik::characterization {
namespace {

Value species_declared_in(const Characterization& call, const Value& element_block) {
  return invoke<_species_from_element_block>(call.module, Global::_species_from_element_block,
                                             element_block);
}

// Each takes the species of one source; false when it names none.

bool take_declared_species(Characterization& call) {
  const Value block = call.step_params.get(call.module, InputKey::element);
  // No block declares no species. Most calls have none, and are spared the making of a list.
  if (block.is_null() && call.module.has_own(Global::_species_from_element_block)) return false;
  call.species = species_declared_in(call, block);
  if (host::is_empty(call.species)) return false;
  call.report("element definitions declare species ", call.species);
  return true;
}

bool take_intent_species(Characterization& call) {
  if (call.intent_species.empty()) return false;
  host::OrderedSet unique;
  unique.add_all(call.intent_species);
  call.species = unique.take_list();
  call.report("user query explicitly named species ", call.species, " (LLM intent)");
  return true;
}

bool take_species_of_earlier_steps(Characterization& call) {
  if (!call.previous_steps_params) return false;
  host::Iterator steps(host::items(call.previous_steps_params));
  while (const Value step = steps.next()) {
    const Value params = host::unpack_pair(step).second;
    if (!call.module.is_mapping(params)) continue;
    call.species = species_declared_in(call, call.module.read(params, InputKey::element));
    if (host::is_empty(call.species)) continue;
    call.report("reused prior-step species ", call.species);
    return true;
  }
  return false;
}

bool take_species_in_prose(Characterization& call) {
  call.species =
      invoke<_species_from_text>(call.module, Global::_species_from_text, *call.combined);
  if (host::is_empty(call.species)) return false;
  call.report("prose-scanned fallback species ", call.species, " (low confidence)");
  return true;
}

/// As the earlier record holds them: unstripped, repeats included, and without a message.
void take_species_of_base(Characterization& call) {
  if (host::is_empty(call.base_characterization)) return;
  call.species = host::new_list();
  const Value named = call.module.read(call.base_characterization, RecordKey::species);
  if (host::is_empty(named)) return;
  host::Iterator items(named);
  while (const Value item = items.next()) {
    const Value text = host::text_form(item);
    if (!host::is_empty(host::strip(text))) host::append(call.species, text);
  }
}

}  // namespace

void read_intent_species(Characterization& call) {
  const Value named = call.query_intent.get(call.module, InputKey::species);
  if (host::is_empty(named)) return;
  host::Iterator items(named);
  while (const Value item = items.next()) {
    const Value symbol = host::strip(host::text_form(item));
    if (!host::is_empty(symbol)) call.intent_species.push_back(host::capitalised(symbol));
  }
}

void resolve_species(Characterization& call) {
  if (take_declared_species(call)) return;
  if (take_intent_species(call)) return;
  if (take_species_of_earlier_steps(call)) return;
  if (take_species_in_prose(call)) return;
  take_species_of_base(call);
}

}  // namespace tavik::characterization
