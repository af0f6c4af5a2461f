"""The texts of a request, and pieces of them for trials. Positions run through all texts, so a
piece may begin in the query and end in a finding; `place` says where that is for the caller.
"""

from bisect import bisect_right
from collections.abc import Iterable, Sequence
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
        self._starts = [0, *accumulate(len(text) for _, text in texts)]

    def __len__(self) -> int:
        return self._starts[-1]

    def whole(self) -> list[str]:
        """The texts without what was blanked."""
        return list(self._left)

    def blank(self, pieces: Iterable[Piece]) -> None:
        for n, start, end in self._in_texts(pieces):
            text = self._left[n]
            self._left[n] = text[:start] + " " * (end - start) + text[end:]

    def restore(self, pieces: Iterable[Piece]) -> None:
        for n, start, end in self._in_texts(pieces):
            text = self._left[n]
            self._left[n] = text[:start] + self._given[n][start:end] + text[end:]

    def only(self, pieces: Sequence[Piece], guard: str = GUARD) -> list[str]:
        """The texts of which only these pieces are left. With a guard, words cut by a piece are not
        taken for whole words."""
        texts = [""] * len(self._left)
        for n, start, end in self._in_texts(pieces):
            left = self._left[n]
            before = guard if start > 0 else ""
            after = guard if end < len(left) else ""
            gap = GAP if texts[n] else ""
            texts[n] += f"{gap}{before}{left[start:end]}{after}"
        return texts

    def given(self, pieces: Sequence[Piece]) -> list[str]:
        """The texts as they were given, of which only these pieces are left."""
        texts = [""] * len(self._given)
        for n, start, end in self._in_texts(pieces):
            texts[n] += self._given[n][start:end] + GAP
        return texts

    def text(self, piece: Piece) -> str:
        """The characters of a piece, of all texts that it touches."""
        return "".join(self._left[n][start:end] for n, start, end in self._in_texts([piece]))

    def find(self, text: str, start: int) -> int:
        """Where the text stands next within one text, without regard to case; -1 if nowhere."""
        for n, first in enumerate(self._starts[:-1]):
            if self._starts[n + 1] > start:
                lowered = self._left[n].lower()
                if len(lowered) != len(self._left[n]):
                    lowered = self._left[n]
                at = lowered.find(text.lower(), max(start - first, 0))
                if at >= 0:
                    return first + at
        return -1

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
        text = self._given[n]
        if _is_word(text[start]):
            start -= _length_of_word(text[start - 1 :: -1] if start else "")
        if _is_word(text[end - 1]):
            end += _length_of_word(text[end:])
        return text[start:end]

    def _in_texts(self, pieces: Iterable[Piece]) -> list[tuple[int, int, int]]:
        found = []
        for piece in pieces:
            for n in range(bisect_right(self._starts, piece.start) - 1, len(self._given)):
                first = self._starts[n]
                if first >= piece.end:
                    break
                start, end = max(piece.start, first), min(piece.end, self._starts[n + 1])
                if start < end:
                    found.append((n, start - first, end - first))
        return found


def _is_word(character: str) -> bool:
    return character.isalnum() or character == "_"


def _length_of_word(text: str) -> int:
    return next((n for n, c in enumerate(text) if not _is_word(c)), len(text))
