"""Random requests, the same for the same seed; in every third, some values fit nowhere."""

import collections
import random
import tomllib
import types
from pathlib import Path
from typing import get_args

import decisions
from tavik_agent.method_acronyms import METHOD_ACRONYMS

from tavik_agent import characterization_types as kinds
from tavik_agent import material_reference_data as reference

from . import properties

REQUESTS = [
    request
    for path in sorted((Path(__file__).parents[2] / "evaluation").glob("*.toml"))
    for group in tomllib.loads(path.read_text()).values()
    for request in group
]
SYMBOLS = sorted(reference.KNOWN_ELEMENT_SYMBOLS)
INTENT = {
    "correlation": [*get_args(kinds.IntentCorrelation), " DFT+U "],
    "magnetism": [*get_args(kinds.IntentMagnetism), "Ferromagnetic", "odd"],
    "complexity_hint": [*get_args(kinds.IntentComplexity), " Minimal", "full"],
}
UNITS = ["eV", "Hartree", "electron-volts", " a.u.", "Ry"]
ODD_TEXT = [*"\0\ud800İßﬁ\u2028_(\U0001f9ea", "Fe²", "Fe٣", "x" * 300]
# Kinds of words and how often one is drawn.
WORDS = [
    ([word for request in REQUESTS for word in str(request.get("query", "")).split()], 6),
    (sorted({*reference.FORMULA_ALIASES, *reference.ELEMENT_NAME_ALIASES}), 4),
    (sorted(reference.SEMICONDUCTOR_FORMULAS | reference.DFTU_SENSITIVE_FORMULAS), 4),
    (SYMBOLS, 2),
    (["stm", "tip", "sample", "metallic", "vacuum", "ev", "hartree", *decisions.KEYWORDS], 5),
    (sorted(METHOD_ACRONYMS), 1),
    (ODD_TEXT, 1),
]


def odd_values():
    """Made anew each time, since a request may change what stands in it."""
    return [
        *(None, True, 0, -1, 10**30, 0.0, float("nan"), float("inf"), 1j, b"Fe", ..., range(3)),
        *((), ("Fe", "O"), [], [[]], {}, {1: 2}, {None: None}, {"species": {"species": []}}, dict),
        *(set(), frozenset({"Fe"}), types.MappingProxyType({"species": "Ni"}), "", " ", "\t\0"),
        *([None, 1, {"a": "b"}], collections.UserDict(species=["Cu"]), collections.Counter("Fe")),
        *ODD_TEXT,
    ]


class Generator(random.Random):
    def maybe(self, chance, draw, *arguments):
        return draw(*arguments) if self.random() < chance else None

    def some(self, chance, values):
        return {key: value for key, value in values.items() if self.random() < chance}

    def several(self, most, draw):
        return [draw() for _ in range(self.randrange(most))]

    def word(self):
        word = self.choice(*self.choices(*zip(*WORDS, strict=True)))
        return self.choices([word, word.upper(), word.title(), word[::-1]], (12, 1, 1, 1))[0]

    def text(self, most=12):
        separators = self.choices([" ", ", ", *"\n-/", "  ", ""], (30, 2, 1, 1, 1, 1, 1), k=most)
        return "".join(map(str.__add__, self.several(most, self.word), separators))

    def species(self):
        shape = self.choice([str, str.lower, " {} ".format])
        return self.several(4, lambda: shape(self.choice(SYMBOLS)))

    def step_params(self):
        listed = [{"species": symbol} for symbol in self.species()]
        keyed = {symbol: self.choice([{"species": symbol}, 1]) for symbol in self.species()}
        rows = self.choice([[[0, 0, 0]], "a.xyz", None])
        params = {"element": self.choice([listed, keyed])}
        params |= {"atom": {self.choice(["xyz", "fracxyz"]): rows}}
        return self.some(0.5, params | {"domain": {"latvec": self.choice([[[1, 0, 0]], None])}})

    def intent(self):
        drawn = {"species": self.species(), "formula": self.word()}
        drawn |= {"structure_description": self.text(4), "units": {"energy": self.choice(UNITS)}}
        return self.some(0.3, drawn | {key: self.choice(words) for key, words in INTENT.items()})

    def base(self):
        values = {"species": self.species(), "evidence": ["A", "B", "A"], "note": object}
        values["confidence"] = self.choice([0.9, "0.5", 0])
        chosen = self.sample([*properties.KEYS, "note"], self.randrange(len(properties.KEYS)))
        labels = ("unknown", "", *properties.LABELS["material_family"])
        return {key: values.get(key, self.choice(labels)) for key in chosen}

    def put_odd_value(self, tree):
        while True:
            place = self.choice([*tree] if isinstance(tree, dict) else range(len(tree)))
            if not isinstance(tree[place], dict | list) or not tree[place] or self.random() < 0.3:
                tree[place] = self.choice(odd_values())
                return
            tree = tree[place]

    def request(self):
        """The arguments of one call, and whether all of them are of a kind that fits."""
        request = {
            "step": self.choice(["relax", "scf", "", "straße"]),
            "query_text": self.text(),
            "step_params": self.maybe(0.6, self.step_params),
            "findings": self.maybe(0.4, self.several, 3, self.text),
            "planner_manifest": self.maybe(0.3, lambda: {"purpose": self.text(4), "notes": ["x"]}),
            "previous_steps_params": self.maybe(0.3, lambda: {"a": {}, "b": self.step_params()}),
            "base_characterization": self.maybe(0.4, self.base),
            "query_intent": self.maybe(0.6, self.intent),
        }
        odd_values = self.choice([0, 0, 0, 0, 1, 3])
        for _ in range(odd_values):
            self.put_odd_value(request)
        return request, not odd_values
