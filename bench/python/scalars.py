"""One element as a plain number: what the call of C takes alone, and what the package adds to it.

C alone is what the very call of the package takes, made again with the pointers that the package gave it, without what Python
needs to call any function of C: that is in what the package adds.
"""
import ctypes
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

CALLS = {
    "sun": lambda: kl.sun(T),
    "moon": lambda: kl.moon(T),
    "planet": lambda: kl.planet(T, planet=kl.Planet.MARS),
    "time_cuc_to_processing": lambda: kl.time_cuc_to_processing(OCTETS, config=CUC, ref=kl.Time.TAI),
    "time_processing_to_cuc": lambda: kl.time_processing_to_cuc(T, config=CUC, ref=kl.Time.TAI),
    "geod_to_cart": lambda: kl.geod_to_cart(48.0, 11.0, 600.0),
    "cart_to_geod": lambda: kl.cart_to_geod(R),
    "kepl_to_cart": lambda: kl.kepl_to_cart(*ORBIT),
    "cart_to_kepl": lambda: kl.cart_to_kepl(R, V),
    "geod_distance": lambda: kl.geod_distance(40.6, -73.8, 51.6, -0.5),
    "geod_point": lambda: kl.geod_point(40.6, -73.8, 51.0, 5.0e6),
    "position_on_orbit": lambda: kl.position_on_orbit(T, R, V, cs=kl.Frame.TOD),
    "orbit_sun": lambda: kl.orbit_sun(T, R, V, cs=kl.Frame.TOD),
    "cart_to_radec": lambda: kl.cart_to_radec(R),
    "radec_to_cart": lambda: kl.radec_to_cart(10.0, 20.0, 7.0e6),
    "ef_to_topocentric": lambda: kl.ef_to_topocentric(R, origin=STATION),
    "topocentric_to_ef": lambda: kl.topocentric_to_ef(10.0, 20.0, 7.0e5, origin=STATION),
    "geod_to_utm": lambda: kl.geod_to_utm(48.0, 11.0),
    "utm_to_geod": lambda: kl.utm_to_geod(38, 1, 444140.5, 3684706.3),
    "local_orbital_frame": lambda: kl.local_orbital_frame(R, V),
    "mean_motion": lambda: kl.mean_motion(ORBIT, 600.0),
    "time_processing_to_processing": lambda: kl.time_processing_to_processing(T, ref_in=kl.Time.UTC, ref_out=kl.Time.UT1),
    "time_ascii_to_ascii": lambda: kl.time_ascii_to_ascii("2026-06-21T08:24:00", fmt_in=kl.Ascii.ASCII_41, fmt_out=kl.Ascii.ASCII_13, ref_out=kl.Time.GPS),
    "time_ascii_to_processing": lambda: kl.time_ascii_to_processing("2026-06-21T08:24:00.123456"),
    "time_text_to_processing": lambda: kl.time_text_to_processing("2026-06-21T08:24:00Z"),
    "time_ascii_to_transport": lambda: kl.time_ascii_to_transport("2026-06-21T08:24:00.123456"),
    "time_processing_to_ascii": lambda: kl.time_processing_to_ascii(T),
    "time_processing_to_transport": lambda: kl.time_processing_to_transport(T),
    "time_transport_to_ascii": lambda: kl.time_transport_to_ascii(TRANSPORT),
    "time_transport_to_processing": lambda: kl.time_transport_to_processing(TRANSPORT),
    "time_transport_to_transport": lambda: kl.time_transport_to_transport(TRANSPORT, fmt_out=kl.Transport.TRANS_22),
    "change_cart_cs": lambda: kl.change_cart_cs(T, R, V, cs_in=kl.Frame.TEME, cs_out=kl.Frame.EF),
    "ray_ellipsoid": lambda: kl.ray_ellipsoid(R, DOWN),
    "ray_height": lambda: kl.ray_height(R, DOWN, 1000.0),
    "ray_tangent": lambda: kl.ray_tangent(R, AWAY),
    "eclipse": lambda: kl.eclipse(T, R),
    "earth_orientation_get": lambda: kl.earth_orientation_get(T),
    "iers_matrix": lambda: kl.iers_matrix(T, cs_in=kl.IersFrame.GCRS, cs_out=kl.IersFrame.ITRS),
    "iers_change": lambda: kl.iers_change(T, R, V, cs_in=kl.IersFrame.GCRS, cs_out=kl.IersFrame.ITRS),
    "quaternions_to_vectors": lambda: kl.quaternions_to_vectors(Q),
    "vectors_to_quaternions": lambda: kl.vectors_to_quaternions(X, Y, Z),
    "quaternions_interpol": lambda: kl.quaternions_interpol(9668.0, Q, 9669.0, Q, T),
    "euler_to_matrix": lambda: kl.euler_to_matrix(ANGLES),
    "matrix_to_euler": lambda: kl.matrix_to_euler(MATRIX),
    "get_rotation_angles": lambda: kl.get_rotation_angles(X, Y, Z, X, Y, Z),
    "get_rotated_vectors": lambda: kl.get_rotated_vectors(X, Y, Z, ANGLES),
    "star_radec": lambda: kl.star_radec(T, STAR),
    "time_get_pole": lambda: kl.time_get_pole(T),
    "time_add": lambda: kl.time_add(T, 0.5),
    "time_diff": lambda: kl.time_diff(T, 9668.0),
    "time_get_leap_second_info": lambda: kl.time_get_leap_second_info(fmt_out=kl.Ascii.ASCII_41),
    "geoid": lambda: kl.geoid(48.0, 11.0),
    "geoid, max_degree=36": lambda: kl.geoid(48.0, 11.0, max_degree=36),
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


def call_inside(name):
    """The function of C and the arguments that the package gives it."""
    bare = name.partition(",")[0]
    function = _more._GEOID if bare == "geoid" else getattr(_functions, "_" + bare)
    space, place = function.one.__globals__, "scalar"
    taken = []
    real = space[place]

    def spy(*arguments):
        taken.append(arguments)
        return real(*arguments)
    space[place] = spy
    CALLS[name]()
    space[place] = real
    return real, taken[0]


def rows():
    nothing = ctypes.CDLL(KITLIB._name).kl_silent  # with any arguments: it looks at none
    nothing.restype = ctypes.c_long
    for name, package in CALLS.items():
        package()
        function, arguments = call_inside(name)
        c, empty, whole = least_of([lambda: function(*arguments), lambda: nothing(*arguments), package])
        yield Row(name, max(c - empty, 0.0), whole)


if __name__ == "__main__":
    for row in rows():
        print(f"{row.function:32s} C {row.c * 1e6:6.2f}  package {row.package * 1e6:6.2f}  adds {(row.package - row.c) * 1e6:6.2f}")
