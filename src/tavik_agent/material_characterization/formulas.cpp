// Formula tokens, their parts, and the symbols in them. Counts become numbers only for a caller of
// `_formula_parts`; nothing inside the module needs them.
#include "material_characterization/formulas.hpp"

#include <algorithm>
#include <string>
#include <vector>

#include "host/objects.hpp"
#include "host/strings.hpp"
#include "material_characterization/calls.hpp"
#include "text/formula.hpp"

namespace tavik::characterization {
namespace {

Value count_of(std::string_view digits) { return host::integer(digits.empty() ? "1" : digits); }

}  // namespace

Value _formula_parts(const Module& module, const Value& token) {
  const Value written = host::text_form_or_empty(token);
  const host::Utf8 text(written);
  Value parsed = host::new_list();
  for (const auto& [symbol, digits] : text::split_formula(text.view(), host::character_tables())) {
    const Value species = host::string(symbol);
    if (!host::contains(module.look_up(Global::KNOWN_ELEMENT_SYMBOLS), species)) {
      return host::new_list();
    }
    host::append(parsed, host::tuple_of(species, count_of(digits)));
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
  return !host::is_empty(invoke<_formula_parts>(module, Global::_formula_parts, token));
}

Value symbols_of(const Module& module, const Value& formula) {
  Value symbols = host::new_list();
  host::Iterator parts(invoke<_formula_parts>(module, Global::_formula_parts, formula));
  while (const Value part = parts.next()) host::append(symbols, host::unpack_pair(part).first);
  return symbols;
}

std::string_view phrase_context(Text& text) {
  return text::strip(text.lowered(), host::character_tables());
}

}  // namespace tavik::characterization
