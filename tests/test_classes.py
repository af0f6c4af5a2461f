"""The system, electronic and correlation classes and the material family."""

import pytest

from tavik_agent import material_characterization as mc


# Species as words, formula hint, explicit text, archetype, label.
@pytest.mark.parametrize(
    ("species", "formula", "text", "archetype", "label"),
    [
        # two-dimensional archetypes decide whatever the rest says
        ("Cu", "ZnO", "metallic", "graphene_2d", "unknown"),
        ("Cu", "ZnO", "metallic", "hbn_2d", "insulator"),
        *(("Cu", "NaCl", "metal", d, "semiconductor") for d in ("tmd_2d", "phosphorene_2d")),
        ("", "ZnO", "", "mxene_2d", "metal"),
        # formula tables, in their order and before the text
        ("Cu", "InAs", "metal", "surface_slab", "semiconductor"),
        ("Cu", "NaCl", "metal", "", "insulator"),
        ("Cu", "NiO", "metal", "", "insulator"),
        # metal and metallic as whole words
        *(("Se", "", word, "", "metal") for word in ("METALLIC", "half-metal", "\ud800metal\0")),
        ("", "", "nonmetallic metals metalloid metal_ métal metalé metal² 2metal", "", "unknown"),
        ("", "", ["metal"], "", "metal"),
        ("", "", None, "", "unknown"),
        # one distinct species among the semiconductors, one entry among the metals
        ("Se Se", "", "", "", "semiconductor"),
        *((symbol, "GaAs", "", "", "metal") for symbol in ("Cu", "Fe", "Mn", "Cr")),
        ("Cu Cu", "", "", "", "unknown"),
        # formulas that no table lists
        *(("", formula, "", "", "semiconductor") for formula in ("GaAs", "Si", "Ge")),
        *(("", formula, "", "", "unknown") for formula in ("gaas", "SI", "C", "")),
    ],
)
def test_system_and_electronic_class(species, formula, text, archetype, label):
    inputs = {"formula_hint": formula, "explicit_text": text, "structure_archetype": archetype}
    assert mc.classify_system_class(species.split(), **inputs) == label
    assert mc._electronic_class(species.split(), **inputs) == label


def test_system_class_takes_any_species():
    assert mc.classify_system_class([" Fe\n", "", " "]) == "metal"
    assert mc.classify_system_class(["Fe", None]) == "unknown"  # null is written out, not dropped
    assert mc.classify_system_class(("Cu",)) == "metal"
    assert mc.classify_system_class({"Se": 1}) == "semiconductor"
    assert mc.classify_system_class("Cu") == "unknown"  # two species, C and u
    with pytest.raises(TypeError, match="'int' object is not iterable"):
        mc.classify_system_class(5)
    with pytest.raises(TypeError, match="unhashable"):
        mc.classify_system_class([], formula_hint=[])


def test_electronic_class_hands_over_what_it_was_given(record):
    calls = record(classify_system_class=("anything",))
    assert mc._electronic_class("s", explicit_text="t", formula_hint="f") == ("anything",)
    inputs = {"formula_hint": "f", "explicit_text": "t", "structure_archetype": ""}
    assert calls == [("classify_system_class", ("s",), inputs)]


SIMPLE = ("simple", "tutorial", "minimal", "basic")


@pytest.mark.parametrize(
    ("species", "formula", "text", "correlation", "complexity", "label"),
    [
        # None is not lowered when the intent decides
        ("Cu", "NaCl", None, "dft+u", "", "dftu_sensitive"),
        ("Cu", "NaCl", None, "hybrid", "simple", "dftu_sensitive"),
        ("Fe O", "NiO", None, "plain_dft", "", "plain_dft"),
        *(("Fe O", "NiO", None, "", complexity, "plain_dft") for complexity in SIMPLE),
        ("Fe O", "", "", "", "simplest", "dftu_sensitive"),
        ("", "", "dft +u, lda, correlation", "DFT+U", "Basic", "unknown"),
        *(("Cu", "NaCl", text, "", "", "dftu_sensitive") for text in ("DFT+U", "LDA+U", "Hubbard")),
        ("", "", "uncorrelatedness", "", "", "dftu_sensitive"),
        ("Cu", "CoO", "", "", "", "dftu_sensitive"),
        ("Ni O", "NaCl", "", "", "", "dftu_sensitive"),
        *((symbols, "", "", "", "", "unknown") for symbols in ("Cr", "Cu Cu", "")),
        ("Cu", "", "", "", "", "plain_dft"),
        ("Fe", "", "", "", "", "plain_dft"),
        ("", "ZnO", "", "", "", "plain_dft"),
        ("", "NaCl", "", "", "", "plain_dft"),
    ],
)
def test_correlation_class(species, formula, text, correlation, complexity, label):
    intent = {"intent_correlation": correlation, "intent_complexity": complexity}
    assert mc._correlation_class(species.split(), formula, text, **intent) == label


def test_unions_are_made_by_the_tables_themselves(monkeypatch):
    class Table(list):
        def union(self, other):
            return ["BN", "Xe", *other]

    monkeypatch.setattr(mc, "NONMAGNETIC_METAL_SPECIES", Table())
    monkeypatch.setattr(mc, "SEMICONDUCTOR_FORMULAS", Table())
    assert mc._correlation_class(["Xe"], "", "") == "plain_dft"
    assert mc._correlation_class([], "BN", "") == "plain_dft"
    assert mc._magnetic_class([], "BN", "", "") == "nonmagnetic"


def test_union_is_asked_once_for_a_formula_of_another_kind():
    class Formula(str):
        def __hash__(self):
            asked.append(self)
            return super().__hash__()

    asked = []
    assert mc._correlation_class([], Formula("NaCl"), "") == "plain_dft"
    assert len(asked) == 2  # the other time by DFTU_SENSITIVE_FORMULAS


# Called on every call, before any rule; and only for one species.
@pytest.mark.parametrize(
    ("call", "asked"),
    [
        (lambda: mc.classify_system_class([]), "ferromagnets seeds"),
        (lambda: mc.classify_system_class([], structure_archetype="hbn_2d"), "ferromagnets seeds"),
        (lambda: mc._correlation_class(["Cu", "Fe"], "", ""), "oxide"),
        (lambda: mc._correlation_class(["Cu"], "", ""), "oxide ferromagnets"),
    ],
)
def test_reference_functions_are_asked(record, call, asked):
    calls = record(
        phase1_simple_ferromagnet_species=frozenset({"Fe"}),
        collinear_magmom_seed_species=frozenset(),
        is_transition_metal_oxide=0,
    )
    call()
    short = {"phase1": "ferromagnets", "collinear": "seeds", "is": "oxide"}
    assert [short[name.split("_")[0]] for name, _, _ in calls] == asked.split()


FLAT = "graphene_2d hbn_2d tmd_2d phosphorene_2d mxene_2d two_dimensional \
layered_parent_exfoliation"


@pytest.mark.parametrize(
    ("species", "mode", "electronic", "formula", "archetype", "family"),
    [
        *(("O", "molecule_or_cluster", "", "ZnO", d, "two_dimensional") for d in FLAT.split()),
        ("C O", "molecule_or_cluster", "semiconductor", "CO", "surface_slab", "molecule"),
        ("Zn O", "periodic_bulk", "metal", "ZnO", "zincblende", "semiconductor"),
        ("Ni O", "", "semiconductor", "NiO", "", "semiconductor"),
        ("Ni", "", "metal", "NiO", "unknown", "oxide"),
        ("Fe O", "", "metal", "Fe2O3", "stm_sample_tip", "oxide"),
        ("Co", "", "metal", "Co", "", "elemental_metal"),
        ("Cu Zn Sn", "", "metal", "CuZn", "", "alloy"),
        ("", "", "metal", "", "", "other"),
        ("Cu", "", "insulator", "", "", "other"),
        ("o", "", "Metal", "zno", "Graphene_2d", "other"),
    ],
)
def test_material_family(species, mode, electronic, formula, archetype, family):
    found = mc._material_family(species.split(), mode, electronic, formula, archetype)
    assert found == family
    if not archetype:
        assert mc._material_family(species.split(), mode, electronic, formula) == family
