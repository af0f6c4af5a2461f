"""The module as Python sees it: what it takes from its companions when it is loaded, what it says
when it cannot, the signatures of its functions, and the calls that they refuse."""

import inspect
import itertools
import pickle
import sys
import types

import pytest
from reliability import calls, copies

from tavik_agent import material_characterization as mc

ACRONYMS, REFERENCE = copies.acronyms.__name__, copies.reference.__name__
NAMES = copies.reference.__all__


@pytest.fixture
def companions(monkeypatch):
    """Companion modules that have these names and no others."""
    acronyms, reference = types.ModuleType(ACRONYMS), types.ModuleType(REFERENCE)
    acronyms.METHOD_ACRONYMS = {"DFT", "HSE"}
    vars(reference).update({name: getattr(copies.reference, name) for name in NAMES})
    for module in (acronyms, reference):
        monkeypatch.setitem(sys.modules, module.__name__, module)
    return acronyms, reference


def test_names_are_those_of_the_companions(companions):
    module = copies.fresh()
    assert module.METHOD_ACRONYMS is companions[0].METHOD_ACRONYMS
    assert all(getattr(module, name) is getattr(companions[1], name) for name in NAMES)
    companions[0].METHOD_ACRONYMS.clear()
    assert {"DFT", "HSE"} == module._NON_FORMULA_TOKENS


@pytest.mark.parametrize("companion", [ACRONYMS, REFERENCE])
def test_companion_is_missing(companions, companion, monkeypatch):
    monkeypatch.setitem(sys.modules, companion, None)
    with pytest.raises(ModuleNotFoundError) as missing:
        copies.fresh()
    assert missing.value.name == companion


@pytest.mark.parametrize("name", ["METHOD_ACRONYMS", *NAMES])
def test_name_is_missing(companions, name):
    companion = companions[name != "METHOD_ACRONYMS"]
    delattr(companion, name)
    with pytest.raises(ImportError) as by_python:
        exec(f"from {companion.__name__} import {name}")
    with pytest.raises(ImportError) as found:
        copies.fresh()
    assert (found.type, str(found.value)) == (by_python.type, str(by_python.value))
    assert vars(found.value) == vars(by_python.value)
    assert (found.value.name, found.value.name_from) == (companion.__name__, name)


def test_acronyms_are_copied_from_any_iterable(companions):
    companions[0].METHOD_ACRONYMS = iter(["DFT", "HSE", "DFT"])
    tokens = copies.fresh()._NON_FORMULA_TOKENS
    assert (type(tokens), tokens) == (set, {"DFT", "HSE"})


def test_copies_of_the_module_are_independent(companions):
    first = copies.fresh()
    companions[1].KNOWN_ELEMENT_SYMBOLS = {"H"}
    second = copies.fresh()
    second._structure_mode = lambda *_: "other"
    found = [(m._formula_parts("O"), m._structure_mode({}, "")) for m in (first, second)]
    assert found == [([("O", 1)], "unknown"), ([], "other")]


def test_module_that_was_not_executed_refuses_calls():
    with pytest.raises(RuntimeError, match="material_characterization is not loaded"):
        copies.unloaded().classify_system_class(["Fe"])


def refusal(function, args, kwargs):
    """What it says of arguments that do not fit its signature; nothing of others."""
    try:
        function(*args, **kwargs)
    except (TypeError, AttributeError) as error:
        return str(error) if str(error).startswith(f"{function.__name__}() ") else ""
    return ""


@pytest.mark.parametrize("name", calls.FUNCTIONS)
def test_function_is_an_ordinary_one(name):
    """Its calls are refused as those of a Python function with its signature, in the same words."""
    function, by_python = getattr(mc, name), {}
    signature = inspect.signature(function)
    exec(f"def {name}{signature}: pass", by_python)
    assert function.__name__ == name
    assert inspect.getdoc(function)
    assert pickle.loads(pickle.dumps(function)) is function
    names = [] if name == "_combined_text" else [*signature.parameters]
    every = dict.fromkeys(names, "")
    kwargs = [{}, every, *(every | {key: ""} for key in ("bogus", "parts", "\ud800", ""))]
    kwargs += [{key: "" for key in names if key != left_out} for left_out in names]
    kwargs += [dict.fromkeys(names[first:], "") for first in range(len(names))]
    kwargs += [{key[:-1] if key == wrong else key: "" for key in names} for wrong in names]
    for call in itertools.product([("",) * count for count in range(10)], kwargs):
        expected, found = (refusal(called, *call) for called in (by_python[name], function))
        assert bool(expected) == bool(found), call
        if not call[1] or " but " not in found:  # where Python counts the keywords, too
            assert expected.partition(". Did you mean")[0] == found, call
