"""Short runs of what `make fuzz` and `make endurance` run at length."""

import importlib
import os
import subprocess
import sys
from pathlib import Path

import pytest
from reliability import calls, copies, endurance, fuzz


def test_random_requests_keep_every_promise():
    modules = copies.fresh(), copies.replaced()
    for seed in range(600):
        fuzz.check(seed, *modules)


@pytest.mark.parametrize("start_failing", [endurance.only_the_nth, endurance.from_the_nth])
def test_no_failing_allocation_goes_unnoticed(start_failing):
    assert sum(endurance.check_failing_memory(start_failing)) > 500


def test_no_failing_new_goes_unnoticed(tmp_path):
    library, source = tmp_path / "failing_new.so", Path(__file__).with_name("failing_new.cpp")
    compiler = os.environ.get("CXX", "c++").split()
    subprocess.run([*compiler, "-shared", "-fPIC", "-o", library, source], check=True)
    code = "from reliability.endurance import *; print(*check_failing_memory(new_from_the_nth))"
    environment = os.environ | {"LD_PRELOAD": str(library), "PYTHONPATH": ":".join(sys.path)}
    command = [sys.executable, "-c", code]
    done = subprocess.run(command, env=environment, stdout=subprocess.PIPE, check=True)
    assert sum(map(int, done.stdout.split())) > 100


def test_nothing_grows():
    endurance.check_growth(1000, 250, 1)


def test_eight_threads_agree():
    endurance.check_threads(0, modules=6)


def test_interpreters_at_once():
    endurance.check_interpreters(2)


def test_reloading():
    for _ in range(2):
        assert importlib.reload(copies.mc) is copies.mc
        assert calls.result(copies.mc, "_structure_mode") == endurance.EXPECTED["_structure_mode"]
