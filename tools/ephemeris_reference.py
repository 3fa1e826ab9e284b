#!/usr/bin/env python3
"""Independent values for the ephemerides: the published formulas once more, term by term, in 40-digit arithmetic.

Reads the coefficients from src/ephemerides/*_tables.h and writes the values of the tests:
    python3 tools/ephemeris_reference.py src/ephemerides > tests/data/ephemeris.csv
Every sine is taken of its own argument; angles are reduced by the true 2 pi. Needs python3-mpmath.
"""
import re
import sys

from mpmath import atan2, cos, cosm, fmod, matrix, mp, mpf, pi, sin, sqrt

mp.dps = 40
DATES = [33282.5, 41317.25, 51544.5, 60676.75, 73050.1, 88068.0]  # MJD: 1950 to 2099


def table(text, name):
    """Numbers of `constexpr ... name = {...};` as nested lists."""
    body = re.search(r"\b%s(?:\[[^\]]*\])* = (.*?);" % name, text, re.S).group(1)
    body = re.sub(r"//[^\n]*", "", body)
    body = body.replace("{", "[").replace("}", "]")
    return to_mpf(eval(body))


def to_mpf(x):
    return [to_mpf(y) for y in x] if isinstance(x, list) else mpf(float(x))


def read(path):
    with open(path) as stream:
        return stream.read()


def equinox(julian):
    return (mpf("0.035") + mpf("0.00085") * (julian - mpf("1949.9997904423"))) * pi / 43200


def dot(rows, v):
    return [sum(a * b for a, b in zip(row, v)) for row in rows]


def product(a, b):
    return [[sum(a[i][k] * b[k][j] for k in range(3)) for j in range(3)] for i in range(3)]


def turn(axis, angle):
    c, s = cos(angle), sin(angle)
    if axis == "y":
        return [[c, 0, -s], [0, 1, 0], [s, 0, c]]
    return [[c, s, 0], [-s, c, 0], [0, 0, 1]]


def precession(epoch0, epoch1):
    """Lieske (1979), arcseconds."""
    t0, t = (epoch0 - 2000) / 100, (epoch1 - epoch0) / 100
    d = lambda text: mpf(text)
    w = d("2306.2181") + d("1.39656") * t0 - d("0.000139") * t0**2
    zeta = w * t + (d("0.30188") - d("0.000344") * t0) * t**2 + d("0.017998") * t**3
    z = w * t + (d("1.09468") + d("0.000066") * t0) * t**2 + d("0.018203") * t**3
    theta = ((d("2004.3109") - d("0.85330") * t0 - d("0.000217") * t0**2) * t
             - (d("0.42665") + d("0.000217") * t0) * t**2 - d("0.041833") * t**3)
    arcsec = pi / 648000
    return product(turn("z", -z * arcsec), product(turn("y", theta * arcsec), turn("z", -zeta * arcsec)))


def earth(text, date, deqx):
    """Stumpff (1980)."""
    get = lambda name: table(text, name)
    T = (date - mpf("15019.5")) / 36525
    quad = lambda c: c[0] + c[1] * T + c[2] * T**2
    L, g, LM, F, *l = [quad(c) for c in get("kDcfel")]
    eps = quad(get("kDceps"))
    slow = [quad(c) for c in get("kCcsel")]
    e, w, N, ek, inc = slow[0], slow[1:5], slow[5:9], slow[9:13], slow[13:17]
    dlon = drad = dlon_ = drad_ = mpf(0)
    for k, (amp, phase, rate) in enumerate(get("kCcsec")):
        dlon += (amp + (T * get("kCcsec3") if k == 2 else 0)) * sin(phase + T * rate)
    for k, ((phase, rate), c) in enumerate(zip(get("kDcargs"), get("kCcamps"))):
        A = phase + T * rate
        dlon += c[0] * cos(A) + c[1] * sin(A)
        drad += c[2] * cos(A) + c[3] * sin(A)
        if k < 10:
            dlon_ += (c[1] * cos(A) - c[0] * sin(A)) * c[4]
            drad_ += (c[3] * cos(A) - c[2] * sin(A)) * c[4]
    n = get("kCcsgd")
    phi = 2 * e * ((1 - e**2 / 8) * sin(g) + 5 * e * sin(2 * g) / 8 + 13 * e**2 * sin(3 * g) / 24)
    f = g + phi
    chi = (1 - e**2) / (1 + e * cos(f))
    phi_ = 2 * e * n * ((1 + mpf("1.5") * e**2) * cos(f) + e * (mpf("1.25") - sin(f)**2 / 2))
    chi_ = n * e * sin(f) / sqrt(1 - e**2)
    rho = 1 + drad
    r_ = rho * (chi_ + chi * drad_)
    u = rho * chi * (get("kDcsld") + phi_ + dlon_)
    lam = L + phi + dlon
    v = [r_ * cos(lam) - u * sin(lam), r_ * sin(lam) + u * cos(lam), mpf(0)]
    dLM = dLM_ = dpi = dpi_ = mpf(0)
    for (phase, rate), c in zip(get("kDcargm"), get("kCcampm")):
        A = phase + T * rate
        dLM += c[0] * sin(A)
        dLM_ += c[1] * cos(A)
        dpi += c[2] * cos(A)
        dpi_ -= c[3] * sin(A)
    LMt = LM + dLM
    sigma = get("kCckm") / (1 + dpi)
    a, b = sigma * (get("kCcmld") + dLM_), sigma * dpi_
    vh = [v[0] + a * sin(LMt) + b * cos(LMt), v[1] - a * cos(LMt) + b * sin(LMt), -sigma * get("kCcfdi") * cos(F)]
    R, beta = chi * rho, get("kCcim") * sin(F)
    ph = [R * cos(lam) - sigma * cos(beta) * cos(LMt), R * sin(lam) - sigma * cos(beta) * sin(LMt), -sigma * sin(beta)]
    vb, pb = [get("kDc1mme") * x for x in vh], [get("kDc1mme") * x for x in ph]
    for k in range(4):
        theta = l[k] + 2 * ek[k] * sin(l[k] - w[k])
        mv, mp_ = get("kCcpamv")[k], get("kCcpam")[k]
        vb[0] += mv * (sin(theta) + ek[k] * sin(w[k]))
        vb[1] -= mv * (cos(theta) + ek[k] * cos(w[k]))
        vb[2] -= mv * inc[k] * cos(l[k] - N[k])
        bk, ak = inc[k] * sin(l[k] - N[k]), mp_ * (1 - ek[k] * cos(l[k] - w[k]))
        pb = [pb[0] - ak * cos(bk) * cos(theta), pb[1] - ak * cos(bk) * sin(theta), pb[2] - ak * sin(bk)]
    epoch = 2000 + (date - mpf("51544.5")) / mpf("365.25")
    q = equinox(epoch)
    out = []
    for x, y, z in (vb, pb, vh, ph):
        y, z = y * cos(eps) - z * sin(eps), y * sin(eps) + z * cos(eps)
        vector = [x - q * y, y + q * x, z]
        out.append(dot(precession(epoch, mpf(deqx)), vector) if deqx > 0 else vector)
    return out


def moon(text, date):
    """Meeus (1984). The rates come from differences of the arguments, not from formulas of derivatives."""
    get = lambda name: table(text, name)
    h = mpf("1e-12")

    def spherical(T):
        deg = pi / 180
        Lp, M, Mp, D, F, Om = [c[0] + c[1] * T + c[2] * T**2 + c[3] * T**3 for c in get("kFund")]
        A = get("kArgA")[0] + get("kArgA")[1] * T
        B = get("kArgB")[0] + get("kArgB")[1] * T + get("kArgB")[2] * T**2
        C = get("kArgC")[0] + get("kArgC")[1] * T
        sines = [sin(x * deg) for x in (A, B, Om, Om + C)]
        Lp, M, Mp, D, F = [x + sum(a * s for a, s in zip(row, sines))
                           for x, row in zip((Lp, M, Mp, D, F), get("kAddit"))]
        E = 1 + get("kEfac")[0] * T + get("kEfac")[1] * T**2
        series = lambda name, f: sum(c * E**abs(int(m)) * f((m * M + mp_ * Mp + d * D + f_ * F) * deg)
                                     for c, m, mp_, d, f_ in get(name))
        w1, w2 = get("kLatfac")
        lon = (Lp + series("kTl", sin)) * deg
        lat = series("kTb", sin) * deg * (1 - w1 * cos(Om * deg) - w2 * cos((Om + C) * deg))
        r = get("kEradau") / sin(series("kTp", cos) * deg)
        return [r * cos(lat) * cos(lon), r * cos(lat) * sin(lon), r * sin(lat)]

    T = (date - mpf("15019.5")) / 36525
    before, here, after = spherical(T - h), spherical(T), spherical(T + h)
    rate = [(b - a) / (2 * h) / mpf("3155760000") for a, b in zip(before, after)]
    t = (date - mpf("51544.5")) / 36525
    o = get("kObliq")
    eps = (o[0] + o[1] * t + o[2] * t**2 + o[3] * t**3) * pi / 648000
    q = equinox(2000 + 100 * t)
    m = [[1, -q * cos(eps), q * sin(eps)], [q, cos(eps), -sin(eps)], [0, sin(eps), cos(eps)]]
    return dot(m, here), dot(m, rate)


def planet(row, text, date):
    """Simon et al. (1994); Kepler's equation solved to the last digit."""
    amas, a3, l3, e3, w3, i3, o3, kp, ca, sa, kq, cl, sl = row
    t = (date - mpf("51544.5")) / 365250
    arcsec = pi / 648000
    angle = lambda c: (3600 * c[0] + c[1] * t + c[2] * t**2) * arcsec
    a, e = a3[0] + a3[1] * t + a3[2] * t**2, e3[0] + e3[1] * t + e3[2] * t**2
    lon, w, inc, node = angle(l3), angle(w3), angle(i3), angle(o3)
    mu = table(text, "kDmu") * t
    for j in range(10):
        if j < 9:
            a += (t if j == 8 else 1) * (ca[j] * cos(kp[j] * mu) + sa[j] * sin(kp[j] * mu)) / 10**7
        lon += (t if j >= 8 else 1) * (cl[j] * cos(kq[j] * mu) + sl[j] * sin(kq[j] * mu)) / 10**7
    M = fmod(lon - w, 2 * pi)
    E = M
    for _ in range(60):
        E -= (E - e * sin(E) - M) / (1 - e * cos(E))
    # In the plane of the orbit, x to the perihelion, then Rz(-node) Rx(-inc) Rz(node - w).
    n = table(text, "kGks") * sqrt((1 + 1 / amas) / a**3)
    b = a * sqrt(1 - e**2)
    flat = [a * (cos(E) - e), b * sin(E), mpf(0)]
    rate = n / (1 - e * cos(E))
    flat_rate = [-a * sin(E) * rate, b * cos(E) * rate, mpf(0)]
    tilt = [[1, 0, 0], [0, cos(inc), -sin(inc)], [0, sin(inc), cos(inc)]]
    m = product(turn("z", -node), product(tilt, turn("z", node - w)))
    se, ce = table(text, "kSineps"), table(text, "kCoseps")
    m = product([[1, 0, 0], [0, ce, -se], [0, se, ce]], m)
    return dot(m, flat), dot(m, flat_rate)


def line(head, vectors):
    print(head, *(mp.nstr(x, 17, min_fixed=0, max_fixed=0) for v in vectors for x in v), sep=",")


def main(folder):
    read_table = lambda name: read("%s/%s_tables.h" % (folder, name))
    print("# Made by tools/ephemeris_reference.py: 40-digit evaluation.")
    print("# Bodies 1 to 8 the planets, 9 the Moon; 10 and 11 the Earth, barycentric and heliocentric, J2000; "
          "12 and 13 the same at the equinox of date.")
    print("body,MJD (TDB),x (AU),y (AU),z (AU),vx (AU/s),vy (AU/s),vz (AU/s)")
    for date in DATES:
        d = mpf(date)
        for body, deqx in ((10, 2000), (12, 0)):
            vb, pb, vh, ph = earth(read_table("earth"), d, deqx)
            line("%d,%r" % (body, date), (pb, vb))
            line("%d,%r" % (body + 1, date), (ph, vh))
        line("9,%r" % date, moon(read_table("moon"), d))
        for k, row in enumerate(table(read_table("planet"), "kPlanets")):
            if date in DATES[::2]:
                line("%d,%r" % (k + 1, date), planet(row, read_table("planet"), d))


if __name__ == "__main__":
    main(sys.argv[1])
