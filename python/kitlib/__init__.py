"""Time scales and formats, frames, Sun, Moon and planets, the Earth and its geoid, rotations, on-board clocks: over arrays.

Functions carry the names of C without the prefix. Arguments that vary from element to element come first and by
position, selectors and ids are keywords. Instants are MJD2000 days, lengths metres, angles degrees. Results are named
tuples of new arrays, or one array; numbers for numbers.

What C refuses is a KitError, which has the statuses of all elements and what was computed of the others; with
errors="nan" it is NaN (0, an empty text) in its place, and nothing is raised. With return_status=True a pair is
returned, the result and the statuses (0, 1: warned, -1: failed); it does not keep errors="raise" from raising. What
cannot be an argument at all, as a wrong shape, a masked array or a closed id, is a TypeError or ValueError.

>>> import kitlib as kl
>>> t = kl.mjd2000("2026-06-21T08:24:00Z")
>>> sun = kl.sun(t)
>>> print(sun.pos.round(-6))
[8.10920e+10 1.13484e+11 6.04680e+10]
"""
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
        for public_id, (function, _) in _CONDITIONS.items():
            if function == "kl_" + name:
                return _codes_of(public_id)
        raise AttributeError(f"no function {name} with conditions")

    def __dir__(self):
        return [function[3:] for function, _ in _CONDITIONS.values()]


codes = _Codes()
