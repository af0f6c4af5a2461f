"""The module as its host sees it: signatures, refusals, mappings, names, results."""

import collections
import copy
import inspect
import pickle
import types
from unittest import mock

import pytest

from tavik_agent import material_characterization as mc

SIGNATURES = """
characterize_material(*, step, step_params=None, query_text="", findings=None, \
planner_manifest=None, previous_steps_params=None, base_characterization=None, query_intent=None)
classify_system_class(species, *, formula_hint="", explicit_text="", structure_archetype="")
_combined_text(*parts)
_species_from_element_block(element_block)
_formula_parts(token)
_species_from_text(text)
_formula_hint(text, species)
_structure_mode(step_params, combined_text)
_structure_archetype(*, structure_mode, combined_text, query_text="", query_intent=None)
_electronic_class(species, formula_hint, explicit_text, structure_archetype="")
_correlation_class(species, formula_hint, combined_text, *, intent_correlation="", \
intent_complexity="")
_magnetic_class(species, formula_hint, combined_text, correlation_class, *, intent_magnetism="", \
intent_complexity="")
_material_family(species, structure_mode, electronic_class, formula_hint, structure_archetype="")
"""
TWINS = {}  # host functions with the same names and parameters that do nothing
for line in SIGNATURES.strip().splitlines():
    exec(f"def {line}: pass", TWINS)
del TWINS["__builtins__"]


def refusal(function, args, kwargs):
    try:
        function(*args, **kwargs)
    except TypeError as error:
        return str(error)
    return None


@pytest.mark.parametrize("name", TWINS)
def test_function_is_an_ordinary_one(name):
    function, twin = getattr(mc, name), TWINS[name]
    assert inspect.signature(function) == inspect.signature(twin)
    assert function.__name__ == name
    assert inspect.getdoc(function)
    assert pickle.loads(pickle.dumps(function)) is function
    names = [] if name == "_combined_text" else list(inspect.signature(twin).parameters)
    every = dict.fromkeys(names, "x")
    calls = [((), {}), (("x",) * 9, {}), (("x",) * 9, every), (("x",), every)]
    calls += [((), every | {key: 1}) for key in ("bogus", "parts", "\ud800", "", 3)]
    calls += [(("x",) * count, {}) for count in range(1, 6)]
    calls += [((), {key: 1 for key in names if key != left_out}) for left_out in names]
    calls += [((), every | {key[:-1]: 1}) for key in names]  # misspelt
    refused = [call for call in calls if refusal(twin, *call)]
    assert len(refused) > 3
    for call in refused:
        assert refusal(function, *call) == refusal(twin, *call)


class Own(collections.abc.Mapping):
    def __init__(self, content):
        self._content = dict(content)

    def __getitem__(self, key):
        return self._content[key]

    def __iter__(self):
        return iter(self._content)

    def __len__(self):
        return len(self._content)


INPUTS = {
    "step_params": {"element": {"Fe": {"species": "fe"}, "O": 1}, "atom": {"xyz": [1]}},
    "query_text": "Fe2O3 slab",
    "findings": ["a finding", 3, ["x"]],
    "planner_manifest": {"purpose": "in eV", "notes": ["n"]},
    "previous_steps_params": {"a": {"element": ["Fe"]}},
    "base_characterization": {"evidence": ["A"], "species": ["Cu"], "confidence": "0.1", "z": 1},
    "query_intent": {"species": ["fe", "o"], "units": {"energy": "Ha"}, "complexity_hint": "basic"},
}
MAPPINGS = [types.MappingProxyType, collections.ChainMap, collections.UserDict, Own]


@pytest.mark.parametrize("make", [*MAPPINGS, collections.OrderedDict, collections.Counter])
def test_every_mapping_is_a_mapping(make):
    def remade(value):
        if not isinstance(value, dict):
            return value
        return make({key: remade(entry) for key, entry in value.items()})

    inputs = {name: remade(value) for name, value in INPUTS.items()}
    found = mc.characterize_material(step="a", **inputs)
    expected = mc.characterize_material(step="a", **INPUTS)
    assert type(found) is dict
    assert list(found.items()) == list(expected.items())


@pytest.mark.parametrize("name", [name for name, value in INPUTS.items() if type(value) is dict])
def test_emptiness_is_the_truth_value(name):
    class Empty(dict):
        def __bool__(self):
            return False

    with_empty = mc.characterize_material(step="", **(INPUTS | {name: Empty(INPUTS[name])}))
    assert with_empty == mc.characterize_material(step="", **(INPUTS | {name: None}))


def test_arguments_are_not_changed_and_results_are_new():
    inputs = copy.deepcopy(INPUTS)
    base = {"species": ["Cu"], "evidence": ["A"]}
    for given in (inputs, {"base_characterization": base}):
        before = copy.deepcopy(given)
        first, second = (mc.characterize_material(step="", **given) for _ in range(2))
        for key in ("species", "evidence"):
            first[key].append("changed")
        assert first != second == mc.characterize_material(step="", **given)
        assert given == before


def test_rebound_name_is_used_until_it_is_put_back(monkeypatch):
    def mode():
        return mc.characterize_material(step="", query_text="bulk")["structure_mode"]

    with mock.patch.object(mc, "_structure_mode", autospec=True, return_value="other") as stand_in:
        assert mode() == "other"
    stand_in.assert_called_once_with({}, "bulk")
    assert mode() == "periodic_bulk"
    monkeypatch.delattr(mc, "_structure_mode")
    with pytest.raises(NameError, match="_structure_mode"):
        mode()
