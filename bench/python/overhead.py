"""What the Python package adds to the array calls of C: the same arrays, one after the other, least of many: one call of C into
memory that is ready and into memory asked for at each call, the package, and its scalar form.
"""
import ctypes
import time
from collections import namedtuple

import numpy as np

import kitlib as kl
from kitlib import _ids
from kitlib._library import KITLIB
from kitlib._memory import LIMIT  # noqa: F401 (for the page)

SIZES = (1000, 10_000, 100_000, 1_000_000)
Row = namedtuple("Row", "function n c c_new package scalar")  # seconds a call


def least(function, seconds=0.3):
    function()
    start = time.perf_counter()
    function()
    repeats = max(1, int(2e-4 / max(time.perf_counter() - start, 1e-7)))  # the clock of a thread has a microsecond
    best, end = np.inf, time.perf_counter() + seconds
    while time.perf_counter() < end or best == np.inf:
        start = time.thread_time()
        for _ in range(repeats):
            function()
        best = min(best, (time.thread_time() - start) / repeats)
    return best


def number(value):
    return ctypes.byref(ctypes.c_long(value))


def at(array):
    return ctypes.byref((ctypes.c_char * 0).from_buffer(array))


def calls_of_c(function, *arguments):
    """The call into arrays made once, and with new ones at each call; a shape among the arguments is an output."""
    made = [np.empty(a) if isinstance(a, tuple) else a for a in arguments]
    ready = [at(a) if isinstance(a, np.ndarray) else a for a in made]

    def into_new():
        new = [np.empty(a) if isinstance(a, tuple) else None for a in arguments]
        function(*[at(x) if x is not None else p for x, p in zip(new, ready)])
    assert function(*ready) != -1
    return lambda: function(*ready), into_new


def pairs(n):
    """(name, the calls of C, the package, the scalar call) on n elements."""
    random = np.random.default_rng(1)
    t = np.sort(random.uniform(6500.0, 8000.0, n))
    r, v = random.uniform(-7e6, 7e6, (n, 3)), random.uniform(-7e3, 7e3, (n, 3))
    q = random.uniform(-1, 1, (n, 4))
    q /= np.linalg.norm(q, axis=1)[:, None]
    time_id, model = _ids.pointer_of("time", None).pointer, _ids.pointer_of("model", None).pointer
    status, ierr, count, three, zero = (n,), (ctypes.c_long * 1)(), number(n), (n, 3), np.zeros((n, 3))
    t1, r1, v1, q1 = float(t[0]), r[0].copy(), v[0].copy(), q[0].copy()
    text = np.char.decode(kl.time_processing_to_ascii(t).astype("S40"), "ascii")
    octets = text.astype("S40").view(np.uint8).reshape(n, 40)
    yield ("time_processing_to_processing",
           calls_of_c(KITLIB.kl_time_processing_to_processing_n, time_id, count, number(0), number(1), t, number(0), number(2), (n,), status, ierr),
           lambda: kl.time_processing_to_processing(t, ref_in="UTC", ref_out="UT1"), lambda: kl.time_processing_to_processing(t1, ref_in="UTC", ref_out="UT1"))
    yield ("time_ascii_to_processing",
           calls_of_c(KITLIB.kl_time_ascii_to_processing_n, time_id, count, number(43), number(1), number(40), octets, number(0), number(1), (n,), status, ierr),
           lambda: kl.time_ascii_to_processing(text), lambda s=str(text[0]): kl.time_ascii_to_processing(s))
    yield ("time_processing_to_ascii",
           calls_of_c(KITLIB.kl_time_processing_to_ascii_n, time_id, count, number(0), number(1), t, number(43), number(1), number(32), (n, 4), status, ierr),
           lambda: kl.time_processing_to_ascii(t), lambda: kl.time_processing_to_ascii(t1))
    yield ("change_cart_cs, velocity",
           calls_of_c(KITLIB.kl_change_cart_cs_n, model, time_id, count, number(2), number(11), number(7), number(1), t, r, v, zero, three, three, three, status, ierr),
           lambda: kl.change_cart_cs(t, r, v, cs_in="TEME", cs_out="EF"), lambda: kl.change_cart_cs(t1, r1, v1, cs_in="TEME", cs_out="EF"))
    yield ("sun", calls_of_c(KITLIB.kl_sun_n, model, time_id, count, number(1), t, three, three, status, ierr), lambda: kl.sun(t), lambda: kl.sun(t1))
    yield ("cart_to_geod", calls_of_c(KITLIB.kl_cart_to_geod_n, model, count, number(1), r, zero, (n, 6), status, ierr), lambda: kl.cart_to_geod(r),
           lambda: kl.cart_to_geod(r1))
    yield ("quaternions_to_vectors", calls_of_c(KITLIB.kl_quaternions_to_vectors_n, count, q, three, three, three, status, ierr),
           lambda: kl.quaternions_to_vectors(q), lambda: kl.quaternions_to_vectors(q1))


def rows(most=SIZES[-1]):
    for n in (n for n in SIZES if n <= most):
        for name, (ready, new), package, scalar in pairs(n):
            yield Row(name, n, least(ready), least(new), least(package), least(scalar, 0.05))
