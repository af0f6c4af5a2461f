// The confidence score, the record, and its merge into an earlier characterization.
#include <array>
#include <cmath>

#include "host/ordered_set.hpp"
#include "host/strings.hpp"
#include "material_characterization/characterization.hpp"

namespace tavik::characterization {
namespace {

constexpr std::array class_keys{RecordKey::structure_mode,    RecordKey::structure_archetype,
                                RecordKey::electronic_class,  RecordKey::magnetic_class,
                                RecordKey::correlation_class, RecordKey::material_family};

constexpr std::array other_keys_always_present{RecordKey::species, RecordKey::formula_hint,
                                               RecordKey::requested_energy_unit,
                                               RecordKey::explicit_spin_mode};

const Value& host_object(const Value& value) { return value; }
const Value& host_object(Value&& value) = delete;  // it would not outlive the call
const Value& host_object(const auto& learnt_of) { return learnt_of.value(); }

bool is_decided(const Verdict& label) { return !is(label, Label::unknown); }

/// To two decimal places. Sums of the increments lie within rounding residue of a multiple of 0.05,
/// never near the middle of two hundredths, so this gives the host's own rounding.
double rounded(double value) { return std::nearbyint(value * 100.0) / 100.0; }

bool is_intent_driven(const Characterization& call) {
  return !call.intent_species.empty() || !host::is_empty(call.intent_formula) ||
         !host::is_empty(call.intent_complexity) || !host::is_empty(call.intent_correlation) ||
         !host::is_empty(call.intent_magnetism);
}

/// The items of the base's evidence, then this call's, each once.
Value merged_evidence(const Characterization& call) {
  host::OrderedSet evidence;
  evidence.add_all(
      host::list_of(call.module.read(call.base_characterization, RecordKey::evidence)));
  evidence.add_all(call.evidence);
  return evidence.take_list();
}

/// Never below the base's; on equality, and when the base's is not a number, the base's.
Value merged_confidence(const Characterization& call) {
  const Value earlier = call.module.read(call.base_characterization, RecordKey::confidence);
  const double base = host::is_empty(earlier) ? 0.0 : host::as_real(earlier);
  return host::as_real(call.confidence) > base ? call.confidence.another() : host::real(base);
}

/// Writes what the record decided; what it left open erases nothing.
void update_with_decisions(const Module& module, const Value& merged, const Value& record) {
  const Value uninformative =
      host::tuple_of(host::empty_string(), host::new_list(), Value::null(),
                     module.label(Label::unknown), module.label(Label::other));
  for (const RecordKey key : host::all_words<RecordKey>()) {
    const Value value = module.read(record, key);
    if (!host::contains(uninformative, value)) host::set(merged, module.key(key), value);
  }
}

}  // namespace

void score_confidence(Characterization& call) {
  double confidence = 0.25;
  if (!host::is_empty(call.species)) confidence += 0.2;
  if (is_decided(call.structure_mode)) confidence += 0.15;
  if (is_decided(call.electronic_class)) confidence += 0.15;
  if (is_decided(call.magnetic_class)) confidence += 0.15;
  if (is_decided(call.correlation_class)) confidence += 0.1;
  if (!host::is_empty(call.formula_hint.value())) confidence += 0.1;
  call.confidence = host::real(std::fmin(rounded(confidence), 0.95));
}

Value assemble_record(Characterization& call) {
  call.step = host::upper(host::text_form_or_empty(call.given_step));
  call.intent_driven = host::boolean(is_intent_driven(call));
  call.evidence = host::new_list(call.messages);
  Value record = call.module.new_record();
  const auto put = [&](RecordKey key, const auto& working_value) {
    const Value& value = host_object(working_value);
    if (!value.is_same(call.module.usual(key))) host::set(record, call.module.key(key), value);
  };
  // Each key bears the name of the working value that it stores.
#define TAVIK_PUT(name) put(RecordKey::name, call.name);
  TAVIK_RECORD_KEYS(TAVIK_PUT, )
#undef TAVIK_PUT
  return record;
}

Value merge_into_base(const Characterization& call, const Value& record) {
  const Module& module = call.module;
  Value merged = host::copy_of(call.base_characterization);
  update_with_decisions(module, merged, record);
  host::set(merged, module.key(RecordKey::evidence), merged_evidence(call));
  host::set(merged, module.key(RecordKey::confidence), merged_confidence(call));
  const auto fill_missing = [&](RecordKey key) {
    host::set_default(merged, module.key(key), module.read(record, key));
  };
  for (const RecordKey key : class_keys) fill_missing(key);
  for (const RecordKey key : other_keys_always_present) fill_missing(key);
  return merged;
}

}  // namespace tavik::characterization
