"""What is read of the inputs: the joined text, and the species that an element block declares."""

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


class Getter(dict):
    def get(self, key, default=None):
        return "Ni" if key == "species" else super().get(key, default)


Iterating = type("Iterating", (list,), {"__iter__": lambda self: iter([{"species": "Cu"}])})
REORDERED = collections.OrderedDict(Fe=1, O=2)
REORDERED.move_to_end("Fe")


BLOCKS = [
    # a list of mappings
    ([{"species": " fe "}, {"species": "O"}, {"species": "FE"}], ["Fe", "O"]),
    (["Fe", {"species": "Si"}, None, [{"species": "O"}]], ["Si"]),
    ([{"Fe": 1}, {"species": ["O"]}, {"species": 8}, {"species": " \u2003"}, {}], []),
    ([{"species": "Fe O"}, {"species": "Xx"}], ["Fe o", "Xx"]),
    ([types.MappingProxyType({"species": "Fe"}), Getter()], ["Fe", "Ni"]),
    (Iterating(), ["Cu"]),
    # a mapping: its own species first, then its entries in order
    ({"Fe": {"species": "Fe"}, "O": {}}, ["Fe"]),
    ({"Fe": "Fe.upf", "O": 2, "Si": None, "FE": []}, ["Fe", "O", "Si"]),
    ({"O": 1, "Fe": 1, "species": "Fe", "basis": "dzp"}, ["Fe", "O"]),
    ({"O": 1, "species": {"species": "Ni"}}, ["O", "Ni"]),  # an entry like any other
    ({"Iron": 1, "Fex": 1, "Fe1": 1, "F1": 1, "F ": 1, "": 1, 26: 1, None: 1, b"Fe": 1}, []),
    (Getter(O=1), ["Ni", "O"]),
    (REORDERED, ["O", "Fe"]),
    (collections.ChainMap({"O": 1}, {"species": "Fe"}), ["Fe", "O"]),
    # letters of any script, counted in characters; a combining mark is none
    ({"é": 1, "\U0001d400\U0001d401": 1, "é2": 1, "e\u0301": 1}, ["É", "\U0001d400\U0001d401"]),
    # first character to upper case (not title case), the rest to lower case by itself
    ([{"species": "ßX"}, {"species": "\u01c6"}], ["SSx", "\u01c4"]),
    ([{"species": "A\u03a3"}, {"species": "xİ"}], ["A\u03c3", "Xi\u0307"]),  # no final sigma
    ([{"species": "f\ud800\0E"}], ["F\ud800\0e"]),
    *((block, []) for block in (None, "Fe", 26, ({"species": "Fe"},), [], {})),
]


@pytest.mark.parametrize(("block", "species"), BLOCKS)
def test_declared_species(block, species):
    assert mc._species_from_element_block(block) == species


def test_missing_species_is_asked_for_and_not_made():
    block = collections.defaultdict(lambda: "Fe")
    assert mc._species_from_element_block(block) == []
    assert not block


@pytest.mark.parametrize("item", [("Fe", 1, 2), ["Fe"], 5])
def test_items_that_are_no_pairs(item):
    block = type("Block", (dict,), {"items": lambda self: [item]})()
    with pytest.raises((TypeError, ValueError), match="unpack"):
        mc._species_from_element_block(block)


def test_block_that_changes_while_it_is_read():
    class Changes(dict):
        def get(self, key, default=None):
            del rows[1:]
            table["Si"] = 1
            return "Fe"

    rows, table = [Changes(), {"species": "O"}], {"Fe": Changes(), "O": 1}
    assert mc._species_from_element_block(rows) == ["Fe"]
    del table["Si"]
    with pytest.raises(RuntimeError, match="dictionary changed size during iteration"):
        mc._species_from_element_block(table)
