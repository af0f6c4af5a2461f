"""A module and its arguments live as long as a function of it runs, and nothing that later records
are made from can be changed from Python."""

import builtins
import contextlib
import functools
import gc
import weakref

import pytest
from reliability import calls, copies, hostile

# Methods that the functions call between them, each with an answer that lets the call go on.
METHODS = [
    *((object, "__str__", "Fe"), (object, "__bool__", True), (object, "__hash__", 1)),
    *((object, "__eq__", True), (object, "__iter__", iter(())), (str, "strip", "Fe")),
    *((str, "lower", "fe"), (dict, "get", None)),
]


# What gives up the function and the arguments that a partial object holds.
NOTHING = (print, (), {}, {})


def test_module_lives_while_its_function_runs():
    modules, was_alive = [], {name: [] for name in calls.FUNCTIONS}
    gc.collect()
    gc.freeze()  # what was there before need not be looked through each time

    def let_go(self, *args, answer):
        modules.clear()
        call.__setstate__(NOTHING)  # which held the only reference to the function
        gc.collect()
        was_alive[name].append(module() is not None)
        if not was_alive[name][-1]:
            raise hostile.Failure  # rather than go on in a module that was freed
        return answer

    for kind, method, answer in METHODS:
        make = hostile.with_method(kind, method, functools.partialmethod(let_go, answer=answer))
        for name, arguments in hostile.calls_with(make):
            if not modules:
                modules.append(copies.small())
                module = weakref.ref(modules[0])
            by_position = tuple(arguments.values()) if name == "_combined_text" else ()
            by_name = {} if by_position else arguments
            call = functools.partial(getattr(modules[0], name), *by_position, **by_name)
            with contextlib.suppress(hostile.Failure, TypeError, ValueError, AttributeError):
                call()
    gc.unfreeze()
    assert all(was_alive.values()), "a function was never let go of"
    assert {name for name, alive in was_alive.items() if not all(alive)} == set()


@pytest.mark.parametrize("positional", [0, 1])
def test_arguments_live_while_the_function_runs(positional):
    class DropsArguments:
        def __str__(self):
            call.__setstate__(NOTHING)
            return ""

    module = copies.fresh()
    arguments = [DropsArguments(), ["".join(["Z", "n"]), "O"]]
    others = {} if positional else {"species": arguments.pop()[:]}
    call = functools.partial(module._formula_hint, *arguments)
    del arguments
    assert call(**others) == "ZnO"
    call = functools.partial(module._combined_text, [DropsArguments()], ["".join(["Z", "n"])])
    assert call() == "Zn"


def held_by(module):
    """The lists, dicts and sets that a module holds, but for its namespace, what stands there, and
    the built-ins, which are everybody's to change."""
    seen = {id(known) for known in (vars(module), *vars(module).values(), vars(builtins))}
    left, found = gc.get_referents(module), []
    while left:
        held = left.pop()
        if isinstance(held, tuple | list | dict | set) and id(held) not in seen:
            seen.add(id(held))
            left += gc.get_referents(held)
            found += [] if isinstance(held, tuple) else [held]
    return found


def test_nothing_that_records_are_made_from_can_be_changed():
    module = copies.fresh()
    requests = [{"step": ""}, calls.FUNCTIONS["characterize_material"]()]
    requests += [{"step": "", "query_text": text} for text in ("NiO", "metal", "2d", "AFM in eV")]
    records = [module.characterize_material(**request) for request in requests]
    expected = repr(records)
    of_records = [value for record in records for value in record.values() if type(value) is list]
    for known in [*held_by(module), *records, *of_records]:
        known.clear()
        (known.extend if isinstance(known, list) else known.update)({"overwritten": ""})
    assert repr([module.characterize_material(**request) for request in requests]) == expected


def test_module_refuses_calls_while_it_is_cleared():
    refused = []

    class CallsBack:
        def __init__(self, function):
            self.function = weakref.ref(function)

        def __del__(self):
            try:
                self.function()(["Fe"])
            except RuntimeError as error:
                refused.append(str(error))

    class EndsUpInTheModule:
        def __del__(self):
            self.tokens.add(CallsBack(self.module.classify_system_class))
            del self.tokens

    module, end = copies.small(), EndsUpInTheModule()
    module.end, end.module = end, module
    end.tokens = module._NON_FORMULA_TOKENS
    del module._NON_FORMULA_TOKENS, end  # the set is held by the module alone
    gc.collect()  # after which the module comes before its namespace
    del module
    gc.collect()
    assert refused == ["material_characterization is not loaded"]
