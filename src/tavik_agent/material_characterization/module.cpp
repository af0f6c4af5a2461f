// Making a module's state, and reading its namespace.
#include "material_characterization/module.hpp"

#include "host/imports.hpp"
#include "host/objects.hpp"

namespace tavik::characterization {

using host::Value;

namespace {

PhraseTable index_if_lasting(const Value& mapping) {
  return host::is_read_only_mapping(mapping) ? PhraseTable(mapping) : PhraseTable();
}

}  // namespace

Module::Module(Value names)
    : namespace_(std::move(names)),
      mapping_type_(host::import_from("collections.abc", "Mapping")),
      names_(host::interned<Global>()),
      labels_(host::interned<Label>()),
      record_keys_(host::interned<RecordKey>()),
      input_keys_(host::interned<InputKey>()) {
  for (const Global name : host::all_words<Global>()) own_[name] = look_up(name);
  formula_aliases_ = index_if_lasting(own_[Global::FORMULA_ALIASES]);
  element_names_ = index_if_lasting(own_[Global::ELEMENT_NAME_ALIASES]);
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

const PhraseTable* Module::index_of(Global name, const Value& current) const {
  if (!is_own(name, current) || !host::is_read_only_mapping(current)) return nullptr;
  return name == Global::FORMULA_ALIASES ? &formula_aliases_ : &element_names_;
}

void Module::for_each_phrase(Global name, std::string_view words,
                             const PhraseVisitor& visit) const {
  const Value table = look_up(name);
  if (const PhraseTable* index = index_of(name, table)) return index->for_each_match(words, visit);
  for_each_match(table, words, visit);
}

}  // namespace tavik::characterization
