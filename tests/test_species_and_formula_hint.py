"""What prose says about the species, and the one formula that names the material.

Tables are searched by an index when they were there at load, row by row when rebound later."""

import collections
import types

import pytest

from tavik_agent import material_characterization as mc

PROSE = [
    ("NiO and Fe2O3", "Ni O Fe"),
    # compound names, then element names, then formulas; the tables' order within each
    ("NiO on oxygen iron", "Fe O Ni"),
    ("Cu NiO iron gallium arsenide rutile", "Ti O Ga As Fe Cu Ni"),
    ("green salt", "Na Cl"),  # the formula of the longer phrase is none
    ("IRON nic\u212ael \u0130RON fe2o3", "Fe Ni"),  # a Kelvin sign lowers to k
    ("tin Sn", "sn Sn"),  # a symbol is taken as the table has it
    # only blanks and the ends of the stripped text delimit a phrase
    ("iron, (iron) iron. irons environ\niron\n x\tiron x\u00a0iron gallium  arsenide", ""),
    ("\u3000iron\n", "Fe"),
    ("\0 iron \ud800", "Fe"),
    ("oxygen tin", "O sn"),  # neighbours share a blank
    ("In this run, HSe GaAs", "In Ga As"),
    (["iron", "NiO"], "Ni O"),
    (" ", ""),
    (None, ""),
]


@pytest.mark.parametrize(("text", "species"), PROSE)
def test_species_from_text(with_tables, text, species):
    assert with_tables()._species_from_text(text) == species.split()


HINTS = [
    ("Xy2 HSe Fe02 and NiO", ["Cu"], "Fe02"),
    ("In GaAs, compute the gap", [], "In"),
    ("CO, gallium arsenide on rutile", [], "TiO2"),  # the table's order decides
    ("some green salt", [], "FeXy"),  # as stored, although no formula
    ("xyz", [" Si ", "Si", "", " \n"], "Si"),
    ("", ["O", "Zn"], "ZnO"),
    ("", ["Ni", "O", "Ni"], "NiO"),
    ("", "O", "O"),
    *(("", species, "") for species in (["Fe", "O", "Ni"], ["Ga", "As"], ["o", "Zn"], [])),
    ("", [None], "None"),
    (None, {"O": 1, 8: 2}.keys(), "8O"),
    (["NiO"], [], "NiO"),
    ("NiO", 5, "NiO"),  # species are read only when the text decides nothing
]


@pytest.mark.parametrize(("text", "species", "hint"), HINTS)
def test_formula_hint(with_tables, text, species, hint):
    assert with_tables()._formula_hint(text, species) == hint


REORDERED = collections.OrderedDict(a="AlN", b="BN")
REORDERED.move_to_end("a")
PHRASES = [
    *(({}, "rust", ""), ({"rust": "AlN"}, "rust", "AlN")),
    ({"Rutile": "TiO2"}, "Rutile", ""),  # phrases are not lowered
    ({3: "AlN"}, "phase 3 of", "AlN"),
    *(({"": "AlN"}, text, hint) for text, hint in (("", "AlN"), ("a b", ""), ("a  b", "AlN"))),
    *(({" iron": "AlN"}, text, hint) for text, hint in (("x iron", ""), ("x  iron", "AlN"))),
    ({"a\ud800\0é": "AlN"}, "x A\ud800\0É y", "AlN"),
    ({"red lead oxide": "PbO", "lead": "Pb"}, "red lead", "Pb"),  # one begins within another
    ({"tetrabutylammonium": "AlN"}, "tetrabutxxammonium", ""),  # alike but in the middle
    (REORDERED, "a b", "BN"),
    (collections.ChainMap({"b": "BN"}, {"a": "AlN"}), "a b", "AlN"),
    (collections.UserDict(b="BN", a="AlN"), "a b", "BN"),
]


@pytest.mark.parametrize(("phrases", "text", "hint"), PHRASES)
def test_phrases_as_tables_may_hold_them(with_tables, phrases, text, hint):
    for table in (phrases, types.MappingProxyType(phrases)):  # the second may be indexed
        assert with_tables(FORMULA_ALIASES=table)._formula_hint(text, []) == hint


def test_what_is_no_table_and_what_no_species(monkeypatch):
    with pytest.raises(TypeError, match="'int' object is not iterable"):
        mc._formula_hint("", 5)
    for name in ("FORMULA_ALIASES", "ELEMENT_NAME_ALIASES"):
        monkeypatch.setattr(mc, name, [("iron", "Fe")])
        with pytest.raises(AttributeError, match="items"):
            mc._species_from_text("iron")
        monkeypatch.setattr(mc, name, {})
