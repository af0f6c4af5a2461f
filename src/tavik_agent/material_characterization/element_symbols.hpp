// The element symbols of the module's own table, found by their letters. A look-up takes four
// instructions; in the host's set it takes a new string, its hash and a comparison, about 300.
#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "host/value.hpp"
#include "text/formula.hpp"

namespace tavik::characterization {

class ElementSymbols {
 public:
  /// Nothing for a collection that may change, or that holds anything but plain strings.
  static std::optional<ElementSymbols> read(const host::Value& collection);

  /// For text that has the shape of a symbol.
  bool contains(std::string_view symbol) const { return static_cast<bool>(find(symbol)); }
  /// The host's string of a symbol that is contained.
  host::Value string(std::string_view symbol) const { return find(symbol).another(); }

  auto& held() { return strings_; }

 private:
  const host::Value& find(std::string_view symbol) const {
    return strings_[text::symbol_number(symbol)];
  }

  std::array<host::Value, text::symbol_numbers> strings_;
};

}  // namespace tavik::characterization
