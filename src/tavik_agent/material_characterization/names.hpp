// The names that the module shares with its host: those of its own namespace, the keys of the
// record that it returns and the keys that it reads from its arguments.
#pragma once

#include "host/vocabulary.hpp"

namespace tavik::characterization {

// clang-format off

/// Taken from the companion module material_reference_data when the module is loaded.
#define TAVIK_REFERENCE_NAMES(SAME, AS)       \
  SAME(KNOWN_ELEMENT_SYMBOLS)                 \
  SAME(FORMULA_ALIASES)                       \
  SAME(ELEMENT_NAME_ALIASES)                  \
  SAME(SEMICONDUCTOR_FORMULAS)                \
  SAME(INSULATOR_FORMULAS)                    \
  SAME(DFTU_SENSITIVE_FORMULAS)               \
  SAME(NONMAGNETIC_METAL_SPECIES)             \
  SAME(COMPLEX_MAGNETIC_SPECIES)              \
  SAME(phase1_simple_ferromagnet_species)     \
  SAME(collinear_magmom_seed_species)         \
  SAME(is_transition_metal_oxide)

/// What the rules look up in the module's namespace each time they use it.
#define TAVIK_GLOBALS(SAME, AS)               \
  TAVIK_REFERENCE_NAMES(SAME, AS)             \
  AS(non_formula_tokens, "_NON_FORMULA_TOKENS") \
  SAME(_combined_text)                        \
  SAME(_species_from_element_block)           \
  SAME(_formula_parts)                        \
  SAME(_species_from_text)                    \
  SAME(_formula_hint)                         \
  SAME(_structure_mode)                       \
  SAME(_structure_archetype)                  \
  SAME(classify_system_class)                 \
  SAME(_electronic_class)                     \
  SAME(_correlation_class)                    \
  SAME(_magnetic_class)                       \
  SAME(_material_family)

/// The keys of a record, in the order in which it holds them; each is also the name of the working
/// value that it stores.
#define TAVIK_RECORD_KEYS(SAME, AS)           \
  SAME(step)                                  \
  SAME(structure_mode)                        \
  SAME(structure_archetype)                   \
  SAME(electronic_class)                      \
  SAME(magnetic_class)                        \
  SAME(correlation_class)                     \
  SAME(material_family)                       \
  SAME(species)                               \
  SAME(formula_hint)                          \
  SAME(requested_energy_unit)                 \
  SAME(explicit_spin_mode)                    \
  SAME(intent_complexity)                     \
  SAME(intent_correlation)                    \
  SAME(intent_magnetism)                      \
  SAME(intent_driven)                         \
  SAME(evidence)                              \
  SAME(confidence)

/// The keys read from step parameters, the planner's manifest and the query intent.
#define TAVIK_INPUT_KEYS(SAME, AS)            \
  SAME(element) SAME(species)                 \
  SAME(atom) SAME(xyz) SAME(fracxyz)          \
  SAME(domain) SAME(latvec)                   \
  SAME(purpose) SAME(notes)                   \
  SAME(formula) SAME(structure_description)   \
  SAME(correlation) SAME(magnetism) SAME(complexity_hint) \
  SAME(units) SAME(energy)

// clang-format on

TAVIK_VOCABULARY(ReferenceName, TAVIK_REFERENCE_NAMES)
TAVIK_VOCABULARY(Global, TAVIK_GLOBALS)
TAVIK_VOCABULARY(RecordKey, TAVIK_RECORD_KEYS)
TAVIK_VOCABULARY(InputKey, TAVIK_INPUT_KEYS)

}  // namespace tavik::characterization
