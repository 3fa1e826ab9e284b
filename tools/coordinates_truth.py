#!/usr/bin/env python3
"""True values of coordinates and orbits, with mpmath and 50 digits: tools/coordinates_truth.py tests/data

Each file is a table; its first line says the units. Angles and elements of a row are doubles; what is true of them has 20
digits. Rates come from differences over 1e-20 s, never from formulas for rates.
"""
import random
import sys

from mpmath import mp, mpf, sin, cos, atan2, sqrt, pi, hypot, findroot, quad, acos, sinh, cosh, tanh, atanh, radians, degrees

mp.dps = 50
A, F = mpf(6378137), mpf(0.0033528106647474805)  # the model's doubles
K = 1 - F
E2 = F * (2 - F)
GM = mpf(3.9860044e14)
DT = mpf(10) ** -20


def d(x):
    """The double next to x."""
    return mpf(float(x))


def turn(x):
    return x % 360


def text(values):
    return ",".join(mp.nstr(v, 20) if isinstance(v, mpf) else repr(v) for v in values)


def write(folder, name, header, rows):
    with open(f"{folder}/{name}.csv", "w") as file:
        file.write(f"# {header}. Made by tools/coordinates_truth.py\n")
        for row in rows:
            file.write(text(row) + "\n")


def forward(lat, lon, h):
    s, c = sin(radians(lat)), cos(radians(lat))
    n = A / sqrt(1 - E2 * s * s)
    return [(n + h) * c * cos(radians(lon)), (n + h) * c * sin(radians(lon)), (K * K * n + h) * s]


def moved(x, v, t):
    return [a + b * t for a, b in zip(x, v)]


def rate(after, before):
    return [(a - b) / DT for a, b in zip(after, before)]


def inverse(pos, lat, h):
    """Geodetic coordinates near a start, from the two equations of the meridian."""
    p = hypot(pos[0], pos[1])

    def equations(u, v):
        n = A / sqrt(1 - E2 * sin(u) ** 2)
        return [(n + v) * cos(u) - p, (K * K * n + v) * sin(u) - pos[2]]
    u, v = findroot(equations, (radians(mpf(lat)), mpf(h)), tol=mpf(10) ** -70, maxsteps=60, verify=False)
    return [degrees(u), degrees(atan2(pos[1], pos[0])), v]


def geodetic_rows():
    r = random.Random(1)
    places = [(r.uniform(-90, 90), r.uniform(-180, 360), h) for h in
              [0.0, 800e3, 36e6, 1e9, -1e3, 20e6] * 12 for _ in (1,)]
    places += [(r.uniform(-89, 89), r.uniform(-180, 360), r.uniform(-6.3e6, -5e5)) for _ in range(30)]
    places += [(89.9999999, 10.0, 7e5), (-89.99999, 200.0, 7e5), (1e-9, 0.0, 5e5), (-1e-7, 90.0, -6.3e6), (45.0, 359.99, -1e6)]
    for lat, lon, h in places:
        rates = [r.uniform(-0.1, 0.1), r.uniform(-0.1, 0.1), r.uniform(-8e3, 8e3)]
        start = [mpf(lat), mpf(lon), mpf(h)]
        pos = forward(*start)
        vel = rate(forward(*moved(start, map(mpf, rates), DT)), pos)
        pos_d, vel_d = [d(x) for x in pos], [d(x) for x in vel]
        back = inverse(pos_d, lat, h)
        back_rates = rate(inverse(moved(pos_d, vel_d, DT), back[0], back[2]), back)
        yield [lat, lon, h] + rates + pos + vel + [back[0], turn(back[1]), back[2]] + back_rates


def polar(v):
    return [degrees(atan2(v[1], v[0])), degrees(atan2(v[2], hypot(v[0], v[1]))), sqrt(sum(x * x for x in v))]


def radec_rows():
    r = random.Random(2)
    rows = []
    with mp.workdps(100):  # rates of what is far: small changes of large numbers
        for size in [7e6, 4.2e7, 1.5e11, 1e-3, 3e20] * 8:
            pos = [d(r.gauss(0, 1) * size) for _ in range(3)]
            vel = [d(r.gauss(0, 5e3)) for _ in range(3)]
            there = polar(pos)
            after = polar(moved(pos, vel, DT ** 2))
            rows.append(pos + vel + [turn(there[0])] + there[1:] + [(a - b) / DT ** 2 for a, b in zip(after, there)])
    return rows


def topocentric_rows():
    r = random.Random(3)

    def seen(origin, pos):
        lat, lon = radians(origin[0]), radians(origin[1])
        x, y, z = (a - b for a, b in zip(pos, forward(*origin)))
        north = -sin(lat) * cos(lon) * x - sin(lat) * sin(lon) * y + cos(lat) * z
        east = -sin(lon) * x + cos(lon) * y
        up = cos(lat) * cos(lon) * x + cos(lat) * sin(lon) * y + sin(lat) * z
        return polar([north, east, up])

    def row(origin, pos, vel):
        there = seen(origin, pos)
        return origin + pos + vel + [turn(there[0])] + there[1:] + rate(seen(origin, moved(pos, vel, DT)), there)
    for _ in range(40):
        origin = [mpf(r.uniform(-90, 90)), mpf(r.uniform(-180, 360)), mpf(r.uniform(-400, 9000))]
        pos = [d(x) for x in forward(origin[0] + r.gauss(0, 8), origin[1] + r.gauss(0, 8), r.choice([5e5, 8e5, 2e7]))]
        yield row(origin, pos, [d(r.gauss(0, 4e3)) for _ in range(3)])
    yield row([mpf(48), mpf(11), mpf(600)], [mpf("5.2e6"), mpf("1.5e6"), mpf("4.9e6")], [mpf(-4000), mpf(3000), mpf(3200)])


def eccentric(m, e):
    if e < 1:
        x = m + e * sin(m) if e < 0.8 else (pi if m > 0 else -pi) if m else mpf(0)
        for _ in range(200):
            step = (x - e * sin(x) - m) / (1 - e * cos(x))
            x -= step
            if abs(step) < mpf(10) ** -45 * (1 + abs(x)):
                return x
    x = min(mp.cbrt(6 * abs(m)), max(mpf(2), mp.asinh(mpf('2.2') * abs(m))))  # from the right Newton falls
    for _ in range(300):
        step = (e * sinh(x) - x - abs(m)) / (e * cosh(x) - 1)
        x -= step
        if abs(step) < mpf(10) ** -45 * (1 + abs(x)):
            return x if m > 0 else -x
    raise SystemExit("no anomaly")


def place(a, e, i, node, perigee, m):
    x = eccentric(m, e)
    if e < 1:
        along, across = a * (cos(x) - e), a * sqrt(1 - e * e) * sin(x)
    else:
        along, across = a * (cosh(x) - e), -a * sqrt(e * e - 1) * sinh(x)
    u = [along * cos(perigee) - across * sin(perigee), along * sin(perigee) + across * cos(perigee)]
    return [u[0] * cos(node) - u[1] * cos(i) * sin(node), u[0] * sin(node) + u[1] * cos(i) * cos(node), u[1] * sin(i)]


def state(elements):
    a, e = elements[0], elements[1]
    i, node, perigee, m = (radians(x) for x in elements[2:])
    if e < 1:
        m = m - 2 * pi * mp.nint(m / (2 * pi))
    n = sqrt(GM / abs(a) ** 3)
    here = place(a, e, i, node, perigee, m)
    return here + rate(place(a, e, i, node, perigee, m + n * DT), here)


def cross(a, b):
    return [a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]]


def dot(a, b):
    return sum(x * y for x, y in zip(a, b))


def elements(pos, vel):
    """By the vector of eccentricity."""
    r, h = sqrt(dot(pos, pos)), cross(pos, vel)
    ecc = [x / GM - y / r for x, y in zip(cross(vel, h), pos)]
    e = sqrt(dot(ecc, ecc))
    a = 1 / (2 / r - dot(vel, vel) / GM)
    node = [-h[1], h[0], mpf(0)]
    hn = [x / sqrt(dot(h, h)) for x in h]

    def angle(p, q):
        return atan2(dot(cross(p, q), hn), dot(p, q))
    nu = angle(ecc, pos)
    if e < 1:
        x = 2 * atan2(sqrt(1 - e) * sin(nu / 2), sqrt(1 + e) * cos(nu / 2))
        m = turn(degrees(x - e * sin(x)))
    else:
        x = 2 * atanh(sqrt((e - 1) / (e + 1)) * mp.tan(nu / 2))
        m = degrees(e * sinh(x) - x)
    return [a, e, degrees(acos(hn[2])), turn(degrees(atan2(node[1], node[0]))), turn(degrees(angle(node, ecc))), m]


def kepler_rows():
    r = random.Random(4)
    for k in range(60):
        e = [1e-6, 0.001, 0.02, 0.3, 0.7, 0.95][k % 6]
        el = [r.uniform(6.8e6, 5e7), e, r.uniform(1, 179), r.uniform(0, 360), r.uniform(0, 360), r.uniform(-180, 180)]
        if k % 12 == 0:
            el[5] += 36000
        yield el + list(state([mpf(x) for x in el])) + elements(*halves([d(x) for x in state([mpf(x) for x in el])]))
    for k in range(24):
        el = [-r.uniform(5e6, 5e7), 1 + 10 ** r.uniform(-2, 1), r.uniform(1, 179), r.uniform(0, 360), r.uniform(0, 360), r.uniform(-400, 400)]
        yield el + list(state([mpf(x) for x in el])) + elements(*halves([d(x) for x in state([mpf(x) for x in el])]))


def halves(x):
    return x[:3], x[3:]


def geodesic(lat1, lon1, lat2, lon2, start):
    """The path whose azimuth at the first point lies near `start` (deg), by quadrature."""
    if abs(lat1) < abs(lat2):  # backwards, so that every azimuth at the first point reaches the other latitude
        back = geodesic(lat2, lon2, lat1, lon1, 180 + sphere_azimuth(lat1, lon1, lat2, lon2, False))
        return back and [back[0], turn(back[2] + 180), turn(back[1] + 180)]
    b1, b2 = (atan2(K * sin(radians(x)), cos(radians(x))) for x in (lat1, lat2))
    ep2 = E2 / (1 - E2)
    wanted = radians((lon2 - lon1 + 180) % 360 - 180)

    def parts(alpha):
        s0 = sin(alpha) * cos(b1)
        c0 = hypot(cos(alpha), sin(alpha) * sin(b1))
        along1 = cos(alpha) * cos(b1)
        along2 = sqrt(max(mpf(0), along1 ** 2 + cos(b2) ** 2 - cos(b1) ** 2)) * (1 if rising else -1)
        s1, s2 = atan2(sin(b1), along1), atan2(sin(b2), along2)
        if s2 < s1:
            s2 += 2 * pi
        w1, w2 = (atan2(s0 * sin(s), cos(s)) for s in (s1, s2))
        w12 = w2 - w1
        while s0 > 0 and w12 < 0:
            w12 += 2 * pi
        while s0 < 0 and w12 > 0:
            w12 -= 2 * pi
        k2 = ep2 * c0 ** 2
        third = quad(lambda s: (2 - F) / (1 + K * sqrt(1 + k2 * sin(s) ** 2)), [s1, (s1 + s2) / 2, s2])
        return w12 - F * s0 * third, s1, s2, k2, s0, along2

    def miss(alpha):
        x = parts(alpha)[0] - wanted
        return x - 2 * pi * mp.nint(x / (2 * pi))
    best = None
    for rising in (True, False):
        try:
            alpha = findroot(miss, (radians(start), radians(start) + mpf(10) ** -9), tol=mpf(10) ** -60, maxsteps=80, verify=False)
            if abs(miss(alpha)) > mpf(10) ** -35 or abs(mp.re(alpha) - radians(start)) > mpf("0.02") or mp.im(alpha) != 0:
                continue
            _, s1, s2, k2, s0, along2 = parts(alpha)
        except (ValueError, ZeroDivisionError, TypeError):
            continue
        s = A * K * quad(lambda x: sqrt(1 + k2 * sin(x) ** 2), [s1, (s1 + s2) / 2, s2])
        if best is None or s < best[0]:
            best = [s, turn(degrees(alpha)), turn(degrees(atan2(s0, along2)))]
    return best


def sphere_azimuth(lat1, lon1, lat2, lon2, first=True):
    if not first:
        return sphere_azimuth(lat2, lon2, lat1, lon1) + 180
    p1, p2, dl = (mp.radians(x) for x in (lat1, lat2, lon2 - lon1))
    return degrees(atan2(sin(dl) * cos(p2), cos(p1) * sin(p2) - sin(p1) * cos(p2) * cos(dl)))


def geodesic_rows():
    r = random.Random(5)
    pairs = []
    for k in range(60):
        lat1, lon1 = r.uniform(-89, 89), r.uniform(-180, 360)
        spread = [60, 8, 0.5, 1e-3, 1e-5][k % 5]
        pairs.append((lat1, lon1, max(-89.9, min(89.9, lat1 + r.uniform(-spread, spread))),
                      max(-360.0, min(360.0, lon1 + r.uniform(-spread, spread))), None))
    # Near the antipode: starts as published tables have them.
    pairs += [(-30.0, 0.0, 29.9, 179.8, 161.890524736327), (0.0, 0.0, 0.5, 179.7, 15.556882793491),
              (27.2, 0.0, -27.1, 179.6, 36.313034685680), (40.6, -73.8, 51.6, -0.5, 51.198882845580)]
    # Latitudes of one cosine beside the equator, of one sine beside the poles.
    pairs += [(5e-7, 0.0, -1e-7, 178.9, None), (3e-7, 10.0, 2e-7, 170.0, None), (4e-7, 0.0, 1e-7, 1e-6, None),
              (-89.9999995, -360.0, 89.9999999, -250.0, None), (89.9999995, 20.0, 89.9999999, 130.0, None)]
    for lat1, lon1, lat2, lon2, start in pairs:
        found = geodesic(*(mpf(x) for x in (lat1, lon1, lat2, lon2)),
                         mpf(start) if start is not None else sphere_azimuth(*(mpf(x) for x in (lat1, lon1, lat2, lon2))))
        if found is not None:
            yield [lat1, lon1, lat2, lon2] + found


def grid_rows():
    """The meridian's arc continued to complex latitudes: exact."""
    r = random.Random(6)
    e = sqrt(E2)
    for _ in range(40):
        lat, zone = r.uniform(-84, 84), r.randint(1, 60)
        lon = zone * 6 - 183 + r.uniform(-6, 6)
        phi = radians(mpf(lat))
        psi = mp.asinh(mp.tan(phi)) - e * atanh(e * sin(phi))
        want = mp.mpc(psi, radians(mpf(lon) - (zone * 6 - 183)))
        z = mp.mpc(phi, radians(mpf(lon) - (zone * 6 - 183)) * cos(phi))
        for _ in range(60):
            got = mp.asinh(mp.tan(z)) - e * atanh(e * sin(z))
            step = (got - want) / ((1 - E2) / ((1 - E2 * sin(z) ** 2) * cos(z)))
            z -= step
            if abs(step) < mpf(10) ** -45:
                break
        arc = quad(lambda x: A * (1 - E2) / (1 - E2 * sin(x) ** 2) ** mpf(1.5), [0, z])
        scale = mpf(9996) / 10000
        yield [lat, lon, zone, 1 if lat >= 0 else 0, 500000 + scale * mp.im(arc), scale * mp.re(arc) + (0 if lat >= 0 else 10 ** 7)]


def anomaly_rows():
    r = random.Random(7)
    for k in range(120):
        e = r.choice([r.random(), 1 - 10 ** r.uniform(-12, 0), 0.0])
        m = r.choice([r.uniform(-3.14159, 3.14159), 10 ** r.uniform(-14, 0.49)])
        yield [m, e, eccentric(mpf(m), mpf(e))]
    for k in range(60):
        e, m = 1 + 10 ** r.uniform(-10, 3), 10 ** r.uniform(-14, 4)
        yield [m, e, eccentric(mpf(m), mpf(e))]


def main(folder):
    write(folder, "geodetic", "lat lon deg; h m; rates deg/s deg/s m/s; pos m; vel m/s; then lat lon h and rates of the rounded pos and vel", geodetic_rows())
    write(folder, "radec", "pos m; vel m/s; ra dec deg; distance m; rates deg/s deg/s m/s", radec_rows())
    write(folder, "topocentric", "origin deg deg m; pos m; vel m/s; azimuth elevation deg; range m; rates deg/s deg/s m/s", topocentric_rows())
    write(folder, "kepler", "a m; e; i node perigee anomaly deg; pos m; vel m/s; then the elements of the rounded pos and vel", kepler_rows())
    write(folder, "geodesics", "lat1 lon1 lat2 lon2 deg; distance m; azimuths deg", geodesic_rows())
    write(folder, "grid", "lat lon deg; zone; 1 north; easting northing m", grid_rows())
    write(folder, "anomalies", "mean anomaly rad; eccentricity; eccentric or hyperbolic anomaly rad", anomaly_rows())


if __name__ == "__main__":
    main(sys.argv[1])
