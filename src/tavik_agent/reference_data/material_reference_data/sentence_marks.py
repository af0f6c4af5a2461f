"""Names as they stand in sentences.

A phrase is found in a request only where blanks or the ends of the text stand on both sides of it,
so a name right before a comma or a full stop ("bulk silicon, fcc copper.") needs a row that holds
the mark. The tables list each name once; this module adds the marked forms.
"""

from collections.abc import Mapping
from types import MappingProxyType
from typing import Final

# The marks that follow a name in running text. Brackets and quotes stand before a name as well and
# are rare; they are left out to keep the tables small.
SENTENCE_MARKS: Final[tuple[str, ...]] = ("", ",", ".", ";", ":", "?")


def with_sentence_marks(rows: Mapping[str, str]) -> MappingProxyType[str, str]:
    """Return the rows in their order, each followed by its forms before a sentence mark."""
    return MappingProxyType(
        {phrase + mark: symbol for phrase, symbol in rows.items() for mark in SENTENCE_MARKS}
    )
