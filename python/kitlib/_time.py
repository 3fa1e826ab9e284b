"""Instants as Python's world writes them, to and from MJD2000."""
import datetime
import re
import sys

import numpy as np

from . import _functions, _ids
from ._table import Time

_EPOCH = np.datetime64("2000-01-01T00:00:00", "us")
_DAY = 86400000000
_PREFIX = re.compile(r"(TAI|UTC|UT1|GPS)=")
_MONTHS = b"JANFEBMARAPRMAYJUNJULAUGSEPOCTNOVDEC"


def _ordinal_to_calendar(digits):
    """Columns yyyy, ddd as yyyy, mm, dd; a day that the year does not have stays wrong, so that it is refused."""
    year = digits[:, 0:4] @ np.array([1000, 100, 10, 1])
    day = digits[:, 4:7] @ np.array([100, 10, 1])
    start = (year - 1970).astype("M8[Y]").astype("M8[D]")
    date = start + (day - 1)
    good = (day >= 1) & (date.astype("M8[Y]") == start.astype("M8[Y]"))
    months = date.astype("M8[M]")
    month = np.where(good, months.astype(int) % 12 + 1, 99)
    dom = np.where(good, (date - months.astype("M8[D]")).astype(int) + 1, 99)
    return np.stack([*(year // 10 ** k % 10 for k in (3, 2, 1, 0)), month // 10, month % 10, dom // 10, dom % 10], axis=1)


def _layout(text):
    """Which characters of a text hold the date, is it ordinal or with a named month, hours minutes seconds, decimals."""
    patterns = [
        (r"\d{4}-\d\d-\d\d[T_ ]\d\d:\d\d:\d\d(\.\d*)?", (0, 1, 2, 3, 5, 6, 8, 9), (11, 12, 14, 15, 17, 18), 19, ""),
        (r"\d{4}-\d{3}[T_ ]\d\d:\d\d:\d\d(\.\d*)?", (0, 1, 2, 3, 5, 6, 7), (9, 10, 12, 13, 15, 16), 17, "ordinal"),
        (r"\d{8}[T_]\d{6}(\d{6})?", (0, 1, 2, 3, 4, 5, 6, 7), (9, 10, 11, 12, 13, 14), 15, ""),
        (r"\d\d-[A-Z]{3}-\d{4} \d\d:\d\d:\d\d(\.\d*)?", (7, 8, 9, 10, 3, 4, 5, 0, 1), (12, 13, 15, 16, 18, 19), 20, "named"),
    ]
    for pattern, date, clock, end, kind in patterns:
        if re.fullmatch(pattern, text):
            return date, clock, end, kind
    raise ValueError(f"{text!r} is no text of a time: 2026-06-21T08:24:00.5Z, 2026-172T08:24:00, 2026-06-21_08:24:00, "
                     "20260621_082400, 20260621T082400 or 21-JUN-2026 08:24:00 are")


def _from_texts(texts, ref):
    """MJD2000 in the scale ref of texts of any layout; a prefix UTC= must be that of ref."""
    flat = np.asarray(texts, "U").ravel()
    out = np.empty(flat.shape)
    # Texts of one shape: digits, letters of months and marks at the same places.
    codes = flat.view(np.uint32).reshape(len(flat), -1) if len(flat) else np.zeros((0, 1), np.uint32)
    if codes.size and codes.max() > 127:
        raise ValueError("texts of times are ASCII")
    codes = codes.astype(np.uint8)
    digit = (codes >= 48) & (codes <= 57)
    shapes = np.where(digit, np.uint8(57), codes)
    shapes[(codes >= 65) & (codes <= 90) & (codes != ord("T")) & (codes != ord("Z"))] = ord("X")
    kinds, which = np.unique(np.ascontiguousarray(shapes).view(f"V{max(shapes.shape[1], 1)}").ravel(), return_inverse=True) if len(flat) else ((), ())
    for k in range(len(kinds)):
        rows = np.nonzero(which == k)[0]
        text = str(flat[rows[0]])
        part = codes[rows]
        prefix = _PREFIX.match(text)
        skip = 0
        if prefix:
            if np.any(part[:, :3] != part[0, :3]):
                raise ValueError("texts with different prefixes: read them apart")
            if prefix.group(1) != Time(ref).name:
                raise ValueError(f"{text!r} is not in the scale {Time(ref).name}")
            skip = 4
        body = text[skip:]
        if body.endswith("Z"):
            if ref != Time.UTC:
                raise ValueError(f"{text!r}: Z is UTC, not {Time(ref).name}")
            body = body[:-1]
        date, clock, end, kind = _layout(body)
        part = part[:, skip:].astype(np.int64) - 48
        days = part[:, list(date)]
        if kind == "ordinal":
            days = _ordinal_to_calendar(days)
        elif kind == "named":
            month = np.full(len(rows), 99)
            for m in range(12):
                name = np.frombuffer(_MONTHS[3 * m:3 * m + 3], np.uint8).astype(np.int64) - 48
                month[(days[:, 4:7] == name).all(axis=1)] = m + 1
            days = np.concatenate([days[:, 0:4], (month // 10)[:, None], (month % 10)[:, None], days[:, 7:9]], axis=1)
        decimals = part[:, end + (1 if "." in body else 0):len(body)]
        micro = np.zeros((len(rows), 6), np.int64)
        extra = np.zeros(len(rows))
        if decimals.shape[1]:
            micro[:, :min(6, decimals.shape[1])] = decimals[:, :6]
            for j in range(6, min(decimals.shape[1], 15)):
                extra += decimals[:, j] * 10.0 ** -(j + 1)
        text43 = np.full((len(rows), 32), 0, np.uint8)
        text43[:, :26] = np.frombuffer(b"0000-00-00T00:00:00.000000", np.uint8)
        text43[:, [0, 1, 2, 3, 5, 6, 8, 9]] = (days + 48).astype(np.uint8)
        text43[:, [11, 12, 14, 15, 17, 18]] = (part[:, list(clock)] + 48).astype(np.uint8)
        text43[:, 20:26] = (micro + 48).astype(np.uint8)
        ready = np.ascontiguousarray(text43).view("S32").ravel()
        # No scale is changed: what the correlation says of its validity does not matter here.
        out[rows] = _functions._time_ascii_to_processing.many((ready,), (43, ref, ref), (_ids.for_reading(),), "raise", False, True) + extra / 86400
    return out.reshape(np.shape(texts))


def mjd2000(x, ref="UTC"):
    """Days since 2000-01-01 00:00 of the scale ref: of texts, numpy.datetime64, datetime or astropy's Time.

    Texts may have any layout of the library, with its prefix or without (2026-06-21_08:24:00, 20260621T082400,
    21-JUN-2026 08:24:00, ...), or be CCSDS A or B with a Z at the end or without. A datetime without a time zone is
    in the scale ref; one with a time zone must meet ref="UTC". NaT gives NaN.

    >>> import kitlib as kl
    >>> kl.mjd2000("2026-06-21T08:24:00Z")
    9668.35
    >>> kl.mjd2000(["2026-172T08:24:00", "21-JUN-2026 20:24:00"]).tolist()
    [9668.35, 9668.85]
    """
    ref = Time(_number(ref))
    if ref == Time.UNDEF:
        raise ValueError("ref: TAI, UTC, UT1 or GPS is wanted")
    astropy_time = getattr(sys.modules.get("astropy.time"), "Time", None)
    if astropy_time is not None and isinstance(x, astropy_time):
        return _from_astropy(x, ref)
    if isinstance(x, str):
        return float(_from_texts(np.asarray([x]), ref)[0])
    if isinstance(x, datetime.datetime):
        x = _naive(x, ref)
    if isinstance(x, np.ma.MaskedArray):
        raise TypeError("a masked array; fill it or compress it first")
    array = np.asarray(x)
    if array.dtype.kind == "O":
        if all(isinstance(item, datetime.datetime) for item in array.flat):
            array = np.array([np.datetime64(_naive(item, ref), "us") for item in array.flat], "M8[us]").reshape(array.shape)
        elif all(isinstance(item, str) for item in array.flat):
            array = array.astype("U")
    if array.dtype.kind == "S":
        array = np.char.decode(array, "ascii")
    if array.dtype.kind == "U":
        out = _from_texts(array, ref)
    elif array.dtype.kind == "M":
        out = _from_datetime64(array)
    else:
        raise TypeError(f"texts, datetime64 or datetime are wanted, not {array.dtype}")
    return out if out.ndim else float(out)


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
        out = _from_texts(np.asarray(copy.value, "U"), ref)
        return out if out.ndim else float(out)
    scale = x.ut1 if ref == Time.UT1 else x.tai
    out = (scale.jd1 - 2451544.5) + scale.jd2
    return out - 19 / 86400 if ref == Time.GPS else out


def to_datetime64(t, unit="us"):
    """MJD2000 days as numpy.datetime64, rounded to the unit; NaN gives NaT.

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
    count = np.rint(np.where(good, days - whole, 0.0) * steps)
    out = (np.datetime64("2000-01-01", "D") + first.astype("i8").astype("m8[D]")).astype(f"M8[{unit}]") + count.astype("i8").astype(f"m8[{unit}]")
    out = np.where(good, out, np.datetime64("NaT", unit))
    return out if out.ndim else out[()]
