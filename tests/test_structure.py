"""The structure mode and the structure archetype."""

import collections
import re
import types

import decisions
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
    for text, mode in (("xSLABy", "periodic_bulk"), ("a molecule", "unknown")):
        assert mc._structure_mode({"atom": atom, "domain": CELL}, text) == mode


def archetype(query="", *, mode="unknown", combined="", intent=None):
    texts = {"combined_text": combined, "query_text": query}
    return mc._structure_archetype(structure_mode=mode, query_intent=intent, **texts)


IN_VACUUM = next(row for _, row, _ in decisions.rows("structure_archetype") if "bulk cue" in row)
BULK_CUES = re.search(r"^Bulk cues: (.*?)\. ", decisions.TEXT, re.MULTILINE | re.DOTALL)[1]


@pytest.mark.parametrize("word", decisions.in_code(IN_VACUUM)[1:-1])
def test_slab_in_vacuum(word):
    query = f"vacuum, {word.upper()}"
    assert archetype(query, mode="periodic_bulk") == "surface_slab"
    assert archetype(query, mode="molecule_or_cluster") == "unknown"
    assert archetype(word.replace("vacuum", ""), mode="periodic_bulk") == "unknown"
    for cue in decisions.in_code(BULK_CUES.replace("\n", " ")):
        label = "zincblende" if cue == "zincblende" else "unknown"
        assert archetype(f"{cue}x {query}", mode="periodic_bulk") == label


DECIDING_TEXTS = [
    ("vacuum film of bulk, bulk ", "", "", "surface_slab"),  # the query is stripped
    ("vacuum film bulk", " x", "", "unknown"),
    ("vacuum film bulk\n", "x", "", "surface_slab"),
    ("", "", "vacuum film bulk ", "unknown"),  # the joined text is not stripped
    *((query, intent, "graphene", "unknown") for query, intent in (("cell", ""), ("", "cell"))),
    (" \n", " \t", "Monolayer Graphene", "graphene_2d"),
    (0, None, "graphene", "graphene_2d"),
    ("sample", "tip", "", "stm_sample_tip"),
    ("boron", " nitride", "", "hbn_2d"),  # joined by one blank
    ("boron ", "nitride", "", "unknown"),
    (["MXene"], 0, "", "mxene_2d"),
    (None, ["MXene"], "", "mxene_2d"),
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
