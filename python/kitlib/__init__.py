"""Time scales and formats, frames, Sun, Moon and planets, the Earth and its geoid, rotations, on-board clocks: over arrays.

Functions carry the names of C without the prefix. Arguments that vary from element to element come first and by
position, selectors and ids are keywords. Instants are MJD2000 days, lengths metres, angles degrees. Results are named
tuples of new arrays, or one array; numbers for numbers.

What C refuses is a KitError, which has the statuses of all elements and what was computed of the others; with
errors="nan" it is NaN (0, an empty text) in its place, and nothing is raised. With return_status=True a pair is
returned, the result and the statuses (0, 1: warned, -1: failed); it does not keep errors="raise" from raising. What
cannot be an argument at all, as a wrong shape, a masked array or a closed id, is a TypeError or ValueError.

What there is, by subject; help(kl.sun) has arguments, units, ranges and errors of one:

    instants    mjd2000 (of texts, datetime, datetime64), to_datetime64
    scales      time_processing_to_processing, time_get_leap_seconds, time_get_leap_second_info, time_get_row, time_get_pole
    formats     time_ascii_to_ascii, time_ascii_to_processing, time_ascii_to_transport, time_text_to_processing,
                time_processing_to_ascii, time_processing_to_transport, time_transport_to_ascii, time_transport_to_processing,
                time_transport_to_transport; time_add, time_diff; layouts: kl.Ascii, kl.Transport
    on board    time_cuc_to_processing, time_processing_to_cuc, time_obt_to_time, time_time_to_obt
    bodies      sun, moon, planet
    frames      change_cart_cs (kl.Frame), iers_change, iers_matrix (kl.IersFrame), earth_orientation_get
    Earth       geod_to_cart, cart_to_geod, geod_distance, geod_point, geod_to_utm, utm_to_geod, ef_to_topocentric,
                topocentric_to_ef, geoid, geoid_grid
    orbits      kepl_to_cart, cart_to_kepl, mean_motion, position_on_orbit, orbit_sun, local_orbital_frame, interpolate_states
    sky         star_catalog, star_radec, cart_to_radec, radec_to_cart
    geometry    ray_ellipsoid, ray_height, ray_tangent, eclipse, poly_real_roots
    rotations   euler_to_matrix, matrix_to_euler, get_rotation_angles, get_rotated_vectors, quaternions_to_vectors,
                vectors_to_quaternions, quaternions_interpol
    ids         TimeId (correlation of the scales), ModelId, SatId, RunId

    kl.events   passes over a station, eclipses, nodes, rise and set of the Sun, zeros of any function of time
    kl.plot     ground track, geoid, eclipse seasons, path of the pole (needs matplotlib)
    kl.dask     any function over columns larger than memory, on many processes or machines (needs dask)
    kl.codes    the conditions of each function, as kl.codes.sun.DATE_ERR in the .codes of a KitError

>>> import kitlib as kl
>>> t = kl.mjd2000("2026-06-21T08:24:00Z")
>>> sun = kl.sun(t)
>>> print(sun.pos.round(-6))
[8.10920e+10 1.13484e+11 6.04680e+10]
"""
from importlib import import_module as _import_module

from . import _functions
from ._errors import KitError, KitWarning, codes_of as _codes_of
from ._functions import *  # noqa: F403
from ._ids import ModelId, RunId, SatId, TimeId
from ._more import (geoid, geoid_grid, interpolate_states, poly_real_roots, star_catalog, time_get_leap_seconds, time_get_row,
                    time_obt_to_time, time_time_to_obt)
from ._table import *  # noqa: F403
from ._table import CONDITIONS as _CONDITIONS
from ._time import mjd2000, to_datetime64
from ._version import __version__

__all__ = [n for n in dir() if not n.startswith("_")]


class _Codes:
    """Conditions of the functions: kl.codes.sun.DATE_ERR."""

    def __getattr__(self, name):
        if name in _PUBLIC_IDS:
            return _codes_of(_PUBLIC_IDS[name])
        raise AttributeError(f"no function {name} with conditions")

    def __dir__(self):
        return sorted(_PUBLIC_IDS)


_PUBLIC_IDS = {function[3:]: public_id for public_id, (function, _) in _CONDITIONS.items()}
_PUBLIC_IDS.update({n: f.public_id for n in _functions.__all__ if (f := getattr(_functions, "_" + n)).public_id is not None}, geoid=_PUBLIC_IDS["geoid_calc"])
codes = _Codes()


def __getattr__(name):
    """The modules of the package that are imported when they are first asked for."""
    if name in ("dask", "events", "plot"):
        return _import_module("." + name, __name__)
    raise AttributeError(f"module {__name__!r} has no attribute {name!r}")
