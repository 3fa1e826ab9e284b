"""From Python's arguments to the array calls of C and back: broadcasting, types, selectors, results."""
import copy
import ctypes
import functools
import math
import re

import numpy as np

from . import _errors, _memory, _table
from ._calls import DTYPES, F8, OCTETS, array_call, dtype_of, one_element, quick_call, record_tuple
from ._library import symbol
from ._pointers import from_buffer, pointer
from ._selectors import long_pointer, one_record, record_fields, selected


def unmasked(value, name):
    """value as an array; one with a mask is refused: what it hides would be computed."""
    if isinstance(value, np.ma.MaskedArray):
        raise TypeError(f"{name}: a masked array; fill it or compress it first")
    return np.asarray(value)


def numbers(value, dtype, length, name):
    """value as an array of the type and the item length."""
    array = unmasked(value, name)
    kind = array.dtype.kind
    if kind not in ("fiu" if dtype.kind == "f" else "iu"):
        if kind == "f" and dtype.kind == "i":
            raise TypeError(f"{name}: whole numbers are wanted, not {array.dtype}")
        hint = "; kl.mjd2000 makes MJD2000 days of texts and datetimes" if kind == "M" or name == "t" or name.startswith("time") else ""
        raise TypeError(f"{name}: numbers are wanted, not {array.dtype}{hint}")
    if dtype.kind == "i" and array.dtype.char in "LQ" and array.size and int(array.max()) >> 63:
        raise ValueError(f"{name}: does not fit a C long")
    if length and (array.ndim == 0 or array.shape[-1] != length):
        raise ValueError(f"{name}: the last axis must have {length} elements, not shape {array.shape}")
    return array


def texts(value, name):
    """value as an array of texts that the loops in C take: of characters of four octets or of one."""
    array = unmasked(value, name)
    if array.size == 0 and not isinstance(value, np.ndarray):  # an empty list says no type
        array = array.astype("U1")
    if array.dtype.kind not in "SU" and not (array.dtype.kind == "O" and all(isinstance(x, str) for x in array.flat)):
        raise TypeError(f"{name}: texts are wanted, not {array.dtype}")
    if array.dtype.kind == "O":
        array = array.astype("U")
    return array.astype(array.dtype.newbyteorder("=") if array.dtype.itemsize else "U1", copy=False)


def octets(value, name):
    """value as an array of octets."""
    if isinstance(value, (bytes, bytearray)):
        array = np.frombuffer(bytes(value), np.uint8)
    elif isinstance(value, (list, tuple)) and all(isinstance(x, (bytes, bytearray)) for x in value):
        if len({len(x) for x in value}) > 1:
            raise ValueError(f"{name}: codes of one length are wanted")
        array = np.frombuffer(b"".join(value), np.uint8).reshape(len(value), len(value[0]) if value else 0)
    else:
        array = unmasked(value, name)
    if array.dtype != np.uint8:
        raise TypeError(f"{name}: bytes or an array of uint8 is wanted, not {array.dtype}")
    if array.ndim == 0 or not 0 < array.shape[-1] <= OCTETS:
        raise ValueError(f"{name}: the last axis must have 1 to {OCTETS} octets, not shape {array.shape}")
    return array


_WITH_P_FIELD = int(_table.CucType.WITH_P_FIELD)


def of_layout(cuc, config):
    """Octets of CUCs, if they are as many as the layout has: C takes missing ones as zeros and leaves out what is more."""
    config = config if type(config) is _table.CucConfig else one_record(config, _table.CucConfig)
    n_coarse, n_fine = config.n_coarse, config.n_fine
    counts = n_coarse + n_fine if 1 <= n_coarse <= 7 and 0 <= n_fine <= 10 else 0
    with_p_field = config.cuc_type == _WITH_P_FIELD
    if type(cuc) is np.ndarray and not with_p_field and cuc.shape[-1:] == (counts,) and cuc.dtype is DTYPES["octets"]:
        return cuc
    if type(cuc) is bytes and len(cuc) > 1 and len(cuc) == (_octets_of_p_field(cuc[0] << 8 | cuc[1]) if with_p_field else counts):
        return cuc
    given = octets(cuc, "cuc")
    width = given.shape[-1]
    rows = given.reshape(-1, width)
    if with_p_field:
        heads, which = rows[:, 0].astype("u2") << 8 | (rows[:, 1] if width > 1 else 0), None
        if (heads != heads[:1]).any():
            heads, which = np.unique(heads, return_inverse=True)
        wanted = np.array([_octets_of_p_field(int(head)) for head in (heads[:1] if which is None else heads)], int)  # mostly all have one layout
        wanted = wanted if which is None else wanted[which]
        parts = "its P-field says"
    elif counts:
        wanted = np.array([counts])
        parts = f"{config.n_coarse} coarse and {config.n_fine} fine"
    else:
        return given  # C refuses it
    longest = wanted.max(initial=0)
    if longest and width not in (longest, OCTETS):
        raise ValueError(f"cuc: {longest} octets are wanted ({parts}), not {width}")
    beyond = rows[:, longest:] if len(wanted) == 1 else rows * (np.arange(width) >= wanted[:, None]) * (wanted > 0)[:, None]
    if longest and beyond.any():
        raise ValueError(f"cuc: octets behind those of the layout ({parts}) must be zero")
    return given


def _octets_of_p_field(head):
    """How many octets a P-field announces with itself (CCSDS 301.0-B), of its first two; 0 for one that C refuses."""
    first, second = head >> 8, head & 255
    more = first >> 7
    wanted = 2 + more + (first >> 2 & 3) + (first & 3) + more * ((second >> 5 & 3) + (second >> 2 & 7))
    return wanted if first >> 4 & 7 in (1, 2) and more * second < 128 and wanted <= OCTETS else 0


_packed = symbol("kitlib_packed")


@functools.lru_cache(maxsize=None)
def _all_numbers(record):
    return all(kind is ctypes.c_double for _, kind in record._fields_)


def _address(array):
    try:
        return ctypes.addressof(from_buffer(array))
    except (TypeError, ValueError, BufferError):  # read-only ones
        return array.__array_interface__["data"][0]


def contiguous(array, shape, item, dtype):
    """The array with its leading axes broadcast to shape: itself when it is that already."""
    if array.dtype == dtype and array.shape == shape + item and array.flags.c_contiguous and array.flags.aligned:
        return array
    out = _memory.some(shape, item, dtype)
    out[...] = array
    return out


def broadcast(shapes, names):
    if shapes.count(shapes[0]) == len(shapes):
        return shapes[0]
    try:
        return np.broadcast_shapes(*shapes)
    except ValueError:
        said = ", ".join(f"{n} {s}" for n, s in zip(names, shapes))
        raise ValueError(f"the arguments do not broadcast against each other: {said}") from None


class Function:
    """A function of the table: its parameters, and the call."""

    def __init__(self, name, array_symbol, public_id, words, result, flat, parameters, scalar_is_array=False):
        self.name, self.public_id, self.words, self.result, self.flat = name, public_id, max(words, 1), result, flat
        self.has_vector = words > 0
        self.symbol, self.scalar_is_array = array_symbol, scalar_is_array
        self.parameters = parameters
        self.each = [p for p in parameters if p[0] in ("each", "both", "inout")]
        self.gives = [p for p in parameters if p[0] in ("gives", "inout")]
        self.arrays_alone = all(p[2] in ("f8", "i8", "text") for p in self.gives)
        self.array = None  # looked up at the first call, so that an older library fails in its own functions only
        self.quiet = False
        self.make_calls()

    def silent(self):
        """The same without its warnings."""
        out = copy.copy(self)
        out.quiet = True
        out.make_calls()
        return out

    def make_calls(self):
        """The calls, and `go`, the one that tries them."""
        self.one = one = one_element(self)
        self.call = array_call(self)

        def other(values, selects, ids, errors, return_status):
            if one is not None and errors == "raise" and return_status is False:
                out = one(values, selects, ids)
                if out is not None:
                    return out
            if errors not in ("raise", "nan"):
                raise ValueError(f'errors is "raise" or "nan", not {errors!r}')
            return self.many(values, selects, ids, errors, return_status)
        self.go = quick_call(self, one, other)

    def inputs(self, values):
        """Arrays of the per-element arguments and the shape they have together."""
        arrays, items, shapes, names = [], [], [], []
        for value, (_, name, kind, length, optional, zeros) in zip(values, self.each):
            if value is None:
                if not optional:
                    raise TypeError(f"{self.name[3:]}: {name} is missing")
                arrays.append(None)
                items.append(())
                continue
            if kind == "text":
                array, item = texts(value, name), ()
            elif kind == "octets":
                array = octets(value, name)
                item = array.shape[-1:]
            elif isinstance(kind, str):
                array = numbers(value, DTYPES[kind], length, name)
                item = (length,) if length else ()
            else:
                array, item = self.packed(value, kind, name), ()
            arrays.append(array)
            items.append(item)
            shapes.append(array.shape[:array.ndim - len(item)])
            names.append(name)
        shape = broadcast(shapes, names) if shapes else ()
        for i, (role, *_) in enumerate(self.each):
            if arrays[i] is not None:
                given = arrays[i]
                arrays[i] = contiguous(given, shape, items[i], DTYPES.get(self.each[i][2], given.dtype))
                if role != "each" and np.shares_memory(arrays[i], given):
                    arrays[i] = arrays[i].copy()
        return arrays, shape

    def packed(self, value, record, name):
        """Records of a structured array, or of their fields."""
        dtype = dtype_of(record)
        if isinstance(value, np.ndarray) and value.dtype == dtype and not isinstance(value, np.ma.MaskedArray):
            return value
        names = dtype.names
        if isinstance(value, (list, tuple)) and len(value) == len(names) and _all_numbers(record) and all(
                type(v) is np.ndarray and v.dtype is F8 and v.flags.carray and v.shape == value[0].shape for v in value):
            return self.of_columns(value, value[0].shape, dtype)
        fields = [None if v is None else numbers(v, F8, 0, n) for v, n in zip(record_fields(value, record, name), names)]
        if not fields or fields[0] is None:
            raise TypeError(f"{self.name[3:]}: {names[0]} is missing")
        shape = broadcast([f.shape for f in fields if f is not None], [n for f, n in zip(fields, names) if f is not None])
        out = _memory.some(shape, (), dtype)
        if not _all_numbers(record):
            for n, field in zip(names, fields):
                out[n] = 0.0 if field is None else field
            return out
        return self.of_columns([None if f is None else contiguous(f, shape, (), F8) for f in fields], shape, dtype, out)

    def of_columns(self, columns, shape, dtype, out=None):
        """Records of columns of numbers; one that is missing is zeros."""
        out = _memory.some(shape, (), dtype) if out is None else out
        addresses = (ctypes.c_void_p * len(columns))(*[None if c is None else _address(c) for c in columns])
        _packed(addresses, long_pointer(len(columns)), ctypes.byref(ctypes.c_long(math.prod(shape))), pointer(out))
        return out

    def many(self, values, selects, ids, errors, return_status):
        if self.array is None:
            self.array = symbol(self.symbol)
        arrays, shape = self.inputs(values)
        done, outputs, status, vector = self.call(self.array, arrays, shape, math.prod(shape), selects, ids)
        return self.finished(done, outputs, status, vector, (values, selects, ids), arrays, shape, errors, return_status)

    def finished(self, done, outputs, status, vector, asked, arrays, shape, errors, return_status):
        """The result of a call for arrays, or what C found."""
        result = self.results(outputs, shape)
        if shape and (return_status or done == -1):
            status = status.copy()  # the memory of statuses is not watched
        if done:
            if done == -1 and errors == "raise":
                raise self.refused(vector, status, asked, arrays, shape, result)
            if not self.quiet and (done == 1 or (self.has_vector and (status == 1).any())):
                _errors.warn(self.name, self.public_id if self.has_vector else None, vector)
        return (result, status if shape else int(status)) if return_status else result

    def refused(self, vector, status, asked, arrays, shape, result):
        """The exception of a call for arrays: which element was the first, and what it has."""
        values, selects, ids = asked
        if not shape:
            return self.error(vector, self.said(values, selects))
        kept = (ctypes.c_long * 2).from_buffer_copy(vector._obj)
        first = int(np.argmax(status.ravel() == -1))
        index = tuple(int(i) for i in np.unravel_index(first, shape))
        if np.count_nonzero(status == -1) > 1:  # once more, for the values in its messages
            alone = [None if a is None else np.ascontiguousarray(a[index])[None].copy() for a in arrays]
            self.call(self.array or symbol(self.symbol), alone, (1,), 1, selects, ids)
        items = [None if a is None else _text(np.broadcast_to(np.asarray(v), shape)[index]) if kind == "text" else a[index]
                 for v, a, (_, _, kind, *_) in zip(values, arrays, self.each)]
        return self.error(kept, f"element {index[0] if len(index) == 1 else index}, " + self.said(items, selects), status, result)

    def said(self, values, selects):
        """The values of one element and the selectors, with their names."""
        said = [f"{p[1]} {written(value)}" for p, value in zip(self.each, values) if value is not None and written(value)]
        for (_, enum, name), value in zip([p for p in self.parameters if p[0] in ("select", "record")], selects):
            if isinstance(value, (str, int, np.integer)):
                number = selected(value, enum)
                said.append(f"{name} {enum(number).name if enum and number in enum.__members__.values() else number}")
            elif isinstance(value, ctypes.Structure):
                said.append(f"{name} {written(value)}")
        return ", ".join(said)

    def error(self, vector, where="", status=None, result=None):
        own = self.python_name()
        where = f"{own}: {where}" if where else own
        if self.public_id is None:
            found = tuple(m for m in _errors.last_messages() if f"ERROR in {self.name}: " in m)
            return _errors.KitError(self.name, (), (found or (f"{self.name}: refused",)) + self.takes(own), status, result, where)
        error = _errors.error(self.name, self.public_id, vector, status, result, where)
        if sum(name.endswith("_ERR") for name, _ in _table.CONDITIONS[self.public_id][1]) == 1:  # one for whatever is refused
            return _errors.KitError(self.name, error.codes, error.messages + self.takes(own), status, result, where)
        return error

    def python_name(self):
        from . import _functions  # which needs this module
        return next((n for n in _functions.__all__ if getattr(_functions, "_" + n) is self), "geoid" if self.name == "kl_geoid_calc" else self.name[3:])

    def takes(self, name):
        """What the docstring says of the arguments, as a message."""
        from . import _functions
        doc = getattr(_functions, name).__doc__ or "" if hasattr(_functions, name) else ""
        lines = doc.partition("Arguments")[2].partition("Returns")[0].splitlines()[1:]
        said = " ".join(line.strip() if not re.match(r" {8}\w[\w, ]*: ", line) else "| " + line.strip() for line in lines
                        if line.startswith(" " * 8) and not re.match(r" {8}(model|time): ", line))
        return (f"{name} takes " + said[2:].replace(" | ", "; "),) if said else ()

    def failed_one(self, status, vector, pool, work, values, selects):
        """Raises or warns what the scalar call found."""
        if status < 0:
            found = self.error(vector, self.said(values, selects))
            pool.append(work)
            raise found
        if not self.quiet:
            _errors.warn(self.name, self.public_id if self.has_vector else None, vector)

    def results(self, outputs, shape):
        if shape and self.arrays_alone:
            return self.result(*outputs) if self.result else outputs[0]
        if len(outputs) == 1 and not isinstance(self.gives[0][2], str):
            array = outputs[0]
            found = [array[name] if shape else array[name].item() if array[name].ndim == 0 else array[name] for name in array.dtype.names]
        else:
            found = []
            for (_, _, kind, length, _, _), array in zip(self.gives, outputs):
                if isinstance(kind, str):
                    found.append(_plain(array, kind, length, shape))
                else:
                    found.append(record_tuple(kind)(*(array[name] if shape else array[name].item() for name in array.dtype.names)))
        return self.result(*found) if self.result else found[0]


def _text(item):
    return item.decode("ascii", "replace") if isinstance(item, bytes) else str(item)


def written(value):
    """A value of a message: a number, a text or a list of numbers; nothing for what is none of these."""
    if isinstance(value, (np.ndarray, np.generic)):
        value = value.tolist()
    if isinstance(value, ctypes.Structure):
        value = [getattr(value, field) for field, _ in value._fields_]
    if isinstance(value, bytes):
        value = value.hex(" ")
    if isinstance(value, str) and len(value) > 80:
        value = value[:77] + "..."
    if isinstance(value, (list, tuple)):
        return f"[{', '.join(map(written, value))}]" if all(isinstance(x, (int, float, str, list)) for x in value) else ""
    return repr(value) if isinstance(value, (str, int, float)) else ""


def where_failed(name, status, shape, named):
    """The function and the first element that it refused, with its values: arrays by their names."""
    index = tuple(int(i) for i in np.unravel_index(int(np.argmax(np.ravel(status) == -1)), shape))
    said = [f"element {index[0] if len(index) == 1 else index}"] if shape else []
    return f"{name}: " + ", ".join(said + [f"{n} {written(np.broadcast_to(a, shape + a.shape[len(shape):])[index])}" for n, a in named.items()])


def _plain(array, kind, length, shape):
    if kind == "text":
        item = array.item()
        return item.decode() if isinstance(item, bytes) else item
    return array if shape or length or kind == "octets" else array.item()
