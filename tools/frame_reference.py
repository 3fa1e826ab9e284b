#!/usr/bin/env python3
"""Independent states for the frame chain: every way as one matrix of time, differentiated numerically in 50 digits.

    python3 tools/frame_reference.py states > tests/frames/reference_states.inc
    python3 tools/frame_reference.py angles > tests/frames/reference_angles.inc
No rate of an angle is written down here: velocity and acceleration are differences of the carried position of
a point that moves with constant acceleration. Precession: J. H. Lieske (1979) in rounded degrees; nutation: its nine
largest terms, each from its own argument; sidereal time: GMST 1982 from 0h; FK4 to FK5: E. M. Standish (1982). Needs
python3-mpmath.
"""
import sys

from mpmath import cos, diff, fmod, matrix, mp, mpf, pi, sin

mp.dps = 50
DEG = pi / 180
START = [[7000000, -1200000, 3400000], [1250, 7100, -2500], [-4.5, 0.75, -6.25]]  # m, m/s, m/s2
DATES = [-18000.3, 0.0, 9000.25, 36523.8]  # days since 2000-01-01 00:00


def poly(t, *texts):
    return sum(mpf(c) * t**k for k, c in enumerate(texts))


def Rx(a):
    return matrix([[1, 0, 0], [0, cos(a), sin(a)], [0, -sin(a), cos(a)]])


def Ry(a):
    return matrix([[cos(a), 0, -sin(a)], [0, 1, 0], [sin(a), 0, cos(a)]])


def Rz(a):
    return matrix([[cos(a), sin(a), 0], [-sin(a), cos(a), 0], [0, 0, 1]])


def precession_angles(d):
    t = (d - mpf("0.5")) / 36525
    zeta = poly(t, "0", "0.6406161", "0.0000839", "0.0000050")
    z = poly(t, "0", "0.6406161", "0.0003041", "0.0000051")
    theta = poly(t, "0", "0.5567530", "-0.0001185", "-0.0000116")
    return zeta * DEG, z * DEG, theta * DEG


def precession(d):
    zeta, z, theta = precession_angles(d)
    return Rz(-z) * Ry(theta) * Rz(-zeta)


OBLIQUITY = mpf("23.439291") * DEG
TERMS = [  # F, D, Omega, l', l; dpsi (sine), deps (cosine)
    ((0, 0, 1, 0, 0), "-8.338601e-5", "4.461498e-5"),
    ((2, -2, 2, 0, 0), "-6.393238e-6", "2.780891e-6"),
    ((2, 0, 2, 0, 0), "-1.102466e-6", "4.73663e-7"),
    ((0, 0, 2, 0, 0), "9.996858e-7", "-4.339082e-7"),
    ((0, 0, 0, 1, 0), "6.913443e-7", "2.617994e-8"),
    ((0, 0, 0, 0, 1), "3.451873e-7", "-3.393696e-9"),
    ((2, -2, 2, 1, 0), "-2.506487e-7", "1.085983e-7"),
    ((2, 0, 1, 0, 0), "-1.871381e-7", "9.696274e-8"),
    ((2, 0, 2, 0, 1), "-1.459289e-7", "6.254096e-8"),
]


def nutation_angles(d):
    t = d - mpf("0.5")
    args = [
        poly(t, "1.627901934", "0.2308957196", "-4.817699e-14"),
        poly(t, "5.198469514", "0.2127687104", "-2.504244e-14"),
        poly(t, "2.182438624", "-0.0009242175478", "2.709206e-14"),
        poly(t, "6.240035939", "0.01720197005", "-2.096864e-15"),
        poly(t, "2.355548394", "0.2280271437", "1.13783e-13"),
    ]
    phases = [sum(m * a for m, a in zip(term[0], args)) for term in TERMS]
    dpsi = sum(mpf(term[1]) * sin(a) for term, a in zip(TERMS, phases))
    deps = sum(mpf(term[2]) * cos(a) for term, a in zip(TERMS, phases))
    return dpsi, deps


def nutation(d):
    dpsi, deps = nutation_angles(d)
    return Rx(-OBLIQUITY - deps) * Rz(-dpsi) * Rx(OBLIQUITY)


def equinoxes(d):
    return nutation_angles(d)[0] * cos(OBLIQUITY)


def mean_sidereal(d):
    return poly(d, "99.96779469", "360.985647366286", "2.9079e-13") * DEG


def apparent_sidereal(d):
    return mean_sidereal(d) + equinoxes(d)


def earth(d):
    return Rz(apparent_sidereal(d))


def teme(d):
    return Rz(equinoxes(d))


def fk4_to_fk5(d):
    arcsec = pi / 648000
    t = (d - mpf("0.5")) / 36525
    at_2000 = [
        ["0.999925678219", "-0.0111820580744", "-0.00485794368023"],
        ["0.0111820581287", "0.999937478465", "-2.71507426487e-05"],
        ["0.00485794355531", "-2.71730844707e-05", "0.999988199754"],
    ]
    a_century = [
        ["-0.000526639003437", "-0.2371432946", "0.437335303038"],
        ["0.237157969014", "-0.00265181082752", "0.00488930752983"],
        ["-0.437369076416", "-0.00115125257438", "0.00212517180083"],
    ]
    return matrix([[mpf(a) + t * mpf(c) * arcsec for a, c in zip(ra, rc)] for ra, rc in zip(at_2000, a_century)])


WAYS = [  # from, to, matrix
    (3, 4, precession),
    (4, 5, nutation),
    (5, 11, teme),
    (5, 6, earth),
    (3, 7, lambda d: earth(d) * nutation(d) * precession(d)),
    (7, 3, lambda d: (earth(d) * nutation(d) * precession(d)).T),
    (11, 7, lambda d: Rz(mean_sidereal(d))),
    (9, 1, fk4_to_fk5),
    (1, 9, lambda d: fk4_to_fk5(d) ** -1),
]


def carried(way, date, axis):
    start = [matrix(v) for v in START]
    return lambda s: (way(mpf(date) + s / 86400) * (start[0] + start[1] * s + start[2] * s * s / 2))[axis]


ANGLES = [
    ("zeta", lambda d: precession_angles(d)[0]),
    ("z", lambda d: precession_angles(d)[1]),
    ("theta", lambda d: precession_angles(d)[2]),
    ("dpsi", lambda d: nutation_angles(d)[0]),
    ("deps", lambda d: nutation_angles(d)[1]),
    ("H", apparent_sidereal),
]


def derivatives(function):
    return [diff(function, 0, n) for n in range(3)]


def states():
    print("// Made by tools/frame_reference.py: 50-digit differences. From, to, days since 2000-01-01 00:00, state there.")
    print("// All begin with the state " + "; ".join(", ".join(repr(x) for x in v) for v in START) + " (m, m/s, m/s2).")
    for first, last, way in WAYS:
        for date in DATES:
            axes = [derivatives(carried(way, date, axis)) for axis in range(3)]
            numbers = [axis[n] for n in range(3) for axis in axes]
            print("{%d, %d, %r, {%s}}," % (first, last, date, ", ".join(mp.nstr(x, 17) for x in numbers)))


def angles():
    print("// Made by tools/frame_reference.py: 50-digit differences. Days since 2000-01-01 00:00; rad, rad/s, rad/s2.")
    for name, angle in ANGLES:
        for date in DATES:
            numbers = derivatives(lambda s: angle(mpf(date) + s / 86400))
            numbers[0] = fmod(numbers[0], 2 * pi) if name == "H" else numbers[0]
            print('{"%s", %r, {%s}},' % (name, date, ", ".join(mp.nstr(x, 17) for x in numbers)))


if __name__ == "__main__":
    {"states": states, "angles": angles}[sys.argv[1]]()
