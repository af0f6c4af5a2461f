"""The module over a long life: allocations that fail, memory that must not grow, many threads, many
interpreters. python -m reliability.endurance runs it at full length and prints what it measured."""

import _interpreters
import _testcapi
import collections
import contextlib
import ctypes
import functools
import gc
import itertools
import resource
import sys
import threading
import time
from concurrent import futures

from . import calls, copies, hostile

EXPECTED = {name: calls.result(copies.fresh(), name) for name in calls.FUNCTIONS}


def refused(module, name):
    with contextlib.suppress(TypeError):
        return getattr(module, name)(**calls.FUNCTIONS[name](), bogus=1)


# Each lets allocations fail: all from the n-th on, only the n-th, or those of `new` from the n-th
# on, in a process that preloads failing_new.cpp. It gives what ends that.


def from_the_nth(n, end=0):
    _testcapi.set_nomemory(n, end)
    return _testcapi.remove_mem_hooks


def only_the_nth(n):
    return from_the_nth(n, n + 1)


def new_from_the_nth(n):
    fail_new_from = ctypes.CDLL(None).fail_new_from
    fail_new_from(n)
    return lambda: fail_new_from(-1)


def fail_each_allocation(start_failing, prepare, call, check):
    """Makes the call with the first, the second, ... allocation failing; returns how many failed.

    Ends when the call has had all it asks for, a few times over, since a failure may do no harm.
    """
    failed, passed, n = 0, 0, 0
    while passed < 5:
        module = prepare()
        gc.disable()  # what a collection does is not the module's
        stop_failing = start_failing(n)
        n += 1
        try:
            found = call(module)
        except MemoryError:
            found = MemoryError
        stop_failing()
        gc.enable()
        check(module, found)
        failed, passed = (failed + 1, 0) if found is MemoryError else (failed, passed + 1)
    return failed


def check_failing_memory(start_failing):
    """Every function's first call after loading, its refusals, and loading. Gives the failures."""
    loaded = copies.small()
    rows = ((copies.small, calls.result), (lambda: loaded, refused))
    for name, (prepare, make) in itertools.product(calls.FUNCTIONS, rows):

        def check(module, found, make=make, name=name):
            assert found in (MemoryError, make(module, name))
            assert calls.result(module, name) == EXPECTED[name]

        call = functools.partial(make, name=name)
        yield fail_each_allocation(start_failing, prepare, call, check)

    def check_loaded(module, found):
        if found is not MemoryError:
            assert {name: calls.result(module, name) for name in EXPECTED} == EXPECTED

    with copies.short_companions():
        load = copies.LOADER.exec_module
        yield fail_each_allocation(start_failing, copies.unloaded, load, check_loaded)


def sizes(watched):
    """References to the watched values, allocated blocks and resident bytes."""
    gc.collect()
    with open("/proc/self/statm") as statm:
        size = int(statm.read().split()[1]) * resource.getpagesize()
    return sum(map(sys.getrefcount, watched)), sys.getallocatedblocks(), size


def growth(call, times, most, watched):
    """What these sizes grow by over a batch of calls, of several batches the first that stays in
    bounds: Python's caches grow in some, what a call loses in all."""
    for _ in range(12):
        before = sizes(watched)
        for _ in range(times):
            call()
        grown = [now - then for now, then in zip(sizes(watched), before, strict=True)]
        if abs(grown[0]) < most and grown[1] < most and grown[2] < 2**18:
            return grown
    raise AssertionError(f"{call} grew by {grown}")


def check_growth(good, bad, rounds):
    """Good and refused calls of every function, rounds of all hostile values in all their uses, and
    new modules up to the first search; returns the worst growth of each size."""
    module, raised = copies.fresh(), collections.deque(maxlen=1)
    makers = [*hostile.failing(raised), *hostile.answering(lambda: None)]
    own = copies.names(module)

    def hostile_calls():
        uses = [hostile.uses(module, make) for make in makers[::7]]
        uses += [hostile.calls_with(make) for make in makers]
        for name, arguments, *_ in itertools.chain.from_iterable(uses):
            with contextlib.suppress(BaseException):
                calls.call(module, name, arguments)
        raised.clear()

    rows = [(hostile_calls, rounds, 50)]  # where Python's caches never rest
    rows.append((lambda: calls.result(copies.fresh(), "_formula_hint"), 50, 25))
    for times, make in ((good, calls.result), (bad, refused)):
        rows += [(functools.partial(make, module, name), times, times // 2) for name in EXPECTED]
    watched = [*own.values(), *(calls.result(module, name) for name in EXPECTED)]
    watched += calls.result(module, "characterize_material").values()
    return [max(column) for column in zip(*(growth(*row, watched) for row in rows), strict=True)]


def all_at_once(count, action, *arguments):
    """Runs the action on several threads, which start together; raises the first error of any."""
    barrier = threading.Barrier(count)
    with futures.ThreadPoolExecutor(count, initializer=barrier.wait) as pool:
        for done in [pool.submit(action, *arguments) for _ in range(count)]:
            done.result()


def check_threads(seconds, modules):
    """Eight threads on the same arguments, from the first call of each new module on, each of them
    from another function on. In two of three modules they take turns within a call too."""
    order = [(name, make()) for name, make in calls.FUNCTIONS.items()]
    starts = itertools.cycle(range(8))

    def work(module):
        start = next(starts)
        for name, arguments in (order[start:] + order[:start]) * 20:
            assert calls.call(module, name, arguments) == EXPECTED[name]

    interval, end, used = sys.getswitchinterval(), time.monotonic() + seconds, 0
    sys.setswitchinterval(1e-5)
    while used < modules or time.monotonic() < end:
        make = (copies.fresh, copies.replaced, copies.indexed_slowly)[used % 3]
        all_at_once(8, work, make())
        used += 1
    sys.setswitchinterval(interval)
    return used * 8 * 20 * len(order)


def check_interpreters(rounds):
    """Four interpreters at once, each with a lock of its own; each made, used and unloaded."""
    code = f"""if True:
        import sys
        sys.path[:] = {sys.path!r}
        from reliability import calls, copies
        for module in (copies.mc, copies.fresh(), copies.mc):
            for name, expected in {EXPECTED!r}.items():
                assert calls.result(module, name) == expected, name
    """

    def work():
        interpreter = _interpreters.create()
        failure = _interpreters.run_string(interpreter, code)
        _interpreters.destroy(interpreter)
        assert failure is None, failure

    for _ in range(rounds):
        all_at_once(4, work)
    return 4 * rounds


def main():
    failed = [sum(check_failing_memory(start)) for start in (only_the_nth, from_the_nth)]
    print("calls ended by one failing allocation, by all from the n-th on:", *failed, flush=True)
    grown = check_growth(100_000, 10_000, 10)
    print("most references, blocks, bytes that a row grew by:", *grown, flush=True)
    print("calls on eight threads:", check_threads(10, 1), flush=True)
    print("interpreters:", check_interpreters(25), flush=True)


if __name__ == "__main__":
    main()
