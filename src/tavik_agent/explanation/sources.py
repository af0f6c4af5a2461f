"""Where an entry of a table stands: file, line and the comment of its group, read from the source
of the tables.

A row that is made by rule is traced to the entry that it was made from: one of the smaller tables
holds an entry of which a form is that row. Where no line holds such an entry, it is the line of the
rule.
"""

import ast
import inspect
import io
import re
import sys
import tokenize
from collections.abc import Callable, Iterator, Mapping
from contextlib import suppress
from functools import cache, cached_property
from pathlib import Path
from types import ModuleType
from typing import NamedTuple

from .results import Cause

PACKAGE = "tavik_agent."
DATA = ("tavik_agent.material_reference_data", "tavik_agent.method_acronyms")


class _Source:
    """One file of the tables."""

    def __init__(self, module: ModuleType) -> None:
        self.module = module
        text = inspect.getsource(module)
        self.lines = text.splitlines()
        self.file = module.__name__.removeprefix(PACKAGE).replace(".", "/") + ".py"
        if Path(module.__file__ or "").name == "__init__.py":
            self.file = self.file.replace(".py", "/__init__.py")
        self.statements: dict[str, ast.stmt] = {}
        self.imports: dict[str, str] = {}
        self._names: dict[int, list[str]] = {}
        body = ast.parse(text).body
        self._head_lines = body[0].end_lineno or 0
        for statement in body:
            self._read(statement)

    @cached_property
    def _lines(self) -> tuple[dict[str, list[int]], dict[str, list[int]]]:
        """Where each string stands, and each word of one."""
        strings: dict[str, list[int]] = {}
        words: dict[str, list[int]] = {}
        text = "\n".join([*self.lines, ""])
        for token in tokenize.generate_tokens(io.StringIO(text).readline):
            if token.type != tokenize.STRING:
                continue
            for n, string in enumerate(str(ast.literal_eval(token.string)).split("\n")):
                strings.setdefault(string, []).append(token.start[0] + n)
                for word in re.split(r"[\s;]+", string):
                    words.setdefault(word, []).append(token.start[0] + n)
        return strings, words

    def _read(self, statement: ast.stmt) -> None:
        match statement:
            case ast.ImportFrom(module=str(name), names=names, level=level):
                package = self.module.__package__ or ""
                origin = f"{package}.{name}" if level else name
                self.imports |= {alias.asname or alias.name: origin for alias in names}
            case ast.AnnAssign(target=ast.Name(id=name)) | ast.FunctionDef(name=name):
                self.statements[name] = statement
            case ast.Assign(targets=[ast.Name(id=name)]):
                self.statements[name] = statement

    def names_in(self, statement: ast.stmt) -> list[str]:
        """The names that a statement mentions."""
        if id(statement) not in self._names:
            nodes = (node for node in ast.walk(statement) if isinstance(node, ast.Name))
            self._names[id(statement)] = [*dict.fromkeys(node.id for node in nodes)]
        return self._names[id(statement)]

    def line_of(self, statement: ast.stmt, entry: str, *, in_words: bool) -> int | None:
        """The line of the statement that holds the entry, as a string or as a word of one."""
        last = statement.end_lineno or 0
        lines = self._lines[in_words].get(entry, ())
        return next((line for line in lines if statement.lineno <= line <= last), None)

    def note_at(self, line: int) -> str:
        """The comment of the group that the line is in, or the one above its statement."""
        number = line - 1
        while number > 0 and not self.lines[number - 1].lstrip().startswith("#"):
            number -= 1
            if not self.lines[number].strip():
                return ""
        end = number
        while number > 0 and self.lines[number - 1].lstrip().startswith("#"):
            number -= 1
        comment = [text.lstrip().removeprefix("#").strip() for text in self.lines[number:end]]
        return " ".join(text for text in comment if text not in ("fmt: off", "fmt: on"))

    def remarks(self) -> Iterator[tuple[int, str]]:
        """The paragraphs of the head and the comments, each with its first line."""
        paragraph: list[str] = []
        for number, line in enumerate([*self.lines, ""], 1):
            text = line.strip()
            in_head = number <= self._head_lines and text not in ("", '"""')
            if in_head or (text.startswith("#") and not text.startswith("# fmt:")):
                paragraph.append(text.lstrip("#").replace('"""', "").strip())
            elif paragraph:
                yield number - len(paragraph), " ".join(paragraph)
                paragraph = []


class _Found(NamedTuple):
    source: _Source
    line: int
    entry: str


@cache
def _sources() -> dict[str, _Source]:
    found = {}
    for name, module in sorted(sys.modules.items()):
        if name.startswith(DATA):
            with suppress(OSError, TypeError):
                found[name] = _Source(module)
    return found


def source_of(table: str, entry: str) -> Cause:
    """The entries file, line, note, entry and rule of a cause; none when there is no source."""
    found = _located(table, entry)
    if found is None:
        return {}  # type: ignore[typeddict-item]
    source, line, text = found
    place: Cause = {"entry": text, "file": source.file, "line": line}  # type: ignore[typeddict-item]
    place["note"] = source.note_at(line)
    if (rule := _rule_at(source, line, text)) is not None:
        place["rule"] = rule
    return place


def remarks() -> Iterator[tuple[str, int, str]]:
    """The comments of the tables: file, line and text."""
    for source in _sources().values():
        for line, text in source.remarks():
            yield source.file, line, text


def _rule_at(source: _Source, line: int, entry: str) -> str | None:
    if entry in source.lines[line - 1]:
        return None
    return next((name for name, made in source.statements.items() if made.lineno == line), None)


@cache
def _located(table: str, entry: str) -> _Found | None:
    for source in _sources().values():
        if statement := source.statements.get(table):
            rule = _Found(source, statement.lineno, entry)
            if isinstance(getattr(source.module, table, None), Mapping):
                return _as_made(entry) or rule
            found = (_in_statement(source, statement, entry, in_words=w) for w in (False, True))
            return next(filter(None, found), rule)
    return None


def _in_statement(
    source: _Source, statement: ast.stmt, entry: str, *, in_words: bool
) -> _Found | None:
    """The entry in a statement, or in those of the names that it mentions, the nearest first."""
    queue, seen = [(source, statement)], {id(statement)}
    for holder, part in queue:
        if (line := holder.line_of(part, entry, in_words=in_words)) is not None:
            return _Found(holder, line, entry)
        for name in holder.names_in(part):
            named = _named(holder, name)
            if named is not None and id(named[1]) not in seen:
                seen.add(id(named[1]))
                queue.append(named)
    return None


def _named(source: _Source, name: str) -> tuple[_Source, ast.stmt] | None:
    if name in source.imports:
        origin = _sources().get(source.imports[name])
        return _named(origin, name) if origin else None
    statement = source.statements.get(name)
    return None if statement is None else (source, statement)


def _as_made(phrase: str) -> _Found | None:
    """The entry that a row was made from, in the smaller tables of names and formulas; the rule of
    the first of them when none holds it in its source."""
    meaning = _meaning_of(phrase)
    rows = [
        (source, source.statements[name], base, meaning)
        for source, name, base in _bases_of(phrase, meaning)
    ]
    for in_words in (False, True):
        for source, statement, base, value in rows:
            for entry in (base, value):
                if found := _in_statement(source, statement, entry, in_words=in_words):
                    return found
    return _Found(rows[0][0], rows[0][1].lineno, phrase) if rows else None


def _bases_of(phrase: str, meaning: str) -> list[tuple[_Source, str, str]]:
    """The rows of the smaller tables that hold the phrase, or else those of which it is a form."""
    rows = _rows_by_meaning().get(meaning, [])
    same = [row for row in rows if row[2] == phrase]
    return same or [row for row in rows if _is_form_of(phrase, row[2])]


@cache
def _rows_by_meaning() -> dict[str, list[tuple[_Source, str, str]]]:
    rows: dict[str, list[tuple[_Source, str, str]]] = {}
    for source, name, table in _smaller_tables():
        for base, meaning in table.items():
            rows.setdefault(meaning, []).append((source, name, base))
    for same in rows.values():
        same.sort(key=lambda row: row[1].startswith("_"))  # a table before what helps a rule
    return rows


def _smaller_tables() -> Iterator[tuple[_Source, str, Mapping[str, str]]]:
    """The tables that the tables of the rules are put together from."""
    public = {id(value) for value in vars(sys.modules[DATA[0]]).values()}
    for source in _sources().values():
        for name in source.statements:
            table = getattr(source.module, name, None)
            if isinstance(table, Mapping) and id(table) not in public:
                yield source, name, table


def _meaning_of(phrase: str) -> str:
    package = sys.modules[DATA[0]]
    tables = [value for value in vars(package).values() if isinstance(value, Mapping)]
    return next((str(table[phrase]) for table in tables if phrase in table), "")


@cache
def _forms() -> list[Callable[[str], tuple[str, ...]]]:
    """The functions that make the forms of a phrase."""
    module = sys.modules[f"{DATA[0]}.written_forms"]
    return [
        function
        for name, function in vars(module).items()
        if inspect.isfunction(function)
        and not name.startswith("_")
        and function.__annotations__.get("return") == tuple[str, ...]
    ]


def _is_form_of(phrase: str, base: str) -> bool:
    for form in _forms():
        with suppress(ValueError):  # a form that this base does not have
            if phrase in form(base):
                return True
    return False
