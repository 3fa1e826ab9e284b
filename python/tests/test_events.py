"""Zeros of smooth functions of time, and the events made of them."""
import ctypes

import numpy as np
import pytest

import kitlib as kl
from kitlib import events
from kitlib._library import KITLIB
from needs import has

SECOND = 1 / 86400
topocentric = pytest.mark.skipif(not has("ef_to_topocentric"), reason="the library has no ef_to_topocentric")
shadows = pytest.mark.skipif(not has("eclipse"), reason="the library has no eclipse")


def test_zeros():
    """Against closed forms: every zero of a sine; pairs inside a step; zeros on the grid; none where there is none."""
    found = events.crossings(lambda t: np.sin(t), 0.5, 1000.0, step=1.0, tolerance=1e-12)
    k = np.arange(1, 319)
    assert np.abs(found.time - k * np.pi).max() < 1e-11 and np.array_equal(found.direction, np.where(k % 2, -1, 1))
    for depth in (1e-2, 1e-4, 1e-7):
        pair = events.crossings(lambda t: (t - 3.3) ** 2 - depth, 0.0, 10.0, step=1.0, tolerance=1e-13)
        assert np.abs(pair.time - (3.3 + np.sqrt(depth) * np.array([-1, 1]))).max() < 1e-9
    assert events.crossings(lambda t: t - 3.0, 0.0, 10.0, step=1.0).time.tolist() == [3.0]
    assert len(events.crossings(lambda t: (t - 3.3) ** 2 + 1e-9, 0.0, 10.0, step=1.0).time) == 0
    steep = events.crossings(lambda t: np.arctan(1e9 * (t - 7.7)), 0.0, 10.0, step=3.0, tolerance=1e-12)
    assert abs(steep.time[0] - 7.7) < 1e-12


def test_spans():
    cut = events.intervals(lambda t: np.cos(t), 0.0, 5.0, step=0.3, tolerance=1e-12)
    assert np.abs(np.concatenate([cut.start, cut.stop]) - [0.0, 1.5 * np.pi, 0.5 * np.pi, 5.0]).max() < 1e-11
    assert cut.cut_at_start.tolist() == [True, False] and cut.cut_at_stop.tolist() == [False, True]
    assert events.intervals(lambda t: np.ones_like(t), 0.0, 1.0, step=0.1)[:2] == (np.array([0.0]), np.array([1.0]))
    assert len(events.intervals(lambda t: -np.ones_like(t), 0.0, 1.0, step=0.1).start) == 0


@pytest.mark.parametrize("bad", [(1.0, 0.0, 0.1), (0.0, 1.0, 0.0), (0.0, np.inf, 0.1), (np.nan, 1.0, 0.1)])
def test_bad_spans(bad):
    with pytest.raises(ValueError):
        events.crossings(np.sin, *bad)


def test_bad_values():
    for wrong in (lambda t: t * np.nan, lambda t: t[:-1]):
        with pytest.raises(ValueError):
            events.crossings(wrong, 0.0, 1.0, 0.1)


@pytest.mark.skipif(not hasattr(KITLIB, "kl_find_crossings"), reason="the library has no kl_find_crossings yet")
def test_same_as_the_library():
    """The zeros of the library's own finder, to a microsecond, of the Sun's elevation at a station."""
    def above(t):
        return kl.ef_to_topocentric(kl.sun(t).pos, origin=(48.0, 11.0, 600.0)).elevation

    kind = ctypes.CFUNCTYPE(ctypes.c_long, ctypes.c_void_p, ctypes.POINTER(ctypes.c_long), ctypes.POINTER(ctypes.c_double), ctypes.POINTER(ctypes.c_double))

    @kind
    def called(_, n, times, values):
        np.ctypeslib.as_array(values, (n[0],))[:] = above(np.ctypeslib.as_array(times, (n[0],)))
        return 0

    class Crossing(ctypes.Structure):
        _fields_ = [("time", ctypes.c_double), ("value", ctypes.c_double), ("direction", ctypes.c_long), ("cut", ctypes.c_long)]
    found, n = (Crossing * 100)(), ctypes.c_long(0)
    number = [ctypes.byref(ctypes.c_double(x)) for x in (9660.0, 9670.0, 1 / 48, 1e-12)]
    assert KITLIB.kl_find_crossings(called, None, *number, ctypes.byref(ctypes.c_long(100)), ctypes.byref(n), found, (ctypes.c_long * 1)()) == 0
    mine = events.sun_rise_set((48.0, 11.0, 600.0), 9660.0, 9670.0, elevation=0.0)
    first = [x.time for x in found[:n.value] if 9660.0 < x.time < 9670.0]
    assert len(mine.time) == 20 and np.abs(np.sort(first) - mine.time).max() < events.MICROSECOND


@topocentric
def test_sunrise_of_an_almanac():
    """Greenwich, 2026-06-21: rise 03:43, set 20:22 UT (U.S. Naval Observatory's rule of 50 minutes of arc), to a minute."""
    found = events.sun_rise_set((51.477, 0.0, 0.0), 9668.0, 9669.0)
    expected = kl.mjd2000(["2026-06-21T03:43:00Z", "2026-06-21T20:21:30Z"])
    assert found.direction.tolist() == [1, -1] and np.abs(found.time - expected).max() < 65 * SECOND


@pytest.mark.parametrize("orbit,start,kind", [
    (lambda t: np.array([7e6, 0.0, 0.0]), 9668.0, ValueError),
    (lambda t: (polar(t), polar(t)), 9668.0, ValueError),
    (lambda t: polar(t).T, 9668.0, ValueError),
    (lambda t: polar(t), "2026-06-21T00:00:00", TypeError)], ids=["one for all", "velocities too", "other way round", "text"])
def test_wrong_orbits(orbit, start, kind):
    for call in (lambda: events.passes(orbit, (60.0, 25.0, 0.0), start, 9669.0, cs="EF"), lambda: events.eclipses(orbit, start, 9669.0, cs="EF"),
                 lambda: events.nodes(orbit, start, 9669.0, cs="TOD")):
        with pytest.raises(kind, match="orbit gives|kl.mjd2000"):
            call()


def polar(t):
    """A circular polar orbit of 7000 km and 100 minutes, in TOD."""
    u = 2 * np.pi * (t - 9668.0) * 14.4
    return 7e6 * np.stack([np.cos(u), 0 * u, np.sin(u)], axis=-1)


def test_nodes():
    found = events.nodes(polar, 9668.01, 9669.01, cs="TOD")
    k = np.round((found.time - 9668.0) * 28.8)
    assert len(k) == 29 and np.abs(found.time - 9668.0 - k / 28.8).max() < events.MICROSECOND
    assert np.array_equal(found.direction, np.where(k % 2, -1, 1))


@topocentric
def test_passes_rise_where_they_should():
    found = events.passes(polar, (60.0, 25.0, 100.0), 9668.0, 9670.0, elevation=10.0, cs="TOD")
    assert len(found.rise) > 5 and (found.rise < found.top).all() and (found.top < found.set).all()
    place = kl.change_cart_cs(found.rise, polar(found.rise), cs_in="TOD", cs_out="EF").pos
    station = 6378137.0 / np.sqrt(1 - 0.0066943799901413165 * np.sin(np.radians(60)) ** 2)
    lat, lon = np.radians(60.0), np.radians(25.0)
    up = np.array([np.cos(lat) * np.cos(lon), np.cos(lat) * np.sin(lon), np.sin(lat)])
    here = (station + 100) * up - np.array([0, 0, 0.0066943799901413165 * station * np.sin(lat)])
    sight = place - here
    assert np.abs(np.degrees(np.arcsin(sight @ up / np.linalg.norm(sight, axis=1))) - 10.0).max() < 1e-6
    assert not found.cut_at_start.any() and (found.elevation > 10.0).all()


@topocentric
def test_highest_of_several_tops():
    """A satellite that comes near twice in one pass: over 13 deg of longitude in the first quarter of the day, over 3 in the third."""
    def orbit(t):
        longitude = np.radians(23 + 15 * np.cos(4 * np.pi * t) + 5 * np.sin(2 * np.pi * t))
        return 4.2e7 * np.stack([np.cos(longitude), np.sin(longitude), 0 * t], axis=-1)
    for step in (0.01, 0.3, 2.0):
        found = events.passes(orbit, (0.0, 0.0, 0.0), 9668.0, 9669.0, cs="EF", step=step)
        assert len(found.top) == 1 and found.cut_at_start[0] and found.cut_at_stop[0]
        if step < 2.0:
            assert abs(found.top[0] - 9668.75) < 1e-5
    with pytest.raises(ValueError, match="penumbra"):
        events.eclipses(orbit, 9668.0, 9669.0, cs="EF", kind="dark")


@shadows
def test_geostationary_eclipse():
    """The longest night of a geostationary satellite: 67.5 minutes of umbra, 71.8 of shadow, in the plane of the Sun at 1 AU."""
    def still(t):
        return np.broadcast_to(np.array([42164172.0, 0.0, 0.0]), t.shape + (3,))
    start = kl.mjd2000("2026-03-15T12:00:00Z")
    umbra, shadow = (events.eclipses(still, start, start + 12, cs="EF", kind=kind, step=1 / 96) for kind in ("umbra", "penumbra"))
    assert len(umbra.start) == len(shadow.start) == 12
    assert abs((umbra.stop - umbra.start).max() * 1440 - 67.5) < 0.2 and abs((shadow.stop - shadow.start).max() * 1440 - 71.8) < 0.2
