"""Words of a request that look like a material and were not read as one, so that a label that is
missing has its reason on the screen."""

import difflib
from collections.abc import Iterator, Mapping
from typing import Any

from tavik_agent.explanation import lookup

from .terminal import written
from .unrecognised import candidates

NAMED = ("species", "formula_hint")
ONE_LETTER = 0.9  # the likeness of "galium" and "gallium"
NAMES_LOOKED_UP = 10  # of each request, 20 ms each
READ = "\0"
MARKS = ".,;:!?\"'"


def unread_words(arguments: Mapping[str, Any], fields: Mapping[str, Any]) -> list[str]:
    """Formulas, and names that the tables spell otherwise or, when no species was found, leave out;
    none at all when the species were stated, so that the texts were not read for them."""
    species = fields["species"]
    if any(cause["kind"] in ("argument", "intent") for cause in species["causes"]):
        return []
    causes = [cause for field in NAMED for cause in fields[field]["causes"] if "start" in cause]
    words = dict.fromkeys(
        word.strip(MARKS)
        for where, text in _texts(arguments)
        for word in _words_apart(text, [c for c in causes if c["where"] == where])
    )
    looks = {word: found for word in words if (found := candidates(word))}
    names = [word for word, found in looks.items() if all(map(str.islower, found))]
    known = [w for w in names[:NAMES_LOOKED_UP] if _is_known(w, or_left_out=not species["label"])]
    return [word for word in looks if word not in names or word in known]


def unread_line(arguments: Mapping[str, Any], fields: Mapping[str, Any]) -> str:
    words = ", ".join(map(written, unread_words(arguments, fields)))
    return f"not read as a material: {words}" if words else ""


def _texts(arguments: Mapping[str, Any]) -> Iterator[tuple[str, str]]:
    yield "query_text", str(arguments.get("query_text") or "")
    for n, finding in enumerate(arguments.get("findings") or ()):
        yield f"findings[{n}]", str(finding)


def _words_apart(text: str, causes: list[Any]) -> Iterator[str]:
    """The words of a text that no cause touches."""
    characters = [*text]
    for cause in causes:
        characters[cause["start"] : cause["end"]] = READ * len(cause["text"])
    return (word for word in "".join(characters).split() if READ not in word)


def _is_known(word: str, *, or_left_out: bool) -> bool:
    """Whether the tables have a name in another spelling, or leave it out on purpose."""
    name = word.lower().removesuffix("s")
    answer = lookup(name)
    like = difflib.get_close_matches(name, answer["nearest"], 1, ONE_LETTER)
    return bool(like or (or_left_out and answer["left_out"]))
