"""Every decided field has causes, and each cause is proven: the rules are asked again through the
module in use, with the causes taken away, and with one of them alone."""

import contextlib
import copy
import inspect
import json
import re
import threading
import time
from pathlib import Path
from unittest import mock

import pytest
from reliability.generate import REQUESTS, Generator

from tavik_agent import material_characterization as mc
from tavik_agent import material_reference_data as reference
from tavik_agent.explanation import explain, lookup

EMPTY = mc.characterize_material(step="")
TEXTS = re.compile(r"query_text|findings|planner_manifest|query_intent.structure_description")
DATA = Path(reference.__file__).parents[1]


@pytest.fixture(autouse=True)
def _known_tables():
    """The module's own tables stay in place here."""


def arguments_of(row):
    inputs = {key: value for key, value in row.items() if key not in ("expect", "query")}
    return {"step": "scf", "query_text": row.get("query", ""), **inputs}


def recorded(request):
    """What each private function was given by name, and what it answered."""
    calls = {}
    with contextlib.ExitStack() as stack:
        for name, own in [item for item in vars(mc).items() if inspect.isbuiltin(item[1])]:
            if not name.startswith("_") or name == "_formula_parts":
                continue

            def note(*values, _name=name, _own=own, **named):
                parameters = [p for p in inspect.signature(_own).parameters if p != "parts"]
                result = _own(*values, **named)
                calls[_name] = (dict(zip(parameters, values, strict=False)) | named, result)
                return result

            stack.enter_context(mock.patch.object(mc, name, note))
        mc.characterize_material(**request)
    return calls


def written(request):
    """The texts of a request by place."""
    manifest, intent = request.get("planner_manifest") or {}, request.get("query_intent") or {}
    texts = {"query_text": request.get("query_text") or ""}
    texts |= {f"findings[{n}]": str(v) for n, v in enumerate(request.get("findings") or [])}
    for key in ("purpose", "notes"):
        value = manifest.get(key)
        listed = {f"planner_manifest.{key}[{n}]": str(v) for n, v in enumerate(value or [])}
        texts |= listed if isinstance(value, list) else {f"planner_manifest.{key}": value or ""}
    texts["query_intent.structure_description"] = str(intent.get("structure_description") or "")
    return texts


def blanked(texts, causes, *, alone=False):
    """The texts without the wording of the causes, or with nothing but that."""
    result = {}
    for place, text in texts.items():
        spans = [(c["start"], c["end"]) for c in causes if c.get("start") is not None]
        spans = [s for s, c in zip(spans, causes, strict=True) if c["where"] == place]
        inside = [any(a <= i < b for a, b in spans) for i in range(len(text))]
        result[place] = "".join(
            c if kept == alone else " " for c, kept in zip(text, inside, strict=True)
        )
    return result


def joined(texts):
    return mc._combined_text(texts["query_text"], [*texts.values()][1:-1])


@contextlib.contextmanager
def without_answers(causes):
    with contextlib.ExitStack() as stack:
        tables = {}
        for cause in causes:
            name = cause.get("table") or cause.get("function")
            if cause["kind"] == "table":
                tables.setdefault(name, set()).add(cause["entry"])
            elif cause["kind"] == "function":
                stack.enter_context(mock.patch.object(mc, name, return_value=False))
        for name, entries in tables.items():
            own = getattr(mc, name)
            less = (lambda o=own, e=entries: o() - e) if callable(own) else own - entries
            stack.enter_context(mock.patch.object(mc, name, less))
        yield


def removed(mapping, causes, root):
    mapping = copy.deepcopy(mapping)
    for cause in causes:
        path = cause.get("where", "").split(".")
        if cause["kind"] in ("argument", "intent") and path[0] == root:
            inner = mapping
            for key in path[1:-1]:
                inner = inner[key]
            inner.pop(path[-1], None)
    return mapping


INTENT = {"complexity_hint": "complexity"}


def decide(field, request, calls, texts, away):
    """The field decided again with these texts, and with those causes taken away."""
    request = copy.deepcopy(request)
    labels = {c["field"] for c in away if c["kind"] == "label"}
    for root in ("step_params", "previous_steps_params", "query_intent"):
        if request.get(root):
            request[root] = removed(request[root], away, root)
    intent = dict(request.get("query_intent") or {})
    if intent.get("structure_description"):
        intent["structure_description"] = texts["query_intent.structure_description"]
    name = f"_{field}"
    with without_answers(away):
        if name in calls and field != "formula_hint":
            original, _ = calls[name]
            given = {}
            for parameter, value in original.items():
                if parameter in ("combined_text", "explicit_text", "query_text"):
                    is_query = value == request.get("query_text")
                    value = texts["query_text"] if is_query else joined(texts)
                elif parameter in labels:
                    value = EMPTY[parameter]
                elif parameter == "query_intent":
                    value = intent
                elif parameter == "step_params":
                    value = request.get("step_params") or {}
                elif parameter.startswith("intent_"):
                    key = parameter.removeprefix("intent_")
                    paths = {c["where"].split(".")[-1] for c in away if c["kind"] == "intent"}
                    value = "" if key in {INTENT.get(p, p) for p in paths} else value
                elif parameter == "species":
                    value = [
                        s
                        for s in value
                        if s not in {c["text"] for c in away if c["kind"] == "species"}
                    ]
                given[parameter] = value
            return getattr(mc, name)(**given)
        request |= {"query_text": texts["query_text"], "query_intent": intent}
        request |= {"base_characterization": None}
        with contextlib.ExitStack() as stack:
            together = mock.Mock(return_value=joined(texts))
            stack.enter_context(mock.patch.object(mc, "_combined_text", together))
            if field == "formula_hint":
                species = [] if "species" in labels else calls["_electronic_class"][0]["species"]
                stub = {"_species_from_element_block": species, "_species_from_text": []}
                for function, result in stub.items():
                    answer = mock.Mock(return_value=result)
                    stack.enter_context(mock.patch.object(mc, function, answer))
            return mc.characterize_material(**request)[field]


def assert_proven(request):
    explanation = explain(**copy.deepcopy(request))
    assert explanation["record"] == mc.characterize_material(**copy.deepcopy(request))
    json.dumps(explanation["fields"])
    calls, texts = recorded(copy.deepcopy(request)), written(request)
    base = request.get("base_characterization") or {}
    for field, found in explanation["fields"].items():
        causes, label = found["causes"], found["label"]
        assert label == explanation["record"][field]
        if label == EMPTY[field]:
            assert (causes, found["otherwise"]) == ([], None), (request, field)
            continue
        assert causes, (request, field)
        assert found["otherwise"] != label, (request, field)
        own = [cause for cause in causes if cause["kind"] != "earlier record"]
        wording = [cause for cause in own if cause["kind"] == "wording"]
        for cause in wording:
            assert texts[cause["where"]][cause["start"] : cause["end"]] == cause["text"]
            assert cause["text"] in cause.get("within", cause["text"])
        less = decide(field, request, calls, blanked(texts, wording), own)
        if own:
            assert less != label, (request, field)
        earlier = base.get(field, EMPTY[field])
        if field == "species" and base:
            earlier = mc.characterize_material(step="", base_characterization=base)[field]
        is_last = less == EMPTY[field] and len(own) == len(causes)
        expected = earlier if is_last else less
        assert found["otherwise"] == expected, (request, field, found)
        for cause in wording:
            pairs = [[cause, other] for other in wording]
            outcomes = [
                decide(field, request, calls, blanked(texts, p, alone=True), []) for p in pairs
            ]
            if field == "species":
                named = {symbol for other in wording for symbol in other["symbols"]}
                assert named >= {*label} or len(wording) < len(own)
                assert mc._species_from_text(cause["text"]) == cause["symbols"]
                assert {*cause["symbols"]} & {*label}
            else:
                assert label in outcomes, (request, field, cause)


def test_causes_are_proven_for_the_collection():
    for row in REQUESTS:
        assert_proven(arguments_of(row))


def test_causes_are_proven_for_random_requests():
    generator = Generator(17)
    for _ in range(300):
        request, is_good = generator.request()
        if is_good:
            assert_proven(request)


def test_table_causes_name_a_line_that_holds_the_entry():
    named = {
        (cause["file"], cause["line"], cause["entry"], cause.get("rule"))
        for row in REQUESTS
        for field in explain(**arguments_of(row))["fields"].values()
        for cause in field["causes"]
        if "table" in cause
    }
    assert len(named) > 500
    lines = {f: (DATA / f).read_text(encoding="utf-8").splitlines() for f, *_ in named}
    wrong = [n for n in named if (n[3] or n[2]) not in lines[n[0]][n[1] - 1]]
    assert wrong == []
    assert sum(bool(rule) for *_, rule in named) < len(named) / 5


@pytest.mark.parametrize(
    ("request_", "field", "expected"),
    [
        ({"query_text": "İ associated \ud800"}, "magnetic_class", [("query_text", 4, 7, "soc")]),
        (
            {"query_text": "\u2003 half-metal,\n"},
            "electronic_class",
            [("query_text", 7, 12, "metal")],
        ),
        (
            {"findings": [None, {"of": " slab"}, "SLAB"], "query_text": ""},
            "structure_mode",
            [("findings[1]", 9, 13, "slab"), ("findings[2]", 0, 4, "SLAB")],
        ),
        (
            {"planner_manifest": {"purpose": {1: "soc"}, "notes": ["a", " soc"]}},
            "magnetic_class",
            [("planner_manifest.purpose", 5, 8, "soc"), ("planner_manifest.notes[1]", 1, 4, "soc")],
        ),
        (
            {"query_text": "gallium", "findings": iter(["arsenide"])},
            "formula_hint",
            [("query_text", 0, 7, "gallium"), ("findings[0]", 0, 8, "arsenide")],
        ),
        (
            {"query_text": "a tip on samples, a sample, a Sample and no tip"},
            "structure_archetype",
            [
                *(("query_text", 2, 5, "tip"), ("query_text", 20, 26, "sample")),
                *(("query_text", 30, 36, "Sample"), ("query_text", 44, 47, "tip")),
            ],
        ),
        ({"query_text": "on (Pt(111))"}, "species", [("query_text", 4, 6, "Pt")]),
        ({"query_text": "CO/Pt(111) 5 K"}, "formula_hint", [("query_text", 3, 10, "Pt(111)")]),
        ({"query_text": "x\nSNI2.-"}, "formula_hint", [("query_text", 0, 8, "x\nSNI2.-")]),
        ({"query_text": "α-fe₂o₃ heated"}, "formula_hint", [("query_text", 0, 7, "α-fe₂o₃")]),
    ],
)
def test_places_of_words(request_, field, expected):
    causes = explain(step="scf", **request_)["fields"][field]["causes"]
    assert [(c["where"], c["start"], c["end"], c["text"]) for c in causes] == expected


def test_earlier_record_and_what_decided_first():
    base = {"species": ["Si"], "magnetic_class": "nonmagnetic"}
    fields = explain(step="x", query_text="Si", base_characterization=base)["fields"]
    assert [c["kind"] for c in fields["species"]["causes"]] == ["wording", "earlier record"]
    intent = {"correlation": "hybrid"}
    fields = explain(step="x", query_text="DFT+U for Fe2O3", query_intent=intent)["fields"]
    kinds = [cause["kind"] for cause in fields["correlation_class"]["causes"]]
    assert kinds == ["intent", "wording", "table", "function"]


def test_explain_fails_where_the_rules_do_and_changes_nothing():
    generator = Generator(5)
    for _ in range(400):
        request, is_good = generator.request()
        before = repr(request) if is_good else None
        try:
            record = mc.characterize_material(**request)
        except Exception as error:
            with pytest.raises(type(error)):
                explain(**request)
        else:
            assert repr(explain(**request)["record"]) == repr(record)
        assert not is_good or repr(request) == before


def test_tables_replaced_in_the_module_in_use_are_asked(monkeypatch):
    monkeypatch.setattr(mc, "SEMICONDUCTOR_FORMULAS", frozenset({"Xx"}))
    found = explain(step="", query_intent={"formula": "Xx"})["fields"]["electronic_class"]
    assert (found["label"], found["causes"][0]["entry"]) == ("semiconductor", "Xx")


def test_a_value_that_explains_in_between():
    class Curious:
        def __str__(self):
            explain(step="", query_text="DFT+U for Fe2O3 in eV", query_intent={"formula": "NiO"})
            return "soc"

    def found(finding):
        return explain(step="", query_text="NiO", findings=[finding])

    assert found(Curious()) == found("soc")


def test_threads_explain_side_by_side():
    queries = ["GaN with soc", "hubbard NiO", "graphene"] * 4
    expected = [explain(step="", query_text=query) for query in queries]
    found = [None] * len(queries)

    def work(n):
        found[n] = explain(step="", query_text=queries[n])

    threads = [threading.Thread(target=work, args=(n,)) for n in range(len(queries))]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert found == expected


@pytest.mark.parametrize(
    ("text", "field", "number"),
    [
        ("soc" * 13_000, "magnetic_class", 13_000),
        ("NiO " * 10_000, "species", 10_000),
        ("iron, " * 6_000, "species", 6_000),
        ("sample " * 3_000 + "tip " * 4_000, "structure_archetype", 7_000),
    ],
)
def test_words_that_stand_in_a_text_thousands_of_times(text, field, number):
    """They take about 0.1 s; a search that begins anew at each of them takes a minute."""
    started = time.process_time()
    causes = explain(step="", findings=[text])["fields"][field]["causes"]
    assert len(causes) == number
    assert time.process_time() - started < 3


@pytest.mark.parametrize(
    ("word", "kinds", "table", "said"),
    [
        ("hematite", ["phrase"], "DFTU_SENSITIVE_FORMULAS", ""),
        ("IN", ["acronym"], "METHOD_ACRONYMS", ""),
        ("Fe", ["element"], "phase1_simple_ferromagnet_species", ""),
        ("soc", ["keyword"], "", ""),
        ("ZrTe5", ["phrase", "formula"], "FORMULA_ALIASES", "Left out on purpose"),
    ],
)
def test_lookup(word, kinds, table, said):
    answer = lookup(word)
    assert [reading["kind"] for reading in answer["readings"]] == kinds
    assert table in ["", *(cause["table"] for cause in answer["tables"])]
    assert said in "".join(remark["note"] for remark in answer["left_out"])


@pytest.mark.parametrize("word", ["NO", "K", "V", "I", "U", "UP", "IN", "TC"])
def test_an_acronym_stands_among_the_acronyms(word):
    [table] = [t for t in lookup(word)["tables"] if t["table"] == "METHOD_ACRONYMS"]
    assert table["file"] == "method_acronyms.py"


@pytest.mark.parametrize(
    ("word", "nearest"),
    [
        ("galium", "gallium"),
        ("wurtzit", "wurtzite"),
        ("antiferomagnetic", "antiferromagnetic"),
        ("dft+v", "dft+u"),
    ],
)
def test_lookup_of_what_is_not_known(word, nearest):
    answer = lookup(word)
    assert (answer["readings"], answer["tables"], answer["alone"]) == ([], [], {})
    assert answer["nearest"][0] == nearest
