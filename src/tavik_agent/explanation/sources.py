"""Where an entry of a table stands: file, line and the comment of its group.

A row that is made by rule is traced to the entry that it was made from: one of the smaller tables
holds an entry of which a form is that row. Where no line, or more than one, can be that entry, it
is the line of the rule.
"""

import ast
import inspect
import sys
from collections.abc import Callable, Collection, Iterator, Mapping
from contextlib import suppress
from functools import cache
from typing import NamedTuple

from .results import Cause
from .source_files import DATA, SourceFile, source_files

type Statement = tuple[SourceFile, ast.stmt]


class _Found(NamedTuple):
    source: SourceFile
    line: int
    entry: str


class _Row(NamedTuple):
    """A row of one of the smaller tables that the tables of the rules are put together from."""

    made_by: Statement
    phrase: str
    meaning: str


def source_of(table: str, entry: str) -> Cause:
    """The entries file, line, note, entry and rule of a cause; none when there is no source."""
    found = _located(table, entry)
    if found is None:
        return {}  # type: ignore[typeddict-item]
    source, line, text = found
    place: Cause = {"entry": text, "file": source.name, "line": line}  # type: ignore[typeddict-item]
    place["note"] = source.note_at(line)
    if text not in source.lines[line - 1] and (rule := source.name_at(line)):
        place["rule"] = rule
    return place


def remarks() -> Iterator[tuple[str, int, str]]:
    """The comments of the tables: file, line and text."""
    for source in source_files().values():
        for line, text in source.remarks():
            yield source.name, line, text


@cache
def _located(table: str, entry: str) -> _Found | None:
    for source in source_files().values():
        if statement := source.statements.get(table):
            rows = getattr(source.module, table, None)
            if isinstance(rows, Mapping):
                found = _of_row(entry, str(rows.get(entry, "")))
                return found or _Found(source, statement.lineno, entry)
            return _of_entry((source, statement), entry)
    return None


def _of_entry(table: Statement, entry: str) -> _Found:
    """The line that holds an entry of a set, or the rule of the nearest smaller set with it."""
    if lines := _lines(table, entry) or _lines(table, entry, in_words=True):
        return lines[0]
    sets = (held for held in _reached(*table)[1:] if entry in _set_of(held))
    source, statement = next(sets, table)
    return _Found(source, statement.lineno, entry)


def _set_of(statement: Statement) -> Collection[object]:
    source, made = statement
    value = getattr(source.module, source.name_at(made.lineno) or "", None)
    return value if isinstance(value, (list, tuple, frozenset)) else ()


def _of_row(phrase: str, meaning: str) -> _Found | None:
    """The entry that a row was made from, in the smaller tables of names and formulas; the rule
    when more than one line can be that entry, or none."""
    rows = _rows_of(phrase, meaning)
    for row in rows:
        if lines := _lines(row.made_by, row.phrase):
            return lines[0]
    for row in rows:
        for text in (row.phrase, row.meaning):
            lines = _lines(row.made_by, text, in_words=True)
            if len(lines) == 1:
                return lines[0]
    for row in rows:
        source, statement = _rule_of(row)
        return _Found(source, statement.lineno, phrase)
    return None


def _lines(table: Statement, text: str, *, in_words: bool = False) -> list[_Found]:
    """The lines of a statement, and of those of the names that it mentions, that hold a text."""
    return [
        _Found(source, line, text)
        for source, statement in _reached(*table)
        for line in dict.fromkeys(source.lines_of(statement, text, in_words=in_words))
    ]


@cache
def _reached(source: SourceFile, statement: ast.stmt) -> list[Statement]:
    """A statement, and those of the names that it mentions, the nearest first."""
    reached = [(source, statement)]
    for holder, part in reached:
        for node in ast.walk(part):
            named = holder.named(node.id) if isinstance(node, ast.Name) else None
            if named is not None and named not in reached:
                reached.append(named)
    return reached


def _rule_of(row: _Row) -> Statement:
    """The function that makes a row and says what it makes, or the statement of the table."""
    for source, statement in _reached(*row.made_by):
        if (row.phrase, row.meaning) in _pairs_of(source, statement):
            return source, statement
    return row.made_by


@cache
def _pairs_of(source: SourceFile, statement: ast.stmt) -> Collection[tuple[str, str]]:
    """The rows that a function makes which takes nothing and has a docstring."""
    match statement:
        case ast.FunctionDef(
            name=name, returns=ast.expr() as returned, args=ast.arguments(args=[])
        ):
            if ast.get_docstring(statement) and "tuple[str, str]" in ast.unparse(returned):
                return frozenset(getattr(source.module, name)())
    return ()


def _rows_of(phrase: str, meaning: str) -> list[_Row]:
    """The rows of the smaller tables that hold the phrase, or else those of which it is a form."""
    rows = _rows_by_meaning().get(meaning, [])
    same = [row for row in rows if row.phrase == phrase]
    return same or [row for row in rows if _is_form_of(phrase, row.phrase)]


@cache
def _rows_by_meaning() -> dict[str, list[_Row]]:
    rows: dict[str, list[_Row]] = {}
    for name, source, table in _smaller_tables():
        for phrase, meaning in table.items():
            row = _Row((source, source.statements[name]), phrase, meaning)
            rows.setdefault(meaning, []).append(row)
    return rows


def _smaller_tables() -> list[tuple[str, SourceFile, Mapping[str, str]]]:
    """The tables that the tables of the rules are put together from; what helps a rule last."""
    public = {id(value) for value in vars(sys.modules[DATA[0]]).values()}
    found = []
    for source in source_files().values():
        for name in source.statements:
            table = getattr(source.module, name, None)
            if isinstance(table, Mapping) and id(table) not in public:
                found.append((name, source, table))
    return sorted(found, key=lambda table: table[0].startswith("_"))


@cache
def _forms() -> list[Callable[[str], tuple[str, ...]]]:
    """The functions that make the forms of a phrase."""
    return [
        function
        for source in source_files().values()
        for name, function in vars(source.module).items()
        if inspect.isfunction(function)
        and function.__module__ == source.module.__name__
        and not name.startswith("_")
        and function.__annotations__.get("return") == tuple[str, ...]
    ]


def _is_form_of(phrase: str, base: str) -> bool:
    if not set(filter(str.isalpha, base)).issubset(phrase):  # a form has all its letters
        return False
    for form in _forms():
        with suppress(ValueError):  # a form that this base does not have
            if phrase in form(base):
                return True
    return False
