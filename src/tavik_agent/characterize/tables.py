"""Tells whether two runs had the same module and tables, so that one can go on with the other."""

import hashlib
from pathlib import Path

from tavik_agent import material_characterization, material_reference_data, method_acronyms


def fingerprint() -> str:
    """A digest of the files of the module and of its tables."""
    tables = sorted(Path(str(material_reference_data.__file__)).parent.rglob("*.py"))
    digest = hashlib.sha256()
    for module in (material_characterization, method_acronyms):
        digest.update(Path(str(module.__file__)).read_bytes())
    for table in tables:
        digest.update(table.read_bytes())
    return digest.hexdigest()
