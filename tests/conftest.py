"""Small, known reference tables for every test, and the means to watch what the module calls."""

import contextlib
import os
import subprocess
import sys
import types
from unittest import mock

import pytest
from hypothesis import settings
from reliability import copies

from tavik_agent import material_characterization as mc

pytest.register_assert_rewrite("reliability.properties")

settings.register_profile("suite", max_examples=300, derandomize=True, deadline=None, database=None)
settings.load_profile("suite")

SYMBOLS = "H B C N O F Na Si S Cl Ti Cr Mn Fe Co Ni Cu Zn Ga As Se In Sn I U"
# CoO and InAs stand in two tables each; GaAs, Si and Ge in none.
_proxy = types.MappingProxyType
TABLES = {
    "KNOWN_ELEMENT_SYMBOLS": frozenset(SYMBOLS.split()),
    "FORMULA_ALIASES": _proxy(
        {"rutile": "TiO2", "gallium arsenide": "GaAs", "green salt": "FeXy", "salt": "NaCl"}
    ),
    "ELEMENT_NAME_ALIASES": _proxy({"iron": "Fe", "oxygen": "O", "nickel": "Ni", "tin": "sn"}),
    "SEMICONDUCTOR_FORMULAS": frozenset({"InAs", "ZnO", "Se"}),
    "INSULATOR_FORMULAS": frozenset({"NaCl", "InAs", "CoO"}),
    "DFTU_SENSITIVE_FORMULAS": frozenset({"NiO", "CoO"}),
    "NONMAGNETIC_METAL_SPECIES": frozenset({"Cu", "Zn", "Na"}),
    "COMPLEX_MAGNETIC_SPECIES": frozenset({"Mn"}),
    "phase1_simple_ferromagnet_species": lambda: frozenset({"Fe", "Co"}),
    "collinear_magmom_seed_species": lambda: frozenset({"Fe", "Ni", "Cr"}),
    "is_transition_metal_oxide": lambda species: "O" in species and bool({"Fe", "Ni"} & {*species}),
}
ACRONYMS = frozenset({"DFT", "HSE", "scf"})


@pytest.fixture(autouse=True)
def _known_tables(monkeypatch):
    for name, table in (TABLES | {"_NON_FORMULA_TOKENS": set(ACRONYMS)}).items():
        monkeypatch.setattr(mc, name, table)


@pytest.fixture
def record(monkeypatch):
    """Puts a recording function in place of each name; returns the list that all calls go to."""
    calls = []

    def replace(**results):
        for name, result in results.items():
            # A result that is a function is called for the answer.
            def recorded(*args, _name=name, _result=result, **kwargs):
                calls.append((_name, args, kwargs))
                return _result(*args, **kwargs) if callable(_result) else _result

            monkeypatch.setattr(mc, name, recorded)
        return calls

    return replace


@pytest.fixture(params=["rebound", "loaded"])
def with_tables(request, monkeypatch):
    """Gives the module with some tables changed: rebound in it, or there when it was loaded."""

    def rebind(**tables):
        for name, table in tables.items():
            monkeypatch.setattr(mc, name, table)
        return mc

    def load(**tables):
        companions = {
            "tavik_agent.method_acronyms": types.SimpleNamespace(METHOD_ACRONYMS=ACRONYMS),
            "tavik_agent.material_reference_data": types.SimpleNamespace(**(TABLES | tables)),
        }
        with mock.patch.dict(sys.modules, companions):
            return copies.fresh()

    return rebind if request.param == "rebound" else load


@pytest.fixture
def own_folder(tmp_path, monkeypatch):
    """The test runs in an empty folder."""
    monkeypatch.chdir(tmp_path)


@pytest.fixture
def on_terminal(monkeypatch):
    """Runs a command on a terminal of that width and gives what it wrote there."""
    pty, termios = map(pytest.importorskip, ("pty", "termios"))
    for name in ("COLUMNS", "NO_COLOR"):
        monkeypatch.delenv(name, raising=False)
    monkeypatch.setenv("TERM", "xterm-256color")

    def run(words, width=80):
        screen, terminal = pty.openpty()
        termios.tcsetwinsize(terminal, (50, width))
        with subprocess.Popen(words, stdout=terminal, stderr=terminal):
            os.close(terminal)
            written = b""
            with contextlib.suppress(OSError):  # there is nobody left to write
                while more := os.read(screen, 65536):
                    written += more
        os.close(screen)
        return written.decode()

    return run
