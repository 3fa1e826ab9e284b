"""kitlib beside pyerfa, astropy, skyfield and pyproj: the same task on the same numbers in one run, and how far the results
lie apart. Prints a table in Markdown; times are those of the processor, the least of three.

usage: side_by_side.py [largest number of elements]
"""
import importlib
import sys
import time
import warnings

import numpy as np

import kitlib as kl

warnings.simplefilter("ignore")
MOST = int(float(sys.argv[1])) if len(sys.argv) > 1 else 1_000_000
SIZES = [n for n in (1, 1000, 1_000_000) if n <= MOST]
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
        rivals.append(("pyerfa gmst82, rz (no pole, position alone)", by_erfa))
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


def least(function, given, repeats):
    best, result = np.inf, None
    for _ in range(repeats):
        start = time.process_time()
        result = function(given)
        best = min(best, time.process_time() - start)
    return best, np.asarray(result)


def main():
    given = {n: inputs(n) for n in SIZES}
    print("| task | elements | kitlib | rival | time | rival / kitlib | largest difference |\n|---|---:|---:|---|---:|---:|---:|")
    for task, unit, ours, rivals in tasks():
        spent = {}
        for n in SIZES:
            mine, here = least(ours, given[n], 3)
            for name, rival in rivals:
                if spent.get(name, (0.0, 1))[0] * n / spent.get(name, (0.0, 1))[1] > MUST_END:
                    print(f"| {task} | {n} | {mine / n * 1e9:.0f} ns | {name} | too long | | |")
                    continue
                try:
                    other, there = least(rival, given[n], 3 if n < 1_000_000 else 1)
                except Exception as error:  # a rival that does not offer it in this version
                    print(f"| {task} | {n} | | {name} | {type(error).__name__} | | |")
                    continue
                spent[name] = (other, n)
                away = np.abs(here - there)
                print(f"| {task} | {n} | {mine / n * 1e9:.0f} ns | {name} | {other / n * 1e9:.0f} ns | {other / max(mine, 1e-9):.1f} | {away.max():.2g} {unit} |", flush=True)


if __name__ == "__main__":
    main()
