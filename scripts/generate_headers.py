"""Writes the C++ headers that are generated from the types and the stub of the module.

    python generate_headers.py characterization_types.py material_characterization.pyi DIRECTORY

From characterization_types.py: an enumeration for each label set and for each set of words of the
intent, the keys of the record and the keys that are read. From material_characterization.pyi: the
names of the module's namespace, and each function's signature and docstring. The build runs this,
so a label or a signature is written once, in Python.
"""

import ast
import importlib.util
import json
import re
import sys
import textwrap
from collections.abc import Iterable, Iterator
from pathlib import Path
from types import ModuleType
from typing import Literal, get_args, get_origin, get_type_hints, is_typeddict

RECORD = "CharacterizationRecord"
NOTICE = "// Generated from {} by scripts/generate_headers.py. Do not edit.\n#pragma once\n"


def load_types(file: Path) -> ModuleType:
    module_spec = importlib.util.spec_from_file_location(file.stem, file)
    assert module_spec is not None
    assert module_spec.loader is not None
    module = importlib.util.module_from_spec(module_spec)
    module_spec.loader.exec_module(module)
    return module


def identifier(text: str) -> str:
    """A C++ name for a word; those that begin with an underscore and a capital are reserved."""
    name = re.sub(r"^_(?=[A-Z])", "", text.replace("+", "_plus_").replace("-", "_"))
    if not re.fullmatch(r"\w*", name, re.ASCII):
        raise SystemExit(f"no C++ name can be made of {text!r}")
    return name or "none"


def is_literal(value: object) -> bool:
    return get_origin(value) is Literal


def literals(types: ModuleType) -> dict[str, tuple[str, ...]]:
    return {name: get_args(value) for name, value in vars(types).items() if is_literal(value)}


def label_sets(types: ModuleType) -> dict[str, str]:
    """The names of the label sets, by the key of the record that holds such a label."""
    assert types.__file__ is not None
    tree = ast.parse(Path(types.__file__).read_text(encoding="utf-8"))
    record = next(n for n in tree.body if isinstance(n, ast.ClassDef) and n.name == RECORD)
    found: dict[str, str] = {}
    for field in record.body:
        if isinstance(field, ast.AnnAssign) and ast.unparse(field.annotation) in literals(types):
            name = ast.unparse(field.annotation)
            if name in found.values():
                raise SystemExit(f"{name} is the label set of two keys of the record")
            found[ast.unparse(field.target)] = name
    return found


def input_keys(types: ModuleType) -> list[str]:
    dicts = [v for v in vars(types).values() if is_typeddict(v) and v.__name__ != RECORD]
    return list(dict.fromkeys(key for each in dicts for key in each.__annotations__))


def enumeration(name: str, words: Iterable[str]) -> str:
    words = list(words)
    names = ", ".join(identifier(word) for word in words)
    texts = ", ".join(json.dumps(word) for word in words)
    return (
        f"enum class {name} : std::uint8_t {{ {names} }};\n"
        f"constexpr auto texts_of({name}) {{\n"
        f"  return std::to_array<std::string_view>({{{texts}}});\n}}\n"
    )


def of_each(name: str, members: Iterable[str]) -> str:
    listed = ", ".join(f"Of<{member}>" for member in members)
    return f"template <template <class> class Of>\nusing {name} = std::tuple<{listed}>;\n"


def words_header(types: ModuleType, stub: ast.Module) -> str:
    sets, labels = literals(types), label_sets(types)
    classes = [name for name in labels.values() if "" not in sets[name]]
    functions = {node.name for node in stub.body if isinstance(node, ast.FunctionDef)}
    constants = [
        node.target.id
        for node in stub.body
        if isinstance(node, ast.AnnAssign) and isinstance(node.target, ast.Name)
    ]
    reference = imported_from(stub, "tavik_agent.material_reference_data")
    parts = [
        NOTICE.format("characterization_types.py and material_characterization.pyi"),
        "#include <array>\n#include <cstdint>\n#include <string_view>\n#include <tuple>\n",
        "namespace tavik::characterization {\n",
        *(enumeration(name, words) for name, words in sets.items()),
        enumeration("RecordKey", get_type_hints(vars(types)[RECORD])),
        enumeration("InputKey", input_keys(types)),
        "/// Taken from tavik_agent.material_reference_data when the module is loaded.",
        enumeration("ReferenceName", reference),
        "/// What the module's namespace holds.",
        enumeration("Global", [*reference, *constants, *sorted(functions)]),
        "/// The key of the record under which a label of the set stands.",
        *(
            f"constexpr RecordKey key_of({name}) {{ return RecordKey::{key}; }}"
            for key, name in labels.items()
        ),
        "\n/// A tuple with an Of<Label> for each set of class labels, and for each set of labels.",
        of_each("OfEachClass", classes),
        of_each("OfEachLabelSet", labels.values()),
        "}  // namespace tavik::characterization\n",
    ]
    return "\n".join(parts)


def imported_from(stub: ast.Module, module: str) -> list[str]:
    found = [n for n in stub.body if isinstance(n, ast.ImportFrom) and n.module == module]
    return [alias.name for node in found for alias in node.names]


def parameters(function: ast.FunctionDef) -> Iterator[tuple[str, str, str]]:
    """Of each parameter the name, the default in Python ("" for none) and the kind of it in C++."""
    arguments = function.args
    if arguments.posonlyargs or arguments.kwarg:
        raise SystemExit(f"{function.name}: only named parameters, * and *args are supported")
    missing = [None] * (len(arguments.args) - len(arguments.defaults))
    defaults = [*missing, *arguments.defaults, *arguments.kw_defaults]
    for argument, default in zip(arguments.args + arguments.kwonlyargs, defaults, strict=True):
        if default is None:
            yield argument.arg, "", "missing"
        elif isinstance(default, ast.Constant) and default.value is None:
            yield argument.arg, "=None", "none"
        elif isinstance(default, ast.Constant) and default.value == "":
            yield argument.arg, '=""', "empty_text"
        else:
            raise SystemExit(f"{function.name}: the default of {argument.arg} is not supported")


def text_signature(function: ast.FunctionDef) -> str:
    """The head of a docstring, which inspect.signature reads."""
    words = [name + default for name, default, _ in parameters(function)]
    if function.args.vararg:
        words.append("*" + function.args.vararg.arg)
    elif function.args.kwonlyargs:
        words.insert(len(function.args.args), "*")
    return f"{function.name}({', '.join(['$module', '/', *words])})\n--\n\n"


def words_of_fields(types: ModuleType) -> str:
    """The end of the docstring of characterize_material: every label and word of the intent."""
    rows = []
    for kind, hints in (
        (v.__name__, get_type_hints(v)) for v in vars(types).values() if is_typeddict(v)
    ):
        for key, hint in hints.items():
            options = get_args(hint) if not is_literal(hint) else (hint,)
            words = [word for option in options if is_literal(option) for word in get_args(option)]
            if words:
                place = key if kind == RECORD else f'"{key}"'
                listed = ", ".join(f'"{word}"' for word in words)
                rows.append(
                    textwrap.fill(
                        f"  {place:<23}{listed}",
                        98,
                        subsequent_indent=" " * 25,
                        break_on_hyphens=False,
                    )
                )
    return "\n\nLabels of the record, then words of the intent:\n" + "\n".join(rows)


def docstring_of(node: ast.FunctionDef | ast.Module) -> str:
    return ast.get_docstring(node) or ""


def signature(function: ast.FunctionDef, more: str) -> str:
    rows = ", ".join(f'{{"{name}", Default::{kind}}}' for name, _, kind in parameters(function))
    return (
        f"inline constexpr Signature {function.name}{{\n"
        f'    .name = "{function.name}",\n'
        f"    .parameters = {{{{{rows}}}}},\n"
        f"    .count = {len(function.args.args) + len(function.args.kwonlyargs)},\n"
        f"    .positional = {len(function.args.args)},\n"
        f"    .takes_any_number = {str(function.args.vararg is not None).lower()},\n"
        f'    .docstring = R"doc({text_signature(function)}{docstring_of(function)}{more})doc"}};\n'
    )


def functions_header(types: ModuleType, stub: ast.Module) -> str:
    functions = [n for n in stub.body if isinstance(n, ast.FunctionDef)]
    documented = [n for n in functions if docstring_of(n)]  # of overloads the first
    if forgotten := {n.name for n in functions} - {n.name for n in documented}:
        raise SystemExit(f"without a docstring: {', '.join(sorted(forgotten))}")
    parts = [
        NOTICE.format("material_characterization.pyi"),
        '#include "bindings/signature.hpp"\n',
        "namespace tavik::bindings::signatures {\n",
        f'inline constexpr char module_docstring[] = R"doc({docstring_of(stub)})doc";\n',
        *(
            signature(n, words_of_fields(types) if n.name == "characterize_material" else "")
            for n in documented
        ),
        "}  // namespace tavik::bindings::signatures\n",
    ]
    return "\n".join(parts)


def main(types_file: Path, stub_file: Path, target: Path) -> None:
    types = load_types(types_file)
    stub = ast.parse(stub_file.read_text(encoding="utf-8"))
    target.mkdir(parents=True, exist_ok=True)
    (target / "words.hpp").write_text(words_header(types, stub), encoding="utf-8")
    (target / "functions.hpp").write_text(functions_header(types, stub), encoding="utf-8")


if __name__ == "__main__":
    main(*map(Path, sys.argv[1:]))
