#!/usr/bin/python3
"""Expected places of stars for the tests, by ERFA (python3-erfa): tests/data/star_places.csv.

Space motion and parallax by pmpx, deflection by ldsun, aberration by ab; the observer is the Earth of epv00 with a satellite
added. The first row is ERFA's own test star with its published direction. Usage: star_truth.py DIRECTORY
"""
import math
import sys

import erfa
import numpy as np

AU = 149597870700.0
C = 299792458.0
MAS = math.degrees(1) * 3.6e6
rng = np.random.default_rng(11)


def observer(days):
    h, b = erfa.epv00(2451544.5, days)
    return b["p"] * AU, b["v"] * AU / 86400, h["p"] * AU


def place(star, days, corrections, b, v, h):
    ra, dec, pm_ra, pm_dec, px, rv, epoch = star
    ra, dec = math.radians(ra), math.radians(dec)
    # Without the shift by parallax: an observer at the barycentre, whose light time is added to the date.
    years = (days - epoch) / 365.25
    p = np.array([math.cos(dec) * math.cos(ra), math.cos(dec) * math.sin(ra), math.sin(dec)])
    rate = pm_ra / MAS / math.cos(dec), pm_dec / MAS
    if corrections & 1:
        u = erfa.pmpx(ra, dec, *rate, px / 1000, rv, years, b / AU)
    else:
        u = erfa.pmpx(ra, dec, *rate, px / 1000, rv, years + p @ b / (C * 86400 * 365.25), np.zeros(3))
    r = np.linalg.norm(h)
    if corrections & 4:
        u = erfa.ldsun(u, h / r, r / AU)
    if corrections & 2:
        u = erfa.ab(u, v / C, r / AU, math.sqrt(1 - v @ v / C**2))
    return u / np.linalg.norm(u)


rows = []
days = 2456165.901182685 - 2451544.5
test = (math.degrees(2.71), math.degrees(0.174), 1e-5 * math.cos(0.174) * MAS, 5e-6 * MAS, 100.0, 55.0, 0.5)
rows.append((test, days, 7, *observer(days), np.array([-0.8945846197129387, 0.4119654947594523, 0.17321313258715876])))
for n in range(160):
    days = rng.uniform(-18262, 36524)
    b, v, h = observer(days)
    to = rng.normal(size=3)
    b, v, h = b + 7e6 * to, v + 7e3 * rng.normal(size=3), h + 7e6 * to
    star = (rng.uniform(-360, 360), math.degrees(math.asin(rng.uniform(-1, 1))), rng.uniform(-5e3, 5e3),
            rng.uniform(-5e3, 5e3), rng.uniform(0, 700), rng.uniform(-300, 300), rng.uniform(-9e4, 1e5))
    if n % 8 == 0:  # near the Sun, also behind it
        away = -h / np.linalg.norm(h) + rng.normal(size=3) * 10 ** rng.uniform(-6, -2)
        star = (math.degrees(math.atan2(away[1], away[0])), math.degrees(math.asin(away[2] / np.linalg.norm(away))),
                0.0, 0.0, 0.0, 0.0, days)
    if n % 8 == 1:
        star = star[:6] + (days,)  # epoch of the date
    if n % 8 == 2:
        star = (star[0], math.copysign(89.9999, star[1])) + star[2:]
    corrections = n % 8 if n % 8 != 0 else 4 + n // 8 % 4
    rows.append((star, days, corrections, b, v, h, place(star, days, corrections, b, v, h)))

with open(f"{sys.argv[1]}/star_places.csv", "w") as f:
    f.write("# Made by tools/star_truth.py with ERFA " + erfa.__version__ + ".\n# ra, dec deg; pm_ra cos(dec), pm_dec mas/yr; "
            "parallax mas; velocity km/s; epoch MJD2000; TDB MJD2000; corrections; observer: barycentric m [3], velocity "
            "m/s [3], heliocentric m [3]; place: unit vector J2000 [3]\n")
    for star, days, corrections, b, v, h, u in rows:
        f.write(",".join(repr(float(x)) for x in (*star, days)) + f",{corrections},"
                + ",".join(repr(float(x)) for x in (*b, *v, *h, *u)) + "\n")
