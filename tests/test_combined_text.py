"""The joining of query, findings, purpose and notes into one text."""

import collections
import types

import pytest

from tavik_agent import material_characterization as mc

Spelled = type("Spelled", (str,), {"__str__": lambda self: "spelled out"})
Written = type("Written", (collections.UserDict,), {"__str__": lambda self: self["as"]})
Backwards = type("Backwards", (list,), {"__iter__": lambda self: list.__reversed__(self)})
JOINED = [
    ((), ""),
    ((" Fe cell ", None, ["", " bcc ", 3, None], {"a": "b"}), "Fe cell bcc 3 None {'a': 'b'}"),
    (("a", " \t\n\x0b\x0c\x1c\x85\xa0\u2003\u3000", "b"), "a b"),
    (("\u2003 Fe\n  O\u3000", "\u200bNiO\x1f"), "Fe\n  O \u200bNiO"),
    (("\ud800", ["\0 \udfff"]), "\ud800 \0 \udfff"),
    # kinds that are not read
    ((("Fe", "O"), {"Fe"}, 3, 2.5, True, b"Fe", iter(["Fe"]), []), ""),
    # items of a list, by their text form
    (([["x", "y"], True, 1.0, ("z",), " \n"],), "['x', 'y'] True 1.0 ('z',)"),
    ((Backwards(["a", "b"]),), "b a"),
    ((Spelled(" itself "), [Spelled("itself")]), "itself spelled out"),
    # mappings, whole and not stripped
    (({}, types.MappingProxyType({"a": 1})), "{} {'a': 1}"),
    ((collections.ChainMap({"a": 1}),), "ChainMap({'a': 1})"),
    (("a", Written({"as": " x "}), Written({"as": ""}), "b"), "a  x   b"),
]


@pytest.mark.parametrize(("parts", "text"), JOINED)
def test_joins_what_can_be_read_as_text(parts, text):
    assert mc._combined_text(*parts) == text


def test_list_that_shrinks_while_it_is_read():
    clears = type("Clears", (), {"__str__": lambda self: items.clear() or "cleared"})
    items = ["first", clears(), "never", "read"]
    assert mc._combined_text(items) == "first cleared"


@pytest.mark.parametrize("part", [[Written({"as": 3})], Written({"as": 3})], ids=["item", "whole"])
def test_text_form_that_is_no_string(part):
    with pytest.raises(TypeError, match="__str__ returned non-string"):
        mc._combined_text(part)
