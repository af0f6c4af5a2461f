// Reading the element symbols once, when the module is loaded.
#include "material_characterization/chemistry/element_symbols.hpp"

#include "py/containers.hpp"

namespace tavik::characterization {

std::optional<ElementSymbols> ElementSymbols::read(const py::Object& collection) {
  if (!py::is_exact_frozen_set(collection)) return std::nullopt;
  ElementSymbols symbols;
  py::Iterator items(collection);
  while (py::Object item = items.next()) {
    if (!py::is_exact_string(item)) return std::nullopt;
    // What has another shape is never asked for.
    if (!py::is_exact_ascii(item) || !text::is_symbol(py::ascii_view(item))) continue;
    py::Object& string = symbols.strings_[text::symbol_number(py::ascii_view(item))];
    string = std::move(item);
  }
  return symbols;
}

}  // namespace tavik::characterization
