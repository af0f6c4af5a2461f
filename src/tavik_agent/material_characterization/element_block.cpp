// Species that an element-definition block declares: a list of mappings, or a mapping keyed by
// element. What it declares is believed as written, apart from capitals.
#include "host/objects.hpp"
#include "host/ordered_set.hpp"
#include "host/strings.hpp"
#include "material_characterization/functions.hpp"

namespace tavik::characterization {
namespace {

constexpr std::size_t longest_symbol = 2;

void append_declared(const Module& module, host::Values& species, const Value& mapping) {
  const Value raw = module.read(mapping, InputKey::species);
  if (!host::is_string(raw)) return;
  Value declared = host::strip(raw);
  if (!host::is_empty(declared)) species.push_back(std::move(declared));
}

bool may_be_symbol(const Value& key) {
  return host::is_string(key) && host::is_alphabetic(key) && host::length(key) <= longest_symbol;
}

void read_list(const Module& module, host::Values& species, const Value& block) {
  host::Iterator entries(block);
  while (const Value entry = entries.next()) {
    if (module.is_mapping(entry)) append_declared(module, species, entry);
  }
}

void read_mapping(const Module& module, host::Values& species, const Value& block) {
  append_declared(module, species, block);
  host::Iterator entries(host::items(block));
  while (const Value entry = entries.next()) {
    const auto [key, value] = host::unpack_pair(entry);
    if (module.is_mapping(value)) {
      append_declared(module, species, value);
    } else if (may_be_symbol(key)) {
      species.push_back(key.another());
    }
  }
}

}  // namespace

Value _species_from_element_block(const Module& module, const Value& element_block) {
  host::Values species;
  if (host::is_list(element_block)) {
    read_list(module, species, element_block);
  } else if (module.is_mapping(element_block)) {
    read_mapping(module, species, element_block);
  }
  host::OrderedSet canonical;
  for (const Value& item : species) canonical.add(host::capitalised(item));
  return canonical.take_list();
}

}  // namespace tavik::characterization
