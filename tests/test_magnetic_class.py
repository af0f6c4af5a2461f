"""The magnetic class, and how often it asks the reference functions."""

import pytest

from tavik_agent import material_characterization as mc

U = "dftu_sensitive"
CELL = "collinear primitive cell"


@pytest.mark.parametrize(
    ("species", "magnetism", "label"),
    [
        ("Fe", "non-collinear", "noncollinear_template"),
        ("Fe", "antiferromagnetic", "template_antiferromagnet"),
        ("Fe", "ferrimagnetic", "template_antiferromagnet"),
        ("Cu Fe", "ferromagnetic", "simple_ferromagnet"),
        ("Cu Ni", "ferromagnetic", "collinear_magnetic"),
        ("", "ferromagnetic", "collinear_magnetic"),
        ("Fe", "nonmagnetic", "nonmagnetic"),
    ],
)
def test_intent_decides(species, magnetism, label):
    # The text is not read: None could not be lowered.
    found = mc._magnetic_class(species.split(), "NiO", None, U, intent_magnetism=magnetism)
    assert found == label


# Texts of which each gives the label.
@pytest.mark.parametrize(
    ("species", "formula", "texts", "correlation", "label"),
    [
        # a collinear small cell outranks all other wording
        ("", "NiO", CELL + ", AFM, spin-orbit, alpha-Mn", U, "collinear_magnetic"),
        ("Fe O", "", CELL, U, "collinear_magnetic"),
        (
            "",
            "NiO",
            "Collinear PRIMITIVE|2-atom collinear|two atom collinear",
            U,
            "collinear_magnetic",
        ),
        ("", "NiO", "non-collinear two-atom", U, "collinear_magnetic"),
        ("", "NiO", "collinear two\u00a0atoms|primitive two-atom", U, "template_antiferromagnet"),
        ("Cu", "nio", CELL, U, "nonmagnetic"),
        ("Cu", "NiO", CELL, "plain_dft", "nonmagnetic"),
        # wording, in order
        ("Mn", "NiO", "alpha-mn afm Non-Collinear|afm noncollinear", U, "noncollinear_template"),
        ("Mn", "NiO", "xspin-orbit|SPIN ORBITx|associated", U, "noncollinear_template"),
        ("Mn", "NiO", "alpha-mn antiferroM|ferrimag|AFM|ferrite", U, "template_antiferromagnet"),
        ("Cu", "NiO", "Alpha-Mn|alpha mn|alpha manganese", U, "complex_magnetic"),
        ("", "", "antiferro|spin  orbit|alpha  mn|collinear", "", "unknown"),
        # one complex species
        ("Mn", "NiO", "", U, "complex_magnetic"),
        ("Mn Mn", "NaCl", "", "", "nonmagnetic"),
        # correlated oxides
        ("", "NiO", "", U, "template_antiferromagnet"),
        ("Fe O Cu", "NaCl", "", U, "unknown"),
        ("Fe O Cu", "NaCl", "", "plain_dft", "nonmagnetic"),
        # ferromagnets, all or some, moment seeds, nonmagnetic metals, known formulas
        ("Fe Co Fe", "", "", "plain_dft", "simple_ferromagnet"),
        ("Cu Ni Co", "", "", U, "simple_ferromagnet"),
        ("Cu Ni", "", "", U, "collinear_magnetic"),
        ("Ni O", "NaCl", "", "", "nonmagnetic"),
        ("S Zn", "", "", "", "nonmagnetic"),
        *(("", formula, "", "", "nonmagnetic") for formula in ("ZnO", "CoO")),
        *((species, "NiO", "", "", "unknown") for species in ("Fe O", "S", "")),
    ],
)
def test_without_intent(species, formula, texts, correlation, label):
    # Values that are no intent of this classifier change nothing.
    unheard = {"intent_magnetism": "noncollinear", "intent_complexity": "Basic"}
    for text in texts.split("|"):
        inputs = (species.split(), formula, text, correlation)
        assert mc._magnetic_class(*inputs) == label, text
        assert mc._magnetic_class(*inputs, **unheard) == label, text


@pytest.mark.parametrize("complexity", ["simple", "tutorial", "minimal", "basic"])
def test_simple_request_passes_over_the_correlated_oxides(complexity):
    for species, text, label in [
        (["Ni"], "", "collinear_magnetic"),
        (["Ni", "O"], "", "unknown"),
        (["Fe"], "", "simple_ferromagnet"),
        (["Cu"], CELL, "collinear_magnetic"),
        (["Cu"], "afm", "template_antiferromagnet"),
    ]:
        found = mc._magnetic_class(species, "NiO", text, U, intent_complexity=complexity)
        assert found == label


# Which function is asked, in order: F for ferromagnets, S for moment seeds, O for oxide.
@pytest.mark.parametrize(
    ("species", "formula", "text", "correlation", "intent", "asked"),
    [
        ("Cu Co Fe", "", "", "", {"intent_magnetism": "ferromagnetic"}, "FF"),
        ("", "", "", "", {"intent_magnetism": "ferromagnetic"}, ""),
        ("", "", CELL, "", {}, ""),
        ("", "NiO", CELL, U, {}, ""),
        ("Fe O", "", CELL, U, {}, "O"),
        ("Fe O", "", "", U, {}, "O"),
        ("Fe", "", CELL, U, {}, "OOF"),
        ("Fe O", "", "", U, {"intent_complexity": "basic"}, "FFOSO"),
        ("Cu Co Fe", "", "", "", {}, "FFFO"),
        ("Cu Cr Ni", "", "", "", {}, "FFFFSSO"),
        ("S Cu", "", "", "", {}, "FFFSS"),
    ],
)
def test_reference_functions_are_asked_anew_each_time(
    record, species, formula, text, correlation, intent, asked
):
    symbols = species.split()
    calls = record(
        phase1_simple_ferromagnet_species=frozenset({"Fe", "Co"}),
        collinear_magmom_seed_species=frozenset({"Fe", "Ni", "Cr"}),
        is_transition_metal_oxide=["true"] if "O" in symbols else [],
    )
    mc._magnetic_class(symbols, formula, text, correlation, **intent)
    names = {"F": "phase1_simple_ferromagnet_species", "S": "collinear_magmom_seed_species"}
    expected = {letter: (name, (), {}) for letter, name in names.items()}
    expected["O"] = ("is_transition_metal_oxide", (symbols,), {})
    assert calls == [expected[letter] for letter in asked]
