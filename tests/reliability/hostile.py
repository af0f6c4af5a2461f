"""Values whose methods fail, lie, change what is being read, or call back."""

import collections
import copy
import functools
import itertools

from . import calls, copies

CONTENT = {"species": ["Fe"], "element": {"Fe": 1}, "evidence": ["A"], "units": {"energy": "eV"}}


class Failure(BaseException):
    """No error of the usual kind, so that nothing may catch it in passing."""


Mapping = collections.UserDict  # a mapping of no built-in type


class Key(str):
    """Lies in a mapping where "species" is looked for, and is compared with it."""

    def __hash__(self):
        return hash("species")


METHODS = {
    dict: "get __contains__ items keys __len__ __bool__ __getitem__ __iter__ __str__ __repr__",
    Mapping: "get __contains__ items __len__ __bool__ __getitem__ __iter__ __str__ __class__",
    list: "__iter__ __len__ __bool__ __contains__ __str__ __repr__ __getitem__",
    set: "__iter__ __len__ __contains__ union issubset",
    str: "lower upper strip isalpha endswith __str__ __len__ __bool__ __eq__ __hash__ __iter__",
    Key: "__eq__",
    object: "__iter__ __len__ __bool__ __contains__ __str__ __float__ __eq__ __hash__ __call__ get "
    "items union __class__ __getattribute__",
}
# What a failing method may raise: anywhere, and where Python code calls it by its name.
ERRORS = [Failure, KeyboardInterrupt, MemoryError, RecursionError]
ERRORS_BY_NAME = [KeyError, IndexError, StopIteration, AttributeError, TypeError]
ANSWERS = {
    "__bool__": [True, None],
    "__len__": [1, 2**62, -1],
    "__hash__": [1, "Fe"],
    "__float__": [0.5, "1"],
    "__eq__": [True, NotImplemented, "Fe"],
    "__iter__": [iter(["Fe"]), ["Fe"]],
    "items": [[("Fe", 1)], [(1, 2, 3)], [5], None],
}
KEYS = "species formula element atom xyz domain latvec units energy purpose notes confidence \
evidence correlation magnetism complexity_hint structure_description"
OTHER_ANSWERS = ["Fe", "\ud800\0", ["O"], None, -1, {"species": "Ni"}]


def with_method(kind, method, body):
    """Makes a new value of that kind in each call, so that only those who were given it hold it."""
    body = property(body) if method == "__class__" else body
    content = {dict: CONTENT, Mapping: CONTENT, str: "Fe2O3", Key: "Fe2O3"}
    content |= dict.fromkeys([list, set], ("Fe",))
    made = type("Hostile", (kind,), {"__hash__": kind.__hash__, method: body})
    return functools.partial(made, content[kind]) if kind in content else made


def rows():
    return [(kind, method) for kind, methods in METHODS.items() for method in methods.split()]


def failing(raised):
    """Makers of values of which one method fails with an error that it appends to `raised`."""
    for kind, method in rows():
        by_name = kind is not Mapping and method in ("get", "items", "lower", "strip", "__str__")
        for error in ERRORS + ERRORS_BY_NAME * by_name:

            def fail(self, *args, error=error, **kwargs):
                raised.append(error())
                raise raised[-1]

            yield with_method(kind, method, fail)


def answering(act):
    """Makers of values of which one method calls `act`, then gives one odd answer or another."""
    for kind, method in rows():
        others = OTHER_ANSWERS if method != "__hash__" else []  # which Python would leak
        for answer in [*ANSWERS.get(method, []), *others]:

            def body(self, *args, answer=answer, **kwargs):
                act()
                return self if answer == -1 else copy.copy(answer)

            yield with_method(kind, method, body)


def places(make):
    found = [make(), ["Ni", make(), make()], {key: make() for key in KEYS.split()}]
    found.append({"a": {"element": make()}, "species": [make()], "units": {"energy": make()}})
    if type(found[0]).__base__ is Key:
        found += [{make(): "Fe"}, {"element": {make(): "Fe"}}]
    return found


def calls_with(make):
    """(function, arguments) with a new value in every place of every function's arguments."""
    for name, others in calls.FUNCTIONS.items():
        for parameter, place in itertools.product(others(), range(len(places(make)))):
            yield name, others() | {parameter: places(make)[place]}
            if name == "characterize_material":  # alone, where no other argument decides first
                yield name, {"step": "", parameter: places(make)[place]}


def uses(module, make):
    """A new value in every place of every function's arguments, then under every name of the module
    while functions read it: the function, its arguments and the name."""
    for function, arguments in calls_with(make):
        yield function, arguments, None
    own = copies.names(module)
    for name, (function, arguments) in itertools.product(own, calls.CALLS):
        if function != name:
            setattr(module, name, make())
            yield function, arguments(), name
            vars(module).update(own)
