"""What kind of material and system a planning step is to simulate.

characterize_material reads a step's parameters, the user's free text, the findings so far and the
intent that a language model extracted, and returns one record of labels from which a planner picks
calculation settings. classify_system_class is its coarse electronic classifier on its own.

The chemistry tables come from tavik_agent.material_reference_data and tavik_agent.method_acronyms.
They and the classifiers are looked up in this module's namespace at each use, so a name that is
rebound here, by a test for example, takes effect at the next use.
"""

import re
from collections.abc import Iterable, Mapping, Sequence
from typing import Any, overload

from tavik_agent.characterization_types import (
    CharacterizationRecord,
    CorrelationClass,
    ElectronicClass,
    MagneticClass,
    MaterialFamily,
    QueryIntent,
    StepParameters,
    StructureArchetype,
    StructureMode,
)
from tavik_agent.material_reference_data import (
    COMPLEX_MAGNETIC_SPECIES as COMPLEX_MAGNETIC_SPECIES,
    DFTU_SENSITIVE_FORMULAS as DFTU_SENSITIVE_FORMULAS,
    ELEMENT_NAME_ALIASES as ELEMENT_NAME_ALIASES,
    FORMULA_ALIASES as FORMULA_ALIASES,
    INSULATOR_FORMULAS as INSULATOR_FORMULAS,
    KNOWN_ELEMENT_SYMBOLS as KNOWN_ELEMENT_SYMBOLS,
    NONMAGNETIC_METAL_SPECIES as NONMAGNETIC_METAL_SPECIES,
    SEMICONDUCTOR_FORMULAS as SEMICONDUCTOR_FORMULAS,
    collinear_magmom_seed_species as collinear_magmom_seed_species,
    is_transition_metal_oxide as is_transition_metal_oxide,
    phase1_simple_ferromagnet_species as phase1_simple_ferromagnet_species,
)
from tavik_agent.method_acronyms import METHOD_ACRONYMS as METHOD_ACRONYMS

# For information: how formulas are read. Rebinding the two patterns changes nothing.
_FORMULA_TOKEN_RE: re.Pattern[str]
_FORMULA_PART_RE: re.Pattern[str]
_NON_FORMULA_TOKENS: set[str]

# The build appends every label and word of the intent to the first docstring.
@overload
def characterize_material(
    *,
    step: str,
    step_params: StepParameters | Mapping[str, object] | None = None,
    query_text: str = "",
    findings: Iterable[object] | None = None,
    planner_manifest: Mapping[str, object] | None = None,
    previous_steps_params: Mapping[str, object] | None = None,
    base_characterization: CharacterizationRecord | None = None,
    query_intent: QueryIntent | Mapping[str, object] | None = None,
) -> CharacterizationRecord:
    """Characterize the material and system that one planning step is about.

    Arguments, all by keyword; any of them but step may be left out or empty:
      step                   name of the planning step, for example "relax"
      step_params            mapping of the step's parameters; read are
                               "element": [{"species": "Fe"}, ...] or {"Fe": ..., "O": ...}
                               "atom":    {"xyz": rows, or text for an external structure,
                                           "fracxyz": rows}
                               "domain":  {"latvec": three vectors}
      query_text             the user's request in free text
      findings               iterable of findings so far, strings or other values
      planner_manifest       mapping with the free-text entries "purpose" and "notes"
      previous_steps_params  mapping from step name to that step's parameters, in plan order
      base_characterization  an earlier record, into a copy of which the new one is merged
      query_intent           mapping extracted from the query; read are
                               "species":   symbols, for example ["Fe", "O"]
                               "formula":   text; its presence, even empty, rules out guessing
                               "correlation", "magnetism", "complexity_hint": words, see below
                               "units":     {"energy": "eV" or "Hartree", in usual spellings}
                               "structure_description": text
                             Other words are allowed and decide nothing by themselves.

    Returns a new dict with these keys in this order (merged: the base's keys first):
      step                   in upper case
      structure_mode, structure_archetype, electronic_class, magnetic_class, correlation_class,
      material_family        labels, see below
      species                list of element symbols
      formula_hint           a formula, or ""
      requested_energy_unit, explicit_spin_mode
                             see below, or "" when neither was asked for
      intent_complexity, intent_correlation, intent_magnetism
                             the intent's words, stripped and in lower case, or ""
      intent_driven          True when the intent named species, formula or one of those three
      evidence               list of messages, in the order of the decisions
      confidence             0.25 when nothing was decided, at most 0.95

    No argument is modified. Errors that a value raises while it is read reach the caller
    unchanged: an AttributeError for a non-empty mapping argument without "get", a TypeError for
    findings that cannot be iterated, a ValueError for a base confidence that is not a number.
    """

@overload
def characterize_material(
    *,
    step: str,
    step_params: StepParameters | Mapping[str, object] | None = None,
    query_text: str = "",
    findings: Iterable[object] | None = None,
    planner_manifest: Mapping[str, object] | None = None,
    previous_steps_params: Mapping[str, object] | None = None,
    base_characterization: Mapping[str, object],
    query_intent: QueryIntent | Mapping[str, object] | None = None,
) -> Mapping[str, Any]: ...
def classify_system_class(
    species: Iterable[object],
    *,
    formula_hint: str = "",
    explicit_text: str | None = "",
    structure_archetype: str = "",
) -> ElectronicClass:
    """Classify a material as "metal", "semiconductor", "insulator" or "unknown".

      species              iterable of element symbols; blanks around them do not matter
      formula_hint         a formula, looked up exactly as given in the reference tables
      explicit_text        free text; the whole words "metal" and "metallic" in it count
      structure_archetype  a label of the record's structure_archetype

    A two-dimensional archetype decides first, then the formula, then the text, then a single
    species. Errors that a value or a reference function raises reach the caller unchanged; a
    species argument that cannot be iterated is a TypeError.
    """

def _combined_text(*parts: object) -> str:
    """Join loose text fragments with single blanks.

    A string gives its stripped text, a list the stripped text form of each item, a mapping its text
    form; blank fragments and all other values give nothing.
    """

def _species_from_element_block(element_block: object) -> list[str]:
    """List the species that an element-definition block declares, each once, capitalised.

    A block is a list of mappings with "species", or a mapping keyed by element or by any name whose
    values are such mappings. Everything else declares nothing.
    """

def _formula_parts(token: object) -> list[tuple[str, int]]:
    """Split a formula into a list of (symbol, count) pairs; an empty list when it is no formula.

    Every symbol must be a known element. A count is a non-negative integer, 1 when none is written.
    """

def _species_from_text(text: object) -> list[str]:
    """List the species in prose: by compound names, element names, then written formulas."""

def _formula_hint(text: object, species: Iterable[object]) -> str:
    """Return the one formula that names the material, or "".

    A compound name in the text wins, then the first formula written in it, then a formula that the
    species leave no doubt about: one element alone, or one element with oxygen.
    """

def _structure_mode(step_params: Mapping[str, object], combined_text: str) -> StructureMode:
    """Classify the atomic system as "external_structure", "periodic_bulk", "molecule_or_cluster" or
    "unknown", from the atom and domain blocks or else from the words of the text.
    """

def _structure_archetype(
    *,
    structure_mode: str,
    combined_text: str,
    query_text: object = "",
    query_intent: QueryIntent | Mapping[str, object] | None = None,
) -> StructureArchetype:
    """Name the kind of structure that the user's words speak of.

    The query and the intent's structure description are read; combined_text only when both are
    blank. The labels are those of the record's structure_archetype.
    """

def _electronic_class(
    species: Iterable[object],
    formula_hint: str,
    explicit_text: str | None,
    structure_archetype: str = "",
) -> ElectronicClass:
    """Return what classify_system_class says of the same values."""

def _correlation_class(
    species: Sequence[str],
    formula_hint: str,
    combined_text: str,
    *,
    intent_correlation: str = "",
    intent_complexity: str = "",
) -> CorrelationClass:
    """Classify as "dftu_sensitive", "plain_dft" or "unknown": by intent, wording, then tables."""

def _magnetic_class(
    species: Sequence[str],
    formula_hint: str,
    combined_text: str,
    correlation_class: str,
    *,
    intent_magnetism: str = "",
    intent_complexity: str = "",
) -> MagneticClass:
    """Classify the magnetic character: by intent, then wording, then species and formula; see
    characterize_material for the labels.
    """

def _material_family(
    species: Sequence[str],
    structure_mode: str,
    electronic_class: str,
    formula_hint: str,
    structure_archetype: str = "",
) -> MaterialFamily:
    """Sort the material into a broad family, from the labels reached before."""
