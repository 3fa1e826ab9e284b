"""The calls of one function of the table, written out for its parameters: of the time of a call for few elements, most goes into
what stands around it.
"""
import ctypes
import functools
import re
import sys
from collections import namedtuple

import numpy as np

from . import _ids, _memory, _table
from ._library import symbol
from ._pointers import from_buffer, pointer
from ._selectors import long_pointer, one_record, selected

TEXT_WIDTH, READ_WIDTH, OCTETS = 32, 40, 19  # octets of a text that is given, of one that is read, of a CUC
F8 = np.dtype("f8")
DTYPES = {"f8": F8, "i8": np.dtype("i8"), "octets": np.dtype("u1")}
_NUMBERS = (float, int, np.float64)
_text_kinds = {}
_EACH = ("each", "both", "inout")


@functools.lru_cache(maxsize=None)
def record_tuple(record):
    """The class of a result that stands for a record among others."""
    return namedtuple(record.__name__, [field for field, _ in record._fields_])


@functools.lru_cache(maxsize=None)
def dtype_of(record):
    """The type of numpy of a record; numpy itself looks at all fields each time."""
    return np.dtype(record)


def _places(f, *roles):
    return [i for i, p in enumerate(f.parameters) if p[0] in roles]


def _unpacked(names, group):
    return [f"    {', '.join(names)}, = {group}"] if names else []


def _context(f, lines, scope):
    """Adds the lines that make selectors, records and ids what C takes; gives the arguments, by the place of the parameter."""
    scope.update(c=ctypes, long_pointer=long_pointer, selected=selected, one_record=one_record, ids=_ids, FIXED=ctypes.byref(ctypes.c_long(0)))
    lines += _unpacked([f"select{i}" for i in _places(f, "select", "record")], "selects")
    lines += _unpacked([f"held{i}" for i in _places(f, "model", "time")], "handles")
    arguments = {}
    for i, (role, *rest) in enumerate(f.parameters):
        if role == "select":
            # A value that was once good is good again, if it is of these types: 1.0 and members of other classes equal 1 too.
            enum = rest[0]
            scope.update({f"memo{i}": {}, f"enum{i}": enum, f"kinds{i}": (int,) if enum is None else (enum, str, int)})
            lines.append(f"    at{i} = memo{i}.get(select{i}) if type(select{i}) in kinds{i} else None")
            lines.append(f"    if at{i} is None:\n        at{i} = memo{i}[select{i}] = long_pointer(selected(select{i}, enum{i}))")
            arguments[i] = f"at{i}"
        elif role == "record":
            scope[f"kind{i}"] = rest[0]
            lines.append(f"    select{i} = one_record(select{i}, kind{i})")
            arguments[i] = f"c.byref(select{i})"
        elif role == "model":
            lines.append(f"    held{i} = ids.DEFAULT_MODELS if held{i} is None else ids.pointer_of('model', held{i})")
            arguments[i] = f"held{i}.pointer"
        elif role == "time":
            lines.append(f"    held{i} = ids.common or ids.pointer_of('time', None) if held{i} is None else ids.pointer_of('time', held{i})")
            arguments[i] = f"held{i}.pointer"
        elif role == "fixed":
            arguments[i] = "FIXED"
    return arguments


def _made(name, lines, scope):
    scope["__name__"] = __name__
    exec("\n".join(lines), scope)  # the text is made here, from the table alone
    return scope[name]


def _kinds(f, to):
    """Shape of an item and type of each output and of the statuses; texts have `to` characters."""
    kinds = []
    for i in _places(f, "gives"):
        _, _, kind, length, _, _ = f.parameters[i]
        dtype = np.dtype(f"U{to}" if f.each else f"S{TEXT_WIDTH}") if kind == "text" else DTYPES[kind] if isinstance(kind, str) else dtype_of(kind)
        kinds.append(((length,) if length else (OCTETS,) if kind == "octets" else (), dtype))
    return (*kinds, ((), DTYPES["i8"]))


def _takes(f, lines, scope):
    """Adds the lines that take memory for the results, an entry; gives the arguments, by the place of the parameter."""
    gives = _places(f, "gives")
    texts = [i for i in gives if f.parameters[i][2] == "text"] if f.each else []
    k = len(gives) + 1
    scope.update(getrefcount=sys.getrefcount, IDLE=_memory.IDLE, SMALLEST=_memory.SMALLEST, MANY=_memory.MANY)
    if texts:
        layout = max(i for i, p in enumerate(f.parameters[:texts[0]]) if p[0] == "select" and p[1] is _table.Ascii)
        scope.update(length_of=length_of, shelves={}, new_shelf=lambda to: _memory.shelf(*_kinds(f, to)))
        lines += [f"    to = length_of(select{layout}, enum{layout})", "    shelf = shelves.get(to) or shelves.setdefault(to, new_shelf(to))",
                  "    places, new, forget = shelf.places, shelf.new, shelf.forget"]
    else:
        shelf = _memory.shelf(*_kinds(f, 0))
        scope.update(places=shelf.places, new=shelf.new, forget=shelf.forget)
    used = " or ".join(f"getrefcount(entry[{i}]) != IDLE" for i in range(max(k - 1, 1)))
    lines += ["    if n < SMALLEST:", "        entry, (home, at_n, cut) = new(n)", "    else:", "        try:", "            home, at_n, cut = places[n]",
              "            entry = home.popleft()", f"            if {used}:  # those given out longest ago come first", "                home.append(entry)",
              "                entry = home.popleft()", f"                if {used}:", "                    home.append(entry)", "                    entry, (home, at_n, cut) = new(n)",
              "        except (KeyError, IndexError):", "            entry, (home, at_n, cut) = new(n)"]
    lines.append("    " + "".join(f"own{i}, " for i in gives) + "statuses, " + "".join(f"at{i}, " for i in gives) + "at_status, vector = entry")
    lines += [f"    x{i} = own{i}[cut]" for i in gives]
    return {i: f"at{i}" for i in gives}


def _asks(f, arguments, shape_too):
    """The lines of the call itself, and of what follows it."""
    passed = [arguments[i] for i in range(len(f.parameters))] + ["at_status", "vector"][:2 if f.has_vector else 1]
    lines = [f"    done = array({', '.join(passed)})", "    if len(home) == MANY:\n        forget(n)", "    home.append(entry)"]
    if shape_too:
        gives = _places(f, "gives")
        items = [item for item, _ in _kinds(f, 1)]
        lines.append("    status = statuses[cut]")
        lines.append("    if len(shape) != 1:")
        lines += [f"        x{i} = x{i}.reshape(shape + {item})" for i, item in zip(gives, items)] + ["        status = status.reshape(shape)"]
    return lines


def _others(f, arguments):
    """The arguments that are the same in every call."""
    for i, (role, *rest) in enumerate(f.parameters):
        if role == "n":
            arguments[i] = "at_n"
        elif role == "width":
            text = f.parameters[i + 1]
            if rest[0]:
                arguments[i] = f"long_pointer({rest[0]})"
            elif text[2] == "octets":
                arguments[i] = f"long_pointer(x{i + 1}.shape[-1])"
            else:
                arguments[i] = f"kind{i + 1}" if text[0] in _EACH else "long_pointer(to)"
    return arguments


def kind_of(dtype):
    """Octets of a character and characters of a text of numpy, as the loops in C take them; None for what they do not take."""
    size = {"U": 4, "S": 1}.get(dtype.kind)
    if size is None or not dtype.isnative or not dtype.itemsize:
        return None
    return _text_kinds.setdefault(dtype, (ctypes.c_long * 2)(size, dtype.itemsize // size))


@functools.lru_cache(maxsize=None)
def _length_of_layout(number):
    """Characters of the texts of a layout: those of any; 1 where it is none, which C refuses."""
    text, zero = (ctypes.c_char * READ_WIDTH)(), [ctypes.byref(kind(0)) for kind in (ctypes.c_long, ctypes.c_long, ctypes.c_double)]
    symbol("kl_time_processing_to_ascii")(None, *zero, ctypes.byref(ctypes.c_long(number)), zero[0], text, None)
    return max(len(text.value), 1)


def length_of(layout, enum):
    return _length_of_layout(selected(layout, enum))


def array_call(f):
    """The call for arrays that are as C takes them: what C returns, the outputs, the statuses and the vector of the conditions."""
    scope = {"pointer": pointer, "zeros": _memory.zeros, "kind_of": kind_of, "NO": ctypes.c_void_p(None)}
    lines = ["def call(array, arrays, shape, n, selects, handles):"]
    lines += _unpacked([f"x{i}" for i in _places(f, *_EACH)], "arrays")
    lines += [f"    kind{i} = kind_of(x{i}.dtype)" for i in _places(f, *_EACH) if f.parameters[i][2] == "text"]
    arguments = _context(f, lines, scope)
    arguments.update(_takes(f, lines, scope))
    for i in _places(f, *_EACH):
        _, _, _, length, optional, none_is_zero = f.parameters[i]
        missing = f"pointer(zeros(n * {max(length, 1)}))" if none_is_zero else "NO"
        arguments[i] = f"pointer(x{i}) if x{i} is not None else {missing}" if optional else f"pointer(x{i})"
    lines += _asks(f, _others(f, arguments), True)
    lines.append(f"    return done, ({''.join(f'x{i}, ' for i in _places(f, 'gives', 'inout'))}), status, vector")
    return _made("call", lines, scope)


def quick_call(f, one, other):
    """The same for arrays along one axis that need nothing, from the arguments to the result; `other` has all that is not so.
    What stands around the call of C counts where that takes a few microseconds.
    """
    if not f.each or any(p[0] == "inout" or p[2] not in ("f8", "i8", "text", "octets") for p in f.each):
        return other
    scope = {"from_buffer": from_buffer, "pointer": pointer, "zeros": _memory.zeros, "ndarray": np.ndarray, "f8": F8, "i8": DTYPES["i8"], "octets": DTYPES["octets"], "f": f,
             "kind_of": kind_of, "kinds": _text_kinds, "result": f.result, "new_tuple": tuple.__new__, "NO": ctypes.c_void_p(None),
             "symbol": symbol, "array": None, "one": one, "other": other}
    each, gives = _places(f, "each", "both"), _places(f, "gives")
    lines = ["def go(values, selects, handles, errors, return_status):"] + _unpacked([f"x{i}" for i in each], "values")
    turned_down = "        return other(values, selects, handles, errors, return_status)"
    if one is not None:
        lines.append(f"    if type(x{each[0]}) is not ndarray and errors == 'raise' and return_status is False:")
        lines.append("        out = one(values, selects, handles)\n        if out is not None:\n            return out")
    pointers = []
    for i in each:
        _, _, kind, length, optional, none_is_zero = f.parameters[i]
        refused = [f"type(x{i}) is not ndarray", f"not x{i}.flags.carray"]
        if kind == "octets":
            length = True
        if kind != "text":
            refused.insert(1, f"x{i}.dtype is not {kind}")
        if i == each[0]:
            refused += [f"x{i}.ndim != {2 if length else 1}", "errors != 'raise'", "return_status is not False"]
        else:
            refused.append(f"x{i}.shape != (n, {length})" if length else f"x{i}.shape != (n,)")
        present = f"x{i} is not None and " if optional else ""
        lines.append(f"    if {present}({' or '.join(refused)}):\n{turned_down}")
        if kind == "text":
            lines.append(f"    kind{i} = kinds.get(x{i}.dtype) or kind_of(x{i}.dtype)\n    if kind{i} is None:\n{turned_down}")
        if i == each[0]:
            lines.append(f"    n, k = x{i}.shape\n    if {'not 0 < k <= ' + str(OCTETS) if kind == 'octets' else f'k != {length}'}:\n{turned_down}" if length else f"    n = len(x{i})")
        if f.parameters[i][0] == "both":
            lines.append(f"    x{i} = x{i}.copy()  # C writes there")
        missing = (f"pointer(zeros(n * {max(length, 1)}))" if none_is_zero else "NO") if optional else ""
        pointers.append(f"        p{i} = from_buffer(x{i})" + (f" if x{i} is not None else {missing}" if optional else ""))
    lines += ["    try:"] + pointers + [f"    except (TypeError, ValueError, BufferError):  # read-only ones\n{turned_down}"]
    arguments = _context(f, lines, scope)
    arguments.update(_takes(f, lines, scope))
    arguments.update({i: f"p{i}" for i in each})
    lines.append("    if array is None:\n        look_up()")
    lines += _asks(f, _others(f, arguments), False)
    found = "(" + "".join(f"x{i}, " for i in gives) + ")"
    lines.append(f"    if done:\n        return f.finished(done, {found}, statuses[cut], vector, (values, selects, handles), values, (n,), errors, False)")
    kinds = [f.parameters[i][2] for i in gives]
    if len(gives) == 1 and not isinstance(kinds[0], str):
        found = "(" + "".join(f"x{gives[0]}[{field!r}], " for field, _ in kinds[0]._fields_) + ")"
    if len(gives) > 1 and any(kind not in ("f8", "i8", "text") for kind in kinds):
        lines.append(f"    return f.results({found}, (n,))")
    else:
        lines.append(f"    return {'new_tuple(result, ' + found + ')' if f.result else f'x{gives[0]}'}")
    lines.append("def look_up():\n    global array\n    array = symbol(f.symbol)")
    return _made("go", lines, scope)


def _plain(record):
    return all(issubclass(kind, ctypes._SimpleCData) for _, kind in record._fields_)


def _has_one(f):
    """Can the scalar form of C be called with what one_element knows?"""
    return all(isinstance(p[2], str) or _plain(p[2]) for p in f.gives)


def as_record(value, record):
    """A record that one element is, or None where the call for arrays has to see what it is."""
    if type(value) is record:
        return value
    if type(value) is np.void and value.dtype is dtype_of(record):
        return record.from_buffer_copy(value)
    if isinstance(value, tuple) and 0 < len(value) <= len(record._fields_) and all(kind is ctypes.c_double for _, kind in record._fields_) \
            and all(type(x) in _NUMBERS for x in value):
        return record(*value)
    return None


# Of a value of one element by its kind: what it must be, how it gets into the memory that C reads, and that memory.
_GIVEN = {
    "text": (f"type(v) is str and len(v) < {READ_WIDTH} and v.isascii() and '\\0' not in v", "x.value = v.encode()", f"(c.c_char * {READ_WIDTH})()"),
    "octets": (f"type(v) is bytes and len(v) <= {OCTETS}", f"x.raw = v.ljust({OCTETS}, b'\\0')", f"(c.c_char * {OCTETS})()"),
    "f8": ("type(v) in NUMBERS", "x.value = v", "c.c_double()"),
    "i8": ("type(v) is int and v.bit_length() < 64", "x.value = v", "c.c_long()"),
}
# Of a result of one element: the memory that C writes, and the value.
_FOUND = {"text": (f"(c.c_char * {TEXT_WIDTH})()", "x.value.decode()"), "octets": (f"np.zeros({OCTETS}, 'u1')", "copy(x)"),
          "f8": ("c.c_double()", "x.value"), "i8": ("c.c_long()", "x.value")}


def one_element(f):
    """The call for one element, or None where there is none.

    It takes numbers, texts, octets, records and arrays of just the length and type for vectors; for anything else it gives None, and
    the call for arrays has it. The memory that C reads and writes is kept and used by one call at a time.
    """
    if not _has_one(f):
        return None
    scope = {"np": np, "f": f, "result": f.result, "symbol": symbol, "NO": ctypes.c_void_p(None), "pointer": pointer, "ndarray": np.ndarray,
             "ZERO": pointer(np.zeros(16)), "new_tuple": tuple.__new__, "pool": [], "copy": np.ndarray.copy, "NUMBERS": _NUMBERS, "scalar": None,
             "as_record": as_record}
    each, gives = _places(f, *_EACH), _places(f, "gives", "inout")
    checks, records, puts, cells, values, found = [], [], [], [], [], []
    arguments = {}
    for i in each:
        _, _, kind, length, optional, none_is_zero = f.parameters[i]
        arguments[i] = f"at{i}p"
        if f.flat:  # the scalar call takes a record, the one for arrays its fields
            name, first = f.parameters[i][1], each[0]
            if i == first:
                scope["type_of_record"] = f.flat
                cells.append((f"x{i}", "type_of_record()"))
            else:
                del arguments[i]
            checks.append(f"(v{i} is None or type(v{i}) in NUMBERS)" if optional else f"type(v{i}) in NUMBERS")
            puts.append(f"x{first}.{name} = 0.0 if v{i} is None else v{i}" if optional else f"x{first}.{name} = v{i}")
            values.append(f"v{i}")
            continue
        values.append(f"v{i}")
        if not isinstance(kind, str):
            scope[f"type{i}"] = kind
            records.append(f"v{i} = as_record(v{i}, type{i})\n    if v{i} is None:\n        return None")
            arguments[i] = f"c.byref(v{i})"
            continue
        if length:
            scope[f"dtype{i}"] = DTYPES[kind]
            check, put = f"type(v{i}) is ndarray and v{i}.shape == ({length},) and v{i}.dtype is dtype{i}", f"x{i}[:] = v{i}"
            cells.append((f"x{i}", f"np.zeros({length}, dtype{i})"))
        else:
            check, put, cell = (re.sub(r"\b([vx])\b", rf"\g<1>{i}", text) for text in _GIVEN[kind])
            cells.append((f"x{i}", cell))
        if optional:
            check, put = f"(v{i} is None or {check})", f"if v{i} is not None: {put}"
            arguments[i] = f"at{i}p if v{i} is not None else {'ZERO' if none_is_zero else 'NO'}"
        checks.append(check)
        puts.append(put)
    for i in gives:
        role, _, kind, length, _, _ = f.parameters[i]
        arguments[i] = f"at{i}p"
        if not isinstance(kind, str):
            scope.update({f"type{i}": kind, f"tuple{i}": record_tuple(kind)})
            cells.append((f"x{i}", f"type{i}()"))
            fields = [f"x{i}.{field}" for field, _ in kind._fields_]
            found += fields if len(gives) == 1 else [f"new_tuple(tuple{i}, ({', '.join(fields)},))"]
        elif length:
            scope[f"dtype{i}"] = DTYPES[kind]
            cells.append((f"x{i}", f"np.zeros({length}, dtype{i})"))
            found.append(f"copy(x{i})")
        else:
            cell, value = _FOUND[kind]
            if role == "gives":
                cells.append((f"x{i}", cell))
            found.append(re.sub(r"\bx\b", f"x{i}", value))
    names = [x for x, _ in cells]
    work = ", ".join(names + [f"at{x[1:]}p" for x in names] + ["vector", "at_vector"])

    lines = ["def one(values, selects, handles):"]
    lines += _unpacked(values, "values")
    if checks:
        lines.append(f"    if not ({' and '.join(checks)}):\n        return None")
    lines += ["    " + record for record in records]
    arguments.update(_context(f, lines, scope))
    lines.append("    try:\n        work = pool.pop()\n    except IndexError:\n        work = new()")
    lines.append(f"    {work} = work")
    lines += ["    " + put for put in puts]
    if f.scalar_is_array:
        arguments.update({i: "long_pointer(1)" for i in _places(f, "n")})
    passed = [arguments[i] for i, p in enumerate(f.parameters) if i in arguments] + ["NO"] * f.scalar_is_array + ["at_vector"] * f.has_vector
    lines.append(f"    status = scalar({', '.join(passed)})")
    lines.append("    if status:\n        f.failed_one(status, vector, pool, work, values, selects)")
    lines.append(f"    out = {'new_tuple(result, (' + ', '.join(found) + '))' if f.result else found[0]}")
    lines.append("    pool.append(work)\n    return out")
    lines.append("def new():\n    global scalar\n    if scalar is None:\n        scalar = symbol(f.symbol if f.scalar_is_array else f.name)")
    for x, made in cells:
        lines.append(f"    {x} = {made}")
        if made.startswith("np."):
            lines.append(f"    at{x[1:]}p = c.byref(pointer({x}))")
            if int(x[1:]) in each:
                lines.append(f"    {x} = memoryview({x})")  # takes an array in half the time that an array needs
        else:
            lines.append(f"    at{x[1:]}p = c.byref({x})")
    lines.append(f"    vector = (c.c_long * {f.words})()\n    at_vector = c.byref(vector)")
    lines.append(f"    return {work}")
    return _made("one", lines, scope)
