"""Families of compounds whose formula has a letter for one element: RNiO3, CsPbX3, Co2MnZ.

Meaning: a lower-case spelling and the elements that all members share, as a formula.
Criterion: the letter is explained behind it ("CsPbX3 (X = Cl, Br, I)"), where the formula scan
finds what it stands for; the formula with the letter it cannot read, so without a row the family
would consist of the elements of the list alone. What is shared must be no compound of its own and
stand in no other table, since the hint would name that compound. Where it is one (FeP of FePX3),
and where one element is shared, the elements are rows of the element names, and only with the
bracket behind the formula ("ZnX (X = S, Se)").
Sources: none needed; families that titles of papers name.
Left out: letters that are elements (Y, B); spellings of other formulas (TiNX and ZrNX are spelt
like TiNx and ZrNx); and a letter explained without blanks, as in "(X=As)", which is not found.
"""

from collections.abc import Iterator, Mapping
from typing import Final

from .written_forms import first_of_each

# The letters, and the formulas with them.
_FAMILIES: Final = {
    "R": "RNiO3 RFeO3 RMnO3 RVO3 RTiO3 RCoO3 RAlO3 RScO3 R2Ti2O7 R2Ir2O7 R2Zr2O7 R3Fe5O12 "
    "R3Al5O12 R2Fe14B RMn6Sn6 RV6Sn6 RFeAsO RMn2O5 RBa2Cu3O7",
    "Ln": "LnNiO3 LnFeO3 LnMnO3 LnCoO3 LnFeAsO Ln2Ti2O7 Ln2Zr2O7",
    "A": "AFe2As2 AMnO3 ATiO3 ANbO3 ATaO3 AZrO3 ASnO3 AVO3 ARuO3 A2IrO4 A2IrO3 APbI3 APbBr3 ASnI3 "
    "AV3Sb5 ACr2O4 AV2O4 AFe2O4 AFe2Se2",
    "M": "LiMPO4 NaMPO4 Li2MO3 LiM2O4 LaMO3 SrMO3 BaMO3 CaMO3 MFe2O4 MCr2O4 MCo2O4 MAl2O4 MPS3 "
    "MPSe3 MBi2Te4 MSi2N4 Co2MAl Co2MGe",
    "Z": "Co2MnZ Co2FeZ Co2CrZ Fe2MnZ Mn2CoZ Mn2VZ Ni2MnZ CoMnZ CoFeMnZ",
    "X": "CsPbX3 CsSnX3 CsGeX3 MAPbX3 CH3NH3PbX3 Cs2AgBiX6 Cs2SnX6 Cs3Bi2X9 Cs3Sb2X9 Cu2ZnSnX4 "
    "Ta2NiX5 Ni2MnX Co2MnX",
}  # fmt: skip
# What an abbreviation before the letter stands for.
_SPELT_OUT: Final = {"MAPb": "CH3NH3Pb"}
# Families of one shared element, by the letter.
_OF_ONE: Final = {
    "X": "CrX3 BiX3 RuX3 VX3 MoX2 WX2 TiX2 ZrX2 HfX2 PtX2 SnX2 PbX2 SnX GeX PbX CdX ZnX GaX InX "
    "AlX Mg2X Bi2X3 Sb2X3 In2X3 CuX AgX LiX NaX",
    "M": "MO MO2 M2O3 M3O4 MS2 MSe2 MTe2 MF2 MCl2 MBr2 MB2 MC MN MH2 MSi2",
}  # fmt: skip
# Families of two shared elements that are a compound, or the ions of a salt, by themselves.
_OF_TWO: Final = {
    "R": "RCrO3 RPtBi RAlGe",
    "Ln": "LnPO4",
    "A": "ACoO2 AMnO2",
    "M": "LiMO2 NaMO2 CuMO2 Co2MSi Fe2MSi Ti2MC Ti2MN M2AlC",
    "X": "BiOX LaOX BiTeX CrGeX3 CrSiX3 Cr2Ge2X6 FePX3 MnPX3 NiPX3 CuInX2 CuGaX2 AgGaX2 ZrSiX",
}


def _shared(formula: str, letter: str) -> str:
    """The formula without the letter and its count."""
    before, _, behind = formula.partition(letter)
    shared = before + behind.lstrip("0123456789")
    return _SPELT_OUT.get(shared, shared)


def _families() -> Iterator[tuple[str, str]]:
    """A formula with a letter, and what its members share: rnio3, co2mnz."""
    for letter, formulas in _FAMILIES.items():
        yield from ((f.lower(), _shared(f, letter)) for f in formulas.split())


def _of_one() -> Iterator[tuple[str, str]]:
    """The one element that a family shares, where the letter is explained: znx (x = s, se)."""
    for letter, formulas in _OF_ONE.items():
        for formula in formulas.split():
            symbol = _shared(formula, letter).rstrip("0123456789")
            yield f"{formula.lower()} ({letter.lower()}", symbol


def _of_two() -> Iterator[tuple[str, str]]:
    """The two elements that a family shares, one with the sign behind the letter, so that a text
    holds both rows: fepx3 (x, fepx3 (x =."""
    for letter, formulas in _OF_TWO.items():
        for formula in formulas.split():
            shared = _shared(formula, letter)
            second = max(n for n, character in enumerate(shared) if character.isupper())
            explained = f"{formula.lower()} ({letter.lower()}"
            yield explained, shared[:second].rstrip("0123456789")
            yield f"{explained} =", shared[second:].rstrip("0123456789")


FAMILY_FORMULAS: Final[Mapping[str, str]] = first_of_each(_families())
ELEMENTS_OF_FAMILIES: Final[Mapping[str, str]] = first_of_each([*_of_one(), *_of_two()])
