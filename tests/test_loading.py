"""What the module takes from its companions when it is loaded, and what it says when it cannot."""

import sys
import types

import pytest
from reliability import copies

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


def test_acronyms_are_copied_once_from_any_iterable(companions):
    module = copies.fresh()
    companions[0].METHOD_ACRONYMS.clear()
    assert {"DFT", "HSE"} == module._NON_FORMULA_TOKENS
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
