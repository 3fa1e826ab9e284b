"""What is one value for a whole call: selectors and records, as C takes them."""
import ctypes
from enum import IntEnum

import numpy as np

longs = {}


def long_pointer(value):
    """A pointer to a constant long."""
    pointer = longs.get(value)
    if pointer is None:
        pointer = ctypes.byref(ctypes.c_long(value))
        if len(longs) < 10000:
            longs[value] = pointer
    return pointer


def one_instant(value, name):
    """A number of MJD2000 days."""
    if isinstance(value, (str, bytes)) or np.ndim(value) or np.asarray(value).dtype.kind not in "fiu":
        raise TypeError(f"{name}: one number of MJD2000 days is wanted, not {value!r}; kl.mjd2000 makes it of texts and datetimes")
    return float(value)


def selected(value, enum):
    """The number of a selector: a member of its class, its name as text, or a number."""
    if isinstance(value, str):
        if enum is None:
            raise TypeError(f"a number is wanted, not {value!r}")
        try:
            return int(enum[value.upper()])
        except KeyError:
            raise ValueError(f"{value!r} is no {enum.__name__}: {', '.join(m.name for m in enum)}") from None
    if isinstance(value, IntEnum) and enum is not None and not isinstance(value, enum):
        raise TypeError(f"{value!r} is no {enum.__name__}")
    if isinstance(value, (bool, np.bool_)):
        return int(value)
    try:
        number = value.__index__()
    except AttributeError:
        raise TypeError(f"a member of {enum.__name__ if enum else 'int'} or its name is wanted, not {type(value).__name__}") from None
    if not -(1 << 63) <= number < 1 << 63:
        raise ValueError(f"{number} does not fit a C long")
    return number


def record_fields(value, record, name):
    """Fields of a record from a sequence or a structured array; what is missing at the end is None."""
    known = [field for field, _ in record._fields_]
    if isinstance(value, record):
        return [getattr(value, field) for field in known]
    if isinstance(value, np.ma.MaskedArray):
        raise TypeError(f"{name}: a masked array; fill it or compress it first")
    if isinstance(value, (np.ndarray, np.void)) and value.dtype.names:
        return [value[field] if field in value.dtype.names else None for field in known]
    if isinstance(value, (str, bytes, dict, set)) or not hasattr(value, "__iter__"):
        raise TypeError(f"{name}: kl.{record.__name__}(...) or a sequence of its fields is wanted: {', '.join(known)}; not {type(value).__name__}")
    fields = list(value)
    if len(fields) > len(known):
        raise ValueError(f"{name}: at most {len(known)} fields are wanted: {', '.join(known)}")
    return fields + [None] * (len(known) - len(fields))


def one_record(value, record):
    """A record as a selector: one for the whole call."""
    if isinstance(value, record):
        return value
    out = record()
    for (field, _), given in zip(record._fields_, record_fields(value, record, record.__name__)):
        if given is not None:
            setattr(out, field, int(given) if isinstance(getattr(out, field), int) else float(given))
    return out
