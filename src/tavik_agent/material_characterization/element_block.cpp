// Species that an element-definition block declares: a list of mappings, or a mapping keyed by
// element. What it declares is believed as written, apart from capitals.
#include "host/objects.hpp"
#include "host/strings.hpp"
#include "material_characterization/functions.hpp"

namespace tavik::characterization {
namespace {

constexpr std::size_t longest_symbol = 2;

void append_declared(const Module& module, const Value& species, const Value& mapping) {
  const Value raw = module.read(mapping, InputKey::species);
  if (!host::is_string(raw)) return;
  const Value declared = host::strip(raw);
  if (!host::is_empty(declared)) host::append(species, declared);
}

bool may_be_symbol(const Value& key) {
  return host::is_string(key) && host::is_alphabetic(key) && host::length(key) <= longest_symbol;
}

void read_list(const Module& module, const Value& species, const Value& block) {
  host::Iterator entries(block);
  while (const Value entry = entries.next()) {
    if (module.is_mapping(entry)) append_declared(module, species, entry);
  }
}

void read_mapping(const Module& module, const Value& species, const Value& block) {
  append_declared(module, species, block);
  host::Iterator entries(host::items(block));
  while (const Value entry = entries.next()) {
    const auto [key, value] = host::unpack_pair(entry);
    if (module.is_mapping(value)) {
      append_declared(module, species, value);
    } else if (may_be_symbol(key)) {
      host::append(species, key);
    }
  }
}

}  // namespace

Value _species_from_element_block(const Module& module, const Value& element_block) {
  const Value species = host::new_list();
  if (host::is_list(element_block)) {
    read_list(module, species, element_block);
  } else if (module.is_mapping(element_block)) {
    read_mapping(module, species, element_block);
  }
  host::OrderedSet canonical;
  host::Iterator items(species);
  while (const Value item = items.next()) canonical.add(host::capitalised(item));
  return canonical.list();
}

}  // namespace tavik::characterization
