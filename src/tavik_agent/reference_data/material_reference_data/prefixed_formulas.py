"""Formulas with the prefix of a phase: alpha-Fe2O3, 2H-MoS2, m-ZrO2.

Meaning: a lower-case spelling and the formula.
Criterion: the phase is in common use. The Greek letter is written as such, as a word, or in LaTeX;
the formula with plain counts or with subscripts.
Sources: T. B. Massalski, Binary Alloy Phase Diagrams, 2nd edition (ASM, 1990); J. A. Wilson and A.
D. Yoffe, Adv. Phys. 18, 193 (1969), the polytypes of the layered compounds.
Left out: prefixes in capitals without subscripts, which the formula scan passes by itself.
"""

from collections.abc import Iterator, Mapping
from typing import Final

from .frequent_formulas import FREQUENT_FORMULAS
from .subscripts import as_plain_subscripts, in_html
from .written_forms import first_of_each

_GREEK: Final = {
    "alpha": "α", "beta": "β", "gamma": "γ", "delta": "δ", "epsilon": "ε", "kappa": "κ",
    "theta": "θ",
}  # fmt: skip
_PHASES: Final = {
    "alpha": "Fe2O3 Al2O3 Ga2O3 SiO2 MoO3 Bi2O3 MnO2 Si3N4 RuCl3 In2Se3 MnTe V2O5 PbO Ta2O5 MnS "
    "GeTe Sb FeSi2 CsPbI3 CoV2O6 CuV2O7 AlF3 NaFeO2 Ag2S SnS ZnP2 As2Te3 CrPO4 LiAlO2 GaN",
    "beta": "Ga2O3 MnO2 Si3N4 SiO2 FeSi2 Ta2O5 In2S3 PbO WO3 Bi2O3 Ag2Se Li3PS4 CuI AgVO3 NiOOH "
    "Al2O3 SiC Cu2Se Zn4Sb3 ZrNCl Ag2S BaB2O4 UH3 GeS2 CsPbI3 Ag2Te",
    "gamma": "Fe2O3 Al2O3 InSe Ga2O3 LiAlO2 WO3 CuI Bi2O3 MnO2 CsPbI3 Li3PO4 FeOOH NiOOH "
    "Si3N4 GeSe",
    "delta": "Bi2O3 MnO2 CsPbI3 Al2O3 Ta2O5 NbN",
    "epsilon": "Ga2O3 Fe2O3 GaSe WO3 Fe3N",
    "kappa": "Ga2O3 Al2O3",
    "theta": "Al2O3",
}
# The faces of phases that are written without a blank; the adsorbate is often written first.
_FACES: Final = {
    "α-": "Fe2O3(0001) Al2O3(0001) Cr2O3(0001) SiO2(0001)", "γ-": "Al2O3(110) Al2O3(100)",
    "β-": "Ga2O3(100)",
}  # fmt: skip
_LETTERS: Final = {
    "m": "ZrO2 HfO2 WO3 VO2 BiVO4", "t": "ZrO2 HfO2 BiVO4 BaTiO3", "c": "ZrO2 HfO2 BN Si3N4",
    "o": "HfO2 ZrO2 HfZrO4", "h": "BN WO3 MoO3 BaTiO3 YMnO3 LuFeO3", "r": "TiO2 BN VO2 GeO2",
    "a": "TiO2 SiO2 Si C Al2O3 Si3N4", "g": "C3N4",
    "2h": "MoS2 MoSe2 MoTe2 WS2 WSe2 NbSe2 NbS2 TaS2 TaSe2", "3r": "MoS2 WS2 NbS2",
    "1t": "TaS2 TaSe2 TiSe2 TiS2 MoS2 MoTe2 VSe2 VS2 PtS2 PtSe2 HfS2 HfSe2 ZrS2 CrTe2 WS2 SnS2",
    "1t'": "MoTe2 MoS2 WTe2 WSe2 MoSe2", "td": "WTe2 MoTe2", "4h": "SiC", "6h": "SiC", "3c": "SiC",
}  # fmt: skip


def _prefixed() -> Iterator[tuple[str, str]]:
    for word, formulas in _PHASES.items():
        greek = _GREEK[word]
        for formula in formulas.split():
            plain = formula.lower()
            characters, latex = as_plain_subscripts(plain) or (plain, plain)
            for prefix in (word, greek):
                yield f"{prefix}-{plain}", formula
                yield f"{prefix}-{characters}", formula
            yield f"{greek}-{in_html(plain)}", formula
            # Characters hide the formula, so it would be lost before a mark.
            if formula in FREQUENT_FORMULAS and characters != plain:
                yield f"{greek}-{characters},", formula
                yield f"{greek}-{characters}:", formula
            for prefix in (greek, f"$\\{word}$"):
                yield f"{prefix}-{latex}", formula
    for prefix, faces in _FACES.items():
        for face in faces.split():
            yield prefix + face.lower(), face.partition("(")[0]
    for letter, formulas in _LETTERS.items():
        for formula in formulas.split():
            plain = formula.lower()
            for written in (plain, *as_plain_subscripts(plain), in_html(plain)):
                yield f"{letter}-{written}", formula


PREFIXED_FORMULAS: Final[Mapping[str, str]] = first_of_each(_prefixed())
