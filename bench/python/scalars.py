"""One element as a plain number: what the call of C takes alone, and what the package adds to it.

C alone is what the very call of the package takes, made again with the pointers that the package gave it, without what Python
needs to call any function of C: that is in what the package adds.
"""
import ctypes
import sys
import time
from collections import namedtuple

import numpy as np

import kitlib as kl
from kitlib import _functions, _more
from kitlib._library import KITLIB

Row = namedtuple("Row", "function c package")  # seconds a call
R, V, A = np.array([7.0e6, 1.1e6, 2.0e6]), np.array([-1.0e3, 6.9e3, 2.5e3]), np.zeros(3)
Q = np.array([0.0, 0.6, 0.0, 0.8])
X, Y, Z = np.eye(3)
AWAY, DOWN = np.array([0.0, 0.6, 0.8]), np.array([-1.0, 0.0, 0.0])
ANGLES, MATRIX = np.array([10.0, 20.0, 30.0]), np.eye(3).reshape(9)
CUC = kl.CucConfig(kl.CucType.TIME_FIELD_ONLY, kl.CucEpoch.EPOCH_1958, n_coarse=4, n_fine=3)
STATION = kl.Geodetic(48.0, 11.0, 600.0)
ORBIT = (7.2e6, 0.001, 98.0, 10.0, 20.0, 30.0)
STAR = kl.star_catalog(9668.0, cone=(88.8, 7.4, 1.0), magnitudes=(-2.0, 2.0))[0][0]
TRANSPORT = np.array([9668, 30245, 123456, 0])
OCTETS = bytes([128, 201, 136, 0, 0, 0, 0])
T = 9668.35

# (what varies, selectors and the like) of each function.
CALLS = {
    "sun": ((T,), dict()),
    "moon": ((T,), dict()),
    "planet": ((T,), dict(planet=kl.Planet.MARS)),
    "time_cuc_to_processing": ((OCTETS,), dict(config=CUC, ref=kl.Time.TAI)),
    "time_processing_to_cuc": ((T,), dict(config=CUC, ref=kl.Time.TAI)),
    "geod_to_cart": ((48.0, 11.0, 600.0), dict()),
    "cart_to_geod": ((R,), dict()),
    "kepl_to_cart": (ORBIT, dict()),
    "cart_to_kepl": ((R, V), dict()),
    "geod_distance": ((40.6, -73.8, 51.6, -0.5), dict()),
    "geod_point": ((40.6, -73.8, 51.0, 5.0e6), dict()),
    "position_on_orbit": ((T, R, V), dict(cs=kl.Frame.TOD)),
    "orbit_sun": ((T, R, V), dict(cs=kl.Frame.TOD)),
    "cart_to_radec": ((R,), dict()),
    "radec_to_cart": ((10.0, 20.0, 7.0e6), dict()),
    "ef_to_topocentric": ((R,), dict(origin=STATION)),
    "topocentric_to_ef": ((10.0, 20.0, 7.0e5), dict(origin=STATION)),
    "geod_to_utm": ((48.0, 11.0), dict()),
    "utm_to_geod": ((38, 1, 444140.5, 3684706.3), dict()),
    "local_orbital_frame": ((R, V), dict()),
    "mean_motion": ((ORBIT, 600.0), dict()),
    "time_processing_to_processing": ((T,), dict(ref_in=kl.Time.UTC, ref_out=kl.Time.UT1)),
    "time_ascii_to_ascii": (("2026-06-21T08:24:00",), dict(fmt_in=kl.Ascii.ASCII_41, fmt_out=kl.Ascii.ASCII_13, ref_out=kl.Time.GPS)),
    "time_ascii_to_processing": (("2026-06-21T08:24:00.123456",), dict()),
    "time_text_to_processing": (("2026-06-21T08:24:00Z",), dict()),
    "time_ascii_to_transport": (("2026-06-21T08:24:00.123456",), dict()),
    "time_processing_to_ascii": ((T,), dict()),
    "time_processing_to_transport": ((T,), dict()),
    "time_transport_to_ascii": ((TRANSPORT,), dict()),
    "time_transport_to_processing": ((TRANSPORT,), dict()),
    "time_transport_to_transport": ((TRANSPORT,), dict(fmt_out=kl.Transport.TRANS_22)),
    "change_cart_cs": ((T, R, V), dict(cs_in=kl.Frame.TEME, cs_out=kl.Frame.EF)),
    "ray_ellipsoid": ((R, DOWN), dict()),
    "ray_height": ((R, DOWN, 1000.0), dict()),
    "ray_tangent": ((R, AWAY), dict()),
    "eclipse": ((T, R), dict()),
    "earth_orientation_get": ((T,), dict()),
    "iers_matrix": ((T,), dict(cs_in=kl.IersFrame.GCRS, cs_out=kl.IersFrame.ITRS)),
    "iers_change": ((T, R, V), dict(cs_in=kl.IersFrame.GCRS, cs_out=kl.IersFrame.ITRS)),
    "quaternions_to_vectors": ((Q,), dict()),
    "vectors_to_quaternions": ((X, Y, Z), dict()),
    "quaternions_interpol": ((9668.0, Q, 9669.0, Q, T), dict()),
    "euler_to_matrix": ((ANGLES,), dict()),
    "matrix_to_euler": ((MATRIX,), dict()),
    "get_rotation_angles": ((X, Y, Z, X, Y, Z), dict()),
    "get_rotated_vectors": ((X, Y, Z, ANGLES), dict()),
    "star_radec": ((T, STAR), dict()),
    "time_get_pole": ((T,), dict()),
    "time_add": ((T, 0.5), dict()),
    "time_diff": ((T, 9668.0), dict()),
    "time_get_leap_second_info": ((), dict(fmt_out=kl.Ascii.ASCII_41)),
    "geoid": ((48.0, 11.0), dict()),
    "geoid, max_degree=36": ((48.0, 11.0), dict(max_degree=36)),
}


def least_of(functions, seconds=0.25):
    """Seconds of a call of each, the least of many; one after the other, so that all meet the same machine."""
    repeats = []
    for function in functions:
        function()
        start = time.thread_time()
        for _ in range(3):
            function()
        repeats.append(max(1, int(1e-4 / max((time.thread_time() - start) / 3, 1e-7))))
    best, end = [np.inf] * len(functions), time.perf_counter() + seconds * len(functions)
    rounds = 0
    while rounds < 3 or time.perf_counter() < end:
        for i, (function, n) in enumerate(zip(functions, repeats)):
            start = time.thread_time()
            for _ in range(n):
                function()
            best[i] = min(best[i], (time.thread_time() - start) / n)
        rounds += 1
    return best


def function_of(name):
    """The function of the package, and what the package keeps of it."""
    bare = name.partition(",")[0]
    return getattr(kl, bare), _more._GEOID if bare == "geoid" else getattr(_functions, "_" + bare)


class Spy:
    """In place of a function of C: calls it and keeps its arguments."""

    def __init__(self, real):
        self.real, self.arguments = real, None

    def __call__(self, *arguments):
        self.arguments = arguments
        return self.real(*arguments)

    def again(self):
        return self.real(*self.arguments)


def rows():
    """C and the package for one element."""
    nothing = ctypes.CDLL(KITLIB._name).kl_silent  # with any arguments: it looks at none
    nothing.restype = ctypes.c_long
    for name, (given, keywords) in CALLS.items():
        function, own = function_of(name)
        function(*given, **keywords)
        space = own.one.__globals__
        spy = space["scalar"] = Spy(space["scalar"])
        function(*given, **keywords)
        space["scalar"] = spy.real
        c, empty, whole = least_of([spy.again, lambda: nothing(*spy.arguments), lambda: function(*given, **keywords)])
        yield Row(name, max(c - empty, 0.0), whole)


def many(value, n):
    """An argument for n elements."""
    if value is T:
        return T + np.arange(n) / (2 * n)
    if isinstance(value, bytes):
        return np.tile(np.frombuffer(value, np.uint8), (n, 1))
    if isinstance(value, tuple):
        return [np.full(n, x) for x in value]
    if isinstance(value, np.void):
        return np.full(n, value)
    return np.tile(value, (n, 1)) if np.ndim(value) else np.full(n, value)


def rows_of_many(n):
    """C and the package for n elements, of every function that takes any."""
    for name, (one, keywords) in CALLS.items():
        if not one or name == "geoid":
            continue
        function, own = function_of(name)
        given = [many(value, n) for value in one]
        function(*given, **keywords)
        spies = []
        for space in (own.go.__globals__, vars(own)):
            if space.get("array") is not None:
                spies.append((space, space["array"]))
                space["array"] = Spy(space["array"])
        function(*given, **keywords)
        spy = next(space["array"] for space, _ in spies if space["array"].arguments)
        for space, real in spies:
            space["array"] = real
        yield Row(name, *least_of([spy.again, lambda: function(*given, **keywords)], 0.15))


if __name__ == "__main__":
    for row in rows() if len(sys.argv) < 2 else rows_of_many(int(float(sys.argv[1]))):
        print(f"{row.function:32s} C {row.c * 1e6:8.2f}  package {row.package * 1e6:8.2f}  adds {(row.package - row.c) * 1e6:8.2f}  {row.package / max(row.c, 1e-9):6.2f}")
