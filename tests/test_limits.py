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
COMPLAINTS = ["a keyword is in lower case", "a keyword is ASCII", "a keyword has two letters"]


@pytest.mark.skipif(not shutil.which(COMPILER[0]), reason="no compiler")
@pytest.mark.parametrize(
    ("keywords", "complaints"),
    [
        ([f"keyword {i}" for i in range(300)], []),  # more than 256 in all
        (["Nanotube", "ångström", "u"], COMPLAINTS),
        ([""], COMPLAINTS[2:]),
    ],
)
def test_rows_that_the_search_cannot_take_do_not_compile(tmp_path, keywords, complaints):
    table = shutil.copytree(TEXT, tmp_path / "text") / "keywords.hpp"
    rows = "".join(f'    {{Group::tip, "{keyword}"}},\n' for keyword in keywords)
    before, last, behind = table.read_text(encoding="utf-8").partition(LAST_ROW)
    table.write_text(before + rows + last + behind, encoding="utf-8")
    command = [*COMPILER, "-std=c++20", "-fsyntax-only", f"-I{tmp_path}"]
    done = subprocess.run([*command, table.with_name("keyword_scan.cpp")], stderr=subprocess.PIPE)
    assert last
    assert bool(done.returncode) == bool(complaints)
    assert [c for c in COMPLAINTS if c.encode() in done.stderr] == complaints
