// Reading a mapping's entries, once unless it is changed in between.
#include "material_characterization/fields.hpp"

namespace tavik::characterization {

using host::Value;

namespace {

constexpr std::size_t few = 8;

}  // namespace

const Value& Fields::value() const {
  if (!mapping_) {
    made_ = host::Seldom(host::new_dict());
    mapping_ = host::Lent(made_.value().get());
  }
  return mapping_;
}

void Fields::walk(const Module& module) const {
  fields_.shorten(0);
  places_.fill(0);
  version_ = host::version_of(mapping_);
  const bool are_strings = host::all_entries(mapping_, [&](const Value& key, const Value& value) {
    if (const auto known = module.input_key(key)) {
      fields_.push_back(value.another());
      places_[static_cast<std::size_t>(*known)] = static_cast<std::uint8_t>(fields_.size());
    }
    return host::is_exact_string(key);
  });
  if (!are_strings) version_ = 0;
}

/// Whether the fields are those that the mapping has now.
bool Fields::are_known(const Module& module) const {
  if (!host::is_exact_dict(mapping_) || !host::counts_changes(mapping_)) return false;
  if (host::length_of_exact(mapping_) > few) return false;
  if (version_ != host::version_of(mapping_)) walk(module);
  return version_ != 0;
}

Value Fields::get_in_mapping(const Module& module, InputKey key) const {
  if (!are_known(module)) return module.read(mapping_, key);
  const Value* const found = find(key);
  return found != nullptr ? found->another() : Value::null();
}

bool Fields::has(const Module& module, InputKey key) const {
  if (!mapping_) return false;
  return are_known(module) ? find(key) != nullptr : module.has_key(mapping_, key);
}

}  // namespace tavik::characterization
