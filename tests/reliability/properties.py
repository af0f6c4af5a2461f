"""What holds for every call of characterize_material, whatever it is given."""

import collections
import types

RECORD = (
    "step structure_mode structure_archetype electronic_class magnetic_class correlation_class \
material_family species formula_hint requested_energy_unit explicit_spin_mode intent_complexity \
intent_correlation intent_magnetism intent_driven evidence confidence"
)
KEYS = RECORD.split()
LABELS = {
    "structure_mode": "external_structure periodic_bulk molecule_or_cluster unknown",
    "structure_archetype": "stm_sample_tip layered_parent_exfoliation zincblende graphene_2d \
hbn_2d tmd_2d phosphorene_2d mxene_2d two_dimensional surface_slab unknown",
    "electronic_class": "metal semiconductor insulator unknown",
    "magnetic_class": "nonmagnetic simple_ferromagnet collinear_magnetic template_antiferromagnet \
noncollinear_template complex_magnetic unknown",
    "correlation_class": "dftu_sensitive plain_dft unknown",
    "material_family": "two_dimensional molecule semiconductor oxide elemental_metal alloy other",
}
OPEN = ("", [], None, "unknown", "other")
SIMPLE = ("simple", "tutorial", "minimal", "basic")
COUNTED = {"structure_mode": 15, "electronic_class": 15, "magnetic_class": 15}
COUNTED |= {"correlation_class": 10, "species": 20, "formula_hint": 10}
MAPPINGS = [
    types.MappingProxyType,
    collections.ChainMap,
    collections.UserDict,
    type("D", (dict,), {}),
]
Text = type("Text", (str,), {})


def outcome(module, request):
    """The record, or the error that a value of the wrong kind ends in."""
    try:
        return module.characterize_material(**request)
    except (AttributeError, TypeError, ValueError) as error:
        return error


def evidence_of(record):
    """For each decision the messages that may report it; none for one that was left open."""
    species, formula, unit = (record[key] for key in KEYS[7:10])
    complexity = record["intent_complexity"]
    labels = {
        key: [f"{key.replace('_', ' ')}={record[key]}"] * (record[key] not in OPEN)
        for key in LABELS
    }
    yield bool(species) * [
        f"element definitions declare species {species}",
        f"user query explicitly named species {species} (LLM intent)",
        f"reused prior-step species {species}",
        f"prose-scanned fallback species {species} (low confidence)",
    ]
    yield bool(formula) * [
        f"user query explicitly wrote formula {formula} (LLM intent)",
        f"formula hint {formula}",
    ]
    yield from (labels[key] for key in ("structure_mode", "structure_archetype"))
    yield from (labels[key] for key in ("electronic_class", "correlation_class"))
    suppressed = "complex-material heuristics suppressed"
    yield (complexity in SIMPLE) * [
        f"user query flagged as {complexity} (LLM intent) \u2014 {suppressed}"
    ]
    yield from (labels[key] for key in ("magnetic_class", "material_family"))
    yield bool(unit) * [
        f"user query requested {unit} energy semantics (LLM intent)",
        f"query requested {unit} energy semantics (prose fallback)",
    ]


def check_record(record):
    assert list(record) == KEYS
    for key, labels in LABELS.items():
        assert record[key] in labels.split(), key
    assert record["requested_energy_unit"] in ("", "eV", "Hartree")
    assert record["explicit_spin_mode"] in ("", "collinear", "non-collinear")
    assert all(type(symbol) is str and symbol.strip() for symbol in record["species"])
    assert len({*record["species"]}) == len(record["species"])
    words = [record[key] for key in ("intent_complexity", "intent_correlation", "intent_magnetism")]
    assert all(word == word.strip().lower() for word in words)
    assert record["intent_driven"] is True or (record["intent_driven"] is False and not any(words))
    reported = iter(record["evidence"])
    for messages in evidence_of(record):
        assert not messages or next(reported, None) in messages, messages
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
        assert merged[key] in labels.split() or merged[key] is base.get(key), key
    assert not merged["confidence"] < float(base.get("confidence") or 0)
    messages = [*(base.get("evidence") or [])]
    if alone["species"]:  # else the base's species may decide what the call alone left open
        messages += alone["evidence"]
        decided = {key for key in KEYS[:-2] if alone[key] not in OPEN}
        assert all(merged[key] == alone[key] for key in decided)
        assert not merged["confidence"] < alone["confidence"]
    messages = [*dict.fromkeys(messages)]
    assert merged["evidence"][: len(messages)] == messages


def check_classifiers(module, request, record):
    """Each classifier on its own says what it said within the call."""
    query, intent = request["query_text"], request["query_intent"] or {}
    manifest, findings = request["planner_manifest"] or {}, list(request["findings"] or [])
    text = module._combined_text(query, findings, manifest.get("purpose"), manifest.get("notes"))
    mode, archetype, electronic, magnetic, correlation, family, species, hint = (
        record[key] for key in KEYS[1:9]
    )
    complexity = record["intent_complexity"]
    assert mode == module._structure_mode(request["step_params"] or {}, query or text)
    assert archetype == module._structure_archetype(
        structure_mode=mode, combined_text=text, query_text=query, query_intent=intent
    )
    assert electronic == module._electronic_class(species, hint, query, archetype)
    options = {"intent_correlation": record["intent_correlation"], "intent_complexity": complexity}
    assert correlation == module._correlation_class(species, hint, text, **options)
    options = {"intent_magnetism": record["intent_magnetism"], "intent_complexity": complexity}
    assert magnetic == module._magnetic_class(species, hint, text, correlation, **options)
    assert family == module._material_family(species, mode, electronic, hint, archetype)


def in_other_types(request, number):
    """The same request in host types that must be asked for everything."""
    kind = MAPPINGS[number % len(MAPPINGS)]
    texts = {key: Text(value) for key, value in request.items() if type(value) is str}
    # Of a step or a query that is a mapping the text form is read, which may name its type.
    read = [
        key for key in request if type(request[key]) is dict and key not in ("step", "query_text")
    ]
    return request | texts | {key: kind(request[key]) for key in read}


def check(module, replaced, request, fits, number):
    """Raises AssertionError when the call, or another that must agree with it, breaks a promise;
    `replaced` is a module with other tables and functions of the same effect under its names."""
    before = repr(request)
    found = outcome(module, request)
    is_record = not isinstance(found, Exception)
    assert is_record or not fits, found
    assert repr(outcome(module, request)) == repr(found), "another answer to the same call"
    assert repr(outcome(replaced, request)) == repr(found), "another answer by replaced names"
    other = outcome(module, in_other_types(request, number))
    assert type(other) is type(found), "another outcome for other types"
    assert not is_record or repr(other) == repr(found), "another answer to other types"
    assert repr(request) == before, "an argument changed"
    if is_record:
        base = request["base_characterization"]
        alone = outcome(module, request | {"base_characterization": None}) if base else found
        if base:
            check_merged(found, base, alone)
        check_record(alone)
        check_classifiers(module, request, alone)
        again = outcome(module, request | {"base_characterization": alone})
        assert repr(again) == repr(alone), "a merge with itself changes a record"
