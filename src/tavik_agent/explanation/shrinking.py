"""Which words of a text decide: the text is cut down while a test holds (delta debugging).

The test is asked of texts in which all but a few pieces are left out. What is found is minimal: no
piece can be left out, and none can be cut shorter without cutting into a word.
"""

import re
from collections.abc import Callable, Iterator

from .document import Document, Piece

type Test = Callable[[list[str]], bool]
FIRST_STEP = 16
WIDER = 64
MARKS = re.compile(r"[\W_]*")
REMEMBERED = 100  # characters; longer texts hardly come twice


def deciding_pieces(document: Document, test: Test) -> list[Piece]:
    """All pieces that have a part in the test's being true; they are blanked in the document."""
    test = _remembered(test)
    found: list[Piece] = []
    at = 0
    while True:
        wide = _next_pieces(document, test, at)
        if not wide:
            if at == 0:
                break
            at = 0
            continue
        pieces = _trimmed(document, test, wide)
        if not any(document.text(piece).strip() for piece in pieces):
            break  # an answer that does not depend on the words
        if len(pieces) == 1:
            at = pieces[0].end
            pieces += _same_elsewhere(document, test, pieces, wide, 0)
        else:
            pieces = _with_alternatives(document, test, wide)
        document.blank(pieces)
        found += pieces
    return sorted(found)


def _remembered(test: Test) -> Test:
    """The test, asked once of short texts that read the same."""
    answers: dict[tuple[str, ...], bool] = {}

    def remembered(texts: list[str]) -> bool:
        if sum(map(len, texts)) > REMEMBERED:
            return test(texts)
        if (key := (*texts,)) not in answers:
            answers[key] = test(texts)
        return answers[key]

    return remembered


def _next_pieces(document: Document, test: Test, at: int) -> list[Piece]:
    """The pieces behind a place that decide together and end first; none when there are none."""
    end = _least(at, len(document), lambda end: test(document.only([Piece(at, end)])))
    if end is None:
        return []
    size = end - at
    back = _bisected(0, size, lambda size: test(document.only([Piece(end - size, end)])))
    pieces = _needed(document, test, Piece(end - back, end))
    if len(pieces) > 1:
        for n in range(len(pieces)):
            pieces[n] = _narrowed(document, test, pieces, n)
    return pieces


def _least(low: int, high: int, holds: Callable[[int], bool]) -> int | None:
    """The least number above low for which it holds, when it holds for all that are greater; none
    when it does not hold for high. Small numbers are tried first."""
    step = FIRST_STEP
    while not holds(min(low + step, high)):
        if low + step >= high:
            return None
        low += step
        step *= 2
    return _bisected(low, min(low + step, high), holds)


def _bisected(low: int, high: int, holds: Callable[[int], bool]) -> int:
    """The least number above low for which it holds, as it does for high."""
    while high - low > 1:
        middle = (low + high) // 2
        if holds(middle):
            high = middle
        else:
            low = middle
    return high


def _needed(document: Document, test: Test, piece: Piece) -> list[Piece]:
    """The words of a piece that the test needs, each with the blanks on both sides; what means
    something only as it stands together stays together."""
    words = [
        Piece(part.start + match.start(1), part.start + match.end(2))
        for part in document.split(piece)
        for match in re.finditer(r"(\s*)\S+(?=(\s*))", document.text(part))
    ]
    size = len(words) // 2
    while size and len(words) > 1:
        n = 0
        while n < len(words):
            without = words[:n] + words[n + size :]
            if without and test(document.only(list(_joined(document, without)))):
                words = without
            else:
                n += size
        size //= 2
    if words == [piece] or test(document.only(words)):
        return words
    return list(_joined(document, words or [piece]))


def _joined(document: Document, words: list[Piece]) -> Iterator[Piece]:
    """Neighbours in one text as one piece."""
    current = words[0]
    for word in words[1:]:
        joined = Piece(current.start, word.end)
        if word.start <= current.end and len(document.split(joined)) == 1:
            current = joined
        else:
            yield current
            current = word
    yield current


def _narrowed(document: Document, test: Test, pieces: list[Piece], n: int) -> Piece:
    """One of several pieces, cut at both ends as far as the test holds."""

    def holds(piece: Piece) -> bool:
        return test(document.only([*pieces[:n], piece, *pieces[n + 1 :]]))

    start, end = pieces[n]
    size = _least(0, end - start, lambda size: holds(Piece(start, start + size)))
    end = start + (size or end - start)
    size = _least(0, end - start, lambda size: holds(Piece(end - size, end)))
    return Piece(end - (size or end - start), end)


def _trimmed(document: Document, test: Test, pieces: list[Piece]) -> list[Piece]:
    trimmed = list(pieces)
    for n in range(len(trimmed)):
        trimmed[n] = _without_marks(document, test, trimmed, n)
    return trimmed


def _without_marks(document: Document, test: Test, pieces: list[Piece], n: int) -> Piece:
    """A piece without the blanks and marks around it, when it decides between blanks as well."""
    text = document.text(pieces[n])
    left = MARKS.match(text)
    right = MARKS.match(text[::-1])
    start, end = pieces[n]
    cuts = (left.end() if left else 0, right.end() if right else 0)
    blanks = (len(text) - len(text.lstrip()), len(text) - len(text.rstrip()))
    for before, after in ((cuts[0], cuts[1]), (blanks[0], cuts[1]), (cuts[0], blanks[1]), blanks):
        cut = Piece(start + before, end - after)
        if cut.start >= cut.end or _lost_a_bracket(text, document.text(cut)):
            continue
        if test(document.only([*pieces[:n], cut, *pieces[n + 1 :]], guard="")):
            return cut
    # Between blanks the words can mean something else; what touches them in the text does matter.
    for more in range(1, WIDER):
        around = Piece(max(start - more, 0), min(end + more, len(document)))
        if test(document.only([*pieces[:n], around, *pieces[n + 1 :]], guard="")):
            return around
    return pieces[n]


def _lost_a_bracket(text: str, cut: str) -> bool:
    """Whether one of two brackets was cut off, as from "pt(111)"."""
    return any(
        cut.count(a) - cut.count(b) not in (0, text.count(a) - text.count(b))
        for a, b in ("()", "[]", "{}")
    )


def _same_elsewhere(
    document: Document, test: Test, pieces: list[Piece], wide: list[Piece], n: int
) -> list[Piece]:
    """The other places at which the characters of one of the pieces decide in its stead, with what
    touches them as wide as around it."""

    def decides(place: Piece) -> bool:
        around = Piece(max(place.start - before, 0), min(place.end + after, len(document)))
        return test(document.only([*wide[:n], around, *wide[n + 1 :]])) and test(
            document.only([*pieces[:n], place, *pieces[n + 1 :]], guard="")
        )

    piece = pieces[n]
    before, after = max(piece.start - wide[n].start, 1), max(wide[n].end - piece.end, 1)
    places = document.places_of(document.text(piece))
    return [place for place in places if place != piece and decides(place)]


def _with_alternatives(document: Document, test: Test, wide: list[Piece]) -> list[Piece]:
    """Pieces that decide together, with those that can stand for one of them, and those that decide
    alone, which stay blanked, since they have to be to find the others."""
    groups = _groups(document, test, wide)
    known = {piece for group in groups for piece in group}
    for group in groups:
        hidden = list(group)
        document.blank(hidden)
        at = 0
        while next_wide := _next_pieces(document, test, at) or _next_pieces(document, test, 0):
            others = _groups(document, test, next_wide)
            new = [other for other in others if other[0] not in known]
            if not new:
                break
            at = new[0][0].end
            fresh = [piece for other in new for piece in other]
            known.update(fresh)
            document.blank(fresh)
            if len(others) > 1:
                groups += new
                hidden += fresh
        document.restore(hidden)
    return sorted(known)


def _groups(document: Document, test: Test, wide: list[Piece]) -> list[list[Piece]]:
    """Pieces that decide together, each followed by the other places that decide in its stead."""
    pieces = _trimmed(document, test, wide)
    return [
        [piece, *_same_elsewhere(document, test, pieces, wide, n)] for n, piece in enumerate(pieces)
    ]
