"""Checks random requests for a given time: python -m reliability.fuzz SECONDS [SEED].

Every request has a seed of its own, counted up from SEED (from the clock when not given). The first
that fails is printed, with the seed that brings it back, and ends the run with status 1."""

import sys
import time

from . import copies, generate, properties


def check(seed, *modules):
    request, fits = generate.Generator(seed).request()
    try:
        properties.check(*modules, request, fits, seed)
    except Exception as error:
        error.add_note(f"again with: make fuzz SECONDS=0 SEED={seed}")
        error.add_note(f"characterize_material(**{request!r})")
        raise


def main(seconds, seed):
    print(f"{seconds:g} seconds from seed {seed}", flush=True)
    modules, end, checked = (copies.fresh(), copies.replaced()), time.monotonic() + seconds, 0
    while not checked or time.monotonic() < end:
        check(seed + checked, *modules)
        checked += 1
    print(f"{checked} requests, no failure")


if __name__ == "__main__":
    given = [int(seed) for seed in sys.argv[2:]]
    main(float(sys.argv[1]), *given or [time.time_ns() // 10**6])
