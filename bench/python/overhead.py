"""What the Python package adds to the array calls of C: the same arrays, one after the other, least of many: one call of C into
memory that is ready and into memory asked for at each call, and the package.
"""
import ctypes
from collections import namedtuple

import numpy as np

import kitlib as kl
from kitlib import _ids
from kitlib._library import KITLIB
from kitlib._memory import LIMIT  # noqa: F401 (for the page)
from scalars import least_of

SIZES = (1000, 10_000, 100_000, 1_000_000)
Row = namedtuple("Row", "function n c c_new package")  # seconds a call


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
    """(name, the calls of C, the package) on n elements."""
    random = np.random.default_rng(1)
    t = np.sort(random.uniform(6500.0, 8000.0, n))
    r, v = random.uniform(-7e6, 7e6, (n, 3)), random.uniform(-7e3, 7e3, (n, 3))
    q = random.uniform(-1, 1, (n, 4))
    q /= np.linalg.norm(q, axis=1)[:, None]
    time_id, model = _ids.pointer_of("time", None).pointer, _ids.pointer_of("model", None).pointer
    status, ierr, count, three, zero = (n,), (ctypes.c_long * 1)(), number(n), (n, 3), np.zeros((n, 3))
    text = kl.time_processing_to_ascii(t)
    octets = text.astype("S26")
    rows = octets.view(np.uint8)
    yield ("time_processing_to_processing",
           calls_of_c(KITLIB.kl_time_processing_to_processing_n, time_id, count, number(0), number(1), t, number(0), number(2), (n,), status, ierr),
           lambda: kl.time_processing_to_processing(t, ref_in="UTC", ref_out="UT1"))
    from_text = calls_of_c(KITLIB.kl_time_ascii_to_processing_n, time_id, count, number(43), number(1), number(26), rows, number(0), number(1), (n,), status, ierr)
    yield "time_ascii_to_processing, texts U26", from_text, lambda: kl.time_ascii_to_processing(text)
    yield "time_ascii_to_processing, texts S26", from_text, lambda: kl.time_ascii_to_processing(octets)
    yield ("time_processing_to_ascii",
           calls_of_c(KITLIB.kl_time_processing_to_ascii_n, time_id, count, number(0), number(1), t, number(43), number(1), number(32), (n, 4), status, ierr),
           lambda: kl.time_processing_to_ascii(t))
    yield ("change_cart_cs, velocity",
           calls_of_c(KITLIB.kl_change_cart_cs_n, model, time_id, count, number(2), number(11), number(7), number(1), t, r, v, zero, three, three, three, status, ierr),
           lambda: kl.change_cart_cs(t, r, v, cs_in="TEME", cs_out="EF"))
    yield "sun", calls_of_c(KITLIB.kl_sun_n, model, time_id, count, number(1), t, three, three, status, ierr), lambda: kl.sun(t)
    yield "cart_to_geod", calls_of_c(KITLIB.kl_cart_to_geod_n, model, count, number(1), r, zero, (n, 6), status, ierr), lambda: kl.cart_to_geod(r)
    yield ("quaternions_to_vectors", calls_of_c(KITLIB.kl_quaternions_to_vectors_n, count, q, three, three, three, status, ierr),
           lambda: kl.quaternions_to_vectors(q))


def rows(most=SIZES[-1]):
    for n in (n for n in SIZES if n <= most):
        for name, (ready, new), package in pairs(n):
            yield Row(name, n, *least_of([ready, new, package]))
