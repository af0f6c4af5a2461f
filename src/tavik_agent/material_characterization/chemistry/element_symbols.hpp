// The element symbols of the module's own table, found by their letters, so that telling whether a
// token is a formula makes no Python string for each symbol in it.
#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "py/object.hpp"
#include "text/formula_tokens.hpp"

namespace tavik::characterization {

class ElementSymbols {
 public:
  /// Nothing for a collection that may change, or that holds anything but plain strings.
  static std::optional<ElementSymbols> read(const py::Object& collection);

  /// Whether text that has the shape of a symbol is one.
  bool contains(std::string_view symbol) const { return static_cast<bool>(find(symbol)); }
  /// The string of a symbol that is contained.
  py::Object string(std::string_view symbol) const { return find(symbol).new_ref(); }

  auto& held() { return strings_; }

 private:
  const py::Object& find(std::string_view symbol) const {
    return strings_[text::symbol_number(symbol)];
  }

  std::array<py::Object, text::symbol_numbers> strings_;
};

}  // namespace tavik::characterization
