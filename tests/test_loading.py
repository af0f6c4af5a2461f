"""Loading: what the module imports, what it does without, and many copies of it side by side."""

import subprocess
import sys
import textwrap

import pytest

ACRONYMS = "tavik_agent.method_acronyms"
REFERENCE = "tavik_agent.material_reference_data"
TABLES = "KNOWN_ELEMENT_SYMBOLS FORMULA_ALIASES ELEMENT_NAME_ALIASES SEMICONDUCTOR_FORMULAS \
INSULATOR_FORMULAS DFTU_SENSITIVE_FORMULAS NONMAGNETIC_METAL_SPECIES COMPLEX_MAGNETIC_SPECIES"
FUNCTIONS = "phase1_simple_ferromagnet_species collinear_magmom_seed_species \
is_transition_metal_oxide"

# Companion modules that note which of their names are taken.
COMPANIONS = f"""
import gc, importlib, re, sys, types

taken = []
class Companion(types.ModuleType):
    def __getattribute__(self, name):
        taken.append(name)
        return super().__getattribute__(name)

acronyms, reference = Companion({ACRONYMS!r}), Companion({REFERENCE!r})
sys.modules[{ACRONYMS!r}], sys.modules[{REFERENCE!r}] = acronyms, reference
acronyms.METHOD_ACRONYMS = {{"DFT", "HSE"}}
for name in {TABLES!r}.split():
    setattr(reference, name, {{}} if "ALIASES" in name else frozenset({{"Fe", "O"}}))
for name in {FUNCTIONS!r}.split():
    setattr(reference, name, lambda *species: set())

def load():
    return importlib.import_module("tavik_agent.material_characterization")

def refused():
    try:
        load()
    except ImportError as error:
        assert "tavik_agent.material_characterization" not in sys.modules
        return error

def check_works():
    assert load().characterize_material(step="a", query_text="FeO")["species"] == ["Fe", "O"]
"""


def run(code):
    """Runs code in a host process of its own that has the companions above."""
    command = [sys.executable, "-c", COMPANIONS + textwrap.dedent(code)]
    done = subprocess.run(command, capture_output=True, text=True, timeout=60, check=False)
    assert done.returncode == 0, done.stderr


def test_names_and_constants():
    run(rf"""
    mc = load()
    assert mc is load()
    names = [name for name in taken if not name.startswith("__")]
    assert names[0] == "METHOD_ACRONYMS"
    assert sorted(names[1:]) == sorted({(TABLES + " " + FUNCTIONS)!r}.split())
    for name in names[1:]:
        assert getattr(mc, name) is getattr(reference, name), name
    assert mc._FORMULA_TOKEN_RE == re.compile(r"\b(?:[A-Z][a-z]?\d*){{1,8}}\b")
    assert mc._FORMULA_PART_RE == re.compile(r"([A-Z][a-z]?)(\d*)")
    """)


@pytest.mark.parametrize("companion", [ACRONYMS, REFERENCE])
def test_companion_is_missing(companion):
    run(f"""
    held, sys.modules[{companion!r}] = sys.modules[{companion!r}], None  # cannot be found
    error = refused()
    assert type(error) is ModuleNotFoundError and error.name == {companion!r}, error
    sys.modules[{companion!r}] = held
    check_works()
    """)


@pytest.mark.parametrize("name", ["METHOD_ACRONYMS", *f"{TABLES} {FUNCTIONS}".split()])
def test_name_is_missing(name):
    companion = ACRONYMS if name == "METHOD_ACRONYMS" else REFERENCE
    run(f"""
    held = vars(sys.modules[{companion!r}]).pop({name!r})
    error = refused()
    try:
        from {companion} import {name}
    except ImportError as by_host:
        assert (type(error), str(error)) == (type(by_host), str(by_host)), error
        assert error.name == by_host.name == {companion!r}
        assert error.name_from == by_host.name_from == {name!r}
    setattr(sys.modules[{companion!r}], {name!r}, held)
    check_works()
    """)


def test_acronyms_are_copied_once_from_any_iterable():
    run("""
    held = acronyms.METHOD_ACRONYMS
    assert load()._NON_FORMULA_TOKENS == held
    held.clear()
    assert load()._NON_FORMULA_TOKENS == {"DFT", "HSE"}
    del sys.modules["tavik_agent.material_characterization"]
    acronyms.METHOD_ACRONYMS = iter(["DFT", "HSE", "DFT"])
    assert load()._NON_FORMULA_TOKENS == {"DFT", "HSE"}
    assert type(load()._NON_FORMULA_TOKENS) is set
    """)


def test_copies_of_the_module_are_independent():
    run("""
    first = load()
    del sys.modules["tavik_agent.material_characterization"]
    reference.KNOWN_ELEMENT_SYMBOLS = {"H"}
    second = load()
    assert (first._formula_parts("H"), second._formula_parts("H")) == ([], [("H", 1)])
    second._structure_mode = lambda *_: "other"
    assert second.characterize_material(step="")["structure_mode"] == "other"
    assert first.characterize_material(step="")["structure_mode"] == "unknown"
    parts = first._formula_parts
    del first
    gc.collect()
    assert parts("FeO") == [("Fe", 1), ("O", 1)]  # a function keeps its module
    """)


def test_module_that_was_not_executed_refuses_calls():
    run("""
    import importlib.util
    module_spec = importlib.util.find_spec("tavik_agent.material_characterization")
    try:
        importlib.util.module_from_spec(module_spec).classify_system_class(["Fe"])
    except RuntimeError as error:
        assert str(error) == "material_characterization is not loaded"
    else:
        raise AssertionError
    check_works()
    """)
