// Formulas written in text, as the prose scan, the formula hint and the driver see them: candidates
// found by pattern, then judged by `_formula_parts`, whatever that name is bound to.
#pragma once

#include <functional>

#include "material_characterization/functions.hpp"

namespace tavik::characterization {

/// Visits the formula tokens of a text that are no method acronyms, in text order, until the
/// visitor answers false. Where the module itself judges formulas, tokens that are none, and those
/// of symbols that were all visited before, are passed over: most tokens of a long text are such,
/// and each spares the host's set of acronyms a question.
void for_each_candidate(const Module&, Text& text,
                        const std::function<bool(const Value& token)>& visit);

/// Whether `_formula_parts` accepts the token.
bool is_formula(const Module&, const Value& token);

/// The symbols that `_formula_parts` finds in a formula, repeats included.
host::Values symbols_of(const Module&, const Value& formula);

}  // namespace tavik::characterization
