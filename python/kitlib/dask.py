"""Any function of the package over dask arrays: columns larger than memory, and clusters of processes or machines.

    states = kitlib.dask.apply(kl.change_cart_cs, t, r, v, cs_in="TEME", cs_out="EF")     # nothing is computed yet
    states.pos.to_zarr(...)

Elements lie along the first axis; vectors have their 3 or 4 numbers along the last one, in one chunk. A time id that is
given as a keyword is one object of the graph: each worker receives it once.
"""
from typing import Any, Callable

import numpy as np

try:
    import dask
    import dask.array as da
except ImportError as error:
    raise ImportError("kitlib.dask needs dask: Debian's python3-dask, and python3-distributed for clusters") from error

from . import _functions

__all__ = ["apply"]


def _probe(function, arrays, keywords):
    """What the function gives for one element that it refuses: number, length and type of its outputs."""
    ones = []
    for a in arrays:
        if isinstance(a, da.Array):
            if a.dtype.kind in "SU":
                ones.append(np.array(["-"]))
            else:
                ones.append(np.full((1,) + a.shape[1:], np.nan if a.dtype.kind == "f" else 0, a.dtype))
        else:
            ones.append(a)
    return function(*ones, **{**keywords, "errors": "nan", "return_status": False})


def _packed(function, keywords, ids, lengths, *blocks):
    """All outputs of a block side by side as doubles, or the one output as it is."""
    result = function(*blocks, **keywords, **ids)
    if lengths is None:
        return result
    columns = [np.asarray(x, "f8").reshape(len(x), -1) for x in result]
    return np.concatenate(columns, axis=1)


def apply(function: Callable[..., Any], *arrays: Any, **keywords: Any) -> Any:
    """The function over dask arrays of equal length along the first axis; its result has dask arrays in place of numpy's."""
    if "return_status" in keywords:
        raise TypeError('return_status has no place here: errors="nan" marks what failed')
    n = {a.shape[0] for a in arrays if isinstance(a, da.Array)}
    if len(n) != 1:
        raise ValueError(f"dask arrays of one length are wanted, not {sorted(n) or 'none'}")
    probe = _probe(function, arrays, keywords)
    outputs = probe if isinstance(probe, tuple) else (probe,)
    lengths = [x.shape[1] if x.ndim == 2 else 0 for x in outputs] if isinstance(probe, tuple) else None
    ids = {k: dask.delayed(keywords.pop(k), pure=False, traverse=False) for k in ("time", "model") if keywords.get(k) is not None}
    pairs = []
    for a in arrays:
        if isinstance(a, da.Array):
            if a.ndim > 1 and len(a.chunks[-1]) > 1:
                a = a.rechunk({-1: -1})
            pairs += [a, "i" if a.ndim == 1 else ("i", f"v{len(pairs)}")]
        else:
            pairs += [a, None]
    width = sum(max(k, 1) for k in lengths) if lengths is not None else outputs[0].shape[1] if outputs[0].ndim == 2 else None
    dtype = np.dtype("f8") if lengths is not None else outputs[0].dtype

    def work(*blocks, ids):
        return _packed(function, keywords, ids, lengths, *blocks)
    whole = da.blockwise(work, "i" if width is None else ("i", "out"), *pairs, new_axes={} if width is None else {"out": width}, concatenate=True,
                         dtype=dtype, meta=np.empty((0,) if width is None else (0, 0), dtype), ids=ids)
    if lengths is None:
        return whole
    found, at = [], 0
    for length, one in zip(lengths, outputs):
        part = whole[:, at] if length == 0 else whole[:, at:at + length]
        found.append(part.astype(one.dtype) if one.dtype != part.dtype else part)
        at += max(length, 1)
    return type(probe)(*found)
