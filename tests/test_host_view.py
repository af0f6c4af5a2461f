"""The module as its host sees it: signatures, refusals, mappings, names, errors, references."""

import collections
import copy
import gc
import inspect
import pickle
import sys
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


class Failure(BaseException):
    """No error of the usual kind, so that nothing may catch it in passing."""


class Failing:
    """A value of which every use fails, always with the same error."""

    def fail(self, *args, **kwargs):
        raise FAILURE

    __call__ = __contains__ = __iter__ = __bool__ = __str__ = __len__ = __float__ = fail
    items = union = get = fail


FAILURE = Failure("as it was raised")
FAILING = Failing()
EVERY_STAGE = {
    "step": "a",
    "query_text": "NiO",
    "previous_steps_params": {"a": {"element": None}},
    "query_intent": {"x": 1},
}
REBINDABLE = [name for name in vars(mc) if not name.startswith("__") and not name.endswith("_RE")]
UNUSED = "characterize_material METHOD_ACRONYMS is_transition_metal_oxide INSULATOR_FORMULAS \
NONMAGNETIC_METAL_SPECIES COMPLEX_MAGNETIC_SPECIES"


@pytest.mark.parametrize("name", sorted({*REBINDABLE} - {*UNUSED.split()}))
def test_error_of_a_rebound_name_is_not_touched(monkeypatch, name):
    monkeypatch.setattr(mc, name, FAILING)
    with pytest.raises(Failure) as caught:
        mc.characterize_material(**EVERY_STAGE)
    assert caught.value is FAILURE
    assert caught.value.__context__ is None


KEYS = "species formula correlation magnetism complexity_hint structure_description"
FAILING_INPUTS = [
    *({name: FAILING} for name in ("step", *INPUTS)),
    *({"query_intent": {key: FAILING}} for key in KEYS.split()),
    *({"base_characterization": {key: FAILING}} for key in ("species", "evidence", "confidence")),
    *({name: {"species": ["Fe", FAILING]}} for name in ("query_intent", "base_characterization")),
    {"query_intent": {"units": {"energy": FAILING}}},
    {"findings": ["a", FAILING]},
]


def test_no_reference_is_lost_or_kept():
    inputs = {"step": "".join(["st", "ep"]), **copy.deepcopy(INPUTS)}

    def attempt(function, *args, **kwargs):
        try:
            return function(*args, **kwargs)
        except (Failure, TypeError, ValueError, AttributeError):
            return None

    def every_path():
        attempt(mc.characterize_material, **inputs)
        attempt(mc.characterize_material, inputs, bogus=1)
        for failing in (*FAILING_INPUTS, *({name: 5} for name in inputs)):
            attempt(mc.characterize_material, **(inputs | failing))
        for name in REBINDABLE:
            with mock.patch.object(mc, name, FAILING):
                attempt(mc.characterize_material, **EVERY_STAGE)
                attempt(mc.classify_system_class, inputs["findings"])
        attempt(mc._combined_text, inputs["findings"], [FAILING], bogus=1)
        attempt(mc._species_from_element_block, [inputs["step_params"]["element"], FAILING])
        attempt(mc._formula_hint, "Xy", [inputs["step"], FAILING])

    def counts():
        FAILURE.__traceback__ = None
        gc.collect()
        return [sys.getrefcount(value) for value in watched]

    record = mc.characterize_material(**inputs)
    watched = [FAILING, FAILURE, *inputs.values(), *record.values(), *record["evidence"]]
    watched += [getattr(mc, name) for name in REBINDABLE]
    every_path()
    before, growth = counts(), []
    for _ in range(6):
        blocks = sys.getallocatedblocks()
        for _ in range(100):
            every_path()
        assert counts() == before
        growth.append(sys.getallocatedblocks() - blocks)
    # The host's caches fill up at first. An object lost in each round would show in every batch.
    assert min(growth) < 100
