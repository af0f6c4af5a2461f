"""The functions as Python sees them: their signatures and the calls that they refuse."""

import inspect
import itertools
import pickle

import pytest
from reliability import calls

from tavik_agent import material_characterization as mc


def is_refused(call, args, kwargs, prefix=""):
    """Whether it says that the arguments do not fit its signature."""
    try:
        call(*args, **kwargs)
    except (TypeError, AttributeError) as error:
        return str(error).startswith(prefix)
    return False


@pytest.mark.parametrize("name", calls.FUNCTIONS)
def test_function_is_an_ordinary_one(name):
    function, signature = getattr(mc, name), inspect.signature(getattr(mc, name))
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
        expected = is_refused(lambda *args, **kwargs: signature.bind(*args, **kwargs), *call)
        assert is_refused(function, *call, f"{name}() ") == expected, call


REFUSED = """
characterize_material(step=1, querytext=1)  got an unexpected keyword argument 'querytext'
_combined_text(1, parts=1)  got an unexpected keyword argument 'parts'
characterize_material()  missing 1 required keyword-only argument: 'step'
_formula_hint(1)  missing 1 required positional argument: 'species'
_formula_hint()  missing 2 required positional arguments: 'text' and 'species'
_correlation_class()  missing 3 required positional arguments: 'species', 'formula_hint', and 'com
characterize_material(1)  takes 0 positional arguments but 1 was given
_formula_parts(1, 2)  takes 1 positional argument but 2 were given
_electronic_class(1, 2, 3, 4, 5)  takes from 3 to 4 positional arguments but 5 were given
_formula_hint(1, 2, text=1)  got multiple values for argument 'text'
""".strip().splitlines()


@pytest.mark.parametrize(("call", "message"), [line.split("  ") for line in REFUSED])
def test_message_of_a_refused_call(call, message):
    with pytest.raises(TypeError) as refused:
        eval(call, dict(vars(mc)))
    assert str(refused.value).startswith(f"{call.split('(')[0]}() {message}")
