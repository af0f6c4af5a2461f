// Making a module's state, and reading its namespace.
#include "material_characterization/module.hpp"

#include "host/imports.hpp"
#include "host/objects.hpp"

namespace tavik::characterization {

using host::Value;

Module::Module(Value names)
    : namespace_(std::move(names)),
      mapping_type_(host::import_from("collections.abc", "Mapping")),
      names_(host::interned<Global>()),
      labels_(host::interned<Label>()),
      record_keys_(host::interned<RecordKey>()),
      input_keys_(host::interned<InputKey>()) {
  for (const Global name : host::all_words<Global>()) own_[name] = look_up(name);
  formula_aliases_ = PhraseTable::index(own_[Global::FORMULA_ALIASES]);
  element_names_ = PhraseTable::index(own_[Global::ELEMENT_NAME_ALIASES]);
}

Value Module::look_up(Global name) const { return host::look_up(namespace_, names_[name]); }

bool Module::is_own(Global name, const Value& current) const { return current.is_same(own_[name]); }

Value Module::read(const Value& mapping, InputKey key) const {
  return host::get(mapping, input_keys_[key]);
}

Value Module::read(const Value& mapping, RecordKey key) const {
  return host::get(mapping, record_keys_[key]);
}

bool Module::has_key(const Value& mapping, InputKey key) const {
  return host::contains(mapping, input_keys_[key]);
}

bool Module::is_mapping(const Value& value) const { return host::is_mapping(value, mapping_type_); }

void Module::for_each_phrase(Global name, std::string_view words,
                             const PhraseVisitor& visit) const {
  const Value table = look_up(name);
  const auto& index = name == Global::FORMULA_ALIASES ? formula_aliases_ : element_names_;
  if (index && is_own(name, table)) return index->for_each_match(words, visit);
  for_each_match(table, words, visit);
}

}  // namespace tavik::characterization
