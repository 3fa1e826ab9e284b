#!/usr/bin/env python3
"""Coordinates and orbits against the same formulas in 50 digits, and against laws: rows of docs/accuracy.md.

    python3 tools/accuracy/coordinates.py build/release/libKitLib.so [CASES]
The true values are those of tools/coordinates_truth.py, at random cases other than the ones in tests/data. Motion about an
oblate Earth is integrated here. tools/accuracy/run.sh runs it. Needs python3-mpmath.
"""
import ctypes
import math
import pathlib
import random
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
sys.dont_write_bytecode = True
import coordinates_truth as true
from mpmath import mpf

N = int(sys.argv[2]) if len(sys.argv) > 2 else 500
lib = ctypes.CDLL(sys.argv[1])
dice = random.Random(20991231)
GM, J2, RADIUS = 3.9860044e14, 0.001082626, 6378136.0  # of the default model
OSCULATING, MEAN = 0, 1


def call(name, *arguments, out):
    """Doubles of the last arguments, which are arrays of these lengths; numbers are passed by pointer, lists as arrays."""
    given = [None if a is None else ctypes.byref(ctypes.c_long(a)) if isinstance(a, int) else
             (ctypes.c_double * len(a))(*a) if isinstance(a, (list, tuple)) else ctypes.byref(ctypes.c_double(a))
             for a in arguments]
    results = [(ctypes.c_double * n)() for n in out]
    function = getattr(lib, name)
    function.restype = ctypes.c_long
    if function(None, *given, *results, None) == -1:
        sys.exit(f"coordinates: {name} failed")
    return [list(x) for x in results]


def state_of(elements, kind=OSCULATING):
    pos, vel = call("kl_kepl_to_cart", kind, elements, out=(3, 3))
    return pos, vel


def elements_of(pos, vel, kind=OSCULATING):
    return call("kl_cart_to_kepl", kind, pos, vel, out=(6,))[0]


def exact(values):
    return [mpf(x) for x in values]


def norm(v):
    return true.sqrt(sum(mpf(x) * x for x in v))


def apart(a, b):
    return norm([mpf(x) - y for x, y in zip(a, b)])


def angle(a, b):
    """Of two numbers of degrees, in radians."""
    return true.radians((mpf(a) - b + 180) % 360 - 180)


class Spread:
    def __init__(self):
        self.all = []

    def add(self, x):
        self.all.append(abs(float(x)))

    def cells(self, scale=1.0):
        s = sorted(self.all)
        return " | ".join(f"{s[int(q * (len(s) - 1))] * scale:.3g}" for q in (0.5, 0.99, 1.0))


def row(what, unit, spread, cause, scale=1.0):
    print(f"| {what} | {unit} | {len(spread.all)} | {spread.cells(scale)} | {cause} |", flush=True)


def heading(title, words):
    print(f"\n## {title}\n\n{words}\n\n| quantity | unit | cases | median | 99 % | maximum | what makes it |\n|---|---|---:|---|---|---|---|")


def geodetic():
    for name, low, high in (("-500 to 2000 km", -5e5, 2e6), ("2000 to 100000 km", 2e6, 1e8), ("-6300 to -500 km", -6.3e6, -5e5)):
        there, height, ground, rates = Spread(), Spread(), Spread(), Spread()
        for _ in range(N):
            place = [dice.uniform(-90, 90), dice.uniform(-180, 360), dice.uniform(low, high)]
            speed = [dice.uniform(-0.1, 0.1), dice.uniform(-0.1, 0.1), dice.uniform(-8e3, 8e3)]
            pos, vel = call("kl_geod_to_cart", 2, place + speed, out=(3, 3))
            there.add(apart(pos, true.forward(*exact(place))))
            back = call("kl_cart_to_geod", 2, pos, vel, out=(6,))[0]
            x = true.inverse(exact(pos), *[back[i] for i in (0, 2)])
            m = true.A * (1 - true.E2) / true.sqrt(1 - true.E2 * true.sin(true.radians(x[0])) ** 2) ** 3
            p = true.hypot(*exact(pos[:2]))
            height.add(back[2] - x[2])
            ground.add(true.hypot(angle(back[0], x[0]) * (m + x[2]), angle(back[1], x[1]) * p))
            after = true.inverse(true.moved(exact(pos), exact(vel), true.DT), x[0], x[2])
            rate = true.rate(after, x)
            rates.add(norm([true.radians(back[3] - rate[0]) * (m + x[2]), true.radians(back[4] - rate[1]) * p, back[5] - rate[2]])
                      / max(norm(vel), 1))
        row(f"kl_geod_to_cart, {name}", "nm", there, "rounding of the three coordinates", 1e9)
        row(f"kl_cart_to_geod, {name}: height", "nm", height, "rounding of the position", 1e9)
        row(f"kl_cart_to_geod, {name}: along latitude and longitude", "nm", ground, "rounding of the two angles", 1e9)
        row(f"kl_cart_to_geod, {name}: rates", "1e-16 of the speed", rates, "rounding", 1e16)


def polar():
    radec, rates, look, looks = Spread(), Spread(), Spread(), Spread()
    for _ in range(N):
        pos, vel = [dice.gauss(0, 1e7) for _ in range(3)], [dice.gauss(0, 5e3) for _ in range(3)]
        got = call("kl_cart_to_radec", 2, pos, vel, out=(6,))[0]
        here = true.polar(exact(pos))
        radec.add(true.hypot(angle(got[0], here[0]) * true.cos(true.radians(here[1])), angle(got[1], here[1])))
        after = true.rate(true.polar(true.moved(exact(pos), exact(vel), true.DT)), here)
        rates.add(norm([true.radians(got[3] - after[0]) * true.cos(true.radians(here[1])), true.radians(got[4] - after[1])])
                  * here[2] / norm(vel))
    row("kl_cart_to_radec: direction", "1e-16 rad", radec, "rounding of right ascensions up to 360 deg", 1e16)
    row("kl_cart_to_radec: rates", "1e-16 of the speed", rates, "rounding", 1e16)
    rows = list(true.topocentric_rows())
    for x in rows:
        got = call("kl_ef_to_topocentric", 2, [float(y) for y in x[:3]] + [0.0] * 3, [float(y) for y in x[3:6]],
                   [float(y) for y in x[6:9]], out=(6,))[0]
        look.add(true.hypot(angle(got[0], x[9]) * true.cos(true.radians(x[10])), angle(got[1], x[10])) * x[11])
        looks.add(got[2] - x[11])
    row("kl_ef_to_topocentric: across", "nm", look, "rounding of station and position", 1e9)
    row("kl_ef_to_topocentric: range", "nm", looks, "the same", 1e9)


def anomalies():
    ellipse, hyperbola = Spread(), Spread()
    for name in ("KL_Kepler_ellipse", "KL_Kepler_hyperbola"):
        getattr(lib, name).restype = ctypes.c_double
        getattr(lib, name).argtypes = [ctypes.c_double] * 2
    for _ in range(2 * N):
        closed = dice.random() < 0.5
        e = 1 - 10 ** dice.uniform(-12, 0) if closed else 1 + 10 ** dice.uniform(-10, 3)
        m = 10 ** dice.uniform(-14, 0.49) if closed else 10 ** dice.uniform(-14, 4)
        if closed and not 0 <= e < 1:
            continue
        got = (lib.KL_Kepler_ellipse if closed else lib.KL_Kepler_hyperbola)(m, e)
        x = true.eccentric(mpf(m), mpf(e))
        s, c = (true.sin(x), true.cos(x)) if closed else (true.sinh(x), true.cosh(x))
        unit = mpf(2) ** -53 * ((m + abs(e * s)) / abs(1 - e * c) + abs(x))
        (ellipse if closed else hyperbola).add((got - x) / unit)
    row("KL_Kepler_ellipse, e to 1 - 1e-12", "rounding of M and e", ellipse, "two steps of fifth order")
    row("KL_Kepler_hyperbola, e - 1 from 1e-10 to 1e3", "rounding of M and e", hyperbola, "steps of fourth order")


def random_elements(kind):
    angles = [dice.uniform(0, 180), dice.uniform(0, 360), dice.uniform(0, 360)]
    if kind == "hyperbolas":
        return [-dice.uniform(1e6, 5e7), 1 + 10 ** dice.uniform(-3, 1), *angles, dice.uniform(-300, 300)]
    if kind == "nearly circular":
        return [dice.uniform(6.6e6, 5e7), 10 ** dice.uniform(-16, -1), *angles, dice.uniform(0, 360)]
    return [dice.uniform(6.6e6, 5e7), dice.uniform(0, 0.9), *angles, dice.uniform(0, 360)]


def kepler():
    """States, and there and back; what rounding six true elements to doubles does alone stands beside it."""
    for kind in ("ellipses, e to 0.9", "nearly circular", "hyperbolas"):
        out, back, floor = Spread(), Spread(), Spread()
        for _ in range(N):
            given = random_elements(kind)
            pos, vel = state_of(given)
            r, v = norm(pos), norm(vel)
            x = true.state(exact(given))
            out.add(max(apart(pos, x[:3]) / r, apart(vel, x[3:]) / v))
            again = state_of(elements_of(pos, vel))
            back.add(max(apart(again[0], pos) / r, apart(again[1], vel) / v))
            rounded = true.state([true.d(y) for y in true.elements(exact(pos), exact(vel))])
            floor.add(max(apart(rounded[:3], pos) / r, apart(rounded[3:], vel) / v))
        row(f"kl_kepl_to_cart, {kind}", "1e-16", out, "the anomaly, worth most at the perigee of a long orbit", 1e16)
        row(f"state to elements to state, {kind}", "1e-16", back, "the next row, and both ways", 1e16)
        row(f"the same in 50 digits but for elements rounded to doubles, {kind}", "1e-16", floor,
            "angles of up to 360 deg: half a unit is 5e-16 rad, times (a/r)^2", 1e16)


def mean_round_trips():
    low, wide, speed = Spread(), Spread(), Spread()
    for _ in range(10 * N):
        pos, vel = state_of([7.2e6, dice.uniform(0, 0.01), dice.uniform(0, 180), *[dice.uniform(0, 360) for _ in range(3)]])
        again = state_of(elements_of(pos, vel, MEAN), MEAN)
        low.add(math.dist(again[0], pos))
        speed.add(math.dist(again[1], vel))
        e = dice.uniform(0, 0.75)
        pos, vel = state_of([dice.uniform(6.5e6, 9e6) / (1 - e), e, dice.uniform(0, 180), *[dice.uniform(0, 360) for _ in range(3)]])
        again = state_of(elements_of(pos, vel, MEAN), MEAN)
        wide.add(math.dist(again[0], pos) / math.hypot(*pos))
    row("state to mean elements to state, 7200 km", "nm", low, "three angles of up to 360 deg in doubles: 3.6 nm each", 1e9)
    row("the same, velocity", "1e-12 m/s", speed, "the same", 1e12)
    row("the same, e to 0.75, perigee above 120 km", "1e-16", wide, "the same, more at a perigee", 1e16)


def geodesics():
    length, ends = Spread(), Spread()
    for _ in range(max(20, N // 20)):
        lat1, lon1 = dice.uniform(-89, 89), dice.uniform(-180, 180)
        reach = dice.choice([60, 8, 0.5, 1e-3])
        lat2 = max(-89.9, min(89.9, lat1 + dice.uniform(-reach, reach)))
        lon2 = lon1 + dice.uniform(-reach, reach)
        ours = [x[0] for x in call("kl_geod_distance", lat1, lon1, lat2, lon2, out=(1, 1, 1))]
        x = true.geodesic(*exact([lat1, lon1, lat2, lon2]), mpf(ours[1]))
        if x is None:
            continue
        length.add(ours[0] - x[0])
        ends.add(angle(ours[1], x[1]) * min(x[0], true.A))
    row("kl_geod_distance: length", "nm", length, "rounding of arcs and latitudes", 1e9)
    row("kl_geod_distance: azimuth, at the other end", "nm", ends, "the same", 1e9)


def grid():
    there, back = Spread(), Spread()
    rows = []
    while len(rows) < N / 4:
        true.random.Random, keep = (lambda seed: dice), true.random.Random
        rows += true.grid_rows()
        true.random.Random = keep
    for lat, lon, zone, north, easting, northing in rows:
        z, n = ctypes.c_long(zone), ctypes.c_long()
        e, y = ctypes.c_double(), ctypes.c_double()
        lib.KL_Coticchia_Surace(None, ctypes.byref(ctypes.c_double(lat)), ctypes.byref(ctypes.c_double(lon)), ctypes.byref(z),
                                ctypes.byref(n), ctypes.byref(e), ctypes.byref(y), None)
        there.add(true.hypot(e.value - easting, y.value - northing))
        found = [x[0] for x in call("kl_utm_to_geod", zone, north, float(easting), float(northing), out=(1, 1))]
        back.add(true.hypot(angle(found[0], lat), angle(found[1], lon) * true.cos(true.radians(lat))) * true.A)
    row("KL_Coticchia_Surace", "nm", there, "rounding of northings of up to 9400 km", 1e9)
    row("kl_utm_to_geod", "nm", back, "the same", 1e9)


# ---- laws of mean elements ----

def acceleration(x):
    r2 = x[0] * x[0] + x[1] * x[1] + x[2] * x[2]
    pull = GM / (r2 * math.sqrt(r2))
    f = 1.5 * J2 * RADIUS * RADIUS / r2
    z = 5 * x[2] * x[2] / r2
    return [-pull * x[0] * (1 - f * (z - 1)), -pull * x[1] * (1 - f * (z - 1)), -pull * x[2] * (1 - f * (z - 3))]


def stepped(x, h):
    """Runge and Kutta's method of order 4."""
    def ahead(k, by):
        return [a + by * b for a, b in zip(x, k)]

    def slope(y):
        return y[3:] + acceleration(y)
    k1 = slope(x)
    k2 = slope(ahead(k1, h / 2))
    k3 = slope(ahead(k2, h / 2))
    k4 = slope(ahead(k3, h))
    return [a + h / 6 * (p + 2 * q + 2 * r + s) for a, p, q, r, s in zip(x, k1, k2, k3, k4)]


def swing(elements, revolutions=3):
    """Largest less smallest semi-major axis, eccentricity and inclination: osculating, then mean."""
    pos, vel = state_of(elements)
    x = pos + vel
    period = 2 * math.pi * math.sqrt(elements[0] ** 3 / GM)
    # The slow turn of the perigee is no swing.
    p, c = elements[0] * (1 - elements[1] ** 2), math.cos(math.radians(elements[2]))
    k = 1.5 * J2 * (RADIUS / p) ** 2 * 2 * math.pi / period
    drift = 0.5 * k * (5 * c * c - 1) - abs(k * c)
    seen = [[], []]
    t = 0.0
    k = 0
    while t < revolutions * period:
        h = max(1.0, 6.0 * (math.hypot(*x[:3]) / 7e6) ** 1.5)
        if k % 8 == 0:
            for kind in (OSCULATING, MEAN):
                y = elements_of(x[:3], x[3:], kind)
                w = math.radians(y[4] + y[3] if elements[2] < 90 else y[4] - y[3]) - drift * t
                seen[kind].append((y[0], y[1] * math.cos(w), y[1] * math.sin(w), y[2]))
        x = stepped(x, h)
        t += h
        k += 1
    return [[max(c) - min(c) for c in zip(*s)] for s in seen]


ORBITS = {
    "sun-synchronous, 7200 km": [[7.2e6, 0.001, 98.6, 30.0, w, m] for w in (0.0, 90.0, 200.0) for m in (10.0, 190.0)],
    "polar, 6700 km": [[6.7e6, 0.002, 90.0, 30.0, w, 10.0] for w in (0.0, 90.0, 200.0)],
    "equatorial, 7000 km": [[7.0e6, 0.01, i, 0.0, 60.0, 10.0] for i in (0.0, 0.001)],
    "retrograde, 7500 km": [[7.5e6, 0.02, 179.9, 40.0, 60.0, 10.0]],
    "transfer, e 0.73": [[24.4e6, 0.73, 7.0, 30.0, w, m] for w in (0.0, 178.0) for m in (10.0, 180.0)],
    "Molniya, e 0.74, 63.4 deg": [[26.6e6, 0.74, 63.4, 30.0, w, m] for w in (0.0, 90.0, 270.0) for m in (10.0, 180.0)],
}


def swings():
    print("\n## Mean elements along orbits about an oblate Earth\n\n"
          "Three revolutions with the pull of J2, integrated in small steps: largest less smallest value of the osculating elements -> of the\n"
          "mean ones, the worst of several orbits of a kind. What is left is of second order in J2.\n\n"
          "| orbits | number | semi-major axis, m | vector of eccentricity, 1e-6 | inclination, 1e-6 rad |\n|---|---:|---|---|---|")
    for name, orbits in ORBITS.items():
        found = [swing(x) for x in orbits]
        a, k, h, i = ([max(s[kind][c] for s in found) for kind in (OSCULATING, MEAN)] for c in range(4))
        print(f"| {name} | {len(orbits)} | {a[0]:.0f} -> {a[1]:.0f} | {1e6 * max(k[0], h[0]):.0f} -> {1e6 * max(k[1], h[1]):.2g} | "
              f"{1e6 * math.radians(i[0]):.2g} -> {1e6 * math.radians(i[1]):.2g} |", flush=True)


def main():
    heading("Coordinates and orbits against 50 digits",
            "The same definitions once more with 50 digits, at random cases; rates by differences over 1e-20 s. Rounding of what is given to\n"
            "the call is no error of it.")
    geodetic()
    polar()
    anomalies()
    kepler()
    mean_round_trips()
    geodesics()
    grid()
    swings()


main()
