"""The compound names, assembled in the order in which they are tried.

The rows stand in the files named below, each with its criterion and sources; this file decides
their order and in which forms each kind is made (see written_forms.py and subscripts.py).
"""

from collections.abc import Mapping
from typing import Final

from .bracketed_formulas import BRACKETED_FORMULAS, FORMULAS_IN_CONTEXT
from .chalcogenide_names import CHALCOGENIDE_NAMES
from .common_formulas import COMMON_FORMULAS
from .defective_oxides import DEFECTIVE_OXIDES
from .family_formulas import FAMILY_FORMULAS
from .frequent_formulas import FREQUENT_FORMULAS
from .mineral_names import MINERAL_NAMES
from .mixed_crystals import MIXED_CRYSTALS, OPEN_FORMULAS
from .molecule_names import MOLECULE_FORMULAS, MOLECULE_NAMES
from .open_names import ALLOY_NAMES, OPEN_NAMES
from .oxide_names import OXIDE_NAMES
from .phase_names import PHASE_NAMES
from .pnictide_halide_names import PNICTIDE_HALIDE_NAMES
from .prefixed_formulas import PREFIXED_FORMULAS
from .prototype_names import PROTOTYPE_NAMES
from .subscripts import as_formula, as_rare_formula, as_subscripts
from .surface_names import ON_OXIDES, SUBSTRATE_NAMES, SURFACE_NAMES, UNDER_GRAPHENE
from .systematic_names import SALTS, SYSTEMATIC_NAMES
from .written_forms import (
    alone,
    as_name,
    as_open_formula,
    as_quoted_name,
    as_rare_name,
    as_salt,
    before_comma,
    in_forms,
    in_phrases,
    in_sentences,
    on_oxides,
    on_surfaces,
)
from .written_formulas import SUBSTRATE_FORMULAS, WRITTEN_FORMULAS

_RANKED_BELOW: Final = {**OPEN_NAMES, **PROTOTYPE_NAMES, **SUBSTRATE_NAMES, **MOLECULE_NAMES}

_COUNTED_NAMES: Final = {n: f for n, f in SYSTEMATIC_NAMES.items() if n not in _RANKED_BELOW}
_KNOWN: Final = frozenset((*WRITTEN_FORMULAS.values(), *SUBSTRATE_FORMULAS.values()))

# Each group with the forms that it is made in. Of rows with the same phrase the first stands.
GROUPS: Final = (
    # Names, those of the rule below those of the lists.
    (PHASE_NAMES, as_name),
    (CHALCOGENIDE_NAMES, as_quoted_name),
    (PNICTIDE_HALIDE_NAMES, as_quoted_name),
    (OXIDE_NAMES, as_quoted_name),
    (SALTS, as_salt),
    ({f"{n}-based": f for n, f in SALTS.items() if f in FREQUENT_FORMULAS}, alone),
    ({n: f for n, f in _COUNTED_NAMES.items() if f in _KNOWN}, in_phrases),
    ({n: f for n, f in _COUNTED_NAMES.items() if f not in _KNOWN}, alone),
    (MINERAL_NAMES, as_rare_name),
    # Formulas as people type them.
    (BRACKETED_FORMULAS, in_sentences),
    (DEFECTIVE_OXIDES, alone),
    (MIXED_CRYSTALS, alone),
    (OPEN_FORMULAS, as_open_formula),
    (PREFIXED_FORMULAS, alone),
    (FORMULAS_IN_CONTEXT, in_phrases),
    (WRITTEN_FORMULAS, as_formula),
    (COMMON_FORMULAS, as_rare_formula),
    (SUBSTRATE_FORMULAS, as_formula),
    # Names that a written formula may specify or outrank.
    (FAMILY_FORMULAS, alone),
    (OPEN_NAMES, in_sentences),
    (ALLOY_NAMES, before_comma),
    (PROTOTYPE_NAMES, as_rare_name),
    # Supports, faces, hosts; then what is adsorbed on them.
    (SUBSTRATE_NAMES, as_name),
    (UNDER_GRAPHENE, alone),
    (ON_OXIDES, on_oxides),
    (SURFACE_NAMES, on_surfaces),
    (MOLECULE_NAMES, as_rare_name),
    (MOLECULE_FORMULAS, as_subscripts),
)

# Meaning: a lower-case phrase that names a compound, and its formula.
# Criterion: the phrase names one compound wherever it stands. No structure types, no everyday
# words, no names of families.
# Order: the first row whose phrase a request holds gives its formula, wherever the phrase stands,
# and before any formula written in capitals; every row that matches adds its elements. So the
# specific stands above the general, compounds of many elements above those of few, hosts above
# substrates, solids above the molecules on them.
# Sources: see the files.
FORMULA_ALIASES: Final[Mapping[str, str]] = in_forms(*GROUPS)
