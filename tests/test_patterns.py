"""The scanners against the patterns and keywords that define them, on chosen and made-up text."""

import re
import sys

import decisions
import pytest
from hypothesis import given
from hypothesis import strategies as st
from reliability import copies

from tavik_agent import material_characterization as mc

# Word characters that are no ASCII letters, characters that only look like word characters, digits
# of several scripts, white space and what resembles it, and characters that lower unusually.
NEIGHBOURS = (
    "éªß\u017fİ\u212a\u03a3ǅ\uff26\u4e2d\U0001d400_\u0301\u200d\u200b\u2019\ud800\udfff\0.,(+"
    "029\u0663\u096f\uff12\U0001d7d8²½\u2163① \t\n\r\x0b\x1c\x1f\x85\xa0\u2003\u3000\u2028\u180e"
    "-\u2010\u2013"
)
ANY = st.characters(exclude_categories=())


def texts(pieces):
    """Text of the pieces, their neighbours and, now and then, any character at all."""
    piece = st.sampled_from(pieces.split("|"))
    return st.lists(piece | piece | st.sampled_from(NEIGHBOURS) | ANY, max_size=14).map("".join)


def check_all(check, chosen, made_up):
    for text in chosen:
        check(text)
    given(made_up)(check)()


ELEMENTS = "Fe|O|H|Xy|In|Zn|As|DFT|HSe|Co|CO|E|e|x|2|3|10|-| "


def parts_by_definition(module, token):
    parts = module._FORMULA_PART_RE.findall(token)
    if "".join(symbol + digits for symbol, digits in parts) != token:
        return []
    if not all(symbol in module.KNOWN_ELEMENT_SYMBOLS for symbol, _ in parts):
        return []
    return [(symbol, int(digits) if digits else 1) for symbol, digits in parts]


FORMULAS = [
    "The Fe2O3-based MoS2/WS2 (NiO) Ba0.5Sr0.5TiO3 In As I He No Be; Fe\u0662O HHHHHHHHH NiO",
    "HHHHHHHH H1H1H1H1H1H1H1H1H1 O, DFT+U on NiO; HSE HSe Dft SCF scf",
    # Glued to a word character, and next to what is none.
    "1Fe2O3 xFe2O3 Fe2O3s Fe_2 _Fe FeÉ ÉFe Fe² Fe½ ªFe \u0662Fe",
    "\0NiO\0 \ud800CO\udfff NaCl\u0301 \u2019H2O\u2019",
]
# With the module's own elements and acronyms, but no phrases.
OWN = copies.fresh()
OWN.FORMULA_ALIASES = OWN.ELEMENT_NAME_ALIASES = {}


@pytest.mark.parametrize("module", [mc, OWN], ids=["rebound", "own"])
def test_formulas_of_a_text(module):
    def check(text):
        tokens = module._FORMULA_TOKEN_RE.findall(text)
        candidates = [token for token in tokens if token.upper() not in module._NON_FORMULA_TOKENS]
        accepted = {token: parts_by_definition(module, token) for token in candidates}
        symbols = [symbol for parts in accepted.values() for symbol, _ in parts]
        formulas = [token for token, parts in accepted.items() if parts]
        assert module._species_from_text(text) == list(dict.fromkeys(symbols))
        assert module._formula_hint(text, []) == (formulas or [""])[0]
        seen = []
        with pytest.MonkeyPatch.context() as patch:
            patch.setattr(module, "_formula_parts", lambda token: seen.append(token) or [])
            module._species_from_text(text)
            module._formula_hint(text, [])
        assert seen == candidates * 2

    check_all(check, FORMULAS, texts(ELEMENTS))


TOKENS = "Fe2O3|CO|Co|CH3CH3|Fe0O02|HHHHHHHHHHH2|Fe\u0662O\u0969|H1\u0662\uff13\U0001d7dc|fe2o3|2"
TOKENS += "|FeO3x|Fe-O|Fe2O3 | Fe|Ba0.5|Fe_2|FeXy|Xy2|Cs|FE|Fe²|Fe½|\uff26eO|Fe\u0301|Fé|Fe\ud800|"


def test_parts_of_a_token():
    def check(token):
        assert mc._formula_parts(token) == parts_by_definition(mc, token)

    formulas = st.from_regex(r"([A-Z][a-z]?\d*){1,12}", fullmatch=True)
    check_all(check, TOKENS.split("|"), texts(ELEMENTS) | formulas)


@pytest.mark.parametrize("nine", ["9", "\u0669", "\U0001d7ff"], ids=["ascii", "arabic", "astral"])
@pytest.mark.parametrize("length", [18, 19, 20, 4301, 20_000])
def test_counts_are_exact_at_any_length(request, nine, length):
    usual = sys.get_int_max_str_digits()
    request.addfinalizer(lambda: sys.set_int_max_str_digits(usual))
    sys.set_int_max_str_digits(640)
    assert mc._formula_parts("H" + nine * length + "O") == [("H", 10**length - 1), ("O", 1)]
    assert mc._formula_parts("H" + "0" * length + nine) == [("H", 9)]


def test_symbols_are_looked_up_in_order_up_to_the_first_unknown(monkeypatch):
    asked = []
    contains = {"__contains__": lambda self, symbol: asked.append(symbol) or symbol != "Xy"}
    monkeypatch.setattr(mc, "KNOWN_ELEMENT_SYMBOLS", type("Known", (), contains)())
    found = [mc._formula_parts(token) for token in ("Fe2XyO", "Fe-O", "QqQ")]
    assert found == [[], [], [("Qq", 1), ("Q", 1)]]
    assert asked == ["Fe", "Xy", "Qq", "Q"]  # none for what has not the shape of a formula


# How to ask, the pattern of each label in order, pieces of text, and texts; they are lowered.
WORDS = {
    "sample and tip": (
        lambda text: mc._structure_archetype(structure_mode="", combined_text=text),
        {"stm_sample_tip": r"(?s)(?=.*\bsample\b).*\btip\b"},
        "sample|tip|Sample|TIP|s| |-",
        "tip-sample|tip\ud800sample\0|tip\u0301 sample\u200d|sample T\u0130P|samples at the tip of"
        " a sample|samples tips|subsample tip|sample_tip|sampleé tip|sample ²tip|sample \u0663tip",
    ),
    "metal": (
        lambda text: mc.classify_system_class([], explicit_text=text),
        {"metal": r"\bmetallic\b|\bmetal\b"},
        "metal|metallic|Metal|METALLIC|s|ic",
        "half-metal|\ud800metal\0|nonmetallic|metals|metalloid|metal_|métal|metalé|metal²",
    ),
    "energy unit": (
        lambda text: mc.characterize_material(step="", query_text=text)["requested_energy_unit"],
        {
            "eV": r"\b(?:ev|electron[-\s]?volts?)\b",
            "Hartree": r"\b(?:ha|hartrees?|atomic\s+units?|a\.u\.)\b",
        },
        "eV|EV|electron|Electron|volt|volts|-|Ha|hartree|Hartrees|atomic|unit|Units|a.u.|A.U|s| ",
        "in eV.|EV|\0ev\ud800|Ha/eV|ev\u0301|eV-eV2|Hartree or eV|electrons, electron volts"
        "|\u0663ev|Electron-Volt|electronvolt|electron\u3000volts|electron\x1cvolt|every energy|1eV"
        "|µeV|eV²|eV_|electron  volt|electron\u2013volt|volts|electron voltss|electron volté|mHa"
        "|xelectron volt|HARTREE|hartrees|(ha)|atomic unity atomic units|atomic\x1funit|haha"
        "|atomic\u200bunit|Atomic \t\u2028\x85unit|atomicunits|atomic-units|atomic unitse|hartreeé"
        # The closing boundary asks for a word character right behind the last period.
        "|subatomic units|a.u.|in a.u. or|ba.u.x|a.u|a.u.\u0301x|a.u.x|(a.u.é|a.u. a.u.\u0663",
    ),
}


@pytest.mark.parametrize("words", WORDS)
def test_words_by_pattern(words):
    ask, patterns, pieces, chosen = WORDS[words]
    nothing = ask("")

    def check(text):
        labels = [label for label in patterns if re.search(patterns[label], text.lower())]
        assert ask(text) == [*labels, nothing][0]

    check_all(check, chosen.split("|"), texts(pieces))


@pytest.mark.parametrize(("field", "rows"), decisions.KEYWORD_ROWS.items())
def test_keywords_of_the_decisions(field, rows):
    """The first row with a keyword decides, and keywords count inside other words too."""
    words = [word for words, _ in rows for word in words]
    nothing = mc.characterize_material(step="")[field]

    def check(text):
        labels = [label for words, label in rows if any(word in text.lower() for word in words)]
        found = mc.characterize_material(step="", findings=[text])
        assert found[field] == [*labels, nothing][0]

    chosen = [f"an{word.upper()}s" for word in words]
    chosen += ["; ".join(words[i:][::-1]) for i in range(len(words))]
    chosen += ["bul\u212a", "blac\u212a phosphorus", "\ud800\0slab", "hc p, f cc, bul, urface"]
    cut = [word[begin:end] for word in words for begin in range(3) for end in (-2, -1, None)]
    check_all(check, chosen, texts("|".join([*words, *cut])))
