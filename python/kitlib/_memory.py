"""Memory of results. A page that the system hands out anew costs several times what most functions write there, so memory of
results on which no array is left is used again, with the pointers to it.

The memory of one call is an entry: its arrays, the pointers to them and a vector of conditions. It waits in its home. Who takes it
from there looks whether arrays of others are left on it, and brings it back when C is done.
"""
import ctypes
import functools
import math
import sys
from collections import deque

import numpy as np

from ._pointers import pointer
from ._selectors import long_pointer

LIMIT = 128 << 20  # octets that stay here at most, those of arrays in use included
MANY = 16  # entries of one kind and room
SMALLEST = 256  # elements: below, the allocator has pages at hand
NOWHERE = deque(maxlen=0)  # the home of what is not used again
_MOST_SIZES = 4096
_Vector = ctypes.c_long * 2
_held = 0
_shelves = []


def _entry(arrays):
    pointers = [pointer(a if a.dtype.kind in "fiu" else a.view(np.uint8)) for a in arrays]
    return (*arrays, *map(ctypes.byref, [*pointers, _Vector()]))


def _references_of_idle():
    """How many references an array of an entry has on which there is no other one; -1 where they do not say it."""
    if not getattr(sys, "_is_gil_enabled", lambda: True)():
        return -1
    entry = _entry([np.empty(1), np.empty(1, "U1")])
    counts = {sys.getrefcount(entry[0]), sys.getrefcount(entry[1])}
    return counts.pop() if len(counts) == 1 else -1


IDLE = _references_of_idle()


def _room_for(n):
    """Elements for which memory is made: n, and up to an eighth more."""
    step = 1 << max(n.bit_length() - 4, 0)
    return -(-n // step) * step


class Shelf:
    """The entries of calls that give the same kinds of arrays: one for all functions of the library. Each kind is the shape of an
    item and a type."""

    def __init__(self, kinds):
        self.kinds = kinds
        self.size = sum(dtype.itemsize * math.prod(item) for item, dtype in kinds)
        self.homes, self.places = {}, {}  # by room and by number of elements
        _shelves.append(self)

    def new(self, n):
        """An entry for n elements or a few more, and the place of n: its home, the pointer to n and the slice of n elements."""
        global _held
        room = _room_for(n)
        octets = room * self.size
        if n < SMALLEST or octets > LIMIT or IDLE < 0:
            return _entry([np.empty((n,) + item, dtype) for item, dtype in self.kinds]), (NOWHERE, long_pointer(n), slice(n))
        if _held + octets > LIMIT or len(self.places) > _MOST_SIZES:
            release()
        _held += octets
        home = self.homes.setdefault(room, deque(maxlen=MANY))
        place = self.places[n] = (home, long_pointer(n), slice(n))
        return _entry([np.empty((room,) + item, dtype) for item, dtype in self.kinds]), place

    def forget(self, n):
        """Of an entry that gives way to another one: it was the first one in a full home."""
        global _held
        _held -= _room_for(n) * self.size


@functools.lru_cache(maxsize=None)
def shelf(*kinds):
    return Shelf(kinds)


_shelves_of_records = {}


def some(shape, item, dtype):
    """An array to be filled, of memory that is used again."""
    n = math.prod(shape)
    own = _shelves_of_records.get(id(dtype))  # numpy hashes all fields of such a type
    if own is None:
        own = shelf((item, dtype))
        if dtype.names and own.kinds[0][1] is dtype:  # which lives on
            _shelves_of_records[id(dtype)] = own
    try:
        home = own.places[n][0]
        entry = home.popleft()
        if sys.getrefcount(entry[0]) != IDLE:
            home.append(entry)
            entry, (home, _, _) = own.new(n)
    except (KeyError, IndexError):
        entry, (home, _, _) = own.new(n)
    array = entry[0][:n].reshape(shape + item)
    if len(home) == MANY:
        own.forget(n)
    home.append(entry)
    return array


def release():
    """Lets go of all memory that is kept; arrays in use keep theirs."""
    global _held
    for one in _shelves:
        one.homes.clear()
        one.places.clear()
    _held = 0


_zeros = np.zeros(0)


def zeros(n):
    """n zeros or more that nobody writes."""
    global _zeros
    found = _zeros
    if len(found) < n:
        found = _zeros = np.zeros(n)
    return found
