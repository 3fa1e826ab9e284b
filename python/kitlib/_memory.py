"""Memory of results. A page that the system hands out anew costs several times what most functions write there, so memory of
results on which no array is left is used again.
"""
import math
import sys
from collections import deque

import numpy as np

from ._pointers import pointer

LIMIT = 128 << 20  # octets that stay here at most, those of arrays in use included
LARGEST = 32 << 20  # octets of one array
MANY = 16  # arrays of one kind and room, when some have come free
SMALLEST = 256  # elements: below, the allocator has pages at hand
_shelves = {}
_held = 0


def _entry(base):
    return base, pointer(base.view(np.uint8))


def _references_of_idle():
    """How many references an array has on which there is no other one; -1 where they do not say it."""
    if not getattr(sys, "_is_gil_enabled", lambda: True)():
        return -1
    entry = _entry(np.empty(1))
    return sys.getrefcount(entry[0])


IDLE = _references_of_idle()


def room_for(n):
    """Elements for which memory is made: n, and up to an eighth more."""
    step = 1 << max(n.bit_length() - 4, 0)
    return -(-n // step) * step


def shelf(item, dtype):
    """The rooms of results of one kind, and the function that takes from them: one for all functions of the library."""
    key = item, dtype.str if dtype.names is None else id(dtype)
    if key not in _shelves:
        _shelves[key] = _shelf(item, dtype)
    return _shelves[key][1]


def some(shape, item, dtype):
    """An array to be filled, from its shelf."""
    n = math.prod(shape)
    return shelf(item, dtype)(shape, n, room_for(n))[0]


def _shelf(item, dtype):
    rooms, size = {}, dtype.itemsize * math.prod(item)

    def take(shape, n, room, getrefcount=sys.getrefcount, idle=IDLE):
        """An array of the shape, n items together, and its pointer; it holds what stood there before."""
        if n < SMALLEST:
            array = np.empty(shape + item, dtype)
            return array, pointer(array)
        try:
            entries = rooms[room]
            entry = entries.popleft()
            if getrefcount(entry[0]) != idle:  # those given out longest ago come first
                entries.append(entry)
                entry = entries.popleft()
        except (KeyError, IndexError):
            return new(shape, room)
        if getrefcount(entry[0]) != idle:
            entries.append(entry)
            return new(shape, room)
        array = entry[0][:n]
        if len(entries) < MANY:
            entries.append(entry)
        else:  # a heap of results was dropped: fewer are enough, and nearer to the processor
            forget(room)
        return array if len(shape) == 1 else array.reshape(shape + item), entry[1]

    def forget(room):
        global _held
        _held -= room * size

    def new(shape, room):
        global _held
        if room * size > LARGEST or IDLE < 0:
            array = np.empty(shape + item, dtype)
            return array, pointer(array)
        if _held + room * size > LIMIT:
            release()
        _held += room * size
        entry = _entry(np.empty((room,) + item, dtype))
        array = entry[0][:math.prod(shape)].reshape(shape + item)
        rooms.setdefault(room, deque()).append(entry)
        return array, entry[1]

    return rooms, take


def release():
    """Lets go of all memory that is kept; arrays in use keep theirs."""
    global _held
    for rooms, _ in list(_shelves.values()):
        rooms.clear()
    _held = 0


_zeros = np.zeros(0)


def zeros(n):
    """n zeros or more that nobody writes."""
    global _zeros
    found = _zeros
    if len(found) < n:
        found = _zeros = np.zeros(n)
    return found
