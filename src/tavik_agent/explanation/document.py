"""The texts of a request, and pieces of them for trials. Positions run through all texts, so a
piece may begin in the query and end in a finding; `place` says where that is for the caller.
"""

import re
from bisect import bisect_left, bisect_right
from collections.abc import Callable, Iterable, Iterator, Mapping, Sequence
from functools import cached_property
from itertools import accumulate
from typing import NamedTuple

# Stands at a cut, so that no word and no formula ends there that goes on in the text.
GUARD = "_"
# Between two pieces of one text: not a single blank, which would join them to a phrase.
GAP = "  "


class Piece(NamedTuple):
    """A stretch of the document."""

    start: int
    end: int


class Place(NamedTuple):
    """A stretch as the caller knows it."""

    where: str
    start: int
    end: int
    text: str


class Document:
    def __init__(self, texts: Sequence[tuple[str, str]]) -> None:
        self._names = [name for name, _ in texts]
        self._given = [text for _, text in texts]
        self._left = list(self._given)
        self._words: dict[int, tuple[list[int], list[int]]] = {}
        self._starts = [0, *accumulate(len(text) for _, text in texts)]

    def __len__(self) -> int:
        return self._starts[-1]

    def whole(self) -> list[str]:
        """The texts without what was blanked."""
        return self._not_empty(dict(enumerate(self._left)))

    def blank(self, pieces: Iterable[Piece]) -> None:
        self._overwrite(pieces, lambda n, start, end: " " * (end - start))

    def restore(self, pieces: Iterable[Piece]) -> None:
        self._overwrite(pieces, lambda n, start, end: self._given[n][start:end])

    def _overwrite(self, pieces: Iterable[Piece], new: Callable[[int, int, int], str]) -> None:
        parts: dict[int, list[str]] = {}
        done: dict[int, int] = {}
        for n, start, end in self._in_texts(sorted(pieces)):
            at = done.get(n, 0)
            parts.setdefault(n, []).append(self._left[n][at:start])
            parts[n].append(new(n, max(start, at), end))
            done[n] = max(end, at)
        for n, changed in parts.items():
            self._left[n] = "".join([*changed, self._left[n][done[n] :]])

    def only(self, pieces: Sequence[Piece], guard: str = GUARD) -> list[str]:
        """The texts of which only these pieces are left. With a guard, words cut by a piece are not
        taken for whole words."""
        texts: dict[int, str] = {}
        for n, start, end in self._in_texts(pieces):
            left = self._left[n]
            before = guard if start > 0 else ""
            after = guard if end < len(left) else ""
            gap = texts[n] + GAP if n in texts else ""
            texts[n] = f"{gap}{before}{left[start:end]}{after}"
        return self._not_empty(texts)

    def given(self, pieces: Sequence[Piece]) -> list[str]:
        """The texts as they were given, of which only these pieces are left."""
        texts: dict[int, str] = {}
        for n, start, end in self._in_texts(pieces):
            texts[n] = texts.get(n, "") + self._given[n][start:end] + GAP
        return self._not_empty(texts)

    def _not_empty(self, texts: Mapping[int, str]) -> list[str]:
        """The first text, those that are joined with it without the empty ones, and the last, so
        that a trial costs what is left of a request."""
        last = len(self._given) - 1
        between = [texts[n] for n in sorted(texts) if 0 < n < last and texts[n].strip()]
        return [texts.get(0, ""), *between, texts.get(last, "")]

    def text(self, piece: Piece) -> str:
        """The characters of a piece, of all texts that it touches."""
        return "".join(self._left[n][start:end] for n, start, end in self._in_texts([piece]))

    def places_of(self, text: str) -> Iterator[Piece]:
        """Where these characters stand and are not blanked, without regard to case."""
        sought = _lowered(text)
        start = self._lowered.find(sought)
        while start >= 0:
            end = start + len(text)
            n = bisect_right(self._starts, start) - 1
            if end > self._starts[n + 1]:  # ends in another text
                end = self._starts[n + 1]
            elif self._is_left(n, start, end):
                yield Piece(start, end)
            start = self._lowered.find(sought, end)

    def _is_left(self, n: int, start: int, end: int) -> bool:
        first = self._starts[n]
        within = slice(start - first, end - first)
        return self._left[n][within] == self._given[n][within]

    @cached_property
    def _lowered(self) -> str:
        return "".join(map(_lowered, self._given))

    def split(self, piece: Piece) -> list[Piece]:
        """The parts of a piece in one text each."""
        return [
            Piece(self._starts[n] + start, self._starts[n] + end)
            for n, start, end in self._in_texts([piece])
        ]

    def place(self, piece: Piece) -> Place:
        """Where a piece within one text stands."""
        [(n, start, end)] = self._in_texts([piece])
        return Place(self._names[n], start, end, self._given[n][start:end])

    def word_around(self, piece: Piece) -> str:
        """The word that a piece is a part of; the piece itself when it is no part of a word."""
        [(n, start, end)] = self._in_texts([piece])
        starts, ends = self._words_of(n)
        before, after = bisect_right(starts, start) - 1, bisect_left(ends, end)
        if before >= 0 and start < ends[before]:
            start = starts[before]
        if after < len(ends) and starts[after] < end:
            end = ends[after]
        return self._given[n][start:end]

    def _words_of(self, n: int) -> tuple[list[int], list[int]]:
        """Where the words of a text start, and where they end."""
        if n not in self._words:
            spans = [match.span() for match in re.finditer(r"\w+", self._given[n])]
            self._words[n] = ([start for start, _ in spans], [end for _, end in spans])
        return self._words[n]

    def _in_texts(self, pieces: Iterable[Piece]) -> list[tuple[int, int, int]]:
        found = []
        starts = self._starts
        for start, end in pieces:
            n = bisect_right(starts, start) - 1
            while start < end:
                first = starts[n]
                n += 1
                until = min(end, starts[n])
                if start < until:
                    found.append((n - 1, start - first, until - first))
                    start = until
        return found


def _lowered(text: str) -> str:
    """The text in small letters; a character that would become two stays as it is."""
    lowered = text.lower()
    if len(lowered) == len(text):
        return lowered
    return "".join(
        small if len(small := character.lower()) == 1 else character for character in text
    )
