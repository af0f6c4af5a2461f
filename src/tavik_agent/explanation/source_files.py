"""The source files of the tables: their statements, where a text stands, and the comments."""

import ast
import inspect
import io
import re
import sys
import tokenize
from collections.abc import Iterator
from contextlib import suppress
from functools import cache, cached_property
from pathlib import Path
from types import ModuleType

PACKAGE = "tavik_agent."
DATA = ("tavik_agent.material_reference_data", "tavik_agent.method_acronyms")


class SourceFile:
    """One file of the tables."""

    def __init__(self, module: ModuleType) -> None:
        self.module = module
        text = inspect.getsource(module)
        self.lines = text.splitlines()
        self.name = module.__name__.removeprefix(PACKAGE).replace(".", "/") + ".py"
        if Path(module.__file__ or "").name == "__init__.py":
            self.name = self.name.replace(".py", "/__init__.py")
        self.statements: dict[str, ast.stmt] = {}
        self._imports: dict[str, str] = {}
        body = ast.parse(text).body
        self._head_lines = body[0].end_lineno or 0
        for statement in body:
            self._read(statement)

    def _read(self, statement: ast.stmt) -> None:
        match statement:
            case ast.ImportFrom(module=str(name), names=names, level=level):
                package = self.module.__package__ or ""
                origin = f"{package}.{name}" if level else name
                self._imports |= {alias.asname or alias.name: origin for alias in names}
            case ast.AnnAssign(target=ast.Name(id=name)) | ast.FunctionDef(name=name):
                self.statements[name] = statement
            case ast.Assign(targets=[ast.Name(id=name)]):
                self.statements[name] = statement

    @cached_property
    def _lines_by_text(self) -> tuple[dict[str, list[int]], dict[str, list[int]]]:
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

    def lines_of(self, statement: ast.stmt, entry: str, *, in_words: bool) -> list[int]:
        """The lines of the statement that hold the entry, as a string or as a word of one."""
        last = statement.end_lineno or 0
        lines = self._lines_by_text[in_words].get(entry, ())
        return [line for line in lines if statement.lineno <= line <= last]

    def named(self, name: str) -> "tuple[SourceFile, ast.stmt] | None":
        """The statement that gives a name its value, in this file or where it is imported from."""
        if name in self._imports:
            origin = source_files().get(self._imports[name])
            return origin.named(name) if origin else None
        return (self, self.statements[name]) if name in self.statements else None

    def name_at(self, line: int) -> str | None:
        """The name that the statement beginning at the line gives a value."""
        return next((n for n, made in self.statements.items() if made.lineno == line), None)

    def note_at(self, line: int) -> str:
        """The comment of the group that the line is in, or the one above its statement; of a
        function what it says of itself."""
        function = self.statements.get(self.name_at(line) or "")
        if isinstance(function, ast.FunctionDef):
            return " ".join((ast.get_docstring(function) or "").partition("\n\n")[0].split())
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


@cache
def source_files() -> dict[str, SourceFile]:
    """The files of the tables by the names of their modules."""
    found = {}
    for name, module in sorted(sys.modules.items()):
        if name.startswith(DATA):
            with suppress(OSError, TypeError):
                found[name] = SourceFile(module)
    return found
