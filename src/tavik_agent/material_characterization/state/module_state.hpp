// All that one loaded module holds: its namespace, the strings it shares with Python, the messages
// about its labels, the element symbols and the index over its phrase tables. Made when the module
// is loaded and only read afterwards, so calls on several threads need no lock; the exceptions are
// the index, which the first call that needs it publishes atomically, and what the namespace notes.
#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <tuple>

#include "material_characterization/chemistry/element_symbols.hpp"
#include "material_characterization/chemistry/phrase_tables.hpp"
#include "material_characterization/state/namespace.hpp"
#include "material_characterization/state/once_cell.hpp"
#include "material_characterization/vocabulary/vocabulary.hpp"
#include "py/containers.hpp"

namespace tavik::characterization {

class ModuleState {
 public:
  /// `names` is the dict of a module in which every Global is bound.
  explicit ModuleState(py::Object names);

  // Names of the module's namespace, looked up at the moment of each use.
  py::Object look_up(Global name) const { return names_.look_up(name); }
  const py::Object& own(Global name) const { return names_.own(name); }
  bool is_untouched(Global name) const { return names_.is_untouched(name); }

  /// The string of a label.
  template <class Label>
  const py::Object& string(Label label) const {
    return std::get<py::ByWord<Label>>(labels_)[label];
  }
  const py::Object& string(RecordKey key) const { return record_keys_[key]; }

  /// The evidence for a decision, such as "structure mode=periodic_bulk". Messages about the
  /// module's own labels are made when it is loaded.
  template <class Label>
  py::Object message_about(const py::Object& label) const;

  /// mapping.get(key)
  py::Object read(const py::Object& mapping, InputKey key) const {
    return py::get(mapping, input_keys_[key]);
  }
  py::Object read(const py::Object& mapping, RecordKey key) const {
    return py::get(mapping, record_keys_[key]);
  }
  /// key in mapping
  bool has_key(const py::Object& mapping, InputKey key) const {
    return py::contains(mapping, input_keys_[key]);
  }
  bool is_mapping(const py::Object& value) const { return py::is_mapping(value, mapping_type_); }

  /// A new record with every key in its place and the initial value of each.
  py::Object new_record() const { return py::copy_of(initial_record_); }
  const py::Object& initial_value(RecordKey key) const { return initial_values_[key]; }

  /// The symbols that KNOWN_ELEMENT_SYMBOLS is bound to, when they are known to be the module's own
  /// and plain; otherwise none, and the collection itself is to be asked.
  const ElementSymbols* own_element_symbols() const {
    const bool is_own = is_untouched(Global::KNOWN_ELEMENT_SYMBOLS);
    return is_own && element_symbols_ ? &*element_symbols_ : nullptr;
  }

  /// Searches a text for the phrases of the table bound to `name`, in the order of the table.
  void for_each_phrase(Global name, py::Text& text, const PhraseVisitor& visit) const;

  /// Calls action(object) for everything that the module holds, until it answers other than 0: what
  /// the garbage collector is told. It is not told of the initial record, which no Python code may
  /// reach and change; that holds nothing but strings, None and False, so it is part of no cycle.
  template <class Action>
  int for_each_held(Action action);

 private:
  Namespace names_;
  py::Object mapping_type_;
  OfEachLabelSet<py::ByWord> labels_;
  OfEachClass<py::ByWord> messages_;
  py::ByWord<RecordKey> record_keys_;
  py::ByWord<InputKey> input_keys_;
  py::ByWord<RecordKey> initial_values_;
  py::Object initial_record_;
  std::optional<ElementSymbols> element_symbols_;
  mutable OnceCell<PhraseTables> phrase_tables_;
};

/// "structure mode=" for a structure mode, and so on
template <class Label>
std::string evidence_prefix() {
  std::string prefix(text_of(key_of(Label{})));
  std::ranges::replace(prefix, '_', ' ');
  return prefix + "=";
}

template <class Label>
py::Object ModuleState::message_about(const py::Object& label) const {
  const auto& own = std::get<py::ByWord<Label>>(labels_);
  for (const Label word : py::all_words<Label>) {
    if (label.is_same(own[word])) return std::get<py::ByWord<Label>>(messages_)[word].new_ref();
  }
  return py::message(evidence_prefix<Label>(), label);
}

template <class Action>
int ModuleState::for_each_held(Action action) {
  int stop = 0;
  const auto one = [&](py::Object& object) {
    if (stop == 0 && object) stop = action(object);
  };
  const auto each = [&](auto&... groups) {
    (std::ranges::for_each(groups.begin(), groups.end(), one), ...);
  };
  names_.for_each_held(one);
  std::apply(each, labels_);
  std::apply(each, messages_);
  each(record_keys_, input_keys_, initial_values_);
  if (element_symbols_) each(element_symbols_->held());
  if (PhraseTables* const tables = phrase_tables_.get()) tables->for_each_held(one);
  one(mapping_type_);
  return stop;
}

}  // namespace tavik::characterization
