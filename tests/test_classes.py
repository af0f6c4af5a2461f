"""The four classes, the material family, and how often they ask the reference functions."""

import pytest

from tavik_agent import material_characterization as mc

# Species as words, formula hint, explicit text, archetype, label.
SYSTEM_CLASSES = [
    # two-dimensional archetypes decide whatever the rest says
    ("Cu", "ZnO", "metallic", "graphene_2d", "unknown"),
    ("Cu", "ZnO", "metallic", "hbn_2d", "insulator"),
    *(("Cu", "NaCl", "metal", d, "semiconductor") for d in ("tmd_2d", "phosphorene_2d")),
    ("", "ZnO", "", "mxene_2d", "metal"),
    # formula tables, in their order and before the text
    ("Cu", "InAs", "metal", "surface_slab", "semiconductor"),
    *(("Cu", formula, "metal", "", "insulator") for formula in ("NaCl", "NiO")),
    *(("Se", "", text, "", "metal") for text in ("half-METALLIC", ["metal"])),
    ("", "", None, "", "unknown"),
    # one distinct species among the semiconductors, one entry among the metals
    ("Se Se", "", "", "", "semiconductor"),
    *((symbol, "GaAs", "", "", "metal") for symbol in ("Cu", "Fe", "Mn", "Cr")),
    ("Cu Cu", "", "", "", "unknown"),
    # formulas that no table lists
    *(("", formula, "", "", "semiconductor") for formula in ("GaAs", "Si", "Ge")),
    *(("", formula, "", "", "unknown") for formula in ("gaas", "SI", "C", "")),
]


@pytest.mark.parametrize(("species", "formula", "text", "archetype", "label"), SYSTEM_CLASSES)
def test_system_and_electronic_class(species, formula, text, archetype, label):
    inputs = {"formula_hint": formula, "explicit_text": text, "structure_archetype": archetype}
    assert mc.classify_system_class(species.split(), **inputs) == label
    assert mc._electronic_class(species.split(), **inputs) == label


def test_system_class_takes_any_species():
    metals, others = ([" Fe\n", "", " "], ("Cu",)), (["Fe", None], "Cu")  # "None"; C and u
    assert {mc.classify_system_class(species) for species in metals} == {"metal"}
    assert {mc.classify_system_class(species) for species in others} == {"unknown"}
    assert mc.classify_system_class({"Se": 1}) == "semiconductor"
    for species, hint, message in ((5, "", "'int' object is not iterable"), ([], [], "unhashable")):
        with pytest.raises(TypeError, match=message):
            mc.classify_system_class(species, formula_hint=hint)


SIMPLE = ("simple", "tutorial", "minimal", "basic")


# None as a text shows that it is not read.
CORRELATION_CLASSES = [
    ("Cu", "NaCl", None, "dft+u", "", "dftu_sensitive"),
    ("Cu", "NaCl", None, "hybrid", "simple", "dftu_sensitive"),
    ("Fe O", "NiO", None, "plain_dft", "", "plain_dft"),
    *(("Fe O", "NiO", None, "", complexity, "plain_dft") for complexity in SIMPLE),
    ("Fe O", "", "", "", "simplest", "dftu_sensitive"),
    ("", "", "correlation", "DFT+U", "Basic", "unknown"),
    ("Cu", "NaCl", "Hubbard", "", "", "dftu_sensitive"),
    ("Cu", "CoO", "", "", "", "dftu_sensitive"),
    ("Ni O", "NaCl", "", "", "", "dftu_sensitive"),
    *((symbols, "", "", "", "", "unknown") for symbols in ("Cr", "Cu Cu", "")),
    *((symbol, "", "", "", "", "plain_dft") for symbol in ("Cu", "Fe")),
    *(("", formula, "", "", "", "plain_dft") for formula in ("ZnO", "NaCl")),
]


@pytest.mark.parametrize("row", CORRELATION_CLASSES)
def test_correlation_class(row):
    species, formula, text, correlation, complexity, label = row
    intent = {"intent_correlation": correlation, "intent_complexity": complexity}
    assert mc._correlation_class(species.split(), formula, text, **intent) == label


FLAT = [f"{name}_2d" for name in ("graphene", "hbn", "tmd", "phosphorene", "mxene")]
FLAT += ["two_dimensional", "layered_parent_exfoliation"]
FAMILIES = [
    *(("O", "molecule_or_cluster", "", "ZnO", d, "two_dimensional") for d in FLAT),
    ("C O", "molecule_or_cluster", "semiconductor", "CO", "surface_slab", "molecule"),
    ("Zn O", "periodic_bulk", "metal", "ZnO", "zincblende", "semiconductor"),
    ("Ni O", "", "semiconductor", "NiO", "", "semiconductor"),
    ("Ni", "", "metal", "NiO", "unknown", "oxide"),
    ("Fe O", "", "metal", "Fe2O3", "stm_sample_tip", "oxide"),
    ("Co", "", "metal", "Co", "", "elemental_metal"),
    *((species, "", "metal", "CuZn", "", "alloy") for species in ("Cu Zn", "Cu Zn Sn")),
    ("", "", "metal", "", "", "other"),
    ("Cu", "", "insulator", "", "", "other"),
    ("o", "", "Metal", "zno", "Graphene_2d", "other"),
]


@pytest.mark.parametrize("row", FAMILIES)
def test_material_family(row):
    species, *given, archetype, family = row
    assert mc._material_family(species.split(), *given, *archetype.split()) == family


U = "dftu_sensitive"
CELL = "collinear primitive cell"


# None as a text shows that it is not read.
MAGNETISM_OF_INTENT = [
    ("Fe", None, "non-collinear", "", "noncollinear_template"),
    *(("Fe", None, f"{k}magnetic", "", "template_antiferromagnet") for k in ("antiferro", "ferri")),
    ("Cu Fe", None, "ferromagnetic", "", "simple_ferromagnet"),
    *((species, None, "ferromagnetic", "", "collinear_magnetic") for species in ("Cu Ni", "")),
    ("Fe", None, "nonmagnetic", "", "nonmagnetic"),
    # a simple request passes over the correlated oxides
    *(("Ni", "", "", complexity, "collinear_magnetic") for complexity in SIMPLE),
    ("Ni O", "", "", "basic", "unknown"),
    ("Fe", "", "", "basic", "simple_ferromagnet"),
    ("Cu", CELL, "", "basic", "collinear_magnetic"),
    ("Cu", "afm", "", "basic", "template_antiferromagnet"),
]


@pytest.mark.parametrize("row", MAGNETISM_OF_INTENT)
def test_magnetic_class_by_intent(row):
    species, text, magnetism, complexity, label = row
    intent = {"intent_magnetism": magnetism, "intent_complexity": complexity}
    assert mc._magnetic_class(species.split(), "NiO", text, U, **intent) == label


# Texts of which each gives the label.
MAGNETIC_CLASSES = [
    # a collinear small cell outranks all other wording
    ("", "NiO", CELL + ", AFM, spin-orbit, alpha-Mn", U, "collinear_magnetic"),
    ("Fe O", "", CELL, U, "collinear_magnetic"),
    ("", "NiO", "Collinear PRIMITIVE|2-atom collinear", U, "collinear_magnetic"),
    ("", "NiO", "two atom collinear|non-collinear two-atom", U, "collinear_magnetic"),
    ("", "NiO", "collinear two\u00a0atoms|primitive two-atom", U, "template_antiferromagnet"),
    ("Cu", "nio", CELL, U, "nonmagnetic"),
    ("Cu", "NiO", CELL, "plain_dft", "nonmagnetic"),
    # wording, in order
    ("Mn", "NiO", "alpha-mn afm Non-Collinear|afm noncollinear", U, "noncollinear_template"),
    ("Mn", "NiO", "alpha-mn antiferroM|ferrite", U, "template_antiferromagnet"),
    ("Cu", "NiO", "Alpha-Mn", U, "complex_magnetic"),
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
]


@pytest.mark.parametrize(("species", "formula", "texts", "correlation", "label"), MAGNETIC_CLASSES)
def test_magnetic_class(species, formula, texts, correlation, label):
    # Values that are no intent of this classifier change nothing.
    unheard = {"intent_magnetism": "noncollinear", "intent_complexity": "Basic"}
    for text in texts.split("|"):
        inputs = (species.split(), formula, text, correlation)
        assert mc._magnetic_class(*inputs) == label, text
        assert mc._magnetic_class(*inputs, **unheard) == label, text


def magnetic(formula="", text="", correlation="", **intent):
    return lambda species: mc._magnetic_class(species, formula, text, correlation, **intent)


# Which function is asked, in order: F for ferromagnets, S for moment seeds, O for oxide.
QUESTIONS = [
    ("", mc.classify_system_class, "FS"),
    ("", lambda none: mc.classify_system_class(none, structure_archetype="hbn_2d"), "FS"),
    ("Cu Fe", lambda two: mc._correlation_class(two, "", ""), "O"),
    ("Cu", lambda one: mc._correlation_class(one, "", ""), "OF"),
    ("Cu Co Fe", magnetic(intent_magnetism="ferromagnetic"), "FF"),
    ("", magnetic(intent_magnetism="ferromagnetic"), ""),
    ("", magnetic("", CELL), ""),
    ("Fe O", magnetic("", CELL, U), "O"),
    ("Fe O", magnetic("", "", U), "O"),
    ("Fe", magnetic("", CELL, U), "OOF"),
    ("Fe O", magnetic("", "", U, intent_complexity="basic"), "FFOSO"),
    ("Cu Co Fe", magnetic(), "FFFO"),
    ("Cu Cr Ni", magnetic(), "FFFFSSO"),
    ("S Cu", magnetic(), "FFFSS"),
]


@pytest.mark.parametrize(("species", "call", "asked"), QUESTIONS)
def test_reference_functions_are_asked_anew_each_time(record, species, call, asked):
    symbols = species.split()
    names = {"F": "phase1_simple_ferromagnet_species", "S": "collinear_magmom_seed_species"}
    names["O"] = "is_transition_metal_oxide"
    calls = record(**{name: getattr(mc, name) for name in names.values()})
    call(symbols)
    assert calls == [(names[letter], (symbols,) * (letter == "O"), {}) for letter in asked]
