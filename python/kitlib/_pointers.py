"""Pointers to the data of arrays."""
import ctypes

from_buffer = (ctypes.c_char * 0).from_buffer


def pointer(array):
    """A pointer to a contiguous array; it keeps one that can be written alive as long as itself."""
    try:
        return from_buffer(array)
    except (TypeError, ValueError, BufferError):  # read-only ones, texts
        return ctypes.c_void_p(array.__array_interface__["data"][0])
