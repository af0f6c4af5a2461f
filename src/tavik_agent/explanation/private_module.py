"""A module object of the rules beside the imported one, for questions: its tables take notes, and
its functions can be replaced for one call. Nobody else sees it, so the module in use is neither
touched nor slowed. What was replaced in the module in use, by a test say, is asked here as well.
"""

import importlib.util
import inspect
import threading
from collections.abc import Callable, Collection, Iterator, Mapping
from contextlib import contextmanager
from functools import cache
from typing import Any

from tavik_agent import material_characterization as in_use

from .notes import NotedFunction, NotedTable, Notes

# Asked of every word of a text. What they hold is found by shrinking the text, not by their notes.
OF_THE_SCAN = ("KNOWN_ELEMENT_SYMBOLS", "_NON_FORMULA_TOKENS", "METHOD_ACRONYMS")
# Called by other functions than the driver; a trial has no reason to replace them.
CALLED_BY_OTHERS = ("_formula_parts",)
NO_LABELS: Mapping[str, Any] = {}


class PrivateModule:
    """The module object, its functions as they are, and the notes of its tables.

    One thread at a time may ask it, holding `lock`. It takes one of the eight dict watchers of an
    interpreter, so there is one, made at the first use.
    """

    def __init__(self) -> None:
        spec = importlib.util.spec_from_file_location(in_use.__name__, in_use.__file__)
        assert spec is not None
        assert spec.loader is not None
        self._module = importlib.util.module_from_spec(spec)
        spec.loader.exec_module(self._module)
        self._names = vars(self._module)
        self._own = {name: value for name, value in self._names.items() if name[:2] != "__"}
        self._functions = {
            name: value
            for name, value in self._own.items()
            if getattr(value, "__self__", None) is self._module
        }
        self._bound: dict[str, Any] = {}
        self._now: dict[str, Callable[..., Any]] = {}
        self._replaced: Mapping[str, Callable[..., Any]] = {}
        self._labels: Mapping[str, Any] = {}
        self.lock = threading.RLock()
        self.notes = Notes()
        self.parameters = {
            name: [*inspect.signature(function).parameters]
            for name, function in self._functions.items()
        }
        self._characterize = self._functions["characterize_material"]
        self.follow()
        for name in self._functions:
            if name.startswith("_") and name not in CALLED_BY_OTHERS:
                setattr(self._module, name, self._passing_on(name))

    def _passing_on(self, name: str) -> Callable[..., Any]:
        def function(*given: Any, **named: Any) -> Any:
            if name in self._labels:
                return self._labels[name]
            return (self._replaced.get(name) or self._now[name])(*given, **named)

        return function

    def function(self, name: str) -> Callable[..., Any]:
        """The function of that name: the module's own, or what stood for it in the one in use when
        that was followed."""
        return self._now[name]

    def follow(self) -> None:
        """Binds the functions and tables that the module in use has now."""
        for name, own in self._functions.items():
            value = vars(in_use).get(name, own)
            self._now[name] = own if getattr(value, "__self__", None) is in_use else value
        for name in CALLED_BY_OTHERS:
            setattr(self._module, name, self.function(name))
        for name, own in self._own.items():
            value = vars(in_use).get(name, own)
            if name in self._functions or self._bound.get(name, self) is value:
                continue
            self._bound[name] = value
            setattr(self._module, name, own if value == own else value)
            if name not in OF_THE_SCAN:
                self._take_notes(name, value)

    def _take_notes(self, name: str, value: Any) -> None:
        if callable(value):
            setattr(self._module, name, NotedFunction(self.notes, name, value))
        elif isinstance(value, Collection) and not isinstance(value, Mapping):
            setattr(self._module, name, NotedTable(self.notes, name, value))

    def tables(self) -> dict[str, Any]:
        """The tables and reference functions by name, as they are, without notes."""
        return {n: v for n, v in self._bound.items() if isinstance(v, Collection) or callable(v)}

    def characterize(self, arguments: Mapping[str, Any]) -> Any:
        return self._characterize(**arguments)

    @contextmanager
    def replaced(
        self, functions: Mapping[str, Callable[..., Any]], labels: Mapping[str, Any] = NO_LABELS
    ) -> Iterator[None]:
        """Lets calls from one function of the module to another reach these instead, or be answered
        by these labels."""
        before = self._replaced, self._labels
        self._replaced, self._labels = functions, labels
        try:
            yield
        finally:
            self._replaced, self._labels = before


@cache
def private_module() -> PrivateModule:
    return PrivateModule()
