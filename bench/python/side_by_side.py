"""kitlib beside pyerfa, astropy, skyfield and pyproj: the same task on the same numbers in one run, and how far the results
lie apart. Times are those of the processor, the least of at least three.
"""
import importlib
import time
import warnings
from collections import namedtuple

import numpy as np

import kitlib as kl

warnings.simplefilter("ignore")
SIZES = (1, 1000, 1_000_000)
Row = namedtuple("Row", "task n ours rival theirs away unit")  # seconds a call; away and unit: largest difference
MUST_END = 10.0  # seconds: a rival whose smaller size foretells more is not asked


def has(name):
    try:
        return importlib.import_module(name)
    except ImportError:
        return None


erfa, astropy, skyfield, pyproj = (has(name) for name in ("erfa", "astropy", "skyfield", "pyproj"))
J2000, AU = 2451544.5, 149597870700.0


def inputs(n):
    random = np.random.default_rng(1)
    t = np.sort(random.uniform(6500.0, 8000.0, n))
    angle = random.uniform(0, 2 * np.pi, n)
    r = 7.0e6 * np.stack([np.cos(angle), np.sin(angle) * 0.6, np.sin(angle) * 0.8], axis=1)
    v = 7.5e3 * np.stack([-np.sin(angle), np.cos(angle) * 0.6, np.cos(angle) * 0.8], axis=1)
    ut1 = kl.time_processing_to_processing(t, ref_in="UTC", ref_out="UT1")  # given to rivals that take UT1
    return {"t": t, "ut1": ut1, "r": r, "v": v, "lat": random.uniform(-90, 90, n), "lon": random.uniform(-180, 180, n), "h": random.uniform(0, 1e6, n),
            "text": np.char.decode(kl.time_processing_to_ascii(t, fmt_out=43).astype("S26"), "ascii")}


def tasks():
    """(task, unit of the difference, ours, [(rival, function), ...]); functions of the inputs to one array."""
    rows = []
    if hasattr(kl, "cart_to_geod"):
        rivals = []
        if erfa:
            rivals.append(("pyerfa gc2gd", lambda x: erfa.gc2gd(1, x["r"])[2]))
        if pyproj:
            turn = pyproj.Transformer.from_crs(4978, 4979, always_xy=True)
            rivals.append(("pyproj", lambda x: turn.transform(*x["r"].T)[2]))
        if astropy:
            from astropy.coordinates import EarthLocation
            rivals.append(("astropy EarthLocation", lambda x: EarthLocation(*x["r"].T, unit="m").to_geodetic().height.value))
        rows.append(("Earth-fixed to geodetic", "m", lambda x: kl.cart_to_geod(x["r"]).height, rivals))
        rivals = []
        if pyproj:
            globe = pyproj.Geod(ellps="WGS84")
            rivals.append(("pyproj Geod.inv", lambda x: globe.inv(x["lon"], x["lat"], x["lon"][::-1], x["lat"][::-1])[2]))
        rows.append(("geodesic distance", "m", lambda x: kl.geod_distance(x["lat"], x["lon"], x["lat"][::-1], x["lon"][::-1]).distance, rivals))
    rivals = []
    if erfa:
        rivals.append(("pyerfa epv00 (inertial)", lambda x: np.linalg.norm(erfa.epv00(J2000, x["t"])[0]["p"], axis=-1) * AU))
    if astropy:
        from astropy.coordinates import get_sun
        from astropy.time import Time
        from astropy.utils import iers
        iers.conf.auto_download = False
        rivals.append(("astropy get_sun", lambda x: get_sun(Time(J2000, x["t"], format="jd", scale="utc")).distance.to_value("m")))
    rows.append(("Sun, distance", "km", lambda x: np.linalg.norm(kl.sun(x["t"]).pos, axis=-1) / 1e3, [(n, lambda x, f=f: f(x) / 1e3) for n, f in rivals]))
    rivals = []
    if erfa:
        rivals.append(("pyerfa moon98 (inertial)", lambda x: np.linalg.norm(erfa.moon98(J2000, x["t"])["p"], axis=-1) * AU / 1e3))
    if astropy:
        from astropy.coordinates import get_moon
        rivals.append(("astropy get_moon", lambda x: get_moon(Time(J2000, x["t"], format="jd", scale="utc")).distance.to_value("km")))
    rows.append(("Moon, distance", "km", lambda x: np.linalg.norm(kl.moon(x["t"]).pos, axis=-1) / 1e3, rivals))
    rivals = []
    if erfa:
        def by_erfa(x):
            turn = erfa.rz(erfa.gmst82(J2000, x["ut1"]), np.broadcast_to(np.eye(3), (len(x["t"]), 3, 3)))
            return erfa.rxp(turn, x["r"])
        rivals.append(("pyerfa gmst82, rz", by_erfa))
    rows.append(("TEME to pseudo-Earth-fixed at UT1, position alone", "m", lambda x: kl.change_cart_cs(x["ut1"], x["r"], cs_in="TEME", cs_out="PEF", ref="UT1").pos, rivals))
    rivals = []
    if astropy:
        from astropy import units
        from astropy.coordinates import ITRS, TEME, CartesianDifferential, CartesianRepresentation

        def by_astropy(x):
            when = Time(J2000, x["t"], format="jd", scale="utc")
            state = CartesianRepresentation(*x["r"].T, unit=units.m).with_differentials(CartesianDifferential(*x["v"].T, unit=units.m / units.s))
            return TEME(state, obstime=when).transform_to(ITRS(obstime=when)).cartesian.xyz.to_value(units.m).T
        rivals.append(("astropy TEME to ITRS", by_astropy))
    if skyfield:
        from skyfield.api import load
        from skyfield.sgp4lib import TEME_to_ITRF
        scale = load.timescale(builtin=True)

        def by_skyfield(x):
            return TEME_to_ITRF(J2000 + x["ut1"], x["r"].T, x["v"].T)[0].T
        rivals.append(("skyfield TEME_to_ITRF (no pole)", by_skyfield))
    rows.append(("TEME to Earth-fixed, position and velocity", "m", lambda x: kl.change_cart_cs(x["t"], x["r"], x["v"], cs_in="TEME", cs_out="EF").pos, rivals))
    rivals = []
    if astropy:
        rivals.append(("astropy Time.ut1", lambda x: ((w := Time(J2000, x["t"], format="jd", scale="utc").ut1).jd1 - J2000 + w.jd2) * 86400))
    if skyfield:
        rivals.append(("skyfield Time.ut1", lambda x: (scale.tai_jd(J2000 + x["t"] + 37 / 86400).ut1 - J2000) * 86400))
    rows.append(("UTC to UT1", "s", lambda x: kl.time_processing_to_processing(x["t"], ref_in="UTC", ref_out="UT1") * 86400, rivals))
    rivals = []
    if astropy:
        rivals.append(("astropy Time of texts", lambda x: ((w := Time(x["text"], scale="utc")).jd1 - J2000 + w.jd2) * 86400))
    rows.append(("UTC texts to days", "s", lambda x: kl.time_ascii_to_processing(x["text"], fmt_in=43) * 86400, rivals))
    return rows


def least(function, given, seconds=0.2):
    """Seconds of a call, the least of at least three, and its result; short calls many at a time."""
    best, result, end, repeats, done = np.inf, None, time.perf_counter() + seconds, 1, 0
    while done < 3 or time.perf_counter() < end:
        start = time.process_time()
        for _ in range(repeats):
            result = function(given)
        taken = time.process_time() - start
        best, done = min(best, taken / repeats), done + 1
        if taken < 2e-3:
            repeats = min(1000, max(2, int(2e-3 / max(taken / repeats, 1e-7))))
        elif taken > MUST_END / 3:
            break
    return best, np.asarray(result)


def rows(most=SIZES[-1]):
    """Every task with every rival at every size."""
    sizes = [n for n in SIZES if n <= most]
    given = {n: inputs(n) for n in sizes}
    for task, unit, ours, rivals in tasks():
        spent = {}
        for n in sizes:
            mine, here = least(ours, given[n])
            for name, rival in rivals:
                if name in spent and spent[name][0] * n / spent[name][1] > MUST_END:
                    yield Row(task, n, mine, name, "too long", None, "")
                    continue
                try:
                    other, there = least(rival, given[n])
                except Exception as error:  # a rival that does not offer it in this version
                    yield Row(task, n, mine, name, type(error).__name__, None, "")
                    continue
                if n > 1:
                    spent[name] = (other, n)
                yield Row(task, n, mine, name, other, np.abs(here - there).max(), unit)
