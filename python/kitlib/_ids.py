"""Ids as objects: they close themselves, travel to other processes and print what they hold."""
import ctypes
import hashlib
import operator
import os
import tempfile
import threading
import weakref

import numpy as np

from . import _errors, _table
from ._library import KITLIB, symbol
from ._selectors import one_instant, selected

_PICKLE_FORMAT = 1
_ROW = np.dtype([("tai", "f8"), ("ut1", "f8"), ("utc", "f8"), ("tai_utc", "f8"), ("tai_ut1", "f8"), ("tai_gps", "f8")])
_POINTERS = {"rows": ("n_rows", _ROW), "pole": ("n_rows", np.dtype("(4,)f8")), "row_notes": ("n_rows", np.dtype("(2,)i8"))}


_closing = threading.RLock()  # one at a time opens and closes runs, and closes ids; a finalizer may do so inside another


class _Handle(ctypes.Structure):
    """An id as C knows it. It is closed when nothing holds it any more: neither its object nor a call that a thread is in, for the
    arguments of a call hold what they point to.
    """

    _fields_ = [("record", ctypes.c_void_p)]

    def __del__(self):
        if self.record:
            try:
                symbol(self.close_symbol)(ctypes.byref(self), None)
            except (TypeError, AttributeError):  # the interpreter is going down
                pass


class _TimeHandle(_Handle):
    close_symbol = "kl_time_close"


class _ModelHandle(_Handle):
    close_symbol = "kl_model_close"


def _check(name, status, public_id, vector, where):
    if status == -1:
        raise _errors.error(name, public_id, vector, where=where)
    if status == 1:
        _errors.warn(name, public_id, vector)


def _refused_format(state, kind):
    return ValueError(f"a {kind} pickled in format {state.get('format') if isinstance(state, dict) else '?'}, "
                      f"this version of kitlib reads format {_PICKLE_FORMAT}: make the id again")


class _Id:
    """What all ids share: an open handle, or none."""

    _handle_class, _close_public = _Handle, None

    def __init__(self):
        self._handle = self._handle_class()
        self._open = False
        self._runs = 0  # that hold it open

    def _opened(self):
        self._open = True
        self.pointer = ctypes.byref(self._handle)

    def __getattr__(self, name):
        if name == "pointer":  # there is one while the id is open; a property would cost every call its time
            raise ValueError(f"{type(self).__name__} is closed")
        raise AttributeError(f"{type(self).__name__} has no {name}")

    @property
    def closed(self):
        return not self._open

    def close(self):
        """Closes the id; again is no mistake. Calls that other threads are in end with it as it was. A run that uses it keeps it:
        KitError."""
        with _closing:
            if not self._open:
                return
            if self._runs:
                vector = (ctypes.c_long * 1)()
                symbol(self._handle_class.close_symbol)(self.pointer, vector)  # C refuses it
                raise _errors.error(self._handle_class.close_symbol, self._close_public, vector, where=f"{self}: a run uses it")
            self._open = False
            del self.pointer
            del self._handle  # the last reference, or a call has it

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def __copy__(self):
        return self

    def __deepcopy__(self, memo):
        return self


class TimeId(_Id):
    """Correlation of the time scales, and the pole of the Earth. Made by one of the from_... methods.

    >>> import kitlib as kl
    >>> t = kl.TimeId.from_values(tai=9497 + 37 / 86400, utc=9497.0, ut1=9497.0, gps=9497 + 18 / 86400)
    >>> t
    <TimeId: explicit values, TAI-UTC 37 s, TAI-GPS 19 s, UT1-UTC 0.000000 s>
    """

    _handle_class, _close_public = _TimeHandle, 16

    def __init__(self):
        raise TypeError("a TimeId is made by TimeId.bundled(), .from_files(), .from_values() or .from_rows()")

    @classmethod
    def _new(cls):
        self = cls.__new__(cls)
        _Id.__init__(self)
        self.report = None
        return self

    @classmethod
    def bundled(cls):
        """The published correlation that is compiled into the library."""
        return cls.from_files([])

    @classmethod
    def from_files(cls, files, model=None, no_extrapolation=True, start=None, stop=None):
        """From files as their services publish them: IERS bulletins, EOP series, leap seconds, orbit files.

        model: a kl.TimeModel; None merges files of any kind. no_extrapolation: False continues after the last row by
        the formula of a Bulletin A. start, stop: MJD2000, UTC: only the rows around that window; an end that is left
        out is that of the files.
        """
        names = [os.fspath(f) for f in ([files] if isinstance(files, (str, bytes, os.PathLike)) else files)]
        start, stop = (None if x is None else one_instant(x, name) for x, name in ((start, "start"), (stop, "stop")))
        for name in names:
            if not os.path.exists(name):
                raise FileNotFoundError(name)
        if (start is None) != (stop is None):  # the other end is that of the files
            utc = cls._read(names, model, no_extrapolation, None, None, True).data()["rows"]["utc"]
            start, stop = (float(utc[0]), stop) if start is None else (start, float(utc[-1]))
        return cls._read(names, model, no_extrapolation, start, stop, False)

    @classmethod
    def _read(cls, names, model, no_extrapolation, start, stop, quiet):
        self = cls._new()
        array = (ctypes.c_char_p * max(len(names), 1))(*[os.fsencode(n) for n in names])
        n, window = ctypes.c_long(len(names)), ctypes.c_long(0 if start is None else 1)
        first = ctypes.c_double(0.0 if start is None else start)
        last = ctypes.c_double(0.0 if stop is None else stop)
        report, vector = _table.TimeFileReport(), (ctypes.c_long * 1)()
        tail = (ctypes.byref(window), ctypes.byref(first), ctypes.byref(last), ctypes.byref(report), ctypes.byref(self._handle), vector)
        if model is None:
            hold = ctypes.c_long(1 if no_extrapolation else 0)
            name, public, status = "kl_time_id_init", 15, symbol("kl_time_id_init")(ctypes.byref(n), array, ctypes.byref(hold), *tail)
        else:
            kind = ctypes.c_long(selected(model, _table.TimeModel))
            name, public, status = "kl_time_ref_init_file", 13, symbol("kl_time_ref_init_file")(ctypes.byref(kind), ctypes.byref(n), array, *tail)
        if status == -1:
            error = _errors.error(name, public, vector, where="TimeId.from_files")
            if report.line:
                where = f"{names[report.file]}:{report.line}:{report.column}: {report.field.decode('ascii', 'replace')!r}"
                error = _errors.KitError(name, error.codes, error.messages + (where,), where=error.where)
            raise error
        self._opened()
        self.report = report
        if status == 1 and not quiet:
            _errors.warn(name, public, vector)
        return self

    @classmethod
    def from_values(cls, tai, utc, ut1, gps):
        """From the readings of one instant on four scales, MJD2000: constant differences at every instant."""
        self = cls._new()
        readings = (ctypes.c_double * 4)(tai, utc, ut1, gps)
        vector = (ctypes.c_long * 1)()
        status = symbol("kl_time_ref_init")(readings, None, None, None, ctypes.byref(self._handle), vector)
        _check("kl_time_ref_init", status, 14, vector, f"TimeId.from_values: tai {tai}, utc {utc}, ut1 {ut1}, gps {gps}")
        self._opened()
        return self

    @classmethod
    def from_rows(cls, rows, pole=None):
        """From a table: rows [n, 3] of UTC (MJD2000), TAI-UTC and UT1-UTC (s); pole [n, 4] of x, y, dX, dY (arcsec)."""
        if isinstance(rows, np.ma.MaskedArray) or isinstance(pole, np.ma.MaskedArray):
            raise TypeError("rows, pole: a masked array; fill it or compress it first")
        given = np.asarray(rows, "f8")
        if given.ndim != 2 or given.shape[1] != 3 or not len(given):
            raise ValueError(f"rows: shape (n, 3) is wanted, not {given.shape}")
        table = np.zeros(len(given), _ROW)
        utc, tai_utc, ut1_utc = given.T
        table["utc"], table["tai"], table["ut1"] = utc, utc + tai_utc / 86400, utc + ut1_utc / 86400
        table["tai_utc"], table["tai_ut1"], table["tai_gps"] = tai_utc, tai_utc - ut1_utc, 19.0
        state = {"model": 6, "no_extrapolation": 1, "n_rows": len(table), "rows": table}
        if pole is not None:
            state["pole"] = np.ascontiguousarray(pole, "f8")
            if state["pole"].shape != (len(table), 4):
                raise ValueError(f"pole: shape ({len(table)}, 4) is wanted, not {state['pole'].shape}")
        return cls._from_data(state)

    @classmethod
    def _from_data(cls, state):
        self = cls._new()
        data, keep = _table.TimeIdData(), []
        for field, kind in _table.TimeIdData._fields_:
            value = state.get(field)
            if value is None:
                continue
            if field in _POINTERS:
                array = np.ascontiguousarray(value)
                keep.append(array)
                setattr(data, field, array.__array_interface__["data"][0])
            elif isinstance(getattr(data, field), ctypes.Array):
                getattr(data, field)[:] = value
            else:
                setattr(data, field, value)
        if symbol("kl_time_set_id_data")(ctypes.byref(self._handle), ctypes.byref(data)) != 0:
            raise ValueError("not a usable table of a time id: rows must be finite, increasing and within -18262.0 to 36524.0, with whole seconds of TAI-UTC")
        self._opened()
        return self

    def data(self):
        """Everything the id holds, as a dictionary of numbers and arrays."""
        data = _table.TimeIdData()
        if symbol("kl_time_get_id_data")(self.pointer, ctypes.byref(data)) != 0:
            raise ValueError("the time id gives no data")
        out = {}
        for field, _ in _table.TimeIdData._fields_:
            value = getattr(data, field)
            if field in _POINTERS:
                count, dtype = _POINTERS[field]
                size = getattr(data, count)
                out[field] = None if not value or not size else np.frombuffer(ctypes.string_at(value, size * dtype.itemsize), dtype.base).reshape((size,) + dtype.shape).copy()
            else:
                out[field] = list(value) if isinstance(value, ctypes.Array) else value
        symbol("kl_time_free_id_data")(ctypes.byref(data))
        return out

    def pole(self, t, ref="UTC"):
        """x, y, dX, dY of the pole, arcsec, at MJD2000 instants: [..., 4]."""
        from . import _functions  # which needs this module
        return _functions.time_get_pole(t, ref=ref, time=self)

    def __reduce__(self):
        state = self.data()
        state["format"] = _PICKLE_FORMAT
        return (_time_again, (state,))

    def __repr__(self):
        if not self._open:
            return "<TimeId: closed>"
        data = self.data()
        rows = data["rows"]
        if data["model"] == -1:
            r = rows[0]
            return f"<TimeId: explicit values, TAI-UTC {r['tai_utc']:.0f} s, TAI-GPS {r['tai_gps']:.0f} s, UT1-UTC {round(r['tai_utc'] - r['tai_ut1'], 6) + 0.0:.6f} s>"
        try:
            model = _table.TimeModel(data["model"]).name.lower().replace("_", " ")
        except ValueError:
            model = f"model {data['model']}"
        days = np.datetime64("2000-01-01") + np.floor(rows["utc"][[0, -1]]).astype("m8[D]")
        return f"<TimeId: {model}, {len(rows)} rows, {days[0]} to {days[1]} UTC, TAI-UTC {rows['tai_utc'][-1]:.0f} s at the end>"


# Ids with the same data that came from other processes are one here: a task a chunk must not build its table anew.
_received = weakref.WeakValueDictionary()
_receiving, _making = threading.Lock(), threading.Lock()


def _fresh_locks():
    """In a child of a fork: another thread of the parent may have held them."""
    global _receiving, _making, _closing
    _receiving, _making, _closing = threading.Lock(), threading.Lock(), threading.RLock()


os.register_at_fork(after_in_child=_fresh_locks)


def _time_again(state):
    if not isinstance(state, dict) or state.get("format") != _PICKLE_FORMAT:
        raise _refused_format(state, "TimeId")
    digest = hashlib.sha1()
    for key in sorted(state):
        value = state[key]
        digest.update(key.encode())
        digest.update(value.tobytes() if isinstance(value, np.ndarray) else repr(value).encode())
    with _receiving:
        found = _received.get(digest.digest())
        if found is None or found.closed:
            found = _received[digest.digest()] = TimeId._from_data(state)
    return found


class ModelId(_Id):
    """The models of the Earth and the sky; without arguments the default ones. kl.ModelId(sun=1).

    >>> import kitlib as kl
    >>> kl.ModelId().data.semi_major_axis
    6378137.0
    """

    _handle_class, _close_public = _ModelHandle, 43

    def __init__(self, **selections):
        _Id.__init__(self)
        kinds = [kind.name.lower() for kind in _table.ModelKind]
        for name in selections:
            if name not in kinds:
                raise TypeError(f"{name} is no kind of model: {', '.join(kinds)}")
        numbers = {name: operator.index(number) for name, number in selections.items()}
        self.selections = {name: numbers[name] for name in kinds if numbers.get(name, 0)}
        values = (ctypes.c_long * 9)(*[numbers.get(name, 0) for name in kinds])
        mode, vector = ctypes.c_long(1 if selections else 0), (ctypes.c_long * 1)()
        status = symbol("kl_model_init")(ctypes.byref(mode), values, ctypes.byref(self._handle), vector)
        if status == -1:
            said = ", ".join(f"{kind} {number}" for kind, number in self.selections.items())
            raise _errors.error("kl_model_init", 42, vector, where=f"ModelId: {said}")  # a refused selection leaves an id behind, which its handle closes
        self._opened()

    @property
    def data(self):
        """Selections and constants, a ModelData."""
        out = _table.ModelData()
        symbol("kl_model_get_data")(self.pointer, ctypes.byref(out))
        return out

    def __reduce__(self):
        if not self._open:
            raise ValueError("ModelId is closed")
        return (_model_again, ({"format": _PICKLE_FORMAT, "selections": self.selections},))

    def __repr__(self):
        if not self._open:
            return "<ModelId: closed>"
        return "<ModelId: " + (", ".join(f"{k} {v}" for k, v in self.selections.items()) or "default models") + ">"


def _model_again(state):
    if not isinstance(state, dict) or state.get("format") != _PICKLE_FORMAT:
        raise _refused_format(state, "ModelId")
    return ModelId(**state["selections"])


class SatId:
    """A satellite: one of the fixed numbers, or a default one that is filled from a configuration file and freed again.

    >>> import kitlib as kl
    >>> kl.SatId(21)
    <SatId 21>
    """

    def __init__(self, number=None, file=None):
        if (number is None) == (file is None):
            raise TypeError("a number or a file is wanted")
        self._text, self._open = None, True
        if number is not None:
            self.number = operator.index(number)
            return
        with open(file, "rb") as opened:
            self._text = opened.read()
        self._init(os.fsencode(file))

    def _init(self, name):
        sat, vector = ctypes.c_long(-1), (ctypes.c_long * 1)()
        status = symbol("kl_default_sat_init")(ctypes.byref(sat), name, vector)
        self.number = sat.value
        if status == -1:
            error = _errors.error("kl_default_sat_init", 28, vector, where=f"SatId: file {os.fsdecode(name)!r}")
            if 0 <= sat.value <= 9:
                symbol("kl_default_sat_close")(ctypes.byref(sat))
            self._open = False
            raise error

    @property
    def pointer(self):
        if not self._open:
            raise ValueError("SatId is closed")
        return ctypes.byref(ctypes.c_long(self.number))

    def close(self):
        """Frees a default satellite."""
        if self._open and self._text is not None:
            symbol("kl_default_sat_close")(ctypes.byref(ctypes.c_long(self.number)))
        self._open = False

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def __del__(self):
        if getattr(self, "_open", False) and getattr(self, "_text", None) is not None:
            try:
                self.close()
            except (TypeError, AttributeError):
                pass

    def __reduce__(self):
        if not self._open:
            raise ValueError("SatId is closed")
        return (_sat_again, ({"format": _PICKLE_FORMAT, "number": None if self._text is not None else self.number, "text": self._text},))

    def __repr__(self):
        return f"<SatId {self.number}{', from a file' if self._text is not None else ''}{'' if self._open else ', closed'}>"


def _sat_again(state):
    if not isinstance(state, dict) or state.get("format") != _PICKLE_FORMAT:
        raise _refused_format(state, "SatId")
    if state["text"] is None:
        return SatId(state["number"])
    with tempfile.NamedTemporaryFile(suffix=".cfg") as file:
        file.write(state["text"])
        file.flush()
        return SatId(file=file.name)


class RunId:
    """A satellite, a time id and a model id under one small number, which holds them open.

    >>> import kitlib as kl
    >>> with kl.RunId(kl.SatId(21), kl.TimeId.from_values(0.0, 0.0, 0.0, 0.0)) as run:
    ...     run.time
    <TimeId: explicit values, TAI-UTC 0 s, TAI-GPS 0 s, UT1-UTC 0.000000 s>
    """

    def __init__(self, sat, time=None, model=None):
        if not isinstance(sat, SatId):
            raise TypeError(f"sat: a SatId is wanted, not {type(sat).__name__}")
        self.sat, self.time, self.model = sat, pointer_of("time", time), None if model is None else pointer_of("model", model)
        self._open = False
        number, vector = ctypes.c_long(-1), (ctypes.c_long * 1)()
        with _closing:
            status = symbol("kl_run_init")(sat.pointer, self.time.pointer, model.pointer if model is not None else None, ctypes.byref(number), vector)
            if status != -1:
                self.number, self._open = number.value, True
                self._count(1)
        _check("kl_run_init", status, 29, vector, f"RunId: {sat}, {self.time}, {model}")

    def _count(self, step):
        for held in (self.time, self.model):
            if held is not None:
                held._runs += step

    def close(self):
        """Closes the run and lets go of its ids, which stay open."""
        with _closing:
            if self._open:
                self._open = False
                KITLIB.kl_run_close.restype = None
                KITLIB.kl_run_close(ctypes.byref(ctypes.c_long(self.number)))
                self._count(-1)

    @property
    def closed(self):
        return not self._open

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def __del__(self):
        if getattr(self, "_open", False):
            try:
                self.close()
            except (TypeError, AttributeError):
                pass

    def __reduce__(self):
        if not self._open:
            raise ValueError("RunId is closed")
        return (RunId, (self.sat, self.time, self.model))

    def __repr__(self):
        return f"<RunId {self.number}: {self.sat}, {self.time}, {self.model}>" if self._open else "<RunId: closed>"


class _Common(TimeId):
    """The correlation of the package, which is not anyone's to close."""

    def close(self):
        """It stays open."""


class _DefaultModels:
    """In place of a ModelId: the default models."""

    pointer = ctypes.c_void_p(None)


DEFAULT_MODELS = _DefaultModels()
common = _reading = None


def for_reading():
    """A correlation of its own for reading texts, so that it spends no once-only warning of the common one."""
    global _reading
    if _reading is None:
        with _making:
            if _reading is None:
                _reading = _Common.bundled()
    return _reading


def pointer_of(role, given):
    """The id to use for a keyword that was left out or given."""
    global common
    if given is None:
        if role == "model":
            return DEFAULT_MODELS
        if common is None:
            with _making:
                if common is None:
                    common = _Common.bundled()
        return common
    if isinstance(given, RunId):
        if given.closed:
            raise ValueError("RunId is closed")
        held = given.time if role == "time" else given.model
        return DEFAULT_MODELS if held is None else held
    if not isinstance(given, TimeId if role == "time" else ModelId):
        raise TypeError(f"{role}: a {'TimeId' if role == 'time' else 'ModelId'} is wanted, not {type(given).__name__}")
    return given
