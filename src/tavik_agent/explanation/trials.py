"""One field of a recorded call, to be decided again: with other texts, with tables, labels and
entries of the request that answer no, and with notes of what was asked.
"""

from collections.abc import Callable, Collection
from contextlib import suppress
from typing import Any

from .notes import NotedMapping, Notes, Question, noted_species, noted_text
from .private_module import PrivateModule
from .recording import DESCRIPTION, QUERY_TEXT, Recording
from .wiring import QUERY, Wiring

FAILED = object()  # what a trial gives that a value of the request made fail
REQUEST = ("step_params", "previous_steps_params", "query_intent")


class Trials:
    """Decides a field again. The texts are those of the recording, in their order."""

    is_by_driver = False

    def __init__(self, module: PrivateModule, wiring: Wiring, recording: Recording) -> None:
        self.module, self.wiring, self.recording = module, wiring, recording
        self.notes: Notes = module.notes
        self.without: frozenset[str] = frozenset()
        """Fields decided before that are given as undecided."""

    def label(
        self,
        texts: list[str],
        kept: Collection[Question] | None = None,
        denied: Collection[Question] = (),
    ) -> Any:
        """What is decided with these texts. Questions in `denied` are answered no; with `kept` so
        are all others, and fields decided before count only by the answers about them."""
        self.notes.begin(kept, denied)
        try:
            return self.decide(texts)
        except Exception:  # the values of the request may raise what they like
            return FAILED

    def decide(self, texts: list[str]) -> Any:
        raise NotImplementedError

    def decided_before(self) -> dict[str, Any]:
        """The values of earlier fields that this one is given, by field."""
        raise NotImplementedError

    def text_at(self, path: tuple[Any, ...]) -> str:
        """The text form of an entry of the request; a list without its brackets."""
        value: Any = self.recording.arguments
        with suppress(Exception):
            for key in path:
                value = value.get(key)
            return ", ".join(map(str, value)) if isinstance(value, list) else str(value)
        return ""

    def joined(self, texts: list[str]) -> str:
        text: str = self.module.function("_combined_text")(texts[0], texts[1:-1])
        return text


class OfClassifier(Trials):
    """A field that a classifier decides from what it was given."""

    def __init__(
        self, module: PrivateModule, wiring: Wiring, recording: Recording, field: str
    ) -> None:
        super().__init__(module, wiring, recording)
        name = wiring.classifiers[field]
        self._function = module.function(name)
        self._texts = wiring.texts[name]
        self._given = recording.given[name]
        species = self._given.get("species", ())
        self.notes.species = frozenset(species if isinstance(species, list) else ())
        self._noted = {p: self._with_notes(p, value) for p, value in self._given.items()}
        self.value = recording.found[name]

    def _with_notes(self, parameter: str, value: Any) -> Any:
        if parameter in self._texts:
            return value
        if parameter in REQUEST:
            return NotedMapping(self.notes, value, (parameter,))
        if type(value) is str:
            return noted_text(self.notes, parameter, value)
        return noted_species(self.notes, value) if isinstance(value, list) else value

    def decide(self, texts: list[str]) -> Any:
        arguments = dict(self._noted)
        for parameter, source in self._texts.items():
            arguments[parameter] = texts[0] if source == QUERY else self.joined(texts)
        if isinstance(intent := arguments.get("query_intent"), NotedMapping):
            intent.replaced = {DESCRIPTION: texts[-1]}
        if isinstance(species := arguments.get("species"), list):
            there = [s for s in species if ("species", s) not in self.notes.denied]
            arguments["species"] = noted_species(self.notes, there)
        for parameter in self.without:
            arguments[parameter] = self.wiring.undecided[parameter]
        return self._function(**arguments)

    def decided_before(self) -> dict[str, Any]:
        return {p: v for p, v in self._given.items() if p in self.wiring.undecided}


class OfDriver(Trials):
    """A field that the driver decides itself. Everything that has no part in it is left out."""

    is_by_driver = True

    def __init__(
        self,
        module: PrivateModule,
        wiring: Wiring,
        recording: Recording,
        field: str,
    ) -> None:
        super().__init__(module, wiring, recording)
        self._field = field
        self._request = {
            name: NotedMapping(self.notes, value, (name,))
            for name in REQUEST
            if (value := recording.arguments.get(name))
        }
        self._species = recording.given.get("_electronic_class", {}).get("species", [])
        self._joined = ""
        self._functions = self._made_functions()
        self._labels = wiring.no_labels()
        if field != "formula_hint":
            self._labels["_formula_hint"] = ""

    def decide(self, texts: list[str]) -> Any:
        self._joined = self.joined(texts)
        with self.module.replaced(self._functions, self._labels):
            record = self.module.characterize({"step": "", QUERY_TEXT: texts[0], **self._request})
        return record[self._field]

    def _made_functions(self) -> dict[str, Callable[..., Any]]:
        functions: dict[str, Callable[..., Any]] = {"_combined_text": lambda *parts: self._joined}
        if self._field == "species":
            functions["_species_from_element_block"] = self._declared
        else:
            functions["_species_from_element_block"] = lambda block: self._given_species()
            functions["_species_from_text"] = lambda text: []
        return functions

    def _given_species(self) -> list[str]:
        alone = "species" in self.without or self.notes.kept is not None
        return [] if alone else list(self._species)

    def _declared(self, block: Any) -> Any:
        read = self.module.function("_species_from_element_block")
        return read(block.raw if type(block) is NotedMapping else block)

    def decided_before(self) -> dict[str, Any]:
        return {"species": self._species} if self._field == "formula_hint" else {}
