// The confidence score and the record.
#include <algorithm>

#include "material_characterization/stages/characterization.hpp"

namespace tavik::characterization {
namespace {

bool is_intent_driven(const Characterization& call) {
  return !call.intent_species.empty() || !py::is_empty(call.intent_formula) ||
         !py::is_empty(call.intent_complexity) || !py::is_empty(call.intent_correlation) ||
         !py::is_empty(call.intent_magnetism);
}

}  // namespace

void score_confidence(Characterization& call) {
  int hundredths = 25;
  if (!py::is_empty(call.species)) hundredths += 20;
  if (!equals(call.structure_mode, StructureMode::unknown)) hundredths += 15;
  if (!equals(call.electronic_class, ElectronicClass::unknown)) hundredths += 15;
  if (!equals(call.magnetic_class, MagneticClass::unknown)) hundredths += 15;
  if (!equals(call.correlation_class, CorrelationClass::unknown)) hundredths += 10;
  if (!py::is_empty(call.formula_hint)) hundredths += 10;
  call.confidence = py::real(std::min(hundredths, 95) / 100.0);
}

Object assemble_record(const Characterization& call) {
  using enum RecordKey;
  Object record = call.module.new_record();
  const auto put = [&](RecordKey key, const Object& value) {
    if (value.is_same(call.module.initial_value(key))) return;
    py::set_item(record, call.module.string(key), value);
  };
  put(step, py::upper(py::text_form_or_empty(call.inputs.step)));
  put(structure_mode, call.structure_mode);
  put(structure_archetype, call.structure_archetype);
  put(electronic_class, call.electronic_class);
  put(magnetic_class, call.magnetic_class);
  put(correlation_class, call.correlation_class);
  put(material_family, call.material_family);
  put(species, call.species);
  put(formula_hint, call.formula_hint);
  put(requested_energy_unit, call.module.string(call.requested_energy_unit));
  put(explicit_spin_mode, call.module.string(call.explicit_spin_mode));
  put(intent_complexity, call.intent_complexity);
  put(intent_correlation, call.intent_correlation);
  put(intent_magnetism, call.intent_magnetism);
  put(intent_driven, py::boolean(is_intent_driven(call)));
  put(evidence, call.evidence);
  put(confidence, call.confidence);
  return record;
}

}  // namespace tavik::characterization
