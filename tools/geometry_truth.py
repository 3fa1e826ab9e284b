#!/usr/bin/python3
"""Expected values of the tests of geometry: tests/data/{roots,rays,tangents,heights,arcs,feet,shadows}.csv.

Everything is computed here with 50 digits (python3-mpmath) and without the formulas of the library: roots by
simultaneous iteration and Newton on the rounded coefficients, rays by bisection of the geodetic height, heights by
bisection of the nearest point, arcs by quadrature, the shadow by cutting the Sun's disc into rings whose hidden arcs are
found by bisection. Usage: geometry_truth.py DIRECTORY [roots|rays|ellipses|shadows ...] (two minutes)
"""
import math
import random
import sys

from mpmath import mp, mpf, polyroots, quad, sqrt, sin, cos, pi, asin, atan2, acos

mp.dps = 50
A = mpf(6378137.0)
K = 1 - mpf(0.0033528106647474805)
SUN_RADIUS = mpf("695700e3")
out = sys.argv[1]


def write(name, head, rows):
    with open(f"{out}/{name}.csv", "w") as f:
        f.write("# Made by tools/geometry_truth.py.\n# " + head + "\n")
        for row in rows:
            f.write(",".join(v if isinstance(v, str) else repr(v) if isinstance(v, (int, float)) else repr(float(v))
                             for v in row) + "\n")


# ---- roots ----

def expand(roots, pairs, lead):
    p = [mpf(lead)]
    for r in roots:
        q = [mpf(0)] * (len(p) + 1)
        for i, v in enumerate(p):
            q[i + 1] += v
            q[i] -= v * r
        p = q
    for re, im in pairs:
        q = [mpf(0)] * (len(p) + 2)
        for i, v in enumerate(p):
            q[i + 2] += v
            q[i + 1] -= 2 * re * v
            q[i] += (re * re + im * im) * v
        p = q
    return [float(v) for v in p]


def real_roots(c):
    """Real simple roots of the rounded coefficients, and what rounding these once more would move each by."""
    c = [mpf(v) for v in c]
    n = len(c) - 1
    size = abs(c[0] / c[n]) ** (mpf(1) / n)
    near_one = [v * size ** (i - n) / c[n] for i, v in enumerate(c)]
    found = [size * r.real for r in polyroots(near_one[::-1], maxsteps=2000, extraprec=2000)
             if abs(r.imag) < mpf(10) ** -25 * abs(r)]
    rows = []
    for x in sorted(found):
        slope = sum(i * v * x ** (i - 1) for i, v in enumerate(c) if i)
        rows.append((x, (sum(abs(v * x ** i) for i, v in enumerate(c)) / abs(slope) + abs(x)) * mpf(2) ** -53))
    return rows


def roots_table():
    rng = random.Random(20)
    rows = []
    while len(rows) < 240:
        n = rng.choice([1, 2, 3, 3, 4, 4, 4])
        real = rng.choice([k for k in range(n % 2, n + 1, 2)])
        rs = sorted(rng.choice([-1, 1]) * 10 ** rng.uniform(-3, 3) for _ in range(real))
        if any(abs(a - b) < 1e-3 * max(abs(a), abs(b)) for a, b in zip(rs, rs[1:])):
            continue
        pairs = [(rng.choice([-1, 1]) * 10 ** rng.uniform(-3, 3), 10 ** rng.uniform(-3, 3)) for _ in range((n - real) // 2)]
        c = expand([mpf(r) for r in rs], [(mpf(a), mpf(b)) for a, b in pairs], rng.choice([-1, 1]) * 10 ** rng.uniform(-2, 2))
        rows.append(c)
    # every pattern of signs
    for n in (2, 3, 4):
        for signs in range(2 ** (n + 1)):
            rows.append([(1 + 0.3 * i) * (1 if signs >> i & 1 else -1) for i in range(n + 1)])
    # x in units of 1e+-75 and of 1e+-150, as far as the coefficients go
    for s in (1e75, 1e-75):
        rows.append([24 * s ** 4, -50 * s ** 3, 35 * s ** 2, -10 * s, 1.0])
    for s in (1e150, 1e-150):
        rows.append([2 * s * s, -3 * s, 1.0])
        rows.append([-s / 1e10, 0.0, 0.0, 1e-10])
    # turning points that lie close together as seen from the largest root
    rows.append([-8e-5, -4.0, 6e4, -2.25e6, -0.0625])
    rows.append([8.75e-6, 0.0, -7.25e7, 1.5e6, 1.5e-4])
    # roots that lie far apart
    rows.append([-0.07, -4e-58, -4e-55, -0.1, 1.5e-33])
    table = []
    for c in rows:
        found = real_roots(c)
        padded = [float(v) for r in found for v in r] + [0.0] * (8 - 2 * len(found))
        table.append([len(c) - 1] + c + [0.0] * (5 - len(c)) + [len(found)] + padded)
    write("roots", "order, c0..c4, number of roots, then four times root and the error that rounding c alone makes", table)


# ---- the ellipsoid ----

def eberly(z0, z1, r0):
    """On which side of an ellipse a point lies, and the root of D. Eberly's function, which gives the nearest point."""
    g = z0 * z0 + z1 * z1 - 1
    lo, hi = z1 - 1, mpf(0) if g < 0 else sqrt(r0 * r0 * z0 * z0 + z1 * z1) - 1
    for _ in range(190):
        s = (lo + hi) / 2
        if (r0 * z0 / (s + r0)) ** 2 + (z1 / (s + 1)) ** 2 - 1 > 0:
            lo = s
        else:
            hi = s
    return g, lo


def height(p):
    """Distance from the ellipsoid, negative inside, and the geographic latitude of the nearest point."""
    x, z = sqrt(p[0] ** 2 + p[1] ** 2), abs(p[2])
    b = A * K
    r0 = (A / b) ** 2
    z0, z1 = x / A, z / b
    g, s = eberly(z0, z1, r0)
    fx, fz = r0 * x / (s + r0), z / (s + 1)
    return (sqrt((fx - x) ** 2 + (fz - z) ** 2) if g > 0 else -sqrt((fx - x) ** 2 + (fz - z) ** 2)), atan2(r0 * fz, fx)


def unit(v):
    n = sqrt(sum(c * c for c in v))
    return [c / n for c in v]


def at(p, w, t):
    return [a + t * b for a, b in zip(p, w)]


def lowest(p, w):
    """Smallest height along the line, by golden section around the closest approach to the centre."""
    mid = -sum(a * b for a, b in zip(p, w))
    lo, hi = mid - mpf(10) ** 5, mid + mpf(10) ** 5
    f = lambda t: height(at(p, w, t))[0]
    # The derivative of the height is the direction against the vertical: bisection.
    def slope(t):
        q = at(p, w, t)
        lat = height(q)[1] * (1 if q[2] >= 0 else -1)
        lon = atan2(q[1], q[0])
        return cos(lat) * cos(lon) * w[0] + cos(lat) * sin(lon) * w[1] + sin(lat) * w[2]
    for _ in range(110):
        m = (lo + hi) / 2
        if slope(m) > 0:
            hi = m
        else:
            lo = m
    return (lo + hi) / 2, f((lo + hi) / 2)


def lines():
    rng = random.Random(8)
    named = [((7e6, 1e5, 1.2e6), (-0.9, 0.05, -0.1)), ((7e6, 1e5, 1.2e6), (-0.38, 0.9, 0.1)),
             ((0.0, 0.0, 7e6), (0.3, 0.0, -1.0)), ((1e5, 0.0, -8e6), (1.0, 0.1, 0.02)),  # above the poles
             ((0.0, 0.0, 6.4e6), (1.0, 0.0, 0.0)), ((0.0, 3e5, -6.5e6), (0.0, 1.0, 0.0)),
             ((42164172.0, 0.0, 0.0), (-1.0, 0.1, 0.05)), ((4e6, 3e6, 2e6), (0.2, -0.5, 0.9)),  # from inside
             ((1e9, 2e6, -3e6), (-1.0, 0.0, 0.001)), ((7e6, 0.0, 0.0), (0.5, 0.5, 0.5))]  # from afar, away
    for _ in range(30):
        d = unit([mpf(rng.gauss(0, 1)) for _ in range(3)])
        r = 6378137.0 + 10 ** rng.uniform(5.2, 7.6)
        pos = tuple(float(r * c) for c in d)
        to = unit([mpf(rng.gauss(0, 1)) for _ in range(3)])
        aim = [c * rng.uniform(5.5e6, 7.5e6) for c in to]
        named.append((pos, tuple(float(a - b) / 1e7 for a, b in zip(aim, pos))))
    return named


def rays_tables():
    meets, heights, tangents = [], [], []
    for n, (pos, dir_) in enumerate(lines()):
        p, w = [mpf(v) for v in pos], unit([mpf(v) for v in dir_])
        for margin in (0.0, 12345.0, -20000.0):
            a = A + mpf(margin)
            s = lambda v: [v[0], v[1], v[2] / K]
            P, W = s(p), s(w)
            qa, qb, qc = sum(c * c for c in W), sum(x * y for x, y in zip(P, W)), sum(c * c for c in P) - a * a
            d = qb * qb - qa * qc
            t = [(-qb - sqrt(d)) / qa, (-qb + sqrt(d)) / qa] if d > 0 else []
            meets.append(list(pos) + list(dir_) + [margin, len(t)] + t + [0.0] * (2 - len(t)))
        t0, h0 = lowest(p, w)
        core = sqrt(sum(c * c for c in at(p, w, t0)))
        if core > 1e5:
            tangents.append(list(pos) + list(dir_) + [t0, h0])
        for h in (0.0, 150e3, 1.2e6, float(h0) + 1.0, float(h0) - 1.0, -9e4):
            if not -1e5 <= h <= 1e9 or core < 1e5:
                continue
            found = []
            if h0 < h:
                for side in (-1, 1):
                    near, far = t0, t0 + side * mpf(10) ** 11
                    for _ in range(150):
                        m = (near + far) / 2
                        if height(at(p, w, m))[0] < h:
                            near = m
                        else:
                            far = m
                    found.append(near)
            heights.append(list(pos) + list(dir_) + [h, len(found)] + found + [0.0] * (2 - len(found)))
    write("rays", "position m [3], direction [3], margin m, number of points, t m [2]", meets)
    write("heights", "position m [3], direction [3], height m, number of points, t m [2]", heights)
    write("tangents", "position m [3], direction [3], t m, height m", tangents)


# ---- ellipses ----

def ellipse_tables():
    rng = random.Random(4)
    arcs = [[6378137.0, float(A * K), 0.0, float(pi / 2)]]
    for b in (1.0, 0.9999999, 0.9966, 0.9901, 0.9899, 0.5, 0.1, 1e-3, 1e-8):
        arcs += [[2.0, 2.0 * b, rng.uniform(-8, 8), rng.uniform(-8, 8)], [2.0, 2.0 * b, 0.0, rng.uniform(0, 1e-6)],
                 [2.0, 2.0 * b, 1.0, -2.0]]
    rows = []
    for a, b, b1, b2 in arcs:
        f = lambda t: sqrt((a * sin(t)) ** 2 + (b * cos(t)) ** 2)
        cuts = sorted({mpf(b1), mpf(b2)} | {k * pi / 2 for k in range(-8, 9) if min(b1, b2) < k * pi / 2 < max(b1, b2)}
                      | {k * pi / 2 + s * mpf(10) ** -e for k in range(-8, 9) for s in (-1, 1) for e in range(1, 10)
                         if min(b1, b2) < k * pi / 2 + s * mpf(10) ** -e < max(b1, b2)})
        rows.append([a, b, b1, b2, quad(f, cuts) * (1 if b2 > b1 else -1)])
    write("arcs", "a, b, eccentric angles rad [2], length", rows)

    rows = []
    for _ in range(60):
        b = rng.choice([1.0, rng.uniform(0.01, 1), 1 - 10 ** rng.uniform(-8, -1), 10 ** rng.uniform(-6, 0)])
        x, y = rng.uniform(-2, 2) * 10 ** rng.uniform(-6, 1), rng.uniform(-2, 2) * 10 ** rng.uniform(-6, 1)
        X, Y, B = mpf(abs(x)), mpf(abs(y)), mpf(b)
        z0, z1, r0 = X, Y / B, 1 / B ** 2
        g, s = eberly(z0, z1, r0)
        fx, fy = r0 * X / (s + r0), Y / (s + 1)
        d = sqrt((fx - X) ** 2 + (fy - Y) ** 2) * (1 if g > 0 else -1)
        rows.append([1.0, b, x, y, fx * (1 if x > 0 else -1), fy * (1 if y > 0 else -1), d])
    write("feet", "a, b, point [2], nearest point [2], distance (negative inside)", rows)


# ---- eclipse: doubles are enough here, the rays are exact ----

def hidden(pos, w, a):
    k = float(K)
    P = (pos[0], pos[1], pos[2] / k)
    W = (w[0], w[1], w[2] / k)
    qa = sum(c * c for c in W)
    t0 = -sum(x * y for x, y in zip(P, W)) / qa
    m = [x + t0 * y for x, y in zip(P, W)]
    return t0 > 0 and sum(c * c for c in m) < a * a


def shadow(pos, sun, margin):
    a = float(A) + margin
    s = [x - y for x, y in zip(sun, pos)]
    d = math.sqrt(sum(c * c for c in s))
    s = [c / d for c in s]
    r = math.sqrt(sum(c * c for c in pos))
    alpha = math.asin(float(SUN_RADIUS) / d)
    up = [c / r for c in pos]
    e = [u - sum(x * y for x, y in zip(up, s)) * v for u, v in zip(up, s)]
    n = math.sqrt(sum(c * c for c in e))
    e = [c / n for c in e]  # away from the Earth: the limb is met once in each half turn
    f = [s[1] * e[2] - s[2] * e[1], s[2] * e[0] - s[0] * e[2], s[0] * e[1] - s[1] * e[0]]

    def direction(rho, phi):
        c, q = math.cos(rho), math.sin(rho)
        return [c * x + q * (math.cos(phi) * y + math.sin(phi) * z) for x, y, z in zip(s, e, f)]

    total = 0.0
    rings = 400
    for i in range(rings):
        rho = alpha * (i + 0.5) / rings
        for side in (-1.0, 1.0):
            top, bottom = hidden(pos, direction(rho, 0.0), a), hidden(pos, direction(rho, side * math.pi), a)
            if top == bottom:
                arc = math.pi if top else 0.0
            else:
                lo, hi = 0.0, math.pi
                for _ in range(40):
                    m = 0.5 * (lo + hi)
                    if hidden(pos, direction(rho, side * m), a) == bottom:
                        hi = m
                    else:
                        lo = m
                arc = math.pi - lo
            total += arc * math.sin(rho)
    return 1.0 - total * (alpha / rings) / (2 * math.pi * (1 - math.cos(alpha)))


def shadow_table():
    rng = random.Random(6)
    rows = []
    au = 149597870700.0
    while len(rows) < 60:
        dec = math.radians(rng.choice([-23.4, 0.0, 23.4, 11.0]))
        sun = [au * rng.uniform(0.983, 1.017) * math.cos(dec), 0.0, au * math.sin(dec)]
        r = rng.choice([6.55e6, 6.8e6, 7.2e6, 2.66e7, 4.2164172e7, 1e8, 3.8e8])
        margin = rng.choice([0.0, 0.0, 25e3])
        # a point whose Sun stands near the limb: turn about until the fraction is between 0 and 1
        for _ in range(400):
            theta = math.pi - math.asin(6.37e6 / r) + rng.uniform(-1, 1) * 0.006
            node = rng.uniform(0, 2 * math.pi)
            u = [c / au for c in sun]
            n = math.sqrt(sum(c * c for c in u))
            u = [c / n for c in u]
            v = [-u[2], 0.0, u[0]]
            w = [0.0, 1.0, 0.0]
            pos = [r * (math.cos(theta) * x + math.sin(theta) * (math.cos(node) * y + math.sin(node) * z))
                   for x, y, z in zip(u, v, w)]
            if pos[0] ** 2 + pos[1] ** 2 + (pos[2] / float(K)) ** 2 <= (float(A) + margin) ** 2:
                continue
            fraction = shadow(pos, sun, margin)
            if 0.0 < fraction < 1.0:
                rows.append(pos + sun + [margin, fraction])
                break
    write("shadows", "satellite m [3], Sun m [3], margin m, visible part of the Sun's disc", rows)



TABLES = {"roots": roots_table, "rays": rays_tables, "ellipses": ellipse_tables, "shadows": shadow_table}
for table in sys.argv[2:] or TABLES:
    TABLES[table]()
