// All that one loaded module holds: its namespace, what it put there itself, the strings it shares
// with its host, and the indexes over its own phrase tables. Made when the module is loaded and
// only read afterwards, so calls on several threads need no lock.
#pragma once

#include <optional>

#include "host/value.hpp"
#include "host/vocabulary.hpp"
#include "material_characterization/labels.hpp"
#include "material_characterization/names.hpp"
#include "material_characterization/phrase_table.hpp"

namespace tavik::characterization {

class Module {
 public:
  /// `names` is the namespace of a module in which every Global is bound.
  explicit Module(host::Value names);

  /// False after everything held was let go of.
  bool is_live() const { return static_cast<bool>(namespace_); }

  /// What the name is bound to now; a NameError when it is not bound any more.
  host::Value look_up(Global name) const;
  /// Whether that is still what the module was loaded with.
  bool is_own(Global name, const host::Value& current) const;

  const host::Value& label(Label label) const { return labels_[label]; }
  const host::Value& key(RecordKey key) const { return record_keys_[key]; }

  /// mapping.get(key)
  host::Value read(const host::Value& mapping, InputKey key) const;
  host::Value read(const host::Value& mapping, RecordKey key) const;
  bool has_key(const host::Value& mapping, InputKey key) const;
  bool is_mapping(const host::Value& value) const;

  /// Searches the phrase table bound to `name`, in the order of the table.
  void for_each_phrase(Global name, std::string_view words, const PhraseVisitor& visit) const;

  /// Calls action(value) for everything the module holds, until it answers other than 0. This is
  /// the one list of it.
  template <class Action>
  int for_each_held(Action action) {
    int stop = 0;
    const auto each = [&](auto& values) {
      for (host::Value& value : values) {
        if (stop == 0 && value) stop = action(value);
      }
    };
    each(own_);
    each(names_);
    each(labels_);
    each(record_keys_);
    each(input_keys_);
    if (formula_aliases_) each(formula_aliases_->held());
    if (element_names_) each(element_names_->held());
    if (stop == 0 && mapping_type_) stop = action(mapping_type_);
    if (stop == 0 && namespace_) stop = action(namespace_);
    return stop;
  }

 private:
  host::Value namespace_;
  host::Value mapping_type_;
  host::Indexed<Global> names_;
  host::Indexed<Global> own_;
  host::Indexed<Label> labels_;
  host::Indexed<RecordKey> record_keys_;
  host::Indexed<InputKey> input_keys_;
  std::optional<PhraseTable> formula_aliases_;
  std::optional<PhraseTable> element_names_;
};

}  // namespace tavik::characterization
