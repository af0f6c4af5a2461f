// The confidence score, the record, and its merge into an earlier characterization.
#include <algorithm>
#include <array>

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

// The host's object for a working value.
const Value& host_object(const Module&, const Value& value) { return value; }
const Value& host_object(const Module&, Value&& value) = delete;  // it would not outlive the call
template <class Word>
const Value& host_object(const Module&, const host::Recognised<Word>& word) {
  return word.value();
}
const Value& host_object(const Module&, const FormulaHint& hint) { return hint.value(); }
const Value& host_object(const Module& module, Wish wish) { return module.wish(wish); }
const Value& host_object(const Module& module, unsigned hundredths) {
  return module.confidence(hundredths);
}
host::Lent host_object(const Module&, bool truth) { return host::boolean(truth); }

// What a template holds for it: the module's own words, and nothing of the material's.
Value template_value(const Module&, const Value&) { return host::empty_string(); }
Value template_value(const Module&, const FormulaHint&) { return host::empty_string(); }
template <class Word>
Value template_value(const Module&, const host::Recognised<Word>& word) {
  return word.is_own() ? word.value().another() : host::empty_string();
}
Value template_value(const Module& module, auto word) {
  const auto& held = host_object(module, word);
  const Value& value = held;
  return value.another();
}

/// Different for nearly all sets of labels, words and confidences.
std::uint64_t template_number(const Characterization& call) {
  std::uint64_t number = call.confidence;
  const auto add = [&](auto word) { number = number << 5 ^ static_cast<std::uint64_t>(word); };
  add(call.structure_mode.word());
  add(call.structure_archetype.word());
  add(call.electronic_class.word());
  add(call.magnetic_class.word());
  add(call.correlation_class.word());
  add(call.material_family.word());
  add(call.intent_complexity.word());
  add(call.intent_correlation.word());
  add(call.intent_magnetism.word());
  add(call.requested_energy_unit);
  add(call.explicit_spin_mode);
  add(call.intent_driven);
  return number * 0x9E3779B97F4A7C15U >> 32;
}

const RecordTemplate& record_template(const Characterization& call) {
  return call.module.record_template(template_number(call), [&] {
    RecordTemplate::Values values;
#define TAVIK_TAKE(name) values[RecordKey::name] = template_value(call.module, call.name);
    TAVIK_RECORD_KEYS(TAVIK_TAKE, )
#undef TAVIK_TAKE
    return values;
  });
}

bool is_decided(const Verdict& label) { return !label.is(Label::unknown); }

bool is_given(const IntentField& field) {
  return field.is_own() ? field.word() != IntentWord::none : !host::is_empty(field.value());
}

bool is_intent_driven(const Characterization& call) {
  return !call.intent_species.empty() || !host::is_empty(call.intent_formula) ||
         is_given(call.intent_complexity) || is_given(call.intent_correlation) ||
         is_given(call.intent_magnetism);
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
  const Value& own = call.module.confidence(call.confidence);
  return host::as_real(own) > base ? own.another() : host::real(base);
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
  unsigned hundredths = 25;
  if (!host::is_empty(call.species)) hundredths += 20;
  if (is_decided(call.structure_mode)) hundredths += 15;
  if (is_decided(call.electronic_class)) hundredths += 15;
  if (is_decided(call.magnetic_class)) hundredths += 15;
  if (is_decided(call.correlation_class)) hundredths += 10;
  if (!host::is_empty(call.formula_hint.value())) hundredths += 10;
  call.confidence = std::min(hundredths, 95U);
}

Value assemble_record(Characterization& call) {
  call.step = host::upper(host::text_form_or_empty(call.given_step));
  call.intent_driven = is_intent_driven(call);
  call.evidence = host::new_list(std::move(call.messages));
  const RecordTemplate& usual = record_template(call);
  Value record = usual.copy();
  const auto put = [&](RecordKey key, const Value& value) {
    if (!value.is_same(usual.usual(key))) host::set(record, call.module.key(key), value);
  };
  // Each key bears the name of the working value that it stores.
#define TAVIK_PUT(name) put(RecordKey::name, host_object(call.module, call.name));
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
