// The functions of the module, with their parameters in the order of their signatures. A parameter
// that is searched as text is a Text, so that functions called with the same text share what was
// learnt of it; every other parameter is the Python object as it came.
#pragma once

#include <span>

#include "material_characterization/state/module_state.hpp"
#include "py/text.hpp"

namespace tavik::characterization {

using py::Object;
using py::Text;

/// Joins loose text fragments with single blanks.
Object _combined_text(const ModuleState&, std::span<const Object> parts);

/// The species that an element-definition block declares.
Object _species_from_element_block(const ModuleState&, const Object& element_block);

/// The (symbol, count) pairs of a formula; an empty list when it is none.
Object _formula_parts(const ModuleState&, const Object& token);

/// The species that prose mentions: by compound name, by element name, by formula.
Object _species_from_text(const ModuleState&, Text& text);

/// The one formula that names the material, or "".
Object _formula_hint(const ModuleState&, Text& text, const Object& species);

StructureMode _structure_mode(const ModuleState&, const Object& step_params, Text& combined_text);

StructureArchetype _structure_archetype(const ModuleState&, const Object& structure_mode,
                                        Text& combined_text, Text& query_text,
                                        const Object& query_intent);

ElectronicClass classify_system_class(const ModuleState&, const Object& species,
                                      const Object& formula_hint, Text& explicit_text,
                                      const Object& structure_archetype);

/// What classify_system_class answers, as it came.
Object _electronic_class(const ModuleState&, const Object& species, const Object& formula_hint,
                         Text& explicit_text, const Object& structure_archetype);

CorrelationClass _correlation_class(const ModuleState&, const Object& species,
                                    const Object& formula_hint, Text& combined_text,
                                    const Object& intent_correlation,
                                    const Object& intent_complexity);

MagneticClass _magnetic_class(const ModuleState&, const Object& species, const Object& formula_hint,
                              Text& combined_text, const Object& correlation_class,
                              const Object& intent_magnetism, const Object& intent_complexity);

MaterialFamily _material_family(const ModuleState&, const Object& species,
                                const Object& structure_mode, const Object& electronic_class,
                                const Object& formula_hint, const Object& structure_archetype);

/// The characterization record of one planning step.
Object characterize_material(const ModuleState&, const Object& step, const Object& step_params,
                             Text& query_text, const Object& findings,
                             const Object& planner_manifest, const Object& previous_steps_params,
                             const Object& base_characterization, const Object& query_intent);

}  // namespace tavik::characterization
