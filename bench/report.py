#!/usr/bin/env python3
"""Prints the speed page from the results that run.sh leaves in the directory named."""
import json
import os
import re
import subprocess
import sys
from pathlib import Path

results = Path(sys.argv[1])
SUBJECTS = {
    "time": "Time scales and formats",
    "clock": "On-board clocks and unsegmented time codes",
    "frames": "Frames",
    "orientation": "The Earth after the IERS Conventions",
    "bodies": "Sun, Moon and planets",
    "stars": "Stars",
    "geometry": "Roots, lines of sight, eclipses",
    "geoid": "Geoid",
    "coordinates": "Coordinates, elements, geodesics and grids",
    "rotations": "Rotations",
    "objects": "Classes beside the functions they wrap",
    "runs": "Runs beside the functions with ids",
}
GROWTH = {"rows": "rows of the time table", "degree": "degree", "points": "points of the grid"}


def table(*rows, left=(0,)):
    rule = ["---" if i in left else "---:" for i in range(len(rows[0]))]
    return "\n".join("| " + " | ".join(map(str, row)) + " |" for row in (rows[0], rule, *rows[1:])) + "\n"


def label(name):
    return re.sub(r"/(\w+):(\d+)", r", \1 \2", name)


def figure(value):
    return f"{value:.0f}" if value >= 100 else f"{value:.1f}"


def lines(name):
    return [re.split(r"\s{2,}", line.strip()) for line in (results / name).read_text().splitlines()]


def medians(subject):
    """Nanoseconds of each benchmark, in the order of the program; of one item where a call has many."""
    data = json.loads((results / f"{subject}.json").read_text())["benchmarks"]
    data = [b for b in data if b["run_type"] == "aggregate" and b["aggregate_name"] == "median" and "error_occurred" not in b]
    data.sort(key=lambda b: (b["family_index"], b["per_family_instance_index"]))
    to_ns = {"ns": 1.0, "us": 1e3, "ms": 1e6}
    return {
        re.sub(r"/-?\d+$", "", b["run_name"]): 1e9 / b["items_per_second"] if "items_per_second" in b
        else b["cpu_time"] * to_ns[b["time_unit"]]
        for b in data
    }


def beside(all_medians):
    rows = [("call", "ns", "rival", "rival, ns", "rival / call")]
    for name, ns in all_medians.items():
        if "/rival " in name:
            continue
        rivals = [(other.split("/rival ")[1], its) for other, its in all_medians.items() if other.startswith(name + "/rival ")]
        own = (label(name), figure(ns))
        rows += [(*own, rival, figure(its), f"{its / ns:.2f}") for rival, its in rivals] or [(*own, "", "", "")]
    return table(*rows, left=(0, 2))


def growth(key, every):
    """A row for each call that was measured at several values of the key."""
    cost = {}
    for name, ns in every.items():
        found = re.fullmatch(rf"(.*)/{key}:(\d+)", name)
        if found:
            cost.setdefault(label(found[1]), {})[int(found[2])] = figure(ns)
    values = sorted({v for of_call in cost.values() for v in of_call})
    return table((f"ns by {GROWTH[key]}", *values), *[(name, *[of.get(v, "") for v in values]) for name, of in cost.items()])


def main():
    cpu = re.search(r"model name\s*: (.*)", Path("/proc/cpuinfo").read_text())
    compiler = subprocess.run(["c++", "--version"], capture_output=True, text=True, check=True).stdout.splitlines()[0]
    load = float((results / "load.txt").read_text().split()[0])
    print("# Speed\n")
    print(f"Written by `bench/run.sh` on {os.cpu_count()} cores, {cpu[1] if cpu else 'unknown CPU'}; {compiler}, Release.")
    busy = "; other programs had a share of the cores, so two threads over one says little here" if load > 1.5 else ""
    print(f"Load average of the machine when it began: {load}{busy}.\n")
    print("Each figure is the median of seven repetitions, in nanoseconds of CPU time; a subject's calls and their rivals")
    print("take turns at random in one process. A ratio above one says how many times slower the rival is.\n")
    every = {}
    for subject, title in SUBJECTS.items():
        of_subject = medians(subject)
        every |= of_subject
        print(f"## {title}\n")
        print(beside(of_subject))
    print("ERFA's bodies and frames sum longer series (IAU 1980 nutation has 106 terms) and give the position alone, with")
    print("constant time offsets: not equal work. Its texts end at the calendar fields. Classes and twins of runs stand as")
    print("rivals of the functions they call: their ratio is what they cost.\n")
    print("## How cost grows\n")
    for key in GROWTH:
        print(growth(key, every))
    print("Rows are evenly apart and the instants random over the table. A point of a grid is a share of a whole grid of")
    print("degree 360.\n")

    threads = lines("threads.txt")
    print("## Two threads over one\n")
    print("Calls a second, medians of a hundred slices, each core alone and beside the other, and of up to five hundred where")
    print("that gives less than 1.9; both threads use the same ids. Arithmetic that shares nothing with anybody is what two")
    print("cores of this machine give. The last two rows are ids opened and closed: the tables of ids have one lock, so")
    print("they wait for one another.\n")
    print(table(("call", "one", "two", "two / one"), *threads[1:-1]))
    print(threads[-1][0] + ".\n")

    print("## Longest call\n")
    print("The longest call over ordinary and awkward inputs (powers of two of both signs, zeros, no numbers, longs up to the")
    print("last, texts out of form) beside the median over ordinary ones; each call counts by the shortest of some tries.\n")
    print(table(("call", "median, ns", "longest, ns", "ratio", "at"), *lines("worst_case.txt")[1:]))

    print("## Instructions\n")
    print("Instructions of a call by callgrind, which do not depend on the load; times and places change from call to call,")
    print("the time table has 15 000 rows, the geoid degree 360.\n")
    print(table(("call", "instructions"), *[line[0].split() for line in lines("instructions.txt")]).rstrip())


main()
