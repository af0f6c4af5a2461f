"""The markups in which the counts of a formula are written, and the marks that stand behind them.

A plain reading of "Bi<sub>2</sub>Te<sub>3</sub>" or "Bi$_2$Te$_3$" finds the pieces between the
markup and takes bismuth for the material; where the only count ends the formula (TiO<sub>2</sub>)
it finds all elements and loses the count. Nothing is found in Unicode characters, after bare
underscores and in a formula that is set as a whole ("$\\mathrm{TiO_2}$"). So each form costs a row,
and the forms are chosen by harm: all of them for the frequent formulas; marks behind dollars and
HTML where a piece would pass for the material; the plain form of the rest. The series get
characters and dollars only: HTML is rare in what people type, and a colon behind them is not.

Sources: none needed; the markups are those of titles in LaTeX, of web pages and of typed text.
"""

from typing import Final

from .frequent_formulas import FREQUENT_FORMULAS

_FREQUENT: Final = frozenset(formula.lower() for formula in FREQUENT_FORMULAS)
_DIGITS: Final = "0123456789"
_CHARACTERS: Final = str.maketrans(_DIGITS, "₀₁₂₃₄₅₆₇₈₉")
# A count between two characters that occur in no formula; those of a longer count are joined.
_OPEN, _CLOSE = "\x01", "\x02"
_MARKED: Final = str.maketrans({digit: f"{_OPEN}{digit}{_CLOSE}" for digit in _DIGITS})
# What they become.
_LATEX, _BRACES, _HTML = ("$_", "$"), ("$_{", "}$"), ("<sub>", "</sub>")
_LOW, _LOW_BRACES = ("_", ""), ("_{", "}")

# What stands before and behind a form.
_ALONE: Final = (("", ""),)
_COMMA: Final = (*_ALONE, ("", ","))
_SENTENCE: Final = (*_COMMA, ("", "."), ("", ":"))
_MARKS: Final = (*_SENTENCE, ("(", ")"))
_ALL_MARKS: Final = (*_MARKS, ("", ";"), ("", ")"), ("(", ")."))
_WHOLE: Final = (
    ("$", "$"), ("$\\mathrm{", "}$"), ("${\\rm ", "}$"),
    ("\\(\\mathrm{", "}\\)"),
)  # fmt: skip
_FREQUENTLY: Final = (
    (_LATEX, _ALL_MARKS), (_HTML, _ALL_MARKS[:-1]), (_BRACES, _MARKS),
    (_LOW, (*_COMMA, ("", ":"), *_WHOLE)), (_LOW_BRACES, (*_COMMA, *_WHOLE[:2])),
)  # fmt: skip


def _marked(formula: str) -> str:
    """The formula with each count between the two characters."""
    return formula.translate(_MARKED).replace(_CLOSE + _OPEN, "")


def counts_apart(formula: str, in_count: str = _DIGITS) -> list[str]:
    """The formula in pieces, its counts by themselves; a count begins with a digit."""
    pieces = [""]
    counting = False
    for character in formula:
        before, counting = counting, character in (in_count if counting else _DIGITS)
        if counting is before:
            pieces[-1] += character
        else:
            pieces.append(character)
    return pieces


def _apart(formula: str) -> tuple[str, str]:
    """The symbols and the count of a formula that has one, at the end; nothing of another.

    The pieces of such a formula hold every element, whatever the markup.
    """
    symbols = formula.rstrip(_DIGITS)
    return (symbols, formula[len(symbols) :]) if symbols.isalpha() else ("", "")


def _in_markup(marked: str, markup: tuple[str, str]) -> str:
    return marked.replace(_OPEN, markup[0]).replace(_CLOSE, markup[1])


def _upright(marked: str) -> str:
    """Every piece in roman letters by itself: \\mathrm{bi}_2\\mathrm{te}_3."""
    pieces = _in_markup(marked, ("}_", "\\mathrm{"))
    return f"\\mathrm{{{pieces}}}".replace("\\mathrm{}", "")


def as_plain_subscripts(formula: str) -> tuple[str, ...]:
    """A lower-case formula with its counts as subscripts, in Unicode and in LaTeX."""
    if formula.isalpha():
        return ()
    symbols, count = _apart(formula)
    if count:
        return (symbols + count.translate(_CHARACTERS), f"{symbols}$_{count}$")
    return (formula.translate(_CHARACTERS), _in_markup(_marked(formula), _LATEX))


def in_html(formula: str) -> str:
    """A lower-case formula with its counts in HTML."""
    return formula if formula.isalpha() else _in_markup(_marked(formula), _HTML)


def _in_every_markup(characters: str, marked: str) -> tuple[str, ...]:
    forms = [
        *((characters, around) for around in (*_MARKS, *_ALL_MARKS[-2:])),
        *(
            (form, around)
            for markup, arounds in _FREQUENTLY
            for form in (_in_markup(marked, markup),)
            for around in arounds
        ),
        (_upright(marked), ("$", "$")),
    ]
    return tuple(before + form + behind for form, (before, behind) in forms)


def as_subscripts(formula: str) -> tuple[str, ...]:
    """A lower-case formula in the markups that its frequency and their harm deserve."""
    if formula.isalpha():
        return ()
    if formula in _FREQUENT:
        return _in_every_markup(formula.translate(_CHARACTERS), _marked(formula))
    symbols, count = _apart(formula)
    if count:
        latex = f"{symbols}$_{count}$"
        return (
            symbols + count.translate(_CHARACTERS), latex, latex + ",", latex + ".",
            f"{symbols}<sub>{count}</sub>", f"{symbols}$_{{{count}}}$", f"{symbols}_{count}",
        )  # fmt: skip
    marked = _marked(formula)
    latex, html = _in_markup(marked, _LATEX), _in_markup(marked, _HTML)
    braces = _in_markup(marked, _BRACES)
    # Behind a closing brace the last element of Mg_{2}Si would be read.
    low = _in_markup(marked, _LOW_BRACES if formula[-1].isalpha() else _LOW)
    return (
        formula.translate(_CHARACTERS), latex, latex + ",", latex + ".", html, braces, low,
        latex + ":", braces + ",",
    )  # fmt: skip


def as_formula(formula: str) -> tuple[str, ...]:
    """A lower-case formula before the marks of a sentence, and with subscripts."""
    forms = (
        formula, formula + ",", formula + ".", formula + ":", formula + "?",
        *as_subscripts(formula),
    )  # fmt: skip
    return (*forms, formula + ")", f"`{formula}`") if formula in _FREQUENT else forms


def as_rare_formula(formula: str) -> tuple[str, ...]:
    """A lower-case formula before a comma, with subscripts; oxides, sulfides before more marks."""
    forms = (formula, formula + ",", *as_plain_subscripts(formula))
    anion = formula.rstrip(_DIGITS)[-1]
    if anion == "o":
        return (*forms, formula + ".", formula + ":")
    return (*forms, formula + ":") if anion == "s" else forms
