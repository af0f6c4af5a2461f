"""The tables of docs/decisions.md, to which the tests hold the module."""

import re
from pathlib import Path

TEXT = (Path(__file__).parents[1] / "docs" / "decisions.md").read_text(encoding="utf-8")


def in_code(text):
    return re.findall(r"`(.+?)`", text)


def rows(field):
    """The number, the condition and the label of each row, in order."""
    section = re.search(rf"^## {field}$(.*?)^## ", TEXT, re.MULTILINE | re.DOTALL)[1]
    row = r"^\| (\d+) \| (.*) \| `(.+?)` \|(?: [^`|]* \|)?$"
    return re.findall(row, section, re.MULTILINE)


def keyword_rows(field):
    """The keywords and the label of each row that lists nothing else, up to a semicolon."""
    heads = [(condition.split(";")[0], label) for _, condition, label in rows(field)]
    plain = re.compile(r"(`[a-z0-9+ -]+`[ ,]*)+")
    return [(in_code(head), label) for head, label in heads if plain.fullmatch(head)]


FIELDS = "structure_mode structure_archetype correlation_class magnetic_class explicit_spin_mode"
KEYWORD_ROWS = {field: keyword_rows(field) for field in FIELDS.split()}
KEYWORDS = [word for rows in KEYWORD_ROWS.values() for words, _ in rows for word in words]
