"""The calls of one function of the table, written out for its parameters: of the time of a call for few elements, most goes into
what stands around it.
"""
import ctypes
import functools

import numpy as np

from . import _ids, _memory
from ._library import symbol
from ._pointers import pointer
from ._selectors import long_pointer, one_record, selected

TEXT_WIDTH, READ_WIDTH, OCTETS = 32, 40, 19  # octets of a text that is given, of one that is read, of a CUC
F8 = np.dtype("f8")
DTYPES = {"f8": F8, "i8": np.dtype("i8"), "text": np.dtype(f"S{TEXT_WIDTH}"), "octets": np.dtype("u1")}
_NUMBERS = (float, int, np.float64)
_EACH = ("each", "both", "inout")


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
            lines.append(f"    held{i} = ids.pointer_of('time', held{i})")
            arguments[i] = f"held{i}.pointer"
        elif role == "fixed":
            arguments[i] = "FIXED"
    return arguments


def _made(name, lines, scope):
    exec("\n".join(lines), scope)  # the text is made here, from the table alone
    return scope[name]


def array_call(f):
    """The call for arrays that are as C takes them: what C returns, the outputs, the statuses and the vector of the conditions."""
    scope = {"pointer": pointer, "zeros": _memory.zeros, "room_for": _memory.room_for, "Vector": ctypes.c_long * f.words,
             "take_status": _memory.shelf((), DTYPES["i8"]), "NO": ctypes.c_void_p(None)}
    lines = ["def call(array, arrays, shape, n, selects, handles):"]
    lines += _unpacked([f"x{i}" for i in _places(f, *_EACH)], "arrays")
    arguments = _context(f, lines, scope)
    lines.append("    room = room_for(n)")
    for i, (role, *rest) in enumerate(f.parameters):
        if role in _EACH:
            _, _, length, optional, none_is_zero = rest
            missing = f"pointer(zeros(n * {max(length, 1)}))" if none_is_zero else "NO"
            arguments[i] = f"pointer(x{i}) if x{i} is not None else {missing}" if optional else f"pointer(x{i})"
        elif role == "gives":
            _, kind, length, _, _ = rest
            item = (length,) if length else (OCTETS,) if kind == "octets" else ()
            scope[f"take{i}"] = _memory.shelf(item, DTYPES[kind] if isinstance(kind, str) else dtype_of(kind))
            lines.append(f"    x{i}, at{i} = take{i}(shape, n, room)")
            arguments[i] = f"at{i}"
        elif role == "n":
            arguments[i] = "long_pointer(n)"
        elif role == "width":
            arguments[i] = f"long_pointer({rest[0]})"
    lines.append("    status, at_status = take_status(shape, n, room)")
    lines.append("    vector = Vector()")
    passed = [arguments[i] for i in range(len(f.parameters))] + ["at_status", "vector"][:2 if f.has_vector else 1]
    lines.append(f"    done = array({', '.join(passed)})")
    lines.append(f"    return done, ({''.join(f'x{i}, ' for i in _places(f, 'gives', 'inout'))}), status, vector")
    return _made("call", lines, scope)


def _plain(record):
    return all(issubclass(kind, ctypes._SimpleCData) for _, kind in record._fields_)


def _has_one(f):
    """Can the scalar form of C be called with what one_element knows?"""
    given = [p[2] for p in f.each]
    found = [p[2] for p in f.gives]
    return bool(given) and all(p[0] != "inout" for p in f.each) and (f.flat and all(kind is ctypes.c_double for _, kind in given[0]._fields_) or all(kind in ("f8", "i8", "text") for kind in given)) \
        and (all(kind in ("f8", "i8", "text") for kind in found) or len(found) == 1 and not isinstance(found[0], str) and _plain(found[0]))


def one_element(f):
    """The call for one element, or None where there is none.

    It takes numbers, texts, and arrays of just the length and type for vectors; for anything else it gives None, and the call for
    arrays has it. The memory that C reads and writes is kept and used by one call at a time.
    """
    if not _has_one(f):
        return None
    scope = {"np": np, "f": f, "result": f.result, "symbol": symbol, "NO": ctypes.c_void_p(None), "pointer": pointer, "ndarray": np.ndarray,
             "ZERO": pointer(np.zeros(16)), "new_tuple": tuple.__new__, "pool": [], "copy": np.ndarray.copy, "NUMBERS": _NUMBERS, "scalar": None}
    each, gives = _places(f, "each", "both"), _places(f, "gives")
    checks, puts, cells, values, found = [], [], [], [], []
    arguments = {}
    for i in each:
        _, _, kind, length, optional, none_is_zero = f.parameters[i]
        arguments[i] = f"at{i}p"
        if f.flat:
            scope[f"type{i}"] = kind
            cells.append((f"x{i}", f"type{i}()"))
            for j, (field, _) in enumerate(kind._fields_):
                checks.append(f"type(v{j}) in NUMBERS" if j == 0 else f"(v{j} is None or type(v{j}) in NUMBERS)")
                puts.append(f"x{i}.{field} = v{j}" if j == 0 else f"x{i}.{field} = 0.0 if v{j} is None else v{j}")
                values.append(f"v{j}")
            continue
        values.append(f"v{i}")
        if kind == "text":
            check, put = f"type(v{i}) is str and len(v{i}) < {READ_WIDTH} and v{i}.isascii() and '\\0' not in v{i}", f"x{i}.value = v{i}.encode()"
            cells.append((f"x{i}", f"(c.c_char * {READ_WIDTH})()"))
        elif length:
            scope[f"dtype{i}"] = DTYPES[kind]
            check, put = f"type(v{i}) is ndarray and v{i}.shape == ({length},) and v{i}.dtype is dtype{i}", f"x{i}[:] = v{i}"
            cells.append((f"x{i}", f"np.zeros({length}, dtype{i})"))
        else:
            check, put = f"type(v{i}) in {'NUMBERS' if kind == 'f8' else '(int,)'}", f"x{i}.value = v{i}"
            cells.append((f"x{i}", "c.c_double()" if kind == "f8" else "c.c_long()"))
        if optional:
            check, put = f"(v{i} is None or {check})", f"if v{i} is not None: {put}"
            arguments[i] = f"at{i}p if v{i} is not None else {'ZERO' if none_is_zero else 'NO'}"
        checks.append(check)
        puts.append(put)
    for i in gives:
        _, _, kind, length, _, _ = f.parameters[i]
        arguments[i] = f"at{i}p"
        if not isinstance(kind, str):
            scope[f"type{i}"] = kind
            cells.append((f"x{i}", f"type{i}()"))
            found += [f"x{i}.{field}" for field, _ in kind._fields_]
        elif length:
            scope[f"dtype{i}"] = DTYPES[kind]
            cells.append((f"x{i}", f"np.zeros({length}, dtype{i})"))
            found.append(f"copy(x{i})")
        else:
            cells.append((f"x{i}", {"f8": "c.c_double()", "i8": "c.c_long()", "text": f"(c.c_char * {TEXT_WIDTH})()"}[kind]))
            found.append(f"x{i}.value" + (".decode()" if kind == "text" else ""))
    names = [x for x, _ in cells]
    work = ", ".join(names + [f"at{x[1:]}p" for x in names] + ["vector", "at_vector"])

    lines = ["def one(values, selects, handles):"]
    lines += _unpacked(values, "values")
    lines.append(f"    if not ({' and '.join(checks)}):\n        return None")
    arguments.update(_context(f, lines, scope))
    lines.append("    try:\n        work = pool.pop()\n    except IndexError:\n        work = new()")
    lines.append(f"    {work} = work")
    lines += ["    " + put for put in puts]
    passed = [arguments[i] for i, p in enumerate(f.parameters) if p[0] not in ("n", "width")] + (["at_vector"] if f.has_vector else [])
    lines.append(f"    status = scalar({', '.join(passed)})")
    lines.append("    if status:\n        f.failed_one(status, vector, pool, work)")
    lines.append(f"    out = {'new_tuple(result, (' + ', '.join(found) + '))' if f.result else found[0]}")
    lines.append("    pool.append(work)\n    return out")
    lines.append("def new():\n    global scalar\n    if scalar is None:\n        scalar = symbol(f.name)")
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
