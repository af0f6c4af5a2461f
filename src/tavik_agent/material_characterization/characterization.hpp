// The working values of one call of characterize_material, and the stages that fill them. A stage
// reads what stages before it produced and never changes it. Messages for people go to `evidence`
// as the stages run, so they read in stage order.
#pragma once

#include <optional>

#include "host/objects.hpp"
#include "host/strings.hpp"
#include "material_characterization/functions.hpp"

namespace tavik::characterization {

/// The arguments; of empty mappings there is no object.
struct Inputs {
  const Value& given_step;
  Text& query_text;
  const Value& findings;
  host::Lent planner_manifest;
  host::Lent previous_steps_params;
  const Value& base_characterization;
  const Fields& step_params;
  const Fields& query_intent;
};

struct Characterization : Inputs {
  Characterization(const Module& owner, const Inputs& inputs)
      : Inputs(inputs), module(owner), combined(&query_text) {}

  const Module& module;

  Text* combined;
  Value species;
  FormulaHint formula_hint;

  Verdict structure_mode;
  Verdict structure_archetype;
  Verdict electronic_class;
  IntentField intent_correlation;
  IntentField intent_magnetism;
  IntentField intent_complexity;
  Verdict correlation_class;
  Verdict magnetic_class;
  Verdict material_family;

  Wish requested_energy_unit = Wish::none;
  Wish explicit_spin_mode = Wish::none;
  bool intent_driven = false;
  unsigned confidence = 0;  ///< in hundredths

  Value intent_formula;
  Value intent_units;
  Value step;
  Value evidence;

  host::Values messages;  ///< the evidence, so far
  host::Values intent_species;
  std::optional<Text> joined_text;  ///< unless the joined text is the query itself

  void report(host::Ascii prefix, const Value& value, host::Ascii suffix = "") {
    report(host::message(prefix, value, suffix));
  }
  void report(Value message) { messages.push_back(std::move(message)); }
};

// The stages, in their order.
void read_intent_species(Characterization&);
void join_texts(Characterization&);
void resolve_species(Characterization&);
void decide_formula_hint(Characterization&);
void classify(Characterization&);
void decide_energy_unit(Characterization&);
void decide_spin_mode(Characterization&);
void score_confidence(Characterization&);
Value assemble_record(Characterization&);
/// The record merged into a copy of the base characterization.
Value merge_into_base(const Characterization&, const Value& record);

}  // namespace tavik::characterization
