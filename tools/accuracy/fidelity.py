#!/usr/bin/env python3
"""How far the library is from its own formulas: the same formulas once more in 40 digits at random instants.

    python3 tools/accuracy/fidelity.py build/release/libKitLib.so
Writes rows of the table of docs/accuracy.md. The formulas are those of tools/ephemeris_reference.py and
tools/frame_reference.py, which take every sine of its own argument and differentiate numerically; rotations, TDB and
the conversions between scales are written down here. tools/accuracy/run.sh runs it. Needs python3-mpmath.
"""
import ctypes
import functools
import pathlib
import random
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tools"))
sys.dont_write_bytecode = True
import ephemeris_reference as sky
import frame_reference as frames
from mpmath import acos, atan2, cos, floor, matrix, mp, mpf, pi, sin, sqrt

mp.dps = 40
sky.table = functools.lru_cache(None)(sky.table)
U = mpf(2) ** -53
AU = mpf("1.496e11")
DAY = 86400
TAI, UTC, UT1, GPS = range(4)
FIRST, LAST = -18260.0, 36522.0
N = int(sys.argv[2]) if len(sys.argv) > 2 else 1000
dice = random.Random(20991231)
lib = ctypes.CDLL(sys.argv[1])
long = ctypes.c_long


def doubles(n, values=None):
    return (ctypes.c_double * n)(*(values or []))


def ref(value):
    return ctypes.byref(long(value) if isinstance(value, int) else ctypes.c_double(value))


def call(name, *arguments):
    if getattr(lib, name)(*arguments) == -1:
        sys.exit("fidelity: %s failed" % name)


for function in ("kl_change_cart_cs", "kl_sun", "kl_moon", "kl_planet", "kl_time_processing_to_processing",
                 "kl_time_ref_init", "kl_time_set_id_data", "kl_silent", "KL_Time_p2p_ref_tai_to_tdb",
                 "kl_euler_to_matrix", "kl_matrix_to_euler", "kl_quaternions_to_vectors", "kl_vectors_to_quaternions",
                 "kl_quaternions_interpol", "kl_get_rotation_angles", "kl_get_rotated_vectors"):
    getattr(lib, function).restype = long


def norm(v):
    return sqrt(sum(x * x for x in v))


def instants(n=N):
    return [dice.uniform(FIRST, LAST) for _ in range(n)]


class Spread:
    """Errors of vectors, or of numbers: in their unit and in rounding units of their size."""

    def __init__(self):
        self.errors, self.sizes = [], []

    def add(self, ours, truth):
        ours, truth = [list(x) if hasattr(x, "__len__") else [x] for x in (ours, truth)]
        self.errors.append(norm([mpf(a) - b for a, b in zip(ours, truth)]))
        self.sizes.append(norm(truth))
        self.is_vector = len(truth) > 1

    def print(self, what, unit, scale, cause):
        # A number that passes through zero is measured by the largest of the sample.
        sizes = self.sizes if self.is_vector else [max(self.sizes)] * len(self.sizes)
        relative = [e / (s * U) for e, s in zip(self.errors, sizes)]
        columns = [[x * scale for x in self.errors], relative]
        cells = []
        for column in columns:
            column.sort()
            cells += ["%.3g" % column[int(share * (len(column) - 1))] for share in (0.5, 0.99, 1)]
        print("| %s | %s | %s | %s |" % (what, unit, " | ".join(cells), cause), flush=True)


# ---- bodies -------------------------------------------------------------------------------------------------------


def read_tables(name):
    return sky.read(str(ROOT / "src" / "celestial" / ("%s_tables.h" % name)))


EARTH, MOON, PLANET = map(read_tables, ("earth", "moon", "planet"))
PLANETS = sky.table(PLANET, "kPlanets")
PLANET_NAMES = ["Mercury", "Venus", "Earth-Moon barycentre", "Mars", "Jupiter", "Saturn", "Uranus", "Neptune"]
MJD = mpf(51544)


def theories():
    bary, helio, bary_v, moon, moon_v = (Spread() for _ in range(5))
    for t in instants():
        date = float(MJD + mpf(t))
        vb, pb, vh, ph = (doubles(3) for _ in range(4))
        lib.KL_SlaEvp(vb, pb, vh, ph, ctypes.c_double(date), ctypes.c_double(2000.0))
        v, p, _, h = sky.earth(EARTH, mpf(date), 2000)
        bary.add(pb, p)
        helio.add(ph, h)
        bary_v.add(vb, v)
        pv = doubles(6)
        lib.KL_SlaDmoon(pv, ctypes.c_double(date))
        p, v = sky.moon(MOON, mpf(date))
        moon.add(pv[:3], p)
        moon_v.add(pv[3:], v)
    bary.print("Earth, barycentric position", "mm", AU * 1000, "mean longitude of up to 1250 rad")
    helio.print("Earth, heliocentric position", "mm", AU * 1000, "the same")
    bary_v.print("Earth, barycentric velocity", "um/s", AU * 10**6, "the same")
    moon.print("Moon, mean of date, position", "mm", AU * 1000, "arguments of 17 000 rad, 150 terms")
    moon_v.print("Moon, mean of date, velocity", "um/s", AU * 10**6, "the same")
    for k, row in enumerate(PLANETS):
        pos, vel = Spread(), Spread()
        for t in instants(N // 4):
            date = float(MJD + mpf(t))
            pv, status = doubles(6), long()
            lib.KL_SlaPlanet(long(k + 1), pv, ctypes.byref(status), ctypes.c_double(date))
            p, v = sky.planet(row, PLANET, mpf(date))
            pos.add(pv[:3], p)
            vel.add(pv[3:], v)
        pos.print(PLANET_NAMES[k] + ", heliocentric position", "mm", AU * 1000, "mean longitude of %d rad"
                  % round(float(row[2][1] * mpf("0.1") * pi / 648000)))
        vel.print(PLANET_NAMES[k] + ", heliocentric velocity", "um/s", AU * 10**6, "the same")


def tdb_minus_tai(days):
    g = mpf("357.53") + mpf("0.98560028") * (days + mpf("0.5"))
    return (mpf("32.184") + mpf("0.001658") * sin(g) + mpf("0.000014") * sin(2 * g)) / DAY


def public_bodies(time_id):
    spreads = {}
    for t in instants(N // 4):
        converted = ctypes.c_double()
        call("kl_time_processing_to_processing", time_id, ref(0), ref(TAI), ref(t), ref(0), ref(UT1),
             ctypes.byref(converted), None)
        ut1, tdb = mpf(converted.value), mpf(t) + tdb_minus_tai(mpf(t))
        to_fixed = frames.earth(ut1) * frames.nutation(ut1)
        earth = matrix(sky.earth(EARTH, MJD + tdb, 2000)[3])
        planet = dice.randrange(8)
        heliocentric = matrix(sky.planet(PLANETS[planet], PLANET, MJD + tdb)[0])
        truths = {"Sun": frames.precession(tdb) * -earth, "Moon": matrix(sky.moon(MOON, MJD + tdb)[0]),
                  "planet": frames.precession(ut1) * (heliocentric - earth)}
        for name, truth in truths.items():
            pos, vel = doubles(3), doubles(3)
            number = (ref(planet + 1),) if name == "planet" else ()
            call("kl_" + name.lower(), None, time_id, *number, ref(TAI), ref(t), pos, vel, None)
            row = "barycentre" if number and PLANET_NAMES[planet].endswith("barycentre") else name
            spreads.setdefault(row, Spread()).add(pos, AU * (to_fixed * truth))
    spreads["Sun"].print("kl_sun, Earth-fixed", "mm", 1000, "the decimals of the sidereal rate; the date as one double")
    spreads["Moon"].print("kl_moon, Earth-fixed", "mm", 1000, "the same")
    spreads["planet"].print("kl_planet, a random one but the barycentre, Earth-fixed", "mm", 1000,
                            "the same; the Earth's date on the microsecond grid")
    spreads["barycentre"].print("kl_planet, Earth-Moon barycentre, Earth-fixed", "mm", 1000,
                                "the difference of two places 1.5e8 km away; the Earth's date on the microsecond grid")


# ---- frames -------------------------------------------------------------------------------------------------------

FRAMES = {1: "BM2000", 2: "HM2000", 3: "GM2000", 4: "MOD", 5: "TOD", 6: "PEF", 7: "EF", 9: "BM1950", 10: "GALACTIC",
          11: "TEME"}
SIDEREAL = "sidereal angle of up to 2.3e5 rad: the decimals of its rate"
WHY = {(3, 4): "angles of 0.01 rad", (4, 5): "angles of 1e-4 rad", (5, 11): "angle of 1e-4 rad",
       (9, 1): "a matrix linear in time", (1, 9): "the inverse of a matrix linear in time"}


def changed(time_id, first, last, t, start):
    out = [doubles(3) for _ in range(3)]
    call("kl_change_cart_cs", None, time_id, ref(3), ref(first), ref(last), ref(UT1), ref(t),
         *[doubles(3, v) for v in start], *out, None)
    return out


def satellite():
    return [[dice.uniform(-1, 1) * s for _ in range(3)] for s in (7e6, 8e3, 9.0)]


def exactly(vector):
    return matrix([mpf(x) for x in vector])


def chain(time_id):
    for first, last, way in frames.WAYS:
        position, velocity, acceleration = Spread(), Spread(), Spread()
        for t in instants(N // 2):
            start = satellite()
            out = changed(time_id, first, last, t, start)
            p, v, a = map(exactly, start)
            carried = lambda s: way(mpf(t) + s / DAY) * (p + v * s + a * (s * s / 2))
            step = mpf("1e-8")
            before, here, after = carried(-step), carried(0), carried(step)
            position.add(out[0], here)
            velocity.add(out[1], (after - before) / (2 * step))
            acceleration.add(out[2], (after - here - (here - before)) / step**2)
        name = "%s to %s" % (FRAMES[first], FRAMES[last])
        position.print(name + ", 7000 km", "nm", 10**9, WHY.get((first, last), SIDEREAL))
        velocity.print(name + ", 8 km/s", "nm/s", 10**9, "the same")
        acceleration.print(name + ", 9 m/s2", "nm/s2", 10**9, "the same")


def galactic(time_id):
    """The four ways by fixed matrices, in the decimals of src/frames/star_frames.cpp."""
    with open(str(ROOT / "src" / "coord" / "star_frames.cpp")) as stream:
        text = stream.read()
    names = {(9, 10): "kB1950ToGalactic", (10, 9): "kGalacticToB1950", (1, 10): "kJ2000ToGalactic",
             (10, 1): "kGalacticToJ2000"}
    for (first, last), name in names.items():
        nine = re.findall(r"-?\d\.\d+", text[text.index("MatrixRecord %s = " % name):])[:9]
        way = matrix(3, 3)
        for k, decimals in enumerate(nine):
            way[k // 3, k % 3] = mpf(decimals)
        spread = Spread()
        for t in instants(N // 2):
            start = satellite()
            spread.add(changed(time_id, first, last, t, start)[0], way * exactly(start[0]))
        spread.print("%s to %s, 7000 km" % (FRAMES[first], FRAMES[last]), "nm", 10**9, "a fixed matrix")


def translations(time_id):
    """Between the frames about the Earth, the Sun and the barycentre; the Earth's motion of the theory in metres."""
    origin = {1: lambda e: (e[1], e[0]), 2: lambda e: (e[3], e[2]), 3: lambda e: ([mpf(0)] * 3, [mpf(0)] * 3)}
    for first, last in ((1, 2), (2, 3), (3, 1)):
        position, velocity = Spread(), Spread()
        for t in instants(N // 4):
            start = satellite()
            out = changed(time_id, first, last, t, start)
            tai = mpf(t) + mpf(37) / DAY
            earth = sky.earth(EARTH, MJD + tai + tdb_minus_tai(tai), 2000)
            for k, spread in enumerate((position, velocity)):
                shift = exactly(origin[last](earth)[k]) - exactly(origin[first](earth)[k])
                spread.add(out[k], exactly(start[k]) + shift * AU)
        name = "%s to %s" % (FRAMES[first], FRAMES[last])
        position.print(name + ", 7000 km", "mm", 1000, "the Earth's theory; TAI on the microsecond grid")
        velocity.print(name + ", 8 km/s", "um/s", 10**6, "the same")


def angles():
    names = {"zeta": ("KL_Precession", 0), "z": ("KL_Precession", 3), "theta": ("KL_Precession", 6),
             "dpsi": ("KL_Sim_Nut_Term", 0), "deps": ("KL_Sim_Nut_Term", 3)}
    for name, angle in frames.ANGLES[:5]:
        spread = Spread()
        for t in instants():
            record = doubles(9)
            function, index = names[name]
            getattr(lib, function)(ctypes.c_double(t), record)
            spread.add(record[index], angle(mpf(t)))
        what = ("nutation " if name[0] == "d" else "precession ") + name
        why = "arguments of up to 8400 rad" if name[0] == "d" else "a polynomial"
        spread.print(what, "uas", mpf(648000) * 10**6 / pi, why)


# ---- rotations ----------------------------------------------------------------------------------------------------


def degrees(m):
    """Rotation angles of a matrix."""
    return [x * 180 / pi for x in (atan2(m[2, 1], sqrt(m[2, 0] ** 2 + m[2, 2] ** 2)), atan2(-m[2, 0], m[2, 2]),
                                   atan2(m[0, 1], m[1, 1]))]


def euler(angles):
    a = [mpf(x) * pi / 180 for x in angles]
    return frames.Rz(a[2]) * frames.Rx(-a[0]) * frames.Ry(-a[1])


def product(p, q):
    a, b, c, d = p
    x, y, z, w = q
    return [d * x + w * a + b * z - c * y, d * y + w * b + c * x - a * z, d * z + w * c + a * y - b * x,
            d * w - a * x - b * y - c * z]


def columns_of(q):
    """Column k of the attitude matrix: the axis k turned by the quaternion's conjugate."""
    back = [-q[0], -q[1], -q[2], q[3]]
    return [product(product(back, [int(i == k) for i in range(3)] + [0]), q)[:3] for k in range(3)]


def rows(m):
    return [m[i, j] for i in range(3) for j in range(3)]


def unit_quaternion():
    q = [mpf(dice.gauss(0, 1)) for _ in range(4)]
    return [float(x / norm(q)) for x in q]


def rotations():
    spreads = [Spread() for _ in range(7)]
    for _ in range(4 * N):
        given = [dice.uniform(-180, 180) for _ in range(3)]
        given[0] = dice.uniform(-80, 80)
        out = doubles(9)
        call("kl_euler_to_matrix", doubles(3, given), out, None)
        spreads[0].add(out, rows(euler(given)))
        found = doubles(3)
        call("kl_matrix_to_euler", out, found, None)
        spreads[1].add(found, degrees(matrix([[mpf(out[3 * i + j]) for j in range(3)] for i in range(3)])))
        q = unit_quaternion()
        axes = [doubles(3) for _ in range(3)]
        call("kl_quaternions_to_vectors", doubles(4, q), *axes, None)
        exact = columns_of([mpf(x) for x in q])
        spreads[2].add([x for v in axes for x in v], [x for v in exact for x in v])
        back = doubles(4)
        length = norm([mpf(x) for x in q])
        call("kl_vectors_to_quaternions", *[doubles(3, [float(x) for x in v]) for v in exact], back, None)
        same = 1 if sum(a * b for a, b in zip(q, back)) > 0 else -1
        spreads[3].add(back, [same * mpf(x) / length for x in q])

        p, share = unit_quaternion(), dice.random()
        if sum(a * b for a, b in zip(p, q)) < 0:
            p = [-x for x in p]
        call("kl_quaternions_interpol", ref(0), ref(0.0), doubles(4, q), ref(1.0), doubles(4, p), ref(share), back,
             None)
        p1, q1 = [mpf(x) / norm([mpf(y) for y in p]) for x in p], [mpf(x) / length for x in q]
        theta = acos(sum(a * b for a, b in zip(p1, q1)))
        spreads[4].add(back, [(sin((1 - share) * theta) * a + sin(share * theta) * b) / sin(theta)
                              for a, b in zip(q1, p1)])

        first, turned = [list(v) for v in axes], [doubles(3) for _ in range(3)]
        call("kl_get_rotated_vectors", *[doubles(3, v) for v in first], doubles(3, given), *turned, None)
        m = euler(given) * matrix([[mpf(x) for x in v] for v in first])
        spreads[5].add([x for v in turned for x in v], rows(m))
        call("kl_get_rotation_angles", *[doubles(3, v) for v in first], *turned, found, None)
        spreads[6].add(found, given)
    spreads[0].print("kl_euler_to_matrix, nine elements", "1e-16", 10**16, "angles of 180 deg")
    spreads[1].print("kl_matrix_to_euler, a0 to 80 deg", "1e-15 deg", 10**15, "1 / cos a0")
    spreads[2].print("kl_quaternions_to_vectors, nine elements", "1e-16", 10**16, "sums of products")
    spreads[3].print("kl_vectors_to_quaternions", "1e-16", 10**16, "the axes given are rounded")
    spreads[4].print("kl_quaternions_interpol", "1e-16", 10**16, "arc cosine, 1 / sine of the angle")
    spreads[5].print("kl_get_rotated_vectors, nine elements", "1e-16", 10**16, "sums of products; angles of 180 deg")
    spreads[6].print("kl_get_rotation_angles of these, a0 to 80 deg", "1e-15 deg", 10**15,
                     "the axes given are rounded; 1 / cos a0")


# ---- time scales --------------------------------------------------------------------------------------------------


class IdData(ctypes.Structure):
    _fields_ = [(name, long) for name in ("model", "combination", "no_extrapolation", "second_bulletin_row")]
    _fields_ += [(name, ctypes.c_double) for name in "abc"]
    _fields_ += [("leap_sign", long), ("leap_utc", ctypes.c_double), ("leap_tai", ctypes.c_double), ("n_rows", long),
                 ("rows", ctypes.POINTER(ctypes.c_double))]


TAI_UTC, TAI_GPS = 37, 19


def time_table(first, last, n, extrapolates):
    """Time id of rows with TAI-UT1 that goes up and down, and the rows."""
    table = []
    for k in range(n):
        tai = first + (last - first) * k / (n - 1)
        tai_ut1 = 37.3 + 0.4 * float(sin(k))
        table.append((tai, tai - tai_ut1 / DAY, tai - TAI_UTC / DAY, float(TAI_UTC), tai_ut1, float(TAI_GPS)))
    data = IdData(1, -1, 0 if extrapolates else 1, 0, -0.04, 0.0007, -17000.0, 0, 0.0, 0.0, n,
                  doubles(6 * n, [x for row in table for x in row]))
    handle = ctypes.c_void_p()
    call("kl_time_set_id_data", ctypes.byref(handle), ctypes.byref(data))
    return ctypes.byref(handle), table, handle


def interpolated(table, t, column):
    k = next(k for k in range(len(table) - 1) if t < table[k + 1][column])
    c0, c1, d0, d1 = [mpf(x) for x in (table[k][column], table[k + 1][column], table[k][4], table[k + 1][4])]
    return d0 + (d1 - d0) * (t - c0) / (c1 - c0)


def formula(utc):
    year = (utc + 51544 - mpf("51544.03")) / mpf("365.2422") + 2000
    s1, s2 = sin(2 * pi * year), sin(4 * pi * year)
    c1, c2 = cos(2 * pi * year), cos(4 * pi * year)
    seasonal = mpf("0.022") * s1 - mpf("0.012") * c1 - mpf("0.006") * s2 + mpf("0.007") * c2
    return TAI_UTC - (mpf("-0.04") + mpf("0.0007") * (utc + 17000) - seasonal)


def scales():
    lib.kl_silent()
    spread = Spread()
    for t in instants():
        out = ctypes.c_double()
        call("KL_Time_p2p_ref_tai_to_tdb", ref(t), ctypes.byref(out))
        spread.add(out.value, mpf(t) + tdb_minus_tai(mpf(t)))
    spread.print("TAI to TDB", "us", DAY * 10**6, "the date as one double")
    inside = time_table(-18261.0, 36523.0, 50, False)
    after = time_table(-18261.0, -18260.5, 2, True)
    column = {TAI: 0, UTC: 2, UT1: 1}
    delta = {
        "UTC to TAI": lambda t: mpf(TAI_UTC),
        "TAI to GPS": lambda t: mpf(-TAI_GPS),
        "TAI to UT1": lambda t: -interpolated(inside[1], t, column[TAI]),
        "UT1 to TAI": lambda t: interpolated(inside[1], t, column[UT1]),
        "UTC to UT1 after the table, by formula": lambda t: TAI_UTC - formula(t),
    }
    number = {"TAI": TAI, "UTC": UTC, "UT1": UT1, "GPS": GPS}
    for what, seconds in delta.items():
        spread = Spread()
        words = what.split()
        for t in instants():
            t = float(floor(mpf(t) * DAY * 10**6)) / (DAY * 1e6)
            out = ctypes.c_double()
            call("kl_time_processing_to_processing", (after if "after" in words else inside)[0], ref(0),
                 ref(number[words[0]]), ref(t), ref(0), ref(number[words[2]]), ctypes.byref(out), None)
            spread.add(out.value, mpf(t) + seconds(mpf(t)) / DAY)
        spread.print(what, "us", DAY * 10**6, "results on the microsecond grid; the date as one double")


def main():
    time_handle = ctypes.c_void_p()
    time_id = ctypes.byref(time_handle)
    call("kl_time_ref_init", doubles(4, [0.0, -37.0 / DAY, -37.0 / DAY, -19.0 / DAY]), None, None, None, time_id, None)
    theories()
    public_bodies(time_id)
    angles()
    chain(time_id)
    galactic(time_id)
    translations(time_id)
    rotations()
    scales()


if __name__ == "__main__":
    main()
