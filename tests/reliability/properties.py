"""What holds for every call of characterize_material, whatever it is given."""

import collections
import types
from typing import Literal, get_args, get_origin

from tavik_agent import characterization_types

HINTS = characterization_types.CharacterizationRecord.__annotations__
KEYS = [*HINTS]
LABELS = {key: get_args(hint) for key, hint in HINTS.items() if get_origin(hint) is Literal}
SIMPLE = get_args(characterization_types.IntentComplexity)
OPEN = ("", [], None, "unknown", "other")
COUNTED = {"structure_mode": 15, "electronic_class": 15, "magnetic_class": 15}
COUNTED |= {"correlation_class": 10, "species": 20, "formula_hint": 10}
PARAMS = ("step_params", "previous_steps_params")
OTHER_MAPPINGS = ("planner_manifest", "base_characterization", "query_intent")
MAPPINGS = [types.MappingProxyType, collections.ChainMap, collections.UserDict]
MAPPINGS += [collections.OrderedDict, type("D", (dict,), {})]
Text = type("Text", (str,), {})
Empty = type("Empty", (dict,), {"__bool__": lambda self: False})
# The decisions that the evidence reports, in order; the tests of the rules have the words.
REPORTED = "species formula_hint structure_mode structure_archetype electronic_class \
correlation_class intent_complexity magnetic_class material_family requested_energy_unit"


def outcome(module, request):
    """The record, or the error that a value of the wrong kind ends in."""
    try:
        return module.characterize_material(**request)
    except (AttributeError, TypeError, ValueError) as error:
        return error


def check_record(record):
    assert list(record) == KEYS
    kinds = {key: str if key in LABELS else get_origin(hint) or hint for key, hint in HINTS.items()}
    assert {key: type(value) for key, value in record.items()} == kinds
    assert all(record[key] in labels for key, labels in LABELS.items())
    assert all(type(symbol) is str and symbol.strip() for symbol in record["species"])
    assert len({*record["species"]}) == len(record["species"])
    words = [record[key] for key in ("intent_complexity", "intent_correlation", "intent_magnetism")]
    assert all(word == word.strip().lower() for word in words)
    assert record["intent_driven"] or not any(words)
    reported = iter(record["evidence"])
    for key in REPORTED.split():
        if record[key] in SIMPLE or (record[key] not in OPEN and key != "intent_complexity"):
            assert str(record[key]) in next(reported, ""), key
    assert next(reported, None) is None
    hundredths = 25 + sum(more for key, more in COUNTED.items() if record[key] not in OPEN)
    assert record["confidence"] == min(hundredths, 95) / 100


def check_merged(merged, base, alone):
    """`alone` is the record of the same call without the base."""
    assert list(merged)[: len(base)] == list(base)
    assert {*LABELS, "species", "formula_hint", "evidence", "confidence"} <= {*merged}
    for key in {*base} - {"evidence", "confidence"}:
        now, before = merged[key], base[key]
        assert now is before or (key in KEYS and now not in OPEN), key
    for key, labels in LABELS.items():
        assert merged[key] in labels or merged[key] is base.get(key), key
    assert not merged["confidence"] < float(base.get("confidence") or 0)
    messages = [*(base.get("evidence") or [])]
    if alone["species"]:  # else the base's species may decide what the call alone left open
        messages += alone["evidence"]
        decided = {key for key in KEYS[:-2] if alone[key] not in OPEN}
        assert all(merged[key] == alone[key] for key in decided)
        assert not merged["confidence"] < alone["confidence"]
    messages = [*dict.fromkeys(messages)]
    assert merged["evidence"][: len(messages)] == messages


def in_other_types(request, kind, fits):
    """The same request in types that Python must be asked for everything."""

    def remade(value, deeply):
        if type(value) is not dict:
            return value
        return kind({k: remade(entry, deeply) if deeply else entry for k, entry in value.items()})

    texts = {key: Text(value) for key, value in request.items() if type(value) is str}
    # What the text form is read of may name its type.
    params = {key: remade(request[key], fits) for key in PARAMS}
    return request | texts | params | {key: remade(request[key], False) for key in OTHER_MAPPINGS}


def check(module, replaced, request, fits, number):
    """Raises AssertionError when the call, or another that must agree with it, breaks a promise;
    `replaced` is a module with other tables and functions of the same effect under its names."""
    before, found = repr(request), outcome(module, request)
    is_record = not isinstance(found, Exception)
    assert is_record or not fits, found
    changed = outcome(module, request)
    if is_record:
        changed["evidence"].append("not the argument's, nor of a later record")
    assert repr(outcome(module, request)) == repr(found), "another answer to the same call"
    assert repr(outcome(replaced, request)) == repr(found), "another answer by replaced names"
    kind = MAPPINGS[number % len(MAPPINGS)]
    other = outcome(module, in_other_types(request, kind, fits))
    assert type(other) is type(found), "another outcome for other types"
    assert not is_record or repr(other) == repr(found), "another answer to other types"
    name = (*OTHER_MAPPINGS, *PARAMS)[number // len(MAPPINGS) % 5]
    empty = Empty(request[name]) if type(request[name]) is dict else {}
    without = repr(outcome(module, request | {name: None}))
    assert repr(outcome(module, request | {name: empty})) == without, "emptiness is not asked for"
    assert repr(request) == before, "an argument changed"
    if is_record:
        base = request["base_characterization"]
        alone = outcome(module, request | {"base_characterization": None}) if base else found
        if base:
            check_merged(found, base, alone)
        check_record(alone)
        again = outcome(module, request | {"base_characterization": alone})
        assert repr(again) == repr(alone), "a merge with itself changes a record"
