// The merge of a record into a copy of an earlier one: what is decided now replaces what was
// decided before, what is open now erases nothing, and the evidence of both is kept.
#include <array>

#include "material_characterization/stages/characterization.hpp"
#include "py/ordered_set.hpp"

namespace tavik::characterization {
namespace {

/// What a merged record always holds, whatever the earlier one did: in this order.
constexpr std::array keys_always_present{
    RecordKey::structure_mode,    RecordKey::structure_archetype, RecordKey::electronic_class,
    RecordKey::magnetic_class,    RecordKey::correlation_class,   RecordKey::material_family,
    RecordKey::species,           RecordKey::formula_hint,        RecordKey::requested_energy_unit,
    RecordKey::explicit_spin_mode};

/// Writes what the record decided; what it left open erases nothing.
void update_with_decisions(const ModuleState& module, const Object& merged, const Object& record) {
  const Object uninformative =
      py::tuple_of(py::empty_string(), py::new_list(), py::none(),
                   module.string(ElectronicClass::unknown), module.string(MaterialFamily::other));
  for (const RecordKey key : py::all_words<RecordKey>) {
    const Object value = module.read(record, key);
    if (!py::contains(uninformative, value)) py::set_item(merged, module.string(key), value);
  }
}

/// The items of the base's evidence, then this call's, each once.
Object merged_evidence(const Characterization& call) {
  py::OrderedSet evidence;
  evidence.add_all(
      py::list_of_items(call.module.read(call.inputs.base_characterization, RecordKey::evidence)));
  evidence.add_all(call.evidence);
  return evidence.list();
}

/// Never below the base's; on equality, and when the base's is not a number, the base's.
Object merged_confidence(const Characterization& call) {
  const Object earlier = call.module.read(call.inputs.base_characterization, RecordKey::confidence);
  const double base = py::is_empty(earlier) ? 0.0 : py::as_real(earlier);
  return py::as_real(call.confidence) > base ? call.confidence.new_ref() : py::real(base);
}

}  // namespace

Object merge_into_base(const Characterization& call, const Object& record) {
  const ModuleState& module = call.module;
  Object merged = py::dict_of(call.inputs.base_characterization);
  update_with_decisions(module, merged, record);
  py::set_item(merged, module.string(RecordKey::evidence), merged_evidence(call));
  py::set_item(merged, module.string(RecordKey::confidence), merged_confidence(call));
  for (const RecordKey key : keys_always_present) {
    py::set_default(merged, module.string(key), module.read(record, key));
  }
  return merged;
}

}  // namespace tavik::characterization
