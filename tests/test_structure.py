"""The structure mode and the structure archetype."""

import collections
import types

import pytest

from tavik_agent import material_characterization as mc

CELL = {"latvec": [[1, 0, 0], [0, 1, 0], [0, 0, 1]]}


@pytest.mark.parametrize(
    ("atom", "domain", "mode"),
    [
        ({"xyz": "POSCAR"}, CELL, "external_structure"),
        ({"xyz": " \u2003"}, None, "molecule_or_cluster"),  # no name, yet not null
        ({"xyz": " "}, CELL, "periodic_bulk"),
        ({"xyz": None, "fracxyz": "POSCAR"}, CELL, "periodic_bulk"),
        ({"fracxyz": []}, None, "molecule_or_cluster"),
        ({"xyz": [1]}, {"latvec": None}, "molecule_or_cluster"),
        ({"xyz": False}, {"latvec": 0}, "periodic_bulk"),
        ({"xyz": [1]}, [("latvec", 1)], "molecule_or_cluster"),
        (collections.ChainMap({}, {"xyz": [1]}), types.MappingProxyType(CELL), "periodic_bulk"),
    ],
)
def test_mode_from_parameters(atom, domain, mode):
    # Once there are coordinates the text is not read; None could not even be lowered.
    assert mc._structure_mode({"atom": atom, "domain": domain}, None) == mode


PERIODIC = "xBULKy|crystalline|FCC|bcc|a hcp|supercell|slab|subSurface|bul\u212a|\ud800\0slab"


@pytest.mark.parametrize("atom", [None, {}, "xyz", ["xyz"], 0, {"xyz": None, "fracxyz": None}])
def test_mode_from_text(atom):
    for text in PERIODIC.split("|"):
        assert mc._structure_mode({"atom": atom, "domain": CELL}, text) == "periodic_bulk", text
    for text in ("", "water molecule", "hc p, f cc, bul, urface"):
        assert mc._structure_mode({"atom": atom, "domain": CELL}, text) == "unknown", text


def archetype(query="", *, mode="unknown", combined="", intent=None):
    return mc._structure_archetype(
        structure_mode=mode, combined_text=combined, query_text=query, query_intent=intent
    )


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


@pytest.mark.parametrize(
    ("label", "queries"),
    [
        # marks, joiners and surrogates are no word characters; a later occurrence counts too
        (
            "stm_sample_tip",
            "the SAMPLE under a tip|tip-sample|tip\ud800sample\0|tip\u0301 sample\u200d",
        ),
        ("stm_sample_tip", "samples at the tip of the sample"),
        (
            "unknown",
            "samples tips|subsample tip|sample_tip|sampleé tip|sample ²tip|sample \u0663tip",
        ),
        ("unknown", "sample T\u0130P|zinc blende|adsorption|vacuum"),
    ],
)
def test_archetype_of_any_text_that_is_read(label, queries):
    for query in queries.split("|"):
        assert archetype(query) == label, query
        assert archetype(intent={"structure_description": query}) == label, query
        assert archetype(combined=query) == label, query


SLAB_CONTEXT = "vacuum padding|vacuum spacing|vacuum gap|vacuum layer|vacuum region|add vacuum"
SLAB_CONTEXT += "|film|adsorb|interface|termination"
BULK_CUES = "bcc|fcc|hcp|rocksalt|rock salt|zinc blende|wurtzite|diamond cubic|bulk |primitive cell"
BULK_CUES += "|conventional cell"


@pytest.mark.parametrize("word", SLAB_CONTEXT.split("|"))
def test_slab_in_vacuum(word):
    query = f"vacuum, {word.upper()}"
    assert archetype(query, mode="periodic_bulk") == "surface_slab"
    assert archetype(query, mode="molecule_or_cluster") == "unknown"
    assert archetype(word.replace("vacuum", ""), mode="periodic_bulk") == "unknown"
    for cue in BULK_CUES.split("|"):
        assert archetype(f"{cue}x {query}", mode="periodic_bulk") == "unknown"


@pytest.mark.parametrize(
    ("query", "description", "combined", "label"),
    [
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
        ("", "", " ", "unknown"),
        ("query", "", None, "unknown"),  # not lowered when it is not read
    ],
)
def test_text_that_decides_the_archetype(query, description, combined, label):
    intent = types.MappingProxyType({"structure_description": description})
    assert archetype(query, mode="periodic_bulk", intent=intent, combined=combined) == label


def test_description_counts_by_its_letters():
    class Described(str):
        def __str__(self):
            return self

        def __bool__(self):
            return self != "graphene"

        strip = __str__

        def lower(self):
            return Described("graphene")

    assert archetype(intent={"structure_description": Described("x")}) == "graphene_2d"


def test_odd_values():
    assert archetype(intent=[], combined="graphene") == "graphene_2d"
    for intent, combined in ((3, "graphene"), ({}, None), ([1], "graphene")):
        with pytest.raises(AttributeError):
            archetype(intent=intent, combined=combined)
    for step_params, text in (({}, None), (None, ""), ([], "")):
        with pytest.raises(AttributeError):
            mc._structure_mode(step_params, text)
