"""The module over a long life: allocations that fail, memory that must not grow, many threads, many
interpreters. python -m reliability.endurance runs it at full length and prints what it measured."""

import _interpreters
import _testcapi
import contextlib
import ctypes
import functools
import gc
import itertools
import resource
import sys
import threading
import time

from . import calls, copies, hostile

EXPECTED = {name: calls.result(copies.fresh(), name) for name in calls.FUNCTIONS}


def refused(module, name):
    try:
        getattr(module, name)(**calls.FUNCTIONS[name](), bogus=1)
    except TypeError:
        return
    raise AssertionError("not refused")


def from_the_nth(n):
    _testcapi.set_nomemory(n, 0)
    return _testcapi.remove_mem_hooks


def only_the_nth(n):
    _testcapi.set_nomemory(n, n + 1)
    return _testcapi.remove_mem_hooks


def new_from_the_nth(n):
    """For a process that preloads failing_new.cpp."""
    ctypes.CDLL(None).fail_new_from(n)
    return lambda: ctypes.CDLL(None).fail_new_from(-1)


def fail_each_allocation(start_failing, prepare, call, check):
    """Makes the call with the first, the second, ... allocation failing; returns how many failed.

    Ends when the call has had all it asks for, a few times over, since a failure may do no harm.
    """
    failed, passed, n = 0, 0, 0
    while passed < 5:
        module = prepare()
        gc.disable()  # what a collection does is not the module's
        stop_failing = start_failing(n)
        try:
            found = call(module)
        except MemoryError:
            found = MemoryError
        stop_failing()
        gc.enable()
        check(module, found)
        failed, passed = (failed + 1, 0) if found is MemoryError else (failed, passed + 1)
        n += max(1, n // 250)  # loading makes tens of thousands by `new`
    return failed


def check_failing_memory(start_failing):
    """Every function's first call after loading, its refusals, and loading. Gives the failures."""
    loaded = copies.fresh()
    for name, make in itertools.product(calls.FUNCTIONS, (calls.result, refused)):

        def check(module, found, name=name, make=make):
            assert found in (MemoryError, make(module, name))
            assert calls.result(module, name) == EXPECTED[name]

        prepare = (lambda: loaded) if make is refused else copies.fresh
        call = functools.partial(lambda make, name, module: make(module, name), make, name)
        yield fail_each_allocation(start_failing, prepare, call, check)

    def check_loaded(module, found):
        if found is not MemoryError:
            assert {name: calls.result(module, name) for name in EXPECTED} == EXPECTED

    load = copies.LOADER.exec_module
    yield fail_each_allocation(start_failing, copies.unloaded, load, check_loaded)


def growth(call, times):
    """The growth in allocated blocks and resident bytes over a batch of calls, of several batches
    the first that lost next to nothing: the host's caches grow in some, what a call loses in all.
    """
    for _ in range(12):
        gc.collect()
        blocks, size = sys.getallocatedblocks(), resident()
        for _ in range(times):
            call()
        gc.collect()
        blocks, size = sys.getallocatedblocks() - blocks, resident() - size
        if blocks < times // 2 and size < 2**18:
            break
    return blocks, size


def resident():
    with open("/proc/self/statm") as statm:
        return int(statm.read().split()[1]) * resource.getpagesize()


def failing_calls(module):
    """Of every function one that does not fit, and one that fails for each parameter."""

    def fail(self, *args, **kwargs):
        raise hostile.Failure

    def call(name, make, parameter):
        with contextlib.suppress(hostile.Failure, AttributeError, TypeError, ValueError):
            calls.call(module, name, make() | {parameter: [value]})

    value = hostile.with_method(str, "lower", fail)()
    for name, make in calls.FUNCTIONS.items():
        yield functools.partial(refused, module, name)
        yield from (functools.partial(call, name, make, parameter) for parameter in make())


def check_growth(good, bad):
    """Good and failing calls of every function, and loads; returns the worst growth in each."""
    module = copies.fresh()
    rows = [(good, functools.partial(calls.result, module, name)) for name in calls.FUNCTIONS]
    rows += [(bad, call) for call in failing_calls(module)] + [(50, copies.fresh)]
    grown = []
    for times, call in rows:
        blocks, size = growth(call, times)
        assert blocks < times // 2, (call, blocks)
        assert size < 2**18, (call, size)
        grown.append((blocks, size))
    return [max(column) for column in zip(*grown, strict=True)]


def all_at_once(count, action, *arguments):
    """Runs the action on several threads, which start together; raises the first error of any."""
    barrier, errors = threading.Barrier(count), []

    def run():
        barrier.wait()
        try:
            action(*arguments)
        except BaseException as error:
            errors.append(error)

    threads = [threading.Thread(target=run) for _ in range(count)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    if errors:
        raise errors[0]


def check_threads(seconds, modules):
    """Eight threads on the same arguments, from the first call of each new module on."""
    shared = {name: make() for name, make in calls.FUNCTIONS.items()}

    def work(module):
        for name, arguments in [*shared.items()] * 20:
            assert calls.call(module, name, arguments) == EXPECTED[name]

    interval, end = sys.getswitchinterval(), time.monotonic() + seconds
    sys.setswitchinterval(1e-5)
    used = 0
    while used < modules or time.monotonic() < end:
        all_at_once(8, work, copies.fresh())
        used += 1
    sys.setswitchinterval(interval)
    return used * 8 * 20 * len(shared)


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
        try:
            failure = _interpreters.run_string(interpreter, code)
            assert failure is None, failure
        finally:
            _interpreters.destroy(interpreter)

    for _ in range(rounds):
        all_at_once(4, work)
    return 4 * rounds


def main():
    failed = [sum(check_failing_memory(start)) for start in (only_the_nth, from_the_nth)]
    print("calls ended by one failing allocation, by all from the n-th on:", *failed, flush=True)
    print("most blocks, bytes that a row grew by:", *check_growth(100_000, 10_000), flush=True)
    print("calls on eight threads:", check_threads(10, 1), flush=True)
    print("interpreters:", check_interpreters(25), flush=True)


if __name__ == "__main__":
    main()
