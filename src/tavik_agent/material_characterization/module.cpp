// Making a module's state, and reading its namespace.
#include "material_characterization/module.hpp"

#include <algorithm>

#include "host/imports.hpp"
#include "host/objects.hpp"
#include "host/strings.hpp"

namespace tavik::characterization {

using host::Value;

Module::Module(Value names)
    : namespace_(std::move(names)),
      mapping_type_(host::import_from("collections.abc", "Mapping")),
      names_(host::interned<Global>()),
      labels_(host::interned<Label>()),
      record_keys_(host::interned<RecordKey>()),
      input_keys_(host::interned<InputKey>()),
      wishes_(host::interned<Wish>()),
      intent_words_(host::interned<IntentWord>()) {
  for (const Global name : host::all_words<Global>()) {
    own_[name] = host::look_up(namespace_, names_[name]);
    holds_empty_string_[static_cast<std::size_t>(name)] =
        host::is_exact_frozen_set(own_[name]) && host::contains(own_[name], host::empty_string());
  }
  for (const Decision decision : host::all_words<Decision>()) {
    for (const Label label : host::all_words<Label>()) {
      messages_[static_cast<std::size_t>(decision)][label] =
          host::message_in_utf8(host::Indexed<Decision>::text(decision), labels_[label]);
    }
  }
  for (std::size_t i = 0; i < confidences_.size(); ++i) {
    confidences_[i] = host::real(static_cast<double>(5 * i) / 100.0);
  }
  element_symbols_ = ElementSymbols::read(own_[Global::KNOWN_ELEMENT_SYMBOLS]);
}

void Module::examine_namespace() const {
  const std::uint64_t version = host::version_of(namespace_);
  if (examined_version_.exchange(version) == version) return;
  for (const Global name : host::all_words<Global>()) {
    if (!host::is_bound_to(namespace_, names_[name], own_[name])) return;
  }
  untouched_version_ = version;
}

Current Module::look_up_in_namespace(Global name) const {
  Value current = host::look_up(namespace_, names_[name]);
  if (!current.is_same(own_[name])) return Current(std::move(current));
  examine_namespace();
  return Current(&own_[name]);
}

Value Module::message_about(Decision decision, const Verdict& label) const {
  return label.is_own()
             ? messages_[static_cast<std::size_t>(decision)][label.word()].another()
             : host::message_in_utf8(host::Indexed<Decision>::text(decision), label.value());
}

std::optional<InputKey> Module::input_key(const Value& string) const {
  constexpr auto keys = host::all_words<InputKey>();
  const auto is_it = [&](InputKey key) { return string.is_same(input_keys_[key]); };
  const auto has_its_text = [&](InputKey key) {
    return host::equals(string, host::Indexed<InputKey>::text(key));
  };
  auto found = std::ranges::find_if(keys, is_it);
  if (found == keys.end() && host::is_exact_string(string)) {
    found = std::ranges::find_if(keys, has_its_text);
  }
  return found == keys.end() ? std::nullopt : std::optional(*found);
}

bool Module::is_mapping(const Value& value) const { return host::is_mapping(value, mapping_type_); }

void Module::for_each_phrase(Global name, host::Text& text, const PhraseVisitor& visit) const {
  const Current table = look_up(name);
  if (!table.is_own()) return for_each_match(table, text, visit);
  const PhraseTables& own = phrase_tables_.get([&] {
    return PhraseTables(own_[Global::FORMULA_ALIASES], own_[Global::ELEMENT_NAME_ALIASES]);
  });
  const auto which =
      name == Global::FORMULA_ALIASES ? PhraseTables::formula_aliases : PhraseTables::element_names;
  own.for_each_match(which, text, visit);
}

}  // namespace tavik::characterization
