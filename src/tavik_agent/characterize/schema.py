"""JSON Schemas made from the types of the package, with the texts that stand below their keys. They
have no references, so that one can be handed to a language model as the schema of a tool.
"""

import ast
import inspect
import sys
from collections.abc import Iterable, Mapping
from functools import cache
from itertools import pairwise
from types import NoneType, UnionType
from typing import Any, Literal, Union, get_args, get_origin, get_type_hints, is_typeddict

import click
from tavik_agent.characterization_types import CharacterizationRecord, IntentUnits, QueryIntent

from .files import json_bytes
from .request import Request

Schema = dict[str, Any]

DIALECT = "https://json-schema.org/draft/2020-12/schema"
KINDS = {"request": Request, "intent": QueryIntent, "record": CharacterizationRecord}
CLOSED = (Request, QueryIntent, IntentUnits)  # what has another key is wrong, or does nothing
JSON_TYPES = {str: "string", bool: "boolean", int: "integer", float: "number", NoneType: "null"}


def schema(kind: str) -> Schema:
    """The schema of a request, an intent or a record."""
    return {"$schema": DIALECT, "title": kind, **_of(KINDS[kind], given=kind != "record")}


def _of(hint: Any, *, given: bool) -> Schema:
    """The schema of a value; in one that is given entries may be left out, and a null says so."""
    origin, parts = get_origin(hint), get_args(hint)
    if hint is object:
        return {}
    if is_typeddict(hint):
        return _of_object(hint, given=given)
    if origin is Literal:
        return {"type": "string", "enum": [*parts]}
    if origin in (list, Iterable):
        return {"type": "array", "items": _inside(parts[0], given=given)}
    if origin is Mapping:
        return {"type": "object", "additionalProperties": _inside(parts[1], given=given)}
    if origin in (Union, UnionType):
        return {"anyOf": [_of(part, given=given) for part in parts]}
    return {"type": JSON_TYPES[hint]}


def _of_object(hint: Any, *, given: bool) -> Schema:
    texts = _texts(hint)
    required = hint.__required_keys__ if hint is Request or not given else frozenset()
    properties = {
        name: {"description": texts[name]}
        | (_of if name in required else _inside)(field, given=given)
        for name, field in get_type_hints(hint).items()
    }
    closed = {"additionalProperties": False} if hint in CLOSED else {}
    return {
        "type": "object",
        "description": inspect.getdoc(hint),
        "properties": properties,
        "required": [name for name in properties if name in required],
        **closed,
    }


def _inside(hint: Any, *, given: bool) -> Schema:
    """An entry, or an item of a list."""
    is_null_too = given and hint is not object and NoneType not in get_args(hint)
    return _of(hint | None if is_null_too else hint, given=given)


@cache
def _texts(hint: Any) -> dict[str, str]:
    """What stands below each key of a type."""
    tree = ast.parse(inspect.getsource(sys.modules[hint.__module__]))
    (body,) = (n.body for n in tree.body if isinstance(n, ast.ClassDef) and n.name == hint.__name__)
    return {
        ast.unparse(key.target): text.value.value
        for key, text in pairwise(body)
        if isinstance(key, ast.AnnAssign)
        and isinstance(text, ast.Expr)
        and isinstance(text.value, ast.Constant)
        and isinstance(text.value.value, str)
    }


@click.command("schema")
@click.argument("kind", type=click.Choice(KINDS))
def print_schema(kind: str) -> int:
    """Print the JSON Schema of a request, of the intent in it, or of a record.

    That of the intent can be given to a language model as the schema of a tool.
    """
    click.echo(json_bytes(schema(kind), "", indent=True), nl=False)
    return 0
