// Formula tokens, their parts, and the symbols in them. Counts become numbers only for a caller of
// `_formula_parts` in Python: nothing inside the module needs them, and a long run of digits takes
// longer to convert than to read.
#include "material_characterization/chemistry/formulas.hpp"

#include <algorithm>
#include <bitset>
#include <string>

#include "text/formula_tokens.hpp"

namespace tavik::characterization {
namespace {

using Symbols = std::bitset<text::symbol_numbers>;

Object count_of(std::string_view digits) { return py::integer(digits.empty() ? "1" : digits); }

bool is_known_symbol(const ModuleState& module, std::string_view symbol) {
  if (const auto* own = module.own_element_symbols()) return own->contains(symbol);
  return py::contains(module.look_up(Global::KNOWN_ELEMENT_SYMBOLS), py::string(symbol));
}

/// Visits the parts of a formula, until one names an unknown symbol; false for a token that is
/// none. No symbol is looked up before the whole token is known to be well-formed.
template <class Visit>
bool accept_parts(const ModuleState& module, std::string_view token, Visit visit) {
  const auto take = [](const text::FormulaPart&) { return true; };
  const auto accept = [&](const text::FormulaPart& part) {
    if (!is_known_symbol(module, part.symbol)) return false;
    visit(part);
    return true;
  };
  return text::all_parts(token, py::character_tables, take) &&
         text::all_parts(token, py::character_tables, accept);
}

/// Of a known symbol.
Object symbol_string(const ModuleState& module, std::string_view symbol) {
  const auto* own = module.own_element_symbols();
  return own != nullptr && own->contains(symbol) ? own->string(symbol) : py::string(symbol);
}

bool is_acronym(const ModuleState& module, std::string_view token) {
  std::string upper(token);
  std::ranges::transform(upper, upper.begin(), text::ascii_upper);
  return py::contains(module.look_up(Global::NON_FORMULA_TOKENS), py::string(upper));
}

/// The element symbols, when nothing was replaced that has a say in what is a formula; otherwise
/// none, and each token has to be asked about in the order of the rules.
const ElementSymbols* judging_symbols(const ModuleState& module) {
  const bool judges = module.is_untouched(Global::_formula_parts) &&
                      module.is_untouched(Global::NON_FORMULA_TOKENS);
  return judges ? module.own_element_symbols() : nullptr;
}

/// Whether a token is a formula with a symbol that was not seen before.
bool brings_a_symbol(std::string_view token, const ElementSymbols& known, const Symbols& seen) {
  bool is_new = false;
  const auto take = [&](const text::FormulaPart& part) {
    is_new |= !seen[text::symbol_number(part.symbol)];
    return known.contains(part.symbol);
  };
  return text::all_parts(token, py::character_tables, take) && is_new;
}

void note_symbols(std::string_view token, Symbols& seen) {
  text::all_parts(token, py::character_tables, [&](const text::FormulaPart& part) {
    seen.set(text::symbol_number(part.symbol));
    return true;
  });
}

/// What was put in place of `_formula_parts`; no object when nothing was.
Object replaced_formula_parts(const ModuleState& module) {
  Object bound = module.look_up(Global::_formula_parts);
  return bound.is_same(module.own(Global::_formula_parts)) ? Object() : std::move(bound);
}

}  // namespace

Object _formula_parts(const ModuleState& module, const Object& token) {
  const py::Utf8 text(py::text_form_or_empty(token));
  Object parsed = py::new_list();
  const auto add = [&](const text::FormulaPart& part) {
    py::append(parsed, py::tuple_of(symbol_string(module, part.symbol), count_of(part.count)));
  };
  return accept_parts(module, text.view(), add) ? std::move(parsed) : py::new_list();
}

void for_each_candidate(const ModuleState& module, Text& text,
                        const std::function<bool(const Object&)>& visit) {
  if (text.utf8().empty()) return;
  Symbols seen;
  text::FormulaTokens tokens(text.utf8(), py::character_tables);
  while (const auto token = tokens.next()) {
    const ElementSymbols* const known = judging_symbols(module);
    if (known != nullptr && !brings_a_symbol(*token, *known, seen)) continue;
    if (is_acronym(module, *token)) continue;
    if (!visit(py::string(*token))) return;
    if (known != nullptr) note_symbols(*token, seen);
  }
}

bool is_formula(const ModuleState& module, const Object& token) {
  if (const Object other = replaced_formula_parts(module)) {
    return !py::is_empty(py::call(other, token));
  }
  const py::Utf8 text(py::text_form_or_empty(token));
  return accept_parts(module, text.view(), [](const text::FormulaPart&) {});
}

py::Objects symbols_of(const ModuleState& module, const Object& formula) {
  py::Objects symbols;
  if (const Object other = replaced_formula_parts(module)) {
    py::Iterator parts(py::call(other, formula));
    while (const Object part = parts.next()) symbols.push_back(py::unpack_pair(part).first);
    return symbols;
  }
  const py::Utf8 text(py::text_form_or_empty(formula));
  const auto add = [&](const text::FormulaPart& part) {
    symbols.push_back(symbol_string(module, part.symbol));
  };
  if (!accept_parts(module, text.view(), add)) symbols.clear();
  return symbols;
}

}  // namespace tavik::characterization
