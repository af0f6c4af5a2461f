"""No value crashes the process. Its error arrives unchanged, and the next call is right."""

import collections
import functools
import itertools
import os
import sys
import threading
from concurrent import futures

import pytest
from reliability import calls, copies, hostile
from reliability.endurance import EXPECTED

# What a value of the wrong kind, one that changed while it was read, or one that claims an immense
# length may end in.
REFUSALS = (AttributeError, LookupError, TypeError, ValueError, RuntimeError, MemoryError)


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
    assert {*+reached} == {None, *copies.GLOBALS}
    check_next_call(module)


def change_all(change):
    """Changes every list and dict among the values of a call, and those directly in them."""

    def act(given, **_):
        for outer in [value for value in given if type(value) in (list, dict)]:
            inner = outer.values() if type(outer) is dict else outer
            for found in [outer, *(value for value in inner if type(value) in (list, dict))]:
                change(found)

    return act


def grow(found):
    if len(found) < 99:
        found.append("Ni") if type(found) is list else found.update({f"k{len(found)}": 1})


ACTIONS = {
    "none": lambda **_: None,
    "grow": change_all(grow),
    "shrink": change_all(lambda found: found and getattr(found, "popitem", found.pop)()),
    "clear": change_all(lambda found: found.clear()),
    "rebind": lambda module, own, **_: copies.rebind(module, own),
    "call back": lambda module, **_: check_next_call(module, ["characterize_material"]),
}


@pytest.mark.parametrize("action", ACTIONS)
def test_values_that_act_while_they_are_read(action):
    module, given = copies.fresh(), []
    own = copies.names(module)
    values = [*hostile.answering(lambda: ACTIONS[action](module=module, own=own, given=given))]
    for make in values if action == "none" else values[::9]:
        for function, arguments, _ in hostile.uses(module, make):
            given[:] = arguments.values()
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
    sanitized = "asan" in os.environ.get("LD_PRELOAD", "")  # which makes frames much larger
    size = threading.stack_size(2**28 if sanitized else 2**23)
    with futures.ThreadPoolExecutor(1) as pool:
        done = pool.submit(action)
    threading.stack_size(size)
    return done.exception() or done.result()


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
