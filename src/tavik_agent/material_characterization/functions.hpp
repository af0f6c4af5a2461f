// The functions of the module, with their parameters in the order of their signatures. A parameter
// that is searched as text is a Text, so that functions called with the same text share what was
// learnt of it; every other parameter is the host value as it came.
#pragma once

#include <span>

#include "host/text.hpp"
#include "host/value.hpp"
#include "material_characterization/fields.hpp"
#include "material_characterization/formula_hint.hpp"
#include "material_characterization/intent_words.hpp"
#include "material_characterization/module.hpp"

namespace tavik::characterization {

using host::Text;
using host::Value;

/// Joins loose text fragments with single blanks.
Value _combined_text(const Module&, std::span<const Value> parts);

/// The species that an element-definition block declares.
Value _species_from_element_block(const Module&, const Value& element_block);

/// The (symbol, count) pairs of a formula; an empty list when it is none.
Value _formula_parts(const Module&, const Value& token);

/// The species that prose mentions: by compound name, by element name, by formula.
Value _species_from_text(const Module&, Text& text);

/// The one formula that names the material, or "".
Value _formula_hint(const Module&, Text& text, const Value& species);

Label _structure_mode(const Module&, const Fields& step_params, Text& combined_text);

Label _structure_archetype(const Module&, const Verdict& structure_mode, Text& combined_text,
                           Text& query_text, const Fields& query_intent);

Label classify_system_class(const Module&, const Value& species, const FormulaHint& formula_hint,
                            Text& explicit_text, const Verdict& structure_archetype);

/// classify_system_class under the name that the driver calls; its result as it came.
Verdict _electronic_class(const Module&, const Value& species, const FormulaHint& formula_hint,
                          Text& explicit_text, const Verdict& structure_archetype);

Label _correlation_class(const Module&, const Value& species, const FormulaHint& formula_hint,
                         Text& combined_text, const IntentField& intent_correlation,
                         const IntentField& intent_complexity);

Label _magnetic_class(const Module&, const Value& species, const FormulaHint& formula_hint,
                      Text& combined_text, const Verdict& correlation_class,
                      const IntentField& intent_magnetism, const IntentField& intent_complexity);

Label _material_family(const Module&, const Value& species, const Verdict& structure_mode,
                       const Verdict& electronic_class, const FormulaHint& formula_hint,
                       const Verdict& structure_archetype);

/// The characterization record of one planning step.
Value characterize_material(const Module&, const Value& step, const Value& step_params,
                            Text& query_text, const Value& findings, const Value& planner_manifest,
                            const Value& previous_steps_params, const Value& base_characterization,
                            const Value& query_intent);

}  // namespace tavik::characterization
