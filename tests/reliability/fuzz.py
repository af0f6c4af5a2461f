"""Checks random requests for a given time: python -m reliability.fuzz SECONDS [SEED].

Every request has a seed of its own, counted up from SEED (from the clock when not given). The first
that fails is printed, with the seed that brings it back, and ends the run with status 1."""

import sys
import time

from . import copies, generate, properties


class Checker:
    def __init__(self):
        self._modules = copies.fresh(), copies.replaced()

    def check(self, seed):
        request, fits = generate.Generator(seed).request()
        try:
            properties.check(*self._modules, request, fits, seed)
        except Exception as error:
            error.add_note(f"again with: make fuzz SECONDS=0 SEED={seed}")
            error.add_note(f"characterize_material(**{request!r})")
            raise


def main(seconds, seed):
    print(f"{seconds:g} seconds from seed {seed}", flush=True)
    checker, end, first = Checker(), time.monotonic() + seconds, seed
    while seed == first or time.monotonic() < end:
        checker.check(seed)
        seed += 1
    print(f"{seed - first} requests, no failure")


if __name__ == "__main__":
    given = [int(seed) for seed in sys.argv[2:]]
    main(float(sys.argv[1]), *given or [time.time_ns() // 10**6])
