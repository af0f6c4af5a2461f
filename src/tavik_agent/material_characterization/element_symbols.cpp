// Reading the element symbols once, when the module is loaded.
#include "material_characterization/element_symbols.hpp"

#include "host/objects.hpp"

namespace tavik::characterization {

using host::Value;

std::optional<ElementSymbols> ElementSymbols::read(const Value& collection) {
  if (!host::is_exact_frozen_set(collection)) return std::nullopt;
  ElementSymbols symbols;
  host::Iterator items(collection);
  while (Value item = items.next()) {
    if (!host::is_exact_string(item)) return std::nullopt;
    // What has another shape is never asked for.
    if (!host::is_exact_ascii(item) || !text::is_symbol(host::ascii_view(item))) continue;
    Value& string = symbols.strings_[text::symbol_number(host::ascii_view(item))];
    string = std::move(item);
  }
  return symbols;
}

}  // namespace tavik::characterization
