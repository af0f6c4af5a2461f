"""Words of a request that look like a material and were not read as one, so that a label that is
missing has its reason on the screen."""

import difflib
from collections.abc import Iterator, Mapping
from functools import cache
from typing import Any

from tavik_agent.material_reference_data import ELEMENT_NAME_ALIASES, FORMULA_ALIASES

from tavik_agent.explanation.spellings import left_out

from .terminal import written
from .unrecognised import NAME, bare, candidates

NAMED = ("species", "formula_hint")
ONE_SLIP = 0.9  # how like a name and its misspelling are at least, as gallium and galium
NAMES_LOOKED_UP = 10  # of each request, for its screen to stay prompt
READ = "\0"


def unread_words(arguments: Mapping[str, Any], fields: Mapping[str, Any]) -> list[str]:
    """Formulas, and names that the tables spell otherwise or, when no species was found, leave out;
    none at all when the species were stated, so that the texts were not read for them."""
    species = fields["species"]
    if any(cause["kind"] in ("argument", "intent") for cause in species["causes"]):
        return []
    causes = [cause for field in NAMED for cause in fields[field]["causes"] if "start" in cause]
    words = dict.fromkeys(
        bare(word)
        for where, text in _texts(arguments)
        for word in _words_apart(text, [c for c in causes if c["where"] == where])
    )
    looks = {word: found for word in words if (found := candidates(word))}
    names = [word for word, found in looks.items() if all(map(str.islower, found))]
    is_named = bool(species["label"])
    known = [
        word
        for word in names[:NAMES_LOOKED_UP]
        if _is_misspelt(word.lower()) or (not is_named and left_out(_singular(word)))
    ]
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


def _singular(name: str) -> str:
    return name.lower().removesuffix("s")


def _is_misspelt(name: str) -> bool:
    """Whether it is no word of the tables' names, but like one."""
    known = _words_of_names()
    if known & {name, _singular(name)}:
        return False
    return bool(difflib.get_close_matches(_singular(name), known, 1, ONE_SLIP))


@cache
def _words_of_names() -> frozenset[str]:
    phrases = (*FORMULA_ALIASES, *ELEMENT_NAME_ALIASES)
    return frozenset(filter(NAME.fullmatch, {word for p in phrases for word in p.split()}))
