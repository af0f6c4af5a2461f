// Formulas written in text, as the prose scan, the formula hint and the driver see them: candidates
// found by pattern, then judged by `_formula_parts`, whatever that name is bound to.
#pragma once

#include <functional>

#include "material_characterization/functions.hpp"

namespace tavik::characterization {

/// Visits the formula tokens of a text that are no method acronyms, in text order, until the
/// visitor answers false. Where the module itself judges formulas it leaves out tokens that are
/// none, and formulas that hold no symbol beyond those of formulas visited before.
void for_each_candidate(const ModuleState&, Text& text,
                        const std::function<bool(const Object& token)>& visit);

/// Whether `_formula_parts` accepts the token.
bool is_formula(const ModuleState&, const Object& token);

/// The symbols that `_formula_parts` finds in a formula, repeats included.
py::Objects symbols_of(const ModuleState&, const Object& formula);

}  // namespace tavik::characterization
