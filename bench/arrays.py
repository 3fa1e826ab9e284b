#!/usr/bin/env python3
"""arrays.py [BUILD [ELEMENTS]]: measures the array forms and puts their section into docs/performance.md.

BUILD is a tree with the benchmarks (build/bench where nothing is said); a million elements. Instructions come from
callgrind, which knows AVX2 but not AVX-512: they are counted with KITLIB_KERNELS=avx2, as everything here.
"""
import os
import re
import subprocess
import sys
from pathlib import Path

root = Path(__file__).resolve().parent.parent
build = Path(sys.argv[1]) if len(sys.argv) > 1 else root / "build/bench"
elements = sys.argv[2] if len(sys.argv) > 2 else "1000000"
program = build / "bench/arrays"
page = root / "docs/performance.md"
environment = dict(os.environ, KITLIB_KERNELS="avx2")
BEGIN, END = "## Arrays\n", "<!-- end of arrays -->\n"

# What holds each back; the first words of its label say which.
LIMITS = [
    ("UTC to UT1, instants", "loads of the row of each instant, which lie apart"),
    ("UTC to UT1, asc", "the chain of roundings to microseconds, one for each step of scale"),
    ("text", "octets one by one: digits are read and written without packs"),
    ("processing time to text", "octets one by one: digits are read and written without packs"),
    ("geoid", "65 341 terms of 11 operations that keep the bits of one point; the coefficients are read once for 48"),
    ("GM2000 to EF with rates, one", "nine turns that wait for one another; moving 160 octets between elements and packs"),
    ("GCRS to ITRS with rates, one", "moving 160 octets between elements and packs"),
    ("GM2000", "series of nutation and six turns with two derivatives: arithmetic"),
    ("TEME", "the whole chain over true of date, as for one state"),
    ("GCRS", "cubics of four rows and of the table of the pole"),
    ("Sun", "series: sines of its arguments"),
    ("Moon", "126 terms with rates of two components, whose operands come from memory; nutation; sines"),
    ("Mars", "series of two planets, and the chain of frames"),
    ("eclipse, own", "series of the Earth, precession and nutation; arc tangents"),
    ("eclipse", "arc tangents, sines and divisions"),
    ("star", "arc tangents, sines and divisions"),
    ("rotation", "the scalar call, element by element"),
    ("rotated", "the scalar call, element by element"),
    ("matrix to", "the scalar call, element by element"),
    ("vectors to", "the scalar call, element by element"),
    ("quaternion interpolation", "the scalar call, element by element"),
    ("quaternions to", "memory"),
    ("local", "divisions by three lengths, and moving 224 octets"),
    ("Kepler to", "Kepler's equation: a cube root, three sines and cosines, a dozen divisions"),
    ("Cartesian to Kepler", "five arc tangents"),
    ("", "arc tangents, sines and divisions"),
]


def run(*arguments):
    return subprocess.run([str(a) for a in arguments], env=environment, capture_output=True, text=True, check=True)


def instructions(row, n):
    """Of the array call alone, an element: with the call less without it."""
    def counted(count):
        out = run("valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null", program, "count", row, count).stderr
        return int(re.search(r"Collected : (\d+)", out)[1])
    return (counted(n) - counted(-n)) / n


def copied_gigabytes():
    """What a copy moves in a second, of arrays beyond the caches: there and back counted."""
    return float(run(program, "copy").stdout)


def figure(value):
    return f"{value:,.0f}".replace(",", " ") if value >= 100 else f"{value:.1f}"


def main():
    gigabytes = copied_gigabytes()
    lines = [line.split(";") for line in run(program, elements).stdout.splitlines() if not line.startswith("#")]
    rows = []
    for number, (label, form, octets, scalar, array, two, rival, rival_ns) in enumerate(lines):
        octets, scalar, array, two, rival_ns = int(octets), float(scalar), float(array), float(two), float(rival_ns)
        count = instructions(number, 64 if "geoid" in form else 2000)
        limit = next(why for start, why in LIMITS if label.startswith(start))
        memory = octets / gigabytes  # ns
        rows.append((label, figure(array), figure(scalar), f"{scalar / array:.1f}",
                     f"{rival}: {figure(rival_ns)}" if rival else "", figure(1e3 / array), figure(1e3 / two),
                     octets, figure(count), f"{array / memory:.1f}", limit))
    head = ("call", "array, ns", "scalar, ns", "scalar / array", "rival, ns", "millions a second, one thread", "two",
            "octets", "instructions", "array / memory", "held back by")
    rule = ["---" if i in (0, 4, 10) else "---:" for i in range(len(head))]
    table = "\n".join("| " + " | ".join(map(str, row)) + " |" for row in (head, rule, *rows))
    load = Path("/proc/loadavg").read_text().split()[0]
    text = f"""{BEGIN}
Nanoseconds an element of {int(elements):,} (the geoid: a five-hundredth of them), AVX2, shortest of seven repetitions; the
scalar call in a loop in the same process, and what users of ERFA write: a loop over its function. Octets are those an
element has in all arrays of the call; `array / memory` says how many times longer the call takes than a copy of them
({gigabytes:.1f} GB/s here): 1 is the limit of memory. Instructions by callgrind. Load average when this was measured: {load}.
`bench/arrays.py` measures again and writes this section.

{table}
{END}"""
    old = page.read_text()
    if BEGIN in old:
        old = old[:old.index(BEGIN)] + old[old.index(END) + len(END):]
    page.write_text(old.rstrip() + "\n\n" + text)


main()
