"""Nulls taken out of a request. Arrow, and the tool schemas of language models that ask for every
key, fill in nulls for what was left out; a null formula, though, rules out guessing.
"""

from typing import Any


def without_nulls(value: Any) -> Any:
    """A copy without the entries of dicts and the items of lists that are None, at any depth."""
    if isinstance(value, dict):
        return {key: without_nulls(item) for key, item in value.items() if item is not None}
    if isinstance(value, list):
        return [without_nulls(item) for item in value if item is not None]
    return value
