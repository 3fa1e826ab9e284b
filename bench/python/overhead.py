"""What the Python package adds to the array calls of C: the same arrays, one after the other, least of many. Prints a table in
Markdown: times of one call, of the package over C, and of the scalar form.
"""
import ctypes
import sys
import time

import numpy as np

import kitlib as kl
from kitlib import _ids
from kitlib._library import KITLIB

SIZES = (1000, 10_000, 1_000_000)


def least(function, seconds=0.3):
    best, spent = np.inf, 0.0
    while spent < seconds or best == np.inf:
        start = time.process_time()
        function()
        taken = time.process_time() - start
        best, spent = min(best, taken), spent + taken
    return best


def number(value):
    return ctypes.byref(ctypes.c_long(value))


def at(array):
    return ctypes.c_void_p(array.ctypes.data)


def pairs(n):
    """(name, the package, the call of C) on n elements, and the scalar call."""
    random = np.random.default_rng(1)
    t = np.sort(random.uniform(6500.0, 8000.0, n))
    r, v = random.uniform(-7e6, 7e6, (n, 3)), random.uniform(-7e3, 7e3, (n, 3))
    q = random.uniform(-1, 1, (n, 4))
    q /= np.linalg.norm(q, axis=1)[:, None]
    time_id, model = _ids.pointer_of("time", None).pointer, _ids.pointer_of("model", None).pointer
    status, ierr, count = np.zeros(n, "i8"), (ctypes.c_long * 1)(), number(n)
    a, b, c, one = np.empty((n, 3)), np.empty((n, 3)), np.empty((n, 3)), np.empty(n)
    geodetic = np.empty((n, 6))
    zero = np.zeros((n, 3))
    t1, r1, v1, q1 = float(t[0]), r[0].copy(), v[0].copy(), q[0].copy()
    yield ("time_processing_to_processing", lambda: kl.time_processing_to_processing(t, ref_in="UTC", ref_out="UT1"),
           lambda: KITLIB.kl_time_processing_to_processing_n(time_id, count, number(0), number(1), at(t), number(0), number(2), at(one), at(status), ierr),
           lambda: kl.time_processing_to_processing(t1, ref_in="UTC", ref_out="UT1"))
    yield ("change_cart_cs, velocity", lambda: kl.change_cart_cs(t, r, v, cs_in="TEME", cs_out="EF"),
           lambda: KITLIB.kl_change_cart_cs_n(model, time_id, count, number(2), number(11), number(7), number(1), at(t), at(r), at(v), at(zero), at(a), at(b), at(c),
                                              at(status), ierr),
           lambda: kl.change_cart_cs(t1, r1, v1, cs_in="TEME", cs_out="EF"))
    yield ("sun", lambda: kl.sun(t), lambda: KITLIB.kl_sun_n(model, time_id, count, number(1), at(t), at(a), at(b), at(status), ierr), lambda: kl.sun(t1))
    yield ("cart_to_geod", lambda: kl.cart_to_geod(r),
           lambda: KITLIB.kl_cart_to_geod_n(model, count, number(1), at(r), at(zero), at(geodetic), at(status), ierr), lambda: kl.cart_to_geod(r1))
    yield ("quaternions_to_vectors", lambda: kl.quaternions_to_vectors(q),
           lambda: KITLIB.kl_quaternions_to_vectors_n(count, at(q), at(a), at(b), at(c), at(status), ierr), lambda: kl.quaternions_to_vectors(q1))


def main():
    most = int(float(sys.argv[1])) if len(sys.argv) > 1 else SIZES[-1]
    print("| function | elements | C, us | package, us | ratio | scalar, us |\n|---|---:|---:|---:|---:|---:|")
    for n in (n for n in SIZES if n <= most):
        for name, package, of_c, scalar in pairs(n):
            assert of_c() != -1, name
            c, p = least(of_c), least(package)
            print(f"| {name} | {n} | {c * 1e6:.1f} | {p * 1e6:.1f} | {p / c:.2f} | {least(scalar, 0.05) * 1e6:.1f} |", flush=True)


if __name__ == "__main__":
    main()
