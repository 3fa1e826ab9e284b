"""Exceptions and warnings made of error vectors."""
import ctypes
import re
import sys
import warnings
from enum import IntEnum

from ._library import KITLIB
from ._table import CONDITIONS

OK, WARN, ERR = 0, 1, -1
_N_MESSAGES, _LENGTH, _N_CODES = 256, 512, 257
_get_code, _get_msg, _get_last_msg = KITLIB.kl_get_code, KITLIB.kl_get_msg, KITLIB.kl_get_last_msg
_VALUE = re.compile(r"-?\d+\.\d+|-?\d+")
_enums = {}


def codes_of(public_id):
    """The conditions of a function as an IntEnum."""
    if public_id not in _enums:
        name, rows = CONDITIONS[public_id]
        members = IntEnum(name[3:] if name.startswith("kl_") else name, rows)
        members.__reduce_ex__ = lambda self, _: (_code_again, (public_id, int(self)))  # the class is made here, pickle cannot find it
        _enums[public_id] = members
    return _enums[public_id]


def _code_again(public_id, code):
    """A member from its pickle; of another version's that there is not here, the number."""
    try:
        return codes_of(public_id)(code)
    except (KeyError, ValueError):
        return code


class KitError(Exception):
    """A call that the library refused.

    function: its name in C; codes: conditions, members of an IntEnum; messages: their texts; where: the function as it was
    called, with the values of the one element, or of the first that was refused.
    status: 0, 1 or -1 of each element, and outputs: what was computed, when the call was for arrays.
    """

    def __init__(self, function, codes=(), messages=(), status=None, outputs=None, where=""):
        names = ", ".join(getattr(code, "name", str(code)) for code in codes)
        super().__init__((f"{where}: " if where else "") + ("; ".join(messages) if messages else f"{function}: refused") + (f" ({names})" if names else ""))
        self.function, self.codes, self.messages = function, tuple(codes), tuple(messages)
        self.status, self.outputs, self.where = status, outputs, where

    def __reduce__(self):
        return (KitError, (self.function, self.codes, self.messages, self.status, self.outputs, self.where))


class KitWarning(UserWarning):
    """A condition that does not stop a computation: .function and .codes as of KitError."""

    def __init__(self, text, function="", codes=()):
        super().__init__(text)
        self.function, self.codes = function, tuple(codes)

    def __reduce__(self):
        return (KitWarning, (str(self), self.function, self.codes))


def last_messages():
    """Texts of the last call of this thread that recorded anything, with the values of their arguments."""
    n, texts = ctypes.c_long(0), ((ctypes.c_char * _LENGTH) * _N_MESSAGES)()
    _get_last_msg(ctypes.byref(n), texts)
    return tuple(texts[i].value.decode("utf-8", "replace") for i in range(n.value))


def _with_values(messages):
    """Texts of a vector, which has no values, with those of the last call where it has the same ones."""
    last = last_messages() if messages else ()
    shapes = [_VALUE.sub("0", text) for text in last]
    return tuple(next((text for text, shape in zip(last, shapes) if shape.startswith(_VALUE.sub("0", message))), message) for message in messages)


def decoded(public_id, vector):
    """Codes and messages of an error vector."""
    if public_id is None:
        return (), ()
    function = ctypes.c_long(public_id)
    n = ctypes.c_long(0)
    codes = (ctypes.c_long * _N_CODES)()
    _get_code(ctypes.byref(function), vector, ctypes.byref(n), codes)
    members = codes_of(public_id)
    found = tuple(members(codes[i]) for i in range(n.value))
    texts = ((ctypes.c_char * _LENGTH) * _N_MESSAGES)()
    _get_msg(ctypes.byref(function), vector, ctypes.byref(n), texts)
    return found, tuple(texts[i].value.decode("utf-8", "replace") for i in range(n.value))


def error(name, public_id, vector, status=None, outputs=None, where=""):
    """The exception of the call that this thread made last."""
    codes, messages = decoded(public_id, vector)
    return KitError(name, codes, _with_values(messages), status, outputs, where)


def warn(name, public_id, vector):
    codes, messages = decoded(public_id, vector)
    text = "; ".join(m for m in messages) or f"{name}: a warning"
    depth, frame = 1, sys._getframe()
    while frame is not None and frame.f_globals.get("__name__", "").partition(".")[0] == __package__:
        depth, frame = depth + 1, frame.f_back
    warnings.warn(KitWarning(text, name, codes), stacklevel=depth)
