// Formulas written in text, as the prose scan, the formula hint and the driver see them: candidates
// found by pattern, then judged by `_formula_parts`, whatever that name is bound to.
#pragma once

#include <functional>

#include "material_characterization/functions.hpp"

namespace tavik::characterization {

/// Visits the formula tokens of a text that are no method acronyms, in text order, until the
/// visitor answers false.
void for_each_candidate(const Module&, Text& text,
                        const std::function<bool(const Value& token)>& visit);

/// Whether `_formula_parts` accepts the token.
bool is_formula(const Module&, const Value& token);

/// The symbols that `_formula_parts` finds in a formula, as a list, repeats included.
Value symbols_of(const Module&, const Value& formula);

/// Lowered text without white space at its ends, as phrases are looked for in it.
std::string_view phrase_context(Text& text);

}  // namespace tavik::characterization
