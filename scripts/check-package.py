"""Checks the packages of a folder: what is in them, and that the wheel works by itself.

Usage: check-package.py DIST. The wheel is installed into a new virtual environment without an
index, away from the working copy; a call is made there, and a strict type check of an example.
"""

import re
import subprocess
import sys
import tarfile
import tempfile
import venv
import zipfile
from email.parser import BytesParser
from pathlib import Path, PurePosixPath

ROOT = Path(__file__).parents[1]
EXAMPLE = ROOT / "examples" / "settings_for_request.py"
SOURCE_PACKAGE = {"benchmarks", "docs", "evaluation", "examples", "scripts", "src", "tests"}
SOURCE_PACKAGE |= {"CHANGELOG.md", "CMakeLists.txt", "CONTRIBUTING.md", "LICENSE", "PKG-INFO"}
SOURCE_PACKAGE |= {"Makefile", "README.md", "conftest.py", "pyproject.toml", "requirements.txt"}
SOURCE_PACKAGE |= {".clang-format", ".clang-tidy", ".python-version"}
METADATA = ["Name", "Version", "Summary", "Author", "License-Expression", "License-File"]
METADATA += ["Keywords", "Classifier", "Requires-Python", "Description-Content-Type"]
METADATA += ["Provides-Extra"]
LINK = re.compile(r"\]\(([^)#:]+)\)")  # to a file
BESIDE_METADATA = {"licenses/LICENSE", "entry_points.txt"}
CALL = """
from tavik_agent.material_characterization import characterize_material
record = characterize_material(step="scf", query_text="Band gap of GaAs in eV")
assert record["electronic_class"] == "semiconductor", record
"""


def check_source_package(file: Path) -> None:
    with tarfile.open(file) as archive:
        paths = [PurePosixPath(*PurePosixPath(name).parts[1:]) for name in archive.getnames()]
    tops = {path.parts[0] for path in paths if path.parts}
    assert tops == SOURCE_PACKAGE, f"top level of {file.name}: {sorted(tops ^ SOURCE_PACKAGE)}"
    assert not [path for path in paths if "__pycache__" in path.parts]
    readme = (ROOT / "README.md").read_text(encoding="utf-8")
    linked = {PurePosixPath(link) for link in LINK.findall(readme)}
    assert linked <= {*paths}, f"README.md links to {linked - {*paths}}"


def check_wheel(file: Path) -> None:
    with zipfile.ZipFile(file) as archive:
        names = set(archive.namelist())
        (metadata,) = [name for name in names if name.endswith(".dist-info/METADATA")]
        fields = BytesParser().parsebytes(archive.read(metadata))
    missing = [field for field in METADATA if not fields[field]]
    assert not missing, f"metadata of {file.name}: no {missing}"
    description = str(fields.get_payload())
    assert "## In a planner" in description, f"{file.name} shows no README"
    assert not LINK.findall(description), "a package index has no files that the README links to"
    beside = {metadata.replace("METADATA", name) for name in BESIDE_METADATA}
    assert beside <= names, f"not in {file.name}: {beside - names}"

    code = {name for name in names if ".dist-info/" not in name}
    extensions = {name for name in code if name.endswith((".so", ".pyd"))}
    assert len(extensions) == 1, extensions
    sources = {
        p.name for glob in ("*.py", "*.pyi", "py.typed") for p in ROOT.glob(f"src/**/{glob}")
    }
    found = {PurePosixPath(name).name for name in code - extensions}
    assert found == sources, f"files of {file.name}: {sorted(found ^ sources)}"
    assert all(name.startswith("tavik_agent/") for name in code), code
    assert "tavik_agent/__init__.py" not in code, "the folder is shared with the agent"


def check_installed(wheel: Path) -> None:
    with tempfile.TemporaryDirectory() as folder:
        venv.create(folder, with_pip=True)
        (python,) = [*Path(folder).glob("bin/python"), *Path(folder).glob("Scripts/python.exe")]

        def run(*command: str | Path) -> None:
            subprocess.run(command, cwd=folder, check=True, stdout=sys.stderr)

        run(python, "-m", "pip", "install", "--quiet", "--no-index", "--no-deps", wheel)
        run(python, "-I", "-W", "error", "-c", CALL)
        run(python, "-I", "-W", "error", EXAMPLE)
        mypy = (sys.executable, "-m", "mypy", "--strict", "--config-file=", "--no-incremental")
        run(*mypy, "--python-executable", python, EXAMPLE)


def main() -> None:
    dist = Path(sys.argv[1]).resolve()
    (source_package,) = dist.glob("*.tar.gz")
    (wheel,) = dist.glob("*.whl")
    check_source_package(source_package)
    check_wheel(wheel)
    check_installed(wheel)
    print(f"{source_package.name} and {wheel.name} are complete and work")


if __name__ == "__main__":
    main()
