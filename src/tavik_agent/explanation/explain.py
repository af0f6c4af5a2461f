"""explain: the record of a request with the causes of every field."""

from collections.abc import Mapping
from contextlib import suppress
from functools import cache
from typing import Any

from .causes import find
from .describe import described
from .document import Document
from .private_module import PrivateModule, private_module
from .recording import Recording, record
from .results import Cause, Explanation, FieldExplanation
from .trials import FAILED, OfClassifier, OfDriver, Trials
from .wiring import Wiring, learn

# In the order in which they are decided.
FIELDS = (
    "species",
    "formula_hint",
    "structure_mode",
    "structure_archetype",
    "electronic_class",
    "correlation_class",
    "magnetic_class",
    "material_family",
    "requested_energy_unit",
    "explicit_spin_mode",
)
BASE = "base_characterization"


def explain(**arguments: Any) -> Explanation:
    """Takes what characterize_material takes, and fails only where that does.

    Returns {"record": ..., "fields": {field: {"label": ..., "causes": [...], "otherwise": ...}}}.
    """
    module = private_module()
    with module.lock, module.notes.apart(), module.replaced({}):
        module.follow()
        recording = record(module, arguments)
        wiring = _wiring(with_query=bool(recording.texts[0][1]))
        earlier = _earlier(module, wiring, arguments)
        fields = {field: _explained(module, wiring, recording, earlier, field) for field in FIELDS}
    return {"record": recording.record, "fields": fields}


@cache
def _wiring(*, with_query: bool) -> Wiring:
    return learn(private_module(), with_query=with_query)


def _earlier(
    module: PrivateModule, wiring: Wiring, arguments: Mapping[str, Any]
) -> Mapping[str, Any]:
    """What the record holds when this call decides nothing."""
    labels = wiring.no_labels() | {"_formula_hint": ""}
    with suppress(Exception), module.replaced({}, labels):
        if base := arguments.get(BASE):
            merged: Mapping[str, Any] = module.characterize({"step": "", BASE: base})
            return merged
    return {}


def _explained(
    module: PrivateModule,
    wiring: Wiring,
    recording: Recording,
    earlier: Mapping[str, Any],
    field: str,
) -> FieldExplanation:
    trials: Trials
    if field in wiring.classifiers:
        trials = OfClassifier(module, wiring, recording, field)
    else:
        trials = OfDriver(module, wiring, recording, field)
    document = Document(recording.texts)
    label, undecided = recording.record[field], wiring.undecided[field]
    own = trials.label(document.whole())
    before = earlier.get(field, undecided)
    causes: list[Cause] = []
    otherwise = own
    if own not in (undecided, FAILED):
        found = find(trials, document, own)
        causes = described(found.causes, field, own, trials, document)
        otherwise = found.otherwise
        if otherwise == undecided and before != label:
            otherwise = before
    if otherwise == undecided and before == label != undecided:
        causes.append({"kind": "earlier record", "where": f"{BASE}.{field}"})
    if otherwise == label:  # the values were read otherwise than their texts are
        causes = []
    decided = bool(causes) and otherwise is not FAILED
    return {"label": label, "causes": causes, "otherwise": otherwise if decided else None}
