// Species that an element-definition block declares: a list of mappings, or a mapping keyed by
// element. What it declares is believed as written, apart from capitals.
#include "material_characterization/functions.hpp"
#include "py/ordered_set.hpp"

namespace tavik::characterization {
namespace {

constexpr std::size_t longest_symbol = 2;

void append_declared(const ModuleState& module, py::Objects& species, const Object& mapping) {
  const Object raw = module.read(mapping, InputKey::species);
  if (!py::is_string(raw)) return;
  Object declared = py::strip(raw);
  if (!py::is_empty(declared)) species.push_back(std::move(declared));
}

bool may_be_symbol(const Object& key) {
  return py::is_string(key) && py::is_alphabetic(key) && py::length(key) <= longest_symbol;
}

void read_list(const ModuleState& module, py::Objects& species, const Object& block) {
  py::Iterator entries(block);
  while (const Object entry = entries.next()) {
    if (module.is_mapping(entry)) append_declared(module, species, entry);
  }
}

void read_mapping(const ModuleState& module, py::Objects& species, const Object& block) {
  append_declared(module, species, block);
  py::Iterator entries(py::items(block));
  while (const Object entry = entries.next()) {
    const auto [key, value] = py::unpack_pair(entry);
    if (module.is_mapping(value)) {
      append_declared(module, species, value);
    } else if (may_be_symbol(key)) {
      species.push_back(key.new_ref());
    }
  }
}

}  // namespace

Object _species_from_element_block(const ModuleState& module, const Object& element_block) {
  py::Objects species;
  if (py::is_list(element_block)) {
    read_list(module, species, element_block);
  } else if (module.is_mapping(element_block)) {
    read_mapping(module, species, element_block);
  }
  py::OrderedSet canonical;
  for (const Object& item : species) canonical.add(py::capitalised(item));
  return canonical.list();
}

}  // namespace tavik::characterization
