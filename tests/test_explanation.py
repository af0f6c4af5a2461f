"""Every decided field has causes, and each cause is proven: the rules are asked again through the
module in use, with the causes taken away, and with one of them alone."""

import contextlib
import copy
import inspect
import json
import re
from pathlib import Path
from unittest import mock

import pytest
from reliability.generate import REQUESTS, Generator

from tavik_agent import material_characterization as mc
from tavik_agent import material_reference_data as reference
from tavik_agent.explanation import explain

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
    assert sum(bool(rule) for *_, rule in named) < len(named) / 10
