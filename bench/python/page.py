"""Writes docs/performance-python.md, all of it from this one run. usage: page.py [largest number of elements] [of the cluster]

The page goes to standard output where the numbers are smaller than those of the page.
"""
import os
import platform
import sys
import time
from importlib.metadata import PackageNotFoundError, version

import numpy as np

import overhead
import scalars
import side_by_side

PAGE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "docs", "performance-python.md")
MOST, CLUSTER = 1_000_000, 10_000_000


def machine():
    with open("/proc/cpuinfo", encoding="ascii") as file:
        model = next((line.split(": ")[1].strip() for line in file if line.startswith("model name")), platform.machine())
    def known(name):
        try:
            return version(name)
        except PackageNotFoundError:
            return "absent"
    rivals = ", ".join(f"{name} {known(name)}" for name in ("numpy", "pyerfa", "astropy", "skyfield", "pyproj"))
    return f"{model}, {os.cpu_count()} cores, load {os.getloadavg()[0]:.1f} before the run; Python {platform.python_version()}, {rivals}"


def in_words(n):
    return f"10^{round(np.log10(n))}" if n > 1000 else str(n)


def overhead_table(rows):
    out = "| function | elements | C, us | C into new memory, us | package, us | package / C |\n|---|---:|---:|---:|---:|---:|\n"
    for r in rows:
        out += f"| {r.function} | {in_words(r.n)} | {r.c * 1e6:.1f} | {r.c_new * 1e6:.1f} | {r.package * 1e6:.1f} | {r.package / r.c:.2f} |\n"
    return out


def every_table(rows):
    out = "| function | C, us | package, us | package / C |\n|---|---:|---:|---:|\n"
    for r in rows:
        out += f"| {r.function} | {r.c * 1e6:.1f} | {r.package * 1e6:.1f} | {r.package / r.c:.2f} |\n"
    return out


def scalars_table(rows):
    out = "| function | C, us | package, us | the package adds, us |\n|---|---:|---:|---:|\n"
    for r in rows:
        out += f"| {r.function} | {r.c * 1e6:.2f} | {r.package * 1e6:.2f} | {(r.package - r.c) * 1e6:.2f} |\n"
    return out


def rivals_table(rows):
    out = "| task | elements | kitlib | rival | time | rival / kitlib | largest difference |\n|---|---:|---:|---|---:|---:|---:|\n"
    for r in rows:
        out += f"| {r.task} | {in_words(r.n)} | {r.ours / r.n * 1e9:.0f} ns | {r.rival} | "
        out += f"{r.theirs} | | |\n" if isinstance(r.theirs, str) else f"{r.theirs / r.n * 1e9:.0f} ns | {r.theirs / r.ours:.1f} | {r.away:.2g} {r.unit} |\n"
    return out


def cluster_line(n):
    """Elements a second of a frame change over a cluster of one process and of two: with what goes between them."""
    try:
        import dask.array as da
        from dask.distributed import Client, LocalCluster
        from kitlib import dask as kitlib_dask
    except ImportError:
        return "There was no dask to measure a cluster with."
    import kitlib as kl
    rates = []
    for workers in (1, 2):
        with LocalCluster(n_workers=workers, threads_per_worker=1, processes=True, memory_limit="1GiB", dashboard_address=None) as cluster, Client(cluster):
            index = da.arange(n, chunks=max(n // 20, 1), dtype="f8")
            position = 7.0e6 * da.stack([da.cos(index), da.sin(index), 0 * index], axis=1).rechunk({1: -1})
            states = kitlib_dask.apply(kl.change_cart_cs, 7000.0 + index / n, position, cs_in="TEME", cs_out="EF")
            start = time.perf_counter()
            states.pos.sum().compute()
            rates.append(n / (time.perf_counter() - start) / 1e6)
    return f"{n:.0e} frame changes, made, changed and summed on a LocalCluster: {rates[0]:.2f} million a second with one process, {rates[1]:.2f} with two."


def main():
    most = int(float(sys.argv[1])) if len(sys.argv) > 1 else MOST
    n_cluster = int(float(sys.argv[2])) if len(sys.argv) > 2 else CLUSTER
    where = machine()
    added = list(overhead.rows(most))
    alone = list(scalars.rows())
    every = list(scalars.rows_of_many(1000))
    beside = list(side_by_side.rows(most))
    cluster = cluster_line(n_cluster)
    largest = max(r.n for r in beside)
    slower = [f"{r.task} beside {r.rival} ({in_words(r.n)}: {r.theirs / r.ours:.1f})" for r in beside if r.n > 1 and not isinstance(r.theirs, str) and r.theirs < r.ours]
    beyond = [f"{r.function} ({in_words(r.n)}: {r.package / r.c:.2f})" for r in added if r.package > 1.3 * r.c]
    adds = max(alone, key=lambda r: r.package - r.c)
    above = [f"{r.function} ({r.package / r.c:.2f}, {r.c * 1e6:.1f} us in C)" for r in every if r.package > 1.3 * r.c]
    over = [f"{r.function} ({r.package * 1e6:.1f}, C alone {r.c * 1e6:.1f})" for r in alone if r.package > 3e-6]
    page = f"""# How fast the Python package is

Written by `bench/python/run.sh`, all of it from one run: {where}. Times are those of the processor, the least of at least
three; a rival that a smaller size foretells to need more than {side_by_side.MUST_END:.0f} s is not asked. The last column is the largest
difference of the results.

## Beside C

The call of C alone, with its arguments made ready, into memory that is ready, and into memory that is asked for at each call, as
results of numpy are; the package keeps memory on which no array is left (up to {overhead.LIMIT >> 20} MiB) and so needs no new pages.

- Beyond 1.3 times the call of C: {', '.join(beyond) or 'none'}.
- Texts of numpy have four octets a character (U) or one (S); C takes and gives one. They are changed block by block around the call.

{overhead_table(added)}
### Every function, 1000 elements

C is the very call that the package makes, with its arguments and its memory. Where a thousand elements take C two microseconds, what any
call from Python needs is as much.

- Beyond 1.3 times: {', '.join(above) or 'none'}.

{every_table(every)}
## One element

Of plain numbers, texts, or arrays of one vector. C is the very call that the package makes, without what Python needs to call any
function of C (0.3 us and more with the number of arguments): that is in what the package adds.

- The package adds at most {(adds.package - adds.c) * 1e6:.1f} us ({adds.function}).
- Above 3 us in all: {', '.join(over) or 'none'}.

{scalars_table(alone)}
## Beside others

- Slower than a rival at 1000 elements or more: {', '.join(slower) or 'none'}.
- Elements come in arrays, also one alone; as a number it takes the time above.
- The rounded astronomical unit of the library's ephemerides (1.496e11 m) is 2100 km of the Sun's distance, and the rivals' Sun and
  Moon were given UTC for TDB; what else lies in these two was not looked into. pyproj ends its iteration of heights at
  millimetres. Rivals without the pole of the Earth differ by up to 16 m, of which the pole (0.5 arcsec) is most. UT1 differs by up
  to 0.5 ms from the tables that astropy and skyfield bring along.

{rivals_table(beside)}
## On a cluster

{cluster}
"""
    if most >= MOST and n_cluster >= CLUSTER:
        with open(PAGE, "w", encoding="utf-8") as file:
            file.write(page)
        print(f"written, {in_words(largest)} elements at most: {os.path.normpath(PAGE)}")
    else:
        print(page)


if __name__ == "__main__":
    main()
