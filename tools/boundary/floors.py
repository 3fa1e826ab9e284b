#!/usr/bin/env python3
"""Calls go down: what the objects of the library ask of one another.

    floors.py NM OBJECT...    (an object is .../kitlib_<part>.dir/src/<floor>/<file>.o; @FILE: their names, a line each)

The floors and their order are the rows of the table in docs/design.md. Held here:
- an object refers to symbols of its own floor and of floors below, and a source file includes headers of these;
- no object refers to a public function of another file, nor to a function of kl_family.h that records conditions: these
  are the doors, and what a door shares with others is a function without a handle or an error vector;
- no file calls a door of its own;
- no two files of src have the same name.
"""
import pathlib
import re
import subprocess
import sys
import tomllib

ROOT = pathlib.Path(__file__).resolve().parents[2]

# What may break a rule, and why. (from, to): a floor or a file.
UP = {
    ("models", "KL_DEFAULT_BLOCKS"): "the record of the default models: constant data that the linker fills in",
}
CALLERS = {
    "objects": "classes over the C functions: callers like any other",
    "runs/run_twins.cpp": "a twin is the public function with the ids of its run",
}
DOORS_BY_ADDRESS = {"wiring/default_models.cpp": "the entry points of the model record, which callers call"}


def floors():
    rows = re.findall(r"^\| (`src/.*?) \|", (ROOT / "docs/design.md").read_text(), re.M)
    return [name for row in rows for name in re.findall(r"`src/(\w+)`", row)]


def doors():
    """The public functions, and those of the family that record conditions."""
    public, family = set(), set()
    for path in (ROOT / "api").glob("*.toml"):
        for name, row in tomllib.loads(path.read_text()).items():
            if not isinstance(row, dict):
                continue
            if row.get("place", "public") == "public":
                public |= {name, name + "_n", name + "_run", name + "_run_n"}
            elif row["place"] == "family" and row.get("conditions"):
                family.add(name)
    return public, family


def symbols(nm, objects):
    """File -> names it asks for; name -> file that has it."""
    asks, has, files = {}, {}, {}
    for path in objects:
        found = re.search(r"kitlib_\w+\.dir/(?:\./)?src/(\w+/.*)\.o$", str(path))
        if not found:
            sys.exit(f"floors: not an object of src: {path}")
        file = found[1]
        files[str(path)] = file
        asks.setdefault(file, set())
    listed = subprocess.run([nm, "-A", *files], capture_output=True, text=True, check=True).stdout
    for line in listed.splitlines():  # "path.o:0000 T name"
        path, _, rest = line.rpartition(".o:")
        kind, name = rest.split()[-2:]
        if kind == "U":
            asks[files[path + ".o"]].add(name)
        elif kind in "TDBR":
            has[name] = files[path + ".o"]
    return asks, has


def is_one_of(file, places):
    return file in places or file.split("/")[0] in places


def faults(asks, has):
    rank = {floor: place for place, floor in enumerate(floors())}
    public, family = doors()
    sources = {str(p.relative_to(ROOT / "src")): p.read_text() for p in sorted((ROOT / "src").rglob("*"))
               if p.suffix in (".cpp", ".h")}
    for floor in sorted({name.split("/")[0] for name in sources} - set(rank)):
        yield f"src/{floor} is no floor of docs/design.md"
        return
    for file, names in sorted(asks.items()):
        floor = file.split("/")[0]
        for name in sorted(names & set(has)):
            other = has[name].split("/")[0]
            if rank[other] > rank[floor] and (floor, name) not in UP:
                yield f"src/{file} calls up: {name} of src/{has[name]}"
            if name in public and not is_one_of(file, CALLERS):
                yield f"src/{file} calls the public {name}"
            if name in family and not is_one_of(file, DOORS_BY_ADDRESS):
                yield f"src/{file} calls the door {name}"
    call = re.compile(r"\b(kl_\w+|KL_\w+)\(")
    for file, text in sources.items():
        floor = file.split("/")[0]
        for other in re.findall(r'^#include "(\w+)/', text, re.M):
            if other in rank and rank[other] > rank[floor]:
                yield f"src/{file} includes a header of src/{other}, which stands above"
        for line in text.splitlines():
            code = line.split("//")[0]
            if re.match(r"(KL_API )?(const )?(long|double|void|char)\b", code) or is_one_of(file, CALLERS):
                continue
            for name in set(call.findall(code)) & (public | family):
                yield f"src/{file} calls the door {name}: {code.strip()}"
    by_name = {}
    for file in sources:
        by_name.setdefault(file.rsplit("/", 1)[-1], []).append("src/" + file)
    for name, files in sorted(by_name.items()):
        if len(files) > 1:
            yield f"one name: {', '.join(files)}"


def main():
    nm, *objects = sys.argv[1:]
    named = []
    for name in objects:
        named += pathlib.Path(name[1:]).read_text().split("\n") if name.startswith("@") else [name]
    asks, has = symbols(nm, [name for name in named if name])
    found = list(faults(asks, has))
    for fault in found:
        print(fault)
    print(f"floors: {len(asks)} objects, {len(floors())} floors, {len(found)} faults")
    sys.exit(1 if found or len(asks) < 50 else 0)


main()
