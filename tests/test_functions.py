"""The functions as Python sees them: their signatures and the calls that they refuse."""

import inspect
import itertools
import pickle

import pytest
from reliability import calls

from tavik_agent import material_characterization as mc


def refusal(function, args, kwargs):
    """What it says of arguments that do not fit its signature; nothing of others."""
    try:
        function(*args, **kwargs)
    except (TypeError, AttributeError) as error:
        return str(error) if str(error).startswith(f"{function.__name__}() ") else ""
    return ""


@pytest.mark.parametrize("name", calls.FUNCTIONS)
def test_function_is_an_ordinary_one(name):
    """Its calls are refused as those of a Python function with its signature, in the same words."""
    function, by_python = getattr(mc, name), {}
    signature = inspect.signature(function)
    exec(f"def {name}{signature}: pass", by_python)
    assert function.__name__ == name
    assert inspect.getdoc(function)
    assert pickle.loads(pickle.dumps(function)) is function
    names = [] if name == "_combined_text" else [*signature.parameters]
    every = dict.fromkeys(names, "")
    kwargs = [{}, every, *(every | {key: ""} for key in ("bogus", "parts", "\ud800", ""))]
    kwargs += [{key: "" for key in names if key != left_out} for left_out in names]
    kwargs += [dict.fromkeys(names[first:], "") for first in range(len(names))]
    kwargs += [{key[:-1] if key == wrong else key: "" for key in names} for wrong in names]
    for call in itertools.product([("",) * count for count in range(10)], kwargs):
        expected, found = (refusal(called, *call) for called in (by_python[name], function))
        assert bool(expected) == bool(found), call
        if not call[1] or " but " not in found:  # where Python counts the keywords, too
            assert expected.partition(". Did you mean")[0] == found, call
