"""Values that take notes: stand-ins for labels, tables, functions and mappings that write down what
they are asked, in order, and can be told to answer no. The rules are asked as they are, and what
decided is read off the notes.
"""

from collections.abc import Callable, Collection, Iterator, Mapping
from contextlib import contextmanager, suppress
from typing import Any

type Question = tuple[Any, ...]
"""What was asked: ("table", name, entry), ("function", name, arguments), ("species", symbol),
("label", parameter, text) or ("read", path)."""


class Notes:
    """The questions of one trial with their answers, and which of them may be answered yes."""

    kept: Collection[Question] | None
    denied: Collection[Question]
    asked: list[tuple[Question, bool]]
    species: frozenset[str] = frozenset()
    """The entries that are noted when a whole table is compared with the species."""

    def __init__(self) -> None:
        self.begin()

    @contextmanager
    def apart(self) -> Iterator[None]:
        """Keeps the trial that is going on, in case a value of its request asks in between."""
        before = dict(vars(self))
        self.begin()
        try:
            yield
        finally:
            vars(self).update(before)

    def begin(
        self, kept: Collection[Question] | None = None, denied: Collection[Question] = ()
    ) -> None:
        """Starts a trial: `denied` are answered no, and so is all but `kept` when it is given."""
        self.kept, self.denied, self.asked = kept, denied, []

    def allows(self, question: Question) -> bool:
        return question not in self.denied and (self.kept is None or question in self.kept)

    def answer(self, question: Question, truth: bool) -> bool:
        answer = truth and self.allows(question)
        self.asked.append((question, answer))
        return answer

    def yes(self) -> list[Question]:
        """What was answered yes, each once, in the order of the first answer."""
        return [*dict.fromkeys(question for question, answer in self.asked if answer)]

    def ended_with_yes(self) -> bool:
        return bool(self.asked) and self.asked[-1][1]


class NotedText(str):
    """A label that notes with what it is compared."""

    notes: Notes
    parameter: str

    def __eq__(self, other: object) -> bool:
        return self.notes.answer(("label", self.parameter, other), str.__eq__(self, other))

    def __ne__(self, other: object) -> bool:
        return not self == other

    __hash__ = str.__hash__

    def endswith(self, suffix: Any, *between: Any) -> bool:
        truth = str.endswith(self, suffix, *between)
        return self.notes.answer(("label", self.parameter, f"…{suffix}"), truth)


def noted_text(notes: Notes, parameter: str, value: str) -> NotedText:
    text = NotedText(value)
    text.notes, text.parameter = notes, parameter
    return text


class NotedSpecies(list[str]):
    """A list of species that notes which of them it is asked for."""

    notes: Notes

    def __contains__(self, item: object) -> bool:
        return self.notes.answer(("species", item), super().__contains__(item))


def noted_species(notes: Notes, species: list[str]) -> NotedSpecies:
    listed = NotedSpecies(species)
    listed.notes = notes
    return listed


class NotedTable:
    """A table that notes which entries it is asked for. It is no set, so that nothing can look at
    its entries without asking it."""

    def __init__(self, notes: Notes, name: str, table: Collection[Any]) -> None:
        self._notes, self._name, self._table = notes, name, table

    def __contains__(self, item: object) -> bool:
        entry = str(item) if isinstance(item, NotedText) else item
        return self._notes.answer(("table", self._name, entry), entry in self._table)

    def __iter__(self) -> Iterator[Any]:
        for entry in sorted(self._table, key=str):  # the same in every process
            question = ("table", self._name, entry)
            noted = entry in self._notes.species
            if self._notes.answer(question, True) if noted else self._notes.allows(question):
                yield entry

    def __len__(self) -> int:
        return len(self._table)

    def union(self, *others: Collection[Any]) -> "NotedUnion":
        return NotedUnion([self, *others])

    def __getattr__(self, name: str) -> Any:
        return getattr(self._table, name)


class NotedUnion:
    """Tables taken together; each is asked until one says yes."""

    def __init__(self, tables: list[Any]) -> None:
        self._tables = tables

    def __contains__(self, item: object) -> bool:
        return any(item in table for table in self._tables)


class NotedFunction:
    """A reference function that notes its answer: a truth, or a collection that takes notes."""

    def __init__(self, notes: Notes, name: str, function: Callable[..., Any]) -> None:
        self._notes, self._name, self._function = notes, name, function

    def __call__(self, *given: Any) -> Any:
        plain = [[*value] if isinstance(value, NotedSpecies) else value for value in given]
        result = self._function(*plain)
        if isinstance(result, Collection) and not isinstance(result, str):
            return NotedTable(self._notes, self._name, result)
        arguments = tuple(tuple(v) if isinstance(v, list) else v for v in plain)
        truth = bool(result)
        answer = self._notes.answer(("function", self._name, arguments), truth)
        return result if answer == truth else answer


class NotedMapping(Mapping[Any, Any]):
    """A mapping of the request that notes which entries are read. Entries in `replaced` are read as
    they stand there; an entry that fails to be read is taken for one that is not there."""

    def __init__(self, notes: Notes, raw: Any, path: tuple[Any, ...]) -> None:
        self._notes, self.raw, self._path = notes, raw, path
        self.replaced: dict[Any, Any] = {}

    def get(self, key: Any, default: Any = None) -> Any:
        if key in self.replaced:
            return self.replaced[key]
        value, path = None, (*self._path, key)
        with suppress(Exception):
            value = self.raw.get(key)
        if not self._notes.answer(("read", path), value is not None):
            return default
        return NotedMapping(self._notes, value, path) if isinstance(value, Mapping) else value

    def __getitem__(self, key: Any) -> Any:
        return self.get(key)

    def __contains__(self, key: object) -> bool:
        found = False
        with suppress(Exception):
            found = key in self.raw
        return self._notes.answer(("read", (*self._path, key)), found)

    def __iter__(self) -> Iterator[Any]:
        with suppress(Exception):
            yield from list(self.raw)

    def __len__(self) -> int:
        return len(self.raw) if isinstance(self.raw, Mapping) else 1
