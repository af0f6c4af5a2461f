"""What the search for keywords takes for granted is checked by the compiler, which says so."""

import os
import shlex
import shutil
import subprocess
from pathlib import Path

import pytest

TEXT = Path(__file__).parents[1] / "src" / "tavik_agent" / "text"
COMPILER = shlex.split(os.environ.get("CXX", "c++"))
LAST_ROW = '    {Group::noncollinear, "noncollinear"},\n'

pytestmark = pytest.mark.skipif(not shutil.which(COMPILER[0]), reason="no compiler")


def compiled(folder, rows):
    """What the compiler says of the keyword search with more rows at the end of the table."""
    shutil.copytree(TEXT, folder / "text")
    table = folder / "text" / "keywords.hpp"
    source = table.read_text(encoding="utf-8")
    assert source.count(LAST_ROW) == 1
    table.write_text(source.replace(LAST_ROW, LAST_ROW + rows), encoding="utf-8")
    file = folder / "text" / "keyword_scan.cpp"
    command = [*COMPILER, "-std=c++20", "-fsyntax-only", f"-I{folder}", str(file)]
    done = subprocess.run(command, capture_output=True, text=True, check=False)
    return "" if done.returncode == 0 else done.stderr


ROW = '    {{Group::tip, "{}"}},\n'


@pytest.mark.parametrize(
    ("keywords", "complaint"),
    [
        (["nanotube"], ""),
        ([f"keyword {i}" for i in range(300)], ""),  # more than 256 in all
        (["Nanotube"], "a keyword is in lower case"),
        (["ångström"], "a keyword is ASCII"),
        *(([short], "a keyword has two letters at least") for short in ("u", "")),
    ],
)
def test_rows_that_the_search_cannot_take_do_not_compile(tmp_path, keywords, complaint):
    reported = compiled(tmp_path, "".join(map(ROW.format, keywords)))
    assert complaint in reported
    assert bool(reported) == bool(complaint)
