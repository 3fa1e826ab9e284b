"""Functions whose arguments are not one an element: the geoid, the clocks on board, catalogues, tables of a correlation."""
import ctypes
import os
from collections import namedtuple

import numpy as np

from . import _arrays, _calls, _errors, _ids, _table
from ._library import KITLIB, symbol
from ._selectors import one_instant

RealRoots = namedtuple("RealRoots", "roots n_roots")
InterpolatedState = namedtuple("InterpolatedState", "pos vel error")
LeapSeconds = namedtuple("LeapSeconds", "utc tai_utc expiry")
_BOX = ("least right ascension", "largest", "least declination", "largest")
_CONE = ("right ascension", "declination", "radius")
_WHOLE_SKY, _NO_CONE = (0.0, 360.0, -90.0, 90.0), (0.0, 0.0, 0.0)
_OBT = {"ObtParamTarvos": (21, "ObtTarvos"), "ObtParamVardo": (51, "ObtTarvos"), "ObtParamKelda": (61, "ObtKelda"), "ObtParamBrisa": (71, "ObtTarvos")}


def geoid(latitude, longitude, /, *, max_degree=360, model=None, errors="raise", return_status=False):
    """Height of the geoid above the WGS84 ellipsoid (EGM96), m, at geodetic latitudes and longitudes, deg.

    Latitude -90 to 90, longitude 0 to 360, max_degree 0 to 360. On a grid geoid_grid is dozens of times faster.

    >>> import kitlib as kl
    >>> round(kl.geoid(0.0, 0.0), 3)
    17.162
    """
    return _GEOID.go((latitude, longitude), (max_degree,), (model,), errors, return_status)


# The scalar call takes a record: one element goes through the call for arrays.
_GEOID = _arrays.Function("kl_geoid_calc", "kl_geoid_calc_n", 44, 1, None, False, (
    ("model",), ("n",), ("each", "latitude", "f8", 0, False, False), ("each", "longitude", "f8", 0, False, False), ("select", None, "max_degree"),
    ("gives", "undulation", "f8", 0, False, False)), scalar_is_array=True)


def geoid_grid(latitudes, longitudes, /, *, max_degree=360, model=None):
    """Heights of the geoid, m, [n_latitudes, n_longitudes], of a grid: the same bits as geoid in every node.

    >>> import kitlib as kl
    >>> kl.geoid_grid([0.0, 45.0], [0.0, 90.0, 180.0], max_degree=8).shape
    (2, 3)
    """
    lat, lon = (np.ascontiguousarray(_arrays.numbers(x, np.dtype("f8"), 0, n), "f8") for x, n in ((latitudes, "latitudes"), (longitudes, "longitudes")))
    if lat.ndim != 1 or lon.ndim != 1:
        raise ValueError(f"one axis each is wanted, not shapes {lat.shape} and {lon.shape}")
    out = np.empty((len(lat), len(lon)))
    degree, n_lat, n_lon = ctypes.c_long(_arrays.selected(max_degree, None)), ctypes.c_long(len(lat)), ctypes.c_long(len(lon))
    vector = (ctypes.c_long * 1)()
    held = _ids.pointer_of("model", model)
    if symbol("kl_geoid_grid")(held.pointer, ctypes.byref(degree), _arrays.pointer(lat), ctypes.byref(n_lat), _arrays.pointer(lon), ctypes.byref(n_lon),
                               _arrays.pointer(out), vector) == -1:
        raise _errors.error("kl_geoid_grid", 44, vector, where="geoid_grid")
    return out


def _clock(parameters):
    try:
        return _OBT[type(parameters).__name__]
    except KeyError:
        raise TypeError(f"parameters: ObtParamTarvos, ObtParamVardo, ObtParamKelda or ObtParamBrisa is wanted, not {type(parameters).__name__}") from None


def time_obt_to_time(*reading, parameters, ref="UTC", errors="raise", return_status=False):
    """Processing time, MJD2000 days, of readings of an on-board clock.

    reading: coarse and fine counts (whole numbers); for ObtParamKelda seconds. parameters: the record of the satellite's
    format, kl.ObtParamTarvos, kl.ObtParamVardo, kl.ObtParamKelda or kl.ObtParamBrisa; ref: the scale that it speaks of.

    >>> import kitlib as kl
    >>> kl.time_obt_to_time(86400, 0, parameters=kl.ObtParamTarvos(21, 9668.0, 0, 0, 10**12))
    9669.0
    """
    sat, record = _clock(parameters)
    dtype = np.dtype(getattr(_table, record))
    names = dtype.names[1:]
    if len(reading) != len(names):
        raise TypeError(f"{' and '.join(names)} are wanted")
    given = [_arrays.numbers(v, np.dtype("f8"), 0, n) for v, n in zip(reading, names)]
    for v, n in zip(given, names):
        if dtype[n].kind == "u" and (v.dtype.kind == "f" or (v.dtype.kind == "i" and np.any(v < 0))):
            raise ValueError(f"{n}: whole numbers from 0 on are wanted")
    shape = _arrays.broadcast([v.shape for v in given], names)
    obt = np.zeros(shape, dtype)
    obt["sat_id"] = sat
    for v, n in zip(given, names):
        obt[n] = v
    out, status = np.empty(shape), np.zeros(shape, "i8")
    _clock_call("kl_time_obt_to_time", 11, sat, ref, parameters, obt, out, status, errors, out, shape, dict(zip(names, given)))
    result = out if shape else out.item()
    return (result, status if shape else int(status)) if return_status else result


def time_time_to_obt(t, /, *, parameters, ref="UTC", errors="raise", return_status=False):
    """Reading of an on-board clock at processing times: coarse and fine counts, or for ObtParamKelda seconds.

    The inverse of time_obt_to_time, with its parameters.
    """
    sat, record = _clock(parameters)
    dtype = np.dtype(getattr(_table, record))
    given = np.ascontiguousarray(_arrays.numbers(t, np.dtype("f8"), 0, "t"), "f8")
    shape = np.shape(t)
    given = given.reshape(shape)
    obt, status = np.zeros(shape, dtype), np.zeros(shape, "i8")
    obt["sat_id"] = sat
    fields = _clock_call("kl_time_time_to_obt", 12, sat, ref, parameters, given, obt, status, errors, obt, shape, {"t": given})
    found = tuple(obt[n] if shape else obt[n].item() for n in dtype.names[1:])
    result = found if len(found) > 1 else found[0]
    return (result, status if shape else int(status)) if return_status else result


def _clock_call(name, public_id, sat, ref, parameters, given, out, status, errors, outputs, shape, named):
    if errors not in ("raise", "nan"):
        raise ValueError(f'errors is "raise" or "nan", not {errors!r}')
    n, number, scale = ctypes.c_long(out.size), ctypes.c_long(sat), _arrays.long_pointer(_arrays.selected(ref, _table.Time))
    vector = (ctypes.c_long * 1)()
    done = symbol(name + "_n")(ctypes.byref(number), ctypes.byref(n), scale, ctypes.byref(parameters), _arrays.pointer(given), _arrays.pointer(out), _arrays.pointer(status), vector)
    if done == -1 and errors == "raise":
        raise _errors.error(name, public_id, vector, status if shape else None, outputs if shape else None, 
                            _arrays.where_failed(name[3:], status, shape, named) + f", parameters {_arrays.written(parameters)}")
    if done == 1:
        _errors.warn(name, public_id, vector)


def star_catalog(t, /, *, file=None, magnitudes=(-30.0, 30.0), box=None, cone=None, corrections=7, cs_out="TOD", ref="UTC", model=None, time=None):
    """Stars whose place at an instant lies in a window: (stars, places), structured arrays of kl.Star and kl.Radec.

    t: MJD2000 days, one instant. file: a catalogue; None: the built-in one, 8404 stars to magnitude 6.5. magnitudes: least
    and largest. box: least and largest right ascension, least and largest declination, deg; cone: right ascension,
    declination, radius (above 0, to 180), deg. Both apply where both are given, and both are in the axes cs_out.
    corrections: sum of kl.StarCorrection; cs_out: axes of the places.
    """
    t = one_instant(t, "t")
    for name, given, fields in (("magnitudes", magnitudes, ("least", "largest")), ("box", box, _BOX), ("cone", cone, _CONE)):
        if given is not None and np.shape(given) != (len(fields),):
            raise ValueError(f"{name}: {len(fields)} numbers are wanted ({', '.join(fields)}), not {given!r}")
    if cone is not None and not cone[2] > 0:
        raise ValueError(f"cone: a radius above 0 is wanted, not {cone[2]!r}")
    window = _table.StarWindow(*magnitudes, *(_WHOLE_SKY if box is None else box), *(_NO_CONE if cone is None else cone))
    n, stars, places, vector = ctypes.c_long(0), ctypes.c_void_p(), ctypes.c_void_p(), (ctypes.c_long * 1)()
    models, correlation = _ids.pointer_of("model", model), _ids.pointer_of("time", time)
    status = symbol("kl_star_catalog")(models.pointer, correlation.pointer, None if file is None else os.fsencode(file), ctypes.byref(window),
                                       _arrays.long_pointer(_arrays.selected(corrections, None)), _arrays.long_pointer(_arrays.selected(cs_out, _table.Frame)),
                                       _arrays.long_pointer(_arrays.selected(ref, _table.Time)), ctypes.byref(ctypes.c_double(t)), ctypes.byref(n),
                                       ctypes.byref(stars), ctypes.byref(places), vector)
    if status == -1:
        raise _errors.error("kl_star_catalog", 35, vector, where=f"star_catalog: t {t}, file {file!r}, magnitudes {magnitudes}, box {box}, cone {cone}")
    found = []
    for pointer, record in ((stars, _table.Star), (places, _table.Radec)):
        dtype = _calls.dtype_of(record)
        octets = ctypes.string_at(pointer.value, n.value * dtype.itemsize) if n.value else b""
        found.append(np.frombuffer(octets, dtype).copy())
        KITLIB.kl_free_array(ctypes.byref(pointer))
    if status == 1:
        _errors.warn("kl_star_catalog", 35, vector)
    return tuple(found)


def poly_real_roots(c, /, *, errors="raise", return_status=False):
    """Distinct real roots of polynomials of order 1 to 4, ascending, [..., 4], NaN where there are no more; and their number.

    c: [..., order + 1], c[0] + c[1] x + c[2] x**2 ... The rules of multiple roots are those of kl_poly_real_roots in C.

    >>> import kitlib as kl
    >>> roots = kl.poly_real_roots([6.0, -5.0, 1.0])
    >>> roots.roots[:roots.n_roots]
    array([2., 3.])
    """
    if errors not in ("raise", "nan"):
        raise ValueError(f'errors is "raise" or "nan", not {errors!r}')
    given = np.ascontiguousarray(_arrays.numbers(c, np.dtype("f8"), 0, "c"), "f8")
    if given.ndim == 0 or not 2 <= given.shape[-1] <= 5:
        raise ValueError(f"c: the last axis must have 2 to 5 elements, not shape {given.shape}")
    shape = given.shape[:-1]
    roots, n_roots, status = np.full(shape + (4,), np.nan), np.zeros(shape, "i8"), np.zeros(shape, "i8")
    n, order = ctypes.c_long(n_roots.size), ctypes.c_long(given.shape[-1] - 1)
    done = symbol("kl_poly_real_roots_n")(ctypes.byref(n), ctypes.byref(order), _arrays.pointer(given), _arrays.pointer(roots), _arrays.pointer(n_roots),
                                          _arrays.pointer(status), None)
    if done == -1 and errors == "raise":
        raise _errors.KitError("kl_poly_real_roots", messages=("a coefficient is not finite, or none is above order 0",), status=status if shape else None,
                               outputs=roots if shape else None, where=_arrays.where_failed("poly_real_roots", status, shape, {"c": given}))
    found = RealRoots(roots, n_roots if shape else int(n_roots))
    return (found, status if shape else int(status)) if return_status else found


def time_get_row(t, /, *, ref="UTC", time=None):
    """Which row of a correlation serves MJD2000 instants, and what it gives: a structured array, s and arcsec.

    row is -1 before the table and the number of rows after it; quality: kl.Quality; by_formula: 1 where UT1 comes from
    a formula after the table.

    >>> import kitlib as kl
    >>> row = kl.time_get_row(6210.0)
    >>> float(row["tai_utc"]), round(float(row["tai_utc"] - row["tai_ut1"]), 4)
    (37.0, 0.5913)
    """
    instants = np.ascontiguousarray(_arrays.numbers(t, np.dtype("f8"), 0, "t"), "f8").reshape(np.shape(t))
    out, status = np.zeros(instants.shape, np.dtype(_table.TimeRowInfo)), np.zeros(instants.shape, "i8")
    which = _arrays.long_pointer(_arrays.selected(ref, _table.Time))
    if symbol("kitlib_kl_time_get_row_n")(_ids.pointer_of("time", time).pointer, ctypes.byref(ctypes.c_long(instants.size)), which,
                                          _arrays.pointer(instants), _arrays.pointer(out), _arrays.pointer(status)) == -1:
        raise _errors.KitError("kl_time_get_row", messages=("no row for the instant",), status=status if status.ndim else None, outputs=out if status.ndim else None,
                               where=_arrays.where_failed("time_get_row", status, status.shape, {"t": instants}))
    return out


def interpolate_states(t, /, *, times, pos, vel, errors="raise", return_status=False):
    """States between states in memory, by Hermite's polynomial of degree 11 through the six nearest.

    Arguments:
        t: s, from the first to the last of times; nothing is extrapolated
    Keywords:
        times: [n], s, from where the caller likes, increasing; 2 or more. Of days the seconds since the first one:
            (days - days[0]) * 86400
        pos, vel: [n, 3], m and m/s, all in one frame
    Returns InterpolatedState:
        pos: [..., 3], m
        vel: [..., 3], m/s
        error: m, how far the same polynomial with one state fewer is: above the true error where the motion is smooth
    Raises KitError: an instant outside, or states around it that are not in order or no numbers.
    C has no array form of it: the package's own loop in C calls it once an element.

    >>> import kitlib as kl, numpy as np
    >>> s = np.arange(0.0, 3600.0, 60.0)
    >>> pos = 7e6 * np.stack([np.cos(1e-3 * s), np.sin(1e-3 * s), 0 * s], axis=1)
    >>> vel = 7e3 * np.stack([-np.sin(1e-3 * s), np.cos(1e-3 * s), 0 * s], axis=1)
    >>> found = kl.interpolate_states([90.0, 1000.0], times=s, pos=pos, vel=vel)
    >>> bool(np.abs(found.pos[1] - 7e6 * np.array([np.cos(1.0), np.sin(1.0), 0.0])).max() < 1e-6)
    True
    """
    if errors not in ("raise", "nan"):
        raise ValueError(f'errors is "raise" or "nan", not {errors!r}')
    number = np.dtype("f8")
    given = _arrays.numbers(t, number, 0, "t")
    shape = given.shape
    given = np.ascontiguousarray(given, number)
    columns = [_arrays.numbers(x, number, length, name) for x, length, name in ((times, 0, "times"), (pos, 3, "pos"), (vel, 3, "vel"))]
    n = len(columns[0]) if columns[0].ndim == 1 else -1
    if [c.shape for c in columns] != [(n,), (n, 3), (n, 3)]:
        raise ValueError(f"times, pos and vel: shapes (n,), (n, 3) and (n, 3) are wanted, not {', '.join(str(c.shape) for c in columns)}")
    states = np.empty(n, np.dtype(_table.StateAt))
    states["time"], states["pos"], states["vel"] = columns
    found = InterpolatedState(np.empty(shape + (3,)), np.empty(shape + (3,)), np.empty(shape))
    status = np.zeros(shape, "i8")
    done = symbol("kitlib_kl_interpolate_states_n")(ctypes.byref(ctypes.c_long(n)), _arrays.pointer(states), ctypes.byref(ctypes.c_long(given.size)),
                                                    _arrays.pointer(given), *[_arrays.pointer(x) for x in found], _arrays.pointer(status))
    if not shape:
        found = found._replace(error=found.error.item())
    if done == -1 and errors == "raise":
        raise _errors.KitError("kl_interpolate_states", messages=("an instant without states around it, or states that are not in order or no numbers",),
                               status=status if shape else None, outputs=found if shape else None,
                               where=_arrays.where_failed("interpolate_states", status, shape, {"t": given.reshape(shape)}))
    return (found, status if shape else int(status)) if return_status else found


def time_get_leap_seconds(*, time=None):
    """All steps of TAI-UTC of a correlation: from which instant on (UTC, MJD2000), its value (s), and until when the list that
    was read is good (UTC, MJD2000; 0: not said).

    >>> import kitlib as kl
    >>> steps = kl.time_get_leap_seconds()
    >>> float(steps.utc[-1]), float(steps.tai_utc[-1])
    (6210.0, 37.0)
    """
    n, utc, tai_utc, expiry = ctypes.c_long(0), ctypes.c_void_p(), ctypes.c_void_p(), ctypes.c_double(0.0)
    if symbol("kl_time_get_leap_seconds")(_ids.pointer_of("time", time).pointer, ctypes.byref(n), ctypes.byref(utc), ctypes.byref(tai_utc), ctypes.byref(expiry)) == -1:
        raise _errors.KitError("kl_time_get_leap_seconds", messages=("the time id is not initialised",))
    found = []
    for pointer in (utc, tai_utc):
        octets = ctypes.string_at(pointer.value, 8 * n.value) if n.value else b""
        found.append(np.frombuffer(octets, "f8").copy())
        KITLIB.kl_free_array(ctypes.byref(pointer))
    return LeapSeconds(*found, expiry.value)
