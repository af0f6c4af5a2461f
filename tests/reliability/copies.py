"""Module objects beside the imported one."""

import contextlib
import importlib.machinery
import importlib.util
import re
import time
import types
from unittest import mock

from tavik_agent import material_characterization as mc
from tavik_agent import material_reference_data as reference
from tavik_agent import method_acronyms as acronyms

from . import calls

LOADER = importlib.machinery.ExtensionFileLoader(mc.__name__, mc.__file__)
PLAIN = {types.MappingProxyType: dict, frozenset: set, set: frozenset}


def unloaded():
    return importlib.util.module_from_spec(mc.__spec__)


def fresh():
    """The module loaded anew, before it has learnt anything of its tables and names."""
    module = unloaded()
    LOADER.exec_module(module)
    return module


TEXT = str([make() for make in calls.FUNCTIONS.values()]).lower()
WORDS = {*re.findall(r"[\w-]+", TEXT), *re.findall(r"[^\s'{}\[\]]+", TEXT)}


def shortened(phrases):
    """The rows that may stand in the texts of the good calls."""
    return types.MappingProxyType({p: phrases[p] for p in phrases if {*p.split()} <= WORDS})


PHRASE_TABLES = ("FORMULA_ALIASES", "ELEMENT_NAME_ALIASES")
SHORT_TABLES = {name: shortened(getattr(reference, name)) for name in PHRASE_TABLES}
SHORT_ACRONYMS = frozenset({"DFT", *sorted(acronyms.METHOD_ACRONYMS)[::500]})


@contextlib.contextmanager
def short_companions():
    tables = mock.patch.multiple(reference, **SHORT_TABLES)
    with tables, mock.patch.object(acronyms, "METHOD_ACRONYMS", SHORT_ACRONYMS):
        yield


def small():
    """A fresh module with tables that are short, for those who load very many."""
    with short_companions():
        return fresh()


def unwatched():
    """A module for which no dict watcher was left; an interpreter has eight, two for itself."""
    return [fresh() for _ in range(7)][-1]


def names(module):
    return {name: value for name, value in vars(module).items() if not name.startswith("__")}


UNUSED = {"METHOD_ACRONYMS", "_FORMULA_TOKEN_RE", "_FORMULA_PART_RE", "characterize_material"}
GLOBALS = sorted({*names(mc)} - UNUSED)  # what functions look up between them


def rebind(module, own):
    """Binds the names to other tables and functions of the same effect as their own, of which the
    functions let other threads run."""

    def passing_on(function):
        return lambda *args, **kwargs: time.sleep(0) or function(*args, **kwargs)

    for name, value in own.items():
        if not name.endswith("_RE"):
            setattr(module, name, PLAIN.get(type(value), passing_on)(value))


def replaced():
    module = fresh()
    rebind(module, names(module))
    return module


def indexed_slowly():
    """A module that lets other threads run while it makes its index and while it reads it."""
    kind = type("Yielding", (dict,), {"copy": lambda self: time.sleep(0) or dict(self)})
    aliases = types.MappingProxyType(kind(reference.FORMULA_ALIASES))
    with mock.patch.object(reference, "FORMULA_ALIASES", aliases):
        module = fresh()
    rebind(module, {name: own for name, own in names(module).items() if callable(own)})
    return module
