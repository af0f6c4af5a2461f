"""Names of the module's namespace are looked up at each use, whatever happens to them in between.

A module learns from a dict watcher whether a name is as it was; one for which no watcher was left
looks every time. Both must find the same."""

import _testcapi
import builtins
import contextlib
import functools
import gc
import itertools
import sys
import types
from unittest import mock

import pytest
from reliability import calls, copies, hostile

OTHER_ANSWERS = {"_formula_hint": "", "_combined_text": "CO", "_formula_parts": [("Si", 1)]}


@pytest.fixture(params=[copies.fresh, copies.unwatched], ids=["watched", "unwatched"])
def module(request):
    gc.collect()  # modules of earlier tests give their watchers back
    return request.param()


def watchers_left():
    taken = []
    with contextlib.suppress(RuntimeError):  # there are no more
        while True:
            taken.append(_testcapi.add_dict_watcher(0))
    for watcher in taken:
        _testcapi.clear_dict_watcher(watcher)
    return len(taken)


def test_watchers_are_given_back():
    gc.collect()
    before = watchers_left()
    for missing in ({}, {"tavik_agent.material_reference_data": None}) * 10:
        with mock.patch.dict(sys.modules, missing), contextlib.suppress(ImportError):
            copies.fresh()
    gc.collect()
    assert watchers_left() == before


class StandIn:
    """Takes the place of a function or a collection: is like its own value or, while `is_other()`,
    answers and holds something else. Calls `used` after each use."""

    def __init__(self, name, own, is_other, used=lambda: None):
        self._own, self._is_other, self._used = own, is_other, used
        self._answer = OTHER_ANSWERS.get(name, [] if "species" in name else "other")

    def _use(self, of_own, of_other):
        try:
            return of_other if self._is_other() else of_own(self._own)
        finally:
            self._used()

    def __call__(self, *args, **kwargs):
        return self._use(lambda own: own(*args, **kwargs), self._answer)

    def __contains__(self, value):
        return self._use(lambda own: value in own, value == "Fe")

    def __iter__(self):
        return self._use(iter, iter(["Fe"]))

    def items(self):
        return self._use(lambda own: own.items(), [("oxide", "CO")])

    @property
    def union(self):
        chosen = {"CO"}.union if self._is_other() else self._own.union  # before other is evaluated
        return lambda other: [chosen(other), self._used()][0]


class Switch:
    """Turns a name from its own value to another and back: what the name is bound to or, when it is
    not by_binding, how what it is bound to all the time behaves."""

    def __init__(self, module, name, by_binding, used=lambda: None):
        own, self.is_other = vars(module)[name], False
        other = StandIn(name, own, lambda: by_binding or self.is_other, used)
        values = (own, other) if by_binding else (other, other)
        self._bind = lambda: setattr(module, name, values[self.is_other])
        self._bind()

    def turn(self):
        self.is_other = not self.is_other
        self._bind()


def outcome(functions, name, arguments):
    try:
        return repr(calls.call(functions, name, arguments))
    except Exception as error:
        return repr(error)


def check_rebinding(module, prepare, function, arguments):
    """A name that is rebound during a call is used as if what stood there all the time behaved
    differently from that moment on; a second call shows what the first left behind."""
    own, found = types.SimpleNamespace(**copies.names(module)), []
    for by_binding in (True, False):
        prepare(by_binding)
        found.append([outcome(own, function, arguments) for _ in range(2)])
        vars(module).update(vars(own))
    assert found[0] == found[1], (function, arguments)


@pytest.mark.parametrize("name", copies.GLOBALS)
def test_replacement_that_puts_the_original_back(module, name):
    def prepare(by_binding):
        def turn_back():
            if switch.is_other:
                switch.turn()
                module.characterize_material(step="")  # looks most names up

        switch = Switch(module, name, by_binding, turn_back)
        switch.turn()

    for function, arguments in calls.CALLS:
        check_rebinding(module, prepare, function, arguments())


@pytest.mark.parametrize("name", copies.GLOBALS)
def test_names_that_others_rebind(module, name):
    switch = None

    def prepare(by_binding, other=None):
        nonlocal switch
        switch = Switch(module, name, by_binding)
        if other is not None:
            stand_in = StandIn(other, vars(module)[other], lambda: False, switch.turn)
            setattr(module, other, stand_in)

    for other, (function, arguments) in itertools.product({*copies.GLOBALS} - {name}, calls.CALLS):
        check_rebinding(module, functools.partial(prepare, other=other), function, arguments())
    value = hostile.with_method(object, "__str__", lambda self: [switch.turn(), "Fe"][1])
    for function, arguments in hostile.calls_with(value):
        check_rebinding(module, prepare, function, arguments)


def delete_all_but_the_others(module, name):
    others = {other: value for other, value in vars(module).items() if other != name}
    vars(module).clear()
    vars(module).update(others)


def outcomes(functions):
    return [outcome(functions, function, arguments()) for function, arguments in calls.CALLS]


@pytest.mark.parametrize("delete", [delattr, delete_all_but_the_others])
def test_deleted_name_is_looked_for_among_the_builtins(module, monkeypatch, delete):
    own = types.SimpleNamespace(**vars(module))
    with_own = outcomes(own)
    for name in copies.GLOBALS:
        other = StandIn(name, vars(own)[name], lambda: True)
        setattr(module, name, other)
        with_other = outcomes(own)
        setattr(module, name, vars(own)[name])
        delete(module, name)
        without = outcomes(own)
        assert f"""NameError("name '{name}' is not defined")""" in without
        for value, expected in ((vars(own)[name], with_own), (other, with_other)):
            monkeypatch.setattr(builtins, name, value, raising=False)
            assert outcomes(own) == expected, name
        monkeypatch.undo()
        assert outcomes(own) == without
        setattr(module, name, vars(own)[name])


class Key(str):
    """Lies where a name is looked for, and is compared with it before the name is found."""

    def __hash__(self):
        return hash(self.name)

    def __eq__(self, other):
        self.comparisons_left -= 1
        if self.comparisons_left == 0:
            self.raised = KeyboardInterrupt()
            raise self.raised
        return False


@pytest.mark.parametrize("is_rebound", [False, True])
def test_error_of_a_key_that_is_compared_with_a_name(module, is_rebound):
    own, reached = types.SimpleNamespace(**vars(module)), set()
    expected = [calls.call(own, function, arguments()) for function, arguments in calls.CALLS]
    for name in copies.GLOBALS:
        key = Key("__key")
        key.name, key.comparisons_left = name, 0
        vars(module).clear()
        vars(module).update({key: None} | vars(own))
        if is_rebound:
            vars(module)[name] = StandIn(name, vars(own)[name], lambda: False)
        for (function, arguments), result in zip(calls.CALLS, expected, strict=True):
            found, numbers = None, itertools.count(1)
            while found is None:
                key.comparisons_left, key.raised = next(numbers), None
                try:
                    found = calls.call(own, function, arguments())
                except KeyboardInterrupt as error:
                    found = None if error is key.raised else error
                    reached.add(name)
            assert (found, key.raised) == (result, None), (name, function)
    assert reached == {*copies.GLOBALS} or not is_rebound
