"""The stages of one characterization: what each receives, what it leaves, and the record."""

import collections

import pytest

from tavik_agent import material_characterization as mc


def characterize(step="", **inputs):
    return mc.characterize_material(step=step, **inputs)


def evidence(record, word):
    return [line for line in record["evidence"] if word in line]


def test_step():
    for step, written in {"straße": "STRASSE", None: "", 0: "", 3: "3", " a ": " A "}.items():
        assert characterize(step)["step"] == written


BLOCK = {"element": {"Ni": 1}}
STEPS = collections.OrderedDict({"c": {"element": {"Cu": 1}}, "a": [BLOCK], "b": {}, 3: BLOCK})
STEPS.move_to_end("c")
EARLIER = {"previous_steps_params": STEPS}
PROSE = {"query_text": "CO", "base_characterization": {"species": ["Cu"]}}
NAMED = "user query explicitly named species {} (LLM intent)"


def named(*species):
    return {"query_intent": {"species": species}}


SOURCES_OF_SPECIES = [
    ({"step_params": BLOCK} | named("Fe"), ["Ni"], "element definitions declare species {}"),
    (named(" fe ", "FE", "", None) | EARLIER | PROSE, ["Fe", "None"], NAMED),
    (named(*"o'ß"), ["O", "'", "SS"], NAMED),
    (EARLIER | PROSE, ["Ni"], "reused prior-step species {}"),
    (PROSE, ["C", "O"], "prose-scanned fallback species {} (low confidence)"),
    ({"base_characterization": {"species": [" Fe", "", " ", 3, 3]}}, [" Fe", "3", "3"], None),
]


@pytest.mark.parametrize(("inputs", "species", "message"), SOURCES_OF_SPECIES)
def test_first_source_of_species_wins(inputs, species, message):
    found = characterize(**inputs)
    assert found["species"] == species
    assert evidence(found, "species") == ([message.format(species)] if message else [])


WROTE = "user query explicitly wrote formula {} (LLM intent)"
HINT = "formula hint {}"
HINTS = [
    ({"formula": " fE2o3\n", "species": "x"}, "NiO", "fE2o3", WROTE),
    ({"formula": "\ud800\0"}, "", "\ud800\0", WROTE),
    ({"formula": ["NiO"]}, "", "['NiO']", WROTE),
    *(({"formula": blank}, "NiO", "", None) for blank in (None, " ")),
    ({}, "NiO", "NiO", HINT),
    ({}, "nothing", "FeO", HINT),  # from the findings
    ({"species": ["Fe"]}, "Fe2O3", "", None),  # names what the intent does not
    ({"species": ["fe", "o", "h"]}, "Fe2O3", "Fe2O3", HINT),
    ({"species": ["Cu"]}, "green salt", "FeXy", HINT),  # has no parts
]


@pytest.mark.parametrize(("intent", "query", "hint", "message"), HINTS)
def test_formula_hint(intent, query, hint, message):
    # The element block declares more than the intent; the cross-check is with the intent.
    block = {"element": {"Fe": 1, "O": 1}}
    found = characterize(step_params=block, query_intent=intent, query_text=query, findings=["FeO"])
    assert found["formula_hint"] == hint
    assert evidence(found, "formula") == ([message.format(hint)] if message else [])


INPUTS = ["step_params", "previous_steps_params", "planner_manifest", "query_intent"]
READ = [*INPUTS, "species", "symbol", "findings", "purpose", "notes", "element", "formula", "atom"]
READ += ["query_intent", "structure_description"]
READ += ["correlation", "magnetism", "complexity_hint", "units"]


def test_inputs_are_read_by_their_own_methods_in_order():
    read = []

    class Watched(dict):
        def __bool__(self):
            read.append(self["name"])
            return True

        def get(self, key, default=None):
            read.append(key)
            return "CO" if key == "formula" else super().get(key, default)

    symbol = type("Symbol", (), {"__str__": lambda self: read.append("symbol") or "O"})
    inputs = {name: Watched(name=name) for name in INPUTS}
    inputs["query_intent"]["species"] = [symbol()]
    found = characterize(findings=map(read.append, ["findings"]), query_text="O", **inputs)
    assert read == READ
    # A formula counts as the intent's, but only a key that is there replaces the heuristic.
    assert (found["formula_hint"], found["intent_driven"]) == ("O", True)


def test_inputs_are_read_as_they_are_by_then():
    class Changes(str):
        def __str__(self):
            intent["magnetism"], params["atom"] = "nonmagnetic", {"xyz": [1]}
            return "Fe"

        def strip(self):
            findings.append("FeO")  # too late: they were taken before the query is stripped
            return ""

    intent, params = {"species": [Changes()], "magnetism": "ferromagnetic"}, {"domain": None}
    findings = ["nothing"]
    texts = {"findings": findings, "query_text": Changes("x")}
    found = characterize(step_params=params, query_intent=intent, **texts)
    assert found["intent_magnetism"] == "nonmagnetic"
    assert found["structure_mode"] == "molecule_or_cluster"
    assert (found["formula_hint"], findings[1:]) == ("Fe", ["FeO"])


CLASSIFIERS = "_structure_mode _structure_archetype _electronic_class _correlation_class \
_magnetic_class _material_family"
LABELS = {name: name.split("_")[-1] + str(i) for i, name in enumerate(CLASSIFIERS.split())}


@pytest.mark.parametrize(("query", "for_mode"), [("Q", "Q"), (" ", " "), ("", "J"), (None, "J")])
def test_what_each_stage_receives(record, query, for_mode):
    calls = record(
        _combined_text="J",
        _species_from_element_block=[],
        _species_from_text=["Fe"],
        _formula_hint=lambda text, _: "H" if text == "J" else "",
        _formula_parts=[("Fe", 1)],
        **LABELS,
    )
    params, steps = {"element": "E", "atom": {}}, {"a": {"element": "B"}, "b": {}, "c": 3}
    intent = {"correlation": " DFT+U ", "magnetism": 3, "complexity_hint": "Basic"}
    inputs = {"step_params": params, "previous_steps_params": steps, "query_intent": intent}
    manifest = {"purpose": "P", "notes": {"n": 1}}
    inputs |= {"query_text": query, "findings": iter(["a", 2]), "planner_manifest": manifest}
    found = characterize(**inputs)
    texts = {"structure_mode": "mode0", "combined_text": "J", "query_text": query}
    simple = {"intent_complexity": "basic"}
    assert calls == [
        ("_combined_text", (query, ["a", 2], "P", {"n": 1}), {}),
        *(("_species_from_element_block", (block,), {}) for block in ("E", "B", None)),
        ("_species_from_text", ("J",), {}),
        ("_formula_hint", (query, ["Fe"]), {}),
        ("_formula_hint", ("J", ["Fe"]), {}),
        ("_structure_mode", (params, for_mode), {}),
        ("_structure_archetype", (), texts | {"query_intent": intent}),
        ("_electronic_class", (["Fe"], "H", query, "archetype1"), {}),
        ("_correlation_class", (["Fe"], "H", "J"), simple | {"intent_correlation": "dft+u"}),
        ("_magnetic_class", (["Fe"], "H", "J", "class3"), simple | {"intent_magnetism": "3"}),
        ("_material_family", (["Fe"], "mode0", "class2", "H", "archetype1"), {}),
    ]
    assert calls[8][2]["query_intent"] is intent
    assert found["species"] is calls[-1][1][0]
    assert found["evidence"] == [
        "prose-scanned fallback species ['Fe'] (low confidence)",
        "formula hint H",
        "structure mode=mode0",
        "structure archetype=archetype1",
        "electronic class=class2",
        "correlation class=class3",
        "user query flagged as basic (LLM intent) \u2014 complex-material heuristics suppressed",
        "magnetic class=class4",
        "material family=family5",
    ]


@pytest.mark.parametrize("empty", [None, {}, [], (), 0, "", False])
def test_empty_inputs_are_handed_on_as_empty(record, empty):
    calls = record(_combined_text="", _species_from_element_block=[])
    names = ("step_params", "findings", "planner_manifest", "previous_steps_params", "query_intent")
    characterize(**dict.fromkeys(names, empty))
    blocks = [("_species_from_element_block", (None,), {})]
    assert calls == [("_combined_text", ("", [], None, None), {}), *blocks]


def test_intent_driven():
    for key in ("species", "formula", "correlation", "magnetism", "complexity_hint"):
        assert characterize(query_intent={key: "x"})["intent_driven"] is True
        blank = {key: " ", "units": {"energy": "eV"}, "structure_description": "2d"}
        assert characterize(query_intent=blank)["intent_driven"] is False
