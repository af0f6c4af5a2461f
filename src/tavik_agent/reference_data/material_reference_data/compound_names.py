"""The compound names, assembled in the order in which they are tried.

The rows stand in the files named below, each with its criterion and sources; this file only decides
their order.
"""

from collections.abc import Mapping
from typing import Final

from .bracketed_formulas import BRACKETED_FORMULAS, FORMULAS_IN_CONTEXT
from .chalcogenide_names import CHALCOGENIDE_NAMES
from .mineral_names import MINERAL_NAMES
from .molecule_names import MOLECULE_NAMES
from .open_names import OPEN_NAMES
from .oxide_names import OXIDE_NAMES
from .phase_names import PHASE_NAMES
from .pnictide_halide_names import PNICTIDE_HALIDE_NAMES
from .prototype_names import PROTOTYPE_NAMES
from .sentence_marks import with_sentence_marks
from .surface_names import SUBSTRATE_NAMES, SURFACE_NAMES
from .written_formulas import WRITTEN_FORMULAS

# Meaning: a lower-case phrase that names a compound, and its formula.
# Criterion: the phrase names one compound wherever it stands. No structure types, no everyday
# words, no names of families.
# Order: the first row whose phrase a request holds gives its formula, wherever the phrase stands,
# and before any formula written in capitals; every row that matches adds its elements. So the
# specific stands above the general, compounds of many elements above those of few, hosts above
# substrates, solids above the molecules on them. A phrase occurs in one file only.
# Sources: see the files.
# Left out: mixed crystals with fractions beyond those in daily use; what each file names.
FORMULA_ALIASES: Final[Mapping[str, str]] = with_sentence_marks(
    {
        # Names.
        **PHASE_NAMES,
        **CHALCOGENIDE_NAMES,
        **PNICTIDE_HALIDE_NAMES,
        **OXIDE_NAMES,
        **MINERAL_NAMES,
        # Formulas as people type them.
        **BRACKETED_FORMULAS,
        **FORMULAS_IN_CONTEXT,
        **WRITTEN_FORMULAS,
        # Names that a written formula may specify or outrank.
        **OPEN_NAMES,
        **PROTOTYPE_NAMES,
        # Supports, faces, hosts; then what is adsorbed on them.
        **SUBSTRATE_NAMES,
        **SURFACE_NAMES,
        **MOLECULE_NAMES,
    }
)
