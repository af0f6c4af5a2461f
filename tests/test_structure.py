"""The structure mode and the structure archetype."""

import collections
import types

import pytest

from tavik_agent import material_characterization as mc

CELL = {"latvec": [[1, 0, 0], [0, 1, 0], [0, 0, 1]]}


MODES = [
    ({"xyz": "POSCAR"}, CELL, "external_structure"),
    ({"xyz": " \u2003"}, None, "molecule_or_cluster"),  # no name, yet not null
    ({"xyz": " "}, CELL, "periodic_bulk"),
    ({"xyz": None, "fracxyz": "POSCAR"}, CELL, "periodic_bulk"),
    ({"fracxyz": []}, None, "molecule_or_cluster"),
    ({"xyz": [1]}, {"latvec": None}, "molecule_or_cluster"),
    ({"xyz": False}, {"latvec": 0}, "periodic_bulk"),
    ({"xyz": [1]}, [("latvec", 1)], "molecule_or_cluster"),
    (collections.ChainMap({}, {"xyz": [1]}), types.MappingProxyType(CELL), "periodic_bulk"),
]


@pytest.mark.parametrize(("atom", "domain", "mode"), MODES)
def test_mode_from_parameters(atom, domain, mode):
    # Once there are coordinates the text is not read; None could not even be lowered.
    assert mc._structure_mode({"atom": atom, "domain": domain}, None) == mode


@pytest.mark.parametrize("atom", [None, {}, "xyz", ["xyz"], 0, {"xyz": None, "fracxyz": None}])
def test_mode_from_text(atom):
    for text, mode in (("xSLABy", "periodic_bulk"), ("", "unknown"), ("a molecule", "unknown")):
        assert mc._structure_mode({"atom": atom, "domain": CELL}, text) == mode, text


def archetype(query="", *, mode="unknown", combined="", intent=None):
    return mc._structure_archetype(
        structure_mode=mode, combined_text=combined, query_text=query, query_intent=intent
    )


# Each outranks those below it.
ARCHETYPE_WORDS = {
    "stm_sample_tip": "stm current|scanning tunneling microscopy|scanning tunnelling microscopy",
    "layered_parent_exfoliation": "exfoliat|layered parent|vdw parent|van der waals parent",
    "zincblende": "zincblende|zinc-blende|cubic boron nitride|c-bn|cubic bn",
    "graphene_2d": "graphene",
    "hbn_2d": "hbn|hexagonal boron nitride|boron nitride",
    "tmd_2d": "mos2|ws2|molybdenum disulfide|molybdenum disulphide|tungsten disulfide"
    "|tungsten disulphide|transition metal dichalcogenide|tmd",
    "phosphorene_2d": "black phosphorus|phosphorene|blac\u212a phosphorus",
    "mxene_2d": "mxene",
    "two_dimensional": "monolayer|2d|2-d|sheet|nanoribbon",
    "surface_slab": "surface|slab",
}


@pytest.mark.parametrize("label", ARCHETYPE_WORDS)
def test_archetype_words(label):
    labels = list(ARCHETYPE_WORDS)
    outranked = [ARCHETYPE_WORDS[other] for other in labels[labels.index(label) + 1 :]]
    for word in ARCHETYPE_WORDS[label].split("|"):
        assert archetype(f"an{word.upper()}s") == label, word
        assert archetype("; ".join([*reversed(outranked), word])) == label, word


SLAB_CONTEXT = "vacuum padding|vacuum spacing|vacuum gap|vacuum layer|vacuum region|add vacuum\
|film|adsorb|interface|termination"
BULK_CUES = "bcc|fcc|hcp|rocksalt|rock salt|zinc blende|wurtzite|diamond cubic|bulk |primitive cell\
|conventional cell"


@pytest.mark.parametrize("word", SLAB_CONTEXT.split("|"))
def test_slab_in_vacuum(word):
    query = f"vacuum, {word.upper()}"
    assert archetype(query, mode="periodic_bulk") == "surface_slab"
    assert archetype(query, mode="molecule_or_cluster") == "unknown"
    assert archetype(word.replace("vacuum", ""), mode="periodic_bulk") == "unknown"
    for cue in BULK_CUES.split("|"):
        assert archetype(f"{cue}x {query}", mode="periodic_bulk") == "unknown"


# Lowers to a text that is false but not empty.
Silent = type("Silent", (str,), {"__bool__": lambda self: False})
LOWERED = {"lower": lambda self: Silent("graphene")}
Lowered = type("Lowered", (str,), LOWERED | dict.fromkeys(["__str__", "strip"], lambda self: self))


DECIDING_TEXTS = [
    ("vacuum film of bulk, bulk ", "", "", "surface_slab"),  # the query is stripped
    ("vacuum film bulk", " x", "", "unknown"),
    ("vacuum film bulk\n", "x", "", "surface_slab"),
    ("", "", "vacuum film bulk ", "unknown"),  # the joined text is not stripped
    ("band structure", "", "graphene", "unknown"),  # the query alone is read
    ("", "a cell", "graphene", "unknown"),
    (" \n", " \t", "Monolayer Graphene", "graphene_2d"),
    (0, None, "graphene", "graphene_2d"),
    ("sample", "tip", "", "stm_sample_tip"),
    ("boron", " nitride", "", "hbn_2d"),  # joined by one blank
    ("boron ", "nitride", "", "unknown"),
    (["MXene"], 0, "", "mxene_2d"),
    (None, ["MXene"], "", "mxene_2d"),
    (None, Lowered("x"), "", "graphene_2d"),
    ("", "", " ", "unknown"),
    *((word, "", None, "unknown") for word in ("zinc blende", "adsorption", "vacuum")),
]


@pytest.mark.parametrize(("query", "description", "combined", "label"), DECIDING_TEXTS)
def test_text_that_decides_the_archetype(query, description, combined, label):
    intent = types.MappingProxyType({"structure_description": description})
    assert archetype(query, mode="periodic_bulk", intent=intent, combined=combined) == label


def test_odd_values():
    assert archetype(intent=[], combined="graphene") == "graphene_2d"
    for intent, combined in ((3, "graphene"), ({}, None), ([1], "graphene")):
        with pytest.raises(AttributeError):
            archetype(intent=intent, combined=combined)
    for step_params, text in (({}, None), (None, ""), ([], "")):
        with pytest.raises(AttributeError):
            mc._structure_mode(step_params, text)
