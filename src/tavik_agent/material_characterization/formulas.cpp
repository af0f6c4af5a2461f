// Formula tokens, their parts, and the symbols in them. Counts become numbers only for a caller of
// `_formula_parts` in the host: nothing inside the module needs them, and a long run of digits
// costs more to convert than to read.
#include "material_characterization/formulas.hpp"

#include <algorithm>
#include <string>
#include <vector>

#include "host/objects.hpp"
#include "host/strings.hpp"
#include "text/formula.hpp"

namespace tavik::characterization {
namespace {

Value count_of(std::string_view digits) { return host::integer(digits.empty() ? "1" : digits); }

/// The parts of a formula; none when it is malformed or names an unknown symbol.
std::vector<text::FormulaPart> accepted_parts(const Module& module, std::string_view text) {
  auto parts = text::split_formula(text, host::character_tables());
  for (const auto& part : parts) {
    const Value symbols = module.look_up(Global::KNOWN_ELEMENT_SYMBOLS);
    if (!host::contains(symbols, host::string(part.symbol))) return {};
  }
  return parts;
}

/// What stands in place of `_formula_parts`; no object when nothing does.
Value replacement(const Module& module) {
  Value current = module.look_up(Global::_formula_parts);
  return module.is_own(Global::_formula_parts, current) ? Value() : std::move(current);
}

}  // namespace

Value _formula_parts(const Module& module, const Value& token) {
  const host::Utf8 text(host::text_form_or_empty(token));
  Value parsed = host::new_list();
  for (const auto& [symbol, count] : accepted_parts(module, text.view())) {
    host::append(parsed, host::tuple_of(host::string(symbol), count_of(count)));
  }
  return parsed;
}

void for_each_candidate(const Module& module, Text& text,
                        const std::function<bool(const Value&)>& visit) {
  text::FormulaTokens tokens(text.utf8(), host::character_tables());
  while (const auto found = tokens.next()) {
    std::string upper(*found);
    std::ranges::transform(upper, upper.begin(), text::ascii_upper);
    const Value acronyms = module.look_up(Global::non_formula_tokens);
    if (host::contains(acronyms, host::string(upper))) continue;
    if (!visit(host::string(*found))) return;
  }
}

bool is_formula(const Module& module, const Value& token) {
  if (const Value other = replacement(module)) return !host::is_empty(host::call(other, token));
  const host::Utf8 text(host::text_form_or_empty(token));
  return !accepted_parts(module, text.view()).empty();
}

Value symbols_of(const Module& module, const Value& formula) {
  Value symbols = host::new_list();
  if (const Value other = replacement(module)) {
    host::Iterator parts(host::call(other, formula));
    while (const Value part = parts.next()) host::append(symbols, host::unpack_pair(part).first);
    return symbols;
  }
  const host::Utf8 text(host::text_form_or_empty(formula));
  for (const auto& part : accepted_parts(module, text.view())) {
    host::append(symbols, host::string(part.symbol));
  }
  return symbols;
}

std::string_view phrase_context(Text& text) {
  return text::strip(text.lowered(), host::character_tables());
}

}  // namespace tavik::characterization
