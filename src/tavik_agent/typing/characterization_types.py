"""The types of what material_characterization takes and returns.

This file owns the labels, the keys and the words of the intent: the C++ enumerations are generated
from it when the module is built. The label sets are closed: a record holds no other label.
typing.get_args(StructureMode) gives a set at run time. The mapping types name the keys that are
read; a mapping may have further keys, and is then typed as a plain Mapping.
"""

from collections.abc import Iterable, Mapping
from typing import Literal, TypedDict

StructureMode = Literal["external_structure", "periodic_bulk", "molecule_or_cluster", "unknown"]

StructureArchetype = Literal[
    "stm_sample_tip",
    "layered_parent_exfoliation",
    "zincblende",
    "graphene_2d",
    "hbn_2d",
    "tmd_2d",
    "phosphorene_2d",
    "mxene_2d",
    "two_dimensional",
    "surface_slab",
    "unknown",
]

ElectronicClass = Literal["metal", "semiconductor", "insulator", "unknown"]

MagneticClass = Literal[
    "nonmagnetic",
    "simple_ferromagnet",
    "collinear_magnetic",
    "template_antiferromagnet",
    "noncollinear_template",
    "complex_magnetic",
    "unknown",
]

CorrelationClass = Literal["dftu_sensitive", "plain_dft", "unknown"]

MaterialFamily = Literal[
    "two_dimensional",
    "molecule",
    "semiconductor",
    "oxide",
    "elemental_metal",
    "alloy",
    "other",
]

EnergyUnit = Literal["eV", "Hartree", ""]

SpinMode = Literal["collinear", "non-collinear", ""]

IntentCorrelation = Literal["dft+u", "hybrid", "plain_dft"]

IntentMagnetism = Literal[
    "non-collinear", "antiferromagnetic", "ferrimagnetic", "ferromagnetic", "nonmagnetic"
]

IntentComplexity = Literal["simple", "tutorial", "minimal", "basic"]


class CharacterizationRecord(TypedDict):
    """What a call without an earlier record returns; the keys come in this order."""

    step: str
    structure_mode: StructureMode
    structure_archetype: StructureArchetype
    electronic_class: ElectronicClass
    magnetic_class: MagneticClass
    correlation_class: CorrelationClass
    material_family: MaterialFamily
    species: list[str]
    formula_hint: str
    requested_energy_unit: EnergyUnit
    explicit_spin_mode: SpinMode
    intent_complexity: str
    intent_correlation: str
    intent_magnetism: str
    intent_driven: bool
    evidence: list[str]
    confidence: float


class ElementDefinition(TypedDict):
    """One item of an element block."""

    species: str


class AtomBlock(TypedDict, total=False):
    """Coordinate rows, or under xyz the text that stands for an external structure."""

    xyz: str | Iterable[object] | None
    fracxyz: Iterable[object] | None


class DomainBlock(TypedDict, total=False):
    """The simulation cell: three lattice vectors."""

    latvec: Iterable[object] | None


class StepParameters(TypedDict, total=False):
    """The parameters of a step that are read; an element block may be keyed by element."""

    element: list[ElementDefinition] | Mapping[str, object]
    atom: AtomBlock
    domain: DomainBlock


class PlannerManifest(TypedDict, total=False):
    """The texts of a plan that are read: its purpose and its notes, strings or lists of items."""

    purpose: object
    notes: object


class IntentUnits(TypedDict, total=False):
    """The units that the user asked for, in usual spellings: "eV", "Hartree", "atomic units"."""

    energy: str | None


class QueryIntent(TypedDict, total=False):
    """What was extracted from the query, in the words that decide something."""

    species: list[str] | None
    formula: str | None
    correlation: IntentCorrelation | None
    magnetism: IntentMagnetism | None
    complexity_hint: IntentComplexity | None
    units: IntentUnits | None
    structure_description: str | None
