"""The merge with an earlier characterization."""

import collections
import types

import pytest

from tavik_agent import material_characterization as mc


def merge(base, step="", **inputs):
    return mc.characterize_material(step=step, base_characterization=base, **inputs)


@pytest.mark.parametrize("base", [None, {}, [], 0, "", collections.ChainMap()])
def test_empty_base_is_none(base):
    assert merge(base, query_text="eV") == mc.characterize_material(step="", query_text="eV")


MERGED = [
    ({"material_family": "oxide", "magnetic_class": "x"}, {}, {}),
    ({"x": 1}, {}, {"x": 1, "material_family": "other", "magnetic_class": "unknown"}),
    ({"material_family": None, "formula_hint": 0}, {}, {}),  # there, so not filled
    ({"species": ("Fe",)}, {"query_intent": {"species": "o"}}, {"species": ["O"]}),
    ({"formula_hint": "FeO"}, {"query_intent": {"formula": " "}}, {}),
    ({"formula_hint": "FeO"}, {"query_text": "NiO"}, {"formula_hint": "NiO"}),
    ({"explicit_spin_mode": "", "requested_energy_unit": "eV"}, {}, {}),
    ({"step": "RELAX", "intent_complexity": "basic", "note": ""}, {}, {}),
    ({"step": "RELAX"}, {"step": "scf"}, {"step": "SCF"}),
    ({"intent_driven": True}, {}, {"intent_driven": False}),
    # the base's species are the call's last source, so they count
    ({"species": ["Fe", "O"], "confidence": 0.1}, {}, {"confidence": 0.65}),
]


@pytest.mark.parametrize(("base", "call", "merged"), MERGED)
def test_merged_values(base, call, merged):
    found = merge(types.MappingProxyType(base), **call)
    assert type(found) is dict
    assert found | base | merged == found


def test_keys_keep_the_order_in_which_they_are_written():
    found = merge({"x": 1, "formula_hint": "", "confidence": 0}, step="scf")
    written = "x formula_hint confidence step intent_driven evidence structure_mode "
    written += "structure_archetype electronic_class magnetic_class correlation_class "
    written += "material_family species requested_energy_unit explicit_spin_mode"
    assert " ".join(found) == written


EVIDENCE = [
    (["A", "B", "A"], ["A", "B"]),
    (("B", "structure mode=periodic_bulk", "A"), ["B", "structure mode=periodic_bulk", "A"]),
    ({"A": 1, 3: 2}, ["A", 3]),
    *((empty, []) for empty in (None, [], "", 0)),
]


@pytest.mark.parametrize(("earlier", "before"), EVIDENCE)
def test_evidence_accumulates_without_repeats(earlier, before):
    message = "query requested eV energy semantics (prose fallback)"
    new = [line for line in ("structure mode=periodic_bulk", message) if line not in before]
    assert merge({"evidence": earlier}, query_text="bulk eV")["evidence"] == before + new


Number = type("Number", (), {"__float__": lambda self: 0.75})
CONFIDENCES = [
    *(None, "", [], 0, 0.1, -1, 0.25, "0.2", "-inf", 0.75, "\u3000 0.75\n", Number(), True, 2),
    *("1_0.5", "\u0661", "inf", "nan", "high", "0.5 0.6", [0.5], 1j, "0.5\0", "\ud800"),
]


@pytest.mark.parametrize("earlier", CONFIDENCES)
def test_confidence_never_falls(earlier):
    """It is the number that Python's float gives; its errors pass."""

    def outcome(confidence):
        try:
            return repr(confidence())
        except (TypeError, ValueError) as error:
            return repr(error)

    expected = outcome(lambda: max(float(earlier or 0), 0.25))
    assert outcome(lambda: merge({"confidence": earlier})["confidence"]) == expected


@pytest.mark.parametrize("base", [5, "x", [1], {1}])
def test_base_that_is_no_mapping(base):
    with pytest.raises((AttributeError, TypeError)):
        merge(base)
