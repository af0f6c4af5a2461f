// Formula tokens, their parts, and the symbols in them. Counts become numbers only for a caller of
// `_formula_parts` in the host: nothing inside the module needs them, and a long run of digits
// costs more to convert than to read.
#include "material_characterization/formulas.hpp"

#include <algorithm>
#include <string>

#include "host/objects.hpp"
#include "host/strings.hpp"
#include "text/formula.hpp"

namespace tavik::characterization {
namespace {

Value count_of(std::string_view digits) { return host::integer(digits.empty() ? "1" : digits); }

bool is_known_symbol(const Module& module, std::string_view symbol) {
  if (const auto* own = module.own_element_symbols()) return own->contains(symbol);
  return host::contains(module.look_up(Global::KNOWN_ELEMENT_SYMBOLS), host::string(symbol));
}

/// The parts of a formula; none when it is malformed or names an unknown symbol.
text::FormulaParts accepted_parts(const Module& module, std::string_view text) {
  auto parts = text::split_formula(text, host::character_tables());
  for (const auto& part : parts) {
    if (!is_known_symbol(module, part.symbol)) return {};
  }
  return parts;
}

/// Of a known symbol.
Value symbol_string(const Module& module, std::string_view symbol) {
  const auto* own = module.own_element_symbols();
  return own != nullptr && own->contains(symbol) ? own->string(symbol) : host::string(symbol);
}

/// What stands in place of `_formula_parts`; no object when nothing does.
Value replacement(const Module& module) {
  const Current current = module.look_up(Global::_formula_parts);
  return current.is_own() ? Value() : current.value().another();
}

bool is_acronym(const Module& module, std::string_view token) {
  std::string upper(token);
  std::ranges::transform(upper, upper.begin(), text::ascii_upper);
  return host::contains(module.look_up(Global::non_formula_tokens), host::string(upper));
}

/// The symbols by which the module itself can tell what is a formula; none when anything was
/// replaced that may judge it.
const ElementSymbols* judging_symbols(const Module& module) {
  return module.is_untouched() ? module.own_element_symbols() : nullptr;
}

/// Whether a token is a formula with a symbol that was not seen before.
bool brings_a_symbol(const ElementSymbols& known, const text::SymbolSet& seen,
                     std::string_view token) {
  bool is_new = false;
  const auto take = [&](const text::FormulaPart& part) {
    is_new |= !seen[text::symbol_number(part.symbol)];
    return known.contains(part.symbol);
  };
  return text::all_parts(token, host::character_tables(), take) && is_new;
}

void note_symbols(text::SymbolSet& seen, std::string_view token) {
  text::all_parts(token, host::character_tables(), [&](const text::FormulaPart& part) {
    seen.set(text::symbol_number(part.symbol));
    return true;
  });
}

}  // namespace

Value _formula_parts(const Module& module, const Value& token) {
  const host::Utf8 text(host::text_form_or_empty(token));
  Value parsed = host::new_list();
  for (const auto& [symbol, count] : accepted_parts(module, text.view())) {
    host::append(parsed, host::tuple_of(symbol_string(module, symbol), count_of(count)));
  }
  return parsed;
}

void for_each_candidate(const Module& module, Text& text,
                        const std::function<bool(const Value&)>& visit) {
  if (text.utf8().empty()) return;
  text::SymbolSet seen;
  text::FormulaTokens tokens(text.utf8(), host::character_tables());
  while (const auto token = tokens.next()) {
    const ElementSymbols* const known = judging_symbols(module);
    if (known != nullptr && !brings_a_symbol(*known, seen, *token)) continue;
    if (is_acronym(module, *token)) continue;
    if (!visit(host::string(*token))) return;
    if (known != nullptr) note_symbols(seen, *token);
  }
}

bool is_formula(const Module& module, const Value& token) {
  if (const Value other = replacement(module)) return !host::is_empty(host::call(other, token));
  const host::Utf8 text(host::text_form_or_empty(token));
  return !accepted_parts(module, text.view()).empty();
}

host::Values symbols_of(const Module& module, const Value& formula) {
  host::Values symbols;
  if (const Value other = replacement(module)) {
    host::Iterator parts(host::call(other, formula));
    while (const Value part = parts.next()) symbols.push_back(host::unpack_pair(part).first);
    return symbols;
  }
  const host::Utf8 text(host::text_form_or_empty(formula));
  for (const auto& part : accepted_parts(module, text.view())) {
    symbols.push_back(symbol_string(module, part.symbol));
  }
  return symbols;
}

}  // namespace tavik::characterization
