#!/usr/bin/env python3
"""The passes of examples/passes.c once more, without the library: tools/passes_truth.py tests/data/passes.csv

Mean elements drift, and the short-period terms of J2 are added, by D. Brouwer's (1959) formulas as he printed them, with 1/e;
Kepler's equation is solved by Newton, the axes turn by tools/frame_reference.py, rises and sets are halved out. All in 30
digits. Needs python3-mpmath.
"""
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
sys.dont_write_bytecode = True
import frame_reference as frames
from mpmath import asin, atan2, cos, degrees, hypot, matrix, mp, mpf, pi, radians, sin, sqrt

mp.dps = 30
GM, J2, R = mpf("3.9860044e14"), mpf("0.001082626"), mpf(6378136)
A, F = mpf(6378137), mpf(0.0033528106647474805)
SEMI_AXIS, E0, I0, NODE0, PERIGEE0, M0 = mpf(7167000), mpf("0.001"), *(radians(mpf(x)) for x in ("98.6", "120", "90", "10"))
STATION = (radians(mpf(48)), radians(mpf(11)), mpf(600))
DAY = 9668  # 2026-06-21; UT1 is UTC here


def eccentric(m, e):
    x = m
    for _ in range(60):
        step = (x - e * sin(x) - m) / (1 - e * cos(x))
        x -= step
        if abs(step) < mpf(10) ** -28:
            break
    return x


def mean_at(s):
    n = sqrt(GM / SEMI_AXIS ** 3)
    eta = sqrt(1 - E0 ** 2)
    k = mpf(3) / 2 * J2 * (R / (SEMI_AXIS * eta ** 2)) ** 2 * n
    c = cos(I0)
    return (SEMI_AXIS, E0, I0, NODE0 - k * c * s, PERIGEE0 + k * (5 * c * c - 1) / 2 * s,
            M0 + (n + k / 2 * eta * (3 * c * c - 1)) * s)


def osculating(a, e, i, h, g, l):
    """Lyddane's way of putting Brouwer's terms together."""
    eta, th = sqrt(1 - e * e), cos(i)
    x = eccentric(l, e)
    f = x + 2 * atan2(e * sin(x), 1 + eta - e * cos(x))
    ar = 1 / (1 - e * cos(x))
    g2 = J2 / 2 * (R / a) ** 2
    gp = g2 / eta ** 4
    w = (ar * eta) ** 2
    c1, c2, c3 = (cos(2 * g + k * f) for k in (1, 2, 3))
    s1, s2, s3 = (sin(2 * g + k * f) for k in (1, 2, 3))
    da = a * g2 * ((3 * th ** 2 - 1) * (ar ** 3 - eta ** -3) + 3 * (1 - th ** 2) * ar ** 3 * c2)
    de = eta ** 2 / (2 * e) * (g2 * ((3 * th ** 2 - 1) * (ar ** 3 - eta ** -3) + 3 * (1 - th ** 2) * (ar ** 3 - eta ** -4) * c2)
                               - gp * (1 - th ** 2) * (3 * e * c1 + e * c3))
    di = gp / 2 * th * sin(i) * (3 * c2 + 3 * e * c1 + e * c3)
    braces = (2 * (3 * th ** 2 - 1) * (w + ar + 1) * sin(f)
              + 3 * (1 - th ** 2) * ((1 - w - ar) * s1 + (w + ar + mpf(1) / 3) * s3))
    centre = 6 * (f - l + e * sin(f))
    tides = 3 * s2 + 3 * e * s1 + e * s3
    dl = -eta ** 3 * gp / (4 * e) * braces
    dg = eta ** 2 * gp / (4 * e) * braces + gp / 4 * ((5 * th ** 2 - 1) * centre + (3 - 5 * th ** 2) * tides)
    dh = -gp / 2 * th * (centre - tides)
    ec, es = (e + de) * cos(l) - e * dl * sin(l), (e + de) * sin(l) + e * dl * cos(l)
    tilt, turn = sin(i / 2) + di / 2 * cos(i / 2), sin(i / 2) * dh
    node = h + atan2(turn, tilt)
    new_l = atan2(es, ec)
    return a + da, hypot(ec, es), 2 * asin(hypot(tilt, turn)), node, l + g + h + dl + dg + dh - new_l - node, new_l


def place(a, e, i, h, g, l):
    x = eccentric(l, e)
    along, across = a * (cos(x) - e), a * sqrt(1 - e * e) * sin(x)
    u, v = along * cos(g) - across * sin(g), along * sin(g) + across * cos(g)
    return matrix([u * cos(h) - v * cos(i) * sin(h), u * sin(h) + v * cos(i) * cos(h), v * sin(i)])


def seen(s, ahead=0):
    """Azimuth and elevation, deg; some seconds ahead on the ellipse that osculates at s."""
    a, e, i, h, g, l = osculating(*mean_at(s))
    x = frames.earth(DAY + (s + ahead) / 86400) * place(a, e, i, h, g, l + sqrt(GM / a ** 3) * ahead)
    lat, lon, height = STATION
    n = A / sqrt(1 - F * (2 - F) * sin(lat) ** 2)
    d = x - matrix([(n + height) * cos(lat) * cos(lon), (n + height) * cos(lat) * sin(lon), ((1 - F) ** 2 * n + height) * sin(lat)])
    outward = d[0] * cos(lon) + d[1] * sin(lon)
    north, east, up = d[2] * cos(lat) - outward * sin(lat), d[1] * cos(lon) - d[0] * sin(lon), outward * cos(lat) + d[2] * sin(lat)
    return degrees(atan2(east, north)) % 360, degrees(atan2(up, hypot(north, east)))


def halved(f, a, b):
    above = f(a) > 0
    while b - a > mpf(10) ** -7:
        m = (a + b) / 2
        a, b = (m, b) if (f(m) > 0) == above else (a, m)
    return (a + b) / 2


def main(name):
    times = [mpf(30 * k) for k in range(2881)]
    heights = [seen(t)[1] for t in times]
    events = []
    for k in range(2880):
        if (heights[k] > 0) != (heights[k + 1] > 0):
            events.append((0 if heights[k + 1] > 0 else 2, halved(lambda t: seen(t)[1], times[k], times[k + 1])))
        if 0 < k and heights[k - 1] < heights[k] >= heights[k + 1] > 0:
            # By the rate of the state's own velocity: the drift of the mean elements has another of second order in J2.
            h = mpf("0.001")
            events.append((1, halved(lambda t: seen(t, h)[1] - seen(t, -h)[1], times[k - 1], times[k + 1])))
    with open(name, "w") as file:
        file.write("# event (0 rise, 1 top, 2 set); s of the day; azimuth and elevation deg. Made by tools/passes_truth.py\n")
        for kind, t in sorted(events, key=lambda x: x[1]):
            file.write(f"{kind},{mp.nstr(t, 12)},{mp.nstr(seen(t)[0], 10)},{mp.nstr(mp.chop(seen(t)[1], mpf(10) ** -6), 10)}\n")


main(sys.argv[1])
