"""When something happens: passes over a station, eclipses, nodes, rise and set of the Sun.

An orbit is a function of an array of instants t (MJD2000 days) that gives an array of positions of shape t.shape + (3,), m,
nothing beside them, in the frame that the keyword cs names: it has no default, since another frame's positions would be
taken for those of this one without a word. A value is computed on a
grid, and all its changes of sign are then refined together: some ten calls for arrays, whatever the number of events.

>>> import kitlib as kl, numpy as np
>>> from kitlib import events
>>> found = events.crossings(lambda t: np.sin(t), 0.0, 10.0, step=0.5)
>>> (found.time / np.pi).round(9).tolist(), found.direction.tolist()
([1.0, 2.0, 3.0], [-1, 1, -1])
"""
from __future__ import annotations

from typing import Any, Callable, NamedTuple

import numpy as np
import numpy.typing as npt

from . import _functions
from ._selectors import one_instant, selected
from ._table import Frame

Floats = npt.NDArray[np.float64]
Orbit = Callable[[Floats], Floats]
Value = Callable[[Floats], Any]


class Crossings(NamedTuple):
    time: Floats
    direction: npt.NDArray[np.int64]


class Intervals(NamedTuple):
    start: Floats
    stop: Floats
    cut_at_start: npt.NDArray[np.bool_]
    cut_at_stop: npt.NDArray[np.bool_]


class Passes(NamedTuple):
    rise: Floats
    set: Floats
    top: Floats
    elevation: Floats
    cut_at_start: npt.NDArray[np.bool_]
    cut_at_stop: npt.NDArray[np.bool_]


MICROSECOND = 1e-6 / 86400


def _signs(values):
    return np.where(values >= 0, 1, -1)


def _sampled(value, start, stop, step):
    """The grid, with the vertex of the parabola through three values where it lies on the other side of zero."""
    start, stop = one_instant(start, "start"), one_instant(stop, "stop")
    if not (np.isfinite(start) and np.isfinite(stop) and start < stop and step > 0):
        raise ValueError("start < stop and a step above 0 are wanted")
    t = np.linspace(start, stop, max(int(np.ceil((stop - start) / step)), 2) + 1)
    v = np.asarray(value(t), "f8")
    if v.shape != t.shape:
        raise ValueError(f"one value an instant is wanted: {v.shape} for {t.shape}")
    if not np.isfinite(v).all():
        raise ValueError("the values of an event must be finite")
    a, b, c = v[:-2], v[1:-1], v[2:]
    bend = a - 2 * b + c
    with np.errstate(divide="ignore", invalid="ignore"):
        shift = 0.5 * (a - c) / bend
        vertex = b - 0.125 * (a - c) ** 2 / bend
        near = (_signs(a) == _signs(b)) & (_signs(b) == _signs(c)) & (np.abs(shift) <= 1) & (vertex * b <= 0) & (bend * b > 0)
    if near.any():
        extra = t[1:-1][near] + shift[near] * (t[1] - t[0])
        t, order = np.unique(np.concatenate([t, extra]), return_index=True)
        v = np.concatenate([v, np.asarray(value(extra), "f8")])[order]
    return t, v


def _refined(value, a, b, fa, fb, tolerance):
    """Zeros inside brackets, all together: inverse quadratic steps, bisection where they would not do (Chandrupatla 1997)."""
    a, b, fa, fb = b.copy(), a.copy(), fb.copy(), fa.copy()
    c, fc, share = a.copy(), fa.copy(), np.full(a.shape, 0.5)
    tolerance = np.maximum(tolerance, 2 * np.spacing(np.maximum(np.abs(a), np.abs(b))))  # no finer than instants lie
    for _ in range(200):
        width = np.abs(b - a)
        active = (width > tolerance) & (fa != 0) & (fb != 0)
        if not active.any():
            break
        at = a + share * (b - a)
        ft = fa.copy()
        ft[active] = value(at[active])
        same = np.sign(ft) == np.sign(fa)
        c = np.where(active, np.where(same, a, b), c)
        fc = np.where(active, np.where(same, fa, fb), fc)
        b, fb = np.where(active & ~same, a, b), np.where(active & ~same, fa, fb)
        a, fa = np.where(active, at, a), np.where(active, ft, fa)
        with np.errstate(divide="ignore", invalid="ignore"):
            xi, phi = (a - b) / (c - b), (fa - fb) / (fc - fb)
            quadratic = (phi ** 2 < xi) & ((1 - phi) ** 2 < 1 - xi)
            step = fa / (fb - fa) * fc / (fb - fc) + (c - a) / (b - a) * fa / (fc - fa) * fb / (fc - fb)
            least = np.minimum(0.5, 0.5 * tolerance / np.maximum(np.abs(b - a), 1e-300))
        share = np.where(quadratic & np.isfinite(step), np.clip(step, least, 1 - least), 0.5)
    return np.where(np.abs(fa) < np.abs(fb), a, b)


def crossings(value: Value, start: float, stop: float, step: float, tolerance: float = 0.1 * MICROSECOND) -> Crossings:
    """Zeros of a smooth function of arrays of instants: their times and the direction (1 upwards, -1 downwards).

    step: days, of the grid; two zeros inside one step are found when the parabola through three values tells of them.
    """
    t, v = _sampled(value, start, stop, step)
    s = _signs(v)
    k = np.nonzero(s[1:] != s[:-1])[0]
    return Crossings(_refined(value, t[k], t[k + 1], v[k], v[k + 1], tolerance), s[k + 1])


def intervals(value: Value, start: float, stop: float, step: float, tolerance: float = 0.1 * MICROSECOND) -> Intervals:
    """Spans of time in which a value is not negative; the first and the last may be cut by start and stop."""
    found = crossings(value, start, stop, step, tolerance)
    inside = _signs(np.asarray(value(np.array([start, stop])), "f8")) > 0
    first, last = found.time[found.direction > 0], found.time[found.direction < 0]
    if inside[0]:
        first = np.concatenate([[start], first])
    if inside[1]:
        last = np.concatenate([last, [stop]])
    cut = np.zeros((2, len(first)), bool)
    if len(first):
        cut[0, 0], cut[1, -1] = inside
    return Intervals(first, last, cut[0], cut[1])


def _positions(orbit):
    """The orbit, with a look at the shape of what it gives: another one would be broadcast."""
    def checked(t):
        pos = orbit(t)
        if isinstance(pos, tuple):
            raise ValueError("an orbit gives one array of positions, not a tuple: without velocities")
        if np.shape(pos) != np.shape(t) + (3,):
            raise ValueError(f"an orbit gives positions of shape t.shape + (3,): {np.shape(t) + (3,)} is wanted, not {np.shape(pos)}")
        return pos
    return checked


def _earth_fixed(orbit, cs, ref, time):
    orbit = _positions(orbit)
    if selected(cs, Frame) == Frame.EF:
        return orbit
    return lambda t: _functions.change_cart_cs(t, orbit(t), cs_in=cs, cs_out=Frame.EF, ref=ref, time=time).pos


def passes(orbit: Orbit, station: Any, start: float, stop: float, *, cs: Any, elevation: float = 0.0, ref: Any = "UTC",
           step: float = 60 / 86400, time: Any = None) -> Passes:
    """Passes of a satellite over a station: rise, set, time of the largest elevation and this elevation (deg).

    station: geodetic latitude, longitude (deg) and height (m); start, stop: MJD2000 days; cs: the frame of the orbit's
    positions, a kl.Frame; elevation: the least one that counts, deg. step: days, one minute where nothing is said; of several
    tops of a pass that lie a step and more apart the highest counts. The top is good to a hundredth of a second, rise and set
    to a microsecond.

    >>> import kitlib as kl, numpy as np
    >>> from kitlib import events
    >>> orbit = lambda t: 7e6 * np.stack([np.cos(90 * t), 0 * t, np.sin(90 * t)], axis=-1)  # over the poles, in TOD
    >>> found = events.passes(orbit, (60.0, 25.0, 100.0), 9668.0, 9669.0, cs="TOD", elevation=10.0)
    >>> bool((found.rise < found.top).all() and (found.elevation > 10.0).all())
    True
    """
    place = _earth_fixed(orbit, cs, ref, time)

    def above(t):
        return _functions.ef_to_topocentric(place(t), origin=station).elevation - elevation
    seen = intervals(above, start, stop, step)
    # Elevations of all passes together: golden sections around the highest instant of a grid, since there may be several tops.
    a, b = seen.start.copy(), seen.stop.copy()
    if len(a):
        t = np.linspace(start, stop, max(int(np.ceil((stop - start) / step)), 2) + 1)
        k = np.searchsorted(a, t, side="right") - 1
        inside = (k >= 0) & (t <= b[k])
        t, k = t[inside], k[inside]
        order = np.lexsort((above(t) if len(t) else t, k))
        highest = order[np.append(k[order][1:] != k[order][:-1], True)[:len(order)]]
        a[k[highest]] = np.maximum(a[k[highest]], t[highest] - step)
        b[k[highest]] = np.minimum(b[k[highest]], t[highest] + step)
    ratio = (np.sqrt(5) - 1) / 2
    for _ in range(48 if len(a) else 0):
        c, d = b - ratio * (b - a), a + ratio * (b - a)
        left = above(c) > above(d)
        b, a = np.where(left, d, b), np.where(left, a, c)
    top = 0.5 * (a + b)
    return Passes(seen.start, seen.stop, top, above(top) + elevation if len(top) else top, seen.cut_at_start, seen.cut_at_stop)


def eclipses(orbit: Orbit, start: float, stop: float, *, cs: Any, kind: str = "umbra", ref: Any = "UTC",
             step: float = 60 / 86400, margin: Any = None, time: Any = None) -> Intervals:
    """Spans in which a satellite is in the Earth's umbra, or (kind="penumbra") in any shadow of it, or (kind="centre") the
    centre of the Sun is covered.

    cs: the frame of the orbit's positions, a kl.Frame. step: days, one minute where nothing is said. margin: as in kl.eclipse.
    """
    orbit = _positions(orbit)
    limits = {"umbra": -1.0, "centre": 0.0, "penumbra": 1.0}
    if kind not in limits:
        raise ValueError(f"{kind!r} is no kind of eclipse: {', '.join(limits)}")
    limit = limits[kind]
    return intervals(lambda t: limit - _functions.eclipse(t, orbit(t), margin, cs=cs, ref=ref, time=time).depth, start, stop, step)


def nodes(orbit: Orbit, start: float, stop: float, *, cs: Any, ref: Any = "UTC", step: float = 300 / 86400,
          time: Any = None) -> Crossings:
    """Crossings of the true equator of date: direction 1 is the ascending node. cs: the frame of the orbit's positions,
    a kl.Frame. step: days, five minutes where nothing is said."""
    orbit = _positions(orbit)
    def north(t):
        return _functions.change_cart_cs(t, orbit(t), cs_in=cs, cs_out=Frame.TOD, ref=ref, time=time).pos[:, 2]
    return crossings(north, start, stop, step)


def sun_rise_set(station: Any, start: float, stop: float, *, elevation: float = -0.8333, ref: Any = "UTC",
                 step: float = 1 / 48, time: Any = None) -> Crossings:
    """Rise (direction 1) and set (-1) of the Sun at a station. elevation: of its centre, deg; -0.8333 is the upper
    limb at the horizon with 34' of refraction. step: days, half an hour where nothing is said."""
    def above(t):
        return _functions.ef_to_topocentric(_functions.sun(t, ref=ref, time=time).pos, origin=station).elevation - elevation
    return crossings(above, start, stop, step)
