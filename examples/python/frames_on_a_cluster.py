# mypy: ignore-errors
# (dask has no types)
"""A frame change of 10^8 states on a cluster of two processes; an argument gives another number.

The states are made where they are used, streamed in pieces of a million and reduced to a sum: the whole never is in
memory at once. On many machines the same lines run with Client("scheduler:8786").
"""
import sys

import dask.array as da
import numpy as np
from dask.distributed import Client, LocalCluster

import kitlib as kl
from kitlib import dask as kitlib_dask


def main(n: int) -> None:
    piece = min(1_000_000, -(-n // 4))
    index = da.arange(n, chunks=piece, dtype="f8")
    t = 9668.0 + index / n
    angle = index * 1e-3
    position = 7.0e6 * da.stack([da.cos(angle), da.sin(angle), 0 * angle], axis=1).rechunk({1: -1})
    velocity = 7.5e3 * da.stack([-da.sin(angle), da.cos(angle), 0 * angle], axis=1).rechunk({1: -1})
    time = kl.TimeId.from_rows([[9600.0, 37, 0.05], [9700.0, 37, 0.06]])
    with LocalCluster(n_workers=2, threads_per_worker=1, processes=True, memory_limit="1GiB", dashboard_address=None) as cluster, Client(cluster):
        states = kitlib_dask.apply(kl.change_cart_cs, t, position, velocity, cs_in="TEME", cs_out="EF", time=time)
        speed, last = da.compute(da.sqrt((states.vel ** 2).sum(axis=1)).mean(), states.pos[-1])
    here = kl.change_cart_cs(float(t[-1].compute()), position[-1].compute(), velocity[-1].compute(), cs_in="TEME", cs_out="EF", time=time)
    print(f"{n} states, mean speed over the ground {speed:.3f} m/s")
    print("last one as in this process:", np.array_equal(last, here.pos))


if __name__ == "__main__":
    main(int(float(sys.argv[1])) if len(sys.argv) > 1 else 100_000_000)
