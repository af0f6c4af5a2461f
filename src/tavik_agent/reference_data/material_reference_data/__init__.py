"""Chemistry tables of the material characterization.

Elements, compound names, band gaps, Hubbard corrections and magnetism, as plain Python data.
Everything is read-only: sets are frozensets, mappings are mapping proxies whose order is part of
their meaning, and the three functions return the same immutable data at every call.

To add an entry:
- a compound name goes into the names file of its chemistry, above every shorter phrase that is a
  part of it; a counted name or a salt of two metals into the rule of systematic_names.py; a formula
  into written_formulas.py or a class of common_formulas.py; a mixed crystal into mixed_crystals.py.
  The file compound_names.py shows the order of the files and the forms that each is made in;
  written_forms.py and subscripts.py make the forms.
- a formula with a measured gap goes into band_gaps.py, in every spelling that people write, and
  into one of its two tables only.
- a formula that is calculated with +U goes into correlation.py, unless it is a metal.
- read the head of the table first: it states what puts an entry in and what keeps it out. An entry
  that departs from that carries its reason beside it.
- words that must not be read as formulas belong to tavik_agent.method_acronyms.
"""

from .band_gaps import INSULATOR_FORMULAS, SEMICONDUCTOR_FORMULAS
from .compound_names import FORMULA_ALIASES
from .correlation import DFTU_SENSITIVE_FORMULAS, is_transition_metal_oxide
from .element_contexts import ELEMENT_NAME_ALIASES
from .elements import KNOWN_ELEMENT_SYMBOLS
from .magnetism import (
    COMPLEX_MAGNETIC_SPECIES,
    NONMAGNETIC_METAL_SPECIES,
    collinear_magmom_seed_species,
    phase1_simple_ferromagnet_species,
)

__all__ = [
    "COMPLEX_MAGNETIC_SPECIES",
    "DFTU_SENSITIVE_FORMULAS",
    "ELEMENT_NAME_ALIASES",
    "FORMULA_ALIASES",
    "INSULATOR_FORMULAS",
    "KNOWN_ELEMENT_SYMBOLS",
    "NONMAGNETIC_METAL_SPECIES",
    "SEMICONDUCTOR_FORMULAS",
    "collinear_magmom_seed_species",
    "is_transition_metal_oxide",
    "phase1_simple_ferromagnet_species",
]
