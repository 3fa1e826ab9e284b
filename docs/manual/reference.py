"""Pages of reference from the table of functions and Doxygen's XML: reference.py XML SOURCE. Fails for a public function
without a contract, or an argument without a word."""
import glob
import json
import os
import re
import sys
import xml.etree.ElementTree as ET

TOP = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..")
XML, SOURCE = sys.argv[1:3]
SUBJECTS = {
    "time": "Time scales and time ids", "formats": "Texts and transport times", "clocks": "On-board clocks and unsegmented codes",
    "models": "Models", "frames": "Frames of the family's chain", "orientation": "The Earth after the IERS Conventions",
    "bodies": "Sun, Moon and planets", "coordinates": "Coordinates and orbits", "geometry": "Lines of sight, roots and eclipses",
    "stars": "Stars", "geoid": "Geoid", "rotations": "Rotations", "satellites": "Satellites", "runs": "Runs",
    "errors": "Error vectors and versions"}
RULES = ["status", "units", "input", "ids", "arrays", "threads", "bits"]


def read(path):
    with open(os.path.join(TOP, path), encoding="utf-8") as file:
        return file.read()


def write(name, lines):
    path = os.path.join(SOURCE, name)
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w", encoding="utf-8") as file:
        file.write("\n".join(lines) + "\n")


def title(text, line="="):
    return [text, line * len(text), ""]


def rst(text):
    text = " ".join(text.split())
    return re.sub(r"([*`|\\])|(?<=\w)_(?=\W|$)", lambda m: "\\" + m.group(0), text)


def table(head, rows, widths):
    lines = [".. list-table::", "   :header-rows: 1", "   :widths: " + " ".join(map(str, widths)), ""]
    for row in [head, *rows]:
        lines += [("   * - " if i == 0 else "     - ") + cell for i, cell in enumerate(row)]
    return lines + [""]


def words(node):
    return " ".join("".join(node.itertext()).split()) if node is not None else ""


class Headers:
    """What Doxygen read."""

    def __init__(self):
        self.functions, self.enums, self.records, self.notes, self.classes = {}, {}, {}, {}, []
        for path in glob.glob(os.path.join(XML, "*.xml")):
            compound = ET.parse(path).getroot().find("compounddef")
            if compound is None:
                continue
            kind, name = compound.get("kind"), words(compound.find("compoundname"))
            if kind == "file" and name.endswith(".h"):
                subject = name[:-2]
                self.notes[subject] = words(compound.find("detaileddescription"))
                for member in compound.iter("memberdef"):
                    if member.get("kind") == "function":
                        self.functions[words(member.find("name"))] = member
                    elif member.get("kind") == "enum":
                        self.enums.setdefault(subject, []).append(member)
            elif kind == "struct" and name.startswith("kl_"):
                where = os.path.basename(compound.find("location").get("file"))[:-2]
                self.records.setdefault(where, []).append((int(compound.find("location").get("line")), name))
            elif kind in ("class", "struct") and name.startswith("ORBKIT::") and "<" not in name:
                self.classes.append((os.path.basename(compound.find("location").get("file")), kind, name))

    def check(self, function, form):
        member = self.functions.get(form["name"])
        described = member is not None and (words(member.find("briefdescription")) or words(member.find("detaileddescription")))
        if not described:
            return [f"{form['name']}: no contract"]
        if form["name"] != function["name"] or not function["conditions"]:
            return []
        named = {n for p in member.iter("parametername") for n in re.split(r"[,\s]+", words(p))}
        return [f"{form['name']}: nothing about {words(p.find('declname'))}"
                for p in member.findall("param") if p.find("declname") is not None and words(p.find("declname")) not in named] if named else []


def enum_pages(headers, subject):
    lines = []
    for member in sorted(headers.enums.get(subject, []), key=lambda m: int(m.find("location").get("line"))):
        values = member.findall("enumvalue")
        if any(words(v.find("name")).endswith("_N_CODES") for v in values):
            continue  # conditions: they stand at their function
        rows, count = [], 0
        for value in values:
            given = words(value.find("initializer")).lstrip("= ")
            meaning = words(value.find("briefdescription")) or words(value.find("detaileddescription"))
            rows.append((f"``{words(value.find('name'))}``", given or str(count), rst(meaning)))
            count += 1
        heading = words(member.find("briefdescription")) or words(member.find("detaileddescription"))
        lines += [rst(heading), ""] if heading else []
        lines += table(["Constant", "Value", ""], rows, [30, 12, 58])
    return title("Constants", "-") + lines if lines else []


def subject_page(headers, subject, functions, conditions):
    lines = title(SUBJECTS[subject]) + ["``#include \"kl_lib.h\"``, or ``kl/%s.h`` alone." % subject, "", rst(headers.notes.get(subject, "")), ""]
    for function in functions:
        lines += title(function["name"], "-") + [f".. doxygenfunction:: {function['name']}", ""]
        others = [f["name"] for f in function["forms"] if f["name"] != function["name"]]
        if others:
            lines += ["Other forms:", ""]
            for other in others:
                lines += [f".. doxygenfunction:: {other}", ""]
        rows = [(f"``{c['constant']}``", str(c["code"]), c["severity"], rst(c["text"]), rst("never recorded" if c["never_recorded"] else c["when"] or ""))
                for c in conditions if c["function"] == function["reported_as"]]
        if rows and function["conditions"]:
            lines += ["Conditions:", ""] + table(["Constant", "Code", "Severity", "Text", "When"], rows, [28, 6, 9, 30, 27])
    lines += enum_pages(headers, subject)
    records = [name for _, name in sorted(headers.records.get(subject, []))]
    if records:
        lines += title("Records", "-")
        for name in records:
            lines += [f".. doxygenstruct:: {name}", "   :members:", "   :undoc-members:", ""]
    write(f"reference/{subject}.rst", lines)


def main():
    headers = Headers()
    conditions = json.loads(read("api/conditions.json"))["conditions"]
    functions = [f for f in json.loads(read("api/api.json"))["functions"] if f["place"] == "public"]
    faults = [fault for f in functions for form in f["forms"] for fault in headers.check(f, form)]
    faults += [f"{f['name']}: no page for {f['subject']}" for f in functions if f["subject"] not in SUBJECTS]
    if faults:
        raise SystemExit("\n".join(faults))
    for subject in SUBJECTS:
        subject_page(headers, subject, [f for f in functions if f["subject"] == subject], conditions)
    index = title("Functions by subject") + [".. toctree::", "   :maxdepth: 1", "", *("   " + s for s in [*SUBJECTS, "types"]), ""]
    for subject, name in SUBJECTS.items():
        rows = [(f":c:func:`{f['name']}`", rst(f["summary"])) for f in functions if f["subject"] == subject]
        index += title(name, "-") + table(["Function", ""], rows, [40, 60]) if rows else []
    write("reference/index.rst", index)
    types = title("Ids, sizes and status") + enum_pages(headers, "types")
    for _, name in sorted(headers.records.get("types", [])):
        types += [f".. doxygenstruct:: {name}", "   :members:", "   :undoc-members:", ""]
    write("reference/types.rst", types)
    rules = title("What holds for every function")
    for rule in RULES:
        group = ET.parse(os.path.join(XML, f"group__rules__{rule}.xml")).getroot().find("compounddef")
        rules += title(words(group.find("title")), "-") + [rst(words(group.find("detaileddescription"))), ""]
    write("reference/rules.rst", rules)
    classes = title("C++ classes and values")
    by_header = {}
    for header, kind, name in sorted(headers.classes):
        if name.count("::") == 1 or name.startswith("ORBKIT::events::"):
            by_header.setdefault(header, []).append((kind, name))
    for header, of in by_header.items():
        classes += title(f"orbkit/{header}", "-")
        for kind, name in of:
            classes += [f".. doxygen{kind}:: {name}", "   :members:", ""]
    write("reference/classes.rst", classes)
    captions = dict(line.split(": ", 1) for line in read("docs/pictures/captions.txt").splitlines())
    gallery = title("Gallery") + ["Each is made by a program of ``examples``, by the demo, or by a script in ``tools``.", ""]
    for picture in sorted(glob.glob(os.path.join(SOURCE, "pictures", "*.png"))):
        name = os.path.basename(picture)
        caption = captions.get(name, name[:-4].replace("_", " ").capitalize())
        gallery += [f".. figure:: /pictures/{name}", f"   :alt: {caption}", "   :width: 100%", "", f"   {caption}", ""]
    write("gallery.rst", gallery)


main()
