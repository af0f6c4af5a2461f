"""The types of what material_characterization takes and returns.

This file owns the labels, the keys and the words of the intent: the C++ enumerations are generated
from it when the module is built. The label sets are closed: a record holds no other label.
typing.get_args(StructureMode) gives a set at run time. The mapping types name the keys that are
read; a mapping may have further keys, and is then typed as a plain Mapping. The text below a key
says what it holds, here and in the JSON Schemas.
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
    """The name of the step in upper case."""
    structure_mode: StructureMode
    """Whether the system is periodic, a molecule, or read from an external structure."""
    structure_archetype: StructureArchetype
    """The kind of structure that the words speak of."""
    electronic_class: ElectronicClass
    """Metal, semiconductor or insulator."""
    magnetic_class: MagneticClass
    """The magnetic order to start from."""
    correlation_class: CorrelationClass
    """Whether plain DFT will do."""
    material_family: MaterialFamily
    """The broad family."""
    species: list[str]
    """The symbols of the elements."""
    formula_hint: str
    """The one formula that names the material, or nothing."""
    requested_energy_unit: EnergyUnit
    """The unit of energies that was asked for."""
    explicit_spin_mode: SpinMode
    """The spin treatment that was asked for."""
    intent_complexity: str
    """The complexity hint of the intent, stripped and in lower case."""
    intent_correlation: str
    """The correlation of the intent, stripped and in lower case."""
    intent_magnetism: str
    """The magnetism of the intent, stripped and in lower case."""
    intent_driven: bool
    """Whether the intent named species, a formula or one of those three words."""
    evidence: list[str]
    """A message for each decision, in the order of the decisions."""
    confidence: float
    """How much was decided: 0.25 for nothing, at most 0.95."""


class ElementDefinition(TypedDict):
    """One item of an element block."""

    species: str
    """The symbol of the element."""


class AtomBlock(TypedDict, total=False):
    """Coordinate rows, or under xyz the text that stands for an external structure."""

    xyz: str | Iterable[object] | None
    """Rows of Cartesian coordinates, or text for an external structure."""
    fracxyz: Iterable[object] | None
    """Rows of fractional coordinates."""


class DomainBlock(TypedDict, total=False):
    """The simulation cell: three lattice vectors."""

    latvec: Iterable[object] | None
    """The three vectors."""


class KnownStepParameters(TypedDict, total=False):
    """The parameters of a step that are read; others may stand beside them."""

    element: list[ElementDefinition] | Mapping[str, object]
    """The elements: items with "species", or an object keyed by symbol or by any name."""
    atom: AtomBlock
    """The coordinates."""
    domain: DomainBlock
    """The simulation cell."""


# A planner's own parameters stand beside those that are read.
StepParameters = KnownStepParameters | Mapping[str, object]


class PlannerManifest(TypedDict, total=False):
    """The texts of a plan that are read: its purpose and its notes, strings or lists of items."""

    purpose: object
    """What the plan is for."""
    notes: object
    """Notes about the plan."""


class IntentUnits(TypedDict, total=False):
    """The units that the user asked for, in usual spellings: "eV", "Hartree", "atomic units"."""

    energy: str | None
    """The unit of energies, for example eV, Hartree or atomic units."""


class QueryIntent(TypedDict, total=False):
    """What was extracted from the query, in the words that decide something."""

    species: list[str] | None
    """Symbols of the elements that the user names, for example Fe and O."""
    formula: str | None
    """The formula that the user names, for example Fe2O3; left out when there is none."""
    correlation: IntentCorrelation | None
    """The treatment of electronic correlation that the user asks for."""
    magnetism: IntentMagnetism | None
    """The magnetic order that the user asks for."""
    complexity_hint: IntentComplexity | None
    """That the user wants something simple."""
    units: IntentUnits | None
    """The units that the user asks for."""
    structure_description: str | None
    """The structure in the user's words, for example rocksalt or a graphene sheet."""
