"""The types beside the module, held against the module: docstrings, keys and label sets.

That signatures agree is checked by stubtest, in `make lint`.
"""

import ast
import inspect
import re
import tomllib
from pathlib import Path
from typing import Literal, get_args, get_origin, get_type_hints

import pytest

from tavik_agent import characterization_types
from tavik_agent import material_characterization as mc

ROOT = Path(__file__).parents[1]
INSTALLED = Path(mc.__file__).parent
HINTS = get_type_hints(characterization_types.CharacterizationRecord)
LABELS = {
    field: set(get_args(hint)) for field, hint in HINTS.items() if get_origin(hint) is Literal
}
# For the labels that no request of the collection asks for.
FURTHER_REQUESTS = [
    {"step_params": {"atom": {"xyz": "NiO.xyz"}}},
    {"query": "STM current over graphene"},
    {"query": "Energies of CO in Hartree"},
]


@pytest.fixture(autouse=True)
def _known_tables():
    """The module's own tables stay in place here."""


def functions_of_stub():
    stub = ast.parse((INSTALLED / "material_characterization.pyi").read_text(encoding="utf-8"))
    return [node for node in ast.walk(stub) if isinstance(node, ast.FunctionDef | ast.Module)]


def test_docstrings_are_those_of_the_module():
    written = {}
    for node in functions_of_stub():
        written.setdefault(getattr(node, "name", None), ast.get_docstring(node))
    documented = {
        name: inspect.getdoc(value)
        for name, value in vars(mc).items()
        if inspect.isbuiltin(value) and value.__module__ == mc.__name__
    }
    assert written == {None: inspect.getdoc(mc)} | documented


def test_keys_of_the_record_in_their_order():
    assert list(mc.characterize_material(step="")) == list(HINTS)


def test_label_sets_are_what_the_module_returns():
    files = (ROOT / "tests" / "requests").glob("*.toml")
    groups = [tomllib.loads(file.read_text(encoding="utf-8")) for file in files]
    requests = [request for group in groups for rows in group.values() for request in rows]
    found = {field: set() for field in LABELS}
    for request in requests + FURTHER_REQUESTS:
        inputs = {key: value for key, value in request.items() if key not in ("expect", "query")}
        record = mc.characterize_material(step="", query_text=request.get("query", ""), **inputs)
        for field, labels in found.items():
            labels.add(record[field])
    assert found == LABELS


def test_label_sets_hold_every_label_of_the_source():
    source = (ROOT / "src/tavik_agent/material_characterization/labels.hpp").read_text()
    in_source = re.findall(r"SAME\((\w+)\)", source)
    classes = [labels for labels in LABELS.values() if "" not in labels]
    assert set.union(*classes) == set(in_source)
