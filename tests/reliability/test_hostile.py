"""No value crashes the process. Its error arrives unchanged, and the next call is right."""

import collections
import functools
import itertools
import os
import sys
import threading

import pytest
from reliability import calls, copies, hostile

# What a value of the wrong kind, one that changed while it was read, or one that claims an immense
# length may end in.
REFUSALS = (AttributeError, LookupError, TypeError, ValueError, RuntimeError, MemoryError)
UNREAD = "METHOD_ACRONYMS _FORMULA_TOKEN_RE _FORMULA_PART_RE characterize_material"
EXPECTED = {name: calls.result(copies.fresh(), name) for name in calls.FUNCTIONS}


def check_next_call(module, names=calls.FUNCTIONS):
    assert {name: calls.result(module, name) for name in names} == {n: EXPECTED[n] for n in names}


def attempt(module, name, arguments, raised=()):
    """Makes a call that may fail, with the first error that its value raised or else a refusal."""
    caught = None
    try:
        calls.call(module, name, arguments)
    except BaseException as error:
        caught = error
    if raised:
        assert caught is raised[0], f"{caught!r} in place of {raised[0]!r}"
        assert caught.__context__ is None
    else:
        assert caught is None or isinstance(caught, REFUSALS), repr(caught)


def test_error_of_a_value_arrives_unchanged():
    module, raised, reached = copies.fresh(), [], collections.Counter()
    for make in hostile.failing(raised):
        for function, arguments, name in hostile.uses(module, make):
            raised.clear()
            attempt(module, function, arguments, raised)
            reached[name] += bool(raised)
    assert reached[None] > 2000
    assert {*copies.names(module)} - {*+reached} == {*UNREAD.split()}
    check_next_call(module)


def change_all(victims, change):
    for victim in [v for v in victims if type(v) in (list, dict)]:
        parts = victim.values() if type(victim) is dict else victim
        for part in [victim, *(part for part in parts if type(part) in (list, dict))]:
            change(part)


def grow(victim):
    if len(victim) < 99:
        victim.append("Ni") if type(victim) is list else victim.update({f"k{len(victim)}": 1})


def shrink(victim):
    if victim:
        victim.pop() if type(victim) is list else victim.popitem()


DEEDS = {
    "none": lambda **_: None,
    "grow": lambda victims, **_: change_all(victims, grow),
    "shrink": lambda victims, **_: change_all(victims, shrink),
    "clear": lambda victims, **_: change_all(victims, lambda victim: victim.clear()),
    "rebind": lambda module, own, **_: copies.rebind(module, own),
    "call back": lambda module, **_: check_next_call(module, ["characterize_material"]),
}


@pytest.mark.parametrize("deed", DEEDS)
def test_values_that_meddle_while_they_are_read(deed):
    module, victims = copies.fresh(), []
    own = copies.names(module)
    values = [*hostile.answering(lambda: DEEDS[deed](module=module, own=own, victims=victims))]
    for make in values if deed == "none" else values[::9]:
        for function, arguments, _ in hostile.uses(module, make):
            victims[:] = arguments.values()
            attempt(module, function, arguments)
            vars(module).update(own)
    check_next_call(module)


@pytest.mark.parametrize("wrap", [lambda v: [v], lambda v: {"element": v}], ids=["list", "dict"])
def test_deep_nesting(wrap):
    module = copies.fresh()
    nested = functools.reduce(lambda value, _: wrap(value), range(30_000), "Fe")
    for name, arguments in hostile.calls_with(lambda: nested):
        attempt(module, name, arguments)
    with pytest.raises(RecursionError):
        module.characterize_material(step="", findings=[nested])
    check_next_call(module)


def on_usual_stack(action):
    """What the action returns or raises on a stack of 8 MiB."""
    outcome = []

    def run():
        try:
            outcome.append(action())
        except BaseException as error:
            outcome.append(error)

    sanitized = "asan" in os.environ.get("LD_PRELOAD", "")  # which makes frames much larger
    size = threading.stack_size(2**28 if sanitized else 2**23)
    thread = threading.Thread(target=run)
    thread.start()
    thread.join()
    threading.stack_size(size)
    return outcome[0]


@pytest.mark.parametrize("name", calls.FUNCTIONS)
def test_endless_calling_back(name):
    module, endless, limit = copies.fresh(), 0, sys.getrecursionlimit()
    sys.setrecursionlimit(10**6)  # so that the stack alone is the limit
    rows = [row for row in hostile.rows() if row[0] in (dict, object)]
    for (kind, method), parameter in itertools.product(rows, calls.FUNCTIONS[name]()):

        def call_back(self, *args, parameter=parameter):
            return calls.call(module, name, calls.FUNCTIONS[name]() | {parameter: self})

        value = hostile.with_method(kind, method, call_back)()
        found = on_usual_stack(functools.partial(call_back, value))
        assert not isinstance(found, SystemError)
        endless += isinstance(found, RecursionError)
    sys.setrecursionlimit(limit)
    assert endless > 0
    check_next_call(module)


@pytest.mark.parametrize("filler", ["word ", "x", "é", "\ud800"])
def test_fifty_megabytes_of_text(filler):
    module = copies.fresh()
    size = len(filler.encode(errors="surrogatepass"))
    short, long = (f"NiO {filler * (length // size)}" for length in (100, 50 * 2**20))
    for named in (lambda text: {"query_text": text}, lambda text: {"findings": [text]}):
        found = module.characterize_material(step="", **named(long))
        assert found == module.characterize_material(step="", **named(short))
        assert found["species"] == ["Ni", "O"]
