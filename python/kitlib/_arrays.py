"""From Python's arguments to the array calls of C and back: broadcasting, types, selectors, results."""
import ctypes
import functools
from enum import IntEnum

import numpy as np

from . import _errors, _ids
from ._library import symbol

_BYTES = ctypes.c_char * 0
_NO = ctypes.c_void_p(None)
_DTYPES = {"f8": np.dtype("f8"), "i8": np.dtype("i8")}
_TEXT_WIDTH, _READ_WIDTH, _OCTETS = 32, 40, 19
_FIXED = ctypes.byref(ctypes.c_long(0))
_PYTHON_NUMBERS = (float, int)
_longs = {}


def long_pointer(value):
    """A pointer to a constant long."""
    pointer = _longs.get(value)
    if pointer is None:
        pointer = ctypes.byref(ctypes.c_long(value))
        if len(_longs) < 10000:
            _longs[value] = pointer
    return pointer


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


@functools.lru_cache(maxsize=None)
def dtype_of(record):
    """The type of numpy of a record; numpy itself looks at all fields each time."""
    return np.dtype(record)


def mode_of(given, velocity, acceleration):
    """The mode of a call: as asked, or as the arguments say."""
    if given is not None:
        return given
    return 3 if acceleration is not None else 2 if velocity is not None else 1


def numbers(value, dtype, length, name):
    """value as an array of the type and the item length."""
    if isinstance(value, np.ma.MaskedArray):
        raise TypeError(f"{name}: a masked array; fill it or compress it first")
    array = np.asarray(value)
    kind = array.dtype.kind
    if kind not in ("fiu" if dtype.kind == "f" else "iu"):
        if kind == "f" and dtype.kind == "i":
            raise TypeError(f"{name}: whole numbers are wanted, not {array.dtype}")
        raise TypeError(f"{name}: numbers are wanted, not {array.dtype}")
    if length and (array.ndim == 0 or array.shape[-1] != length):
        raise ValueError(f"{name}: the last axis must have {length} elements, not shape {array.shape}")
    return array


_texts = symbol("kitlib_texts")
_texts.argtypes = [ctypes.c_void_p, ctypes.c_long, ctypes.c_long, ctypes.c_long, ctypes.c_void_p, ctypes.c_long]


def texts(value, name):
    """value as an array of texts of 40 octets, padded with zeros; too long ones as question marks."""
    array = np.asarray(value)
    if array.dtype.kind not in "SU" and not (array.dtype.kind == "O" and all(isinstance(x, str) for x in array.flat)):
        raise TypeError(f"{name}: texts are wanted, not {array.dtype}")
    if array.dtype.kind == "O" or not array.dtype.isnative:
        array = array.astype("U")
    rows = np.ascontiguousarray(array)
    size = 4 if array.dtype.kind == "U" else 1
    wide = np.empty(array.shape, f"S{_READ_WIDTH}")
    if _texts(rows.ctypes.data, array.size, array.dtype.itemsize // size, size, wide.ctypes.data, _READ_WIDTH):
        raise ValueError(f"{name}: texts of times are ASCII")
    return wide


def octets(value, name):
    """value as an array of octets, its last axis padded to the longest layout."""
    if isinstance(value, (bytes, bytearray)):
        array = np.frombuffer(bytes(value), np.uint8)
    elif isinstance(value, (list, tuple)) and all(isinstance(x, (bytes, bytearray)) for x in value):
        if len({len(x) for x in value}) > 1:
            raise ValueError(f"{name}: codes of one length are wanted")
        array = np.frombuffer(b"".join(value), np.uint8).reshape(len(value), len(value[0]) if value else 0)
    else:
        array = np.asarray(value)
    if array.dtype != np.uint8:
        raise TypeError(f"{name}: bytes or an array of uint8 is wanted, not {array.dtype}")
    if array.ndim == 0 or array.shape[-1] > _OCTETS:
        raise ValueError(f"{name}: the last axis must have at most {_OCTETS} octets, not shape {array.shape}")
    wide = np.zeros(array.shape[:-1] + (_OCTETS,), np.uint8)
    wide[..., :array.shape[-1]] = array
    return wide


def contiguous(array, shape, item, dtype):
    """The array with its leading axes broadcast to shape: itself when it is that already."""
    if array.dtype == dtype and array.shape == shape + item and array.flags.c_contiguous and array.flags.aligned:
        return array
    if array.shape != shape + item:
        array = np.broadcast_to(array, shape + item)
    out = np.ascontiguousarray(array, dtype).reshape(shape + item)
    return out if out.flags.aligned else out.copy()


def broadcast(shapes, names):
    if shapes.count(shapes[0]) == len(shapes):
        return shapes[0]
    try:
        return np.broadcast_shapes(*shapes)
    except ValueError:
        said = ", ".join(f"{n} {s}" for n, s in zip(names, shapes))
        raise ValueError(f"the arguments do not broadcast against each other: {said}") from None


def pointer(array):
    """Keeps the array alive as long as itself."""
    if array.flags.writeable and array.flags.c_contiguous and array.size and array.dtype.kind not in "SU":
        return _BYTES.from_buffer(array)
    return ctypes.c_void_p(array.__array_interface__["data"][0])


def record_fields(value, record, name):
    """Fields of a record from a sequence or a structured array; what is missing at the end is None."""
    known = [field for field, _ in record._fields_]
    if isinstance(value, record):
        return [getattr(value, field) for field in known]
    if isinstance(value, np.ndarray) and value.dtype.names:
        return [value[field] if field in value.dtype.names else None for field in known]
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


class Function:
    """A function of the table: its parameters, and the call."""

    def __init__(self, name, array_symbol, public_id, words, result, flat, parameters):
        self.name, self.public_id, self.words, self.result, self.flat = name, public_id, max(words, 1), result, flat
        self.has_vector = words > 0
        self.symbol = array_symbol
        self.parameters = parameters
        self.each = [p for p in parameters if p[0] in ("each", "both", "inout")]
        self.gives = [p for p in parameters if p[0] in ("gives", "inout")]
        self.array = None  # looked up at the first call, so that an older library fails in its own functions only
        self.one = _one_element(self)

    def __call__(self, values, selects, ids, errors, return_status):
        if self.one is not None and errors == "raise" and return_status is False:
            out = self.one(values, selects, ids)
            if out is not None:
                return out
        if errors not in ("raise", "nan"):
            raise ValueError(f'errors is "raise" or "nan", not {errors!r}')
        return self.many(values, selects, ids, errors, return_status)

    def inputs(self, values):
        """Arrays of the per-element arguments and the shape they have together."""
        if self.flat:
            _, name, record, *_ = self.each[0]
            return self.packed(values, record, [field for field, _ in record._fields_])
        arrays, shapes, names = [], [], []
        for value, (_, name, kind, length, optional, zeros) in zip(values, self.each):
            if value is None:
                if not optional:
                    raise TypeError(f"{self.name[3:]}: {name} is missing")
                arrays.append(None)
                continue
            if kind == "text":
                array, item = texts(value, name), ()
            elif kind == "octets":
                array = octets(value, name)
                item = (_OCTETS,)
            elif isinstance(kind, str):
                array = numbers(value, _DTYPES[kind], length, name)
                item = (length,) if length else ()
            else:
                array, _ = self.packed(record_fields(value, kind, name), kind, [field for field, _ in kind._fields_])
                array, item = array[0], ()
            arrays.append(array)
            shapes.append(array.shape[:array.ndim - len(item)])
            names.append(name)
        shape = broadcast(shapes, names) if shapes else ()
        for i, (role, name, kind, length, optional, zeros) in enumerate(self.each):
            dtype = (_DTYPES[kind] if kind in ("f8", "i8") else arrays[i].dtype if arrays[i] is not None else None) if isinstance(kind, str) else dtype_of(kind)
            item = (length,) if length else (_OCTETS,) if isinstance(kind, str) and kind == "octets" else ()
            if arrays[i] is None:
                arrays[i] = np.zeros(shape + item, dtype or "f8") if zeros else None
            else:
                given = arrays[i]
                arrays[i] = contiguous(given, shape, item, dtype)
                if role != "each" and np.shares_memory(arrays[i], given):
                    arrays[i] = arrays[i].copy()
        return arrays, shape

    def packed(self, values, record, names):
        fields = [None if v is None else numbers(v, np.dtype("f8"), 0, n) for v, n in zip(values, names)]
        if fields[0] is None:
            raise TypeError(f"{self.name[3:]}: {names[0]} is missing")
        shape = broadcast([f.shape for f in fields if f is not None], [n for f, n in zip(fields, names) if f is not None])
        out = np.zeros(shape, dtype_of(record))
        for name, field in zip(names, fields):
            if field is not None:
                out[name] = field
        return [out], shape

    def many(self, values, selects, ids, errors, return_status, quiet=False):
        if self.array is None:
            self.array = symbol(self.symbol)
        arrays, shape = self.inputs(values)
        n = 1
        for extent in shape:
            n *= extent
        vector = (ctypes.c_long * self.words)()
        status = np.zeros(shape, "i8")
        keep, outputs, arguments = [], [], []
        each, selects, ids = iter(arrays), iter(selects), iter(ids)
        for p in self.parameters:
            role = p[0]
            if role in ("each", "both", "inout"):
                array = next(each)
                (outputs if role == "inout" else keep).append(array)
                arguments.append(_NO if array is None else pointer(array))
            elif role == "gives":
                _, _, kind, length, _, _ = p
                if kind == "text":
                    array = np.zeros(shape, f"S{_TEXT_WIDTH}")
                elif kind == "octets":
                    array = np.zeros(shape + (_OCTETS,), np.uint8)
                elif isinstance(kind, str):
                    array = np.empty(shape + ((length,) if length else ()), _DTYPES[kind])
                else:
                    array = np.empty(shape, dtype_of(kind))
                outputs.append(array)
                arguments.append(pointer(array))
            elif role == "select":
                arguments.append(long_pointer(selected(next(selects), p[1])))
            elif role == "record":
                record = one_record(next(selects), p[1])
                keep.append(record)
                arguments.append(ctypes.byref(record))
            elif role in ("model", "time"):
                held = _ids.pointer_of(role, next(ids))
                keep.append(held)
                arguments.append(held.pointer)
            elif role == "n":
                arguments.append(ctypes.byref(ctypes.c_long(n)))
            elif role == "width":
                arguments.append(long_pointer(p[1]))
            else:
                arguments.append(_FIXED)
        arguments.append(pointer(status))
        if self.has_vector:
            arguments.append(vector)
        done = self.array(*arguments)
        result = self.results(outputs, shape)
        if done == -1 and errors == "raise":
            raise _errors.error(self.name, self.public_id, vector, status if shape else None, result if shape else None)
        if quiet:
            pass
        elif done != 0 and self.has_vector and (done == 1 or (status == 1).any()):
            _errors.warn(self.name, self.public_id, vector, 5)
        elif done == 1:
            _errors.warn(self.name, None, vector, 5)
        return (result, status if shape else int(status)) if return_status else result

    def failed_one(self, status, vector, pool, work):
        """Raises or warns what the scalar call found."""
        if status < 0:
            found = _errors.error(self.name, self.public_id, vector)
            pool.append(work)
            raise found
        _errors.warn(self.name, self.public_id, vector, 6)

    def results(self, outputs, shape):
        found = []
        for (_, _, kind, length, _, _), array in zip(self.gives, outputs):
            if isinstance(kind, str):
                found.append(_plain(array, kind, length, shape))
            elif len(self.gives) == 1:
                found += [array[name] if shape else array[name].item() if array[name].ndim == 0 else array[name] for name in array.dtype.names]
            else:
                record = _record_tuple(kind)
                found.append(record(*(array[name] if shape else array[name].item() for name in array.dtype.names)))
        return self.result(*found) if self.result else found[0]


_record_tuples = {}


def _record_tuple(record):
    from collections import namedtuple
    if record not in _record_tuples:
        _record_tuples[record] = namedtuple(record.__name__, [field for field, _ in record._fields_])
    return _record_tuples[record]


def _plain(array, kind, length, shape):
    if kind == "text":
        out = np.char.decode(array, "ascii")
        return out if shape else str(out)
    return array if shape or length or kind == "octets" else array.item()


def _one_element(f):
    """The call for one element of plain numbers, written out: the work around a scalar call is most of its time.

    It takes Python floats for numbers and float64 arrays of just the length for vectors, and gives None for anything else.
    """
    if f.flat or any(not isinstance(p[2], str) or p[2] != "f8" or p[0] != "each" for p in f.each) or not f.each \
            or any(p[0] == "record" for p in f.parameters):
        return None
    record = f.gives[0][2] if len(f.gives) == 1 and not isinstance(f.gives[0][2], str) else None  # of plain numbers
    if record is not None and any(not issubclass(kind, ctypes._SimpleCData) for _, kind in record._fields_):
        return None
    if record is None and any(p[2] not in ("f8", "i8") for p in f.gives):
        return None
    scope = {"c": ctypes, "np": np, "long_pointer": long_pointer, "selected": selected, "ids": _ids, "f": f, "result": f.result,
             "many": f.many, "FIXED": _FIXED, "symbol": symbol, "NO": _NO, "BYTES": _BYTES, "pool": [], "ndarray": np.ndarray,
             "F8": np.dtype("f8"), "copy": np.ndarray.copy, "record": record}
    names = [f"v{i}" for i in range(len(f.each))]
    selects = [p for p in f.parameters if p[0] == "select"]
    handles = [p for p in f.parameters if p[0] in ("model", "time")]
    lines = ["def one(values, selects, handles):"]
    lines.append(f"    {', '.join(names)}{',' if len(names) == 1 else ''} = values")
    checks = []
    for v, (_, name, _, length, optional, zeros) in zip(names, f.each):
        test = f"type({v}) is float" if not length else f"type({v}) is ndarray and {v}.shape == ({length},) and {v}.dtype is F8"
        checks.append(f"({v} is None or {test})" if optional else f"({test})")
    lines.append(f"    if not ({' and '.join(checks)}):\n        return None")
    if selects:
        lines.append(f"    {', '.join(f's{i}' for i in range(len(selects)))}{',' if len(selects) == 1 else ''} = selects")
    if handles:
        lines.append(f"    {', '.join(f'h{i}' for i in range(len(handles)))}{',' if len(handles) == 1 else ''} = handles")
    for i, p in enumerate(selects):
        scope[f"memo{i}"] = {}
        scope[f"enum{i}"] = p[1]
        lines.append(f"    p{i} = memo{i}.get(s{i}) if type(s{i}) is not bool else None")
        lines.append(f"    if p{i} is None:\n        p{i} = memo{i}[s{i}] = long_pointer(selected(s{i}, enum{i}))")
    for i, p in enumerate(handles):
        lines.append(f"    q{i} = ids.pointer_of('{p[0]}', h{i})")
    lines.append("    try:\n        work = pool.pop()\n    except IndexError:\n        work = new()")
    ins = [f"i{i}" for i in range(len(f.each))]
    outs = [f"o{i}" for i in range(len(f.gives))]
    lines.append(f"    {', '.join(ins + outs + [x + 'p' for x in ins + outs])}, word, wordp = work")
    arguments, optionals = [], []
    i_each = i_gives = i_select = i_handle = 0
    for p in f.parameters:
        if p[0] == "each":
            v, x = names[i_each], ins[i_each]
            put = f"{x}[:] = {v}" if p[3] else f"{x}.value = {v}"
            if p[4] and p[5]:
                put = f"{x}[:] = {v} if {v} is not None else 0.0" if p[3] else f"{x}.value = {v} if {v} is not None else 0.0"
                arguments.append(f"{x}p")
            elif p[4]:
                put = f"if {v} is not None: {put}"
                arguments.append(f"{x}p if {v} is not None else NO")
            else:
                arguments.append(f"{x}p")
            lines.append("    " + put)
            i_each += 1
        elif p[0] == "gives":
            arguments.append(f"{outs[i_gives]}p")
            i_gives += 1
        elif p[0] == "select":
            arguments.append(f"p{i_select}")
            i_select += 1
        elif p[0] in ("model", "time"):
            arguments.append(f"q{i_handle}.pointer")
            i_handle += 1
        elif p[0] == "fixed":
            arguments.append("FIXED")
    if f.has_vector:
        arguments.append("wordp")
    lines.append(f"    status = scalar({', '.join(arguments)})")
    lines.append("    if status:\n        failed(status, wordp, pool, work)")
    found = [f"copy({o})" if p[3] else f"{o}.value" for o, p in zip(outs, f.gives)] if record is None else [f"o0.{x}" for x, _ in record._fields_]
    lines.append(f"    out = {'result(' + ', '.join(found) + ')' if f.result else found[0]}")
    lines.append("    pool.append(work)\n    return out")
    lines.append("def new():\n    global scalar\n    if scalar is None:\n        scalar = symbol(f.name)")
    for x, p in [*zip(ins, f.each), *zip(outs, f.gives)]:
        kind = "record" if p[2] is record else "c.c_double" if p[2] == "f8" else "c.c_long"
        lines.append(f"    {x} = np.zeros({p[3]}, '{p[2]}')" if p[3] else f"    {x} = {kind}()")
        lines.append(f"    {x}p = BYTES.from_buffer({x})" if p[3] else f"    {x}p = c.byref({x})")
    lines.append(f"    word = (c.c_long * {f.words})()")
    lines.append(f"    return {', '.join(ins + outs + [x + 'p' for x in ins + outs])}, word, word")
    scope["scalar"] = None
    scope["failed"] = f.failed_one
    exec("\n".join(lines), scope)  # the text is made here, from the table alone
    return scope["one"]
