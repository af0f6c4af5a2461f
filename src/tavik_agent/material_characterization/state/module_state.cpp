// Making what a module holds, and the search in its phrase tables.
#include "material_characterization/state/module_state.hpp"

namespace tavik::characterization {
namespace {

template <class Label>
void make_messages(py::ByWord<Label>& messages, const py::ByWord<Label>& labels) {
  for (const Label label : py::all_words<Label>) {
    messages[label] = py::message(evidence_prefix<Label>(), labels[label]);
  }
}

/// What nearly every value of a record is when nothing was decided; None where each record has an
/// object of its own. Only values that differ have to be put into a copy of the initial record.
py::ByWord<RecordKey> make_initial_values(const ModuleState& module) {
  py::ByWord<RecordKey> values;
  for (const RecordKey key : py::all_words<RecordKey>) values[key] = py::empty_string();
  const auto set_label = [&](auto label) {
    values[key_of(label)] = module.string(label).new_ref();
  };
  set_label(StructureMode::unknown);
  set_label(StructureArchetype::unknown);
  set_label(ElectronicClass::unknown);
  set_label(MagneticClass::unknown);
  set_label(CorrelationClass::unknown);
  set_label(MaterialFamily::other);
  values[RecordKey::intent_driven] = py::boolean(false);
  for (const RecordKey key : {RecordKey::species, RecordKey::evidence, RecordKey::confidence}) {
    values[key] = py::none();
  }
  return values;
}

py::Object make_record(const py::ByWord<RecordKey>& keys, const py::ByWord<RecordKey>& values) {
  py::Object record = py::new_dict();
  for (const RecordKey key : py::all_words<RecordKey>) py::set_item(record, keys[key], values[key]);
  return record;
}

}  // namespace

ModuleState::ModuleState(py::Object names)
    : names_(std::move(names)),
      mapping_type_(py::import_from("collections.abc", "Mapping")),
      record_keys_(py::interned<RecordKey>()),
      input_keys_(py::interned<InputKey>()),
      element_symbols_(ElementSymbols::read(own(Global::KNOWN_ELEMENT_SYMBOLS))) {
  const auto intern = []<class... Label>(py::ByWord<Label>&... labels) {
    ((labels = py::interned<Label>()), ...);
  };
  std::apply(intern, labels_);
  const auto make_all = [&]<class... Label>(py::ByWord<Label>&... messages) {
    (make_messages(messages, std::get<py::ByWord<Label>>(labels_)), ...);
  };
  std::apply(make_all, messages_);
  initial_values_ = make_initial_values(*this);
  initial_record_ = make_record(record_keys_, initial_values_);
}

void ModuleState::for_each_phrase(Global name, py::Text& text, const PhraseVisitor& visit) const {
  const py::Object table = look_up(name);
  if (!table.is_same(own(name))) return for_each_match(table, text, visit);
  const PhraseTables& tables = phrase_tables_.get_or_make([&] {
    return PhraseTables(own(Global::FORMULA_ALIASES), own(Global::ELEMENT_NAME_ALIASES));
  });
  const auto which =
      name == Global::FORMULA_ALIASES ? PhraseTables::formula_aliases : PhraseTables::element_names;
  tables.for_each_match(which, text, visit);
}

}  // namespace tavik::characterization
