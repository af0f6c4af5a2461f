// All that one loaded module holds: its namespace, what it put there itself, the strings it shares
// with its host, the index over its own phrase tables and the templates of records. Made when the
// module is loaded and only read afterwards, so calls on several threads need no lock; the
// exceptions are the index and the templates, which the first call that needs them publishes
// atomically, and the atomic versions of the namespace.
#pragma once

#include <array>
#include <atomic>
#include <bitset>
#include <cstdint>
#include <optional>

#include "host/imports.hpp"
#include "host/value.hpp"
#include "host/vocabulary.hpp"
#include "material_characterization/element_symbols.hpp"
#include "material_characterization/intent_words.hpp"
#include "material_characterization/labels.hpp"
#include "material_characterization/made_once.hpp"
#include "material_characterization/names.hpp"
#include "material_characterization/phrase_tables.hpp"
#include "material_characterization/record_template.hpp"
#include "material_characterization/wishes.hpp"

namespace tavik::characterization {

/// What a name is bound to at the moment: what the module was loaded with, which it keeps alive by
/// itself, or something else.
class Current {
 public:
  explicit Current(const host::Value* own) : own_(own) {}
  explicit Current(host::Value other) : other_(std::move(other)) {}

  bool is_own() const { return own_ != nullptr; }
  const host::Value& value() const { return is_own() ? *own_ : other_.value(); }
  operator const host::Value&() const { return value(); }  // NOLINT(*-explicit-*): it is one

 private:
  const host::Value* own_ = nullptr;
  host::Seldom other_;
};

class Module {
 public:
  /// `names` is the namespace of a module in which every Global is bound.
  explicit Module(host::Value names);

  /// False once the module lets go of what it holds.
  bool is_live() const { return static_cast<bool>(namespace_); }

  /// Whether nothing was bound anew since every name was last seen to hold what it was loaded with.
  bool is_untouched() const {
    return host::version_of(namespace_) == untouched_version_.load(std::memory_order_acquire);
  }
  /// What the name is bound to now; a NameError when it is not bound any more.
  Current look_up(Global name) const {
    return is_untouched() ? Current(&own_[name]) : look_up_in_namespace(name);
  }
  /// Whether the name is bound to what the module was loaded with.
  bool has_own(Global name) const { return is_untouched() || look_up_in_namespace(name).is_own(); }

  /// "" in TABLE, for a frozen set that the module was loaded with. Many requests have no formula,
  /// and four classifiers ask three tables for it.
  bool own_table_holds_empty_string(Global table) const {
    return holds_empty_string_[static_cast<std::size_t>(table)];
  }

  const host::Value& label(Label label) const { return labels_[label]; }
  const host::Value& key(RecordKey key) const { return record_keys_[key]; }

  const host::Value& wish(Wish wish) const { return wishes_[wish]; }
  const host::Value& intent_word(IntentWord word) const { return intent_words_[word]; }
  /// In hundredths, a multiple of five.
  const host::Value& confidence(unsigned hundredths) const { return confidences_[hundredths / 5]; }

  /// The template with a number; there are few, so different numbers can mean the same one. The
  /// first call that needs it has it made.
  template <class Make>
  const RecordTemplate& record_template(std::size_t number, Make usual_values) const {
    return record_templates_[number % record_templates_.size()].get(
        [&] { return RecordTemplate(record_keys_, usual_values()); });
  }
  /// The evidence for a decision. Messages about the module's own labels are made when it is
  /// loaded: a call reports up to six, and making one takes as long as eight look-ups.
  host::Value message_about(Decision decision, const Verdict& label) const;

  /// mapping.get(key)
  host::Value read(const host::Value& mapping, InputKey key) const {
    return host::get(mapping, input_keys_[key]);
  }
  host::Value read(const host::Value& mapping, RecordKey key) const {
    return host::get(mapping, record_keys_[key]);
  }
  bool has_key(const host::Value& mapping, InputKey key) const {
    return host::contains(mapping, input_keys_[key]);
  }
  /// Which key a string is, if any.
  std::optional<InputKey> input_key(const host::Value& string) const;
  bool is_mapping(const host::Value& value) const;

  /// The symbols that KNOWN_ELEMENT_SYMBOLS is bound to, when they are the module's own; otherwise
  /// none, and the host's collection is to be asked.
  const ElementSymbols* own_element_symbols() const {
    const bool is_ours = look_up(Global::KNOWN_ELEMENT_SYMBOLS).is_own();
    return is_ours && element_symbols_ ? &*element_symbols_ : nullptr;
  }

  /// Searches a text for the phrases of the table bound to `name`, in the order of the table.
  void for_each_phrase(Global name, host::Text& text, const PhraseVisitor& visit) const;

  /// Calls action(value) for everything the module holds, until it answers other than 0. This is
  /// the one list of it.
  template <class Action>
  int for_each_held(Action action) {
    int stop = 0;
    const auto one = [&](host::Value& value) {
      if (stop == 0 && value) stop = action(value);
    };
    const auto each = [&](auto& values) {
      for (host::Value& value : values) one(value);
    };
    one(namespace_);  // first, so that nothing is called while only some of it is there
    each(own_);
    each(names_);
    each(labels_);
    each(record_keys_);
    each(input_keys_);
    for (auto& messages : messages_) each(messages);
    each(wishes_);
    each(intent_words_);
    each(confidences_);
    for (auto& slot : record_templates_) {
      if (RecordTemplate* const record = slot.made()) record->for_each_held(one);
    }
    if (element_symbols_) each(element_symbols_->held());
    if (PhraseTables* const tables = phrase_tables_.made()) tables->for_each_held(one);
    one(mapping_type_);
    return stop;
  }

 private:
  [[gnu::cold]] Current look_up_in_namespace(Global name) const;
  /// After a change of the namespace: notes its version if the change left every name as it was.
  void examine_namespace() const;

  host::Value namespace_;
  host::Value mapping_type_;
  host::Indexed<Global> names_;
  host::Indexed<Global> own_;
  std::bitset<host::Indexed<Global>::size> holds_empty_string_;
  host::Indexed<Label> labels_;
  host::Indexed<RecordKey> record_keys_;
  host::Indexed<InputKey> input_keys_;
  std::array<host::Indexed<Label>, host::Indexed<Decision>::size> messages_;
  host::Indexed<Wish> wishes_;
  host::Indexed<IntentWord> intent_words_;
  std::array<host::Value, 20> confidences_;  ///< 0 to 0.95
  mutable std::array<MadeOnce<RecordTemplate>, 64> record_templates_;
  std::optional<ElementSymbols> element_symbols_;
  mutable MadeOnce<PhraseTables> phrase_tables_;
  mutable std::atomic<std::uint64_t> untouched_version_ = 0;
  mutable std::atomic<std::uint64_t> examined_version_ = 0;
};

}  // namespace tavik::characterization
