#!/usr/bin/env python3
"""Makes tests/data/geoid.csv: geoid undulations in 60 digits, by another route than the library's.

For each degree the Legendre functions go downward in order from P(n,n); the library goes upward in degree. All
constants and coefficients are taken as their decimals. Needs mpmath and the listings of the published figures:

    egm96_tables list data/egm96 potential >potential.txt
    egm96_tables list data/egm96 correction >correction.txt
    python3 tools/geoid_truth.py potential.txt correction.txt >tests/data/geoid.csv
"""
import sys

from mpmath import atan, cos, mp, mpf, pi, sin, sqrt

mp.dps = 60
DEGREE_RAD = mpf("0.017453292519943295")
A, E2, ONE_MINUS_E2 = mpf("6378137"), mpf("0.0066943799901378"), mpf("0.9933056200098622")
GAMMA_E, SOMIGLIANA, GM = mpf("9.7803253359"), mpf("0.001931852639275089"), mpf("3.9860044e14")
ZONALS = {4: "-0.237091120053e-5", 6: "0.608346498882e-8", 8: "-0.142681087920e-10", 10: "0.121439275882e-13"}

POINTS = [  # lat, lon: poles, near them, both ends of the longitudes, the date line, awkward and plain places
    ("90", "0"), ("90", "123.4"), ("-90", "0"), ("-90", "360"),
    ("89.9999", "45"), ("-89.9999", "271.25"), ("89", "0.0001"),
    ("0", "0"), ("0", "360"), ("0", "180"), ("0", "90"),
    ("1e-7", "1e-7"), ("-12.5", "359.999999"), ("45", "179.9999"),
    ("-5", "145"), ("4.7", "78.8"), ("64.1", "338.1"), ("-33.9", "18.4"), ("27.9881", "86.925"), ("-71.3", "200.6"),
]
DEGREES = [0, 1, 2, 10, 70, 180, 360]


def read(name):
    table = {}
    for line in open(name):
        n, m, c, s = line.split()
        table[int(n), int(m)] = mpf(c), mpf(s)
    return table


def functions(n, theta):
    """P(n,m), m = 0..n, fully normalised."""
    st, ct = sin(theta), cos(theta)
    p = [mpf(0)] * (n + 3)
    if st == 0:
        p[0] = sqrt(mpf(2 * n + 1)) * ct**n
        return p
    p[n] = mpf(1)
    for k in range(1, n + 1):  # sectoral
        p[n] *= st * sqrt(mpf(2 * k + 1) / (2 * k)) if k > 1 else sqrt(mpf(3)) * st
    for m in range(n - 1, -1, -1):
        d = mpf((n + m + 1) * (n - m))
        p[m] = 2 * (m + 1) * ct / st / sqrt(d) * p[m + 1] - sqrt((n + m + 2) * (n - m - 1) / d) * p[m + 2]
    if n > 0:
        p[0] /= sqrt(mpf(2))
    return p


def undulations(lat, lon):
    phi, lam = lat * DEGREE_RAD, lon * DEGREE_RAD
    s2 = sin(phi) ** 2
    root = sqrt(1 - E2 * s2)
    rho, z = A / root * cos(phi), A / root * ONE_MINUS_E2 * sin(phi)
    r = sqrt(rho**2 + z**2)
    gamma = GAMMA_E * (1 + SOMIGLIANA * s2) / root
    theta = pi / 2 - atan(z / rho)
    if abs(lat) == 90:
        theta = mpf(0) if lat > 0 else +pi
    if theta == +pi:
        theta, south = mpf(0), True  # P(n,0) alternates
    else:
        south = False
    turn = [(cos(m * lam), sin(m * lam)) for m in range(361)]
    a = ac = mpf(0)
    result = {}
    for n in range(361):
        p = functions(n, theta)
        for m in range(n + 1):
            sign = -1 if south and n % 2 else 1
            cc, cs = CORRECTION[n, m]
            ac += sign * p[m] * (cc * turn[m][0] + cs * turn[m][1])
            if n >= 2:
                hc, hs = POTENTIAL[n, m]
                a += sign * p[m] * (hc * turn[m][0] + hs * turn[m][1]) * (A / r) ** n
        if n in DEGREES:
            result[n] = a * GM / (gamma * r) + ac / 100 - mpf("0.53"), ac / 100
        if n == 1:
            result[0] = result[1]  # the correction terms of degree 1 always enter
    return result


POTENTIAL, CORRECTION = read(sys.argv[1]), read(sys.argv[2])
for n, j in ZONALS.items():
    POTENTIAL[n, 0] = POTENTIAL[n, 0][0] + mpf(j) / sqrt(mpf(2 * n + 1)), mpf(0)
POTENTIAL[2, 0] = mpf("1.40324752203035e-09"), mpf(0)
print("# Made by tools/geoid_truth.py: evaluated in 60 digits.")
print("latitude (deg),longitude (deg),degree,undulation (m),correction (m)")
for lat, lon in POINTS:
    values = undulations(mpf(lat), mpf(lon))
    for n in DEGREES:
        print(lat, lon, n, *(mp.nstr(v, 17) for v in values[n]), sep=",")
