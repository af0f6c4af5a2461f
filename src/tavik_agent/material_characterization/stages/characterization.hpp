// The working values of one call of characterize_material, and the stages that fill them. A stage
// reads what stages before it produced and never changes it. Messages for people go to `evidence`
// as the stages run, so they read in stage order.
#pragma once

#include <optional>
#include <string_view>

#include "material_characterization/functions.hpp"

namespace tavik::characterization {

/// The arguments. An empty mapping stands in for a missing one that a classifier is given; of the
/// other mappings there is no object when they are empty.
struct Inputs {
  const Object& step;
  const Object& step_params;
  Text& query_text;
  const Object& findings;
  const Object& planner_manifest;
  const Object& previous_steps_params;
  const Object& base_characterization;
  const Object& query_intent;
};

struct Characterization {
  Characterization(const ModuleState& state, const Inputs& given)
      : module(state), inputs(given), combined(&given.query_text) {}

  const ModuleState& module;
  const Inputs inputs;

  Object evidence = py::new_list();
  py::Objects intent_species;
  std::optional<Text> joined_text;  ///< unless the joined text is the query itself
  Text* combined;
  Object species;

  Object intent_formula;
  Object formula_hint;

  Object structure_mode;
  Object structure_archetype;
  Object electronic_class;
  Object intent_correlation;
  Object intent_magnetism;
  Object intent_complexity;
  Object intent_units;
  Object correlation_class;
  Object magnetic_class;
  Object material_family;

  EnergyUnit requested_energy_unit = EnergyUnit::none;
  SpinMode explicit_spin_mode = SpinMode::none;
  Object confidence;

  /// Adds a message: prefix + str(value) + suffix.
  void report(std::string_view prefix, const Object& value, std::string_view suffix = "") {
    report(py::message(prefix, value, suffix));
  }
  void report(const Object& message) { py::append(evidence, message); }
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
Object assemble_record(const Characterization&);
/// The record merged into a copy of the base characterization.
Object merge_into_base(const Characterization&, const Object& record);

}  // namespace tavik::characterization
