"""Every decided field has causes, and each cause is proven: the rules are asked again through the
module in use, with the causes taken away, and with one of them alone."""

import ast
import copy
import inspect
import json
import linecache
from concurrent.futures import ThreadPoolExecutor
from functools import reduce
from operator import getitem
from pathlib import Path
from unittest import mock

import pytest
from reliability.generate import REQUESTS, Generator

from tavik_agent import material_characterization as mc
from tavik_agent import material_reference_data as reference
from tavik_agent.characterize.unread import unread_words
from tavik_agent.explanation import explain, lookup

EMPTY = mc.characterize_material(step="")
CLASSIFIERS = {f"_{field}": getattr(mc, f"_{field}") for field in EMPTY if hasattr(mc, f"_{field}")}
DESCRIPTION = "query_intent.structure_description"
DATA = Path(reference.__file__).parents[1]


@pytest.fixture(autouse=True)
def _known_tables():
    """The module's own tables stay in place here."""


def recorded(request):
    """What the electronic classifier was given by name, and what each classifier answered."""
    spies = {name: mock.Mock(wraps=own) for name, own in CLASSIFIERS.items()}
    with mock.patch.multiple(mc, **spies):
        mc.characterize_material(**request)
    calls = {name: spy.call_args for name, spy in spies.items() if spy.called}
    answers = {name: CLASSIFIERS[name](*args, **named) for name, (args, named) in calls.items()}
    args, named = calls["_electronic_class"]
    return inspect.signature(mc._electronic_class).bind(*args, **named).arguments, answers


def written(request):
    """The texts of a request by place."""
    manifest, intent = request.get("planner_manifest") or {}, request.get("query_intent") or {}
    texts = {"query_text": request.get("query_text") or ""}
    parts = {"findings": [*(request.get("findings") or ())]}
    parts |= {f"planner_manifest.{key}": manifest.get(key) or "" for key in ("purpose", "notes")}
    for place, part in parts.items():
        listed = {f"{place}[{n}]": str(item) for n, item in enumerate(part)}
        texts |= listed if isinstance(part, list) else {place: str(part)}
    return texts | {DESCRIPTION: str(intent.get("structure_description") or "")}


def blanked(texts, wording, *, alone=False):
    """The texts without the wording, or with nothing but that."""
    result = {place: " " * len(text) if alone else text for place, text in texts.items()}
    for place, start, end in ((c["where"], c["start"], c["end"]) for c in wording):
        kept = texts[place][start:end] if alone else " " * (end - start)
        result[place] = result[place][:start] + kept + result[place][end:]
    return result


def without_answers(causes):
    """The tables and functions that say no where they decided."""
    new = {}
    for cause in causes:
        if cause["kind"] == "function":
            new[cause["function"]] = mock.Mock(return_value=False)
        elif cause["kind"] == "table":
            table = new.get(cause["table"], getattr(mc, cause["table"]))
            entries = (table() if callable(table) else table) - {cause["entry"]}
            new[cause["table"]] = mock.Mock(return_value=entries) if callable(table) else entries
    return new


def decide(field, request, calls, texts, away):
    """The field decided again with these texts, and with those causes taken away."""
    request = copy.deepcopy(request)
    request |= {"base_characterization": None, "query_text": texts["query_text"]}
    intent = request["query_intent"] = request.get("query_intent") or {}
    if intent.get("structure_description"):
        intent["structure_description"] = texts[DESCRIPTION]
    for cause in away:
        if cause["kind"] in ("argument", "intent"):
            *path, key = cause["where"].split(".")
            reduce(getitem, path, request).pop(key, None)
    gone = {cause.get("field", cause.get("text")) for cause in away if "start" not in cause}
    given, answers = calls
    new = {name: EMPTY[name[1:]] if name[1:] in gone else value for name, value in answers.items()}
    if field != "species":
        species = [] if "species" in gone else [s for s in given["species"] if s not in gone]
        new |= {"_species_from_element_block": species, "_species_from_text": []}
        if field != "formula_hint":
            formula = "" if "formula_hint" in gone else given["formula_hint"]
            new["_formula_hint"] = intent["formula"] = formula
    new.pop(f"_{field}", None)
    new["_combined_text"] = mc._combined_text(texts["query_text"], [*texts.values()][1:-1])
    new = {name: mock.Mock(return_value=value) for name, value in new.items()}
    with mock.patch.multiple(mc, **new, **without_answers(away)):
        return mc.characterize_material(**request)[field]


def assert_proven(request):
    """Returns how many causes name a row of a table."""
    explanation = explain(**copy.deepcopy(request))
    assert explanation["record"] == mc.characterize_material(**copy.deepcopy(request))
    json.dumps(explanation["fields"])
    calls, texts, rows = recorded(copy.deepcopy(request)), written(request), 0
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
        assert len({str(cause) for cause in wording}) == len(wording), (request, field)
        for cause in (cause for cause in causes if "table" in cause):
            line = linecache.getline(str(DATA / cause["file"]), cause["line"])
            assert cause.get("rule", cause["entry"]) in line, cause
            rows += 1
        for cause in wording:
            assert texts[cause["where"]][cause["start"] : cause["end"]] == cause["text"]
            assert cause["text"] in cause.get("within", cause["text"])
        less = decide(field, request, calls, blanked(texts, wording), own)
        assert not own or less != label, (request, field)
        before = {key: value for key, value in base.items() if key == field}
        earlier = mc.characterize_material(step="", base_characterization=before)[field]
        is_last = less == EMPTY[field] and len(own) == len(causes)
        assert found["otherwise"] == (earlier if is_last else less), (request, field, found)
        for cause in wording:
            if field == "species":
                named = {symbol for other in wording for symbol in other["symbols"]}
                assert named >= {*label} or len(wording) < len(own)
                assert mc._species_from_text(cause["text"]) in (cause["symbols"], [])
                assert {*cause["symbols"]} & {*label}
            else:
                pairs = (blanked(texts, [cause, other], alone=True) for other in wording)
                outcomes = (decide(field, request, calls, pair, []) for pair in pairs)
                assert label in outcomes, (request, field, cause)
    return rows


def test_causes_are_proven_for_the_collection():
    for row in REQUESTS:
        inputs = {key: value for key, value in row.items() if key not in ("expect", "query")}
        assert_proven({"step": "scf", "query_text": row.get("query", ""), **inputs})
    for phrase in [*mc.FORMULA_ALIASES][::400]:
        assert assert_proven({"step": "", "query_text": phrase}) >= 2


def test_causes_are_proven_for_random_requests():
    """Explaining changes no request, and fails where the rules do."""

    def outcome(call, request):
        try:
            return repr(call(**request))
        except Exception as error:
            return type(error)

    generator = Generator(17)
    for _ in range(600):
        request, is_good = generator.request()
        if is_good:
            before = repr(request)
            assert_proven(request)
            assert repr(request) == before
        explained = outcome(lambda **given: explain(**given)["record"], request)
        assert explained == outcome(mc.characterize_material, request)


@pytest.mark.parametrize(
    ("marked", "field"),
    [
        ({"query_text": "İ as«soc»iated \ud800"}, "magnetic_class"),
        ({"query_text": "\u2003 half-«metal»,\n"}, "electronic_class"),
        ({"query_text": "a «tip» on samples, a «Sample» «sample»  «tip»"}, "structure_archetype"),
        ({"query_text": "on («Pt»(111))"}, "species"),
        ({"query_text": "crystal «uo$_2$)» "}, "species"),
        ({"query_text": "CO/«Pt(111)» 5 K"}, "formula_hint"),
        ({"query_text": "«x\nSNI2.-»"}, "formula_hint"),
        ({"query_text": "«α-fe₂o₃» heated"}, "formula_hint"),
        ({"findings": [None, {"of": " «slab»"}, "«SLAB»"]}, "structure_mode"),
        ({"planner_manifest": {"purpose": {1: "«soc»"}, "notes": ["«soc»"]}}, "magnetic_class"),
        ({"query_text": "«gallium»", "findings": ["«arsenide»"]}, "formula_hint"),
    ],
)
def test_places_of_words(marked, field):
    request = ast.literal_eval(repr(marked).translate(dict.fromkeys(map(ord, "«»"))))
    texts = written(request)
    given = request | {"findings": iter(request.get("findings", ()))}
    for cause in reversed(explain(step="scf", **given)["fields"][field]["causes"]):
        text, start, end = texts[cause["where"]], cause["start"], cause["end"]
        texts[cause["where"]] = f"{text[:start]}«{cause['text']}»{text[end:]}"
    assert texts == written(marked)


def test_what_decided_first():
    base = {"correlation_class": "dftu_sensitive"}
    stated = {"query_intent": {"correlation": "hybrid"}, "base_characterization": base}
    found = explain(step="x", query_text="DFT+U for Fe2O3", **stated)["fields"]["correlation_class"]
    kinds = [cause["kind"] for cause in found["causes"]]
    assert kinds == ["intent", "wording", "table", "function", "earlier record"]


def test_tables_replaced_in_the_module_in_use_are_asked(monkeypatch):
    monkeypatch.setattr(mc, "SEMICONDUCTOR_FORMULAS", frozenset({"Xx"}))
    found = explain(step="", query_intent={"formula": "Xx"})["fields"]["electronic_class"]
    assert (found["label"], found["causes"][0]["entry"]) == ("semiconductor", "Xx")


def test_a_value_that_explains_in_between():
    class Curious:
        def __str__(self):
            explain(step="", query_text="DFT+U for Fe2O3 in eV", query_intent={"formula": "NiO"})
            return "soc"

    found, plain = (explain(step="", query_text="NiO", findings=[f]) for f in (Curious(), "soc"))
    assert found == plain


def test_threads_explain_side_by_side():
    def work(query):
        return explain(step="", query_text=query)

    queries = ["GaN with soc", "hubbard NiO", "graphene"] * 4
    with ThreadPoolExecutor(len(queries)) as pool:
        assert [*pool.map(work, queries)] == [*map(work, queries)]


@pytest.mark.parametrize(
    ("findings", "causes", "trials"),
    [
        *(([f * 10_000], 10_000, 500) for f in ("soc", "NiO ", "iron, ", "sample tip ", "2d")),
        # Names of several words in as many findings, among words that name something alone.
        (" ".join([*mc.FORMULA_ALIASES][::100]).split(), 500, 20_000),
    ],
)
def test_a_trial_of_many_reads_few_of_the_words(findings, causes, trials, monkeypatch):
    """Trials are counted as calls of the functions, and what they read as characters and items. A
    search that begins anew at each cause reads the whole request for each."""
    read = []

    def counted(function):
        def called(*given, **named):
            values = (*given, *named.values())
            read.append(sum(len(value) for value in values if isinstance(value, (str, list))))
            return function(*given, **named)

        return called

    for name in (*CLASSIFIERS, "_species_from_text", "_combined_text"):
        monkeypatch.setattr(mc, name, counted(getattr(mc, name)))
    fields = explain(step="", findings=findings)["fields"]
    assert max(len(found["causes"]) for found in fields.values()) >= causes
    assert len(read) <= trials
    assert sum(read) <= 200 * sum(map(len, findings))


@pytest.mark.parametrize(
    ("word", "kinds", "said"),
    [
        ("hematite", "phrase", "FORMULA_ALIASES hematite mineral_names"),
        ("Fe", "element", "phase1_simple_ferromagnet_species Fe magnetism"),
        ("ZrTe5", "phrase formula", "Left out on purpose"),
        # A phrase of two tables: each has its own line.
        ("YAG:Ce3+", "phrase phrase", "ELEMENT_NAME_ALIASES yag:ce3+ _at_colons: A dopant"),
        ("gev center,", "phrase phrase", "FORMULA_ALIASES C surface_names"),
        # Forms: shown where the formula stands, or at the rule when that may be several lines.
        ("fe₂o₃,", "phrase", "FORMULA_ALIASES Fe2O3 written_formulas"),
        ("mg (0001),", "phrase", "FORMULA_ALIASES mg (0001), SURFACE_NAMES"),
        ("niobium monocarbide", "phrase", "FORMULA_ALIASES niobium monocarbide _counted: Elem"),
        ("uranium oxides", "phrase", "ELEMENT_NAME_ALIASES uranium oxides _plurals: The anion of"),
        ("soc", "keyword", "keyword: magnetic_class noncollinear_template"),
        ("exfoliated", "keyword", "layered_parent_exfoliation, by exfoliat"),
        ("SOC", "acronym keyword", "METHOD_ACRONYMS SOC _THREE: Runs of two or three capitals"),
        *(
            (word, "acronym", f"METHOD_ACRONYMS {word} method_acronyms")
            for word in ("NO", "K", "V", "I", "U", "UP", "IN", "TC")
        ),
        ("galium", "", "like: gallium "),
        ("wurtzit", "", "like: wurtzite "),
        ("antiferomagnetic", "", "like: antiferromagnetic "),
        ("dft+v", "", "like: dft+u "),
        ("wurtzite", "", "Left out: names that mean the structure"),
    ],
)
def test_lookup(word, kinds, said):
    answer = lookup(word)
    assert [reading["kind"] for reading in answer["readings"]] == kinds.split()
    assert not ((kinds or answer["alone"]) and answer["nearest"])
    lines = [f"like: {spelling} " for spelling in answer["nearest"][:1]]
    lines += [f"{reading['kind']}: {reading['meaning']}" for reading in answer["readings"]]
    lines += [remark["note"] for remark in answer["left_out"]]
    for table in answer["tables"]:
        place = table.get("rule", Path(table["file"]).stem)
        lines.append(f"{table['table']} {table['entry']} {place}: {table['note']}")
    assert any(said in line for line in lines)
    assert kinds or not (answer["tables"] or answer["alone"])


@pytest.mark.parametrize(
    ("query", "unread"),
    [
        ("relax gallium arsnide", "arsnide"),
        ("relax gallium arsenides", ""),
        ("ferite with (Fe0.5Ni0.5)", "Fe0.5Ni0.5 ferite"),
        ("halide perovskites", "perovskites"),
        ("[(PEA)2PbI4] (CsPbX3, ", "(PEA)2PbI4 CsPbX3"),
        ("LiCoO2 (U_Co = 3.3, U_{Ni-3d} = 6) at 0-24GPa (24.5GPa)", ""),
        (r"Mg_Ga, V_O^{2+} and $\mathrm{Zn_{Ga}}$ in GaN", ""),
        ("XFe_2O_4 and CsPbX_3", "CsPbX_3 XFe_2O_4"),
    ],
)
def test_words_not_read_as_a_material(query, unread):
    fields = explain(step="", query_text=query)["fields"]
    assert sorted(unread_words({"query_text": query}, fields)) == unread.split()
