"""Instants as Python's world writes them, to and from MJD2000."""
import datetime
import sys

import numpy as np

from . import _functions, _ids
from ._errors import KitError
from ._table import Time

_EPOCH = np.datetime64("2000-01-01T00:00:00", "us")
_READ = _functions._time_text_to_processing.silent()


def _from_texts(texts, ref):
    """MJD2000 in the scale ref of texts of any layout; what the correlation says of its validity does not matter here."""
    try:
        return _READ.go((texts,), (ref, ref), (_ids.for_reading(),), "raise", False)
    except KitError as error:
        where = "mjd2000: " + error.where.partition(": ")[2]
        raise KitError("mjd2000", error.codes, error.messages, error.status, error.outputs, where) from None


def mjd2000(x, ref="UTC"):
    """Days since 2000-01-01 00:00 of the scale ref: of texts, numpy.datetime64, datetime or astropy's Time.

    Texts may have any layout of the library, with its prefix or without (2026-06-21_08:24:00, 20260621T082400,
    21-JUN-2026 08:24:00, ...), or be CCSDS A or B with a Z at the end or without; the time of day with its seconds is
    required, 2026-06-21T00:00:00 for a date. One that says another scale than ref is
    changed to it. A datetime without a time zone is in the scale ref; one with a time zone must meet ref="UTC". NaT gives
    NaN.

    >>> import kitlib as kl
    >>> kl.mjd2000("2026-06-21T08:24:00Z")
    9668.35
    >>> kl.mjd2000(["2026-172T08:24:00", "21-JUN-2026 20:24:00"]).tolist()
    [9668.35, 9668.85]
    """
    if type(ref) is not Time:
        ref = Time(_number(ref))
    if ref is Time.UNDEF:
        raise ValueError("ref: TAI, UTC, UT1 or GPS is wanted")
    if isinstance(x, str):
        return _from_texts(x, ref)
    astropy_time = getattr(sys.modules.get("astropy.time"), "Time", None)
    if astropy_time is not None and isinstance(x, astropy_time):
        return _from_astropy(x, ref)
    if isinstance(x, datetime.datetime):
        x = _naive(x, ref)
    if isinstance(x, np.ma.MaskedArray):
        raise TypeError("a masked array; fill it or compress it first")
    array = np.asarray(x)
    if array.size == 0 and not isinstance(x, np.ndarray):  # an empty list says no type
        return np.empty(array.shape)
    if array.dtype.kind == "O":
        if all(isinstance(item, datetime.datetime) for item in array.flat):
            array = np.array([np.datetime64(_naive(item, ref), "us") for item in array.flat], "M8[us]").reshape(array.shape)
        elif all(isinstance(item, str) for item in array.flat):
            array = array.astype("U")
    if array.dtype.kind in "SU":
        out = _from_texts(array, ref)
    elif array.dtype.kind == "M":
        out = _from_datetime64(array)
    else:
        raise TypeError(f"texts, datetime64 or datetime are wanted, not {array.dtype}")
    return out if np.ndim(out) else float(out)


def _number(ref):
    if isinstance(ref, str):
        try:
            return Time[ref.upper()]
        except KeyError:
            raise ValueError(f"{ref!r} is no scale: TAI, UTC, UT1 or GPS") from None
    return ref


def _naive(x, ref):
    if x.tzinfo is None:
        return x
    if ref != Time.UTC:
        raise ValueError(f"a datetime with a time zone is UTC, not {ref.name}")
    return x.astimezone(datetime.timezone.utc).replace(tzinfo=None)


def _from_datetime64(array):
    """Whole days apart from the rest: the day's fraction keeps its bits."""
    missing = np.isnat(array)
    day = array.astype("M8[D]")
    rest = array - day.astype(array.dtype)
    unit = np.datetime_data(array.dtype)[0]
    if unit in ("generic", "Y", "M", "W", "D"):
        part = 0.0
    else:
        per_day = np.timedelta64(1, "D") / np.timedelta64(1, array.dtype.str[4:-1].lstrip("0123456789") or "s")
        step = np.datetime_data(array.dtype)[1]
        part = rest.astype("i8") * float(step) / per_day
    out = (day - np.datetime64("2000-01-01", "D")).astype("f8") + part
    return np.where(missing, np.nan, out)


def _from_astropy(x, ref):
    if ref == Time.UTC:  # by texts: a day with a leap second is longer in its days
        copy = x.utc.copy(format="isot")
        copy.precision = 9
        return _from_texts(copy.value, ref)
    scale = x.ut1 if ref == Time.UT1 else x.tai
    out = (scale.jd1 - 2451544.5) + scale.jd2
    return out - 19 / 86400 if ref == Time.GPS else out


def to_datetime64(t, unit="us"):
    """MJD2000 days as numpy.datetime64, rounded to the unit; what is not finite gives NaT.

    >>> import kitlib as kl
    >>> print(kl.to_datetime64(9668.35))
    2026-06-21T08:24:00.000000
    """
    days = np.asarray(t, "f8")
    whole = np.floor(days)
    steps = np.timedelta64(1, "D") / np.timedelta64(1, unit)
    good = np.isfinite(days)
    limit = 9.2e18 / steps - 10957 - 1
    if np.any(np.abs(days[good]) > limit):
        raise ValueError(f"outside what datetime64[{unit}] can hold")
    first = np.where(good, whole, 0.0)
    count = np.rint((np.where(good, days, 0.0) - first) * steps)
    out = (np.datetime64("2000-01-01", "D") + first.astype("i8").astype("m8[D]")).astype(f"M8[{unit}]") + count.astype("i8").astype(f"m8[{unit}]")
    out = np.where(good, out, np.datetime64("NaT", unit))
    return out if out.ndim else out[()]
